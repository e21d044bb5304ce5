// The long and the short in numeric formats and in the modes.

#include "tests/platform/formats/formats_testing.h"

#include <cstdio>
#include <limits>
#include <random>
#include <string>
#include <utility>

namespace {

using namespace formats_testing;

constexpr std::int32_t kLongMin = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kLongMax = std::numeric_limits<std::int32_t>::max();

TEST(ShownIntegers, DefaultsOfLongAndShort)
{
    const std::pair<std::int32_t, const char*> rows[] = {{0, "0"},
                                                         {7, "7"},
                                                         {-12, "-12"},
                                                         {1234567, "1234567"},
                                                         {-1, "-1"},
                                                         {10, "10"},
                                                         {kLongMax, "2147483647"},
                                                         {kLongMin, "-2147483648"}};
    for (const auto& [value, text] : rows) {
        EXPECT_EQ(ShowLong(LongDefault(), value), text);
        EXPECT_EQ(ShowLong(Standard(), value), text);
        EXPECT_EQ(ShowLong(Technical(), value), text);
    }
    EXPECT_EQ(ShowShort(ShortDefault(), 32767), "32767");
    EXPECT_EQ(ShowShort(ShortDefault(), -32768), "-32768");
    EXPECT_EQ(ShowShort(Standard(), -12), "-12");
}

TEST(ShownIntegers, EveryOption)
{
    struct Row {
        NumericArguments format;
        std::int32_t value;
        const char* text;
    };
    const Row rows[] = {
        // group separators
        {{.groupSeparator = 1}, 999, "999"},
        {{.groupSeparator = 1}, 1000, "1.000"},
        {{.groupSeparator = 1}, -1234567, "-1.234.567"},
        {{.decimalSeparator = 1, .groupSeparator = 2}, 1234567, "1,234,567"},
        {{.groupSeparator = 3}, 12345, "12 345"},
        {{.groupSeparator = 4}, kLongMin, "-2'147'483'648"},
        // signs
        {{.sign = 0}, 5, "5"},
        {{.sign = 0}, 0, "0"},
        {{.sign = 0}, -5, "<20>"},
        {{.sign = 0, .whichSign = 1}, 5, "5"},
        {{.sign = 2}, -5, "5-"},
        {{.sign = 2}, 5, "5"},
        {{.sign = 1, .whichSign = 1}, 5, "+5"},
        {{.sign = 2, .whichSign = 1}, 5, "5+"},
        {{.sign = 2, .whichSign = 1}, -5, "5-"},
        {{.sign = 1, .whichSign = 1}, 0, "0"},
        // fixed decimals
        {{.decimals = 2}, -5, "-5,00"},
        {{.decimals = 3, .decimalSeparator = 1}, 5, "5.000"},
        {{.decimals = 2, .decimalSeparator = 3}, 5, "500"},
        {{.decimals = kAll}, 5, "5"},
        // places: the whole text counts
        {{.places = 3}, 999, "999"},
        {{.places = 3}, 1000, "<20>"},
        {{.places = 3}, -99, "-99"},
        {{.places = 3}, -100, "<20>"},
        {{.places = 4, .groupSeparator = 1}, 1000, "<20>"},
        {{.places = 5, .groupSeparator = 1}, 1000, "1.000"},
        {{.places = 4, .decimals = 2}, 10, "<20>"},
        {{.places = 5, .decimals = 2}, 10, "10,00"},
        {{.places = 3, .whichSign = 1}, 100, "<20>"},
        // padding: zeros behind the sign, anything else before it
        {{.places = 6, .fillLeft = 1}, 12, "000012"},
        {{.places = 6, .fillLeft = 1}, -12, "-00012"},
        {{.places = 6, .sign = 2, .fillLeft = 1}, -12, "00012-"},
        {{.places = 6, .fillLeft = 1, .leftChar = ' '}, -12, "   -12"},
        {{.places = 6, .fillLeft = 1, .leftChar = '*'}, 0, "*****0"},
        {{.places = 8, .groupSeparator = 1, .fillLeft = 1}, -1234, "-001.234"},
        {{.places = 0, .fillLeft = 1}, 12, "12"},
        {{.places = 2, .fillLeft = 1}, 12, "12"},
        // a number without decimals lacks all of them
        {{.decimals = 2, .fillRight = 1, .rightChar = '#'}, 5, "5,##"},
        {{.decimals = 2, .fillRight = 1, .rightChar = '0'}, 5, "5,00"},
        {{.places = 8,
          .decimals = 2,
          .sign = 2,
          .fillLeft = 1,
          .leftChar = '*',
          .fillRight = 1,
          .rightChar = '#'},
         -5,
         "***5,##-"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(ShowLong(Numeric(row.format), row.value), row.text);
        if (row.value >= -32768 && row.value <= 32767) {
            EXPECT_EQ(ShowShort(Numeric(row.format), static_cast<std::int16_t>(row.value)),
                      row.text);
        }
    }
}

TEST(ShownIntegers, AgreeWithTheRuntime)
{
    std::mt19937 random(20000305);
    const ZelFormat format = LongDefault();
    const ZelFormat padded = Numeric({.places = 11, .fillLeft = 1});
    const ZelFormat aligned = Numeric({.places = 11, .fillLeft = 1, .leftChar = ' '});
    for (int i = 0; i < 20000; ++i) {
        const auto value = static_cast<std::int32_t>(random()) >> (random() % 32);
        char expected[32];
        std::snprintf(expected, sizeof expected, "%d", value);
        ASSERT_EQ(ShowLong(format, value), expected);
        std::snprintf(expected, sizeof expected, "%011d", value);
        ASSERT_EQ(ShowLong(padded, value), expected);
        std::snprintf(expected, sizeof expected, "%11d", value);
        ASSERT_EQ(ShowLong(aligned, value), expected);
    }
}

TEST(ReadIntegers, AcceptedTexts)
{
    const std::pair<const char*, std::int32_t> rows[] = {{"0", 0},
                                                         {"-0", 0},
                                                         {"7", 7},
                                                         {"-12", -12},
                                                         {"12-", -12},
                                                         {"+12", 12},
                                                         {"12+", 12},
                                                         {"  -12\t", -12},
                                                         {"007", 7},
                                                         {"1.234", 1234},
                                                         {"1.234.567", 1234567},
                                                         {"-1.234.567", -1234567},
                                                         {"12.345-", -12345},
                                                         {"123.456", 123456},
                                                         {"2147483647", kLongMax},
                                                         {"-2147483648", kLongMin},
                                                         {"2.147.483.648-", kLongMin},
                                                         {"000000000000000000000000012", 12}};
    for (const auto& [text, value] : rows) {
        SCOPED_TRACE(text);
        EXPECT_EQ(ReadLong(LongDefault(), text), (Read<std::int32_t>{0, value}));
        EXPECT_EQ(ReadLong(Standard(), text), (Read<std::int32_t>{0, value}));
    }
    EXPECT_EQ(ReadShort(ShortDefault(), "-32.768"), (Read<std::int16_t>{0, -32768}));
    EXPECT_EQ(ReadShort(ShortDefault(), "+32.767"), (Read<std::int16_t>{0, 32767}));
}

TEST(ReadIntegers, RejectedTexts)
{
    using namespace std::string_view_literals;
    const std::pair<std::string_view, unsigned long> rows[] = {{"", 21},
                                                               {" ", 21},
                                                               {" \t ", 21},
                                                               {"-", 21},
                                                               {"+", 21},
                                                               {"--", 21},
                                                               {"-5-", 21},
                                                               {"+5-", 21},
                                                               {"--5", 21},
                                                               {"5--", 21},
                                                               {"- 5", 21},
                                                               {"5 -", 21},
                                                               {"1 2", 21},
                                                               {"abc", 21},
                                                               {"12a", 21},
                                                               {"a12", 21},
                                                               {"0x10", 21},
                                                               {"1E3", 21},
                                                               {"1,5", 21},
                                                               {"1,0", 21},
                                                               {"1,", 21},
                                                               {",5", 21},
                                                               {"1.23", 21},
                                                               {"1.2345", 21},
                                                               {"1234.567", 21},
                                                               {"1..234", 21},
                                                               {".123", 21},
                                                               {"1.234.", 21},
                                                               {"1.234.56", 21},
                                                               {"0.125", 21},
                                                               {"1,234", 21},
                                                               {"1'234", 21},
                                                               {"1.234,000", 21},
                                                               {"12\0"sv, 21},
                                                               {"\0"sv, 21},
                                                               {"1\0"
                                                                "2"sv,
                                                                21},
                                                               {"\xB2", 21},
                                                               {"2147483648", 8},
                                                               {"-2147483649", 8},
                                                               {"9999999999", 8},
                                                               {"2.147.483.648", 8},
                                                               {"99999999999999999999999999", 8},
                                                               {"-18446744073709551617", 8},
                                                               {"4294967297", 8}};
    for (const auto& [text, error] : rows) {
        SCOPED_TRACE(text);
        EXPECT_EQ(ReadLong(LongDefault(), text), (Read<std::int32_t>{error, -77}));
        EXPECT_EQ(ReadLong(Standard(), text), (Read<std::int32_t>{error, -77}));
    }
    for (const char* text : {"32768", "-32769", "32.768", "65537", "2147483648"}) {
        SCOPED_TRACE(text);
        EXPECT_EQ(ReadShort(ShortDefault(), text), (Read<std::int16_t>{8, -77}));
    }
    EXPECT_EQ(ReadShort(ShortDefault(), "1,5"), (Read<std::int16_t>{21, -77}));
    EXPECT_EQ(ReadLong(Technical(), "1.234").error, 21U);
    EXPECT_EQ(ReadLong(Technical(), "-1234"), (Read<std::int32_t>{0, -1234}));
}

TEST(ReadIntegers, ByOption)
{
    struct Row {
        NumericArguments format;
        const char* text;
        unsigned long error;
        std::int32_t value;
    };
    const Row rows[] = {
        {{.groupSeparator = 3}, "1 234 567", 0, 1234567},
        {{.groupSeparator = 3}, "1.234.567", 21, 0},
        {{.groupSeparator = 4}, "1'234", 0, 1234},
        {{.groupSeparator = 4}, "1234", 0, 1234},
        {{.decimalSeparator = 1, .groupSeparator = 2}, "1,234", 0, 1234},
        {{.decimalSeparator = 1}, "1.234", 21, 0},
        {{.decimalSeparator = 1}, "1,234", 21, 0},
        // no sign place
        {{.sign = 0}, "-5", 20, 0},
        {{.sign = 0}, "5-", 20, 0},
        {{.sign = 0}, "+5", 21, 0},
        {{.sign = 0}, "-x", 21, 0},
        {{.sign = 0}, "5", 0, 5},
        // both places, whatever is shown
        {{.sign = 2}, "-5", 0, -5},
        {{.sign = 2}, "5-", 0, -5},
        // decimals of an integer are zeros
        {{.decimals = 2}, "5,00", 0, 5},
        {{.decimals = 2}, "5,0", 0, 5},
        {{.decimals = 2}, "5", 0, 5},
        {{.decimals = 2}, "5,01", 21, 0},
        {{.decimals = 2}, "5,000", 21, 0},
        {{.decimals = kAll}, "5,0", 21, 0},
        {{.decimals = 2, .decimalSeparator = 3}, "500", 0, 5},
        {{.decimals = 2, .decimalSeparator = 3}, "501", 21, 0},
        {{.decimals = 2, .decimalSeparator = 3}, "00", 21, 0},
        {{.decimals = 2, .decimalSeparator = 3}, "000", 0, 0},
        // places
        {{.places = 3}, "999", 0, 999},
        {{.places = 3}, "1000", 11, 0},
        {{.places = 3}, "0000999", 0, 999},
        {{.places = 3}, "-100", 11, 0},
        {{.places = 3}, "99999999999", 8, 0},
        {{.places = 5, .groupSeparator = 1}, "9999", 0, 9999},
        {{.places = 5, .groupSeparator = 1}, "99999", 11, 0},
        // what fills the places
        {{.places = 6, .fillLeft = 1, .leftChar = '*'}, "***-12", 0, -12},
        {{.places = 6, .fillLeft = 1, .leftChar = '*'}, "*********-12", 0, -12},
        {{.places = 6, .fillLeft = 1, .leftChar = '*'}, "-***12", 21, 0},
        {{.places = 6, .fillLeft = 1, .leftChar = '*'}, "******", 21, 0},
        {{.places = 6, .fillLeft = 0, .leftChar = '*'}, "***-12", 21, 0},
        {{.places = 9, .groupSeparator = 1, .fillLeft = 1}, "-0001.234", 0, -1234},
        {{.places = 9, .groupSeparator = 1}, "-0001.234", 21, 0},
        {{.decimals = 2, .fillRight = 1, .rightChar = '#'}, "5,##", 0, 5},
        {{.decimals = 2, .fillRight = 1, .rightChar = '#'}, "5,0#", 0, 5},
        {{.decimals = 2, .fillRight = 1, .rightChar = '#'}, "5,", 0, 5},
        {{.decimals = 2, .fillRight = 1, .rightChar = '#'}, "##", 21, 0},
        {{.decimals = 2}, "5,", 21, 0},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(ReadLong(Numeric(row.format), row.text),
                  (Read<std::int32_t>{row.error, row.error == 0 ? row.value : -77}));
    }
}

TEST(RoundTripOfShorts, EveryNumber)
{
    const ZelFormat format = ShortDefault();
    for (std::int32_t value = -32768; value <= 32767; ++value) {
        const auto number = static_cast<std::int16_t>(value);
        ASSERT_EQ(ReadShort(format, ShowShort(format, number)), (Read<std::int16_t>{0, number}));
    }
}

} // namespace
