#include "InterruptSignal.h"

#include <csignal>
#include <initializer_list>

namespace
{
volatile std::sig_atomic_t raised = 0;

void handle(int action, unsigned flags, void (*handler)(int))
{
    struct sigaction handling = {};
    handling.sa_handler = handler;
    handling.sa_flags = static_cast<int>(flags);
    sigaction(action, &handling, nullptr);
}
}

InterruptSignal::InterruptSignal()
{
    raised = 0;
    for (const int signal : {SIGINT, SIGTERM}) {
        handle(signal, SA_RESETHAND | SA_RESTART, [](int) { raised = 1; });
    }
}

InterruptSignal::~InterruptSignal()
{
    for (const int signal : {SIGINT, SIGTERM}) {
        handle(signal, 0, SIG_DFL);
    }
}

bool InterruptSignal::isRaised()
{
    return raised != 0;
}
