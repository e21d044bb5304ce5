#ifndef ZELDT_TESTS_DATETIME_TIME_TESTING_H
#define ZELDT_TESTS_DATETIME_TIME_TESTING_H

/// Amounts of time in every state, for the tests of ZelDtTime. One hour has 1200 units, a minute
/// 20, a hundredth of an hour 12.

#include "datetime/DTTIME.h"
#include "tests/numeric/number_testing.h"

#include <array>
#include <climits>
#include <cstdint>
#include <limits>
#include <ostream>
#include <string>
#include <vector>

namespace zeltest {

using TimeMode = ZelDtTime::TimeMode;

inline constexpr TimeMode kHundredths = ZelDtTime::Hundertstel;
inline constexpr TimeMode kMinutes = ZelDtTime::Minuten;
inline constexpr TimeMode kHours = ZelDtTime::Stunden;
inline constexpr TimeMode kOwn = ZelDtTime::Eigener;

/// The modes that a value can have.
inline constexpr std::array<TimeMode, 3> kTimeModes = {kHundredths, kMinutes, kHours};
/// Numbers that are no mode.
inline constexpr std::array<TimeMode, 6> kNoModes = {
    static_cast<TimeMode>(-1),      static_cast<TimeMode>(4),       static_cast<TimeMode>(5),
    static_cast<TimeMode>(INT_MAX), static_cast<TimeMode>(INT_MIN), static_cast<TimeMode>(256)};

inline constexpr std::int32_t kMostUnits = std::numeric_limits<std::int32_t>::max();
inline constexpr std::int32_t kLeastUnits = std::numeric_limits<std::int32_t>::min();

/// An error of the public class.
inline Error TimeError(unsigned long number, const std::string& signature)
{
    return {number, "DTTIME", "ZelDtTime", signature};
}

/// What is wrong with a text.
inline Error TextError(unsigned long number)
{
    return {number, "IMP/DTTIMI", "ZelDtTime_Imp", "ConvStringToTime (LPCTSTR,TimeMode)"};
}

/// Hours and fraction make an amount that does not fit.
inline Error BuildError()
{
    return {8, "IMP/DTTIMI", "ZelDtTime_Imp", "BuildTimeValue(LONG,LONG,TimeMode)"};
}

/// Whether the action fails with an error that the public operation itself found. Its signature
/// text begins with `name`.
template <typename Action>
::testing::AssertionResult FailsIn(const std::string& name, unsigned long number, Action&& action)
{
    const Caught caught = Catch(std::forward<Action>(action));
    ::testing::AssertionResult result = Matches(caught, TimeError(number, caught.error.signature));
    if (result && (caught.depth != 0 || caught.error.signature.rfind(name + "(", 0) != 0))
        return ::testing::AssertionFailure()
               << "expected an error of " << name << " itself, got " << caught.error
               << " with predecessors: " << caught.depth;
    return result;
}

/// Whether the action fails with error 1 of the operation `name`, because of error `first`.
template <typename Action>
::testing::AssertionResult FailsBehind(const std::string& name, unsigned long first,
                                       Action&& action)
{
    const Caught caught = Catch(std::forward<Action>(action));
    ::testing::AssertionResult result = Matches(caught, TimeError(1, caught.error.signature));
    if (result && (caught.depth == 0 || caught.first.number != first ||
                   caught.error.signature.rfind(name + "(", 0) != 0))
        return ::testing::AssertionFailure()
               << "expected error " << first << " behind error 1 of " << name << ", got "
               << caught.first << " behind " << caught.error;
    return result;
}

/// All that can be seen of an amount of time.
struct Amount {
    State state;
    std::int32_t units = 0;
    TimeMode mode = kMinutes;

