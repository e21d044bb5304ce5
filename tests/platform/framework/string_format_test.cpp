#include "platform/framework/fwexcept.h"
#include "platform/framework/fwstring.h"
#include "tests/platform/framework/framework_testing.h"

#include <gtest/gtest.h>

#include <climits>
#include <clocale>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>

namespace {

/// Formats that are no literals, so that the compiler leaves wrong ones alone.
template <typename... Arguments>
std::string Formatted(const char* format, Arguments... arguments)
{
    void (CString::*const function)(LPCTSTR, ...) = &CString::Format;
    CString text;
    (text.*function)(format, arguments...);
    return {text.GetString(), static_cast<std::size_t>(text.GetLength())};
}

template <typename... Arguments>
bool IsRejected(const char* format, Arguments... arguments)
{
    return Throws<CInvalidArgException>([&] { Formatted(format, arguments...); });
}

} // namespace

TEST(Format, Integers)
{
    EXPECT_EQ(Formatted("%d", 0), "0");
    EXPECT_EQ(Formatted("%d|%i", -5, 7), "-5|7");
    EXPECT_EQ(Formatted("%d", INT_MIN), "-2147483648");
    EXPECT_EQ(Formatted("%u", UINT_MAX), "4294967295");
    EXPECT_EQ(Formatted("%5d|%-5d|%05d", 42, 42, 42), "   42|42   |00042");
    EXPECT_EQ(Formatted("%05d|%-05d", -42, -42), "-0042|-42  ");
    EXPECT_EQ(Formatted("%+d|% d|%+ d", 5, 5, 5), "+5| 5|+5");
    EXPECT_EQ(Formatted("%.3d|%.0d|%.0d|%6.3d|%06.3d", 5, 0, 1, 5, 5), "005||1|   005|   005");
    EXPECT_EQ(Formatted("%x|%X|%#x|%#X|%#x", 255, 255, 255, 255, 0), "ff|FF|0xff|0XFF|0");
    EXPECT_EQ(Formatted("%o|%#o|%#o|%#.0o", 8, 8, 0, 0), "10|010|0|0");
    EXPECT_EQ(Formatted("%08x|%#08x", 0xABC, 0xABC), "00000abc|0x000abc");
    EXPECT_EQ(Formatted("%*d|%-*d|%*d|%.*d|%.*d", 4, 1, 4, 1, -4, 1, 3, 1, -1, 1),
              "   1|1   |1   |001|1");
}

TEST(Format, IntegersOfEveryLength)
{
    EXPECT_EQ(Formatted("%hhd|%hhu", 0x180, 0x1FF), "-128|255");
    EXPECT_EQ(Formatted("%hd|%hu", 0x18000, 0x1FFFF), "-32768|65535");
    EXPECT_EQ(Formatted("%ld|%lu", -5L, 5UL), "-5|5");
    EXPECT_EQ(Formatted("%lld", LLONG_MIN), "-9223372036854775808");
    EXPECT_EQ(Formatted("%llu", ULLONG_MAX), "18446744073709551615");
    EXPECT_EQ(Formatted("%I64d|%I32d", LLONG_MAX, -1), "9223372036854775807|-1");
    EXPECT_EQ(Formatted("%jd|%zu|%td", std::intmax_t{-1}, std::size_t{7}, std::ptrdiff_t{-7}),
              "-1|7|-7");
}

TEST(Format, Texts)
{
    EXPECT_EQ(Formatted("plain"), "plain");
    EXPECT_EQ(Formatted(""), "");
    EXPECT_EQ(Formatted("%%|%s|%c", "text", 'c'), "%|text|c");
    EXPECT_EQ(Formatted("%6s|%-6s|%.2s|%6.2s", "text", "text", "text", "text"),
              "  text|text  |te|    te");
    const char unterminated[] = {'a', 'b'};
    EXPECT_EQ(Formatted("%.2s|%.0s|%.*s", unterminated, unterminated, 1, unterminated), "ab||a");
    EXPECT_EQ(Formatted("%s", static_cast<const char*>(nullptr)), "(null)");
    EXPECT_EQ(Formatted("%c%3c", 0, 'x'), std::string("\0  x", 4));
    EXPECT_EQ(Formatted("%p", static_cast<const void*>(nullptr)), "0000000000000000");
    EXPECT_EQ(Formatted("%s", std::string(5000, 'x').c_str()), std::string(5000, 'x'));
    EXPECT_EQ(Formatted("%5000d", 1), std::string(4999, ' ') + "1");
}

