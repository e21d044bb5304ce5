/// SQL texts of ZelDtDateTime.

#include "tests/datetime/datetime_testing.h"

#include <cstdio>
#include <string>

namespace {

using namespace zeltest;

const char* const kMakeText = "MakeFormatString(USHORT)";
const Error kFromSqlError = FunctionError(1, "SetFromSQL(LPCTSTR)");

/// Codes of every layout, and of none.
const unsigned short kCodes[] = {0, 1, 1100, 1102, 1101};
const unsigned short kOtherCodes[] = {1101, 2,    3,    10,    99,    1099,
                                      1103, 1200, 2000, 32767, 32768, 65535};

// Writing

TEST(SqlText, IsThatOfItsCode)
{
    const struct {
        Fields fields;
        const char* texts[5]; ///< in the order of kCodes
    } rows[] = {
        {kSome,
         {"\"05.03.2000 14:07\"", "\"03.05.2000 14:07\"", "05032000", "05.03.2000",
          "05.03.2000 14:07:09"}},
        {{2000, 1, 1, 0, 0, 0},
         {"\"01.01.2000 00:00\"", "\"01.01.2000 00:00\"", "01012000", "01.01.2000",
          "01.01.2000 00:00:00"}},
        {{1999, 12, 31, 23, 59, 58},
         {"\"31.12.1999 23:59\"", "\"12.31.1999 23:59\"", "31121999", "31.12.1999",
          "31.12.1999 23:59:58"}},
        {kNew,
         {"\"01.01.1900 00:00\"", "\"01.01.1900 00:00\"", "01011900", "01.01.1900",
          "01.01.1900 00:00:00"}},
        {{9999, 12, 31, 23, 59, 59},
         {"\"31.12.9999 23:59\"", "\"12.31.9999 23:59\"", "31129999", "31.12.9999",
          "31.12.9999 23:59:59"}},
        // years of fewer digits: four places in two of the layouts, the number in the others
        {{5, 3, 5, 1, 2, 3},
         {"\"05.03.5 01:02\"", "\"03.05.5 01:02\"", "05035", "05.03.0005", "05.03.0005 01:02:03"}},
        {{999, 3, 5, 1, 2, 3},
         {"\"05.03.999 01:02\"", "\"03.05.999 01:02\"", "0503999", "05.03.0999",
          "05.03.0999 01:02:03"}},
        {{0, 3, 5, 1, 2, 3},
         {"\"05.03.0 01:02\"", "\"03.05.0 01:02\"", "05030", "05.03.0000", "05.03.0000 01:02:03"}},
        // a time without a date, and fields that two places just hold
        {{1900, 0, 0, 12, 30, 45},
         {"\"00.00.1900 12:30\"", "\"00.00.1900 12:30\"", "00001900", "00.00.1900",
          "00.00.1900 12:30:45"}},
        {{2000, 99, 98, 97, 96, 95},
         {"\"98.99.2000 97:96\"", "\"99.98.2000 97:96\"", "98992000", "98.99.2000",
          "98.99.2000 97:96:95"}},
    };
    for (const auto& row : rows) {
        const Given<ZelDtDateTime> given(Moment{{ZelDtWmMissing, 1, 0}, row.fields});
        for (std::size_t i = 0; i < 5; ++i) {
            const unsigned short code = kCodes[i];
            EXPECT_EQ(TextOf(given.it.MakeFormatString(code)), row.texts[i]) << code;
            EXPECT_EQ(TextOf(given.it.ConvToSQL(static_cast<SQL_Language>(code))), row.texts[i])
                << code;
        }
        for (const unsigned short code : kOtherCodes) {
            EXPECT_EQ(TextOf(given.it.MakeFormatString(code)), row.texts[4]) << code;
            EXPECT_EQ(TextOf(given.it.ConvToSQL(static_cast<SQL_Language>(code))), row.texts[4])
                << code;
        }
        EXPECT_EQ(TextOf(given.it.ConvToSQL()), row.texts[0]);
    }
}

TEST(SqlText, OfUndefinedValuesIsNull)
{
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const Moment& moment : Moments({kNew, kSome, {-5, 500, -1, 99, 100, 1000}})) {
            if (moment.state.defined)
                continue;
            const Given<ZelDtDateTime> given(moment);
            for (const unsigned short code : kCodes) {
                const ZelDtString sql = given.it.ConvToSQL(static_cast<SQL_Language>(code));
                EXPECT_EQ(TextOf(sql), "NULL") << moment;
                EXPECT_EQ(sql.IsDefined(), 1);
            }
            EXPECT_EQ(Look(given.it), moment);
        }
    }
}

