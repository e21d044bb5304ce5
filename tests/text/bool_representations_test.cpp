/// SQL, display, external, record set and archive forms of ZelDtBool.

#include "tests/text/character_testing.h"

#include "numeric/DTLONG.h"
#include "platform/formats/ZelFormat.h"

#include <climits>
#include <memory>
#include <string>

namespace {

using namespace zeltest;

const std::vector<int> kSomeNumbers = {0, 1, 2, 5, -1, 0x100, INT_MAX, INT_MIN};

// SQL

TEST(Sql, IsAQuotedDigitOrNull)
{
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const Truth& truth : Truths(kSomeNumbers)) {
            const Given<ZelDtBool> given(truth);
            const ZelDtString sql = given.it.ConvToSQL();
            const std::string expected = !truth.state.defined ? "NULL"
                                         : truth.value != 0   ? "\"1\""
                                                              : "\"0\"";
            EXPECT_EQ(BytesOf(sql), expected) << truth;
            EXPECT_EQ(StateOf(sql), NewDefined()) << truth;
            EXPECT_EQ(sql.GetAllocLength(), static_cast<int>(expected.size())) << truth;
            EXPECT_EQ(Look(given.it), truth);
        }
    }
}

TEST(Sql, ReadsTheTwoDigitsOnly)
{
    for (const Truth& truth : Truths({0, 1, 5})) {
        for (const char character : AllCharacters()) {
            Given<ZelDtBool> given(truth);
            if (character == '0' || character == '1') {
                given.it.SetFromSQL(character);
                EXPECT_EQ(Look(given.it), Taken(truth, character - '0')) << truth;
                continue;
            }
            EXPECT_TRUE(FailsWith(
                [&] { given.it.SetFromSQL(character); },
                Error{5, "DTBOOL", "ZelDtBool", "VOID  ZelDtBool::SetFromSQL ( TCHAR chSQL )"}))
                << static_cast<int>(character);
            EXPECT_EQ(Look(given.it), truth) << static_cast<int>(character);
        }
    }
}

// Display

/// A format that counts its calls and knows one text and one number.
class SpyFormat : public ZelFormat {
public:
    explicit SpyFormat(const char* shown) : ZelFormat(ZelFoStandard), m_shown(shown) {}

    void FormatBool(BOOL value, CString& text) const override
    {
        ++shows;
        seenValue = value;
        text = m_shown;
    }
    void ParseBool(const CString& text, BOOL* value) const override
    {
        ++reads;
        seenText = text.GetString();
        seenValue = *value;
        *value = parsed;
    }

    int parsed = 0;
    mutable int shows = 0;
    mutable int reads = 0;
    mutable int seenValue = INT_MIN;
    mutable std::string seenText;

private:
    const char* m_shown;
};

/// A format that fails half-way with something that is no error of the library.
class BrokenFormat : public ZelFormat {
public:
    BrokenFormat() : ZelFormat(ZelFoStandard) {}
    void FormatBool(BOOL, CString&) const override { throw 42; }
    void ParseBool(const CString&, BOOL* value) const override
    {
        *value = 42;
        throw 42;
    }
};

/// A format of a kind that serves no booleans.
ZelFormat DateFormat()
{
    return ZelFormat(ZelFormat::ZelFoDatum, ZelFormat::ZelFoDatumPunkt,
                     ZelFormat::ZelFoJahrVierstellig, ZelFormat::ZelFoMonatZahl, 1, '0');
}

TEST(Display, OfUndefinedValuesIsEmptyAndAsksNoFormat)
{
    const SpyFormat passed("passed");
    const SpyFormat own("own");
    for (const Truth& truth : Truths({0, 5})) {
        if (truth.state.defined)
            continue;
        Given<ZelDtBool> given(truth);
        EXPECT_EQ(BytesOf(given.it.ConvToOFL(nullptr)), "");
        given.it.SetFormat(&own);
        EXPECT_EQ(BytesOf(given.it.ConvToOFL(&passed)), "");
        EXPECT_EQ(BytesOf(given.it.ConvToOFL(nullptr)), "");
        EXPECT_EQ(Look(given.it), truth);
    }
    EXPECT_EQ(passed.shows + own.shows, 0);
}

