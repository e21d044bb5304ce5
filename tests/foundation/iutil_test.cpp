/// Comparison, code pages, filling, and copying into the buffers of record sets.

#include "foundation/DT_IUTIL.h"

#include "tests/support/oem_tables.h"
#include "tests/support/zel_testing.h"

#include <algorithm>
#include <array>
#include <random>
#include <string>

namespace {

using namespace zeltest;

unsigned char At(const char* text, std::size_t position)
{
    return static_cast<unsigned char>(text[position]);
}

/// A text of the one character `code`.
std::string One(int code)
{
    return std::string(1, static_cast<char>(code));
}

// Equality

/// Upper case of code page 1252: the letters that have one in it.
int Upper(int code)
{
    if (code >= 'a' && code <= 'z')
        return code - 0x20;
    if (code >= 0xE0 && code <= 0xFE && code != 0xF7)
        return code - 0x20;
    switch (code) {
    case 0x9A: // š
    case 0x9C: // œ
    case 0x9E: // ž
        return code - 0x10;
    case 0xFF: // ÿ
        return 0x9F;
    default:
        return code;
    }
}

TEST(Equality, OfSingleCharactersIgnoresCaseUnlessExact)
{
    for (int a = 1; a < 256; ++a) {
        for (int b = 1; b < 256; ++b) {
            const std::string left = One(a);
            const std::string right = One(b);
            ASSERT_EQ(ZelDtVglString(left.c_str(), right.c_str(), 0), Upper(a) == Upper(b) ? 1 : 0)
                << a << ' ' << b;
            ASSERT_EQ(ZelDtVglString(left.c_str(), right.c_str(), 1), a == b ? 1 : 0)
                << a << ' ' << b;
        }
    }
}

TEST(Equality, OfTexts)
{
    const struct {
        const char* a;
        const char* b;
        int loose, exact;
    } rows[] = {
        {"", "", 1, 1},
        {"a", "", 0, 0},
        {"", "a", 0, 0},
        {"abc", "abc", 1, 1},
        {"abc", "ABC", 1, 0},
        {"abc", "abd", 0, 0},
        {"abc", "abcd", 0, 0},
        {"abcd", "abc", 0, 0},
        {"abc ", "abc", 0, 0},
        {"m\xFCller", "M\xDCLLER", 1, 0},
        {"m\xFCller", "m\xFCller", 1, 1},
        {"mueller", "m\xFCller", 0, 0},
        {"stra\xDF"
         "e",
         "STRASSE", 0, 0},
        {"stra\xDF"
         "e",
         "STRA\xDF"
         "E",
         1, 0},
        {"\xE4\xF6\xFC", "\xC4\xD6\xDC", 1, 0},
        {"\xE4", "a", 0, 0},
        {"[", "{", 0, 0},
        {"@", "`", 0, 0},
        {"\xF7", "\xD7", 0, 0}, // division and multiplication sign are no letters
    };
    for (const auto& row : rows) {
        EXPECT_EQ(ZelDtVglString(row.a, row.b, 0), row.loose) << row.a << " = " << row.b;
        for (const int exact : {1, -1, 2, 256})
            EXPECT_EQ(ZelDtVglString(row.a, row.b, exact), row.exact) << row.a << " = " << row.b;
    }
}

TEST(Equality, OfNoTextIsNever)
{
    for (const int exact : {0, 1}) {
        EXPECT_EQ(ZelDtVglString(nullptr, nullptr, exact), 0);
        EXPECT_EQ(ZelDtVglString(nullptr, "", exact), 0);
        EXPECT_EQ(ZelDtVglString("", nullptr, exact), 0);
        EXPECT_EQ(ZelDtVglString("a", nullptr, exact), 0);
    }
}

TEST(Equality, OfLongTexts)
{
    std::string a(100000, 'a');
    std::string b(100000, 'A');
    EXPECT_EQ(ZelDtVglString(a.c_str(), b.c_str(), 0), 1);
    EXPECT_EQ(ZelDtVglString(a.c_str(), b.c_str(), 1), 0);
    b.back() = 'b';
    EXPECT_EQ(ZelDtVglString(a.c_str(), b.c_str(), 0), 0);
}

// House sort order

/// Weight of every character; rows of 16.
constexpr std::array<unsigned char, 256> kWeights = {
    0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00,
    0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00,
    0x62, 0x01, 0x02, 0x03, 0x04, 0x05, 0x06, 0x07, 0x08, 0x09, 0x0A, 0x0B, 0x0C, 0x0D, 0x0E, 0x0F,
    0x63, 0x64, 0x65, 0x66, 0x67, 0x68, 0x69, 0x6A, 0x6B, 0x6C, 0x10, 0x11, 0x12, 0x13, 0x14, 0x15,
    0x16, 0x6D, 0x75, 0x76, 0x78, 0x79, 0x81, 0x82, 0x83, 0x84, 0x89, 0x8A, 0x8B, 0x8C, 0x8D, 0x8F,
    0x98, 0x99, 0x9A, 0x9B, 0x9E, 0x9F, 0xA4, 0xA5, 0xA6, 0xA7, 0xAA, 0x17, 0x18, 0x19, 0x1A, 0x1B,
    0x1C, 0x6D, 0x75, 0x76, 0x78, 0x79, 0x81, 0x82, 0x83, 0x84, 0x89, 0x8A, 0x8B, 0x8C, 0x8D, 0x8F,
    0x98, 0x99, 0x9A, 0x9B, 0x9E, 0x9F, 0xA4, 0xA5, 0xA6, 0xA7, 0xAA, 0x1D, 0x1E, 0x1F, 0x20, 0x21,
    0x22, 0x23, 0x24, 0x25, 0x26, 0x27, 0x28, 0x29, 0x2A, 0x2B, 0x9C, 0x2D, 0x97, 0x2F, 0x30, 0x31,
    0x32, 0x33, 0x34, 0x35, 0x36, 0x37, 0x38, 0x39, 0x3A, 0x3B, 0x9C, 0x3D, 0x97, 0x3F, 0x40, 0xA7,
    0x42, 0x43, 0x44, 0x45, 0x46, 0x47, 0x48, 0x49, 0x4A, 0x4B, 0x4C, 0x4D, 0x4E, 0x4F, 0x50, 0x51,
    0x52, 0x53, 0x54, 0x55, 0x56, 0x57, 0x58, 0x59, 0x5A, 0x5B, 0x5C, 0x5D, 0x5E, 0x5F, 0x60, 0x61,
    0x6E, 0x6F, 0x70, 0x71, 0x72, 0x73, 0x74, 0x77, 0x7A, 0x7C, 0x7E, 0x80, 0x85, 0x86, 0x87, 0x88,
    0xAB, 0x8E, 0x91, 0x92, 0x93, 0x94, 0x95, 0x2C, 0x96, 0xA0, 0xA1, 0xA2, 0xA3, 0xA8, 0xAA, 0x9B,
    0x6E, 0x6F, 0x70, 0x71, 0x72, 0x73, 0x74, 0x77, 0x7A, 0x7C, 0x7E, 0x80, 0x85, 0x86, 0x87, 0x88,
    0xAB, 0x8E, 0x91, 0x92, 0x93, 0x94, 0x95, 0x00, 0x96, 0xA0, 0xA1, 0xA2, 0xA3, 0xA8, 0xAC, 0xA9,
};

int Weight(const std::string& text, std::size_t position)
{
    return kWeights[At(text.c_str(), position)];
}

/// The order as it is explained to people: the first position with different weights decides, the
/// terminator of the shorter text included; else the longer text is the greater.
int Order(const std::string& a, const std::string& b)
{
    for (std::size_t i = 0; i <= std::min(a.size(), b.size()); ++i) {
        if (Weight(a, i) != Weight(b, i))
            return Weight(a, i) < Weight(b, i) ? -1 : 1;
    }
    if (a.size() == b.size())
        return 0;
    return a.size() < b.size() ? -1 : 1;
}

int Compare(const std::string& a, const std::string& b)
{
    return ZelDtCompareUsingOrbeckSortOrder(a.c_str(), b.c_str());
}

TEST(SortOrder, OfEveryPairOfCharactersFollowsTheWeights)
{
    for (int a = 1; a < 256; ++a) {
        for (int b = 1; b < 256; ++b) {
            const int expected = kWeights[a] < kWeights[b] ? -1 : kWeights[a] > kWeights[b] ? 1 : 0;
            ASSERT_EQ(Compare(One(a), One(b)), expected) << a << ' ' << b;
            ASSERT_EQ(Compare("x" + One(a) + "y", "X" + One(b) + "y"), expected) << a << ' ' << b;
        }
    }
}

TEST(SortOrder, OfEveryCharacterAgainstTheEndOfTheText)
{
    for (int a = 1; a < 256; ++a) {
        EXPECT_EQ(Compare("x" + One(a), "x"), 1) << a;
        EXPECT_EQ(Compare("x", "x" + One(a)), -1) << a;
    }
}

TEST(SortOrder, OfTexts)
{
    const struct {
        const char* a;
        const char* b;
        int order;
    } rows[] = {
        {"", "", 0},
        {"", "a", -1},
        {"a", "", 1},
        {"a", "A", 0},
        {"ab", "AB", 0},
        {"a-b", "a b", -1},
        {"#", "1", -1},
        {"1", "A", -1},
        {"#", "A", -1},
        {" ", "0", -1},
        {"~", " ", -1},
        {"0", "9", -1},
        {"9", "a", -1},
        {"9", "10", 1},
        {"Zebra",
         "\xC4"
         "pfel",
         1},
        {"\xC4"
         "pfel",
         "Apfel", 1},
        {"\xC4"
         "pfel",
         "B\xE4r", -1},
        {"Stra\xDF"
         "e",
         "Strase", 0},
        {"Stra\xDF"
         "e",
         "Strasse", -1},
        {"\xDE", "Z", 0}, // thorn, capital
        {"\xFE", "Z", 1}, // thorn, small
        {"\xFE", "\xDE", 1},
        {"\x8A", "S", 1}, // S with caron
        {"\x9A", "T", -1},
        {"\x8C", "\xD8", 1}, // OE between O with stroke and P
        {"\x9C", "P", -1},
        {"\x9F", "Y", 0}, // Y with diaeresis, capital
        {"\xFF", "y", 1}, // and small
        {"\xD0", "Z", 1}, // eth
        {"\xF0", "\xD0", 0},
        {"\xD7", "\x2B", 1}, // multiplication sign, a symbol
        {"\xD7", " ", -1},
        {"\xF7", "\x01", 0}, // division sign weighs nothing
        {"\xF7", "!", -1},
        {"ab", "ab\x01", -1},
        {"ab\x01", "ab", 1},
        {"ab\x01", "ab\x02", 0},
        {"ab\x01", "ab\xF7", 0},
        {"ab\x01"
         "c",
         "ab", 1},
        {"ab\x01"
         "c",
         "abc", -1},
        {"ab", "abc", -1},
        {"abd", "abc", 1},
        {"abcd", "abd", -1},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Compare(row.a, row.b), row.order) << row.a << " : " << row.b;
        EXPECT_EQ(Compare(row.b, row.a), -row.order) << row.b << " : " << row.a;
    }
}

