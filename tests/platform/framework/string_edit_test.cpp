// Searching and editing of texts.

#include "platform/framework/fwexcept.h"
#include "platform/framework/fwstring.h"
#include "platform/runtime/ansi.h"
#include "tests/platform/framework/framework_testing.h"
#include "tests/platform/framework/string_testing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstdint>
#include <random>
#include <string>
#include <utility>
#include <vector>

TEST(Parts, AreCutToTheText)
{
    const CString text("abcdef");
    EXPECT_EQ(Text(text.Mid(2)), "cdef");
    EXPECT_EQ(Text(text.Mid(2, 2)), "cd");
    EXPECT_EQ(Text(text.Mid(4, 9)), "ef");
    EXPECT_EQ(Text(text.Mid(4, INT_MAX)), "ef");
    EXPECT_EQ(Text(text.Mid(6)), "");
    EXPECT_EQ(Text(text.Mid(7)), "");
    EXPECT_EQ(Text(text.Mid(INT_MAX, INT_MAX)), "");
    EXPECT_EQ(Text(text.Mid(-3, 2)), "ab");
    EXPECT_EQ(Text(text.Mid(2, -1)), "");
    EXPECT_EQ(Text(text.Mid(INT_MIN, INT_MIN)), "");
    EXPECT_EQ(Text(text.Left(2)), "ab");
    EXPECT_EQ(Text(text.Left(0)), "");
    EXPECT_EQ(Text(text.Left(-1)), "");
    EXPECT_EQ(Text(text.Left(7)), "abcdef");
    EXPECT_EQ(Text(text.Right(2)), "ef");
    EXPECT_EQ(Text(text.Right(0)), "");
    EXPECT_EQ(Text(text.Right(INT_MIN)), "");
    EXPECT_EQ(Text(text.Right(INT_MAX)), "abcdef");
    EXPECT_EQ(Text(Make(kEmbedded).Mid(1, 2)), std::string("\0b", 2));
}

TEST(Parts, SpansFollowASet)
{
    const CString text("aabbcc");
    EXPECT_EQ(Text(text.SpanIncluding("ba")), "aabb");
    EXPECT_EQ(Text(text.SpanIncluding("c")), "");
    EXPECT_EQ(Text(text.SpanIncluding("abc")), "aabbcc");
    EXPECT_EQ(Text(text.SpanIncluding("")), "");
    EXPECT_EQ(Text(text.SpanExcluding("cb")), "aa");
    EXPECT_EQ(Text(text.SpanExcluding("a")), "");
    EXPECT_EQ(Text(text.SpanExcluding("x")), "aabbcc");
    EXPECT_EQ(Text(text.SpanExcluding(nullptr)), "aabbcc");
    EXPECT_EQ(Text(CString().SpanIncluding("a")), "");
}

TEST(Parts, TokensStandBetweenSeparators)
{
    const CString text(";one; two;;three");
    int start = 0;
    std::vector<std::string> tokens;
    for (CString token = text.Tokenize("; ", start); start != -1;
         token = text.Tokenize("; ", start))
        tokens.push_back(Text(token));
    EXPECT_EQ(tokens, (std::vector<std::string>{"one", "two", "three"}));
    EXPECT_EQ(Text(text.Tokenize(";", start)), "");
    EXPECT_EQ(start, -1);
    start = 100;
    EXPECT_EQ(Text(text.Tokenize(";", start)), "");
    EXPECT_EQ(start, -1);
    start = 0;
    EXPECT_EQ(Text(CString("x y").Tokenize("", start)), "x y");
}

TEST(Searching, GivesPositions)
{
    const CString text("abcabc");
    EXPECT_EQ(text.Find("bc"), 1);
    EXPECT_EQ(text.Find("bc", 1), 1);
    EXPECT_EQ(text.Find("bc", 2), 4);
    EXPECT_EQ(text.Find("bc", 5), -1);
    EXPECT_EQ(text.Find("x"), -1);
    EXPECT_EQ(text.Find("", 3), 3);
    EXPECT_EQ(text.Find("", 6), 6);
    EXPECT_EQ(text.Find("", 7), -1);
    EXPECT_EQ(text.Find("a", -1), -1);
    EXPECT_EQ(text.Find(static_cast<LPCTSTR>(nullptr)), -1);
    EXPECT_EQ(text.Find("abcabcd"), -1);
    EXPECT_EQ(text.Find('c'), 2);
    EXPECT_EQ(text.Find('c', 3), 5);
    EXPECT_EQ(text.Find('c', 6), -1);
    EXPECT_EQ(text.Find('c', 7), -1);
    EXPECT_EQ(text.Find('c', -1), -1);
    EXPECT_EQ(text.ReverseFind('a'), 3);
    EXPECT_EQ(text.ReverseFind('x'), -1);
    EXPECT_EQ(CString().ReverseFind('x'), -1);
    EXPECT_EQ(text.FindOneOf("xcb"), 1);
    EXPECT_EQ(text.FindOneOf("xyz"), -1);
    EXPECT_EQ(text.FindOneOf(nullptr), -1);
    EXPECT_EQ(Make(kEmbedded).Find('b'), 2);
    EXPECT_EQ(Make(kEmbedded).Find('\0', 2), 3);
    EXPECT_EQ(Make(kEmbedded).Find("b"), 2);
}

