/// Values of different number classes in one expression.

#include "tests/numeric/mixed_testing.h"

#include <cstdlib>
#include <string>
#include <type_traits>
#include <variant>
#include <vector>

namespace {

using namespace zeltest;

// Products of a whole number with a decimal or a double: every combination of states against the
// rules

/// mantissa / 10^places, as a text without trailing zeros.
std::string DecimalText(std::int64_t mantissa, int places)
{
    std::string digits = std::to_string(std::abs(mantissa));
    if (static_cast<int>(digits.size()) <= places)
        digits.insert(0, static_cast<std::size_t>(places) + 1 - digits.size(), '0');
    if (places > 0) {
        digits.insert(digits.size() - static_cast<std::size_t>(places), 1, '.');
        digits.erase(digits.find_last_not_of('0') + 1);
        if (digits.back() == '.')
            digits.pop_back();
    }
    return mantissa < 0 ? '-' + digits : digits;
}

struct Fraction {
    std::int64_t mantissa;
    int places;
};

constexpr Fraction kFractions[] = {{0, 0}, {1, 0}, {15, 1}, {-225, 2}, {1, 4}};

template <typename V>
std::vector<int> WholeNumbers()
{
    return {0, 1, -3, 40, kMax<V>, kMin<V>};
}

/// A decimal that was computed: it began undefined, and becoming defined is a change.
State ComputedState()
{
    const ZelDtWorkingMode mode = ZelDtGetDefaultWorkingMode();
    return {mode, 1, mode == ZelDtWmAlwaysDefined ? 0 : 1};
}

/// What a Null decimal leaves of the whole number beside it.
DecimalNumber Alone(const ZelDtLong*, const Number& a)
{
    return {a.state, std::to_string(a.value)};
}
/// Made from the short's number alone.
DecimalNumber Alone(const ZelDtShort*, const Number& a)
{
    return {NewDefined(), std::to_string(a.value)};
}

template <typename V>
DecimalNumber ExpectedProduct(const Number& a, const State& b, const Fraction& fraction)
{
    // An undefined decimal stores 0.
    const std::int64_t mantissa = b.defined ? fraction.mantissa : 0;
    if (!Computes(a.state, b))
        return {NewUndefined(ZelDtGetDefaultWorkingMode()), "0"};
    if (IsNull(a.state))
        return {b, DecimalText(mantissa, fraction.places)};
    if (IsNull(b))
        return Alone(static_cast<const V*>(nullptr), a);
    return {ComputedState(), DecimalText(a.value * mantissa, fraction.places)};
}

template <typename V>
void ExpectProductsWithDecimals()
{
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const Number& a : Numbers(WholeNumbers<V>())) {
            const Given<V> left(a);
            for (const State& b : AllStates()) {
                for (const Fraction& fraction : kFractions) {
                    const Given<ZelDtDecimal> right(
                        DecimalNumber{b, DecimalText(fraction.mantissa, fraction.places)});
                    const DecimalNumber before = Look(right.it);
                    const ZelDtDecimal product = left.it * right.it;
                    ASSERT_EQ(Look(product), ExpectedProduct<V>(a, b, fraction))
                        << a << " * " << before << ", default mode " << standard;
                    ASSERT_EQ(product.GetFormat(), nullptr);
                    ASSERT_EQ(Look(right.it), before);
                }
            }
            ASSERT_EQ(Look(left.it), a);
        }
    }
}

TEST(Products, OfALongAndADecimalFollowTheRules)
{
    ExpectProductsWithDecimals<ZelDtLong>();
}

TEST(Products, OfAShortAndADecimalFollowTheRules)
{
    ExpectProductsWithDecimals<ZelDtShort>();
}

