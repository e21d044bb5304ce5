/// What people may type for amounts of time, option by option, and what is refused.

#include "tests/display/times_testing.h"

#include <string>
#include <vector>

namespace {

using namespace zeltest;

constexpr TimeOptions kPlain[] = {{0, 0, 1, 0, 0, 0, '0'},
                                  {1, 0, 1, 0, 0, 0, '0'},
                                  {2, 0, 1, 0, 0, 0, '0'},
                                  {3, 0, 1, 0, 0, 0, '0'}};

/// `mode` Eigener: the value keeps its own.
void ExpectRead(const ZelFormat* format, const std::string& text, std::int32_t units, TimeMode mode)
{
    for (const Amount& amount : AmountsInAllModes({0, 1800, -7, units})) {
        Given<ZelDtTime> given(amount);
        const Caught caught = Catch([&] { given.it.SetFromOFL(text.c_str(), format); });
        ASSERT_EQ(caught.disturbance, "nothing") << "'" << text << "': " << caught.first;
        ASSERT_EQ(Look(given.it), Typed(amount, units, mode == kOwn ? amount.mode : mode))
            << amount << " reads '" << text << "'";
    }
}

/// `befores`: the values that try to read the text; in every state if not given.
void ExpectRefused(const ZelFormat* format, const std::string& text, unsigned long cause,
                   const std::vector<Amount>& befores = AmountsInAllModes({0, 1800}))
{
    for (const Amount& amount : befores) {
        Given<ZelDtTime> given(amount);
        ASSERT_TRUE(FailsByFormat([&] { given.it.SetFromOFL(text.c_str(), format); },
                                  ReadTimeError(), cause, "ParseTime"))
            << "'" << text.substr(0, 60) << "'";
        ASSERT_EQ(Look(given.it), amount) << "'" << text.substr(0, 60) << "'";
    }
}

TEST(TimesRead, ByTheStandardModeAndTheValuesOwnKind)
{
    const struct {
        const char* text;
        std::int32_t units;
        TimeMode mode;
    } rows[] = {
        {"8", 9600, kHours},
        {"08", 9600, kHours},
        {"815", 978000, kHours},
        {"-8", -9600, kHours},
        {"0", 0, kHours},
        {"1789568", 2147481600, kHours},
        {"-1789568", -2147481600, kHours},
        {"8:15", 9900, kMinutes},
        {"08:15", 9900, kMinutes},
        {"8:00", 9600, kMinutes},
        {"0:01", 20, kMinutes},
        {"0:59", 1180, kMinutes},
        {"0:00", 0, kMinutes},
        {"-0:30", -600, kMinutes},
        {"-8:15", -9900, kMinutes},
        {"1789568:59", 2147482780, kMinutes},
        {"-1789568:59", -2147482780, kMinutes},
        {"8,25", 9900, kHundredths},
        {"0,01", 12, kHundredths},
        {"0,99", 1188, kHundredths},
        {"8,99", 10788, kHundredths},
        {"-0,50", -600, kHundredths},
        {"-8,25", -9900, kHundredths},
        {"1789568,99", 2147482788, kHundredths},
        {" 8:15", 9900, kMinutes},
        {"8,25\t", 9900, kHundredths},
        {" \t 8 \t ", 9600, kHours},
        {" -8:15 ", -9900, kMinutes},
    };
    const ZelFormat standard(ZelFormat::ZelFoStandard);
    const ZelFormat own = kPlain[3].Format();
    for (const auto& row : rows) {
        ExpectRead(nullptr, row.text, row.units, row.mode);
        ExpectRead(&standard, row.text, row.units, row.mode);
        ExpectRead(&own, row.text, row.units, row.mode);
    }
}

TEST(TimesRead, ByTheTechnicalMode)
{
    const ZelFormat technical(ZelFormat::ZelFoTechnisch);
    ExpectRead(&technical, "1:30", 1800, kMinutes);
    ExpectRead(&technical, "-1.50", -1800, kHundredths);
    ExpectRead(&technical, " 1.50\t", 1800, kHundredths);
    ExpectRead(&technical, "1", 1200, kHours);
    for (const char* text : {"1.5", "1.500", ".50", "x", " ", "1.50.50"})
        ExpectRefused(&technical, text, 21);
    for (const char* text : {"1:60", "1789569", "1789569.00"})
        ExpectRefused(&technical, text, 8);
}

TEST(TimesRead, InTheModeOfTheFormat)
{
    const struct {
        TimeMode kind;
        const char* text;
        std::int32_t units;
    } rows[] = {
        {kHundredths, "8,25", 9900}, {kHundredths, "8", 9600},    {kHundredths, "-0,50", -600},
        {kMinutes, "8:15", 9900},    {kMinutes, "8", 9600},       {kMinutes, "-0:30", -600},
        {kHours, "8", 9600},         {kHours, "-8", -9600},       {kHours, "0", 0},
        {kHours, " 08\t", 9600},     {kMinutes, " 8:15\t", 9900},
    };
    for (const auto& row : rows) {
        const ZelFormat format = kPlain[row.kind].Format();
        ExpectRead(&format, row.text, row.units, row.kind);
    }
    const struct {
        TimeMode kind;
        const char* text;
    } refused[] = {{kHundredths, "8:15"}, {kMinutes, "8,25"}, {kHours, "8:15"},  {kHours, "8,25"},
                   {kHours, "8:00"},      {kHours, "8,00"},   {kMinutes, "8.15"}};
    for (const auto& row : refused) {
        const ZelFormat format = kPlain[row.kind].Format();
        ExpectRefused(&format, row.text, 21);
    }
}

TEST(TimesRead, NothingWrong)
{
    const struct {
        const char* text;
        unsigned long cause;
    } rows[] = {
        // More than an amount holds, and minutes that no hour has.
        {"8:60", 8},
        {"8:75", 8},
        {"8:99", 8},
        {"-8:60", 8},
        {"1789569", 8},
        {"1789569:00", 8},
        {"1789569,00", 8},
        {"-1789569", 8},
        {"-1789569:00", 8},
        {"9999999:59", 8},
        {"2147483648", 8},
        {"4294967297", 8},
        {"4294967297:00", 8},
        {"18446744073709551617", 8},
        {"-99999999999999999999:00", 8},
        // Fractions of other lengths.
        {"8:1", 21},
        {"8:150", 21},
        {"8:", 21},
        {"8:0000", 21},
        {"8,5", 21},
        {"8,250", 21},
        {"8,", 21},
        {":30", 21},
        {",50", 21},
        {":", 21},
        // Other separators, parts too many.
        {"8.15", 21},
        {"8.25", 21},
        {"8;15", 21},
        {"8-15", 21},
        {"8 15", 21},
        {"8:15:00", 21},
        {"8:15,50", 21},
        {"8,15:30", 21},
        {"8,,15", 21},
        {"8::15", 21},
        {"1.000:00", 21},
        {"1.000,00", 21},
        // No numbers.
        {" ", 21},
        {"\t", 21},
        {" \t \t", 21},
        {"-", 21},
        {"+", 21},
        {"--8", 21},
        {"-8:-15", 21},
        {"8:-5", 21},
        {"8:+5", 21},
        {"- 8:15", 21},
        {"8 :15", 21},
        {"8: 5", 21},
        {"8:5 ", 21},
        {"8:1x", 21},
        {"8:x5", 21},
        {"x:15", 21},
        {"8x:15", 21},
        {"8h", 21},
        {"8 h", 21},
        {"8:15 Uhr", 21},
        {"8:15x", 21},
        {"1e3", 21},
        {"0x8", 21},
        {"Ja", 21},
        {"8:15\n", 21},
        {"\v8:15", 21},
        {"8:15\xA0", 21},
        {"\xA0", 21},
        {"8\xB7"
         "15",
         21},
        {"\xB9:30", 21},
        {"8:1\xB2", 21},
        {"\x80\x81\xFE\xFF", 21},
    };
    const ZelFormat standard(ZelFormat::ZelFoStandard);
    const ZelFormat own = kPlain[3].Format();
    for (const auto& row : rows)
        for (const ZelFormat* format : {&standard, &own, static_cast<const ZelFormat*>(nullptr)})
            ExpectRefused(format, row.text, row.cause);
}

TEST(TimesRead, NoByteInPlaceOfAnother)
{
    for (const std::string text : {"08:15", "08,15"}) {
        for (std::size_t place = 0; place < text.size(); ++place) {
            for (int code = 1; code < 256; ++code) {
                const auto byte = static_cast<char>(code);
                // Digits, separators, signs and blanks may have a meaning there.
                if (std::string("0123456789:,-+ \t").find(byte) != std::string::npos)
                    continue;
                std::string damaged = text;
                damaged[place] = byte;
                ExpectRefused(nullptr, damaged, 21, {Defined(1800, kHundredths)});
            }
        }
    }
}

TEST(TimesRead, WithoutSeparator)
{
    constexpr TimeOptions kHundredthDigits{0, 1, 1, 0, 0, 0, '0'};
    constexpr TimeOptions kMinuteDigits{1, 1, 1, 0, 0, 0, '0'};
    constexpr TimeOptions kHourDigits{2, 1, 1, 0, 0, 0, '0'};
    const struct {
        TimeOptions options;
        const char* text;
        std::int32_t units;
    } rows[] = {{kHundredthDigits, "825", 9900},
                {kHundredthDigits, "0825", 9900},
                {kHundredthDigits, "-050", -600},
                {kHundredthDigits, "000", 0},
                {kHundredthDigits, "899", 10788},
                {kMinuteDigits, "815", 9900},
                {kMinuteDigits, " 00815\t", 9900},
                {kMinuteDigits, "-030", -600},
                {kMinuteDigits, "10000", 120000},
                {kMinuteDigits, "178956859", 2147482780},
                {kHourDigits, "8", 9600},
                {kHourDigits, "815", 978000},
                {kHourDigits, "-1789568", -2147481600}};
    for (const auto& row : rows) {
        const ZelFormat format = row.options.Format();
        ExpectRead(&format, row.text, row.units, static_cast<TimeMode>(row.options.kind));
    }
    const struct {
        TimeOptions options;
        const char* text;
        unsigned long cause;
    } refused[] = {{kMinuteDigits, "860", 8},
                   {kMinuteDigits, "178956900", 8},
                   {kHundredthDigits, "178956900", 8},
                   {kHourDigits, "1789569", 8},
                   {kMinuteDigits, "99999999999999999999999", 8},
                   {kMinuteDigits, "8:15", 21},
                   {kMinuteDigits, "8,25", 21},
                   {kHundredthDigits, "8,25", 21},
                   {kHourDigits, "8:00", 21},
                   {kMinuteDigits, " ", 21},
                   {kMinuteDigits, "-", 21},
                   {kMinuteDigits, "8x5", 21},
                   {kMinuteDigits, "8 15", 21},
                   {kMinuteDigits, "5", 21},
                   {kHundredthDigits, "5", 21}};
    for (const auto& row : refused) {
        SCOPED_TRACE(::testing::PrintToString(row.options));
        const ZelFormat format = row.options.Format();
        ExpectRefused(&format, row.text, row.cause);
    }
}

TEST(TimesRead, WithoutSeparatorInTheValuesOwnMode)
{
    const ZelFormat format = TimeOptions{3, 1, 1, 0, 0, 0, '0'}.Format();
    const struct {
        TimeMode mode;
        const char* text;
        std::int32_t units;
    } rows[] = {{kHundredths, "825", 9900},
                {kMinutes, "815", 9900},
                {kHours, "8", 9600},
                {kHours, "815", 978000},
                {kMinutes, "-030", -600}};
    for (const auto& row : rows) {
        for (const Amount& amount : Amounts({0, 1200, -2400}, row.mode)) {
            Given<ZelDtTime> given(amount);
            given.it.SetFromOFL(row.text, &format);
            EXPECT_EQ(Look(given.it), Typed(amount, row.units, row.mode)) << row.text;
        }
    }
}

TEST(TimesRead, WithSignsWhereThereIsAPlace)
{
    for (int kind : {1, 3}) {
        for (int which : {0, 1}) {
            const ZelFormat front = TimeOptions{kind, 0, 1, which, 0, 0, '0'}.Format();
            const ZelFormat behind = TimeOptions{kind, 0, 2, which, 0, 0, '0'}.Format();
            for (const ZelFormat* format : {&front, &behind}) {
                ExpectRead(format, "8:15", 9900, kMinutes);
                ExpectRefused(format, "-8:15-", 21);
                ExpectRefused(format, "--8:15", 21);
                ExpectRefused(format, "8-:15", 21);
                ExpectRefused(format, "8:-15", 21);
                ExpectRefused(format, "8:15--", 21);
            }
            ExpectRead(&front, "-8:15", -9900, kMinutes);
            ExpectRead(&behind, "8:15-", -9900, kMinutes);
            ExpectRead(&behind, " 0:30- ", -600, kMinutes);
        }
        const ZelFormat front = TimeOptions{kind, 0, 1, 1, 0, 0, '0'}.Format();
        const ZelFormat behind = TimeOptions{kind, 0, 2, 1, 0, 0, '0'}.Format();
        ExpectRead(&front, "+8:15", 9900, kMinutes);
        ExpectRead(&behind, "8:15+", 9900, kMinutes);
        const ZelFormat none = TimeOptions{kind, 0, 0, 0, 0, 0, '0'}.Format();
        ExpectRead(&none, "8:15", 9900, kMinutes);
        ExpectRefused(&none, "-8:15", 20);
    }
}

TEST(TimesRead, UpToThePlacesOfTheHours)
{
    const ZelFormat three = TimeOptions{1, 0, 1, 0, 3, 0, '0'}.Format();
    ExpectRead(&three, "999:59", 1199980, kMinutes);
    ExpectRead(&three, "-999:59", -1199980, kMinutes);
    ExpectRead(&three, "008:15", 9900, kMinutes);
    ExpectRefused(&three, "1000:00", 11);
    ExpectRefused(&three, "-1000:00", 11);
    const ZelFormat digits = TimeOptions{0, 1, 1, 0, 3, 0, '0'}.Format();
    ExpectRead(&digits, "99925", 1199100, kHundredths);
    ExpectRefused(&digits, "100000", 11);
}

TEST(TimesRead, WithTheirFillCharacters)
{
    const struct {
        TimeOptions options;
        const char* text;
        std::int32_t units;
    } rows[] = {
        {{1, 0, 1, 0, 4, 1, '0'}, "0008:15", 9900},   {{1, 0, 1, 0, 4, 1, '0'}, "-0008:15", -9900},
        {{1, 0, 1, 0, 4, 1, '0'}, "8:15", 9900},      {{1, 0, 1, 0, 4, 1, ' '}, "   8:15", 9900},
        {{1, 0, 1, 0, 4, 1, ' '}, "   -8:15", -9900}, {{1, 0, 2, 0, 4, 1, ' '}, "   8:15-", -9900},
        {{1, 0, 1, 0, 4, 1, '*'}, "***8:15", 9900},   {{1, 0, 1, 0, 4, 1, '*'}, "***-8:15", -9900},
        {{1, 0, 1, 1, 4, 1, '*'}, "***+8:15", 9900},  {{1, 0, 1, 0, 4, 1, '*'}, "8:15", 9900},
        {{1, 1, 1, 0, 4, 1, '*'}, "***815", 9900}};
    for (const auto& row : rows) {
        SCOPED_TRACE(::testing::PrintToString(row.options));
        const ZelFormat format = row.options.Format();
        ExpectRead(&format, row.text, row.units, kMinutes);
    }
    const ZelFormat plain = kPlain[1].Format();
    ExpectRefused(&plain, "***8:15", 21);
}

TEST(TimesRead, NothingLong)
{
    const std::string many(100000, '7');
    const std::string blanks(100000, ' ');
    for (const TimeOptions& options : AllTimeOptions()) {
        SCOPED_TRACE(::testing::PrintToString(options));
        const ZelFormat format = options.Format();
        for (const std::string& text : {many, "8:" + many, many + "," + many, "8:15" + many,
                                        "8" + blanks + "x", std::string(100000, '-'), blanks}) {
            const Amount before = Defined(1800, kMinutes);
            Given<ZelDtTime> given(before);
            const Caught caught = Catch([&] { given.it.SetFromOFL(text.c_str(), &format); });
            ASSERT_TRUE(Matches(caught, ReadTimeError()));
            // A number may be too large in two ways then.
            const unsigned long first = caught.first.number;
            if (text == many && options.places != 0)
                ASSERT_TRUE(first == 8 || first == 11) << first;
            else
                ASSERT_EQ(first, text == many ? 8u : 21u) << text.substr(0, 10);
            ASSERT_EQ(Look(given.it), before);
        }
    }
    ExpectRead(nullptr, blanks + "8:15" + blanks, 9900, kMinutes);
    ExpectRead(nullptr, std::string(100000, '0') + "8:15", 9900, kMinutes);
}

TEST(TimesRead, NothingMeansUndefined)
{
    const ZelFormat unknown = UnknownFormat();
    const ZelFormat numbers = NumberFormat();
    for (const Amount& amount : AmountsInAllModes({0, 1800})) {
        for (const char* nothing : {static_cast<const char*>(nullptr), ""}) {
            for (const ZelFormat* format :
                 {static_cast<const ZelFormat*>(nullptr), &unknown, &numbers}) {
                Given<ZelDtTime> given(amount);
                given.it.SetFormat(&unknown);
                given.it.SetFromOFL(nothing, format);
                EXPECT_EQ(Look(given.it), Cleared(amount));
                EXPECT_EQ(given.it.GetFormat(), &unknown);
            }
        }
    }
}

TEST(TimesRead, ByThePassedFormatThenTheOwnThenTheDefault)
{
    const ZelFormat passed = kPlain[0].Format();
    const ZelFormat own = kPlain[1].Format();
    ZelDtTime value;
    value.SetFromOFL("8", nullptr);
    EXPECT_EQ(value.GetMode(), kHours);
    value.SetFormat(&own);
    value.SetFromOFL("8", nullptr);
    EXPECT_EQ(value.GetMode(), kMinutes);
    value.SetFromOFL("8", &passed);
    EXPECT_EQ(value.GetMode(), kHundredths);
    ExpectRefused(&passed, "8:15", 21);
    EXPECT_TRUE(FailsByFormat([&] { value.SetFromOFL("8,25", nullptr); }, ReadTimeError(), 21,
                              "ParseTime"));
    value.SetFormat(nullptr);
    value.SetFromOFL("8,25", nullptr);
    EXPECT_EQ(StoredUnits(value), 9900);
}

} // namespace
