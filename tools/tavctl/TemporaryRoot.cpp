#include "TemporaryRoot.h"

#include "TavCommonUtils.h"
#include "TavGlobalInfoMgr.h"
#include "ToolError.h"
#include "WholeFile.h"

#include <QDir>
#include <QFileInfo>

TemporaryRoot::TemporaryRoot() : m_rootBefore(TavGlobalInfoMgr::getInstance()->systemRoot())
{
    if (!m_directory.isValid()) {
        throw ToolError(ExitCode::Usage, "there is no place for a temporary directory: " + m_directory.errorString());
    }
    TavGlobalInfoMgr::getInstance()->setSystemRoot(m_directory.path());
}

TemporaryRoot::~TemporaryRoot()
{
    TavGlobalInfoMgr::getInstance()->setSystemRoot(m_rootBefore);
}

void TemporaryRoot::put(const QString &path, const QByteArray &content)
{
    const QString file = TavCommonUtils::pathInSystemRoot(path);
    QDir().mkpath(QFileInfo(file).path());
    WholeFile::write(file, content);
}
