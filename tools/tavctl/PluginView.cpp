#include "PluginView.h"

#include "PluginCheck.h"
#include "Presentation.h"
#include "TextTable.h"
#include "ToolError.h"

#include <QDir>

#include <cstdlib>
#include <unistd.h>

namespace
{
const QLatin1String suffix("_Tav_ORG");

QString interfaceName(const STObjectKey &key)
{
    return key.name.endsWith(suffix) ? key.name.chopped(suffix.size()) : key.name;
}

/// The interface's name when the object really has it, which pages rely on.
QString interfaceOf(const TavRegistration &manager)
{
    const QString name = interfaceName(manager.key);
    return manager.object->qt_metacast(name.toUtf8().constData()) ? name : QStringLiteral("-");
}

ExitCode exitCodeFor(TavPluginError::Kind kind)
{
    using Kind = TavPluginError::Kind;
    switch (kind) {
    case Kind::NoSuchFile:
    case Kind::NotAFile:
        return ExitCode::NoPluginFile;
    case Kind::OtherPlugin:
    case Kind::WrongManagers:
        return ExitCode::OtherPlugin;
    default:
        return ExitCode::NotLoadable;
    }
}

/// @brief Says for as long as it lives that the plugin is to blame when the program ends: one that calls exit(), with
/// whatever code, leaves nobody else to say so.
class ExitWatch
{
public:
    explicit ExitWatch(const QString &file)
    {
        [[maybe_unused]] static const int isRegistered = std::atexit(tell);
        watched = &file;
    }

    ~ExitWatch()
    {
        watched = nullptr;
    }

    Q_DISABLE_COPY(ExitWatch)

private:
    static void tell()
    {
        if (watched) {
            printError(*watched + ": ends the process that loads it; install another build of the plugin");
            _exit(int(ExitCode::NotLoadable));
        }
    }

    static inline const QString *watched = nullptr;
};

QString addressOf(const QObject *object)
{
    return QStringLiteral("0x%1").arg(reinterpret_cast<quintptr>(object), 0, 16);
}
}

TavPluginHost loadPlugin(const QString &file)
{
    const ExitWatch watch(file);
    try {
        return TavPluginHost(file);
    } catch (const TavPluginError &error) {
        throw ToolError(exitCodeFor(error.kind()),
                        QString("%1: %2; %3").arg(file, error.problem(), pluginAdvice(error)));
    }
}

QJsonObject pluginJson(const TavPluginHost &host)
{
    const TavPluginFacts facts = TavPluginHost::factsOf(host.file());
    return {
        {QStringLiteral("file"), host.file()},
        {QStringLiteral("identifier"), facts.identifier},
        {QStringLiteral("className"), facts.className},
        {QStringLiteral("qtVersion"), facts.qtVersion},
        {QStringLiteral("runningQtVersion"), QLatin1String(qVersion())},
        {QStringLiteral("loadMicroseconds"), static_cast<double>(host.loadNanoseconds()) / 1000},
    };
}

QJsonArray registryJson(const TavPluginHost &host)
{
    QJsonArray rows;
    for (const TavRegistration &manager : host.registrations()) {
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

void printPlugin(const TavPluginHost &host)
{
    const TavPluginFacts facts = TavPluginHost::factsOf(host.file());
    printHeading(QStringLiteral("Plugin"));
    printLine(QStringLiteral("%1\n%2, class %3, built with Qt %4, loaded by Qt %5 in %6 µs")
                  .arg(QDir::cleanPath(host.file()), facts.identifier, facts.className, facts.qtVersion,
                       QLatin1String(qVersion()), microseconds(host.loadNanoseconds())));
}

void printRegistry(const TavPluginHost &host)
{
    printHeading(QStringLiteral("Registry: %1 managers").arg(host.registrations().size()));
    TextTable table({{QStringLiteral("#"), TextTable::Right},
                     {QStringLiteral("key")},
                     {QStringLiteral("class")},
                     {QStringLiteral("interface")},
                     {QStringLiteral("address")},
                     {QStringLiteral("µs to create"), TextTable::Right}});
    for (const TavRegistration &manager : host.registrations()) {
        table.addRow({QString::number(table.rowCount() + 1), manager.key.name,
                      QLatin1String(manager.object->metaObject()->className()), interfaceOf(manager),
                      addressOf(manager.object), microseconds(manager.nanoseconds)});
    }
    table.print();
}
