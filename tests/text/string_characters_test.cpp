/// The operators of ZelDtString with ZelDtChar, and those of characters that make strings.

#include "tests/text/character_testing.h"

#include <string>
#include <type_traits>

namespace {

using namespace zeltest;

const Start kMissing = {ZelDtWmMissing, nullptr};
const Start kNull = {ZelDtWmNull, nullptr};
const Start kAlways = {ZelDtWmAlwaysDefined, nullptr};
const Start kEmpty = {ZelDtWmMissing, ""};
const Start kText = {ZelDtWmMissing, "ab"};

/// A string for a test that has a text although it is undefined, and room.
StringPtr MakeLeftover()
{
    StringPtr s = Make({ZelDtWmNull, "abc", 30});
    Undefine(*s);
    return s;
}

/// Undefined characters: missing, null, undefined in mode AlwaysDefined, each with and without a
/// byte that is left over.
std::vector<Letter> UndefinedLetters()
{
    std::vector<Letter> letters;
    for (const Letter& letter : Letters({'\0', 'x'}))
        if (!letter.state.defined)
            letters.push_back(letter);
    return letters;
}

std::vector<Letter> DefinedLetters(const std::vector<char>& characters)
{
    std::vector<Letter> letters;
    for (const Letter& letter : Letters(characters))
        if (letter.state.defined)
            letters.push_back(letter);
    return letters;
}

// Assignment

TEST(Assignment, OfADefinedCharacter)
{
    struct Row {
        Start target;
        char character;
        Content expected;
        int alloc;
    };
    const Row rows[] = {
        {{ZelDtWmMissing, "a"}, 'a', {"a", 1, 0}, 1},
        {{ZelDtWmMissing, "a"}, 'b', {"b", 1, 1}, 1},
        {{ZelDtWmMissing, "a"}, 'A', {"A", 1, 1}, 1},
        {{ZelDtWmMissing, "ab"}, 'a', {"a", 1, 1}, 2},
        {{ZelDtWmMissing, "abc", 9}, 'a', {"a", 1, 1}, 9},
        {{ZelDtWmMissing, "", 9}, 'a', {"a", 1, 1}, 9},
        {kEmpty, 'a', {"a", 1, 1}, 1},
        {kMissing, 'a', {"a", 1, 1}, 1},
        {kNull, '\xFF', {"\xFF", 1, 1}, 1},
        {kAlways, 'a', {"a", 1, 1}, 1},
        {{ZelDtWmNull, "a"}, 'a', {"a", 1, 0}, 1},
        {{ZelDtWmAlwaysDefined, "a"}, 'a', {"a", 1, 0}, 1},
        // A NUL character is a character too.
        {{ZelDtWmMissing, "a"}, '\0', {Raw("\0"), 1, 1}, 1},
        {kEmpty, '\0', {Raw("\0"), 1, 1}, 1},
        {kMissing, '\0', {Raw("\0"), 1, 1}, 1},
    };
    for (const Row& row : rows) {
        for (const Letter& letter : DefinedLetters({row.character})) {
            SCOPED_TRACE(::testing::Message() << '(' << row.target << ") = " << letter);
            for (const int modifiedBefore : {0, 1}) {
                const Given<ZelDtChar> character(letter);
                const StringPtr s = Make(row.target);
                s->SetModified(modifiedBefore);
                EXPECT_EQ(&(*s = character.it), s.get());
                Content expected = row.expected;
                expected.modified |= modifiedBefore;
                EXPECT_EQ(ContentOf(*s), expected);
                EXPECT_EQ(s->GetAllocLength(), row.alloc);
                EXPECT_EQ(s->GetWorkingMode(), row.target.mode);
                EXPECT_EQ(Look(character.it), letter);
            }
        }
    }
}

TEST(Assignment, OfADefinedCharacterToAnUndefinedTextKeepsItsBlock)
{
    const StringPtr s = MakeLeftover();
    *s = ZelDtChar('x');
    EXPECT_EQ(ContentOf(*s), (Content{"x", 1, 1}));
    EXPECT_EQ(s->GetAllocLength(), 30);
}

TEST(Assignment, OfAnUndefinedCharacterLeavesNothing)
{
    struct Row {
        Start target;
        int modified;
    };
    // Only the definedness marks; it is taken over in every mode.
    const Row rows[] = {
        {kText, 1},
        {{ZelDtWmNull, "ab"}, 1},
        {{ZelDtWmAlwaysDefined, "ab"}, 1},
        {kEmpty, 1},
        {kAlways, 1},
        {{ZelDtWmMissing, "ab", 30}, 1},
        {kMissing, 0},
        {kNull, 0},
    };
    for (const Row& row : rows) {
        for (const Letter& letter : UndefinedLetters()) {
            SCOPED_TRACE(::testing::Message() << '(' << row.target << ") = " << letter);
            for (const int modifiedBefore : {0, 1}) {
                const Given<ZelDtChar> character(letter);
                const StringPtr s = Make(row.target);
                s->SetModified(modifiedBefore);
                EXPECT_EQ(&(*s = character.it), s.get());
                EXPECT_EQ(ContentOf(*s), (Content{"", 0, row.modified | modifiedBefore}));
                EXPECT_EQ(s->GetAllocLength(), 0);
                EXPECT_EQ(s->GetWorkingMode(), row.target.mode);
            }
        }
    }
}

TEST(Assignment, OfAnUndefinedCharacterToAnUndefinedTextMarksNothing)
{
    const StringPtr s = MakeLeftover();
    *s = ZelDtChar(ZelDtWmMissing);
    EXPECT_EQ(ContentOf(*s), (Content{"", 0, 0}));
    EXPECT_EQ(s->GetAllocLength(), 0);
}

TEST(Assignment, OfAnUndefinedCharacterForgetsTheLastMatch)
{
    ZelDtString s("abab");
    EXPECT_EQ(s.GetPos("ab", ZelDtString::kiFirst), 0);
    s = ZelDtChar(ZelDtWmNull);
    s = "abab";
    EXPECT_EQ(s.GetPos("ab", ZelDtString::kiNext), 0);
}

// Appending

TEST(Appending, OfADefinedCharacter)
{
    struct Row {
        Start target;
        const char* expected;
        int alloc;
    };
    const Row rows[] = {
        {kText, "abx", 3},
        {{ZelDtWmMissing, "ab", 3}, "abx", 3},
        {{ZelDtWmMissing, "ab", 30}, "abx", 30},
        {{ZelDtWmNull, "ab"}, "abx", 3},
        {{ZelDtWmAlwaysDefined, "ab"}, "abx", 3},
        {kEmpty, "x", 1},
        {kMissing, "x", 1},
        {kNull, "x", 1},
        {kAlways, "x", 1},
    };
    for (const Row& row : rows) {
        for (const Letter& letter : DefinedLetters({'x'})) {
            SCOPED_TRACE(::testing::Message() << '(' << row.target << ") += " << letter);
            const Given<ZelDtChar> character(letter);
            const StringPtr s = Make(row.target);
            EXPECT_EQ(&(*s += character.it), s.get());
            EXPECT_EQ(ContentOf(*s), (Content{row.expected, 1, 1}));
            EXPECT_EQ(s->GetAllocLength(), row.alloc);
            EXPECT_EQ(s->GetWorkingMode(), row.target.mode);
            EXPECT_EQ(Look(character.it), letter);
        }
    }
}

TEST(Appending, OfADefinedCharacterToAnUndefinedTextReservesExactly)
{
    const StringPtr s = MakeLeftover();
    *s += ZelDtChar('x');
    EXPECT_EQ(ContentOf(*s), (Content{"abcx", 1, 1}));
    EXPECT_EQ(s->GetAllocLength(), 4);
}

TEST(Appending, OfAnUndefinedCharacterAddsNothing)
{
    struct Row {
        Start target;
        Content expected;
        int alloc;
    };
    const Row rows[] = {
        {kText, {"ab", 1, 0}, 2},
        {{ZelDtWmNull, "ab", 30}, {"ab", 1, 0}, 30},
        {kEmpty, {"", 1, 0}, 0},
        {kAlways, {"", 1, 0}, 0},
        // Two undefined values stay as they are.
        {kMissing, {"", 0, 0}, 0},
        {kNull, {"", 0, 0}, 0},
    };
    for (const Row& row : rows) {
        for (const Letter& letter : UndefinedLetters()) {
            SCOPED_TRACE(::testing::Message() << '(' << row.target << ") += " << letter);
            for (const int modifiedBefore : {0, 1}) {
                const Given<ZelDtChar> character(letter);
                const StringPtr s = Make(row.target);
                s->SetModified(modifiedBefore);
                EXPECT_EQ(&(*s += character.it), s.get());
                Content expected = row.expected;
                expected.modified |= modifiedBefore;
                EXPECT_EQ(ContentOf(*s), expected);
                EXPECT_EQ(s->GetAllocLength(), row.alloc);
            }
        }
    }
    const StringPtr leftover = MakeLeftover();
    *leftover += ZelDtChar(ZelDtWmMissing);
    EXPECT_EQ(ContentOf(*leftover), (Content{"abc", 0, 0}));
    EXPECT_EQ(leftover->GetAllocLength(), 30);
}

TEST(Appending, OfEveryByte)
{
    ZelDtString s("");
    std::string expected;
    for (const char character : AllCharacters()) {
        s += ZelDtChar(character);
        expected += character;
        ASSERT_EQ(BytesOf(s), expected);
    }
    EXPECT_EQ(s.GetLength(), 256);
}

// Concatenation

/// A sum of defined values.
void ExpectJoined(const ZelDtString& sum, const std::string& text)
{
    EXPECT_EQ(BytesOf(sum), text);
    EXPECT_EQ(sum.IsDefined(), 1);
    EXPECT_EQ(sum.GetWorkingMode(), ZelDtGetDefaultWorkingMode());
    EXPECT_EQ(sum.GetAllocLength(), sum.GetLength());
}

/// A sum that is a string made from, or a copy of, the only defined operand or the right one.
template <typename Value>
void ExpectCopy(const ZelDtString& sum, const Value& value)
{
    const ZelDtString copy(value);
    EXPECT_EQ(BytesOf(sum), BytesOf(copy));
    EXPECT_EQ(StateOf(sum), StateOf(value));
}

TEST(Concatenation, OfDefinedValuesIsDefinedInTheDefaultMode)
{
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const Letter& letter : DefinedLetters({'x', '\xFC', '\0'})) {
            const Given<ZelDtChar> character(letter);
            const std::string one(1, letter.value);
            for (const ZelDtWorkingMode mode : kRealModes) {
                const StringPtr s = Make({mode, "ab", 10});
                ExpectJoined(*s + character.it, "ab" + one);
                ExpectJoined(character.it + *s, one + "ab");
                EXPECT_EQ(ContentOf(*s), (Content{"ab", 1, 0}));
                const StringPtr empty = Make({mode, ""});
                ExpectJoined(*empty + character.it, one);
                ExpectJoined(character.it + *empty, one);
            }
            for (const Letter& other : DefinedLetters({'y', '\0'})) {
                const Given<ZelDtChar> right(other);
                ExpectJoined(character.it + right.it, one + std::string(1, other.value));
            }
            ExpectJoined(character.it + character.it, one + one);
            EXPECT_EQ(Look(character.it), letter);
        }
    }
}

