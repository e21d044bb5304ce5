/// The binary operators of ZelDtLong that give a number: every combination of operand states
/// against the rules, which stand here once more as a small model.

#include "tests/numeric/long_testing.h"

#include "platform/formats/ZelFormat.h"

#include <cstring>
#include <limits>
#include <string>
#include <type_traits>

namespace {

using namespace zeltest;

const std::vector<int> kValues = {0, 1, -1, 7, -2, 65536, kMax, kMin};
constexpr char kOperators[] = {'+', '-', '*', '/'};

/// What an operation is to give: a number, or error 1 with a first cause.
struct Outcome {
    Number result;
    unsigned long cause = 0;
};

/// The four ways in which an operand counts.
enum Kind { D, M, N, A };

Kind KindOf(const State& state)
{
    if (state.defined)
        return D;
    return state.mode == ZelDtWmMissing ? M : state.mode == ZelDtWmNull ? N : A;
}

/// Whether an operation on two values computes; rows: left, columns: right.
constexpr bool kComputes[4][4] = {
    // D     M      N      A
    {true, false, true, true},    // D
    {false, false, false, false}, // M
    {true, false, false, false},  // N
    {true, false, false, false},  // A
};

Outcome Arithmetic(char op, std::int64_t a, std::int64_t b)
{
    if (op == '/' && b == 0)
        return {{}, 12};
    const std::int64_t r = op == '+' ? a + b : op == '-' ? a - b : op == '*' ? a * b : a / b;
    if (r < kMin || r > kMax)
        return {{}, 8};
    return {Defined(r)};
}

/// What the copy constructor makes of `n`.
Number CopyOf(const Number& n)
{
    return {n.state, n.state.defined ? n.value : 0};
}

Outcome Expected(char op, const Number& a, const Number& b)
{
    const Kind left = KindOf(a.state);
    const Kind right = KindOf(b.state);
    if (!kComputes[left][right])
        return {Undefined(ZelDtGetDefaultWorkingMode())};
    if ((op == '*' || op == '/') && right == N)
        return {CopyOf(a)};
    if (op == '*' && left == N)
        return {CopyOf(b)};
    return Arithmetic(op, a.value, b.value);
}

/// With a plain number on the right.
Outcome Expected(char op, const Number& a, int i)
{
    const Kind left = KindOf(a.state);
    if (left == M)
        return {Undefined(ZelDtGetDefaultWorkingMode())};
    if (op == '*' && left == N)
        return {Defined(i)};
    return Arithmetic(op, a.value, i);
}

/// With a plain number on the left.
Outcome Expected(char op, int i, const Number& b)
{
    const Kind right = KindOf(b.state);
    if (right == M)
        return {Undefined(ZelDtGetDefaultWorkingMode())};
    if ((op == '*' || op == '/') && right == N)
        return {Defined(i)};
    return Arithmetic(op, i, b.value);
}

template <typename Left, typename Right>
ZelDtLong Apply(char op, const Left& a, const Right& b)
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

Error CauseOf(char op, unsigned long number)
{
    static const char* const kNames[] = {"Addieren", "Subtrahieren", "Multiplizieren",
                                         "Dividieren"};
    return ArithmeticError(number, kNames[std::strchr("+-*/", op) - "+-*/"]);
}

/// `signature` without the operator's sign; null: whatever the library calls it.
template <typename Left, typename Right>
::testing::AssertionResult Check(char op, const Left& a, const Right& b, const Outcome& expected,
                                 const char* arguments)
{
    if (expected.cause == 0) {
        const ZelDtLong result = Apply(op, a, b);
        if (Look(result) != expected.result)
            return ::testing::AssertionFailure()
                   << "expected " << expected.result << ", got " << Look(result);
        if (result.GetFormat() != nullptr)
            return ::testing::AssertionFailure() << "the result has a format";
        return ::testing::AssertionSuccess();
    }
    const Caught caught = Catch([&] { Apply(op, a, b); });
    std::string signature = caught.error.signature;
    if (arguments != nullptr)
        signature = std::string("operator") + op + arguments;
    else if (signature.rfind(std::string("operator") + op + "(", 0) != 0)
        return ::testing::AssertionFailure() << "signature " << signature;
    return Matches(caught, LongError(1, signature), CauseOf(op, expected.cause));
}

TEST(Operators, OnTwoValuesFollowTheRules)
{
    const ZelFormat format(ZelFormat::ZelFoStandard);
    const std::vector<Number> numbers = Numbers(kValues);
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const Number& a : numbers) {
            Given left(a);
            left.it.SetFormat(&format);
            for (const Number& b : numbers) {
                Given right(b);
                right.it.SetFormat(&format);
                for (const char op : kOperators)
                    ASSERT_TRUE(Check(op, left.it, right.it, Expected(op, a, b), "(ZelDtLong&)"))
                        << a << ' ' << op << ' ' << b << ", default mode " << standard;
                ASSERT_EQ(Look(left.it), a);
                ASSERT_EQ(Look(right.it), b);
            }
        }
    }
}

