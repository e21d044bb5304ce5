#include <ZelDt.h>

#include <gtest/gtest.h>

#include <type_traits>

// What callers write with numbers, compiled as C++17 and as C++20. A comparison that fell back to
// built-in operators, or a sum in another class than it should be, would give other results here.

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
