#include "ProgressLine.h"

#include <iostream>
#include <unistd.h>

namespace
{
const char *const clearLine = "\r\033[K";
}

ProgressLine::~ProgressLine()
{
    if (m_isShown) {
        std::cerr << clearLine << std::flush;
    }
}

void ProgressLine::show(const QString &text)
{
    if (isatty(STDERR_FILENO) == 1) {
        m_isShown = true;
        std::cerr << clearLine << text.toStdString() << std::flush;
    }
}