TEST(SortOrder, OfRandomTextsIsThatOfTheExplanation)
{
    std::mt19937 random(20240229);
    // Few characters, so that equal beginnings and weights of 0 are frequent.
    const std::string alphabet = "aAb\x01\x02\xF7\xE4 -1\xDFsS\x7F";
    const auto draw = [&] {
        std::string text(random() % 7, '\0');
        for (char& c : text)
            c = alphabet[random() % alphabet.size()];
        return text;
    };
    for (int i = 0; i < 200000; ++i) {
        const std::string a = draw();
        const std::string b = draw();
        ASSERT_EQ(Compare(a, b), Order(a, b)) << Bytes(a) << " : " << Bytes(b);
    }
}

TEST(SortOrder, OfNoTextAtAll)
{
    EXPECT_EQ(ZelDtCompareUsingOrbeckSortOrder(nullptr, nullptr), 0);
    EXPECT_EQ(ZelDtCompareUsingOrbeckSortOrder(nullptr, "abc"), 0);
    EXPECT_EQ(ZelDtCompareUsingOrbeckSortOrder("abc", nullptr), 0);
}

// Code pages

void ExpectConversion(ZelDtCodepageWandlung direction, const UpperHalf& table)
{
    std::string text = AllBytes();
    ASSERT_EQ(ZelDtConvertCodePageFkt(text.data(), direction), 1) << direction;
    EXPECT_EQ(Bytes(text), Bytes(Converted(AllBytes(), table))) << direction;
}

