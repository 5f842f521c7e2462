#include "TextBuffer.h"

#include <QString>

#include <algorithm>
#include <cstring>

namespace
{
QByteArray validText(const QByteArray &text)
{
    const int end = text.indexOf('\0');
    return QString::fromUtf8(end < 0 ? text : text.left(end)).toUtf8();
}

bool continuesCharacter(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xc0U) == 0x80U;
}
}

void TextBuffer::copy(char *buffer, std::size_t size, const QByteArray &text)
{
    const QByteArray valid = validText(text);
    int length = static_cast<int>(std::min<std::size_t>(static_cast<std::size_t>(valid.size()), size - 1));
    while (length > 0 && length < valid.size() && continuesCharacter(valid.at(length))) {
        --length;
    }
    std::memcpy(buffer, valid.constData(), static_cast<std::size_t>(length));
    std::memset(buffer + length, 0, size - static_cast<std::size_t>(length));
}

std::string TextBuffer::message(const QByteArray &text)
{
    return validText(text).toStdString();
}
