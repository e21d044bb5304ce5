#include "numeric/DTLONG.h"
#include "platform/formats/ZelFormat.h"
#include "tests/text/string_testing.h"

#include <climits>

using namespace zeltest;

namespace {

const int kDefault = ZelDtString::kiDefaultLength;

struct LengthRow {
    const char* text;
    int length;
    int allocLength;
    const char* expected; ///< the text without filling NUL bytes
    int expectedLength;
    int expectedAlloc;
};

std::ostream& operator<<(std::ostream& os, const LengthRow& row)
{
    return os << '(' << Escaped(row.text) << ", " << row.length << ", " << row.allocLength << ')';
}

const LengthRow kLengthRows[] = {
    {"abc", kDefault, kDefault, "abc", 3, 3},
    {"abc", kDefault, 10, "abc", 3, 10},
    {"abc", kDefault, 4, "abc", 3, 4},
    {"abc", kDefault, 3, "abc", 3, 3},
    {"abc", kDefault, 2, "abc", 3, 3},
    {"abc", kDefault, 1, "abc", 3, 3},
    {"abc", kDefault, 0, "abc", 3, 3},
    {"abc", kDefault, -1, "abc", 3, 3},
    {"abc", kDefault, INT_MIN, "abc", 3, 3},
    {"abc", 2, 0, "ab", 2, 2},
    {"abc", 2, 1, "ab", 2, 2},
    {"abc", 2, 3, "ab", 2, 3},
    {"abc", 3, kDefault, "abc", 3, 3},
    {"abc", 3, 7, "abc", 3, 7},
    {"abc", 1, kDefault, "a", 1, 1},
    {"abc", 0, kDefault, "", 0, 0},
    {"abc", 0, 0, "", 0, 0},
    {"abc", 0, 5, "", 0, 5},
    {"", kDefault, kDefault, "", 0, 0},
    {"", kDefault, 0, "", 0, 0},
    {"", kDefault, 20, "", 0, 20},
    {"", 0, kDefault, "", 0, 0},
    {"", 0, 1, "", 0, 1},
    {"", 5, kDefault, "", 5, 5},
    {"", 5, 4, "", 5, 5},
    {"", 5, 9, "", 5, 9},
    {"", 1, 0, "", 1, 1},
};

} // namespace

TEST(Constants, HaveTheirPublishedValuesAndAddresses)
{
    // Bound to references, so that each must exist as an exported object.
    const int& single = ZelDtString::kiSingle;
    const int& all = ZelDtString::kiAll;
    const int& first = ZelDtString::kiFirst;
    const int& next = ZelDtString::kiNext;
    const int& notFound = ZelDtString::kiNotFound;
    const int& left = ZelDtString::kiLeft;
    const int& right = ZelDtString::kiRight;
    const int& leftRight = ZelDtString::kiLeftRight;
    const int& defaultLength = ZelDtString::kiDefaultLength;
    EXPECT_EQ(single, -10);
    EXPECT_EQ(all, -11);
    EXPECT_EQ(first, -20);
    EXPECT_EQ(next, -21);
    EXPECT_EQ(notFound, -1);
    EXPECT_EQ(left, -40);
    EXPECT_EQ(right, -41);
    EXPECT_EQ(leftRight, -42);
    EXPECT_EQ(defaultLength, -100);
}

TEST(Lengths, OfTextLengthAndAllocationLength)
{
    for (const LengthRow& row : kLengthRows) {
        SCOPED_TRACE(row);
        const ZelDtString s(row.text, row.length, row.allocLength);
        std::string expected = row.expected;
        expected.resize(static_cast<std::size_t>(row.expectedLength), '\0');
        EXPECT_EQ(ContentOf(s), (Content{expected, 1, 0}));
        EXPECT_EQ(s.GetLength(), row.expectedLength);
        EXPECT_EQ(s.GetAllocLength(), row.expectedAlloc);
    }
}

