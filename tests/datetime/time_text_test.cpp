/// ZelDtTime from texts and as a text.

#include "tests/datetime/time_testing.h"

#include "text/DTSTRING.h"

#include <random>
#include <string>

namespace {

using namespace zeltest;

struct TextRow {
    std::string text;
    TimeMode mode;
    std::int32_t units;
    TimeMode stored;

    friend std::ostream& operator<<(std::ostream& os, const TextRow& row)
    {
        return os << '"' << row.text.substr(0, 40) << "\", mode " << static_cast<int>(row.mode);
    }
};

/// Texts that are read. Reading in mode Eigener takes the mode that the text shows.
std::vector<TextRow> AcceptedTexts()
{
    return {
        // whole hours
        {"8", kOwn, 9600, kHours},
        {"8", kHours, 9600, kHours},
        {"8", kMinutes, 9600, kMinutes},
        {"8", kHundredths, 9600, kHundredths},
        {"0", kOwn, 0, kHours},
        {"-0", kOwn, 0, kHours},
        {"815", kOwn, 978000, kHours},
        {"815", kMinutes, 978000, kMinutes},
        {"815", kHundredths, 978000, kHundredths},
        {"010", kOwn, 12000, kHours},
        {"+8", kOwn, 9600, kHours},
        {"-8", kOwn, -9600, kHours},
        {" 8", kOwn, 9600, kHours},
        {"\t-8", kOwn, -9600, kHours},
        {"0000000000000000000000000008", kOwn, 9600, kHours},
        {std::string(5000, '0') + "8", kMinutes, 9600, kMinutes},
        // the number ends where the digits end
        {"8 ", kOwn, 9600, kHours},
        {"8h", kOwn, 9600, kHours},
        {"8.15", kOwn, 9600, kHours},
        {"8 15", kMinutes, 9600, kMinutes},
        {"8e3", kOwn, 9600, kHours},
        {"0x10", kOwn, 0, kHours},
        {"", kOwn, 0, kHours},
        {"", kMinutes, 0, kMinutes},
        {" ", kOwn, 0, kHours},
        {"-", kOwn, 0, kHours},
        {"h", kOwn, 0, kHours},
        {"- 8", kOwn, 0, kHours},
        {"--8", kOwn, 0, kHours},
        // minutes
        {"8:15", kOwn, 9900, kMinutes},
        {"8:15", kMinutes, 9900, kMinutes},
        {"08:15", kOwn, 9900, kMinutes},
        {"0008:15", kOwn, 9900, kMinutes},
        {"0:00", kOwn, 0, kMinutes},
        {"0:01", kOwn, 20, kMinutes},
        {"0:59", kOwn, 1180, kMinutes},
        {"8:59", kOwn, 10780, kMinutes},
        {"100:30", kOwn, 120600, kMinutes},
        {"1:08", kOwn, 1360, kMinutes}, // no octal number
        {"1:09", kOwn, 1380, kMinutes},
        // hundredths
        {"8,25", kOwn, 9900, kHundredths},
        {"8,25", kHundredths, 9900, kHundredths},
        {"0,01", kOwn, 12, kHundredths},
        {"0,99", kOwn, 1188, kHundredths},
        {"8,60", kOwn, 10320, kHundredths},
        {"8,75", kOwn, 10500, kHundredths},
        {"12,50", kHundredths, 15000, kHundredths},
        // signs count for both parts
        {"-8:15", kOwn, -9900, kMinutes},
        {"-8,25", kOwn, -9900, kHundredths},
        {"-0:30", kOwn, -600, kMinutes},
        {"-0:30", kMinutes, -600, kMinutes},
        {"-0,50", kOwn, -600, kHundredths},
        {"-00:30", kOwn, -600, kMinutes},
        {"-0:00", kOwn, 0, kMinutes},
        {"+8:15", kOwn, 9900, kMinutes},
        {"+0:30", kOwn, 600, kMinutes},
        {" 8:15", kOwn, 9900, kMinutes},
        {" -0:30", kOwn, 600, kMinutes}, // the sign must be the first character
        // the hours are the number in front, whatever follows it up to the separator
        {"8h:15", kOwn, 9900, kMinutes},
        {"8 :15", kOwn, 9900, kMinutes},
        {"8:15:30", kOwn, 10200, kMinutes},
        {"8:15,25", kOwn, 9900, kHundredths},
        {"8,25:15", kMinutes, 9900, kMinutes},
        {"h8:15", kOwn, 300, kMinutes},
        {"-:15", kOwn, -300, kMinutes},
        {"--8:15", kOwn, -300, kMinutes},
        {std::string(5000, '0') + "8:15", kOwn, 9900, kMinutes},
        // the limits
        {"1789568", kOwn, 2147481600, kHours},
        {"-1789568", kOwn, -2147481600, kHours},
        {"1789568", kMinutes, 2147481600, kMinutes},
        {"1789568:59", kOwn, 2147482780, kMinutes},
        {"-1789568:59", kOwn, -2147482780, kMinutes},
        {"1789568,99", kOwn, 2147482788, kHundredths},
        {"-1789568,99", kOwn, -2147482788, kHundredths},
    };
}

struct WrongText {
    std::string text;
    TimeMode mode;
    unsigned long error;

