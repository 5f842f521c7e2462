#pragma once

#include "TavJsonText.h"

#include <QByteArray>

/// Base64 as configuration files hold it.
namespace Base64Text
{
/// In lines of this length, each ended; with 0, in one line that is not ended.
QByteArray encoded(const QByteArray &bytes, int lineLength);

/// Offset of the first character that does not belong into a Base64 text, which is its size when the text ends too
/// early; -1 when it is Base64. White space may stand anywhere, the padding may be left out.
int firstWrong(const QByteArray &text);

/// Offset of the last character when some of its bits stand for nothing and yet are not 0, so that encoding would not
/// give it back; -1 when there is no such character.
int spareBits(const QByteArray &text);

/// Whether @p bytes are meant for JSON rather than for Base64, by what they begin with.
bool isJsonText(const QByteArray &bytes);

/// What the plugin reads from the file's bytes: as UTF-8 up to the first NUL, without what does not belong into Base64.
QByteArray decoded(const QByteArray &bytes);
}

/// @brief Where a text's bytes stand in the Base64 text that the plugin reads them from: each asked for lies behind the
/// last.
class Base64Places
{
public:
    explicit Base64Places(const QByteArray &base64);

    /// Where the digits of the byte at @p offset begin.
    TextPlace at(int offset);

private:
    QByteArray m_base64;
    PlaceCounter m_counter;
    int m_position = 0;
    int m_digits = 0; // before that position
};
