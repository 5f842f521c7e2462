#pragma once

#include "ITavSystemConfigMgr.h"

#include <QMutex>
#include <QObject>

/// @brief The server information and the online state.
class TavSystemConfigMgr : public QObject, public ITavSystemConfigMgr
{
    Q_OBJECT
    Q_INTERFACES(ITavSystemConfigMgr)
public:
    explicit TavSystemConfigMgr(QObject *parent);

    QObject *getObject() override;
    void setServerInfo(const Tav::SystemConfig::SystemServerInfo &value) override;
    Tav::SystemConfig::SystemServerInfo getServerInfo() override;
    void setOnlineState(const Tav::SystemConfig::CommdOnlineState &value) override;
    Tav::SystemConfig::CommdOnlineState getOnlineState() override;

private:
    QMutex mutex;
    Tav::SystemConfig::SystemServerInfo serverInfo;
    Tav::SystemConfig::CommdOnlineState onlineState;
};
