/// What ZelDtShort does in its own way: plain numbers that may be wider than its 16 bits. What it
/// shares with ZelDtLong stands in the integer_*_test.cpp.

#include "tests/numeric/integer_testing.h"

#include "numeric/DTDOUBLE.h"
#include "text/DTSTRING.h"

#include <limits>
#include <type_traits>

namespace {

using namespace zeltest;

constexpr int kLeastInt = std::numeric_limits<int>::min();
constexpr int kMostInt = std::numeric_limits<int>::max();

constexpr int kOutside[] = {32768, -32769, 65535, 65536, 65543, -65529, kMostInt, kLeastInt};

const Error kFromInt = ClassError<ZelDtShort>(1, "ZelDtShort(INT)");
const Error kBeyond{8, "IMP/DTSHORTI", "ZelDtShort_Imp", "ZelDtShort_Imp(double)"};

TEST(ShortConstruction, TakesEveryShort)
{
    for (int value = -32768; value <= 32767; ++value) {
        ASSERT_EQ(ZelDtShort(static_cast<short>(value)).GetValue(), value);
        ASSERT_EQ(ZelDtShort(value).GetValue(), value);
    }
}

TEST(ShortConstruction, FromIntsEndsAtTheLimits)
{
    EXPECT_EQ(Look(ZelDtShort(32767)), Defined(32767));
    EXPECT_EQ(Look(ZelDtShort(-32768)), Defined(-32768));
    for (const int value : kOutside)
        EXPECT_TRUE(FailsWith([&] { ZelDtShort number(value); }, kFromInt, kBeyond)) << value;
}

TEST(ShortConstruction, FromADoubleOfAnyKindDoesNotCompile)
{
    EXPECT_FALSE((std::is_constructible_v<ZelDtShort, double>));
    EXPECT_FALSE((std::is_constructible_v<ZelDtShort, float>));
    EXPECT_FALSE((std::is_constructible_v<ZelDtShort, const ZelDtDouble&>));
    EXPECT_TRUE((std::is_constructible_v<ZelDtShort, const ZelDtLong&>));
    EXPECT_TRUE((std::is_constructible_v<ZelDtShort, short>));
}

TEST(ShortAssignment, OfIntsEndsAtTheLimits)
{
    for (const Number& number : Numbers({0, 7})) {
        for (const int value : {32767, -32768}) {
            Given<ZelDtShort> given(number);
            given.it = value;
            EXPECT_EQ(Look(given.it), Assigned(number, value));
        }
        for (const int value : kOutside) {
            Given<ZelDtShort> given(number);
            EXPECT_TRUE(
                FailsWith([&] { given.it = value; }, ClassError<ZelDtShort>(8, "operator=(INT)")))
                << value;
            EXPECT_EQ(Look(given.it), number) << value;
        }
    }
}

TEST(ShortAssignment, FromSqlOfWiderNumbersIsChecked)
{
    for (const Number& number : Numbers({0, 7})) {
        for (const int value : {0, 7, 32767, -32768}) {
            Given<ZelDtShort> asInt(number);
            asInt.it.SetFromSQL(value);
            EXPECT_EQ(Look(asInt.it), Assigned(number, value));
            Given<ZelDtShort> asLong(number);
            asLong.it.SetFromSQL(static_cast<long>(value));
            EXPECT_EQ(Look(asLong.it), Assigned(number, value));
        }
        for (const int value : kOutside) {
            Given<ZelDtShort> given(number);
            for (const Caught& caught : {Catch([&] { given.it.SetFromSQL(value); }), Catch([&] {
                                             given.it.SetFromSQL(static_cast<long>(value));
                                         })})
                EXPECT_TRUE(Matches(caught, ClassError<ZelDtShort>(8, caught.error.signature)));
            EXPECT_EQ(Look(given.it), number) << value;
        }
    }
}

struct Result {
    int a;
    char op;
    int b;
    int result;
};

struct Failure {
    int a;
    char op;
    int b;
    const char* function;
};

template <typename Left, typename Right>
ZelDtShort Apply(char op, const Left& a, const Right& b)
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

TEST(ShortAndWiderNumbers, OnTheRightNeedOnlyAResultThatFits)
{
    constexpr Result rows[] = {
        {-1, '+', 32768, 32767},     {-32768, '+', 65535, 32767}, {1, '-', 32769, -32768},
        {32767, '-', 65535, -32768}, {0, '*', kMostInt, 0},       {0, '*', kLeastInt, 0},
        {-1, '*', 32768, -32768},    {7, '/', 65536, 0},          {-32768, '/', 32768, -1},
        {32767, '/', 32768, 0},      {-32768, '/', kLeastInt, 0}, {-32768, '-', -65535, 32767},
    };
    for (const Result& row : rows) {
        SCOPED_TRACE(::testing::Message() << row.a << ' ' << row.op << ' ' << row.b);
        EXPECT_EQ(Look(Apply(row.op, ZelDtShort(row.a), row.b)), Defined(row.result));
        const long wide = row.b;
        EXPECT_EQ(Look(Apply(row.op, ZelDtShort(row.a), wide)), Defined(row.result));
    }
}

TEST(ShortAndWiderNumbers, OnTheLeftNeedOnlyAResultThatFits)
{
    constexpr Result rows[] = {
        {100000, '/', 5, 20000},      {32769, '-', 2, 32767},     {40000, '-', 10000, 30000},
        {-40000, '+', 10000, -30000}, {-65536, '/', 2, -32768},   {65535, '/', 2, 32767},
        {65536, '*', 0, 0},           {65534, '-', 32767, 32767},
    };
    for (const Result& row : rows) {
        SCOPED_TRACE(::testing::Message() << row.a << ' ' << row.op << ' ' << row.b);
        EXPECT_EQ(Look(Apply(row.op, row.a, ZelDtShort(row.b))), Defined(row.result));
        const long wide = row.a;
        EXPECT_EQ(Look(Apply(row.op, wide, ZelDtShort(row.b))), Defined(row.result));
    }
}

constexpr const char* kAdd = "AddierenShort(LONG,LONG)";
constexpr const char* kSubtract = "SubtrahierenShort(LONG,LONG)";
constexpr const char* kMultiply = "MultiplizierenShort(LONG,LONG)";
constexpr const char* kDivide = "DividierenShort(LONG,LONG)";

Error Arithmetic(const char* function)
{
    return {8, "IMP/DTSHORTI", "Funktionen f\xFCr ZelDtShort", function};
}

TEST(ShortAndWiderNumbers, OnTheRightNeverWrap)
{
    // Results that would be in range again if they wrapped in 32 or in 16 bits.
    constexpr Failure rows[] = {
        {1, '+', 65535, kAdd},          {1, '+', kMostInt, kAdd},
        {32767, '+', kMostInt, kAdd},   {-32768, '+', kLeastInt, kAdd},
        {-2, '-', kMostInt, kSubtract}, {0, '-', kLeastInt, kSubtract},
        {0, '-', 65536, kSubtract},     {16384, '*', 262144, kMultiply},
        {2, '*', kMostInt, kMultiply},  {-1, '*', kLeastInt, kMultiply},
        {2, '*', kLeastInt, kMultiply}, {1, '*', 65537, kMultiply},
        {200, '*', 200, kMultiply},     {-32768, '/', -1, kDivide},
    };
    for (const Failure& row : rows) {
        SCOPED_TRACE(::testing::Message() << row.a << ' ' << row.op << ' ' << row.b);
        const ZelDtShort left(row.a);
        EXPECT_TRUE(FailsWith([&] { Apply(row.op, left, row.b); },
                              ClassError<ZelDtShort>(1, std::string("operator") + row.op + "(INT)"),
                              Arithmetic(row.function)));
    }
}

TEST(ShortAndWiderNumbers, OnTheLeftNeverWrap)
{
    constexpr Failure rows[] = {
        {kMostInt, '+', 1, kAdd},        {kLeastInt, '+', -1, kAdd},
        {kLeastInt, '-', 1, kSubtract},  {kMostInt, '-', -1, kSubtract},
        {262144, '*', 16384, kMultiply}, {kLeastInt, '*', -1, kMultiply},
        {kLeastInt, '*', 2, kMultiply},  {kLeastInt, '/', -1, kDivide},
        {65536, '/', 2, kDivide},        {-65538, '/', 2, kDivide},
        {kMostInt, '/', 32767, kDivide}, // 65538
    };
    for (const Failure& row : rows) {
        SCOPED_TRACE(::testing::Message() << row.a << ' ' << row.op << ' ' << row.b);
        const ZelDtShort right(row.b);
        const Caught caught = Catch([&] { Apply(row.op, row.a, right); });
        EXPECT_TRUE(Matches(caught, ClassError<ZelDtShort>(1, caught.error.signature),
                            Arithmetic(row.function)));
        EXPECT_EQ(caught.error.signature.rfind(std::string("operator") + row.op + "(", 0), 0u)
            << caught.error;
    }
}

TEST(ShortAndWiderNumbers, InPlaceOfANullHaveToFit)
{
    const ZelDtShort null(ZelDtWmNull);
    EXPECT_EQ(Look(null * 32767), Defined(32767));
    EXPECT_EQ(Look(-32768 * null), Defined(-32768));
    EXPECT_EQ(Look(-32768 / null), Defined(-32768));
    for (const int value : kOutside) {
        EXPECT_TRUE(
            FailsWith([&] { null* value; }, ClassError<ZelDtShort>(1, "operator*(INT)"), kBeyond))
            << value;
        for (const Caught& caught : {Catch([&] { value* null; }), Catch([&] { value / null; })})
            EXPECT_TRUE(Matches(caught, ClassError<ZelDtShort>(1, caught.error.signature), kBeyond))
                << value;
        // Sums use the stored number.
        EXPECT_TRUE(FailsWith([&] { null + value; }, ClassError<ZelDtShort>(1, "operator+(INT)"),
                              Arithmetic(kAdd)))
            << value;
    }
}

TEST(ShortAndWiderNumbers, ChangeItWithinTheRangeOnly)
{
    ZelDtShort value(-32768);
    value += 65535;
    EXPECT_EQ(value.GetValue(), 32767);
    value -= 65535;
    EXPECT_EQ(value.GetValue(), -32768);
    for (const int step : {65536, kMostInt, -1, kLeastInt}) {
        EXPECT_TRUE(FailsWith([&] { value += step; }, ClassError<ZelDtShort>(1, "operator+=(INT)"),
                              Arithmetic(kAdd)))
            << step;
        EXPECT_EQ(value.GetValue(), -32768);
    }
    for (const int step : {1, kMostInt, kLeastInt, -65536}) {
        EXPECT_TRUE(FailsWith([&] { value -= step; }, ClassError<ZelDtShort>(1, "operator-=(INT)"),
                              Arithmetic(kSubtract)))
            << step;
        EXPECT_EQ(value.GetValue(), -32768);
    }
}

TEST(ShortAndWiderNumbers, CompareWhole)
{
    const ZelDtShort one(1);
    EXPECT_EQ(one == 65537, 0);
    EXPECT_EQ(one != 65537, 1);
    EXPECT_EQ(one < 65536, 1);
    EXPECT_EQ(one > -65536, 1);
    EXPECT_EQ(one <= kMostInt, 1);
    EXPECT_EQ(one >= kLeastInt, 1);
    EXPECT_EQ(65537 == one, 0);
    EXPECT_EQ(kLeastInt < one, 1);
    EXPECT_EQ(65537L == one, 0);
}

TEST(ShortExternalText, TakesOverTheFlagBeforeTheText)
{
    const ZelDtString text("5");
    ZelDtShort value(ZelDtWmAlwaysDefined);
    value.SetFromExtern(&text, 0, 100);
    EXPECT_EQ(Look(value), (Number{{ZelDtWmAlwaysDefined, 0, 1}, 0}));

    ZelDtShort missing(ZelDtWmMissing);
    missing.SetFromExtern(nullptr, 1, 100); // defined for a moment
    EXPECT_EQ(Look(missing), (Number{{ZelDtWmMissing, 0, 1}, 0}));
}

} // namespace