TEST(SqlText, IsADefinedStringAndLeavesTheValue)
{
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const Moment& moment : Moments({kSome})) {
            const Given<ZelDtDateTime> given(moment);
            if (moment.state.defined) {
                const ZelDtString sql = given.it.ConvToSQL();
                EXPECT_EQ(TextOf(sql), "\"05.03.2000 14:07\"");
                EXPECT_EQ(sql.IsDefined(), 1);
            }
            // The text itself does not look at the definedness.
            for (const unsigned short code : kCodes) {
                EXPECT_EQ(given.it.MakeFormatString(code).IsDefined(), 1);
            }
            EXPECT_EQ(TextOf(given.it.MakeFormatString(SQL_DatumUhrzeit)), "05.03.2000 14:07:09");
            EXPECT_EQ(Look(given.it), moment);
        }
    }
}

/// Which fields a layout shows.
struct Layout {
    unsigned short code;
    bool time;
    bool seconds;
    bool fourPlaces;
};

const Layout kLayouts[] = {{0, true, false, false},     {1, true, false, false},
                           {1100, false, false, false}, {1102, false, false, true},
                           {1101, true, true, true},    {4711, true, true, true}};

bool CanShow(const Layout& layout, const Fields& f)
{
    const auto fits = [](std::int64_t field) { return field >= 0 && field <= 99; };
    return f.year >= 0 && (f.year <= 9999 || !layout.fourPlaces) && fits(f.month) && fits(f.day) &&
           (!layout.time || (fits(f.hour) && fits(f.minute))) &&
           (!layout.seconds || fits(f.second));
}

TEST(SqlText, OfWhatItsPlacesCannotShowIsAnError)
{
    std::vector<Fields> all;
    for (const std::int64_t year :
         {std::int64_t{-1}, std::int64_t{-5}, std::int64_t{9999}, std::int64_t{10000},
          std::int64_t{32768}, std::int64_t{kMaxInt} + 1900, std::int64_t{kMinInt} + 1900})
        all.push_back({year, 3, 5, 14, 7, 9});
    std::int64_t Fields::*const places[] = {&Fields::month, &Fields::day, &Fields::hour,
                                            &Fields::minute, &Fields::second};
    for (const auto place : places) {
        for (const int number : {-1, 99, 100, 255, 256, 1000, 65536, 65541, kMaxInt, kMinInt + 1}) {
            Fields f = kSome;
            f.*place = number;
            all.push_back(f);
        }
    }
    int shown = 0;
    int refused = 0;
    for (const Fields& fields : all) {
        for (const Layout& layout : kLayouts) {
            const Given<ZelDtDateTime> given(Moment{{ZelDtWmMissing, 1, 0}, fields});
            SCOPED_TRACE(::testing::Message() << fields << " with " << layout.code);
            const auto make = [&] { return given.it.MakeFormatString(layout.code); };
            const auto sql = [&] {
                return given.it.ConvToSQL(static_cast<SQL_Language>(layout.code));
            };
            if (CanShow(layout, fields)) {
                ++shown;
                EXPECT_EQ(TextOf(make()), TextOf(sql()));
                continue;
            }
            ++refused;
            EXPECT_TRUE(FailsWith(make, FunctionError(8, kMakeText)));
            EXPECT_TRUE(FailsLike(sql, FunctionError(1, "ConvToSQL("), 8));
            EXPECT_EQ(Look(given.it).fields, fields);
        }
    }
    EXPECT_GT(shown, 30);
    EXPECT_GT(refused, 100);
}

TEST(SqlText, OfLongYearsIsTheirNumber)
{
    const struct {
        std::int64_t year;
        const char* digits;
    } rows[] = {{10000, "10000"},
                {32768, "32768"},
                {123456, "123456"},
                {std::int64_t{kMaxInt} + 1900, "2147485547"}};
    for (const auto& row : rows) {
        const Given<ZelDtDateTime> given(
            Moment{{ZelDtWmMissing, 1, 0}, {row.year, 3, 5, 14, 7, 9}});
        const std::string digits = row.digits;
        EXPECT_EQ(TextOf(given.it.ConvToSQL(SQL_Deutsch)), "\"05.03." + digits + " 14:07\"");
        EXPECT_EQ(TextOf(given.it.ConvToSQL(SQL_Englisch)), "\"03.05." + digits + " 14:07\"");
        EXPECT_EQ(TextOf(given.it.ConvToSQL(SQL_Ziffern)), "0503" + digits);
    }
}

