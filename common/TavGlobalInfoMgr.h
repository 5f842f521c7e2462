#pragma once

#include "TavCommonExport.h"

#include <QMutex>
#include <QString>

class ITavObjectMgr;

/// @brief The five directories of an installation, as absolute paths without a trailing slash.
struct STAppPathInfo {
    QString appPath; ///< the client's own files
    QString pluginPath; ///< its plugins
    QString logPath; ///< its logs
    QString dataPath; ///< its variable data
    QString configPath; ///< its configuration, "funcTypeConfig.json" among it
};

/// @brief What every part of the client shares: the object registry, the application paths, the system root.
/// All operations may be called from any thread.
class TAV_COMMON_EXPORT TavGlobalInfoMgr
{
public:
    /// The one instance; it is never destroyed.
    static TavGlobalInfoMgr *getInstance();

    /// The client's object registry: the one set with setObjectMgr, else the built-in one. Never null.
    [[nodiscard]] static ITavObjectMgr *getObjectMgr();

    /// Puts @p objectMgr in the place of the built-in registry; null restores it. The caller keeps ownership and
    /// must restore before it ends its registry.
    static void setObjectMgr(ITavObjectMgr *objectMgr);

    /// The application paths; before the first setAppPath those of a standard installation under /opt, /etc, /var.
    [[nodiscard]] STAppPathInfo getAppPath();
    /// Sets the application paths: the host does it once, before the plugins are loaded.
    void setAppPath(const STAppPathInfo &appPath);

    /// Directory that TavCommonUtils takes for "/"; empty, the default, means the real one. It is set by the host
    /// alone, never by the environment: a security client must not be redirected from outside.
    [[nodiscard]] QString systemRoot();
    /// Sets the system root; empty means the real one.
    void setSystemRoot(const QString &systemRoot);

private:
    TavGlobalInfoMgr();

    QMutex m_mutex;
    STAppPathInfo m_appPath;
    QString m_systemRoot;
};
