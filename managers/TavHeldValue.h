#pragma once

#include <QMutex>

#include <google/protobuf/message_lite.h>

#include <type_traits>

/**
 * @brief The accessor convention of all managers: values are copied in and copied out under the manager's mutex, and
 * no reference to a held value ever leaves its manager.
 */
namespace TavHeldValue
{
template<class T>
void set(QMutex &mutex, T &held, const T &value)
{
    QMutexLocker lock(&mutex);
    if constexpr (std::is_base_of_v<google::protobuf::MessageLite, T>) {
        held.CopyFrom(value);
    } else {
        held = value;
    }
}

template<class T>
T get(QMutex &mutex, const T &held)
{
    QMutexLocker lock(&mutex);
    return held;
}
}
