#include "TavObjectMgr.h"

#include <algorithm>

TavObjectMgr::~TavObjectMgr()
{
    // Without the lock: a dying object may still ask the registry for another one.
    while (true) {
        Entry last;
        {
            QMutexLocker lock(&m_mutex);
            if (m_entries.isEmpty()) {
                return;
            }
            last = m_entries.takeLast();
        }
        if (last.owned) {
            delete last.object;
        }
    }
}

void TavObjectMgr::registerObject(const STObjectKey &key, QObject *object, const bool &owned)
{
    if (!object) {
        return;
    }
    QMutexLocker lock(&m_mutex);
    m_entries.append({key, object, owned});
}

QObject *TavObjectMgr::getObject(const STObjectKey &key)
{
    QMutexLocker lock(&m_mutex);
    const auto newest = std::find_if(m_entries.crbegin(), m_entries.crend(),
                                     [&key](const Entry &entry) { return entry.object && entry.key == key; });
    return newest == m_entries.crend() ? nullptr : newest->object.data();
}

QVector<STObjectKey> TavObjectMgr::getObjectKeys()
{
    QMutexLocker lock(&m_mutex);
    QVector<STObjectKey> keys;
    for (const Entry &entry : qAsConst(m_entries)) {
        if (entry.object && !keys.contains(entry.key)) {
            keys.append(entry.key);
        }
    }
    return keys;
}

STObjectKey tavManagerKey(const char *interfaceName)
{
    return {tavManagerKeyId, QString::fromUtf8(interfaceName) + QLatin1String("_Tav_ORG")};
}
