#include "KnownKeys.h"

#include "TavSetValue.h"

#include <algorithm>

void KnownKeys::note(const QString &manager, const QString &operation, const QJsonValue &arguments)
{
    if (operation == QLatin1String("clearCacheData")) {
        const QMutexLocker lock(&m_mutex);
        m_keys.erase(manager);
        return;
    }
    const TavCall::SetValue value = TavCall::setValueOf(manager, operation, arguments);
    if (!value.key.isEmpty()) {
        const QMutexLocker lock(&m_mutex);
        m_keys[manager][value.getter].insert(value.key);
    }
}

QVector<QJsonArray> KnownKeys::of(const QString &manager, const QString &getter) const
{
    const QMutexLocker lock(&m_mutex);
    const auto getters = m_keys.find(manager);
    if (getters == m_keys.end()) {
        return {};
    }
    const auto keys = getters->second.find(getter);
    return keys == getters->second.end() ? QVector<QJsonArray>()
                                         : QVector<QJsonArray>(keys->second.begin(), keys->second.end());
}

bool KnownKeys::Less::operator()(const QJsonArray &left, const QJsonArray &right) const
{
    return std::lexicographical_compare(
        left.begin(), left.end(), right.begin(), right.end(),
        [](const QJsonValue &a, const QJsonValue &b) { return a.toVariant().toDouble() < b.toVariant().toDouble(); });
}
