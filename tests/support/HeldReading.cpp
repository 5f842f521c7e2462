#include "HeldReading.h"

#include "TavCommonUtils.h"

#include <dlfcn.h>

#include <chrono>
#include <condition_variable>
#include <mutex>

namespace
{
std::mutex mutex;
std::condition_variable changed;
bool isHeld = false;
int waiting = 0;

void passGate()
{
    std::unique_lock lock(mutex);
    ++waiting;
    changed.notify_all();
    changed.wait(lock, [] { return !isHeld; });
    --waiting;
}

/// The library's own function behind the one of this file.
template<class Result>
Result (*original(const char *symbol))(const QString &)
{
    return reinterpret_cast<Result (*)(const QString &)>(dlsym(RTLD_NEXT, symbol));
}
}

HeldReading::HeldReading()
{
    const std::lock_guard lock(mutex);
    isHeld = true;
}

HeldReading::~HeldReading()
{
    release();
}

bool HeldReading::awaitReader() const
{
    std::unique_lock lock(mutex);
    return changed.wait_for(lock, std::chrono::seconds(10), [] { return waiting > 0; });
}

void HeldReading::release()
{
    const std::lock_guard lock(mutex);
    isHeld = false;
    changed.notify_all();
}

QString TavCommonUtils::readAll(const QString &path)
{
    passGate();
    return original<QString>("_ZN14TavCommonUtils7readAllERK7QString")(path);
}

QJsonObject TavCommonUtils::readJsonFromFile(const QString &path)
{
    passGate();
    return original<QJsonObject>("_ZN14TavCommonUtils16readJsonFromFileERK7QString")(path);
}
