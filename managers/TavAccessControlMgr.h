#pragma once

#include "ITavAccessControlMgr.h"

#include <QMap>
#include <QMutex>
#include <QObject>

/// @brief The users, rows, levels, details and counts of the access-control pages.
class TavAccessControlMgr : public QObject, public ITavAccessControlMgr
{
    Q_OBJECT
    Q_INTERFACES(ITavAccessControlMgr)
public:
    explicit TavAccessControlMgr(QObject *parent);

    QObject *getObject() override;
    void updateSystemUsers(const QVector<STLookUsersAsr> &users) override;
    QVector<STLookUsersAsr> getSystemUsers() override;
    void updateUIUsers(const QVector<STPriAddUIData> &users) override;
    QVector<STPriAddUIData> getUIUsers() override;
    void updateUIUser(const STPriAddUIData &user) override;
    void uncheckAllUIUsers() override;
    int getCheckObjectLevel() override;
    void updateUserDetail(int key, QVector<STPriDetailAsr> &details) override;
    QVector<STPriDetailAsr> getUserDetail(int key) override;
    QVector<STPriDetailAsr> getUserDetail() override;
    int getCheckPriLevel() override;
    bool hasUserDetail(const QString &userName) override;
    void updateUIPriData(const QVector<STAccessSetUIData> &levels) override;
    void updateUIPriData(const STAccessSetUIData &level) override;
    QVector<STAccessSetUIData> getUIPriData() override;
    void updateObjectDetail(int key, bool flag, const QVector<STObjectDetailAsr> &details) override;
    QVector<STObjectDetailAsr> getObjectDetail(int key, bool flag) override;
    QVector<STObjectDetailAsr> getObjectDetail() override;
    void updateUIObjectData(const QVector<STAccessSetUIData> &levels) override;
    void updateUIObjectData(const STAccessSetUIData &level) override;
    QVector<STAccessSetUIData> getUIObjectData() override;
    void updateUIFiles(const QVector<STObjectAddUIData> &files) override;
    QVector<STObjectAddUIData> getUIFiles() override;
    void updateUIFile(STObjectAddUIData &file) override;
    void setObjectCount(int count, bool flag, int key) override;
    int getObjectCount(bool flag, int key) override;
    void setModeConfig(const Tav::AccessControl::AccessModeConfig &config) override;
    Tav::AccessControl::AccessModeConfig getModeConfig() override;
    void setState(const Tav::Base::CommandStateAsr &value) override;
    Tav::Base::CommandStateAsr getState() override;
    void clearCacheData() override;

private:
    QVector<STLookUsersAsr> systemUsers;
    QMap<int, QVector<STPriDetailAsr>> userDetails;
    QVector<STPriAddUIData> uiUsers;
    QVector<STAccessSetUIData> uiPriData;
    QMap<int, QVector<STObjectDetailAsr>> objectDetailsOn;
    QMap<int, QVector<STObjectDetailAsr>> objectDetailsOff;
    QVector<STAccessSetUIData> uiObjectData;
    QVector<STObjectAddUIData> uiFiles;
    QMap<int, int> objectCountsOff;
    QMap<int, int> objectCountsOn;
    Tav::AccessControl::AccessModeConfig modeConfig;
    QMutex mutex; // guards the state behind it, too: the order is that of the client's class
    Tav::Base::CommandStateAsr state;
};
