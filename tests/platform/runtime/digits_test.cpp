#include "platform/runtime/digits.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace {

std::string Written(std::uint32_t number)
{
    char digits[zelrt::kMostDigits32];
    return std::string(digits, zelrt::WriteDigits(number, digits));
}

std::string Written(std::int32_t number)
{
    char digits[zelrt::kMostSignedDigits32];
    return std::string(digits, zelrt::WriteDigits(number, digits));
}

} // namespace

TEST(Digits, OfEveryLength)
{
    EXPECT_EQ(Written(0), "0");
    std::uint64_t power = 10;
    for (std::uint32_t digits = 1; digits <= 9; ++digits, power *= 10) {
        const auto limit = static_cast<std::uint32_t>(power);
        EXPECT_EQ(zelrt::CountDigits(limit - 1), digits);
        EXPECT_EQ(zelrt::CountDigits(limit), digits + 1);
        EXPECT_EQ(Written(limit - 1), std::string(digits, '9'));
        EXPECT_EQ(Written(limit), "1" + std::string(digits, '0'));
    }
    EXPECT_EQ(zelrt::CountDigits(UINT32_MAX), 10U);
    EXPECT_EQ(Written(UINT32_MAX), "4294967295");
}

TEST(Digits, AreThoseOfTheNumber)
{
    // Steps of a prime pass through all digits at all places.
    for (std::uint64_t number = 0; number <= UINT32_MAX; number += 104'729)
        ASSERT_EQ(Written(static_cast<std::uint32_t>(number)), std::to_string(number));
}

TEST(Digits, BehindASign)
{
    for (const std::int32_t number :
         {INT32_MIN, INT32_MIN + 1, -1'000'000'000, -999'999'999, -100'000'000, -99'999'999, -10,
          -9, -1, 0, 1, 9, 10, 99'999'999, 100'000'000, INT32_MAX})
        EXPECT_EQ(Written(number), std::to_string(number));
}

TEST(Digits, OfAllSmallNumbers)
{
    for (std::uint32_t number = 0; number <= 100'000; ++number)
        ASSERT_EQ(Written(number), std::to_string(number));
}

TEST(Digits, Pairs)
{
    for (std::size_t number = 0; number < 100; ++number) {
        char pair[] = "..";
        EXPECT_EQ(zelrt::WriteTwoDigits(number, pair), pair + 2);
        EXPECT_EQ(std::string(pair), (number < 10 ? "0" : "") + std::to_string(number));
    }
}