TEST(CodePages, ConvertEveryCharacterByTheirTables)
{
    ExpectConversion(ZelDtCpAnsiToOem850, kAnsiToOem850);
    ExpectConversion(ZelDtCpAnsiToOem437, kAnsiToOem437);
    ExpectConversion(ZelDtCpOem850ToAnsi, kOem850ToAnsi);
    ExpectConversion(ZelDtCpOem437ToAnsi, kOem437ToAnsi);
}

TEST(CodePages, OfTheSystemAreThoseThatItIsSetTo)
{
    ExpectConversion(ZelDtCpAnsiToOem, AnsiToSystemOem());
    ExpectConversion(ZelDtCpOemToAnsi, SystemOemToAnsi());
}

TEST(CodePages, DifferInTheLowQuotes)
{
    char text850[] = "\x82\x84";
    char text437[] = "\x82\x84";
    EXPECT_EQ(ZelDtConvertCodePageFkt(text850, ZelDtCpAnsiToOem850), 1);
    EXPECT_EQ(ZelDtConvertCodePageFkt(text437, ZelDtCpAnsiToOem437), 1);
    EXPECT_EQ(Text(text850), (Bytes{0x27, 0x22}));
    EXPECT_EQ(Text(text437), (Bytes{0x2C, 0x2C}));
}

