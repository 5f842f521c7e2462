// Only the highest level of fortification knows the size of this buffer: for hardening.sh.
#include <cstdlib>
#include <cstring>

char *copyOf(const char *text, std::size_t size)
{
    auto *const buffer = static_cast<char *>(std::malloc(size));
    return std::strcpy(buffer, text);
}