TEST(Products, WithADecimalThatOverflowAreFollowUpErrors)
{
    const ZelDtDecimal large("9999999999999999999999999999");
    const Error overflow{24, "DTDECIMI", "RWDecimal",
                         "ZelDtDecimalOverflowHandler(RWDecimal96OverflowErr&)"};
    const ZelDtLong two(2);
    const Caught byLong = Catch([&] { two* large; });
    EXPECT_TRUE(Matches(byLong, ClassError<ZelDtLong>(1, byLong.error.signature), overflow));
    EXPECT_EQ(byLong.error.signature, "operator*(ZelDtDecimal&)");
    const ZelDtShort shortTwo(2);
    const Caught byShort = Catch([&] { shortTwo* large; });
    EXPECT_TRUE(Matches(byShort, ClassError<ZelDtShort>(1, byShort.error.signature), overflow));
    EXPECT_EQ(byShort.error.signature, "operator*(ZelDtDecimal&)");
    EXPECT_EQ(Look(ZelDtLong(1) * large),
              (DecimalNumber{ComputedState(), "9999999999999999999999999999"}));
}

TEST(Products, OfALongAndADoubleFollowTheRules)
{
    const std::vector<double> reals = {0.0, 1.5, -0.25, kLargest, kInfinity, kNaN};
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const Number& a : Numbers(WholeNumbers<ZelDtLong>())) {
            const Given<ZelDtLong> left(a);
            for (const Real& b : Reals(reals)) {
                const Given<ZelDtDouble> right(b);
                const auto number = static_cast<double>(a.value);
                Real expected = DefinedReal(number * b.value);
                if (!Computes(a.state, b.state))
                    expected = UndefinedReal(standard);
                else if (IsNull(a.state))
                    expected = b;
                else if (IsNull(b.state))
                    expected = {a.state, number};
                const ZelDtDouble product = left.it * right.it;
                ASSERT_EQ(Look(product), expected)
                    << a << " * " << b << ", default mode " << standard;
                ASSERT_EQ(product.GetFormat(), nullptr);
                ASSERT_EQ(Look(right.it), b);
            }
            ASSERT_EQ(Look(left.it), a);
        }
    }
}

// Everything else is computed by the wider class

/// What a calculation gave: a value, the answer of a comparison, or the number of the error and of
/// its first cause.
struct Failed {
    unsigned long number;
    unsigned long first;

    friend bool operator==(const Failed&, const Failed&) = default;
    friend std::ostream& operator<<(std::ostream& os, const Failed& f)
    {
        return os << "error " << f.number << " because of " << f.first;
    }
};

template <typename Result>
auto Seen(const Result& result)
{
    if constexpr (std::is_same_v<Result, int>)
        return result;
    else
        return Look(result);
}

template <typename Action>
auto Observe(Action&& action)
{
    std::variant<decltype(Seen(action())), Failed> seen;
    const Caught caught = Catch([&] { seen = Seen(action()); });
    if (caught.disturbance.empty())
        seen = Failed{caught.error.number, caught.first.number};
    else
        EXPECT_EQ(caught.disturbance, "nothing");
    EXPECT_EQ(caught.leaked, 0u);
    return seen;
}

/// Whether two calculations gave the same.
template <typename Seen>
::testing::AssertionResult Agree(const Seen& mixed, const Seen& wide)
{
    if (mixed == wide)
        return ::testing::AssertionSuccess();
    ::testing::AssertionResult failure = ::testing::AssertionFailure();
    std::visit([&](const auto& seen) { failure << "got " << seen; }, mixed);
    std::visit([&](const auto& seen) { failure << " instead of " << seen; }, wide);
    return failure;
}

/// Evaluates `expression` with `a` and `b` as they are and as values of the wider class.
#define ZEL_EXPECT_WIDENED(expression)                                                             \
    {                                                                                              \
        const auto mixed = Observe([&] {                                                           \
            const A& a = left.it;                                                                  \
            const B& b = right.it;                                                                 \
            return expression;                                                                     \
        });                                                                                        \
        const auto wide = Observe([&] {                                                            \
            const Wide& a = left.it;                                                               \
            const Wide& b = right.it;                                                              \
            return expression;                                                                     \
        });                                                                                        \
        EXPECT_TRUE(Agree(mixed, wide))                                                            \
            << #expression << ": " << Look(left.it) << " and " << Look(right.it);                  \
    }

