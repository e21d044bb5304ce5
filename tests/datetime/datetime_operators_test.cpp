/// Comparisons of ZelDtDateTime, spans between two moments, and moments a span away.

#include "tests/datetime/datetime_testing.h"
#include "tests/datetime/time_testing.h"

#include <functional>
#include <string>

namespace {

using namespace zeltest;

const char* const kDifference = "operator-(ZelDateTime&)";
const Error kSumError = OperatorError(1, "operator+(");
const Error kShiftError = OperatorError(1, "operator-(");

ZelDtDateTime At(const Fields& fields)
{
    return FromSixNumbers(fields);
}

// Comparison

const struct {
    const char* signature;
    int (ZelDtDateTime::*compare)(const ZelDtDateTime&) const;
    bool (*expected)(const Fields&, const Fields&);
} kComparisons[] = {
    {"operator<(ZelDtDateTime&)", &ZelDtDateTime::operator<,
     [](const Fields& a, const Fields& b) { return a < b; }},
    {"operator>(ZelDtDateTime&)", &ZelDtDateTime::operator>,
     [](const Fields& a, const Fields& b) { return a > b; }},
    {"operator<=(ZelDtDateTime&)", &ZelDtDateTime::operator<=,
     [](const Fields& a, const Fields& b) { return a <= b; }},
    {"operator>=(ZelDtDateTime&)", &ZelDtDateTime::operator>=,
     [](const Fields& a, const Fields& b) { return a >= b; }},
    {"operator==(ZelDtDateTime&)", &ZelDtDateTime::operator==,
     [](const Fields& a, const Fields& b) { return a == b; }},
    {"operator!=(ZelDtDateTime&)", &ZelDtDateTime::operator!=,
     [](const Fields& a, const Fields& b) { return a != b; }},
};

TEST(Comparison, GoesFromTheYearToTheSecond)
{
    // Each one differs from the first in one field, while later fields say the opposite.
    const Fields moments[] = {
        {2000, 6, 15, 12, 30, 30}, {2001, 1, 1, 0, 0, 0},     {1999, 12, 31, 23, 59, 59},
        {2000, 7, 1, 0, 0, 0},     {2000, 5, 31, 23, 59, 59}, {2000, 6, 16, 0, 0, 0},
        {2000, 6, 14, 23, 59, 59}, {2000, 6, 15, 13, 0, 0},   {2000, 6, 15, 11, 59, 59},
        {2000, 6, 15, 12, 31, 0},  {2000, 6, 15, 12, 29, 59}, {2000, 6, 15, 12, 30, 31},
        {2000, 6, 15, 12, 30, 29}, {1900, 0, 0, 12, 30, 30}};
    for (const Fields& a : moments) {
        for (const Fields& b : moments) {
            const Given<ZelDtDateTime> left(Moment{{ZelDtWmMissing, 1, 0}, a});
            const Given<ZelDtDateTime> right(Moment{{ZelDtWmMissing, 1, 0}, b});
            for (const auto& row : kComparisons)
                EXPECT_EQ((left.it.*row.compare)(right.it), row.expected(a, b) ? 1 : 0)
                    << a << ' ' << row.signature << ' ' << b;
        }
    }
}

TEST(Comparison, TakesNullAsWhatIsStoredAndRefusesMissing)
{
    const std::vector<Moment> all = Moments({kNew, kSome});
    for (const Moment& a : all) {
        for (const Moment& b : all) {
            const Given<ZelDtDateTime> left(a);
            const Given<ZelDtDateTime> right(b);
            for (const auto& row : kComparisons) {
                if (IsMissing(a.state) || IsMissing(b.state)) {
                    EXPECT_TRUE(FailsWith([&] { (left.it.*row.compare)(right.it); },
                                          OperatorError(2, row.signature)))
                        << a << ' ' << b;
                } else {
                    EXPECT_EQ((left.it.*row.compare)(right.it),
                              row.expected(a.fields, b.fields) ? 1 : 0)
                        << a << ' ' << row.signature << ' ' << b;
                }
            }
            EXPECT_EQ(Look(left.it), a);
            EXPECT_EQ(Look(right.it), b);
        }
    }
}

TEST(Comparison, LooksAtTheTimeOfDates)
{
    const Given<ZelDtDateZp> midnight(Moment{{ZelDtWmMissing, 1, 0}, {2000, 3, 5, 0, 0, 0}});
    const Given<ZelDtDateZp> later(Moment{{ZelDtWmMissing, 1, 0}, {2000, 3, 5, 0, 0, 1}});
    EXPECT_TRUE(midnight.it == At({2000, 3, 5, 0, 0, 0}));
    EXPECT_TRUE(At({2000, 3, 5, 0, 0, 1}) == later.it);
    EXPECT_TRUE(midnight.it != later.it);
    EXPECT_TRUE(midnight.it < later.it);
    EXPECT_TRUE(later.it >= midnight.it);
}

TEST(Comparison, PassesOverTheFieldsThatAreNotKeptUp)
{
    const ZelDtDateTime moment(std::time_t{1718454645});
    const Fields fields = FieldsOf(moment.GetValue());
    EXPECT_TRUE(moment == At(fields));
    EXPECT_FALSE(moment != At(fields));
}

// Spans between two moments

/// Rounds down.
std::int64_t WholeMinutes(std::int64_t seconds)
{
    return (seconds - ((seconds % 60) + 60) % 60) / 60;
}

/// The true span in whole minutes.
std::int64_t MinutesBetween(const Fields& later, const Fields& earlier)
{
    return WholeMinutes(SecondsOf(later) - SecondsOf(earlier));
}

/// State, units and mode of a result; whether it counts as modified is not said.
Amount Unmarked(const ZelDtTime& value)
{
    Amount amount = Look(value);
    amount.state.modified = 0;
    return amount;
}

Amount SpanOf(std::int64_t minutes)
{
    return DefinedAmount(static_cast<std::int32_t>(minutes * 20));
}

TEST(Span, BorrowsMinutesHoursAndDays)
{
    const struct {
        Fields later;
        Fields earlier;
        int minutes;
    } rows[] = {
        {{2000, 3, 5, 10, 0, 0}, {2000, 3, 5, 10, 0, 0}, 0},
        {{2000, 3, 5, 10, 1, 0}, {2000, 3, 5, 10, 0, 0}, 1},
        {{2000, 3, 5, 10, 0, 59}, {2000, 3, 5, 10, 0, 0}, 0},
        {{2000, 3, 5, 10, 1, 0}, {2000, 3, 5, 10, 0, 1}, 0},
        {{2000, 3, 5, 10, 1, 1}, {2000, 3, 5, 10, 0, 0}, 1},
        {{2000, 3, 5, 10, 5, 0}, {2000, 3, 5, 9, 50, 0}, 15},
        {{2000, 3, 5, 10, 5, 0}, {2000, 3, 5, 9, 5, 1}, 59},
        {{2000, 3, 5, 10, 5, 0}, {2000, 3, 5, 9, 5, 0}, 60},
        // backwards, down to the minute below
        {{2000, 3, 5, 10, 0, 0}, {2000, 3, 5, 10, 0, 1}, -1},
        {{2000, 3, 5, 10, 0, 0}, {2000, 3, 5, 10, 1, 0}, -1},
        {{2000, 3, 5, 10, 0, 0}, {2000, 3, 5, 10, 1, 1}, -2},
        {{2000, 3, 5, 10, 0, 0}, {2000, 3, 5, 11, 0, 0}, -60},
        {{2000, 3, 5, 10, 0, 0}, {2000, 3, 5, 11, 0, 59}, -61},
        {{2000, 3, 5, 9, 50, 0}, {2000, 3, 5, 10, 5, 0}, -15},
        // days
        {{2000, 3, 6, 0, 0, 0}, {2000, 3, 5, 23, 59, 0}, 1},
        {{2000, 3, 6, 0, 0, 0}, {2000, 3, 5, 23, 59, 59}, 0},
        {{2000, 3, 5, 23, 59, 59}, {2000, 3, 6, 0, 0, 0}, -1},
        {{2000, 3, 1, 0, 0, 0}, {2000, 2, 28, 0, 0, 0}, 2 * 1440},
        {{2001, 3, 1, 0, 0, 0}, {2001, 2, 28, 0, 0, 0}, 1440},
        {{1900, 3, 1, 0, 0, 0}, {1900, 2, 28, 0, 0, 0}, 1440},
        {{2000, 2, 28, 0, 0, 0}, {2000, 3, 1, 0, 0, 0}, -2 * 1440},
        {{2000, 1, 1, 0, 0, 0}, {1999, 12, 31, 0, 0, 0}, 1440},
        {{2001, 1, 1, 0, 0, 0}, {2000, 1, 1, 0, 0, 0}, 366 * 1440},
        {{2000, 1, 1, 0, 0, 0}, {1999, 1, 1, 0, 0, 0}, 365 * 1440},
        {{2000, 1, 1, 0, 0, 0}, {1900, 1, 1, 0, 0, 0}, 36524 * 1440},
        {{2100, 1, 1, 0, 0, 0}, {2000, 1, 1, 0, 0, 0}, 36525 * 1440},
    };
    for (const auto& row : rows) {
        const ZelDtTime span = At(row.later) - At(row.earlier);
        EXPECT_EQ(Unmarked(span), SpanOf(row.minutes)) << row.later << " - " << row.earlier;
        EXPECT_EQ(span.GetTime(ZelDtTime::Minuten), row.minutes);
        EXPECT_EQ(MinutesBetween(row.later, row.earlier), row.minutes);
    }
}

TEST(Span, IsThatOfTheTrueCalendar)
{
    std::mt19937_64 random(20250310);
    for (int i = 0; i < 4000; ++i) {
        const Fields a = RandomFields(random, 1800, 1999);
        const Fields b = RandomFields(random, 1800, 1999);
        ASSERT_EQ(Unmarked(At(a) - At(b)), SpanOf(MinutesBetween(a, b))) << a << " - " << b;
    }
    // and beyond the years that 16 bits hold
    const Given<ZelDtDateTime> late(Moment{{ZelDtWmMissing, 1, 0}, {100000, 3, 1, 0, 0, 0}});
    const Given<ZelDtDateTime> early(Moment{{ZelDtWmMissing, 1, 0}, {99999, 3, 1, 0, 0, 0}});
    EXPECT_EQ(Unmarked(late.it - early.it), SpanOf(366 * 1440)); // 100000 is a leap year
}

TEST(Span, CountsByDefinedness)
{
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        const Fields later{2000, 3, 6, 1, 30, 0};
        const std::vector<Moment> lefts = Moments({later});
        for (const Moment& a : lefts) {
            for (const Moment& b : Moments({{2000, 3, 5, 0, 0, 0}})) {
                const Given<ZelDtDateTime> left(a);
                const Given<ZelDtDateTime> right(b);
                const ZelDtTime span = left.it - right.it;
                const Amount expected =
                    Computes(a.state, b.state) ? SpanOf(25 * 60 + 30) : UndefinedAmount(standard);
                EXPECT_EQ(Unmarked(span), expected) << a << " - " << b;
                EXPECT_EQ(Look(left.it), a);
                EXPECT_EQ(Look(right.it), b);
            }
        }
    }
}

