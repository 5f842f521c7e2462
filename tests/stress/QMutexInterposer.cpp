// Tells ThreadSanitizer what a QMutex orders. Qt is not built for it, so that it would report whatever a QMutex guards.
// Linked into an executable, these functions take the place of Qt's for the executable and for all libraries that call
// QMutex from outside of Qt.

#include <QMutex>

#include <dlfcn.h>
#include <sanitizer/tsan_interface.h>

namespace
{
/// Qt's own function behind the one of this file.
template<class Function>
Function original(const char *name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

// A recursive QMutex is told by what it does: a second lock by the same thread.
constexpr unsigned flags = __tsan_mutex_write_reentrant;
}

void QMutex::lock() noexcept
{
    static const auto lock = original<void (*)(QMutex *)>("_ZN6QMutex4lockEv");
    __tsan_mutex_pre_lock(this, flags);
    lock(this);
    __tsan_mutex_post_lock(this, flags, 1);
}

bool QMutex::tryLock(int timeout) noexcept
{
    static const auto tryLock = original<bool (*)(QMutex *, int)>("_ZN6QMutex7tryLockEi");
    __tsan_mutex_pre_lock(this, flags | __tsan_mutex_try_lock);
    const bool locked = tryLock(this, timeout);
    __tsan_mutex_post_lock(this, flags | __tsan_mutex_try_lock | (locked ? 0 : __tsan_mutex_try_lock_failed), 1);
    return locked;
}

void QMutex::unlock() noexcept
{
    static const auto unlock = original<void (*)(QMutex *)>("_ZN6QMutex6unlockEv");
    __tsan_mutex_pre_unlock(this, flags);
    unlock(this);
    __tsan_mutex_post_unlock(this, flags);
}