TEST(SqlText, OfUndefinedValuesIsRefusedOnlyByTheLayout)
{
    const Given<ZelDtDateTime> given(Moment{{ZelDtWmMissing, 0, 0}, {10000, 3, 5, 14, 7, 9}});
    EXPECT_TRUE(FailsWith([&] { given.it.MakeFormatString(1101); }, FunctionError(8, kMakeText)));
    EXPECT_EQ(TextOf(given.it.MakeFormatString(1100)), "050310000");
}

// Reading

/// The clock of all these tests stands in the years 2000 to 2099.
class ServerText : public ::testing::Test {
    FixedClock m_clock{kClock};
};

TEST_F(ServerText, NullClears)
{
    for (const Moment& moment : Moments({kNew, kSome})) {
        Given<ZelDtDateTime> given(moment);
        given.it.SetFromSQL("NULL");
        EXPECT_EQ(Look(given.it), Cleared(moment));
    }
}

/// A text that is read, and the date and minute in it.
struct ReadText {
    const char* text;
    Fields fields;
};

const ReadText kReadTexts[] = {
    {"Jan 15 2000 12:30AM", {2000, 1, 15, 0, 30}},
    {"Xyz 15 2000 12:30PM", {2000, 1, 15, 12, 30}},
    // hours
    {"Jan 15 2000 12:00AM", {2000, 1, 15, 0, 0}},
    {"Jan 15 2000 12:59PM", {2000, 1, 15, 12, 59}},
    {"Jan 15 2000 01:30AM", {2000, 1, 15, 1, 30}},
    {"Jan 15 2000 01:30PM", {2000, 1, 15, 13, 30}},
    {"Jan 15 2000  1:30PM", {2000, 1, 15, 13, 30}},
    {"Jan 15 2000  9:05AM", {2000, 1, 15, 9, 5}},
    {"Jan 15 2000 11:59AM", {2000, 1, 15, 11, 59}},
    {"Jan 15 2000 11:59PM", {2000, 1, 15, 23, 59}},
    {"Jan 15 2000 00:30AM", {2000, 1, 15, 0, 30}},
    {"Jan 15 2000 00:30PM", {2000, 1, 15, 12, 30}},
    {"Jan 15 2000 13:30AM", {2000, 1, 15, 13, 30}},
    {"Jan 15 2000 23:59AM", {2000, 1, 15, 23, 59}},
    // any other marker is the morning's
    {"Jan 15 2000 12:30am", {2000, 1, 15, 0, 30}},
    {"Jan 15 2000 12:30pm", {2000, 1, 15, 0, 30}},
    {"Jan 15 2000 11:30Pm", {2000, 1, 15, 11, 30}},
    {"Jan 15 2000 11:30P ", {2000, 1, 15, 11, 30}},
    {"Jan 15 2000 14:30  ", {2000, 1, 15, 14, 30}},
    // months
    {"Jan 31 2001 10:20AM", {2001, 1, 31, 10, 20}},
    {"Feb 28 2001 10:20AM", {2001, 2, 28, 10, 20}},
    {"Mar 31 2001 10:20AM", {2001, 3, 31, 10, 20}},
    {"M\xE4r 31 2001 10:20AM", {2001, 3, 31, 10, 20}},
    {"Apr 30 2001 10:20AM", {2001, 4, 30, 10, 20}},
    {"May 31 2001 10:20AM", {2001, 5, 31, 10, 20}},
    {"Mai 31 2001 10:20AM", {2001, 5, 31, 10, 20}},
    {"Jun 30 2001 10:20AM", {2001, 6, 30, 10, 20}},
    {"Jul 31 2001 10:20AM", {2001, 7, 31, 10, 20}},
    {"Aug 31 2001 10:20AM", {2001, 8, 31, 10, 20}},
    {"Sep 30 2001 10:20AM", {2001, 9, 30, 10, 20}},
    {"Oct 31 2001 10:20AM", {2001, 10, 31, 10, 20}},
    {"Okt 31 2001 10:20AM", {2001, 10, 31, 10, 20}},
    {"Nov 30 2001 10:20AM", {2001, 11, 30, 10, 20}},
    {"Dec 31 2001 10:20AM", {2001, 12, 31, 10, 20}},
    {"Dez 31 2001 10:20AM", {2001, 12, 31, 10, 20}},
    // any other text is January
    {"dec 31 2001 10:20AM", {2001, 1, 31, 10, 20}},
    {"DEZ 31 2001 10:20AM", {2001, 1, 31, 10, 20}},
    {"M\xC4R 31 2001 10:20AM", {2001, 1, 31, 10, 20}},
    {"    31 2001 10:20AM", {2001, 1, 31, 10, 20}},
    {"12. 31 2001 10:20AM", {2001, 1, 31, 10, 20}},
    // days
    {"Feb 29 2000 10:20AM", {2000, 2, 29, 10, 20}},
    {"Feb 01 2000 10:20AM", {2000, 2, 1, 10, 20}},
    {"Feb  1 2000 10:20AM", {2000, 2, 1, 10, 20}},
    // years
    {"Jan 01 1753 10:20AM", {1753, 1, 1, 10, 20}},
    {"Dec 31 9999 10:20AM", {9999, 12, 31, 10, 20}},
    {"Jan 01 0005 10:20AM", {2005, 1, 1, 10, 20}},
    {"Jan 01   05 10:20AM", {2005, 1, 1, 10, 20}},
    {"Jan 01    5 10:20AM", {2005, 1, 1, 10, 20}},
    {"Jan 01 0000 10:20AM", {2000, 1, 1, 10, 20}},
    {"Jan 01 0099 10:20AM", {2099, 1, 1, 10, 20}},
    // minutes
    {"Jan 15 2000 10: 5AM", {2000, 1, 15, 10, 5}},
    {"Jan 15 2000 10:00PM", {2000, 1, 15, 22, 0}},
    // what stands between and behind is not looked at
    {"Jan-15-2000T10.20PM", {2000, 1, 15, 22, 20}},
    {"Jan 15 2000 10:20PM and more", {2000, 1, 15, 22, 20}},
    {"Jan1152200031042012", {2000, 1, 15, 10, 20}},
};

