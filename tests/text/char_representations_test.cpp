/// SQL, display, external and record set forms of ZelDtChar.

#include "tests/support/oem_tables.h"
#include "tests/text/character_testing.h"

#include "platform/formats/ZelFormat.h"

#include <climits>
#include <string>

namespace {

using namespace zeltest;

const std::vector<char> kSomeCharacters = {'\0', 'x', '"', '\x80', '\xE4', '\xFF'};

/// Code pages that no conversion belongs to.
const std::vector<unsigned int> kOtherPages = {0, 1, 436, 438, 849, 851, 1252, 65001, UINT_MAX};

// SQL

/// The unconverted literal of a defined character.
std::string Quoted(char character)
{
    if (character == '"')
        return "\"\"\"\"";
    return character == '\0' ? "\"\"" : std::string("\"") + character + '"';
}

/// A literal with what has to be its bytes in a code page.
void ExpectSql(const ZelDtString& sql, const std::string& expected)
{
    EXPECT_EQ(BytesOf(sql), expected);
    EXPECT_EQ(StateOf(sql).defined, 1);
    EXPECT_EQ(sql.GetWorkingMode(), ZelDtGetDefaultWorkingMode());
}

TEST(ToSql, OfTheTellingCharacters)
{
    EXPECT_EQ(BytesOf(ZelDtChar('x').ConvToSQL(0)), "\x22\x78\x22");
    EXPECT_EQ(BytesOf(ZelDtChar('"').ConvToSQL(0)), "\x22\x22\x22\x22");
    EXPECT_EQ(BytesOf(ZelDtChar('\0').ConvToSQL(0)), "\x22\x22");
    EXPECT_EQ(BytesOf(ZelDtChar('\'').ConvToSQL(0)), "\x22\x27\x22");
    EXPECT_EQ(BytesOf(ZelDtChar(ZelDtWmMissing).ConvToSQL(0)), "NULL");
    EXPECT_EQ(BytesOf(ZelDtChar(ZelDtWmAlwaysDefined).ConvToSQL(0)), "\x22\x22");
    EXPECT_EQ(BytesOf(ZelDtChar('x').ConvToSQL()), "\x22\x78\x22");
}

TEST(ToSql, QuotesEveryCharacterAndThenConverts)
{
    for (const char character : AllCharacters()) {
        SCOPED_TRACE(static_cast<int>(character));
        const ZelDtChar value(character);
        const std::string quoted = Quoted(character);
        for (const unsigned int page : kOtherPages)
            ExpectSql(value.ConvToSQL(page), quoted);
        ExpectSql(value.ConvToSQL(850), Converted(quoted, kAnsiToOem850));
        ExpectSql(value.ConvToSQL(437), Converted(quoted, kAnsiToOem437));
        EXPECT_EQ(Look(value), (Letter{NewDefined(), character}));
    }
}

TEST(ToSql, DoublesBeforeItConverts)
{
    // The low quote becomes a double quote in code page 850, too late to be doubled.
    EXPECT_EQ(BytesOf(ZelDtChar('\x84').ConvToSQL(850)), "\"\"\"");
    EXPECT_EQ(BytesOf(ZelDtChar('\x84').ConvToSQL(437)), "\",\"");
}

TEST(ToSql, InEveryState)
{
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const Letter& letter : Letters(kSomeCharacters)) {
            for (const unsigned int page : {0U, 1252U, 850U, 437U}) {
                const Given<ZelDtChar> given(letter);
                const ZelDtString sql = given.it.ConvToSQL(page);
                if (!letter.state.defined)
                    ExpectSql(sql, "NULL");
                else if (page == 0 || page == 1252)
                    ExpectSql(sql, Quoted(letter.value));
                else
                    ExpectSql(sql, Converted(Quoted(letter.value),
                                             page == 850 ? kAnsiToOem850 : kAnsiToOem437));
                EXPECT_EQ(Look(given.it), letter);
            }
        }
    }
}

