// Each case is one line that would lose something silently. Case 0 is the control: it uses the
// same values in ways that are right.

#include <ZelDt.h>

void Use(ZelDtLong& l, ZelDtString& s, ZelDtShort& n, const ZelDtDecimal& d, const ZelDtDouble& x,
         ZelDtBool& b, ZelDtChar& c, ZelDtDateTime& m, ZelDtDateZp& z, ZelDtTime& span)
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
    ZelDtTime t(1, 30);
    t.AddHour(l);
    t.SetMin(30, ZelDtTime::Minuten);
    (void)(t + "0:30" == ZelDtTime(l, l));
    b = 1;
    b = s;
    (void)(b == TRUE && "Ja" == b);
    c = 'x';
    c = s;
    s = c;
    s += c;
    (void)(s + c + 'x' == c + s);
    (void)('x' == c && c == s);
    l += b.GetValue();
    (void)(s == ZelDtString(b));
    m = ZelDtDateTime(5, 3, 2000, 14, 7, 9);
    m.AddDay365(n);
    m.SubHour(l);
    z = m;
    z = "05.03.2000";
    (void)(m - z == span && z + span < m);
    s = z;
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
#elif CASE == 71
    ZelDtTime t(8);
#elif CASE == 72
    ZelDtTime t(8, ZelDtTime::Minuten);
#elif CASE == 73
    ZelDtTime t(8L, ZelDtTime::Stunden);
#elif CASE == 74
    ZelDtTime t(0, ZelDtTime::Minuten);
#elif CASE == 75
    ZelDtTime t(l, ZelDtTime::Minuten);
#elif CASE == 76
    ZelDtTime t(8.25);
#elif CASE == 77
    ZelDtTime t(1.5, 30);
#elif CASE == 78
    ZelDtTime t(1, 30.5);
#elif CASE == 79
    ZelDtTime(1, 30).AddHour(0.5);
#elif CASE == 80
    ZelDtTime(1, 30).SubHour(0.5F);
#elif CASE == 81
    ZelDtTime(1, 30).SetHour(x);
#elif CASE == 82
    ZelDtTime(1, 30).SetTime(d);
#elif CASE == 83
    ZelDtTime(1, 30).SetMin(0.5, ZelDtTime::Minuten);
#elif CASE == 84
    ZelDtTime(1, 30).AddMin(x);
#elif CASE == 85
    ZelDtTime(1, 30).SubMin(d);
#elif CASE == 86
    ZelDtTime(1, 30).SetFromSQL(1800.5);
#elif CASE == 87
    (void)("0:30" + ZelDtTime(1, 30));
#elif CASE == 88
    (void)(ZelDtTime(1, 30) + 5);
#elif CASE == 89
    (void)(ZelDtTime(1, 30) == 0);
#elif CASE == 90
    (void)(ZelDtTime(1, 30) * 2);
#elif CASE == 201
    (void)(b < 1);
#elif CASE == 202
    (void)(2 >= b);
#elif CASE == 203
    (void)(b < b);
#elif CASE == 204
    (void)(b == 2.5);
#elif CASE == 205
    (void)(b == 1L);
#elif CASE == 206
    (void)(1U == b);
#elif CASE == 207
    (void)(b != '1');
#elif CASE == 208
    b = 2.5;
#elif CASE == 209
    b = 1L;
#elif CASE == 210
    b = '1';
#elif CASE == 211
    b = l;
#elif CASE == 212
    b = n;
#elif CASE == 213
    b = x;
#elif CASE == 214
    b = d;
#elif CASE == 215
    b = c;
#elif CASE == 216
    ZelDtBool other(2.5);
#elif CASE == 217
    ZelDtBool other(1L);
#elif CASE == 218
    ZelDtBool other('0');
#elif CASE == 219
    ZelDtBool other(l);
#elif CASE == 220
    ZelDtBool other(c);
#elif CASE == 221
    (void)("Ja" + b);
#elif CASE == 222
    (void)(b + "Ja");
#elif CASE == 223
    (void)("Ja" - b);
#elif CASE == 224
    (void)(b == l);
#elif CASE == 225
    (void)(l != b);
#elif CASE == 226
    (void)(b == s);
#elif CASE == 227
    (void)(s == b);
#elif CASE == 228
    (void)(b == c);
#elif CASE == 229
    l = b;
#elif CASE == 230
    n = b;
#elif CASE == 231
    ZelDtDouble y(x);
    y = b;
#elif CASE == 232
    ZelDtDecimal y(d);
    y = b;
#elif CASE == 233
    (void)(l + b);
#elif CASE == 234
    (void)(b * x);
#elif CASE == 235
    l += b;
#elif CASE == 236
    (void)(s + b);
#elif CASE == 237
    s = b;
#elif CASE == 238
    s += b;
#elif CASE == 239
    c = 120;
#elif CASE == 240
    c = 0;
#elif CASE == 241
    c = true;
#elif CASE == 242
    c = l;
#elif CASE == 243
    c = b;
#elif CASE == 244
    ZelDtChar other(120);
