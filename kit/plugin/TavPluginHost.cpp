#include "TavPluginHost.h"

#include "ElfFile.h"
#include "ITavDataPlugin.h"
#include "NeededLibraries.h"
#include "PluginText.h"
#include "TavOperations.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <QJsonObject>
#include <QMutex>
#include <QPluginLoader>
#include <QVersionNumber>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cxxabi.h>
#include <dlfcn.h>
#include <iterator>
#include <memory>
#include <sys/stat.h>

using Kind = TavPluginError::Kind;

namespace
{
/// That the file is there, whole, and a library for this machine.
void checkFile(const QString &file)
{
    struct stat status = {};
    if (stat(QFile::encodeName(file).constData(), &status) != 0) {
        const int error = errno;
        throw error == ENOENT || error == ENOTDIR
            ? TavPluginError(Kind::NoSuchFile, file, PluginText::tr("there is no such file"))
            : TavPluginError(Kind::NotReadable, file, PluginText::tr("cannot be read: %1").arg(qt_error_string(error)));
    }
    if (!S_ISREG(status.st_mode)) {
        throw TavPluginError(Kind::NotAFile, file, PluginText::tr("not a regular file"));
    }
    const ElfFile library(file);
    if (!library.isReadable()) {
        throw TavPluginError(Kind::NotReadable, file, PluginText::tr("cannot be read: %1").arg(library.errorString()));
    }
    if (!library.hasMark()) {
        throw TavPluginError(Kind::NotALibrary, file, PluginText::tr("not a shared library"));
    }
    if (library.isCutOff()) {
        throw TavPluginError(Kind::CutOff, file, PluginText::tr("cut off: it ends before what its headers announce"));
    }
    const ElfFile::Machine machine = library.machine();
    const ElfFile::Machine own = ElfFile::ownMachine();
    if (machine.number != own.number || machine.isBigEndian != own.isBigEndian) {
        throw TavPluginError(Kind::OtherMachine, file,
                             PluginText::tr("built for %1, but this program for %2").arg(machine.name(), own.name()));
    }
    if (machine.bits != own.bits) {
        throw TavPluginError(
            Kind::OtherWordSize, file,
            PluginText::tr("built for words of %1 bits, but this program for %2").arg(machine.bits).arg(own.bits));
    }
    if (!library.isSharedLibrary()) {
        throw TavPluginError(Kind::NotALibrary, file, PluginText::tr("not a shared library"));
    }
}

/// The Qt version that a plugin's own data names; it has no patch level.
QVersionNumber qtVersionIn(const QJsonObject &metaData)
{
    const int version = metaData["version"].toInt();
    return {version >> 16, version >> 8 & 0xff};
}

/// That the file's own data call it a plugin that registers objects, for this Qt.
void checkMetaData(const QString &file, const QJsonObject &metaData)
{
    const QString identifier = metaData["IID"].toString();
    const QString expected = qobject_interface_iid<ITavDataPlugin *>();
    if (identifier.isEmpty()) {
        throw TavPluginError(Kind::NotAPlugin, file, PluginText::tr("not a Qt plugin"));
    }
    if (identifier != expected) {
        throw TavPluginError(
            Kind::OtherPlugin, file,
            PluginText::tr(R"(another plugin: its identifier is "%1" and not "%2")").arg(identifier, expected));
    }
    const QVersionNumber built = qtVersionIn(metaData);
    const QVersionNumber running = QVersionNumber::fromString(qVersion());
    if (built.majorVersion() != running.majorVersion() || built.minorVersion() > running.minorVersion()) {
        throw TavPluginError(
            Kind::OtherQt, file,
            PluginText::tr("built with Qt %1, but this is Qt %2").arg(built.toString(), running.toString()));
    }
}

/// A C++ symbol as it stands in the source.
QString demangled(const QString &symbol)
{
    if (!symbol.startsWith("_Z")) {
        return symbol; // one of C; the demangler would take "f" for "float"
    }
    const std::unique_ptr<char, decltype(&std::free)> text(
        abi::__cxa_demangle(symbol.toUtf8().constData(), nullptr, nullptr, nullptr), &std::free);
    return text ? QString::fromUtf8(text.get()) : symbol;
}

/// Loads the library into the process, for good. By the linker itself, whose reason Qt would wrap into a sentence of
/// its own, and with all symbols at once: a missing function would otherwise end the process when it is called.
void loadLibrary(const QString &file, const QString &path)
{
    if (dlopen(QFile::encodeName(path).constData(), RTLD_NOW | RTLD_NODELETE)) {
        return;
    }
    const QString reason = QString::fromLocal8Bit(dlerror()); // NOLINT(concurrency-mt-unsafe): glibc's is the thread's
    const QString symbol = reason.section(": undefined symbol: ", 1).section(',', 0, 0);
    if (!symbol.isEmpty()) {
        throw TavPluginError(Kind::UndefinedSymbol, file,
                             PluginText::tr("cannot be loaded: it lacks the symbol %1").arg(demangled(symbol)));
    }
    // The linker names the first library that is missing, and no other.
    const QStringList missing = missingLibraries(path);
    if (!missing.isEmpty()) {
        throw TavPluginError(Kind::MissingLibrary, file,
                             PluginText::tr("cannot be loaded: it lacks %1").arg(missing.join(", ")));
    }
    throw TavPluginError(Kind::NotLoadable, file, PluginText::tr("cannot be loaded: %1").arg(reason));
}

/// @brief The current registry for as long as it lives: notes what is registered and passes it on.
class Recorder final : public ITavObjectMgr
{
public:
    explicit Recorder(TavObjectMgr &registry) : m_registry(registry)
    {
        TavGlobalInfoMgr::setObjectMgr(this);
        m_sinceLastRegistration.start();
    }

