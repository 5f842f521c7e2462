#pragma once

#include <QString>
#include <QVector>

#pragma pack(push, 1)
/**
 * @brief One access level on the list of principal levels or of object levels.
 *
 * Packed to one byte, and kept so: page plugins are built against this layout. `labels` therefore stands misaligned:
 * take a copy of it, never bind a reference or pointer to a member.
 */
struct STAccessSetUIData {
    int level = 0; ///< the level's value; the key by which an entry is found and what the checked-level queries return
    QVector<QString> labels; ///< texts that the page shows for the level
    bool extraFlag = false; ///< second flag of the entry; its meaning is the page's
    bool checked = false; ///< the entry is the selected one; nothing keeps a list to one checked entry
};
#pragma pack(pop)

static_assert(sizeof(void *) != 8 || sizeof(STAccessSetUIData) == 14);
