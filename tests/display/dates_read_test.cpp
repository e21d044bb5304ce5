/// What people may type for date-times and dates, option by option.

#include "tests/display/dates_reading.h"

#include <string>

namespace {

using namespace zeltest;

template <typename Value>
class DatesRead : public ::testing::Test {};

TYPED_TEST_SUITE(DatesRead, DateClasses);

TYPED_TEST(DatesRead, ByTheModes)
{
    const struct {
        const char* text;
        Fields fields;
    } rows[] = {
        {"05.03.2000 14:07", {2000, 3, 5, 14, 7, 0}},
        {"05.03.2000 14:07:09", {2000, 3, 5, 14, 7, 9}},
        {"5.3.2000 4:07", {2000, 3, 5, 4, 7, 0}},
        {"5.3.2000 04:07:00", {2000, 3, 5, 4, 7, 0}},
        {"5.03.2000 0:00", {2000, 3, 5, 0, 0, 0}},
        {"05.3.2000 00:00:01", {2000, 3, 5, 0, 0, 1}},
        {"5.3.2000 23:59:59", {2000, 3, 5, 23, 59, 59}},
        {" 5.3.2000 14:07", {2000, 3, 5, 14, 7, 0}},
        {"\t 5.3.2000 14:07 \t", {2000, 3, 5, 14, 7, 0}},
        {"1.1.1753 0:00", {1753, 1, 1, 0, 0, 0}},
        {"31.12.9999 23:59:59", {9999, 12, 31, 23, 59, 59}},
        {"31.12.32767 23:59:59", {32767, 12, 31, 23, 59, 59}},
        {"29.2.2000 1:00", {2000, 2, 29, 1, 0, 0}},
        {"29.02.2004 1:00", {2004, 2, 29, 1, 0, 0}},
        {"31.1.2001 1:00", {2001, 1, 31, 1, 0, 0}},
        {"30.4.2001 1:00", {2001, 4, 30, 1, 0, 0}},
        {"5.3.07 14:07", {TwoDigits(7), 3, 5, 14, 7, 0}},
        {"5.3.00 14:07", {TwoDigits(0), 3, 5, 14, 7, 0}},
        {"5.3.99 14:07", {TwoDigits(99), 3, 5, 14, 7, 0}},
    };
    for (const auto mode : {ZelFormat::ZelFoStandard, ZelFormat::ZelFoTechnisch})
        for (const auto& row : rows)
            ExpectRead<TypeParam>(ZelFormat(mode), row.text, row.fields);
}

TEST(DatesReadByModes, WithoutATimeAreMidnight)
{
    for (const auto mode : {ZelFormat::ZelFoStandard, ZelFormat::ZelFoTechnisch}) {
        const ZelFormat format(mode);
        ExpectRead<ZelDtDateTime>(format, "5.3.2000", {2000, 3, 5, 0, 0, 0});
        ExpectRead<ZelDtDateTime>(format, " 05.03.07\t", {TwoDigits(7), 3, 5, 0, 0, 0});
    }
}

TEST(DatesReadByModes, OfTheDateClass)
{
    const struct {
        const char* text;
        Fields fields;
    } rows[] = {
        {"05.03.2000", {2000, 3, 5, 0, 0, 0}},       {"5.3.2000", {2000, 3, 5, 0, 0, 0}},
        {" 5.3.07 ", {TwoDigits(7), 3, 5, 0, 0, 0}}, {"05032000", {2000, 3, 5, 0, 0, 0}},
        {"\t31129999 ", {9999, 12, 31, 0, 0, 0}},    {"01011753", {1753, 1, 1, 0, 0, 0}},
        {"29022004", {2004, 2, 29, 0, 0, 0}},        {"050307", {TwoDigits(7), 3, 5, 0, 0, 0}},
        {"311299", {TwoDigits(99), 12, 31, 0, 0, 0}}};
    for (const auto mode : {ZelFormat::ZelFoStandard, ZelFormat::ZelFoTechnisch}) {
        const ZelFormat format(mode);
        for (const auto& row : rows) {
            for (const Moment& moment : Moments({kNew, {1999, 12, 31, 0, 0, 0}, {2000, 3, 5}})) {
                Given<ZelDtDateZp> given(moment);
                given.it.SetFromOFL(row.text, &format);
                EXPECT_EQ(Look(given.it), Taken(moment, Expected(row.fields, kNew)))
                    << moment << " reads '" << row.text << "'";
            }
        }
        // A date-time wants its separators.
        for (const char* text : {"05032000", "050307", "05032000 14:07"})
            ExpectRefused<ZelDtDateTime>(format, text, 21);
    }
}

TYPED_TEST(DatesRead, ByDateFormats)
{
    constexpr std::int64_t S = kStays;
    const struct {
        DateOptions options;
        const char* text;
        Fields fields;
    } rows[] = {
        // The date alone: the time of day stays.
        {{0, 0, 0, 0, 1, '0'}, "05.03.2000", {2000, 3, 5, S, S, S}},
        {{0, 0, 0, 0, 1, '0'}, " 5.3.2000\t", {2000, 3, 5, S, S, S}},
        {{0, 0, 0, 0, 0, '0'}, "05.03.2000", {2000, 3, 5, S, S, S}},
        {{0, 0, 0, 0, 1, '0'}, "5.3.07", {TwoDigits(7), 3, 5, S, S, S}},
        {{0, 0, 1, 0, 1, '0'}, "5.3.07", {TwoDigits(7), 3, 5, S, S, S}},
        {{0, 0, 1, 0, 1, '0'}, "5.3.1907", {1907, 3, 5, S, S, S}},
        {{0, 1, 0, 0, 1, '0'}, "5/3/2000", {2000, 3, 5, S, S, S}},
        {{0, 2, 0, 0, 1, '0'}, "5-3-2000", {2000, 3, 5, S, S, S}},
        {{0, 2, 1, 0, 1, '0'}, "05-03-00", {TwoDigits(0), 3, 5, S, S, S}},
        {{0, 3, 0, 0, 0, '0'}, "05032000", {2000, 3, 5, S, S, S}},
        {{0, 3, 0, 0, 1, '0'}, "050300", {TwoDigits(0), 3, 5, S, S, S}},
        {{0, 3, 1, 0, 1, '0'}, "050300", {TwoDigits(0), 3, 5, S, S, S}},
        {{0, 3, 1, 0, 1, '0'}, "05031900", {1900, 3, 5, S, S, S}},
        {{0, 3, 0, 0, 1, '0'}, "311232767", {32767, 12, 31, S, S, S}},
        {{0, 0, 0, 0, 1, ' '}, " 5. 3.2000", {2000, 3, 5, S, S, S}},
        {{0, 0, 0, 0, 1, ' '}, "5.3.2000", {2000, 3, 5, S, S, S}},
        {{0, 0, 0, 0, 1, ' '}, "05.03.2000", {2000, 3, 5, S, S, S}},
        {{0, 1, 0, 0, 1, '*'}, "*5/*3/2000", {2000, 3, 5, S, S, S}},
        // With a time; a missing one is midnight.
        {{1, 0, 0, 0, 1, '0'}, "05.03.2000 14:07", {2000, 3, 5, 14, 7, 0}},
        {{1, 1, 1, 0, 0, '0'}, "5/3/00 4:07", {TwoDigits(0), 3, 5, 4, 7, 0}},
        {{1, 3, 0, 0, 0, '0'}, "05032000 4:07", {2000, 3, 5, 4, 7, 0}},
        {{1, 0, 0, 0, 1, ' '}, " 5. 3.2000  4:07", {2000, 3, 5, 4, 7, 0}},
        {{1, 0, 0, 0, 1, ' '}, "5.3.2000 4:07", {2000, 3, 5, 4, 7, 0}},
        {{1, 0, 0, 0, 1, '0'}, "5.3.2000", {2000, 3, 5, 0, 0, 0}},
        {{2, 0, 0, 0, 1, '0'}, "05.03.2000 14:07:09", {2000, 3, 5, 14, 7, 9}},
        {{2, 0, 0, 0, 1, '0'}, "5.3.2000 4:07", {2000, 3, 5, 4, 7, 0}},
        {{2, 2, 0, 0, 1, '0'}, "5-3-2000", {2000, 3, 5, 0, 0, 0}},
        {{3, 0, 0, 0, 1, '0'}, "05.03.2000", {2000, 3, 5, 0, 0, 0}},
        {{3, 0, 0, 0, 1, '0'}, "05.03.2000 14:07", {2000, 3, 5, 14, 7, 0}},
        {{3, 0, 0, 0, 1, '0'}, "05.03.2000 0:00:09", {2000, 3, 5, 0, 0, 9}},
        {{3, 3, 0, 0, 1, '0'}, "05032000", {2000, 3, 5, 0, 0, 0}},
        // The time alone: the date stays.
        {{4, 0, 0, 0, 1, '0'}, "14:07", {S, S, S, 14, 7, 0}},
        {{4, 3, 1, 2, 0, '0'}, " 4:07 ", {S, S, S, 4, 7, 0}},
        {{4, 0, 0, 0, 1, ' '}, " 4:07", {S, S, S, 4, 7, 0}},
        {{4, 0, 0, 0, 1, '*'}, "*4:07", {S, S, S, 4, 7, 0}},
        {{4, 0, 0, 0, 1, '0'}, "00:00", {S, S, S, 0, 0, 0}},
        {{4, 0, 0, 0, 1, '0'}, "23:59", {S, S, S, 23, 59, 0}},
        // Names.
        {{0, 0, 0, 1, 1, '0'}, "05.M\xE4r.2000", {2000, 3, 5, S, S, S}},
        {{0, 0, 0, 1, 1, '0'}, "5.M\xC4RZ.2000", {2000, 3, 5, S, S, S}},
        {{0, 0, 0, 1, 1, '0'}, "5.03.2000", {2000, 3, 5, S, S, S}},
        {{0, 0, 0, 2, 1, '0'}, "5.m\xC4rZ.2000", {2000, 3, 5, S, S, S}},
        {{0, 0, 0, 2, 1, '0'}, "5.m\xE4r.00", {TwoDigits(0), 3, 5, S, S, S}},
        {{0, 0, 0, 2, 1, '0'}, "5.3.2000", {2000, 3, 5, S, S, S}},
        {{0, 3, 0, 1, 1, '0'}, "05M\xE4r2000", {2000, 3, 5, S, S, S}},
        {{0, 3, 0, 1, 1, '0'}, "05M\xC4RZ2000", {2000, 3, 5, S, S, S}},
        {{0, 3, 1, 2, 1, '0'}, "05m\xE4rz00", {TwoDigits(0), 3, 5, S, S, S}},
        {{0, 3, 0, 2, 1, '0'}, "05032000", {2000, 3, 5, S, S, S}},
        {{2, 2, 0, 2, 0, '0'}, "29-FEBRUAR-2004 4:07:09", {2004, 2, 29, 4, 7, 9}},
        {{1, 1, 0, 1, 1, ' '}, " 9/Okt/1999  9:59", {1999, 10, 9, 9, 59, 0}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(::testing::PrintToString(row.options));
        ExpectRead<TypeParam>(row.options.Format(), row.text, row.fields);
    }
}

TEST(DatesReadWithoutSeparators, IfTheValueIsADateAlone)
{
    constexpr std::int64_t S = kStays;
    const struct {
        const char* text;
        Fields fields;
    } rows[] = {
        {"05032000", {2000, 3, 5, S, S, S}},       {" 05032000\t", {2000, 3, 5, S, S, S}},
        {"31129999", {9999, 12, 31, S, S, S}},     {"29022004", {2004, 2, 29, S, S, S}},
        {"050307", {TwoDigits(7), 3, 5, S, S, S}}, {"311299", {TwoDigits(99), 12, 31, S, S, S}}};
    const struct {
        const char* text;
        unsigned long cause;
    } refused[] = {{"32012000", 8}, {"00012000", 8},   {"01132000", 8},    {"29022001", 8},
                   {"290201", 8},   {"5", 21},         {"0503", 21},       {"05032", 21},
                   {"0503200", 21}, {"0503 2000", 21}, {"05 03 2000", 21}, {"-5032000", 21}};
    for (const DateOptions& options : AllDateOptions()) {
        if (options.kind != 0)
            continue;
        SCOPED_TRACE(::testing::PrintToString(options));
        const ZelFormat format = options.Format();
        for (const auto& row : rows) {
            ExpectRead<ZelDtDateZp>(format, row.text, row.fields);
            if (options.separator == 3)
                ExpectRead<ZelDtDateTime>(format, row.text, row.fields);
            else
                ExpectRefused<ZelDtDateTime>(format, row.text, 21);
        }
        for (const auto& row : refused) {
            const unsigned long cause = options.separator == 3 ? row.cause : 21;
            ExpectRefused<ZelDtDateZp>(format, row.text, row.cause, OneMoment());
            ExpectRefused<ZelDtDateTime>(format, row.text, cause, OneMoment());
        }
    }
    // A date-time wants its separators in the other kinds too.
    for (int kind = 1; kind < 4; ++kind)
        for (int separator = 0; separator < 3; ++separator)
            for (const char* text : {"05032000", "050307", "05032000 14:07"})
                ExpectRefused<ZelDtDateTime>(DateOptions{kind, separator, 0, 0, 1, '0'}.Format(),
                                             text, 21);
}

TEST(DatesReadByNames, OfEveryMonthInAnyCase)
{
    static constexpr const char* kNames[12][6] = {
        {"Jan", "JAN", "jan", "Januar", "JANUAR", "jAnUaR"},
        {"Feb", "FEB", "feb", "Februar", "FEBRUAR", "februar"},
        {"M\xE4r", "M\xC4R", "m\xE4r", "M\xE4rz", "M\xC4RZ", "m\xC4rz"},
        {"Apr", "APR", "apr", "April", "APRIL", "april"},
        {"Mai", "MAI", "mai", "mAI", "maI", "Mai"},
        {"Jun", "JUN", "jun", "Juni", "JUNI", "juni"},
        {"Jul", "JUL", "jul", "Juli", "JULI", "juli"},
        {"Aug", "AUG", "aug", "August", "AUGUST", "august"},
        {"Sep", "SEP", "sep", "September", "SEPTEMBER", "september"},
        {"Okt", "OKT", "okt", "Oktober", "OKTOBER", "oktober"},
        {"Nov", "NOV", "nov", "November", "NOVEMBER", "november"},
        {"Dez", "DEZ", "dez", "Dezember", "DEZEMBER", "dezember"}};
    for (int month = 1; month <= 12; ++month) {
        for (const char* name : kNames[month - 1]) {
            for (int style = 1; style <= 2; ++style) {
                for (int separator = 0; separator < 4; ++separator) {
                    static constexpr const char* kSeparators[] = {".", "/", "-", ""};
                    const ZelFormat format = DateOptions{0, separator, 0, style, 1, '0'}.Format();
                    const std::string s = kSeparators[separator];
                    ExpectRead<ZelDtDateTime>(format, "17" + s + name + s + "1999",
                                              {1999, month, 17, kStays, kStays, kStays});
                }
            }
        }
    }
}

TYPED_TEST(DatesRead, NothingMeansUndefined)
{
    const ZelFormat unknown = UnknownFormat();
    const ZelFormat numbers = NumberFormat();
    for (const Moment& moment : Moments({kNew, kSome, {-5, 13, 32, 99, 99, 99}})) {
        for (const char* nothing : {static_cast<const char*>(nullptr), ""}) {
            for (const ZelFormat* format :
                 {static_cast<const ZelFormat*>(nullptr), &unknown, &numbers}) {
                Given<TypeParam> given(moment);
                given.it.SetFormat(&unknown);
                given.it.SetFromOFL(nothing, format);
                EXPECT_EQ(Look(given.it), Cleared(moment));
                EXPECT_EQ(given.it.GetFormat(), &unknown);
            }
        }
    }
}

TYPED_TEST(DatesRead, ByThePassedFormatThenTheOwnThenTheDefault)
{
    const ZelFormat passed = DateOptions{0, 1, 0, 0, 1, '0'}.Format();
    const ZelFormat own = DateOptions{0, 2, 0, 0, 1, '0'}.Format();
    const auto refused = [](TypeParam& value, const char* text, const ZelFormat* format) {
        EXPECT_TRUE(FailsByFormat([&] { value.SetFromOFL(text, format); },
                                  ReadDateError<TypeParam>(), 21, "ParseDateTime"))
            << text;
    };
    TypeParam value;
    value.SetFromOFL("1.1.2001", nullptr);
    EXPECT_EQ(value.GetYear(), 2001);
    refused(value, "1/1/2001", nullptr);
    value.SetFormat(&own);
    value.SetFromOFL("1-1-2002", nullptr);
    EXPECT_EQ(value.GetYear(), 2002);
    refused(value, "1.1.2001", nullptr);
    value.SetFromOFL("1/1/2003", &passed);
    EXPECT_EQ(value.GetYear(), 2003);
    refused(value, "1-1-2002", &passed);
    EXPECT_EQ(value.GetYear(), 2003);
}

} // namespace
