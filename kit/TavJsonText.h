#pragma once

#include <QByteArray>
#include <QHash>
#include <QJsonValue>
#include <QSet>
#include <QString>

/// @brief A place in a text, counted from 1 in lines and in characters; 0 for none.
struct TextPlace {
    int line = 0;
    int column = 0;
};

/// @brief A stretch of a text, in bytes; an offset of -1 for none.
struct TextRange {
    int offset = -1;
    int length = 0;
};

/// @brief Counts the lines and characters of a UTF-8 text in one walk: each place asked for lies behind the last.
class PlaceCounter
{
public:
    explicit PlaceCounter(const QByteArray &text);

    /// Where the byte at @p offset stands.
    TextPlace at(int offset);

private:
    QByteArray m_text;
    int m_offset;
    TextPlace m_place{1, 1};
};

/// Where the byte at @p offset of a UTF-8 text stands.
TextPlace placeAt(const QByteArray &text, int offset);

/// Whether a text that begins with plain letters is UTF-16: it has a mark, or every other byte is 0.
bool isUtf16(const QByteArray &text);

/// @brief A JSON text as the plugin's own reader takes it.
class TavJsonText
{
public:
    /// @brief Where a value stands; none of the members for a value that there is not.
    struct Value {
        TextPlace place; ///< where it begins
        TextRange range; ///< what it takes of the text
        TextRange key; ///< what its key takes of the text, with its quotes; none when it is no member
    };

    explicit TavJsonText(const QByteArray &text);

    /// Why the text is not JSON; empty when it is.
    QString error() const
    {
        return m_error;
    }

    /// Where it ceases to be JSON.
    TextPlace errorPlace() const
    {
        return m_errorPlace;
    }

    /// The byte where it ceases to be JSON.
    int errorOffset() const
    {
        return m_errorOffset;
    }

    /// The array or object that the text holds.
    QJsonValue document() const
    {
        return m_document;
    }

    /// The values at these JSON pointers (TavJsonPath.h), by them, as far as there are such. Goes through the whole
    /// text.
    QHash<QString, Value> valuesAt(const QSet<QString> &paths) const;

    /// Paths of the members whose key stands more than once in one object.
    QSet<QString> doubledKeys() const
    {
        return m_doubledKeys;
    }

    bool hasByteOrderMark() const
    {
        return m_text.startsWith("\xef\xbb\xbf");
    }

    /// Paths of the texts that JSON forbids and the reader takes, or of the members whose keys are such: they hold
    /// control characters, or a backslash before a character that needs none.
    QSet<QString> lenientStrings() const
    {
        return m_lenientStrings;
    }

    /// Paths of the numbers that JSON forbids and the reader takes: on one side of their point is no digit.
    QSet<QString> lenientNumbers() const
    {
        return m_lenientNumbers;
    }

private:
    QByteArray m_text;
    QString m_error;
    TextPlace m_errorPlace;
    int m_errorOffset = -1;
    QJsonValue m_document;
    QSet<QString> m_doubledKeys;
    QSet<QString> m_lenientStrings;
    QSet<QString> m_lenientNumbers;
};