template <typename V>
auto MakeNumber(const State& state, int value)
{
    if constexpr (std::is_same_v<V, ZelDtDouble>)
        return Real{state, static_cast<double>(value)};
    else if constexpr (std::is_same_v<V, ZelDtDecimal>)
        return DecimalNumber{state, std::to_string(value)};
    else
        return Number{state, value};
}

/// Whether the product of the two is an operation of its own.
template <typename A, typename B>
constexpr bool kHasOwnProduct = false;
template <>
constexpr bool kHasOwnProduct<ZelDtLong, ZelDtDouble> = true;
template <>
constexpr bool kHasOwnProduct<ZelDtLong, ZelDtDecimal> = true;
template <>
constexpr bool kHasOwnProduct<ZelDtShort, ZelDtDecimal> = true;

template <typename Wide, typename A, typename B>
void ExpectWidened()
{
    EXPECT_TRUE((std::is_same_v<decltype(std::declval<A>() + std::declval<B>()), Wide>));
    EXPECT_TRUE((std::is_same_v<decltype(std::declval<A>() * std::declval<B>()), Wide>));
    EXPECT_TRUE((std::is_same_v<decltype(std::declval<A>() < std::declval<B>()), int>));
    for (const State& leftState : AllStates()) {
        for (const State& rightState : AllStates()) {
            for (const int i : {0, 7, -2}) {
                for (const int j : {0, 7, 3}) {
                    const Given<A> left(MakeNumber<A>(leftState, i));
                    const Given<B> right(MakeNumber<B>(rightState, j));
                    ZEL_EXPECT_WIDENED(a + b)
                    ZEL_EXPECT_WIDENED(a - b)
                    if constexpr (!kHasOwnProduct<A, B>) {
                        ZEL_EXPECT_WIDENED(a * b)
                    }
                    ZEL_EXPECT_WIDENED(a / b)
                    if constexpr (std::is_same_v<Wide, ZelDtDecimal>) {
                        ZEL_EXPECT_WIDENED(a % b)
                    }
                    ZEL_EXPECT_WIDENED(a < b)
                    ZEL_EXPECT_WIDENED(a > b)
                    ZEL_EXPECT_WIDENED(a <= b)
                    ZEL_EXPECT_WIDENED(a >= b)
                    ZEL_EXPECT_WIDENED(a == b)
                    ZEL_EXPECT_WIDENED(a != b)
                }
            }
            if (::testing::Test::HasFailure())
                return;
        }
    }
}

TEST(MixedOperators, OfShortAndLongComputeAsLongs)
{
    ExpectWidened<ZelDtLong, ZelDtShort, ZelDtLong>();
    ExpectWidened<ZelDtLong, ZelDtLong, ZelDtShort>();
}

TEST(MixedOperators, OfShortAndDoubleComputeAsDoubles)
{
    ExpectWidened<ZelDtDouble, ZelDtShort, ZelDtDouble>();
    ExpectWidened<ZelDtDouble, ZelDtDouble, ZelDtShort>();
}

TEST(MixedOperators, OfLongAndDoubleComputeAsDoubles)
{
    ExpectWidened<ZelDtDouble, ZelDtLong, ZelDtDouble>();
    ExpectWidened<ZelDtDouble, ZelDtDouble, ZelDtLong>();
}

TEST(MixedOperators, OfShortAndDecimalComputeAsDecimals)
{
    ExpectWidened<ZelDtDecimal, ZelDtShort, ZelDtDecimal>();
    ExpectWidened<ZelDtDecimal, ZelDtDecimal, ZelDtShort>();
}

