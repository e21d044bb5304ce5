#include "tests/text/string_testing.h"

#include <algorithm>
#include <climits>

using namespace zeltest;

namespace {

const int kSingle = ZelDtString::kiSingle;
const int kAll = ZelDtString::kiAll;
const int kLeft = ZelDtString::kiLeft;
const int kRight = ZelDtString::kiRight;
const int kLeftRight = ZelDtString::kiLeftRight;

const Start kMissing = {ZelDtWmMissing, nullptr};
const Start kNull = {ZelDtWmNull, nullptr};
const Start kAlways = {ZelDtWmAlwaysDefined, nullptr};

constexpr Start Plain(const char* text)
{
    return {ZelDtWmMissing, text};
}

/// A modified flag that was set before stays set.
Content After(Content expected, int modifiedBefore)
{
    expected.modified |= modifiedBefore;
    return expected;
}

// Functions that put another string in at a position

struct PlaceRow {
    Start start;
    Start source;
    int position;
    unsigned long error; ///< 0: none
    Content expected;    ///< without error
    int alloc;           ///< without error
};

std::ostream& operator<<(std::ostream& os, const PlaceRow& row)
{
    return os << '(' << row.start << ") with (" << row.source << ") at " << row.position;
}

using PlaceFunction = void (ZelDtString::*)(const ZelDtString&, int);

template <std::size_t Count>
void CheckPlacing(PlaceFunction function, const char* signature, const PlaceRow (&rows)[Count])
{
    for (const PlaceRow& row : rows) {
        SCOPED_TRACE(row);
        for (const int modifiedBefore : {0, 1}) {
            const StringPtr s = Make(row.start);
            const StringPtr source = Make(row.source);
            s->SetModified(modifiedBefore);
            const Content before = ContentOf(*s);
            const int allocBefore = s->GetAllocLength();
            const Content sourceBefore = ContentOf(*source);
            if (row.error != 0) {
                EXPECT_TRUE(FailsWith([&] { ((*s).*function)(*source, row.position); },
                                      FunctionError(row.error, signature)));
                EXPECT_EQ(ContentOf(*s), before);
                EXPECT_EQ(s->GetAllocLength(), allocBefore);
            } else {
                ((*s).*function)(*source, row.position);
                EXPECT_EQ(ContentOf(*s), After(row.expected, modifiedBefore));
                EXPECT_EQ(s->GetAllocLength(), row.alloc);
            }
            EXPECT_EQ(ContentOf(*source), sourceBefore);
            EXPECT_EQ(s->GetWorkingMode(), row.start.mode);
        }
    }
}

// What Copy, CopyParts and Insert refuse alike.
const PlaceRow kRefused[] = {
    {kMissing, Plain("x"), 0, 2, {}, 0},
    {kMissing, Plain("x"), 5, 2, {}, 0},
    {kMissing, Plain(""), 0, 2, {}, 0},
    {kMissing, kMissing, 0, 2, {}, 0},
    {kMissing, kNull, -1, 2, {}, 0},
    {Plain("abc"), kMissing, 0, 2, {}, 0},
    {Plain("abc"), kMissing, 4, 2, {}, 0},
    {kNull, kMissing, 0, 2, {}, 0},
    {kAlways, kMissing, 0, 2, {}, 0},
    {Plain("abc"), Plain("x"), 4, 3, {}, 0},
    {Plain("abc"), Plain("x"), -1, 3, {}, 0},
    {Plain("abc"), Plain("x"), INT_MAX, 3, {}, 0},
    {Plain("abc"), Plain("x"), INT_MIN, 3, {}, 0},
    {Plain("abc"), Plain("x"), -10, 3, {}, 0},
    {Plain("abc"), Plain("x"), -11, 3, {}, 0},
    {Plain("abc"), Plain(""), 4, 3, {}, 0},
    {Plain("abc"), kNull, -1, 3, {}, 0},
    {kNull, Plain("x"), 1, 3, {}, 0},
    {kNull, kNull, 1, 3, {}, 0},
    {kAlways, Plain("x"), 1, 3, {}, 0},
    {{ZelDtWmMissing, "abc", 20}, Plain("x"), 4, 3, {}, 0},
};

} // namespace

