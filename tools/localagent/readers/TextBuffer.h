#pragma once

#include <QByteArray>

#include <cstddef>
#include <string>

/**
 * @brief Texts of the host, which are bytes, as the records and messages hold them, which is UTF-8.
 *
 * Bytes that are not UTF-8 become U+FFFD; a NUL ends the text.
 */
namespace TextBuffer
{
/// Writes @p text into the @p size bytes of @p buffer, cut between two characters; the rest of the buffer is NUL, at
/// least its last byte. @p size is at least 1.
void copy(char *buffer, std::size_t size, const QByteArray &text);

/// As above, with the length of the record's buffer.
template<std::size_t size>
void copy(char (&buffer)[size], const QByteArray &text)
{
    copy(buffer, size, text);
}

/// @p text for a text field of a message.
std::string message(const QByteArray &text);
}
