#pragma once

#include <QTextDocument>
#include <QTextDocumentFragment>

/// What Qt shows of a tool tip: it looks like HTML or is taken as it is.
inline QString shownToolTip(const QString &toolTip)
{
    return Qt::mightBeRichText(toolTip) ? QTextDocumentFragment::fromHtml(toolTip).toPlainText() : toolTip;
}
