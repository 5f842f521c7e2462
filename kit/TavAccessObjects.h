#pragma once

#include "ITavAccessControlMgr.h"

/**
 * @brief The objects of one key in one of the two keyed tables of the access control.
 *
 * The operations of the interface take count, flag and key in three orders, which no compiler tells apart; here the
 * two that choose are named once. The manager outlives it. Any thread.
 *
 * The manager does not know what flags and keys mean: those who fill the tables and those who show them agree. What the
 * development client's agent fills is
 *
 * | table | flag | key |
 * |---|---|---|
 * | objects: details and counts | true: files; false: directories, devices and others | access level, 0 to 3 |
 * | principals: details | - | access level, 0 to 3 |
 *
 * | level | principals | objects |
 * |---|---|---|
 * | 3 | the superuser | for the owner alone |
 * | 2 | in a group of administrators | the group may read |
 * | 1 | may log in | everybody may read |
 * | 0 | all others | everybody may write |
 *
 * The rows of the lists of levels have the same numbers in STAccessSetUIData::level.
 */
class TavAccessObjects
{
public:
    /// The table that the interface's flag chooses.
    enum class Table : bool { Others = false, Files = true };
    /// An access level.
    enum class Key : int { Lowest = 0, Highest = 3 };

    /// Those of @p key in @p table of @p manager.
    TavAccessObjects(ITavAccessControlMgr &manager, Table table, Key key)
        : m_manager(manager), m_flag(table == Table::Files), m_key(static_cast<int>(key))
    {
    }

    /// Replaces the details.
    void setDetails(const QVector<STObjectDetailAsr> &details) const
    {
        m_manager.updateObjectDetail(m_key, m_flag, details);
    }

    /// The details; empty where none were set.
    [[nodiscard]] QVector<STObjectDetailAsr> details() const
    {
        return m_manager.getObjectDetail(m_key, m_flag);
    }

    /// Stores the number of objects.
    void setCount(int count) const
    {
        m_manager.setObjectCount(count, m_flag, m_key);
    }

    /// The number of objects; 0 where none was set.
    [[nodiscard]] int count() const
    {
        return m_manager.getObjectCount(m_flag, m_key);
    }

private:
    ITavAccessControlMgr &m_manager;
    const bool m_flag;
    const int m_key;
};
