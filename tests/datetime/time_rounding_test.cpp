/// Rounding of ZelDtTime: away from zero, to the next quarter, half or whole hour.

#include "tests/datetime/time_testing.h"

#include <random>

namespace {

using namespace zeltest;

using RoundMode = ZelDtTime::RoundMode;

struct Step {
    RoundMode mode;
    std::int32_t units;
};

constexpr Step kSteps[] = {{ZelDtTime::RundenViertelstunde, 300},
                           {ZelDtTime::RundenHalbeStunde, 600},
                           {ZelDtTime::RundenStunde, 1200}};

TEST(Rounding, OfKnownAmounts)
{
    const struct {
        const char* text;
        const char* quarter;
        const char* half;
        const char* whole;
    } rows[] = {
        {"0:00", "0:00", "0:00", "0:00"},     {"0:01", "0:15", "0:30", "1:00"},
        {"0:14", "0:15", "0:30", "1:00"},     {"0:15", "0:15", "0:30", "1:00"},
        {"0:16", "0:30", "0:30", "1:00"},     {"0:30", "0:30", "0:30", "1:00"},
        {"0:31", "0:45", "1:00", "1:00"},     {"0:46", "1:00", "1:00", "1:00"},
        {"1:00", "1:00", "1:00", "1:00"},     {"1:01", "1:15", "1:30", "2:00"},
        {"1:15", "1:15", "1:30", "2:00"},     {"8:59", "9:00", "9:00", "9:00"},
        {"-0:01", "-0:15", "-0:30", "-1:00"}, {"-1:00", "-1:00", "-1:00", "-1:00"},
        {"-1:01", "-1:15", "-1:30", "-2:00"}, {"-1:31", "-1:45", "-2:00", "-2:00"},
        {"0,01", "0,25", "0,50", "1,00"},     {"1,26", "1,50", "1,50", "2,00"},
        {"-1,51", "-1,75", "-2,00", "-2,00"},
    };
    for (const auto& row : rows) {
        const char* const results[] = {row.quarter, row.half, row.whole};
        for (std::size_t i = 0; i < 3; ++i) {
            ZelDtTime value(row.text);
            value.Round(kSteps[i].mode);
            EXPECT_TRUE(value == ZelDtTime(results[i]))
                << row.text << " to " << kSteps[i].units << ": " << StoredUnits(value);
            EXPECT_EQ(value.GetMode(), ZelDtTime(row.text).GetMode());
        }
    }
}

/// The smallest multiple of the step that is not nearer to zero than `units`; found by counting.
std::int32_t NextByCounting(std::int32_t units, std::int32_t step)
{
    std::int32_t multiple = 0;
    while ((units < 0 ? -units : units) > multiple)
        multiple += step;
    return units < 0 ? -multiple : multiple;
}

TEST(Rounding, OfEveryRest)
{
    for (const Step& step : kSteps) {
        ZelDtTime value(0, 0);
        for (std::int32_t units = -2 * step.units - 1; units <= 2 * step.units + 1; ++units) {
            value.SetFromSQL(units);
            value.GetAndResetModified(0);
            value.Round(step.mode);
            const std::int32_t expected = NextByCounting(units, step.units);
            ASSERT_EQ(Look(value),
                      (Amount{{ZelDtWmMissing, 1, expected != units ? 1 : 0}, expected, kMinutes}))
                << units << " to " << step.units;
        }
    }
}

TEST(Rounding, OfLargeAmounts)
{
    std::mt19937 random(1201);
    for (const Step& step : kSteps) {
        ZelDtTime value(0, 0);
        for (int i = 0; i < 3000; ++i) {
            const auto count = static_cast<std::int32_t>(random() % 1700000U);
            const auto rest = static_cast<std::int32_t>(random()) % step.units;
            const std::int32_t multiple = count * step.units;
            const bool negative = rest < 0 || (rest == 0 && i % 2 == 0);
            const std::int32_t units = (negative ? -multiple : multiple) + rest;
            const std::int32_t next = rest == 0 ? multiple : multiple + step.units;
            value.SetFromSQL(units);
            value.Round(step.mode);
            ASSERT_EQ(StoredUnits(value), negative ? -next : next) << units << " to " << step.units;
        }
    }
}

TEST(Rounding, IsForDefinedValuesOnly)
{
    for (const Amount& before : AmountsInAllModes({0, 1, -1, 299, 300, 1200, -1807})) {
        for (const Step& step : kSteps) {
            Given<ZelDtTime> given(before);
            given.it.Round(step.mode);
            Amount expected = before;
            if (before.state.defined)
                Store(expected, NextByCounting(before.units, step.units));
            EXPECT_EQ(Look(given.it), expected) << before << " to " << step.units;
        }
    }
}

TEST(Rounding, TwiceChangesNothingMore)
{
    for (const Step& step : kSteps) {
        ZelDtTime value("7:31");
        value.Round(step.mode);
        value.GetAndResetModified(0);
        const Amount once = Look(value);
        value.Round(step.mode);
        EXPECT_EQ(Look(value), once);
    }
}

TEST(Rounding, AtTheLimits)
{
    const struct {
        RoundMode mode;
        std::int32_t last; ///< the largest multiple of the step
    } rows[] = {{ZelDtTime::RundenViertelstunde, 2147483400},
                {ZelDtTime::RundenHalbeStunde, 2147483400},
                {ZelDtTime::RundenStunde, 2147482800}};
    for (const auto& row : rows) {
        for (const std::int32_t sign : {1, -1}) {
            for (const std::int32_t below : {0, 1, 299}) {
                const Given<ZelDtTime> given(
                    Amount{{ZelDtWmNull, 1, 0}, sign * (row.last - below), kHundredths});
                ZelDtTime value(given.it);
                value.Round(row.mode);
                EXPECT_EQ(Look(value),
                          (Amount{{ZelDtWmNull, 1, below != 0}, sign * row.last, kHundredths}));
            }
            for (const std::int32_t above : {row.last + 1, row.last + 247, kMostUnits}) {
                const Amount before{{ZelDtWmNull, 1, 0}, sign * above, kHundredths};
                Given<ZelDtTime> given(before);
                EXPECT_TRUE(FailsBehind("Round", 8, [&] { given.it.Round(row.mode); })) << before;
                EXPECT_EQ(Look(given.it), before);
            }
        }
        const Amount least{{ZelDtWmMissing, 1, 0}, kLeastUnits, kMinutes};
        Given<ZelDtTime> given(least);
        EXPECT_TRUE(FailsBehind("Round", 8, [&] { given.it.Round(row.mode); }));
        EXPECT_EQ(Look(given.it), least);
        // An undefined amount is not rounded, so it does not fail either.
        const Amount undefined{{ZelDtWmNull, 0, 0}, kMostUnits, kMinutes};
        Given<ZelDtTime> null(undefined);
        null.it.Round(row.mode);
        EXPECT_EQ(Look(null.it), undefined);
    }
}

TEST(UnknownSteps, AreRefusedBeforeAnythingElse)
{
    for (const int number : {-1, 3, 4, 300, 256, INT_MAX, INT_MIN}) {
        for (const Amount& before : AmountsInAllModes({0, 1807, kMostUnits})) {
            Given<ZelDtTime> given(before);
            EXPECT_TRUE(FailsIn("Round", 31, [&] {
                given.it.Round(static_cast<RoundMode>(number));
            })) << number;
            EXPECT_EQ(Look(given.it), before);
        }
    }
}

} // namespace
