#include "BaselineScript.h"

#include "TavCommonUtils.h"

#include <QFileInfo>

ScriptState scriptState(const QString &path)
{
    constexpr auto executable = QFileDevice::ExeOwner | QFileDevice::ExeGroup | QFileDevice::ExeOther;
    const QFileInfo file(TavCommonUtils::pathInSystemRoot(path));
    if (path.contains(QChar::Null) || !file.exists()) { // no file has a name with a NUL, and Qt would complain of it
        return ScriptState::Missing;
    }
    if (!file.isFile()) {
        return ScriptState::NotAFile;
    }
    return file.permissions() & executable ? ScriptState::Runnable : ScriptState::NotExecutable;
}
