#pragma once

#include "Program.h"

#include <QJsonDocument>
#include <QJsonObject>

/// The command that runs tavctl, under an emulator when the tests are.
inline QStringList tavctlCommand(const QStringList &arguments)
{
    return QString(TAV_EMULATOR).split(' ', Qt::SkipEmptyParts) + QStringList{TAV_TAVCTL_FILE} + arguments;
}

/// As somebody who may do no more than everybody, also when the tests are run by the administrator.
inline QStringList asStranger(const QStringList &command)
{
    return geteuid() == 0 ? QStringList{"setpriv", "--reuid", "65534", "--clear-groups"} + command : command;
}

/// @brief The tool tavctl, run once with the arguments given; what it printed and how it ended.
struct Tavctl {
    explicit Tavctl(const QStringList &arguments, const QString &inputFile = QStringLiteral("/dev/null"))
    {
        run(tavctlCommand(arguments), inputFile);
    }

    /// The same, run by a stranger.
    static Tavctl byStranger(const QStringList &arguments)
    {
        Tavctl tavctl;
        tavctl.run(asStranger(tavctlCommand(arguments)), QStringLiteral("/dev/null"));
        return tavctl;
    }

    QJsonObject json() const
    {
        return QJsonDocument::fromJson(bytes).object();
    }

    QByteArray bytes; ///< what it printed, byte for byte
    QString output; ///< the same as text
    QString errors;
    int exitCode = -1; ///< -1 when it crashed

private:
    Tavctl() = default;

    void run(const QStringList &command, const QString &inputFile)
    {
        const Program run(command, inputFile);
        bytes = run.output;
        output = QString::fromUtf8(run.output);
        errors = QString::fromUtf8(run.errors);
        exitCode = run.exitCode;
    }
};
