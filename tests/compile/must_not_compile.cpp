// Each case is one line that would lose something silently. Case 0 is the control: it uses the
// same values in ways that are right.

#include <ZelDt.h>

void Use(ZelDtLong& l, ZelDtString& s)
{
#if CASE == 0
    l = l * 2;
    s = s + 'x';
    s += "x";
    (void)(l == 2L);
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
#endif
    (void)l;
    (void)s;
}
