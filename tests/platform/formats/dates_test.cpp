// Dates and times of day in every date format and in the modes.

#include "tests/platform/formats/formats_testing.h"

#include <chrono>
#include <random>
#include <vector>

namespace {

using namespace formats_testing;

struct Moment {
    int day = 5;
    int month = 3;
    int year = 2000;
    int hour = 14;
    int minute = 7;
    int second = 9;

    bool operator==(const Moment&) const = default;

    friend void PrintTo(const Moment& m, std::ostream* out)
    {
        *out << m.year << '-' << m.month << '-' << m.day << ' ' << m.hour << ':' << m.minute << ':'
             << m.second;
    }
};

std::tm ToTm(const Moment& m)
{
    std::tm value{};
    value.tm_mday = m.day;
    value.tm_mon = m.month - 1;
    value.tm_year = m.year - 1900;
    value.tm_hour = m.hour;
    value.tm_min = m.minute;
    value.tm_sec = m.second;
    return value;
}

Moment ToMoment(const std::tm& value)
{
    return {value.tm_mday, value.tm_mon + 1, value.tm_year + 1900,
            value.tm_hour, value.tm_min,     value.tm_sec};
}

struct DateArguments {
    int kind = ZelFormat::ZelFoDatum;
    int separator = ZelFormat::ZelFoDatumPunkt;
    int year = ZelFormat::ZelFoJahrVierstellig;
    int month = ZelFormat::ZelFoMonatZahl;
    int twoDigits = 1;
    char fillChar = '0';
};

ZelFormat Date(const DateArguments& a)
{
    return ZelFormat(static_cast<ZelFormat::FormatDatumArt>(a.kind),
                     static_cast<ZelFormat::FormatDatumTrenner>(a.separator),
                     static_cast<ZelFormat::FormatDatumJahr>(a.year),
                     static_cast<ZelFormat::FormatDatumMonat>(a.month), a.twoDigits, a.fillChar);
}

/// What the target holds before it is read into.
constexpr Moment kBefore{28, 12, 1999, 23, 58, 57};

Read<Moment> ReadDate(const ZelFormat& format, std::string_view text,
                      ZelFormat::FormatDatumUmfang scope = ZelFormat::ZelFoDatumMitZeit)
{
    std::tm value = ToTm(kBefore);
    value.tm_wday = 2;
    value.tm_yday = 361;
    value.tm_isdst = 1;
    const unsigned long error =
        ErrorOf("ParseDateTime(CString&,FormatDatumUmfang,struct tm*)",
                [&] { format.ParseDateTime(ToCString(text), scope, &value); });
    EXPECT_EQ(value.tm_wday, error != 0 ? 2 : 0);
    EXPECT_EQ(value.tm_yday, error != 0 ? 361 : 0);
    EXPECT_EQ(value.tm_isdst, error != 0 ? 1 : -1);
    return {error, ToMoment(value)};
}

int CenturyNow()
{
    using namespace std::chrono;
    return static_cast<int>(year_month_day(floor<days>(system_clock::now())).year()) / 100 * 100;
}

TEST(ShownDates, Modes)
{
    struct Row {
        Moment moment;
        const char* german;
        const char* technical;
    };
    const Row rows[] = {{{5, 3, 2000, 14, 7, 0}, "05.03.2000 14:07", "5.3.2000 14:07"},
                        {{5, 3, 2000, 14, 7, 9}, "05.03.2000 14:07:09", "5.3.2000 14:07:09"},
                        {{5, 3, 2000, 0, 0, 0}, "05.03.2000 00:00", "5.3.2000 0:00"},
                        {{31, 12, 1753, 23, 59, 59}, "31.12.1753 23:59:59", "31.12.1753 23:59:59"},
                        {{29, 2, 2000, 9, 0, 0}, "29.02.2000 09:00", "29.2.2000 9:00"},
                        {{1, 1, 5, 0, 0, 0}, "01.01.0005 00:00", "1.1.0005 0:00"},
                        {{1, 1, 32767, 0, 0, 0}, "01.01.32767 00:00", "1.1.32767 0:00"},
                        {{29, 2, 1900, 0, 0, 0}, "<8>", "<8>"},
                        {{31, 4, 2000, 0, 0, 0}, "<8>", "<8>"},
                        {{0, 1, 2000, 0, 0, 0}, "<8>", "<8>"},
                        {{1, 0, 2000, 0, 0, 0}, "<8>", "<8>"},
                        {{1, 13, 2000, 0, 0, 0}, "<8>", "<8>"},
                        {{1, 1, -1, 0, 0, 0}, "<8>", "<8>"},
                        {{1, 1, 32768, 0, 0, 0}, "<8>", "<8>"},
                        {{1, 1, 2000, 24, 0, 0}, "<8>", "<8>"},
                        {{1, 1, 2000, 0, 60, 0}, "<8>", "<8>"},
                        {{1, 1, 2000, 0, 0, -1}, "<8>", "<8>"}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.german);
        EXPECT_EQ(ShowDate(Standard(), ToTm(row.moment)), row.german);
        EXPECT_EQ(ShowDate(Technical(), ToTm(row.moment)), row.technical);
    }
    const Moment withTime;
    EXPECT_EQ(ShowDate(Standard(), ToTm(withTime), ZelFormat::ZelFoNurDatum), "05.03.2000");
    EXPECT_EQ(ShowDate(Technical(), ToTm(withTime), ZelFormat::ZelFoNurDatum), "5.3.2000");
    EXPECT_EQ(ShowDate(Standard(), ToTm(withTime), static_cast<ZelFormat::FormatDatumUmfang>(2)),
              "<20>");
}