TEST(Format, FloatingNumbers)
{
    EXPECT_EQ(Formatted("%f|%.2f|%.0f", 1.5, 2.345678, 2.5), "1.500000|2.35|2");
    EXPECT_EQ(Formatted("%F|%8.2f|%-8.2f|%08.2f", 1.0, -1.5, -1.5, -1.5),
              "1.000000|   -1.50|-1.50   |-0001.50");
    EXPECT_EQ(Formatted("%+.1f|% .1f|%.1f", 1.0, 1.0, -0.0), "+1.0| 1.0|-0.0");
    EXPECT_EQ(Formatted("%e|%.2E|%.0e", 12345.678, 0.00012, 5.0), "1.234568e+04|1.20E-04|5e+00");
    EXPECT_EQ(Formatted("%g|%g|%g|%G|%.3g", 0.0001, 0.00001, 1234567.0, 1e-10, 1234.5),
              "0.0001|1e-05|1.23457e+06|1E-10|1.23e+03");
    EXPECT_EQ(Formatted("%g|%g", 100000.0, 1.0), "100000|1");
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(Formatted("%f|%F|%5e|%06g|%G", infinity, -infinity, infinity, -infinity, infinity),
              "inf|-INF|  inf|  -inf|INF");
    EXPECT_EQ(Formatted("%f|%G", std::numeric_limits<double>::quiet_NaN(),
                        std::numeric_limits<double>::quiet_NaN()),
              "nan|NAN");
    const std::string largest = Formatted("%.3f", std::numeric_limits<double>::max());
    EXPECT_EQ(largest.size(), 309U + 4U);
    EXPECT_EQ(largest.substr(0, 10), "1797693134");
}

TEST(Format, IgnoresTheLocale)
{
    // Locales with a decimal comma; a system that has none of them leaves the default.
    for (const char* name : {"de_DE.UTF-8", "de_DE", "German_Germany.1252", "C"}) {
        std::setlocale(LC_ALL, name);
        EXPECT_EQ(Formatted("%.2f %d", 1234.5, 1234567), "1234.50 1234567") << name;
    }
}

TEST(Format, Appends)
{
    CString text("a");
    text.AppendFormat("%d", 1);
    text.AppendFormat("%s", "b");
    EXPECT_STREQ(text, "a1b");
    text.Format("%d%%", 100);
    EXPECT_STREQ(text, "100%");
}

TEST(RejectedFormats, LeaveTheTextAlone)
{
    EXPECT_TRUE(IsRejected("%"));
    EXPECT_TRUE(IsRejected("text %"));
    EXPECT_TRUE(IsRejected("%5"));
    EXPECT_TRUE(IsRejected("%y", 1));
    EXPECT_TRUE(IsRejected("%n", nullptr));
    EXPECT_TRUE(IsRejected("%ls", "x"));
    EXPECT_TRUE(IsRejected("%S", "x"));
    EXPECT_TRUE(IsRejected("%Lf", 1.0L));
    EXPECT_TRUE(IsRejected("%#g", 1.0));
    EXPECT_TRUE(IsRejected("%99999999999d", 1));
    EXPECT_TRUE(IsRejected("%.99999999999d", 1));
    EXPECT_TRUE(IsRejected("%*d", INT_MIN, 1));
    EXPECT_TRUE(Throws<CMemoryException>([] { Formatted("%.2147483647f", 1.0); }));

    CString text("kept");
    void (CString::*const function)(LPCTSTR, ...) = &CString::AppendFormat;
    EXPECT_TRUE(Throws<CInvalidArgException>([&] { (text.*function)("lost %y", 1); }));
    EXPECT_STREQ(text, "kept");
}
