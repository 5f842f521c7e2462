#pragma once

#include "TavObjectMgr.h"

#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonObject>
#include <QString>
#include <QVector>

/// @brief One manager as the plugin registered it.
struct RegisteredManager {
    STObjectKey key; ///< the key under which it stands
    QObject *object; ///< the manager; alive as long as the client
    qint64 nanoseconds; ///< from the end of the registration before to this one: creation and the way to the registry
};

/**
 * @brief The client's side of the plugin: loads it from its file, checks that it is the data plugin, and has it
 * register its managers in a registry that lives as long as this object.
 */
class PluginClient : private ITavObjectMgr
{
public:
    /// Loads @p pluginFile and registers the managers. Throws ToolError when that does not work.
    explicit PluginClient(const QString &pluginFile);
    ~PluginClient();
    Q_DISABLE_COPY(PluginClient)

    const QVector<RegisteredManager> &managers() const
    {
        return m_managers;
    }

    QJsonObject pluginJson() const; ///< file, identifier, class, time to load
    QJsonArray registryJson() const; ///< order, key, class, interface, address, time to create
    void printPlugin() const;
    void printRegistry() const;

private:
    void registerObject(const STObjectKey &key, QObject *object, const bool &owned) override;
    QObject *getObject(const STObjectKey &key) override;
    QVector<STObjectKey> getObjectKeys() override;

    QString m_pluginFile;
    QString m_identifier;
    QString m_className;
    qint64 m_loadNanoseconds = 0;
    QElapsedTimer m_sinceLastRegistration;
    QVector<RegisteredManager> m_managers;
    TavObjectMgr m_registry;
};

/// Where the plugin lies beside this program, in its build tree or its installation.
QString defaultPluginFile();
