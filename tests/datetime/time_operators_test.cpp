/// Arithmetic and comparison of ZelDtTime in every state of the operands, against the rules, which
/// stand here once more as a small model.

#include "tests/datetime/time_testing.h"

#include "platform/formats/ZelFormat.h"

#include <string>

namespace {

using namespace zeltest;

const std::vector<std::int32_t> kUnits = {0, 1, -7, 1800, kMostUnits, kLeastUnits};

std::int64_t Sum(const Amount& a, const Amount& b, int sign)
{
    return std::int64_t{a.units} + sign * std::int64_t{b.units};
}

ZelDtTime Apply(int sign, const ZelDtTime& a, const ZelDtTime& b)
{
    return sign > 0 ? a + b : a - b;
}

ZelDtTime& ApplyTo(int sign, ZelDtTime& a, const ZelDtTime& b)
{
    return sign > 0 ? a += b : a -= b;
}

const char* NameOf(int sign)
{
    return sign > 0 ? "operator+" : "operator-";
}

const char* CompoundSignature(int sign)
{
    return sign > 0 ? "operator+=(ZelDtTime&)" : "operator-=(ZelDtTime&)";
}

// + and -

void ExpectResult(int sign, const Amount& a, const Amount& b, const ZelDtTime& left,
                  const ZelDtTime& right)
{
    const std::int64_t sum = Sum(a, b, sign);
    if (!Computes(a.state, b.state)) {
        const ZelDtTime result = Apply(sign, left, right);
        // The mode of a result without an amount is left open.
        EXPECT_EQ(StateOf(result), NewUndefined(ZelDtGetDefaultWorkingMode()));
        EXPECT_EQ(StoredUnits(result), 0);
    } else if (Fits(sum)) {
        const ZelDtTime result = Apply(sign, left, right);
        EXPECT_EQ(Look(result),
                  DefinedAmount(static_cast<std::int32_t>(sum), a.state.defined ? a.mode : b.mode));
        EXPECT_EQ(result.GetFormat(), nullptr);
    } else {
        EXPECT_TRUE(FailsBehind(NameOf(sign), 8, [&] { Apply(sign, left, right); }));
    }
}

TEST(Operators, FollowTheRules)
{
    const ZelFormat format(ZelFormat::ZelFoStandard);
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const Amount& a : Amounts(kUnits, kHundredths)) {
            Given<ZelDtTime> left(a);
            left.it.SetFormat(&format);
            for (const Amount& b : Amounts(kUnits, kHours)) {
                SCOPED_TRACE(::testing::Message() << a << " and " << b);
                Given<ZelDtTime> right(b);
                right.it.SetFormat(&format);
                for (const int sign : {1, -1})
                    ExpectResult(sign, a, b, left.it, right.it);
                ASSERT_EQ(Look(right.it), b);
            }
            ASSERT_EQ(Look(left.it), a);
        }
    }
}

TEST(Operators, OnAValueAndItselfFollowTheRules)
{
    for (const Amount& a : AmountsInAllModes(kUnits)) {
        const Given<ZelDtTime> given(a);
        SCOPED_TRACE(::testing::Message() << a);
        for (const int sign : {1, -1})
            ExpectResult(sign, a, a, given.it, given.it);
        EXPECT_EQ(Look(given.it), a);
    }
}

TEST(Operators, ResultTakesTheModeOfTheLeftDefinedOperand)
{
    for (const TimeMode left : kTimeModes) {
        for (const TimeMode right : kTimeModes) {
            ZelDtTime a(1, 0, left);
            ZelDtTime b(2, 0, right);
            EXPECT_EQ((a + b).GetMode(), left);
            EXPECT_EQ((a - b).GetMode(), left);
            ZelDtTime null(ZelDtWmNull);
            null.SetMode(left);
            EXPECT_EQ((null + b).GetMode(), right);
            EXPECT_EQ((null - b).GetMode(), right);
            EXPECT_EQ((b + null).GetMode(), right);
            EXPECT_EQ((b - null).GetMode(), right);
        }
    }
}

TEST(Operators, OfKnownAmounts)
{
    const ZelDtTime half("0:30");
    const ZelDtTime day("7,75");
    EXPECT_EQ(Look(half + day), DefinedAmount(9900, kMinutes));
    EXPECT_EQ(Look(day + half), DefinedAmount(9900, kHundredths));
    EXPECT_EQ(Look(half - day), DefinedAmount(-8700, kMinutes));
    EXPECT_EQ(Look(day - half), DefinedAmount(8700, kHundredths));
    const ZelDtTime null(ZelDtWmNull);
    EXPECT_EQ(Look(null - day), DefinedAmount(-9300, kHundredths));
    EXPECT_EQ(Look(day + null), DefinedAmount(9300, kHundredths));
    EXPECT_TRUE((null + null).IsMissing());
    EXPECT_TRUE((day + ZelDtTime(ZelDtWmMissing)).IsMissing());
    EXPECT_TRUE((ZelDtTime(ZelDtWmMissing) - day).IsMissing());
}

