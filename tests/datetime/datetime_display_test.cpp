/// Display of ZelDtDateTime and ZelDtDateZp and reading of typed texts.

#include "platform/formats/ZelFormat.h"
#include "platform/runtime/localtime.h"
#include "tests/datetime/datetime_testing.h"

#include <string>

namespace {

using namespace zeltest;

const Error kShowError = FunctionError(1, "ConvToOFL(");
const Error kReadError = FunctionError(1, "SetFromOFL(");

/// A format that counts its calls and knows one text and one moment.
class SpyFormat : public ZelFormat {
public:
    explicit SpyFormat(const char* shown, const Fields& read = kNew)
        : ZelFormat(ZelFoStandard), m_shown(shown), m_read(read)
    {}

    void FormatDateTime(const std::tm& value, FormatDatumUmfang scope, CString& text) const override
    {
        ++shows;
        seen = FieldsOf(value);
        seenScope = scope;
        text = m_shown;
    }
    void ParseDateTime(const CString& text, FormatDatumUmfang scope, std::tm* value) const override
    {
        ++reads;
        seenText = text.GetString();
        seenScope = scope;
        seen = FieldsOf(*value);
        *value = RecordOf(m_read);
    }

    mutable int shows = 0;
    mutable int reads = 0;
    mutable Fields seen;
    mutable std::string seenText;
    mutable FormatDatumUmfang seenScope = static_cast<FormatDatumUmfang>(-1);

private:
    const char* m_shown;
    Fields m_read;
};

/// A format that fails with something that is no error of the library.
class BrokenFormat : public ZelFormat {
public:
    BrokenFormat() : ZelFormat(ZelFoStandard) {}
    void FormatDateTime(const std::tm&, FormatDatumUmfang, CString&) const override { throw 42; }
    void ParseDateTime(const CString&, FormatDatumUmfang, std::tm*) const override { throw 42; }
};

/// What distinguishes the two classes in display.
template <typename Value>
struct Facts;

template <>
struct Facts<ZelDtDateTime> {
    static constexpr auto kScope = ZelFormat::ZelFoDatumMitZeit;
    static constexpr const char* kSomeText = "05.03.2000 14:07:09";
    /// What is left of fields that were read.
    static Fields Read(const Fields& f) { return f; }
};

template <>
struct Facts<ZelDtDateZp> {
    static constexpr auto kScope = ZelFormat::ZelFoNurDatum;
    static constexpr const char* kSomeText = "05.03.2000";
    static Fields Read(const Fields& f) { return Midnight(f); }
};

template <typename Value>
class DateDisplay : public ::testing::Test {};

using Classes = ::testing::Types<ZelDtDateTime, ZelDtDateZp>;
TYPED_TEST_SUITE(DateDisplay, Classes);

template <typename Value>
std::string Shown(const Value& value, const ZelFormat* format)
{
    return value.ConvToOFL(format).GetString();
}

ZelFormat DateFormat(int kind, int separator = 0, int year = 0, int month = 0, int twoDigits = 1)
{
    return ZelFormat(static_cast<ZelFormat::FormatDatumArt>(kind),
                     static_cast<ZelFormat::FormatDatumTrenner>(separator),
                     static_cast<ZelFormat::FormatDatumJahr>(year),
                     static_cast<ZelFormat::FormatDatumMonat>(month), twoDigits, '0');
}

TYPED_TEST(DateDisplay, OfUndefinedValuesIsEmptyAndAsksNoFormat)
{
    const SpyFormat passed("passed");
    const SpyFormat own("own");
    for (const Moment& moment : Moments({kNew, kSome, {-5, 500, -1, 99, 100, 1000}})) {
        if (moment.state.defined)
            continue;
        Given<TypeParam> given(moment);
        given.it.SetFormat(&own);
        EXPECT_TRUE(given.it.ConvToOFL(&passed).IsEmpty());
        EXPECT_TRUE(given.it.ConvToOFL(nullptr).IsEmpty());
        EXPECT_EQ(Look(given.it), moment);
    }
    EXPECT_EQ(passed.shows + own.shows, 0);
}

TYPED_TEST(DateDisplay, TakesThePassedFormatThenTheOwnThenTheDefault)
{
    for (const Moment& moment : Moments({kSome})) {
        if (!moment.state.defined)
            continue;
        const SpyFormat passed("passed");
        const SpyFormat own("own");
        Given<TypeParam> given(moment);
        EXPECT_EQ(Shown(given.it, &passed), "passed");
        EXPECT_EQ(Shown(given.it, nullptr), Facts<TypeParam>::kSomeText);
        given.it.SetFormat(&own);
        EXPECT_EQ(Shown(given.it, &passed), "passed");
        EXPECT_EQ(Shown(given.it, nullptr), "own");
        EXPECT_EQ(passed.shows, 2);
        EXPECT_EQ(own.shows, 1);
        for (const SpyFormat* spy : {&passed, &own}) {
            EXPECT_EQ(spy->seen, kSome);
            EXPECT_EQ(spy->seenScope, Facts<TypeParam>::kScope);
        }
        EXPECT_EQ(given.it.GetFormat(), &own);
        EXPECT_EQ(Look(given.it), moment);
    }
}

TEST(Display, ByTheDefaultFormat)
{
    const struct {
        Fields fields;
        const char* moment;
        const char* date;
    } rows[] = {
        {{2000, 3, 5, 14, 7, 0}, "05.03.2000 14:07", "05.03.2000"},
        {{2000, 3, 5, 14, 7, 9}, "05.03.2000 14:07:09", "05.03.2000"},
        {{2000, 3, 5, 0, 0, 0}, "05.03.2000 00:00", "05.03.2000"},
        {{2000, 3, 5, 0, 0, 1}, "05.03.2000 00:00:01", "05.03.2000"},
        {{1753, 1, 1, 23, 59, 59}, "01.01.1753 23:59:59", "01.01.1753"},
        {{9999, 12, 31, 23, 59, 0}, "31.12.9999 23:59", "31.12.9999"},
        {{32767, 12, 31, 23, 59, 0}, "31.12.32767 23:59", "31.12.32767"},
    };
    for (const auto& row : rows) {
        const Moment moment{{ZelDtWmMissing, 1, 0}, row.fields};
        EXPECT_EQ(Shown(Given<ZelDtDateTime>(moment).it, nullptr), row.moment);
        EXPECT_EQ(Shown(Given<ZelDtDateZp>(moment).it, nullptr), row.date);
    }
}

TEST(Display, ByAGivenFormat)
{
    const struct {
        ZelFormat format;
        const char* moment;
        const char* date; ///< of a date that was given a time of day
    } rows[] = {
        {DateFormat(0), "05.03.2000", "05.03.2000"},
        {DateFormat(1), "05.03.2000 14:07", "05.03.2000 14:07"},
        {DateFormat(2), "05.03.2000 14:07:09", "05.03.2000 14:07:09"},
        {DateFormat(3), "05.03.2000 14:07:09", "05.03.2000 14:07:09"},
        {DateFormat(4), "14:07", "14:07"},
        {DateFormat(0, 1), "05/03/2000", "05/03/2000"},
        {DateFormat(0, 2), "05-03-2000", "05-03-2000"},
        {DateFormat(0, 3), "05032000", "05032000"},
        {DateFormat(0, 0, 1), "05.03.00", "05.03.00"},
        {DateFormat(0, 0, 0, 1), "05.M\xE4r.2000", "05.M\xE4r.2000"},
        {DateFormat(0, 0, 0, 2), "05.M\xE4rz.2000", "05.M\xE4rz.2000"},
        {DateFormat(1, 0, 0, 0, 0), "5.3.2000 14:07", "5.3.2000 14:07"},
        {ZelFormat(ZelFormat::ZelFoStandard), "05.03.2000 14:07:09", "05.03.2000"},
        {ZelFormat(ZelFormat::ZelFoTechnisch), "5.3.2000 14:07:09", "5.3.2000"},
    };
    const Moment moment{{ZelDtWmMissing, 1, 0}, kSome};
    for (const auto& row : rows) {
        EXPECT_EQ(Shown(Given<ZelDtDateTime>(moment).it, &row.format), row.moment);
        EXPECT_EQ(Shown(Given<ZelDtDateZp>(moment).it, &row.format), row.date);
    }
}

TYPED_TEST(DateDisplay, FailuresOfTheFormatAreFollowUpErrors)
{
    const ZelFormat numbers(0, 0, ZelFormat::ZelFoDezimalOhne, ZelFormat::ZelFoTausenderOhne,
                            ZelFormat::ZelFoVorzeichenVorne, ZelFormat::ZelFoNurMinus, 0, '0', 0,
                            '0');
    const struct {
        Fields fields;
        const ZelFormat* format;
        unsigned long cause;
    } rows[] = {{kSome, &numbers, 20},
                {{2000, 13, 5, 0, 0, 0}, nullptr, 8},
                {{2000, 0, 5, 0, 0, 0}, nullptr, 8},
                {{2001, 2, 29, 0, 0, 0}, nullptr, 8},
                {{2000, 3, 0, 0, 0, 0}, nullptr, 8},
                {{-1, 3, 5, 0, 0, 0}, nullptr, 8},
                {{32768, 3, 5, 0, 0, 0}, nullptr, 8},
                {{std::int64_t{kMaxInt} + 1900, 3, 5, 0, 0, 0}, nullptr, 8}};
    for (const auto& row : rows) {
        const Moment moment{{ZelDtWmMissing, 1, 0}, row.fields};
        const Given<TypeParam> given(moment);
        EXPECT_TRUE(FailsLike([&] { given.it.ConvToOFL(row.format); }, kShowError, row.cause))
            << row.fields;
        EXPECT_EQ(Catch([&] { given.it.ConvToOFL(row.format); }).first.classText, "ZelFormat");
        EXPECT_EQ(Look(given.it), moment);
    }
    const BrokenFormat broken;
    const Given<TypeParam> given(Moment{{ZelDtWmMissing, 1, 0}, kSome});
    EXPECT_TRUE(FailsLike([&] { given.it.ConvToOFL(&broken); }, kShowError));
    EXPECT_EQ(Catch([&] { given.it.ConvToOFL(&broken); }).depth, 0u);
}

TEST(Display, ShowsATimeThatIsNoneOnlyIfAsked)
{
    const Moment moment{{ZelDtWmMissing, 1, 0}, {2000, 3, 5, 24, 60, 60}};
    const Given<ZelDtDateTime> given(moment);
    EXPECT_TRUE(FailsLike([&] { given.it.ConvToOFL(nullptr); }, kShowError, 8));
    const ZelFormat date = DateFormat(0);
    EXPECT_EQ(Shown(given.it, &date), "05.03.2000");
    EXPECT_EQ(Shown(Given<ZelDtDateZp>(moment).it, nullptr), "05.03.2000");
}

// Reading

TYPED_TEST(DateDisplay, OfNothingClearsAndAsksNoFormat)
{
    const SpyFormat spy("");
    for (const Moment& moment : Moments({kNew, {2000, 3, 5, 0, 0, 0}})) {
        for (const char* nothing : {static_cast<const char*>(nullptr), ""}) {
            for (const ZelFormat* passed :
                 {static_cast<const ZelFormat*>(&spy), static_cast<const ZelFormat*>(nullptr)}) {
                Given<TypeParam> given(moment);
                given.it.SetFormat(&spy);
                given.it.SetFromOFL(nothing, passed);
                EXPECT_EQ(Look(given.it), Cleared(moment));
            }
        }
    }
    EXPECT_EQ(spy.reads, 0);
}

TYPED_TEST(DateDisplay, StoresWhatTheFormatReads)
{
    for (const Moment& moment : Moments({kNew, {2000, 3, 5, 0, 0, 0}})) {
        for (const Fields& read :
             {Fields{1753, 1, 1, 23, 59, 59}, Fields{2004, 2, 29, 0, 0, 0}, moment.fields}) {
            const SpyFormat spy("", read);
            Given<TypeParam> given(moment);
            given.it.SetFromOFL("typed", &spy);
            EXPECT_EQ(Look(given.it), Taken(moment, Facts<TypeParam>::Read(read)))
                << moment << " reads " << read;
            EXPECT_EQ(spy.reads, 1);
            EXPECT_EQ(spy.seenText, "typed");
            EXPECT_EQ(spy.seenScope, Facts<TypeParam>::kScope);
            EXPECT_EQ(spy.seen, moment.fields); // what the format does not show stays
        }
    }
}

TYPED_TEST(DateDisplay, ReadsByThePassedFormatThenTheOwnThenTheDefault)
{
    const SpyFormat passed("", {2001, 1, 1, 0, 0, 0});
    const SpyFormat own("", {2002, 1, 1, 0, 0, 0});
    TypeParam value;
    value.SetFormat(&own);
    value.SetFromOFL("3.4.2003", &passed);
    EXPECT_EQ(Look(value).fields, (Fields{2001, 1, 1, 0, 0, 0}));
    value.SetFromOFL("3.4.2003", nullptr);
    EXPECT_EQ(Look(value).fields, (Fields{2002, 1, 1, 0, 0, 0}));
    value.SetFormat(nullptr);
    value.SetFromOFL("3.4.2003", nullptr);
    EXPECT_EQ(Look(value).fields, (Fields{2003, 4, 3, 0, 0, 0}));
    EXPECT_EQ(passed.reads, 1);
    EXPECT_EQ(own.reads, 1);
}

TEST(TypedTexts, ByTheDefaultFormat)
{
    const struct {
        const char* text;
        Fields fields;
    } rows[] = {
        {"05.03.2000 14:07", {2000, 3, 5, 14, 7, 0}}, {"5.3.2000 14:07:09", {2000, 3, 5, 14, 7, 9}},
        {"5.3.2000 4:07", {2000, 3, 5, 4, 7, 0}},     {"5.3.2000", {2000, 3, 5, 0, 0, 0}},
        {" 5.3.2000 ", {2000, 3, 5, 0, 0, 0}},        {"29.2.2004", {2004, 2, 29, 0, 0, 0}},
        {"1.1.1753", {1753, 1, 1, 0, 0, 0}},          {"31.12.9999", {9999, 12, 31, 0, 0, 0}},
    };
    for (const auto& row : rows) {
        for (const Moment& moment : Moments({kNew, kSome, {1900, 0, 0, 14, 7, 9}})) {
            Given<ZelDtDateTime> given(moment);
            given.it.SetFromOFL(row.text, nullptr);
            EXPECT_EQ(Look(given.it), Taken(moment, row.fields)) << moment << " reads " << row.text;
            Given<ZelDtDateZp> date(moment);
            date.it.SetFromOFL(row.text, nullptr);
            EXPECT_EQ(Look(date.it).fields, Midnight(row.fields));
            EXPECT_EQ(date.it.IsDefined(), 1);
        }
    }
}

TEST(TypedTexts, OfDatesMayBeDigitsAlone)
{
    ZelDtDateZp date;
    date.SetFromOFL("05032000", nullptr);
    EXPECT_EQ(Look(date).fields, (Fields{2000, 3, 5, 0, 0, 0}));
    ZelDtDateTime moment;
    EXPECT_TRUE(FailsLike([&] { moment.SetFromOFL("05032000", nullptr); }, kReadError, 21));
    EXPECT_TRUE(moment.IsMissing());
}

TEST(TypedTexts, OfTwoDigitYearsMeanTheCenturyOfTheSystem)
{
    std::tm now{};
    ASSERT_TRUE(zelrt::LocalTime(std::time(nullptr), now));
    const int century = (now.tm_year + 1900) / 100 * 100;
    const FixedClock clock({1999, 6, 15, 12, 0, 0});
    ZelDtDateZp date;
    date.SetFromOFL("5.3.07", nullptr);
    EXPECT_EQ(date.GetYear(), century + 7);
}

TEST(TypedTexts, KeepWhatTheFormatDoesNotShow)
{
    for (const Moment& moment : Moments({kNew, kSome})) {
        const ZelFormat dateOnly = DateFormat(0);
        Given<ZelDtDateTime> given(moment);
        given.it.SetFromOFL("29.02.2004", &dateOnly);
        const Fields f = moment.fields;
        EXPECT_EQ(Look(given.it), Taken(moment, {2004, 2, 29, f.hour, f.minute, f.second}));
        const ZelFormat timeOnly = DateFormat(4);
        Given<ZelDtDateTime> second(moment);
        second.it.SetFromOFL("23:59", &timeOnly);
        EXPECT_EQ(Look(second.it), Taken(moment, {f.year, f.month, f.day, 23, 59, 0}));
    }
}

TEST(TypedTexts, BringDatesBackToMidnight)
{
    for (const Moment& moment : Moments({kNew, kSome})) {
        const ZelFormat dateOnly = DateFormat(0);
        Given<ZelDtDateZp> given(moment);
        given.it.SetFromOFL("29.02.2004", &dateOnly);
        EXPECT_EQ(Look(given.it), (Moment{{moment.state.mode, 1, 1}, {2004, 2, 29, 0, 0, 0}}));
        const ZelFormat timeOnly = DateFormat(4);
        Given<ZelDtDateZp> second(moment);
        second.it.SetFromOFL("23:59", &timeOnly);
        EXPECT_EQ(Look(second.it).fields, Midnight(moment.fields));
        const ZelFormat both = DateFormat(2);
        Given<ZelDtDateZp> third(moment);
        third.it.SetFromOFL("29.02.2004 14:07:09", &both);
        EXPECT_EQ(Look(third.it), (Moment{{moment.state.mode, 1, 1}, {2004, 2, 29, 0, 0, 0}}));
    }
}

TYPED_TEST(DateDisplay, TextsThatTheFormatRejectsChangeNothing)
{
    const struct {
        const char* text;
        unsigned long cause;
    } rows[] = {{"x", 21},         {" ", 21},           {"5.3.", 21},     {"5/3/2000", 21},
                {"14:07", 21},     {"5.3.2000 14", 21}, {"30.2.2000", 8}, {"29.2.2001", 8},
                {"1.13.2000", 8},  {"0.1.2000", 8},     {"1.1.32768", 8}, {"5.3.2000 24:00", 8},
                {"5.3.2000x", 21}, {"5.3.2000 1:60", 8}};
    for (const auto& row : rows) {
        for (const Moment& moment : Moments({kSome})) {
            Given<TypeParam> given(moment);
            const Caught caught = Catch([&] { given.it.SetFromOFL(row.text, nullptr); });
            Error expected = kReadError;
            expected.module = caught.error.module;
            expected.classText = caught.error.classText;
            expected.signature = caught.error.signature;
            EXPECT_TRUE(Matches(caught, expected)) << row.text;
            EXPECT_EQ(caught.error.signature.rfind("SetFromOFL(", 0), 0u) << caught.error;
            EXPECT_EQ(caught.first.number, row.cause) << row.text;
            EXPECT_EQ(caught.first.classText, "ZelFormat") << row.text;
            EXPECT_EQ(Look(given.it), moment) << row.text;
        }
    }
    const BrokenFormat broken;
    const Moment moment{{ZelDtWmMissing, 1, 0}, kSome};
    Given<TypeParam> given(moment);
    const Caught foreign = Catch([&] { given.it.SetFromOFL("5.3.2000", &broken); });
    EXPECT_EQ(foreign.error.number, 1u);
    EXPECT_TRUE(foreign.first.number == 1u) << foreign.first;
    EXPECT_EQ(Look(given.it), moment);
}

TYPED_TEST(DateDisplay, TextsOfYearsBefore1753ChangeNothing)
{
    for (const char* text : {"31.12.1752", "01.01.1000", "01.01.0001"}) {
        for (const Moment& moment : Moments({kSome})) {
            Given<TypeParam> given(moment);
            const Caught caught = Catch([&] { given.it.SetFromOFL(text, nullptr); });
            EXPECT_EQ(caught.error.number, 1u) << text;
            EXPECT_EQ(caught.first.number, 27u) << text << ": " << caught.first;
            EXPECT_EQ(Look(given.it), moment) << text;
        }
    }
}

TYPED_TEST(DateDisplay, IsReadBack)
{
    std::mt19937_64 random(20250314);
    const ZelFormat formats[] = {ZelFormat(ZelFormat::ZelFoStandard), DateFormat(2), DateFormat(3),
                                 DateFormat(2, 2, 0, 2), DateFormat(2, 1, 0, 0, 0)};
    for (int i = 0; i < 1000; ++i) {
        const Fields fields = Facts<TypeParam>::Read(RandomFields(random, 1753, 9999));
        const Given<TypeParam> given(Moment{{ZelDtWmMissing, 1, 0}, fields});
        for (const ZelFormat& format : formats) {
            const std::string text = Shown(given.it, &format);
            TypeParam back;
            back.SetFromOFL(text.c_str(), &format);
            ASSERT_EQ(Look(back).fields, fields) << text;
        }
    }
}

} // namespace