TEST(FromSql, ConvertsTheBareCharacter)
{
    for (const char character : AllCharacters()) {
        const std::string bare(1, character);
        struct Row {
            unsigned int page;
            char expected;
        };
        const Row rows[] = {
            {850, Converted(bare, kOem850ToAnsi)[0]},
            {437, Converted(bare, kOem437ToAnsi)[0]},
            {0, character},
            {1252, character},
            {65001, character},
            {UINT_MAX, character},
        };
        for (const Row& row : rows) {
            for (const Letter& letter : Letters({'\0', 'x', '\xE4'})) {
                Given<ZelDtChar> given(letter);
                given.it.SetFromSQL(character, row.page);
                EXPECT_EQ(Look(given.it), Taken(letter, row.expected))
                    << letter << " takes " << static_cast<int>(character) << " of " << row.page;
            }
        }
    }
}

TEST(FromSql, ComparesTheConvertedCharacter)
{
    ZelDtChar value('\xE4');
    value.SetFromSQL('\x84', 850);
    EXPECT_EQ(Look(value), (Letter{NewDefined(), '\xE4'}));
    value.SetFromSQL('\x84', 437);
    EXPECT_EQ(Look(value), (Letter{NewDefined(), '\xE4'}));
    value.SetFromSQL('\xE4', 850);
    EXPECT_EQ(Look(value), (Letter{{ZelDtWmMissing, 1, 1}, '\xF5'}));
}

TEST(FromSql, RemovesNoQuotes)
{
    ZelDtChar value(ZelDtWmNull);
    value.SetFromSQL('"', 850);
    EXPECT_EQ(Look(value), (Letter{{ZelDtWmNull, 1, 1}, '"'}));
}

// Display

/// A format that counts its calls and knows one text and one character.
class SpyFormat : public ZelFormat {
public:
    explicit SpyFormat(const char* shown) : ZelFormat(ZelFoStandard), m_shown(shown) {}

    void FormatChar(char value, CString& text) const override
    {
        ++shows;
        seenValue = value;
        text = m_shown;
    }
    void ParseChar(const CString& text, char* value) const override
    {
        ++reads;
        seenText = text.GetString();
        *value = parsed;
    }

    char parsed = '\0';
    mutable int shows = 0;
    mutable int reads = 0;
    mutable char seenValue = '\0';
    mutable std::string seenText;

private:
    const char* m_shown;
};

/// A format that fails half-way with something that is no error of the library.
class BrokenFormat : public ZelFormat {
public:
    BrokenFormat() : ZelFormat(ZelFoStandard) {}
    void FormatChar(char, CString&) const override { throw 42; }
    void ParseChar(const CString&, char* value) const override
    {
        *value = 'B';
        throw 42;
    }
};

/// A format of a kind that serves no characters.
ZelFormat DateFormat()
{
    return ZelFormat(ZelFormat::ZelFoDatum, ZelFormat::ZelFoDatumPunkt,
                     ZelFormat::ZelFoJahrVierstellig, ZelFormat::ZelFoMonatZahl, 1, '0');
}

TEST(Display, OfUndefinedValuesIsEmptyAndAsksNoFormat)
{
    const SpyFormat passed("passed");
    const SpyFormat own("own");
    for (const Letter& letter : Letters({'\0', 'x'})) {
        if (letter.state.defined)
            continue;
        Given<ZelDtChar> given(letter);
        EXPECT_EQ(BytesOf(given.it.ConvToOFL(nullptr)), "");
        given.it.SetFormat(&own);
        EXPECT_EQ(BytesOf(given.it.ConvToOFL(&passed)), "");
        EXPECT_EQ(BytesOf(given.it.ConvToOFL(nullptr)), "");
        EXPECT_EQ(Look(given.it), letter);
    }
    EXPECT_EQ(passed.shows + own.shows, 0);
}