TEST(Operators, OnAValueAndItselfFollowTheRules)
{
    for (const Number& number : Numbers(kValues)) {
        const Given given(number);
        for (const char op : kOperators)
            EXPECT_TRUE(Check(op, given.it, given.it, Expected(op, number, number), "(ZelDtLong&)"))
                << number << ' ' << op;
    }
}

TEST(Operators, WithAPlainNumberOnTheRight)
{
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const Number& a : Numbers(kValues)) {
            const Given left(a);
            for (const int i : kValues) {
                for (const char op : kOperators) {
                    const Outcome expected = Expected(op, a, i);
                    ASSERT_TRUE(Check(op, left.it, i, expected, "(INT)"))
                        << a << ' ' << op << ' ' << i;
                    ASSERT_TRUE(Check(op, left.it, static_cast<long>(i), expected, nullptr))
                        << a << ' ' << op << ' ' << i << 'L';
                }
            }
            ASSERT_EQ(Look(left.it), a);
        }
    }
}

TEST(Operators, WithAPlainNumberOnTheLeft)
{
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const Number& b : Numbers(kValues)) {
            const Given right(b);
            for (const int i : kValues) {
                for (const char op : kOperators) {
                    const Outcome expected = Expected(op, i, b);
                    ASSERT_TRUE(Check(op, i, right.it, expected, nullptr))
                        << i << ' ' << op << ' ' << b;
                    ASSERT_TRUE(Check(op, static_cast<long>(i), right.it, expected, nullptr))
                        << i << "L " << op << ' ' << b;
                }
            }
            ASSERT_EQ(Look(right.it), b);
        }
    }
}

TEST(Operators, ComputeWithTheWholeOfALongOperand)
{
    if constexpr (sizeof(long) > 4) {
        for (const int value : {-5, 0, 7, kMin, kMax}) {
            const ZelDtLong number(value);
            for (const std::int64_t big :
                 {std::int64_t{kMax} + 1, std::int64_t{kMin} - 1, std::int64_t{1} << 32,
                  std::int64_t{4000000007}, std::int64_t{-3000000000}}) {
                const long operand = static_cast<long>(big);
                for (const char op : kOperators) {
                    EXPECT_TRUE(Check(op, number, operand, Arithmetic(op, value, big), nullptr))
                        << value << ' ' << op << ' ' << big;
                    EXPECT_TRUE(Check(op, operand, number, Arithmetic(op, big, value), nullptr))
                        << big << ' ' << op << ' ' << value;
                }
            }
        }
    }
}

TEST(Operators, DoNotWrapAtTheLimitsOfALongOperand)
{
    if constexpr (sizeof(long) > 4) {
        const ZelDtLong minusOne(-1);
        for (const long limit :
             {std::numeric_limits<long>::min(), std::numeric_limits<long>::max()}) {
            for (const char op : kOperators)
                EXPECT_TRUE(Check(op, limit, minusOne, Outcome{{}, 8}, nullptr)) << op << limit;
            for (const char op : {'+', '-', '*'})
                EXPECT_TRUE(Check(op, minusOne, limit, Outcome{{}, 8}, nullptr)) << op << limit;
            EXPECT_EQ(Look(minusOne / limit), Defined(0)) << limit;
        }
    }
}

TEST(Operators, KeepNoLongOutside32BitsInPlaceOfANull)
{
    if constexpr (sizeof(long) > 4) {
        const ZelDtLong null(ZelDtWmNull);
        const long big = static_cast<long>(std::int64_t{1} << 32);
        for (const Caught& caught :
             {Catch([&] { null* big; }), Catch([&] { big* null; }), Catch([&] { big / null; })}) {
            EXPECT_TRUE(Matches(caught, LongError(1, caught.error.signature)));
            EXPECT_EQ(caught.first.number, 8u);
        }
    }
}

/// A value as callers see it, without the model.
struct Seen {
    int defined;
    long value;
};

Seen See(const ZelDtLong& value)
{
    return {value.IsDefined(), static_cast<long>(value)};
}

