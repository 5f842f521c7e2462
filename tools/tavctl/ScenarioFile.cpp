#include "ScenarioFile.h"

#include "ToolError.h"

#include <QFileInfo>

#include <cstdio>

void openScenario(QFile &file, const QString &name)
{
    bool isOpen = false;
    if (name == "-") {
        isOpen = file.open(stdin, QIODevice::ReadOnly);
    } else if (!QFileInfo::exists(name)) {
        throw ToolError(ExitCode::Usage, name + ": there is no such file");
    } else if (!QFileInfo(name).isFile()) {
        throw ToolError(ExitCode::Usage, name + ": not a regular file");
    } else {
        file.setFileName(name);
        isOpen = file.open(QIODevice::ReadOnly);
    }
    if (!isOpen) {
        throw ToolError(ExitCode::Usage, name + ": cannot be read: " + file.errorString());
    }
}
