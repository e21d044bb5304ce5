/// SQL and display forms of ZelDtDecimal.

#include "tests/numeric/decimal_testing.h"

#include "platform/formats/ZelFormat.h"

#include <string>
#include <vector>

namespace {

using namespace zeltest;

const std::vector<std::string> kTexts = {"0", "0.00", "7", "-2.50", "100", kTiny, kLargest};

// SQL

TEST(Sql, IsTheNumberOrNull)
{
    for (const Number& number : Numbers(kTexts)) {
        const GivenDecimal given(number);
        const ZelDtString sql = given.it.ConvToSQL();
        EXPECT_EQ(TextOf(sql), number.state.defined ? number.text : "NULL") << number;
        EXPECT_EQ(sql.IsDefined(), 1) << number;
        EXPECT_EQ(Look(given.it), number);
    }
}

TEST(Sql, OfKnownNumbers)
{
    EXPECT_EQ(TextOf(ZelDtDecimal(0).ConvToSQL()), "0");
    EXPECT_EQ(TextOf(ZelDtDecimal(-5).ConvToSQL()), "-5");
    EXPECT_EQ(TextOf(ZelDtDecimal("1.50").ConvToSQL()), "1.50");
    EXPECT_EQ(TextOf(ZelDtDecimal("-0.05").ConvToSQL()), "-0.05");
    EXPECT_EQ(TextOf(ZelDtDecimal("1,234,567.80").ConvToSQL()), "1234567.80");
    EXPECT_EQ(TextOf(ZelDtDecimal(1234567.5).ConvToSQL()), "1234567.5");
    EXPECT_EQ(TextOf(ZelDtDecimal(Currency(50000)).ConvToSQL()), "5.0000");
    EXPECT_EQ(TextOf(ZelDtDecimal(kLargest).ConvToSQL()), kLargest);
    EXPECT_EQ(TextOf(ZelDtDecimal(ZelDtWmMissing).ConvToSQL()), "NULL");
    EXPECT_EQ(TextOf(ZelDtDecimal(ZelDtWmNull).ConvToSQL()), "NULL");
    EXPECT_EQ(TextOf(ZelDtDecimal(ZelDtWmAlwaysDefined).ConvToSQL()), "0");
}

TEST(Sql, IsTakenOverUnlessTheNumberIsTheSame)
{
    for (const Number& number : Numbers({"0", "5", "5.00", "-2.5"})) {
        for (const char* text : {"0.0", "5.0", "-2.50", "7", kSmallest}) {
            GivenDecimal given(number);
            given.it.SetFromSQL(text);
            EXPECT_EQ(Look(given.it), Assigned(number, text)) << number << " reads " << text;
        }
    }
}

// Display

/// A format that counts its calls and knows one text for showing and one for reading.
class SpyFormat : public ZelFormat {
public:
    explicit SpyFormat(const char* shown) : ZelFormat(ZelFoStandard), m_shown(shown) {}

    void FormatString(const CString& value, FormatTextArt kind, CString& text) const override
    {
        ++shows;
        seenKind = kind;
        seenValue = value.GetString();
        text = m_shown;
    }
    void ParseString(const CString& text, FormatTextArt kind, CString* value) const override
    {
        ++reads;
        seenKind = kind;
        seenText = text.GetString();
        *value = parsed.c_str();
    }

