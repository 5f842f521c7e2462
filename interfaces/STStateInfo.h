#pragma once

#include <QString>

/** @brief One line of the hardening state list. */
struct STStateInfo {
    QString itemText; ///< names the line
    QString stateText; ///< the state shown for it
};
