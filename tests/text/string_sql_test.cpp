#include "tests/support/oem_tables.h"
#include "tests/text/string_testing.h"

#include <climits>

using namespace zeltest;

namespace {

const char* const kSetSignature = "SetFromSQL(LPCTSTR,INT,UINT)";

/// Code pages that no conversion belongs to, whatever the system is set to.
const unsigned int kOtherPages[] = {0, 1, 2, 436, 438, 849, 851, 1252, 65001, UINT_MAX};

struct QuoteRow {
    const char* text;
    const char* quoted;
};

const QuoteRow kQuoteRows[] = {
    {"", "\"\""},
    {"abc", "\"abc\""},
    {"a\"b", "\"a\"\"b\""},
    {"\"", "\"\"\"\""},
    {"\"\"", "\"\"\"\"\"\""},
    {"\"a\"", "\"\"\"a\"\"\""},
    {"it's", "\"it's\""},
    {"NULL", "\"NULL\""},
    {"\\\n", "\"\\\n\""},
    {"M\xFCller", "\"M\xFCller\""},
};

} // namespace

TEST(ToSql, QuotesAndDoubles)
{
    for (const QuoteRow& row : kQuoteRows) {
        SCOPED_TRACE(Escaped(row.text));
        for (const ZelDtWorkingMode mode : {ZelDtWmMissing, ZelDtWmNull, ZelDtWmAlwaysDefined}) {
            for (const unsigned int codePage : kOtherPages) {
                const StringPtr s = Make({mode, row.text, 30});
                const ZelDtString sql = s->ConvToSQL(codePage);
                EXPECT_EQ(BytesOf(sql), row.quoted);
                EXPECT_EQ(sql.GetAllocLength(), sql.GetLength());
                EXPECT_EQ(sql.IsDefined(), 1);
                EXPECT_EQ(sql.GetWorkingMode(), ZelDtWmMissing);
                EXPECT_EQ(ContentOf(*s), (Content{row.text, 1, 0}));
            }
            EXPECT_EQ(BytesOf(Make({mode, row.text})->ConvToSQL()), row.quoted);
        }
    }
    EXPECT_EQ(BytesOf(ZelDtString(ZelDtWmAlwaysDefined).ConvToSQL(0)), "\"\"");
}

TEST(ToSql, QuotesTextsOfEveryLength)
{
    for (std::size_t length = 0; length < 70; ++length) {
        // No quote, one at each place, and two side by side or far from each other.
        for (std::size_t first = 0; first <= length; ++first) {
            for (const std::size_t second : {first, first + 1, first + 15, first + 20}) {
                std::string text(length, 'x');
                for (const std::size_t at : {first, second}) {
                    if (at < length)
                        text[at] = '"';
                }
                std::string quoted = "\"";
                for (const char c : text)
                    quoted.append(c == '"' ? 2 : 1, c);
                quoted += '"';
                ASSERT_EQ(BytesOf(Make(text)->ConvToSQL()), quoted) << text;
            }
        }
    }
}

TEST(ToSql, OfAnUndefinedValueIsNullWithoutQuotes)
{
    for (const ZelDtWorkingMode mode : {ZelDtWmMissing, ZelDtWmNull}) {
        const DefaultMode guard(ZelDtWmNull);
        for (const unsigned int codePage : {0U, 850U, 437U, 1252U}) {
            const StringPtr s = Make({mode, "leftover"});
            Undefine(*s);
            const ZelDtString sql = s->ConvToSQL(codePage);
            EXPECT_EQ(BytesOf(sql), "NULL");
            EXPECT_EQ(sql.GetAllocLength(), 4);
            EXPECT_EQ(sql.IsDefined(), 1);
            EXPECT_EQ(sql.GetWorkingMode(), ZelDtWmNull);
            EXPECT_EQ(BytesOf(ZelDtString(mode).ConvToSQL(codePage)), "NULL");
        }
    }
}

TEST(ToSql, ConvertsTheQuotedText)
{
    // Without the double quote, which would be doubled.
    std::string all = AllBytes();
    all.erase(all.find('"'), 1);
    const StringPtr s = Make(all);
    const std::string quoted = "\"" + all + "\"";
    EXPECT_EQ(BytesOf(s->ConvToSQL(850)), Converted(quoted, kAnsiToOem850));
    EXPECT_EQ(BytesOf(s->ConvToSQL(437)), Converted(quoted, kAnsiToOem437));
    for (const unsigned int page : kOtherPages)
        EXPECT_EQ(BytesOf(s->ConvToSQL(page)), quoted) << page;
    EXPECT_EQ(s->ConvToSQL(850).GetLength(), static_cast<int>(quoted.size()));
    EXPECT_EQ(BytesOf(*s), all) << "the value itself is not converted";
}

TEST(ToSql, DoublesBeforeItConverts)
{
    // The low quote becomes a double quote in code page 850, too late to be doubled.
    EXPECT_EQ(BytesOf(ZelDtString("\x84").ConvToSQL(850)), "\"\"\"");
    EXPECT_EQ(BytesOf(ZelDtString("\x84").ConvToSQL(437)), "\",\"");
    EXPECT_EQ(BytesOf(ZelDtString("\x84").ConvToSQL(0)), "\"\x84\"");
}

TEST(ToSql, CarriesNulBytes)
{
    EXPECT_EQ(BytesOf(Make(Raw("a\0\"b"))->ConvToSQL(0)), Raw("\"a\0\"\"b\""));
}

