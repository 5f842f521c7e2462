// Loading the plugin and registering its managers against loading a plugin that does nothing.

#include "Comparison.h"

#include <QProcess>

namespace
{
using namespace Comparison;

/// Column of LoadOnce's answer.
enum class Figure { Nanoseconds, KiB };

Sample load(const char *pluginFile, Figure figure)
{
    return [=] {
        QProcess process;
        process.start(QStringLiteral(TAV_LOAD_ONCE_FILE), {QString::fromLocal8Bit(pluginFile)});
        if (!process.waitForFinished() || process.exitCode() != 0) {
            qFatal("cannot load %s: %s", pluginFile, process.readAllStandardError().constData());
        }
        return process.readAllStandardOutput().simplified().split(' ').at(static_cast<int>(figure)).toDouble();
    };
}

Row loading(Figure figure, double goal, const std::string &unit)
{
    return {load(TAV_PLUGIN_FILE, figure), {{"an empty plugin", load(TAV_EMPTY_PLUGIN_FILE, figure), goal}}, unit};
}
}

void Comparison::addRows()
{
    addRow("load and register", 30, [] { return loading(Figure::Nanoseconds, 1.5, "ns"); });
    addRow("resident memory of loading and registering", 5, [] { return loading(Figure::KiB, 0, "KiB"); });
}
