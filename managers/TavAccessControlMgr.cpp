#include "TavAccessControlMgr.h"

#include "TavHeldValue.h"

#include <algorithm>

namespace
{
/// The level of the first checked entry, -1 when none is checked. Called with the manager's mutex held.
int checkedLevel(const QVector<STAccessSetUIData> &levels)
{
    const auto isChecked = [](const STAccessSetUIData &entry) { return entry.checked; };
    const auto entry = std::find_if(levels.begin(), levels.end(), isChecked);
    return entry == levels.end() ? -1 : entry->level;
}

/// Overwrites the first entry with the level of @p given. Called with the manager's mutex held.
void mergeLevel(QVector<STAccessSetUIData> &levels, const STAccessSetUIData &given)
{
    const auto sameLevel = [&given](const STAccessSetUIData &entry) { return entry.level == given.level; };
    const auto entry = std::find_if(levels.begin(), levels.end(), sameLevel);
    if (entry != levels.end()) {
        *entry = given;
    }
}

/// The lists of @p details one after the other, in ascending key order. Called with the manager's mutex held.
template<class Detail>
QVector<Detail> concatenated(const QMap<int, QVector<Detail>> &details)
{
    QVector<Detail> all;
    for (const QVector<Detail> &list : details) {
        all += list;
    }
    return all;
}
}

TavAccessControlMgr::TavAccessControlMgr(QObject *parent) : QObject(parent)
{
}

QObject *TavAccessControlMgr::getObject()
{
    return this;
}

void TavAccessControlMgr::updateSystemUsers(const QVector<STLookUsersAsr> &users)
{
    TavHeldValue::set(mutex, systemUsers, users);
}

QVector<STLookUsersAsr> TavAccessControlMgr::getSystemUsers()
{
    return TavHeldValue::get(mutex, systemUsers);
}

void TavAccessControlMgr::updateUIUsers(const QVector<STPriAddUIData> &users)
{
    TavHeldValue::set(mutex, uiUsers, users);
}

QVector<STPriAddUIData> TavAccessControlMgr::getUIUsers()
{
    return TavHeldValue::get(mutex, uiUsers);
}

void TavAccessControlMgr::updateUIUser(const STPriAddUIData &user)
{
    QMutexLocker lock(&mutex);
    const auto sameName = [&user](const STPriAddUIData &row) { return row.userName == user.userName; };
    const auto row = std::find_if(uiUsers.begin(), uiUsers.end(), sameName);
    if (row != uiUsers.end()) {
        *row = user;
    }
}

void TavAccessControlMgr::uncheckAllUIUsers()
{
    QMutexLocker lock(&mutex);
    for (STPriAddUIData &row : uiUsers) {
        row.checked = false;
    }
}

int TavAccessControlMgr::getCheckObjectLevel()
{
    QMutexLocker lock(&mutex);
    return checkedLevel(uiObjectData);
}

void TavAccessControlMgr::updateUserDetail(int key, QVector<STPriDetailAsr> &details)
{
    QMutexLocker lock(&mutex);
    userDetails.insert(key, details);
}

QVector<STPriDetailAsr> TavAccessControlMgr::getUserDetail(int key)
{
    QMutexLocker lock(&mutex);
    return userDetails[key]; // a key asked for stays in the table, here and in the other keyed reads
}

QVector<STPriDetailAsr> TavAccessControlMgr::getUserDetail()
{
    QMutexLocker lock(&mutex);
    return concatenated(userDetails);
}

int TavAccessControlMgr::getCheckPriLevel()
{
    QMutexLocker lock(&mutex);
    return checkedLevel(uiPriData);
}

bool TavAccessControlMgr::hasUserDetail(const QString &userName)
{
    // Without the lock, which the called operation takes itself.
    const QVector<STPriDetailAsr> details = getUserDetail();
    return std::any_of(details.begin(), details.end(), [&userName](const STPriDetailAsr &detail) {
        // A name that fills its buffer, as no backend should send it, ends there.
        return QString::fromUtf8(detail.userName, int(qstrnlen(detail.userName, sizeof(detail.userName)))) == userName;
    });
}