TEST(Display, TakesThePassedFormatThenItsOwnThenTheDefault)
{
    for (const Truth& truth : Truths({0, 1, 5, -1})) {
        if (!truth.state.defined)
            continue;
        const SpyFormat passed("passed");
        const SpyFormat own("own");
        Given<ZelDtBool> given(truth);
        EXPECT_EQ(BytesOf(given.it.ConvToOFL(&passed)), "passed");
        EXPECT_EQ(BytesOf(given.it.ConvToOFL(nullptr)), truth.value != 0 ? "Ja" : "Nein");
        given.it.SetFormat(&own);
        EXPECT_EQ(BytesOf(given.it.ConvToOFL(&passed)), "passed");
        EXPECT_EQ(BytesOf(given.it.ConvToOFL(nullptr)), "own");
        EXPECT_EQ(passed.shows, 2);
        EXPECT_EQ(own.shows, 1);
        EXPECT_EQ(passed.seenValue, truth.value);
        EXPECT_EQ(own.seenValue, truth.value);
        EXPECT_EQ(given.it.GetFormat(), &own);
        EXPECT_EQ(Look(given.it), truth);
    }
}

TEST(Display, ByTheModes)
{
    const ZelFormat standard(ZelFormat::ZelFoStandard);
    const ZelFormat technical(ZelFormat::ZelFoTechnisch);
    for (const int number : kSomeNumbers) {
        const ZelDtBool value(number);
        EXPECT_EQ(BytesOf(value.ConvToOFL(&standard)), number != 0 ? "Ja" : "Nein");
        EXPECT_EQ(BytesOf(value.ConvToOFL(&technical)), number != 0 ? "1" : "0");
    }
}

TEST(Display, FailuresOfTheFormatAreFollowUpErrors)
{
    const ZelFormat date = DateFormat();
    const ZelDtBool value(5);
    EXPECT_TRUE(FailsBehind([&] { value.ConvToOFL(&date); }, kBoolOrigin, 20, "ZelFormat"));
    const BrokenFormat broken;
    const Caught foreign = Catch([&] { value.ConvToOFL(&broken); });
    EXPECT_TRUE(Matches(foreign, 1, kBoolOrigin));
    EXPECT_EQ(foreign.depth, 0U);
    EXPECT_EQ(Look(value), (Truth{NewDefined(), 5}));
}

TEST(TypedTexts, OfNothingClearAndAskNoFormat)
{
    const SpyFormat spy("");
    for (const Truth& truth : Truths({0, 5})) {
        for (const char* nothing : {static_cast<const char*>(nullptr), ""}) {
            for (const ZelFormat* own :
                 {static_cast<const ZelFormat*>(&spy), static_cast<const ZelFormat*>(nullptr)}) {
                for (const ZelFormat* passed : {static_cast<const ZelFormat*>(&spy),
                                                static_cast<const ZelFormat*>(nullptr)}) {
                    Given<ZelDtBool> given(truth);
                    given.it.SetFormat(own);
                    given.it.SetFromOFL(nothing, passed);
                    EXPECT_EQ(Look(given.it), Cleared(truth)) << truth;
                }
            }
        }
    }
    EXPECT_EQ(spy.reads, 0);
}

TEST(TypedTexts, StoreWhatTheFormatReads)
{
    for (const Truth& truth : Truths({0, 1, 5})) {
        for (const int number : kSomeNumbers) {
            SpyFormat spy("");
            spy.parsed = number;
            Given<ZelDtBool> given(truth);
            given.it.SetFromOFL(" typed ", &spy);
            EXPECT_EQ(Look(given.it), Taken(truth, number)) << truth << " reads " << number;
            EXPECT_EQ(spy.reads, 1);
            EXPECT_EQ(spy.seenText, " typed ");
            EXPECT_EQ(spy.seenValue, truth.value) << "the format sees the stored number";
        }
    }
}

