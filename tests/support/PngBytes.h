#pragma once

#include <QByteArray>
#include <QtEndian>

#include <array>

/// Makes PNG files that no honest program would write.
namespace PngBytes
{
/// Chunk of a PNG file: length, type, data, checksum.
inline QByteArray chunk(const char *type, const QByteArray &data)
{
    const auto bigEndian = [](quint32 number) {
        std::array<char, 4> bytes{};
        qToBigEndian(number, bytes.data());
        return QByteArray(bytes.data(), int(bytes.size()));
    };
    const QByteArray checked = type + data;
    quint32 sum = 0xffffffff;
    for (const char byte : checked) {
        sum ^= static_cast<quint8>(byte);
        for (int bit = 0; bit < 8; ++bit) {
            sum = (sum >> 1) ^ (sum % 2 != 0 ? 0xedb88320 : 0);
        }
    }
    return bigEndian(static_cast<quint32>(data.size())) + checked + bigEndian(~sum);
}

/// A zlib stream of @p count zeros, at least one; 158 times shorter than they are.
inline QByteArray zeros(qint64 count)
{
    QByteArray stream("\x78\x01", 2);
    int held = 0;
    int bits = 0;
    const auto put = [&](const char *code) {
        for (; *code != '\0'; ++code) {
            held |= (*code - '0') << bits;
            if (++bits == 8) {
                stream.append(static_cast<char>(held));
                held = 0;
                bits = 0;
            }
        }
    };
    // One block with the fixed codes: zeros as they are, then runs of 258 more.
    put("110");
    for (qint64 i = 0; i < 1 + (count - 1) % 258; ++i) {
        put("00110000"); // a zero
    }
    for (qint64 i = 0; i < (count - 1) / 258; ++i) {
        put("1100010100000"); // 258 times the byte before
    }
    put("0000000"); // the end
    while (bits != 0) {
        put("0");
    }
    std::array<char, 4> adler{};
    qToBigEndian(static_cast<quint32>(count % 65521) << 16 | 1, adler.data());
    return stream + QByteArray(adler.data(), int(adler.size()));
}

constexpr int grey = 0;
constexpr int rgba = 6;

/// A PNG file with eight bits a channel, that declares this size; @p pixels is the zlib stream.
inline QByteArray picture(quint32 width, quint32 height, int colours, const QByteArray &pixels,
                          const QByteArray &otherChunks = {})
{
    QByteArray header(13, '\0');
    qToBigEndian(width, header.data());
    qToBigEndian(height, header.data() + 4);
    header[8] = 8;
    header[9] = static_cast<char>(colours);
    return "\x89PNG\r\n\x1a\n" + chunk("IHDR", header) + otherChunks + chunk("IDAT", pixels) + chunk("IEND", {});
}

/// A whole black square picture.
inline QByteArray black(quint32 side)
{
    return picture(side, side, grey, zeros(qint64(side) * (side + 1)));
}
}
