#pragma once

#include <cstdio>
#include <cstdlib>

/// Ends the process, which is a finding, when something that must hold does not; @p what says it in words.
inline void require(bool holds, const char *what)
{
    if (!holds) {
        std::fprintf(stderr, "violated: %s\n", what);
        std::abort();
    }
}
