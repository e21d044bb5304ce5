/// SQL, external and record set forms of ZelDtTime.

#include "tests/datetime/time_testing.h"

#include "text/DTSTRING.h"

#include <random>
#include <string>

namespace {

using namespace zeltest;

std::string TextOf(const ZelDtString& text)
{
    return static_cast<const char*>(text);
}

// SQL

TEST(Sql, IsTheCountOfUnitsOrNull)
{
    const struct {
        std::int32_t units;
        const char* text;
    } rows[] = {{0, "0"},
                {1, "1"},
                {-1, "-1"},
                {1800, "1800"},
                {-600, "-600"},
                {kMostUnits, "2147483647"},
                {kLeastUnits, "-2147483648"}};
    for (const auto& row : rows) {
        for (const Amount& amount : AmountsInAllModes({row.units})) {
            const Given<ZelDtTime> given(amount);
            const ZelDtString sql = given.it.ConvToSQL();
            EXPECT_EQ(TextOf(sql), amount.state.defined ? row.text : "NULL") << amount;
            EXPECT_EQ(sql.IsDefined(), 1) << amount;
            EXPECT_EQ(Look(given.it), amount);
        }
    }
    EXPECT_EQ(TextOf(ZelDtTime("1:30").ConvToSQL()), "1800");
    EXPECT_EQ(TextOf(ZelDtTime(ZelDtWmNull).ConvToSQL()), "NULL");
}

TEST(Sql, UnitsAreTakenOver)
{
    for (const Amount& before : AmountsInAllModes({0, 1800, -7})) {
        for (const std::int32_t units : {0, 1, 1800, -7, kMostUnits, kLeastUnits}) {
            Given<ZelDtTime> given(before);
            given.it.SetFromSQL(units);
            EXPECT_EQ(Look(given.it), Taken(before, units)) << before << " takes " << units;
        }
        for (const long wide : WideLongs()) {
            Given<ZelDtTime> given(before);
            EXPECT_TRUE(FailsIn("SetFromSQL", 8, [&] { given.it.SetFromSQL(wide); })) << wide;
            EXPECT_EQ(Look(given.it), before);
        }
    }
}

// External text

struct External {
    std::int32_t units;
    const char* text;
    std::int32_t back; ///< what the text is read as
};

constexpr std::int32_t kHour = 1200;
constexpr std::int32_t kDay = 24 * kHour;
constexpr std::int32_t kMonth = 30 * kDay;
constexpr std::int32_t kYear = 12 * kMonth;

const External kExternals[] = {
    // less than a day
    {0, "T000000", 0},
    {20, "T000100", 20},
    {600, "T003000", 600},
    {1180, "T005900", 1180},
    {kHour, "T010000", kHour},
    {1800, "T013000", 1800},
    {9900, "T081500", 9900},
    {23 * kHour + 1180, "T235900", 23 * kHour + 1180},
    {-kHour, "T-010000", -kHour},
    {-1800, "T-013000", -1800},
    {-23 * kHour - 1180, "T-235900", -23 * kHour - 1180},
    // whole days
    {kDay, "D01000000", kDay},
    {-kDay, "D-01000000", -kDay},
    {29 * kDay, "D29000000", 29 * kDay},
    {kMonth, "D00010000", kMonth},
    {31 * kDay, "D01010000", 31 * kDay},
    {11 * kMonth + 29 * kDay, "D29110000", 11 * kMonth + 29 * kDay},
    {kYear, "D00000001", kYear},
    {-kYear, "D-00000001", -kYear},
    {365 * kDay, "D05000001", 365 * kDay},
    {100 * kYear, "D00000100", 100 * kYear},
    {2147472000, "D15010207", 2147472000}, // 74565 days
    // days and a time
    {kDay + 20, "C01000000000100", kDay + 20},
    {kDay + kHour, "C01000000010000", kDay + kHour},
    {-50 * kHour, "C-02000000020000", -50 * kHour},
    {30 * kDay + 8 * kHour + 300, "C00010000081500", 30 * kDay + 8 * kHour + 300},
    {kYear + 23 * kHour + 1180, "C00000001235900", kYear + 23 * kHour + 1180},
    {-kYear - 600, "C-00000001003000", -kYear - 600},
    // less than an hour has no sign, less than a minute is dropped
    {-600, "T003000", 600},
    {-1180, "T005900", 1180},
    {1, "T000000", 0},
    {-19, "T000000", 0},
    {39, "T000100", 20},
    {-1219, "T-010000", -kHour},
    {kDay + 19, "D01000000", kDay},
    {-kDay - 19, "D-01000000", -kDay},
    {12, "T000000", 0}, // a hundredth of an hour
    // the limits
    {kMostUnits, "C15010207094200", 2147483640},
    {kLeastUnits, "C-15010207094200", -2147483640},
};

TEST(ExternalText, IsSplitIntoMonthsOf30DaysAndYearsOf12Months)
{
    for (const External& row : kExternals) {
        for (const ZelDtWorkingMode standard : kRealModes) {
            const DefaultMode guard(standard);
            for (const Amount& amount : AmountsInAllModes({row.units})) {
                const Given<ZelDtTime> given(amount);
                for (const int before : {-1, 0, 1}) {
                    int defined = before;
                    unsigned short version = 4711;
                    const ZelDtString text = given.it.ConvToExtern(defined, version);
                    EXPECT_EQ(TextOf(text), amount.state.defined ? row.text : "") << amount;
                    EXPECT_EQ(StateOf(text),
                              amount.state.defined ? NewDefined() : NewUndefined(standard))
                        << amount;
                    EXPECT_EQ(defined, amount.state.defined);
                    EXPECT_EQ(version, 100);
                }
                EXPECT_EQ(Look(given.it), amount);
            }
        }
    }
}

TEST(ExternalText, IsReadBack)
{
    for (const External& row : kExternals) {
        const ZelDtString text(row.text);
        for (const Amount& before : AmountsInAllModes({0, 1800, row.units})) {
            Given<ZelDtTime> given(before);
            given.it.SetFromExtern(&text, 1, 100);
            EXPECT_EQ(Look(given.it), Taken(before, row.back)) << before << " reads " << row.text;
        }
    }
}

TEST(ExternalText, IsReadWithAnySign)
{
    const struct {
        const char* text;
        std::int32_t units;
    } rows[] = {{"T-003000", -600},
                {"T-000000", 0},
                {"T-000100", -20},
                {"D00000000", 0},
                {"D-00000000", 0},
                {"C00000000000000", 0},
                {"C-00000000000000", 0},
                {"C00000000013000", 1800}, // another letter than the one written
                {"C-00000000013000", -1800},
                {"C-00000000003000", -600},
                {"C01000000000000", kDay},
                {"D02030004", 4 * kYear + 3 * kMonth + 2 * kDay},
                {"C-02030004053000", -(4 * kYear + 3 * kMonth + 2 * kDay + 5 * kHour + 600)}};
    for (const auto& row : rows) {
        const ZelDtString text(row.text);
        for (const Amount& before : AmountsInAllModes({0, 1800})) {
            Given<ZelDtTime> given(before);
            given.it.SetFromExtern(&text, 1, 100);
            EXPECT_EQ(Look(given.it), Taken(before, row.units)) << before << " reads " << row.text;
        }
    }
}

/// An error of the text: the value is defined already, its amount is the one before.
void ExpectRejected(const ZelDtString& text, unsigned long error)
{
    for (const TimeMode mode : kTimeModes) {
        for (const Amount& before : Amounts({0, 1800}, mode)) {
            Given<ZelDtTime> given(before);
            EXPECT_TRUE(FailsWith([&] { given.it.SetFromExtern(&text, 1, 100); },
                                  TimeError(error, "SetFromExtern(ZelDtString*,BOOL,USHORT)")))
                << '"' << TextOf(text) << '"';
            Amount expected = before;
            SetDefined(expected.state, 1);
            EXPECT_EQ(Look(given.it), expected) << '"' << TextOf(text) << '"';
        }
    }
}

TEST(ExternalText, OfAnotherFormIsRefused)
{
    for (const char* const text : {
             // no letter, an unknown one, the letter alone
             "",
             " ",
             "013000",
             "X013000",
             "t013000",
             "d01000000",
             "c01000000010000",
             "013000T",
             "-013000",
             "T",
             "D",
             "C",
             "T-",
             "D-",
             "C-",
             "TT13000",
             "\xD4"
             "013000",
             // the wrong number of digits
             "T0",
             "T01300",
             "T0130000",
             "T13000",
             "T-01300",
             "T-0130000",
             "T01000000",
             "T01000000010000",
             "D0100000",
             "D010000000",
             "D-0100000",
             "D-010000000",
             "D010000",
             "D01000000010000",
             "C0100000001000",
             "C010000000100000",
             "C-0100000001000",
             "C-010000000100000",
             "C010000",
             "C01000000",
             "T01300000000000000000000000000000",
             // something else in place of a digit
             "T01300x",
             "Tx13000",
             "T0130 0",
             "T 13000",
             "T01:300",
             "T01.300",
             "T0x1300",
             "D0100000 ",
             "D01.00000",
             "C0100000 010000",
             "T\xB2\xB2\xB2\xB2\xB2\xB2",
             // something around
             " T013000",
             "T013000 ",
             "T013000\n",
             "T013000x",
             "D01000000 ",
             "C01000000010000 ",
             "T 013000",
             "TT013000",
             // other signs
             "T+013000",
             "T--013000",
             "T- 013000",
             "T -013000",
             "-T013000",
             "T013000-",
             "T01-3000",
             "T-01-3000",
             "T01-300",
             "D+01000000",
             "D--01000000",
             "D01-00000",
             "C+01000000010000",
             "C--01000000010000",
             "C01000000-010000",
             "C01000000-01000",
         })
        ExpectRejected(ZelDtString(text), 18);
}

TEST(ExternalText, OfMoreThanFitsIsRefused)
{
    const struct {
        const char* text;
        unsigned long error;            // 0: the last one that fits
    } rows[] = {{"C15010207094200", 0}, // 2147483640 units, 7 below the limit
                {"C15010207094300", 8},  {"C15010207100000", 8}, {"D16010207", 8},
                {"D15010207", 0},        {"D00000208", 8},       {"C-15010207094200", 0},
                {"C-15010207094300", 8}, {"D-16010207", 8},      {"D-00000208", 8},
                {"D29110414", 8}, // small again after 32 bits
                {"D00009999", 8},        {"D-00009999", 8},      {"C29119999235900", 8},
                {"C-29119999235900", 8}};
    for (const auto& row : rows) {
        const ZelDtString text(row.text);
        if (row.error != 0) {
            ExpectRejected(text, row.error);
            continue;
        }
        ZelDtTime value;
        value.SetFromExtern(&text, 1, 100);
        int defined = 0;
        unsigned short version = 0;
        EXPECT_EQ(TextOf(value.ConvToExtern(defined, version)), row.text);
    }
}

TEST(ExternalText, OfAnotherVersionIsAnErrorThatChangesNothing)
{
    const ZelDtString text("T013000");
    const ZelDtString garbage("garbage");
    const ZelDtString undefined(ZelDtWmMissing);
    for (const Amount& before : AmountsInAllModes({0, 1800})) {
        for (const unsigned short version : {0, 1, 99, 101, 200, 356, 65535}) {
            for (const int defined : {0, 1, 2}) {
                for (const ZelDtString* p :
                     {&text, &garbage, &undefined, static_cast<const ZelDtString*>(nullptr)}) {
                    Given<ZelDtTime> given(before);
                    ASSERT_TRUE(FailsWith([&] { given.it.SetFromExtern(p, defined, version); },
                                          TimeError(14, "SetFromExtern(ZelDtString*,BOOL,USHORT)")))
                        << version;
                    ASSERT_EQ(Look(given.it), before);
                }
            }
        }
    }
}

TEST(ExternalText, ClearsWhenUndefinedOrAbsent)
{
    const ZelDtString text("T013000");
    const ZelDtString garbage("garbage");
    const ZelDtString undefined(ZelDtWmMissing);
    const struct {
        const ZelDtString* text;
        int defined;
    } rows[] = {{&text, 0}, {&garbage, 0}, {&undefined, 0}, {nullptr, 0}, {nullptr, 1},
                {&text, 2}, {&text, -1},   {&garbage, 256}, {nullptr, -1}};
    for (const Amount& before : AmountsInAllModes({0, 1800})) {
        for (const auto& row : rows) {
            Given<ZelDtTime> given(before);
            given.it.SetFromExtern(row.text, row.defined, 100);
            EXPECT_EQ(Look(given.it), Cleared(before)) << before << ", defined " << row.defined;
        }
    }
}

TEST(ExternalText, ThatIsUndefinedThoughDefinedIsInconsistent)
{
    for (const ZelDtWorkingMode mode : {ZelDtWmMissing, ZelDtWmNull})
        ExpectRejected(ZelDtString(mode), 13);
}

TEST(ExternalText, RoundTripsWholeMinutesOfAtLeastAnHour)
{
    std::mt19937 random(20430);
    for (int i = 0; i < 5000; ++i) {
        const std::int32_t minutes =
            (static_cast<std::int32_t>(random()) >> (random() % 26)) / 20 % 107374182;
        const std::int32_t units = minutes * 20;
        const Amount amount{{ZelDtWmMissing, 1, 0}, units, kTimeModes[random() % 3]};
        const Given<ZelDtTime> given(amount);
        int defined = -1;
        unsigned short version = 0;
        const ZelDtString text = given.it.ConvToExtern(defined, version);
        ZelDtTime back;
        back.SetFromExtern(&text, defined, version);
        const bool signLost = units < 0 && units > -kHour;
        ASSERT_EQ(Look(back), (Amount{{ZelDtWmMissing, 1, 1}, signLost ? -units : units, kMinutes}))
            << TextOf(text);
    }
}

TEST(ExternalText, RoundTripsEveryState)
{
    for (const Amount& amount : AmountsInAllModes({0, 1800, -kDay, -kDay - 1800})) {
        const Given<ZelDtTime> given(amount);
        int defined = -1;
        unsigned short version = 0;
        const ZelDtString text = given.it.ConvToExtern(defined, version);
        ZelDtTime back(ZelDtWmNull);
        back.SetFromExtern(&text, defined, version);
        EXPECT_EQ(back.IsDefined(), amount.state.defined);
        EXPECT_EQ(StoredUnits(back), amount.state.defined ? amount.units : 0) << amount;
    }
}

// Record set

/// A record with two numbers and a text; its marks work without a database.
class Records : public CRecordset {
public:
    Records() { m_nFields = 3; }
    void DoFieldExchange(CFieldExchange* pFX) override
    {
        pFX->SetFieldType(CFieldExchange::outputColumn);
        RFX_Long(pFX, "FIRST", first);
        RFX_Long(pFX, "SECOND", second);
        RFX_Text(pFX, "NAME", name, 20);
    }

