#pragma once

#include "TavGlobalInfoMgr.h"
#include "TavNanolog.h"

/// @brief Puts back what is shared by the whole process when it ends: registry, system root, application paths, level
/// of the log. Declare it first, so that it ends last.
class GlobalStateGuard
{
public:
    GlobalStateGuard() = default;
    Q_DISABLE_COPY(GlobalStateGuard)

    ~GlobalStateGuard()
    {
        TavGlobalInfoMgr::setObjectMgr(nullptr);
        TavGlobalInfoMgr::getInstance()->setSystemRoot(m_systemRoot);
        TavGlobalInfoMgr::getInstance()->setAppPath(m_appPath);
        TavNanolog::setLevel(3);
    }

private:
    const QString m_systemRoot = TavGlobalInfoMgr::getInstance()->systemRoot();
    const STAppPathInfo m_appPath = TavGlobalInfoMgr::getInstance()->getAppPath();
};
