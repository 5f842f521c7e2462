#include "BaselineScript.h"

#include "FileOwner.h"
#include "InstallationPaths.h"
#include "RootedPath.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>

namespace
{
constexpr auto executable = QFileDevice::ExeOwner | QFileDevice::ExeGroup | QFileDevice::ExeOther;

/// Whether the root has the programs that scripts are run by: a directory into which a package was unpacked has not,
/// though it may have a /usr/bin.
bool hasInterpreters()
{
    return followInRoot("/bin/sh").error == 0 || followInRoot("/usr/bin/env").error == 0;
}

/// What is wrong with the program at this path, which is to run a script.
QVector<ScriptFlaw> flawsOfInterpreter(const QString &path)
{
    const RootedPath program = followInRoot(path);
    const QFile file(program.file());
    if (program.error == EACCES) {
        return {{ScriptFlaw::NotReadable, "names an interpreter that cannot be seen: \"" + path + '"'}};
    }
    if (program.error != 0) {
        return {{ScriptFlaw::NoInterpreter, "names an interpreter that does not exist: \"" + path + '"'}};
    }
    if (!QFileInfo(file).isFile() || !(file.permissions() & executable)) {
        return {{ScriptFlaw::NoInterpreter, "names an interpreter that is no program: \"" + path + '"'}};
    }
    return {};
}

/// What is wrong with the first line, which names the interpreter.
QVector<ScriptFlaw> flawsInFirstLine(const QByteArray &begin)
{
    if (begin.isEmpty()) {
        return {{ScriptFlaw::Empty, "is empty"}};
    }
    if (begin.startsWith("\x7f"
                         "ELF")) {
        return {};
    }
    if (!begin.startsWith("#!")) {
        return {{ScriptFlaw::NoInterpreter, "names no interpreter in its first line"}};
    }
    const QByteArray line = begin.mid(2).split('\n').first();
    if (line.endsWith('\r')) {
        return {{ScriptFlaw::ForeignLineEnd, "has a carriage return at the end of its first line"}};
    }
    const QString interpreter = QFile::decodeName(line).trimmed().section(' ', 0, 0).section('\t', 0, 0);
    if (interpreter.isEmpty()) {
        return {{ScriptFlaw::NoInterpreter, "names no interpreter in its first line"}};
    }
    return hasInterpreters() ? flawsOfInterpreter(interpreter) : QVector<ScriptFlaw>();
}
}

QVector<ScriptFlaw> scriptFlaws(const QString &path)
{
    const RootedPath script = followInRoot(path);
    if (script.error == EACCES) {
        return {
            {ScriptFlaw::NotReadable, "cannot be seen: " + qt_error_string(EACCES) + "; " + ownerText(script.file())}};
    }
    if (script.error == ELOOP) {
        return {{ScriptFlaw::Missing, "is a link that leads to itself"}};
    }
    if (script.error != 0) {
        const bool isBehindLink = !QDir::cleanPath(path).startsWith(script.path);
        return {{ScriptFlaw::Missing,
                 "does not exist" + (isBehindLink ? ": a link leads away, and " + script.path + " is missing" : "")}};
    }
    QFile file(script.file());
    if (!QFileInfo(file).isFile()) {
        return {{ScriptFlaw::NotAFile, "is not a regular file"}};
    }
    QVector<ScriptFlaw> flaws;
    const RootedPath directory = followInRoot(InstallationPaths::scripts());
    if (!script.path.startsWith(directory.path + '/')) {
        flaws.append({ScriptFlaw::Outside, "lies outside of the script directory, at " + script.path});
    }
    if (!(file.permissions() & executable)) {
        flaws.append({ScriptFlaw::NotExecutable, "is not executable"});
    }
    constexpr int mostOfFirstLine = 4096;
    if (file.open(QIODevice::ReadOnly)) {
        flaws += flawsInFirstLine(file.read(mostOfFirstLine));
    } else {
        flaws.append(
            {ScriptFlaw::NotReadable, "cannot be read: " + file.errorString() + "; " + ownerText(file.fileName())});
    }
    return flaws;
}