TEST(Display, TakesThePassedFormatThenItsOwnThenTheDefault)
{
    for (const Letter& letter : Letters(AllCharacters())) {
        if (!letter.state.defined)
            continue;
        const SpyFormat passed("passed");
        const SpyFormat own("own");
        Given<ZelDtChar> given(letter);
        EXPECT_EQ(BytesOf(given.it.ConvToOFL(&passed)), "passed");
        EXPECT_EQ(BytesOf(given.it.ConvToOFL(nullptr)), std::string(1, letter.value));
        given.it.SetFormat(&own);
        EXPECT_EQ(BytesOf(given.it.ConvToOFL(&passed)), "passed");
        EXPECT_EQ(BytesOf(given.it.ConvToOFL(nullptr)), "own");
        EXPECT_EQ(passed.shows, 2);
        EXPECT_EQ(own.shows, 1);
        EXPECT_EQ(passed.seenValue, letter.value);
        EXPECT_EQ(own.seenValue, letter.value);
        EXPECT_EQ(given.it.GetFormat(), &own);
        EXPECT_EQ(Look(given.it), letter);
    }
}

TEST(Display, ByGivenFormats)
{
    const ZelFormat standard(ZelFormat::ZelFoStandard);
    const ZelFormat technical(ZelFormat::ZelFoTechnisch);
    const ZelFormat dots(3, ZelFormat::kulZelFoValidAll, ZelFormat::ZelFoAuffuellenRechts, '.');
    EXPECT_EQ(BytesOf(ZelDtChar('\xE4').ConvToOFL(&standard)), "\xE4");
    EXPECT_EQ(BytesOf(ZelDtChar('\xE4').ConvToOFL(&technical)), "\xE4");
    EXPECT_EQ(BytesOf(ZelDtChar('x').ConvToOFL(&dots)), "x..");
    ZelDtChar value;
    value.SetFromOFL("y..", &dots);
    EXPECT_EQ(value.GetValue(), 'y');
}

TEST(Display, FailuresOfTheFormatAreFollowUpErrors)
{
    const ZelFormat date = DateFormat();
    const ZelFormat letters(1, 1, ZelFormat::ZelFoAuffuellenOhne, ' ');
    const BrokenFormat broken;
    const ZelDtChar value('5');
    EXPECT_TRUE(FailsBehind([&] { value.ConvToOFL(&date); }, kCharOrigin, 20, "ZelFormat"));
    EXPECT_TRUE(FailsBehind([&] { value.ConvToOFL(&letters); }, kCharOrigin, 21, "ZelFormat"));
    const Caught foreign = Catch([&] { value.ConvToOFL(&broken); });
    EXPECT_TRUE(Matches(foreign, 1, kCharOrigin));
    EXPECT_EQ(foreign.depth, 0U);
    EXPECT_EQ(Look(value), (Letter{NewDefined(), '5'}));
}

TEST(TypedTexts, OfNothingClearAndAskNoFormat)
{
    const SpyFormat spy("");
    const ZelFormat* const formats[] = {&spy, nullptr};
    for (const Letter& letter : Letters({'\0', 'x'})) {
        for (const char* nothing : {static_cast<const char*>(nullptr), ""}) {
            for (const ZelFormat* own : formats) {
                for (const ZelFormat* passed : formats) {
                    Given<ZelDtChar> given(letter);
                    given.it.SetFormat(own);
                    given.it.SetFromOFL(nothing, passed);
                    EXPECT_EQ(Look(given.it), Cleared(letter)) << letter;
                }
            }
        }
    }
    EXPECT_EQ(spy.reads, 0);
}

TEST(TypedTexts, StoreWhatTheFormatReads)
{
    for (const Letter& letter : Letters({'\0', 'x'})) {
        for (const char character : kSomeCharacters) {
            SpyFormat spy("");
            spy.parsed = character;
            Given<ZelDtChar> given(letter);
            given.it.SetFromOFL(" typed ", &spy);
            EXPECT_EQ(Look(given.it), Taken(letter, character)) << letter;
            EXPECT_EQ(spy.reads, 1);
            EXPECT_EQ(spy.seenText, " typed ");
        }
    }
}

