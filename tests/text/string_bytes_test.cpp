#include "tests/text/string_testing.h"

#include <climits>

using namespace zeltest;

namespace {

const int kLeft = ZelDtString::kiLeft;
const int kRight = ZelDtString::kiRight;
const int kAll = ZelDtString::kiAll;
const int kSingle = ZelDtString::kiSingle;

/// The upper-case letters of code page 1252 that lie 0x20 below their lower-case ones.
bool IsPairedUpper(int code)
{
    return (code >= 'A' && code <= 'Z') || (code >= 0xC0 && code <= 0xDE && code != 0xD7);
}

int UpperOf(int code)
{
    if (code == 0x9A || code == 0x9C || code == 0x9E)
        return code - 0x10;
    if (code == 0xFF)
        return 0x9F;
    return code >= 0x20 && IsPairedUpper(code - 0x20) ? code - 0x20 : code;
}

int LowerOf(int code)
{
    if (code == 0x8A || code == 0x8C || code == 0x8E)
        return code + 0x10;
    if (code == 0x9F)
        return 0xFF;
    return IsPairedUpper(code) ? code + 0x20 : code;
}

/// Letters that are lower case without having an upper case here; whether meeting one marks a
/// value modified is left open.
bool IsLoneLower(int code)
{
    return code == 0x83 || code == 0xAA || code == 0xB5 || code == 0xBA;
}

} // namespace

TEST(FillUp, Table)
{
    struct Row {
        Start start;
        char fill;
        int newLength;
        int side;
        Content expected;
        int alloc;
    };
    const Start null = {ZelDtWmNull, nullptr};
    const Start missing = {ZelDtWmMissing, nullptr};
    const Start always = {ZelDtWmAlwaysDefined, nullptr};
    const Start text = {ZelDtWmMissing, "42"};
    const Row rows[] = {
        {text, '0', 5, kLeft, {"00042", 1, 1}, 5},
        {text, '0', 5, kRight, {"42000", 1, 1}, 5},
        {text, '.', 3, 0, {"42.", 1, 1}, 3},
        {text, '.', 3, ZelDtString::kiLeftRight, {"42.", 1, 1}, 3},
        {text, '.', 3, INT_MIN, {"42.", 1, 1}, 3},
        {text, '0', 3, kLeft, {"042", 1, 1}, 3},
        {text, '0', 2, kLeft, {"42", 1, 0}, 2},
        {text, '0', 1, kLeft, {"42", 1, 0}, 2},
        {text, '0', 0, kRight, {"42", 1, 0}, 2},
        {text, '0', -1, kRight, {"42", 1, 0}, 2},
        {text, '0', INT_MIN, kRight, {"42", 1, 0}, 2},
        {{ZelDtWmMissing, "42", 8}, '0', 5, kLeft, {"00042", 1, 1}, 8},
        {{ZelDtWmMissing, "42", 4}, '0', 5, kRight, {"42000", 1, 1}, 5},
        {{ZelDtWmMissing, ""}, 'x', 3, kLeft, {"xxx", 1, 1}, 3},
        {{ZelDtWmMissing, ""}, 'x', 0, kLeft, {"", 1, 0}, 0},
        {null, '0', 5, kRight, {"00000", 1, 1}, 5},
        {null, '0', 5, kLeft, {"00000", 1, 1}, 5},
        {null, '0', 0, kLeft, {"", 0, 0}, 0},
        {null, '0', -3, kLeft, {"", 0, 0}, 0},
        {missing, '0', 5, kLeft, {"", 0, 0}, 0},
        {missing, '0', INT_MAX, kLeft, {"", 0, 0}, 0},
        {missing, '0', -1, kLeft, {"", 0, 0}, 0},
        {always, '0', 2, kLeft, {"00", 1, 1}, 2},
        {{ZelDtWmNull, "42"}, '0', 3, kLeft, {"042", 1, 1}, 3},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(::testing::Message() << row.start << " to " << row.newLength);
        const StringPtr s = Make(row.start);
        s->FillUp(row.fill, row.newLength, row.side);
        EXPECT_EQ(ContentOf(*s), row.expected);
        EXPECT_EQ(s->GetAllocLength(), row.alloc);
    }
}

TEST(FillUp, RefusesTheLengthThatNoTextReaches)
{
    for (const Start& start : {Start{ZelDtWmMissing, "42"}, Start{ZelDtWmMissing, ""},
                               Start{ZelDtWmNull, nullptr}, Start{ZelDtWmAlwaysDefined, nullptr}}) {
        for (const int side : {kLeft, kRight, 0}) {
            const StringPtr s = Make(start);
            const Content before = ContentOf(*s);
            EXPECT_TRUE(FailsAnyhow([&] { s->FillUp('0', 0x7FFFFFFF, side); }, 8, "DTSTRFKT"));
            EXPECT_EQ(ContentOf(*s), before);
        }
    }
}

