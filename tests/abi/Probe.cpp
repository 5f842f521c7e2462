// A library whose only purpose is to be compared: it exports one function for each interface, so that tools which
// compare exported symbols and their types see every interface, record and message that pages are compiled against.

#include "ITavAccessControlMgr.h"
#include "ITavAuditMgr.h"
#include "ITavAuthInfoMgr.h"
#include "ITavCompleteProtectMgr.h"
#include "ITavDataPlugin.h"
#include "ITavDevCtlMgr.h"
#include "ITavFuncTypeMgr.h"
#include "ITavHostInfoMgr.h"
#include "ITavLineScanMgr.h"
#include "ITavNetControlMgr.h"
#include "ITavOneReinforceMgr.h"
#include "ITavPicResourceMgr.h"
#include "ITavProExceptionMgr.h"
#include "ITavProtectMgr.h"
#include "ITavSelectFuncMgr.h"
#include "ITavSystemConfigMgr.h"

#define PROBE(Interface)                                                                                               \
    extern "C" __attribute__((visibility("default"))) void probe##Interface(Interface *interface);                     \
    void probe##Interface(Interface *interface)                                                                        \
    {                                                                                                                  \
        Q_UNUSED(interface)                                                                                            \
    }

PROBE(ITavDataPlugin)
PROBE(ITavFuncTypeMgr)
PROBE(ITavPicResourceMgr)
PROBE(ITavSelectFuncMgr)
PROBE(ITavAccessControlMgr)
PROBE(ITavCompleteProtectMgr)
PROBE(ITavProtectMgr)
PROBE(ITavAuditMgr)
PROBE(ITavHostInfoMgr)
PROBE(ITavOneReinforceMgr)
PROBE(ITavLineScanMgr)
PROBE(ITavNetControlMgr)
PROBE(ITavAuthInfoMgr)
PROBE(ITavSystemConfigMgr)
PROBE(ITavDevCtlMgr)
PROBE(ITavProExceptionMgr)
