#pragma once

#include "Finding.h"

/// Mistakes in the list of baseline check items that @p file holds. Scripts are looked for below the system root.
Findings checkBaseline(const QString &file, const QByteArray &content);
