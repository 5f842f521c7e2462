#pragma once

#include <QString>

#include <typeinfo>

/// The name of a type as one writes it in C++, such as "QVector<STStateInfo>".
[[nodiscard]] QString tavTypeName(const std::type_info &type);