TEST(FillUp, TakesAnyCharacter)
{
    ZelDtString s("a");
    s.FillUp('\0', 3, kRight);
    EXPECT_EQ(ContentOf(s), (Content{Raw("a\0\0"), 1, 1}));
    s.FillUp('\xFF', 4, kLeft);
    EXPECT_EQ(BytesOf(s), Raw("\xFF"
                              "a\0\0"));
}

TEST(Case, OfEveryByte)
{
    for (int code = 1; code < 256; ++code) {
        SCOPED_TRACE(code);
        const char c = static_cast<char>(code);
        ZelDtString upper(std::string(1, c).c_str());
        upper.ToUpper();
        EXPECT_EQ(BytesOf(upper), std::string(1, static_cast<char>(UpperOf(code))));
        ZelDtString lower(std::string(1, c).c_str());
        lower.ToLower();
        EXPECT_EQ(BytesOf(lower), std::string(1, static_cast<char>(LowerOf(code))));
    }
}

TEST(Case, MarksModifiedForEveryByteThatIsNotAlreadySo)
{
    for (int code = 1; code < 256; ++code) {
        if (IsLoneLower(code))
            continue;
        SCOPED_TRACE(code);
        const bool isUpper = LowerOf(code) != code;
        const bool isLower = UpperOf(code) != code;
        const bool sharpS = code == 0xDF;
        const char text[] = {static_cast<char>(code), '\0'};
        ZelDtString upper(text);
        upper.ToUpper();
        EXPECT_EQ(upper.IsModified(), isUpper || sharpS ? 0 : 1);
        ZelDtString lower(text);
        lower.ToLower();
        EXPECT_EQ(lower.IsModified(), isLower || sharpS ? 0 : 1);
    }
}

TEST(Case, OfTexts)
{
    struct Row {
        const char* text;
        const char* upper;
        int upperModified;
        const char* lower;
        int lowerModified;
    };
    const Row rows[] = {
        {"", "", 0, "", 0},
        {"abc", "ABC", 1, "abc", 0},
        {"ABC", "ABC", 0, "abc", 1},
        {"1", "1", 1, "1", 1},
        {" ", " ", 1, " ", 1},
        {"A1", "A1", 1, "a1", 1},
        {"\xE4\xF6\xFC\xDF", "\xC4\xD6\xDC\xDF", 1, "\xE4\xF6\xFC\xDF", 0},
        {"\xC4\xD6\xDC\xDF", "\xC4\xD6\xDC\xDF", 0, "\xE4\xF6\xFC\xDF", 1},
        {"M\xFCller & S\xF6hne", "M\xDCLLER & S\xD6HNE", 1, "m\xFCller & s\xF6hne", 1},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(Escaped(row.text));
        for (const int modifiedBefore : {0, 1}) {
            ZelDtString s(row.text);
            s.SetModified(modifiedBefore);
            s.ToUpper();
            EXPECT_EQ(ContentOf(s), (Content{row.upper, 1, row.upperModified | modifiedBefore}));
            ZelDtString t(row.text);
            t.SetModified(modifiedBefore);
            t.ToLower();
            EXPECT_EQ(ContentOf(t), (Content{row.lower, 1, row.lowerModified | modifiedBefore}));
        }
    }
}

TEST(Case, ChecksNoDefinedness)
{
    for (const ZelDtWorkingMode mode : {ZelDtWmMissing, ZelDtWmNull}) {
        ZelDtString s(mode);
        s.ToUpper();
        s.ToLower();
        EXPECT_EQ(ContentOf(s), (Content{"", 0, 0}));
    }
    const StringPtr leftover = Make({ZelDtWmMissing, "abc"});
    Undefine(*leftover);
    leftover->ToUpper();
    EXPECT_EQ(ContentOf(*leftover), (Content{"ABC", 0, 1}));
}

TEST(Case, GoesOnBehindNulBytes)
{
    const StringPtr s = Make(Raw("a\0b"));
    s->ToUpper();
    EXPECT_EQ(BytesOf(*s), Raw("A\0B"));
    s->ToLower();
    EXPECT_EQ(BytesOf(*s), Raw("a\0b"));
}

TEST(SetAt, ReplacesOneByte)
{
    ZelDtString s("abc");
    s.SetAt(1, 'b');
    EXPECT_EQ(ContentOf(s), (Content{"abc", 1, 0}));
    s.SetAt(1, 'x');
    EXPECT_EQ(ContentOf(s), (Content{"axc", 1, 1}));
    s.SetAt(0, '\xFF');
    s.SetAt(2, '\x01');
    EXPECT_EQ(BytesOf(s), "\xFFx\x01");
    s.SetModified(1);
    s.SetAt(1, 'x');
    EXPECT_EQ(s.IsModified(), 1);
}