    friend bool operator==(const Amount&, const Amount&) = default;
    friend std::ostream& operator<<(std::ostream& os, const Amount& a)
    {
        return os << a.units << " units in mode " << static_cast<int>(a.mode) << " (" << a.state
                  << ')';
    }
};

/// The archive form: the defined word and the units, both little-endian.
inline Bytes TimeArchiveForm(int defined, std::int32_t units)
{
    Bytes bytes{defined, 0, 0, 0};
    const auto bits = static_cast<std::uint32_t>(units);
    for (int i = 0; i < 4; ++i)
        bytes.data.push_back(static_cast<char>((bits >> (8 * i)) & 0xFF));
    return bytes;
}

/// The stored units, whatever the state; only the archive tells them of an undefined value.
inline std::int32_t StoredUnits(const ZelDtTime& value)
{
    const Bytes bytes =
        Stored([&](CArchive& ar) { const_cast<ZelDtTime&>(value).Serialize(ar); }); // only reads
    if (bytes.size() != 8) {
        ADD_FAILURE() << "archive form of " << bytes;
        return 0;
    }
    std::uint32_t bits = 0;
    for (std::size_t i = 8; i-- > 4;)
        bits = bits << 8 | static_cast<unsigned char>(bytes.data[i]);
    return static_cast<std::int32_t>(bits);
}

inline Amount Look(const ZelDtTime& value)
{
    return {StateOf(value), StoredUnits(value), value.GetMode()};
}

/// Brings `target` to exactly what `amount` says.
inline void Bring(ZelDtTime& target, const Amount& amount)
{
    target.SetMode(amount.mode);
    BringByArchive(target, TimeArchiveForm(amount.state.defined, amount.units), amount.state);
    ASSERT_EQ(Look(target), amount);
}

/// Every state with every one of the amounts, in one mode.
inline std::vector<Amount> Amounts(const std::vector<std::int32_t>& units, TimeMode mode = kMinutes)
{
    std::vector<Amount> amounts;
    for (const State& state : AllStates())
        for (const std::int32_t count : units)
            amounts.push_back({state, count, mode});
    return amounts;
}

/// The same in every mode.
inline std::vector<Amount> AmountsInAllModes(const std::vector<std::int32_t>& units)
{
    std::vector<Amount> amounts;
    for (const TimeMode mode : kTimeModes)
        for (const Amount& amount : Amounts(units, mode))
            amounts.push_back(amount);
    return amounts;
}

/// A new undefined value in the working mode (a real one).
inline Amount UndefinedAmount(ZelDtWorkingMode mode)
{
    return {NewUndefined(mode), 0, kMinutes};
}

/// A new defined value in the default working mode.
inline Amount DefinedAmount(std::int32_t units, TimeMode mode = kMinutes)
{
    return {NewDefined(), units, mode};
}

// The rules that several operations share

/// The amount becomes `units`; a change marks the value modified.
inline void Store(Amount& a, std::int32_t units)
{
    if (a.units != units) {
        a.units = units;
        a.state.modified = 1;
    }
}

/// `a` after it took over an amount from outside.
inline Amount Taken(Amount a, std::int32_t units)
{
    Store(a, units);
    SetDefined(a.state, 1);
    return a;
}

/// What is left of `a` after Clear.
inline Amount Cleared(Amount a)
{
    Store(a, 0);
    SetUndefined(a.state);
    return a;
}

/// Units of one step of the fraction in a mode; 0 in whole hours.
inline constexpr std::int64_t FractionStep(TimeMode mode)
{
    return mode == kHundredths ? 12 : mode == kMinutes ? 20 : 0;
}

/// Units of the smallest thing that the mode shows.
inline constexpr std::int64_t WholeStep(TimeMode mode)
{
    return mode == kHundredths ? 12 : mode == kMinutes ? 20 : 1200;
}

inline constexpr bool Fits(std::int64_t units)
{
    return units >= kLeastUnits && units <= kMostUnits;
}

/// Product that stays far outside the range where the true one does.
inline constexpr std::int64_t Times(std::int64_t count, std::int64_t step)
{
    constexpr std::int64_t kFar = std::int64_t{1} << 50;
    return (count > kFar ? kFar : count < -kFar ? -kFar : count) * step;
}

/// Numbers of type `long` beyond 32 bits, those included that would be small again after being
/// cut. There may be none.
inline std::vector<long> WideLongs()
{
    std::vector<long> longs;
    for (const std::int64_t value :
         {std::int64_t{kMostUnits} + 1, std::int64_t{kLeastUnits} - 1, std::int64_t{1} << 32,
          (std::int64_t{1} << 32) + 7, std::int64_t{-4294967296}, std::int64_t{4000000007},
          std::int64_t{1} << 62})
        if (static_cast<std::int64_t>(static_cast<long>(value)) == value)
            longs.push_back(static_cast<long>(value));
    return longs;
}

} // namespace zeltest

#endif
