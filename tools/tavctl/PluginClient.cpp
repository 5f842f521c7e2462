#include "PluginClient.h"

#include "ITavDataPlugin.h"
#include "Presentation.h"
#include "TextTable.h"
#include "ToolError.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QPluginLoader>

namespace
{
const QLatin1String suffix("_Tav_ORG");

QString interfaceName(const STObjectKey &key)
{
    return key.name.endsWith(suffix) ? key.name.chopped(suffix.size()) : key.name;
}

/// The interface's name when the object really has it, which pages rely on.
QString interfaceOf(const RegisteredManager &manager)
{
    const QString name = interfaceName(manager.key);
    return manager.object->qt_metacast(name.toUtf8().constData()) ? name : QStringLiteral("-");
}

QString addressOf(const QObject *object)
{
    return QStringLiteral("0x%1").arg(reinterpret_cast<quintptr>(object), 0, 16);
}
}

PluginClient::PluginClient(const QString &pluginFile) : m_pluginFile(pluginFile)
{
    if (!QFileInfo(pluginFile).isFile()) {
        throw ToolError(
            ExitCode::NoPluginFile,
            QFileInfo::exists(pluginFile)
                ? QStringLiteral("%1: not a regular file; name libTavDataPlugin.so with --plugin").arg(pluginFile)
                : QStringLiteral("%1: there is no such file; build the plugin first or name its file with --plugin")
                      .arg(pluginFile));
    }
    // Asked for before anything is loaded, so that no code of a foreign library runs.
    QPluginLoader loader(pluginFile);
    m_identifier = loader.metaData().value(QLatin1String("IID")).toString();
    m_className = loader.metaData().value(QLatin1String("className")).toString();
    if (m_identifier.isEmpty()) {
        throw ToolError(
            ExitCode::NotLoadable,
            QStringLiteral("%1: not a Qt plugin of this Qt version (%2); name libTavDataPlugin.so with --plugin")
                .arg(pluginFile, loader.errorString()));
    }
    const QString expected = QLatin1String(qobject_interface_iid<ITavDataPlugin *>());
    if (m_identifier != expected) {
        throw ToolError(ExitCode::OtherPlugin,
                        QStringLiteral("%1: another plugin, its identifier is \"%2\" and not \"%3\"; name "
                                       "libTavDataPlugin.so with --plugin")
                            .arg(pluginFile, m_identifier, expected));
    }
    QElapsedTimer timer;
    timer.start();
    auto *const plugin = qobject_cast<ITavDataPlugin *>(loader.instance());
    m_loadNanoseconds = timer.nsecsElapsed();
    if (!plugin) {
        throw ToolError(
            ExitCode::NotLoadable,
            QStringLiteral("%1: cannot be loaded (%2); install what it lacks").arg(pluginFile, loader.errorString()));
    }
    TavGlobalInfoMgr::setObjectMgr(this);
    m_sinceLastRegistration.start();
    plugin->registerObj();
}

PluginClient::~PluginClient()
{
    TavGlobalInfoMgr::setObjectMgr(nullptr);
}

QJsonObject PluginClient::pluginJson() const
{
    return {
        {QStringLiteral("file"), m_pluginFile},
        {QStringLiteral("identifier"), m_identifier},
        {QStringLiteral("className"), m_className},
        {QStringLiteral("qtVersion"), QLatin1String(qVersion())},
        {QStringLiteral("loadMicroseconds"), static_cast<double>(m_loadNanoseconds) / 1000},
    };
}

QJsonArray PluginClient::registryJson() const
{
    QJsonArray rows;
    for (const RegisteredManager &manager : m_managers) {
        rows.append(QJsonObject{
            {QStringLiteral("order"), rows.size() + 1},
            {QStringLiteral("key"), manager.key.name},
            {QStringLiteral("id"), manager.key.id},
            {QStringLiteral("class"), QLatin1String(manager.object->metaObject()->className())},
            {QStringLiteral("interface"), interfaceOf(manager)},
            {QStringLiteral("address"), addressOf(manager.object)},
            {QStringLiteral("microseconds"), static_cast<double>(manager.nanoseconds) / 1000},
        });
    }
    return rows;
}

void PluginClient::printPlugin() const
{
    printHeading(QStringLiteral("Plugin"));
    printLine(QStringLiteral("%1\n%2, class %3, loaded by Qt %4 in %5 µs")
                  .arg(QDir::cleanPath(m_pluginFile), m_identifier, m_className, QLatin1String(qVersion()),
                       microseconds(m_loadNanoseconds)));
}

void PluginClient::printRegistry() const
{
    printHeading(QStringLiteral("Registry: %1 managers").arg(m_managers.size()));
    TextTable table({{QStringLiteral("#"), TextTable::Right},
                     {QStringLiteral("key")},
                     {QStringLiteral("class")},
                     {QStringLiteral("interface")},
                     {QStringLiteral("address")},
                     {QStringLiteral("µs to create"), TextTable::Right}});
    for (const RegisteredManager &manager : m_managers) {
        table.addRow({QString::number(table.rowCount() + 1), manager.key.name,
                      QLatin1String(manager.object->metaObject()->className()), interfaceOf(manager),
                      addressOf(manager.object), microseconds(manager.nanoseconds)});
    }
    table.print();
}

void PluginClient::registerObject(const STObjectKey &key, QObject *object, const bool &owned)
{
    m_managers.append({key, object, m_sinceLastRegistration.nsecsElapsed()});
    m_registry.registerObject(key, object, owned);
    m_sinceLastRegistration.start();
}

QObject *PluginClient::getObject(const STObjectKey &key)
{
    return m_registry.getObject(key);
}

QVector<STObjectKey> PluginClient::getObjectKeys()
{
    return m_registry.getObjectKeys();
}

QString defaultPluginFile()
{
    return QDir::cleanPath(QCoreApplication::applicationDirPath() + QStringLiteral("/" TAV_PLUGIN_FROM_PROGRAM));
}
