#pragma once

#include <QString>

#include <ostream>

/// Lets failures show texts as texts; without it they are lists of code units.
inline void PrintTo(const QString &text, std::ostream *out)
{
    *out << '"' << text.toStdString() << '"';
}
