#include "tests/text/string_testing.h"

#include <algorithm>
#include <climits>

using namespace zeltest;

namespace {

const int kFirst = ZelDtString::kiFirst;
const int kNext = ZelDtString::kiNext;
const int kNotFound = ZelDtString::kiNotFound;

/// Every state that has no value, text-less.
const Start kUndefined[] = {{ZelDtWmMissing, nullptr}, {ZelDtWmNull, nullptr}};

} // namespace

TEST(GetValue, ReadsDefinedAndNullTexts)
{
    for (const ZelDtWorkingMode mode : {ZelDtWmMissing, ZelDtWmNull, ZelDtWmAlwaysDefined}) {
        for (const char* text : {"", "a", "M\xFCller & S\xF6hne"}) {
            const StringPtr s = Make({mode, text});
            EXPECT_STREQ(s->GetValue(), text);
            EXPECT_EQ(s->GetValue(), static_cast<const char*>(*s));
            EXPECT_EQ(StateOf(*s), (State{mode, 1, 0}));
        }
    }
    EXPECT_STREQ(ZelDtString(ZelDtWmNull).GetValue(), "");
    EXPECT_STREQ(ZelDtString(ZelDtWmAlwaysDefined).GetValue(), "");
}

TEST(GetValue, OfAMissingValueFails)
{
    const ZelDtString s(ZelDtWmMissing);
    EXPECT_TRUE(FailsWith([&] { s.GetValue(); }, FunctionError(2, "GetValue()")));
    ZelDtString cleared("abc");
    cleared.Clear();
    EXPECT_TRUE(FailsWith([&] { cleared.GetValue(); }, FunctionError(2, "GetValue()")));
}

TEST(GetValueIntoBuffer, NeedsRoomForTheTerminator)
{
    struct Row {
        const char* text;
        int size;
        bool fits;
    };
    const Row rows[] = {
        {"abc", 4, true},  {"abc", 5, true},  {"abc", 16, true},  {"abc", 3, false},
        {"abc", 2, false}, {"abc", 0, false}, {"abc", -1, false}, {"abc", INT_MIN, false},
        {"", 1, true},     {"", 0, false},    {"", -1, false},    {"a", 2, true},
        {"a", 1, false},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(::testing::Message() << Escaped(row.text) << " into " << row.size);
        const ZelDtString s(row.text);
        char buffer[17];
        std::fill(std::begin(buffer), std::end(buffer), '#');
        if (row.fits) {
            EXPECT_EQ(s.GetValue(buffer, row.size), buffer);
            EXPECT_STREQ(buffer, row.text);
            EXPECT_EQ(buffer[s.GetLength() + 1], '#');
        } else {
            EXPECT_TRUE(FailsWith([&] { s.GetValue(buffer, row.size); },
                                  FunctionError(4, "GetValue(LPTSTR,INT)")));
            EXPECT_EQ(std::string(buffer, sizeof buffer), std::string(17, '#'));
        }
    }
}

TEST(GetValueIntoBuffer, OfUndefinedValues)
{
    char buffer[4] = "###";
    const ZelDtString missing(ZelDtWmMissing);
    EXPECT_TRUE(
        FailsWith([&] { missing.GetValue(buffer, 4); }, FunctionError(2, "GetValue(LPTSTR,INT)")));
    EXPECT_TRUE(
        FailsWith([&] { missing.GetValue(buffer, 0); }, FunctionError(2, "GetValue(LPTSTR,INT)")));
    EXPECT_STREQ(buffer, "###");
    const ZelDtString null(ZelDtWmNull);
    EXPECT_EQ(null.GetValue(buffer, 1), buffer);
    EXPECT_STREQ(buffer, "");
    EXPECT_TRUE(
        FailsWith([&] { null.GetValue(buffer, 0); }, FunctionError(4, "GetValue(LPTSTR,INT)")));
}

TEST(GetValueIntoBuffer, RefusesANullBuffer)
{
    const ZelDtString s("abc");
    EXPECT_TRUE(
        FailsWith([&] { s.GetValue(nullptr, 10); }, FunctionError(5, "GetValue(LPTSTR,INT)")));
}

TEST(GetValueIntoBuffer, CarriesNulBytes)
{
    const StringPtr s = Make(Raw("a\0b"));
    char buffer[4] = "###";
    s->GetValue(buffer, 4);
    EXPECT_EQ(std::string(buffer, 4), Raw("a\0b\0"));
    EXPECT_TRUE(
        FailsWith([&] { s->GetValue(buffer, 3); }, FunctionError(4, "GetValue(LPTSTR,INT)")));
}

