#pragma once

#include "Finding.h"

#include <QJsonValue>

/// What @p document breaks of the schema with this name in share/schemas, which is built into the program. The
/// findings have paths, but neither file nor place.
Findings checkAgainstSchema(const QString &schemaName, const QJsonValue &document);
