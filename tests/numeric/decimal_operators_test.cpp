/// The binary operators of ZelDtDecimal that give a number: every combination of operand states
/// and numbers against the model, and results worked out by hand.

#include "tests/numeric/decimal_testing.h"

#include "platform/formats/ZelFormat.h"

#include <limits>
#include <map>
#include <string>
#include <vector>

namespace {

using namespace zeltest;

const std::vector<std::string> kTexts = {"0",     "0.00",   "1",   "-1",     "2.50",
                                         "-7.25", "0.0003", kTiny, kLargest, kSmallest};
constexpr char kOperators[] = {'+', '-', '*', '/', '%'};
const std::vector<int> kInts = {0, 1, -1, 2, 10, kMaxInt, kMinInt};

struct PlainDouble {
    double value;
    Result number;
};

const std::vector<PlainDouble>& Doubles()
{
    static const std::vector<PlainDouble> rows = {
        {0.0, FromText("0")},
        {-0.0, FromText("0")},
        {0.1, FromText("0.1")},
        {-2.5, FromText("-2.5")},
        {3.0, FromText("3")},
        {1e27, FromText("1000000000000000000000000000")},
        {1e28, std::nullopt},
        {std::numeric_limits<double>::quiet_NaN(), std::nullopt},
        {std::numeric_limits<double>::infinity(), std::nullopt},
        {-std::numeric_limits<double>::max(), std::nullopt},
    };
    return rows;
}

/// A double is zero where a comparison with 0.0 cannot tell them apart: a NaN is.
bool CountsAsZero(double value)
{
    return !(value < 0.0 || value > 0.0);
}

template <typename Left, typename Right>
ZelDtDecimal Apply(char op, const Left& a, const Right& b)
{
    switch (op) {
    case '+':
        return a + b;
    case '-':
        return a - b;
    case '*':
        return a * b;
    case '/':
        return a / b;
    default:
        return a % b;
    }
}

/// "operator" and its sign with these arguments; null: with any.
template <typename Left, typename Right>
::testing::AssertionResult Check(char op, const Left& a, const Right& b, const Outcome& expected,
                                 const char* arguments)
{
    const std::string name = std::string("operator") + op;
    if (expected.cause == 0) {
        try {
            const ZelDtDecimal result = Apply(op, a, b);
            if (Look(result) != expected.result)
                return ::testing::AssertionFailure()
                       << "expected " << expected.result << ", got " << Look(result);
            if (result.GetFormat() != nullptr)
                return ::testing::AssertionFailure() << "the result has a format";
            return ::testing::AssertionSuccess();
        } catch (ZelDtExcep* e) {
            const Error error = ErrorOf(*e);
            delete e;
            return ::testing::AssertionFailure()
                   << "expected " << expected.result << ", got " << error;
        }
    }
    const Caught caught = Catch([&] { Apply(op, a, b); });
    if (caught.disturbance.empty() && arguments == nullptr &&
        caught.error.signature.rfind(name + "(", 0) != 0)
        return ::testing::AssertionFailure() << "signature " << caught.error.signature;
    const std::string signature = arguments == nullptr ? caught.error.signature : name + arguments;
    return Matches(caught, OperatorError(1, signature),
                   expected.cause == 12 ? OperatorError(12, signature) : OverflowError());
}

/// The arguments of a member with two decimals, as its signature writes them.
const char* Members(char op)
{
    return op == '-' ? "(ZelDtDecimal)" : "(ZelDtDecimal&)";
}

/// What the model says, worked out once for each pair of numbers.
class Known {
public:
    template <typename Work>
    const Outcome& Of(const std::string& key, Work&& work)
    {
        auto it = m_known.find(key);
        if (it == m_known.end())
            it = m_known.emplace(key, work()).first;
        return it->second;
    }

private:
    std::map<std::string, Outcome> m_known;
};

std::string Key(char op, const Number& a, const std::string& b)
{
    return op + a.text + '/' + std::to_string(static_cast<int>(KindOf(a.state))) + '/' + b;
}

TEST(Operators, OnTwoValuesFollowTheRules)
{
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        Known known;
        for (const Number& a : Unmodified(kTexts)) {
            const GivenDecimal left(a);
            for (const Number& b : Unmodified(kTexts)) {
                const GivenDecimal right(b);
                for (const char op : kOperators) {
                    const std::string key = Key(
                        op, a, b.text + '/' + std::to_string(static_cast<int>(KindOf(b.state))));
                    const Outcome& expected = known.Of(key, [&] { return Expected(op, a, b); });
                    ASSERT_TRUE(Check(op, left.it, right.it, expected, Members(op)))
                        << a << ' ' << op << ' ' << b << ", default mode " << standard;
                }
            }
            ASSERT_EQ(Look(left.it), a);
        }
    }
}

