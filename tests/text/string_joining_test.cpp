#include "tests/text/string_testing.h"

#include <string>

using namespace zeltest;

namespace {

const Start kMissing = {ZelDtWmMissing, nullptr};
const Start kNull = {ZelDtWmNull, nullptr};
const Start kAlways = {ZelDtWmAlwaysDefined, nullptr};
const Start kEmpty = {ZelDtWmMissing, ""};
const Start kText = {ZelDtWmMissing, "ab"};

} // namespace

TEST(Appending, OfAString)
{
    struct Row {
        Start target;
        Start source;
        Content expected;
        int alloc;
    };
    const Row rows[] = {
        {kText, {ZelDtWmMissing, "cd"}, {"abcd", 1, 1}, 4},
        {kText, {ZelDtWmMissing, "cd", 50}, {"abcd", 1, 1}, 4},
        {kText, {ZelDtWmNull, "c"}, {"abc", 1, 1}, 3},
        {{ZelDtWmMissing, "ab", 5}, {ZelDtWmMissing, "cde"}, {"abcde", 1, 1}, 5},
        {{ZelDtWmMissing, "ab", 4}, {ZelDtWmMissing, "cde"}, {"abcde", 1, 1}, 5},
        {kText, kEmpty, {"ab", 1, 0}, 2},
        {kText, kMissing, {"ab", 1, 0}, 2},
        {kText, kNull, {"ab", 1, 0}, 2},
        {kText, kAlways, {"ab", 1, 0}, 2},
        {kEmpty, kEmpty, {"", 1, 0}, 0},
        {kMissing, kText, {"ab", 1, 1}, 2},
        {kNull, kText, {"ab", 1, 1}, 2},
        {kAlways, kText, {"ab", 1, 1}, 2},
        // Becoming defined counts as a change.
        {kMissing, kEmpty, {"", 1, 1}, 0},
        {kNull, kEmpty, {"", 1, 1}, 0},
        {kNull, kAlways, {"", 1, 1}, 0},
        {kAlways, kEmpty, {"", 1, 0}, 0},
        {kAlways, kMissing, {"", 1, 0}, 0},
        // Two undefined values stay as they are.
        {kMissing, kMissing, {"", 0, 0}, 0},
        {kMissing, kNull, {"", 0, 0}, 0},
        {kNull, kMissing, {"", 0, 0}, 0},
        {kNull, kNull, {"", 0, 0}, 0},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(::testing::Message() << '(' << row.target << ") += (" << row.source << ')');
        for (const int modifiedBefore : {0, 1}) {
            const StringPtr target = Make(row.target);
            const StringPtr source = Make(row.source);
            target->SetModified(modifiedBefore);
            EXPECT_EQ(&(*target += *source), target.get());
            Content expected = row.expected;
            expected.modified |= modifiedBefore;
            EXPECT_EQ(ContentOf(*target), expected);
            EXPECT_EQ(target->GetAllocLength(), row.alloc);
            EXPECT_EQ(target->GetWorkingMode(), row.target.mode);
        }
    }
}

TEST(Appending, ToAnUndefinedValueReservesExactly)
{
    const StringPtr string = Make({ZelDtWmNull, "a", 30});
    Undefine(*string);
    *string += ZelDtString("xy");
    EXPECT_EQ(ContentOf(*string), (Content{"axy", 1, 1}));
    EXPECT_EQ(string->GetAllocLength(), 3);
    const StringPtr text = Make({ZelDtWmNull, "a", 30});
    Undefine(*text);
    *text += "xy";
    EXPECT_EQ(text->GetAllocLength(), 3);
    const StringPtr character = Make({ZelDtWmNull, "a", 30});
    Undefine(*character);
    *character += 'x';
    EXPECT_EQ(character->GetAllocLength(), 2);
}

TEST(Appending, OfPlainTexts)
{
    struct Row {
        Start target;
        const char* text;
        Content expected;
        int alloc;
    };
    const Row rows[] = {
        {kText, "cd", {"abcd", 1, 1}, 4},
        {kText, "", {"ab", 1, 0}, 2},
        {kMissing, "cd", {"cd", 1, 1}, 2},
        {kMissing, "", {"", 1, 1}, 0},
        {kNull, "cd", {"cd", 1, 1}, 2},
        {kNull, "", {"", 1, 1}, 0},
        {kAlways, "cd", {"cd", 1, 1}, 2},
        {kAlways, "", {"", 1, 0}, 0},
        {{ZelDtWmMissing, "ab", 9}, "cd", {"abcd", 1, 1}, 9},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(::testing::Message() << '(' << row.target << ") += " << row.text);
        const auto check = [&row](auto&& source) {
            const StringPtr s = Make(row.target);
            EXPECT_EQ(&(*s += source), s.get());
            EXPECT_EQ(ContentOf(*s), row.expected);
            EXPECT_EQ(s->GetAllocLength(), row.alloc);
        };
        check(row.text);
        check(CString(row.text));
    }
}

TEST(Appending, OfACharacter)
{
    ZelDtString s("ab");
    EXPECT_EQ(&(s += 'c'), &s);
    EXPECT_EQ(ContentOf(s), (Content{"abc", 1, 1}));
    EXPECT_EQ(s.GetAllocLength(), 3);
    for (const Start& start : {kMissing, kNull, kAlways}) {
        const StringPtr undefined = Make(start);
        *undefined += '\xFC';
        EXPECT_EQ(ContentOf(*undefined), (Content{"\xFC", 1, 1}));
        EXPECT_EQ(undefined->GetAllocLength(), 1);
    }
}

