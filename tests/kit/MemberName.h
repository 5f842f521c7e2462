#pragma once

#include <string_view>

/// The name of a member as the compiler knows it, without its class.
template<auto Member>
constexpr std::string_view memberName()
{
    // Both compilers write "Member = &Class::name", behind which "]" or ";" comes.
    std::string_view name = __PRETTY_FUNCTION__;
    name.remove_prefix(name.find("Member = "));
    name = name.substr(0, name.find_first_of(";]"));
    return name.substr(name.rfind("::") + 2);
}
