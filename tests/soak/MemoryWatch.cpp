#include "MemoryWatch.h"

#include <malloc.h>

#include <algorithm>
#include <fstream>
#include <string>

void MemoryWatch::look()
{
    malloc_trim(0);
    std::ifstream status("/proc/self/status");
    std::string key;
    while (status >> key && key != "VmRSS:") { }
    long resident = 0;
    status >> resident;
    m_resident.push_back(resident);
}

long MemoryWatch::warm() const
{
    return median(2);
}

long MemoryWatch::end() const
{
    return median(3);
}

int MemoryWatch::looks() const
{
    return static_cast<int>(m_resident.size());
}

long MemoryWatch::median(int quarter) const
{
    const auto size = m_resident.size();
    std::vector<long> part(m_resident.begin() + quarter * size / 4, m_resident.begin() + (quarter + 1) * size / 4);
    if (part.empty()) {
        return 0;
    }
    const auto middle = part.begin() + part.size() / 2;
    std::nth_element(part.begin(), middle, part.end());
    return *middle;
}
