/// How date-times and dates are shown, by every combination of the options of a date format.

#include "tests/display/dates_testing.h"

#include <climits>
#include <initializer_list>
#include <string>

namespace {

using namespace zeltest;

/// A moment and how its parts look. Three looks: no fill, zeros, blanks.
struct Sample {
    Fields fields;
    const char* day[3];
    const char* month[3];
    const char* shortName;
    const char* fullName;
    const char* year[2]; ///< four digits, two digits
    const char* hour[3];
    const char* minutes;
    const char* seconds;
};

const Sample kSamples[] = {
    {{2000, 3, 5, 14, 7, 9},
     {"5", "05", " 5"},
     {"3", "03", " 3"},
     "M\xE4r",
     "M\xE4rz",
     {"2000", "00"},
     {"14", "14", "14"},
     ":07",
     ":09"},
    {{1753, 1, 1, 0, 0, 0},
     {"1", "01", " 1"},
     {"1", "01", " 1"},
     "Jan",
     "Januar",
     {"1753", "53"},
     {"0", "00", " 0"},
     ":00",
     ":00"},
    {{9999, 12, 31, 23, 59, 59},
     {"31", "31", "31"},
     {"12", "12", "12"},
     "Dez",
     "Dezember",
     {"9999", "99"},
     {"23", "23", "23"},
     ":59",
     ":59"},
    {{2000, 2, 29, 4, 5, 6},
     {"29", "29", "29"},
     {"2", "02", " 2"},
     "Feb",
     "Februar",
     {"2000", "00"},
     {"4", "04", " 4"},
     ":05",
     ":06"},
    {{1900, 2, 28, 0, 0, 1},
     {"28", "28", "28"},
     {"2", "02", " 2"},
     "Feb",
     "Februar",
     {"1900", "00"},
     {"0", "00", " 0"},
     ":00",
     ":01"},
    {{2026, 4, 30, 12, 30, 0},
     {"30", "30", "30"},
     {"4", "04", " 4"},
     "Apr",
     "April",
     {"2026", "26"},
     {"12", "12", "12"},
     ":30",
     ":00"},
    // Years that only an archive brings.
    {{0, 5, 10, 0, 1, 0},
     {"10", "10", "10"},
     {"5", "05", " 5"},
     "Mai",
     "Mai",
     {"0000", "00"},
     {"0", "00", " 0"},
     ":01",
     ":00"},
    {{7, 6, 9, 9, 9, 9},
     {"9", "09", " 9"},
     {"6", "06", " 6"},
     "Jun",
     "Juni",
     {"0007", "07"},
     {"9", "09", " 9"},
     ":09",
     ":09"},
    {{612, 9, 30, 20, 0, 0},
     {"30", "30", "30"},
     {"9", "09", " 9"},
     "Sep",
     "September",
     {"0612", "12"},
     {"20", "20", "20"},
     ":00",
     ":00"},
    {{1752, 10, 15, 10, 10, 10},
     {"15", "15", "15"},
     {"10", "10", "10"},
     "Okt",
     "Oktober",
     {"1752", "52"},
     {"10", "10", "10"},
     ":10",
     ":10"},
    // Years of five digits.
    {{10000, 8, 8, 8, 8, 8},
     {"8", "08", " 8"},
     {"8", "08", " 8"},
     "Aug",
     "August",
     {"10000", "00"},
     {"8", "08", " 8"},
     ":08",
     ":08"},
    {{32767, 11, 30, 1, 59, 0},
     {"30", "30", "30"},
     {"11", "11", "11"},
     "Nov",
     "November",
     {"32767", "67"},
     {"1", "01", " 1"},
     ":59",
     ":00"},
    {{1999, 7, 4, 0, 0, 0},
     {"4", "04", " 4"},
     {"7", "07", " 7"},
     "Jul",
     "Juli",
     {"1999", "99"},
     {"0", "00", " 0"},
     ":00",
     ":00"},
};

std::string DateText(const Sample& s, const DateOptions& o)
{
    static constexpr const char* kSeparators[] = {".", "/", "-", ""};
    const std::string separator = kSeparators[o.separator];
    const int look = o.twoDigits == 0 ? 0 : o.fill == '0' ? 1 : 2;
    const int digits = separator.empty() ? 1 : look; // without separators always two digits
    const std::string month = o.month == 0   ? s.month[digits]
                              : o.month == 1 ? s.shortName
                                             : s.fullName;
    return s.day[digits] + separator + month + separator + s.year[o.year];
}

std::string Expected(const Sample& s, const DateOptions& o)
{
    const int look = o.twoDigits == 0 ? 0 : o.fill == '0' ? 1 : 2;
    const std::string date = DateText(s, o);
    const std::string time = std::string(s.hour[look]) + s.minutes;
    const bool midnight = s.fields == Midnight(s.fields);
    switch (o.kind) {
    case 0:
        return date;
    case 1:
        return date + " " + time;
    case 2:
        return date + " " + time + s.seconds;
    case 3:
        return midnight ? date : date + " " + time + (s.fields.second != 0 ? s.seconds : "");
    default:
        return time;
    }
}

Moment Defined(const Fields& fields)
{
    return {{ZelDtWmMissing, 1, 0}, fields};
}

template <typename Value>
class DatesShown : public ::testing::Test {};

TYPED_TEST_SUITE(DatesShown, DateClasses);

TYPED_TEST(DatesShown, ByEveryCombinationOfOptions)
{
    ASSERT_EQ(AllDateOptions().size(), 360u);
    for (const Sample& sample : kSamples) {
        const Given<TypeParam> given(Defined(sample.fields));
        for (const DateOptions& options : AllDateOptions()) {
            const ZelFormat format = options.Format();
            EXPECT_EQ(Shown(given.it, &format), Expected(sample, options))
                << sample.fields << " by " << options;
        }
        EXPECT_EQ(Look(given.it), Defined(sample.fields));
    }
}

/// The same once more with whole texts, so that the table above cannot err in putting the parts
/// together.
TYPED_TEST(DatesShown, AsWholeTexts)
{
    const Fields some{2000, 3, 5, 4, 7, 9};
    const Fields minute{2000, 3, 5, 4, 7, 0};
    const Fields second{2000, 3, 5, 0, 0, 9};
    const Fields midnight{2000, 3, 5, 0, 0, 0};
    const struct {
        DateOptions options;
        Fields fields;
        const char* text;
    } rows[] = {
        {{0, 0, 0, 0, 1, '0'}, some, "05.03.2000"},
        {{0, 0, 0, 0, 0, '0'}, some, "5.3.2000"},
        {{0, 0, 0, 0, 0, ' '}, some, "5.3.2000"},
        {{0, 0, 0, 0, 1, ' '}, some, " 5. 3.2000"},
        {{0, 0, 0, 0, -1, ' '}, some, " 5. 3.2000"},
        {{0, 0, 0, 0, 256, '0'}, some, "05.03.2000"},
        {{0, 0, 0, 0, 1, '*'}, some, "*5.*3.2000"},
        {{0, 1, 1, 0, 1, '0'}, some, "05/03/00"},
        {{0, 2, 1, 1, 0, '0'}, some, "5-M\xE4r-00"},
        {{0, 3, 0, 0, 0, '0'}, some, "05032000"},
        {{0, 3, 1, 0, 1, '0'}, some, "050300"},
        {{0, 3, 0, 1, 0, '0'}, some, "05M\xE4r2000"},
        {{0, 3, 1, 2, 1, '0'}, some, "05M\xE4rz00"},
        {{1, 0, 0, 0, 1, '0'}, some, "05.03.2000 04:07"},
        {{1, 0, 0, 0, 0, '0'}, some, "5.3.2000 4:07"},
        {{1, 0, 0, 0, 1, ' '}, some, " 5. 3.2000  4:07"},
        {{1, 0, 0, 2, 1, '0'}, midnight, "05.M\xE4rz.2000 00:00"},
        {{1, 0, 0, 0, 1, '0'}, second, "05.03.2000 00:00"},
        {{2, 0, 0, 0, 1, '0'}, some, "05.03.2000 04:07:09"},
        {{2, 3, 0, 0, 0, '0'}, some, "05032000 4:07:09"},
        {{2, 0, 0, 0, 1, '0'}, midnight, "05.03.2000 00:00:00"},
        {{3, 0, 0, 0, 1, '0'}, some, "05.03.2000 04:07:09"},
        {{3, 0, 0, 0, 1, '0'}, minute, "05.03.2000 04:07"},
        {{3, 0, 0, 0, 1, '0'}, second, "05.03.2000 00:00:09"},
        {{3, 0, 0, 0, 1, '0'}, midnight, "05.03.2000"},
        {{4, 0, 0, 0, 1, '0'}, some, "04:07"},
        {{4, 3, 1, 2, 0, '0'}, some, "4:07"},
        {{4, 0, 0, 0, 1, ' '}, some, " 4:07"},
        {{4, 0, 0, 0, 1, '*'}, midnight, "*0:00"},
    };
    for (const auto& row : rows) {
        const ZelFormat format = row.options.Format();
        const Given<TypeParam> given(Defined(row.fields));
        EXPECT_EQ(Shown(given.it, &format), row.text) << row.options;
    }
}

TEST(DatesShownByModes, AreThoseOfTheClass)
{
    const ZelFormat standard(ZelFormat::ZelFoStandard);
    const ZelFormat technical(ZelFormat::ZelFoTechnisch);
    const struct {
        Fields fields;
        const char* standard;
        const char* technical;
        std::size_t dateLength; ///< of the standard text, of the technical one
        std::size_t technicalLength;
    } rows[] = {
        {{2000, 3, 5, 14, 7, 9}, "05.03.2000 14:07:09", "5.3.2000 14:07:09", 10, 8},
        {{2000, 3, 5, 4, 7, 0}, "05.03.2000 04:07", "5.3.2000 4:07", 10, 8},
        {{2000, 3, 5, 0, 0, 0}, "05.03.2000 00:00", "5.3.2000 0:00", 10, 8},
        {{2000, 3, 5, 0, 0, 1}, "05.03.2000 00:00:01", "5.3.2000 0:00:01", 10, 8},
        {{1753, 1, 1, 0, 0, 0}, "01.01.1753 00:00", "1.1.1753 0:00", 10, 8},
        {{9999, 12, 31, 23, 59, 59}, "31.12.9999 23:59:59", "31.12.9999 23:59:59", 10, 10},
        {{2000, 2, 29, 10, 0, 0}, "29.02.2000 10:00", "29.2.2000 10:00", 10, 9},
        {{7, 6, 9, 9, 9, 0}, "09.06.0007 09:09", "9.6.0007 9:09", 10, 8},
        {{32767, 11, 1, 1, 1, 1}, "01.11.32767 01:01:01", "1.11.32767 1:01:01", 11, 10},
    };
    for (const auto& row : rows) {
        const Given<ZelDtDateTime> moment(Defined(row.fields));
        EXPECT_EQ(Shown(moment.it, &standard), row.standard);
        EXPECT_EQ(Shown(moment.it), row.standard);
        EXPECT_EQ(Shown(moment.it, &technical), row.technical);
        const Given<ZelDtDateZp> date(Defined(row.fields));
        const std::string standardDate(row.standard, row.dateLength);
        EXPECT_EQ(Shown(date.it, &standard), standardDate);
        EXPECT_EQ(Shown(date.it), standardDate);
        EXPECT_EQ(Shown(date.it, &technical), std::string(row.technical, row.technicalLength));
    }
}

TYPED_TEST(DatesShown, NeverIfTheDateIsNone)
{
    const struct {
        Fields fields;
        bool dateFault;
        bool minutesFault;
        bool secondsFault;
    } rows[] = {
        {{2000, 0, 5, 1, 2, 3}, true, false, false},
        {{2000, 13, 5, 1, 2, 3}, true, false, false},
        {{2000, 3, 0, 1, 2, 3}, true, false, false},
        {{2000, 3, 32, 1, 2, 3}, true, false, false},
        {{2000, 4, 31, 1, 2, 3}, true, false, false},
        {{2001, 2, 29, 1, 2, 3}, true, false, false},
        {{1900, 2, 29, 1, 2, 3}, true, false, false},
        {{2000, 2, 30, 1, 2, 3}, true, false, false},
        {{-1, 3, 5, 1, 2, 3}, true, false, false},
        {{32768, 3, 5, 1, 2, 3}, true, false, false},
        {{std::int64_t{kMinInt} + 1900, 3, 5, 1, 2, 3}, true, false, false},
        {{std::int64_t{kMaxInt} + 1900, 3, 5, 1, 2, 3}, true, false, false},
        {{2000, std::int64_t{kMinInt} + 1, 5, 1, 2, 3}, true, false, false},
        {{2000, kMaxInt, kMinInt, 1, 2, 3}, true, false, false},
        {{2000, 3, 5, 24, 2, 3}, false, true, false},
        {{2000, 3, 5, -1, 2, 3}, false, true, false},
        {{2000, 3, 5, 1, 60, 3}, false, true, false},
        {{2000, 3, 5, 1, -1, 3}, false, true, false},
        {{2000, 3, 5, kMaxInt, kMinInt, 3}, false, true, false},
        {{2000, 3, 5, 1, 2, 60}, false, false, true},
        {{2000, 3, 5, 1, 2, -1}, false, false, true},
        {{2000, 3, 5, 0, 0, kMaxInt}, false, false, true},
        {{2000, 13, 5, 24, 60, 60}, true, true, true},
    };
    const ZelFormat mode(ZelFormat::ZelFoStandard);
    for (const auto& row : rows) {
        const Given<TypeParam> given(Defined(row.fields));
        const auto expect = [&](const ZelFormat& format, bool fails, const auto& name) {
            if (fails)
                EXPECT_TRUE(FailsByFormat([&] { given.it.ConvToOFL(&format); }, ShowDateError(), 8,
                                          "FormatDateTime"))
                    << row.fields << " by " << name;
            else
                EXPECT_EQ(Catch([&] { given.it.ConvToOFL(&format); }).disturbance, "nothing")
                    << row.fields << " by " << name;
        };
        for (const DateOptions& options : AllDateOptions()) {
            const bool time = options.kind != 0 && row.minutesFault;
            const bool seconds = (options.kind == 2 || options.kind == 3) && row.secondsFault;
            expect(options.Format(), (options.ShowsDate() && row.dateFault) || time || seconds,
                   options);
        }
        const bool timeShown = !kDateAlone<TypeParam>;
        expect(mode, row.dateFault || (timeShown && (row.minutesFault || row.secondsFault)),
               "the standard mode");
        EXPECT_EQ(Look(given.it), Defined(row.fields));
    }
}

TYPED_TEST(DatesShown, NotByFormatsOfAnotherKind)
{
    const Moment moment = Defined({2000, 3, 5, 0, 0, 0});
    for (const ZelFormat& format : {NumberFormat(), TimeFormat(), TextFormat(), UnknownFormat()}) {
        Given<TypeParam> given(moment);
        EXPECT_TRUE(FailsByFormat([&] { given.it.ConvToOFL(&format); }, ShowDateError(), 20,
                                  "FormatDateTime"));
        EXPECT_TRUE(FailsByFormat([&] { given.it.SetFromOFL("05.03.2001", &format); },
                                  ReadDateError<TypeParam>(), 20, "ParseDateTime"));
        EXPECT_EQ(Look(given.it), moment);
        given.it.SetFormat(&format);
        EXPECT_TRUE(FailsByFormat([&] { given.it.ConvToOFL(nullptr); }, ShowDateError(), 20,
                                  "FormatDateTime"));
        EXPECT_TRUE(FailsByFormat([&] { given.it.SetFromOFL("05.03.2001", nullptr); },
                                  ReadDateError<TypeParam>(), 20, "ParseDateTime"));
        EXPECT_EQ(Look(given.it), moment);
    }
}

TYPED_TEST(DatesShown, NotByUnknownOptions)
{
    const DateOptions rows[] = {{5, 0, 0, 0, 1, '0'},
                                {-1, 0, 0, 0, 1, '0'},
                                {INT_MAX, 0, 0, 0, 1, '0'},
                                {INT_MIN, 0, 0, 0, 1, '0'},
                                {256, 0, 0, 0, 1, '0'},
                                {0, 4, 0, 0, 1, '0'},
                                {0, -1, 0, 0, 1, '0'},
                                {0, 256, 0, 0, 1, '0'},
                                {0, 0, 2, 0, 1, '0'},
                                {0, 0, -1, 0, 1, '0'},
                                {0, 0, INT_MAX, 0, 1, '0'},
                                {0, 0, 0, 3, 1, '0'},
                                {0, 0, 0, -1, 1, '0'},
                                {0, 0, 0, INT_MIN, 1, '0'},
                                {5, 4, 2, 3, 1, '0'},
                                {4, 4, 0, 0, 0, '0'},
                                {4, 0, 2, 0, 0, '0'},
                                {4, 0, 0, 3, 0, '0'},
                                // Fill characters that could not be told from the value.
                                {0, 0, 0, 0, 1, '1'},
                                {1, 0, 0, 0, 1, '9'},
                                {0, 0, 0, 0, 1, '-'},
                                {4, 0, 0, 0, 1, '+'},
                                {0, 0, 0, 0, 1, '\0'}};
    const Moment moment = Defined({2000, 3, 5, 0, 0, 0});
    for (const DateOptions& options : rows) {
        const ZelFormat format = options.Format();
        Given<TypeParam> given(moment);
        EXPECT_TRUE(FailsByFormat([&] { given.it.ConvToOFL(&format); }, ShowDateError(), 20,
                                  "FormatDateTime"))
            << options;
        EXPECT_TRUE(FailsByFormat([&] { given.it.SetFromOFL("05.03.2000", &format); },
                                  ReadDateError<TypeParam>(), 20, "ParseDateTime"))
            << options;
        EXPECT_EQ(Look(given.it), moment);
    }
}

TYPED_TEST(DatesShown, AsNothingWithoutAskingAFormatWhenUndefined)
{
    const ZelFormat unknown = UnknownFormat();
    const ZelFormat date = DateFormat();
    for (const Moment& moment : Moments({kNew, kSome, {-5, 13, 32, 99, 99, 99}})) {
        if (moment.state.defined)
            continue;
        Given<TypeParam> given(moment);
        for (const ZelFormat* own : {static_cast<const ZelFormat*>(nullptr), &date, &unknown}) {
            given.it.SetFormat(own);
            EXPECT_EQ(Shown(given.it, nullptr), "");
            EXPECT_EQ(Shown(given.it, &date), "");
            EXPECT_EQ(Shown(given.it, &unknown), "");
        }
        EXPECT_EQ(Look(given.it), moment);
    }
}

TYPED_TEST(DatesShown, ByThePassedFormatThenTheOwnThenTheDefault)
{
    const ZelFormat passed = DateOptions{0, 1, 0, 0, 1, '0'}.Format();
    const ZelFormat own = DateOptions{0, 2, 1, 1, 0, '0'}.Format();
    const std::string byDefault = kDateAlone<TypeParam> ? "05.03.2000" : "05.03.2000 00:00";
    for (const Moment& moment : Moments({{2000, 3, 5, 0, 0, 0}})) {
        if (!moment.state.defined)
            continue;
        Given<TypeParam> given(moment);
        EXPECT_EQ(Shown(given.it, nullptr), byDefault);
        EXPECT_EQ(Shown(given.it, &passed), "05/03/2000");
        given.it.SetFormat(&own);
        EXPECT_EQ(Shown(given.it, nullptr), "5-M\xE4r-00");
        EXPECT_EQ(Shown(given.it, &passed), "05/03/2000");
        given.it.SetFormat(nullptr);
        EXPECT_EQ(Shown(given.it, nullptr), byDefault);
        EXPECT_EQ(Look(given.it), moment);
    }
}

} // namespace
