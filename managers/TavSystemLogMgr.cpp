#include "TavSystemLogMgr.h"

TavSystemLogMgr::TavSystemLogMgr(QObject *parent) : QObject(parent)
{
}
