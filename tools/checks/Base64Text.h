#pragma once

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

/// What the plugin reads from the file's bytes: as UTF-8 up to the first NUL, without what does not belong into Base64.
QByteArray decoded(const QByteArray &bytes);
}