    friend std::ostream& operator<<(std::ostream& os, const WrongText& row)
    {
        return os << '"' << row.text.substr(0, 40) << "\", mode " << static_cast<int>(row.mode);
    }
};

std::vector<WrongText> RejectedTexts()
{
    return {
        // too short to have hours, separator and two digits
        {":", kOwn, 21},
        {",", kOwn, 21},
        {"8:", kOwn, 21},
        {"8,", kOwn, 21},
        {":15", kOwn, 21},
        {",25", kOwn, 21},
        {"8:1", kOwn, 21},
        {"8,1", kOwn, 21},
        {"8:1", kMinutes, 21},
        {"-:1", kOwn, 21},
        // the separator stands elsewhere
        {"8:150", kOwn, 21},
        {"8:015", kMinutes, 21},
        {"8,250", kOwn, 21},
        {"8,250", kHundredths, 21},
        {"12:5", kOwn, 21},
        {"12:5", kMinutes, 21},
        {"12,5", kOwn, 21},
        {"123:", kOwn, 21},
        {"1234,", kOwn, 21},
        {":815", kOwn, 21},
        {"8:15 ", kOwn, 21},
        {"8:15h", kMinutes, 21},
        {"8:15.", kOwn, 21},
        {"8:25.30", kOwn, 21},
        // the fraction is not two digits
        {"8: 5", kOwn, 21},
        {"8:5 ", kOwn, 21},
        {"8:-5", kOwn, 21},
        {"8:+5", kOwn, 21},
        {"8:5x", kOwn, 21},
        {"8:x5", kMinutes, 21},
        {"8:xx", kOwn, 21},
        {"8,  ", kOwn, 21},
        {"8,-1", kHundredths, 21},
        {"8:::", kOwn, 21},
        {"8,1:5", kOwn, 21},
        {"8:\xB2\xB3", kOwn, 21}, // superscripts are no digits
        {"8:0x", kOwn, 21},
        // the separator of another mode
        {"8,15", kMinutes, 21},
        {"8:25", kHundredths, 21},
        {"8:75", kHundredths, 21},
        {"8,15:30", kHundredths, 21},
        {"8:15", kHours, 21},
        {"8,25", kHours, 21},
        {"8:75", kHours, 21},
        {"8:", kHours, 21},
        {"-8:15", kHours, 21},
        // 60 minutes and more
        {"8:60", kOwn, 8},
        {"8:60", kMinutes, 8},
        {"8:75", kOwn, 8},
        {"8:99", kOwn, 8},
        {"0:60", kMinutes, 8},
        {"-0:60", kOwn, 8},
        {"1789568:60", kOwn, 8},
        // a negative number of hours behind something else
        {" -8:15", kOwn, 8},
        {" -1:00", kMinutes, 8},
        {"\t-8,25", kOwn, 8},
        // too many hours
        {"1789569", kOwn, 8},
        {"1789569", kHours, 8},
        {"-1789569", kMinutes, 8},
        {"1789570", kOwn, 8},
        {"1789569:00", kOwn, 8},
        {"-1789569:00", kOwn, 8},
        {"1789569,00", kOwn, 8},
        {"-1789569,00", kHundredths, 8},
        {"3579140:00", kOwn, 8}, // small as a 32-bit product
        {"4294967304", kOwn, 8}, // 2^32 + 8
        {"4294967304:15", kOwn, 8},
        {"-4294967304:15", kOwn, 8},
        {"9223372036854775807:00", kOwn, 8},
        {"9223372036854775808:00", kOwn, 8},
        {"-9223372036854775809:00", kOwn, 8},
        {"18446744073709551624", kOwn, 8}, // 2^64 + 8
        {"18446744073709551624:15", kOwn, 8},
        {"-18446744073709551624,25", kOwn, 8},
        {std::string(5000, '9'), kOwn, 8},
        {std::string(5000, '9') + ":15", kOwn, 8},
        {"-" + std::string(5000, '9') + ",15", kHundredths, 8},
    };
}

TEST(AcceptedTexts, MakeADefinedValue)
{
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const TextRow& row : AcceptedTexts()) {
            EXPECT_EQ(Look(ZelDtTime(row.text.c_str(), row.mode)),
                      DefinedAmount(row.units, row.stored))
                << row;
            if (row.mode == kOwn) {
                EXPECT_EQ(Look(ZelDtTime(row.text.c_str())), DefinedAmount(row.units, row.stored))
                    << row;
            }
        }
    }
}

