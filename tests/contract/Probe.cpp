// A library whose only purpose is to be compared: it exports one function for each interface and each class of the
// common library whose layout pages compile in, so that tools which compare exported symbols and their types see every
// interface, record and message that pages are compiled against.

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
#include "TavBaseEvent.h"
#include "TavEventNotifyMgr.h"
#include "TavEvents.h"
#include "TavObjectMgr.h"
#include "TavSubscription.h"

#define PROBE(Type)                                                                                                    \
    extern "C" __attribute__((visibility("default"))) void probe##Type(Type *object);                                  \
    void probe##Type(Type *object)                                                                                     \
    {                                                                                                                  \
        Q_UNUSED(object)                                                                                               \
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

// What pages compile in of the common library.
using PageSignal = decltype(eventFuncPageUpdate);
PROBE(PageSignal)
PROBE(TavSubscription)
PROBE(TavBaseEvent)
PROBE(TavEventNotifyMgr)
PROBE(ITavObjectMgr)
PROBE(TavObjectMgr)
PROBE(STObjectKey)
PROBE(TavGlobalInfoMgr)
PROBE(STAppPathInfo)

// A private type, and yet every binary that subscribes or emits has its layout compiled in. An explicit instantiation
// may name it.
template<class Type>
void probePrivate(Type *object)
{
    static_assert(sizeof(Type) > 0); // an incomplete type has no fields to compare
    Q_UNUSED(object)
}
template __attribute__((visibility("default"))) void probePrivate(PageSignal::Subscriber *object);
