#include "AccessReader.h"

#include "DirectoryReader.h"
#include "HostFile.h"
#include "SecurityModuleReader.h"
#include "TextBuffer.h"

#include <algorithm>

namespace
{
QVector<STAccessSetUIData> rowsOf(const QVector<QString> &names)
{
    QVector<STAccessSetUIData> rows;
    for (int level = 0; level < names.size(); ++level) {
        STAccessSetUIData row;
        row.level = level;
        row.labels = QVector<QString>{names.at(level)};
        rows.append(row);
    }
    return rows;
}

qint32 typeOf(quint32 mode)
{
    return S_ISREG(mode) ? 1 : S_ISDIR(mode) ? 2 : S_ISCHR(mode) || S_ISBLK(mode) ? 3 : 4;
}
}

int AccessReader::principalLevel(const UserReader::User &user)
{
    static const QVector<QByteArray> administrators{"sudo", "wheel", "admin", "root"};
    if (user.uid == 0) {
        return 3;
    }
    const bool administrates = std::any_of(user.groups.cbegin(), user.groups.cend(),
                                           [](const QByteArray &group) { return administrators.contains(group); });
    return administrates ? 2 : UserReader::canLogin(user) ? 1 : 0;
}

int AccessReader::objectLevel(quint32 mode)
{
    return (mode & S_IWOTH) != 0 ? 0 : (mode & S_IROTH) != 0 ? 1 : (mode & S_IRGRP) != 0 ? 2 : 3;
}

QVector<STPriDetailAsr> AccessReader::principals(const QVector<UserReader::User> &users, qint64 updateTime)
{
    QVector<STPriDetailAsr> records(users.size());
    for (int i = 0; i < users.size(); ++i) {
        STPriDetailAsr &record = records[i];
        TextBuffer::copy(record.userName, users.at(i).name);
        record.uid = users.at(i).uid;
        record.level = principalLevel(users.at(i));
        record.updateTime = updateTime;
    }
    return records;
}

QVector<STObjectDetailAsr> AccessReader::readObjects(const QString &root, const QHash<quint32, QByteArray> &userNames,
                                                     ReadingNotes &notes)
{
    const QVector<QByteArray> devices{"/dev/kmsg", "/dev/mem", "/dev/null"};
    QVector<STObjectDetailAsr> records;
    const QVector<QByteArray> paths = DirectoryReader::keyFiles() + DirectoryReader::keyDirectories() + devices;
    for (const QByteArray &path : paths) {
        int error = 0;
        const auto status = HostFile::status(root, path, &error);
        if (!status) {
            HostFile::note(notes, path, HostFile::errorText(error));
            continue;
        }
        STObjectDetailAsr record{};
        record.size = static_cast<quint64>(status->st_size);
        record.updateTime = status->st_mtim.tv_sec;
        record.level = objectLevel(status->st_mode);
        record.permission = static_cast<qint32>(status->st_mode >> 6U & 7U);
        record.type = typeOf(status->st_mode);
        record.uid = status->st_uid;
        TextBuffer::copy(record.userName, userNames.value(status->st_uid));
        TextBuffer::copy(record.fileName, path.mid(path.lastIndexOf('/') + 1));
        TextBuffer::copy(record.filePath, path);
        records.append(record);
    }
    return records;
}

QVector<STAccessSetUIData> AccessReader::principalLevels()
{
    return rowsOf({QStringLiteral("services"), QStringLiteral("users who may log in"), QStringLiteral("administrators"),
                   QStringLiteral("superuser")});
}

QVector<STAccessSetUIData> AccessReader::objectLevels()
{
    return rowsOf({QStringLiteral("everybody may write"), QStringLiteral("everybody may read"),
                   QStringLiteral("the group may read"), QStringLiteral("for the owner alone")});
}

Tav::AccessControl::AccessModeConfig AccessReader::readMode(const QString &root, ReadingNotes &notes)
{
    const SecurityModuleReader::SecurityModules modules = SecurityModuleReader::read(root, notes);
    Tav::AccessControl::AccessModeConfig config;
    config.set_mode(std::max(modules.selinux, modules.apparmor));
    config.set_min_level(0);
    config.set_max_level(maxLevel);
    for (const QByteArray &name : modules.active) {
        config.add_security_modules(TextBuffer::message(name));
    }
    return config;
}
