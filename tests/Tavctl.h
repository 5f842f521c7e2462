#pragma once

#include "Program.h"

#include <QJsonDocument>
#include <QJsonObject>

/// @brief The tool tavctl, run once with the arguments given; what it printed and how it ended.
struct Tavctl {
    explicit Tavctl(const QStringList &arguments, const QString &inputFile = QStringLiteral("/dev/null"))
    {
        // Under an emulator when the tests are.
        const QStringList emulator = QString(TAV_EMULATOR).split(' ', Qt::SkipEmptyParts);
        const Program run(emulator + QStringList{TAV_TAVCTL_FILE} + arguments, inputFile);
        bytes = run.output;
        output = QString::fromUtf8(run.output);
        errors = QString::fromUtf8(run.errors);
        exitCode = run.exitCode;
    }

    QJsonObject json() const
    {
        return QJsonDocument::fromJson(bytes).object();
    }

    QByteArray bytes; ///< what it printed, byte for byte
    QString output; ///< the same as text
    QString errors;
    int exitCode; ///< -1 when it crashed
};
