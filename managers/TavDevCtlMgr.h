#pragma once

#include "ITavDevCtlMgr.h"

#include <QMutex>
#include <QObject>

/// @brief The USB devices and the device functions that are enabled.
class TavDevCtlMgr : public QObject, public ITavDevCtlMgr
{
    Q_OBJECT
    Q_INTERFACES(ITavDevCtlMgr)
public:
    explicit TavDevCtlMgr(QObject *parent);

    QObject *getObject() override;
    void setUsbInfoList(const Tav::DevControl::DevUsbInfoList &value) override;
    Tav::DevControl::DevUsbInfoList getUsbInfoList() override;
    void setFuncEnableInfo(const Tav::DevControl::DevFuncEnableInfo &value) override;
    Tav::DevControl::DevFuncEnableInfo getFuncEnableInfo() override;

private:
    QMutex mutex;
    Tav::DevControl::DevUsbInfoList usbInfoList;
    Tav::DevControl::DevFuncEnableInfo funcEnableInfo;
};
