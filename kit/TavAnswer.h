#pragma once

/// @file
/// From a backend's answer to messages, records and texts, and back, without losing or inventing anything. All
/// functions may be called on any thread.

#include <QByteArray>
#include <QString>
#include <QVector>

#include <algorithm>
#include <cstring>
#include <optional>
#include <type_traits>

/// The message that @p bytes are, whole; nothing when they are not one.
template<class Message>
[[nodiscard]] std::optional<Message> tavMessage(const QByteArray &bytes)
{
    std::optional<Message> message(std::in_place);
    if (!message->ParseFromArray(bytes.constData(), bytes.size())) {
        message.reset();
    }
    return message;
}

/// The one record that @p bytes are; nothing when they are fewer or more. For records without texts of Qt: those that
/// end in `Asr`, whose layout the header fixes.
template<class Record>
[[nodiscard]] std::optional<Record> tavRecord(const QByteArray &bytes)
{
    static_assert(std::is_trivially_copyable_v<Record>, "only records of plain bytes are sent as they lie in memory");
    std::optional<Record> record;
    if (bytes.size() == int(sizeof(Record))) {
        std::memcpy(&record.emplace(), bytes.constData(), sizeof(Record));
    }
    return record;
}

/// The records that @p bytes are, one behind the other; nothing when the last one is not whole. For the same records
/// as tavRecord().
template<class Record>
[[nodiscard]] std::optional<QVector<Record>> tavRecords(const QByteArray &bytes)
{
    static_assert(std::is_trivially_copyable_v<Record>, "only records of plain bytes are sent as they lie in memory");
    std::optional<QVector<Record>> records;
    if (bytes.size() % int(sizeof(Record)) == 0) {
        records.emplace(bytes.size() / int(sizeof(Record)));
        std::copy_n(bytes.constData(), bytes.size(), reinterpret_cast<char *>(records->data()));
    }
    return records;
}

/// The text in a record's buffer: UTF-8 up to the NUL, or to the buffer's end where there is none.
template<int size>
[[nodiscard]] QString tavText(const char (&buffer)[size])
{
    return QString::fromUtf8(buffer, int(qstrnlen(buffer, size)));
}

/// Writes @p text into a record's buffer, cut behind the last character that fits whole, and fills the rest with NUL.
template<int size>
void tavSetText(char (&buffer)[size], const QString &text)
{
    const QByteArray bytes = text.toUtf8();
    int length = std::min(bytes.size(), size - 1);
    // Not within a character: its further bytes begin with the bits 10, unlike the NUL behind the text.
    while ((bytes.constData()[length] & '\xC0') == '\x80') {
        --length;
    }
    std::fill(std::copy_n(bytes.constData(), length, buffer), buffer + size, '\0');
}
