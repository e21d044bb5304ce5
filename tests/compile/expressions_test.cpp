#include <ZelDt.h>

#include <gtest/gtest.h>

#include <type_traits>

// What callers write, compiled as C++17 and as C++20. A comparison that fell back to pointers or
// to built-in operators would give other results here.

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

TEST(ShortExpressions, ComputeWithPlainNumbersOnBothSides)
{
    const ZelDtShort n(7);
    EXPECT_EQ((n + 1).GetValue(), 8);
    EXPECT_EQ((1 + n).GetValue(), 8);
    EXPECT_EQ((n - 1L).GetValue(), 6);
    EXPECT_EQ((1L - n).GetValue(), -6);
    EXPECT_EQ((n * 2).GetValue(), 14);
    EXPECT_EQ((2L * n).GetValue(), 14);
    EXPECT_EQ((n / 2).GetValue(), 3);
    EXPECT_EQ((15 / n).GetValue(), 2);
    EXPECT_EQ((n + 'a').GetValue(), 104);
    EXPECT_EQ((n + static_cast<short>(1)).GetValue(), 8);
    EXPECT_EQ((n + n * n - n / n).GetValue(), 55);
    EXPECT_EQ((ZelDtShort(-30000) + 60000).GetValue(), 30000); // only the result has to fit
    EXPECT_EQ((60000L / n).GetValue(), 8571);
}

TEST(ShortExpressions, CompareWithPlainNumbersOnBothSides)
{
    const ZelDtShort n(5);
    EXPECT_TRUE(n == 5);
    EXPECT_TRUE(5 == n);
    EXPECT_TRUE(n == 5L);
    EXPECT_TRUE(5L == n);
    EXPECT_TRUE(n != 65541); // its low 16 bits are 5
    EXPECT_TRUE(65541L != n);
    EXPECT_TRUE(4 < n);
    EXPECT_TRUE(n < 6L);
    EXPECT_TRUE(6 > n);
    EXPECT_TRUE(n > 4);
    EXPECT_TRUE(5 <= n);
    EXPECT_TRUE(n <= 5L);
    EXPECT_TRUE(5L >= n);
    EXPECT_TRUE(n >= 5);
    EXPECT_TRUE(n == static_cast<short>(5));
}

TEST(ShortExpressions, AssignAndConvertWithoutCasts)
{
    ZelDtShort n = 5;
    const short plain = n;
    EXPECT_EQ(plain, 5);
    n = 6;
    n = 7L;
    n = static_cast<short>(8);
    n += 1;
    n += 1L;
    n -= 2;
    n -= ZelDtShort(2);
    EXPECT_TRUE(n == 6);
    ++n;
    n++;
    --n;
    n--;
    EXPECT_TRUE(n == 6);
    n.SetFromSQL(9);
    EXPECT_TRUE(n == 9);
    EXPECT_TRUE(ZelDtShort(static_cast<short>(4)) == 4);
    EXPECT_TRUE(ZelDtShort(4L) == 4);
    EXPECT_TRUE(ZelDtShort("12") == 12);
    EXPECT_TRUE(ZelDtShort(ZelDtString("13")) == 13);
    EXPECT_TRUE(ZelDtShort(ZelDtLong(14)) == 14);
}

TEST(DoubleExpressions, ComputeWithPlainNumbersOnBothSides)
{
    const ZelDtDouble x(2.5);
    EXPECT_EQ((x + 1).GetValue(), 3.5);
    EXPECT_EQ((1 + x).GetValue(), 3.5);
    EXPECT_EQ((x + 0.5).GetValue(), 3.0);
    EXPECT_EQ((0.5 + x).GetValue(), 3.0);
    EXPECT_EQ((x - 1L).GetValue(), 1.5);
    EXPECT_EQ((1L - x).GetValue(), -1.5);
    EXPECT_EQ((x * 2).GetValue(), 5.0);
    EXPECT_EQ((2.5 * x).GetValue(), 6.25);
    EXPECT_EQ((2L * x).GetValue(), 5.0);
    EXPECT_EQ((x / 2).GetValue(), 1.25);
    EXPECT_EQ((5 / x).GetValue(), 2.0);
    EXPECT_EQ((x / 0.5).GetValue(), 5.0);
    EXPECT_EQ((x + 'a').GetValue(), 99.5);
    EXPECT_EQ((x + static_cast<short>(1)).GetValue(), 3.5);
    EXPECT_EQ((x + x * x - x / x).GetValue(), 7.75);
}

