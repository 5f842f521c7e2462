#include "WholeFile.h"

#include "InputFile.h"
#include "ToolError.h"

#include <QFile>
#include <QSaveFile>

#include <cstdio>
#include <sys/stat.h>
#include <unistd.h>

QString WholeFile::tryRead(const QString &file, QByteArray &content)
{
    QFile input;
    QString error = InputFile::tryOpen(input, file);
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

void WholeFile::replace(const QString &file, const QByteArray &content)
{
    QSaveFile output(file); // takes the mode over, and goes where a link leads
    bool isWritten = output.open(QIODevice::WriteOnly) && output.write(content) == content.size();
    struct stat old = {};
    if (isWritten && stat(QFile::encodeName(file).constData(), &old) == 0 && geteuid() == 0) {
        isWritten = fchown(output.handle(), old.st_uid, old.st_gid) == 0;
    }
    if (!isWritten || !output.commit()) {
        throw ToolError(ExitCode::Usage, file + ": cannot be written: " + output.errorString());
    }
}
