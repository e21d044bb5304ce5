#include "platform/runtime/doubletext.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>
#include <string>

namespace {

std::string Written(double number)
{
    char buffer[zelrt::kDoubleTextRoom];
    return {buffer, zelrt::WriteDouble(number, buffer)};
}

/// The same text, laid out from the digits that the standard library rounds to.
std::string Expected(double number)
{
    char buffer[64];
    char* const end =
        std::to_chars(buffer, buffer + sizeof buffer, number, std::chars_format::scientific, 14)
            .ptr;
    std::string text(buffer, end);
    const std::string sign = std::signbit(number) ? "-" : "";
    text.erase(0, sign.size());
    const std::size_t mark = text.find('e');
    const int exponent = std::atoi(text.c_str() + mark + 1);
    const std::string digits = text.substr(0, 1) + text.substr(2, mark - 2);

    const bool fixed = exponent >= -1 && exponent < 15;
    const std::size_t integers = fixed ? static_cast<std::size_t>(exponent + 1) : 1;
    std::string decimals = digits.substr(integers);
    decimals.erase(decimals.find_last_not_of('0') + 1);
    std::string result = sign + (integers == 0 ? "0" : digits.substr(0, integers)) + "." + decimals;
    if (!fixed) {
        const std::string magnitude = std::to_string(std::abs(exponent));
        result += exponent < 0 ? "e-" : "e+";
        result += std::string(3 - std::min<std::size_t>(3, magnitude.size()), '0') + magnitude;
    }
    return result;
}

double FromBits(std::uint64_t bits)
{
    double number = 0;
    std::memcpy(&number, &bits, sizeof number);
    return number;
}

struct Row {
    double number;
    const char* text;
};

void PrintTo(const Row& row, std::ostream* out)
{
    *out << row.text;
}

class DoubleText : public testing::TestWithParam<Row> {};

constexpr double kMax = std::numeric_limits<double>::max();
constexpr double kMin = std::numeric_limits<double>::min();
constexpr double kSmallest = std::numeric_limits<double>::denorm_min();

} // namespace

TEST_P(DoubleText, HasFifteenDigitsAndThePoint)
{
    EXPECT_EQ(Written(GetParam().number), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Fixed, DoubleText,
    testing::Values(Row{0.0, "0."}, Row{-0.0, "-0."}, Row{1.0, "1."}, Row{-1.0, "-1."},
                    Row{0.5, "0.5"}, Row{123456.0, "123456."}, Row{-314150.0, "-314150."},
                    Row{100.0, "100."}, Row{-12.25, "-12.25"}, Row{0.123, "0.123"}, Row{0.1, "0.1"},
                    Row{0.1 + 0.2, "0.3"}, Row{1.0 / 3.0, "0.333333333333333"},
                    Row{2.0 / 3.0, "0.666666666666667"}, Row{123456789.125, "123456789.125"},
                    Row{12345678.9012345, "12345678.9012345"},
                    Row{100000000000000.0, "100000000000000."},
                    Row{123456789012345.0, "123456789012345."},
                    Row{999999999999999.0, "999999999999999."}, Row{0.09999999999999999, "0.1"}));

INSTANTIATE_TEST_SUITE_P(
    WithExponent, DoubleText,
    testing::Values(Row{1E15, "1.e+015"}, Row{1E20, "1.e+020"}, Row{-1.5E20, "-1.5e+020"},
                    Row{1E100, "1.e+100"}, Row{0.0123, "1.23e-002"}, Row{0.0999, "9.99e-002"},
                    Row{1E-5, "1.e-005"}, Row{-1E-100, "-1.e-100"},
                    Row{1234567890123456.0, "1.23456789012346e+015"},
                    Row{kMax, "1.79769313486232e+308"}, Row{-kMax, "-1.79769313486232e+308"},
                    Row{kMin, "2.2250738585072e-308"}, Row{kSmallest, "4.94065645841247e-324"},
                    Row{-kSmallest, "-4.94065645841247e-324"}));

INSTANTIATE_TEST_SUITE_P(ExactTiesGoToEven, DoubleText,
                         testing::Values(Row{999999999999998.5, "999999999999998."},
                                         Row{999999999999997.5, "999999999999998."},
                                         Row{999999999999999.5, "1.e+015"},
                                         Row{100000000000000.5, "100000000000000."},
                                         Row{-100000000000001.5, "-100000000000002."},
                                         Row{1000000000000005.0, "1.e+015"},
                                         Row{1000000000000015.0, "1.00000000000002e+015"},
                                         Row{10000000000000.25, "10000000000000.2"},
                                         Row{10000000000000.75, "10000000000000.8"}));

TEST(DoubleTextRoom, IsEnough)
{
    for (const double number : {-kMax, -kMin, -kSmallest, -0.123456789012345, -99999999999999.9}) {
        char buffer[zelrt::kDoubleTextRoom + 8];
        std::memset(buffer, '#', sizeof buffer);
        EXPECT_LE(zelrt::WriteDouble(number, buffer) - buffer, 22);
        EXPECT_EQ(std::string(buffer + zelrt::kDoubleTextRoom, 8), "########");
    }
}

// Against the standard library

TEST(DoubleTextAgainstLibrary, AtAllPowersOfTwoAndTen)
{
    for (int exponent = -1074; exponent < 1024; ++exponent) {
        const double power = std::ldexp(1.0, exponent);
        EXPECT_EQ(Written(power), Expected(power)) << exponent;
    }
    for (int exponent = -323; exponent <= 308; ++exponent) {
        const std::string text = "1e" + std::to_string(exponent);
        double power = 0;
        std::from_chars(text.data(), text.data() + text.size(), power);
        for (const double number : {std::nextafter(power, 0.0), power, std::nextafter(power, kMax)})
            EXPECT_EQ(Written(number), Expected(number)) << text;
    }
}

TEST(DoubleTextAgainstLibrary, ForNumbersOfAllSizes)
{
    std::mt19937_64 random(20240229);
    int compared = 0;
    while (compared < 200000) {
        const double number = FromBits(random());
        if (!std::isfinite(number))
            continue;
        ASSERT_EQ(Written(number), Expected(number));
        ++compared;
    }
}

TEST(DoubleTextAgainstLibrary, ForSubnormalNumbers)
{
    std::mt19937_64 random(324);
    for (int i = 0; i < 20000; ++i) {
        const double number = FromBits(random() >> (12 + i % 52));
        ASSERT_EQ(Written(number), Expected(number));
    }
}

TEST(DoubleTextAgainstLibrary, ForAmountsAndTies)
{
    std::mt19937_64 random(100);
    for (int i = 0; i < 50000; ++i) {
        const double amount = static_cast<double>(random() % 100'000'000'000) / 100;
        ASSERT_EQ(Written(amount), Expected(amount));
        // 50 to 54 bits, of which the last stand behind the fifteenth digit.
        const double wide = std::ldexp(static_cast<double>(random() >> 11), -(i % 12));
        ASSERT_EQ(Written(wide), Expected(wide));
    }
}
