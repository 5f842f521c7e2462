#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

/// Prints the operations of the interface @p manager, or of all when it is empty. Throws ToolError.
void showOperations(const QString &manager);

/// @brief What "tavctl call" is asked to do.
struct CallOptions {
    QString pluginFile; ///< the plugin to load
    QString systemRoot; ///< directory taken for "/"
    QString manager; ///< name of the interface
    QString operation;
    QVector<QByteArray> arguments; ///< JSON texts, each a value; or a single one, an object of values by name
};

/// Loads the plugin, calls the operation once and prints its result as JSON. Throws ToolError.
void callOperation(const CallOptions &options);
