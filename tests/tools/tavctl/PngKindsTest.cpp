#include "FindingLines.h"
#include "PngBytes.h"
#include "PrintQString.h"

#include <QMap>

#include <gtest/gtest.h>

// Every kind of PNG file that the format has, and every way in which one is broken, in small.

namespace
{
const QByteArray signature = "\x89PNG\r\n\x1a\n";
const QByteArray end = PngBytes::chunk("IEND", {});

/// @brief What the header of a picture declares.
struct Header {
    int width = 8;
    int height = 8;
    int depth = 8;
    int colours = 0; ///< 0 grey, 2 RGB, 3 palette, 4 grey with alpha, 6 RGB with alpha
    bool interlaced = false;

    QByteArray chunk() const
    {
        QByteArray data(13, '\0');
        qToBigEndian(quint32(width), data.data());
        qToBigEndian(quint32(height), data.data() + 4);
        data[8] = char(depth);
        data[9] = char(colours);
        data[12] = char(interlaced ? 1 : 0);
        return PngBytes::chunk("IHDR", data);
    }

    /// The bytes of a black picture, before they are compressed, each row behind the number of its @p filter.
    QByteArray rows(char filter = 0) const
    {
        struct Pass {
            int x, y, dx, dy;
        };
        static const QVector<Pass> seven{{0, 0, 8, 8}, {4, 0, 8, 8}, {0, 4, 4, 8}, {2, 0, 4, 4},
                                         {0, 2, 2, 4}, {1, 0, 2, 2}, {0, 1, 1, 2}};
        const QMap<int, int> channels{{0, 1}, {2, 3}, {3, 1}, {4, 2}, {6, 4}};
        QByteArray bytes;
        for (const Pass &pass : interlaced ? seven : QVector<Pass>{{0, 0, 1, 1}}) {
            const int columns = (width - pass.x + pass.dx - 1) / pass.dx;
            const int lines = (height - pass.y + pass.dy - 1) / pass.dy;
            const int size = (columns * depth * channels[colours] + 7) / 8;
            for (int line = 0; size > 0 && line < lines; ++line) {
                bytes += filter + QByteArray(size, '\0');
            }
        }
        return bytes;
    }
};

QByteArray compressed(const QByteArray &bytes)
{
    return qCompress(bytes).mid(4); // what Qt puts before it is its own
}

QByteArray pixels(const QByteArray &rows)
{
    return PngBytes::chunk("IDAT", compressed(rows));
}

QByteArray picture(const Header &header, const QByteArray &between = {})
{
    return signature + header.chunk() + between + pixels(header.rows()) + end;
}

const QByteArray palette = PngBytes::chunk("PLTE", QByteArray(3 * 256, '\x40'));

class PngKinds : public TestFiles
{
protected:
    /// The findings on these pictures; expects of the plugin that it holds an empty one for each that cannot be
    /// decoded, and for no other, and that nothing is written to standard error.
    QStringList findingsOn(const QMap<QString, QByteArray> &pictures)
    {
        for (auto one = pictures.begin(); one != pictures.end(); ++one) {
            put("kinds/" + one.key() + ".png", one.value());
        }
        const Tavctl run({"pictures", "--json", directory.filePath("kinds")});
        EXPECT_EQ(run.errors, "");
        QStringList undecodable;
        for (const QJsonValue &finding : run.json()["findings"].toArray()) {
            if (finding["code"].toString() == "TAV503") {
                undecodable.append(finding["file"].toString());
            }
        }
        const QJsonArray held = run.json()["pictures"].toArray();
        EXPECT_EQ(held.size(), pictures.size());
        for (const QJsonValue &one : held) {
            EXPECT_EQ(one["width"].toInt() == 0, undecodable.contains(one["file"].toString()))
                << one["file"].toString().toStdString();
        }
        return findingLines(run).replaceInStrings(directory.filePath("kinds/"), "");
    }
};
}

