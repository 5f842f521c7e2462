#pragma once

#include <QByteArray>

/// Base64 as configuration files hold it: in lines of 76 characters, the last one ended too.
namespace Base64Text
{
QByteArray encoded(const QByteArray &bytes);

/// Offset of the first character that does not belong into a Base64 text, which is its size when the text ends too
/// early; -1 when it is Base64. White space may stand anywhere, the padding may be left out.
int firstWrong(const QByteArray &text);

/// What the text holds; what does not belong into it is skipped, as the plugin does.
QByteArray decoded(const QByteArray &text);
}
