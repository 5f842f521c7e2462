#include "TavEvents.h"

TavSignal<const CTavSubFuncTypeHeader::TavSubFuncTypeHeader_> eventFuncPageUpdate;