TEST(AcceptedTexts, AreTakenOverWithTheirMode)
{
    for (const TextRow& row : AcceptedTexts()) {
        for (const Amount& before : AmountsInAllModes({0, 9900, 9600})) {
            Given<ZelDtTime> given(before);
            given.it.SetValue(row.text.c_str(), row.mode);
            Amount expected = Taken(before, row.units);
            expected.mode = row.stored;
            ASSERT_EQ(Look(given.it), expected) << before << " reads " << row;
        }
    }
    ZelDtTime value(1, 30);
    value.SetValue("8");
    EXPECT_EQ(Look(value), (Amount{{ZelDtWmMissing, 1, 1}, 9600, kHours}));
}

TEST(AcceptedTexts, MayComeAsStringsWithTheirState)
{
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const TextRow& row : AcceptedTexts()) {
            for (const ZelDtWorkingMode mode : kRealModes) {
                ZelDtString text(mode);
                text = row.text.c_str();
                EXPECT_EQ(Look(ZelDtTime(text, row.mode)),
                          (Amount{StateOf(text), row.units, row.stored}))
                    << row;
                text.GetAndResetModified(0);
                EXPECT_EQ(Look(ZelDtTime(text, row.mode)),
                          (Amount{{mode, 1, 0}, row.units, row.stored}))
                    << row;
            }
        }
    }
    EXPECT_EQ(Look(ZelDtTime(ZelDtString("8:15"))), DefinedAmount(9900, kMinutes));
}

TEST(AcceptedTexts, OfUndefinedStringsAreNotRead)
{
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const ZelDtWorkingMode mode : {ZelDtWmMissing, ZelDtWmNull}) {
            for (const int modified : {0, 1}) {
                ZelDtString text(mode);
                text.SetModified(modified);
                const State state{mode, 0, modified};
                EXPECT_EQ(Look(ZelDtTime(text)), (Amount{state, 0, kMinutes}));
                for (const TimeMode timeMode : kTimeModes)
                    EXPECT_EQ(Look(ZelDtTime(text, timeMode)), (Amount{state, 0, timeMode}));
            }
        }
    }
}

TEST(RejectedTexts, MakeNoValue)
{
    for (const WrongText& row : RejectedTexts()) {
        EXPECT_TRUE(FailsWith([&] { ZelDtTime(row.text.c_str(), row.mode); }, TextError(row.error)))
            << row;
        const ZelDtString text(row.text.c_str());
        EXPECT_TRUE(FailsWith([&] { ZelDtTime(text, row.mode); }, TextError(row.error))) << row;
    }
}

TEST(RejectedTexts, ChangeNothing)
{
    for (const WrongText& row : RejectedTexts()) {
        for (const TimeMode own : kTimeModes) {
            for (const Amount& before : Amounts({0, 9900}, own)) {
                Given<ZelDtTime> given(before);
                ASSERT_TRUE(FailsWith([&] { given.it.SetValue(row.text.c_str(), row.mode); },
                                      TextError(row.error)))
                    << row;
                ASSERT_EQ(Look(given.it), before) << row;
            }
        }
    }
}