// Changing

TEST(Appending, OfEveryKind)
{
    CString text;
    text += "ab";
    text += CString("cd");
    text += 'e';
    text.Append("fghi", 2);
    text.Append(CString("h"));
    text.Append("i");
    text.AppendChar('j');
    text += static_cast<LPCTSTR>(nullptr);
    text += "";
    EXPECT_EQ(Text(text), "abcdefghij");
    text += Make(kEmbedded);
    EXPECT_EQ(Text(text), "abcdefghij" + kEmbedded);
    EXPECT_TRUE(Throws<CInvalidArgException>([&] { text.Append("x", -1); }));
    EXPECT_TRUE(Throws<CInvalidArgException>([&] { text.Append(nullptr, 1); }));
    EXPECT_EQ(text.GetLength(), 14);
}

TEST(Appending, OperatorsJoin)
{
    const CString a("ab");
    EXPECT_EQ(Text(a + CString("cd")), "abcd");
    EXPECT_EQ(Text(a + "cd"), "abcd");
    EXPECT_EQ(Text("cd" + a), "cdab");
    EXPECT_EQ(Text(a + 'c'), "abc");
    EXPECT_EQ(Text('c' + a), "cab");
    EXPECT_EQ(Text(a + static_cast<LPCTSTR>(nullptr)), "ab");
    EXPECT_EQ(Text(Make(kEmbedded) + Make(kEmbedded)), kEmbedded + kEmbedded);
    EXPECT_EQ(Text(CString() + CString()), "");
}

TEST(Case, FollowsTheCodePage)
{
    std::string all;
    for (int code = 1; code < 256; ++code)
        all += static_cast<char>(code);
    const std::string upper = Text(Make(all).MakeUpper());
    const std::string lower = Text(Make(all).MakeLower());
    for (std::size_t i = 0; i < all.size(); ++i) {
        const auto code = static_cast<unsigned char>(all[i]);
        EXPECT_EQ(static_cast<unsigned char>(upper[i]), zelrt::AnsiToUpper(code));
        EXPECT_EQ(static_cast<unsigned char>(lower[i]), zelrt::AnsiToLower(code));
    }
    EXPECT_EQ(Text(CString("stra\337e \344\377").MakeUpper()), "STRA\337E \304\237");
    EXPECT_EQ(Text(CString("\304\326\334 ABC").MakeLower()), "\344\366\374 abc");
    EXPECT_EQ(Text(CString().MakeUpper()), "");
    EXPECT_EQ(Text(CString("abc").MakeReverse()), "cba");
    EXPECT_EQ(Text(CString().MakeReverse()), "");
    EXPECT_EQ(Text(Make(kEmbedded).MakeReverse()), std::string("\0b\0a", 4));
}

TEST(Trimming, TakesFromTheEnds)
{
    const char* const spaced = " \t\n\v\f\r a b \r\n";
    EXPECT_EQ(Text(CString(spaced).Trim()), "a b");
    EXPECT_EQ(Text(CString(spaced).TrimLeft()), "a b \r\n");
    EXPECT_EQ(Text(CString(spaced).TrimRight()), " \t\n\v\f\r a b");
    EXPECT_EQ(Text(CString("\240a").Trim()), "\240a");
    EXPECT_EQ(Text(CString("   ").Trim()), "");
    EXPECT_EQ(Text(CString("   ").TrimLeft()), "");
    EXPECT_EQ(Text(CString("   ").TrimRight()), "");
    EXPECT_EQ(Text(CString().Trim()), "");
    EXPECT_EQ(Text(CString("xxaxbxx").Trim('x')), "axb");
    EXPECT_EQ(Text(CString("xxaxbxx").TrimLeft('x')), "axbxx");
    EXPECT_EQ(Text(CString("xxaxbxx").TrimRight('x')), "xxaxb");
    EXPECT_EQ(Text(CString("xyaxbyx").Trim("yx")), "axb");
    EXPECT_EQ(Text(CString("xyaxbyx").TrimLeft("yx")), "axbyx");
    EXPECT_EQ(Text(CString("xyaxbyx").TrimRight("yx")), "xyaxb");
    EXPECT_EQ(Text(CString("abc").Trim("")), "abc");
    EXPECT_EQ(Text(CString("abc").Trim(static_cast<LPCTSTR>(nullptr))), "abc");
}

