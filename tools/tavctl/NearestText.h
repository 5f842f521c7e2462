#pragma once

#include <QStringList>

/// The text of @p known that @p text is probably meant to be; empty when none is near: more than a third of the
/// letters would have to change.
QString nearestText(const QString &text, const QStringList &known);