TEST(Span, OfWhatATimeCannotHoldIsAnError)
{
    // 107374182 minutes, 1789569 hours and 42 minutes, are the most that a time holds.
    const Fields earliest{1753, 1, 1, 0, 0, 0};
    const std::int64_t begin = SecondsOf(earliest);
    const std::int64_t most = 107374182;
    for (const std::int64_t minutes : {most - 60, most - 1, most})
        EXPECT_EQ(Unmarked(At(FieldsAt(begin + minutes * 60)) - At(earliest)), SpanOf(minutes));
    EXPECT_EQ(Unmarked(At(FieldsAt(begin + most * 60 + 59)) - At(earliest)), SpanOf(most));
    for (const std::int64_t minutes :
         {most + 1, most + 60, most + 18 * 60, 2 * most + 1, 4 * most, 40 * most}) {
        const Fields latest = FieldsAt(begin + minutes * 60);
        EXPECT_TRUE(
            FailsBecauseOf([&] { At(latest) - At(earliest); }, OperatorError(1, kDifference), 8))
            << latest;
    }
    // Whole hours count first: as many as fit are 1789569 either way.
    const std::int64_t hours = 1789569;
    const Fields back = FieldsAt(begin + hours * 3600);
    EXPECT_EQ(Unmarked(At(earliest) - At(back)), SpanOf(-hours * 60));
    for (const std::int64_t further : {hours + 1, hours + 24, 2 * hours, 40 * hours}) {
        const Fields latest = FieldsAt(begin + further * 3600);
        EXPECT_TRUE(
            FailsBecauseOf([&] { At(earliest) - At(latest); }, OperatorError(1, kDifference), 8))
            << latest;
    }
    EXPECT_TRUE(FailsBecauseOf(
        [&] {
            At({32767, 12, 31, 0, 0, 0}) - At(earliest);
        },
        OperatorError(1, kDifference), 8));
}

