#ifndef ZELDT_DATETIME_DTCLOCK_H
#define ZELDT_DATETIME_DTCLOCK_H

#include "../foundation/export.h"

#include <ctime>

/// Tells the present moment.
using ZelDtClock = std::time_t (*)();

/// Replaces the clock that "now" and the century of two-digit years are read from; null brings the
/// system's back. Returns the clock in force before, null for the system's. One setting for the
/// process, for tests and for replaying; it may be changed at any time. Display formats read the
/// system's clock always.
ZELDT_API ZelDtClock ZelDtSetClock(ZelDtClock clock);

#endif
