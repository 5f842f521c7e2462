#include "PluginCheck.h"

#include "ITavDataPlugin.h"
#include "NeededLibraries.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QJsonObject>
#include <QPluginLoader>
#include <QRegularExpression>
#include <QVersionNumber>

#include <cstring>
#include <elf.h>

namespace
{
const QLatin1String noManagers("the client has none of the managers");

/// @brief For which machine an ELF file is: its class, byte order and machine number.
struct Machine {
    int bits = 0; ///< ELFCLASS…; 0 when the file is no ELF file
    int byteOrder = 0; ///< ELFDATA…
    int number = 0; ///< EM_…

    bool operator!=(const Machine &other) const
    {
        return bits != other.bits || byteOrder != other.byteOrder || number != other.number;
    }
};

Machine machineOf(const QString &path)
{
    QFile file(path);
    const QByteArray start
        = QFileInfo(path).isFile() && file.open(QIODevice::ReadOnly) ? file.read(EI_NIDENT + 4) : QByteArray();
    if (start.size() < EI_NIDENT + 4 || !start.startsWith(ELFMAG)) {
        return {};
    }
    // Behind the identification: the file's type, then its machine, in the file's byte order.
    const auto byte = [&start](int at) { return static_cast<unsigned char>(start[at]); };
    const int low = start[EI_DATA] == ELFDATA2MSB ? EI_NIDENT + 3 : EI_NIDENT + 2;
    const int high = start[EI_DATA] == ELFDATA2MSB ? EI_NIDENT + 2 : EI_NIDENT + 3;
    return {start[EI_CLASS], start[EI_DATA], byte(high) << 8 | byte(low)};
}

QString nameOf(const Machine &machine)
{
    static const QHash<int, QString> names{
        {EM_X86_64, "x86-64"}, {EM_AARCH64, "AArch64"}, {EM_386, "x86"}, {EM_ARM, "ARM"}, {EM_RISCV, "RISC-V"},
    };
    return names.value(machine.number, QString("machine %1").arg(machine.number));
}

/// The Qt version that a plugin's own data names.
QVersionNumber qtVersionOf(const QJsonObject &metaData)
{
    const int version = metaData["version"].toInt();
    return {version >> 16, version >> 8 & 0xff, version & 0xff};
}

/// The reason alone, of Qt's sentence "Cannot load library FILE: (REASON)".
QString reasonOf(const QString &sentence)
{
    static const QRegularExpression inBrackets(": \\((.*)\\)$");
    const QRegularExpressionMatch match = inBrackets.match(sentence);
    return match.hasMatch() ? match.captured(1) : sentence;
}
}

PluginFacts pluginFacts(const QString &file)
{
    const Machine machine = machineOf(file);
    const QJsonObject metaData = QPluginLoader(file).metaData();
    return {metaData["IID"].toString(), metaData.isEmpty() ? QString() : qtVersionOf(metaData).toString(),
            machine.bits == 0 ? QString() : nameOf(machine)};
}

Findings checkPlugin(const QString &file)
{
    const auto found = [&file](const QString &problem, const QString &effect, const QString &advice) {
        return Findings{{file, {}, {}, problem, effect, advice}};
    };
    if (!QFileInfo(file).isFile()) {
        if (QFileInfo::exists(file)) {
            return found("not a regular file", noManagers, "name libTavDataPlugin.so with --plugin");
        }
        return found("there is no such file", noManagers, "install the plugin, or name its file with --plugin");
    }
    const Machine machine = machineOf(file);
    const Machine own = machineOf(QCoreApplication::applicationFilePath());
    if (machine.bits == 0) {
        return found("not a shared library", noManagers, "name libTavDataPlugin.so with --plugin");
    }
    if (machine != own) {
        return found(QString("built for %1, but this program for %2").arg(nameOf(machine), nameOf(own)),
                     QString("no client for %1 can load it").arg(nameOf(own)),
                     QString("install the plugin for %1").arg(nameOf(own)));
    }
    QPluginLoader loader(file);
    const QString identifier = loader.metaData()["IID"].toString();
    const QString expected = qobject_interface_iid<ITavDataPlugin *>();
    if (identifier != expected) {
        return found(identifier.isEmpty()
                         ? QString("not a Qt plugin")
                         : QString(R"(another plugin: its identifier is "%1" and not "%2")").arg(identifier, expected),
                     noManagers, "name libTavDataPlugin.so with --plugin");
    }
    const QVersionNumber built = qtVersionOf(loader.metaData());
    const QVersionNumber running = QVersionNumber::fromString(qVersion());
    if (built.majorVersion() != running.majorVersion() || built.minorVersion() > running.minorVersion()) {
        return found(QString("built with Qt %1, but this is Qt %2").arg(built.toString(), running.toString()),
                     "Qt refuses to load it: it takes plugins of its own or an earlier minor version",
                     QString("build the plugin with Qt %1.%2").arg(running.majorVersion()).arg(running.minorVersion()));
    }
    if (!loader.load()) {
        // The loader names the first library that is missing, and no other.
        const QStringList missing = missingLibraries(file);
        return missing.isEmpty()
            ? found("cannot be loaded: " + reasonOf(loader.errorString()), noManagers, "install what it lacks")
            : found("cannot be loaded: it lacks " + missing.join(", "), noManagers, "install what it lacks");
    }
    return {};
}
