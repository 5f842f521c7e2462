#pragma once

#include "Slots.h"

#include <string>

/// @brief One field of a shared record.
struct FieldLayout {
    QString name;
    std::size_t offset; ///< bytes from the record's start
    std::size_t size; ///< bytes
    std::size_t alignment; ///< bytes, of the field's type by itself
};

/// @brief A shared record as the compiler laid it out.
struct RecordLayout {
    QString name;
    std::size_t size; ///< bytes
    std::size_t alignment; ///< bytes
    std::vector<FieldLayout> fields;
};

/// The text that the golden list would hold for what the compiler did; the slots in the order of their places.
std::string described(const std::vector<SlotTable> &tables);
std::string described(const std::vector<RecordLayout> &records);

/// The golden list with this file name, without its comments.
std::string golden(const char *fileName);