TEST(TypedTexts, TakeThePassedFormatThenTheOwnThenTheDefault)
{
    SpyFormat passed("");
    SpyFormat own("");
    passed.parsed = 'p';
    own.parsed = 'o';
    ZelDtChar value;
    value.SetFormat(&own);
    value.SetFromOFL("d", &passed);
    EXPECT_EQ(value.GetValue(), 'p');
    value.SetFromOFL("d", nullptr);
    EXPECT_EQ(value.GetValue(), 'o');
    value.SetFormat(nullptr);
    value.SetFromOFL("d", nullptr);
    EXPECT_EQ(value.GetValue(), 'd');
    EXPECT_EQ(passed.reads, 1);
    EXPECT_EQ(own.reads, 1);
}

TEST(TypedTexts, OfOneByteAreTakenAsTheyAre)
{
    for (int code = 1; code < 256; ++code) {
        const char text[] = {static_cast<char>(code), '\0'};
        for (const Letter& letter : Letters({'\0', 'x', ' '})) {
            Given<ZelDtChar> given(letter);
            given.it.SetFromOFL(text, nullptr);
            EXPECT_EQ(Look(given.it), Taken(letter, text[0])) << letter << " reads " << code;
            EXPECT_EQ(BytesOf(given.it.ConvToOFL(nullptr)), text);
        }
    }
}

TEST(TypedTexts, ThatTheFormatRejectsChangeNothing)
{
    const ZelFormat date = DateFormat();
    const BrokenFormat broken;
    for (const Letter& letter : Letters({'\0', 'x'})) {
        Given<ZelDtChar> given(letter);
        for (const char* text : {"xy", "  ", " x", "x ", "NULL"}) {
            EXPECT_TRUE(FailsBehind([&] { given.it.SetFromOFL(text, nullptr); }, kCharOrigin, 11,
                                    "ZelFormat"))
                << text;
            EXPECT_EQ(Look(given.it), letter) << text;
        }
        EXPECT_TRUE(
            FailsBehind([&] { given.it.SetFromOFL("y", &date); }, kCharOrigin, 20, "ZelFormat"));
        EXPECT_TRUE(FailsWith([&] { given.it.SetFromOFL("y", &broken); }, 1, kCharOrigin));
        EXPECT_EQ(Look(given.it), letter);
    }
}

// External text

Error FromExternError(unsigned long number)
{
    return {number, "DTCHAR", "ZelDtChar", "SetFromExtern(ZelDtString*,BOOL,USHORT)"};
}

TEST(ExternalText, IsTheValueAsAStringOfVersion100)
{
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const Letter& letter : Letters(AllCharacters())) {
            const Given<ZelDtChar> given(letter);
            int defined = -1;
            unsigned short version = 4711;
            const ZelDtString text = given.it.ConvToExtern(defined, version);
            EXPECT_EQ(defined, letter.state.defined) << letter;
            EXPECT_EQ(version, 100) << letter;
            const bool empty = !letter.state.defined || letter.value == '\0';
            EXPECT_EQ(BytesOf(text), empty ? "" : std::string(1, letter.value)) << letter;
            EXPECT_EQ(StateOf(text), letter.state) << letter;
            EXPECT_EQ(Look(given.it), letter);
        }
    }
}

TEST(ExternalText, GivesItsFirstByte)
{
    const StringPtr nul = Make(Raw("\0b"));
    const struct {
        ZelDtString text;
        char character;
    } rows[] = {{"x", 'x'},    {"xyz", 'x'},   {"", '\0'},
                {" x", ' '},   {*nul, '\0'},   {"\xE4", '\xE4'},
                {"NULL", 'N'}, {"\"q\"", '"'}, {ZelDtString(ZelDtWmAlwaysDefined), '\0'}};
    for (const auto& row : rows) {
        for (const Letter& letter : Letters({'\0', 'x', '\xE4'})) {
            Given<ZelDtChar> given(letter);
            given.it.SetFromExtern(&row.text, 1, 100);
            EXPECT_EQ(Look(given.it), Taken(letter, row.character))
                << letter << " reads " << Escaped(BytesOf(row.text));
        }
    }
}

