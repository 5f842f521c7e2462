#pragma once

#include "Program.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <unistd.h>

/// The command that runs tavctl, under an emulator when the tests are.
inline QStringList tavctlCommand(const QStringList &arguments)
{
    return QString(TAV_EMULATOR).split(' ', Qt::SkipEmptyParts) + QStringList{TAV_TAVCTL_FILE} + arguments;
}

/// What runs the command behind it on a machine whose /proc is not mounted; only the administrator can.
const QStringList withoutProcessFiles{"unshare", "--mount", "sh", "-c", "umount -l /proc && exec \"$@\"", "sh"};

/// @brief The tool tavctl, run once with the arguments given; what it printed and how it ended.
struct Tavctl {
    /// @p before stands before the command, to run it in another way.
    explicit Tavctl(const QStringList &arguments, const QString &inputFile = QStringLiteral("/dev/null"),
                    const QStringList &before = {})
    {
        const Program run(before + tavctlCommand(arguments), inputFile);
        bytes = run.output;
        output = QString::fromUtf8(run.output);
        errors = QString::fromUtf8(run.errors);
        exitCode = run.exitCode;
        peakMiB = run.peakMiB;
        processorSeconds = run.processorSeconds;
    }

    /// Run by somebody whom permissions bind, also when the tests are run by the administrator. It stays the same
    /// user: another one might not even reach the program.
    static Tavctl boundByPermissions(const QStringList &arguments)
    {
        const QString rights = QStringLiteral("-dac_override,-dac_read_search");
        const QStringList bound{"setpriv", "--bounding-set", rights, "--inh-caps", rights};
        return Tavctl(arguments, QStringLiteral("/dev/null"), geteuid() == 0 ? bound : QStringList());
    }

    QJsonObject json() const
    {
        return QJsonDocument::fromJson(bytes).object();
    }

    QByteArray bytes; ///< what it printed, byte for byte
    QString output; ///< the same as text
    QString errors;
    double processorSeconds; ///< that it took, without the system's
    long peakMiB; ///< the most memory that it had at one time
    int exitCode; ///< -1 when it crashed
};