TEST(Appending, OfItself)
{
    ZelDtString s("ab");
    s += s;
    EXPECT_EQ(ContentOf(s), (Content{"abab", 1, 1}));
    EXPECT_EQ(s.GetAllocLength(), 4);
    ZelDtString roomy("ab", ZelDtString::kiDefaultLength, 20);
    roomy += roomy;
    EXPECT_EQ(BytesOf(roomy), "abab");
    ZelDtString text("abc");
    text += static_cast<const char*>(text) + 1;
    EXPECT_EQ(BytesOf(text), "abcbc");
    ZelDtString undefined(ZelDtWmNull);
    undefined += undefined;
    EXPECT_EQ(ContentOf(undefined), (Content{"", 0, 0}));
}

TEST(Appending, CarriesNulBytes)
{
    const StringPtr s = Make(Raw("a\0"));
    *s += *Make(Raw("\0b"));
    EXPECT_EQ(BytesOf(*s), Raw("a\0\0b"));
    *s += Framework(Raw("c\0d"));
    EXPECT_EQ(BytesOf(*s), Raw("a\0\0bc\0d"));
    *s += "e";
    EXPECT_EQ(BytesOf(*s), Raw("a\0\0bc\0de"));
    EXPECT_EQ(BytesOf(*Make(Raw("a\0")) + *Make(Raw("\0b"))), Raw("a\0\0b"));
    EXPECT_EQ(BytesOf(*Make(Raw("a\0")) + Framework(Raw("\0b"))), Raw("a\0\0b"));
    EXPECT_EQ(BytesOf("x" + *Make(Raw("a\0b"))), Raw("xa\0b"));
}

TEST(Concatenation, OfDefinedValuesIsDefinedInTheDefaultMode)
{
    for (const ZelDtWorkingMode mode : {ZelDtWmMissing, ZelDtWmNull, ZelDtWmAlwaysDefined}) {
        const DefaultMode guard(mode);
        const StringPtr a = Make({ZelDtWmNull, "ab", 10});
        const StringPtr b = Make({ZelDtWmAlwaysDefined, "cd"});
        const auto check = [mode](const ZelDtString& sum, const char* expected) {
            EXPECT_EQ(BytesOf(sum), expected);
            EXPECT_EQ(sum.GetAllocLength(), sum.GetLength());
            EXPECT_EQ(sum.IsDefined(), 1);
            EXPECT_EQ(sum.GetWorkingMode(), mode);
        };
        check(*a + *b, "abcd");
        check(*a + *a, "abab");
        check(*a + "cd", "abcd");
        check(*a + "", "ab");
        check(*a + CString("cd"), "abcd");
        check(*a + 'c', "abc");
        check("cd" + *a, "cdab");
        check("" + *a, "ab");
        check('c' + *a, "cab");
        check(CString("cd") + *a, "cdab");
        EXPECT_EQ(ContentOf(*a), (Content{"ab", 1, 0}));
        EXPECT_EQ(ContentOf(*b), (Content{"cd", 1, 0}));
    }
}

TEST(Concatenation, WithAnUndefinedValueCopiesTheOther)
{
    const Start starts[] = {kMissing, kNull};
    for (const Start& start : starts) {
        const StringPtr undefined = Make(start);
        const StringPtr text = Make({ZelDtWmAlwaysDefined, "ab", 10});
        text->SetModified(1);
        const ZelDtString right = *undefined + *text;
        EXPECT_EQ(StateOf(right), (State{ZelDtWmAlwaysDefined, 1, 1}));
        EXPECT_EQ(BytesOf(right), "ab");
        EXPECT_EQ(right.GetAllocLength(), 2);
        const ZelDtString left = *text + *undefined;
        EXPECT_EQ(StateOf(left), (State{ZelDtWmAlwaysDefined, 1, 1}));
        EXPECT_EQ(BytesOf(left), "ab");

        for (const Start& other : starts) {
            const ZelDtString sum = *undefined + *Make(other);
            EXPECT_EQ(StateOf(sum), (State{other.mode, 0, 0})) << "a copy of the right one";
            EXPECT_EQ(BytesOf(sum), "");
        }
    }
}

TEST(Concatenation, OfAnUndefinedValueWithPlainTexts)
{
    const DefaultMode guard(ZelDtWmNull);
    for (const Start& start : {kMissing, kNull}) {
        const StringPtr undefined = Make(start);
        const auto check = [](const ZelDtString& sum, const char* expected) {
            EXPECT_EQ(StateOf(sum), (State{ZelDtWmNull, 1, 0}));
            EXPECT_EQ(BytesOf(sum), expected);
        };
        check(*undefined + "cd", "cd");
        check(*undefined + "", "");
        check(*undefined + CString("cd"), "cd");
        check(*undefined + 'c', "c");
        check("cd" + *undefined, "cd");
        check('c' + *undefined, "c");
    }
}

TEST(Concatenation, OfAnEmptyAlwaysDefinedValue)
{
    const StringPtr always = Make(kAlways);
    EXPECT_EQ(StateOf(*always + ZelDtString("ab")).mode, ZelDtWmMissing);
    EXPECT_EQ(BytesOf(*always + ZelDtString("ab")), "ab");
    EXPECT_EQ(BytesOf('x' + *always), "x");
}