TEST_F(ServerText, IsReadToTheMinute)
{
    for (const ReadText& row : kReadTexts) {
        // The seconds stay; so does everything of a value that is the same.
        Fields same = row.fields;
        same.second = 33;
        for (const Moment& moment : Moments({kSome, {2004, 2, 29, 23, 59, 59}, same})) {
            Given<ZelDtDateTime> given(moment);
            given.it.SetFromSQL(row.text);
            Fields expected = row.fields;
            expected.second = moment.fields.second;
            EXPECT_EQ(Look(given.it), Taken(moment, expected)) << moment << " reads " << row.text;
        }
    }
}

/// A text that is refused, and the first error behind.
struct RefusedText {
    const char* text;
    unsigned long first;
};

const RefusedText kRefusedTexts[] = {
    // too short
    {"", 5},
    {"null", 5},
    {"NULL ", 5},
    {" NULL", 5},
    {"Jan 15 2000 12:30A", 5},
    {"Jan 15 2000 12:30", 5},
    // fields that are no numbers
    {"Jan 5  2000 12:30AM", 5},
    {"Jan    2000 12:30AM", 5},
    {"Jan x5 2000 12:30AM", 5},
    {"Jan +5 2000 12:30AM", 5},
    {"Jan -5 2000 12:30AM", 5},
    {"Jan 1x 2000 12:30AM", 5},
    {"Jan 15 200x 12:30AM", 5},
    {"Jan 15 20 0 12:30AM", 5},
    {"Jan 15      12:30AM", 5},
    {"Jan 15 -200 12:30AM", 5},
    {"Jan 15 +200 12:30AM", 5},
    {"Jan 15 2000 1 :30AM", 5},
    {"Jan 15 2000   :30AM", 5},
    {"Jan 15 2000 x1:30AM", 5},
    {"Jan 15 2000 -1:30AM", 5},
    {"Jan 15 2000 12:3 AM", 5},
    {"Jan 15 2000 12:  AM", 5},
    {"Jan 15 2000 12:-1AM", 5},
    {"Jan 15 2000 12:\t1AM", 5},
    // fields out of range
    {"Jan 15 0100 12:30AM", 27},
    {"Jan 15  100 12:30AM", 27},
    {"Dec 31 1752 12:30AM", 27},
    {"Jan 00 2000 12:30AM", 25},
    {"Jan 32 2000 12:30AM", 25},
    {"Xyz 32 2000 12:30AM", 25},
    {"Feb 30 2000 12:30AM", 25},
    {"Feb 29 2001 12:30AM", 25},
    {"Feb 29 1900 12:30AM", 25},
    {"Apr 31 2000 12:30AM", 25},
    {"Jan 15 2000 24:30AM", 28},
    {"Jan 15 2000 13:30PM", 28},
    {"Jan 15 2000 24:30PM", 28},
    {"Jan 15 2000 99:30PM", 28},
    {"Jan 15 2000 12:60AM", 29},
    {"Jan 15 2000 12:99PM", 29},
};

