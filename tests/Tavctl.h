#pragma once

#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QStringList>

/// @brief The tool tavctl, run once with the arguments given; what it printed and how it ended.
struct Tavctl {
    explicit Tavctl(const QStringList &arguments)
    {
        // Under an emulator when the tests are.
        const QStringList command
            = QString(TAV_EMULATOR).split(' ', Qt::SkipEmptyParts) + QStringList{TAV_TAVCTL_FILE} + arguments;
        QProcess process;
        process.start(command.first(), command.mid(1));
        process.waitForFinished(60000);
        output = QString::fromUtf8(process.readAllStandardOutput());
        errors = QString::fromUtf8(process.readAllStandardError());
        exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    }

    QJsonObject json() const
    {
        return QJsonDocument::fromJson(output.toUtf8()).object();
    }

    QString output;
    QString errors;
    int exitCode; ///< -1 when it crashed or did not end
};