TEST_F(PngKinds, ThatAreWholeAreNoFinding)
{
    QMap<QString, QByteArray> kinds;
    const QMap<int, QVector<int>> depths{
        {0, {1, 2, 4, 8, 16}}, {2, {8, 16}}, {3, {1, 2, 4, 8}}, {4, {8, 16}}, {6, {8, 16}}};
    for (auto row = depths.begin(); row != depths.end(); ++row) {
        for (const int depth : row.value()) {
            for (const bool interlaced : {false, true}) {
                const QByteArray colours
                    = row.key() == 3 ? PngBytes::chunk("PLTE", QByteArray(3 << depth, '\x40')) : QByteArray();
                kinds[QString("basic-%1-%2-%3").arg(row.key()).arg(depth).arg(interlaced)]
                    = picture({8, 8, depth, row.key(), interlaced}, colours);
            }
        }
    }
    for (int side = 1; side <= 9; ++side) {
        for (const bool interlaced : {false, true}) {
            kinds[QString("side-%1-%2").arg(side).arg(interlaced)] = picture({side, side, 1, 0, interlaced});
        }
    }
    const Header plain;
    for (char filter = 0; filter <= 4; ++filter) {
        kinds[QString("filter-%1").arg(int(filter))] = signature + plain.chunk() + pixels(plain.rows(filter)) + end;
    }
    const Header coloured{8, 8, 8, 2, false};
    const QMap<QString, QByteArray> ancillary{{"gAMA", QByteArray("\0\0\xb1\x8f", 4)},
                                              {"bKGD", QByteArray(6, '\0')},
                                              {"tRNS", QByteArray(6, '\0')},
                                              {"pHYs", QByteArray("\0\0\0\1\0\0\0\4\0", 9)},
                                              {"sBIT", "\5\5\5"},
                                              {"tIME", "\x07\xd0\1\1\1\1\1"},
                                              {"tEXt", QByteArray("Title\0text", 10)},
                                              {"zTXt", QByteArray("Title\0\0", 7) + compressed("text")},
                                              {"cHRM", QByteArray(32, '\x01')},
                                              {"prVt", "of another program"}};
    for (auto row = ancillary.begin(); row != ancillary.end(); ++row) {
        kinds["with-" + row.key()] = picture(coloured, PngBytes::chunk(row.key().toUtf8().constData(), row.value()));
    }
    kinds["palette-and-alpha"]
        = picture({8, 8, 8, 3, false}, palette + PngBytes::chunk("tRNS", QByteArray(256, '\x80')));
    kinds["histogram"] = picture({8, 8, 8, 3, false}, palette + PngBytes::chunk("hIST", QByteArray(512, '\1')));
    const QByteArray stream = compressed(plain.rows());
    QByteArray pieces;
    for (const char byte : stream) {
        pieces += PngBytes::chunk("IDAT", QByteArray(1, byte)) + PngBytes::chunk("IDAT", {});
    }
    kinds["in-pieces"] = signature + plain.chunk() + pieces + end;
    kinds["uncompressed"]
        = signature + plain.chunk() + PngBytes::chunk("IDAT", qCompress(plain.rows(), 0).mid(4)) + end;
    kinds["more-behind-the-end"] = picture(plain) + "more";
    // The decoder warns of these, and goes on.
    kinds["text-checksum"]
        = picture(plain, QByteArray(PngBytes::chunk("tEXt", QByteArray("a\0b", 3))).replace(11, 1, "x"));
    kinds["profile-broken"]
        = picture(plain, PngBytes::chunk("iCCP", QByteArray("x\0\0", 3) + compressed("no profile")));
    kinds["gamma-of-0"] = picture(plain, PngBytes::chunk("gAMA", QByteArray(4, '\0')));
    kinds["too-many-pixels"] = signature + plain.chunk() + pixels(plain.rows() + plain.rows()) + end;
    EXPECT_EQ(findingsOn(kinds), QStringList());
}

