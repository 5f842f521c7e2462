#include "Contests.h"

#include "RowContest.h"

#include "ITavAccessControlMgr.h"

#include <cstring>

namespace
{
using Contests::Clearing;

constexpr int keyCount = 3; ///< keys of the tables
constexpr int detailCount = 2; ///< records of every key

/// The byte that fills the records of a seed; also the letter of the user that they name.
char letter(int seed)
{
    return static_cast<char>('a' + seed % 20);
}

template<class Detail>
Detail filled(char byte)
{
    Detail detail;
    std::memset(&detail, byte, sizeof(detail));
    detail.userName[sizeof(detail.userName) - 1] = '\0';
    return detail;
}

template<class Detail>
QVector<Detail> details(int seed)
{
    return QVector<Detail>(detailCount, filled<Detail>(letter(seed)));
}

/// Whether the list is @p size records long, or shorter where that may be, and of each set of records that belong
/// together all are there and of one byte throughout.
template<class Detail>
bool areWhole(const QVector<Detail> &list, int size, bool mayBeShorter)
{
    for (int i = 0; i < list.size(); ++i) {
        const Detail expected = filled<Detail>(list[i - i % detailCount].userName[0]);
        if (std::memcmp(&list[i], &expected, sizeof(Detail)) != 0) {
            return false;
        }
    }
    return list.size() == size || (mayBeShorter && list.size() < size && list.size() % detailCount == 0);
}

bool isLevel(int level)
{
    return level >= -1 && level < Rows::count;
}

Contest users(ITavAccessControlMgr *manager, Clearing clearing)
{
    Contest contest = rowContest<STPriAddUIData>(
        "ITavAccessControlMgr UIUsers", [manager](const auto &list) { manager->updateUIUsers(list); },
        [manager] { return manager->getUIUsers(); }, [manager](const auto &row) { manager->updateUIUser(row); },
        clearing == Clearing::Yes);
    contest.operations.push_back({"uncheckAllUIUsers", [manager](int) {
                                      manager->uncheckAllUIUsers();
                                      return true;
                                  }});
    return contest;
}

Contest principalLevels(ITavAccessControlMgr *manager, Clearing clearing)
{
    Contest contest = rowContest<STAccessSetUIData>(
        "ITavAccessControlMgr UIPriData", [manager](const auto &list) { manager->updateUIPriData(list); },
        [manager] { return manager->getUIPriData(); }, [manager](const auto &row) { manager->updateUIPriData(row); },
        clearing == Clearing::Yes);
    contest.operations.push_back({"getCheckPriLevel", [manager](int) { return isLevel(manager->getCheckPriLevel()); }});
    return contest;
}

Contest objectLevels(ITavAccessControlMgr *manager, Clearing clearing)
{
    Contest contest = rowContest<STAccessSetUIData>(
        "ITavAccessControlMgr UIObjectData", [manager](const auto &list) { manager->updateUIObjectData(list); },
        [manager] { return manager->getUIObjectData(); },
        [manager](const auto &row) { manager->updateUIObjectData(row); }, clearing == Clearing::Yes);
    contest.operations.push_back(
        {"getCheckObjectLevel", [manager](int) { return isLevel(manager->getCheckObjectLevel()); }});
    return contest;
}

Contest files(ITavAccessControlMgr *manager, Clearing clearing)
{
    return rowContest<STObjectAddUIData>(
        "ITavAccessControlMgr UIFiles", [manager](const auto &list) { manager->updateUIFiles(list); },
        [manager] { return manager->getUIFiles(); }, [manager](auto &row) { manager->updateUIFile(row); },
        clearing == Clearing::Yes);
}

Contest userDetails(ITavAccessControlMgr *manager, Clearing clearing)
{
    using List = QVector<STPriDetailAsr>;
    const bool mayBeEmpty = clearing == Clearing::Yes;
    const auto update = [manager](int seed) {
        List list = details<STPriDetailAsr>(seed);
        manager->updateUserDetail(seed % keyCount, list);
        return true;
    };
    for (int key = 0; key < keyCount; ++key) {
        update(key);
    }
    // Set once, so that it must be found ever after.
    List always(detailCount, filled<STPriDetailAsr>('z'));
    manager->updateUserDetail(keyCount, always);

    const auto ofKey = [manager, mayBeEmpty](int seed) {
        return look([&] { return manager->getUserDetail(seed % keyCount); },
                    [&](const List &list) { return areWhole(list, detailCount, mayBeEmpty); });
    };
    const auto ofUnknownKey = [manager](int seed) { return manager->getUserDetail(1000 + seed).isEmpty(); };
    const auto ofAll = [manager, mayBeEmpty](int) {
        return look([&] { return manager->getUserDetail(); },
                    [&](const List &list) { return areWhole(list, (keyCount + 1) * detailCount, mayBeEmpty); });
    };
    const QString user(sizeof(STPriDetailAsr::userName) - 1, QLatin1Char('z'));
    const auto hasUser = [manager, mayBeEmpty, user](int) { return manager->hasUserDetail(user) || mayBeEmpty; };
    const auto hasNobody = [manager, user](int) { return !manager->hasUserDetail(user.toUpper()); };
    return {"ITavAccessControlMgr UserDetail",
            {{"updateUserDetail", update},
             {"getUserDetail of a key", ofKey},
             {"getUserDetail of an unknown key", ofUnknownKey},
             {"getUserDetail of all", ofAll},
             {"hasUserDetail of a user that is there", hasUser},
             {"hasUserDetail of nobody", hasNobody}}};
}

Contest objectDetails(ITavAccessControlMgr *manager, Clearing clearing)
{
    using List = QVector<STObjectDetailAsr>;
    const bool mayBeEmpty = clearing == Clearing::Yes;
    const auto update = [manager](int seed) {
        manager->updateObjectDetail(seed / 2 % keyCount, seed % 2 != 0, details<STObjectDetailAsr>(seed));
        return true;
    };
    for (int seed = 0; seed < 2 * keyCount; ++seed) {
        update(seed);
    }

    const auto ofKey = [manager, mayBeEmpty](int seed) {
        return look([&] { return manager->getObjectDetail(seed / 2 % keyCount, seed % 2 != 0); },
                    [&](const List &list) { return areWhole(list, detailCount, mayBeEmpty); });
    };
    const auto ofUnknownKey
        = [manager](int seed) { return manager->getObjectDetail(1000 + seed, seed % 2 != 0).isEmpty(); };
    const auto ofAll = [manager, mayBeEmpty](int) {
        return look([&] { return manager->getObjectDetail(); },
                    [&](const List &list) { return areWhole(list, 2 * keyCount * detailCount, mayBeEmpty); });
    };
    return {"ITavAccessControlMgr ObjectDetail",
            {{"updateObjectDetail", update},
             {"getObjectDetail of a key", ofKey},
             {"getObjectDetail of an unknown key", ofUnknownKey},
             {"getObjectDetail of all", ofAll}}};
}

/// A count tells its key.
Contest objectCounts(ITavAccessControlMgr *manager, Clearing clearing)
{
    constexpr int countedKeys = 6;
    const bool mayBeZero = clearing == Clearing::Yes;
    const auto set = [manager](int seed) {
        manager->setObjectCount(countedKeys + seed, seed % 2 != 0, seed % countedKeys);
        return true;
    };
    for (int key = 0; key < countedKeys; ++key) {
        set(key);
    }
    const auto ofKey = [manager, mayBeZero](int seed) {
        const int count = manager->getObjectCount(seed % 2 != 0, seed % countedKeys);
        return (count >= countedKeys && count % countedKeys == seed % countedKeys) || (mayBeZero && count == 0);
    };
    const auto ofUnknownKey = [manager](int seed) { return manager->getObjectCount(seed % 2 != 0, 1000 + seed) == 0; };
    return {"ITavAccessControlMgr ObjectCount",
            {{"setObjectCount", set}, {"getObjectCount", ofKey}, {"getObjectCount of an unknown key", ofUnknownKey}}};
}
}

std::vector<Contest> Contests::accessControl(TavPluginHost &host, Clearing clearing)
{
    auto *const manager = host.manager<ITavAccessControlMgr>();
    std::vector<Contest> contests;
    for (const auto make : {users, principalLevels, objectLevels, files, userDetails, objectDetails, objectCounts}) {
        contests.push_back(make(manager, clearing));
        if (clearing == Clearing::Yes) {
            contests.back().operations.push_back({"clearCacheData", [manager](int) {
                                                      manager->clearCacheData();
                                                      return true;
                                                  }});
        }
    }
    return contests;
}
