#pragma once

#include <QString>

#pragma pack(push, 1)
/**
 * @brief One row of the protection list, found by `itemKey` alone.
 *
 * Packed to one byte, and kept so: page plugins are built against this layout. The three texts therefore stand
 * misaligned: take copies of them, never bind a reference or pointer to a member.
 */
struct STSystemProUIData {
    bool isChecked = false; ///< check mark of the row
    QString title; ///< text shown for the row; takes no part in finding it
    QString itemKey; ///< identity of the row
    QString detail; ///< further text shown; its meaning is the page's
    bool status = false; ///< second flag of the row; its meaning is the page's
};
#pragma pack(pop)

static_assert(sizeof(void *) != 8 || sizeof(STSystemProUIData) == 26);
