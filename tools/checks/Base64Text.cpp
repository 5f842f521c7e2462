#include "Base64Text.h"

#include <QString>

namespace
{
bool isDigit(char character)
{
    return (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z')
        || (character >= '0' && character <= '9') || character == '+' || character == '/';
}

bool isSpace(char character)
{
    return character == ' ' || character == '\t' || character == '\r' || character == '\n';
}
}

QByteArray Base64Text::encoded(const QByteArray &bytes, int lineLength)
{
    QByteArray text = bytes.toBase64();
    if (lineLength == 0) {
        return text;
    }
    QByteArray lines;
    for (int start = 0; start < text.size(); start += lineLength) {
        lines += text.mid(start, lineLength) + '\n';
    }
    return lines;
}

int Base64Text::firstWrong(const QByteArray &text)
{
    int digits = 0;
    int padding = 0;
    for (int i = 0; i < text.size(); ++i) {
        if (isSpace(text[i])) {
            continue;
        }
        // Padding fills the last group of four up; nothing follows it.
        const bool isPadding = text[i] == '=' && digits % 4 >= 2 && digits % 4 + padding < 4;
        if (!isPadding && (padding > 0 || !isDigit(text[i]))) {
            return i;
        }
        ++(isPadding ? padding : digits);
    }
    return digits % 4 == 1 ? text.size() : -1;
}

int Base64Text::spareBits(const QByteArray &text)
{
    QByteArray digits;
    int last = -1;
    for (int i = 0; i < text.size(); ++i) {
        if (isDigit(text[i])) {
            digits.append(text[i]);
            last = i;
        }
    }
    return QByteArray::fromBase64(digits).toBase64(QByteArray::OmitTrailingEquals) == digits ? -1 : last;
}

bool Base64Text::isJsonText(const QByteArray &bytes)
{
    const QByteArray text = QByteArray(bytes).replace("\xef\xbb\xbf", "").trimmed();
    return text.startsWith('[') || text.startsWith('{');
}

QByteArray Base64Text::decoded(const QByteArray &bytes)
{
    return QByteArray::fromBase64(QString::fromUtf8(bytes).toLocal8Bit());
}

Base64Places::Base64Places(const QByteArray &base64) : m_base64(base64), m_counter(base64)
{
}

TextPlace Base64Places::at(int offset)
{
    const int digits = offset / 3 * 4 + offset % 3; // three bytes are four digits; the second begins in the second
    while (m_position < m_base64.size() && (m_digits < digits || !isDigit(m_base64[m_position]))) {
        m_digits += isDigit(m_base64[m_position++]) ? 1 : 0;
    }
    return m_counter.at(m_position);
}
