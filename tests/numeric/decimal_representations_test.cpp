/// SQL, display and record set forms of ZelDtDecimal.

#include "tests/numeric/decimal_testing.h"

#include "platform/formats/ZelFormat.h"

#include <cstddef>
#include <iterator>
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

// Record set

/// A record with two numbers as texts, which have room as bound fields do; its marks work without
/// a database.
class Records : public CRecordset {
public:
    Records()
    {
        m_nFields = 2;
        first.Preallocate(60);
        second.Preallocate(60);
    }
    void DoFieldExchange(CFieldExchange* pFX) override
    {
        pFX->SetFieldType(CFieldExchange::outputColumn);
        RFX_Text(pFX, "FIRST", first, 50);
        RFX_Text(pFX, "SECOND", second, 50);
    }

    CString first;
    CString second;
};

const Error kFromRecordSet = MemberError(1, "SetFromRecordSet(CRecordset&,const CString&");
const Error kToRecordSet = MemberError(1, "ConvToRecordSet(CRecordset&,CString&)");

TEST(RecordSet, FieldsThatAreNullClear)
{
    for (const Number& number : Numbers({"0", "0.00", "2.50"})) {
        for (const char* text : {"5", "garbage", ""}) {
            Records records;
            records.first = text;
            records.SetFieldNull(&records.first, TRUE);
            GivenDecimal given(number);
            given.it.SetFromRecordSet(records, records.first);
            EXPECT_EQ(Look(given.it), Cleared(number));
            EXPECT_STREQ(records.first.GetString(), text);
        }
    }
}

TEST(RecordSet, FieldsAreTakenOverUnlessTheNumberIsTheSame)
{
    const struct {
        const char* text;
        const char* number;
    } rows[] = {{"0", "0"},
                {"5.0", "5.0"},
                {"-2.500", "-2.500"},
                {"+7.10", "7.10"},
                {".5", "0.5"},
                {"12.", "12"},
                {"1234567890.123456789", "1234567890.123456789"},
                {kTiny, kTiny},
                {"-9999999999999999999999999999", kSmallest},
                {"9999999999999999999999999999", kLargest}};
    for (const Number& number : Numbers({"0.00", "5", "-2.5"})) {
        for (const auto& row : rows) {
            Records records;
            records.first = row.text;
            records.SetFieldNull(nullptr, TRUE);
            records.SetFieldNull(&records.first, FALSE);
            GivenDecimal given(number);
            given.it.SetFromRecordSet(records, records.first);
            EXPECT_EQ(Look(given.it), Assigned(number, row.number))
                << number << " reads " << row.text;
            EXPECT_STREQ(records.first.GetString(), row.text);
            EXPECT_FALSE(records.IsFieldNull(&records.first));
        }
    }
}

TEST(RecordSet, FieldsCountUpTo38BytesBehindTheirSign)
{
    const std::string zeros = "0." + std::string(35, '0');
    const Number rows[] = {Replaced(Defined("99"), zeros + "7"),
                           Replaced(Defined("99"), zeros + "7"),
                           // a negative number has no more than 27 places
                           Replaced(Defined("99"), "0." + std::string(27, '0'))};
    const char* const signs[] = {"", "+", "-"};
    for (std::size_t i = 0; i < std::size(signs); ++i) {
        Records records;
        records.first = (signs[i] + zeros + "79").c_str();
        records.SetFieldNull(&records.first, FALSE);
        ZelDtDecimal value(99);
        value.SetFromRecordSet(records, records.first);
        EXPECT_EQ(Look(value), rows[i]) << signs[i];
    }
}

TEST(RecordSet, FieldsWithoutDigitsAreZero)
{
    Records records;
    records.SetFieldNull(&records.first, FALSE);
    ZelDtDecimal value("2.50");
    const Caught caught = Catch([&] { value.SetFromRecordSet(records, records.first); });
    EXPECT_EQ(caught.disturbance, "nothing") << caught.error;
    EXPECT_EQ(Look(value), (Number{{ZelDtWmMissing, 1, 1}, "0"}));
}