TEST(ToSql, OfLongTexts)
{
    const StringPtr quotes = Make(std::string(100000, '"'));
    EXPECT_EQ(BytesOf(quotes->ConvToSQL(0)), std::string(200002, '"'));
}

TEST(FromSql, TakesTheFirstBytesAsTheyAre)
{
    struct Row {
        Start start;
        const char* text;
        int length;
        Content expected;
    };
    const Row rows[] = {
        {{ZelDtWmMissing, nullptr}, "abcdef", 3, {"abc", 1, 1}},
        {{ZelDtWmMissing, nullptr}, "abcdef", 6, {"abcdef", 1, 1}},
        {{ZelDtWmNull, nullptr}, "a", 1, {"a", 1, 1}},
        {{ZelDtWmAlwaysDefined, nullptr}, "a", 1, {"a", 1, 1}},
        {{ZelDtWmNull, nullptr}, "NULL", 4, {"NULL", 1, 1}},
        {{ZelDtWmMissing, "abc"}, "abcdef", 3, {"abc", 1, 0}},
        {{ZelDtWmMissing, "abc"}, "abcdef", 4, {"abcd", 1, 1}},
        {{ZelDtWmMissing, "abc"}, "abcdef", 2, {"ab", 1, 1}},
        {{ZelDtWmMissing, "abc"}, "ABC", 3, {"ABC", 1, 1}},
        {{ZelDtWmMissing, "abc"}, "\"a\"\"b\"", 6, {"\"a\"\"b\"", 1, 1}},
        {{ZelDtWmMissing, "abc", 30}, "a longer text", 13, {"a longer text", 1, 1}},
        {{ZelDtWmMissing, "abc"}, "   ", 3, {"   ", 1, 1}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(::testing::Message() << row.start << " from " << row.text);
        for (const int modifiedBefore : {0, 1}) {
            for (const unsigned int codePage : {0U, 1252U, 850U, 437U}) {
                const StringPtr s = Make(row.start);
                s->SetModified(modifiedBefore);
                s->SetFromSQL(row.text, row.length, codePage);
                Content expected = row.expected;
                expected.modified |= modifiedBefore;
                EXPECT_EQ(ContentOf(*s), expected);
                EXPECT_EQ(s->GetWorkingMode(), row.start.mode);
            }
        }
    }
}

TEST(FromSql, ConvertsAndComparesTheConvertedText)
{
    const std::string all = AllBytes();
    const int length = static_cast<int>(all.size());
    struct Row {
        unsigned int codePage;
        std::string expected;
    };
    const Row rows[] = {
        {850, Converted(all, kOem850ToAnsi)},
        {437, Converted(all, kOem437ToAnsi)},
        {0, all},
        {1, all},
        {849, all},
        {1252, all},
        {65001, all},
        {UINT_MAX, all},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.codePage);
        ZelDtString s(ZelDtWmNull);
        s.SetFromSQL(all.c_str(), length, row.codePage);
        EXPECT_EQ(ContentOf(s), (Content{row.expected, 1, 1}));
        s.SetModified(0);
        s.SetFromSQL(all.c_str(), length, row.codePage);
        EXPECT_EQ(ContentOf(s), (Content{row.expected, 1, 0})) << "the same text again";
    }
    ZelDtString umlaut("\xE4");
    umlaut.SetFromSQL("\x84", 1, 850);
    EXPECT_EQ(ContentOf(umlaut), (Content{"\xE4", 1, 0}));
    umlaut.SetFromSQL("\xE4", 1, 850);
    EXPECT_EQ(ContentOf(umlaut), (Content{"\xF5", 1, 1}));
}

TEST(FromSql, RefusesLengthsThatTheTextDoesNotHave)
{
    struct Row {
        const char* text;
        int length;
    };
    const Row rows[] = {
        {"abc", 5},       {"abc", 4}, {"abc", 0}, {"abc", -1}, {"abc", -100}, {"abc", INT_MAX},
        {"abc", INT_MIN}, {"", 0},    {"", 1},    {"", -100},  {"a\0b", 2},   {"a\0b", 3},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(::testing::Message() << row.text << ", " << row.length);
        for (const Start& start : {Start{ZelDtWmMissing, nullptr}, Start{ZelDtWmNull, nullptr},
                                   Start{ZelDtWmMissing, "old"}}) {
            const StringPtr s = Make(start);
            const Content before = ContentOf(*s);
            for (const unsigned int codePage : {0U, 850U}) {
                EXPECT_TRUE(FailsWith([&] { s->SetFromSQL(row.text, row.length, codePage); },
                                      FunctionError(6, kSetSignature)));
            }
            EXPECT_EQ(ContentOf(*s), before);
        }
    }
}

TEST(FromSql, RefusesANullText)
{
    ZelDtString s("old");
    for (const int length : {1, 3})
        EXPECT_TRUE(
            FailsWith([&] { s.SetFromSQL(nullptr, length, 0); }, FunctionError(5, kSetSignature)));
    EXPECT_EQ(ContentOf(s), (Content{"old", 1, 0}));
}

TEST(FromSql, ReadsItsOwnText)
{
    ZelDtString s("abcdef");
    s.SetFromSQL(static_cast<const char*>(s) + 2, 3, 0);
    EXPECT_EQ(ContentOf(s), (Content{"cde", 1, 1}));
    ZelDtString converted("ab\x84");
    converted.SetFromSQL(static_cast<const char*>(converted) + 1, 2, 850);
    EXPECT_EQ(BytesOf(converted), "b\xE4");
}
