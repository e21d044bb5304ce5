#include <ZelDt.h>

#include <gtest/gtest.h>

// What callers write, compiled as C++17 and as C++20. A comparison that fell back to pointers or
// to built-in operators would give other results here.

TEST(StringExpressions, ComparePlainTextsOnBothSides)
{
    const ZelDtString s("b");
    const char other[] = "b";
    EXPECT_TRUE(s == other);
    EXPECT_TRUE(other == s);
    EXPECT_FALSE(s != other);
    EXPECT_FALSE(other != s);
    EXPECT_TRUE("a" < s);
    EXPECT_TRUE("B" <= s);
    EXPECT_TRUE("B" >= s);
    EXPECT_TRUE("c" > s);
    EXPECT_TRUE(s < "c");
    EXPECT_TRUE(s <= "B");
    EXPECT_TRUE(s >= "B");
    EXPECT_TRUE(s > "a");
    EXPECT_FALSE(s == static_cast<const char*>(nullptr));
    EXPECT_TRUE(static_cast<const char*>(nullptr) != s);
}

TEST(StringExpressions, CompareFrameworkTextsOnBothSides)
{
    const ZelDtString s("b");
    const CString c("b");
    EXPECT_TRUE(s == c);
    EXPECT_TRUE(c == s);
    EXPECT_FALSE(s != c);
    EXPECT_FALSE(c != s);
    EXPECT_TRUE(CString("a") < s);
    EXPECT_TRUE(s < CString("c"));
    EXPECT_TRUE(s <= CString("B"));
    EXPECT_TRUE(CString("B") >= s);
    EXPECT_TRUE(s > CString("a"));
    EXPECT_TRUE(CString("c") > s);
}

TEST(StringExpressions, JoinEveryKindOfText)
{
    const ZelDtString s("b");
    EXPECT_TRUE(s + s == "bb");
    EXPECT_TRUE("a" + s == "ab");
    EXPECT_TRUE(s + "c" == "bc");
    EXPECT_TRUE('a' + s == "ab");
    EXPECT_TRUE(s + 'c' == "bc");
    EXPECT_TRUE(s + CString("c") == "bc");
    EXPECT_TRUE(CString("a") + s == "ab");
    ZelDtString sum;
    sum += s;
    sum += "c";
    sum += CString("d");
    sum += 'e';
    EXPECT_TRUE(sum == "bcde");
}

TEST(StringExpressions, ConvertWithoutCasts)
{
    const ZelDtString s("text");
    const char* plain = s;
    const CString framework = s;
    unsigned short* wide = s;
    BSTR system = s;
    EXPECT_STREQ(plain, "text");
    EXPECT_STREQ(framework, "text");
    EXPECT_EQ(wide[0], 't');
    EXPECT_EQ(system[3], 't');
    const ZelDtString fromWide(wide);
    const ZelDtString fromSystem(system);
    ZelDtString assigned;
    assigned = system;
    EXPECT_TRUE(fromWide == "text");
    EXPECT_TRUE(fromSystem == "text");
    EXPECT_TRUE(assigned == "text");
    SysFreeString(reinterpret_cast<BSTR>(wide));
    SysFreeString(system);
}

TEST(StringExpressions, IndexWithEveryIntegerType)
{
    const ZelDtString s("ab");
    const std::size_t last = 1;
    EXPECT_EQ(s[0], 'a');
    EXPECT_EQ(s[last], 'b');
    EXPECT_EQ(s[1L], 'b');
    EXPECT_EQ(s[static_cast<short>(1)], 'b');
    try {
        const long long distant = 0x100000000LL; // would be 0 if it were cut
        s[distant];
        FAIL() << "no error";
    } catch (ZelDtExcep* e) {
        EXPECT_EQ(e->GetErrorNo(), 3U);
        delete e;
    }
}

TEST(StringExpressions, AreMadeFromWhatTheySayTheyAre)
{
    EXPECT_TRUE(ZelDtString('x') == "x");
    EXPECT_TRUE(ZelDtString(120) == "120");
    EXPECT_TRUE(ZelDtString(4000000000U) == "4000000000");
    EXPECT_TRUE(ZelDtString(CString("c")) == "c");
    EXPECT_TRUE(ZelDtString(ZelDtLong(-5)) == "-5");
    EXPECT_FALSE(ZelDtString().IsDefined());
    EXPECT_FALSE(ZelDtString(ZelDtWmNull).IsDefined());
    ZelDtString implicit = "text";
    EXPECT_TRUE(implicit == "text");
}

TEST(LongExpressions, ComputeWithIntAndLongOnBothSides)
{
    const ZelDtLong l(7);
    EXPECT_EQ((l + 1).GetValue(), 8);
    EXPECT_EQ((1 + l).GetValue(), 8);
    EXPECT_EQ((l - 1L).GetValue(), 6);
    EXPECT_EQ((1L - l).GetValue(), -6);
    EXPECT_EQ((l * 2).GetValue(), 14);
    EXPECT_EQ((2L * l).GetValue(), 14);
    EXPECT_EQ((l / 2).GetValue(), 3);
    EXPECT_EQ((15 / l).GetValue(), 2);
    EXPECT_EQ((l + 'a').GetValue(), 104);
    EXPECT_EQ((l + static_cast<short>(1)).GetValue(), 8);
    EXPECT_EQ((l + l * l - l / l).GetValue(), 55);
}

TEST(LongExpressions, CompareWithIntAndLongOnBothSides)
{
    const ZelDtLong l(5);
    EXPECT_TRUE(l == 5);
    EXPECT_TRUE(5 == l);
    EXPECT_TRUE(l == 5L);
    EXPECT_TRUE(5L == l);
    EXPECT_TRUE(l != 6);
    EXPECT_TRUE(6L != l);
    EXPECT_TRUE(4 < l);
    EXPECT_TRUE(l < 6L);
    EXPECT_TRUE(6 > l);
    EXPECT_TRUE(l > 4);
    EXPECT_TRUE(5 <= l);
    EXPECT_TRUE(l <= 5L);
    EXPECT_TRUE(5L >= l);
    EXPECT_TRUE(l >= 5);
}

TEST(LongExpressions, AssignAndConvertWithoutCasts)
{
    ZelDtLong l = 5;
    const long plain = l;
    EXPECT_EQ(plain, 5);
    l = 6;
    l = 7L;
    l += 1;
    l += 1L;
    l -= 2;
    l -= ZelDtLong(1);
    EXPECT_TRUE(l == 6);
    ++l;
    l++;
    --l;
    l--;
    EXPECT_TRUE(l == 6);
    const ZelDtLong fromText("12");
    const ZelDtLong fromString(ZelDtString("13"));
    EXPECT_TRUE(fromText == 12);
    EXPECT_TRUE(fromString == 13);
}

TEST(ValueArrays, CrossTheLibraryBorder)
{
    ZelDtLong* numbers = new ZelDtLong[3];
    ZelDtString* texts = new ZelDtString[3];
    numbers[2] = 5;
    texts[2] = "text";
    EXPECT_TRUE(numbers[2] == 5);
    EXPECT_TRUE(texts[2] == "text");
    delete[] numbers;
    delete[] texts;
}