TEST(ExternalText, OfAnotherVersionIsAnErrorThatChangesNothing)
{
    const ZelDtString text("y");
    const ZelDtString undefined(ZelDtWmMissing);
    for (const Letter& letter : Letters({'\0', 'x'})) {
        for (const unsigned short version : {0, 1, 99, 101, 200, 65535}) {
            for (const int defined : {0, 1, 2, -1}) {
                for (const ZelDtString* p :
                     {&text, &undefined, static_cast<const ZelDtString*>(nullptr)}) {
                    Given<ZelDtChar> given(letter);
                    EXPECT_TRUE(FailsWith([&] { given.it.SetFromExtern(p, defined, version); },
                                          FromExternError(14)))
                        << version;
                    EXPECT_EQ(Look(given.it), letter);
                }
            }
        }
    }
}

TEST(ExternalText, ClearsWhenUndefinedOrAbsent)
{
    const ZelDtString text("y");
    const ZelDtString undefined(ZelDtWmMissing);
    const struct {
        const ZelDtString* text;
        int defined;
    } rows[] = {{&text, 0},       {&undefined, 0}, {nullptr, 0},   {nullptr, 1},
                {&text, 2},       {&text, -1},     {&text, 256},   {&text, INT_MAX},
                {&text, INT_MIN}, {nullptr, -1},   {&undefined, 2}};
    for (const Letter& letter : Letters({'\0', 'x'})) {
        for (const auto& row : rows) {
            Given<ZelDtChar> given(letter);
            given.it.SetFromExtern(row.text, row.defined, 100);
            EXPECT_EQ(Look(given.it), Cleared(letter)) << letter << ", defined " << row.defined;
        }
    }
}

TEST(ExternalText, ThatIsUndefinedThoughDefinedIsInconsistent)
{
    for (const ZelDtWorkingMode mode : {ZelDtWmMissing, ZelDtWmNull}) {
        const ZelDtString undefined(mode);
        for (const Letter& letter : Letters({'\0', 'x'})) {
            Given<ZelDtChar> given(letter);
            EXPECT_TRUE(FailsWith([&] { given.it.SetFromExtern(&undefined, 1, 100); },
                                  FromExternError(13)));
            // The value became defined before the text was looked at.
            Letter expected = letter;
            SetDefined(expected.state, 1);
            EXPECT_EQ(Look(given.it), expected);
        }
    }
}

TEST(ExternalText, RoundTripsEveryState)
{
    for (const Letter& letter : Letters(AllCharacters())) {
        const Given<ZelDtChar> given(letter);
        int defined = -1;
        unsigned short version = 0;
        const ZelDtString text = given.it.ConvToExtern(defined, version);
        ZelDtChar back(ZelDtWmNull);
        back.SetFromExtern(&text, defined, version);
        EXPECT_EQ(back.IsDefined(), letter.state.defined);
        EXPECT_EQ(back.GetValue(), letter.state.defined ? letter.value : '\0');
    }
}

// Record set

/// A record with two texts and a number; its marks work without a database.
class Records : public CRecordset {
public:
    Records()
    {
        m_nFields = 3;
        AddNew();
    }
    void DoFieldExchange(CFieldExchange* pFX) override
    {
        pFX->SetFieldType(CFieldExchange::outputColumn);
        RFX_Text(pFX, "FIRST", first, 1);
        RFX_Text(pFX, "SECOND", second, 20);
        RFX_Bool(pFX, "FLAG", flag);
    }

    CString first;
    CString second;
    BOOL flag = 0;
};

