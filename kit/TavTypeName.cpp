#include "TavTypeName.h"

#include <cxxabi.h>

#include <cstdlib>
#include <memory>

QString tavTypeName(const std::type_info &type)
{
    const std::unique_ptr<char, decltype(&std::free)> name(abi::__cxa_demangle(type.name(), nullptr, nullptr, nullptr),
                                                           &std::free);
    return QString::fromUtf8(name.get());
}
