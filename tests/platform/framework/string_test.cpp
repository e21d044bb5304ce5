#include "platform/framework/fwstring.h"

#include "platform/framework/fwexcept.h"
#include "platform/framework/fwole.h"
#include "tests/platform/framework/framework_testing.h"
#include "tests/platform/framework/string_testing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace {

bool Share(const CString& a, const CString& b)
{
    return a.GetString() == b.GetString();
}

} // namespace

// Construction and assignment

TEST(Construction, FromTexts)
{
    EXPECT_EQ(Text(CString()), "");
    EXPECT_EQ(Text(CString("")), "");
    EXPECT_EQ(Text(CString(static_cast<LPCTSTR>(nullptr))), "");
    EXPECT_EQ(Text(CString("text")), "text");
    EXPECT_EQ(Text(CString("text", 2)), "te");
    EXPECT_EQ(Text(CString("text", 0)), "");
    EXPECT_EQ(Text(CString(static_cast<LPCTSTR>(nullptr), 0)), "");
    EXPECT_EQ(Text(CString("a\0b", 3)), std::string("a\0b", 3));
    EXPECT_EQ(Text(CString('x')), "x");
    EXPECT_EQ(Text(CString('x', 3)), "xxx");
    EXPECT_EQ(Text(CString('x', 0)), "");
    EXPECT_EQ(Text(CString('x', -1)), "");
    EXPECT_EQ(Text(CString('\0', 2)), std::string(2, '\0'));
    const unsigned char bytes[] = {0xE4, 'x', 0};
    EXPECT_EQ(Text(CString(bytes)), "\344x");
}

TEST(Construction, FromWideTexts)
{
    // ä, euro sign, Y with diaeresis; then what the code page lacks: a Greek letter, a surrogate
    // pair, a lone unit with no character.
    const OLECHAR wide[] = {0x00E4, 0x20AC, 0x0178, 'a', 0x03B1, 0xD83D, 0xDE00, 0xFFFF, 0};
    EXPECT_EQ(Text(CString(wide)), "\344\200\237a????");
    EXPECT_EQ(Text(CString(wide, 2)), "\344\200");
    EXPECT_EQ(Text(CString(wide, 0)), "");
    EXPECT_EQ(Text(CString(static_cast<LPCOLESTR>(nullptr))), "");
    const OLECHAR embedded[] = {'a', 0, 'b'};
    EXPECT_EQ(Text(CString(embedded, 3)), std::string("a\0b", 3));
    CString assigned("old");
    assigned = static_cast<LPCOLESTR>(wide + 3);
    EXPECT_EQ(Text(assigned), "a????");
}

TEST(Construction, SenselessLengthsAreRejected)
{
    EXPECT_TRUE(Throws<CInvalidArgException>([] { CString("text", -1); }));
    EXPECT_TRUE(Throws<CInvalidArgException>([] { CString(static_cast<LPCTSTR>(nullptr), 1); }));
    EXPECT_TRUE(Throws<CInvalidArgException>([] { CString(static_cast<LPCOLESTR>(nullptr), 1); }));
    const OLECHAR wide[] = {'a', 0};
    EXPECT_TRUE(Throws<CInvalidArgException>([&] { CString(wide, -1); }));
}

TEST(Assignment, OfEveryKind)
{
    CString text("old");
    text = "new";
    EXPECT_EQ(Text(text), "new");
    text = 'c';
    EXPECT_EQ(Text(text), "c");
    const unsigned char bytes[] = {'u', 0};
    text = bytes;
    EXPECT_EQ(Text(text), "u");
    text = CString("moved");
    EXPECT_EQ(Text(text), "moved");
    text = static_cast<LPCTSTR>(nullptr);
    EXPECT_EQ(Text(text), "");
    text.SetString("abcdef", 3);
    EXPECT_EQ(Text(text), "abc");
    text.SetString(kEmbedded.data(), 4);
    const CString copy = text;
    EXPECT_EQ(Text(copy), kEmbedded);
    EXPECT_TRUE(Throws<CInvalidArgException>([&] { text.SetString("x", -1); }));
    EXPECT_TRUE(Throws<CInvalidArgException>([&] { text.SetString(nullptr, 1); }));
    EXPECT_EQ(Text(text), kEmbedded);
    CString source("source");
    const CString target(std::move(source));
    EXPECT_EQ(Text(target), "source");
}

// Sharing

