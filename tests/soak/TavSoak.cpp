// TavSoak SECONDS: the client's day in fast motion for so long, then a table of what was done and what was found. Exit
// code 0: nothing lost, nothing delivered twice, nothing seen half-copied, and memory flat; 1: not so; 2: wrong usage.

#include "LoopThread.h"
#include "MemoryWatch.h"
#include "SoakDay.h"
#include "SoakPage.h"
#include "TavNanolog.h"
#include "TwoSystemRoots.h"

#include <QCoreApplication>

#include <array>
#include <chrono>
#include <iomanip>
#include <iostream>

namespace
{
/// Growth of resident memory over the last quarter of a run that is taken for the allocator's own unrest, in KiB.
constexpr long tolerance = 256;

template<class Value>
void row(const char *name, const Value &value)
{
    std::cout << std::left << std::setw(28) << name << std::right << std::setw(12) << value << '\n';
}

int soak(std::chrono::seconds duration)
{
    const TwoSystemRoots roots;
    MemoryWatch memory;
    std::array<LoopThread, 3> loops;
    std::array<SoakPage, 4> pages = {SoakPage(loops[0].thread()), SoakPage(loops[1].thread()),
                                     SoakPage(loops[2].thread()), SoakPage(QThread::currentThread())};
    SoakDay day(roots, {loops[0].thread(), loops[1].thread(), loops[2].thread()});
    const auto start = std::chrono::steady_clock::now();
    const auto interval = std::chrono::duration_cast<std::chrono::milliseconds>(duration) / 200;
    auto next = start;
    while (std::chrono::steady_clock::now() < start + duration) {
        day.run();
        if (std::chrono::steady_clock::now() >= next) {
            memory.look();
            next += interval;
        }
    }

    const int pending = TavEventNotifyMgr::getInstance()->pendingCount();
    long long lost = 0;
    long long mistakes = 0;
    for (const SoakPage &page : pages) {
        lost += day.emissions - page.received();
        mistakes += page.mistakes();
    }
    const long growth = memory.end() - memory.warm();
    row("days", day.days);
    row("selections", day.emissions);
    row("deliveries expected", day.emissions * static_cast<long long>(pages.size()));
    row("  lost", lost);
    row("  lost, doubled, out of order", mistakes);
    row("pages opened and closed", day.visits);
    row("events left", pending);
    row("values seen wrong", day.failures.size());
    row("looks at memory", memory.looks());
    row("resident, warm (KiB)", memory.warm());
    row("resident, end (KiB)", memory.end());
    row("growth (KiB)", growth);
    row("  allowed (KiB)", tolerance);
    for (const std::string &failure : day.failures) {
        std::cout << failure << '\n';
    }
    const bool enough = memory.looks() >= 20 && day.emissions > 0;
    const bool sound = lost == 0 && mistakes == 0 && pending == 0 && day.failures.empty() && growth <= tolerance;
    std::cout << (!enough ? "FAILED: too short to tell" : sound ? "OK" : "FAILED") << '\n';
    return enough && sound ? 0 : 1;
}
}

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    bool isNumber = false;
    const int seconds = argc == 2 ? QString(argv[1]).toInt(&isNumber) : 0;
    if (!isNumber || seconds < 1) {
        std::cerr << "usage: TavSoak SECONDS\n";
        return 2;
    }
    TavNanolog::setLevel(0); // the broken catalogues are meant
    return soak(std::chrono::seconds(seconds));
}
