/// How amounts of time are shown, by every combination of the options of a time format.

#include "tests/display/times_testing.h"

#include <climits>
#include <optional>
#include <string>

namespace {

using namespace zeltest;

/// An amount and its parts as they are written.
struct Sample {
    std::int32_t units;
    const char* hours;
    const char* minutes;
    const char* hundredths;
};

const Sample kSamples[] = {
    {0, "0", "00", "00"},
    {1800, "1", "30", "50"},
    {-1800, "1", "30", "50"},
    {600, "0", "30", "50"},
    {-600, "0", "30", "50"},
    {1, "0", "00", "00"}, // below what is shown
    {-1, "0", "00", "00"},
    {11, "0", "00", "00"},
    {12, "0", "00", "01"},
    {-19, "0", "00", "01"},
    {20, "0", "01", "01"},
    {24, "0", "01", "02"},
    {1199, "0", "59", "99"},
    {-1199, "0", "59", "99"},
    {1200, "1", "00", "00"},
    {1201, "1", "00", "00"},
    {-1200, "1", "00", "00"},
    {-1201, "1", "00", "00"},
    {9900, "8", "15", "25"},
    {12000, "10", "00", "00"},
    {119999, "99", "59", "99"},
    {120000, "100", "00", "00"},
    {1199980, "999", "59", "98"}, // 1180 of 1200 units left
    {-1200000, "1000", "00", "00"},
    {12000600, "10000", "30", "50"},
    {2147481600, "1789568", "00", "00"},
    {-2147481600, "1789568", "00", "00"},
    {kMostUnits, "1789569", "42", "70"}, // 847 units left
    {kLeastUnits, "1789569", "42", "70"},
};

/// The mode that is shown: that of the format, else the value's own, but whole hours never hide
/// what is left over.
int ShownMode(const TimeOptions& o, const Sample& s, TimeMode mode)
{
    if (o.kind != 3)
        return o.kind;
    return mode == kHours && s.units % 1200 != 0 ? kMinutes : mode;
}

/// The text; none where the format has no place for it, and where the digits would be read as
/// something else.
std::optional<std::string> Expected(const TimeOptions& o, const Sample& s, TimeMode mode)
{
    const std::string hours = s.hours;
    if ((o.places != 0 && hours.size() > o.places) || (s.units < 0 && o.sign == 0))
        return std::nullopt;
    if (o.kind == 3 && o.shape == 1 && ShownMode(o, s, mode) != mode)
        return std::nullopt;
    std::string fraction;
    if (const int shown = ShownMode(o, s, mode); shown != kHours) {
        if (o.shape == 0)
            fraction = shown == kMinutes ? ":" : ",";
        fraction += shown == kMinutes ? s.minutes : s.hundredths;
    }
    std::string sign;
    if (o.sign != 0 && s.units < 0)
        sign = "-";
    else if (o.sign != 0 && s.units > 0 && o.which == 1)
        sign = "+";
    const std::string fill(o.fill != 0 && o.places != 0 ? o.places - hours.size() : 0, o.fillChar);
    if (o.sign == 2)
        return fill + hours + fraction + sign;
    return (o.fillChar == '0' ? sign + fill : fill + sign) + hours + fraction;
}

TEST(TimesShown, ByEveryCombinationOfOptions)
{
    ASSERT_EQ(AllTimeOptions().size(), 288u);
    for (const Sample& sample : kSamples) {
        for (const TimeMode mode : kTimeModes) {
            const Amount amount = Defined(sample.units, mode);
            const Given<ZelDtTime> given(amount);
            for (const TimeOptions& options : AllTimeOptions()) {
                const ZelFormat format = options.Format();
                const auto expected = Expected(options, sample, mode);
                if (expected) {
                    std::string text;
                    const Caught caught = Catch([&] { text = Shown(given.it, &format); });
                    ASSERT_EQ(caught.disturbance, "nothing")
                        << amount << " by " << options << ": " << caught.first;
                    ASSERT_EQ(text, *expected) << amount << " by " << options;
                } else {
                    ASSERT_TRUE(FailsByFormat([&] { given.it.ConvToOFL(&format); }, ShowTimeError(),
                                              20, "FormatTime"))
                        << amount << " by " << options;
                }
            }
            EXPECT_EQ(Look(given.it), amount);
        }
    }
}

TEST(TimesShown, AsWholeTexts)
{
    const struct {
        TimeOptions options;
        std::int32_t units;
        TimeMode mode;
        const char* text;
    } rows[] = {
        {{0, 0, 1, 0, 0, 0, '0'}, 1800, kMinutes, "1,50"},
        {{1, 0, 1, 0, 0, 0, '0'}, 1800, kHundredths, "1:30"},
        {{2, 0, 1, 0, 0, 0, '0'}, 1800, kMinutes, "1"},
        {{3, 0, 1, 0, 0, 0, '0'}, 1800, kHundredths, "1,50"},
        {{3, 0, 1, 0, 0, 0, '0'}, 1800, kMinutes, "1:30"},
        {{3, 0, 1, 0, 0, 0, '0'}, 1800, kHours, "1:30"},
        {{3, 0, 1, 0, 0, 0, '0'}, 2400, kHours, "2"},
        {{3, 0, 1, 0, 0, 0, '0'}, 2401, kHours, "2:00"},
        {{0, 1, 1, 0, 0, 0, '0'}, 1800, kMinutes, "150"},
        {{1, 1, 1, 0, 0, 0, '0'}, 1800, kMinutes, "130"},
        {{1, 1, 1, 0, 0, 0, '0'}, 600, kMinutes, "030"},
        {{1, 1, 1, 0, 4, 1, '0'}, 600, kMinutes, "000030"},
        {{2, 1, 1, 0, 0, 0, '0'}, 1800, kMinutes, "1"},
        {{1, 0, 1, 0, 0, 0, '0'}, -1800, kMinutes, "-1:30"},
        {{1, 0, 2, 0, 0, 0, '0'}, -1800, kMinutes, "1:30-"},
        {{1, 0, 1, 1, 0, 0, '0'}, 1800, kMinutes, "+1:30"},
        {{1, 0, 2, 1, 0, 0, '0'}, 1800, kMinutes, "1:30+"},
        {{1, 0, 1, 1, 0, 0, '0'}, 0, kMinutes, "0:00"},
        {{1, 0, 1, 0, 4, 1, '0'}, -1800, kMinutes, "-0001:30"},
        {{1, 0, 1, 0, 4, 1, ' '}, -1800, kMinutes, "   -1:30"},
        {{1, 0, 2, 0, 4, 1, ' '}, -1800, kMinutes, "   1:30-"},
        {{0, 0, 1, 1, 4, 1, '*'}, 1800, kMinutes, "***+1,50"},
        {{1, 0, 1, 0, 4, 1, '0'}, 11998800, kMinutes, "9999:00"},
        {{1, 0, 0, 0, 2, 1, '0'}, 9900, kMinutes, "08:15"},
        {{1, 0, 0, 0, 2, 7, '0'}, 9900, kMinutes, "08:15"},
        {{1, 0, 0, 0, 2, -1, '0'}, 9900, kMinutes, "08:15"},
        {{1, 0, 1, 0, 1024, 0, '0'}, 9900, kMinutes, "8:15"},
    };
    for (const auto& row : rows) {
        const ZelFormat format = row.options.Format();
        EXPECT_EQ(Shown(Given<ZelDtTime>(Defined(row.units, row.mode)).it, &format), row.text)
            << row.units << " by " << row.options;
    }
    const ZelFormat widest = TimeOptions{1, 0, 1, 0, 1024, 1, '0'}.Format();
    EXPECT_EQ(Shown(Given<ZelDtTime>(Defined(9900, kMinutes)).it, &widest),
              std::string(1023, '0') + "8:15");
}

TEST(TimesShown, ByTheModes)
{
    const ZelFormat standard(ZelFormat::ZelFoStandard);
    const ZelFormat technical(ZelFormat::ZelFoTechnisch);
    const struct {
        std::int32_t units;
        TimeMode mode;
        const char* standard;
        const char* technical;
    } rows[] = {
        {0, kMinutes, "00:00", "0:00"},
        {0, kHundredths, "00,00", "0.00"},
        {0, kHours, "00", "0"},
        {1800, kMinutes, "01:30", "1:30"},
        {1800, kHundredths, "01,50", "1.50"},
        {1800, kHours, "01:30", "1:30"},
        {1200, kHours, "01", "1"},
        {-1200, kHours, "-01", "-1"},
        {-600, kMinutes, "-00:30", "-0:30"},
        {-600, kHundredths, "-00,50", "-0.50"},
        {-600, kHours, "-00:30", "-0:30"},
        {20, kHundredths, "00,01", "0.01"},
        {9900, kMinutes, "08:15", "8:15"},
        {120000, kMinutes, "100:00", "100:00"},
        {2147481600, kHours, "1789568", "1789568"},
        {kMostUnits, kMinutes, "1789569:42", "1789569:42"},
        {kLeastUnits, kHundredths, "-1789569,70", "-1789569.70"},
    };
    for (const auto& row : rows) {
        const Given<ZelDtTime> given(Defined(row.units, row.mode));
        EXPECT_EQ(Shown(given.it, &standard), row.standard) << row.units;
        EXPECT_EQ(Shown(given.it), row.standard) << row.units;
        EXPECT_EQ(Shown(given.it, &technical), row.technical) << row.units;
    }
}

/// The standard mode shows the text of the stored mode.
TEST(TimesShown, ByTheStandardModeAsTheClassWritesThem)
{
    for (const Sample& sample : kSamples) {
        for (const TimeMode mode : {kMinutes, kHundredths}) {
            const Given<ZelDtTime> given(Defined(sample.units, mode));
            char buffer[16];
            EXPECT_EQ(Shown(given.it), given.it.GetValue(buffer, sizeof buffer)) << sample.units;
        }
    }
}

TEST(TimesShown, NotByFormatsOfAnotherKind)
{
    const Amount amount = Defined(1800, kHundredths);
    for (const ZelFormat& format : {NumberFormat(), DateFormat(), TextFormat(), UnknownFormat()}) {
        Given<ZelDtTime> given(amount);
        EXPECT_TRUE(
            FailsByFormat([&] { given.it.ConvToOFL(&format); }, ShowTimeError(), 20, "FormatTime"));
        EXPECT_TRUE(FailsByFormat([&] { given.it.SetFromOFL("2:30", &format); }, ReadTimeError(),
                                  20, "ParseTime"));
        given.it.SetFormat(&format);
        EXPECT_TRUE(
            FailsByFormat([&] { given.it.ConvToOFL(nullptr); }, ShowTimeError(), 20, "FormatTime"));
        EXPECT_TRUE(FailsByFormat([&] { given.it.SetFromOFL("2:30", nullptr); }, ReadTimeError(),
                                  20, "ParseTime"));
        EXPECT_EQ(Look(given.it), amount);
    }
}

TEST(TimesShown, NotByUnknownOptions)
{
    const TimeOptions rows[] = {
        {4, 0, 1, 0, 0, 0, '0'},         {-1, 0, 1, 0, 0, 0, '0'},
        {INT_MAX, 0, 1, 0, 0, 0, '0'},   {INT_MIN, 0, 1, 0, 0, 0, '0'},
        {256, 0, 1, 0, 0, 0, '0'},       {1, 2, 1, 0, 0, 0, '0'},
        {1, -1, 1, 0, 0, 0, '0'},        {1, 0, 3, 0, 0, 0, '0'},
        {1, 0, -1, 0, 0, 0, '0'},        {1, 0, 1, 2, 0, 0, '0'},
        {1, 0, 1, -1, 0, 0, '0'},        {1, 0, 0, 2, 0, 0, '0'},
        {1, 0, 1, 0, 1025, 0, '0'},      {1, 0, 1, 0, 0xFFFFFFFFUL, 0, '0'},
        {1, 0, 1, 0, ULONG_MAX, 0, '0'}, {1, 0, 1, 0, 4, 1, '1'},
        {1, 0, 1, 0, 4, 1, '9'},         {1, 0, 1, 0, 4, 1, '-'},
        {1, 0, 1, 0, 4, 1, '+'},         {1, 0, 1, 0, 4, 1, '\0'},
    };
    const Amount amount = Defined(1800, kHundredths);
    for (const TimeOptions& options : rows) {
        const ZelFormat format = options.Format();
        Given<ZelDtTime> given(amount);
        EXPECT_TRUE(
            FailsByFormat([&] { given.it.ConvToOFL(&format); }, ShowTimeError(), 20, "FormatTime"))
            << options;
        EXPECT_TRUE(FailsByFormat([&] { given.it.SetFromOFL("2:30", &format); }, ReadTimeError(),
                                  20, "ParseTime"))
            << options;
        EXPECT_EQ(Look(given.it), amount);
    }
}

TEST(TimesShown, AsNothingWithoutAskingAFormatWhenUndefined)
{
    const ZelFormat unknown = UnknownFormat();
    const ZelFormat minutes = TimeOptions{1, 0, 1, 0, 0, 0, '0'}.Format();
    for (const Amount& amount : AmountsInAllModes({0, 1800, kLeastUnits})) {
        if (amount.state.defined)
            continue;
        Given<ZelDtTime> given(amount);
        for (const ZelFormat* own : {static_cast<const ZelFormat*>(nullptr), &minutes, &unknown}) {
            given.it.SetFormat(own);
            EXPECT_EQ(Shown(given.it, nullptr), "");
            EXPECT_EQ(Shown(given.it, &minutes), "");
            EXPECT_EQ(Shown(given.it, &unknown), "");
        }
        EXPECT_EQ(Look(given.it), amount);
    }
}

TEST(TimesShown, ByThePassedFormatThenTheOwnThenTheDefault)
{
    const ZelFormat passed = TimeOptions{2, 0, 1, 0, 0, 0, '0'}.Format();
    const ZelFormat own = TimeOptions{1, 1, 1, 1, 3, 1, '0'}.Format();
    for (const Amount& amount : Amounts({1800}, kHundredths)) {
        if (!amount.state.defined)
            continue;
        Given<ZelDtTime> given(amount);
        EXPECT_EQ(Shown(given.it, nullptr), "01,50");
        EXPECT_EQ(Shown(given.it, &passed), "1");
        given.it.SetFormat(&own);
        EXPECT_EQ(Shown(given.it, nullptr), "+00130");
        EXPECT_EQ(Shown(given.it, &passed), "1");
        given.it.SetFormat(nullptr);
        EXPECT_EQ(Shown(given.it, nullptr), "01,50");
        EXPECT_EQ(Look(given.it), amount);
    }
}

} // namespace