TEST(CodePages, BringGermanTextBack)
{
    const std::string german = "Gr\xFC\xDF"
                               "e aus K\xF6ln, \xC4 \xD6 \xDC \xE4 \xF6 \xFC \xE9";
    const ZelDtCodepageWandlung ways[][2] = {{ZelDtCpAnsiToOem850, ZelDtCpOem850ToAnsi},
                                             {ZelDtCpAnsiToOem437, ZelDtCpOem437ToAnsi},
                                             {ZelDtCpAnsiToOem, ZelDtCpOemToAnsi}};
    for (const auto& way : ways) {
        std::string text = german;
        EXPECT_EQ(ZelDtConvertCodePageFkt(text.data(), way[0]), 1);
        EXPECT_NE(text, german);
        EXPECT_EQ(ZelDtConvertCodePageFkt(text.data(), way[1]), 1);
        EXPECT_EQ(text, german);
    }
}

constexpr ZelDtCodepageWandlung kDirections[] = {ZelDtCpAnsiToOem850, ZelDtCpAnsiToOem437,
                                                 ZelDtCpOem850ToAnsi, ZelDtCpOem437ToAnsi,
                                                 ZelDtCpAnsiToOem,    ZelDtCpOemToAnsi};

TEST(CodePages, StopAtTheTerminator)
{
    for (const ZelDtCodepageWandlung direction : kDirections) {
        char text[] = {'\xE4', '\0', '\xE4', '\0'};
        EXPECT_EQ(ZelDtConvertCodePageFkt(text, direction), 1);
        EXPECT_NE(text[0], '\xE4');
        EXPECT_EQ(text[1], '\0');
        EXPECT_EQ(text[2], '\xE4');
    }
}

TEST(CodePages, LeaveAnEmptyText)
{
    for (const ZelDtCodepageWandlung direction : kDirections) {
        char text[] = "";
        EXPECT_EQ(ZelDtConvertCodePageFkt(text, direction), 1) << direction;
        EXPECT_EQ(text[0], '\0');
    }
}

TEST(CodePages, RefuseNoTextAndUnknownDirections)
{
    for (const ZelDtCodepageWandlung direction : kDirections)
        EXPECT_EQ(ZelDtConvertCodePageFkt(nullptr, direction), 0) << direction;
    // The enumeration has three bits, so 6 and 7 are values that it can have.
    for (const int unknown : {6, 7}) {
        std::string text = AllBytes();
        EXPECT_EQ(ZelDtConvertCodePageFkt(text.data(), static_cast<ZelDtCodepageWandlung>(unknown)),
                  0);
        EXPECT_EQ(text, AllBytes());
        EXPECT_EQ(ZelDtConvertCodePageFkt(nullptr, static_cast<ZelDtCodepageWandlung>(unknown)), 0);
    }
}

// Filling

