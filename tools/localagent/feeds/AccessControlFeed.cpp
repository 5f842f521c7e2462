#include "AccessReader.h"
#include "AgentCalls.h"
#include "HostFile.h"
#include "ManagerFeeds.h"
#include "TavAccessObjects.h"

using TavOperations::overload;

namespace
{
constexpr bool filesTable = bool(TavAccessObjects::Table::Files);
constexpr qint32 fileType = 1;

QVector<STPriAddUIData> rowsOf(const QVector<UserReader::User> &users)
{
    QVector<STPriAddUIData> rows;
    for (const UserReader::User &user : users) {
        STPriAddUIData row;
        row.userName = QString::fromUtf8(user.name);
        row.userNumber = static_cast<int>(user.uid);
        row.userText = QString::fromUtf8(user.groups.join(", "));
        rows.append(row);
    }
    return rows;
}

/// The records of one level.
template<class Record>
QVector<Record> ofLevel(const QVector<Record> &records, int level)
{
    QVector<Record> found;
    for (const Record &record : records) {
        if (record.level == level) {
            found.append(record);
        }
    }
    return found;
}
}

int ManagerFeeds::feedUsers(const QString &root, const AgentCalls<ITavAccessControlMgr> &calls, ReadingNotes &notes)
{
    const QVector<UserReader::User> users = UserReader::readUsers(root, notes);
    calls.make<&ITavAccessControlMgr::updateSystemUsers>(UserReader::records(users));
    calls.make<&ITavAccessControlMgr::updateUIUsers>(rowsOf(users));
    calls.make<overload<void(const QVector<STAccessSetUIData> &)>(&ITavAccessControlMgr::updateUIPriData)>(
        AccessReader::principalLevels());

    // The manager takes details one level at a time.
    const auto status = HostFile::status(root, "/etc/passwd");
    const QVector<STPriDetailAsr> principals = AccessReader::principals(users, status ? status->st_mtim.tv_sec : 0);
    for (int level = 0; level <= AccessReader::maxLevel; ++level) {
        QVector<STPriDetailAsr> details = ofLevel(principals, level);
        calls.make<&ITavAccessControlMgr::updateUserDetail>(level, details);
    }
    return users.size();
}

int ManagerFeeds::feedObjects(const QString &root, const AgentCalls<ITavAccessControlMgr> &calls, ReadingNotes &notes)
{
    const QVector<STObjectDetailAsr> objects = AccessReader::readObjects(root, UserReader::readNames(root), notes);
    QVector<STObjectDetailAsr> files;
    QVector<STObjectDetailAsr> others;
    QVector<STObjectAddUIData> rows;
    for (const STObjectDetailAsr &object : objects) {
        (object.type == fileType ? files : others).append(object);
        rows.append({false, QString::fromUtf8(object.fileName), QString::fromUtf8(object.filePath)});
    }
    for (int level = 0; level <= AccessReader::maxLevel; ++level) {
        const QVector<STObjectDetailAsr> levelFiles = ofLevel(files, level);
        const QVector<STObjectDetailAsr> levelOthers = ofLevel(others, level);
        calls.make<&ITavAccessControlMgr::updateObjectDetail>(level, filesTable, levelFiles);
        calls.make<&ITavAccessControlMgr::setObjectCount>(levelFiles.size(), filesTable, level);
        calls.make<&ITavAccessControlMgr::updateObjectDetail>(level, !filesTable, levelOthers);
        calls.make<&ITavAccessControlMgr::setObjectCount>(levelOthers.size(), !filesTable, level);
    }
    calls.make<&ITavAccessControlMgr::updateUIFiles>(rows);
    calls.make<overload<void(const QVector<STAccessSetUIData> &)>(&ITavAccessControlMgr::updateUIObjectData)>(
        AccessReader::objectLevels());
    return objects.size();
}

int ManagerFeeds::feedAccessMode(const QString &root, const AgentCalls<ITavAccessControlMgr> &calls,
                                 ReadingNotes &notes)
{
    Tav::AccessControl::AccessModeConfig config = AccessReader::readMode(root, notes);
    config.set_principal_count(
        calls.make<overload<QVector<STPriDetailAsr>()>(&ITavAccessControlMgr::getUserDetail)>().size());
    config.set_object_count(
        calls.make<overload<QVector<STObjectDetailAsr>()>(&ITavAccessControlMgr::getObjectDetail)>().size());
    calls.make<&ITavAccessControlMgr::setModeConfig>(config);

    Tav::Base::CommandStateAsr state;
    state.set_state(0);
    calls.make<&ITavAccessControlMgr::setState>(state);
    return 1;
}