TEST(KnownResults, OfDefinedNumbers)
{
    const struct {
        int a;
        char op;
        int b;
        long result;
    } rows[] = {
        {2, '+', 3, 5},
        {2, '-', 3, -1},
        {2, '*', -3, -6},
        {7, '/', 2, 3},
        {7, '/', -2, -3},
        {-7, '/', 2, -3},
        {-7, '/', -2, 3},
        {1, '/', 2, 0},
        {-1, '/', 2, 0},
        {0, '/', -5, 0},
        {kMax, '+', 0, kMax},
        {kMax, '-', kMax, 0},
        {kMin, '+', kMax, -1},
        {kMin, '-', kMin, 0},
        {kMin, '/', 1, kMin},
        {kMin, '/', 2, -1073741824},
        {kMax, '/', -1, -kMax},
        {kMax, '*', -1, -kMax},
        {kMin, '/', kMin, 1},
        {kMax, '/', kMin, 0},
        {46340, '*', 46340, 2147395600},
        {65536, '*', -32768, kMin},
        {2147483645, '/', 2147483646, 0}, // not rounded up
        {2147483646, '/', 3, 715827882},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(::testing::Message() << row.a << ' ' << row.op << ' ' << row.b);
        EXPECT_EQ(Apply(row.op, ZelDtLong(row.a), ZelDtLong(row.b)).GetValue(), row.result);
        EXPECT_EQ(Apply(row.op, ZelDtLong(row.a), row.b).GetValue(), row.result);
        EXPECT_EQ(Apply(row.op, row.a, ZelDtLong(row.b)).GetValue(), row.result);
    }
}

TEST(KnownResults, OutsideTheRange)
{
    const struct {
        int a;
        char op;
        int b;
        unsigned long cause;
    } rows[] = {
        {kMax, '+', 1, 8},    {kMin, '+', -1, 8},   {kMin, '-', 1, 8},      {kMax, '-', -1, 8},
        {0, '-', kMin, 8},    {kMin, '*', -1, 8},   {46341, '*', 46341, 8}, {65536, '*', 32768, 8},
        {kMin, '*', kMin, 8}, {kMax, '*', kMax, 8}, {kMin, '/', -1, 8},     {0, '/', 0, 12},
        {1, '/', 0, 12},      {kMin, '/', 0, 12},   {-1, '*', kMin, 8},     {-46341, '*', 46341, 8},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(::testing::Message() << row.a << ' ' << row.op << ' ' << row.b);
        const std::string signature = std::string("operator") + row.op;
        EXPECT_TRUE(FailsWith([&] { Apply(row.op, ZelDtLong(row.a), ZelDtLong(row.b)); },
                              LongError(1, signature + "(ZelDtLong&)"),
                              CauseOf(row.op, row.cause)));
        EXPECT_TRUE(FailsWith([&] { Apply(row.op, ZelDtLong(row.a), row.b); },
                              LongError(1, signature + "(INT)"), CauseOf(row.op, row.cause)));
    }
}

TEST(KnownResults, OfNullOperands)
{
    const ZelDtLong null(ZelDtWmNull);
    const ZelDtLong seven(7);
    const auto expect = [](const ZelDtLong& result, int defined, long value, const char* what) {
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

TEST(KnownResults, OfMissingOperands)
{
    const ZelDtLong missing(ZelDtWmMissing);
    const ZelDtLong seven(7);
    for (const char op : kOperators) {
        EXPECT_TRUE(Apply(op, missing, seven).IsMissing()) << op;
        EXPECT_TRUE(Apply(op, seven, missing).IsMissing()) << op;
        EXPECT_TRUE(Apply(op, missing, missing).IsMissing()) << op;
        EXPECT_TRUE(Apply(op, missing, 7).IsMissing()) << op;
        EXPECT_TRUE(Apply(op, 7, missing).IsMissing()) << op;
        EXPECT_TRUE(Apply(op, missing, 0).IsMissing()) << op;
    }
}

TEST(KnownResults, NeutralElementsKeepModeAndFlagsOfTheOther)
{
    ZelDtLong marked(ZelDtWmNull);
    marked = 7; // defined, in mode null, modified
    const ZelDtLong null(ZelDtWmNull);
    for (const ZelDtLong& result : {marked * null, null * marked, marked / null})
        EXPECT_EQ(Look(result), (Number{{ZelDtWmNull, 1, 1}, 7}));
    EXPECT_EQ(Look(marked + null), Defined(7));
    EXPECT_EQ(Look(marked * 1), Defined(7));
}

template <typename T, typename = void>
struct Multiplies : std::false_type {};
template <typename T>
struct Multiplies<T, std::void_t<decltype(std::declval<const ZelDtLong&>() * std::declval<T>())>>
    : std::true_type {};

TEST(Operators, RefuseFractions)
{
    EXPECT_TRUE(Multiplies<int>::value);
    EXPECT_TRUE(Multiplies<long>::value);
    EXPECT_FALSE(Multiplies<double>::value);
}

} // namespace
