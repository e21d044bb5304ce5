#include <ZelDt.h>

#include <gtest/gtest.h>

#include <type_traits>

// What callers write with texts, flags, dates and times, compiled as C++17 and as C++20. A
// comparison that fell back to pointers or to built-in operators would give other results here.

namespace {

/// Runs `body`, which is to find a value missing.
template <typename Body>
void ExpectUndefined(Body body)
{
    try {
        body();
        ADD_FAILURE() << "no error";
    } catch (ZelDtExcep* e) {
        EXPECT_EQ(e->GetErrorNo(), 2U);
        delete e;
    }
}

} // namespace

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
    EXPECT_TRUE(ZelDtString(ZelDtShort(-5)) == "-5");
    EXPECT_FALSE(ZelDtString().IsDefined());
    EXPECT_FALSE(ZelDtString(ZelDtWmNull).IsDefined());
    ZelDtString implicit = "text";
    EXPECT_TRUE(implicit == "text");
}

TEST(TimeExpressions, AreMadeFromNumbersTextsAndValues)
{
    const ZelDtLong l(8);
    EXPECT_EQ(ZelDtTime(1, 30).GetTime(), 90);
    EXPECT_EQ(ZelDtTime(1L, 30L).GetTime(), 90);
    EXPECT_EQ(ZelDtTime(0, 0).GetTime(), 0);
    EXPECT_EQ(ZelDtTime(8, 25, ZelDtTime::Hundertstel).GetTime(), 825);
    EXPECT_EQ(ZelDtTime(l, l).GetTime(), 488);
    EXPECT_EQ(ZelDtTime("8").GetTime(), 8);
    EXPECT_EQ(ZelDtTime("8", ZelDtTime::Minuten).GetTime(), 480);
    EXPECT_EQ(ZelDtTime(ZelDtString("8,25")).GetTime(), 825);
    EXPECT_TRUE(ZelDtTime(ZelDtWmNull).IsNull());
    EXPECT_TRUE(ZelDtString(ZelDtTime(1, 30)) == "01:30");
}

TEST(TimeExpressions, TakeTextsAndValuesForTimes)
{
    ZelDtTime t(1, 30);
    t += "0:30";
    EXPECT_TRUE(t == "2");
    EXPECT_TRUE(t != "2:01");
    EXPECT_TRUE(t < "2:01");
    EXPECT_TRUE(t + "1:00" == ZelDtTime(3, 0));
    EXPECT_TRUE(t - t == ZelDtTime(0, 0));
    t = "8:15";
    EXPECT_EQ(t.GetTime(), 495);
    t = ZelDtString("7:45");
    EXPECT_EQ(t.GetTime(), 465);
    t.AddHour(ZelDtLong(1));
    t.SetMin(ZelDtShort(5));
    EXPECT_TRUE(t == "8:05");
    ZelDtString s;
    s = t;
    EXPECT_TRUE(s == "08:05");
}

TEST(BoolExpressions, CompareWithPlainNumbersAndWordsOnBothSides)
{
    const ZelDtBool yes(TRUE);
    const ZelDtBool five(5);
    EXPECT_TRUE(yes == 1);
    EXPECT_TRUE(1 == yes);
    EXPECT_TRUE(yes == TRUE);
    EXPECT_TRUE(TRUE == yes);
    EXPECT_TRUE(yes == true);
    EXPECT_TRUE(true == yes);
    EXPECT_TRUE(yes != FALSE);
    EXPECT_TRUE(FALSE != yes);
    EXPECT_TRUE(five != 1); // as a truth value it would be equal
    EXPECT_TRUE(TRUE != five);
    EXPECT_TRUE(five != yes);
    EXPECT_TRUE(five == static_cast<short>(5));
    EXPECT_TRUE(yes == "ja");
    EXPECT_TRUE("1" == yes);
    EXPECT_TRUE(yes != "Nein");
    EXPECT_TRUE("0" != yes);
    EXPECT_FALSE(yes == static_cast<const char*>(nullptr));
    EXPECT_TRUE(static_cast<const char*>(nullptr) != yes);
}

TEST(BoolExpressions, AreChecked)
{
    const ZelDtBool missing(ZelDtWmMissing);
    const char* const none = nullptr;
    int (*const comparisons[])(const ZelDtBool& b, const char* none) = {
        [](const ZelDtBool& b, const char*) -> int { return b == 0; },
        [](const ZelDtBool& b, const char*) -> int { return 0 == b; },
        [](const ZelDtBool& b, const char*) -> int { return b != 0; },
        [](const ZelDtBool& b, const char*) -> int { return FALSE != b; },
        [](const ZelDtBool& b, const char*) -> int { return b == "Nein"; },
        [](const ZelDtBool& b, const char*) -> int { return "Nein" != b; },
        [](const ZelDtBool& b, const char* text) -> int { return b == text; },
        [](const ZelDtBool& b, const char* text) -> int { return text != b; },
    };
    for (const auto compare : comparisons)
        ExpectUndefined([&] { compare(missing, none); });
}

