#pragma once

#include <QStringList>

/// The text of @p known that @p text is probably meant to be: the same in other case, else the one that differs in the
/// fewest letters, a third of them at most, else the only one that goes on where the other ends. Empty when there is
/// none.
QString nearestText(const QString &text, const QStringList &known);

/// The same in the words of an error, "nearest: …"; where there is none, "there are: …" with all of @p known.
QString nearestOrAll(const QString &text, const QStringList &known);