TEST(Sharing, CopiesShareUntilOneChanges)
{
    CString a("shared text");
    CString b = a;
    CString c;
    c = a;
    EXPECT_TRUE(Share(a, b));
    EXPECT_TRUE(Share(a, c));
    b.SetAt(0, 'S');
    EXPECT_FALSE(Share(a, b));
    EXPECT_TRUE(Share(a, c));
    EXPECT_EQ(Text(a), "shared text");
    EXPECT_EQ(Text(b), "Shared text");
    c.Empty();
    EXPECT_EQ(Text(a), "shared text");
    EXPECT_TRUE(Share(a, a.Left(11)));
    EXPECT_TRUE(Share(a, a.Mid(0)));
}

TEST(Sharing, EveryChangeSplits)
{
    using Change = void (*)(CString&);
    const Change changes[] = {
        [](CString& s) { s = "other"; },
        [](CString& s) { s += "x"; },
        [](CString& s) { s += 'x'; },
        [](CString& s) { s.MakeUpper(); },
        [](CString& s) { s.MakeReverse(); },
        [](CString& s) { s.TrimLeft('t'); },
        [](CString& s) { s.TrimRight('t'); },
        [](CString& s) { s.Replace("te", "x"); },
        [](CString& s) { s.Replace('t', 'x'); },
        [](CString& s) { s.Remove('t'); },
        [](CString& s) { s.Insert(1, "x"); },
        [](CString& s) { s.Delete(1); },
        [](CString& s) { s.Truncate(2); },
        [](CString& s) { s.SetAt(1, 'x'); },
        [](CString& s) { s.GetBuffer()[0] = 'x'; },
        [](CString& s) { s.GetBufferSetLength(4)[0] = 'x'; },
        [](CString& s) { s.LockBuffer()[0] = 'x'; },
        [](CString& s) { s.Format("%d", 5); },
        [](CString& s) { s.Empty(); },
    };
    for (std::size_t i = 0; i < std::size(changes); ++i) {
        const CString original("text");
        CString copy = original;
        changes[i](copy);
        EXPECT_EQ(Text(original), "text") << i;
        EXPECT_NE(Text(copy), "text") << i;
    }
}

TEST(Sharing, LockedTextsShareWithNobody)
{
    CString locked("text");
    LPTSTR buffer = locked.LockBuffer();
    const CString copy = locked;
    EXPECT_FALSE(Share(copy, locked));
    EXPECT_EQ(Text(copy), "text");

    const CString other("another text");
    locked = other;
    EXPECT_FALSE(Share(other, locked));
    EXPECT_EQ(Text(locked), "another text");
    const CString stillLocked = locked;
    EXPECT_FALSE(Share(stillLocked, locked));
    locked = "x";
    locked.Empty();
    EXPECT_EQ(Text(locked), "");
    locked = CString("moved in");
    EXPECT_EQ(Text(locked), "moved in");

    locked.UnlockBuffer();
    const CString shared = locked;
    EXPECT_TRUE(Share(shared, locked));
    static_cast<void>(buffer);

    CString empty;
    empty.UnlockBuffer();
    EXPECT_EQ(Text(empty), "");
}