TEST(Lengths, LeftOutArgumentsTakeTheTextsLength)
{
    const ZelDtString whole("abc");
    EXPECT_EQ(whole.GetLength(), 3);
    EXPECT_EQ(whole.GetAllocLength(), 3);
    const ZelDtString part("abc", 2);
    EXPECT_EQ(BytesOf(part), "ab");
    EXPECT_EQ(part.GetAllocLength(), 2);
}

TEST(RejectedLengths, ReportTheStorageAsOrigin)
{
    struct Row {
        const char* text;
        int length;
    };
    const Row rows[] = {
        {"abc", 4},
        {"abc", 5},
        {"abc", INT_MAX},
        {"abc", INT_MAX - 1},
        {"abc", -1},
        {"abc", -3},
        {"abc", kDefault - 1},
        {"abc", kDefault + 1},
        {"abc", -10},
        {"abc", INT_MIN},
        {"a", 2},
        {"", -1},
        {"", -5},
        {"", INT_MIN},
        {"", kDefault - 1},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(::testing::Message() << Escaped(row.text) << ", " << row.length);
        for (const int allocLength : {kDefault, 0, 3, 100}) {
            EXPECT_TRUE(FailsWith(
                [&] { const ZelDtString s(row.text, row.length, allocLength); },
                Error{6, "IMP/dtstrini", "ZelDtString_Imp", "ZelDtString_Imp( LPCTSTR,INT,INT)"}));
        }
    }
}

TEST(Lengths, OfACharacter)
{
    for (int code = 1; code < 256; ++code) {
        const ZelDtString s(static_cast<char>(code));
        EXPECT_EQ(ContentOf(s), (Content{std::string(1, static_cast<char>(code)), 1, 0}));
        EXPECT_EQ(s.GetAllocLength(), 1);
    }
    const ZelDtString nothing('\0');
    EXPECT_EQ(ContentOf(nothing), (Content{"", 1, 0}));
    EXPECT_EQ(nothing.GetAllocLength(), 1);
}

TEST(Lengths, OfNumbersLeaveRoomForElevenBytes)
{
    struct Row {
        int number;
        const char* text;
    };
    const Row rows[] = {{0, "0"},     {7, "7"},
                        {-1, "-1"},   {1000, "1000"},
                        {-5, "-5"},   {INT_MAX, "2147483647"},
                        {-10, "-10"}, {INT_MIN, "-2147483648"}};
    for (const Row& row : rows) {
        const ZelDtString s(row.number);
        EXPECT_EQ(ContentOf(s), (Content{row.text, 1, 0}));
        EXPECT_EQ(s.GetAllocLength(), 11);
        const ZelDtLong number(row.number);
        const ZelDtString fromValue(number);
        EXPECT_EQ(ContentOf(fromValue), (Content{row.text, 1, 0}));
        EXPECT_EQ(fromValue.GetAllocLength(), 11);
    }
    const ZelDtString zero(0U);
    EXPECT_EQ(ContentOf(zero), (Content{"0", 1, 0}));
    EXPECT_EQ(zero.GetAllocLength(), 11);
    const ZelDtString largest(UINT_MAX);
    EXPECT_EQ(ContentOf(largest), (Content{"4294967295", 1, 0}));
    EXPECT_EQ(largest.GetAllocLength(), 11);
}

TEST(Lengths, OfCopiesAreTheTextsLength)
{
    const ZelDtString roomy("abc", kDefault, 50);
    const ZelDtString copy(roomy);
    EXPECT_EQ(BytesOf(copy), "abc");
    EXPECT_EQ(copy.GetAllocLength(), 3);
    EXPECT_EQ(roomy.GetAllocLength(), 50);

    const ZelDtString emptyRoomy("", kDefault, 50);
    const ZelDtString emptyCopy(emptyRoomy);
    EXPECT_EQ(ContentOf(emptyCopy), (Content{"", 1, 0}));
    EXPECT_EQ(emptyCopy.GetAllocLength(), 0);

    const ZelDtString number(42);
    EXPECT_EQ(ZelDtString(number).GetAllocLength(), 2);
}

