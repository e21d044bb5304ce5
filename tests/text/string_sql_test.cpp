#include "tests/text/string_testing.h"

#include <climits>
#include <cstdlib>

using namespace zeltest;

namespace {

/// One half of a code page: what the bytes 0x80 to 0xFF become. The bytes below stay.
using UpperHalf = unsigned char[128];

constexpr UpperHalf kAnsiToOem850 = {
    0x3f, 0x3f, 0x27, 0x9f, 0x22, 0x2e, 0xc5, 0xce, 0x5e, 0x25, 0x53, 0x3c, 0x4f, 0x3f, 0x5a, 0x3f,
    0x3f, 0x27, 0x27, 0x22, 0x22, 0x07, 0x2d, 0x2d, 0x7e, 0x54, 0x73, 0x3e, 0x6f, 0x3f, 0x7a, 0x59,
    0xff, 0xad, 0xbd, 0x9c, 0xcf, 0xbe, 0xdd, 0xf5, 0xf9, 0xb8, 0xa6, 0xae, 0xaa, 0xf0, 0xa9, 0xee,
    0xf8, 0xf1, 0xfd, 0xfc, 0xef, 0xe6, 0xf4, 0xfa, 0xf7, 0xfb, 0xa7, 0xaf, 0xac, 0xab, 0xf3, 0xa8,
    0xb7, 0xb5, 0xb6, 0xc7, 0x8e, 0x8f, 0x92, 0x80, 0xd4, 0x90, 0xd2, 0xd3, 0xde, 0xd6, 0xd7, 0xd8,
    0xd1, 0xa5, 0xe3, 0xe0, 0xe2, 0xe5, 0x99, 0x9e, 0x9d, 0xeb, 0xe9, 0xea, 0x9a, 0xed, 0xe8, 0xe1,
    0x85, 0xa0, 0x83, 0xc6, 0x84, 0x86, 0x91, 0x87, 0x8a, 0x82, 0x88, 0x89, 0x8d, 0xa1, 0x8c, 0x8b,
    0xd0, 0xa4, 0x95, 0xa2, 0x93, 0xe4, 0x94, 0xf6, 0x9b, 0x97, 0xa3, 0x96, 0x81, 0xec, 0xe7, 0x98};

constexpr UpperHalf kAnsiToOem437 = {
    0x3f, 0x3f, 0x2c, 0x9f, 0x2c, 0x2e, 0x2b, 0xd8, 0x5e, 0x25, 0x53, 0x3c, 0x4f, 0x3f, 0x5a, 0x3f,
    0x3f, 0x60, 0x27, 0x22, 0x22, 0x07, 0x2d, 0x2d, 0x7e, 0x54, 0x73, 0x3e, 0x6f, 0x3f, 0x7a, 0x59,
    0xff, 0xad, 0x9b, 0x9c, 0x0f, 0x9d, 0xdd, 0x15, 0x22, 0x63, 0xa6, 0xae, 0xaa, 0x2d, 0x72, 0x5f,
    0xf8, 0xf1, 0xfd, 0x33, 0x27, 0xe6, 0x14, 0xfa, 0x2c, 0x31, 0xa7, 0xaf, 0xac, 0xab, 0x5f, 0xa8,
    0x41, 0x41, 0x41, 0x41, 0x8e, 0x8f, 0x92, 0x80, 0x45, 0x90, 0x45, 0x45, 0x49, 0x49, 0x49, 0x49,
    0x44, 0xa5, 0x4f, 0x4f, 0x4f, 0x4f, 0x99, 0x78, 0x4f, 0x55, 0x55, 0x55, 0x9a, 0x59, 0x5f, 0xe1,
    0x85, 0xa0, 0x83, 0x61, 0x84, 0x86, 0x91, 0x87, 0x8a, 0x82, 0x88, 0x89, 0x8d, 0xa1, 0x8c, 0x8b,
    0x64, 0xa4, 0x95, 0xa2, 0x93, 0x6f, 0x94, 0xf6, 0x6f, 0x97, 0xa3, 0x96, 0x81, 0x79, 0x5f, 0x98};

constexpr UpperHalf kOem850ToAnsi = {
    0xC7, 0xFC, 0xE9, 0xE2, 0xE4, 0xE0, 0xE5, 0xE7, 0xEA, 0xEB, 0xE8, 0xEF, 0xEE, 0xEC, 0xC4, 0xC5,
    0xC9, 0xE6, 0xC6, 0xF4, 0xF6, 0xF2, 0xFB, 0xF9, 0xFF, 0xD6, 0xDC, 0xF8, 0xA3, 0xD8, 0xD7, 0x83,
    0xE1, 0xED, 0xF3, 0xFA, 0xF1, 0xD1, 0xAA, 0xBA, 0xBF, 0xAE, 0xAC, 0xBD, 0xBC, 0xA1, 0xAB, 0xBB,
    0xA6, 0xA6, 0xA6, 0xA6, 0xA6, 0xC1, 0xC2, 0xC0, 0xA9, 0xA6, 0xA6, 0x2B, 0x2B, 0xA2, 0xA5, 0x2B,
    0x2B, 0x2D, 0x2D, 0x2B, 0x2D, 0x2B, 0xE3, 0xC3, 0x2B, 0x2B, 0x2D, 0x2D, 0xA6, 0x2D, 0x2B, 0xA4,
    0xF0, 0xD0, 0xCA, 0xCB, 0xC8, 0x69, 0xCD, 0xCE, 0xCF, 0x2B, 0x2B, 0xA6, 0x5F, 0xA6, 0xCC, 0xAF,
    0xD3, 0xDF, 0xD4, 0xD2, 0xF5, 0xD5, 0xB5, 0xFE, 0xDE, 0xDA, 0xDB, 0xD9, 0xFD, 0xDD, 0xAF, 0xB4,
    0xAD, 0xB1, 0x3D, 0xBE, 0xB6, 0xA7, 0xF7, 0xB8, 0xB0, 0xA8, 0xB7, 0xB9, 0xB3, 0xB2, 0xA6, 0xA0};

constexpr UpperHalf kOem437ToAnsi = {
    0xC7, 0xFC, 0xE9, 0xE2, 0xE4, 0xE0, 0xE5, 0xE7, 0xEA, 0xEB, 0xE8, 0xEF, 0xEE, 0xEC, 0xC4, 0xC5,
    0xC9, 0xE6, 0xC6, 0xF4, 0xF6, 0xF2, 0xFB, 0xF9, 0xFF, 0xD6, 0xDC, 0xA2, 0xA3, 0xA5, 0x50, 0x83,
    0xE1, 0xED, 0xF3, 0xFA, 0xF1, 0xD1, 0xAA, 0xBA, 0xBF, 0xAC, 0xAC, 0xBD, 0xBC, 0xA1, 0xAB, 0xBB,
    0xA6, 0xA6, 0xA6, 0xA6, 0xA6, 0xA6, 0xA6, 0x2B, 0x2B, 0xA6, 0xA6, 0x2B, 0x2B, 0x2B, 0x2B, 0x2B,
    0x2B, 0x2D, 0x2D, 0x2B, 0x2D, 0x2B, 0xA6, 0xA6, 0x2B, 0x2B, 0x2D, 0x2D, 0xA6, 0x2D, 0x2B, 0x2D,
    0x2D, 0x2D, 0x2D, 0x2B, 0x2B, 0x2B, 0x2B, 0x2B, 0x2B, 0x2B, 0x2B, 0xA6, 0x5F, 0xA6, 0xA6, 0xAF,
    0x61, 0xDF, 0x47, 0x70, 0x53, 0x73, 0xB5, 0x74, 0x46, 0x54, 0x4F, 0x64, 0x38, 0x66, 0x65, 0x6E,
    0x3D, 0xB1, 0x3D, 0x3D, 0x28, 0x29, 0xF7, 0x98, 0xB0, 0xB7, 0xB7, 0x76, 0x6E, 0xB2, 0xA6, 0xA0};

std::string Converted(std::string text, const UpperHalf& table)
{
    for (char& c : text) {
        const auto code = static_cast<unsigned char>(c);
        if (code >= 0x80)
            c = static_cast<char>(table[code - 0x80]);
    }
    return text;
}

/// The system's OEM code page, told by a character that becomes another near one in each.
unsigned int OemCodePage()
{
    char lowQuote[] = "\x84";
    EXPECT_EQ(ZelDtConvertCodePageFkt(lowQuote, ZelDtCpAnsiToOem), 1);
    return lowQuote[0] == '"' ? 850U : 437U;
}

std::string AllBytes()
{
    std::string all;
    for (int code = 1; code < 256; ++code)
        all.push_back(static_cast<char>(code));
    return all;
}

const char* const kSetSignature = "SetFromSQL(LPCTSTR,INT,UINT)";

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

TEST(SystemCodePage, IsTheOneThatThisRunIsFor)
{
    const unsigned int oem = OemCodePage();
    const char* expected = std::getenv("ZEL_TEST_OEM_PAGE");
    EXPECT_TRUE(oem == 850 || oem == 437);
    if (expected != nullptr) {
        EXPECT_EQ(std::to_string(oem), expected);
    }
}

TEST(ToSql, QuotesAndDoubles)
{
    for (const QuoteRow& row : kQuoteRows) {
        SCOPED_TRACE(Escaped(row.text));
        for (const ZelDtWorkingMode mode : {ZelDtWmMissing, ZelDtWmNull, ZelDtWmAlwaysDefined}) {
            for (const unsigned int codePage : {0U, 1U, 1252U, 849U, 851U, 65001U, UINT_MAX}) {
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

TEST(ToSql, OfAnUndefinedValueIsNullWithoutQuotes)
{
    for (const ZelDtWorkingMode mode : {ZelDtWmMissing, ZelDtWmNull}) {
        const DefaultMode guard(ZelDtWmNull);
        for (const unsigned int codePage : {0U, 850U, 437U, OemCodePage()}) {
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
    EXPECT_EQ(BytesOf(s->ConvToSQL(1252)), quoted);
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
        {1252, all},
        {0, all},
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
