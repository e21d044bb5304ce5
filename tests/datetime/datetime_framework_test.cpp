/// ZelDtDateTime and the framework's dates.

#include "tests/datetime/datetime_testing.h"

#include <limits>

namespace {

using namespace zeltest;

const Error kConstructionError = ConstructionError("ZelDtDateTime(COleDateTime)");
const Error kAssignmentError = OperatorError(1, "operator=(COleDateTime&)");

COleDateTime Framework(const Fields& f)
{
    return COleDateTime(static_cast<int>(f.year), static_cast<int>(f.month),
                        static_cast<int>(f.day), static_cast<int>(f.hour),
                        static_cast<int>(f.minute), static_cast<int>(f.second));
}

/// Dates that are none, for one reason or another.
std::vector<COleDateTime> NoDates()
{
    std::vector<COleDateTime> dates;
    for (const COleDateTime::DateTimeStatus status :
         {COleDateTime::invalid, COleDateTime::null, COleDateTime::error}) {
        COleDateTime date = Framework(kSome);
        date.SetStatus(status);
        dates.push_back(date);
    }
    dates.push_back(Framework({2001, 2, 29, 0, 0, 0}));
    dates.push_back(COleDateTime(1e9));
    return dates;
}

const std::vector<Fields> kMoments = {kSome,
                                      kNew,
                                      {1899, 12, 30, 0, 0, 0},
                                      {1899, 12, 29, 6, 0, 1},
                                      {1753, 1, 1, 0, 0, 0},
                                      {1753, 1, 1, 23, 59, 59},
                                      {2000, 2, 29, 23, 59, 59},
                                      {9999, 12, 31, 23, 59, 59}};

TEST(FromTheFramework, TakesTheMomentOfAValidDate)
{
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const Fields& fields : kMoments) {
            const COleDateTime source = Framework(fields);
            ASSERT_EQ(source.GetStatus(), COleDateTime::valid);
            const ZelDtDateTime value(source);
            EXPECT_EQ(Look(value), DefinedMoment(fields));
            EXPECT_EQ(ExtrasOf(RecordOf(value)), NoExtras());
            for (const Moment& moment : Moments({kNew, kSome})) {
                Given<ZelDtDateTime> given(moment);
                EXPECT_EQ(&(given.it = source), &given.it);
                EXPECT_EQ(Look(given.it), Taken(moment, fields)) << moment << " = " << fields;
            }
        }
    }
}

TEST(FromTheFramework, TakesNothingOfAnyOther)
{
    for (const COleDateTime& source : NoDates()) {
        for (const ZelDtWorkingMode standard : kRealModes) {
            const DefaultMode guard(standard);
            EXPECT_EQ(Look(ZelDtDateTime(source)), UndefinedMoment(standard)) << source.GetStatus();
        }
        for (const Moment& moment : Moments({kNew, kSome})) {
            Given<ZelDtDateTime> given(moment);
            EXPECT_EQ(&(given.it = source), &given.it);
            EXPECT_EQ(Look(given.it), Cleared(moment)) << source.GetStatus();
        }
    }
}

TEST(FromTheFramework, RefusesYearsBefore1753)
{
    for (const Fields& fields : {Fields{1752, 12, 31, 23, 59, 59}, Fields{1000, 6, 15, 12, 0, 0},
                                 Fields{100, 1, 1, 0, 0, 0}}) {
        const COleDateTime source = Framework(fields);
        ASSERT_EQ(source.GetStatus(), COleDateTime::valid);
        EXPECT_TRUE(
            FailsBecauseOf([&] { const ZelDtDateTime value(source); }, kConstructionError, 27));
        for (const Moment& moment : Moments({kSome})) {
            Given<ZelDtDateTime> given(moment);
            EXPECT_TRUE(FailsBecauseOf([&] { given.it = source; }, kAssignmentError, 27));
            EXPECT_EQ(Look(given.it), moment);
        }
    }
}

