/// The binary operators of the integer classes that give a number: every combination of operand
/// states against the rules, which stand here once more as a small model.

#include "tests/numeric/integer_testing.h"

#include "platform/formats/ZelFormat.h"

#include <cstring>
#include <limits>
#include <string>
#include <type_traits>

namespace {

using namespace zeltest;

constexpr char kOperators[] = {'+', '-', '*', '/'};

/// Numbers whose square leaves the range by one bit, and the limits.
template <typename V>
std::vector<int> Samples()
{
    const int half = 1 << (4 * sizeof(typename Facts<V>::Bits));
    return {0, 1, -1, 7, -2, half, kMax<V>, kMin<V>};
}

/// Plain operands, those included that the class itself does not hold.
template <typename V>
std::vector<int> PlainOperands()
{
    std::vector<int> values = Samples<V>();
    for (const int value : {kMax<ZelDtShort> + 1, kMin<ZelDtShort> - 1, 65536, 65543,
                            std::numeric_limits<int>::max(), std::numeric_limits<int>::min()})
        values.push_back(value);
    return values;
}

/// What an operation is to give: a number, or error 1 with a first cause (number 0: none).
struct Outcome {
    Number result;
    Error first;
};

template <typename V>
Error CauseOf(char op, unsigned long number)
{
    static const char* const kNames[] = {"Addieren", "Subtrahieren", "Multiplizieren",
                                         "Dividieren"};
    return ArithmeticError<V>(number, kNames[std::strchr("+-*/", op) - "+-*/"]);
}

template <typename V>
Outcome Arithmetic(char op, std::int64_t a, std::int64_t b)
{
    if (op == '/' && b == 0)
        return {{}, CauseOf<V>(op, 12)};
    std::int64_t r = 0;
    const bool exceeds64Bits = op == '+'   ? __builtin_add_overflow(a, b, &r)
                               : op == '-' ? __builtin_sub_overflow(a, b, &r)
                               : op == '*' ? __builtin_mul_overflow(a, b, &r)
                                           : (r = a / b, false);
    if (exceeds64Bits || !InRange<V>(r))
        return {{}, CauseOf<V>(op, 8)};
    return {Defined(r), {}};
}

/// A plain number that takes the place of a Null product or quotient.
template <typename V>
Outcome FromPlain(std::int64_t i)
{
    if (!InRange<V>(i))
        return {{}, RangeError<V>()};
    return {Defined(i), {}};
}

template <typename V>
Outcome Expected(char op, const Number& a, const Number& b)
{
    if (!Computes(a.state, b.state))
        return {Undefined(ZelDtGetDefaultWorkingMode()), {}};
    if ((op == '*' || op == '/') && IsNull(b.state))
        return {CopyOf<V>(a), {}};
    if (op == '*' && IsNull(a.state))
        return {CopyOf<V>(b), {}};
    return Arithmetic<V>(op, a.value, b.value);
}

/// With a plain number on the right.
template <typename V>
Outcome Expected(char op, const Number& a, int i)
{
    if (IsMissing(a.state))
        return {Undefined(ZelDtGetDefaultWorkingMode()), {}};
    if (op == '*' && IsNull(a.state))
        return FromPlain<V>(i);
    return Arithmetic<V>(op, a.value, i);
}

/// With a plain number on the left.
template <typename V>
Outcome Expected(char op, int i, const Number& b)
{
    if (IsMissing(b.state))
        return {Undefined(ZelDtGetDefaultWorkingMode()), {}};
    if ((op == '*' || op == '/') && IsNull(b.state))
        return FromPlain<V>(i);
    return Arithmetic<V>(op, i, b.value);
}

template <typename Left, typename Right>
auto Apply(char op, const Left& a, const Right& b)
{
    switch (op) {
    case '+':
        return a + b;
    case '-':
        return a - b;
    case '*':
        return a * b;
    default:
        return a / b;
    }
}

/// `arguments` follows the operator's sign in the signature; empty: whatever the library says.
template <typename V, typename Left, typename Right>
::testing::AssertionResult Check(char op, const Left& a, const Right& b, const Outcome& expected,
                                 const std::string& arguments)
{
    if (expected.first.number == 0) {
        const V result = Apply(op, a, b);
        if (Look(result) != expected.result)
            return ::testing::AssertionFailure()
                   << "expected " << expected.result << ", got " << Look(result);
        if (result.GetFormat() != nullptr)
            return ::testing::AssertionFailure() << "the result has a format";
        return ::testing::AssertionSuccess();
    }
    const Caught caught = Catch([&] { Apply(op, a, b); });
    std::string signature = caught.error.signature;
    if (!arguments.empty())
        signature = std::string("operator") + op + arguments;
    else if (signature.rfind(std::string("operator") + op + "(", 0) != 0)
        return ::testing::AssertionFailure() << "signature " << signature;
    return Matches(caught, ClassError<V>(1, signature), expected.first);
}

ZEL_INTEGER_SUITE(Operators);

TYPED_TEST(Operators, OnTwoValuesFollowTheRules)
{
    using V = TypeParam;
    const ZelFormat format(ZelFormat::ZelFoStandard);
    const std::vector<Number> numbers = Numbers(Samples<V>());
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const Number& a : numbers) {
            Given<V> left(a);
            left.it.SetFormat(&format);
            for (const Number& b : numbers) {
                Given<V> right(b);
                right.it.SetFormat(&format);
                for (const char op : kOperators)
                    ASSERT_TRUE(
                        Check<V>(op, left.it, right.it, Expected<V>(op, a, b), OwnArgument<V>()))
                        << a << ' ' << op << ' ' << b << ", default mode " << standard;
                ASSERT_EQ(Look(left.it), a);
                ASSERT_EQ(Look(right.it), b);
            }
        }
    }
}