TEST(Concatenation, OfAnUndefinedStringIsTheCharacterAsAString)
{
    const DefaultMode guard(ZelDtWmNull);
    for (const StringPtr& s : {Make(kMissing), Make(kNull)}) {
        for (const Letter& letter : DefinedLetters({'x', '\0'})) {
            const Given<ZelDtChar> character(letter);
            ExpectCopy(*s + character.it, character.it);
            ExpectCopy(character.it + *s, character.it);
            EXPECT_EQ(Look(character.it), letter);
        }
        // With both undefined: a copy of the right one.
        for (const Letter& letter : UndefinedLetters()) {
            const Given<ZelDtChar> character(letter);
            ExpectCopy(*s + character.it, character.it);
            ExpectCopy(character.it + *s, *s);
        }
    }
}

TEST(Concatenation, WithAnUndefinedCharacterIsACopyOfTheString)
{
    for (const ZelDtWorkingMode mode : kRealModes) {
        for (const int modified : {0, 1}) {
            for (const Letter& letter : UndefinedLetters()) {
                const Given<ZelDtChar> character(letter);
                const StringPtr s = Make({mode, "ab", 10});
                s->SetModified(modified);
                for (const ZelDtString& sum : {*s + character.it, character.it + *s}) {
                    EXPECT_EQ(StateOf(sum), (State{mode, 1, modified}));
                    EXPECT_EQ(BytesOf(sum), "ab");
                    EXPECT_EQ(sum.GetAllocLength(), 2);
                }
            }
        }
    }
}

