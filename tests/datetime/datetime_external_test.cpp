/// External texts of ZelDtDateTime, and the times without a date that only they can bring.

#include "datetime/DTTIME.h"
#include "tests/datetime/datetime_testing.h"

#include <functional>
#include <string>

namespace {

using namespace zeltest;

const char* const kFromExternal = "SetFromExtern(ZelDtString*,BOOL,USHORT)";
const Error kFromExternalError = FunctionError(1, kFromExternal);
const Error kToExternalError = FunctionError(1, "ConvToExtern(BOOL&,USHORT&)");

/// What the letter T stands for: a time of day without a date.
constexpr Fields TimeOnly(std::int64_t hour, std::int64_t minute, std::int64_t second)
{
    return {1900, 0, 0, hour, minute, second};
}

std::string ExternalText(const Fields& fields)
{
    const Given<ZelDtDateTime> given(Moment{{ZelDtWmMissing, 1, 0}, fields});
    int defined = -1;
    unsigned short version = 0;
    const ZelDtString text = given.it.ConvToExtern(defined, version);
    EXPECT_EQ(defined, 1);
    EXPECT_EQ(version, 100);
    EXPECT_EQ(text.IsDefined(), 1);
    return TextOf(text);
}

/// Reads a text into a new value.
ZelDtDateTime FromExternal(const std::string& text)
{
    ZelDtDateTime value;
    const ZelDtString source(text.c_str());
    value.SetFromExtern(&source, 1, 100);
    return value;
}

/// The clock of all these tests stands in the years 2000 to 2099.
class ExternalForm : public ::testing::Test {
    FixedClock m_clock{kClock};
};

// Writing

TEST_F(ExternalForm, HasALetterForWhatItHolds)
{
    const struct {
        Fields fields;
        const char* text;
    } rows[] = {
        {{2000, 1, 1, 0, 0, 0}, "D01012000"},
        {{2000, 1, 1, 0, 0, 1}, "C01012000000001"},
        {{2000, 1, 1, 0, 1, 0}, "C01012000000100"},
        {{2000, 1, 1, 1, 0, 0}, "C01012000010000"},
        {kSome, "C05032000140709"},
        {{9999, 12, 31, 23, 59, 59}, "C31129999235959"},
        {{9999, 12, 31, 0, 0, 0}, "D31129999"},
        {{1753, 1, 1, 0, 0, 0}, "D01011753"},
        {kNew, "D01011900"},
        // the year is padded with blanks
        {{999, 1, 1, 0, 0, 0}, "D0101 999"},
        {{99, 12, 31, 0, 0, 0}, "D3112  99"},
        {{5, 3, 5, 0, 0, 0}, "D0503   5"},
        {{0, 3, 5, 0, 0, 0}, "D0503   0"},
        {{5, 3, 5, 14, 7, 9}, "C0503   5140709"},
        // a time without a date
        {TimeOnly(14, 7, 9), "T140709"},
        {TimeOnly(0, 0, 0), "T000000"},
        {TimeOnly(23, 59, 59), "T235959"},
        // only day 0, month index -1 and year 1900 together are none
        {{1900, 0, 1, 0, 0, 0}, "D01001900"},
        {{1900, 1, 0, 0, 0, 0}, "D00011900"},
        {{1901, 0, 0, 0, 0, 0}, "D00001901"},
        {{1901, 0, 0, 1, 2, 3}, "C00001901010203"},
        // what two places just hold
        {{2000, 99, 98, 97, 96, 95}, "C98992000979695"},
        {TimeOnly(99, 98, 97), "T999897"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(ExternalText(row.fields), row.text) << row.fields;
}

TEST_F(ExternalForm, TellsFlagAndVersionInEveryState)
{
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const Moment& moment : Moments({kNew, kSome, {-5, 500, -1, 99, 100, 1000}})) {
            if (moment.state.defined && moment.fields.year < 0)
                continue;
            const Given<ZelDtDateTime> given(moment);
            for (const int before : {-1, 0, 1}) {
                int defined = before;
                unsigned short version = 4711;
                const ZelDtString text = given.it.ConvToExtern(defined, version);
                const std::string shown = moment.fields == kNew ? "D01011900" : "C05032000140709";
                EXPECT_EQ(TextOf(text), moment.state.defined ? shown : "") << moment;
                EXPECT_EQ(text.IsDefined(),
                          moment.state.defined ? 1 : NewUndefined(standard).defined);
                EXPECT_EQ(text.GetWorkingMode(), standard);
                EXPECT_EQ(defined, moment.state.defined) << moment;
                EXPECT_EQ(version, 100) << moment;
            }
            EXPECT_EQ(Look(given.it), moment);
        }
    }
}

TEST_F(ExternalForm, OfWhatItsPlacesCannotShowIsAnError)
{
    std::vector<Fields> rows;
    for (const std::int64_t year : {std::int64_t{10000}, std::int64_t{32768}, std::int64_t{67536},
                                    std::int64_t{-1}, std::int64_t{-999}, std::int64_t{-63536},
                                    std::int64_t{kMaxInt} + 1900, std::int64_t{kMinInt} + 1900}) {
        rows.push_back({year, 3, 5, 14, 7, 9});
        rows.push_back({year, 3, 5, 0, 0, 0});
    }
    std::int64_t Fields::*const places[] = {&Fields::month, &Fields::day, &Fields::hour,
                                            &Fields::minute, &Fields::second};
    for (const auto place : places) {
        for (const int number : {-1, 100, 65536, 65541, kMaxInt, kMinInt + 1}) {
            Fields f = kSome;
            f.*place = number;
            rows.push_back(f);
            f = TimeOnly(14, 7, 9);
            f.*place = number;
            rows.push_back(f);
        }
    }
    for (const Fields& fields : rows) {
        const Given<ZelDtDateTime> given(Moment{{ZelDtWmMissing, 1, 0}, fields});
        int defined = 0;
        unsigned short version = 0;
        EXPECT_TRUE(
            FailsBecauseOf([&] { given.it.ConvToExtern(defined, version); }, kToExternalError, 8))
            << fields;
        EXPECT_EQ(Look(given.it).fields, fields);
    }
}

// Reading

/// Reads a text into values of every state.
void ExpectRead(const std::string& text, const Fields& expected)
{
    for (const Moment& moment : Moments({kSome, {2004, 2, 29, 23, 59, 59}, expected})) {
        Given<ZelDtDateTime> given(moment);
        const Given<ZelDtString> source(Wording{{ZelDtWmMissing, 1, 0}, text});
        const Caught caught = Catch([&] { given.it.SetFromExtern(&source.it, 1, 100); });
        EXPECT_EQ(caught.disturbance, "nothing") << text << ": " << caught.first;
        EXPECT_EQ(Look(given.it), Taken(moment, expected)) << moment << " reads " << text;
    }
}

TEST_F(ExternalForm, IsReadByItsLetter)
{
    const struct {
        const char* text;
        Fields fields;
    } rows[] = {
        {"D01012000", {2000, 1, 1, 0, 0, 0}},
        {"D29022004", {2004, 2, 29, 0, 0, 0}},
        {"D31129999", {9999, 12, 31, 0, 0, 0}},
        {"D01011753", {1753, 1, 1, 0, 0, 0}},
        {"C05032000140709", {2000, 3, 5, 14, 7, 9}},
        {"C05032000000000", {2000, 3, 5, 0, 0, 0}},
        {"C31129999235959", {9999, 12, 31, 23, 59, 59}},
        {"T140709", TimeOnly(14, 7, 9)},
        {"T000000", TimeOnly(0, 0, 0)},
        {"T235959", TimeOnly(23, 59, 59)},
        // years of two digits are those of the present century
        {"D0503   5", {2005, 3, 5, 0, 0, 0}},
        {"D0503  99", {2099, 3, 5, 0, 0, 0}},
        {"D05030005", {2005, 3, 5, 0, 0, 0}},
        {"D0503   0", {2000, 3, 5, 0, 0, 0}},
        // missing fields are 0
        {"D0503", {2000, 3, 5, 0, 0, 0}},
        {"D05031", {2001, 3, 5, 0, 0, 0}},
        {"C05032000", {2000, 3, 5, 0, 0, 0}},
        {"C0503200014", {2000, 3, 5, 14, 0, 0}},
        {"C05032000147", {2000, 3, 5, 14, 7, 0}},
        {"C0503200014x709", {2000, 3, 5, 14, 0, 0}},
        {"T", TimeOnly(0, 0, 0)},
        {"T1", TimeOnly(1, 0, 0)},
        {"T14", TimeOnly(14, 0, 0)},
        {"T1407", TimeOnly(14, 7, 0)},
        {"Tx40709", TimeOnly(0, 0, 0)},
        // blanks in front of a field do not count, a sign does
        {"D 1 12000", {2000, 12, 1, 0, 0, 0}}, // day 1, month 12, year 0
        {"D 1 1 2000", {2000, 1, 1, 0, 0, 0}},
        {"D\t1\n2\v2000", {2000, 2, 1, 0, 0, 0}},
        {"D 01 02 2004", {2004, 2, 1, 0, 0, 0}},
        {"D+1+22004", {2004, 2, 1, 0, 0, 0}},
        {"T 1 2 3", TimeOnly(1, 2, 3)},
        {"T+1+2+3", TimeOnly(1, 2, 3)},
        // what follows is not looked at
        {"D01012000x", {2000, 1, 1, 0, 0, 0}},
        {"D01012000140709", {2000, 1, 1, 0, 0, 0}},
        {"C05032000140709999", {2000, 3, 5, 14, 7, 9}},
        {"T140709999", TimeOnly(14, 7, 9)},
    };
    for (const auto& row : rows)
        ExpectRead(row.text, row.fields);
    ExpectRead(std::string("D0503\0002005", 10), {2000, 3, 5, 0, 0, 0});
}

TEST_F(ExternalForm, IsReadBackFromEveryMoment)
{
    std::mt19937_64 random(20250307);
    for (int i = 0; i < 2000; ++i) {
        Fields f = RandomFields(random, 1753, 9999);
        if (i % 4 == 0)
            f = Midnight(f);
        else if (i % 4 == 1)
            f = TimeOnly(f.hour, f.minute, f.second);
        const std::string text = ExternalText(f);
        ASSERT_EQ(Look(FromExternal(text)).fields, f) << text;
        ASSERT_EQ(text.size(), f.month == 0 ? 7u : i % 4 == 0 ? 9u : 15u) << text;
    }
}

TEST_F(ExternalForm, IsReadBackFromEveryState)
{
    for (const Moment& moment : Moments({kNew, kSome, TimeOnly(1, 2, 3)})) {
        const Given<ZelDtDateTime> given(moment);
        int defined = -1;
        unsigned short version = 0;
        const ZelDtString text = given.it.ConvToExtern(defined, version);
        ZelDtDateTime back(ZelDtWmNull);
        back.SetFromExtern(&text, defined, version);
        EXPECT_EQ(back.IsDefined(), moment.state.defined);
        EXPECT_EQ(Look(back).fields, moment.state.defined ? moment.fields : kNew);
    }
}

// Refused texts

TEST_F(ExternalForm, WithFieldsOutOfRangeOnlyMakesDefined)
{
    const struct {
        const char* text;
        unsigned long first;
    } rows[] = {
        {"D", 26},
        {"Dx", 26},
        {"C", 26},
        {"D01", 26},
        {"D01x12000", 26},
        {"D01-x2000", 26},
        {"D00002000", 26},
        {"D01002000", 26},
        {"D01132000", 26},
        {"D01992000", 26},
        {"D01-12000", 26},
        {"D00012000", 25},
        {"D32012000", 25},
        {"D30022000", 25},
        {"D29022001", 25},
        {"D29021900", 25},
        {"D-1012000", 25},
        {"D99012000", 25},
        {"D0101 100", 27},
        {"D0101 999", 27},
        {"D01011752", 27},
        {"D0101-999", 27},
        {"D99991752", 27}, // the year first, then month and day
        {"D99992000", 26},
        {"C01012000240000", 28},
        {"C01012000-10000", 28},
        {"C01012000006000", 29},
        {"C0101200000-100", 29},
        {"C01012000000060", 30},
        {"C010120000000-1", 30},
        {"C99992000999999", 26},
        // the blanks before a year are none of its four places: 5140 and 9991 are read
        {"C0503   5140709", 28},
        {"C0503 999140709", 28},
        {"T240000", 28},
        {"T990000", 28},
        {"T-10000", 28},
        {"T006000", 29},
        {"T00-100", 29},
        {"T000060", 30},
        {"T0000-1", 30},
        {"T246060", 28},
    };
    for (const auto& row : rows) {
        const ZelDtString text(row.text);
        for (const Moment& moment : Moments({kSome})) {
            Given<ZelDtDateTime> given(moment);
            EXPECT_TRUE(FailsWith([&] { given.it.SetFromExtern(&text, 1, 100); },
                                  kFromExternalError, SetterError(row.first)))
                << row.text;
            EXPECT_EQ(Look(given.it), OnlyDefined(moment)) << row.text;
        }
    }
}

TEST_F(ExternalForm, OfAnUnknownKindOnlyMakesDefined)
{
    for (const char* unknown : {"", "X01012000", "d01012000", "c05032000140709", "t140709",
                                "01012000", " D01012000", "0", "S", "-", "\xC4"}) {
        const ZelDtString text(unknown);
        for (const Moment& moment : Moments({kNew, kSome})) {
            Given<ZelDtDateTime> given(moment);
            EXPECT_TRUE(FailsWith([&] { given.it.SetFromExtern(&text, 1, 100); },
                                  FunctionError(18, kFromExternal)))
                << unknown;
            EXPECT_EQ(Look(given.it), OnlyDefined(moment)) << unknown;
        }
    }
}

TEST_F(ExternalForm, OfAnotherVersionIsAnErrorThatChangesNothing)
{
    const ZelDtString text("D01012000");
    const ZelDtString unknown("X");
    const ZelDtString undefined(ZelDtWmMissing);
    for (const Moment& moment : Moments({kSome})) {
        for (const unsigned short version : {0, 1, 99, 101, 200, 65535}) {
            for (const int defined : {0, 1}) {
                for (const ZelDtString* p :
                     {&text, &unknown, &undefined, static_cast<const ZelDtString*>(nullptr)}) {
                    Given<ZelDtDateTime> given(moment);
                    EXPECT_TRUE(FailsWith([&] { given.it.SetFromExtern(p, defined, version); },
                                          FunctionError(14, kFromExternal)))
                        << version;
                    EXPECT_EQ(Look(given.it), moment);
                }
            }
        }
    }
}

TEST_F(ExternalForm, ClearsWhenUndefinedOrAbsent)
{
    const ZelDtString text("D01012000");
    const ZelDtString unknown("X");
    const ZelDtString undefined(ZelDtWmMissing);
    const struct {
        const ZelDtString* text;
        int defined;
    } rows[] = {{&text, 0}, {&unknown, 0}, {&undefined, 0}, {nullptr, 0}, {nullptr, 1},
                {&text, 2}, {&text, -1},   {&unknown, 256}, {nullptr, -1}};
    for (const Moment& moment : Moments({kNew, kSome, TimeOnly(1, 2, 3)})) {
        for (const auto& row : rows) {
            Given<ZelDtDateTime> given(moment);
            given.it.SetFromExtern(row.text, row.defined, 100);
            EXPECT_EQ(Look(given.it), Cleared(moment)) << moment << ", defined " << row.defined;
        }
    }
}

TEST_F(ExternalForm, ThatIsUndefinedThoughDefinedIsInconsistent)
{
    for (const State& state : AllStates()) {
        if (state.defined)
            continue;
        const Given<ZelDtString> undefined(Wording{state, "D01012000"});
        for (const Moment& moment : Moments({kNew, kSome})) {
            Given<ZelDtDateTime> given(moment);
            EXPECT_TRUE(FailsWith([&] { given.it.SetFromExtern(&undefined.it, 1, 100); },
                                  FunctionError(13, kFromExternal)));
            // The value became defined before the text was looked at.
            EXPECT_EQ(Look(given.it), OnlyDefined(moment));
        }
    }
}

// Times without a date, as other operations see them

TEST_F(ExternalForm, TimeOnlyReadsAsWhatIsStored)
{
    const ZelDtDateTime value = FromExternal("T140709");
    EXPECT_EQ(value.GetDay365(), 0);
    EXPECT_EQ(value.GetMonth(), 0);
    EXPECT_EQ(value.GetYear(), 1900);
    EXPECT_EQ(value.GetHour(), 14);
    EXPECT_EQ(value.GetMin(), 7);
    EXPECT_EQ(value.GetSecond(), 9);
    const std::tm record = value.GetValue();
    EXPECT_EQ(record.tm_mday, 0);
    EXPECT_EQ(record.tm_mon, -1);
    EXPECT_EQ(record.tm_year, 0);
    EXPECT_EQ(TextOf(value.ConvToSQL()), "\"00.00.1900 14:07\"");
    EXPECT_EQ(TextOf(value.MakeFormatString(SQL_DatumUhrzeit)), "00.00.1900 14:07:09");
}

TEST_F(ExternalForm, TimeOnlyKeepsItsKind)
{
    const ZelDtDateTime value = FromExternal("T140709");
    const Fields fields = TimeOnly(14, 7, 9);
    const ZelDtDateTime copy(value);
    EXPECT_EQ(Look(copy).fields, fields);
    ZelDtDateTime assigned;
    assigned = value;
    EXPECT_EQ(Look(assigned).fields, fields);
    ZelDtDateTime loaded;
    Loaded(Stored([&](CArchive& ar) { assigned.Serialize(ar); }),
           [&](CArchive& ar) { loaded.Serialize(ar); });
    EXPECT_EQ(Look(loaded).fields, fields);
    loaded.WipeTime();
    EXPECT_EQ(Look(loaded).fields, TimeOnly(0, 0, 0));
    EXPECT_TRUE(value == copy);
    EXPECT_TRUE(loaded < value);
    EXPECT_TRUE(value < FromExternal("T140710"));
    EXPECT_TRUE(value <
                ZelDtDateTime(Short(1), Short(1), Short(1900), Short(0), Short(0), Short(0)));
}

TEST_F(ExternalForm, TimeOnlyMayBeGivenADate)
{
    ZelDtDateTime value = FromExternal("T140709");
    value.SetYear(Short(2000));
    value.SetMonth(Short(2));
    value.SetDay365(Short(29));
    EXPECT_EQ(Look(value).fields, (Fields{2000, 2, 29, 14, 7, 9}));
    value = FromExternal("T140709");
    value.SetDate("29.02.2000");
    EXPECT_EQ(Look(value).fields, (Fields{2000, 2, 29, 14, 7, 9}));
    value = FromExternal("T140709");
    value.SetTime("01:02:03");
    EXPECT_EQ(Look(value).fields, TimeOnly(1, 2, 3));
}

TEST_F(ExternalForm, TimeOnlyHasNoDisplayAndNoFrameworkDate)
{
    const ZelDtDateTime value = FromExternal("T140709");
    EXPECT_TRUE(FailsLike([&] { value.ConvToOFL(nullptr); }, FunctionError(1, "ConvToOFL("), 8));
    const COleDateTime framework = value;
    EXPECT_EQ(framework.GetStatus(), COleDateTime::invalid);
}

TEST_F(ExternalForm, TimeOnlyIsComputedWithOrRefused)
{
    const ZelDtTime span("26:30");
    const ZelDtDateTime other(Short(5), Short(3), Short(2000), Short(0), Short(0), Short(0));
    const std::function<void(ZelDtDateTime&)> operations[] = {
        [](ZelDtDateTime& v) { v.AddDay365(Short(1)); },
        [](ZelDtDateTime& v) { v.SubDay365(Short(1)); },
        [](ZelDtDateTime& v) { v.AddDay365(Short(32767)); },
        [](ZelDtDateTime& v) { v.SubDay365(Short(32767)); },
        [](ZelDtDateTime& v) { v.AddMonth(Short(1)); },
        [](ZelDtDateTime& v) { v.SubMonth(Short(1)); },
        [](ZelDtDateTime& v) { v.AddYear(Short(1)); },
        [](ZelDtDateTime& v) { v.SubYear(Short(1)); },
        [](ZelDtDateTime& v) { v.AddHour(25); },
        [](ZelDtDateTime& v) { v.SubHour(25); },
        [](ZelDtDateTime& v) { v.AddMin(1500); },
        [](ZelDtDateTime& v) { v.SubMin(1500); },
        [](ZelDtDateTime& v) { v.SetDay365(Short(5)); },
        [](ZelDtDateTime& v) { v.SetMonth(Short(5)); },
        [](ZelDtDateTime& v) { v.SetYear(Short(2004)); },
        [&](ZelDtDateTime& v) { v = v + span; },
        [&](ZelDtDateTime& v) { v = v - span; },
        [&](ZelDtDateTime& v) { v - other; },
        [&](ZelDtDateTime& v) { other - v; },
        [](ZelDtDateTime& v) { v - v; },
    };
    int index = 0;
    for (const auto& operation : operations) {
        ZelDtDateTime value = FromExternal("T140709");
        const Caught caught = Catch([&] { operation(value); });
        EXPECT_TRUE(caught.disturbance.empty() || caught.disturbance == "nothing")
            << "operation " << index << ": " << caught.disturbance;
        EXPECT_EQ(caught.leaked, 0u);
        EXPECT_EQ(value.IsDefined(), 1) << "operation " << index;
        ++index;
    }
    EXPECT_EQ((FromExternal("T140709") - FromExternal("T120000")).GetTime(ZelDtTime::Minuten), 127);
}

} // namespace
