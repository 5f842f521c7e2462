#pragma once

#include "Finding.h"

class QIODevice;

/// Mistakes in the lines of a scenario, which @p device holds: it is open, and read line by line. Nothing is played.
Findings checkScenario(const QString &file, QIODevice &device);