TYPED_TEST(Operators, OnAValueAndItselfFollowTheRules)
{
    using V = TypeParam;
    for (const Number& number : Numbers(Samples<V>())) {
        const Given<V> given(number);
        for (const char op : kOperators)
            EXPECT_TRUE(
                Check<V>(op, given.it, given.it, Expected<V>(op, number, number), OwnArgument<V>()))
                << number << ' ' << op;
    }
}

TYPED_TEST(Operators, WithAPlainNumberOnTheRight)
{
    using V = TypeParam;
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const Number& a : Numbers(Samples<V>())) {
            const Given<V> left(a);
            for (const int i : PlainOperands<V>()) {
                for (const char op : kOperators) {
                    const Outcome expected = Expected<V>(op, a, i);
                    ASSERT_TRUE(Check<V>(op, left.it, i, expected, "(INT)"))
                        << a << ' ' << op << ' ' << i;
                    ASSERT_TRUE(Check<V>(op, left.it, static_cast<long>(i), expected, ""))
                        << a << ' ' << op << ' ' << i << 'L';
                }
            }
            ASSERT_EQ(Look(left.it), a);
        }
    }
}

TYPED_TEST(Operators, WithAPlainNumberOnTheLeft)
{
    using V = TypeParam;
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const Number& b : Numbers(Samples<V>())) {
            const Given<V> right(b);
            for (const int i : PlainOperands<V>()) {
                for (const char op : kOperators) {
                    const Outcome expected = Expected<V>(op, i, b);
                    ASSERT_TRUE(Check<V>(op, i, right.it, expected, ""))
                        << i << ' ' << op << ' ' << b;
                    ASSERT_TRUE(Check<V>(op, static_cast<long>(i), right.it, expected, ""))
                        << i << "L " << op << ' ' << b;
                }
            }
            ASSERT_EQ(Look(right.it), b);
        }
    }
}

TYPED_TEST(Operators, ComputeWithTheWholeOfALongOperand)
{
    using V = TypeParam;
    for (const int value : {-5, 0, 7, kMin<V>, kMax<V>}) {
        const V number(value);
        for (const long operand : OutsideLongs<V>()) {
            const std::int64_t big = operand;
            for (const char op : kOperators) {
                if (op == '*' && big == std::int64_t{1} << 62)
                    continue; // beyond the model
                EXPECT_TRUE(Check<V>(op, number, operand, Arithmetic<V>(op, value, big), ""))
                    << value << ' ' << op << ' ' << big;
                EXPECT_TRUE(Check<V>(op, operand, number, Arithmetic<V>(op, big, value), ""))
                    << big << ' ' << op << ' ' << value;
            }
        }
    }
}

TYPED_TEST(Operators, DoNotWrapAtTheLimitsOfALongOperand)
{
    using V = TypeParam;
    if constexpr (sizeof(long) > sizeof(typename Facts<V>::Bits)) {
        const V minusOne(-1);
        for (const long limit :
             {std::numeric_limits<long>::min(), std::numeric_limits<long>::max()}) {
            for (const char op : kOperators)
                EXPECT_TRUE(Check<V>(op, limit, minusOne, Outcome{{}, CauseOf<V>(op, 8)}, ""))
                    << op << limit;
            for (const char op : {'+', '-', '*'})
                EXPECT_TRUE(Check<V>(op, minusOne, limit, Outcome{{}, CauseOf<V>(op, 8)}, ""))
                    << op << limit;
            EXPECT_EQ(Look(minusOne / limit), Defined(0)) << limit;
        }
    }
}

