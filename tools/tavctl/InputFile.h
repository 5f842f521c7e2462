#pragma once

#include <QFile>
#include <QString>

/// Opens the file with this name for reading; "-" is standard input. Only regular files are opened, as by the plugin: a
/// pipe or a device in a file's place could block for ever.
namespace InputFile
{
/// Why it cannot be opened; empty when it is.
QString tryOpen(QFile &file, const QString &name);

/// Throws ToolError when it cannot be opened.
void open(QFile &file, const QString &name);
}
