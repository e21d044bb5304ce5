// Each case is one line that would lose something silently. Case 0 is the control: it uses the
// same values in ways that are right.

#include <ZelDt.h>

void Use(ZelDtLong& l, ZelDtString& s, ZelDtShort& n, const ZelDtDecimal& d, const ZelDtDouble& x)
{
#if CASE == 0
    l = l * 2;
    s = s + 'x';
    s += "x";
    (void)(l == 2L);
    n = n * 2;
    l += n;
    l = n;
    (void)(l * d < d);
    (void)(0 - d + 1 == 1L);
    (void)(n * x < x);
    (void)(x / 2 == 2.5);
    (void)(2.5 < x * 2L);
    (void)(x % d == 0);
#elif CASE == 1
    l = l * 2.5;
#elif CASE == 2
    l = 2.5 * l;
#elif CASE == 3
    l = l + 0.5;
#elif CASE == 4
    l = l - 0.5F;
#elif CASE == 5
    l = l / 1.19;
#elif CASE == 6
    l = 2.5;
#elif CASE == 7
    l += 0.5;
#elif CASE == 8
    l -= 0.5;
#elif CASE == 9
    (void)(l == 2.5);
#elif CASE == 10
    (void)(2.5 < l);
#elif CASE == 11
    ZelDtLong other(2.5);
#elif CASE == 12
    l = l + 4000000000U;
#elif CASE == 13
    s = 5;
#elif CASE == 14
    s += 5;
#elif CASE == 15
    s = s + 5;
#elif CASE == 16
    s = 5 + s;
#elif CASE == 17
    s = nullptr;
#elif CASE == 18
    s = s - "x";
#elif CASE == 19
    ZelDtBasis value(1, ZelDtWmMissing);
#elif CASE == 20
    s = 2.5;
#elif CASE == 21
    n = n * 2.5;
#elif CASE == 22
    n = 2.5 * n;
#elif CASE == 23
    n = n + 0.5F;
#elif CASE == 24
    n = 2.5;
#elif CASE == 25
    n += 0.5;
#elif CASE == 26
    (void)(n == 2.5);
#elif CASE == 27
    (void)(2.5 < n);
#elif CASE == 28
    ZelDtShort other(2.5);
#elif CASE == 29
    ZelDtShort other(x);
#elif CASE == 30
    n = n + 4000000000U;
#elif CASE == 31
    n.SetFromSQL(2.5);
#elif CASE == 32
    n = l;
#elif CASE == 33
    n = d;
#elif CASE == 34
    n = x;
#elif CASE == 35
    l = d;
#elif CASE == 36
    l = x;
#elif CASE == 37
    n += l;
#elif CASE == 38
    n -= d;
#elif CASE == 39
    l += d;
#elif CASE == 40
    l -= x;
#elif CASE == 41
    (void)("a" + n);
#elif CASE == 42
    (void)(n + "a");
#elif CASE == 43
    (void)(n - "a");
#elif CASE == 44
    (void)("a" + l);
#elif CASE == 45
    (void)("a" - l);
#elif CASE == 46
    (void)(l - "a");
#elif CASE == 47
    (void)("a" + x);
#elif CASE == 48
    (void)(x + "a");
#elif CASE == 49
    (void)("a" - x);
#elif CASE == 50
    (void)(x - "a");
#elif CASE == 51
    (void)(x % 2);
#elif CASE == 52
    (void)(2 % x);
#elif CASE == 53
    (void)(x % 2.5);
#elif CASE == 54
    (void)(x % x);
#elif CASE == 55
    (void)(x % l);
#elif CASE == 56
    ZelDtDouble y(x);
    y = d;
#elif CASE == 57
    ZelDtDouble y(x);
    y += d;
#elif CASE == 58
    (void)(x == 4000000000U);
#elif CASE == 59
    (void)(d + 1U);
#elif CASE == 60
    (void)(1LL - d);
#elif CASE == 61
    (void)(d == 1U);
#elif CASE == 62
    ZelDtDecimal other(1U);
#elif CASE == 63
    (void)-d;
#elif CASE == 64
    (void)+d;
#elif CASE == 65
    (void)(d + "1");
#elif CASE == 66
    (void)("1" + d);
#elif CASE == 67
    (void)(d - "1");
#elif CASE == 68
    (void)("1" - d);
#elif CASE == 69
    s = d;
#elif CASE == 70
    s = s + d;
#endif
    (void)l;
    (void)s;
    (void)n;
    (void)d;
    (void)x;
}
