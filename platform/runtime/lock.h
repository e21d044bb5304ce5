#ifndef ZELDT_PLATFORM_RUNTIME_LOCK_H
#define ZELDT_PLATFORM_RUNTIME_LOCK_H

#include <atomic>
#include <thread>

namespace zelrt {

/// A lock that needs neither construction nor destruction: it serves static objects whatever the
/// order, and leaves nothing behind when its library is unloaded. For a few instructions at a time:
/// whoever waits gives its turn away. Use it with std::lock_guard.
/// Private to this project; not installed.
class Lock {
public:
    void lock() noexcept
    {
        while (m_taken.test_and_set(std::memory_order_acquire))
            std::this_thread::yield();
    }
    void unlock() noexcept { m_taken.clear(std::memory_order_release); }

private:
    std::atomic_flag m_taken;
};

} // namespace zelrt

#endif
