#pragma once

#include <QJsonArray>
#include <QMutex>
#include <QString>
#include <QVector>

#include <map>
#include <set>

/**
 * @brief The keys under which calls have set something in the managers' keyed tables.
 *
 * Managers do not tell their keys, and one that is asked for a key that it does not have keeps it from then on. Any
 * thread may call any operation.
 */
class KnownKeys
{
public:
    /// Is told a call that was made. @p arguments is an array by position or an object by name.
    void note(const QString &manager, const QString &operation, const QJsonValue &arguments);

    /// The keys that @p getter of @p manager can be asked for, each as its arguments by position, in ascending order.
    QVector<QJsonArray> of(const QString &manager, const QString &getter) const;

private:
    /// Numbers and flags by their values.
    struct Less {
        bool operator()(const QJsonArray &left, const QJsonArray &right) const;
    };

    mutable QMutex m_mutex; ///< for what follows
    std::map<QString, std::map<QString, std::set<QJsonArray, Less>>> m_keys; ///< by manager and getter
};