TEST(Replacing, CountsMatches)
{
    struct Row {
        const char* text;
        const char* wanted;
        const char* replacement;
        int count;
        const char* result;
    };
    const Row rows[] = {
        {"aaa", "a", "b", 3, "bbb"},
        {"aaa", "aa", "b", 1, "ba"},
        {"abab", "ab", "ababab", 2, "abababababab"},
        {"abc", "x", "y", 0, "abc"},
        {"abc", "", "y", 0, "abc"},
        {"abc", "abc", "", 1, ""},
        {"a.b.c", ".", nullptr, 2, "abc"},
        {"", "a", "b", 0, ""},
        {"abc", nullptr, "b", 0, "abc"},
        {"xabcx", "abc", "1234", 1, "x1234x"},
    };
    for (const Row& row : rows) {
        CString text(row.text);
        EXPECT_EQ(text.Replace(row.wanted, row.replacement), row.count) << row.text;
        EXPECT_EQ(Text(text), row.result) << row.text;
    }
    CString text("banana");
    EXPECT_EQ(text.Replace('a', 'o'), 3);
    EXPECT_EQ(Text(text), "bonono");
    EXPECT_EQ(text.Replace('x', 'o'), 0);
    EXPECT_EQ(text.Replace('o', 'o'), 3);
    EXPECT_EQ(text.Remove('o'), 3);
    EXPECT_EQ(Text(text), "bnn");
    EXPECT_EQ(text.Remove('x'), 0);
    EXPECT_EQ(text.Remove('n'), 2);
    EXPECT_EQ(text.Remove('b'), 1);
    EXPECT_EQ(Text(text), "");
    CString embedded = Make(kEmbedded);
    EXPECT_EQ(embedded.Replace("b", "xy"), 1);
    EXPECT_EQ(Text(embedded), std::string("a\0xy\0", 5));
    EXPECT_EQ(embedded.Remove('\0'), 2);
    EXPECT_EQ(Text(embedded), "axy");
}

TEST(InsertingAndDeleting, AreCutToTheText)
{
    CString text("abc");
    EXPECT_EQ(text.Insert(1, "XY"), 5);
    EXPECT_EQ(Text(text), "aXYbc");
    EXPECT_EQ(text.Insert(-4, 'v'), 6);
    EXPECT_EQ(text.Insert(100, 'n'), 7);
    EXPECT_EQ(Text(text), "vaXYbcn");
    EXPECT_EQ(text.Insert(2, ""), 7);
    EXPECT_EQ(text.Insert(2, static_cast<LPCTSTR>(nullptr)), 7);
    EXPECT_EQ(text.Delete(2, 2), 5);
    EXPECT_EQ(Text(text), "vabcn");
    EXPECT_EQ(text.Delete(0), 4);
    EXPECT_EQ(text.Delete(3, INT_MAX), 3);
    EXPECT_EQ(Text(text), "abc");
    EXPECT_EQ(text.Delete(3), 3);
    EXPECT_EQ(text.Delete(100, 5), 3);
    EXPECT_EQ(text.Delete(1, -1), 3);
    EXPECT_EQ(text.Delete(-5, 1), 2);
    EXPECT_EQ(Text(text), "bc");
    text.Truncate(5);
    EXPECT_EQ(Text(text), "bc");
    text.Truncate(1);
    EXPECT_EQ(Text(text), "b");
    EXPECT_TRUE(Throws<CInvalidArgException>([&] { text.Truncate(-1); }));
}