TEST(MixedOperators, OfLongAndDecimalComputeAsDecimals)
{
    ExpectWidened<ZelDtDecimal, ZelDtLong, ZelDtDecimal>();
    ExpectWidened<ZelDtDecimal, ZelDtDecimal, ZelDtLong>();
}

TEST(MixedOperators, OfDoubleAndDecimalComputeAsDecimals)
{
    ExpectWidened<ZelDtDecimal, ZelDtDouble, ZelDtDecimal>();
    ExpectWidened<ZelDtDecimal, ZelDtDecimal, ZelDtDouble>();
}

TEST(KnownResults, OfShortAndLong)
{
    const ZelDtShort narrow(30000);
    const ZelDtLong wide(100000);
    EXPECT_EQ(Look(narrow + wide), Defined(130000));
    EXPECT_EQ(Look(wide - narrow), Defined(70000));
    EXPECT_EQ(Look(narrow - wide), Defined(-70000));
    EXPECT_EQ(Look(ZelDtShort(200) * ZelDtLong(200)), Defined(40000));
    EXPECT_EQ(Look(wide / narrow), Defined(3));
    EXPECT_EQ(Look(ZelDtShort(-32768) / ZelDtLong(-1)), Defined(32768));
    EXPECT_TRUE(FailsWith([&] { narrow / ZelDtLong(0); },
                          ClassError<ZelDtLong>(1, "operator/(ZelDtLong&)"),
                          ArithmeticError<ZelDtLong>(12, "Dividieren")));
    EXPECT_TRUE(FailsWith([&] { narrow* wide; }, ClassError<ZelDtLong>(1, "operator*(ZelDtLong&)"),
                          ArithmeticError<ZelDtLong>(8, "Multiplizieren")));
}

TEST(KnownResults, OfWholeNumbersAndDoubles)
{
    EXPECT_EQ(Look(ZelDtLong(7) / ZelDtDouble(2.0)), DefinedReal(3.5));
    EXPECT_EQ(Look(ZelDtDouble(2.5) * ZelDtLong(kMax<ZelDtLong>)), DefinedReal(5368709117.5));
    EXPECT_EQ(Look(ZelDtLong(kMax<ZelDtLong>) * ZelDtDouble(2.5)), DefinedReal(5368709117.5));
    EXPECT_EQ(Look(ZelDtShort(1) - ZelDtDouble(0.25)), DefinedReal(0.75));
    EXPECT_EQ(Look(ZelDtDouble(0.5) + ZelDtShort(-1)), DefinedReal(-0.5));
    EXPECT_EQ(Look(ZelDtLong(2) * ZelDtDouble(kLargest)), DefinedReal(kInfinity));
    EXPECT_TRUE(FailsWith([] { ZelDtLong(1) / ZelDtDouble(0.0); },
                          DoubleError(1, "operator/(ZelDtDouble&)"),
                          DoubleError(12, "operator/(ZelDtDouble&)")));
}

TEST(KnownResults, OfNumbersAndDecimals)
{
    const auto computed = [](const char* text) { return DecimalNumber{ComputedState(), text}; };
    EXPECT_EQ(Look(ZelDtLong(3) * ZelDtDecimal("19.99")), computed("59.97"));
    EXPECT_EQ(Look(ZelDtDecimal("19.99") * ZelDtLong(3)), computed("59.97"));
    EXPECT_EQ(Look(ZelDtShort(-2) * ZelDtDecimal("0.05")), computed("-0.1"));
    EXPECT_EQ(Look(ZelDtShort(1) - ZelDtDecimal("0.1")), computed("0.9"));
    EXPECT_EQ(Look(ZelDtDecimal("1.5") + ZelDtLong(1)), computed("2.5"));
    EXPECT_EQ(Look(ZelDtLong(1) / ZelDtDecimal("8")), computed("0.125"));
    EXPECT_EQ(Look(ZelDtDecimal("7.25") % ZelDtShort(2)), computed("1.25"));
    EXPECT_EQ(Look(ZelDtLong(-7) % ZelDtDecimal("2.5")), computed("-2"));
    // A double enters as the shortest decimal that reads back as the same double.
    EXPECT_EQ(Look(ZelDtDouble(0.1) + ZelDtDecimal("0.2")), computed("0.3"));
    EXPECT_EQ(Look(ZelDtDecimal("1") - ZelDtDouble(0.9)), computed("0.1"));
}

