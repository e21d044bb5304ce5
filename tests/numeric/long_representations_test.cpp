/// SQL, display, external and record set forms of ZelDtLong.

#include "tests/numeric/long_testing.h"

#include "platform/formats/ZelFormat.h"
#include "text/DTSTRING.h"

#include <string>

namespace {

using namespace zeltest;

const std::vector<int> kValues = {0, 7, -12, kMax, kMin};

std::string TextOf(const ZelDtString& text)
{
    return static_cast<const char*>(text);
}

// SQL

TEST(Sql, IsTheDigitsOrNull)
{
    for (const Number& number : Numbers(kValues)) {
        const Given given(number);
        const ZelDtString sql = given.it.ConvToSQL();
        EXPECT_EQ(TextOf(sql), number.state.defined ? std::to_string(number.value) : "NULL")
            << number;
        EXPECT_EQ(sql.IsDefined(), 1) << number;
        EXPECT_EQ(Look(given.it), number);
    }
}

TEST(Sql, OfKnownNumbers)
{
    EXPECT_EQ(TextOf(ZelDtLong(0).ConvToSQL()), "0");
    EXPECT_EQ(TextOf(ZelDtLong(-5).ConvToSQL()), "-5");
    EXPECT_EQ(TextOf(ZelDtLong(1234567).ConvToSQL()), "1234567");
    EXPECT_EQ(TextOf(ZelDtLong(kMax).ConvToSQL()), "2147483647");
    EXPECT_EQ(TextOf(ZelDtLong(kMin).ConvToSQL()), "-2147483648");
    EXPECT_EQ(TextOf(ZelDtLong(ZelDtWmMissing).ConvToSQL()), "NULL");
    EXPECT_EQ(TextOf(ZelDtLong(ZelDtWmNull).ConvToSQL()), "NULL");
    EXPECT_EQ(TextOf(ZelDtLong(ZelDtWmAlwaysDefined).ConvToSQL()), "0");
}

// Display

/// A format that counts its calls and knows one text and one number.
class SpyFormat : public ZelFormat {
public:
    explicit SpyFormat(const char* shown) : ZelFormat(ZelFoStandard), m_shown(shown) {}

    void FormatLong(std::int32_t value, CString& text) const override
    {
        ++shows;
        seenValue = value;
        text = m_shown;
    }
    void ParseLong(const CString& text, std::int32_t* value) const override
    {
        ++reads;
        seenText = text.GetString();
        *value = parsed;
    }