TEST(Operators, LeaveOperandsAloneAndTakeNeitherFlagsNorFormat)
{
    const ZelFormat format(ZelFormat::ZelFoStandard);
    for (const Number& a : Numbers({"0", "2.50", kLargest})) {
        GivenDecimal left(a);
        left.it.SetFormat(&format);
        for (const Number& b : Numbers({"0", "-7.25"})) {
            GivenDecimal right(b);
            right.it.SetFormat(&format);
            for (const char op : kOperators)
                ASSERT_TRUE(Check(op, left.it, right.it, Expected(op, a, b), Members(op)))
                    << a << ' ' << op << ' ' << b;
            ASSERT_EQ(Look(left.it), a);
            ASSERT_EQ(Look(right.it), b);
            ASSERT_EQ(left.it.GetFormat(), &format);
            ASSERT_EQ(right.it.GetFormat(), &format);
        }
    }
}

TEST(Operators, OnAValueAndItselfFollowTheRules)
{
    for (const Number& number : Unmodified(kTexts)) {
        const GivenDecimal given(number);
        for (const char op : kOperators)
            EXPECT_TRUE(Check(op, given.it, given.it, Expected(op, number, number), Members(op)))
                << number << ' ' << op;
    }
}

TEST(Operators, WithAnIntegerOnTheRight)
{
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const Number& a : Unmodified(kTexts)) {
            const GivenDecimal left(a);
            for (const int i : kInts) {
                const Decimal plain = FromText(std::to_string(i));
                for (const char op : kOperators) {
                    const Outcome expected = ExpectedRight(op, a, plain);
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

TEST(Operators, WithADoubleOnTheRight)
{
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const Number& a : Unmodified(kTexts)) {
            const GivenDecimal left(a);
            for (const PlainDouble& d : Doubles())
                for (const char op : kOperators)
                    ASSERT_TRUE(
                        Check(op, left.it, d.value, ExpectedRight(op, a, d.number), "(double)"))
                        << a << ' ' << op << ' ' << d.value;
            ASSERT_EQ(Look(left.it), a);
        }
    }
}

TEST(Operators, WithAnIntegerOnTheLeft)
{
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const Number& x : Numbers(kTexts)) {
            const GivenDecimal right(x);
            for (const int i : kInts) {
                const Decimal plain = FromText(std::to_string(i));
                for (const char op : kOperators) {
                    const Outcome expected = ExpectedLeft(op, plain, i == 0, x);
                    ASSERT_TRUE(Check(op, i, right.it, expected, "(INT,ZelDtDecimal&)"))
                        << i << ' ' << op << ' ' << x;
                    ASSERT_TRUE(Check(op, static_cast<long>(i), right.it, expected, nullptr))
                        << i << "L " << op << ' ' << x;
                }
            }
            ASSERT_EQ(Look(right.it), x);
        }
    }
}

TEST(Operators, WithADoubleOnTheLeft)
{
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const Number& x : Numbers(kTexts)) {
            const GivenDecimal right(x);
            for (const PlainDouble& d : Doubles()) {
                for (const char op : kOperators) {
                    const Outcome expected = ExpectedLeft(op, d.number, CountsAsZero(d.value), x);
                    ASSERT_TRUE(Check(op, d.value, right.it, expected, "(double,ZelDtDecimal&)"))
                        << d.value << ' ' << op << ' ' << x;
                }
            }
            ASSERT_EQ(Look(right.it), x);
        }
    }
}