TEST(RejectedTexts, IncludeTheNullText)
{
    const char* const null = nullptr;
    for (const TimeMode mode : {kHundredths, kMinutes, kHours, kOwn}) {
        EXPECT_TRUE(FailsIn("ZelDtTime", 5, [&] { ZelDtTime(null, mode); }));
        for (const Amount& before : Amounts({0, 9900})) {
            Given<ZelDtTime> given(before);
            EXPECT_TRUE(FailsIn("SetValue", 5, [&] { given.it.SetValue(null, mode); }));
            EXPECT_EQ(Look(given.it), before);
        }
    }
}

// As a text

struct Shown {
    std::int32_t units;
    const char* minutes;
    const char* hundredths;
    const char* hours;

    const char* In(TimeMode mode) const
    {
        return mode == kMinutes ? minutes : mode == kHundredths ? hundredths : hours;
    }
};

const Shown kShown[] = {
    {0, "00:00", "00,00", "00"},
    {1, "00:00", "00,00", "00"},
    {11, "00:00", "00,00", "00"},
    {12, "00:00", "00,01", "00"},
    {19, "00:00", "00,01", "00"},
    {20, "00:01", "00,01", "00"},
    {200, "00:10", "00,16", "00"},
    {600, "00:30", "00,50", "00"},
    {1199, "00:59", "00,99", "00"},
    {1200, "01:00", "01,00", "01"},
    {1800, "01:30", "01,50", "01"},
    {9900, "08:15", "08,25", "08"},
    {11999, "09:59", "09,99", "09"},
    {12000, "10:00", "10,00", "10"},
    {120000, "100:00", "100,00", "100"},
    {120600, "100:30", "100,50", "100"},
    {978000, "815:00", "815,00", "815"},
    {2147482780, "1789568:59", "1789568,98", "1789568"},
    {kMostUnits, "1789569:42", "1789569,70", "1789569"},
    // a minus sign before the whole
    {-1, "-00:00", "-00,00", "-00"},
    {-12, "-00:00", "-00,01", "-00"},
    {-20, "-00:01", "-00,01", "-00"},
    {-600, "-00:30", "-00,50", "-00"},
    {-1200, "-01:00", "-01,00", "-01"},
    {-1800, "-01:30", "-01,50", "-01"},
    {-12000, "-10:00", "-10,00", "-10"},
    {kLeastUnits, "-1789569:42", "-1789569,70", "-1789569"},
};

/// The text of the stored mode.
std::string TextOf(const ZelDtTime& value)
{
    char buffer[12];
    EXPECT_EQ(value.GetValue(buffer, sizeof buffer), buffer);
    return buffer;
}

TEST(Text, IsThatOfTheStoredMode)
{
    for (const Shown& row : kShown) {
        for (const Amount& amount : AmountsInAllModes({row.units})) {
            if (IsMissing(amount.state))
                continue;
            const Given<ZelDtTime> given(amount);
            EXPECT_EQ(TextOf(given.it), row.In(amount.mode)) << amount;
            EXPECT_EQ(Look(given.it), amount);
        }
    }
    ZelDtTime value(1, 30);
    EXPECT_EQ(TextOf(value), "01:30");
    value.SetMode(kHundredths);
    EXPECT_EQ(TextOf(value), "01,50");
    value.SetMode(kHours);
    EXPECT_EQ(TextOf(value), "01");
}

TEST(Text, OfAMissingValueFails)
{
    for (const Amount& amount : AmountsInAllModes({0, 1800})) {
        if (!IsMissing(amount.state))
            continue;
        const Given<ZelDtTime> given(amount);
        char buffer[12] = "untouched";
        EXPECT_TRUE(FailsIn("GetValue", 2, [&] { given.it.GetValue(buffer, sizeof buffer); }));
        EXPECT_STREQ(buffer, "untouched");
        EXPECT_TRUE(FailsIn("GetValue", 2, [&] { given.it.GetValue(buffer, 0); }));
        EXPECT_EQ(Look(given.it), amount);
    }
}

