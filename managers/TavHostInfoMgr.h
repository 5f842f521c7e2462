#pragma once

#include "ITavHostInfoMgr.h"

#include <QMutex>
#include <QObject>

/// @brief The host's resources and the state of its kernel signature.
class TavHostInfoMgr : public QObject, public ITavHostInfoMgr
{
    Q_OBJECT
    Q_INTERFACES(ITavHostInfoMgr)
public:
    explicit TavHostInfoMgr(QObject *parent);

    QObject *getObject() override;
    void setResourceInfo(const STResourceInfoAsr &value) override;
    STResourceInfoAsr getResourceInfo() override;
    void setKernelSigState(const Tav::HostInfo::SystemFileStateAsr &value) override;
    Tav::HostInfo::SystemFileStateAsr getKernelSigState() override;

private:
    QMutex mutex;
    STResourceInfoAsr resourceInfo; // no initial value: controllers set it before pages read it
    Tav::HostInfo::SystemFileStateAsr kernelSigState;
};