TEST(Span, OfTooFarMomentsIsNotComputedWithoutAValue)
{
    const Given<ZelDtDateTime> none(Moment{{ZelDtWmMissing, 0, 0}, {32767, 1, 1, 0, 0, 0}});
    EXPECT_EQ((none.it - At({1753, 1, 1, 0, 0, 0})).IsDefined(), 0);
    EXPECT_EQ((At({1753, 1, 1, 0, 0, 0}) - none.it).IsDefined(), 0);
}

// A span away

ZelDtTime Time(std::int32_t units)
{
    ZelDtTime time;
    time.SetFromSQL(units);
    return time;
}

/// The fields `minutes` later by the true calendar; the seconds stay.
Fields Later(const Fields& fields, std::int64_t minutes)
{
    return FieldsAt(SecondsOf(fields) + minutes * 60);
}

/// State and fields of a result; whether it counts as modified is not said.
Moment Unmarked(const ZelDtDateTime& value)
{
    Moment moment = Look(value);
    moment.state.modified = 0;
    return moment;
}

TEST(MomentASpanAway, KeepsItsSecondsAndCarries)
{
    const struct {
        Fields from;
        const char* span;
        Fields to;
    } rows[] = {
        {{2000, 3, 5, 14, 7, 9}, "0:00", {2000, 3, 5, 14, 7, 9}},
        {{2000, 3, 5, 14, 7, 9}, "0:01", {2000, 3, 5, 14, 8, 9}},
        {{2000, 3, 5, 14, 7, 9}, "0:53", {2000, 3, 5, 15, 0, 9}},
        {{2000, 3, 5, 14, 7, 9}, "9:53", {2000, 3, 6, 0, 0, 9}},
        {{2000, 3, 5, 14, 7, 9}, "24:00", {2000, 3, 6, 14, 7, 9}},
        {{2000, 3, 5, 14, 7, 9}, "1,50", {2000, 3, 5, 15, 37, 9}},
        {{2000, 3, 5, 14, 7, 9}, "2", {2000, 3, 5, 16, 7, 9}},
        // ends of months
        {{2000, 1, 31, 23, 59, 59}, "0:01", {2000, 2, 1, 0, 0, 59}},
        {{2000, 2, 28, 23, 59, 59}, "0:01", {2000, 2, 29, 0, 0, 59}},
        {{2000, 2, 29, 23, 59, 59}, "0:01", {2000, 3, 1, 0, 0, 59}},
        {{2001, 2, 28, 23, 59, 59}, "0:01", {2001, 3, 1, 0, 0, 59}},
        {{1900, 2, 28, 23, 59, 59}, "0:01", {1900, 3, 1, 0, 0, 59}},
        {{2000, 4, 30, 12, 0, 0}, "12:00", {2000, 5, 1, 0, 0, 0}},
        {{1999, 12, 31, 23, 59, 59}, "0:01", {2000, 1, 1, 0, 0, 59}},
        {{1999, 12, 31, 0, 0, 0}, "8808:00", {2001, 1, 1, 0, 0, 0}}, // 367 days
        {{1753, 1, 1, 0, 0, 0}, "0:01", {1753, 1, 1, 0, 1, 0}},
    };
    for (const auto& row : rows) {
        const ZelDtTime span(row.span);
        EXPECT_EQ(Unmarked(At(row.from) + span), DefinedMoment(row.to))
            << row.from << " + " << row.span;
        EXPECT_EQ(Later(row.from, span.GetTime(ZelDtTime::Minuten)), row.to);
        // The way back by the opposite span and by the other operator.
        EXPECT_EQ(Unmarked(At(row.to) - span), DefinedMoment(row.from))
            << row.to << " - " << row.span;
        const ZelDtTime opposite = Time(-Look(span).units);
        EXPECT_EQ(Unmarked(At(row.from) - opposite), DefinedMoment(row.to)) << row.span;
        EXPECT_EQ(Unmarked(At(row.to) + opposite), DefinedMoment(row.from)) << row.span;
    }
}

