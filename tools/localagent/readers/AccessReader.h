#pragma once

#include "AccessControl.pb.h"
#include "ReadingNote.h"
#include "STAccessSetUIData.h"
#include "STObjectDetailAsr.h"
#include "STPriDetailAsr.h"
#include "TavAccessLevel.h"
#include "UserReader.h"

#include <QString>
#include <QVector>

/// @brief Sorts the host's users and key files into the access levels of TavAccessLevel, by what the system itself
/// lets them do.
namespace AccessReader
{
constexpr int maxLevel = int(TavAccessLevel::Highest); ///< the lowest is 0

int principalLevel(const UserReader::User &user);

/// Level of an object with these permission bits.
int objectLevel(quint32 mode);

/// The users as principals, none of whose records is in force. @p updateTime: seconds since the epoch.
QVector<STPriDetailAsr> principals(const QVector<UserReader::User> &users, qint64 updateTime);

/// The key files, the key directories and some devices as objects, none of whose records is in force; `permission` is
/// the owner's. What is missing is left out, and noted.
QVector<STObjectDetailAsr> readObjects(const QString &root, const QHash<quint32, QByteArray> &userNames,
                                       ReadingNotes &notes);

/// One row per level with its name; none is checked.
QVector<STAccessSetUIData> principalLevels();
QVector<STAccessSetUIData> objectLevels();

/// The access mode: that of the security module that restricts most.
Tav::AccessControl::AccessModeConfig readMode(const QString &root, ReadingNotes &notes);
}
