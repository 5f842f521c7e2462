#pragma once

#include "ITavAccessControlMgr.h"
#include "ModelValues.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <string>
#include <tuple>
#include <vector>

/// @brief What the access-control manager must do, told a second time with standard containers and no lock.
struct AccessControlModel {
    using Text = std::u16string;
    using Records = std::vector<std::string>;

    struct User {
        bool checked;
        Text name;
        int number;
        Text text;

        bool operator==(const User &other) const
        {
            return std::tie(checked, name, number, text)
                == std::tie(other.checked, other.name, other.number, other.text);
        }
    };

    struct Level {
        int level;
        std::vector<Text> labels;
        bool extraFlag;
        bool checked;

        bool operator==(const Level &other) const
        {
            return std::tie(level, labels, extraFlag, checked)
                == std::tie(other.level, other.labels, other.extraFlag, other.checked);
        }
    };

    struct File {
        bool checked;
        Text name;
        Text path;

        bool operator==(const File &other) const
        {
            return std::tie(checked, name, path) == std::tie(other.checked, other.name, other.path);
        }
    };

    Records systemUsers;
    std::vector<User> users;
    std::vector<Level> principalLevels;
    std::vector<Level> objectLevels;
    std::vector<File> files;
    std::map<int, Records> userDetails;
    std::map<int, Records> objectDetails[2]; ///< by flag
    std::map<int, int> objectCounts[2]; ///< by flag
    std::string modeConfig;
    std::string state;

    void updateUser(const User &given)
    {
        for (User &user : users) {
            if (user.name == given.name) {
                user = given;
                return;
            }
        }
    }

    static void updateLevel(std::vector<Level> &levels, const Level &given)
    {
        for (Level &level : levels) {
            if (level.level == given.level) {
                level = given;
                return;
            }
        }
    }

    void updateFile(const File &given)
    {
        for (File &file : files) {
            if (file.name == given.name && file.path == given.path) {
                file = given;
                return;
            }
        }
    }

    static int checkedLevel(const std::vector<Level> &levels)
    {
        for (const Level &level : levels) {
            if (level.checked) {
                return level.level;
            }
        }
        return -1;
    }

    Records allUserDetails() const
    {
        Records all;
        append(all, userDetails);
        return all;
    }

    Records allObjectDetails() const
    {
        Records all;
        append(all, objectDetails[true]);
        append(all, objectDetails[false]);
        return all;
    }

    /// For names that are well-formed UTF-8. A detail's name ends at the first NUL, or with its buffer.
    bool hasUserDetail(const std::string &name) const
    {
        const Records all = allUserDetails();
        return std::any_of(all.begin(), all.end(), [&name](const std::string &detail) {
            const std::string buffer = detail.substr(0, sizeof(STPriDetailAsr::userName));
            return buffer.substr(0, buffer.find('\0')) == name;
        });
    }

    void clearCache()
    {
        AccessControlModel cleared;
        cleared.systemUsers = systemUsers;
        cleared.modeConfig = modeConfig;
        cleared.state = state;
        *this = cleared;
    }

private:
    static void append(Records &all, const std::map<int, Records> &tables)
    {
        for (const auto &[key, list] : tables) {
            all.insert(all.end(), list.begin(), list.end());
        }
    }
};

/// The value of a key; an empty one for a key that is not there.
template<class Value>
Value valueOr(const std::map<int, Value> &table, int key)
{
    const auto found = table.find(key);
    return found == table.end() ? Value() : found->second;
}

// The texts of packed rows are copied first: they stand misaligned.
inline AccessControlModel::User value(const STPriAddUIData &row)
{
    const STPriAddUIData copy = row;
    const QString name = copy.userName;
    const QString text = copy.userText;
    return {copy.checked, value(name), copy.userNumber, value(text)};
}

inline AccessControlModel::Level value(const STAccessSetUIData &row)
{
    const QVector<QString> labels = row.labels;
    std::vector<std::u16string> texts;
    for (const QString &label : labels) {
        texts.push_back(value(label));
    }
    return {row.level, texts, row.extraFlag, row.checked};
}

inline AccessControlModel::File value(const STObjectAddUIData &row)
{
    const QString name = row.fileName;
    const QString path = row.filePath;
    return {row.checked, value(name), value(path)};
}