TEST(MomentASpanAway, GoesByWholeMinutes)
{
    // 20 units are a minute; what is less counts for nothing in either direction.
    const struct {
        int units;
        int minutes;
    } rows[] = {{0, 0},  {1, 0},  {19, 0},    {20, 1},    {21, 1},      {39, 1},
                {40, 2}, {-1, 0}, {-19, 0},   {-20, -1},  {-39, -1},    {-40, -2},
                {12, 0}, {24, 1}, {1199, 59}, {1200, 60}, {-1199, -59}, {28819, 1440}};
    for (const auto& row : rows) {
        for (const TimeMode mode : kTimeModes) {
            ZelDtTime span = Time(row.units);
            span.SetMode(mode);
            EXPECT_EQ(Unmarked(At(kSome) + span), DefinedMoment(Later(kSome, row.minutes)))
                << row.units;
            EXPECT_EQ(Unmarked(At(kSome) - span), DefinedMoment(Later(kSome, -row.minutes)))
                << row.units;
        }
    }
}

TEST(MomentASpanAway, CountsByDefinedness)
{
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const Moment& a : Moments({kSome})) {
            for (const Amount& b : Amounts({1800})) {
                const Given<ZelDtDateTime> left(a);
                const Given<ZelDtTime> right(b);
                const bool computes = Computes(a.state, b.state);
                // A sum is a copy of the date-time that was moved.
                const State copied{a.state.mode, 1, 0};
                EXPECT_EQ(Unmarked(left.it + right.it),
                          computes ? (Moment{copied, {2000, 3, 5, 15, 37, 9}})
                                   : UndefinedMoment(standard))
                    << a << " + " << b;
                EXPECT_EQ(Unmarked(left.it - right.it),
                          computes ? (Moment{copied, {2000, 3, 5, 12, 37, 9}})
                                   : UndefinedMoment(standard))
                    << a << " - " << b;
                EXPECT_EQ(Look(left.it), a);
                EXPECT_EQ(Look(right.it), b);
            }
        }
    }
}