TEST(OwnText, IsAllowedAsArgument)
{
    const auto changed = [](auto change) {
        CString text("abcabc");
        change(text);
        return Text(text);
    };
    EXPECT_EQ(changed([](CString& s) { s = s.GetString() + 2; }), "cabc");
    EXPECT_EQ(changed([](CString& s) { s.SetString(s.GetString() + 1, 3); }), "bca");
    EXPECT_EQ(changed([](CString& s) { s += s; }), "abcabcabcabc");
    EXPECT_EQ(changed([](CString& s) { s += s.GetString() + 4; }), "abcabcbc");
    EXPECT_EQ(changed([](CString& s) {
                  s.Preallocate(100);
                  s += s.GetString() + 4;
                  s += s;
              }),
              "abcabcbcabcabcbc");
    EXPECT_EQ(changed([](CString& s) { s.Insert(1, s); }), "aabcabcbcabc");
    EXPECT_EQ(changed([](CString& s) { s.Insert(3, s.GetString() + 4); }), "abcbcabc");
    EXPECT_EQ(changed([](CString& s) { s.Replace(s, "x"); }), "x");
    EXPECT_EQ(changed([](CString& s) { s.Replace("b", s); }), "aabcabccaabcabcc");
    EXPECT_EQ(changed([](CString& s) { s.Trim(s.GetString() + 5); }), "abcab");
    EXPECT_EQ(changed([](CString& s) { s.Trim(s); }), "");
    EXPECT_EQ(changed([](CString& s) { s.TrimLeft(s.GetString() + 3); }), "");
    EXPECT_EQ(changed([](CString& s) { s.Format("<%s>", s.GetString()); }), "<abcabc>");
    EXPECT_EQ(changed([](CString& s) { s.AppendFormat("<%s>", s.GetString()); }), "abcabc<abcabc>");
    EXPECT_EQ(changed([](CString& s) { s = static_cast<const CString&>(s); }), "abcabc");
    EXPECT_EQ(changed([](CString& s) { s = s[1]; }), "b");
}

// Against the standard library's string

namespace {

/// The same operations on a CString and on a std::string.
class Twins {
public:
    explicit Twins(std::uint32_t seed) : m_random(seed) {}

    void Step()
    {
        const std::string piece = RandomText(6);
        const auto size = static_cast<int>(m_model.size());
        const int index = Number(size + 1);
        const int count = Number(8);
        const char character = RandomCharacter();
        const auto at = static_cast<std::size_t>(index);
        const auto length = static_cast<std::size_t>(count);
        switch (Number(13)) {
        case 0:
            m_text = Make(piece);
            m_model = piece;
            break;
        case 1:
            m_text += Make(piece);
            m_model += piece;
            break;
        case 2:
            m_text += character;
            m_model += character;
            break;
        case 3:
            m_text += m_text;
            m_model += m_model;
            break;
        case 4:
            m_text.Insert(index, character);
            m_model.insert(at, 1, character);
            break;
        case 5:
            m_text.Delete(index, count);
            m_model.erase(at, length);
            break;
        case 6:
            m_text = m_text.Mid(index, count * 4);
            m_model = m_model.substr(at, length * 4);
            break;
        case 7:
            m_text.Remove(character);
            std::erase(m_model, character);
            break;
        case 8:
            m_text.MakeReverse();
            std::reverse(m_model.begin(), m_model.end());
            break;
        case 9:
            m_text.Replace(character, 'z');
            std::replace(m_model.begin(), m_model.end(), character, 'z');
            break;
        case 10:
            m_kept = m_text;
            m_keptModel = m_model;
            break;
        case 11:
            std::swap(m_text, m_kept);
            std::swap(m_model, m_keptModel);
            break;
        default:
            m_text.FreeExtra();
            break;
        }
        if (m_model.size() > 500) {
            m_text.Truncate(20);
            m_model.resize(20);
        }
        ASSERT_EQ(Text(m_text), m_model);
        ASSERT_EQ(Text(m_kept), m_keptModel);
        const auto found = m_model.find(character, at < m_model.size() ? at : 0);
        ASSERT_EQ(m_text.Find(character, at < m_model.size() ? index : 0),
                  found == std::string::npos ? -1 : static_cast<int>(found));
    }

private:
    int Number(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(m_random); }
    char RandomCharacter() { return "abc\0\344z"[Number(6)]; }

    std::string RandomText(int maxLength)
    {
        std::string text(static_cast<std::size_t>(Number(maxLength + 1)), '\0');
        for (char& character : text)
            character = RandomCharacter();
        return text;
    }

    std::mt19937 m_random;
    CString m_text;
    CString m_kept;
    std::string m_model;
    std::string m_keptModel;
};

} // namespace

TEST(AgainstStandardString, RandomSequencesAgree)
{
    for (std::uint32_t seed = 1; seed <= 20; ++seed) {
        Twins twins(seed);
        for (int step = 0; step < 1000 && !testing::Test::HasFatalFailure(); ++step)
            twins.Step();
        ASSERT_FALSE(testing::Test::HasFatalFailure()) << seed;
    }
}
