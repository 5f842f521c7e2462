#pragma once

#include "HostInfo.pb.h"
#include "STResourceInfoAsr.h"

#include <QObject>

/**
 * @brief Holds the host's resource figures and the state of its kernel's signatures.
 *
 * Any thread may call any operation. Getters return copies. Nothing is signalled on a set: readers ask again.
 */
class ITavHostInfoMgr
{
public:
    /// The manager itself, to look at its class or to watch its end: it has no signals of its own. Takes no lock.
    [[nodiscard]] virtual QObject *getObject() = 0;

    /// Replaces the resource figures.
    virtual void setResourceInfo(const STResourceInfoAsr &info) = 0;
    /// Copy of the resource figures. Before the first set they are indeterminate, and texts may lack their NUL: do not
    /// read them before a controller has announced that it has set them.
    [[nodiscard]] virtual STResourceInfoAsr getResourceInfo() = 0;

    /// Replaces the state of the kernel's signatures.
    virtual void setKernelSigState(const Tav::HostInfo::SystemFileStateAsr &state) = 0;
    /// Copy of the state of the kernel's signatures; an empty message before the first set.
    [[nodiscard]] virtual Tav::HostInfo::SystemFileStateAsr getKernelSigState() = 0;

protected:
    /// Not virtual: nothing is deleted through this interface, and a destructor would take places in its table.
    ~ITavHostInfoMgr() = default;
};

Q_DECLARE_INTERFACE(ITavHostInfoMgr, "ITavHostInfoMgr")