TEST(Filling, SetsExactlyItsBytesAtEveryAlignment)
{
    for (std::size_t offset = 0; offset < 8; ++offset) {
        for (unsigned int n = 0; n <= 40; ++n) {
            for (const int fill : {0x78, 0, 0xFF}) {
                std::string block(64, '#');
                std::string expected = block;
                expected.replace(offset, n, std::string(n, static_cast<char>(fill)));
                char* begin = block.data() + offset;
                EXPECT_EQ(ZelDtMemSetTCHAR(begin, static_cast<char>(fill), n), begin);
                EXPECT_EQ(block, expected) << "offset " << offset << ", " << n << " bytes";
            }
        }
    }
}

TEST(Filling, NothingTouchesNothing)
{
    EXPECT_EQ(ZelDtMemSetTCHAR(nullptr, 'x', 0), nullptr);
}

// Record set fields

/// A text with a buffer of its own that has room for at least `room` bytes.
CString WithRoom(int room)
{
    CString text;
    text.GetBuffer(room);
    text.ReleaseBuffer(0);
    return text;
}

TEST(BoundTexts, KeepTheirBufferAndCutWhatDoesNotFit)
{
    for (const int room : {1, 2, 10, 255}) {
        CString field;
        field.GetBuffer(room);
        field.ReleaseBuffer(0);
        const int allocated = field.GetAllocLength();
        ASSERT_GE(allocated, room);
        const char* const buffer = field.GetString();
        for (const int length :
             {0, 1, allocated - 2, allocated - 1, allocated, allocated + 1, 10 * allocated, 0}) {
            if (length < 0)
                continue;
            std::string text;
            for (int i = 0; i < length; ++i)
                text += static_cast<char>('a' + i % 26);
            AssignRecordsetMemberCString(field, text.c_str());
            const std::string expected = text.substr(0, static_cast<std::size_t>(allocated - 1));
            EXPECT_EQ(std::string(field.GetString()), expected);
            EXPECT_EQ(field.GetLength(), static_cast<int>(expected.size()));
            EXPECT_EQ(static_cast<const void*>(field.GetString()),
                      static_cast<const void*>(buffer));
            EXPECT_EQ(field.GetAllocLength(), allocated);
        }
    }
}

TEST(BoundTexts, OfTenCharactersKeepNine)
{
    CString field("0123456789");
    ASSERT_EQ(field.GetAllocLength(), 10);
    AssignRecordsetMemberCString(field, "abcdefghijklm");
    EXPECT_STREQ(field.GetString(), "abcdefghi");
    EXPECT_EQ(field.GetLength(), 9);
}

TEST(BoundTexts, TakeSingleBytes)
{
    CString field = WithRoom(20);
    AssignRecordsetMemberCString(field, "\xE4\xF6\xFC\xDF\x80\xFF");
    EXPECT_EQ(Text(field.GetString()), (Bytes{0xE4, 0xF6, 0xFC, 0xDF, 0x80, 0xFF}));
}

TEST(BoundTexts, ReplaceALongerText)
{
    CString field("a long text stood here");
    AssignRecordsetMemberCString(field, "short");
    EXPECT_STREQ(field.GetString(), "short");
    EXPECT_EQ(field.GetLength(), 5);
}

TEST(BoundTexts, AreNotWrittenThroughToOthersThatShareTheText)
{
    const CString original("0123456789");
    CString field(original);
    AssignRecordsetMemberCString(field, "abc");
    EXPECT_STREQ(field.GetString(), "abc");
    EXPECT_STREQ(original.GetString(), "0123456789");
    EXPECT_EQ(original.GetLength(), 10);
}

TEST(BoundTexts, WithoutRoomStayEmpty)
{
    CString field;
    ASSERT_EQ(field.GetAllocLength(), 0);
    AssignRecordsetMemberCString(field, "abc");
    EXPECT_TRUE(field.IsEmpty());
    AssignRecordsetMemberCString(field, "");
    EXPECT_TRUE(field.IsEmpty());
    EXPECT_TRUE(CString().IsEmpty());
    EXPECT_STREQ(CString().GetString(), "");
}

TEST(BoundTexts, RefuseNoTextAndStay)
{
    CString field("0123456789");
    const Caught caught = Catch([&] { AssignRecordsetMemberCString(field, nullptr); });
    EXPECT_TRUE(Matches(caught, {5, "DT_IUTIL", caught.error.classText,
                                 "AssignRecordsetMemberCString(CString,LPCTSTR)"}));
    EXPECT_STREQ(field.GetString(), "0123456789");
}

} // namespace
