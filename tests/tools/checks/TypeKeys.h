#pragma once

#include <QMetaEnum>
#include <QStringList>

/// The keys of a type in their order, without the one that stands for none.
template<class Enum>
QStringList typeKeys()
{
    const QMetaEnum type = QMetaEnum::fromType<Enum>();
    QStringList keys;
    for (int i = 0; i < type.keyCount(); ++i) {
        if (type.value(i) != 0) {
            keys.append(type.key(i));
        }
    }
    return keys;
}