TEST(Operators, ComputeWithTheWholeOfALongOperand)
{
    for (const long limit : {std::numeric_limits<long>::min(), std::numeric_limits<long>::max()}) {
        const Decimal plain = FromText(std::to_string(limit));
        for (const char* text : {"0", "-1", "2.50", "0.0003", kLargest}) {
            const ZelDtDecimal value(text);
            const Number number = Defined(text);
            for (const char op : kOperators) {
                EXPECT_TRUE(Check(op, value, limit, ExpectedRight(op, number, plain), nullptr))
                    << text << ' ' << op << ' ' << limit;
                EXPECT_TRUE(
                    Check(op, limit, value, ExpectedLeft(op, plain, false, number), nullptr))
                    << limit << ' ' << op << ' ' << text;
            }
        }
    }
}

// Results worked out by hand; nothing here goes through the model

/// The number with all its places.
struct Row {
    const char* a;
    char op;
    const char* b;
    const char* result;
};

TEST(KnownResults, OfDefinedNumbers)
{
    const Row rows[] = {
        // the larger number of places
        {"1.5", '+', "2.25", "3.75"},
        {"1.50", '+', "1.5", "3.00"},
        {"5", '-', "0.001", "4.999"},
        {"1.50", '-', "1.5", "0.00"},
        {"-2", '-', "-3.0", "1.0"},
        {"0", '-', "2.50", "-2.50"},
        {"0.1", '+', "0.2", "0.3"},
        {"99999999999999999999999999.9", '+', "0.1", "100000000000000000000000000.0"},
        {"99999999999999999999.99999999", '-', "0.00000001", "99999999999999999999.99999998"},
        // the places of both
        {"1.5", '*', "1.5", "2.25"},
        {"1.50", '*', "2", "3.00"},
        {"-0.3", '*', "0.3", "-0.09"},
        {"-1", '*', "0.00", "0.00"},
        {"99999999999999", '*', "99999999999999", "9999999999999800000000000001"},
        {"1000000000000", '*', "0.000000000001", "1.000000000000"},
        // exact, with the fewest places, but not fewer than the operands' places differ by
        {"10", '/', "4", "2.5"},
        {"100", '/', "10", "10"},
        {"1.00", '/', "2", "0.50"},
        {"6.00", '/', "1.50", "4"},
        {"6.0", '/', "0.05", "120"},
        {"1", '/', "8", "0.125"},
        {"-7.5", '/', "2.5", "-3"},
        {"0", '/', "7", "0"},
        {"0.00", '/', "-7.5", "0.0"},
        {"1", '/', "0.000000000000000000000000001", "1000000000000000000000000000"},
        {"1", '/', "1000000000000000000000000000", kTiny},
        // else as many digits as fit
        {"1", '/', "3", "0.333333333333333333333333333"},
        {"-2", '/', "3", "-0.666666666666666666666666667"},
        {"10", '/', "3", "3.333333333333333333333333333"},
        {"100", '/', "7", "14.28571428571428571428571429"},
        {"1000000000000000000000000000", '/', "3", "333333333333333333333333333.3"},
        {kLargest, '/', "7", "1428571428571428571428571428"}, // and a seventh
        {kLargest, '/', "8", "1250000000000000000000000000"}, // exactly ...9999.875
        {kTiny, '/', "3", "0.000000000000000000000000000"},
        {kTiny, '/', "2", kTiny}, // a tie goes away from zero
        // what a whole number of divisors leaves
        {"7.5", '%', "2", "1.5"},
        {"-7.5", '%', "2", "-1.5"},
        {"7.5", '%', "-2", "1.5"},
        {"7.25", '%', "2", "1.25"},
        {"-7.25", '%', "2", "-1.25"},
        {"1.07", '%', "0.1", "0.07"},
        {"6", '%', "1.50", "0.00"},
        {"2", '%', "7.125", "2.000"},
        {"1000000000000000000000000000", '%', "0.7", "0.4"},
        {kLargest, '%', "7", "3"},
        {kLargest, '%', kTiny, "0.000000000000000000000000000"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(::testing::Message() << row.a << ' ' << row.op << ' ' << row.b);
        const Caught caught = Catch([&] {
            const ZelDtDecimal result = Apply(row.op, ZelDtDecimal(row.a), ZelDtDecimal(row.b));
            EXPECT_EQ(NumberOf(result), row.result);
            EXPECT_EQ(ToText(*Compute(row.op, FromText(row.a), FromText(row.b))), row.result);
        });
        EXPECT_EQ(caught.disturbance, "nothing") << caught.error;
    }
}

TEST(KnownResults, RoundOnceAwayFromZero)
{
    const Row rows[] = {
        // 28 digits, places first
        {"9999999999999999999999999999", '+', "0.4", kLargest},
        {"-9999999999999999999999999999", '-', "0.4", kSmallest},
        {"1000000000000000000000000000", '+', "0.5", "1000000000000000000000000001"},
        {"-1000000000000000000000000000", '-', "0.5", "-1000000000000000000000000001"},
        {"1000000000000000000000000000", '+', "0.49", "1000000000000000000000000000"},
        {"100000000000000000000000000.5", '+', "0.05", "100000000000000000000000000.6"},
        {"9.999999999999999999999999999", '+', kTiny, "10.00000000000000000000000000"},
        {"99999999999999.5", '*', "10000000000000.5", "1000000000000045000000000000"},
        // 27 places
        {"0.00000000000005", '*', "0.00000000000001", kTiny},
        {"0.00000000000004", '*', "0.00000000000001", "0.000000000000000000000000000"},
        {"-0.00000000000005", '*', "0.00000000000001", "-0.000000000000000000000000001"},
        {"0.00000000000025", '*', "0.00000000000001", "0.000000000000000000000000003"},
        {"1.0000000000000000000000000", '*', "1.000", "1.000000000000000000000000000"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(::testing::Message() << row.a << ' ' << row.op << ' ' << row.b);
        const ZelDtDecimal result = Apply(row.op, ZelDtDecimal(row.a), ZelDtDecimal(row.b));
        EXPECT_EQ(NumberOf(result), row.result);
        EXPECT_EQ(ToText(*Compute(row.op, FromText(row.a), FromText(row.b))), row.result);
    }
}

TEST(KnownResults, BeyondTheRangeAndByZero)
{
    const struct {
        const char* a;
        char op;
        const char* b;
    } rows[] = {
        {kLargest, '+', "1"},
        {kLargest, '+', "0.5"}, // rounds up to 29 digits
        {kSmallest, '-', "0.5"},
        {kLargest, '-', kSmallest},
        {kLargest, '*', "2"},
        {kLargest, '*', kSmallest},
        {"100000000000000", '*', "100000000000000"},
        {kLargest, '/', "0.1"},
        {"1", '/', "0"},
        {"0", '/', "0.00"},
        {kSmallest, '/', "0"},
        {"7.5", '%', "0"},
        {"0", '%', "0.0"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(::testing::Message() << row.a << ' ' << row.op << ' ' << row.b);
        const ZelDtDecimal a(row.a);
        const ZelDtDecimal b(row.b);
        EXPECT_TRUE(FailsWith([&] { Apply(row.op, a, b); },
                              OperatorError(1, std::string("operator") + row.op + Members(row.op)),
                              OverflowError()));
        EXPECT_EQ(Look(a), Defined(row.a));
        EXPECT_EQ(Look(b), Defined(row.b));
    }
}

TEST(KnownResults, OfNullOperands)
{
    const ZelDtDecimal null(ZelDtWmNull);
    const ZelDtDecimal number("2.5");
    const struct {
        const char* what;
        ZelDtDecimal result;
        int defined;
        const char* text;
    } rows[] = {
        {"2.5 + null", number + null, 1, "2.5"},
        {"null + 2.5", null + number, 1, "2.5"},
        {"2.5 - null", number - null, 1, "2.5"},
        {"null - 2.5", null - number, 1, "-2.5"},
        {"2.5 * null", number * null, 1, "2.5"},
        {"null * 2.5", null * number, 1, "2.5"},
        {"2.5 / null", number / null, 1, "2.5"},
        {"null / 2.5", null / number, 1, "0"},
        {"7.25 % null", ZelDtDecimal("7.25") % null, 1, "0.25"},
        {"-7.25 % null", ZelDtDecimal("-7.25") % null, 1, "-0.25"},
        {"null + null", null + null, 0, "0"},
        {"null * null", null * null, 0, "0"},
        {"null + plain 5", null + 5, 1, "5"},
        {"null * plain 5", null * 5, 1, "0"},
        {"plain 10 / null", 10 / null, 1, "10"},
        {"plain 10 * null", 10 * null, 1, "10"},
        {"plain 7.5 % null", 7.5 % null, 1, "0.5"},
        {"plain 10 - null", 10 - null, 1, "10"},
        {"plain 1.0 + null", 1.0 + null, 1, "1"},
        {"plain 0.0 + null", 0.0 + null, 0, "0"},
        {"plain 0 - null", 0 - null, 1, "0"},
        {"plain 0 / null", 0 / null, 1, "0"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.result.IsDefined(), row.defined) << row.what;
        EXPECT_EQ(NumberOf(row.result), row.text) << row.what;
    }
    EXPECT_EQ(Look(0.0 + null), Look(null)); // a copy
}

TEST(KnownResults, OfNullOperandsThatStoreANumber)
{
    const GivenDecimal null(Number{{ZelDtWmNull, 0, 0}, "2.5"});
    const ZelDtDecimal ten(10);
    EXPECT_EQ(NumberOf(ten + null.it), "12.5");
    EXPECT_EQ(NumberOf(ten - null.it), "7.5");
    EXPECT_EQ(NumberOf(ten * null.it), "10"); // neutral, whatever it stores
    EXPECT_EQ(NumberOf(ten / null.it), "10");
    EXPECT_EQ(NumberOf(ten % null.it), "0");
    EXPECT_EQ(NumberOf(null.it / ten), "0.25");
    EXPECT_EQ(NumberOf(null.it * 4), "10.0");
    EXPECT_EQ(NumberOf(1.0 + null.it), "3.5");
    EXPECT_EQ(Look(0 + null.it), (Number{{ZelDtWmNull, 0, 0}, "2.5"}));
}

TEST(KnownResults, OfMissingOperands)
{
    const ZelDtDecimal missing(ZelDtWmMissing);
    const ZelDtDecimal number("2.5");
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (const char op : kOperators) {
        EXPECT_TRUE(Apply(op, missing, number).IsMissing()) << op;
        EXPECT_TRUE(Apply(op, number, missing).IsMissing()) << op;
        EXPECT_TRUE(Apply(op, missing, missing).IsMissing()) << op;
        EXPECT_TRUE(Apply(op, missing, 7).IsMissing()) << op;
        EXPECT_TRUE(Apply(op, 7, missing).IsMissing()) << op;
        EXPECT_TRUE(Apply(op, missing, 0).IsMissing()) << op;
        EXPECT_TRUE(Apply(op, 0.5, missing).IsMissing()) << op;
        EXPECT_TRUE(Apply(op, missing, nan).IsMissing()) << op;
        EXPECT_TRUE(Apply(op, nan, missing).IsMissing()) << op;
    }
}

TEST(KnownResults, OfPlainNumbersDividedByZero)
{
    const ZelDtDecimal zero("0.00");
    for (const int left : {10, 0}) {
        EXPECT_TRUE(FailsWith([&] { left / zero; },
                              OperatorError(1, "operator/(INT,ZelDtDecimal&)"),
                              OperatorError(12, "operator/(INT,ZelDtDecimal&)")));
        const double number = left;
        EXPECT_TRUE(FailsWith([&] { number / zero; },
                              OperatorError(1, "operator/(double,ZelDtDecimal&)"),
                              OperatorError(12, "operator/(double,ZelDtDecimal&)")));
        EXPECT_TRUE(FailsWith([&] { left % zero; },
                              OperatorError(1, "operator%(INT,ZelDtDecimal&)"), OverflowError()));
    }
    EXPECT_TRUE(FailsWith([&] { zero / 0; }, OperatorError(1, "operator/(INT)"), OverflowError()));
    EXPECT_TRUE(
        FailsWith([&] { zero / 0.0; }, OperatorError(1, "operator/(double)"), OverflowError()));
    EXPECT_TRUE(FailsWith([&] { zero % 0; }, OperatorError(1, "operator%(INT)"), OverflowError()));
}

TEST(KnownResults, OfAMoneyComputation)
{
    const ZelDtDecimal price("19.99");
    ZelDtDecimal total = price * 3 * 1.19;
    EXPECT_EQ(NumberOf(total), "71.3643");
    total.Round(-2, ZelDtDecimal::RundungKaufmaennisch);
    EXPECT_EQ(TextOf(total.ConvToSQL()), "71.36");
}

} // namespace