TEST(BoolExpressions, AssignAndConvertWithoutCasts)
{
    ZelDtBool b = TRUE;
    EXPECT_TRUE(b);
    if (!b)
        FAIL() << "TRUE is no";
    const int plain = b;
    EXPECT_EQ(plain, 1);
    const bool flag = b;
    EXPECT_TRUE(flag);
    EXPECT_EQ(b ? 'y' : 'n', 'y');
    b = FALSE;
    EXPECT_TRUE(b == 0);
    b = 5;
    EXPECT_TRUE(b == 5);
    b = true;
    EXPECT_TRUE(b == 1);
    b = 2 < 1;
    EXPECT_TRUE(b == 0);
    b = "Ja";
    EXPECT_TRUE(b == 1);
    b = ZelDtString("nein");
    EXPECT_TRUE(b == 0);
    EXPECT_TRUE(ZelDtBool("JA") == TRUE);
    EXPECT_TRUE(ZelDtBool(ZelDtString("1")) == TRUE);
    EXPECT_TRUE(ZelDtBool(0).IsDefined());
    EXPECT_FALSE(ZelDtBool().IsDefined());
    EXPECT_TRUE(ZelDtBool(ZelDtWmNull).IsNull());
    EXPECT_TRUE(ZelDtString(ZelDtBool(TRUE)) == "Ja");
}

TEST(CharExpressions, CompareWithCharactersAndTextsOnBothSides)
{
    const ZelDtChar c('x');
    EXPECT_TRUE(c == 'x');
    EXPECT_TRUE('x' == c);
    EXPECT_TRUE(c != 'X');
    EXPECT_TRUE('X' != c);
    EXPECT_TRUE(c == "x");
    EXPECT_TRUE("x" == c);
    EXPECT_TRUE(c != "y");
    EXPECT_TRUE("y" != c);
    EXPECT_TRUE(c == ZelDtChar('x'));
    EXPECT_TRUE(ZelDtChar('\xE4') == '\xE4'); // as an int it would be negative on some machines
    EXPECT_FALSE(c == static_cast<const char*>(nullptr));
    EXPECT_TRUE(static_cast<const char*>(nullptr) != c);
    EXPECT_TRUE(c == ZelDtString("x"));
    EXPECT_TRUE(ZelDtString("x") == c);
    EXPECT_TRUE(c != ZelDtString("xy"));
    EXPECT_TRUE(ZelDtString("xy") != c);
}

TEST(CharExpressions, AreChecked)
{
    const ZelDtChar missing(ZelDtWmMissing);
    const char* const none = nullptr;
    int (*const comparisons[])(const ZelDtChar& c, const char* none) = {
        [](const ZelDtChar& c, const char*) -> int { return c == '\0'; },
        [](const ZelDtChar& c, const char*) -> int { return '\0' == c; },
        [](const ZelDtChar& c, const char*) -> int { return c != '\0'; },
        [](const ZelDtChar& c, const char*) -> int { return '\0' != c; },
        [](const ZelDtChar& c, const char*) -> int { return c == ""; },
        [](const ZelDtChar& c, const char*) -> int { return "" != c; },
        [](const ZelDtChar& c, const char* text) -> int { return c == text; },
        [](const ZelDtChar& c, const char* text) -> int { return text != c; },
        [](const ZelDtChar& c, const char*) -> int { return c == ZelDtString(""); },
        [](const ZelDtChar& c, const char*) -> int { return ZelDtString("") != c; },
    };
    for (const auto compare : comparisons)
        ExpectUndefined([&] { compare(missing, none); });
}

TEST(CharExpressions, JoinEveryKindOfText)
{
    const ZelDtChar c('b');
    const ZelDtString s("st");
    EXPECT_TRUE(s + c == "stb");
    EXPECT_TRUE(c + s == "bst");
    EXPECT_TRUE(c + c == "bb");
    EXPECT_TRUE('a' + c == "ab");
    EXPECT_TRUE(c + 'c' == "bc");
    EXPECT_TRUE("a" + c == "ab");
    EXPECT_TRUE(c + "c" == "bc");
    EXPECT_TRUE(CString("a") + c == "ab");
    EXPECT_TRUE(c + CString("c") == "bc");
    EXPECT_TRUE('a' + c + 'c' + c + s == "abcbst");
    ZelDtString sum;
    sum = c;
    sum += c;
    sum = sum + c + 'c';
    EXPECT_TRUE(sum == "bbbc");
}

TEST(CharExpressions, AssignAndConvertWithoutCasts)
{
    ZelDtChar c = 'x';
    const char plain = c;
    EXPECT_EQ(plain, 'x');
    switch (c) {
    case 'x':
        break;
    default:
        FAIL() << "another character";
    }
    c = 'y';
    EXPECT_TRUE(c == 'y');
    c = "zebra";
    EXPECT_TRUE(c == 'z');
    c = ZelDtString("abc");
    EXPECT_TRUE(c == 'a');
    EXPECT_TRUE(ZelDtChar("abc") == 'a');
    EXPECT_TRUE(ZelDtChar(ZelDtString("abc")) == 'a');
    EXPECT_FALSE(ZelDtChar().IsDefined());
    EXPECT_TRUE(ZelDtChar(ZelDtWmNull).IsNull());
    EXPECT_TRUE(ZelDtString(c) == "a");
    ZelDtString s("abc");
    s.SetAt(0, 'b');
    s.Insert(c, 0);
    EXPECT_TRUE(s == "abbc");
}

