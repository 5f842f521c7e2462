#include "InstallationPaths.h"

#include "TavGlobalInfoMgr.h"

QString InstallationPaths::catalogue()
{
    return TavGlobalInfoMgr::getInstance()->getAppPath().configPath + "/funcTypeConfig.json";
}

QString InstallationPaths::baseline()
{
    return "/etc/tavsec.d/baselineConfig/baseline.json";
}

QString InstallationPaths::pictures()
{
    return "/opt/tavsec/pictures";
}
