#include "Base64Text.h"

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

QByteArray Base64Text::encoded(const QByteArray &bytes)
{
    constexpr int lineLength = 76;
    const QByteArray text = bytes.toBase64();
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

QByteArray Base64Text::decoded(const QByteArray &text)
{
    return QByteArray::fromBase64(text);
}
