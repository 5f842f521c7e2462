#include "InputFile.h"

#include "ToolError.h"

#include <QFileInfo>

#include <cstdio>

QString InputFile::tryOpen(QFile &file, const QString &name)
{
    bool isOpen = false;
    if (name == "-") {
        isOpen = file.open(stdin, QIODevice::ReadOnly);
    } else if (!QFileInfo::exists(name)) {
        return "there is no such file";
    } else if (!QFileInfo(name).isFile()) {
        return "not a regular file";
    } else {
        file.setFileName(name);
        isOpen = file.open(QIODevice::ReadOnly);
    }
    return isOpen ? QString() : "cannot be read: " + file.errorString();
}

void InputFile::open(QFile &file, const QString &name)
{
    const QString error = tryOpen(file, name);
    if (!error.isEmpty()) {
        throw ToolError(ExitCode::Usage, name + ": " + error);
    }
}