TEST(DoubleExpressions, CompareWithPlainNumbersOnBothSides)
{
    const ZelDtDouble x(2.5);
    const ZelDtDouble five(5.0);
    EXPECT_TRUE(five == 5);
    EXPECT_TRUE(5 == five);
    EXPECT_TRUE(five == 5L);
    EXPECT_TRUE(5L == five);
    EXPECT_TRUE(x == 2.5);
    EXPECT_TRUE(2.5 == x);
    EXPECT_FALSE(x == 2); // as an integer it would be
    EXPECT_FALSE(2L == x);
    EXPECT_FALSE(x == 0);
    EXPECT_TRUE(x != 2);
    EXPECT_TRUE(0.5 < x);
    EXPECT_TRUE(x < 3L);
    EXPECT_TRUE(2 < x);
    EXPECT_TRUE(3 > x);
    EXPECT_TRUE(x > 2.25);
    EXPECT_TRUE(2.5 <= x);
    EXPECT_TRUE(x <= 3);
    EXPECT_TRUE(3L >= x);
    EXPECT_TRUE(x >= 2);
}

TEST(DoubleExpressions, AssignAndConvertWithoutCasts)
{
    ZelDtDouble x = 2.5;
    const double plain = x;
    const COleCurrency amount = x;
    EXPECT_EQ(plain, 2.5);
    EXPECT_TRUE(amount == COleCurrency(2, 5000));
    x = 5;
    x = 6L;
    x = 7.5;
    x = 8.5F;
    x += 1;
    x += 1L;
    x -= 0.5;
    x -= ZelDtDouble(2.0);
    EXPECT_TRUE(x == 8);
    ++x;
    x++;
    --x;
    x--;
    EXPECT_TRUE(x == 8);
    x = amount;
    EXPECT_TRUE(x == 2.5);
    x = "1.5";
    EXPECT_TRUE(x == 1.5);
    x = ZelDtString("0.25");
    EXPECT_TRUE(x == 0.25);
    EXPECT_TRUE(ZelDtDouble(3L) == 3);
    EXPECT_TRUE(ZelDtDouble("12abc") == 12);
    EXPECT_TRUE(ZelDtDouble(ZelDtString("13.5")) == 13.5);
    EXPECT_TRUE(ZelDtDouble(ZelDtDecimal("14.5")) == 14.5);
    EXPECT_TRUE(ZelDtString(ZelDtDouble(0.5)) == "0.5");
}

TEST(DecimalExpressions, ComputeWithPlainNumbersOnBothSides)
{
    const ZelDtDecimal d("7.5");
    EXPECT_TRUE(d + 1 == 8.5);
    EXPECT_TRUE(1 + d == 8.5);
    EXPECT_TRUE(d - 1L == 6.5);
    EXPECT_TRUE(1L - d == -6.5);
    EXPECT_TRUE(d * 2.5 == 18.75);
    EXPECT_TRUE(2.5 * d == 18.75);
    EXPECT_TRUE(d / 2 == 3.75);
    EXPECT_TRUE(15 / d == 2);
    EXPECT_TRUE(d % 2 == 1.5);
    EXPECT_TRUE(20L % d == 5);
    EXPECT_TRUE(d % 0.2 == 0.1);
    EXPECT_TRUE(8.1 % d == 0.6);
    EXPECT_TRUE(d + 'a' == 104.5);
    EXPECT_TRUE(d - static_cast<short>(1) == 6.5);
    EXPECT_TRUE(d + d * d - d / d == 62.75);
    EXPECT_TRUE(0 - d == -7.5);
    EXPECT_TRUE(d * "2" == 15);
}

