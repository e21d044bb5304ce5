/// The binary operators of ZelDtDouble that give a number: every combination of operand states
/// against the rules, which stand here once more as a small model.

#include "tests/numeric/double_testing.h"

#include "platform/formats/ZelFormat.h"

#include <climits>
#include <string>

namespace {

using namespace zeltest;

constexpr char kOperators[] = {'+', '-', '*', '/'};

const std::vector<double> kValues = {0.0,      -0.0,      1.0,       -2.5,       0.1,
                                     kLargest, kSmallest, kInfinity, -kInfinity, kNaN};
const std::vector<double> kPlainDoubles = {0.0,      -0.0,      1.0,       -2.5, 0.1,
                                           kLargest, kSmallest, kInfinity, kNaN};
const std::vector<int> kPlainInts = {0, 1, -3, 7, INT_MAX, INT_MIN};

/// What an operation is to give: a number, or error 1 because of a division by zero.
struct Outcome {
    Real result;
    bool divisionByZero = false;
};

double Compute(char op, double a, double b)
{
    return op == '+' ? a + b : op == '-' ? a - b : op == '*' ? a * b : a / b;
}

Outcome Arithmetic(char op, double a, double b)
{
    if (op == '/' && (b == 0.0 || std::isnan(b)))
        return {{}, true};
    return {DefinedReal(Compute(op, a, b))};
}

/// A copy keeps everything.
Outcome CopyOf(const Real& r)
{
    return {r};
}

Outcome Expected(char op, const Real& a, const Real& b)
{
    if (!Computes(a.state, b.state))
        return {UndefinedReal(ZelDtGetDefaultWorkingMode())};
    if (op == '*' && IsNull(a.state))
        return CopyOf(b);
    if ((op == '*' || op == '/') && IsNull(b.state))
        return CopyOf(a);
    return Arithmetic(op, a.value, b.value);
}

/// With a plain number on the right.
Outcome Expected(char op, const Real& a, double b)
{
    if (IsMissing(a.state))
        return {UndefinedReal(ZelDtGetDefaultWorkingMode())};
    return Arithmetic(op, a.value, b);
}

/// With a plain number on the left.
Outcome Expected(char op, double a, const Real& b)
{
    if (IsMissing(b.state))
        return CopyOf(b);
    if ((op == '*' || op == '/') && IsNull(b.state))
        return {DefinedReal(a)};
    return Arithmetic(op, a, b.value);
}

template <typename Left, typename Right>
ZelDtDouble Apply(char op, const Left& a, const Right& b)
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

/// `signature` is that of the division, the only operator that fails; null: whatever the library
/// calls it.
template <typename Left, typename Right>
::testing::AssertionResult Check(char op, const Left& a, const Right& b, const Outcome& expected,
                                 const char* signature)
{
    if (!expected.divisionByZero) {
        const ZelDtDouble result = Apply(op, a, b);
        if (!(Look(result) == expected.result))
            return ::testing::AssertionFailure()
                   << "expected " << expected.result << ", got " << Look(result);
        if (result.GetFormat() != nullptr)
            return ::testing::AssertionFailure() << "the result has a format";
        return ::testing::AssertionSuccess();
    }
    const Caught caught = Catch([&] { Apply(op, a, b); });
    const std::string full = signature != nullptr ? signature : caught.error.signature;
    if (full.rfind("operator/(", 0) != 0)
        return ::testing::AssertionFailure() << "signature " << full;
    return Matches(caught, DoubleError(1, full), DoubleError(12, full));
}

TEST(Operators, OnTwoValuesFollowTheRules)
{
    const ZelFormat format(ZelFormat::ZelFoStandard);
    const std::vector<Real> reals = Reals(kValues);
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const Real& a : reals) {
            Given<ZelDtDouble> left(a);
            left.it.SetFormat(&format);
            for (const Real& b : reals) {
                Given<ZelDtDouble> right(b);
                right.it.SetFormat(&format);
                for (const char op : kOperators)
                    ASSERT_TRUE(
                        Check(op, left.it, right.it, Expected(op, a, b), "operator/(ZelDtDouble&)"))
                        << a << ' ' << op << ' ' << b << ", default mode " << standard;
                ASSERT_EQ(Look(right.it), b);
            }
            ASSERT_EQ(Look(left.it), a);
        }
    }
}

TEST(Operators, OnAValueAndItselfFollowTheRules)
{
    for (const Real& real : Reals(kValues)) {
        const Given<ZelDtDouble> given(real);
        for (const char op : kOperators)
            EXPECT_TRUE(
                Check(op, given.it, given.it, Expected(op, real, real), "operator/(ZelDtDouble&)"))
                << real << ' ' << op;
    }
}

