#pragma once

/// @file
/// The client's object registry, and how a manager is looked up in it.

#include "TavCommonExport.h"
#include "TavGlobalInfoMgr.h"

#include <QMutex>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QVector>

/// @brief Key under which an object stands in the client's registry; two keys are equal when both fields are.
struct STObjectKey {
    int id; ///< number of the registrant's kind; every manager of the data plugin has tavManagerKeyId
    QString name; ///< for a manager, its interface name followed by "_Tav_ORG"
};

/// Whether both fields are equal.
[[nodiscard]] inline bool operator==(const STObjectKey &a, const STObjectKey &b)
{
    return a.id == b.id && a.name == b.name;
}

/**
 * @brief The client's registry of long-lived objects. All operations may be called from any thread.
 *
 * Binaries call it by slot, so the order of the operations is fixed and there is no virtual destructor.
 */
class TAV_COMMON_EXPORT ITavObjectMgr
{
public:
    /// Files @p object under @p key. With @p owned true the registry deletes it when it ends itself.
    virtual void registerObject(const STObjectKey &key, QObject *object, const bool &owned) = 0;

    /// The living object that was registered last under @p key; null when there is none.
    [[nodiscard]] virtual QObject *getObject(const STObjectKey &key) = 0;

    /// The keys of all living objects, each once, in the order of registration.
    [[nodiscard]] virtual QVector<STObjectKey> getObjectKeys() = 0;

protected:
    ~ITavObjectMgr() = default;
};

/**
 * @brief The built-in registry.
 *
 * A key registered twice is answered with the newest object, and the older one is kept alive, since a page may
 * still hold it. An object that somebody else deletes is forgotten. Null objects are not registered.
 */
class TAV_COMMON_EXPORT TavObjectMgr final : public ITavObjectMgr
{
public:
    TavObjectMgr() = default;
    Q_DISABLE_COPY(TavObjectMgr)

    /// Deletes the objects registered with ownership, the newest first.
    ~TavObjectMgr();

    void registerObject(const STObjectKey &key, QObject *object, const bool &owned) override;
    [[nodiscard]] QObject *getObject(const STObjectKey &key) override;
    [[nodiscard]] QVector<STObjectKey> getObjectKeys() override;

private:
    struct Entry {
        STObjectKey key;
        QPointer<QObject> object;
        bool owned;
    };

    QMutex m_mutex;
    QVector<Entry> m_entries;
};

/// Identifier in the registry key of every manager of the data plugin.
constexpr int tavManagerKeyId = -9999;

/// The registry key of the manager with the interface @p interfaceName, such as "ITavAuditMgr".
[[nodiscard]] TAV_COMMON_EXPORT STObjectKey tavManagerKey(const char *interfaceName);

/**
 * @brief Looks a manager up in the client's current registry: `tavObject<ITavAuditMgr>("ITavAuditMgr")`.
 *
 * Any thread. Null when nothing is registered under the key or the object has another interface.
 */
template<class Interface>
[[nodiscard]] Interface *tavObject(const char *interfaceName)
{
    return qobject_cast<Interface *>(TavGlobalInfoMgr::getObjectMgr()->getObject(tavManagerKey(interfaceName)));
}

/// The same under the interface's own name, as the data plugin registers its managers: `tavObject<ITavAuditMgr>()`.
template<class Interface>
[[nodiscard]] Interface *tavObject()
{
    return tavObject<Interface>(qobject_interface_iid<Interface *>());
}
