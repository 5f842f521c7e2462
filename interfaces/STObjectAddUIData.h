#pragma once

#include <QString>

#pragma pack(push, 1)
/**
 * @brief One row of the page's list of objects (files), found by the pair (`fileName`, `filePath`).
 *
 * Packed to one byte, and kept so: page plugins are built against this layout. Both texts therefore stand misaligned:
 * take copies of them, never bind a reference or pointer to a member.
 */
struct STObjectAddUIData {
    bool checked = false; ///< the row is ticked
    QString fileName; ///< first half of the row's key
    QString filePath; ///< second half of the row's key
};
#pragma pack(pop)

static_assert(sizeof(void *) != 8 || sizeof(STObjectAddUIData) == 17);
