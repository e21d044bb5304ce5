#ifndef ZELDT_TESTS_NUMERIC_LONG_TESTING_H
#define ZELDT_TESTS_NUMERIC_LONG_TESTING_H

/// Numbers in every state, for the tests of ZelDtLong.

#include "numeric/DTLONG.h"
#include "tests/support/zel_testing.h"

#include <array>
#include <cstdint>
#include <limits>
#include <ostream>
#include <string>
#include <vector>

namespace zeltest {

inline constexpr int kMin = std::numeric_limits<std::int32_t>::min();
inline constexpr int kMax = std::numeric_limits<std::int32_t>::max();

/// An error of the public class.
inline Error LongError(unsigned long number, const std::string& signature)
{
    return {number, "DTLONG", "ZelDtLong", signature};
}

/// An error of the checked arithmetic; `name` is the function's German verb.
inline Error ArithmeticError(unsigned long number, const std::string& name)
{
    return {number, "IMP/DTLONGI", "Funktionen f\xFCr ZelDtLong", name + "Long(double,double)"};
}

/// An error of the implementation object.
inline Error ImpError(unsigned long number, const std::string& signature)
{
    return {number, "IMP/DTLONGI", "ZelDtLong_Imp", signature};
}

/// All that can be seen of a number.
struct Number {
    State state;
    std::int64_t value = 0;

    friend bool operator==(const Number&, const Number&) = default;
    friend std::ostream& operator<<(std::ostream& os, const Number& n)
    {
        return os << n.value << " (" << n.state << ')';
    }
};

inline Number Look(const ZelDtLong& value)
{
    return {StateOf(value), static_cast<long>(value)};
}

/// The archive form: the defined word and the number's word, both little-endian.
inline Bytes ArchiveForm(int defined, std::int64_t value)
{
    const auto bits = static_cast<std::uint32_t>(value);
    return Bytes{defined,
                 0,
                 0,
                 0,
                 static_cast<int>(bits & 0xFF),
                 static_cast<int>((bits >> 8) & 0xFF),
                 static_cast<int>((bits >> 16) & 0xFF),
                 static_cast<int>((bits >> 24) & 0xFF)};
}

/// Brings `target` to exactly what `number` says. An undefined value can store a number: the one
/// that stood in the archive it was read from. It can be undefined in mode AlwaysDefined: when it
/// took over that mode as the default.
inline void Bring(ZelDtLong& target, const Number& number)
{
    target.SetWorkingMode(ZelDtWmMissing);
    Loaded(ArchiveForm(number.state.defined, number.value),
           [&](CArchive& ar) { target.Serialize(ar); });
    if (number.state.mode == ZelDtWmAlwaysDefined) {
        const DefaultMode guard(ZelDtWmAlwaysDefined);
        target.SetWorkingMode(ZelDtWmDefault);
    } else {
        target.SetWorkingMode(number.state.mode);
    }
    target.SetModified(number.state.modified);
    ASSERT_EQ(Look(target), number);
}

/// A ZelDtLong in any state. (Returning the value itself would go through its copy constructor,
/// which drops the number of undefined values.)
struct Given {
    ZelDtLong it;
    explicit Given(const Number& number) { Bring(it, number); }
};

inline constexpr std::array<ZelDtWorkingMode, 3> kRealModes = {ZelDtWmMissing, ZelDtWmNull,
                                                               ZelDtWmAlwaysDefined};

/// Defined and undefined in the three modes, unmodified and modified.
inline std::vector<State> AllStates()
{
    std::vector<State> states;
    for (const ZelDtWorkingMode mode : kRealModes)
        for (const int defined : {0, 1})
            for (const int modified : {0, 1})
                states.push_back({mode, defined, modified});
    return states;
}

/// Every state with every one of the numbers.
inline std::vector<Number> Numbers(const std::vector<int>& values)
{
    std::vector<Number> numbers;
    for (const State& state : AllStates())
        for (const int value : values)
            numbers.push_back({state, value});
    return numbers;
}

/// A new undefined value in `mode` (a real one).
inline Number Undefined(ZelDtWorkingMode mode)
{
    return {{mode, mode == ZelDtWmAlwaysDefined ? 1 : 0, 0}, 0};
}

/// A new defined value in the default mode.
inline Number Defined(std::int64_t value)
{
    return {{ZelDtGetDefaultWorkingMode(), 1, 0}, value};
}

// The rules that several operations share

/// The defined flag becomes `defined`; a change marks the value modified.
inline void SetDefined(Number& n, int defined)
{
    if (n.state.defined != defined)
        n.state = {n.state.mode, defined, 1};
}

/// The number becomes `value`; a change marks the value modified.
inline void Store(Number& n, std::int64_t value)
{
    if (n.value != value) {
        n.value = value;
        n.state.modified = 1;
    }
}

/// What is left of `n` after Clear.
inline Number Cleared(Number n)
{
    Store(n, 0);
    if (n.state.mode != ZelDtWmAlwaysDefined)
        SetDefined(n, 0);
    return n;
}

/// `n` after it took over a plain number.
inline Number Assigned(Number n, std::int64_t value)
{
    Store(n, value);
    SetDefined(n, 1);
    return n;
}

} // namespace zeltest

#endif