TEST(TypedTexts, TakeThePassedFormatThenTheOwnThenTheDefault)
{
    SpyFormat passed("");
    SpyFormat own("");
    passed.parsed = 3;
    own.parsed = 4;
    ZelDtBool value;
    value.SetFormat(&own);
    value.SetFromOFL("Nein", &passed);
    EXPECT_EQ(value.GetValue(), 3);
    value.SetFromOFL("Nein", nullptr);
    EXPECT_EQ(value.GetValue(), 4);
    value.SetFormat(nullptr);
    value.SetFromOFL("Nein", nullptr);
    EXPECT_EQ(value.GetValue(), 0);
    EXPECT_EQ(passed.reads, 1);
    EXPECT_EQ(own.reads, 1);
}

TEST(TypedTexts, ByTheDefaultFormat)
{
    // A number that is true already stays as it is.
    for (const Truth& truth : Truths({0, 1, 5})) {
        for (const char* yes : {"Ja", "JA", "ja", "jA", "J", "j", "1", " Ja ", "\tj"}) {
            Given<ZelDtBool> given(truth);
            given.it.SetFromOFL(yes, nullptr);
            EXPECT_EQ(Look(given.it), Taken(truth, truth.value != 0 ? truth.value : 1)) << yes;
        }
        for (const char* no : {"Nein", "NEIN", "nein", "nEiN", "N", "n", "0", " Nein "}) {
            Given<ZelDtBool> given(truth);
            given.it.SetFromOFL(no, nullptr);
            EXPECT_EQ(Look(given.it), Taken(truth, 0)) << no;
        }
    }
}

TEST(TypedTexts, ThatTheFormatRejectsChangeNothing)
{
    const ZelFormat date = DateFormat();
    const BrokenFormat broken;
    for (const Truth& truth : Truths({0, 5})) {
        for (const char* text : {"x", " ", "Jaa", "true", "2", "Ja Nein", "N\xE4"}) {
            Given<ZelDtBool> given(truth);
            EXPECT_TRUE(FailsBehind([&] { given.it.SetFromOFL(text, nullptr); }, kBoolOrigin, 21,
                                    "ZelFormat"))
                << text;
            EXPECT_EQ(Look(given.it), truth) << text;
        }
        Given<ZelDtBool> given(truth);
        EXPECT_TRUE(
            FailsBehind([&] { given.it.SetFromOFL("Ja", &date); }, kBoolOrigin, 20, "ZelFormat"));
        EXPECT_EQ(Look(given.it), truth);
        EXPECT_TRUE(FailsWith([&] { given.it.SetFromOFL("Ja", &broken); }, 1, kBoolOrigin));
        EXPECT_EQ(Look(given.it), truth);
    }
}

TEST(TypedTexts, ReadBackWhatIsShown)
{
    const ZelFormat technical(ZelFormat::ZelFoTechnisch);
    for (const int number : kSomeNumbers) {
        for (const ZelFormat* format : {&technical, static_cast<const ZelFormat*>(nullptr)}) {
            ZelDtBool back(ZelDtWmNull);
            back.SetFromOFL(ZelDtBool(number).ConvToOFL(format), format);
            EXPECT_EQ(back.GetValue(), number != 0 ? 1 : 0);
        }
    }
}

// External text

Error FromExternError(unsigned long number)
{
    return {number, "DTBOOL", "ZelDtBool",
            "void ZelDtBool::SetFromExtern ( const DtString * pExternData, BOOL "
            "fDefiniert,USHORT usVersion)"};
}

TEST(ExternalText, IsALetterOfVersion100)
{
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const Truth& truth : Truths(kSomeNumbers)) {
            const Given<ZelDtBool> given(truth);
            for (const int before : {-1, 0, 1}) {
                int defined = before;
                unsigned short version = 4711;
                const ZelDtString text = given.it.ConvToExtern(defined, version);
                EXPECT_EQ(defined, truth.state.defined) << truth;
                EXPECT_EQ(version, 100) << truth;
                EXPECT_EQ(BytesOf(text), !truth.state.defined ? ""
                                         : truth.value != 0   ? "J"
                                                              : "N")
                    << truth;
                EXPECT_EQ(StateOf(text),
                          truth.state.defined ? NewDefined() : NewUndefined(standard))
                    << truth;
            }
            EXPECT_EQ(Look(given.it), truth);
        }
    }
}

