#ifndef ZELDT_TESTS_DISPLAY_DATES_READING_H
#define ZELDT_TESTS_DISPLAY_DATES_READING_H

/// Typed texts for date-times and dates: what a value makes of an accepted one, and that a refused
/// one leaves it as it is.

#include "tests/display/dates_testing.h"

#include <string>
#include <vector>

namespace zeltest {

/// Stands in expected fields for what the value held before.
inline constexpr std::int64_t kStays = -1;
/// Below it stand the years of the present century, told by two digits.
inline constexpr std::int64_t kPresent = -100;

constexpr std::int64_t TwoDigits(int digits)
{
    return digits - 1000;
}

/// The fields that a text brings to a value.
inline Fields Expected(const Fields& read, const Fields& before)
{
    Fields f = read;
    for (const auto part : {&Fields::year, &Fields::month, &Fields::day, &Fields::hour,
                            &Fields::minute, &Fields::second})
        if (f.*part == kStays)
            f.*part = before.*part;
    if (f.year < kPresent)
        f.year += 1000 + Century();
    return f;
}

template <typename Value>
void ExpectRead(const ZelFormat& format, const std::string& text, const Fields& read)
{
    for (const Moment& moment :
         Moments({kNew, kSome, {1999, 12, 31, 23, 58, 57}, Expected(read, kSome)})) {
        Given<Value> given(moment);
        const Caught caught = Catch([&] { given.it.SetFromOFL(text.c_str(), &format); });
        ASSERT_EQ(caught.disturbance, "nothing") << "'" << text << "': " << caught.first;
        ASSERT_EQ(Look(given.it), Typed<Value>(moment, Expected(read, moment.fields)))
            << moment << " reads '" << text << "'";
        ASSERT_EQ(ExtrasOf(RecordOf(given.it)), NoExtras());
    }
}

/// `befores`: the values that try to read the text; in every state if not given.
template <typename Value>
void ExpectRefused(const ZelFormat& format, const std::string& text, unsigned long cause,
                   const std::vector<Moment>& befores = Moments({kNew, kSome}))
{
    for (const Moment& moment : befores) {
        Given<Value> given(moment);
        ASSERT_TRUE(FailsByFormat([&] { given.it.SetFromOFL(text.c_str(), &format); },
                                  ReadDateError<Value>(), cause, "ParseDateTime"))
            << "'" << text.substr(0, 60) << "'";
        ASSERT_EQ(Look(given.it), moment) << "'" << text.substr(0, 60) << "'";
    }
}

/// A single value that tries to read a text.
inline std::vector<Moment> OneMoment()
{
    return {{{ZelDtWmNull, 1, 0}, kSome}};
}

} // namespace zeltest

#endif