TEST(RecordSet, FieldsThatAreNullClear)
{
    for (const Letter& letter : Letters({'\0', 'x'})) {
        Records records;
        records.first = "y";
        records.SetFieldNull(&records.first, TRUE);
        Given<ZelDtChar> given(letter);
        given.it.SetFromRecordSet(records, records.first);
        EXPECT_EQ(Look(given.it), Cleared(letter));
        EXPECT_EQ(BytesOf(records.first), "y");
    }
}

TEST(RecordSet, GivesTheFirstByteOfAField)
{
    const struct {
        std::string field;
        char character;
    } rows[] = {{"x", 'x'},       {"xyz", 'x'},       {"", '\0'},   {" x", ' '},
                {"\xE4", '\xE4'}, {Raw("\0b"), '\0'}, {"NULL", 'N'}};
    for (const auto& row : rows) {
        for (const Letter& letter : Letters({'\0', 'x', '\xE4'})) {
            Records records;
            records.second = Framework(row.field);
            records.SetFieldNull(&records.second, FALSE);
            Given<ZelDtChar> given(letter);
            given.it.SetFromRecordSet(records, records.second);
            EXPECT_EQ(Look(given.it), Taken(letter, row.character))
                << letter << " reads " << Escaped(row.field);
            EXPECT_EQ(BytesOf(records.second), row.field);
            EXPECT_FALSE(records.IsFieldNull(&records.second));
        }
    }
}

TEST(RecordSet, ReceivesDefinedCharactersInItsOwnBuffer)
{
    for (const Letter& letter : Letters(AllCharacters())) {
        if (!letter.state.defined)
            continue;
        for (const BOOL null : {FALSE, TRUE}) {
            Records records;
            records.second = "second";
            records.SetFieldNull(nullptr, null);
            const char* bound = records.first.GetString();
            const Given<ZelDtChar> given(letter);
            given.it.ConvToRecordSet(records, records.first);
            EXPECT_EQ(BytesOf(records.first),
                      letter.value == '\0' ? "" : std::string(1, letter.value))
                << letter;
            EXPECT_EQ(records.first.GetString(), bound);
            EXPECT_FALSE(records.IsFieldNull(&records.first));
            EXPECT_EQ(BytesOf(records.second), "second");
            EXPECT_EQ(records.IsFieldNull(&records.second), null);
            EXPECT_EQ(Look(given.it), letter);
        }
    }
}

TEST(RecordSet, ReceivesDefinedCharactersWithoutRoomForThem)
{
    for (const char* const before : {"", "y"}) {
        Records records;
        records.second = before;
        ZelDtChar('x').ConvToRecordSet(records, records.second);
        EXPECT_EQ(BytesOf(records.second), "x") << '"' << before << '"';
        EXPECT_FALSE(records.IsFieldNull(&records.second));
    }
}

TEST(RecordSet, IsMarkedNullForUndefinedValuesAndKeepsTheField)
{
    for (const Letter& letter : Letters({'\0', 'x'})) {
        if (letter.state.defined)
            continue;
        for (const BOOL null : {FALSE, TRUE}) {
            Records records;
            records.second = "second";
            records.SetFieldNull(nullptr, null);
            const Given<ZelDtChar> given(letter);
            given.it.ConvToRecordSet(records, records.second);
            EXPECT_EQ(BytesOf(records.second), "second");
            EXPECT_TRUE(records.IsFieldNull(&records.second));
            EXPECT_EQ(records.IsFieldNull(&records.first), null);
            EXPECT_EQ(Look(given.it), letter);
        }
    }
}

TEST(RecordSet, RefusesFieldsThatAreNotItsOwn)
{
    Records records;
    CString stranger("strange");
    ZelDtChar value('x');
    EXPECT_TRUE(FailsBehind([&] { value.SetFromRecordSet(records, stranger); }, kCharOrigin,
                            "CDBException"));
    EXPECT_TRUE(FailsBehind([&] { value.ConvToRecordSet(records, stranger); }, kCharOrigin,
                            "CDBException"));
    EXPECT_EQ(Look(value), (Letter{NewDefined(), 'x'}));
}

} // namespace