TYPED_TEST(Operators, KeepNoLongBeyondTheRangeInPlaceOfANull)
{
    using V = TypeParam;
    const V null(ZelDtWmNull);
    for (const long big : OutsideLongs<V>()) {
        for (const Caught& caught :
             {Catch([&] { null* big; }), Catch([&] { big* null; }), Catch([&] { big / null; })}) {
            EXPECT_TRUE(Matches(caught, ClassError<V>(1, caught.error.signature))) << big;
            EXPECT_EQ(caught.first.number, 8u) << big;
        }
    }
}

template <typename V, typename T, typename = void>
struct Multiplies : std::false_type {};
template <typename V, typename T>
struct Multiplies<V, T, std::void_t<decltype(std::declval<const V&>() * std::declval<T>())>>
    : std::true_type {};

TYPED_TEST(Operators, RefuseFractions)
{
    using V = TypeParam;
    EXPECT_TRUE((Multiplies<V, int>::value));
    EXPECT_TRUE((Multiplies<V, long>::value));
    EXPECT_FALSE((Multiplies<V, double>::value));
}

// Without the model

/// A value as callers see it.
struct Seen {
    int defined;
    std::int64_t value;
};

template <typename V>
Seen See(const V& value)
{
    return {value.IsDefined(), StoredNumber(value)};
}

struct KnownResult {
    int a;
    char op;
    int b;
    int result;
};

struct KnownFailure {
    int a;
    char op;
    int b;
    unsigned long cause;
};

template <typename V>
struct Known;

template <>
struct Known<ZelDtLong> {
    static constexpr int kLeast = kMin<ZelDtLong>;
    static constexpr KnownResult kResults[] = {
        {kLeast, '/', 2, -1073741824},   {46340, '*', 46340, 2147395600},
        {65536, '*', -32768, kLeast},    {2147483645, '/', 2147483646, 0}, // not rounded up
        {2147483646, '/', 3, 715827882},
    };
    static constexpr KnownFailure kFailures[] = {
        {46341, '*', 46341, 8}, {65536, '*', 32768, 8}, {-46341, '*', 46341, 8}};
};

template <>
struct Known<ZelDtShort> {
    static constexpr int kLeast = kMin<ZelDtShort>;
    static constexpr int kMost = kMax<ZelDtShort>;
    static constexpr KnownResult kResults[] = {
        {kLeast, '/', 2, -16384}, {181, '*', 181, 32761}, {256, '*', -128, kLeast},
        {151, '*', 217, kMost},   {32765, '/', 32766, 0}, // not rounded up
        {32766, '/', 3, 10922},
    };
    static constexpr KnownFailure kFailures[] = {
        {182, '*', 182, 8}, {200, '*', 200, 8}, {256, '*', 128, 8}, {-182, '*', 182, 8}};
};

template <typename V>
std::vector<KnownResult> KnownResultsOf()
{
    constexpr int kLeast = kMin<V>;
    constexpr int kMost = kMax<V>;
    std::vector<KnownResult> rows = {
        {2, '+', 3, 5},           {2, '-', 3, -1},          {2, '*', -3, -6},
        {7, '/', 2, 3},           {7, '/', -2, -3},         {-7, '/', 2, -3},
        {-7, '/', -2, 3},         {1, '/', 2, 0},           {-1, '/', 2, 0},
        {0, '/', -5, 0},          {kMost, '+', 0, kMost},   {kMost, '-', kMost, 0},
        {kLeast, '+', kMost, -1}, {kLeast, '-', kLeast, 0}, {kLeast, '/', 1, kLeast},
        {kMost, '/', -1, -kMost}, {kMost, '*', -1, -kMost}, {kLeast, '/', kLeast, 1},
        {kMost, '/', kLeast, 0},
    };
    rows.insert(rows.end(), std::begin(Known<V>::kResults), std::end(Known<V>::kResults));
    return rows;
}