TEST_F(PngKinds, ThatAreBrokenAreNamedWithTheDecodersReason)
{
    const Header plain;
    const QByteArray whole = picture(plain);
    const auto withHeader = [](const QByteArray &header) { return signature + header + pixels(Header().rows()) + end; };
    const auto withDepth = [](int depth, int colours) { return picture({8, 8, depth, colours, false}); };
    const QByteArray wrongSum = QByteArray(plain.chunk()).replace(plain.chunk().size() - 1, 1, "\x7f");
    const QByteArray wrongData = QByteArray(pixels(plain.rows())).replace(12, 1, "\x7f");
    const QString noPng = "Unsupported image format";
    struct {
        QString name;
        QByteArray bytes;
        QString reason;
    } const rows[] = {
        {"bit-7-lost", QByteArray(whole).replace(0, 1, "\x09"), noPng},
        {"colours-1", withDepth(8, 1), "libpng warning: Invalid color type in IHDR"},
        {"colours-9", withDepth(8, 9), "libpng warning: Invalid color type in IHDR"},
        {"cut-in-header", whole.left(20), "libpng error: Read Error"},
        {"cut-in-pixels", whole.left(50), "libpng error: Read Error"},
        {"cut-in-signature", whole.left(4), noPng},
        {"depth-0", withDepth(0, 0), "libpng warning: Invalid bit depth in IHDR"},
        {"depth-3", withDepth(3, 0), "libpng warning: Invalid bit depth in IHDR"},
        {"depth-99", withDepth(99, 0), "libpng warning: Invalid bit depth in IHDR"},
        {"empty", "", noPng},
        {"end-alone", signature + end, "libpng error: "},
        {"header-checksum", withHeader(wrongSum), "libpng error: IHDR: CRC error"},
        {"header-late", signature + pixels(plain.rows()) + plain.chunk() + end, "libpng error: "},
        {"height-0", picture({8, 0, 8, 0, false}), "libpng warning: Image height is zero in IHDR"},
        {"line-ends-converted", QByteArray(whole).replace("\r\n", "\n"), noPng},
        {"line-ends-doubled", QByteArray(whole).replace("\n", "\r\n"), noPng},
        {"no-palette", picture({8, 8, 8, 3, false}), "libpng error: IDAT: Missing PLTE before IDAT"},
        {"no-pixels", signature + plain.chunk() + end, "libpng error: "},
        {"pixel-checksum", signature + plain.chunk() + wrongData + end, "libpng error: "},
        {"signature-alone", signature, "libpng error: Read Error"},
        {"too-few-pixels", signature + plain.chunk() + pixels(plain.rows().left(20)) + end,
         "libpng error: Not enough image data"},
        {"unknown-critical", picture(plain, PngBytes::chunk("CRIT", "?")), "libpng error: "},
        {"width-0", picture({0, 8, 8, 0, false}), "libpng warning: Image width is zero in IHDR"},
    };
    QMap<QString, QByteArray> pictures;
    for (const auto &row : rows) {
        pictures[row.name] = row.bytes;
    }
    const QStringList findings = findingsOn(pictures);
    int next = 0;
    for (const auto &row : rows) {
        EXPECT_TRUE(findings.value(next).startsWith(row.name + ".png: error: TAV503: cannot be decoded: " + row.reason))
            << row.name.toStdString() << ": " << findings.value(next).toStdString();
        ++next;
    }
    EXPECT_EQ(findings.size(), next);
}

TEST_F(PngKinds, ThatAreOtherFormatsAreNamed)
{
    QByteArray bitmap("BM\x3a\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\1\0\0\0\1\0\0\0\1\0\x18\0", 30);
    bitmap += QByteArray(28, '\0');
    EXPECT_EQ(findingsOn({{"bitmap", bitmap},
                          {"graphic", "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"8\" height=\"8\"/>"},
                          {"pixmap", "/* XPM */\nstatic char *x[] = {\"1 1 1 1\",\"a c #000000\",\"a\"};"}})
                  .filter("TAV513")
                  .size(),
              2)
        << "whether graphics can be decoded depends on what is installed";
}
