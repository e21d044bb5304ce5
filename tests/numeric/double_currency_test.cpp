/// ZelDtDouble and currencies, in both directions.

#include "tests/numeric/double_testing.h"

#include "platform/formats/ZelFormat.h"

#include <cstdint>

namespace {

using namespace zeltest;

/// A currency of that many ten-thousandths.
COleCurrency Currency(std::int64_t count, COleCurrency::CurrencyStatus status = COleCurrency::valid)
{
    CURRENCY raw{};
    raw.int64 = count;
    COleCurrency currency(raw);
    currency.SetStatus(status);
    return currency;
}

struct Exact {
    std::int64_t count;
    double value;
};

constexpr std::int64_t kMostCount = INT64_MAX;
constexpr std::int64_t kLeastCount = INT64_MIN;

/// Counts and the doubles nearest to them.
constexpr Exact kAmounts[] = {
    {0, 0.0},
    {1, 0.0001},
    {-1, -0.0001},
    {10000, 1.0},
    {15000, 1.5},
    {-15000, -1.5},
    {123456, 12.3456},
    {199900, 19.99},
    {1000000000000, 100000000.0},
    {-1234567890123456, -123456789012.3456},
};

constexpr COleCurrency::CurrencyStatus kNotValid[] = {COleCurrency::invalid, COleCurrency::null};

TEST(FromCurrency, ConstructionTakesTheAmount)
{
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        // Starts undefined; becoming defined is a change.
        const int modified = standard == ZelDtWmAlwaysDefined ? 0 : 1;
        for (const Exact& row : kAmounts) {
            const ZelDtDouble value(Currency(row.count));
            EXPECT_EQ(Look(value), (Real{{standard, 1, modified}, row.value})) << row.count;
            EXPECT_EQ(value.GetFormat(), nullptr);
        }
    }
}

TEST(FromCurrency, TheLimitsAreRounded)
{
    // The doubles beside 922337203685477.5807 are 0.125 apart.
    EXPECT_EQ(ZelDtDouble(Currency(kMostCount)).GetValue(), 922337203685477.625);
    EXPECT_EQ(ZelDtDouble(Currency(kLeastCount)).GetValue(), -922337203685477.625);
}

TEST(FromCurrency, ConstructionOfNoAmountIsUndefined)
{
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const COleCurrency::CurrencyStatus status : kNotValid)
            EXPECT_EQ(Look(ZelDtDouble(Currency(15000, status))), UndefinedReal(standard))
                << status;
    }
}

TEST(FromCurrency, AssignmentStoresWhatDiffersAndDefines)
{
    const ZelFormat format(ZelFormat::ZelFoStandard);
    for (const Real& real : Reals({0.0, -0.0, 1.5, kNaN})) {
        for (const Exact& row : kAmounts) {
            Given<ZelDtDouble> given(real);
            given.it.SetFormat(&format);
            const COleCurrency amount = Currency(row.count);
            EXPECT_EQ(&(given.it = amount), &given.it);
            Real expected = real;
            StoreDiffering(expected, row.value);
            SetDefined(expected.state, 1);
            EXPECT_EQ(Look(given.it), expected) << real << " = " << row.count;
            EXPECT_EQ(given.it.GetFormat(), &format);
        }
    }
}

TEST(FromCurrency, AssignmentOfNoAmountClears)
{
    for (const Real& real : Reals({0.0, 1.5, kNaN})) {
        for (const COleCurrency::CurrencyStatus status : kNotValid) {
            Given<ZelDtDouble> given(real);
            given.it = Currency(20000, status);
            EXPECT_EQ(Look(given.it), Cleared(real)) << real;
        }
    }
}

/// Whether the currency of `value` is as given.
::testing::AssertionResult Becomes(const ZelDtDouble& value, std::int64_t count,
                                   COleCurrency::CurrencyStatus status)
{
    const COleCurrency currency = static_cast<COleCurrency>(value);
    if (currency.GetStatus() == status && currency.m_cur.int64 == count)
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure()
           << static_cast<double>(value) << " became " << currency.m_cur.int64 << " with status "
           << currency.GetStatus() << " instead of " << count << " with " << status;
}

TEST(ToCurrency, OfUndefinedValuesIsNull)
{
    for (const Real& real : Reals({0.0, 1.5, 1e300, kNaN})) {
        if (real.state.defined)
            continue;
        const Given<ZelDtDouble> given(real);
        EXPECT_TRUE(Becomes(given.it, 0, COleCurrency::null)) << real;
        EXPECT_EQ(Look(given.it), real);
    }
}

TEST(ToCurrency, OfDefinedValuesIsTheAmount)
{
    for (const Exact& row : kAmounts) {
        for (const State& state : AllStates()) {
            if (!state.defined)
                continue;
            const Real real{state, row.value};
            const Given<ZelDtDouble> given(real);
            EXPECT_TRUE(Becomes(given.it, row.count, COleCurrency::valid));
            EXPECT_EQ(Look(given.it), real);
        }
    }
}

TEST(ToCurrency, RoundsToFourPlaces)
{
    constexpr Exact rows[] = {
        {0, 0.00004},
        {1, 0.00006},
        {0, -0.00004},
        {-1, -0.00006},
        {3333, 1.0 / 3.0},
        {6667, 2.0 / 3.0},
        {-6667, -2.0 / 3.0},
        {12345, 1.23449},
        {0, kSmallest},
        {0, -kSmallest},
        // exact ties go to the even count
        {156, 0.015625}, // 156.25
        {312, 0.03125},  // 312.5
        {938, 0.09375},  // 937.5
        {-312, -0.03125},
        {-938, -0.09375},
    };
    for (const Exact& row : rows)
        EXPECT_TRUE(Becomes(ZelDtDouble(row.value), row.count, COleCurrency::valid));
}

TEST(ToCurrency, EndsAtTheRange)
{
    // The last double below the limit is 922337203685477.5.
    EXPECT_TRUE(Becomes(ZelDtDouble(922337203685477.5), 9223372036854775000, COleCurrency::valid));
    EXPECT_TRUE(
        Becomes(ZelDtDouble(-922337203685477.5), -9223372036854775000, COleCurrency::valid));
    for (const double value : {922337203685477.75, -922337203685478.0, 1e16, -1e16, 1e300, -1e300,
                               kLargest, kInfinity, -kInfinity, kNaN})
        EXPECT_TRUE(Becomes(ZelDtDouble(value), 0, COleCurrency::invalid));
}

TEST(ToCurrency, GivesBackWhatCameFromOne)
{
    for (std::int64_t count = -30000; count <= 30000; count += 7) {
        const ZelDtDouble value(Currency(count));
        ASSERT_TRUE(Becomes(value, count, COleCurrency::valid));
    }
}

} // namespace