TEST(DecimalExpressions, CompareWithPlainNumbersOnBothSides)
{
    const ZelDtDecimal d("0.1");
    EXPECT_TRUE(d == 0.1);
    EXPECT_TRUE(0.1 == d);
    EXPECT_TRUE(d != 0);
    EXPECT_TRUE(0L != d);
    EXPECT_TRUE(0 < d);
    EXPECT_TRUE(d < 1L);
    EXPECT_TRUE(0.5 > d);
    EXPECT_TRUE(d > 0.05);
    EXPECT_TRUE(0.1 <= d);
    EXPECT_TRUE(d <= 1);
    EXPECT_TRUE(1L >= d);
    EXPECT_TRUE(d >= 0.1);
    EXPECT_TRUE(d == "0.10");
    EXPECT_TRUE(d != "1");
    EXPECT_TRUE(d < "0.11");
    // As doubles these two would be equal.
    EXPECT_TRUE(ZelDtDecimal("9007199254740993") > ZelDtDecimal("9007199254740992"));
    EXPECT_TRUE(ZelDtDecimal("2147483648") != 2147483647);
}

TEST(DecimalExpressions, AssignAndConvertWithoutCasts)
{
    ZelDtDecimal d = "1.5";
    const double plain = d;
    EXPECT_EQ(plain, 1.5);
    d = 5;
    d = 6L;
    d += 1;
    d += 1L;
    d += 0.5;
    d += "0.5";
    d -= 2;
    d -= 2L;
    d -= 0.25;
    d -= ZelDtDecimal("0.75");
    EXPECT_TRUE(d == 4);
    ++d;
    d++;
    --d;
    d--;
    EXPECT_TRUE(d == 4);
    d = 2.5;
    EXPECT_TRUE(d == 2.5);
    d = "1.25";
    const COleCurrency amount = d;
    EXPECT_EQ(amount.m_cur.int64, 12500);
    ZelDtDecimal back;
    back = amount;
    EXPECT_TRUE(back == d);
    back = ZelDtString("-7.5");
    EXPECT_TRUE(back == -7.5);
    EXPECT_TRUE(ZelDtDecimal(amount) == d);
    EXPECT_TRUE(ZelDtDecimal(0) == 0);
    EXPECT_TRUE(ZelDtDecimal(0.1) == "0.1");
    EXPECT_TRUE(ZelDtDecimal(ZelDtLong(-5)) == -5);
    EXPECT_TRUE(ZelDtDecimal(ZelDtShort(-5)) == -5);
    EXPECT_TRUE(ZelDtDecimal(ZelDtDouble(0.1)) == 0.1);
    EXPECT_TRUE(ZelDtDecimal(ZelDtString("0.1")) == 0.1);
    EXPECT_TRUE(ZelDtString(ZelDtDecimal("1.50")) == "1.5");
    back.Round(0, ZelDtDecimal::RundungAbwaerts).Truncate(0);
    EXPECT_TRUE(back == -8);
}

template <typename Wanted, typename Value>
bool Is(const Value&)
{
    return std::is_same<Value, Wanted>::value;
}

TEST(MixedExpressions, OfShortAndLongAreLongs)
{
    const ZelDtShort n(30000);
    ZelDtLong l(30001);
    EXPECT_TRUE(Is<ZelDtLong>(n + l));
    EXPECT_TRUE(Is<ZelDtLong>(l - n));
    EXPECT_EQ((n + l).GetValue(), 60001);
    EXPECT_EQ((l + n).GetValue(), 60001);
    EXPECT_EQ((n - l).GetValue(), -1);
    EXPECT_EQ((l - n).GetValue(), 1);
    EXPECT_EQ((n * l).GetValue(), 900030000);
    EXPECT_EQ((l * n).GetValue(), 900030000);
    EXPECT_EQ((n / l).GetValue(), 0);
    EXPECT_EQ((l / n).GetValue(), 1);
    EXPECT_TRUE(n < l);
    EXPECT_TRUE(l > n);
    EXPECT_TRUE(n <= l);
    EXPECT_TRUE(l >= n);
    EXPECT_TRUE(n != l);
    EXPECT_FALSE(l == n);
    l = n;
    EXPECT_TRUE(l == n);
    EXPECT_TRUE(n == l);
    l += n;
    EXPECT_TRUE(l == 60000);
    l -= n;
    EXPECT_TRUE(l == 30000);
}