TEST(Operators, AtTheLimits)
{
    const struct {
        std::int32_t a;
        int sign;
        std::int32_t b;
        bool fits;
    } rows[] = {
        {kMostUnits, 1, 0, true},           {kMostUnits, 1, 1, false},
        {kMostUnits - 1, 1, 1, true},       {kMostUnits, -1, -1, false},
        {kMostUnits, 1, kMostUnits, false}, {kMostUnits, -1, kMostUnits, true},
        {kMostUnits, 1, kLeastUnits, true}, {kLeastUnits, -1, 1, false},
        {kLeastUnits, 1, -1, false},        {kLeastUnits, -1, kLeastUnits, true},
        {0, -1, kLeastUnits, false},        {-1, -1, kLeastUnits, true},
        {kLeastUnits + 1, -1, 1, true},     {kLeastUnits, 1, kLeastUnits, false},
    };
    for (const auto& row : rows) {
        const Amount a{{ZelDtWmMissing, 1, 0}, row.a, kMinutes};
        const Amount b{{ZelDtWmMissing, 1, 0}, row.b, kMinutes};
        ASSERT_EQ(Fits(Sum(a, b, row.sign)), row.fits);
        Given<ZelDtTime> left(a);
        const Given<ZelDtTime> right(b);
        SCOPED_TRACE(::testing::Message() << row.a << ' ' << NameOf(row.sign) << ' ' << row.b);
        ExpectResult(row.sign, a, b, left.it, right.it);
        if (!row.fits) {
            EXPECT_TRUE(FailsBecauseOf([&] { ApplyTo(row.sign, left.it, right.it); },
                                       TimeError(1, CompoundSignature(row.sign)), 8));
            EXPECT_EQ(Look(left.it), a);
        }
    }
}

// += and -=

/// A failing check leaves an undefined 0; only the definedness counts as changed then.
Amount AfterFailedCheck(Amount a)
{
    a.units = 0;
    SetDefined(a.state, 0);
    return a;
}

void ExpectCompound(int sign, const Amount& a, const Amount& b, ZelDtTime& left,
                    const ZelDtTime& right)
{
    const std::int64_t sum = Sum(a, b, sign);
    if (Computes(a.state, b.state) && !Fits(sum)) {
        EXPECT_TRUE(FailsBecauseOf([&] { ApplyTo(sign, left, right); },
                                   TimeError(1, CompoundSignature(sign)), 8));
        EXPECT_EQ(Look(left), a);
        return;
    }
    EXPECT_EQ(&ApplyTo(sign, left, right), &left);
    EXPECT_EQ(Look(left), Computes(a.state, b.state) ? Taken(a, static_cast<std::int32_t>(sum))
                                                     : AfterFailedCheck(a));
}

TEST(CompoundAssignment, FollowsTheRules)
{
    const ZelFormat format(ZelFormat::ZelFoStandard);
    for (const Amount& a : Amounts(kUnits, kHundredths)) {
        for (const Amount& b : Amounts(kUnits, kHours)) {
            const Given<ZelDtTime> right(b);
            for (const int sign : {1, -1}) {
                SCOPED_TRACE(::testing::Message() << a << ' ' << CompoundSignature(sign) << b);
                Given<ZelDtTime> left(a);
                left.it.SetFormat(&format);
                ExpectCompound(sign, a, b, left.it, right.it);
                EXPECT_EQ(left.it.GetFormat(), &format);
            }
            ASSERT_EQ(Look(right.it), b);
        }
    }
}

TEST(CompoundAssignment, OfAValueToItself)
{
    for (const Amount& a : AmountsInAllModes(kUnits)) {
        for (const int sign : {1, -1}) {
            SCOPED_TRACE(::testing::Message() << a << ' ' << CompoundSignature(sign));
            Given<ZelDtTime> given(a);
            ExpectCompound(sign, a, a, given.it, given.it);
        }
    }
}

