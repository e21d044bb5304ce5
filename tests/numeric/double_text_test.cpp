/// Numbers read from texts by ZelDtDouble, and the plain texts that it and ZelDtString make.

#include "tests/numeric/double_testing.h"

#include "tests/support/big_natural.h"
#include "text/DTSTRING.h"

#include <algorithm>
#include <bit>
#include <cerrno>
#include <cmath>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <random>
#include <string>

namespace {

using namespace zeltest;

// Reading

struct Accepted {
    const char* text;
    double value;
};

constexpr Accepted kNumbers[] = {
    {"0", 0.0},
    {"-0", -0.0},
    {"+0", 0.0},
    {"1", 1.0},
    {"+1", 1.0},
    {"-1", -1.0},
    {"007", 7.0},
    {"1.5", 1.5},
    {"-1.5", -1.5},
    {".5", 0.5},
    {"-.5", -0.5},
    {"+.5e1", 5.0},
    {"5.", 5.0},
    {"5.e1", 50.0},
    {"0.1", 0.1},
    {"1e3", 1000.0},
    {"1E3", 1000.0},
    {"1e+3", 1000.0},
    {"1e-3", 0.001},
    {"1e0003", 1000.0},
    {"12.5e-1", 1.25},
    {" 42", 42.0},
    {"\t\n\v\f\r -42.25", -42.25},
    {"123456789012345678901234567890", 123456789012345678901234567890.0},
    {"0.000000000000000000000000000001", 1e-30},
    // correctly rounded, ties to the even neighbour
    {"9007199254740993", 9007199254740992.0},
    {"9007199254740995", 9007199254740996.0},
    {"9007199254740993.0000000000000000000000000000001", 9007199254740994.0},
    {"1.00000000000000011102230246251565404236316680908203125", 1.0},
    {"1.00000000000000011102230246251565404236316680908203126", 1.0000000000000002},
    // to the limits
    {"1.7976931348623157e308", kLargest},
    {"-1.7976931348623157e308", -kLargest},
    {"1.7976931348623158e308", kLargest}, // rounds down
    {"2.2250738585072014e-308", kSmallestNormal},
    {"4.9406564584124654e-324", kSmallest},
    {"5e-324", kSmallest},
    {"-5e-324", -kSmallest},
    {"3e-324", kSmallest}, // more than half of it
    {"0e999", 0.0},
    {"0.0e-999", 0.0},
    // too small is zero as long as nothing follows
    {"1e-999", 0.0},
    {"2e-324", 0.0}, // less than half of the smallest
    {"-1e-999", -0.0},
};

/// Whatever follows the number is passed over; without a number it is 0.
constexpr Accepted kWithMore[] = {
    {"", 0.0},
    {"12abc", 12.0},
    {"12 ", 12.0},
    {"12,5", 12.0},
    {"1,234.5", 1.0},
    {"1.2.3", 1.2},
    {"1.5 2.5", 1.5},
    {"1e", 1.0},
    {"1e+", 1.0},
    {"1e-", 1.0},
    {"1ex", 1.0},
    {"1e5.5", 100000.0},
    {"2.5e3kg", 2500.0},
    {"-7-", -7.0},
    {"x", 0.0},
    {"abc12", 0.0},
    {" ", 0.0},
    {".", 0.0},
    {"-", 0.0},
    {"+", 0.0},
    {"-.", 0.0},
    {".e5", 0.0},
    {"e5", 0.0},
    {"+-5", 0.0},
    {"--5", 0.0},
    {"- 5", 0.0},
    {"\xA0"
     "5",
     0.0}, // a no-break space is no white space
    {"NULL", 0.0},
    // decimal numbers only
    {"0x10", 0.0},
    {"0x1p4", 0.0},
    {"inf", 0.0},
    {"-inf", 0.0},
    {"INFINITY", 0.0},
    {"nan", 0.0},
    {"NaN(1)", 0.0},
    {"1.#INF", 1.0},
};

/// Compares values; without a number the sign of the zero is open.
void ExpectRead(const Accepted& row, bool sameSign)
{
    SCOPED_TRACE(row.text);
    for (const ZelDtWorkingMode mode : kRealModes) {
        const DefaultMode guard(mode);
        for (const ZelDtDouble& value :
             {ZelDtDouble(row.text), ZelDtDouble(ZelDtString(row.text))}) {
            EXPECT_EQ(StateOf(value), NewDefined());
            EXPECT_EQ(value.GetValue(), row.value);
            if (sameSign) {
                EXPECT_TRUE(Same(value.GetValue(), row.value));
            }
        }
    }
}

TEST(AcceptedTexts, AreNumbers)
{
    for (const Accepted& row : kNumbers)
        ExpectRead(row, true);
}

TEST(AcceptedTexts, WithSomethingBehindTheNumber)
{
    errno = 0;
    for (const Accepted& row : kWithMore)
        ExpectRead(row, false);
}

TEST(AcceptedTexts, OfAnyLength)
{
    const std::string zeros(100000, '0');
    EXPECT_EQ(ZelDtDouble((zeros + "12.5").c_str()).GetValue(), 12.5);
    EXPECT_EQ(ZelDtDouble(("12.5" + zeros).c_str()).GetValue(), 12.5);
    EXPECT_EQ(ZelDtDouble(("0." + zeros + "1").c_str()).GetValue(), 0.0);
    EXPECT_EQ(ZelDtDouble(("0." + zeros + "1e100001").c_str()).GetValue(), 1.0);
    EXPECT_EQ(ZelDtDouble(("1" + zeros + "e-100000").c_str()).GetValue(), 1.0);
    EXPECT_EQ(ZelDtDouble(("1e" + zeros + "2").c_str()).GetValue(), 100.0);
    EXPECT_EQ(ZelDtDouble(("12.5" + std::string(100000, 'x')).c_str()).GetValue(), 12.5);
}

/// digits * base^exponent, exactly.
struct Scaled {
    BigNatural digits;
    int exponent;
};

/// How a power of ten times a number compares with a power of two times another one.
std::strong_ordering Compare(const Scaled& decimal, const Scaled& binary)
{
    const auto positive = [](int n) { return static_cast<std::size_t>(std::max(n, 0)); };
    return decimal.digits * BigNatural::PowerOfTen(positive(decimal.exponent)) *
               BigNatural::PowerOfTwo(positive(-binary.exponent)) <=>
           binary.digits * BigNatural::PowerOfTwo(positive(binary.exponent)) *
               BigNatural::PowerOfTen(positive(-decimal.exponent));
}

/// Whether a finite magnitude is the double nearest to the number, in ties the even one: the number
/// lies between the middles of the way to its neighbours.
bool IsNearest(double magnitude, const Scaled& number)
{
    const auto bits = std::bit_cast<std::uint64_t>(magnitude);
    constexpr std::uint64_t hiddenBit = std::uint64_t{1} << 52;
    const std::uint64_t field = bits / hiddenBit;
    const std::uint64_t fraction = bits % hiddenBit;
    const std::uint64_t significand = field == 0 ? fraction : fraction + hiddenBit;
    const int exponent = static_cast<int>(std::max<std::uint64_t>(field, 1)) - 1075;
    // Below a power of two doubles are half as far from each other.
    const bool lowest = fraction == 0 && field > 1;
    const Scaled above = {significand * 4 + 2, exponent - 2};
    if (significand == 0)
        return Compare(number, above) <= 0;
    const Scaled below = {significand * 4 - (lowest ? 1 : 2), exponent - 2};
    const bool even = significand % 2 == 0;
    return even ? Compare(number, below) >= 0 && Compare(number, above) <= 0
                : Compare(number, below) > 0 && Compare(number, above) < 0;
}

TEST(AcceptedTexts, AreTheNearestDoubles)
{
    // With 1 to 20 random digits and exponents over the whole range, subnormal numbers included.
    std::mt19937_64 random(20250301);
    for (int i = 0; i < 5000; ++i) {
        const bool negative = random() % 2 != 0;
        const int count = 1 + static_cast<int>(random() % 20);
        const int point = static_cast<int>(random() % 21);
        const int exponent = static_cast<int>(random() % 634) - 345;
        std::string digits;
        for (int d = 0; d < count; ++d)
            digits += static_cast<char>('0' + random() % 10);
        std::string text = digits;
        if (point < count)
            text.insert(static_cast<std::size_t>(point), 1, '.');
        text += 'e' + std::to_string(exponent);
        const Scaled number = {BigNatural::FromDigits(digits),
                               exponent - std::max(count - point, 0)};
        const double value = ZelDtDouble(((negative ? "-" : "") + text).c_str()).GetValue();
        ASSERT_EQ(std::signbit(value), negative) << text;
        ASSERT_TRUE(std::isfinite(value)) << text;
        const double magnitude = std::fabs(value);
        ASSERT_TRUE(IsNearest(magnitude, number)) << text;
        ASSERT_FALSE(IsNearest(std::nextafter(magnitude, kInfinity), number)) << text;
        if (magnitude > 0.0) {
            ASSERT_FALSE(IsNearest(std::nextafter(magnitude, 0.0), number)) << text;
        }
    }
}

TEST(AcceptedTexts, WithoutExponentAreTheNearestDoubles)
{
    // With up to 22 digits, the point anywhere: those of few digits and the others. Every third
    // has the digits of a number around 2^53, from where on doubles lack whole numbers.
    std::mt19937_64 random(20250303);
    for (int i = 0; i < 20000; ++i) {
        std::string digits;
        if (i % 3 == 0) {
            digits = std::to_string((std::uint64_t{1} << 53) - 20 + random() % 40);
        } else {
            for (std::size_t count = 1 + random() % 22; count != 0; --count)
                digits += static_cast<char>('0' + random() % 10);
        }
        const std::size_t point = random() % (digits.size() + 1);
        std::string text = digits;
        text.insert(point, 1, '.');
        const Scaled number = {BigNatural::FromDigits(digits),
                               static_cast<int>(point) - static_cast<int>(digits.size())};
        const double value = ZelDtDouble(text.c_str()).GetValue();
        ASSERT_TRUE(IsNearest(value, number)) << text;
        ASSERT_FALSE(IsNearest(std::nextafter(value, kInfinity), number)) << text;
        if (value > 0.0) {
            ASSERT_FALSE(IsNearest(std::nextafter(value, 0.0), number)) << text;
        }
        ASSERT_EQ(ZelDtDouble((" -" + text).c_str()).GetValue(), -value) << text;
    }
}

TEST(AcceptedTexts, AreTheEvenDoublesInTies)
{
    // Halfway between random doubles and the next ones, with all digits; and a little off.
    std::mt19937_64 random(20250302);
    for (int i = 0; i < 500; ++i) {
        const std::uint64_t significand = (std::uint64_t{1} << 52) + random() % (1U << 30);
        const int exponent = static_cast<int>(random() % 1400) - 700;
        const auto power = static_cast<std::size_t>(std::abs(exponent - 1));
        // n / 2^p is n * 5^p / 10^p.
        const BigNatural factor =
            exponent > 0 ? BigNatural::PowerOfTwo(power)
                         : BigNatural::PowerOfTen(power) / BigNatural::PowerOfTwo(power);
        const BigNatural middle = BigNatural(significand * 2 + 1) * factor;
        const std::string suffix = "e-" + std::to_string(exponent > 0 ? 0 : power);
        const double below = std::ldexp(static_cast<double>(significand), exponent);
        const double above = std::ldexp(static_cast<double>(significand + 1), exponent);
        const auto read = [&](const BigNatural& number) {
            return ZelDtDouble((number.Text() + suffix).c_str()).GetValue();
        };
        ASSERT_EQ(read(middle), significand % 2 == 0 ? below : above) << middle.Text() << suffix;
        ASSERT_EQ(read(middle - 1), below) << middle.Text() << suffix;
        ASSERT_EQ(read(middle + 1), above) << middle.Text() << suffix;
    }
}

constexpr const char* kOutOfRange[] = {
    "1e999",
    "-1e999",
    "1e309",
    "1.7976931348623159e308", // rounds up
    "-1.7976931348623159e308",
    "1e99999999999999999999",
    "1e999xyz",
    "1e-999x", // too small, and something follows
    "2e-324 ",
};

TEST(RejectedTexts, AreOutOfRange)
{
    for (const char* text : kOutOfRange) {
        errno = 0;
        EXPECT_TRUE(FailsWith([&] { ZelDtDouble value(text); }, TextError(8))) << text;
        const ZelDtString string(text);
        EXPECT_TRUE(FailsWith([&] { ZelDtDouble value(string); }, TextError(8))) << text;
    }
    const std::string digits(400, '9');
    EXPECT_TRUE(FailsWith([&] { ZelDtDouble value(digits.c_str()); }, TextError(8)));
}

TEST(RejectedTexts, OfNoPlaceAtAll)
{
    EXPECT_TRUE(
        FailsWith([] { ZelDtDouble value(static_cast<const char*>(nullptr)); }, TextError(5)));
}

// Plain texts

struct Shown {
    double value;
    const char* text;
};

/// 15 significant digits, the point kept; fixed while the exponent is -1 to 14.
constexpr Shown kShown[] = {
    {0.0, "0."},
    {1.0, "1."},
    {-1.0, "-1."},
    {0.5, "0.5"},
    {-1.5, "-1.5"},
    {10.0, "10."},
    {100.0, "100."},
    {123456.0, "123456."},
    {123.456, "123.456"},
    {-1234.5, "-1234.5"},
    {0.1, "0.1"},
    {0.15, "0.15"},
    {0.123456789012345678, "0.123456789012346"},
    {1.0 / 3.0, "0.333333333333333"},
    {2.0 / 3.0, "0.666666666666667"},
    {0.1 + 0.2, "0.3"},
    {1e10, "10000000000."},
    {12345678901234.5, "12345678901234.5"},
    {123456789012345.0, "123456789012345."},
    {123456789012345.6, "123456789012346."},
    {1e14, "100000000000000."},
    {999999999999999.0, "999999999999999."},
    // from 1E+15 on
    {1e15, "1.e+015"},
    {999999999999999.9, "1.e+015"}, // after rounding
    {1234567890123456.0, "1.23456789012346e+015"},
    {-1.5e15, "-1.5e+015"},
    {1e20, "1.e+020"},
    {1e100, "1.e+100"},
    {1.25e-300, "1.25e-300"},
    // below 0.1
    {0.09, "9.e-002"},
    {0.05, "5.e-002"},
    {0.099999999999999, "9.9999999999999e-002"},
    {0.09999999999999999, "0.1"}, // after rounding
    {1e-5, "1.e-005"},
    {-1.25e-10, "-1.25e-010"},
    // the limits
    {kLargest, "1.79769313486232e+308"},
    {-kLargest, "-1.79769313486232e+308"},
    {kSmallestNormal, "2.2250738585072e-308"},
    {kSmallest, "4.94065645841247e-324"},
};

TEST(PlainTexts, HaveFifteenDigits)
{
    for (const Shown& row : kShown) {
        const ZelDtString text{ZelDtDouble(row.value)};
        EXPECT_STREQ(static_cast<const char*>(text), row.text);
        EXPECT_EQ(StateOf(text), NewDefined());
        EXPECT_EQ(text.GetAllocLength(), 316) << row.text;
    }
}

TEST(PlainTexts, CopyTheState)
{
    for (const Real& real : Reals({0.0, -2.5})) {
        const Given<ZelDtDouble> given(real);
        const ZelDtString text(given.it);
        EXPECT_EQ(StateOf(text), real.state);
        const char* const expected = !real.state.defined ? "" : real.value == 0.0 ? "0." : "-2.5";
        EXPECT_STREQ(static_cast<const char*>(text), expected) << real;
        EXPECT_EQ(text.GetAllocLength(), real.state.defined ? 316 : 0) << real;
        EXPECT_EQ(Look(given.it), real);
    }
}

TEST(PlainTexts, DoNotExistOfNaNAndInfinities)
{
    for (const double value : {kInfinity, -kInfinity, kNaN}) {
        const ZelDtDouble number(value);
        const Caught caught = Catch([&] { ZelDtString text(number); });
        EXPECT_EQ(caught.error.number, 1u);
        EXPECT_EQ(caught.error.classText, "ZelDtString");
        EXPECT_EQ(caught.first.number, 8u);
        EXPECT_EQ(caught.leaked, 0u);
    }
}

TEST(PlainTexts, ReadBackWithinFifteenDigits)
{
    // Numbers of 15 digits come back exactly: they are fewer than the doubles around them.
    std::mt19937_64 random(20250302);
    for (int i = 0; i < 5000; ++i) {
        const std::string digits = std::to_string(random() % 1000000000000000U);
        const std::string text =
            digits + 'e' + std::to_string(static_cast<int>(random() % 570) - 290);
        const ZelDtDouble number(text.c_str());
        const ZelDtDouble back{ZelDtString(number)};
        ASSERT_TRUE(Same(back.GetValue(), number.GetValue())) << text;
    }
}

} // namespace
