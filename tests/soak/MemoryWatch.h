#pragma once

#include <vector>

/**
 * @brief Whether the process keeps growing: its resident memory, in KiB, with what is free given back to the system
 * before each look.
 *
 * The first half of the looks is the warm-up. Growth is the median of the last quarter above that of the third.
 */
class MemoryWatch
{
public:
    void look();

    long warm() const; ///< median of the third quarter of the looks
    long end() const; ///< median of the last quarter of the looks
    int looks() const;

private:
    long median(int quarter) const;

    std::vector<long> m_resident;
};