TEST(Copy, ReplacesEverythingFromThePosition)
{
    const PlaceRow rows[] = {
        {Plain("abc"), Plain("x"), 0, 0, {"x", 1, 1}, 3},
        {Plain("abc"), Plain("x"), 1, 0, {"ax", 1, 1}, 3},
        {Plain("abc"), Plain("x"), 2, 0, {"abx", 1, 1}, 3},
        {Plain("abc"), Plain("x"), 3, 0, {"abcx", 1, 1}, 4},
        {Plain("abc"), Plain("wxyz"), 0, 0, {"wxyz", 1, 1}, 4},
        {Plain("abc"), Plain("wxyz"), 2, 0, {"abwxyz", 1, 1}, 6},
        {Plain("abc"), Plain("abc"), 0, 0, {"abc", 1, 1}, 3},
        {Plain("abc"), Plain("bc"), 1, 0, {"abc", 1, 1}, 3},
        {Plain("abc"), Plain(""), 0, 0, {"", 1, 1}, 3},
        {Plain("abc"), Plain(""), 1, 0, {"a", 1, 1}, 3},
        {Plain("abc"), Plain(""), 3, 0, {"abc", 1, 1}, 3},
        {Plain("abc"), kNull, 2, 0, {"ab", 1, 1}, 3},
        {Plain("abc"), kAlways, 2, 0, {"ab", 1, 1}, 3},
        {{ZelDtWmMissing, "abc", 10}, Plain("wxyz"), 2, 0, {"abwxyz", 1, 1}, 10},
        {Plain(""), Plain(""), 0, 0, {"", 1, 1}, 0},
        {Plain(""), Plain("x"), 0, 0, {"x", 1, 1}, 1},
        {kNull, Plain("x"), 0, 0, {"x", 1, 1}, 1},
        {kNull, Plain(""), 0, 0, {"", 1, 1}, 0},
        {kNull, kNull, 0, 0, {"", 1, 1}, 0},
        {kAlways, Plain("x"), 0, 0, {"x", 1, 1}, 1},
        {{ZelDtWmNull, "abc"}, Plain("x"), 1, 0, {"ax", 1, 1}, 3},
        {{ZelDtWmAlwaysDefined, "abc"}, Plain("x"), 1, 0, {"ax", 1, 1}, 3},
    };
    CheckPlacing(&ZelDtString::Copy, "Copy(ZelDtString&,INT)", rows);
    CheckPlacing(&ZelDtString::Copy, "Copy(ZelDtString&,INT)", kRefused);
}

TEST(CopyParts, OverwritesAndKeepsTheTail)
{
    const PlaceRow rows[] = {
        {Plain("abc"), Plain("x"), 0, 0, {"xbc", 1, 1}, 3},
        {Plain("abc"), Plain("x"), 2, 0, {"abx", 1, 1}, 3},
        {Plain("abc"), Plain("x"), 3, 0, {"abcx", 1, 1}, 4},
        {Plain("abc"), Plain("xyz"), 0, 0, {"xyz", 1, 1}, 3},
        {Plain("abc"), Plain("xy"), 1, 0, {"axy", 1, 1}, 3},
        {Plain("abc"), Plain("xyz"), 1, 0, {"axyz", 1, 1}, 4},
        {Plain("abc"), Plain("wxyz"), 0, 0, {"wxyz", 1, 1}, 4},
        {Plain("abc"), Plain("abc"), 0, 0, {"abc", 1, 1}, 3},
        {Plain("abc"), Plain(""), 0, 0, {"abc", 1, 0}, 3},
        {Plain("abc"), Plain(""), 3, 0, {"abc", 1, 0}, 3},
        {Plain("abc"), kNull, 1, 0, {"abc", 1, 0}, 3},
        {Plain("abc"), kAlways, 1, 0, {"abc", 1, 0}, 3},
        {{ZelDtWmMissing, "abc", 10}, Plain("wxyz"), 2, 0, {"abwxyz", 1, 1}, 10},
        {Plain(""), Plain("x"), 0, 0, {"x", 1, 1}, 1},
        {kNull, Plain("x"), 0, 0, {"x", 1, 1}, 1},
        {kNull, Plain(""), 0, 0, {"", 0, 0}, 0},
        {kNull, kNull, 0, 0, {"", 0, 0}, 0},
        {kAlways, Plain("x"), 0, 0, {"x", 1, 1}, 1},
        {{ZelDtWmNull, "abc"}, Plain("x"), 1, 0, {"axc", 1, 1}, 3},
    };
    CheckPlacing(&ZelDtString::CopyParts, "CopyParts(ZelDtString&,INT)", rows);
    CheckPlacing(&ZelDtString::CopyParts, "CopyParts(ZelDtString&,INT)", kRefused);
}