TEST(ShownDates, FieldsOfAnyNumberNeverCrash)
{
    const int extremes[] = {std::numeric_limits<int>::min(), -1, 0, 12, 255, 256, 512,
                            std::numeric_limits<int>::max()};
    for (const int extreme : extremes) {
        std::tm value = ToTm({});
        value.tm_year = extreme;
        value.tm_mon = extreme;
        value.tm_mday = extreme;
        EXPECT_EQ(ShowDate(Standard(), value), "<8>");
        // Fields that are not shown may hold anything.
        EXPECT_EQ(ShowDate(Date({.kind = ZelFormat::ZelFoUhrzeit}), value), "14:07");
    }
    // The low byte of these is a day or a month.
    for (const int cut : {256 + 5, 57346, -251}) {
        std::tm value = ToTm({});
        value.tm_mday = cut;
        EXPECT_EQ(ShowDate(Standard(), value), "<8>") << cut;
        value = ToTm({});
        value.tm_mon = cut;
        EXPECT_EQ(ShowDate(Standard(), value), "<8>") << cut;
    }
    std::tm value = ToTm({});
    value.tm_hour = 99;
    EXPECT_EQ(ShowDate(Date({}), value), "05.03.2000");
}

TEST(ShownDates, EveryOption)
{
    struct Row {
        DateArguments format;
        Moment moment;
        const char* text;
    };
    const Row rows[] = {
        {{.kind = 0}, {}, "05.03.2000"},
        {{.kind = 1}, {}, "05.03.2000 14:07"},
        {{.kind = 2}, {}, "05.03.2000 14:07:09"},
        {{.kind = 2}, {5, 3, 2000, 0, 0, 0}, "05.03.2000 00:00:00"},
        {{.kind = 3}, {}, "05.03.2000 14:07:09"},
        {{.kind = 3}, {5, 3, 2000, 14, 7, 0}, "05.03.2000 14:07"},
        {{.kind = 3}, {5, 3, 2000, 0, 0, 0}, "05.03.2000"},
        {{.kind = 3}, {5, 3, 2000, 0, 0, 1}, "05.03.2000 00:00:01"},
        {{.kind = 4}, {}, "14:07"},
        {{.kind = 4}, {5, 3, 2000, 9, 5, 0}, "09:05"},
        {{.separator = 1}, {}, "05/03/2000"},
        {{.separator = 2}, {}, "05-03-2000"},
        {{.separator = 3}, {}, "05032000"},
        {{.separator = 3, .twoDigits = 0}, {}, "05032000"},
        {{.separator = 3, .fillChar = ' '}, {}, "05032000"},
        {{.separator = 3, .year = 1}, {}, "050300"},
        {{.year = 1}, {}, "05.03.00"},
        {{.year = 1}, {5, 3, 1987, 0, 0, 0}, "05.03.87"},
        {{.month = 1}, {}, "05.M\xE4r.2000"},
        {{.month = 2}, {}, "05.M\xE4rz.2000"},
        {{.separator = 2, .month = 1}, {24, 12, 2000, 0, 0, 0}, "24-Dez-2000"},
        {{.separator = 3, .month = 2, .twoDigits = 0}, {}, "05M\xE4rz2000"},
        {{.kind = 1, .twoDigits = 0}, {5, 3, 2000, 9, 7, 0}, "5.3.2000 9:07"},
        {{.kind = 1, .fillChar = ' '}, {5, 3, 2000, 9, 7, 0}, " 5. 3.2000  9:07"},
        {{.kind = 4, .fillChar = ' '}, {5, 3, 2000, 9, 7, 0}, " 9:07"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(ShowDate(Date(row.format), ToTm(row.moment)), row.text);
    }
}

TEST(ShownDates, MonthNames)
{
    const std::pair<const char*, const char*> names[] = {
        {"Jan", "Januar"},    {"Feb", "Februar"}, {"M\xE4r", "M\xE4rz"}, {"Apr", "April"},
        {"Mai", "Mai"},       {"Jun", "Juni"},    {"Jul", "Juli"},       {"Aug", "August"},
        {"Sep", "September"}, {"Okt", "Oktober"}, {"Nov", "November"},   {"Dez", "Dezember"}};
    int month = 0;
    for (const auto& [shortName, fullName] : names) {
        const Moment moment{1, ++month, 2000, 0, 0, 0};
        EXPECT_EQ(ShowDate(Date({.month = 1}), ToTm(moment)),
                  std::string("01.") + shortName + ".2000");
        EXPECT_EQ(ShowDate(Date({.month = 2}), ToTm(moment)),
                  std::string("01.") + fullName + ".2000");
    }
}

TEST(ReadDates, StandardMode)
{
    struct Row {
        const char* text;
        Moment moment;
    };
    const Row rows[] = {{"05.03.2000 14:07", {5, 3, 2000, 14, 7, 0}},
                        {"05.03.2000 14:07:09", {5, 3, 2000, 14, 7, 9}},
                        {"5.3.2000", {5, 3, 2000, 0, 0, 0}},
                        {"5.3.2000 4:07", {5, 3, 2000, 4, 7, 0}},
                        {"  5.3.2000  \t 4:07 ", {5, 3, 2000, 4, 7, 0}},
                        {"29.2.2000 23:59:59", {29, 2, 2000, 23, 59, 59}},
                        {"1.1.1753", {1, 1, 1753, 0, 0, 0}},
                        {"1.1.32767", {1, 1, 32767, 0, 0, 0}}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(ReadDate(Standard(), row.text), (Read<Moment>{0, row.moment}));
        EXPECT_EQ(ReadDate(Technical(), row.text), (Read<Moment>{0, row.moment}));
        EXPECT_EQ(ReadDate(Standard(), row.text, ZelFormat::ZelFoNurDatum),
                  (Read<Moment>{0, row.moment}));
    }
    EXPECT_EQ(ReadDate(Standard(), "5.3.07"), (Read<Moment>{0, {5, 3, CenturyNow() + 7, 0, 0, 0}}));
    EXPECT_EQ(ReadDate(Standard(), "5.3.99 1:02"),
              (Read<Moment>{0, {5, 3, CenturyNow() + 99, 1, 2, 0}}));
}

TEST(ReadDates, RejectedTexts)
{
    using namespace std::string_view_literals;
    const std::pair<std::string_view, unsigned long> rows[] = {{"", 21},
                                                               {"   ", 21},
                                                               {"5", 21},
                                                               {"5.3", 21},
                                                               {"5.3.", 21},
                                                               {"5.3.2", 21},
                                                               {"5.3.200", 21},
                                                               {"5.3.02000", 21},
                                                               {"5.3.200000", 21},
                                                               {"005.3.2000", 21},
                                                               {"5.003.2000", 21},
                                                               {"5..2000", 21},
                                                               {".3.2000", 21},
                                                               {"5/3/2000", 21},
                                                               {"5-3-2000", 21},
                                                               {"5.3.-200", 21},
                                                               {"-5.3.2000", 21},
                                                               {"5. 3.2000", 21},
                                                               {"5.M\xE4r.2000", 21},
                                                               {"5.3.2000x", 21},
                                                               {"5.3.2000 ,", 21},
                                                               {"5.3.2000 14", 21},
                                                               {"5.3.2000 14:", 21},
                                                               {"5.3.2000 14:7", 21},
                                                               {"5.3.2000 14:070", 21},
                                                               {"5.3.2000 14:07:", 21},
                                                               {"5.3.2000 14:07:9", 21},
                                                               {"5.3.2000 14:07:090", 21},
                                                               {"5.3.200014:07", 21},
                                                               {"14:07", 21},
                                                               {"5.3.2000\0"sv, 21},
                                                               {"5.3.2000 14.07", 21},
                                                               {"5.3.2000 014:07", 21},
                                                               {"0.3.2000", 8},
                                                               {"32.1.2000", 8},
                                                               {"30.2.2000", 8},
                                                               {"29.2.1900", 8},
                                                               {"29.2.2001", 8},
                                                               {"31.4.2000", 8},
                                                               {"1.0.2000", 8},
                                                               {"1.13.2000", 8},
                                                               {"1.1.32768", 8},
                                                               {"1.1.99999", 8},
                                                               {"5.3.2000 24:00", 8},
                                                               {"5.3.2000 14:60", 8},
                                                               {"5.3.2000 14:07:60", 8}};
    for (const auto& [text, error] : rows) {
        SCOPED_TRACE(text);
        EXPECT_EQ(ReadDate(Standard(), text), (Read<Moment>{error, kBefore}));
        EXPECT_EQ(ReadDate(Standard(), text, ZelFormat::ZelFoNurDatum),
                  (Read<Moment>{error, kBefore}));
    }
    // Digits alone are a date, not a moment.
    EXPECT_EQ(ReadDate(Standard(), "05032000"), (Read<Moment>{21, kBefore}));
    EXPECT_EQ(ReadDate(Standard(), "1.1.2000", static_cast<ZelFormat::FormatDatumUmfang>(-1)),
              (Read<Moment>{20, kBefore}));
}

TEST(ReadDates, DigitsAlone)
{
    const ZelFormat none = Date({.separator = 3});
    const auto onlyDate = ZelFormat::ZelFoNurDatum;
    EXPECT_EQ(ReadDate(Standard(), "05032000", onlyDate), (Read<Moment>{0, {5, 3, 2000, 0, 0, 0}}));
    EXPECT_EQ(ReadDate(Standard(), "050307", onlyDate),
              (Read<Moment>{0, {5, 3, CenturyNow() + 7, 0, 0, 0}}));
    EXPECT_EQ(ReadDate(Standard(), "30022000", onlyDate).error, 8U);
    for (const char* text : {"5032000", "0503", "0503200000", "503200", "05032000x"}) {
        SCOPED_TRACE(text);
        const unsigned long error = ReadDate(Standard(), text, onlyDate).error;
        // Six digits are always day, month and year: 50.32.00 is none of the calendar.
        EXPECT_EQ(error, std::string_view(text) == "503200" ? 8U : 21U);
    }
    // A format for dates leaves the time of day alone.
    EXPECT_EQ(ReadDate(none, "05032000"), (Read<Moment>{0, {5, 3, 2000, 23, 58, 57}}));
    EXPECT_EQ(ReadDate(none, "050312345"), (Read<Moment>{0, {5, 3, 12345, 23, 58, 57}}));
    EXPECT_EQ(ReadDate(none, "5.3.2000").error, 21U);
    EXPECT_EQ(ReadDate(none, "532000").error, 8U);
}

TEST(ReadDates, ByOption)
{
    struct Row {
        DateArguments format;
        const char* text;
        unsigned long error;
        Moment moment;
    };
    const Row rows[] = {
        {{.kind = 0}, "5.3.2000", 0, {5, 3, 2000, 23, 58, 57}},
        {{.kind = 0}, "5.3.2000 14:07", 21, {}},
        {{.kind = 1}, "5.3.2000 14:07", 0, {5, 3, 2000, 14, 7, 0}},
        {{.kind = 1}, "5.3.2000", 0, {5, 3, 2000, 0, 0, 0}},
        {{.kind = 1}, "5.3.2000 14:07:09", 21, {}},
        {{.kind = 2}, "5.3.2000 14:07:09", 0, {5, 3, 2000, 14, 7, 9}},
        {{.kind = 2}, "5.3.2000 14:07", 0, {5, 3, 2000, 14, 7, 0}},
        {{.kind = 3}, "5.3.2000", 0, {5, 3, 2000, 0, 0, 0}},
        {{.kind = 3}, "5.3.2000 14:07:09", 0, {5, 3, 2000, 14, 7, 9}},
        {{.kind = 4}, "14:07", 0, {28, 12, 1999, 14, 7, 0}},
        {{.kind = 4}, "4:07", 0, {28, 12, 1999, 4, 7, 0}},
        {{.kind = 4}, "14:07:09", 21, {}},
        {{.kind = 4}, "5.3.2000 14:07", 21, {}},
        {{.kind = 4}, "24:00", 8, {}},
        {{.kind = 4}, "", 21, {}},
        {{.separator = 1}, "5/3/2000", 0, {5, 3, 2000, 23, 58, 57}},
        {{.separator = 1}, "5.3.2000", 21, {}},
        {{.separator = 2}, "5-3-2000", 0, {5, 3, 2000, 23, 58, 57}},
        {{.separator = 2}, "5-3/2000", 21, {}},
        {{.year = 1}, "5.3.2000", 0, {5, 3, 2000, 23, 58, 57}},
        // names
        {{.month = 1}, "5.M\xE4r.2000", 0, {5, 3, 2000, 23, 58, 57}},
        {{.month = 1}, "5.m\xC4RZ.2000", 0, {5, 3, 2000, 23, 58, 57}},
        {{.month = 1}, "5.3.2000", 0, {5, 3, 2000, 23, 58, 57}},
        {{.month = 2}, "5. M\xE4rz 2000", 0, {5, 3, 2000, 23, 58, 57}},
        {{.month = 2}, "24.Dez.2000", 0, {24, 12, 2000, 23, 58, 57}},
        {{.month = 2}, "24.De.2000", 21, {}},
        {{.month = 2}, "24.Dezem.2000", 21, {}},
        {{.month = 2}, "24.Maerz.2000", 21, {}},
        {{.month = 2}, "31.Juni.2000", 8, {}},
        {{.separator = 3, .month = 1}, "5Mai2000", 0, {5, 5, 2000, 23, 58, 57}},
        {{.separator = 3, .month = 1}, "05052000", 0, {5, 5, 2000, 23, 58, 57}},
        // what fills to two digits
        {{.kind = 1, .fillChar = ' '}, " 5. 3.2000  9:07", 0, {5, 3, 2000, 9, 7, 0}},
        {{.kind = 1, .fillChar = '_'}, "_5._3.2000 _9:07", 0, {5, 3, 2000, 9, 7, 0}},
        {{.kind = 1, .fillChar = '_'}, "__5._3.2000 _9:07", 21, {}},
        {{.kind = 1, .twoDigits = 0, .fillChar = '_'}, "_5.3.2000", 21, {}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(ReadDate(Date(row.format), row.text),
                  (Read<Moment>{row.error, row.error == 0 ? row.moment : kBefore}));
    }
}

TEST(ReadDates, NullTarget)
{
    constexpr auto signature = "ParseDateTime(CString&,FormatDatumUmfang,struct tm*)";
    const auto scope = ZelFormat::ZelFoDatumMitZeit;
    EXPECT_EQ(ErrorOf(signature, [&] { Standard().ParseDateTime("1.1.2000", scope, nullptr); }),
              0U);
    EXPECT_EQ(ErrorOf(signature, [&] { Standard().ParseDateTime("30.2.2000", scope, nullptr); }),
              8U);
}

Moment RandomMoment(std::mt19937& random, int firstYear, int years)
{
    using namespace std::chrono;
    const sys_days first = year(firstYear) / January / 1;
    const sys_days last = year(firstYear + years) / January / 1;
    const auto count = static_cast<unsigned>((last - first).count());
    const year_month_day date(first + days(random() % count));
    return {static_cast<int>(static_cast<unsigned>(date.day())),
            static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(date.year()),
            static_cast<int>(random() % 24),
            static_cast<int>(random() % 60),
            static_cast<int>(random() % 60)};
}

TEST(RoundTrip, DatesInTheModes)
{
    std::mt19937 random(1753);
    for (const ZelFormat& format : {Standard(), Technical()}) {
        for (int i = 0; i < 5000; ++i) {
            Moment moment = RandomMoment(random, 1753, 31000);
            if (random() % 4 == 0)
                moment.second = 0;
            const std::string text = ShowDate(format, ToTm(moment));
            ASSERT_EQ(ReadDate(format, text), (Read<Moment>{0, moment})) << text;

            moment.hour = moment.minute = moment.second = 0;
            const auto scope = ZelFormat::ZelFoNurDatum;
            const std::string date = ShowDate(format, ToTm(moment), scope);
            ASSERT_EQ(ReadDate(format, date, scope), (Read<Moment>{0, moment})) << date;
        }
    }
}

TEST(RoundTrip, DatesInEveryFormat)
{
    std::mt19937 random(2000);
    for (const int kind : {0, 1, 2, 3, 4})
        for (const int separator : {0, 1, 2, 3})
            for (const int year : {0, 1})
                for (const int month : {0, 1, 2})
                    for (const char fill : {'\0', '0', ' ', '_', '.', ':'}) {
                        const ZelFormat format =
                            Date({kind, separator, year, month, fill != '\0', fill});
                        for (int i = 0; i < 20; ++i) {
                            const Moment moment = year == 1
                                                      ? RandomMoment(random, CenturyNow(), 100)
                                                      : RandomMoment(random, 0, 32767);
                            // What the format drops: seconds become 0, the rest stays.
                            Moment expected = moment;
                            if (kind == 0) {
                                expected.hour = kBefore.hour;
                                expected.minute = kBefore.minute;
                                expected.second = kBefore.second;
                            }
                            if (kind == 1 || kind == 4)
                                expected.second = 0;
                            if (kind == 4) {
                                expected.day = kBefore.day;
                                expected.month = kBefore.month;
                                expected.year = kBefore.year;
                            }
                            const std::string text = ShowDate(format, ToTm(moment));
                            ASSERT_EQ(ReadDate(format, text), (Read<Moment>{0, expected})) << text;
                        }
                    }
}

TEST(HostileTexts, RandomDatesNeverCrash)
{
    std::mt19937 random(4712);
    const std::string alphabet("0123456789../-: \tMMaiJunr_\0\xE4", 29);
    const ZelFormat formats[] = {Standard(), Date({.kind = 3, .separator = 3}),
                                 Date({.kind = 2, .month = 1, .fillChar = '_'}),
                                 Date({.separator = 3, .month = 2}), Date({.kind = 4})};
    for (int i = 0; i < 20000; ++i) {
        std::string text(random() % 20, ' ');
        for (char& c : text)
            c = alphabet[random() % alphabet.size()];
        for (const ZelFormat& format : formats) {
            const Read<Moment> read = ReadDate(format, text);
            if (read.error == 0) {
                ASSERT_EQ(ReadDate(format, ShowDate(format, ToTm(read.value))), read) << text;
            }
        }
    }
    const std::string digits(100'000, '1');
    EXPECT_EQ(ReadDate(Standard(), digits).error, 21U);
    EXPECT_EQ(ReadDate(Standard(), "1.1." + digits).error, 21U);
    EXPECT_EQ(ReadDate(Standard(), "1.1.2000" + std::string(100'000, ' ') + "1:11"),
              (Read<Moment>{0, {1, 1, 2000, 1, 11, 0}}));
}

} // namespace