TEST(FromTheFramework, NeverTakesFieldsOfADateOutsideItsRange)
{
    // Nothing keeps a program from putting both together.
    for (const double days : {1e9, -1e9, std::numeric_limits<double>::infinity(),
                              std::numeric_limits<double>::quiet_NaN()}) {
        COleDateTime source;
        source.m_dt = days;
        source.m_status = COleDateTime::valid;
        Given<ZelDtDateTime> given(Moment{{ZelDtWmMissing, 1, 0}, kSome});
        const Caught caught = Catch([&] { given.it = source; });
        if (caught.disturbance == "nothing")
            EXPECT_EQ(Look(given.it), Cleared({{ZelDtWmMissing, 1, 0}, kSome}));
        else
            EXPECT_TRUE(Matches(caught, kAssignmentError));
        const Caught made = Catch([&] { EXPECT_EQ(ZelDtDateTime(source).IsDefined(), 0); });
        if (made.disturbance != "nothing") {
            EXPECT_TRUE(Matches(made, kConstructionError));
        }
    }
}

TEST(ToTheFramework, IsTheMomentOfADefinedValue)
{
    for (const Moment& moment : Moments(kMoments)) {
        if (!moment.state.defined)
            continue;
        const Given<ZelDtDateTime> given(moment);
        const COleDateTime date = given.it;
        EXPECT_EQ(date.GetStatus(), COleDateTime::valid);
        EXPECT_TRUE(date == Framework(moment.fields)) << moment;
        EXPECT_EQ((Fields{date.GetYear(), date.GetMonth(), date.GetDay(), date.GetHour(),
                          date.GetMinute(), date.GetSecond()}),
                  moment.fields);
        EXPECT_EQ(Look(given.it), moment);
    }
}

TEST(ToTheFramework, IsNullWithoutAValue)
{
    for (const Moment& moment : Moments({kNew, kSome, {40000, 500, -1, 99, 100, 1000}})) {
        if (moment.state.defined)
            continue;
        const Given<ZelDtDateTime> given(moment);
        const COleDateTime date = given.it;
        EXPECT_EQ(date.GetStatus(), COleDateTime::null) << moment;
        EXPECT_EQ(date.m_dt, 0.0) << moment;
        EXPECT_EQ(Look(given.it), moment);
    }
}

TEST(ToTheFramework, IsInvalidForWhatTheFrameworkCannotHold)
{
    std::vector<Fields> rows = {{1900, 0, 0, 14, 7, 9}, {2001, 2, 29, 0, 0, 0},
                                {10000, 1, 1, 0, 0, 0}, {99, 1, 1, 0, 0, 0},
                                {-5, 1, 1, 0, 0, 0},    {2000, 3, 5, 24, 0, 0},
                                {2000, 3, 5, 0, 60, 0}, {2000, 3, 5, 0, 0, 60}};
    for (const std::int64_t year :
         {std::int64_t{65536} + 2000, std::int64_t{kMaxInt} + 1900, std::int64_t{kMaxInt},
          std::int64_t{kMinInt} + 1900, std::int64_t{kMaxInt} + 1})
        rows.push_back({year, 3, 5, 14, 7, 9});
    std::int64_t Fields::*const places[] = {&Fields::month, &Fields::day, &Fields::hour,
                                            &Fields::minute, &Fields::second};
    for (const auto place : places) {
        for (const int number : {-1, 100, 256 + 5, 65536 + 5, kMaxInt, kMinInt + 1}) {
            Fields f = kSome;
            f.*place = number;
            rows.push_back(f);
        }
    }
    for (const Fields& fields : rows) {
        const Given<ZelDtDateTime> given(Moment{{ZelDtWmMissing, 1, 0}, fields});
        const COleDateTime date = given.it;
        EXPECT_EQ(date.GetStatus(), COleDateTime::invalid) << fields;
    }
}

TEST(TheFrameworkAndBack, IsTheSameMoment)
{
    std::mt19937_64 random(20250309);
    for (int i = 0; i < 3000; ++i) {
        const Fields fields = RandomFields(random, 1753, 9999);
        const ZelDtDateTime value = FromSixNumbers(fields);
        const COleDateTime date = value;
        ASSERT_EQ(Look(ZelDtDateTime(date)).fields, fields);
    }
}

TEST(TheFrameworkAndBack, KeepsValuesThatAreNone)
{
    for (const ZelDtWorkingMode mode : {ZelDtWmMissing, ZelDtWmNull}) {
        const DefaultMode guard(mode);
        const ZelDtDateTime none;
        const COleDateTime date = none;
        EXPECT_EQ(Look(ZelDtDateTime(date)), UndefinedMoment(mode));
    }
}

} // namespace