TEST(SetAt, RefusesPositionsOutsideAndNul)
{
    struct Row {
        int index;
        char character;
        unsigned long error;
    };
    const Row rows[] = {
        {3, 'x', 3},  {4, 'x', 3},   {-1, 'x', 3}, {INT_MAX, 'x', 3}, {INT_MIN, 'x', 3},
        {3, '\0', 3}, {-1, '\0', 3}, {0, '\0', 5}, {2, '\0', 5},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.index);
        ZelDtString s("abc", ZelDtString::kiDefaultLength, 10);
        EXPECT_TRUE(FailsWith([&] { s.SetAt(row.index, row.character); },
                              FunctionError(row.error, "SetAt(INT,TCHAR)")));
        EXPECT_EQ(ContentOf(s), (Content{"abc", 1, 0}));
    }
    for (const ZelDtWorkingMode mode : {ZelDtWmMissing, ZelDtWmNull, ZelDtWmAlwaysDefined}) {
        ZelDtString s(mode);
        EXPECT_TRUE(FailsWith([&] { s.SetAt(0, 'x'); }, FunctionError(3, "SetAt(INT,TCHAR)")));
    }
}

TEST(SetAt, DefinesNothing)
{
    const StringPtr leftover = Make({ZelDtWmMissing, "abc"});
    Undefine(*leftover);
    leftover->SetAt(0, 'x');
    EXPECT_EQ(ContentOf(*leftover), (Content{"xbc", 0, 1}));
}

TEST(OwnText, AsArgumentOfEveryFunction)
{
    ZelDtString insert("abc");
    insert.Insert(insert, 1);
    EXPECT_EQ(ContentOf(insert), (Content{"aabcbc", 1, 1}));
    ZelDtString copy("abc");
    copy.Copy(copy, 2);
    EXPECT_EQ(ContentOf(copy), (Content{"ababc", 1, 1}));
    ZelDtString parts("abcd");
    parts.CopyParts(parts, 1);
    EXPECT_EQ(ContentOf(parts), (Content{"aabcd", 1, 1}));
    ZelDtString all("abcabc");
    EXPECT_EQ(all.DeleteParts(all, kAll), 1);
    EXPECT_EQ(ContentOf(all), (Content{"", 1, 1}));
    ZelDtString single("abc");
    EXPECT_EQ(single.DeleteParts(single, kSingle), 1);
    EXPECT_EQ(BytesOf(single), "");
    ZelDtString behind("abc");
    EXPECT_EQ(behind.DeleteParts(behind, 1), 1);
    EXPECT_EQ(BytesOf(behind), "a");
    ZelDtString oldPart("abc");
    EXPECT_EQ(oldPart.Change(oldPart, "longer text", kAll), 1);
    EXPECT_EQ(ContentOf(oldPart), (Content{"longer text", 1, 1}));
    ZelDtString newPart("aba");
    EXPECT_EQ(newPart.Change("a", newPart, kAll), 1);
    EXPECT_EQ(ContentOf(newPart), (Content{"abababa", 1, 1}));
    ZelDtString both("abc");
    EXPECT_EQ(both.Change(both, both, kAll), 1);
    EXPECT_EQ(ContentOf(both), (Content{"abc", 1, 0}));
    ZelDtString removed("abc");
    EXPECT_EQ(removed.Change(removed, "", kAll), 1);
    EXPECT_EQ(BytesOf(removed), "");
    ZelDtString left("abcd");
    ZelDtString rest(ZelDtWmMissing);
    left.Split(left, rest, 1);
    EXPECT_EQ(ContentOf(left), (Content{"a", 1, 1}));
    EXPECT_EQ(ContentOf(rest), (Content{"bcd", 1, 1}));
    ZelDtString right("abcd");
    right.Split(rest, right, 3);
    EXPECT_EQ(BytesOf(rest), "abc");
    EXPECT_EQ(ContentOf(right), (Content{"d", 1, 1}));
}

TEST(NulBytes, AreCarriedByEditing)
{
    const std::string text = Raw("a\0b\0c");
    const StringPtr s = Make(text);
    s->Insert(*Make(Raw("\0x")), 2);
    EXPECT_EQ(BytesOf(*s), Raw("a\0\0xb\0c"));
    s->CopyParts(*Make(Raw("y\0")), 3);
    EXPECT_EQ(BytesOf(*s), Raw("a\0\0y\0\0c"));
    s->Copy(*Make(Raw("\0z")), 4);
    EXPECT_EQ(BytesOf(*s), Raw("a\0\0y\0z"));
    s->FillUp(' ', 8, kLeft);
    EXPECT_EQ(BytesOf(*s), Raw("  a\0\0y\0z"));
    s->Trim(kLeft);
    EXPECT_EQ(BytesOf(*s), Raw("a\0\0y\0z"));
    ZelDtString left(ZelDtWmMissing);
    ZelDtString right(ZelDtWmMissing);
    s->Split(left, right, 2);
    EXPECT_EQ(BytesOf(left), Raw("a\0"));
    EXPECT_EQ(BytesOf(right), Raw("\0y\0z"));
    EXPECT_EQ(s->DeleteParts("..", 1), 1);
    EXPECT_EQ(BytesOf(*s), Raw("ay\0z"));
    s->Cut(3);
    EXPECT_EQ(BytesOf(*s), Raw("ay\0"));
    EXPECT_EQ((*s)[2], '\0');
}
