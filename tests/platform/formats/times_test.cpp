// Durations in every time format and in the modes. One hour has 1200 units, a minute 20, a
// hundredth of an hour 12.

#include "tests/platform/formats/formats_testing.h"

#include <limits>
#include <random>

namespace {

using namespace formats_testing;

constexpr auto kHundredths = ZelFormat::ZelFoZeitHundertstel;
constexpr auto kMinutes = ZelFormat::ZelFoZeitMinuten;
constexpr auto kHours = ZelFormat::ZelFoZeitStunden;
constexpr auto kOwn = ZelFormat::ZelFoZeitEigene;

constexpr std::int32_t kMostUnits = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kLeastUnits = std::numeric_limits<std::int32_t>::min();

struct TimeArguments {
    ZelFormat::FormatZeitArt kind = kOwn;
    int shape = ZelFormat::ZelFoZeitMitTrenner;
    int sign = ZelFormat::ZelFoVorzeichenVorne;
    int whichSign = ZelFormat::ZelFoNurMinus;
    unsigned long hourPlaces = 0;
    int fill = 0;
    char fillChar = '0';
};

ZelFormat Time(const TimeArguments& a)
{
    return ZelFormat(a.kind, static_cast<ZelFormat::FormatZeitDarstellung>(a.shape),
                     static_cast<ZelFormat::FormatVorzeichen>(a.sign),
                     static_cast<ZelFormat::FormatVorzeichenWelches>(a.whichSign), a.hourPlaces,
                     a.fill, a.fillChar);
}

struct Amount {
    std::int32_t units;
    ZelFormat::FormatZeitArt mode;

    bool operator==(const Amount&) const = default;

    friend void PrintTo(const Amount& amount, std::ostream* out)
    {
        *out << amount.units << " units in mode " << amount.mode;
    }
};

constexpr Amount kBefore{-77, kHours};

Read<Amount> ReadTime(const ZelFormat& format, std::string_view text, Amount before = kBefore)
{
    Read<Amount> read{0, before};
    read.error = ErrorOf("ParseTime(CString&,LONG*,FormatZeitArt*)", [&] {
        format.ParseTime(ToCString(text), &read.value.units, &read.value.mode);
    });
    return read;
}

TEST(ShownTimes, Modes)
{
    struct Row {
        std::int32_t units;
        ZelFormat::FormatZeitArt mode;
        const char* german;
        const char* technical;
    };
    const Row rows[] = {{1800, kMinutes, "01:30", "1:30"},
                        {1800, kHundredths, "01,50", "1.50"},
                        {1200, kHours, "01", "1"},
                        {1800, kHours, "01:30", "1:30"}, // whole hours with a fraction left over
                        {-1800, kHours, "-01:30", "-1:30"},
                        {1800, kOwn, "01:30", "1:30"},
                        {0, kMinutes, "00:00", "0:00"},
                        {-600, kMinutes, "-00:30", "-0:30"},
                        {20, kHundredths, "00,01", "0.01"},
                        {-5, kMinutes, "-00:00", "-0:00"},
                        {1200 * 100, kMinutes, "100:00", "100:00"},
                        {1200 * 1789568 + 1180, kMinutes, "1789568:59", "1789568:59"},
                        {kMostUnits, kHundredths, "1789569,70", "1789569.70"},
                        {kLeastUnits, kMinutes, "-1789569:42", "-1789569:42"}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.german);
        EXPECT_EQ(ShowTime(Standard(), row.units, row.mode), row.german);
        EXPECT_EQ(ShowTime(Technical(), row.units, row.mode), row.technical);
    }
}

