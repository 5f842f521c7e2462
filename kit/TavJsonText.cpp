#include "TavJsonText.h"

#include "TavHiddenCharacter.h"
#include "TavJsonPath.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cstring>

namespace
{
const char *const byteOrderMark = "\xef\xbb\xbf";

/// Offset of the first character, which a mark of the byte order is not.
int startOf(const QByteArray &text)
{
    return text.startsWith(byteOrderMark) ? int(std::strlen(byteOrderMark)) : 0;
}

/// Offset of the character that @p error is about. Qt has mostly read it already.
int offsetOf(const QJsonParseError &error, const QByteArray &text)
{
    if (error.error == QJsonParseError::IllegalNumber) {
        int offset = error.offset; // behind those characters that a number may have, before which a bracket stands
        while (std::strchr("+-.eE0123456789", text[offset - 1])) {
            --offset;
        }
        return offset;
    }
    const bool isAhead = error.offset == 0 || error.error == QJsonParseError::GarbageAtEnd
        || error.error == QJsonParseError::IllegalUTF8String;
    return isAhead ? error.offset : error.offset - 1;
}

/// Why the text ceases to be JSON at @p offset, more exactly than Qt says it.
QString reasonOf(const QJsonParseError &error, const QByteArray &text, int offset)
{
    const QByteArray before = text.left(offset).trimmed();
    const QByteArray there = text.mid(offset, 2);
    if (text.trimmed().isEmpty()) {
        return "the text is empty";
    }
    if (isUtf16(text)) {
        return "the text is UTF-16, and the reader wants UTF-8";
    }
    if (there == "//" || there == "/*") {
        return "JSON has no comments";
    }
    const QString rest = QString::fromUtf8(text.mid(offset, 4));
    const QString hidden = rest.isEmpty() ? QString() : hiddenCharacterName(rest.toUcs4().first());
    if (!hidden.isEmpty() && error.error != QJsonParseError::IllegalUTF8String) {
        return hidden + " stands here, which JSON has only in strings";
    }
    switch (error.error) {
    case QJsonParseError::UnterminatedObject:
        return R"(a name, "," or "}" is expected here)";
    case QJsonParseError::MissingNameSeparator:
        return R"(":" is expected here)";
    case QJsonParseError::UnterminatedArray:
    case QJsonParseError::MissingValueSeparator:
        return R"("," or "]" is expected here)";
    case QJsonParseError::MissingObject:
        return before.endsWith(',') ? "nothing stands behind the last comma: remove it" : "a value is expected here";
    case QJsonParseError::IllegalValue:
        return before.isEmpty() || before == byteOrderMark ? "the text must begin with [ or {"
                                                           : "a value is expected here";
    case QJsonParseError::TerminationByNumber:
    case QJsonParseError::UnterminatedString:
        return "the text ends too early";
    case QJsonParseError::GarbageAtEnd:
        return "the text goes on behind its end";
    case QJsonParseError::IllegalNumber:
        return "this is no number, nor another value";
    case QJsonParseError::IllegalUTF8String:
        return "this is not UTF-8";
    case QJsonParseError::DeepNesting:
        return "nested deeper than the reader's 1024 levels";
    default:
        return error.errorString();
    }
}

/// Whether JSON allows what stands between the quotes: Qt's reader takes more.
bool isStrict(const QByteArray &quoted)
{
    for (int i = 1; i < quoted.size(); ++i) {
        if (uchar(quoted[i]) < 0x20 || (quoted[i] == '\\' && !std::strchr("\"\\/bfnrtu", quoted[++i]))) {
            return false;
        }
    }
    return true;
}

bool isDigit(char character)
{
    return character >= '0' && character <= '9';
}
}

bool isUtf16(const QByteArray &text)
{
    return text.startsWith("\xff\xfe") || text.startsWith("\xfe\xff")
        || (text.size() >= 2 && (text[0] == '\0') != (text[1] == '\0'));
}

PlaceCounter::PlaceCounter(const QByteArray &text) : m_text(text), m_offset(startOf(text))
{
}

TextPlace PlaceCounter::at(int offset)
{
    for (; m_offset < offset && m_offset < m_text.size(); ++m_offset) {
        const char byte = m_text[m_offset];
        if (byte == '\n') {
            m_place = {m_place.line + 1, 1};
        } else if ((byte & 0xc0) != 0x80) { // the first byte of a character
            ++m_place.column;
        }
    }
    return m_place;
}

