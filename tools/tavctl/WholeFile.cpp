#include "WholeFile.h"

#include "InputFile.h"
#include "ToolError.h"

#include <QFile>

#include <cstdio>

QString WholeFile::tryRead(const QString &file, QByteArray &content)
{
    QFile input;
    const QString error = InputFile::tryOpen(input, file);
    if (!error.isEmpty()) {
        return error;
    }
    content = input.readAll();
    return input.error() == QFileDevice::NoError ? QString() : "cannot be read: " + input.errorString();
}

QByteArray WholeFile::read(const QString &file)
{
    QByteArray content;
    const QString error = tryRead(file, content);
    if (!error.isEmpty()) {
        throw ToolError(ExitCode::Usage, file + ": " + error);
    }
    return content;
}

void WholeFile::write(const QString &file, const QByteArray &content)
{
    QFile output(file);
    const bool isOpen = file == "-" ? output.open(stdout, QIODevice::WriteOnly)
                                    : output.open(QIODevice::WriteOnly | QIODevice::Truncate);
    if (!isOpen || output.write(content) != content.size() || !output.flush()) {
        throw ToolError(ExitCode::Usage, file + ": cannot be written: " + output.errorString());
    }
}