#elif CASE == 245
    ZelDtChar other(l);
#elif CASE == 246
    ZelDtChar other(b);
#elif CASE == 247
    (void)(c == 120);
#elif CASE == 248
    (void)(c != 0);
#elif CASE == 249
    (void)(L'x' == c);
#elif CASE == 250
    (void)(c < 'x');
#elif CASE == 251
    (void)("x" >= c);
#elif CASE == 252
    (void)(c < c);
#elif CASE == 253
    (void)(c < s);
#elif CASE == 254
    (void)(c == l);
#elif CASE == 255
    (void)("x" - c);
#elif CASE == 256
    (void)(c + 1);
#elif CASE == 257
    (void)(1L + c);
#elif CASE == 258
    l = c;
#elif CASE == 259
    ZelDtDouble y(x);
    y = c;
#elif CASE == 260
    (void)(l + c);
#elif CASE == 261
    l += c;
#elif CASE == 262
    (void)(d < c);
#elif CASE == 300
    ZelDtDateTime other(5);
#elif CASE == 301
    ZelDtDateTime other(0);
#elif CASE == 302
    ZelDtDateTime other(1.5);
#elif CASE == 303
    ZelDtDateTime other(l);
#elif CASE == 304
    ZelDtDateTime other(n);
#elif CASE == 305
    ZelDtDateTime other(x);
#elif CASE == 306
    ZelDtDateTime other("05.03.2000");
#elif CASE == 307
    ZelDtDateTime other(s);
#elif CASE == 308
    ZelDtDateTime other(1.5, 30);
#elif CASE == 309
    ZelDtDateTime other(12L, 30L);
#elif CASE == 310
    ZelDtDateTime other(5, 3, 2000.5);
#elif CASE == 311
    ZelDtDateTime other(5, 3, 2000, 14.5F, 7, 9);
#elif CASE == 312
    ZelDtDateZp other(5);
#elif CASE == 313
    ZelDtDateZp other(l);
#elif CASE == 314
    ZelDtDateZp other(5.5, 3, 2000);
#elif CASE == 315
    ZelDtDateZp other(l, l, l);
#elif CASE == 316
    m = 5;
#elif CASE == 317
    m = 1.5;
#elif CASE == 318
    m = s;
#elif CASE == 319
    m = "05.03.2000";
#elif CASE == 320
    z = 1.5;
#elif CASE == 321
    z = 5;
#elif CASE == 322
    (void)(m == 5);
#elif CASE == 323
    (void)(0 == m);
#elif CASE == 324
    (void)(m < 1.5);
#elif CASE == 325
    (void)(1.5 < m);
#elif CASE == 326
    (void)(m == s);
#elif CASE == 327
    (void)(s == m);
#elif CASE == 328
    (void)(z < s);
#elif CASE == 329
    (void)("05.03.2000" > z);
#elif CASE == 330
    (void)(m == span);
#elif CASE == 331
    (void)(span < m);
#elif CASE == 332
    (void)(m == l);
#elif CASE == 333
    (void)(m + 1);
#elif CASE == 334
    (void)(m - 1L);
#elif CASE == 335
    (void)(z + 1);
#elif CASE == 336
    (void)(z - 1.5);
#elif CASE == 337
    (void)(1 + z);
#elif CASE == 338
    (void)(1L + m);
#elif CASE == 339
    (void)(m + m);
#elif CASE == 340
    (void)(span + m);
#elif CASE == 341
    m.SetDay365(2.5);
#elif CASE == 342
    m.SetDay365(5L);
#elif CASE == 343
    m.SetMonth(l);
#elif CASE == 344
    m.AddDay365(0.5);
#elif CASE == 345
    m.AddHour(0.5);
#elif CASE == 346
    m.SubHour(4000000000U);
#elif CASE == 347
    m.AddMin(x);
#elif CASE == 348
    m.SubMin(1LL);
#elif CASE == 349
    if (m)
        return;
#elif CASE == 350
    int number = z;
#elif CASE == 351
    (void)(5 + span);
#elif CASE == 352
    (void)(2.5 + span);
#elif CASE == 353
    (void)('x' + span);
#elif CASE == 354
    (void)(l + span);
#elif CASE == 355
    (void)(s == span);
#elif CASE == 356
    (void)(span == s);
#elif CASE == 357
    (void)(s < span);
#elif CASE == 358
    (void)(span > s);
#elif CASE == 359
    const ZelDtTime wrong(m);
#elif CASE == 360
    const ZelDtTime wrong(z);
#elif CASE == 361
    (void)(z - "31.01.2000");
#elif CASE == 362
    (void)(z + "1:00");
#elif CASE == 363
    span.SetHour(5000000000LL);
#elif CASE == 364
    span.SetTime(5U);
#elif CASE == 365
    span.SetFromSQL(1ULL);
#elif CASE == 366
    const ZelDtTime wrong(0x100000000LL, 0);
#endif
    (void)l;
    (void)s;
    (void)n;
    (void)d;
    (void)x;
    (void)b;
    (void)c;
    (void)m;
    (void)z;
    (void)span;
}