    std::string parsed;
    mutable int shows = 0;
    mutable int reads = 0;
    mutable FormatTextArt seenKind = ZelFoReinerText;
    mutable std::string seenValue;
    mutable std::string seenText;

private:
    const char* m_shown;
};

/// A format that fails with something that is no error of the library.
class BrokenFormat : public ZelFormat {
public:
    BrokenFormat() : ZelFormat(ZelFoStandard) {}
    void FormatString(const CString&, FormatTextArt, CString&) const override { throw 42; }
    void ParseString(const CString&, FormatTextArt, CString*) const override { throw 42; }
};

const ZelFormat& Money()
{
    static const ZelFormat format(0, 2, ZelFormat::ZelFoDezimalKomma,
                                  ZelFormat::ZelFoTausenderPunkt, ZelFormat::ZelFoVorzeichenVorne,
                                  ZelFormat::ZelFoNurMinus, 0, ' ', 0, ' ');
    return format;
}

const Error kShow = MemberError(1, "ConvToOFL(ZelFormat *)");
const Error kRead = MemberError(1, "SetFromOFL(LPCTSTR,ZelFormat*)");

TEST(Display, OfUndefinedValuesIsEmptyAndAsksNoFormat)
{
    const SpyFormat passed("passed");
    const SpyFormat own("own");
    for (const Number& number : Numbers({"0", "2.50"})) {
        if (number.state.defined)
            continue;
        GivenDecimal given(number);
        given.it.SetFormat(&own);
        EXPECT_TRUE(given.it.ConvToOFL(&passed).IsEmpty());
        EXPECT_TRUE(given.it.ConvToOFL(nullptr).IsEmpty());
        EXPECT_EQ(Look(given.it), number);
    }
    EXPECT_EQ(passed.shows + own.shows, 0);
}

TEST(Display, TakesThePassedFormatThenItsOwnThenTheDefault)
{
    for (const Number& number : Numbers({"-2.50"})) {
        if (!number.state.defined)
            continue;
        const SpyFormat passed("passed");
        const SpyFormat own("own");
        GivenDecimal given(number);
        EXPECT_STREQ(given.it.ConvToOFL(&passed).GetString(), "passed");
        EXPECT_STREQ(given.it.ConvToOFL(nullptr).GetString(), "-2,50");
        given.it.SetFormat(&own);
        EXPECT_STREQ(given.it.ConvToOFL(&passed).GetString(), "passed");
        EXPECT_STREQ(given.it.ConvToOFL(nullptr).GetString(), "own");
        EXPECT_EQ(passed.shows, 2);
        EXPECT_EQ(own.shows, 1);
        EXPECT_EQ(passed.seenValue, "-2.50");
        EXPECT_EQ(own.seenValue, "-2.50");
        EXPECT_EQ(own.seenKind, ZelFormat::ZelFoZahlText);
        EXPECT_EQ(given.it.GetFormat(), &own);
        EXPECT_EQ(Look(given.it), number);
    }
}

TEST(Display, ByTheDefaultFormatHasAllDecimals)
{
    const struct {
        const char* number;
        const char* text;
    } rows[] = {{"0", "0"},
                {"0.00", "0,00"},
                {"5", "5"},
                {"1.5", "1,5"},
                {"1.50", "1,50"},
                {"-0.05", "-0,05"},
                {"1234567.89", "1234567,89"},
                {kLargest, kLargest},
                {kTiny, "0,000000000000000000000000001"}};
    for (const auto& row : rows) {
        EXPECT_STREQ(ZelDtDecimal(row.number).ConvToOFL(nullptr).GetString(), row.text);
        ZelDtDecimal back(99);
        back.SetFromOFL(row.text, nullptr);
        EXPECT_EQ(Look(back), (Number{{ZelDtWmMissing, 1, 1}, row.number})) << row.text;
    }
}

TEST(Display, ByANumericFormatHasItsDecimals)
{
    const struct {
        const char* number;
        const char* text;
    } rows[] = {{"1234567.891", "1.234.567,89"},
                {"-1234567.895", "-1.234.567,90"},
                {"5", "5,00"},
                {"0", "0,00"},
                {"0.004", "0,00"},
                {"-0.005", "-0,01"}};
    for (const auto& row : rows)
        EXPECT_STREQ(ZelDtDecimal(row.number).ConvToOFL(&Money()).GetString(), row.text)
            << row.number;
    ZelDtDecimal value;
    value.SetFromOFL("-1.234.567,89", &Money());
    EXPECT_EQ(NumberOf(value), "-1234567.89");

    const ZelFormat technical(ZelFormat::ZelFoTechnisch);
    EXPECT_STREQ(ZelDtDecimal("1234.50").ConvToOFL(&technical).GetString(), "1234.50");
    value.SetFromOFL("1234.50", &technical);
    EXPECT_EQ(NumberOf(value), "1234.50");
}

TEST(Display, FailuresOfTheFormatAreFollowUpErrors)
{
    const ZelFormat narrow(4, 2, ZelFormat::ZelFoDezimalKomma, ZelFormat::ZelFoTausenderOhne,
                           ZelFormat::ZelFoVorzeichenVorne, ZelFormat::ZelFoNurMinus, 0, '0', 0,
                           '0');
    const ZelFormat date(ZelFormat::ZelFoDatum, ZelFormat::ZelFoDatumPunkt,
                         ZelFormat::ZelFoJahrVierstellig, ZelFormat::ZelFoMonatZahl, 1, '0');
    const ZelFormat time(ZelFormat::ZelFoZeitMinuten, ZelFormat::ZelFoZeitMitTrenner,
                         ZelFormat::ZelFoVorzeichenVorne, ZelFormat::ZelFoNurMinus, 0, 0, ' ');
    const ZelDtDecimal value("123.45");
    for (const ZelFormat* format : {&narrow, &date, &time}) {
        const Caught caught = Catch([&] { value.ConvToOFL(format); });
        EXPECT_TRUE(Matches(caught, kShow));
        EXPECT_EQ(caught.first.number, 20u);
        EXPECT_EQ(caught.first.classText, "ZelFormat");
    }
    const BrokenFormat broken;
    const Caught foreign = Catch([&] { value.ConvToOFL(&broken); });
    EXPECT_TRUE(Matches(foreign, kShow));
    EXPECT_EQ(foreign.depth, 0u);
    EXPECT_EQ(Look(value), Defined("123.45"));
}

TEST(TypedTexts, OfNothingClearAndAskNoFormat)
{
    const SpyFormat spy("");
    for (const Number& number : Numbers({"0", "0.00", "2.50"})) {
        for (const char* nothing : {static_cast<const char*>(nullptr), ""}) {
            GivenDecimal given(number);
            given.it.SetFormat(&spy);
            given.it.SetFromOFL(nothing, &spy);
            EXPECT_EQ(Look(given.it), Cleared(number));
            GivenDecimal second(number);
            second.it.SetFormat(&spy);
            second.it.SetFromOFL(nothing, nullptr);
            EXPECT_EQ(Look(second.it), Cleared(number));
        }
    }
    EXPECT_EQ(spy.reads, 0);
}

TEST(TypedTexts, StoreWhatTheFormatReads)
{
    for (const Number& number : Numbers({"0", "5", "-2.50"})) {
        for (const char* text : {"0", "5", "-2.50", "1234.5", kTiny, kSmallest}) {
            SpyFormat spy("");
            spy.parsed = text;
            GivenDecimal given(number);
            given.it.SetFromOFL("typed", &spy);
            EXPECT_EQ(Look(given.it), Assigned(number, text)) << number << " reads " << text;
            EXPECT_EQ(spy.reads, 1);
            EXPECT_EQ(spy.seenText, "typed");
            EXPECT_EQ(spy.seenKind, ZelFormat::ZelFoZahlText);
        }
    }
}

TEST(TypedTexts, TakeThePassedFormatThenTheOwnThenTheDefault)
{
    SpyFormat passed("");
    SpyFormat own("");
    passed.parsed = "1";
    own.parsed = "2";
    ZelDtDecimal value;
    value.SetFormat(&own);
    value.SetFromOFL("9,9", &passed);
    EXPECT_EQ(NumberOf(value), "1");
    value.SetFromOFL("9,9", nullptr);
    EXPECT_EQ(NumberOf(value), "2");
    value.SetFormat(nullptr);
    value.SetFromOFL("9,9", nullptr);
    EXPECT_EQ(NumberOf(value), "9.9");
    EXPECT_EQ(passed.reads, 1);
    EXPECT_EQ(own.reads, 1);
}

TEST(TypedTexts, ByTheDefaultFormat)
{
    const struct {
        const char* text;
        const char* number;
    } rows[] = {{"12", "12"},
                {"1,5", "1.5"},
                {"1,50", "1.50"},
                {"-0,05", "-0.05"},
                {"0,05-", "-0.05"},
                {" 12,0 ", "12.0"},
                {"1.234", "1234"},
                {"1.234.567,89", "1234567.89"},
                {"9999999999999999999999999999", kLargest}};
    for (const auto& row : rows) {
        ZelDtDecimal value(99);
        value.SetFromOFL(row.text, nullptr);
        EXPECT_EQ(Look(value), (Number{{ZelDtWmMissing, 1, 1}, row.number})) << row.text;
    }
}

TEST(TypedTexts, ThatTheFormatRejectsChangeNothing)
{
    for (const char* text : {"x", " ", "1.5", "1,2,3", "1x", "--1", "1e5", "NULL", "12.34"}) {
        for (const Number& number : Unmodified({"2.50"})) {
            GivenDecimal given(number);
            const Caught caught = Catch([&] { given.it.SetFromOFL(text, nullptr); });
            EXPECT_TRUE(Matches(caught, kRead)) << text;
            EXPECT_EQ(caught.first.number, 21u) << text;
            EXPECT_EQ(caught.first.classText, "ZelFormat") << text;
            EXPECT_EQ(Look(given.it), number) << text;
        }
    }
    const BrokenFormat broken;
    ZelDtDecimal value(7);
    const Caught foreign = Catch([&] { value.SetFromOFL("1", &broken); });
    EXPECT_TRUE(Matches(foreign, kRead));
    EXPECT_EQ(foreign.depth, 0u);
    EXPECT_EQ(Look(value), Defined("7"));
}

TEST(TypedTexts, OfTooManyDigitsAreAnOverflow)
{
    // 29 digits are no matter of the format; the number they are has no room.
    for (const Number& number : Unmodified({"2.50"})) {
        GivenDecimal given(number);
        EXPECT_TRUE(
            FailsWith([&] { given.it.SetFromOFL("10000000000000000000000000000", nullptr); }, kRead,
                      OverflowError()));
        EXPECT_EQ(Look(given.it), number);
    }
}

} // namespace
