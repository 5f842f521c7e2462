#pragma once

#include "InstallationPaths.h"
#include "ToolError.h"

#include <QByteArray>
#include <QVector>

struct OperationsOptions {
    QString manager; ///< name of the interface; empty for all
};

/// Prints the operations of the managers. Throws ToolError.
ExitCode showOperations(const OperationsOptions &options);

struct CallOptions {
    QString manager; ///< name of the interface
    QString operation;
    QVector<QByteArray> arguments; ///< JSON texts, each a value; or a single one, an object of values by name
    QString after; ///< scenario to play before; empty for none
    QString plugin = InstallationPaths::pluginBesideProgram(); ///< the one to load
    QString root = "/"; ///< directory taken for "/"
};

/// Loads the plugin, calls the operation once and prints its result as JSON. Throws ToolError.
ExitCode callOperation(const CallOptions &options);
