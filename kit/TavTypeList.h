#pragma once

#include <tuple>

/// Stands for a type where a function takes values: `decltype(tag)::%type` is the type.
template<class Type>
struct TavTypeTag {
    using type = Type; ///< the type
};

/// @brief Types one after the other.
template<class... Types>
struct TavTypeList {
    /// Calls @p visit with a TavTypeTag of each type, in their order.
    template<class Visitor>
    static constexpr void forEach(Visitor &&visit)
    {
        (visit(TavTypeTag<Types>()), ...);
    }
};
