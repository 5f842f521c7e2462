#pragma once

#include "ITavAccessControlMgr.h"
#include "TavAccessLevel.h"

/**
 * @brief The objects of one access level in one of the two keyed tables of the access control.
 *
 * The operations of the interface take count, flag and key in three orders, which no compiler tells apart; here the
 * two that choose are named once. As with the levels, it is the development client's agent that takes the flag for
 * files. The manager outlives it. Any thread.
 */
class TavAccessObjects
{
public:
    /// The table that the interface's flag chooses: files, or directories, devices and others.
    enum class Table : bool { Others = false, Files = true };

    /// Those of @p level in @p table of @p manager.
    TavAccessObjects(ITavAccessControlMgr &manager, Table table, TavAccessLevel level)
        : m_manager(manager), m_flag(table == Table::Files), m_key(static_cast<int>(level))
    {
    }

    /// Replaces the details.
    void setDetails(const QVector<STObjectDetailAsr> &details) const
    {
        m_manager.updateObjectDetail(m_key, m_flag, details);
    }

    /// The details; empty where none were set. Inserts the level then, as the interface does.
    [[nodiscard]] QVector<STObjectDetailAsr> details() const
    {
        return m_manager.getObjectDetail(m_key, m_flag);
    }

    /// Stores the number of objects.
    void setCount(int count) const
    {
        m_manager.setObjectCount(count, m_flag, m_key);
    }

    /// The number of objects; 0 where none was set. Inserts the level then, as the interface does.
    [[nodiscard]] int count() const
    {
        return m_manager.getObjectCount(m_flag, m_key);
    }

private:
    ITavAccessControlMgr &m_manager;
    const bool m_flag;
    const int m_key;
};