TEST(ExternalText, SetsTheNumberOnlyWhereItTellsOtherwise)
{
    const StringPtr withNul = Make(Raw("J\0"));
    struct Row {
        ZelDtString text;
        int fromNo;  ///< what becomes of 0
        int fromYes; ///< what becomes of 5
    };
    const Row rows[] = {{"J", 1, 5},  {"N", 0, 0},    {"j", 0, 5},      {"n", 0, 5}, {"", 0, 5},
                        {"Ja", 0, 5}, {"Nein", 0, 5}, {"1", 0, 5},      {"0", 0, 5}, {" J", 0, 5},
                        {"N ", 0, 5}, {"JN", 0, 5},   {*withNul, 0, 5}, {"x", 0, 5}};
    for (const Row& row : rows) {
        for (const Truth& truth : Truths({0, 5})) {
            Given<ZelDtBool> given(truth);
            given.it.SetFromExtern(&row.text, 1, 100);
            EXPECT_EQ(Look(given.it), Taken(truth, truth.value == 0 ? row.fromNo : row.fromYes))
                << truth << " reads " << Escaped(BytesOf(row.text));
        }
    }
}

TEST(ExternalText, MayBeAnUnmodifiedTextOfAnyMode)
{
    for (const ZelDtWorkingMode mode : kRealModes) {
        const StringPtr text = Make({mode, "J"});
        ZelDtBool value(ZelDtWmNull);
        value.SetFromExtern(text.get(), 1, 100);
        EXPECT_EQ(Look(value), (Truth{{ZelDtWmNull, 1, 1}, 1}));
        EXPECT_EQ(ContentOf(*text), (Content{"J", 1, 0}));
    }
}

TEST(ExternalText, OfAnotherVersionIsAnErrorThatChangesNothing)
{
    const ZelDtString text("J");
    const ZelDtString undefined(ZelDtWmMissing);
    for (const Truth& truth : Truths({0, 5})) {
        for (const unsigned short version : {0, 1, 99, 101, 200, 65535}) {
            for (const int defined : {0, 1, 2, -1}) {
                for (const ZelDtString* p :
                     {&text, &undefined, static_cast<const ZelDtString*>(nullptr)}) {
                    Given<ZelDtBool> given(truth);
                    EXPECT_TRUE(FailsWith([&] { given.it.SetFromExtern(p, defined, version); },
                                          FromExternError(14)))
                        << version;
                    EXPECT_EQ(Look(given.it), truth);
                }
            }
        }
    }
}

TEST(ExternalText, ClearsWhenUndefinedOrAbsent)
{
    const ZelDtString text("J");
    const ZelDtString garbage("garbage");
    const ZelDtString undefined(ZelDtWmMissing);
    const struct {
        const ZelDtString* text;
        int defined;
    } rows[] = {{&text, 0},       {&garbage, 0},   {&undefined, 0}, {nullptr, 0},
                {nullptr, 1},     {&text, 2},      {&text, -1},     {&text, INT_MAX},
                {&text, INT_MIN}, {&garbage, 256}, {nullptr, -1},   {&undefined, 2}};
    for (const Truth& truth : Truths({0, 5})) {
        for (const auto& row : rows) {
            Given<ZelDtBool> given(truth);
            given.it.SetFromExtern(row.text, row.defined, 100);
            EXPECT_EQ(Look(given.it), Cleared(truth)) << truth << ", defined " << row.defined;
        }
    }
}

TEST(ExternalText, ThatIsUndefinedThoughDefinedIsInconsistent)
{
    for (const ZelDtWorkingMode mode : {ZelDtWmMissing, ZelDtWmNull}) {
        const ZelDtString undefined(mode);
        const StringPtr leftover = Make({mode, "J"});
        Undefine(*leftover);
        for (const ZelDtString* text : {&undefined, static_cast<const ZelDtString*>(&*leftover)}) {
            for (const Truth& truth : Truths({0, 5})) {
                Given<ZelDtBool> given(truth);
                EXPECT_TRUE(
                    FailsWith([&] { given.it.SetFromExtern(text, 1, 100); }, FromExternError(13)));
                // The text is looked at before anything changes.
                EXPECT_EQ(Look(given.it), truth);
            }
        }
    }
}