TEST(Text, NeedsABufferAboveItsLength)
{
    for (const Shown& row : kShown) {
        for (const TimeMode mode : kTimeModes) {
            const Given<ZelDtTime> given(Amount{{ZelDtWmMissing, 1, 0}, row.units, mode});
            const std::string text = row.In(mode);
            const int length = static_cast<int>(text.size());
            char buffer[16];
            const std::string untouched(sizeof buffer, '#');
            for (const int size : {INT_MIN, -1, 0, 1, length - 1, length}) {
                untouched.copy(buffer, sizeof buffer);
                EXPECT_TRUE(FailsIn("GetValue", 4, [&] { given.it.GetValue(buffer, size); }))
                    << text << ", " << size;
                EXPECT_EQ(std::string(buffer, sizeof buffer), untouched);
            }
            for (const int size : {length + 1, length + 2, 16}) {
                untouched.copy(buffer, sizeof buffer);
                EXPECT_EQ(given.it.GetValue(buffer, size), buffer);
                EXPECT_STREQ(buffer, text.c_str());
                // Nothing is written behind the size.
                for (auto i = static_cast<std::size_t>(size); i < sizeof buffer; ++i)
                    EXPECT_EQ(buffer[i], '#') << text << ", " << size;
            }
            EXPECT_TRUE(FailsIn("GetValue", 5, [&] { given.it.GetValue(nullptr, 12); }));
        }
    }
}

TEST(Text, IsThatOfTheString)
{
    for (const Shown& row : kShown) {
        for (const Amount& amount : AmountsInAllModes({row.units})) {
            const Given<ZelDtTime> given(amount);
            const ZelDtString text(given.it);
            const std::string expected = amount.state.defined ? row.In(amount.mode) : "";
            EXPECT_EQ(StateOf(text), amount.state);
            EXPECT_EQ(std::string(static_cast<const char*>(text)), expected) << amount;
            EXPECT_EQ(text.GetLength(), static_cast<int>(expected.size()));
            EXPECT_EQ(text.GetAllocLength(), static_cast<int>(expected.size()));
            EXPECT_EQ(Look(given.it), amount);
        }
    }
}

// Round trips. What a mode does not show is lost, always toward zero.

std::int32_t Cut(std::int32_t units, TimeMode mode)
{
    const auto step = static_cast<std::int32_t>(WholeStep(mode));
    return units - units % step;
}

void ExpectReadBack(std::int32_t units, TimeMode mode)
{
    const Given<ZelDtTime> given(Amount{{ZelDtWmMissing, 1, 0}, units, mode});
    const std::string text = TextOf(given.it);
    ASSERT_EQ(Look(ZelDtTime(text.c_str())), DefinedAmount(Cut(units, mode), mode)) << text;
    ASSERT_EQ(Look(ZelDtTime(text.c_str(), mode)), DefinedAmount(Cut(units, mode), mode)) << text;
    // A zero has no sign.
    const bool signLost = units < 0 && Cut(units, mode) == 0;
    ASSERT_EQ(TextOf(ZelDtTime(text.c_str())), signLost ? text.substr(1) : text);
}

TEST(RoundTrip, OfTexts)
{
    constexpr std::int32_t kMostReadable = 1789568 * 1200 + 1199;
    for (const TimeMode mode : kTimeModes) {
        for (std::int32_t units = -3000; units <= 3000; ++units)
            ExpectReadBack(units, mode);
        for (const std::int32_t units : {kMostReadable, -kMostReadable})
            ExpectReadBack(units, mode);
        std::mt19937 random(1950 + static_cast<unsigned>(mode));
        for (int i = 0; i < 5000; ++i) {
            // all magnitudes
            const auto bits = static_cast<std::int32_t>(random()) >> (random() % 31);
            if (bits <= kMostReadable && bits >= -kMostReadable)
                ExpectReadBack(bits, mode);
        }
    }
}

TEST(RoundTrip, OfMoreHoursThanTextsMayHaveEndsInAnError)
{
    for (const std::int32_t units : {1789569 * 1200, kMostUnits, -1789569 * 1200, kLeastUnits}) {
        for (const TimeMode mode : kTimeModes) {
            const Given<ZelDtTime> given(Amount{{ZelDtWmMissing, 1, 0}, units, mode});
            const std::string text = TextOf(given.it);
            EXPECT_TRUE(FailsWith([&] { ZelDtTime(text.c_str(), mode); }, TextError(8))) << text;
        }
    }
}

} // namespace
