#pragma once

#include <QRegularExpression>
#include <QString>

/// @p types without the classes that they are nested in, which say nothing to whoever reads them in a narrow column.
inline QString withoutScopes(QString types)
{
    return types.remove(QRegularExpression(QStringLiteral("\\w+::")));
}
