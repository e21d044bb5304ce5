#ifndef ZELDT_TESTS_NUMERIC_INTEGER_TESTING_H
#define ZELDT_TESTS_NUMERIC_INTEGER_TESTING_H

/// Whole numbers in every state, and what distinguishes their classes, for the tests of ZelDtLong
/// and ZelDtShort.

#include "numeric/DTLONG.h"
#include "numeric/DTSHORT.h"
#include "tests/numeric/number_testing.h"

#include <cstdint>
#include <limits>
#include <ostream>
#include <string>
#include <vector>

namespace zeltest {

template <typename Value>
struct Facts;

template <>
struct Facts<ZelDtLong> {
    using Bits = std::int32_t; ///< the number kept
    using Plain = long;        ///< the number given and taken
    using Field = long;        ///< of a record set
    static constexpr ZelDtTyps kType = ZelDtTypLong;
    static constexpr const char* kClass = "ZelDtLong";
    static constexpr const char* kModule = "DTLONG";
    static constexpr const char* kImpModule = "IMP/DTLONGI";
    static constexpr const char* kCheckedArguments = "Long(double,double)";
    /// Whether the copy of an undefined value holds its number; else 0.
    static constexpr bool kCopiesUndefinedNumbers = false;
    /// Whether an undefined value has an undefined external text; else that of its number.
    static constexpr bool kUndefinedHasNoExternalText = false;
    /// Whether SetFromExtern takes over the flag before it looks at the text.
    static constexpr bool kTakesOverTheFlag = false;
};

template <>
struct Facts<ZelDtShort> {
    using Bits = std::int16_t;
    using Plain = short;
    using Field = int;
    static constexpr ZelDtTyps kType = ZelDtTypShort;
    static constexpr const char* kClass = "ZelDtShort";
    static constexpr const char* kModule = "DTSHORT";
    static constexpr const char* kImpModule = "IMP/DTSHORTI";
    static constexpr const char* kCheckedArguments = "Short(LONG,LONG)";
    static constexpr bool kCopiesUndefinedNumbers = true;
    static constexpr bool kUndefinedHasNoExternalText = true;
    static constexpr bool kTakesOverTheFlag = true;
};

template <typename Value>
inline constexpr int kMin = std::numeric_limits<typename Facts<Value>::Bits>::min();
template <typename Value>
inline constexpr int kMax = std::numeric_limits<typename Facts<Value>::Bits>::max();

using IntegerClasses = ::testing::Types<ZelDtLong, ZelDtShort>;

struct ClassNames {
    template <typename Value>
    static std::string GetName(int)
    {
        return Facts<Value>::kClass;
    }
};

/// A suite whose tests (TYPED_TEST) run with both classes.
#define ZEL_INTEGER_SUITE(name)                                                                    \
    template <typename>                                                                            \
    class name : public ::testing::Test {};                                                        \
    TYPED_TEST_SUITE(name, IntegerClasses, ClassNames)

/// An error of the public class.
template <typename Value>
Error ClassError(unsigned long number, const std::string& signature)
{
    return {number, Facts<Value>::kModule, Facts<Value>::kClass, signature};
}

/// An error of the checked arithmetic; `name` is the function's German verb.
template <typename Value>
Error ArithmeticError(unsigned long number, const std::string& name)
{
    return {number, Facts<Value>::kImpModule,
            std::string("Funktionen f\xFCr ") + Facts<Value>::kClass,
            name + Facts<Value>::kCheckedArguments};
}

/// An error of the implementation object.
template <typename Value>
Error ImpError(unsigned long number, const std::string& signature)
{
    return {number, Facts<Value>::kImpModule, std::string(Facts<Value>::kClass) + "_Imp",
            signature};
}

/// What the implementation object says of a number beyond its range.
template <typename Value>
Error RangeError()
{
    return ImpError<Value>(8, std::string(Facts<Value>::kClass) + "_Imp(double)");
}

/// The argument list of an operation on a value of the class itself.
template <typename Value>
std::string OwnArgument()
{
    return std::string("(") + Facts<Value>::kClass + "&)";
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

/// The stored number, whatever the state.
inline std::int64_t StoredNumber(const ZelDtLong& value)
{
    return static_cast<long>(value);
}
inline std::int64_t StoredNumber(const ZelDtShort& value)
{
    return static_cast<short>(value);
}

template <typename Value>
Number Look(const Value& value)
{
    return {StateOf(value), StoredNumber(value)};
}

/// The archive form: the defined word and the number's word, both little-endian.
template <typename Value>
Bytes ArchiveForm(int defined, std::int64_t value)
{
    Bytes bytes{defined, 0, 0, 0};
    for (std::size_t i = 0; i < sizeof(typename Facts<Value>::Bits); ++i)
        bytes.data.push_back(static_cast<char>((value >> (8 * i)) & 0xFF));
    return bytes;
}

/// Brings `target` to exactly what `number` says.
template <typename Value>
void Bring(Value& target, const Number& number)
{
    BringByArchive(target, ArchiveForm<Value>(number.state.defined, number.value), number.state);
    ASSERT_EQ(Look(target), number);
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

template <typename Value>
bool InRange(std::int64_t value)
{
    return value >= kMin<Value> && value <= kMax<Value>;
}

/// Numbers of type `long` that the class does not hold, those included that would be in its range
/// again after being cut. There may be none.
template <typename Value>
std::vector<long> OutsideLongs()
{
    std::vector<long> longs;
    for (const std::int64_t value :
         {std::int64_t{kMax<Value>} + 1, std::int64_t{kMin<Value>} - 1, std::int64_t{65536},
          std::int64_t{65543}, std::int64_t{1} << 32, (std::int64_t{1} << 32) + 7,
          std::int64_t{4000000007}, std::int64_t{-3000000000}, std::int64_t{1} << 62})
        if (!InRange<Value>(value) && static_cast<std::int64_t>(static_cast<long>(value)) == value)
            longs.push_back(static_cast<long>(value));
    return longs;
}

/// A new undefined value in `mode` (a real one).
inline Number Undefined(ZelDtWorkingMode mode)
{
    return {NewUndefined(mode), 0};
}

/// A new defined value in the default mode.
inline Number Defined(std::int64_t value)
{
    return {NewDefined(), value};
}

// The rules that several operations share

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
    SetUndefined(n.state);
    return n;
}

/// `n` after it took over a plain number.
inline Number Assigned(Number n, std::int64_t value)
{
    Store(n, value);
    SetDefined(n.state, 1);
    return n;
}

/// What the copy constructor makes of `n`.
template <typename Value>
Number CopyOf(const Number& n)
{
    return {n.state, n.state.defined || Facts<Value>::kCopiesUndefinedNumbers ? n.value : 0};
}

} // namespace zeltest

#endif
