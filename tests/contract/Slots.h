#pragma once

#include "TavTypeName.h"

#include <cstdint>
#include <cstring>
#include <vector>

/// @brief One virtual operation: the place that the compiler gave it, and its declaration.
struct Slot {
    int index;
    QString declaration;
};

/// @brief The virtual operations of a class, and how many places its table really has.
struct SlotTable {
    QString name;
    int size;
    std::vector<Slot> operations;
};

/// The place of a virtual operation in its class's table, as the C++ ABI encodes it in a pointer to member: on x86-64
/// one more than the offset in bytes, on AArch64 the offset itself, with the mark in the second word.
template<class Operation>
int slotIndex(Operation operation)
{
    std::intptr_t words[2];
    static_assert(sizeof(operation) == sizeof(words));
    std::memcpy(words, &operation, sizeof(words));
#if defined(__aarch64__)
    const bool isVirtual = words[1] & 1;
    const std::intptr_t offset = words[0];
#else
    const bool isVirtual = words[0] & 1;
    const std::intptr_t offset = words[0] - 1;
#endif
    return isVirtual ? static_cast<int>(offset / static_cast<std::intptr_t>(sizeof(void *))) : -1;
}

/// The declaration of an operation with this name and function type, as the compiler writes the type.
template<class Function>
QString declaration(const char *name)
{
    const QString text = tavTypeName(typeid(Function));
    const int arguments = text.indexOf(" (");
    return text.left(arguments) + ' ' + name + text.mid(arguments + 1);
}

template<class Class, class Result, class... Arguments>
Slot slot(const char *name, Result (Class::*operation)(Arguments...))
{
    return {slotIndex(operation), declaration<Result(Arguments...)>(name)};
}

/// The number of places in the table of @p Class: the next virtual operation of a derived class gets that place.
template<class Class>
int slotCount()
{
    struct Derived : Class {
        virtual void next()
        {
        }
    };
    return slotIndex(&Derived::next);
}
