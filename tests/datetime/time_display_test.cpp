/// Display of ZelDtTime and reading of typed texts.

#include "tests/datetime/time_testing.h"

#include "platform/formats/ZelFormat.h"

#include <random>
#include <string>

namespace {

using namespace zeltest;

/// A format that counts its calls and knows one text and one amount.
class SpyFormat : public ZelFormat {
public:
    explicit SpyFormat(const char* shown) : ZelFormat(ZelFoStandard), m_shown(shown) {}

    void FormatTime(std::int32_t units, FormatZeitArt mode, CString& text) const override
    {
        ++shows;
        seenUnits = units;
        seenMode = mode;
        text = m_shown;
    }
    void ParseTime(const CString& text, std::int32_t* units, FormatZeitArt* mode) const override
    {
        ++reads;
        seenText = text.GetString();
        seenMode = *mode;
        *units = parsed;
        if (parsedMode != ZelFoZeitEigene)
            *mode = parsedMode;
    }

    std::int32_t parsed = 0;
    FormatZeitArt parsedMode = ZelFoZeitEigene; ///< that one: leaves the mode alone
    mutable int shows = 0;
    mutable int reads = 0;
    mutable std::int32_t seenUnits = 0;
    mutable FormatZeitArt seenMode = ZelFoZeitEigene;
    mutable std::string seenText;

private:
    const char* m_shown;
};

/// A format that fails with something that is no error of the library.
class BrokenFormat : public ZelFormat {
public:
    BrokenFormat() : ZelFormat(ZelFoStandard) {}
    void FormatTime(std::int32_t, FormatZeitArt, CString&) const override { throw 42; }
    void ParseTime(const CString&, std::int32_t*, FormatZeitArt*) const override { throw 42; }
};

ZelFormat::FormatZeitArt ArtOf(TimeMode mode)
{
    return static_cast<ZelFormat::FormatZeitArt>(static_cast<int>(mode));
}

/// A time format of the kind.
ZelFormat OfKind(TimeMode mode)
{
    return ZelFormat(ArtOf(mode), ZelFormat::ZelFoZeitMitTrenner, ZelFormat::ZelFoVorzeichenVorne,
                     ZelFormat::ZelFoNurMinus, 0, 0, '0');
}

std::string Shown(const ZelDtTime& value, const ZelFormat* format)
{
    return value.ConvToOFL(format).GetString();
}

ZelDtTime Make(std::int32_t units, TimeMode mode)
{
    return Given<ZelDtTime>(Amount{{ZelDtWmMissing, 1, 0}, units, mode}).it;
}

TEST(Display, OfUndefinedValuesIsEmptyAndAsksNoFormat)
{
    const SpyFormat passed("passed");
    const SpyFormat own("own");
    for (const Amount& amount : AmountsInAllModes({0, 1800})) {
        if (amount.state.defined)
            continue;
        Given<ZelDtTime> given(amount);
        given.it.SetFormat(&own);
        EXPECT_TRUE(given.it.ConvToOFL(&passed).IsEmpty());
        EXPECT_TRUE(given.it.ConvToOFL(nullptr).IsEmpty());
        EXPECT_EQ(Look(given.it), amount);
    }
    EXPECT_EQ(passed.shows + own.shows, 0);
}

TEST(Display, TakesThePassedFormatThenItsOwnThenTheDefault)
{
    for (const Amount& amount : AmountsInAllModes({1800, -7, kLeastUnits})) {
        if (!amount.state.defined)
            continue;
        const SpyFormat passed("passed");
        const SpyFormat own("own");
        Given<ZelDtTime> given(amount);
        EXPECT_EQ(Shown(given.it, &passed), "passed");
        given.it.SetFormat(&own);
        EXPECT_EQ(Shown(given.it, &passed), "passed");
        EXPECT_EQ(own.shows, 0);
        EXPECT_EQ(Shown(given.it, nullptr), "own");
        EXPECT_EQ(passed.shows, 2);
        EXPECT_EQ(own.shows, 1);
        for (const SpyFormat* spy : {&passed, &own}) {
            EXPECT_EQ(spy->seenUnits, amount.units);
            EXPECT_EQ(spy->seenMode, ArtOf(amount.mode));
        }
        EXPECT_EQ(given.it.GetFormat(), &own);
        EXPECT_EQ(Look(given.it), amount);
    }
}

TEST(Display, ByTheDefaultFormatIsTheTextOfTheMode)
{
    const struct {
        std::int32_t units;
        const char* minutes;
        const char* hundredths;
        const char* hours; ///< minutes where something is left over
    } rows[] = {{0, "00:00", "00,00", "00"},
                {20, "00:01", "00,01", "00:01"},
                {1200, "01:00", "01,00", "01"},
                {1800, "01:30", "01,50", "01:30"},
                {-600, "-00:30", "-00,50", "-00:30"},
                {-1200, "-01:00", "-01,00", "-01"},
                {9900, "08:15", "08,25", "08:15"},
                {120000, "100:00", "100,00", "100"},
                {kMostUnits, "1789569:42", "1789569,70", "1789569:42"},
                {kLeastUnits, "-1789569:42", "-1789569,70", "-1789569:42"}};
    for (const auto& row : rows) {
        EXPECT_EQ(Shown(Make(row.units, kMinutes), nullptr), row.minutes);
        EXPECT_EQ(Shown(Make(row.units, kHundredths), nullptr), row.hundredths);
        EXPECT_EQ(Shown(Make(row.units, kHours), nullptr), row.hours);
    }
}

TEST(Display, ByTimeFormats)
{
    const ZelFormat hundredths = OfKind(kHundredths);
    const ZelFormat minutes = OfKind(kMinutes);
    const ZelFormat hours = OfKind(kHours);
    const ZelFormat own = OfKind(kOwn);
    const ZelFormat digits(ZelFormat::ZelFoZeitMinuten, ZelFormat::ZelFoZeitOhneTrenner,
                           ZelFormat::ZelFoVorzeichenHinten, ZelFormat::ZelFoPlusUndMinus, 4, 1,
                           '0');
    const ZelFormat technical(ZelFormat::ZelFoTechnisch);
    const struct {
        const ZelFormat* format;
        TimeMode mode;
        const char* text; ///< of 1800 units
    } rows[] = {
        {&hundredths, kMinutes, "1,50"}, {&hundredths, kHundredths, "1,50"},
        {&hundredths, kHours, "1,50"},   {&minutes, kMinutes, "1:30"},
        {&minutes, kHundredths, "1:30"}, {&minutes, kHours, "1:30"},
        {&hours, kMinutes, "1"},         {&hours, kHundredths, "1"},
        {&own, kMinutes, "1:30"},        {&own, kHundredths, "1,50"},
        {&own, kHours, "1:30"},          {&digits, kHundredths, "000130+"},
        {&technical, kMinutes, "1:30"},  {&technical, kHundredths, "1.50"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Shown(Make(1800, row.mode), row.format), row.text)
            << "mode " << static_cast<int>(row.mode);
    EXPECT_EQ(Shown(Make(-1800, kHundredths), &digits), "000130-");
}

TEST(Display, FailuresOfTheFormatAreFollowUpErrors)
{
    const ZelFormat unsignedFormat(ZelFormat::ZelFoZeitMinuten, ZelFormat::ZelFoZeitMitTrenner,
                                   ZelFormat::ZelFoVorzeichenOhne, ZelFormat::ZelFoNurMinus, 0, 0,
                                   '0');
    const ZelFormat narrow(ZelFormat::ZelFoZeitMinuten, ZelFormat::ZelFoZeitMitTrenner,
                           ZelFormat::ZelFoVorzeichenVorne, ZelFormat::ZelFoNurMinus, 2, 0, '0');
    const ZelFormat dates(ZelFormat::ZelFoDatum, ZelFormat::ZelFoDatumPunkt,
                          ZelFormat::ZelFoJahrVierstellig, ZelFormat::ZelFoMonatZahl, 1, '0');
    const struct {
        std::int32_t units;
        const ZelFormat* format;
    } rows[] = {{-1800, &unsignedFormat}, {100 * 1200, &narrow}, {1800, &dates}};
    for (const auto& row : rows) {
        const Amount amount{{ZelDtWmMissing, 1, 0}, row.units, kHundredths};
        const Given<ZelDtTime> given(amount);
        const Caught caught = Catch([&] { given.it.ConvToOFL(row.format); });
        EXPECT_TRUE(Matches(caught, TimeError(1, caught.error.signature)));
        EXPECT_EQ(caught.error.signature.rfind("ConvToOFL(", 0), 0u) << caught.error;
        EXPECT_EQ(caught.first.number, 20u);
        EXPECT_EQ(caught.first.classText, "ZelFormat");
        EXPECT_EQ(Look(given.it), amount);
    }
    const BrokenFormat broken;
    const ZelDtTime value(1, 30);
    const Caught foreign = Catch([&] { value.ConvToOFL(&broken); });
    EXPECT_TRUE(Matches(foreign, TimeError(1, foreign.error.signature)));
    EXPECT_EQ(foreign.depth, 0u);
}

TEST(TypedTexts, OfNothingClearAndAskNoFormat)
{
    const SpyFormat spy("");
    for (const Amount& before : AmountsInAllModes({0, 1800})) {
        for (const char* nothing : {static_cast<const char*>(nullptr), ""}) {
            Given<ZelDtTime> given(before);
            given.it.SetFormat(&spy);
            given.it.SetFromOFL(nothing, &spy);
            EXPECT_EQ(Look(given.it), Cleared(before));
            Given<ZelDtTime> second(before);
            second.it.SetFormat(&spy);
            second.it.SetFromOFL(nothing, nullptr);
            EXPECT_EQ(Look(second.it), Cleared(before));
        }
    }
    EXPECT_EQ(spy.reads, 0);
}

TEST(TypedTexts, StoreAmountAndModeThatTheFormatReads)
{
    for (const Amount& before : AmountsInAllModes({0, 1800})) {
        for (const std::int32_t units : {0, 1800, -7, kLeastUnits}) {
            for (const TimeMode mode : {kHundredths, kMinutes, kHours, kOwn}) {
                SpyFormat spy("");
                spy.parsed = units;
                spy.parsedMode = ArtOf(mode);
                Given<ZelDtTime> given(before);
                given.it.SetFromOFL("typed", &spy);
                Amount expected = Taken(before, units);
                expected.mode = mode == kOwn ? before.mode : mode;
                EXPECT_EQ(Look(given.it), expected) << before << " reads " << units;
                EXPECT_EQ(spy.reads, 1);
                EXPECT_EQ(spy.seenText, "typed");
                EXPECT_EQ(spy.seenMode, ArtOf(before.mode));
            }
        }
    }
}

TEST(TypedTexts, TakeThePassedFormatThenTheOwnThenTheDefault)
{
    SpyFormat passed("");
    SpyFormat own("");
    passed.parsed = 1;
    own.parsed = 2;
    ZelDtTime value;
    value.SetFormat(&own);
    value.SetFromOFL("8:15", &passed);
    EXPECT_EQ(StoredUnits(value), 1);
    value.SetFromOFL("8:15", nullptr);
    EXPECT_EQ(StoredUnits(value), 2);
    value.SetFormat(nullptr);
    value.SetFromOFL("8:15", nullptr);
    EXPECT_EQ(StoredUnits(value), 9900);
    EXPECT_EQ(passed.reads, 1);
    EXPECT_EQ(own.reads, 1);
}

TEST(TypedTexts, ByTheDefaultFormat)
{
    const struct {
        const char* text;
        std::int32_t units;
        TimeMode mode;
    } rows[] = {{"8", 9600, kHours},         {"8:15", 9900, kMinutes},
                {"8,25", 9900, kHundredths}, {" 8:15 ", 9900, kMinutes},
                {"-0:30", -600, kMinutes},   {"-8,25", -9900, kHundredths},
                {"815", 978000, kHours},     {"1789568:59", 2147482780, kMinutes}};
    for (const auto& row : rows) {
        for (const TimeMode mode : kTimeModes) {
            ZelDtTime value = Make(7, mode);
            value.SetFromOFL(row.text, nullptr);
            EXPECT_EQ(Look(value), (Amount{{ZelDtWmMissing, 1, 1}, row.units, row.mode}))
                << row.text;
        }
    }
}

TEST(TypedTexts, ThatTheFormatRejectsChangeNothing)
{
    const struct {
        const char* text;
        unsigned long cause;
    } rows[] = {{"x", 21},    {" ", 21},   {"8:1", 21},       {"8:150", 21},
                {"8.15", 21}, {":30", 21}, {"8:15:00", 21},   {"--8", 21},
                {"8:60", 8},  {"8:75", 8}, {"1789569:00", 8}, {"-1789569", 8}};
    for (const auto& row : rows) {
        for (const Amount& before : AmountsInAllModes({1800})) {
            Given<ZelDtTime> given(before);
            const Caught caught = Catch([&] { given.it.SetFromOFL(row.text, nullptr); });
            EXPECT_TRUE(Matches(caught, TimeError(1, caught.error.signature))) << row.text;
            EXPECT_EQ(caught.error.signature.rfind("SetFromOFL(", 0), 0u) << caught.error;
            EXPECT_EQ(caught.first.number, row.cause) << row.text;
            EXPECT_EQ(caught.first.classText, "ZelFormat") << row.text;
            EXPECT_EQ(Look(given.it), before) << row.text;
        }
    }
    const BrokenFormat broken;
    ZelDtTime value(1, 30);
    const Caught foreign = Catch([&] { value.SetFromOFL("1", &broken); });
    EXPECT_TRUE(Matches(foreign, TimeError(1, foreign.error.signature)));
    EXPECT_EQ(Look(value), DefinedAmount(1800));
}

TEST(TypedTexts, ReadBackWhatIsShown)
{
    // Every kind of format, and none; amounts that the kind shows without loss.
    std::mt19937 random(125);
    for (const TimeMode kind : {kHundredths, kMinutes, kHours, kOwn}) {
        const ZelFormat format = OfKind(kind);
        for (const ZelFormat* used : {&format, static_cast<const ZelFormat*>(nullptr)}) {
            for (int i = 0; i < 1000; ++i) {
                const TimeMode mode = kTimeModes[random() % 3];
                const TimeMode shown = used == nullptr || kind == kOwn ? mode : kind;
                const auto step = static_cast<std::int32_t>(WholeStep(shown));
                const std::int32_t units =
                    (static_cast<std::int32_t>(random()) >> (1 + random() % 28)) / step * step;
                const std::string text = Shown(Make(units, mode), used);
                ZelDtTime back;
                back.SetFromOFL(text.c_str(), used);
                ASSERT_EQ(Look(back), (Amount{{ZelDtWmMissing, 1, 1}, units, shown})) << text;
                ASSERT_EQ(Shown(back, used), text);
            }
        }
    }
}

TEST(TypedTexts, WithoutSeparatorAreReadInTheValuesOwnMode)
{
    const ZelFormat digits(ZelFormat::ZelFoZeitEigene, ZelFormat::ZelFoZeitOhneTrenner,
                           ZelFormat::ZelFoVorzeichenVorne, ZelFormat::ZelFoNurMinus, 0, 0, '0');
    const struct {
        TimeMode mode;
        std::int32_t units;
    } rows[] = {{kHundredths, 9900}, {kMinutes, 10100}, {kHours, 825 * 1200}};
    for (const auto& row : rows) {
        ZelDtTime value = Make(7, row.mode);
        value.SetFromOFL("825", &digits);
        EXPECT_EQ(Look(value), (Amount{{ZelDtWmMissing, 1, 1}, row.units, row.mode}));
    }
}

} // namespace