TEST(KnownResults, OfMixedComparisons)
{
    EXPECT_EQ(ZelDtShort(5) == ZelDtLong(5), 1);
    EXPECT_EQ(ZelDtShort(1) == ZelDtLong(65537), 0);
    EXPECT_EQ(ZelDtLong(65537) > ZelDtShort(1), 1);
    EXPECT_EQ(ZelDtLong(2) < ZelDtDouble(2.5), 1);
    EXPECT_EQ(ZelDtDouble(2.5) <= ZelDtShort(2), 0);
    EXPECT_EQ(ZelDtDouble(2.0) == ZelDtLong(2), 1);
    EXPECT_EQ(ZelDtDecimal("2.50") == ZelDtDouble(2.5), 1);
    EXPECT_EQ(ZelDtDouble(0.1) == ZelDtDecimal("0.1"), 1);
    EXPECT_EQ(ZelDtLong(3) >= ZelDtDecimal("3.00"), 1);
    EXPECT_EQ(ZelDtShort(3) != ZelDtDecimal("3.001"), 1);
    EXPECT_TRUE(FailsWith([] { return ZelDtShort(ZelDtWmMissing) == ZelDtLong(1); },
                          ClassError<ZelDtLong>(2, "operator==(ZelDtLong&)")));
    EXPECT_TRUE(FailsWith([] { return ZelDtLong(1) < ZelDtDouble(ZelDtWmMissing); },
                          DoubleError(2, "operator<(ZelDtDouble&)")));
}

/// `a += b` and `a -= b` with a narrower b do what they do with b made wider.
template <typename Wide, typename Narrow>
void ExpectCompoundWidened(const char* what)
{
    for (const State& leftState : AllStates()) {
        for (const State& rightState : AllStates()) {
            for (const int value : {0, 7}) {
                const Given<Narrow> right(MakeNumber<Narrow>(rightState, value));
                const Wide widened(right.it);
                Given<Wide> mixed(MakeNumber<Wide>(leftState, 100));
                Given<Wide> wide(MakeNumber<Wide>(leftState, 100));
                EXPECT_EQ(&(mixed.it += right.it), &mixed.it);
                wide.it += widened;
                EXPECT_EQ(Look(mixed.it), Look(wide.it)) << what << ' ' << leftState;
                mixed.it -= right.it;
                mixed.it -= right.it;
                wide.it -= widened;
                wide.it -= widened;
                EXPECT_EQ(Look(mixed.it), Look(wide.it)) << what << ' ' << leftState;
            }
        }
    }
}

TEST(MixedCompoundAssignment, ComputesInTheClassOnTheLeft)
{
    ExpectCompoundWidened<ZelDtLong, ZelDtShort>("long and short");
    ExpectCompoundWidened<ZelDtDouble, ZelDtShort>("double and short");
    ExpectCompoundWidened<ZelDtDouble, ZelDtLong>("double and long");
    ExpectCompoundWidened<ZelDtDecimal, ZelDtShort>("decimal and short");
    ExpectCompoundWidened<ZelDtDecimal, ZelDtLong>("decimal and long");
    ExpectCompoundWidened<ZelDtDecimal, ZelDtDouble>("decimal and double");
    ZelDtLong sum(100000);
    sum += ZelDtShort(-1);
    EXPECT_EQ(sum.GetValue(), 99999);
    ZelDtDecimal amount("0.1");
    amount += ZelDtDouble(0.2);
    amount -= ZelDtLong(1);
    EXPECT_EQ(Look(amount).text, "-0.7");
}

} // namespace
