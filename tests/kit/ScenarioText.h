#pragma once

#include <QByteArray>
#include <QList>

/// A scenario of these lines behind the first.
inline QByteArray scenarioOf(const QList<QByteArray> &lines)
{
    QByteArray text = "{\"tavScenario\": 1}\n";
    for (const QByteArray &line : lines) {
        text += line + '\n';
    }
    return text;
}