void TavAccessControlMgr::updateUIPriData(const QVector<STAccessSetUIData> &levels)
{
    TavHeldValue::set(mutex, uiPriData, levels);
}

void TavAccessControlMgr::updateUIPriData(const STAccessSetUIData &level)
{
    QMutexLocker lock(&mutex);
    mergeLevel(uiPriData, level);
}

QVector<STAccessSetUIData> TavAccessControlMgr::getUIPriData()
{
    return TavHeldValue::get(mutex, uiPriData);
}

void TavAccessControlMgr::updateObjectDetail(int key, bool flag, const QVector<STObjectDetailAsr> &details)
{
    QMutexLocker lock(&mutex);
    (flag ? objectDetailsOn : objectDetailsOff).insert(key, details);
}

QVector<STObjectDetailAsr> TavAccessControlMgr::getObjectDetail(int key, bool flag)
{
    QMutexLocker lock(&mutex);
    return (flag ? objectDetailsOn : objectDetailsOff)[key];
}

QVector<STObjectDetailAsr> TavAccessControlMgr::getObjectDetail()
{
    QMutexLocker lock(&mutex);
    return concatenated(objectDetailsOn) + concatenated(objectDetailsOff);
}

void TavAccessControlMgr::updateUIObjectData(const QVector<STAccessSetUIData> &levels)
{
    TavHeldValue::set(mutex, uiObjectData, levels);
}

void TavAccessControlMgr::updateUIObjectData(const STAccessSetUIData &level)
{
    QMutexLocker lock(&mutex);
    mergeLevel(uiObjectData, level);
}

QVector<STAccessSetUIData> TavAccessControlMgr::getUIObjectData()
{
    return TavHeldValue::get(mutex, uiObjectData);
}

void TavAccessControlMgr::updateUIFiles(const QVector<STObjectAddUIData> &files)
{
    TavHeldValue::set(mutex, uiFiles, files);
}

QVector<STObjectAddUIData> TavAccessControlMgr::getUIFiles()
{
    return TavHeldValue::get(mutex, uiFiles);
}

void TavAccessControlMgr::updateUIFile(STObjectAddUIData &file)
{
    QMutexLocker lock(&mutex);
    const auto row = std::find_if(uiFiles.begin(), uiFiles.end(), [&file](const STObjectAddUIData &candidate) {
        return candidate.filePath == file.filePath && candidate.fileName == file.fileName;
    });
    if (row != uiFiles.end()) {
        *row = file;
    }
}

void TavAccessControlMgr::setObjectCount(int count, bool flag, int key)
{
    QMutexLocker lock(&mutex);
    (flag ? objectCountsOn : objectCountsOff).insert(key, count);
}

int TavAccessControlMgr::getObjectCount(bool flag, int key)
{
    QMutexLocker lock(&mutex);
    return (flag ? objectCountsOn : objectCountsOff)[key];
}

void TavAccessControlMgr::setModeConfig(const Tav::AccessControl::AccessModeConfig &config)
{
    TavHeldValue::set(mutex, modeConfig, config);
}

Tav::AccessControl::AccessModeConfig TavAccessControlMgr::getModeConfig()
{
    return TavHeldValue::get(mutex, modeConfig);
}

void TavAccessControlMgr::setState(const Tav::Base::CommandStateAsr &value)
{
    TavHeldValue::set(mutex, state, value);
}

Tav::Base::CommandStateAsr TavAccessControlMgr::getState()
{
    return TavHeldValue::get(mutex, state);
}

void TavAccessControlMgr::clearCacheData()
{
    // The users of the system, the mode and the command state are no page's cache: they stay.
    QMutexLocker lock(&mutex);
    userDetails.clear();
    uiUsers.clear();
    uiPriData.clear();
    objectDetailsOn.clear();
    objectDetailsOff.clear();
    uiObjectData.clear();
    uiFiles.clear();
    objectCountsOff.clear();
    objectCountsOn.clear();
}
