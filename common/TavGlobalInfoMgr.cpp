#include "TavGlobalInfoMgr.h"

#include "TavObjectMgr.h"

#include <atomic>

namespace
{
std::atomic<ITavObjectMgr *> hostObjectMgr = nullptr;
}

TavGlobalInfoMgr::TavGlobalInfoMgr()
    : m_appPath{QStringLiteral("/opt/tavsec"), QStringLiteral("/opt/tavsec/plugins"), QStringLiteral("/var/log/tavsec"),
                QStringLiteral("/var/lib/tavsec"), QStringLiteral("/etc/tavsec.d")}
{
}

TavGlobalInfoMgr *TavGlobalInfoMgr::getInstance()
{
    // Never destroyed, so that a thread which outlives main() finds it alive.
    static auto *const instance = new TavGlobalInfoMgr;
    return instance;
}

ITavObjectMgr *TavGlobalInfoMgr::getObjectMgr()
{
    if (ITavObjectMgr *objectMgr = hostObjectMgr) {
        return objectMgr;
    }
    static TavObjectMgr builtIn;
    return &builtIn;
}

void TavGlobalInfoMgr::setObjectMgr(ITavObjectMgr *objectMgr)
{
    hostObjectMgr = objectMgr;
}

STAppPathInfo TavGlobalInfoMgr::getAppPath()
{
    QMutexLocker lock(&m_mutex);
    return m_appPath;
}

void TavGlobalInfoMgr::setAppPath(const STAppPathInfo &appPath)
{
    QMutexLocker lock(&m_mutex);
    m_appPath = appPath;
}

QString TavGlobalInfoMgr::systemRoot()
{
    QMutexLocker lock(&m_mutex);
    return m_systemRoot;
}

void TavGlobalInfoMgr::setSystemRoot(const QString &systemRoot)
{
    QMutexLocker lock(&m_mutex);
    m_systemRoot = systemRoot;
}