TEST(RecordSet, FieldsOfTooManyDigitsChangeNothing)
{
    for (const Number& number : Unmodified({"2.50"})) {
        Records records;
        records.first = "10000000000000000000000000000";
        records.SetFieldNull(&records.first, FALSE);
        GivenDecimal given(number);
        EXPECT_TRUE(FailsWith([&] { given.it.SetFromRecordSet(records, records.first); },
                              kFromRecordSet, OverflowError()));
        EXPECT_EQ(Look(given.it), number);
    }
}

TEST(RecordSet, ReceivesDefinedNumbersWithADecimal)
{
    const struct {
        const char* number;
        const char* text;
    } rows[] = {{"0", "0.00"},    {"0.0000", "0.00"},
                {"5", "5.0"},     {"-100", "-100.0"},
                {"1.50", "1.50"}, {"-0.05", "-0.05"},
                {kTiny, kTiny},   {kLargest, "9999999999999999999999999999.0"}};
    for (const State& state : AllStates()) {
        if (!state.defined)
            continue;
        for (const auto& row : rows) {
            for (const BOOL null : {FALSE, TRUE}) {
                Records records;
                records.first = "old";
                records.second = "other";
                records.SetFieldNull(nullptr, null);
                const GivenDecimal given(Number{state, row.number});
                given.it.ConvToRecordSet(records, records.first);
                EXPECT_STREQ(records.first.GetString(), row.text);
                EXPECT_FALSE(records.IsFieldNull(&records.first));
                EXPECT_STREQ(records.second.GetString(), "other");
                EXPECT_EQ(records.IsFieldNull(&records.second), null);
                EXPECT_EQ(Look(given.it), (Number{state, row.number}));
            }
        }
    }
}

TEST(RecordSet, IsMarkedNullForUndefinedValuesAndKeepsTheField)
{
    for (const Number& number : Numbers({"0", "2.50"})) {
        if (number.state.defined)
            continue;
        for (const BOOL null : {FALSE, TRUE}) {
            Records records;
            records.second = "other";
            records.SetFieldNull(nullptr, null);
            const GivenDecimal given(number);
            given.it.ConvToRecordSet(records, records.second);
            EXPECT_STREQ(records.second.GetString(), "other");
            EXPECT_TRUE(records.IsFieldNull(&records.second));
            EXPECT_EQ(records.IsFieldNull(&records.first), null);
            EXPECT_EQ(Look(given.it), number);
        }
    }
}

TEST(RecordSet, KeepsTheBufferOfTheField)
{
    Records records;
    const char* buffer = records.first.GetString();
    ZelDtDecimal("1.50").ConvToRecordSet(records, records.first);
    EXPECT_EQ(records.first.GetString(), buffer);
    EXPECT_STREQ(buffer, "1.50");
}

TEST(RecordSet, ReadsBackWhatItReceived)
{
    for (const char* text : {"0.00", "1.50", "-0.05", kTiny, "-9.999999999999999999999999999"}) {
        Records records;
        ZelDtDecimal(text).ConvToRecordSet(records, records.first);
        ZelDtDecimal back;
        back.SetFromRecordSet(records, records.first);
        EXPECT_TRUE(back == ZelDtDecimal(text)) << text;
    }
}

TEST(RecordSet, RefusesFieldsThatAreNotItsOwn)
{
    Records records;
    CString stranger("5");
    stranger.Preallocate(60);
    ZelDtDecimal value("7.5");
    const Caught read = Catch([&] { value.SetFromRecordSet(records, stranger); });
    EXPECT_TRUE(Matches(read, kFromRecordSet));
    EXPECT_EQ(read.causeClass, "CDBException");
    EXPECT_TRUE(read.hasCause);
    EXPECT_EQ(Look(value), Defined("7.5"));

    const Caught written = Catch([&] { value.ConvToRecordSet(records, stranger); });
    EXPECT_TRUE(Matches(written, kToRecordSet));
    EXPECT_EQ(written.causeClass, "CDBException");
    EXPECT_EQ(Look(value), Defined("7.5"));
}

} // namespace
