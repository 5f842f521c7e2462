#pragma once

#include "TavObjectMgr.h"
#include "TavPluginError.h"

#include <QString>
#include <QVector>

/// @brief What a plugin's file says about itself; a text that it does not hold is empty.
struct TavPluginFacts {
    QString identifier; ///< "Tav_ORG_ITavDtaPlugin" in a data plugin
    QString className; ///< of its root object
    QString qtVersion; ///< the Qt that it was built with, such as "5.15": its file does not tell the patch level
    QString machine; ///< the architecture that it was built for, such as "AArch64"
};

/// @brief One object as the plugin registered it.
struct TavRegistration {
    STObjectKey key; ///< under which it was registered
    QObject *object; ///< alive as long as the host
    qint64 nanoseconds; ///< from the registration before to this one: creation and the way to the registry
};

/**
 * @brief The client's side of a data plugin: loads it from its file and has it register a fresh set of its managers in
 * a registry that is the client's current one, and ends, with this object.
 *
 * Needs no application object. There may be several hosts, one after the other or at once: the current registry is the
 * newest host's; the plugin is loaded once in the process and stays. Made and ended in one thread; the managers may be
 * looked up in any.
 */
class TavPluginHost
{
public:
    /// Throws TavPluginError when @p file is not the data plugin or cannot be loaded here. No code of the file or of
    /// the libraries that it needs runs before its identifier has told that it is the data plugin.
    explicit TavPluginHost(const QString &file);

    /// Ends the managers. Where this host's registry is the current one, the newest of the other hosts' takes its
    /// place, or the built-in one where there is none.
    ~TavPluginHost();

    Q_DISABLE_COPY(TavPluginHost) // it owns the managers

    /// Loads a page plugin, and has it register its controllers in this host's registry; returns what it registers.
    /// Throws TavPluginError when @p file is none or cannot be loaded here; no code of it or of its libraries runs
    /// before its identifier has told that it is one. GUI thread, the host's.
    QVector<TavRegistration> loadPages(const QString &file);

    /// The plugin's file as it was named.
    [[nodiscard]] QString file() const
    {
        return m_file;
    }

    /// The manager with this interface; never null for one of the fifteen.
    template<class Interface>
    [[nodiscard]] Interface *manager()
    {
        return qobject_cast<Interface *>(managerObject(qobject_interface_iid<Interface *>()));
    }

    /// The object that is registered for the interface with this name; null when there is none.
    [[nodiscard]] QObject *managerObject(const char *interfaceName);

    /// Where the managers and the controllers are registered. Any thread may look something up.
    [[nodiscard]] ITavObjectMgr &registry()
    {
        return m_registry;
    }

    /// What the data plugin has registered, in its order; what others register later is not among it.
    [[nodiscard]] const QVector<TavRegistration> &registrations() const
    {
        return m_registrations;
    }

    /// The time that it took to load the file and to make its root object, without the managers.
    [[nodiscard]] qint64 loadNanoseconds() const
    {
        return m_loadNanoseconds;
    }

    /// Looks at the file alone, and runs nothing of it. Throws TavPluginError for what speaks against loading it.
    static void checkUnloaded(const QString &file);

    /// What any file says about itself; nothing of it is run. Empty texts when it says nothing.
    [[nodiscard]] static TavPluginFacts factsOf(const QString &file);

private:
    QString m_file;
    TavObjectMgr m_registry;
    QVector<TavRegistration> m_registrations;
    qint64 m_loadNanoseconds{};
};
