/// Date-times in the time stamps of record sets.

#include "tests/datetime/datetime_testing.h"

#include <string>

namespace {

using namespace zeltest;

/// A record with two time stamps; its marks work without a database.
class Records : public CRecordset {
public:
    Records() { m_nFields = 2; }
    void DoFieldExchange(CFieldExchange* pFX) override
    {
        pFX->SetFieldType(CFieldExchange::outputColumn);
        RFX_Date(pFX, "FIRST", first);
        RFX_Date(pFX, "SECOND", second);
    }

    TIMESTAMP_STRUCT first{};
    TIMESTAMP_STRUCT second{};
};

/// All that a time stamp holds.
struct Stamp {
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
    unsigned long fraction = 0;

    friend bool operator==(const Stamp&, const Stamp&) = default;
    friend std::ostream& operator<<(std::ostream& os, const Stamp& s)
    {
        return os << s.year << '-' << s.month << '-' << s.day << ' ' << s.hour << ':' << s.minute
                  << ':' << s.second << '.' << s.fraction;
    }
};

Stamp StampOf(const TIMESTAMP_STRUCT& field)
{
    return {field.year,
            field.month,
            field.day,
            field.hour,
            field.minute,
            field.second,
            static_cast<unsigned long>(field.fraction)};
}

void Fill(TIMESTAMP_STRUCT& field, const Stamp& stamp)
{
    field.year = static_cast<SHORT>(stamp.year);
    field.month = static_cast<USHORT>(stamp.month);
    field.day = static_cast<USHORT>(stamp.day);
    field.hour = static_cast<USHORT>(stamp.hour);
    field.minute = static_cast<USHORT>(stamp.minute);
    field.second = static_cast<USHORT>(stamp.second);
    field.fraction = static_cast<decltype(field.fraction)>(stamp.fraction);
}

constexpr Stamp kOld{1, 2, 3, 4, 5, 6, 700000007};

const Error kFrom = FunctionError(1, "SetFromRecordSet(");
const Error kTo = FunctionError(1, "ConvToRecordSet(");

/// The clock of all these tests stands in the years 2000 to 2099.
class RecordSet : public ::testing::Test {
    FixedClock m_clock{kClock};
};

TEST_F(RecordSet, FieldsThatAreNullClear)
{
    for (const Moment& moment : Moments({kNew, kSome})) {
        for (const Stamp& stamp : {kOld, Stamp{2001, 2, 3, 4, 5, 6, 7}, Stamp{}}) {
            Records records;
            Fill(records.first, stamp);
            records.SetFieldNull(nullptr, FALSE);
            records.SetFieldNull(&records.first, TRUE);
            Given<ZelDtDateTime> given(moment);
            given.it.SetFromRecordSet(records, records.first);
            EXPECT_EQ(Look(given.it), Cleared(moment));
            EXPECT_EQ(StampOf(records.first), stamp);
        }
    }
}

TEST_F(RecordSet, FieldsAreTakenOverWithoutTheirFraction)
{
    const struct {
        Stamp stamp;
        Fields fields;
    } rows[] = {
        {{2000, 3, 5, 14, 7, 9, 0}, kSome},
        {{2000, 3, 5, 14, 7, 9, 999999999}, kSome},
        {{1900, 1, 1, 0, 0, 0, 5}, kNew},
        {{2004, 2, 29, 23, 59, 59, 0}, {2004, 2, 29, 23, 59, 59}},
        {{1753, 1, 1, 0, 0, 0, 0}, {1753, 1, 1, 0, 0, 0}},
        {{9999, 12, 31, 23, 59, 59, 0}, {9999, 12, 31, 23, 59, 59}},
        {{32767, 12, 31, 23, 59, 59, 0}, {32767, 12, 31, 23, 59, 59}},
        // years of two digits are those of the present century
        {{5, 3, 5, 1, 2, 3, 0}, {2005, 3, 5, 1, 2, 3}},
        {{99, 3, 5, 1, 2, 3, 0}, {2099, 3, 5, 1, 2, 3}},
        {{0, 3, 5, 1, 2, 3, 0}, {2000, 3, 5, 1, 2, 3}},
        {{-5, 3, 5, 1, 2, 3, 0}, {1995, 3, 5, 1, 2, 3}},
    };
    for (const Moment& moment :
         Moments({kNew, kSome, {2000, 2, 29, 0, 0, 0}, {1900, 0, 0, 1, 2, 3}})) {
        for (const auto& row : rows) {
            Records records;
            Fill(records.first, row.stamp);
            records.SetFieldNull(nullptr, TRUE);
            records.SetFieldNull(&records.first, FALSE);
            Given<ZelDtDateTime> given(moment);
            given.it.SetFromRecordSet(records, records.first);
            EXPECT_EQ(Look(given.it), Taken(moment, row.fields))
                << moment << " reads " << row.stamp;
            EXPECT_EQ(StampOf(records.first), row.stamp);
            EXPECT_FALSE(records.IsFieldNull(&records.first));
        }
    }
}

TEST_F(RecordSet, FieldsThatAreNoMomentChangeNothing)
{
    const struct {
        Stamp stamp;
        unsigned long first;
    } rows[] = {
        {{1752, 12, 31, 0, 0, 0, 0}, 27},    {{100, 1, 1, 0, 0, 0, 0}, 27},
        {{-32768, 1, 1, 0, 0, 0, 0}, 27},    {{2000, 0, 5, 0, 0, 0, 0}, 26},
        {{2000, 13, 5, 0, 0, 0, 0}, 26},     {{2000, 65535, 5, 0, 0, 0, 0}, 26},
        {{2000, 32769, 5, 0, 0, 0, 0}, 26},  {{2000, 3, 0, 0, 0, 0, 0}, 25},
        {{2000, 3, 32, 0, 0, 0, 0}, 25},     {{2000, 2, 30, 0, 0, 0, 0}, 25},
        {{2001, 2, 29, 0, 0, 0, 0}, 25},     {{2000, 3, 65535, 0, 0, 0, 0}, 25},
        {{2000, 3, 32770, 0, 0, 0, 0}, 25},  {{2000, 3, 5, 24, 0, 0, 0}, 28},
        {{2000, 3, 5, 65535, 0, 0, 0}, 28},  {{2000, 3, 5, 32767, 0, 0, 0}, 28},
        {{2000, 3, 5, 0, 60, 0, 0}, 29},     {{2000, 3, 5, 0, 65535, 0, 0}, 29},
        {{2000, 3, 5, 0, 0, 60, 0}, 30},     {{2000, 3, 5, 0, 0, 65535, 0}, 30},
        {{1752, 13, 32, 24, 60, 60, 0}, 27}, {{2000, 13, 32, 24, 60, 60, 0}, 26},
        {{2000, 12, 32, 24, 60, 60, 0}, 25}, {{2000, 12, 31, 24, 60, 60, 0}, 28},
        {{2000, 12, 31, 23, 60, 60, 0}, 29}, {{2000, 12, 31, 23, 59, 60, 0}, 30},
        {{0, 0, 0, 0, 0, 0, 0}, 26}, // the year 0 is 2000
    };
    for (const auto& row : rows) {
        for (const Moment& moment : Moments({kSome})) {
            Records records;
            Fill(records.first, row.stamp);
            records.SetFieldNull(&records.first, FALSE);
            Given<ZelDtDateTime> given(moment);
            EXPECT_TRUE(FailsLike([&] { given.it.SetFromRecordSet(records, records.first); }, kFrom,
                                  row.first))
                << row.stamp;
            EXPECT_EQ(Catch([&] { given.it.SetFromRecordSet(records, records.first); }).first,
                      SetterError(row.first))
                << row.stamp;
            EXPECT_EQ(Look(given.it), moment) << row.stamp;
        }
    }
}

TEST_F(RecordSet, ReceivesDefinedValuesExceptTheFraction)
{
    const struct {
        Fields fields;
        Stamp stamp;
    } rows[] = {
        {kSome, {2000, 3, 5, 14, 7, 9, kOld.fraction}},
        {kNew, {1900, 1, 1, 0, 0, 0, kOld.fraction}},
        {{1753, 1, 1, 23, 59, 59}, {1753, 1, 1, 23, 59, 59, kOld.fraction}},
        {{9999, 12, 31, 0, 0, 0}, {9999, 12, 31, 0, 0, 0, kOld.fraction}},
        {{32767, 12, 31, 0, 0, 0}, {32767, 12, 31, 0, 0, 0, kOld.fraction}},
        {{1900, 0, 0, 1, 2, 3}, {1900, 0, 0, 1, 2, 3, kOld.fraction}},
        {{-32768, 3, 5, 1, 2, 3}, {-32768, 3, 5, 1, 2, 3, kOld.fraction}},
    };
    for (const State& state : AllStates()) {
        if (!state.defined)
            continue;
        for (const auto& row : rows) {
            for (const BOOL null : {FALSE, TRUE}) {
                Records records;
                Fill(records.first, kOld);
                Fill(records.second, kOld);
                records.SetFieldNull(nullptr, null);
                const Given<ZelDtDateTime> given(Moment{state, row.fields});
                given.it.ConvToRecordSet(records, records.first);
                EXPECT_EQ(StampOf(records.first), row.stamp);
                EXPECT_FALSE(records.IsFieldNull(&records.first));
                EXPECT_EQ(StampOf(records.second), kOld);
                EXPECT_EQ(records.IsFieldNull(&records.second), null);
                EXPECT_EQ(Look(given.it), (Moment{state, row.fields}));
            }
        }
    }
}

TEST_F(RecordSet, IsMarkedNullForUndefinedValuesAndKeepsTheField)
{
    for (const Moment& moment : Moments({kNew, kSome, {40000, 500, -1, 99, 100, 1000}})) {
        if (moment.state.defined)
            continue;
        for (const BOOL null : {FALSE, TRUE}) {
            Records records;
            Fill(records.second, kOld);
            records.SetFieldNull(nullptr, null);
            const Given<ZelDtDateTime> given(moment);
            given.it.ConvToRecordSet(records, records.second);
            EXPECT_EQ(StampOf(records.second), kOld);
            EXPECT_TRUE(records.IsFieldNull(&records.second));
            EXPECT_EQ(records.IsFieldNull(&records.first), null);
            EXPECT_EQ(Look(given.it), moment);
        }
    }
}

TEST_F(RecordSet, OfWhatTheFieldCannotHoldIsAnError)
{
    std::vector<Fields> rows;
    for (const std::int64_t year :
         {std::int64_t{32768}, std::int64_t{-32769}, std::int64_t{65536 + 2000},
          std::int64_t{kMaxInt} + 1900, std::int64_t{kMinInt} + 1900})
        rows.push_back({year, 3, 5, 14, 7, 9});
    std::int64_t Fields::*const places[] = {&Fields::month, &Fields::day, &Fields::hour,
                                            &Fields::minute, &Fields::second};
    for (const auto place : places) {
        for (const int number : {-1, 65536, 65541, kMaxInt, kMinInt + 1}) {
            Fields f = kSome;
            f.*place = number;
            rows.push_back(f);
        }
    }
    for (const Fields& fields : rows) {
        Records records;
        Fill(records.first, kOld);
        records.SetFieldNull(nullptr, TRUE);
        const Given<ZelDtDateTime> given(Moment{{ZelDtWmMissing, 1, 0}, fields});
        EXPECT_TRUE(FailsLike([&] { given.it.ConvToRecordSet(records, records.first); }, kTo, 8))
            << fields;
        // No part of a moment without a place is handed over.
        EXPECT_EQ(StampOf(records.first), kOld) << fields;
        EXPECT_EQ(Look(given.it).fields, fields);
    }
}

TEST_F(RecordSet, ReadsBackWhatItReceived)
{
    std::mt19937_64 random(20250308);
    for (int i = 0; i < 500; ++i) {
        const Fields fields = RandomFields(random, 1753, 9999);
        Records records;
        FromSixNumbers(fields).ConvToRecordSet(records, records.first);
        ZelDtDateTime back;
        back.SetFromRecordSet(records, records.first);
        ASSERT_EQ(Look(back).fields, fields);
    }
}

TEST_F(RecordSet, RefusesFieldsThatAreNotItsOwn)
{
    Records records;
    TIMESTAMP_STRUCT stranger{};
    Fill(stranger, {2001, 2, 3, 4, 5, 6, 7});
    const Given<ZelDtDateTime> given(Moment{{ZelDtWmMissing, 1, 0}, kSome});
    ZelDtDateTime value(given.it);
    EXPECT_TRUE(FailsLike([&] { value.SetFromRecordSet(records, stranger); }, kFrom));
    EXPECT_EQ(Catch([&] { value.SetFromRecordSet(records, stranger); }).causeClass, "CDBException");
    EXPECT_EQ(Look(value), (Moment{{ZelDtWmMissing, 1, 0}, kSome}));
    EXPECT_TRUE(FailsLike([&] { value.ConvToRecordSet(records, stranger); }, kTo));
    EXPECT_EQ(Catch([&] { value.ConvToRecordSet(records, stranger); }).causeClass, "CDBException");
    EXPECT_EQ(Look(value), (Moment{{ZelDtWmMissing, 1, 0}, kSome}));
}

} // namespace