    ~Recorder()
    {
        TavGlobalInfoMgr::setObjectMgr(m_before);
    }

    Q_DISABLE_COPY(Recorder) // it stands in the place of the registry

    QVector<TavRegistration> registrations() const
    {
        return m_registrations;
    }

    void registerObject(const STObjectKey &key, QObject *object, const bool &owned) override
    {
        if (object) { // the registry takes no other
            m_registrations.append({key, object, m_sinceLastRegistration.nsecsElapsed()});
        }
        m_registry.registerObject(key, object, owned);
        m_sinceLastRegistration.start();
    }

    QObject *getObject(const STObjectKey &key) override
    {
        return m_registry.getObject(key);
    }

    QVector<STObjectKey> getObjectKeys() override
    {
        return m_registry.getObjectKeys();
    }

private:
    ITavObjectMgr *const m_before = TavGlobalInfoMgr::getObjectMgr();
    TavObjectMgr &m_registry;
    QElapsedTimer m_sinceLastRegistration;
    QVector<TavRegistration> m_registrations;
};

/// The absolute path is taken as it is; any other would be looked for in the directories of libraries.
QString absolutePath(const QString &file)
{
    return QFileInfo(file).absoluteFilePath();
}

/// Loads the plugin, which stays; its root object.
ITavDataPlugin &load(const QString &file)
{
    QPluginLoader loader(absolutePath(file));
    loadLibrary(file, loader.fileName());
    QObject *const root = loader.instance();
    auto *const plugin = qobject_cast<ITavDataPlugin *>(root);
    if (!plugin) {
        throw TavPluginError(Kind::NoInterface, file,
                             root ? PluginText::tr("its root object, a %1, has no interface ITavDataPlugin")
                                        .arg(root->metaObject()->className())
                                  : PluginText::tr("it has no root object"));
    }
    return *plugin;
}

QVector<TavRegistration> registerObjects(const QString &file, ITavDataPlugin &plugin, TavObjectMgr &registry)
{
    Recorder recorder(registry);
    try {
        plugin.registerObj();
    } catch (const std::exception &error) {
        throw TavPluginError(Kind::Exception, file,
                             PluginText::tr("its registerObj() throws: %1").arg(QString::fromUtf8(error.what())));
    } catch (...) {
        throw TavPluginError(Kind::Exception, file,
                             PluginText::tr("its registerObj() throws what is no std::exception"));
    }
    return recorder.registrations();
}

bool isManagerKey(const STObjectKey &key)
{
    const auto names = TavOperations::interfaceNames();
    return std::any_of(names.begin(), names.end(), [&key](const char *name) { return tavManagerKey(name) == key; });
}

/// What is wrong with the managers that were registered. More of them are no mistake: a later plugin may have them.
QStringList mistakesIn(TavObjectMgr &registry)
{
    QStringList mistakes;
    for (const char *const name : TavOperations::interfaceNames()) {
        QObject *const object = registry.getObject(tavManagerKey(name));
        if (!object) {
            mistakes.append(PluginText::tr("%1 is missing").arg(name));
        } else if (!object->qt_metacast(name)) {
            mistakes.append(
                PluginText::tr("%1 is a %2 without that interface").arg(name, object->metaObject()->className()));
        }
    }
    return mistakes;
}

/// The keys under which a manager that is missing may stand.
QStringList unknownKeys(TavObjectMgr &registry)
{
    QVector<STObjectKey> keys = registry.getObjectKeys();
    for (const char *const name : TavOperations::interfaceNames()) {
        keys.removeAll(tavManagerKey(name));
    }
    QStringList texts;
    for (const STObjectKey &key : qAsConst(keys)) {
        texts.append(PluginText::tr("\"%1\" with the number %2 is none of them").arg(key.name).arg(key.id));
    }
    return texts;
}

void checkManagers(const QString &file, TavObjectMgr &registry)
{
    const QStringList mistakes = mistakesIn(registry);
    if (mistakes.isEmpty()) {
        return;
    }
    throw TavPluginError(Kind::WrongManagers, file,
                         registry.getObjectKeys().isEmpty() ? PluginText::tr("registers no managers")
                                                            : PluginText::tr("registers other managers than the %1: %2")
                                                                  .arg(TavOperations::interfaceNames().size())
                                                                  .arg((mistakes + unknownKeys(registry)).join(", ")));
}

/// @brief The registries of the hosts that are there, the newest at the end. Any thread.
class HostRegistries
{
public:
    static HostRegistries &instance()
    {
        static auto &registries = *new HostRegistries; // a host may end after all that is static
        return registries;
    }

