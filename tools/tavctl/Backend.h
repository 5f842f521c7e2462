#pragma once

#include "AgentReport.h"

#include <QJsonArray>

/// Has the local agent read this machine and feed the managers, on its own thread; waits for the end.
AgentReport feedFromThisMachine();

QJsonArray backendJson(const AgentReport &report);
void printBackend(const AgentReport &report);
