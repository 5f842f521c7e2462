#include "PlainToolTip.h"

QString plainToolTip(const QString &text)
{
    return text.isEmpty() ? text
                          : QStringLiteral("<p style='white-space:pre-wrap'>%1</p>").arg(text.toHtmlEscaped());
}