TEST(GetnValue, TakesAPartInsideTheText)
{
    struct Row {
        int position;
        int count;
        const char* expected; ///< null: outside the text
    };
    const Row rows[] = {
        {0, 0, ""},
        {0, 3, "abc"},
        {0, 4, "abcd"},
        {0, 5, nullptr},
        {1, 2, "bc"},
        {1, 3, "bcd"},
        {1, 4, nullptr},
        {3, 1, "d"},
        {4, 0, ""},
        {4, 1, nullptr},
        {5, 0, nullptr},
        {5, -1, nullptr},
        {-1, 0, nullptr},
        {-1, 1, nullptr},
        {0, -1, nullptr},
        {2, -2, nullptr},
        {-20, 3, nullptr},
        {0, -100, nullptr},
        {INT_MAX, 0, nullptr},
        {0, INT_MAX, nullptr},
        {1, INT_MAX, nullptr},
        {INT_MAX, INT_MAX, nullptr},
        {INT_MIN, INT_MIN, nullptr},
        {INT_MIN, INT_MAX, nullptr},
        {4, INT_MIN, nullptr},
    };
    for (const ZelDtWorkingMode mode : {ZelDtWmMissing, ZelDtWmNull, ZelDtWmAlwaysDefined}) {
        const StringPtr s = Make({mode, "abcd"});
        for (const Row& row : rows) {
            SCOPED_TRACE(::testing::Message() << row.position << ", " << row.count);
            if (row.expected == nullptr) {
                EXPECT_TRUE(FailsWith([&] { s->GetnValue(row.position, row.count); },
                                      FunctionError(3, "GetnValue(INT,INT)")));
            } else {
                const ZelDtString part = s->GetnValue(row.position, row.count);
                EXPECT_EQ(BytesOf(part), row.expected);
                EXPECT_EQ(part.IsDefined(), 1);
                EXPECT_EQ(part.GetWorkingMode(), ZelDtWmMissing);
            }
        }
        EXPECT_EQ(ContentOf(*s), (Content{"abcd", 1, 0}));
    }
}

TEST(GetnValue, OfUndefinedValues)
{
    const ZelDtString missing(ZelDtWmMissing);
    const ZelDtString null(ZelDtWmNull);
    for (const int position : {0, 1, -1, INT_MAX}) {
        for (const int count : {0, 1, -1, INT_MAX}) {
            EXPECT_TRUE(FailsWith([&] { missing.GetnValue(position, count); },
                                  FunctionError(2, "GetnValue(INT,INT)")));
            const ZelDtString part = null.GetnValue(position, count);
            EXPECT_EQ(BytesOf(part), "");
            EXPECT_EQ(part.IsDefined(), 1);
        }
    }
}

TEST(GetnValue, GivesAValueInTheDefaultMode)
{
    const DefaultMode guard(ZelDtWmNull);
    const StringPtr s = Make({ZelDtWmMissing, "abcd"});
    EXPECT_EQ(s->GetnValue(1, 2).GetWorkingMode(), ZelDtWmNull);
    EXPECT_EQ(ZelDtString(ZelDtWmNull).GetnValue(0, 0).GetWorkingMode(), ZelDtWmNull);
}

TEST(GetnValue, CarriesNulBytes)
{
    const StringPtr s = Make(Raw("a\0b\0c"));
    EXPECT_EQ(BytesOf(s->GetnValue(0, 5)), Raw("a\0b\0c"));
    EXPECT_EQ(BytesOf(s->GetnValue(1, 3)), Raw("\0b\0"));
    EXPECT_EQ(BytesOf(s->GetnValue(3, 1)), Raw("\0"));
}

TEST(GetLength, NeedsNoDefinedValue)
{
    for (const Start& start : kUndefined)
        EXPECT_EQ(Make(start)->GetLength(), 0);
    EXPECT_EQ(ZelDtString("").GetLength(), 0);
    EXPECT_EQ(ZelDtString("abc").GetLength(), 3);
    EXPECT_EQ(ZelDtString("", 7).GetLength(), 7);
    const StringPtr leftover = Make({ZelDtWmMissing, "abc"});
    Undefine(*leftover);
    EXPECT_EQ(leftover->GetLength(), 3);
}

