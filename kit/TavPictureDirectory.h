#pragma once

#include "ITavPicResourceMgr.h"

/**
 * @brief The pictures of one directory.
 *
 * The interface takes the names of directory and picture side by side, which no compiler tells apart; here each is
 * named in a call of its own. The manager outlives it. GUI thread, as the manager.
 */
class TavPictureDirectory
{
public:
    /// Those of the directory @p name, which is given without its path; case plays no part.
    TavPictureDirectory(ITavPicResourceMgr &manager, const QString &name) : m_manager(manager), m_name(name)
    {
    }

    /// The picture @p name, as ITavPicResourceMgr::getImageRef() returns it: an empty pointer when there is none.
    [[nodiscard]] std::shared_ptr<QImage> picture(const QString &name) const
    {
        return m_manager.getImageRef(m_name, name);
    }

private:
    ITavPicResourceMgr &m_manager;
    const QString m_name;
};