TEST(Lengths, OfAnUndefinedSourceAreZero)
{
    const ZelDtString fresh(ZelDtWmMissing);
    EXPECT_EQ(ContentOf(fresh), (Content{"", 0, 0}));
    EXPECT_EQ(fresh.GetAllocLength(), 0);
    const ZelDtLong missing(ZelDtWmMissing);
    const ZelDtString fromMissing(missing);
    EXPECT_EQ(ContentOf(fromMissing), (Content{"", 0, 0}));
    EXPECT_EQ(fromMissing.GetAllocLength(), 0);
    const ZelDtString copy(fresh);
    EXPECT_EQ(copy.GetAllocLength(), 0);
}

TEST(Ownership, CopiesShareNothing)
{
    ZelDtString original("abc");
    ZelDtString copy(original);
    copy.SetAt(0, 'x');
    EXPECT_EQ(BytesOf(original), "abc");
    original.SetAt(1, 'y');
    EXPECT_EQ(BytesOf(copy), "xbc");
}

TEST(Ownership, TheSharedEmptyTextIsNeverWritten)
{
    ZelDtString a(ZelDtWmNull);
    ZelDtString b(ZelDtWmNull);
    a += "text";
    a.FillUp('x', 9, ZelDtString::kiRight);
    EXPECT_EQ(BytesOf(b), "");
    ZelDtString c("");
    c = 'q';
    ZelDtString d("");
    d.FillUp('z', 2, ZelDtString::kiLeft);
    ZelDtString e(ZelDtWmAlwaysDefined);
    e.Insert(ZelDtString("insert"), 0);
    ZelDtString f(ZelDtWmNull);
    f.Copy(ZelDtString("copy"), 0);
    ZelDtString g(ZelDtWmNull);
    g.SetFromSQL("sql", 3, 0);
    const ZelDtString untouched(ZelDtWmMissing);
    EXPECT_EQ(BytesOf(untouched), "");
    EXPECT_EQ(BytesOf(ZelDtString("")), "");
    EXPECT_EQ(BytesOf(b), "");
}

TEST(Growth, ReservesExactlyWhatIsNeeded)
{
    ZelDtString s(ZelDtWmMissing);
    for (int length = 1; length <= 300; ++length) {
        s += 'x';
        EXPECT_EQ(s.GetLength(), length);
        EXPECT_EQ(s.GetAllocLength(), length);
    }
    EXPECT_EQ(BytesOf(s), std::string(300, 'x'));
}

TEST(Growth, WaitsUntilTheRoomIsUsedUp)
{
    ZelDtString s("abc", kDefault, 6);
    s += "de";
    EXPECT_EQ(s.GetAllocLength(), 6);
    s += "f";
    EXPECT_EQ(s.GetAllocLength(), 6);
    s += "g";
    EXPECT_EQ(s.GetAllocLength(), 7);
    EXPECT_EQ(BytesOf(s), "abcdefg");
}

TEST(Growth, KeepsTheRoomWhenTheTextShrinks)
{
    ZelDtString s("  abcdef  ");
    ASSERT_EQ(s.GetAllocLength(), 10);
    s.Trim(ZelDtString::kiLeftRight);
    EXPECT_EQ(s.GetAllocLength(), 10);
    s.Cut(4);
    EXPECT_EQ(s.GetAllocLength(), 10);
    s.DeleteParts("bc", ZelDtString::kiAll);
    EXPECT_EQ(s.GetAllocLength(), 10);
    s.Change("ad", "x", ZelDtString::kiAll);
    EXPECT_EQ(BytesOf(s), "x");
    EXPECT_EQ(s.GetAllocLength(), 10);
    s = "";
    EXPECT_EQ(s.GetAllocLength(), 10);
    s = ZelDtString("0123456789");
    EXPECT_EQ(s.GetAllocLength(), 10);
    s.Copy(ZelDtString("y"), 0);
    EXPECT_EQ(BytesOf(s), "y");
    EXPECT_EQ(s.GetAllocLength(), 10);
    s = 'z';
    EXPECT_EQ(s.GetAllocLength(), 10);
}