TEST(ShownTimes, EveryOption)
{
    struct Row {
        TimeArguments format;
        std::int32_t units;
        ZelFormat::FormatZeitArt mode;
        const char* text;
    };
    const Row rows[] = {
        {{.kind = kHundredths}, 1800, kMinutes, "1,50"},
        {{.kind = kMinutes}, 1800, kHundredths, "1:30"},
        {{.kind = kHours}, 1800, kMinutes, "1"},
        {{.kind = kOwn}, 1800, kHundredths, "1,50"},
        {{.kind = kOwn}, 1800, kHours, "1:30"},
        {{.kind = kOwn}, 2400, kHours, "2"},
        // without separator
        {{.kind = kMinutes, .shape = 1}, 1800, kMinutes, "130"},
        {{.kind = kHundredths, .shape = 1}, -1800, kMinutes, "-150"},
        {{.kind = kHours, .shape = 1}, 1800, kMinutes, "1"},
        {{.kind = kOwn, .shape = 1}, 1800, kMinutes, "130"},
        {{.kind = kOwn, .shape = 1}, 2400, kHours, "2"},
        {{.kind = kOwn, .shape = 1}, 1800, kHours, "<20>"},
        {{.kind = kOwn, .shape = 1}, 1800, kOwn, "<20>"},
        // signs
        {{.kind = kMinutes, .sign = 0}, -1800, kMinutes, "<20>"},
        {{.kind = kMinutes, .sign = 0}, 1800, kMinutes, "1:30"},
        {{.kind = kMinutes, .sign = 2}, -1800, kMinutes, "1:30-"},
        {{.kind = kMinutes, .whichSign = 1}, 1800, kMinutes, "+1:30"},
        {{.kind = kMinutes, .whichSign = 1}, 0, kMinutes, "0:00"},
        // places of the hours
        {{.kind = kMinutes, .hourPlaces = 2}, 99 * 1200, kMinutes, "99:00"},
        {{.kind = kMinutes, .hourPlaces = 2}, 100 * 1200, kMinutes, "<20>"},
        {{.kind = kMinutes, .hourPlaces = 4, .fill = 1}, -1800, kMinutes, "-0001:30"},
        {{.kind = kMinutes, .hourPlaces = 4, .fill = 1, .fillChar = ' '},
         -1800,
         kMinutes,
         "   -1:30"},
        {{.kind = kMinutes, .shape = 1, .hourPlaces = 2, .fill = 1}, 1800, kMinutes, "0130"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(ShowTime(Time(row.format), row.units, row.mode), row.text);
    }
    for (const int mode : {-1, 4}) {
        EXPECT_EQ(ShowTime(Standard(), 1, static_cast<ZelFormat::FormatZeitArt>(mode)), "<20>");
    }
}

TEST(ReadTimes, StandardMode)
{
    struct Row {
        const char* text;
        unsigned long error;
        Amount amount;
    };
    const Row rows[] = {{"8", 0, {9600, kHours}},
                        {"8:15", 0, {9900, kMinutes}},
                        {"8,25", 0, {9900, kHundredths}},
                        {"815", 0, {815 * 1200, kHours}},
                        {"08:15", 0, {9900, kMinutes}},
                        {" 8:15 ", 0, {9900, kMinutes}},
                        {"-0:30", 0, {-600, kMinutes}},
                        {"-8:15", 0, {-9900, kMinutes}},
                        {"8:15-", 0, {-9900, kMinutes}},
                        {"+8", 0, {9600, kHours}},
                        {"0:59", 0, {1180, kMinutes}},
                        {"0,99", 0, {1188, kHundredths}},
                        {"1789568:59", 0, {1200 * 1789568 + 1180, kMinutes}},
                        {"-1789568,99", 0, {-(1200 * 1789568 + 1188), kHundredths}},
                        {"8:75", 8, {}},
                        {"8:60", 8, {}},
                        {"1789569:00", 8, {}},
                        {"-1789569", 8, {}},
                        {"99999999999999999999", 8, {}},
                        {"8:1", 21, {}},
                        {"8:150", 21, {}},
                        {"8:", 21, {}},
                        {":30", 21, {}},
                        {"8.15", 21, {}},
                        {"8:15:00", 21, {}},
                        {"8:1a", 21, {}},
                        {"a:15", 21, {}},
                        {"8 :15", 21, {}},
                        {"--8", 21, {}},
                        {"-8-", 21, {}},
                        {"-", 21, {}},
                        {"", 21, {}},
                        {"  ", 21, {}}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(ReadTime(Standard(), row.text),
                  (Read<Amount>{row.error, row.error == 0 ? row.amount : kBefore}));
    }
    EXPECT_EQ(ReadTime(Technical(), "8.25"), (Read<Amount>{0, {9900, kHundredths}}));
    EXPECT_EQ(ReadTime(Technical(), "8:15"), (Read<Amount>{0, {9900, kMinutes}}));
    EXPECT_EQ(ReadTime(Technical(), "8,25").error, 21U);
}

TEST(ReadTimes, TheStandardModeAsTheFormatOfItsOptions)
{
    // Texts that look like hours and minutes, and some that nearly do.
    const std::string characters = "0123456789012345:::,-+ .;";
    std::mt19937 random(61);
    for (int i = 0; i < 100000; ++i) {
        std::string text;
        for (std::size_t length = random() % 4 != 0 ? 5 : random() % 8; length != 0; --length)
            text += characters[random() % characters.size()];
        if (random() % 2 != 0 && text.size() == 5)
            text[2] = ':';
        ASSERT_EQ(ReadTime(Standard(), text), ReadTime(Time({}), text)) << text;
    }
    for (int hours = 0; hours < 100; ++hours) {
        for (int minutes = 0; minutes < 100; ++minutes) {
            const std::string text = {
                static_cast<char>('0' + hours / 10), static_cast<char>('0' + hours % 10), ':',
                static_cast<char>('0' + minutes / 10), static_cast<char>('0' + minutes % 10)};
            const auto expected = minutes < 60
                                      ? Read<Amount>{0, {hours * 1200 + minutes * 20, kMinutes}}
                                      : Read<Amount>{8, kBefore};
            ASSERT_EQ(ReadTime(Standard(), text), expected) << text;
        }
    }
}

TEST(ReadTimes, ByOption)
{
    struct Row {
        TimeArguments format;
        const char* text;
        ZelFormat::FormatZeitArt before;
        unsigned long error;
        Amount amount;
    };
    const Row rows[] = {
        {{.kind = kMinutes}, "8:15", kHours, 0, {9900, kMinutes}},
        {{.kind = kMinutes}, "8", kHours, 0, {9600, kMinutes}},
        {{.kind = kMinutes}, "8,15", kHours, 21, {}},
        {{.kind = kHundredths}, "8,25", kHours, 0, {9900, kHundredths}},
        {{.kind = kHundredths}, "8:15", kHours, 21, {}},
        {{.kind = kHours}, "8", kMinutes, 0, {9600, kHours}},
        {{.kind = kHours}, "8:15", kHours, 21, {}},
        {{.kind = kOwn}, "8,25", kMinutes, 0, {9900, kHundredths}},
        // without separator
        {{.kind = kMinutes, .shape = 1}, "0815", kHours, 0, {9900, kMinutes}},
        {{.kind = kMinutes, .shape = 1}, "815", kHours, 0, {9900, kMinutes}},
        {{.kind = kMinutes, .shape = 1}, "15", kHours, 21, {}},
        {{.kind = kMinutes, .shape = 1}, "860", kHours, 8, {}},
        {{.kind = kMinutes, .shape = 1}, "8:15", kHours, 21, {}},
        {{.kind = kHours, .shape = 1}, "15", kMinutes, 0, {18000, kHours}},
        {{.kind = kOwn, .shape = 1}, "825", kHundredths, 0, {9900, kHundredths}},
        {{.kind = kOwn, .shape = 1}, "815", kHours, 0, {815 * 1200, kHours}},
        {{.kind = kOwn, .shape = 1}, "815", kOwn, 0, {815 * 1200, kHours}},
        // signs
        {{.kind = kMinutes, .sign = 0}, "-8:15", kHours, 20, {}},
        {{.kind = kMinutes, .sign = 0}, "+8:15", kHours, 21, {}},
        {{.kind = kMinutes, .sign = 2}, "-8:15", kHours, 0, {-9900, kMinutes}},
        // places of the hours
        {{.kind = kMinutes, .hourPlaces = 2}, "99:00", kHours, 0, {99 * 1200, kMinutes}},
        {{.kind = kMinutes, .hourPlaces = 2}, "0099:00", kHours, 0, {99 * 1200, kMinutes}},
        {{.kind = kMinutes, .hourPlaces = 2}, "100:00", kHours, 11, {}},
        {{.kind = kMinutes, .hourPlaces = 4, .fill = 1, .fillChar = '*'},
         "***-1:30",
         kHours,
         0,
         {-1800, kMinutes}},
        {{.kind = kMinutes, .hourPlaces = 4, .fillChar = '*'}, "***-1:30", kHours, 21, {}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.text);
        const Amount before{-77, row.before};
        EXPECT_EQ(ReadTime(Time(row.format), row.text, before),
                  (Read<Amount>{row.error, row.error == 0 ? row.amount : before}));
    }
    EXPECT_EQ(ReadTime(Standard(), "8", {0, static_cast<ZelFormat::FormatZeitArt>(4)}).error, 20U);
}

TEST(ReadTimes, NullTargets)
{
    std::int32_t units = 0;
    Standard().ParseTime("8:15", &units, nullptr);
    EXPECT_EQ(units, 9900);
    ZelFormat::FormatZeitArt mode = kOwn;
    Standard().ParseTime("8:15", nullptr, &mode);
    EXPECT_EQ(mode, kMinutes);
    EXPECT_EQ(ErrorOf("ParseTime(CString&,LONG*,FormatZeitArt*)",
                      [] { Standard().ParseTime("8:99", nullptr, nullptr); }),
              8U);
}

TEST(RoundTrip, Times)
{
    std::mt19937 random(1200);
    const std::int32_t unitsPerStep[] = {12, 20, 1200};
    for (const auto kind : {kHundredths, kMinutes, kHours, kOwn})
        for (const int shape : {0, 1})
            for (const int sign : {1, 2})
                for (const int whichSign : {0, 1})
                    for (const char fill : {'\0', '0', ' ', '*', ':', ','}) {
                        const ZelFormat format =
                            Time({kind, shape, sign, whichSign, 9, fill != '\0', fill});
                        for (int i = 0; i < 30; ++i) {
                            const auto mode =
                                kind == kOwn ? static_cast<ZelFormat::FormatZeitArt>(random() % 3)
                                             : kind;
                            const std::int32_t step = unitsPerStep[mode];
                            const std::int32_t hours =
                                static_cast<std::int32_t>(random() % (2 * 1789568)) - 1789568;
                            const std::int32_t units =
                                hours * 1200 / step * step >> (random() % 8 * 4) / step * step;
                            const Amount amount{units / step * step, mode};
                            const std::string text = ShowTime(format, amount.units, mode);
                            ASSERT_EQ(ReadTime(format, text, {0, mode}), (Read<Amount>{0, amount}))
                                << text;
                        }
                    }
}

TEST(RoundTrip, TimesInTheModes)
{
    std::mt19937 random(90);
    for (const ZelFormat& format : {Standard(), Technical()}) {
        for (int i = 0; i < 5000; ++i) {
            const auto value = static_cast<std::int32_t>(random() % 40'000'000) - 20'000'000;
            const Amount minutes{value * 20, kMinutes};
            const Amount hundredths{value * 12, kHundredths};
            for (const Amount& amount : {minutes, hundredths}) {
                const std::string text = ShowTime(format, amount.units, amount.mode);
                ASSERT_EQ(ReadTime(format, text), (Read<Amount>{0, amount})) << text;
            }
        }
    }
}

TEST(TimeMode, Query)
{
    for (const auto kind : {kHundredths, kMinutes, kHours, kOwn})
        EXPECT_EQ(Time({.kind = kind}).GetZeitArt(), kind);
    EXPECT_EQ(Standard().GetZeitArt(), kOwn);
    EXPECT_EQ(LongDefault().GetZeitArt(), kOwn);
    EXPECT_EQ(Time({.kind = static_cast<ZelFormat::FormatZeitArt>(7)}).GetZeitArt(), kOwn);
    EXPECT_EQ(Time({.kind = kHours, .shape = 7}).GetZeitArt(), kOwn);
}

} // namespace