TEST_F(ServerText, ThatIsRefusedOnlyMakesDefined)
{
    for (const RefusedText& row : kRefusedTexts) {
        for (const Moment& moment : Moments({kSome})) {
            Given<ZelDtDateTime> given(moment);
            EXPECT_TRUE(
                FailsBecauseOf([&] { given.it.SetFromSQL(row.text); }, kFromSqlError, row.first))
                << row.text;
            EXPECT_EQ(Look(given.it), OnlyDefined(moment)) << row.text;
        }
    }
}

TEST_F(ServerText, OutOfRangeNamesTheSetter)
{
    for (const RefusedText& row : kRefusedTexts) {
        if (row.first == 5)
            continue;
        ZelDtDateTime value;
        EXPECT_TRUE(
            FailsWith([&] { value.SetFromSQL(row.text); }, kFromSqlError, SetterError(row.first)))
            << row.text;
    }
}

TEST_F(ServerText, ThatIsNoTextIsRefused)
{
    for (const Moment& moment : Moments({kSome})) {
        Given<ZelDtDateTime> given(moment);
        EXPECT_TRUE(FailsBecauseOf([&] { given.it.SetFromSQL(nullptr); }, kFromSqlError, 5));
        EXPECT_EQ(Look(given.it).fields, kSome);
    }
}

TEST_F(ServerText, FitsLeapDaysWhateverStoodBefore)
{
    // The day that is stored must not get in the way of year and month.
    for (const Fields& before : {Fields{2000, 2, 29, 0, 0, 7}, Fields{2000, 1, 31, 0, 0, 7},
                                 Fields{2000, 12, 31, 0, 0, 7}, Fields{1900, 0, 0, 0, 0, 7}}) {
        for (const ReadText& row : {ReadText{"Feb 29 2004 01:02AM", {2004, 2, 29, 1, 2}},
                                    ReadText{"Feb 28 2001 01:02AM", {2001, 2, 28, 1, 2}},
                                    ReadText{"Apr 30 2001 01:02AM", {2001, 4, 30, 1, 2}},
                                    ReadText{"Dez 31 2001 01:02AM", {2001, 12, 31, 1, 2}}}) {
            Given<ZelDtDateTime> given(Moment{{ZelDtWmMissing, 1, 0}, before});
            given.it.SetFromSQL(row.text);
            Fields expected = row.fields;
            expected.second = 7;
            EXPECT_EQ(Look(given.it).fields, expected) << before;
        }
    }
}

TEST_F(ServerText, ReadsEveryMinuteOfTheDay)
{
    const char* const months[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                  "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    std::mt19937_64 random(20250306);
    ZelDtDateTime value;
    for (int minute = 0; minute < 24 * 60; ++minute) {
        Fields f = RandomFields(random, 1753, 9999);
        f.hour = minute / 60;
        f.minute = minute % 60;
        f.second = 0;
        const bool afternoon = f.hour >= 12;
        const int shown = static_cast<int>(f.hour % 12 == 0 ? 12 : f.hour % 12);
        char text[64];
        std::snprintf(text, sizeof text, "%s %02d %04d %2d:%02d%s", months[f.month - 1],
                      static_cast<int>(f.day), static_cast<int>(f.year), shown,
                      static_cast<int>(f.minute), afternoon ? "PM" : "AM");
        value.SetFromSQL(text);
        ASSERT_EQ(Look(value).fields, f) << text;
    }
}

} // namespace