TEST(IsEmpty, FailsForAMissingValueOnly)
{
    const ZelDtString missing(ZelDtWmMissing);
    EXPECT_TRUE(FailsWith([&] { missing.IsEmpty(); }, FunctionError(2, "IsEmpty()")));
    EXPECT_EQ(ZelDtString(ZelDtWmNull).IsEmpty(), 1);
    EXPECT_EQ(ZelDtString(ZelDtWmAlwaysDefined).IsEmpty(), 1);
    EXPECT_EQ(ZelDtString("").IsEmpty(), 1);
    EXPECT_EQ(ZelDtString(" ").IsEmpty(), 0);
    EXPECT_EQ(ZelDtString("abc").IsEmpty(), 0);
    EXPECT_EQ(ZelDtString("", 1).IsEmpty(), 0);
}

TEST(GetPos, FindsTheFirstMatch)
{
    struct Row {
        const char* text;
        const char* pattern;
        int expected;
    };
    const Row rows[] = {
        {"abab", "ab", 0},     {"abab", "b", 1},     {"abab", "ba", 1},  {"abab", "abab", 0},
        {"abab", "ababa", -1}, {"abab", "c", -1},    {"abab", "AB", -1}, {"aab", "ab", 1},
        {"", "a", -1},         {"a", "", -1},        {"", "", -1},       {"a", "a", 0},
        {"\xE4", "\xC4", -1},  {"x\xE4", "\xE4", 1}, {"aaab", "aab", 1}, {"a b", " ", 1},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(::testing::Message() << row.pattern << " in " << row.text);
        // Whatever is no kiNext searches from the start.
        for (const int mode : {kFirst, 0, 1, 2, -1, -10, -11, -22, INT_MAX, INT_MIN}) {
            ZelDtString s(row.text);
            EXPECT_EQ(s.GetPos(row.pattern, mode), row.expected);
            EXPECT_EQ(s.GetPos(row.pattern, mode), row.expected);
        }
        ZelDtString s(row.text);
        EXPECT_EQ(s.GetPos(row.pattern, kNext), row.expected) << "without a match before";
        EXPECT_EQ(ContentOf(s), (Content{row.text, 1, 0}));
    }
}

TEST(GetPos, GoesOnBehindTheLastMatch)
{
    ZelDtString s("abab");
    EXPECT_EQ(s.GetPos("ab", kFirst), 0);
    EXPECT_EQ(s.GetPos("ab", kNext), 2);
    EXPECT_EQ(s.GetPos("ab", kNext), kNotFound);
    EXPECT_EQ(s.GetPos("ab", kNext), kNotFound) << "the last match is still the one at 2";
    EXPECT_EQ(s.GetPos("ab", kFirst), 0);
    EXPECT_EQ(s.GetPos("ab", kNext), 2);
}

TEST(GetPos, DoesNotFindOverlappingMatches)
{
    ZelDtString s("aaaaa");
    EXPECT_EQ(s.GetPos("aa", kFirst), 0);
    EXPECT_EQ(s.GetPos("aa", kNext), 2);
    EXPECT_EQ(s.GetPos("aa", kNext), kNotFound);
}

TEST(GetPos, StepsByThePatternItIsGiven)
{
    ZelDtString s("abcabcabc");
    EXPECT_EQ(s.GetPos("a", kFirst), 0);
    EXPECT_EQ(s.GetPos("b", kNext), 1);
    EXPECT_EQ(s.GetPos("abc", kNext), 6) << "the search begins at 1 + 3";
    ZelDtString t("abcabcabc");
    EXPECT_EQ(t.GetPos("abc", kFirst), 0);
    EXPECT_EQ(t.GetPos("b", kNext), 1) << "the search begins at 0 + 1";
}

TEST(GetPos, KeepsTheLastMatchWhenNothingIsFound)
{
    ZelDtString s("xaxa");
    EXPECT_EQ(s.GetPos("a", kFirst), 1);
    EXPECT_EQ(s.GetPos("q", kFirst), kNotFound);
    EXPECT_EQ(s.GetPos("", kFirst), kNotFound);
    EXPECT_EQ(s.GetPos("a", kNext), 3);
}

TEST(GetPos, SurvivesATextThatBecameShorterThanTheLastMatch)
{
    ZelDtString s("0123456789ab");
    EXPECT_EQ(s.GetPos("ab", kFirst), 10);
    s.Cut(3);
    EXPECT_EQ(s.GetPos("1", kNext), kNotFound);
    EXPECT_EQ(s.GetPos("1", kFirst), 1);
    ZelDtString t("0123456789ab");
    EXPECT_EQ(t.GetPos("ab", kFirst), 10);
    t.Cut(0);
    EXPECT_EQ(t.GetPos("ab", kNext), kNotFound);
    ZelDtString u("ab12");
    EXPECT_EQ(u.GetPos("2", kFirst), 3);
    EXPECT_EQ(u.GetPos("2", kNext), kNotFound) << "the search begins at the very end";
}