TEST(Operators, WithAPlainNumberOnTheRight)
{
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const Real& a : Reals(kValues)) {
            const Given<ZelDtDouble> left(a);
            for (const char op : kOperators) {
                for (const double d : kPlainDoubles)
                    ASSERT_TRUE(
                        Check(op, left.it, d, Expected(op, a, d), "operator/(const double&)"))
                        << a << ' ' << op << ' ' << d;
                for (const int i : kPlainInts) {
                    const Outcome expected = Expected(op, a, static_cast<double>(i));
                    ASSERT_TRUE(Check(op, left.it, i, expected, "operator/(INT)"))
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
        for (const Real& b : Reals(kValues)) {
            const Given<ZelDtDouble> right(b);
            for (const char op : kOperators) {
                for (const double d : kPlainDoubles)
                    ASSERT_TRUE(Check(op, d, right.it, Expected(op, d, b),
                                      "operator/(double,ZelDtDouble&)"))
                        << d << ' ' << op << ' ' << b;
                for (const int i : kPlainInts) {
                    const Outcome expected = Expected(op, static_cast<double>(i), b);
                    ASSERT_TRUE(Check(op, i, right.it, expected, "operator/(INT,ZelDtDouble&)"))
                        << i << ' ' << op << ' ' << b;
                    ASSERT_TRUE(Check(op, static_cast<long>(i), right.it, expected, nullptr))
                        << i << "L " << op << ' ' << b;
                }
            }
            ASSERT_EQ(Look(right.it), b);
        }
    }
}

TEST(Operators, WithALongConvertItAsAWhole)
{
    if constexpr (sizeof(long) > 4) {
        const long million = static_cast<long>(std::int64_t{1000000000000});
        EXPECT_EQ(Look(ZelDtDouble(0.5) + million), DefinedReal(1000000000000.5));
        EXPECT_EQ(Look(million - ZelDtDouble(0.5)), DefinedReal(999999999999.5));
        EXPECT_EQ(Look(ZelDtDouble(0.5) * million), DefinedReal(500000000000.0));
        EXPECT_EQ(Look(million / ZelDtDouble(0.5)), DefinedReal(2000000000000.0));
        // 2^53 + 1 is no double; it rounds to the even neighbour.
        const long odd = static_cast<long>((std::int64_t{1} << 53) + 1);
        EXPECT_EQ(Look(ZelDtDouble(0.0) + odd), DefinedReal(9007199254740992.0));
        EXPECT_EQ(Look(ZelDtDouble(odd)), DefinedReal(9007199254740992.0));
    }
}

// Without the model

TEST(KnownResults, OfDefinedNumbers)
{
    const struct {
        double a;
        char op;
        double b;
        double result;
    } rows[] = {
        {0.1, '+', 0.2, 0.30000000000000004},
        {0.5, '+', 0.25, 0.75},
        {1.0, '-', 0.75, 0.25},
        {1.5, '*', -2.0, -3.0},
        {7.0, '/', 2.0, 3.5},
        {7.0, '/', -2.0, -3.5},
        {1.0, '/', 3.0, 0.3333333333333333},
        {9007199254740992.0, '+', 1.0, 9007199254740992.0}, // lost in 53 bits
        {kLargest, '+', kLargest, kInfinity},
        {kLargest, '*', -2.0, -kInfinity},
        {kSmallest, '/', 2.0, 0.0},
        {-kSmallest, '/', 2.0, -0.0},
        {kSmallestNormal, '/', 2.0, 1.1125369292536007e-308},
        {0.0, '/', -5.0, -0.0},
        {0.0, '*', kInfinity, kNaN},
        {1.0, '/', kInfinity, 0.0},
        {kInfinity, '-', kInfinity, kNaN},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(::testing::Message() << row.a << ' ' << row.op << ' ' << row.b);
        EXPECT_EQ(Look(Apply(row.op, ZelDtDouble(row.a), ZelDtDouble(row.b))),
                  DefinedReal(row.result));
        EXPECT_EQ(Look(Apply(row.op, ZelDtDouble(row.a), row.b)), DefinedReal(row.result));
        EXPECT_EQ(Look(Apply(row.op, row.a, ZelDtDouble(row.b))), DefinedReal(row.result));
    }
}

TEST(KnownResults, OfNullOperands)
{
    const ZelDtDouble null(ZelDtWmNull);
    const ZelDtDouble seven(7.5);
    const auto expect = [](const ZelDtDouble& result, int defined, double value, const char* what) {
        EXPECT_EQ(result.IsDefined(), defined) << what;
        EXPECT_EQ(static_cast<double>(result), value) << what;
    };
    expect(null * seven, 1, 7.5, "null * 7.5");
    expect(seven * null, 1, 7.5, "7.5 * null");
    expect(null + seven, 1, 7.5, "null + 7.5");
    expect(seven + null, 1, 7.5, "7.5 + null");
    expect(null - seven, 1, -7.5, "null - 7.5");
    expect(seven / null, 1, 7.5, "7.5 / null");
    expect(null / seven, 1, 0.0, "null / 7.5");
    expect(null + null, 0, 0.0, "null + null");
    expect(null * null, 0, 0.0, "null * null");
    expect(null / null, 0, 0.0, "null / null");
    expect(null + 5.5, 1, 5.5, "null + plain 5.5");
    expect(null * 5.5, 1, 0.0, "null * plain 5.5"); // unlike an integer
    expect(null * 5, 1, 0.0, "null * plain 5");
    expect(null / 5.5, 1, 0.0, "null / plain 5.5");
    expect(5.5 * null, 1, 5.5, "plain 5.5 * null");
    expect(5 * null, 1, 5.0, "plain 5 * null");
    expect(5.5 / null, 1, 5.5, "plain 5.5 / null");
    expect(5 / null, 1, 5.0, "plain 5 / null");
    expect(0.0 / null, 1, 0.0, "plain 0 / null");
    expect(5.5 - null, 1, 5.5, "plain 5.5 - null");
    expect(5 + null, 1, 5.0, "plain 5 + null");
}

TEST(KnownResults, OfMissingOperands)
{
    const ZelDtDouble missing(ZelDtWmMissing);
    const ZelDtDouble seven(7.0);
    for (const char op : kOperators) {
        EXPECT_TRUE(Apply(op, missing, seven).IsMissing()) << op;
        EXPECT_TRUE(Apply(op, seven, missing).IsMissing()) << op;
        EXPECT_TRUE(Apply(op, missing, missing).IsMissing()) << op;
        EXPECT_TRUE(Apply(op, missing, 7.0).IsMissing()) << op;
        EXPECT_TRUE(Apply(op, missing, 0.0).IsMissing()) << op;
        EXPECT_TRUE(Apply(op, missing, 0).IsMissing()) << op;
        EXPECT_TRUE(Apply(op, 7.0, missing).IsMissing()) << op;
        EXPECT_TRUE(Apply(op, 0, missing).IsMissing()) << op;
    }
}

TEST(KnownResults, OfPlainNumbersAndAMissingValueAreACopyOfIt)
{
    // Missing, although the default mode makes results defined; modified, with a number.
    const DefaultMode guard(ZelDtWmAlwaysDefined);
    const Real real{{ZelDtWmMissing, 0, 1}, 2.5};
    const Given<ZelDtDouble> given(real);
    for (const char op : kOperators) {
        EXPECT_EQ(Look(Apply(op, 1.0, given.it)), real) << op;
        EXPECT_EQ(Look(Apply(op, 1, given.it)), real) << op;
        EXPECT_EQ(Look(Apply(op, given.it, 1.0)), DefinedReal(0.0)) << op;
    }
}

TEST(KnownResults, NeutralElementsKeepModeAndFlagsOfTheOther)
{
    ZelDtDouble marked(ZelDtWmNull);
    marked = 7.5; // defined, in mode null, modified
    const ZelDtDouble null(ZelDtWmNull);
    for (const ZelDtDouble& result : {marked * null, null * marked, marked / null})
        EXPECT_EQ(Look(result), (Real{{ZelDtWmNull, 1, 1}, 7.5}));
    EXPECT_EQ(Look(marked + null), DefinedReal(7.5));
    EXPECT_EQ(Look(marked * 1), DefinedReal(7.5));
    EXPECT_EQ(Look(1 * marked), DefinedReal(7.5));
}

TEST(Division, ByZeroOfEitherSignAndByNaNIsAFollowUpError)
{
    const ZelDtDouble one(1.0);
    const auto failure = [](const char* signature) { return DoubleError(1, signature); };
    const auto cause = [](const char* signature) { return DoubleError(12, signature); };
    for (const double zero : {0.0, -0.0, kNaN}) {
        const ZelDtDouble divisor(zero);
        const char* const byValue = "operator/(ZelDtDouble&)";
        EXPECT_TRUE(FailsWith([&] { one / divisor; }, failure(byValue), cause(byValue)));
        const char* const byDouble = "operator/(const double&)";
        EXPECT_TRUE(FailsWith([&] { one / zero; }, failure(byDouble), cause(byDouble)));
        const char* const ofDouble = "operator/(double,ZelDtDouble&)";
        EXPECT_TRUE(FailsWith([&] { 1.0 / divisor; }, failure(ofDouble), cause(ofDouble)));
        EXPECT_TRUE(FailsWith([&] { 0.0 / divisor; }, failure(ofDouble), cause(ofDouble)));
        const char* const ofInt = "operator/(INT,ZelDtDouble&)";
        EXPECT_TRUE(FailsWith([&] { 1 / divisor; }, failure(ofInt), cause(ofInt)));
    }
    const char* const byInt = "operator/(INT)";
    EXPECT_TRUE(FailsWith([&] { one / 0; }, failure(byInt), cause(byInt)));
    EXPECT_EQ(Look(one), DefinedReal(1.0));
}

} // namespace
