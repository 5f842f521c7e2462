#pragma once

#include <unistd.h>

/// Ends the process when its scope is not left in time, so that a deadlock is a failure of the test that names itself.
class Deadline
{
public:
    Deadline() : m_outer(alarm(60))
    {
    }

    ~Deadline()
    {
        alarm(m_outer);
    }

    Deadline(const Deadline &) = delete;
    Deadline &operator=(const Deadline &) = delete;

private:
    unsigned m_outer; ///< seconds left to an outer scope, 0 when there is none
};
