#pragma once

/// @brief What the check marks of a list of levels come to: a plain number, which is described here as others are in
/// the header of their record.
struct CheckedLevel {
    int level; ///< of the first level that is checked; -1: none
};