TEST(Sharing, CountsAcrossThreads)
{
    const CString original("shared by all");
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([&original] {
            for (int i = 0; i < 2000; ++i) {
                CString copy = original;
                CString second = copy;
                second.SetAt(0, 'S');
                copy = second;
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(Text(original), "shared by all");
}

// Reading

TEST(Characters, AreReachedByPosition)
{
    CString text("abc");
    EXPECT_EQ(text.GetAt(0), 'a');
    EXPECT_EQ(text[2], 'c');
    EXPECT_EQ(text[3], '\0');
    EXPECT_EQ(CString()[0], '\0');
    EXPECT_TRUE(Throws<CInvalidArgException>([&] { text.GetAt(4); }));
    EXPECT_TRUE(Throws<CInvalidArgException>([&] { text.GetAt(-1); }));
    text.SetAt(2, 'C');
    EXPECT_EQ(Text(text), "abC");
    EXPECT_TRUE(Throws<CInvalidArgException>([&] { text.SetAt(3, 'x'); }));
    EXPECT_TRUE(Throws<CInvalidArgException>([&] { text.SetAt(-1, 'x'); }));
    EXPECT_EQ(Text(text), "abC");
    EXPECT_TRUE(CString().IsEmpty());
    EXPECT_FALSE(text.IsEmpty());
}

TEST(Comparison, OrdersByBytes)
{
    struct Row {
        std::string a;
        std::string b;
        int order;
        int orderNoCase;
    };
    const Row rows[] = {
        {"", "", 0, 0},          {"a", "a", 0, 0},         {"a", "b", -1, -1},
        {"ab", "a", 1, 1},       {"a", "ab", -1, -1},      {"A", "a", -1, 0},
        {"ABC", "abd", -1, -1},  {"z", "\344", -1, -1},    {"\304", "\344", -1, 0},
        {"\237", "\377", -1, 0}, {"\327", "\367", -1, -1}, {"_", "a", -1, -1},
        {"_", "A", 1, -1},       {"abc", "", 1, 1},
    };
    for (const Row& row : rows) {
        const CString a = Make(row.a);
        const CString b = Make(row.b);
        EXPECT_EQ(a.Compare(b), row.order) << row.a << "|" << row.b;
        EXPECT_EQ(b.Compare(a), -row.order) << row.a << "|" << row.b;
        EXPECT_EQ(a.CompareNoCase(b), row.orderNoCase) << row.a << "|" << row.b;
        EXPECT_EQ(b.CompareNoCase(a), -row.orderNoCase) << row.a << "|" << row.b;
        EXPECT_EQ(a == b, row.order == 0);
        EXPECT_EQ(a != b, row.order != 0);
        EXPECT_EQ(a < b, row.order < 0);
        EXPECT_EQ(a > b, row.order > 0);
        EXPECT_EQ(a <= b, row.order <= 0);
        EXPECT_EQ(a >= b, row.order >= 0);
        const LPCTSTR plainB = row.b.c_str();
        EXPECT_EQ(a == plainB, row.order == 0);
        EXPECT_EQ(a != plainB, row.order != 0);
        EXPECT_EQ(a < plainB, row.order < 0);
        EXPECT_EQ(a > plainB, row.order > 0);
        EXPECT_EQ(a <= plainB, row.order <= 0);
        EXPECT_EQ(a >= plainB, row.order >= 0);
        const LPCTSTR plainA = row.a.c_str();
        EXPECT_EQ(plainA == b, row.order == 0);
        EXPECT_EQ(plainA != b, row.order != 0);
        EXPECT_EQ(plainA < b, row.order < 0);
        EXPECT_EQ(plainA > b, row.order > 0);
        EXPECT_EQ(plainA <= b, row.order <= 0);
        EXPECT_EQ(plainA >= b, row.order >= 0);
    }
    EXPECT_EQ(CString().Compare(nullptr), 0);
    EXPECT_EQ(CString("a").CompareNoCase(nullptr), 1);
    EXPECT_FALSE(Make(kEmbedded) == CString("a"));
    EXPECT_TRUE(Make(kEmbedded) > CString("a"));
    EXPECT_EQ(Make(kEmbedded).Compare("a"), 1);
}

// Buffers

TEST(Buffers, KeepTheTextAndHaveTheRoom)
{
    CString text("abc");
    const CString copy = text;
    LPTSTR buffer = text.GetBuffer(10);
    EXPECT_EQ(text.GetAllocLength(), 10);
    EXPECT_STREQ(buffer, "abc");
    std::fill_n(buffer, 10, 'x');
    buffer[10] = '\0';
    text.ReleaseBuffer();
    EXPECT_EQ(Text(text), "xxxxxxxxxx");
    EXPECT_EQ(Text(copy), "abc");

    text.GetBuffer(3)[2] = '\0';
    text.ReleaseBuffer();
    EXPECT_EQ(Text(text), "xx");
    EXPECT_EQ(text.GetAllocLength(), 10);
    text.GetBuffer();
    text.ReleaseBuffer(5);
    EXPECT_EQ(text.GetLength(), 5);
    text.ReleaseBufferSetLength(0);
    EXPECT_EQ(Text(text), "");
    EXPECT_EQ(text.GetAllocLength(), 10);
}

TEST(Buffers, LengthIsSetExactly)
{
    CString text("abc");
    std::fill_n(text.GetBufferSetLength(6) + 3, 3, 'x');
    EXPECT_EQ(Text(text), "abcxxx");
    EXPECT_EQ(text.GetAllocLength(), 6);
    text.GetBufferSetLength(2);
    EXPECT_EQ(Text(text), "ab");
    CString empty;
    EXPECT_EQ(*empty.GetBufferSetLength(0), '\0');
    EXPECT_EQ(*empty.GetBuffer(0), '\0');
    EXPECT_FALSE(Share(empty, CString()));
    empty.ReleaseBuffer();
    EXPECT_EQ(Text(empty), "");
}

TEST(Buffers, WithoutFinalNulEndWithTheRoom)
{
    CString text;
    LPTSTR buffer = text.GetBuffer(4);
    std::fill_n(buffer, 5, 'x');
    text.ReleaseBuffer();
    EXPECT_EQ(Text(text), "xxxx");
}

TEST(Buffers, RoomIsExactAndGivenBack)
{
    CString text;
    EXPECT_EQ(text.GetAllocLength(), 0);
    text.Preallocate(20);
    EXPECT_EQ(text.GetAllocLength(), 20);
    text = "abc";
    EXPECT_EQ(text.GetAllocLength(), 20);
    text.FreeExtra();
    EXPECT_EQ(text.GetAllocLength(), 3);
    EXPECT_EQ(Text(text), "abc");
    text.Preallocate(1);
    EXPECT_EQ(text.GetAllocLength(), 3);
    text.GetBufferSetLength(0);
    text.FreeExtra();
    EXPECT_EQ(text.GetAllocLength(), 0);
    EXPECT_EQ(CString("12345").GetAllocLength(), 5);
}

TEST(Buffers, SenselessLengthsAreRejected)
{
    CString text("abc");
    EXPECT_TRUE(Throws<CInvalidArgException>([&] { text.GetBuffer(-1); }));
    EXPECT_TRUE(Throws<CInvalidArgException>([&] { text.GetBufferSetLength(-1); }));
    EXPECT_TRUE(Throws<CInvalidArgException>([&] { text.Preallocate(-1); }));
    EXPECT_TRUE(Throws<CInvalidArgException>([&] { text.ReleaseBuffer(4); }));
    EXPECT_TRUE(Throws<CInvalidArgException>([&] { text.ReleaseBuffer(-2); }));
    EXPECT_TRUE(Throws<CInvalidArgException>([&] { text.ReleaseBufferSetLength(-1); }));
    EXPECT_EQ(Text(text), "abc");
}

TEST(Limits, LengthsBeyondTheLimitLeaveTheTextAlone)
{
    // 2^16 matches replaced by 2^16 bytes make 2^32, and 2^15 by 2^16 make 2^31.
    CString text('a', 1 << 16);
    const CString replacement('b', 1 << 16);
    EXPECT_TRUE(Throws<CMemoryException>([&] { text.Replace("a", replacement); }));
    text.Truncate(1 << 15);
    EXPECT_TRUE(Throws<CMemoryException>([&] { text.Replace("a", replacement); }));
    EXPECT_EQ(Text(text), std::string(1 << 15, 'a'));
}

// System strings

TEST(SystemStrings, CarryTheTextAsWideUnits)
{
    BSTR string = CString("a\344\200").AllocSysString();
    ASSERT_EQ(SysStringLen(string), 3U);
    EXPECT_EQ(string[0], 'a');
    EXPECT_EQ(string[1], 0x00E4);
    EXPECT_EQ(string[2], 0x20AC);
    EXPECT_EQ(string[3], 0);
    SysFreeString(string);

    string = Make(kEmbedded).AllocSysString();
    EXPECT_EQ(SysStringLen(string), 4U);
    EXPECT_EQ(Text(CString(string, 4)), kEmbedded);
    BSTR result = CString("other").SetSysString(&string);
    EXPECT_EQ(result, string);
    EXPECT_EQ(Text(CString(static_cast<LPCOLESTR>(string))), "other");
    SysFreeString(string);

    string = CString().AllocSysString();
    ASSERT_NE(string, nullptr);
    EXPECT_EQ(SysStringLen(string), 0U);
    SysFreeString(string);
}

TEST(SystemStrings, EveryByteComesBack)
{
    std::string all;
    for (int code = 0; code < 256; ++code)
        all += static_cast<char>(code);
    BSTR string = Make(all).AllocSysString();
    EXPECT_EQ(Text(CString(string, 256)), all);
    SysFreeString(string);
}

TEST(SystemStrings, AreAllocatedAndMeasured)
{
    const OLECHAR text[] = {'a', 'b', 0};
    BSTR string = SysAllocString(text);
    EXPECT_EQ(SysStringLen(string), 2U);
    EXPECT_EQ(string[1], 'b');
    EXPECT_EQ(string[2], 0);
    SysFreeString(string);
    string = SysAllocStringLen(text, 3);
    EXPECT_EQ(SysStringLen(string), 3U);
    SysFreeString(string);
    EXPECT_EQ(SysAllocString(nullptr), nullptr);
    EXPECT_EQ(SysStringLen(nullptr), 0U);
    SysFreeString(nullptr);
}