TEST(MomentASpanAway, LaterIsExactHoweverFar)
{
    // Spans of more days than 16 bits count, up to the longest that there is.
    for (const std::int64_t days :
         {32766, 32767, 32768, 32769, 40000, 65535, 65536, 65537, 70000, 74565}) {
        for (const Fields& from : {Fields{1753, 1, 1, 0, 0, 0}, Fields{1999, 12, 31, 0, 0, 59},
                                   Fields{2000, 2, 29, 0, 0, 1}}) {
            const std::int64_t minutes = days * 1440;
            const auto units = static_cast<std::int32_t>(minutes * 20);
            EXPECT_EQ(Unmarked(At(from) + Time(units)), DefinedMoment(Later(from, minutes)))
                << from << " + " << days;
            EXPECT_EQ(Unmarked(At(from) - Time(-units)), DefinedMoment(Later(from, minutes)))
                << from << " - -" << days;
        }
    }
    EXPECT_EQ(Unmarked(At(kSome) + Time(kMostUnits)), DefinedMoment(Later(kSome, 107374182)));
    EXPECT_EQ(Unmarked(At(kSome) - Time(kLeastUnits)), DefinedMoment(Later(kSome, 107374182)));
    std::mt19937_64 random(20250311);
    for (int i = 0; i < 2000; ++i) {
        const Fields from = RandomFields(random, 1753, 9999);
        const auto units = static_cast<std::int32_t>(random() % 2147483648U);
        ASSERT_EQ(Unmarked(At(from) + Time(units)), DefinedMoment(Later(from, units / 20)))
            << from << " + " << units;
    }
}