TEST(Reset, FreesTheTextAndForgetsTheLastMatch)
{
    for (const ZelDtWorkingMode mode : {ZelDtWmMissing, ZelDtWmNull, ZelDtWmAlwaysDefined}) {
        SCOPED_TRACE(static_cast<int>(mode));
        ZelDtString s("abab", kDefault, 30);
        s.SetWorkingMode(mode);
        EXPECT_EQ(s.GetPos("ab", ZelDtString::kiFirst), 0);
        EXPECT_EQ(s.GetPos("ab", ZelDtString::kiNext), 2);
        s.Clear();
        const int stays = mode == ZelDtWmAlwaysDefined ? 1 : 0;
        EXPECT_EQ(ContentOf(s), (Content{"", stays, 1}));
        EXPECT_EQ(s.GetAllocLength(), 0);
        s = "abab";
        EXPECT_EQ(s.GetPos("ab", ZelDtString::kiNext), 0);
    }
}

TEST(Reset, MarksModifiedOnlyWhenSomethingChanges)
{
    struct Row {
        Start start;
        Content expected;
    };
    const Row rows[] = {
        {{ZelDtWmMissing, "a"}, {"", 0, 1}},
        {{ZelDtWmMissing, ""}, {"", 0, 1}},
        {{ZelDtWmMissing, nullptr}, {"", 0, 0}},
        {{ZelDtWmNull, "a"}, {"", 0, 1}},
        {{ZelDtWmNull, ""}, {"", 0, 1}},
        {{ZelDtWmNull, nullptr}, {"", 0, 0}},
        {{ZelDtWmAlwaysDefined, "a"}, {"", 1, 1}},
        {{ZelDtWmAlwaysDefined, ""}, {"", 1, 0}},
        {{ZelDtWmAlwaysDefined, "", 5}, {"", 1, 0}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.start);
        const StringPtr s = Make(row.start);
        s->Clear();
        EXPECT_EQ(ContentOf(*s), row.expected);
        EXPECT_EQ(s->GetAllocLength(), 0);
    }
    const StringPtr leftover = Make({ZelDtWmNull, "text"});
    Undefine(*leftover);
    leftover->Clear();
    EXPECT_EQ(ContentOf(*leftover), (Content{"", 0, 1}));
}

TEST(Reset, KeepsModeAndFormat)
{
    const ZelFormat format(ZelFormat::ZelFoStandard);
    ZelDtString s("abc");
    s.SetWorkingMode(ZelDtWmNull);
    s.SetFormat(&format);
    s.Clear();
    EXPECT_EQ(s.GetWorkingMode(), ZelDtWmNull);
    EXPECT_EQ(s.GetFormat(), &format);
}

TEST(ClassRecord, NamesTheStringAndItsBase)
{
    const ZelDtString s("abc");
    EXPECT_EQ(s.GetDtTyp(), ZelDtTypString);
    EXPECT_EQ(static_cast<int>(s.GetDtTyp()), 2);
    const CRuntimeClass* record = s.GetRuntimeClass();
    EXPECT_STREQ(record->m_lpszClassName, "ZelDtString");
    EXPECT_EQ(record->m_wSchema, 1U);
    EXPECT_EQ(record->m_nObjectSize, static_cast<int>(sizeof(ZelDtString)));
    EXPECT_EQ(record->m_pfnGetBaseClass(), RUNTIME_CLASS(ZelDtBasis));
    EXPECT_TRUE(s.IsKindOf(RUNTIME_CLASS(ZelDtBasis)));
    EXPECT_FALSE(s.IsKindOf(RUNTIME_CLASS(ZelDtLong)));
    EXPECT_EQ(s.ReservedQuery(), 0);
}
