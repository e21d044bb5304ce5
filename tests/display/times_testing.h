#ifndef ZELDT_TESTS_DISPLAY_TIMES_TESTING_H
#define ZELDT_TESTS_DISPLAY_TIMES_TESTING_H

/// Time formats as plain numbers.

#include "tests/datetime/time_testing.h"
#include "tests/display/display_testing.h"

#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace zeltest {

/// The arguments of a time format. Signs: 0 none, 1 in front, 2 behind.
struct TimeOptions {
    int kind = 3;
    int shape = 0;
    int sign = 1;
    int which = 0;
    unsigned long places = 0;
    int fill = 0;
    char fillChar = '0';

    ZelFormat Format() const
    {
        return ZelFormat(static_cast<ZelFormat::FormatZeitArt>(kind),
                         static_cast<ZelFormat::FormatZeitDarstellung>(shape),
                         static_cast<ZelFormat::FormatVorzeichen>(sign),
                         static_cast<ZelFormat::FormatVorzeichenWelches>(which), places, fill,
                         fillChar);
    }

    friend std::ostream& operator<<(std::ostream& os, const TimeOptions& o)
    {
        return os << "kind " << o.kind << ", shape " << o.shape << ", sign " << o.sign << ' '
                  << o.which << ", places " << o.places << ", fill " << o.fill << " '" << o.fillChar
                  << '\'';
    }
};

/// Every combination; the hours without limit, with one, and filled in several ways.
inline const std::vector<TimeOptions>& AllTimeOptions()
{
    static const std::vector<TimeOptions> all = [] {
        const struct {
            unsigned long places;
            int fill;
            char fillChar;
        } rows[] = {{0, 0, '0'}, {3, 0, '0'}, {4, 1, '0'}, {4, 1, ' '}, {1, 1, '*'}, {0, 1, '0'}};
        std::vector<TimeOptions> options;
        for (const auto& row : rows)
            for (int kind = 0; kind < 4; ++kind)
                for (int shape = 0; shape < 2; ++shape)
                    for (int sign = 0; sign < 3; ++sign)
                        for (int which = 0; which < 2; ++which)
                            options.push_back(
                                {kind, shape, sign, which, row.places, row.fill, row.fillChar});
        return options;
    }();
    return all;
}

/// A defined value in mode Missing, not modified.
inline Amount Defined(std::int32_t units, TimeMode mode)
{
    return {{ZelDtWmMissing, 1, 0}, units, mode};
}

/// `before` after it took over a typed amount and its mode, which marks nothing.
inline Amount Typed(const Amount& before, std::int32_t units, TimeMode mode)
{
    Amount after = Taken(before, units);
    after.mode = mode;
    return after;
}

inline Error ShowTimeError()
{
    return TimeError(1, "ConvToOFL(ZelFormat*)");
}

inline Error ReadTimeError()
{
    return TimeError(1, "SetFromOFL(LPCTSTR,ZelFormat*)");
}

} // namespace zeltest

#endif
