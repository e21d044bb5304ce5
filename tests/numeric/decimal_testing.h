#ifndef ZELDT_TESTS_NUMERIC_DECIMAL_TESTING_H
#define ZELDT_TESTS_NUMERIC_DECIMAL_TESTING_H

/// Decimals in every state, for the tests of ZelDtDecimal.

#include "numeric/DTDECIMA.h"
#include "tests/numeric/decimal_model.h"
#include "tests/numeric/number_testing.h"
#include "text/DTSTRING.h"

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

namespace zeltest {

inline constexpr const char* kLargest = "9999999999999999999999999999";
inline constexpr const char* kSmallest = "-9999999999999999999999999999";
/// The last place there is.
inline constexpr const char* kTiny = "0.000000000000000000000000001";

inline constexpr int kMinInt = std::numeric_limits<std::int32_t>::min();
inline constexpr int kMaxInt = std::numeric_limits<std::int32_t>::max();

/// Errors of the public class: of constructors, members and operators.
inline Error ConstructionError(const std::string& signature)
{
    return {1, "DTDECIMA", "ZelDtDecimal", signature};
}

inline Error MemberError(unsigned long number, const std::string& signature)
{
    return {number, "DTDECFKT", "ZelDtDecimal", signature};
}

inline Error OperatorError(unsigned long number, const std::string& signature)
{
    return {number, "DTDECOPE", "ZelDtDecimal", signature};
}

/// An error of the implementation object.
inline Error ImpError(unsigned long number, const std::string& signature)
{
    return {number, "DTDECIMI", "ZelDtDecimal_Imp", signature};
}

/// A text that is no number (20) or too long (11).
inline Error TextError(unsigned long number)
{
    return ImpError(number, "ZelDtDecimal_Imp(LPCTSTR)");
}

/// A result that does not exist.
inline Error OverflowError()
{
    return {24, "DTDECIMI", "RWDecimal", "ZelDtDecimalOverflowHandler(RWDecimal96OverflowErr&)"};
}

/// Whether the action fails with an error of the class whose signature begins with `beginning`;
/// for operations whose exact text is the class's own.
template <typename Action>
::testing::AssertionResult FailsLike(Action&& action, Error expected, const std::string& beginning,
                                     const std::optional<Error>& first = std::nullopt)
{
    const Caught caught = Catch(std::forward<Action>(action));
    if (caught.disturbance.empty() && caught.error.signature.rfind(beginning, 0) != 0)
        return ::testing::AssertionFailure()
               << "expected a signature with " << beginning << ", got " << caught.error;
    expected.signature = caught.error.signature;
    return Matches(caught, expected, first);
}

inline std::string TextOf(const ZelDtString& text)
{
    return static_cast<const char*>(text);
}

/// The stored number with all its places, whatever the state.
inline std::string NumberOf(const ZelDtDecimal& value)
{
    ZelDtDecimal copy(value);
    copy.SetWorkingMode(ZelDtWmAlwaysDefined);
    return TextOf(copy.ConvToSQL());
}

inline Number Look(const ZelDtDecimal& value)
{
    return {StateOf(value), NumberOf(value)};
}

/// Brings a value of any class that has its number already to the state. The base's assignment
/// takes the definedness and leaves the number: so undefined values come to store one. A value is
/// undefined in mode AlwaysDefined when it took over that mode as the default.
template <typename Value>
void BringState(Value& target, const State& state)
{
    target.SetWorkingMode(ZelDtWmMissing);
    if (!state.defined)
        static_cast<ZelDtBasis&>(target) = Value(ZelDtWmMissing);
    const DefaultMode guard(state.mode);
    target.SetWorkingMode(ZelDtWmDefault);
    target.SetModified(state.modified);
    ASSERT_EQ(StateOf(target), state);
}

/// A decimal in any state with any number that a text can give.
struct GivenDecimal {
    ZelDtDecimal it;
    explicit GivenDecimal(const Number& number) : it(number.text.c_str())
    {
        BringState(it, number.state);
        EXPECT_EQ(Look(it), number);
    }
};

/// Every state with every one of the numbers.
inline std::vector<Number> Numbers(const std::vector<std::string>& texts)
{
    std::vector<Number> numbers;
    for (const State& state : AllStates())
        for (const std::string& text : texts)
            numbers.push_back({state, text});
    return numbers;
}

/// Every state that is not modified with every one of the numbers.
inline std::vector<Number> Unmodified(const std::vector<std::string>& texts)
{
    std::vector<Number> numbers;
    for (const Number& number : Numbers(texts))
        if (!number.state.modified)
            numbers.push_back(number);
    return numbers;
}

/// `n` after it took over a number, places included, and became defined.
inline Number Replaced(Number n, const std::string& text)
{
    Replace(n, text);
    SetDefined(n.state, 1);
    return n;
}

/// `n` after it took over a number unless it is the same with other places, and became defined.
inline Number Assigned(Number n, const std::string& text)
{
    Store(n, text);
    SetDefined(n.state, 1);
    return n;
}

/// An amount of so many 1/10000.
inline COleCurrency Currency(std::int64_t units)
{
    CURRENCY amount;
    amount.int64 = units;
    return COleCurrency(amount);
}

/// A copy of the amount with another status.
inline COleCurrency Currency(std::int64_t units, COleCurrency::CurrencyStatus status)
{
    COleCurrency result = Currency(units);
    result.SetStatus(status);
    return result;
}

} // namespace zeltest

#endif