TEST(GetPos, NeedsNoDefinedValues)
{
    for (const Start& start : kUndefined) {
        const StringPtr undefined = Make(start);
        EXPECT_EQ(undefined->GetPos("a", kFirst), kNotFound);
        EXPECT_EQ(undefined->GetPos("a", kNext), kNotFound);
        ZelDtString s("abc");
        EXPECT_EQ(s.GetPos(*undefined, kFirst), kNotFound);
    }
    const StringPtr leftover = Make({ZelDtWmMissing, "abc"});
    Undefine(*leftover);
    EXPECT_EQ(leftover->GetPos("c", kFirst), 2);
}

TEST(GetPos, FindsItself)
{
    ZelDtString s("abc");
    EXPECT_EQ(s.GetPos(s, kFirst), 0);
    EXPECT_EQ(s.GetPos(s, kNext), kNotFound);
}

TEST(Compare, TableOfStates)
{
    const Start starts[] = {
        {ZelDtWmMissing, nullptr},   // 0 missing
        {ZelDtWmNull, nullptr},      // 1 null
        {ZelDtWmMissing, ""},        // 2
        {ZelDtWmNull, ""},           // 3
        {ZelDtWmAlwaysDefined, ""},  // 4
        {ZelDtWmMissing, "a"},       // 5
        {ZelDtWmNull, "a"},          // 6
        {ZelDtWmAlwaysDefined, "a"}, // 7
    };
    // All without text are equal, by one rule or another; a missing value reads as its empty text.
    for (std::size_t i = 0; i < std::size(starts); ++i) {
        for (std::size_t j = 0; j < std::size(starts); ++j) {
            SCOPED_TRACE(::testing::Message() << starts[i] << " with " << starts[j]);
            const bool equal = (i < 5) == (j < 5);
            for (const int exact : {0, 1, 2, -1})
                EXPECT_EQ(Make(starts[i])->Compare(*Make(starts[j]), exact), equal ? 1 : 0);
        }
    }
}

TEST(Compare, UndefinedValuesAreEqualWhateverTheirTexts)
{
    const StringPtr a = Make({ZelDtWmNull, "abc"});
    const StringPtr b = Make({ZelDtWmMissing, "xyz"});
    Undefine(*a);
    Undefine(*b);
    EXPECT_EQ(a->Compare(*b, 1), 1);
    EXPECT_EQ(a->Compare(ZelDtString(""), 1), 1) << "null with an empty text";
    EXPECT_EQ(ZelDtString("").Compare(*a, 1), 1);
    EXPECT_EQ(b->Compare(ZelDtString(""), 1), 0) << "missing is not null";
    EXPECT_EQ(b->Compare(ZelDtString("xyz"), 1), 1);
}

TEST(Compare, WithAndWithoutRegardToCase)
{
    struct Row {
        const char* a;
        const char* b;
        int exact;
        int inexact;
    };
    const Row rows[] = {
        {"abc", "abc", 1, 1},
        {"abc", "ABC", 0, 1},
        {"abc", "abd", 0, 0},
        {"abc", "abcd", 0, 0},
        {"abc", "ab", 0, 0},
        {"m\xFCller", "M\xDCLLER", 0, 1},
        {"\xE4\xF6\xFC", "\xC4\xD6\xDC", 0, 1},
        {"\xE4", "a", 0, 0},
        {"stra\xDF"
         "e",
         "STRASSE", 0, 0},
        {"stra\xDF"
         "e",
         "STRA\xDF"
         "E",
         0, 1},
        {"\xE9", "\xC9", 0, 1},
        {"\xFF", "\x9F", 0, 1},
        {"\x9A", "\x8A", 0, 1},
        {"\xF7", "\xD7", 0, 0},
        {"[", "{", 0, 0},
        {"@", "`", 0, 0},
        {"1", "1", 1, 1},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(::testing::Message() << Escaped(row.a) << ", " << Escaped(row.b));
        const ZelDtString a(row.a);
        const ZelDtString b(row.b);
        EXPECT_EQ(a.Compare(b, TRUE), row.exact);
        EXPECT_EQ(b.Compare(a, TRUE), row.exact);
        EXPECT_EQ(a.Compare(b, FALSE), row.inexact);
        EXPECT_EQ(b.Compare(a, FALSE), row.inexact);
        EXPECT_EQ(a.Compare(a, TRUE), 1);
    }
}