TextPlace placeAt(const QByteArray &text, int offset)
{
    return PlaceCounter(text).at(offset);
}

namespace
{
/// @brief Goes through a text that is JSON. Its end ends every loop all the same.
class TextWalk
{
public:
    /// Notes the values at @p wanted.
    explicit TextWalk(const QByteArray &text, const QSet<QString> &wanted = {})
        : m_text(text), m_wanted(wanted), m_counter(text), m_position(startOf(text))
    {
        readValue(QString());
    }

    QHash<QString, TavJsonText::Value> values; ///< by path
    QSet<QString> doubledKeys;
    QSet<QString> lenientStrings;
    QSet<QString> lenientNumbers;

private:
    bool isAtEnd() const
    {
        return m_position >= m_text.size();
    }

    /// Whether the next character that is no space is @p character.
    bool isAt(char character)
    {
        while (!isAtEnd() && std::strchr(" \t\r\n", m_text[m_position])) {
            ++m_position;
        }
        return isAtEnd() || m_text[m_position] == character;
    }

    void readValue(const QString &path, const TextRange &key = {})
    {
        const bool isObject = isAt('{');
        const int start = m_position;
        const auto wanted = m_wanted.constFind(path);
        const bool isWanted = wanted != m_wanted.constEnd();
        const TextPlace place = isWanted ? m_counter.at(start) : TextPlace();
        if (isObject) {
            readMembers(path);
        } else if (isAt('[')) {
            readElements(path);
        } else {
            if (isAt('"') && !isStrict(readString())) {
                lenientStrings.insert(path);
            }
            while (!isAtEnd() && !std::strchr(",]} \t\r\n", m_text[m_position])) {
                if (m_text[m_position] == '.'
                    && !(isDigit(m_text[m_position - 1]) && isDigit(m_text[m_position + 1]))) {
                    lenientNumbers.insert(path);
                }
                ++m_position;
            }
        }
        if (isWanted) { // its path is shared with whoever wants it
            values.insert(*wanted, {place, {start, m_position - start}, key});
        }
    }

    void readMembers(const QString &path)
    {
        ++m_position;
        QSet<QString> keys;
        while (!isAt('}')) {
            const int start = m_position;
            const QByteArray quoted = readString();
            const bool isStrictKey = isStrict(quoted);
            const QString key = QJsonDocument::fromJson('[' + quoted + ']').array().first().toString();
            const QString member = TavJson::memberPath(path, key);
            if (keys.contains(key)) {
                doubledKeys.insert(member);
            }
            keys.insert(key);
            if (!isStrictKey) {
                lenientStrings.insert(member);
            }
            if (isAt(':')) {
                ++m_position;
            }
            readValue(member, {start, quoted.size()});
            if (isAt(',')) {
                ++m_position;
            }
        }
        ++m_position;
    }

    void readElements(const QString &path)
    {
        ++m_position;
        for (int index = 0; !isAt(']'); ++index) {
            readValue(TavJson::elementPath(path, index));
            if (isAt(',')) {
                ++m_position;
            }
        }
        ++m_position;
    }

    /// Goes past a string and returns it with its quotes.
    QByteArray readString()
    {
        const int start = m_position++;
        while (!isAtEnd() && m_text[m_position] != '"') {
            m_position += m_text[m_position] == '\\' ? 2 : 1;
        }
        return m_text.mid(start, ++m_position - start);
    }

    const QByteArray m_text;
    const QSet<QString> m_wanted;
    PlaceCounter m_counter;
    int m_position;
};
}

TavJsonText::TavJsonText(const QByteArray &text) : m_text(text)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(text, &error);
    if (error.error != QJsonParseError::NoError) {
        const int offset = isUtf16(text) ? 0 : offsetOf(error, text);
        m_error = reasonOf(error, text, offset);
        m_errorPlace = placeAt(text, offset);
        m_errorOffset = offset;
        return;
    }
    m_document = document.isArray() ? QJsonValue(document.array()) : QJsonValue(document.object());
    const TextWalk walk(text);
    m_doubledKeys = walk.doubledKeys;
    m_lenientStrings = walk.lenientStrings;
    m_lenientNumbers = walk.lenientNumbers;
}

QHash<QString, TavJsonText::Value> TavJsonText::valuesAt(const QSet<QString> &paths) const
{
    return m_error.isEmpty() && !paths.isEmpty() ? TextWalk(m_text, paths).values : QHash<QString, Value>();
}