    std::int32_t parsed = 0;
    mutable int shows = 0;
    mutable int reads = 0;
    mutable std::int32_t seenValue = 0;
    mutable std::string seenText;

private:
    const char* m_shown;
};

/// A format that fails with something that is no error of the library.
class BrokenFormat : public ZelFormat {
public:
    BrokenFormat() : ZelFormat(ZelFoStandard) {}
    void FormatLong(std::int32_t, CString&) const override { throw 42; }
    void ParseLong(const CString&, std::int32_t*) const override { throw 42; }
};

TEST(Display, OfUndefinedValuesIsEmptyAndAsksNoFormat)
{
    const SpyFormat passed("passed");
    const SpyFormat own("own");
    for (const Number& number : Numbers({0, 7})) {
        if (number.state.defined)
            continue;
        Given given(number);
        given.it.SetFormat(&own);
        EXPECT_TRUE(given.it.ConvToOFL(&passed).IsEmpty());
        EXPECT_TRUE(given.it.ConvToOFL(nullptr).IsEmpty());
        EXPECT_EQ(Look(given.it), number);
    }
    EXPECT_EQ(passed.shows + own.shows, 0);
}

TEST(Display, TakesThePassedFormatThenItsOwnThenTheDefault)
{
    for (const Number& number : Numbers({7})) {
        if (!number.state.defined)
            continue;
        const SpyFormat passed("passed");
        const SpyFormat own("own");
        Given given(number);
        EXPECT_STREQ(given.it.ConvToOFL(&passed).GetString(), "passed");
        EXPECT_STREQ(given.it.ConvToOFL(nullptr).GetString(), "7");
        given.it.SetFormat(&own);
        EXPECT_STREQ(given.it.ConvToOFL(&passed).GetString(), "passed");
        EXPECT_STREQ(given.it.ConvToOFL(nullptr).GetString(), "own");
        EXPECT_EQ(passed.shows, 2);
        EXPECT_EQ(own.shows, 1);
        EXPECT_EQ(passed.seenValue, 7);
        EXPECT_EQ(own.seenValue, 7);
        EXPECT_EQ(given.it.GetFormat(), &own);
        EXPECT_EQ(Look(given.it), number);
    }
}

TEST(Display, ByTheDefaultFormatIsTheDigits)
{
    for (const int value : {0, 1, -1, -12, 1000, 1234567, kMax, kMin})
        EXPECT_EQ(std::string(ZelDtLong(value).ConvToOFL(nullptr).GetString()),
                  std::to_string(value));
}

TEST(Display, ByAGivenFormat)
{
    const ZelFormat grouped(0, 0, ZelFormat::ZelFoDezimalOhne, ZelFormat::ZelFoTausenderPunkt,
                            ZelFormat::ZelFoVorzeichenVorne, ZelFormat::ZelFoNurMinus, 0, '0', 0,
                            '0');
    EXPECT_STREQ(ZelDtLong(-1234567).ConvToOFL(&grouped).GetString(), "-1.234.567");
    ZelDtLong value;
    value.SetFromOFL("-1.234.567", &grouped);
    EXPECT_EQ(value.GetValue(), -1234567);
}

TEST(Display, FailuresOfTheFormatAreFollowUpErrors)
{
    // Four places do not hold the number.
    const ZelFormat narrow(4, 0, ZelFormat::ZelFoDezimalOhne, ZelFormat::ZelFoTausenderOhne,
                           ZelFormat::ZelFoVorzeichenVorne, ZelFormat::ZelFoNurMinus, 0, '0', 0,
                           '0');
    const ZelDtLong value(12345);
    const Caught caught = Catch([&] { value.ConvToOFL(&narrow); });
    EXPECT_TRUE(Matches(caught, LongError(1, caught.error.signature)));
    EXPECT_EQ(caught.error.signature.rfind("ConvToOFL(", 0), 0u) << caught.error;
    EXPECT_EQ(caught.first.number, 20u);

    const BrokenFormat broken;
    const Caught foreign = Catch([&] { value.ConvToOFL(&broken); });
    EXPECT_TRUE(Matches(foreign, LongError(1, caught.error.signature)));
    EXPECT_EQ(foreign.depth, 0u);
    EXPECT_EQ(Look(value), Defined(12345));
}

TEST(TypedTexts, OfNothingClearAndAskNoFormat)
{
    const SpyFormat spy("");
    for (const Number& number : Numbers({0, 7})) {
        for (const char* nothing : {static_cast<const char*>(nullptr), ""}) {
            Given given(number);
            given.it.SetFormat(&spy);
            given.it.SetFromOFL(nothing, &spy);
            EXPECT_EQ(Look(given.it), Cleared(number));
            Given second(number);
            second.it.SetFormat(&spy);
            second.it.SetFromOFL(nothing, nullptr);
            EXPECT_EQ(Look(second.it), Cleared(number));
        }
    }
    EXPECT_EQ(spy.reads, 0);
}

TEST(TypedTexts, StoreWhatTheFormatReads)
{
    for (const Number& number : Numbers({0, 7})) {
        for (const int value : {0, 7, kMin}) {
            SpyFormat spy("");
            spy.parsed = value;
            Given given(number);
            given.it.SetFromOFL("typed", &spy);
            EXPECT_EQ(Look(given.it), Assigned(number, value)) << number << " reads " << value;
            EXPECT_EQ(spy.reads, 1);
            EXPECT_EQ(spy.seenText, "typed");
        }
    }
}

TEST(TypedTexts, TakeThePassedFormatThenTheOwnThenTheDefault)
{
    SpyFormat passed("");
    SpyFormat own("");
    passed.parsed = 1;
    own.parsed = 2;
    ZelDtLong value;
    value.SetFormat(&own);
    value.SetFromOFL("99", &passed);
    EXPECT_EQ(value.GetValue(), 1);
    value.SetFromOFL("99", nullptr);
    EXPECT_EQ(value.GetValue(), 2);
    value.SetFormat(nullptr);
    value.SetFromOFL("99", nullptr);
    EXPECT_EQ(value.GetValue(), 99);
    EXPECT_EQ(passed.reads, 1);
    EXPECT_EQ(own.reads, 1);
}

TEST(TypedTexts, ByTheDefaultFormat)
{
    const struct {
        const char* text;
        int value;
    } rows[] = {{"0", 0},
                {"12", 12},
                {"-12", -12},
                {"+12", 12},
                {"12-", -12},
                {" 12 ", 12},
                {"1.234.567", 1234567},
                {"007", 7},
                {"2147483647", kMax},
                {"-2147483648", kMin}};
    for (const auto& row : rows) {
        ZelDtLong value(99);
        value.SetFromOFL(row.text, nullptr);
        EXPECT_EQ(value.GetValue(), row.value) << row.text;
    }
}

TEST(TypedTexts, ThatTheFormatRejectsChangeNothing)
{
    const struct {
        const char* text;
        unsigned long cause;
    } rows[] = {{"x", 21},     {" ", 21},         {"1,5", 21},        {"1x", 21},       {"--1", 21},
                {"12.34", 21}, {"2147483648", 8}, {"-2147483649", 8}, {"9999999999", 8}};
    for (const auto& row : rows) {
        for (const Number& number : Numbers({7})) {
            Given given(number);
            const Caught caught = Catch([&] { given.it.SetFromOFL(row.text, nullptr); });
            EXPECT_TRUE(Matches(caught, LongError(1, caught.error.signature))) << row.text;
            EXPECT_EQ(caught.error.signature.rfind("SetFromOFL(", 0), 0u) << caught.error;
            EXPECT_EQ(caught.first.number, row.cause) << row.text;
            EXPECT_EQ(caught.first.classText, "ZelFormat") << row.text;
            EXPECT_EQ(Look(given.it), number) << row.text;
        }
    }
    const BrokenFormat broken;
    ZelDtLong value(7);
    const Caught foreign = Catch([&] { value.SetFromOFL("1", &broken); });
    EXPECT_TRUE(Matches(foreign, LongError(1, foreign.error.signature)));
    EXPECT_EQ(Look(value), Defined(7));
}

// External text

const Error kInconsistent = LongError(13, "SetFromExtern(ZelDtString*,BOOL,USHORT)");
const Error kWrongVersion = LongError(14, "SetFromExtern(ZelDtString*,BOOL,USHORT)");

TEST(ExternalText, IsTheStoredNumberWithFlagAndVersion)
{
    for (const Number& number : Numbers(kValues)) {
        const Given given(number);
        for (const int before : {-1, 0, 1}) {
            int defined = before;
            unsigned short version = 4711;
            const ZelDtString text = given.it.ConvToExtern(defined, version);
            EXPECT_EQ(TextOf(text), std::to_string(number.value)) << number;
            EXPECT_EQ(defined, number.state.defined) << number;
            EXPECT_EQ(version, 100) << number;
        }
        EXPECT_EQ(Look(given.it), number);
    }
    int defined = 1;
    unsigned short version = 0;
    EXPECT_EQ(TextOf(ZelDtLong(ZelDtWmNull).ConvToExtern(defined, version)), "0");
    EXPECT_EQ(defined, 0);
}

TEST(ExternalText, OfAnotherVersionIsAnErrorThatChangesNothing)
{
    const ZelDtString text("5");
    const ZelDtString undefined(ZelDtWmMissing);
    for (const Number& number : Numbers({7})) {
        for (const unsigned short version : {0, 1, 99, 101, 200, 65535}) {
            for (const int defined : {0, 1}) {
                for (const ZelDtString* p :
                     {&text, &undefined, static_cast<const ZelDtString*>(nullptr)}) {
                    Given given(number);
                    EXPECT_TRUE(FailsWith([&] { given.it.SetFromExtern(p, defined, version); },
                                          kWrongVersion))
                        << version;
                    EXPECT_EQ(Look(given.it), number);
                }
            }
        }
    }
}

TEST(ExternalText, IsReadWhenDefined)
{
    for (const Number& number : Numbers({0, 7})) {
        for (const int value : {0, 7, kMin, kMax}) {
            const ZelDtString text(std::to_string(value).c_str());
            Given given(number);
            given.it.SetFromExtern(&text, 1, 100);
            EXPECT_EQ(Look(given.it), Assigned(number, value)) << number << " reads " << value;
        }
    }
}

TEST(ExternalText, ClearsWhenUndefinedOrAbsent)
{
    const ZelDtString text("5");
    const ZelDtString garbage("garbage");
    const ZelDtString undefined(ZelDtWmMissing);
    const struct {
        const ZelDtString* text;
        int defined;
    } rows[] = {{&text, 0}, {&garbage, 0}, {&undefined, 0}, {nullptr, 0}, {nullptr, 1},
                {&text, 2}, {&text, -1},   {&garbage, 256}, {nullptr, -1}};
    for (const Number& number : Numbers({0, 7})) {
        for (const auto& row : rows) {
            Given given(number);
            given.it.SetFromExtern(row.text, row.defined, 100);
            EXPECT_EQ(Look(given.it), Cleared(number)) << number << ", defined " << row.defined;
        }
    }
}

TEST(ExternalText, ThatIsUndefinedThoughDefinedIsInconsistent)
{
    for (const ZelDtWorkingMode mode : {ZelDtWmMissing, ZelDtWmNull}) {
        const ZelDtString undefined(mode);
        for (const Number& number : Numbers({0, 7})) {
            Given given(number);
            EXPECT_TRUE(
                FailsWith([&] { given.it.SetFromExtern(&undefined, 1, 100); }, kInconsistent));
            // The value became defined before the text was looked at.
            Number expected = number;
            SetDefined(expected, 1);
            EXPECT_EQ(Look(given.it), expected);
        }
    }
}

TEST(ExternalText, ThatCannotBeReadLeavesTheNumber)
{
    const ZelDtString text("12x");
    for (const Number& number : Numbers({0, 7})) {
        Given given(number);
        EXPECT_TRUE(FailsWith([&] { given.it.SetFromExtern(&text, 1, 100); },
                              LongError(1, "SetFromExtern(ZelDtString*,BOOL,USHORT)"),
                              ImpError(5, "FromString(LPCTSTR)")));
        Number expected = number;
        SetDefined(expected, 1);
        EXPECT_EQ(Look(given.it), expected);
    }
}

TEST(ExternalText, RoundTripsEveryState)
{
    for (const Number& number : Numbers(kValues)) {
        const Given given(number);
        int defined = -1;
        unsigned short version = 0;
        const ZelDtString text = given.it.ConvToExtern(defined, version);
        ZelDtLong back(ZelDtWmNull);
        back.SetFromExtern(&text, defined, version);
        EXPECT_EQ(back.IsDefined(), number.state.defined);
        EXPECT_EQ(static_cast<long>(back), number.state.defined ? number.value : 0);
    }
}

// Record set

/// A record with two numbers and a text; its marks work without a database.
class Records : public CRecordset {
public:
    Records() { m_nFields = 3; }
    void DoFieldExchange(CFieldExchange* pFX) override
    {
        pFX->SetFieldType(CFieldExchange::outputColumn);
        RFX_Long(pFX, "FIRST", first);
        RFX_Long(pFX, "SECOND", second);
        RFX_Text(pFX, "NAME", name, 20);
    }

