#pragma once

#include "ITavAccessControlMgr.h"
#include "TavAccessLevel.h"

/**
 * @brief The principals of one access level in the keyed table of the access control.
 *
 * The interface reads the principals of one key and those of all keys by operations of one name, and takes a list to be
 * set as if it changed it. The manager outlives it. Any thread.
 */
class TavAccessPrincipals
{
public:
    /// Those of @p level.
    TavAccessPrincipals(ITavAccessControlMgr &manager, TavAccessLevel level)
        : m_manager(manager), m_key(static_cast<int>(level))
    {
    }

    /// Replaces the details.
    void setDetails(QVector<STPriDetailAsr> details) const
    {
        m_manager.updateUserDetail(m_key, details);
    }

    /// The details; empty where none were set. Inserts the level then, as the interface does.
    [[nodiscard]] QVector<STPriDetailAsr> details() const
    {
        return m_manager.getUserDetail(m_key);
    }

private:
    ITavAccessControlMgr &m_manager;
    const int m_key;
};
