#include "JsonText.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

#include <cstring>

namespace
{
/// Why the text is not JSON, more exactly than Qt says it.
QString reasonOf(const QJsonParseError &error)
{
    switch (error.error) {
    case QJsonParseError::UnterminatedObject:
        return R"(a name, "," or "}" is expected here)";
    case QJsonParseError::MissingNameSeparator:
        return R"(":" is expected here)";
    case QJsonParseError::UnterminatedArray:
    case QJsonParseError::MissingValueSeparator:
        return R"("," or "]" is expected here)";
    case QJsonParseError::MissingObject:
        return "a value or a name is expected here";
    case QJsonParseError::IllegalValue:
        return "an array, an object or another value is expected here";
    case QJsonParseError::TerminationByNumber:
    case QJsonParseError::UnterminatedString:
        return "the text ends too early";
    case QJsonParseError::GarbageAtEnd:
        return "the text goes on behind its end";
    case QJsonParseError::IllegalNumber:
        return "this is no number, nor another value";
    case QJsonParseError::IllegalUTF8String:
        return "this is not UTF-8";
    default:
        return error.errorString();
    }
}

/// Offset of the character that @p error is about. Qt has mostly read it already.
int offsetOf(const QJsonParseError &error, int size)
{
    const bool isAhead
        = error.error == QJsonParseError::GarbageAtEnd || error.error == QJsonParseError::IllegalUTF8String;
    return qBound(0, isAhead ? error.offset : error.offset - 1, size);
}
}

TextPlace placeAt(const QByteArray &text, int offset)
{
    const QByteArray before = text.left(offset);
    const int lineStart = before.lastIndexOf('\n') + 1;
    return {int(before.count('\n')) + 1, int(QString::fromUtf8(before.mid(lineStart)).toUcs4().size()) + 1};
}

QString memberPath(const QString &path, const QString &key)
{
    QString escaped = key;
    return path + '/' + escaped.replace('~', "~0").replace('/', "~1");
}

JsonText::JsonText(const QByteArray &text) : m_text(text)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(text, &error);
    if (error.error != QJsonParseError::NoError) {
        m_error = reasonOf(error);
        m_errorPlace = placeAt(text, offsetOf(error, text.size()));
        return;
    }
    m_document = document.isArray() ? QJsonValue(document.array()) : QJsonValue(document.object());
    m_position = text.startsWith("\xef\xbb\xbf") ? 3 : 0;
    readValue(QString());
}

TextPlace JsonText::placeOf(const QString &path) const
{
    const auto offset = m_offsets.find(path);
    return offset == m_offsets.end() ? TextPlace() : placeAt(m_text, *offset);
}

// The reading below relies on the text being JSON. The end of the text ends every loop all the same.

/// Whether the next character that is no space is @p character.
bool JsonText::isAt(char character)
{
    while (m_position < m_text.size() && std::strchr(" \t\r\n", m_text[m_position])) {
        ++m_position;
    }
    return m_position >= m_text.size() || m_text[m_position] == character;
}

void JsonText::readValue(const QString &path)
{
    if (isAt('{')) {
        readMembers(path);
    } else if (isAt('[')) {
        readElements(path);
    } else {
        m_offsets.insert(path, m_position);
        if (isAt('"')) {
            readString();
        }
        while (m_position < m_text.size() && !std::strchr(",]} \t\r\n", m_text[m_position])) {
            ++m_position;
        }
    }
}

void JsonText::readMembers(const QString &path)
{
    m_offsets.insert(path, m_position++);
    QSet<QString> keys;
    while (!isAt('}')) {
        const QByteArray quoted = readString();
        const QString key = QJsonDocument::fromJson('[' + quoted + ']').array().first().toString();
        const QString member = memberPath(path, key);
        if (keys.contains(key) && !m_doubledKeys.contains(member)) {
            m_doubledKeys.append(member);
        }
        keys.insert(key);
        if (isAt(':')) {
            ++m_position;
        }
        readValue(member);
        if (isAt(',')) {
            ++m_position;
        }
    }
    ++m_position;
}

void JsonText::readElements(const QString &path)
{
    m_offsets.insert(path, m_position++);
    for (int index = 0; !isAt(']'); ++index) {
        readValue(memberPath(path, QString::number(index)));
        if (isAt(',')) {
            ++m_position;
        }
    }
    ++m_position;
}

/// Goes past a string and returns it with its quotes.
QByteArray JsonText::readString()
{
    const int start = m_position++;
    while (m_position < m_text.size() && m_text[m_position] != '"') {
        m_position += m_text[m_position] == '\\' ? 2 : 1;
    }
    return m_text.mid(start, ++m_position - start);
}
