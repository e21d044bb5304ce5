#ifndef ZELDT_PLATFORM_RUNTIME_LOCALTIME_H
#define ZELDT_PLATFORM_RUNTIME_LOCALTIME_H

/// Local calendar time without the buffer that the C library's localtime() shares among threads.
/// Private to this project; not installed.

#include <ctime>

namespace zelrt {

/// Splits `moment` into the fields of the local calendar, in the time zone that is set now. False,
/// with `fields` unspecified, when the system cannot express the moment.
inline bool LocalTime(std::time_t moment, std::tm& fields) noexcept
{
#ifdef _WIN32
    return localtime_s(&fields, &moment) == 0;
#else
    tzset(); // localtime() does that itself, localtime_r() need not
    return localtime_r(&moment, &fields) != nullptr;
#endif
}

} // namespace zelrt

#endif