TEST(DateExpressions, AreMadeFromNumbersTextsAndValues)
{
    const ZelDtShort day(5);
    const ZelDtShort month(3);
    const ZelDtShort year(2000);
    const short shortDay = 5;
    const ZelDtDateTime m(5, 3, 2000, 14, 7, 9);
    const ZelDtDateZp z(5, 3, 2000);
    EXPECT_TRUE(ZelDtDateTime(shortDay, 3, 2000, 14, 7, 9) == m);
    EXPECT_TRUE(ZelDtDateTime("05.03.2000 14:07:09", ZelDtDateTime::DateTimeString) == m);
    EXPECT_TRUE(ZelDtDateTime(5, 3, 2000) == z);
    EXPECT_TRUE(ZelDtDateTime(day, month, year) == z);
    EXPECT_TRUE(ZelDtDateZp(shortDay, 3, 2000) == z);
    EXPECT_TRUE(ZelDtDateZp(day, month, year) == z);
    EXPECT_TRUE(ZelDtDateZp("5.3.2000") == z);
    EXPECT_TRUE(ZelDtDateZp(ZelDtString("5.3.2000")) == z);
    EXPECT_TRUE(ZelDtDateZp(m) == z);
    EXPECT_EQ(ZelDtDateTime(0, 30).GetMin(), 30);
    EXPECT_EQ(ZelDtDateTime(day, month).GetMin(), 3);
    EXPECT_GE(ZelDtDateTime(ZelDtDateTime::ksDateTimeNow, 0).GetYear(), 2000);
    EXPECT_TRUE(ZelDtDateTime(ZelDtWmNull).IsNull());
    EXPECT_TRUE(ZelDtString(m) == "05.03.2000 14:07:09");
    EXPECT_TRUE(ZelDtString(z) == "05.03.2000");
}

TEST(DateExpressions, CompareFrameworkDatesOnBothSides)
{
    const ZelDtDateTime m(5, 3, 2000, 14, 7, 9);
    const ZelDtDateZp z(5, 3, 2000);
    const COleDateTime noon(2000, 3, 5, 12, 0, 0);
    const COleDateTime midnight(2000, 3, 5, 0, 0, 0);
    EXPECT_TRUE(m > noon);
    EXPECT_TRUE(m >= noon);
    EXPECT_TRUE(m != noon);
    EXPECT_FALSE(m == noon);
    EXPECT_FALSE(m < noon);
    EXPECT_FALSE(m <= noon);
    EXPECT_TRUE(noon < m);
    EXPECT_TRUE(noon <= m);
    EXPECT_TRUE(noon != m);
    EXPECT_FALSE(noon == m);
    EXPECT_FALSE(noon > m);
    EXPECT_FALSE(noon >= m);
    EXPECT_TRUE(z == midnight);
    EXPECT_TRUE(midnight == z);
    EXPECT_TRUE(z < m);
    EXPECT_TRUE(m != z);
    EXPECT_TRUE(z == z);
}

TEST(DateExpressions, MoveByTimesAndHaveTimesBetweenThem)
{
    ZelDtDateTime m(5, 3, 2000, 14, 7, 9);
    ZelDtDateZp z(5, 3, 2000);
    const ZelDtTime t(24, 0);
    EXPECT_TRUE(m + t == ZelDtDateTime(6, 3, 2000, 14, 7, 9));
    EXPECT_TRUE(m - "14:07" == ZelDtDateTime(5, 3, 2000, 0, 0, 9));
    EXPECT_TRUE((std::is_same<decltype(m + t), ZelDtDateTime>::value));
    EXPECT_TRUE((std::is_same<decltype(z - t), ZelDtDateZp>::value));
    EXPECT_TRUE(z + t == ZelDtDateZp(6, 3, 2000));
    EXPECT_TRUE(m - z == ZelDtTime(14, 7));
    EXPECT_TRUE(z - z == ZelDtTime(0, 0));
    EXPECT_TRUE(ZelDtString("am ") + z == "am 05.03.2000");
    m.AddHour(ZelDtLong(1));
    m.SetDay365(ZelDtShort(6));
    EXPECT_TRUE(m == ZelDtDateTime(6, 3, 2000, 15, 7, 9));
    z = m;
    const std::tm record = z;
    EXPECT_EQ(record.tm_hour, 0);
    const COleDateTime framework = m;
    EXPECT_EQ(framework.GetHour(), 15);
    m = z;
    EXPECT_EQ(m.GetHour(), 0);
    m = framework;
    EXPECT_EQ(m.GetHour(), 15);
    z = "1.2.2000";
    EXPECT_EQ(z.GetMonth(), 2);
    ZelDtString s;
    s = z;
    EXPECT_TRUE(s == "01.02.2000");
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
