#include "TavDataPlugin.h"

#include "TavAccessControlMgr.h"
#include "TavAuditMgr.h"
#include "TavAuthInfoMgr.h"
#include "TavCompleteProtectMgr.h"
#include "TavDevCtlMgr.h"
#include "TavFuncTypeMgr.h"
#include "TavGlobalInfoMgr.h"
#include "TavHostInfoMgr.h"
#include "TavLineScanMgr.h"
#include "TavNetControlMgr.h"
#include "TavObjectMgr.h"
#include "TavOneReinforceMgr.h"
#include "TavPicResourceMgr.h"
#include "TavProExceptionMgr.h"
#include "TavProtectMgr.h"
#include "TavSelectFuncMgr.h"
#include "TavSystemConfigMgr.h"

namespace
{
template<class Manager>
QObject *create()
{
    return new Manager(nullptr);
}

struct Registration {
    const char *interfaceName;
    QObject *(*create)();
};

// Created and registered in this order. TavSystemLogMgr is not registered: it has nothing to look up.
constexpr Registration registrations[] = {
    {"ITavFuncTypeMgr", create<TavFuncTypeMgr>},
    {"ITavPicResourceMgr", create<TavPicResourceMgr>},
    {"ITavSelectFuncMgr", create<TavSelectFuncMgr>},
    {"ITavAccessControlMgr", create<TavAccessControlMgr>},
    {"ITavCompleteProtectMgr", create<TavCompleteProtectMgr>},
    {"ITavProtectMgr", create<TavProtectMgr>},
    {"ITavAuditMgr", create<TavAuditMgr>},
    {"ITavHostInfoMgr", create<TavHostInfoMgr>},
    {"ITavOneReinforceMgr", create<TavOneReinforceMgr>},
    {"ITavLineScanMgr", create<TavLineScanMgr>},
    {"ITavNetControlMgr", create<TavNetControlMgr>},
    {"ITavAuthInfoMgr", create<TavAuthInfoMgr>},
    {"ITavSystemConfigMgr", create<TavSystemConfigMgr>},
    {"ITavDevCtlMgr", create<TavDevCtlMgr>},
    {"ITavProExceptionMgr", create<TavProExceptionMgr>},
};
}

TavDataPlugin::TavDataPlugin(QObject *parent) : QObject(parent)
{
}

void TavDataPlugin::registerObj()
{
    for (const Registration &registration : registrations) {
        // Asked anew each time: the client may put another registry in place between two registrations.
        ITavObjectMgr *const registry = TavGlobalInfoMgr::getObjectMgr();
        // Composed here: tavManagerKey() is of this project's edition of the library, which the client may replace.
        const QString name = QString::fromUtf8(registration.interfaceName) + QLatin1String("_Tav_ORG");
        const STObjectKey key{-9999, name};
        registry->registerObject(key, registration.create(), true);
    }
}
