#pragma once

#include <QFile>
#include <QString>

/// Opens a scenario to be read line by line; "-" is standard input. Throws ToolError.
void openScenario(QFile &file, const QString &name);