    long first = 0;
    long second = 0;
    CString name;
};

TEST(RecordSet, FieldsThatAreNullClear)
{
    for (const Amount& before : AmountsInAllModes({0, 1800})) {
        Records records;
        records.first = 600;
        records.SetFieldNull(&records.first, TRUE);
        Given<ZelDtTime> given(before);
        given.it.SetFromRecordSet(records, records.first);
        EXPECT_EQ(Look(given.it), Cleared(before));
        EXPECT_EQ(records.first, 600);
    }
}

TEST(RecordSet, FieldsAreTakenOverWhereTheyDiffer)
{
    for (const Amount& before : AmountsInAllModes({0, 1800, -7})) {
        for (const std::int32_t units : {0, 1800, -7, kMostUnits, kLeastUnits}) {
            Records records;
            records.first = units;
            records.SetFieldNull(nullptr, TRUE);
            records.SetFieldNull(&records.first, FALSE);
            Given<ZelDtTime> given(before);
            given.it.SetFromRecordSet(records, records.first);
            EXPECT_EQ(Look(given.it), Taken(before, units)) << before << " reads " << units;
            EXPECT_EQ(records.first, units);
            EXPECT_FALSE(records.IsFieldNull(&records.first));
        }
    }
}

TEST(RecordSet, FieldsBeyond32BitsAreAFollowUpErrorThatChangesNothing)
{
    for (const long wide : WideLongs()) {
        for (const Amount& before : AmountsInAllModes({0, 1800})) {
            Records records;
            records.first = wide;
            records.SetFieldNull(&records.first, FALSE);
            Given<ZelDtTime> given(before);
            EXPECT_TRUE(FailsBehind("SetFromRecordSet", 8, [&] {
                given.it.SetFromRecordSet(records, records.first);
            })) << wide;
            EXPECT_EQ(Look(given.it), before);
            // A null field's number does not matter.
            records.SetFieldNull(&records.first, TRUE);
            given.it.SetFromRecordSet(records, records.first);
            EXPECT_EQ(Look(given.it), Cleared(before));
        }
    }
}

TEST(RecordSet, ReceivesTheUnitsOfDefinedValues)
{
    for (const Amount& amount : AmountsInAllModes({0, 1800, -7, kMostUnits, kLeastUnits})) {
        if (!amount.state.defined)
            continue;
        for (const BOOL null : {FALSE, TRUE}) {
            Records records;
            records.first = 99;
            records.second = 98;
            records.SetFieldNull(nullptr, null);
            const Given<ZelDtTime> given(amount);
            given.it.ConvToRecordSet(records, records.first);
            EXPECT_EQ(records.first, amount.units) << amount;
            EXPECT_FALSE(records.IsFieldNull(&records.first));
            EXPECT_EQ(records.second, 98);
            EXPECT_EQ(records.IsFieldNull(&records.second), null);
            EXPECT_EQ(Look(given.it), amount);
        }
    }
}

TEST(RecordSet, IsMarkedNullForUndefinedValuesAndKeepsTheField)
{
    for (const Amount& amount : AmountsInAllModes({0, 1800})) {
        if (amount.state.defined)
            continue;
        for (const BOOL null : {FALSE, TRUE}) {
            Records records;
            records.second = 99;
            records.SetFieldNull(nullptr, null);
            const Given<ZelDtTime> given(amount);
            given.it.ConvToRecordSet(records, records.second);
            EXPECT_EQ(records.second, 99);
            EXPECT_TRUE(records.IsFieldNull(&records.second));
            EXPECT_EQ(records.IsFieldNull(&records.first), null);
            EXPECT_EQ(Look(given.it), amount);
        }
    }
}

TEST(RecordSet, RefusesFieldsThatAreNotItsOwn)
{
    Records records;
    long stranger = 600;
    ZelDtTime value(1, 30);
    const Caught read = Catch([&] { value.SetFromRecordSet(records, stranger); });
    EXPECT_TRUE(Matches(read, TimeError(1, read.error.signature)));
    EXPECT_EQ(read.error.signature.rfind("SetFromRecordSet(", 0), 0u) << read.error;
    EXPECT_EQ(read.causeClass, "CDBException");
    EXPECT_TRUE(read.hasCause);
    EXPECT_EQ(Look(value), DefinedAmount(1800));

    const Caught written = Catch([&] { value.ConvToRecordSet(records, stranger); });
    EXPECT_TRUE(Matches(written, TimeError(1, written.error.signature)));
    EXPECT_EQ(written.error.signature.rfind("ConvToRecordSet(", 0), 0u) << written.error;
    EXPECT_EQ(written.causeClass, "CDBException");
    EXPECT_EQ(Look(value), DefinedAmount(1800));
}

} // namespace
