#pragma once

#include <QString>

#pragma pack(push, 1)
/**
 * @brief One row of the page's list of principals (users).
 *
 * Packed to one byte, and kept so: page plugins are built against this layout. `userName` and `userText` therefore
 * stand misaligned: take copies of them, never bind a reference or pointer to a member.
 */
struct STPriAddUIData {
    bool checked = false; ///< the row is ticked
    QString userName; ///< user name; the key by which a row is found
    int userNumber = 0; ///< integer attribute of the row; its meaning is the page's
    QString userText; ///< second text of the row; its meaning is the page's
};
#pragma pack(pop)

static_assert(sizeof(void *) != 8 || sizeof(STPriAddUIData) == 21);