TEST(ExternalText, RoundTripsEveryState)
{
    for (const Truth& truth : Truths({0, 1, 5})) {
        const Given<ZelDtBool> given(truth);
        int defined = -1;
        unsigned short version = 0;
        const ZelDtString text = given.it.ConvToExtern(defined, version);
        ZelDtBool back(ZelDtWmNull);
        back.SetFromExtern(&text, defined, version);
        EXPECT_EQ(back.IsDefined(), truth.state.defined);
        EXPECT_EQ(back.GetValue(), truth.state.defined && truth.value != 0 ? 1 : 0);
    }
}

// Record set

/// A record with two booleans and a text; its marks work without a database.
class Records : public CRecordset {
public:
    Records() { m_nFields = 3; }
    void DoFieldExchange(CFieldExchange* pFX) override
    {
        pFX->SetFieldType(CFieldExchange::outputColumn);
        RFX_Bool(pFX, "FIRST", first);
        RFX_Bool(pFX, "SECOND", second);
        RFX_Text(pFX, "NAME", name, 20);
    }

    BOOL first = 0;
    BOOL second = 0;
    CString name;
};

TEST(RecordSet, FieldsThatAreNullClear)
{
    for (const Truth& truth : Truths({0, 5})) {
        Records records;
        records.first = 1;
        records.SetFieldNull(&records.first, TRUE);
        Given<ZelDtBool> given(truth);
        given.it.SetFromRecordSet(records, records.first);
        EXPECT_EQ(Look(given.it), Cleared(truth));
        EXPECT_EQ(records.first, 1);
    }
}

TEST(RecordSet, FieldsAreTakenOverAsTheyAre)
{
    for (const Truth& truth : Truths({0, 1, 5})) {
        for (const int number : kSomeNumbers) {
            Records records;
            records.first = number;
            records.SetFieldNull(nullptr, TRUE);
            records.SetFieldNull(&records.first, FALSE);
            Given<ZelDtBool> given(truth);
            given.it.SetFromRecordSet(records, records.first);
            EXPECT_EQ(Look(given.it), Taken(truth, number)) << truth << " reads " << number;
            EXPECT_EQ(records.first, number);
            EXPECT_FALSE(records.IsFieldNull(&records.first));
        }
    }
}

TEST(RecordSet, ReceivesDefinedNumbersAsTheyAre)
{
    for (const Truth& truth : Truths(kSomeNumbers)) {
        if (!truth.state.defined)
            continue;
        for (const BOOL null : {FALSE, TRUE}) {
            Records records;
            records.first = 99;
            records.second = 98;
            records.SetFieldNull(nullptr, null);
            const Given<ZelDtBool> given(truth);
            given.it.ConvToRecordSet(records, records.first);
            EXPECT_EQ(records.first, truth.value) << truth;
            EXPECT_FALSE(records.IsFieldNull(&records.first));
            EXPECT_EQ(records.second, 98);
            EXPECT_EQ(records.IsFieldNull(&records.second), null);
            EXPECT_EQ(Look(given.it), truth);
        }
    }
}

TEST(RecordSet, IsMarkedNullForUndefinedValuesAndKeepsTheField)
{
    for (const Truth& truth : Truths({0, 5})) {
        if (truth.state.defined)
            continue;
        for (const BOOL null : {FALSE, TRUE}) {
            Records records;
            records.second = 99;
            records.SetFieldNull(nullptr, null);
            const Given<ZelDtBool> given(truth);
            given.it.ConvToRecordSet(records, records.second);
            EXPECT_EQ(records.second, 99);
            EXPECT_TRUE(records.IsFieldNull(&records.second));
            EXPECT_EQ(records.IsFieldNull(&records.first), null);
            EXPECT_EQ(Look(given.it), truth);
        }
    }
}

TEST(RecordSet, RefusesFieldsThatAreNotItsOwn)
{
    Records records;
    int stranger = 1;
    ZelDtBool value(5);
    EXPECT_TRUE(FailsBehind([&] { value.SetFromRecordSet(records, stranger); }, kBoolOrigin,
                            "CDBException"));
    EXPECT_TRUE(FailsBehind([&] { value.ConvToRecordSet(records, stranger); }, kBoolOrigin,
                            "CDBException"));
    EXPECT_EQ(Look(value), (Truth{NewDefined(), 5}));
}

} // namespace