template <typename V>
std::vector<KnownFailure> KnownFailuresOf()
{
    constexpr int kLeast = kMin<V>;
    constexpr int kMost = kMax<V>;
    std::vector<KnownFailure> rows = {
        {kMost, '+', 1, 8},       {kLeast, '+', -1, 8},   {kLeast, '-', 1, 8},
        {kMost, '-', -1, 8},      {0, '-', kLeast, 8},    {kLeast, '*', -1, 8},
        {kLeast, '*', kLeast, 8}, {kMost, '*', kMost, 8}, {kLeast, '/', -1, 8},
        {0, '/', 0, 12},          {1, '/', 0, 12},        {kLeast, '/', 0, 12},
        {-1, '*', kLeast, 8},
    };
    rows.insert(rows.end(), std::begin(Known<V>::kFailures), std::end(Known<V>::kFailures));
    return rows;
}

ZEL_INTEGER_SUITE(KnownResults);

TYPED_TEST(KnownResults, OfDefinedNumbers)
{
    using V = TypeParam;
    for (const KnownResult& row : KnownResultsOf<V>()) {
        SCOPED_TRACE(::testing::Message() << row.a << ' ' << row.op << ' ' << row.b);
        EXPECT_EQ(Apply(row.op, V(row.a), V(row.b)).GetValue(), row.result);
        EXPECT_EQ(Apply(row.op, V(row.a), row.b).GetValue(), row.result);
        EXPECT_EQ(Apply(row.op, row.a, V(row.b)).GetValue(), row.result);
    }
}

TYPED_TEST(KnownResults, OutsideTheRange)
{
    using V = TypeParam;
    for (const KnownFailure& row : KnownFailuresOf<V>()) {
        SCOPED_TRACE(::testing::Message() << row.a << ' ' << row.op << ' ' << row.b);
        const std::string signature = std::string("operator") + row.op;
        EXPECT_TRUE(FailsWith([&] { Apply(row.op, V(row.a), V(row.b)); },
                              ClassError<V>(1, signature + OwnArgument<V>()),
                              CauseOf<V>(row.op, row.cause)));
        EXPECT_TRUE(FailsWith([&] { Apply(row.op, V(row.a), row.b); },
                              ClassError<V>(1, signature + "(INT)"),
                              CauseOf<V>(row.op, row.cause)));
    }
}

TYPED_TEST(KnownResults, OfNullOperands)
{
    using V = TypeParam;
    const V null(ZelDtWmNull);
    const V seven(7);
    const auto expect = [](const V& result, int defined, int value, const char* what) {
        EXPECT_EQ(See(result).defined, defined) << what;
        EXPECT_EQ(See(result).value, value) << what;
    };
    expect(null * seven, 1, 7, "null * 7");
    expect(seven * null, 1, 7, "7 * null");
    expect(null + seven, 1, 7, "null + 7");
    expect(seven + null, 1, 7, "7 + null");
    expect(null - seven, 1, -7, "null - 7");
    expect(seven / null, 1, 7, "7 / null");
    expect(null / seven, 1, 0, "null / 7");
    expect(null + null, 0, 0, "null + null");
    expect(null * null, 0, 0, "null * null");
    expect(null + 5, 1, 5, "null + plain 5");
    expect(null * 5, 1, 5, "null * plain 5");
    expect(null / 5, 1, 0, "null / plain 5");
    expect(5 / null, 1, 5, "plain 5 / null");
    expect(5 * null, 1, 5, "plain 5 * null");
    expect(5 - null, 1, 5, "plain 5 - null");
}

TYPED_TEST(KnownResults, OfMissingOperands)
{
    using V = TypeParam;
    const V missing(ZelDtWmMissing);
    const V seven(7);
    for (const char op : kOperators) {
        EXPECT_TRUE(Apply(op, missing, seven).IsMissing()) << op;
        EXPECT_TRUE(Apply(op, seven, missing).IsMissing()) << op;
        EXPECT_TRUE(Apply(op, missing, missing).IsMissing()) << op;
        EXPECT_TRUE(Apply(op, missing, 7).IsMissing()) << op;
        EXPECT_TRUE(Apply(op, 7, missing).IsMissing()) << op;
        EXPECT_TRUE(Apply(op, missing, 0).IsMissing()) << op;
    }
}

TYPED_TEST(KnownResults, NeutralElementsKeepModeAndFlagsOfTheOther)
{
    using V = TypeParam;
    V marked(ZelDtWmNull);
    marked = 7; // defined, in mode null, modified
    const V null(ZelDtWmNull);
    for (const V& result : {marked * null, null * marked, marked / null})
        EXPECT_EQ(Look(result), (Number{{ZelDtWmNull, 1, 1}, 7}));
    EXPECT_EQ(Look(marked + null), Defined(7));
    EXPECT_EQ(Look(marked * 1), Defined(7));
}

} // namespace
