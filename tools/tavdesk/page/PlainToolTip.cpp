#include "PlainToolTip.h"

#include "ShortText.h"

QString plainToolTip(const QString &text)
{
    constexpr int most = 4000; // letters; Qt lays out all that it is given
    return text.isEmpty()
        ? text
        : QStringLiteral("<p style='white-space:pre-wrap'>%1</p>").arg(shortText(text, most).toHtmlEscaped());
}
