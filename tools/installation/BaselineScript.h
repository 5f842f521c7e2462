#pragma once

#include <QString>
#include <QVector>

/// @brief What keeps the script of a check item from being run, or from being trusted.
struct ScriptFlaw {
    enum Kind {
        Missing, ///< no file has this name
        NotReadable, ///< whoever looks may not see it, or not what is in it
        NotAFile, ///< a directory, a device or the like
        NotExecutable, ///< nobody may execute it
        Outside, ///< ".." or a link leads out of the script directory
        Empty,
        ForeignLineEnd, ///< a carriage return ends its first line, and belongs to the interpreter's name
        NoInterpreter, ///< it is no program, and names none that is there
    };

    Kind kind;
    QString problem; ///< such as "is not executable": what is to be said of the script
};

/// The flaws of the script at @p path, which is absolute and taken within the system root; none when it can be run. Any
/// execute permission will do: the agent that runs the checks is another user than the one who looks here. The
/// interpreter is only looked for in a root that has a shell or env.
QVector<ScriptFlaw> scriptFlaws(const QString &path);