    void add(ITavObjectMgr *registry)
    {
        const QMutexLocker lock(&m_mutex);
        m_registries.append(registry);
        TavGlobalInfoMgr::setObjectMgr(registry);
    }

    void remove(ITavObjectMgr *registry)
    {
        const QMutexLocker lock(&m_mutex);
        m_registries.removeOne(registry);
        if (TavGlobalInfoMgr::getObjectMgr() == registry) {
            TavGlobalInfoMgr::setObjectMgr(m_registries.isEmpty() ? nullptr : m_registries.constLast());
        }
    }

private:
    QMutex m_mutex;
    QVector<ITavObjectMgr *> m_registries;
};
}

TavPluginHost::TavPluginHost(const QString &file) : m_file(file)
{
    checkUnloaded(file);
    QElapsedTimer timer;
    timer.start();
    ITavDataPlugin &plugin = load(file);
    m_loadNanoseconds = timer.nsecsElapsed();
    m_registrations = registerObjects(file, plugin, m_registry);
    checkManagers(file, m_registry);
    HostRegistries::instance().add(&m_registry);
}

TavPluginHost::~TavPluginHost()
{
    HostRegistries::instance().remove(&m_registry);
}

QVector<TavRegistration> TavPluginHost::loadPages(const QString &file)
{
    try {
        checkUnloaded(file);
        const QVector<TavRegistration> registered = registerObjects(file, load(file), m_registry);
        if (std::all_of(registered.begin(), registered.end(), [](const auto &row) { return isManagerKey(row.key); })) {
            throw TavPluginError(Kind::NoPages, file,
                                 registered.isEmpty() ? PluginText::tr("registers nothing")
                                                      : PluginText::tr("registers managers and no controller"));
        }
        return registered;
    } catch (const TavPluginError &error) {
        throw TavPluginError(error.kind(), file, error.problem(), TavPluginError::Role::PagePlugin);
    }
}

QObject *TavPluginHost::managerObject(const char *interfaceName)
{
    return m_registry.getObject(tavManagerKey(interfaceName));
}

void TavPluginHost::checkUnloaded(const QString &file)
{
    checkFile(file);
    checkMetaData(file, QPluginLoader(absolutePath(file)).metaData());
}

TavPluginFacts TavPluginHost::factsOf(const QString &file)
{
    if (!QFileInfo(file).isFile()) {
        return {};
    }
    const ElfFile library(file);
    const QJsonObject metaData = QPluginLoader(absolutePath(file)).metaData();
    return {metaData["IID"].toString(), metaData["className"].toString(),
            metaData.isEmpty() ? QString() : qtVersionIn(metaData).toString(),
            library.hasMark() ? library.machine().name() : QString()};
}