TEST(CompoundAssignment, OfKnownAmounts)
{
    ZelDtTime value("0:30");
    value += ZelDtTime("7,75");
    EXPECT_EQ(Look(value), (Amount{{ZelDtWmMissing, 1, 1}, 9900, kMinutes}));
    value.GetAndResetModified(0);
    value += ZelDtTime(0, 0);
    value -= ZelDtTime(ZelDtWmNull);
    EXPECT_EQ(Look(value), (Amount{{ZelDtWmMissing, 1, 0}, 9900, kMinutes}));
    value -= ZelDtTime(10, 0);
    EXPECT_EQ(Look(value), (Amount{{ZelDtWmMissing, 1, 1}, -2100, kMinutes}));
    value += ZelDtTime(ZelDtWmMissing);
    EXPECT_EQ(Look(value), (Amount{{ZelDtWmMissing, 0, 1}, 0, kMinutes}));
    ZelDtTime null(ZelDtWmNull);
    null += ZelDtTime(0, 0); // defined now, which is a change
    EXPECT_EQ(Look(null), (Amount{{ZelDtWmNull, 1, 1}, 0, kMinutes}));
}

// Comparison

/// One comparison.
struct Comparison {
    const char* sign;
    bool (*holds)(std::int32_t, std::int32_t);
    int (*values)(const ZelDtTime&, const ZelDtTime&);
};

#define ZEL_COMPARISON(op)                                                                         \
    {                                                                                              \
#op,                                                                                       \
            [](std::int32_t a,                                                                     \
               std::int32_t b) -> bool { return a op b; },                                         \
                                                        [](const ZelDtTime& a,                     \
                                                           const ZelDtTime& b) { return a op b; }, \
    }
const Comparison kComparisons[] = {
    ZEL_COMPARISON(<),  ZEL_COMPARISON(>),  ZEL_COMPARISON(<=),
    ZEL_COMPARISON(>=), ZEL_COMPARISON(==), ZEL_COMPARISON(!=),
};
#undef ZEL_COMPARISON

TEST(Comparisons, UseTheStoredAmounts)
{
    for (const Amount& a : Amounts(kUnits, kHundredths)) {
        const Given<ZelDtTime> left(a);
        for (const Amount& b : Amounts(kUnits, kHours)) {
            const Given<ZelDtTime> right(b);
            for (const Comparison& c : kComparisons) {
                const std::string signature = std::string("operator") + c.sign + "(ZelDtTime&)";
                if (IsMissing(a.state) || IsMissing(b.state))
                    ASSERT_TRUE(
                        FailsWith([&] { c.values(left.it, right.it); }, TimeError(2, signature)))
                        << a << ' ' << c.sign << ' ' << b;
                else
                    ASSERT_EQ(c.values(left.it, right.it), c.holds(a.units, b.units) ? 1 : 0)
                        << a << ' ' << c.sign << ' ' << b;
            }
            ASSERT_EQ(Look(right.it), b);
        }
        ASSERT_EQ(Look(left.it), a);
    }
}

TEST(Comparisons, OfAValueWithItself)
{
    for (const Amount& a : AmountsInAllModes(kUnits)) {
        const Given<ZelDtTime> given(a);
        for (const Comparison& c : kComparisons) {
            const std::string signature = std::string("operator") + c.sign + "(ZelDtTime&)";
            if (IsMissing(a.state))
                EXPECT_TRUE(
                    FailsWith([&] { c.values(given.it, given.it); }, TimeError(2, signature)));
            else
                EXPECT_EQ(c.values(given.it, given.it), c.holds(0, 0) ? 1 : 0);
        }
    }
}

TEST(Comparisons, LookAtTheAmountAlone)
{
    EXPECT_EQ(ZelDtTime("1:30") == ZelDtTime("1,50"), 1);
    EXPECT_EQ(ZelDtTime("1:30") != ZelDtTime("1,50"), 0);
    EXPECT_EQ(ZelDtTime("8") == ZelDtTime("8:00"), 1);
    EXPECT_EQ(ZelDtTime("0:01") < ZelDtTime("0,02"), 1); // 20 and 24 units
    EXPECT_EQ(ZelDtTime("0:01") > ZelDtTime("0,01"), 1); // 20 and 12 units
    EXPECT_EQ(ZelDtTime("-0:30") < ZelDtTime("0:00"), 1);
    EXPECT_EQ(ZelDtTime("-8:00") <= ZelDtTime("-7:59"), 1);
    EXPECT_EQ(ZelDtTime("1789568:59") >= ZelDtTime("-1789568:59"), 1);
    EXPECT_EQ(ZelDtTime(ZelDtWmNull) == ZelDtTime("-0:00"), 1);
}

} // namespace