    long first = 0;
    long second = 0;
    CString name;
};

TEST(RecordSet, FieldsThatAreNullClear)
{
    for (const Number& number : Numbers({0, 7})) {
        Records records;
        records.first = 5;
        records.SetFieldNull(&records.first, TRUE);
        Given given(number);
        given.it.SetFromRecordSet(records, records.first);
        EXPECT_EQ(Look(given.it), Cleared(number));
    }
}

TEST(RecordSet, FieldsAreTakenOver)
{
    for (const Number& number : Numbers({0, 7})) {
        for (const int value : {0, 7, kMin, kMax}) {
            Records records;
            records.first = value;
            records.SetFieldNull(nullptr, TRUE);
            records.SetFieldNull(&records.first, FALSE);
            Given given(number);
            given.it.SetFromRecordSet(records, records.first);
            EXPECT_EQ(Look(given.it), Assigned(number, value)) << number << " reads " << value;
            EXPECT_EQ(records.first, value);
            EXPECT_FALSE(records.IsFieldNull(&records.first));
        }
    }
}

TEST(RecordSet, FieldsOutside32BitsAreAnErrorThatChangesNothing)
{
    if constexpr (sizeof(long) > 4) {
        for (const Number& number : Numbers({7})) {
            Records records;
            records.first = static_cast<long>(std::int64_t{1} << 32);
            records.SetFieldNull(&records.first, FALSE);
            Given given(number);
            const Caught caught = Catch([&] { given.it.SetFromRecordSet(records, records.first); });
            EXPECT_TRUE(Matches(caught, LongError(8, caught.error.signature)));
            EXPECT_EQ(Look(given.it), number);
        }
    }
}

TEST(RecordSet, ReceivesDefinedNumbers)
{
    for (const Number& number : Numbers(kValues)) {
        if (!number.state.defined)
            continue;
        for (const BOOL null : {FALSE, TRUE}) {
            Records records;
            records.first = 99;
            records.second = 98;
            records.SetFieldNull(nullptr, null);
            const Given given(number);
            given.it.ConvToRecordSet(records, records.first);
            EXPECT_EQ(records.first, number.value);
            EXPECT_FALSE(records.IsFieldNull(&records.first));
            EXPECT_EQ(records.second, 98);
            EXPECT_EQ(records.IsFieldNull(&records.second), null);
            EXPECT_EQ(Look(given.it), number);
        }
    }
}

TEST(RecordSet, IsMarkedNullForUndefinedValuesAndKeepsTheField)
{
    for (const Number& number : Numbers({0, 7})) {
        if (number.state.defined)
            continue;
        for (const BOOL null : {FALSE, TRUE}) {
            Records records;
            records.second = 99;
            records.SetFieldNull(nullptr, null);
            const Given given(number);
            given.it.ConvToRecordSet(records, records.second);
            EXPECT_EQ(records.second, 99);
            EXPECT_TRUE(records.IsFieldNull(&records.second));
            EXPECT_EQ(records.IsFieldNull(&records.first), null);
            EXPECT_EQ(Look(given.it), number);
        }
    }
}

TEST(RecordSet, RefusesFieldsThatAreNotItsOwn)
{
    Records records;
    long stranger = 5;
    ZelDtLong value(7);
    const Caught read = Catch([&] { value.SetFromRecordSet(records, stranger); });
    EXPECT_TRUE(Matches(read, LongError(1, read.error.signature)));
    EXPECT_EQ(read.error.signature.rfind("SetFromRecordSet(", 0), 0u) << read.error;
    EXPECT_EQ(read.causeClass, "CDBException");
    EXPECT_TRUE(read.hasCause);
    EXPECT_EQ(Look(value), Defined(7));

    const Caught written = Catch([&] { value.ConvToRecordSet(records, stranger); });
    EXPECT_TRUE(Matches(written, LongError(1, written.error.signature)));
    EXPECT_EQ(written.error.signature.rfind("ConvToRecordSet(", 0), 0u) << written.error;
    EXPECT_EQ(written.causeClass, "CDBException");
    EXPECT_EQ(Look(value), Defined(7));
}

} // namespace