TEST(MomentASpanAway, EarlierIsExactWithinTheYearAndFromJanuaryAndFebruary)
{
    std::mt19937_64 random(20250312);
    for (int i = 0; i < 2000; ++i) {
        const Fields from = RandomFields(random, 1900, 9999);
        // In the same year, or up to 25 years back.
        std::int64_t limit = (SecondsOf(from) - SecondsOf({from.year, 1, 1, 0, 0, 0})) / 60;
        if (from.month <= 2)
            limit = 9000 * 1440;
        const auto minutes =
            static_cast<std::int64_t>(random() % static_cast<std::uint64_t>(limit + 1));
        const auto units = static_cast<std::int32_t>(minutes * 20);
        ASSERT_EQ(Unmarked(At(from) - Time(units)), DefinedMoment(Later(from, -minutes)))
            << from << " - " << units;
        ASSERT_EQ(Unmarked(At(from) + Time(-units)), DefinedMoment(Later(from, -minutes)))
            << from << " + -" << units;
    }
}

TEST(MomentASpanAway, EarlierIsNotCutTo16BitsOfDays)
{
    // From March on, every stretch back may be a day off by the rule for subtracting days; no more
    // than three of them make up the longest span.
    for (const std::int64_t days : {32767, 32768, 32769, 40000, 65535, 65536, 65537, 74565}) {
        for (const Fields& from : {Fields{2500, 1, 1, 6, 7, 8}, Fields{2501, 2, 28, 0, 0, 0},
                                   Fields{9999, 12, 31, 23, 59, 59}}) {
            const auto units = static_cast<std::int32_t>(days * 1440 * 20);
            const std::int64_t expected = SecondsOf(from) - days * 86400;
            for (const ZelDtDateTime& result : {At(from) - Time(units), At(from) + Time(-units)}) {
                const std::int64_t off = SecondsOf(Look(result).fields) - expected;
                EXPECT_EQ(off % 86400, 0) << from << " - " << days;
                EXPECT_LE(std::abs(off), 3 * 86400) << from << " - " << days;
            }
        }
    }
}

TEST(MomentASpanAway, Before1753IsAnError)
{
    EXPECT_TRUE(FailsLike([] { At({1753, 1, 1, 0, 0, 59}) - Time(20); }, kShiftError, 27));
    EXPECT_TRUE(FailsLike([] { At({1753, 1, 1, 0, 0, 59}) + Time(-20); }, kSumError, 27));
    EXPECT_TRUE(
        FailsLike([] { At(kSome) - Time(kMostUnits) - Time(kMostUnits); }, kShiftError, 27));
    EXPECT_TRUE(FailsLike([] { At({1900, 1, 1, 0, 0, 0}) + Time(kLeastUnits); }, kSumError, 27));
    EXPECT_EQ(Unmarked(At({1753, 1, 1, 0, 1, 59}) - Time(20)),
              DefinedMoment({1753, 1, 1, 0, 0, 59}));
}

TEST(MomentASpanAway, IsNotComputedWithoutAValue)
{
    const Given<ZelDtDateTime> none(Moment{{ZelDtWmMissing, 0, 0}, {1753, 1, 1, 0, 0, 0}});
    EXPECT_EQ((none.it - Time(kMostUnits)).IsDefined(), 0);
    EXPECT_EQ((none.it + Time(kLeastUnits)).IsDefined(), 0);
}

TEST(MomentASpanAway, AndTheSpanBetweenFitTogether)
{
    std::mt19937_64 random(20250313);
    for (int i = 0; i < 1000; ++i) {
        const Fields from = RandomFields(random, 1753, 9000);
        const auto minutes = static_cast<std::int32_t>(random() % 107374183U);
        const ZelDtDateTime begin = At(from);
        const ZelDtTime span = Time(minutes * 20);
        ASSERT_TRUE((begin + span) - begin == span) << from << " + " << minutes;
    }
}

} // namespace