TEST(CopyParts, DefinesTheValueOnlyWhenTheTextGrows)
{
    const StringPtr inside = Make({ZelDtWmNull, "abc"});
    Undefine(*inside);
    inside->CopyParts(ZelDtString("x"), 1);
    EXPECT_EQ(ContentOf(*inside), (Content{"axc", 0, 1}));
    inside->CopyParts(ZelDtString("yz"), 2);
    EXPECT_EQ(ContentOf(*inside), (Content{"axyz", 1, 1}));
}

TEST(Insert, ShiftsTheTail)
{
    const PlaceRow rows[] = {
        {Plain("abc"), Plain("x"), 0, 0, {"xabc", 1, 1}, 4},
        {Plain("abc"), Plain("x"), 1, 0, {"axbc", 1, 1}, 4},
        {Plain("abc"), Plain("x"), 3, 0, {"abcx", 1, 1}, 4},
        {Plain("abc"), Plain("wxyz"), 1, 0, {"awxyzbc", 1, 1}, 7},
        {Plain("abc"), Plain(""), 0, 0, {"abc", 1, 0}, 3},
        {Plain("abc"), Plain(""), 3, 0, {"abc", 1, 0}, 3},
        {Plain("abc"), kNull, 0, 0, {"abc", 1, 0}, 3},
        {{ZelDtWmMissing, "abc", 10}, Plain("wxyz"), 2, 0, {"abwxyzc", 1, 1}, 10},
        {{ZelDtWmMissing, "abc", 7}, Plain("wxyz"), 2, 0, {"abwxyzc", 1, 1}, 7},
        {{ZelDtWmMissing, "abc", 6}, Plain("wxyz"), 2, 0, {"abwxyzc", 1, 1}, 7},
        {Plain(""), Plain("x"), 0, 0, {"x", 1, 1}, 1},
        {kNull, Plain("x"), 0, 0, {"x", 1, 1}, 1},
        {kNull, Plain(""), 0, 0, {"", 0, 0}, 0},
        {kAlways, Plain("x"), 0, 0, {"x", 1, 1}, 1},
    };
    CheckPlacing(&ZelDtString::Insert, "Insert(ZelDtString&,INT)", rows);
    CheckPlacing(&ZelDtString::Insert, "Insert(ZelDtString&,INT)", kRefused);
}

