#include "datetime/DTCLOCK.h"

#include "datetime/IMP/DTCLOCKI.h"

#include <atomic>

namespace {

/// Null for the system's.
std::atomic<ZelDtClock> currentClock{nullptr};

} // namespace

ZelDtClock ZelDtSetClock(ZelDtClock clock)
{
    return currentClock.exchange(clock);
}

std::time_t zeldt::Now()
{
    const ZelDtClock clock = currentClock.load();
    return clock != nullptr ? clock() : std::time(nullptr);
}
