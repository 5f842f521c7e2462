#pragma once

#include "AccessControl.pb.h"
#include "Base.pb.h"
#include "STAccessSetUIData.h"
#include "STLookUsersAsr.h"
#include "STObjectAddUIData.h"
#include "STObjectDetailAsr.h"
#include "STPriAddUIData.h"
#include "STPriDetailAsr.h"

#include <QObject>
#include <QString>
#include <QVector>

/**
 * @brief What the access-control pages show and edit.
 *
 * Any thread may call any operation. Results are copies. Editing a row changes the first that matches and never
 * appends one. The keys and flags of the keyed tables are the page controllers' own (those of the development client:
 * TavAccessObjects): a flag chooses one of two tables, a key is any int. Reading an unknown key inserts it; kept so.
 *
 * The orders of arguments differ between operations (count, flag, key; flag, key; key, flag) and are kept: the
 * compiler does not tell them apart.
 */
class ITavAccessControlMgr
{
public:
    /// The manager itself, to look at its class or to watch its end: it has no signals of its own. Takes no lock.
    [[nodiscard]] virtual QObject *getObject() = 0;

    /// Replaces the list of the host's users.
    virtual void updateSystemUsers(const QVector<STLookUsersAsr> &users) = 0;
    /// The list of the host's users; clearCacheData() leaves it.
    [[nodiscard]] virtual QVector<STLookUsersAsr> getSystemUsers() = 0;

    /// Replaces the page's list of principals.
    virtual void updateUIUsers(const QVector<STPriAddUIData> &users) = 0;
    /// The page's list of principals.
    [[nodiscard]] virtual QVector<STPriAddUIData> getUIUsers() = 0;
    /// Overwrites the first principal with this `userName` (case counts); none: nothing changes.
    virtual void updateUIUser(const STPriAddUIData &user) = 0;
    /// Takes the tick off every principal.
    virtual void uncheckAllUIUsers() = 0;

    /// `level` of the first checked object level; -1 when none is checked.
    [[nodiscard]] virtual int getCheckObjectLevel() = 0;

    /// Replaces the principal details of this key. The list is not changed, though not const; kept so.
    virtual void updateUserDetail(int key, QVector<STPriDetailAsr> &details) = 0;
    /// Principal details of this key. An unknown key gives an empty list and is inserted.
    [[nodiscard]] virtual QVector<STPriDetailAsr> getUserDetail(int key) = 0;
    /// All principal details, in ascending order of their keys.
    [[nodiscard]] virtual QVector<STPriDetailAsr> getUserDetail() = 0;

    /// `level` of the first checked principal level; -1 when none is checked.
    [[nodiscard]] virtual int getCheckPriLevel() = 0;

    /// Whether any principal detail names this user; case counts.
    [[nodiscard]] virtual bool hasUserDetail(const QString &userName) = 0;

    /// Replaces the list of principal levels.
    virtual void updateUIPriData(const QVector<STAccessSetUIData> &levels) = 0;
    /// Overwrites the first principal level with this `level`, leaving the checks of others; none: nothing changes.
    virtual void updateUIPriData(const STAccessSetUIData &level) = 0;
    /// The list of principal levels.
    [[nodiscard]] virtual QVector<STAccessSetUIData> getUIPriData() = 0;

    /// Replaces the object details of this key in the table that the flag chooses.
    virtual void updateObjectDetail(int key, bool flag, const QVector<STObjectDetailAsr> &details) = 0;
    /// Object details of this key in the table that the flag chooses. An unknown key gives an empty list and is
    /// inserted.
    [[nodiscard]] virtual QVector<STObjectDetailAsr> getObjectDetail(int key, bool flag) = 0;
    /// All object details: the table for true, then the table for false, each in ascending order of keys.
    [[nodiscard]] virtual QVector<STObjectDetailAsr> getObjectDetail() = 0;

    /// Replaces the list of object levels.
    virtual void updateUIObjectData(const QVector<STAccessSetUIData> &levels) = 0;
    /// Overwrites the first object level with this `level`, leaving the checks of others; none: nothing changes.
    virtual void updateUIObjectData(const STAccessSetUIData &level) = 0;
    /// The list of object levels.
    [[nodiscard]] virtual QVector<STAccessSetUIData> getUIObjectData() = 0;

    /// Replaces the page's list of files.
    virtual void updateUIFiles(const QVector<STObjectAddUIData> &files) = 0;
    /// The page's list of files.
    [[nodiscard]] virtual QVector<STObjectAddUIData> getUIFiles() = 0;
    /// Overwrites the first file with this `fileName` and `filePath` (case counts); none: nothing changes. The
    /// argument is not changed, though not const; kept so.
    virtual void updateUIFile(STObjectAddUIData &file) = 0;

    /// Stores the number of objects of this key in the table that the flag chooses. Count first, key last.
    virtual void setObjectCount(int count, bool flag, int key) = 0;
    /// Number of objects of this key in the table that the flag chooses. An unknown key gives 0 and is inserted.
    [[nodiscard]] virtual int getObjectCount(bool flag, int key) = 0;

    /// Replaces the mode configuration.
    virtual void setModeConfig(const Tav::AccessControl::AccessModeConfig &config) = 0;
    /// Copy of the mode configuration, empty before the first set; clearCacheData() leaves it.
    [[nodiscard]] virtual Tav::AccessControl::AccessModeConfig getModeConfig() = 0;

    /// Replaces the state of the last access-control command.
    virtual void setState(const Tav::Base::CommandStateAsr &state) = 0;
    /// Copy of the state of the last access-control command, empty before the first set; clearCacheData() leaves it.
    [[nodiscard]] virtual Tav::Base::CommandStateAsr getState() = 0;

    /// Empties every list, detail and count of the pages. The host's users, the mode configuration and the command
    /// state stay.
    virtual void clearCacheData() = 0;

protected:
    /// Not virtual: nothing is deleted through this interface, and a destructor would take places in its table.
    ~ITavAccessControlMgr() = default;
};

Q_DECLARE_INTERFACE(ITavAccessControlMgr, "ITavAccessControlMgr")