TEST(Concatenation, OfTwoCharactersOfWhichOneIsUndefined)
{
    for (const Letter& undefined : UndefinedLetters()) {
        const Given<ZelDtChar> left(undefined);
        for (const Letter& letter : Letters({'x', '\0'})) {
            const Given<ZelDtChar> right(letter);
            ExpectCopy(left.it + right.it, right.it);
            if (letter.state.defined)
                ExpectCopy(right.it + left.it, right.it);
        }
    }
}

TEST(Concatenation, WithPlainCharactersAndTexts)
{
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const Letter& letter : DefinedLetters({'x'})) {
            const Given<ZelDtChar> character(letter);
            ExpectJoined(character.it + 'y', "xy");
            ExpectJoined('y' + character.it, "yx");
            ExpectJoined(character.it + "yz", "xyz");
            ExpectJoined("yz" + character.it, "yzx");
            ExpectJoined(character.it + "", "x");
        }
        for (const Letter& letter : UndefinedLetters()) {
            const Given<ZelDtChar> character(letter);
            for (const ZelDtString& sum :
                 {character.it + 'y', 'y' + character.it, character.it + "y", "y" + character.it}) {
                EXPECT_EQ(StateOf(sum), NewDefined());
                EXPECT_EQ(BytesOf(sum), "y");
            }
        }
    }
    const ZelDtChar x('x');
    const char* none = nullptr;
    EXPECT_EQ(Catch([&] { x + none; }).error.number, 5UL);
    EXPECT_EQ(Catch([&] { none + x; }).error.number, 5UL);
}

TEST(Concatenation, IsNoAdditionOfNumbers)
{
    EXPECT_TRUE((std::is_same_v<decltype(ZelDtChar('a') + ZelDtChar('b')), ZelDtString>));
    EXPECT_TRUE((std::is_same_v<decltype(ZelDtChar('a') + 'b'), ZelDtString>));
    EXPECT_TRUE((std::is_same_v<decltype('a' + ZelDtChar('b')), ZelDtString>));
    EXPECT_EQ(BytesOf(ZelDtChar('a') + ZelDtChar('b') + ZelDtChar('c')), "abc");
    EXPECT_EQ(BytesOf(ZelDtString("a") + ZelDtChar('b') + "c" + ZelDtChar('d')), "abcd");
}

} // namespace