TEST(MixedExpressions, WithDecimalsAreDecimals)
{
    const ZelDtShort n(3);
    const ZelDtLong l(4);
    ZelDtDecimal d("1.5");
    EXPECT_TRUE(Is<ZelDtDecimal>(l * d));
    EXPECT_TRUE(Is<ZelDtDecimal>(n * d));
    EXPECT_TRUE(Is<ZelDtDecimal>(d / n));
    EXPECT_TRUE(n * d == 4.5);
    EXPECT_TRUE(d * n == 4.5);
    EXPECT_TRUE(l * d == 6);
    EXPECT_TRUE(d * l == 6);
    EXPECT_TRUE(n + d == 4.5);
    EXPECT_TRUE(d - l == -2.5);
    EXPECT_TRUE(n / d == 2);
    EXPECT_TRUE(l % d == 1);
    EXPECT_TRUE(d < n);
    EXPECT_TRUE(l > d);
    EXPECT_FALSE(n == d);
    d += n;
    EXPECT_TRUE(d == 4.5);
    d -= l;
    EXPECT_TRUE(d == 0.5);
    d = l;
    EXPECT_TRUE(d == l);
    d = n;
    EXPECT_TRUE(n == d);
    EXPECT_TRUE(ZelDtLong(ZelDtDecimal("-2.9")) == -2);
    EXPECT_TRUE(ZelDtShort(ZelDtDecimal("-2.9")) == -2);
}

TEST(MixedExpressions, WithDoublesAreDoubles)
{
    const ZelDtShort n(3);
    const ZelDtLong l(4);
    ZelDtDouble x(1.5);
    EXPECT_TRUE(Is<ZelDtDouble>(l * x));
    EXPECT_TRUE(Is<ZelDtDouble>(n * x));
    EXPECT_TRUE(Is<ZelDtDouble>(x - n));
    EXPECT_TRUE(n * x == 4.5);
    EXPECT_TRUE(x * n == 4.5);
    EXPECT_TRUE(l * x == 6);
    EXPECT_TRUE(x * l == 6);
    EXPECT_TRUE(n + x == 4.5);
    EXPECT_TRUE(x - l == -2.5);
    EXPECT_TRUE(n / x == 2);
    EXPECT_TRUE(x < n);
    EXPECT_TRUE(l > x);
    EXPECT_FALSE(n == x);
    x += n;
    EXPECT_TRUE(x == 4.5);
    x -= l;
    EXPECT_TRUE(x == 0.5);
    x = l;
    EXPECT_TRUE(x == l);
    x = n;
    EXPECT_TRUE(n == x);
    EXPECT_TRUE(ZelDtLong(ZelDtDouble(-2.9)) == -2);
}

TEST(MixedExpressions, OfDoubleAndDecimalAreDecimals)
{
    const ZelDtDouble x(1.5);
    ZelDtDecimal d("0.25");
    EXPECT_TRUE(Is<ZelDtDecimal>(x * d));
    EXPECT_TRUE(Is<ZelDtDecimal>(d - x));
    EXPECT_TRUE(x + d == 1.75);
    EXPECT_TRUE(d - x == -1.25);
    EXPECT_TRUE(x / d == 6);
    EXPECT_TRUE(x % d == 0);
    EXPECT_TRUE(d < x);
    EXPECT_FALSE(x == d);
    d += x;
    EXPECT_TRUE(d == 1.75);
    d = x;
    EXPECT_TRUE(x == d);
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