TEST(DeleteParts, Table)
{
    struct Row {
        const char* text;
        const char* part;
        int mode;
        int result;
        const char* expected;
    };
    const Row rows[] = {
        {"aabb", "ab", kAll, 1, ""},
        {"ababab", "ab", kAll, 1, ""},
        {"xaabby", "ab", kAll, 1, "xy"},
        {"xyz", "ab", kAll, 0, "xyz"},
        {"abxab", "ab", kAll, 1, "x"},
        {"aaa", "aa", kAll, 1, "a"},
        {"aabab", "aab", kAll, 1, "ab"},
        {"aaabbbab", "ab", kAll, 1, ""},
        {"AB", "ab", kAll, 0, "AB"},
        {"", "ab", kAll, 0, ""},
        {"ab", "", kAll, 0, "ab"},
        {"", "", kAll, 0, ""},
        {"ab", "abc", kAll, 0, "ab"},
        {"ab", "ab", kAll, 1, ""},
        {"aabb", "ab", kSingle, 1, "ab"},
        {"abxab", "ab", kSingle, 1, "xab"},
        {"xyz", "ab", kSingle, 0, "xyz"},
        {"xab", "ab", kSingle, 1, "x"},
        {"", "ab", kSingle, 0, ""},
        {"ab", "", kSingle, 0, "ab"},
        {"abcdef", "xy", 0, 1, "cdef"},
        {"abcdef", "xy", 1, 1, "adef"},
        {"abcdef", "xy", 4, 1, "abcd"},
        {"abcdef", "xy", 5, 1, "abcde"},
        {"abcdef", "xyz", 4, 1, "abcd"},
        {"abcdef", "xyzxyzxyz", 0, 1, ""},
        {"abcdef", "x", 5, 1, "abcde"},
        {"abcdef", "x", 6, 0, "abcdef"},
        {"abcdef", "", 3, 0, "abcdef"},
        {"", "x", 0, 0, ""},
        {"", "x", 7, 0, ""},
        {"", "x", -5, 0, ""},
        {"abc", "", 7, 0, "abc"},
        {"abc", "", -5, 0, "abc"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(::testing::Message() << row.part << " of " << row.text << ", " << row.mode);
        for (const int modifiedBefore : {0, 1}) {
            ZelDtString s(row.text);
            s.SetModified(modifiedBefore);
            const int alloc = s.GetAllocLength();
            EXPECT_EQ(s.DeleteParts(row.part, row.mode), row.result);
            EXPECT_EQ(ContentOf(s), After({row.expected, 1, row.result}, modifiedBefore));
            EXPECT_EQ(s.GetAllocLength(), alloc);
        }
    }
}

TEST(DeleteParts, RefusesOtherModes)
{
    for (const int mode : {4, 5, INT_MAX, -1, -9, -12, -20, -21, -40, -42, -100, INT_MIN}) {
        SCOPED_TRACE(mode);
        ZelDtString s("abc");
        EXPECT_TRUE(FailsWith([&] { s.DeleteParts("b", mode); },
                              FunctionError(3, "DeleteParts(ZelDtString&,INT)")));
        EXPECT_EQ(ContentOf(s), (Content{"abc", 1, 0}));
    }
}

TEST(DeleteParts, ChecksNoDefinedness)
{
    for (const Start& start : {kMissing, kNull, kAlways}) {
        const StringPtr s = Make(start);
        const Content before = ContentOf(*s);
        for (const int mode : {kAll, kSingle, 0, 1, -1})
            EXPECT_EQ(s->DeleteParts("a", mode), 0);
        EXPECT_EQ(ContentOf(*s), before);
        ZelDtString t("abc");
        for (const int mode : {kAll, kSingle, 0, 1, -1})
            EXPECT_EQ(t.DeleteParts(*Make(start), mode), 0);
        EXPECT_EQ(ContentOf(t), (Content{"abc", 1, 0}));
    }
    const StringPtr leftover = Make({ZelDtWmMissing, "abcb"});
    Undefine(*leftover);
    EXPECT_EQ(leftover->DeleteParts("b", kAll), 1);
    EXPECT_EQ(ContentOf(*leftover), (Content{"ac", 0, 1}));
}

TEST(Change, Table)
{
    struct Row {
        const char* text;
        const char* oldPart;
        const char* newPart;
        int mode;
        int result;
        const char* expected;
        int modified;
    };
    const Row rows[] = {
        {"aXa", "a", "aa", kAll, 1, "aaXaa", 1},
        {"aXa", "a", "aa", kSingle, 1, "aaXa", 1},
        {"aXa", "X", "yz", kAll, 1, "ayza", 1},
        {"aXa", "q", "yz", kAll, 0, "aXa", 0},
        {"aXa", "q", "yz", kSingle, 0, "aXa", 0},
        {"abab", "ab", "b", kAll, 1, "bb", 1},
        {"aabb", "ab", "x", kAll, 1, "axb", 1},
        // What was put in joins nothing: the search goes on behind it.
        {"aabb", "ab", "a", kAll, 1, "aab", 1},
        {"aaab", "aab", "a", kAll, 1, "aa", 1},
        {"abb", "ab", "a", kAll, 1, "ab", 1},
        {"abb", "ab", "a", kSingle, 1, "ab", 1},
        {"xyxyxy", "xyx", "x", kAll, 1, "xyxy", 1},
        {"aaa", "aa", "b", kAll, 1, "ba", 1},
        {"aaaa", "aa", "b", kAll, 1, "bb", 1},
        {"abc", "abc", "x", kAll, 1, "x", 1},
        {"abc", "abc", "wxyz", kAll, 1, "wxyz", 1},
        {"A", "a", "b", kAll, 0, "A", 0},
        // Equal parts count as changed whatever the text and the mode.
        {"aXa", "a", "a", kAll, 1, "aXa", 0},
        {"aXa", "a", "a", kSingle, 1, "aXa", 0},
        {"aXa", "a", "a", 0, 1, "aXa", 0},
        {"aXa", "q", "q", kAll, 1, "aXa", 0},
        {"aXa", "q", "q", 99, 1, "aXa", 0},
        {"aXa", "q", "q", -1, 1, "aXa", 0},
        // An empty new part removes, from the start again and again.
        {"aabb", "ab", "", kAll, 1, "", 1},
        {"aabb", "ab", "", kSingle, 1, "ab", 1},
        {"abcdef", "xy", "", 1, 1, "adef", 1},
        {"abcdef", "xy", "", 6, 0, "abcdef", 0},
        {"xyz", "ab", "", kAll, 0, "xyz", 0},
        // At a position nothing is compared.
        {"abcdef", "xy", "1", 0, 1, "1cdef", 1},
        {"abcdef", "xy", "123", 2, 1, "ab123ef", 1},
        {"abcdef", "xy", "123", 5, 1, "abcde123", 1},
        {"abcdef", "xy", "123", 6, 0, "abcdef", 0},
        {"abcdef", "bc", "bd", 3, 1, "abcbdf", 1},
        // Nothing to do.
        {"", "a", "b", kAll, 0, "", 0},
        {"", "a", "b", -1, 0, "", 0},
        {"abc", "", "b", kAll, 0, "abc", 0},
        {"abc", "", "b", 1, 0, "abc", 0},
        {"abc", "", "", kAll, 0, "abc", 0},
        {"abc", "", "b", -1, 0, "abc", 0},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(::testing::Message() << row.oldPart << " to " << row.newPart << " in "
                                          << row.text << ", " << row.mode);
        for (const int modifiedBefore : {0, 1}) {
            ZelDtString s(row.text);
            s.SetModified(modifiedBefore);
            EXPECT_EQ(s.Change(row.oldPart, row.newPart, row.mode), row.result);
            EXPECT_EQ(ContentOf(s), After({row.expected, 1, row.modified}, modifiedBefore));
        }
    }
}

TEST(Change, RefusesOtherModesAsDeletePartsDoes)
{
    for (const char* newPart : {"", "x", "long text"}) {
        for (const int mode : {4, INT_MAX, -1, -9, -12, -20, -100, INT_MIN}) {
            SCOPED_TRACE(mode);
            ZelDtString s("abc");
            EXPECT_TRUE(FailsWith([&] { s.Change("b", newPart, mode); },
                                  FunctionError(3, "DeleteParts(ZelDtString&,INT)")));
            EXPECT_EQ(ContentOf(s), (Content{"abc", 1, 0}));
        }
    }
}

TEST(Change, WithUndefinedParts)
{
    ZelDtString s("abcb");
    EXPECT_EQ(s.Change(*Make(kMissing), ZelDtString("x"), kAll), 0);
    EXPECT_EQ(s.Change(ZelDtString("b"), *Make(kMissing), kAll), 0);
    EXPECT_EQ(s.Change(ZelDtString("b"), *Make(kMissing), -1), 0);
    EXPECT_EQ(ContentOf(s), (Content{"abcb", 1, 0}));
    EXPECT_EQ(s.Change(ZelDtString("b"), *Make(kNull), kSingle), 1);
    EXPECT_EQ(ContentOf(s), (Content{"acb", 1, 1}));
    EXPECT_EQ(s.Change(ZelDtString("b"), *Make(kAlways), kAll), 1);
    EXPECT_EQ(BytesOf(s), "ac");
    for (const Start& start : {kMissing, kNull, kAlways}) {
        const StringPtr undefined = Make(start);
        const Content before = ContentOf(*undefined);
        EXPECT_EQ(undefined->Change("a", "b", kAll), 0);
        EXPECT_EQ(ContentOf(*undefined), before);
    }
}

TEST(Cut, Table)
{
    struct Row {
        Start start;
        int position;
        unsigned long error;
        Content expected;
    };
    const Row rows[] = {
        {Plain("abc"), 0, 0, {"", 1, 1}},
        {Plain("abc"), 1, 0, {"a", 1, 1}},
        {Plain("abc"), 2, 0, {"ab", 1, 1}},
        {Plain("abc"), 3, 0, {"abc", 1, 0}},
        {Plain("abc"), 4, 3, {}},
        {Plain("abc"), -1, 3, {}},
        {Plain("abc"), INT_MAX, 3, {}},
        {Plain("abc"), INT_MIN, 3, {}},
        {Plain(""), 0, 0, {"", 1, 0}},
        {Plain(""), 1, 3, {}},
        {Plain(""), -1, 3, {}},
        {kMissing, 0, 0, {"", 0, 0}},
        {kMissing, 1, 0, {"", 0, 0}},
        {kMissing, -1, 0, {"", 0, 0}},
        {kNull, 5, 0, {"", 0, 0}},
        {kAlways, 0, 0, {"", 1, 0}},
        {kAlways, 1, 3, {}},
        {{ZelDtWmNull, "abc"}, 1, 0, {"a", 1, 1}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(::testing::Message() << row.start << " at " << row.position);
        for (const int modifiedBefore : {0, 1}) {
            const StringPtr s = Make(row.start);
            s->SetModified(modifiedBefore);
            const Content before = ContentOf(*s);
            const int alloc = s->GetAllocLength();
            if (row.error != 0) {
                EXPECT_TRUE(
                    FailsWith([&] { s->Cut(row.position); }, FunctionError(row.error, "Cut(INT)")));
                EXPECT_EQ(ContentOf(*s), before);
            } else {
                s->Cut(row.position);
                EXPECT_EQ(ContentOf(*s), After(row.expected, modifiedBefore));
            }
            EXPECT_EQ(s->GetAllocLength(), alloc);
        }
    }
    const StringPtr leftover = Make({ZelDtWmNull, "abc"});
    Undefine(*leftover);
    leftover->Cut(1);
    EXPECT_EQ(ContentOf(*leftover), (Content{"abc", 0, 0}));
}

TEST(Split, Table)
{
    struct Row {
        const char* text;
        int position;
        const char* left;
        const char* right; ///< null: cleared
    };
    const Row rows[] = {
        {"abcd", 0, "", "abcd"},      {"abcd", 1, "a", "bcd"},
        {"abcd", 3, "abc", "d"},      {"abcd", 4, "abcd", nullptr},
        {"abcd", 5, "abcd", nullptr}, {"abcd", INT_MAX, "abcd", nullptr},
        {"", 0, "", nullptr},         {"", 3, "", nullptr},
    };
    const Start targets[] = {kMissing,  kNull,      kAlways,
                             Plain(""), Plain("q"), {ZelDtWmNull, "a longer text", 30}};
    for (const Row& row : rows) {
        for (const Start& target : targets) {
            SCOPED_TRACE(::testing::Message()
                         << row.text << " at " << row.position << " into " << target);
            const ZelDtString s(row.text);
            const StringPtr left = Make(target);
            const StringPtr right = Make(target);
            const bool wasDefined = left->IsDefined() != 0;
            const std::string before = BytesOf(*left);
            const int allocBefore = left->GetAllocLength();
            s.Split(*left, *right, row.position);

            EXPECT_EQ(ContentOf(s), (Content{row.text, 1, 0}));
            EXPECT_EQ(BytesOf(*left), row.left);
            EXPECT_EQ(left->IsDefined(), 1);
            if (!wasDefined || before != row.left) {
                EXPECT_EQ(left->IsModified(), 1);
            }
            EXPECT_EQ(left->GetAllocLength(), std::max(allocBefore, left->GetLength()));
            EXPECT_EQ(left->GetWorkingMode(), target.mode);
            if (row.right != nullptr) {
                EXPECT_EQ(ContentOf(*right), (Content{row.right, 1, 1}));
                EXPECT_EQ(right->GetAllocLength(), std::max(allocBefore, right->GetLength()));
            } else {
                const int stays = target.mode == ZelDtWmAlwaysDefined ? 1 : 0;
                const int changed = !before.empty() || (wasDefined && stays == 0) ? 1 : 0;
                EXPECT_EQ(ContentOf(*right), (Content{"", stays, changed}));
                EXPECT_EQ(right->GetAllocLength(), 0);
            }
        }
    }
}

TEST(Split, OfAnUndefinedValueClearsBothSides)
{
    for (const Start& start : {kMissing, kNull}) {
        for (const int position : {0, 1, INT_MAX}) {
            const StringPtr s = Make(start);
            ZelDtString left("left");
            ZelDtString right("right");
            s->Split(left, right, position);
            EXPECT_EQ(ContentOf(left), (Content{"", 0, 1}));
            EXPECT_EQ(ContentOf(right), (Content{"", 0, 1}));
            EXPECT_EQ(left.GetAllocLength(), 0);
        }
    }
}

TEST(Split, RefusesNegativePositions)
{
    for (const int position : {-1, -10, INT_MIN}) {
        const ZelDtString s("abc");
        ZelDtString left("left");
        ZelDtString right("right");
        EXPECT_TRUE(FailsAnyhow([&] { s.Split(left, right, position); }, 3, "DTSTRFKT"));
        EXPECT_EQ(ContentOf(left), (Content{"left", 1, 0}));
        EXPECT_EQ(ContentOf(right), (Content{"right", 1, 0}));
    }
}

TEST(Trim, Table)
{
    struct Row {
        const char* text;
        const char* left;
        const char* right;
        const char* both;
    };
    const Row rows[] = {
        {"", "", "", ""},
        {"a", "a", "a", "a"},
        {" ", "", "", ""},
        {"   ", "", "", ""},
        {" a", "a", " a", "a"},
        {"a ", "a ", "a", "a"},
        {"  a b  ", "a b  ", "  a b", "a b"},
        {"\tx ", "\tx ", "\tx", "\tx"},
        {" \tx", "\tx", " \tx", "\tx"},
        {" \n ", "\n ", " \n", "\n"},
        {"\xA0 x", "\xA0 x", "\xA0 x", "\xA0 x"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(Escaped(row.text));
        const auto check = [&](int side, const char* expected) {
            for (const int modifiedBefore : {0, 1}) {
                ZelDtString s(row.text);
                s.SetModified(modifiedBefore);
                s.Trim(side);
                const int changed = std::string(expected) == row.text ? 0 : 1;
                EXPECT_EQ(ContentOf(s), After({expected, 1, changed}, modifiedBefore)) << side;
                EXPECT_EQ(s.GetAllocLength(), static_cast<int>(std::string(row.text).size()));
            }
        };
        check(kLeft, row.left);
        check(kRight, row.right);
        for (const int side : {kLeftRight, 0, 1, -1, -39, -43, INT_MAX, INT_MIN})
            check(side, row.both);
    }
}

TEST(Trim, ChecksNoDefinedness)
{
    for (const Start& start : {kMissing, kNull, kAlways}) {
        const StringPtr s = Make(start);
        const Content before = ContentOf(*s);
        s->Trim(kLeftRight);
        EXPECT_EQ(ContentOf(*s), before);
    }
    const StringPtr leftover = Make({ZelDtWmMissing, " a "});
    Undefine(*leftover);
    leftover->Trim(kLeft);
    EXPECT_EQ(ContentOf(*leftover), (Content{"a ", 0, 1}));
}
