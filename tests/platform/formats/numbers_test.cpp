// Doubles and numbers as texts in numeric formats and in the modes; what a numeric format shows, it
// reads back, whatever the type.

#include "tests/platform/formats/formats_testing.h"

#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <tuple>
#include <utility>
#include <vector>

namespace {

using namespace formats_testing;

constexpr std::int32_t kLongMin = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kLongMax = std::numeric_limits<std::int32_t>::max();

/// Two decimals and points between the groups, as amounts of money are written.
const NumericArguments kMoney{.decimals = 2, .groupSeparator = 1};

TEST(ShownDoubles, Modes)
{
    const std::tuple<double, const char*, const char*> rows[] = {
        {0.0, "0", "0"},
        {-0.0, "0", "0"},
        {1.0, "1", "1"},
        {0.1, "0,1", "0.1"},
        {-1234567.5, "-1234567,5", "-1234567.5"},
        {1.0 / 3, "0,3333333333333333", "0.3333333333333333"},
        {999999999999999.0, "999999999999999", "999999999999999"},
        {999999999999999.9, "999999999999999,9", "999999999999999.9"},
        {1E15, "1E+15", "1E+15"},
        {-1.5E15, "-1,5E+15", "-1.5E+15"},
        {0.00001, "0,00001", "0.00001"},
        {0.000009, "9E-06", "9E-06"},
        {1.7976931348623157E308, "1,7976931348623157E+308", "1.7976931348623157E+308"},
        {5E-324, "5E-324", "5E-324"}};
    for (const auto& [value, german, technical] : rows) {
        EXPECT_EQ(ShowDouble(Standard(), value), german);
        EXPECT_EQ(ShowDouble(Technical(), value), technical);
    }
    for (const double value : {std::nan(""), HUGE_VAL, -HUGE_VAL}) {
        EXPECT_EQ(ShowDouble(Standard(), value), "<8>");
        EXPECT_EQ(ShowDouble(Numeric(kMoney), value), "<8>");
    }
}

TEST(ShownDoubles, EveryOption)
{
    struct Row {
        NumericArguments format;
        double value;
        const char* text;
    };
    const Row rows[] = {
        {kMoney, 1234567.89, "1.234.567,89"},
        {kMoney, 1234567.891, "1.234.567,89"},
        {kMoney, 0, "0,00"},
        {kMoney, -0.5, "-0,50"},
        {kMoney, 1E15, "1.000.000.000.000.000,00"},
        // ties go away from zero, by the digits that people see
        {kMoney, 0.125, "0,13"},
        {kMoney, -0.125, "-0,13"},
        {kMoney, 2.675, "2,68"},
        {kMoney, 1.005, "1,01"},
        {kMoney, 1.00499, "1,00"},
        {kMoney, 999.995, "1.000,00"},
        {kMoney, 0.005, "0,01"},
        {kMoney, 0.00499, "0,00"},
        {kMoney, -0.004, "0,00"},
        {kMoney, 1E-300, "0,00"},
        {{.decimals = 0}, 0.5, "1"},
        {{.decimals = 0}, -2.5, "-3"},
        {{.decimals = 0}, 99.5, "100"},
        {{.decimals = 0, .sign = 0}, -0.4, "0"},
        {{.decimals = 0, .sign = 0}, -0.5, "<20>"},
        {{.decimals = kAll}, 1.25, "1,25"},
        {{.decimals = kAll}, 1E21, "1000000000000000000000"},
        {{.decimals = kAll}, 1E-7, "0,0000001"},
        {{.decimals = kAll, .decimalSeparator = 3}, 1.25, "<20>"},
        {{.decimals = kAll, .decimalSeparator = 3}, 12.0, "12"},
        {{.decimals = 2, .decimalSeparator = 3}, 1234.56, "123456"},
        {{.decimals = 2, .decimalSeparator = 3}, -0.05, "-005"},
        {{.decimals = 3, .fillRight = 1, .rightChar = ' '}, 1.5, "1,5  "},
        {{.decimals = 3, .sign = 2, .fillRight = 1, .rightChar = '#'}, -1.5, "1,5##-"},
        {{.places = 7, .decimals = 2}, 9999.99, "9999,99"},
        {{.places = 7, .decimals = 2}, 9999.995, "<20>"},
        {{.places = 7, .decimals = 2}, -9999.99, "<20>"},
        {{.places = 9, .decimals = 2, .fillLeft = 1}, -1.5, "-00001,50"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(ShowDouble(Numeric(row.format), row.value), row.text);
    }
}

TEST(ReadDoubles, Texts)
{
    struct Row {
        const char* text;
        unsigned long error;
        double value;
    };
    const Row rows[] = {{"0", 0, 0},
                        {"1,5", 0, 1.5},
                        {" -1,5 ", 0, -1.5},
                        {"1,5-", 0, -1.5},
                        {"1.234", 0, 1234},
                        {"1.234,5", 0, 1234.5},
                        {"1234,5", 0, 1234.5},
                        {"0,1", 0, 0.1},
                        {"1E3", 0, 1000},
                        {"1,5e-3", 0, 0.0015},
                        {"1,5E+15", 0, 1.5E15},
                        {"1E5-", 0, -1E5},
                        {"+2", 0, 2},
                        {"1.234E1", 0, 12340},
                        {"0E999999999999", 0, 0},
                        {"1,7976931348623157E+308", 0, 1.7976931348623157E308},
                        {"5E-324", 0, 5E-324},
                        {"1E999", 8, 0},
                        {"-1E309", 8, 0},
                        {"1E-999", 8, 0},
                        {"1E99999999999", 8, 0},
                        {"1.5", 21, 0},
                        {"1.2345", 21, 0},
                        {"1,5,5", 21, 0},
                        {"1,", 21, 0},
                        {",5", 21, 0},
                        {"1,234.5", 21, 0},
                        {"1E", 21, 0},
                        {"1E+", 21, 0},
                        {"E5", 21, 0},
                        {"1E1,5", 21, 0},
                        {"inf", 21, 0},
                        {"nan", 21, 0},
                        {"0x1p3", 21, 0},
                        {"", 21, 0},
                        {"   ", 21, 0},
                        {"-", 21, 0},
                        {"-1-", 21, 0},
                        {"1 5", 21, 0},
                        {"1,5 -", 21, 0}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(ReadDouble(Standard(), row.text),
                  (Read<double>{row.error, row.error == 0 ? row.value : -77.25}));
    }
    EXPECT_FALSE(std::signbit(ReadDouble(Standard(), "-0").value));
    EXPECT_EQ(ReadDouble(Technical(), "1.5"), (Read<double>{0, 1.5}));
    EXPECT_EQ(ReadDouble(Technical(), "1,5").error, 21U);
    EXPECT_EQ(ReadDouble(Technical(), "1.234.567").error, 21U);
}

TEST(ReadDoubles, ByOption)
{
    struct Row {
        NumericArguments format;
        const char* text;
        unsigned long error;
        double value;
    };
    const Row rows[] = {
        {kMoney, "1.234.567,89", 0, 1234567.89},
        {kMoney, "1234567,89", 0, 1234567.89},
        {kMoney, "1.234.567,89-", 0, -1234567.89},
        {kMoney, "1,5", 0, 1.5},
        {kMoney, "1", 0, 1},
        {kMoney, "1,234", 21, 0},
        {kMoney, "1E3", 21, 0},
        {{.decimals = kAll}, "1,23456", 0, 1.23456},
        {{.decimals = 2, .decimalSeparator = 1, .groupSeparator = 2}, "1,234.5", 0, 1234.5},
        {{.decimals = 2, .decimalSeparator = 3}, "123456", 0, 1234.56},
        {{.decimals = 2, .decimalSeparator = 3}, "1.23456", 0, 1234.56},
        {{.decimals = 2, .decimalSeparator = 3}, "12", 21, 0},
        {{.decimals = 2, .decimalSeparator = 3}, "1,56", 21, 0},
        {{.decimals = 3, .sign = 2, .fillRight = 1, .rightChar = '#'}, "1,5##-", 0, -1.5},
        {{.places = 7, .decimals = 2}, "9999,99", 0, 9999.99},
        {{.places = 7, .decimals = 2}, "99999", 11, 0},
        {{.places = 7, .decimals = 2}, "9999", 0, 9999},
        {{.places = 5, .decimals = kAll}, "1,2500", 0, 1.25},
        {{.places = 5, .decimals = kAll}, "1,2345", 11, 0},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(ReadDouble(Numeric(row.format), row.text),
                  (Read<double>{row.error, row.error == 0 ? row.value : -77.25}));
    }
}

TEST(ShownNumberTexts, KeepTheirDecimals)
{
    const std::tuple<const char*, const char*, const char*> rows[] = {
        {"1.50", "1,50", "1.50"},
        {"-1.50", "-1,50", "-1.50"},
        {"5", "5", "5"},
        {"5.", "5", "5"},
        {"+5.0", "5,0", "5.0"},
        {".5", "0,5", "0.5"},
        {"-0.00", "0,00", "0.00"},
        {"007.10", "7,10", "7.10"},
        {"1234567", "1234567", "1234567"},
        {"39614081257132168796771975167", "39614081257132168796771975167",
         "39614081257132168796771975167"},
        {"", "<21>", "<21>"},
        {".", "<21>", "<21>"},
        {"-", "<21>", "<21>"},
        {"1,5", "<21>", "<21>"},
        {"1.5.5", "<21>", "<21>"},
        {"1E5", "<21>", "<21>"},
        {" 1", "<21>", "<21>"},
        {"--1", "<21>", "<21>"}};
    for (const auto& [number, german, technical] : rows) {
        SCOPED_TRACE(number);
        EXPECT_EQ(ShowNumber(Standard(), number), german);
        EXPECT_EQ(ShowNumber(Technical(), number), technical);
    }
}

TEST(ShownNumberTexts, ByOption)
{
    struct Row {
        NumericArguments format;
        const char* number;
        const char* text;
    };
    const Row rows[] = {
        {kMoney, "1234567.891", "1.234.567,89"},
        {kMoney, "1234567.895", "1.234.567,90"},
        {kMoney, "-999999999999999999999999.995", "-1.000.000.000.000.000.000.000.000,00"},
        {kMoney, "5", "5,00"},
        {{.decimals = 4, .fillRight = 1, .rightChar = '#'}, "1.50", "1,50##"},
        {{.decimals = kAll, .groupSeparator = 1}, "1234.500", "1.234,500"},
        {{.decimals = kAll, .sign = 2, .whichSign = 1}, "1.5", "1,5+"},
        {{.decimals = kAll, .sign = 0}, "-1", "<20>"},
        {{.places = 4, .decimals = kAll}, "1.50", "1,50"},
        {{.places = 4, .decimals = kAll}, "1.500", "<20>"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(ShowNumber(Numeric(row.format), row.number), row.text);
    }
}

TEST(ReadNumberTexts, Texts)
{
    struct Row {
        const char* text;
        unsigned long error;
        const char* number;
    };
    const Row rows[] = {
        {"1,50", 0, "1.50"},
        {" 1.234,500- ", 0, "-1234.500"},
        {"+7", 0, "7"},
        {"007", 0, "7"},
        {"-0,00", 0, "0.00"},
        {"0", 0, "0"},
        {"12345678901234567890123456789012345678", 0, "12345678901234567890123456789012345678"},
        {"-12345678901234567890123456789012345678", 0, "-12345678901234567890123456789012345678"},
        {"123456789012345678901234567890123456789", 11, ""},
        {"0,123456789012345678901234567890123456", 0, "0.123456789012345678901234567890123456"},
        {"0,1234567890123456789012345678901234567", 11, ""},
        {"0000000000000000000000000000000000000000000000005", 0, "5"},
        {"0,0000000000000000000000000000000000000", 0, "0.000000000000000000000000000000000000"},
        {"1234567890123456789012345678901234567,0", 0, "1234567890123456789012345678901234567"},
        {"12345678901234567890123456789012345678,00", 0, "12345678901234567890123456789012345678"},
        {"123456789012345678901234567890123456789,0", 11, ""},
        {"1E5", 21, ""},
        {"1.5", 21, ""},
        {"", 21, ""},
        {"  ", 21, ""},
        {"-", 21, ""},
        {"1,", 21, ""},
        {"12.34,5", 21, ""}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(ReadNumber(Standard(), row.text),
                  (Read<std::string>{row.error, row.error == 0 ? row.number : "before"}));
    }
    EXPECT_EQ(ReadNumber(Technical(), "-1.50"), (Read<std::string>{0, "-1.50"}));
    EXPECT_EQ(ReadNumber(Numeric(kMoney), "1.234,5"), (Read<std::string>{0, "1234.5"}));
    EXPECT_EQ(ReadNumber(Numeric(kMoney), "1,234").error, 21U);
    EXPECT_EQ(ReadNumber(Numeric({.places = 4, .decimals = 2}), "12,5").error, 11U);
    EXPECT_EQ(ReadNumber(Numeric({.decimals = 2, .sign = 0}), "-1").error, 20U);
}

/// Every valid combination of separators, signs, fills and decimals.
std::vector<NumericArguments> ManyFormats()
{
    std::vector<NumericArguments> formats;
    for (const unsigned long decimals : {0UL, 3UL, kAll})
        for (const int decimalSeparator : {0, 1, 3})
            for (const int group : {0, 1, 2, 3, 4})
                for (const int sign : {1, 2})
                    for (const int whichSign : {0, 1})
                        for (const char left : {'\0', '0', ' ', '*', '.', ','})
                            for (const char right : {'\0', '0', ' ', '#', '.', ','}) {
                                const bool clash = (decimalSeparator == 0 && group == 2) ||
                                                   (decimalSeparator == 1 && group == 1);
                                const bool lost =
                                    decimalSeparator == 3 && right != '\0' && right != '0';
                                if (clash || lost)
                                    continue;
                                formats.push_back({decimals == kAll ? 400UL : 40UL, decimals,
                                                   decimalSeparator, group, sign, whichSign,
                                                   left != '\0', left, right != '\0', right});
                            }
    return formats;
}

TEST(RoundTrip, IntegersInEveryFormat)
{
    std::mt19937 random(1753);
    for (const NumericArguments& arguments : ManyFormats()) {
        const ZelFormat format = Numeric(arguments);
        std::vector<std::int32_t> values = {0, 1, -1, 999, 1000, -1000, kLongMax, kLongMin};
        for (int i = 0; i < 6; ++i)
            values.push_back(static_cast<std::int32_t>(random()) >> (random() % 32));
        for (const std::int32_t value : values) {
            const std::string text = ShowLong(format, value);
            ASSERT_EQ(ReadLong(format, text), (Read<std::int32_t>{0, value})) << text;
        }
    }
}

TEST(RoundTrip, NumberTextsInEveryFormat)
{
    std::mt19937 random(1900);
    for (const NumericArguments& arguments : ManyFormats()) {
        if (arguments.decimals == kAll && arguments.decimalSeparator == 3)
            continue;
        const ZelFormat format = Numeric(arguments);
        for (int i = 0; i < 6; ++i) {
            // Exactly the decimals of the format, so that none is rounded and none is added.
            std::string number = std::to_string(random());
            const std::size_t decimals =
                arguments.decimals == kAll ? random() % 9 : arguments.decimals;
            for (std::size_t digit = 0; digit < decimals; ++digit) {
                if (digit == 0)
                    number += '.';
                // The last digit is no 0: a right fill would stand for it.
                number += static_cast<char>('1' + random() % 9);
            }
            if (random() % 2 != 0 && number.find_first_of("123456789") != number.npos)
                number.insert(0, 1, '-');
            const std::string text = ShowNumber(format, number);
            ASSERT_EQ(ReadNumber(format, text), (Read<std::string>{0, number})) << text;
        }
    }
}

double RandomDouble(std::mt19937_64& random)
{
    double value = 0;
    do {
        const std::uint64_t bits = random();
        std::memcpy(&value, &bits, sizeof value);
    } while (!std::isfinite(value));
    return value;
}

TEST(RoundTrip, DoublesOfEverySize)
{
    std::mt19937_64 random(2000);
    const ZelFormat all = Numeric({.decimals = kAll, .groupSeparator = 1, .sign = 2});
    for (int i = 0; i < 5000; ++i) {
        const double value = RandomDouble(random);
        const double smaller = std::ldexp(static_cast<double>(random() >> 11), -40);
        for (const double number : {value, smaller, -smaller}) {
            for (const ZelFormat& format : {Standard(), Technical(), all}) {
                const std::string text = ShowDouble(format, number);
                ASSERT_EQ(ReadDouble(format, text), (Read<double>{0, number})) << text;
            }
        }
    }
}

TEST(RoundTrip, AmountsOfMoney)
{
    std::mt19937 random(2002);
    const ZelFormat format = Numeric(kMoney);
    for (int i = 0; i < 20000; ++i) {
        const double value = static_cast<std::int32_t>(random()) / 100.0;
        const std::string text = ShowDouble(format, value);
        ASSERT_EQ(ReadDouble(format, text), (Read<double>{0, value})) << text;
    }
}

TEST(HostileTexts, VeryLongOnes)
{
    constexpr std::size_t kLength = 200'000;
    const std::string nines(kLength, '9');
    const std::string zeros(kLength, '0');
    EXPECT_EQ(ReadLong(LongDefault(), nines).error, 8U);
    EXPECT_EQ(ReadLong(LongDefault(), zeros), (Read<std::int32_t>{0, 0}));
    EXPECT_EQ(ReadDouble(Standard(), nines).error, 8U);
    EXPECT_EQ(ReadDouble(Standard(), "1," + nines), (Read<double>{0, 2.0}));
    EXPECT_EQ(ReadDouble(Standard(), "0," + zeros + "1").error, 8U);
    EXPECT_EQ(ReadDouble(Standard(), "1E" + nines).error, 8U);
    EXPECT_EQ(ReadNumber(Standard(), nines).error, 11U);
    EXPECT_EQ(ReadLong(LongDefault(), std::string(kLength, ' ')).error, 21U);
    EXPECT_EQ(ReadLong(LongDefault(), std::string(kLength, '-')).error, 21U);
    EXPECT_EQ(ReadLong(LongDefault(), std::string(kLength, '.')).error, 21U);
}

TEST(HostileTexts, RandomBytesNeverCrash)
{
    std::mt19937 random(4711);
    const std::string alphabet("0123456789.,'-+ *#eE\t\0\xA0x", 24);
    std::vector<ZelFormat> formats = {Standard(), Technical()};
    for (const NumericArguments& arguments : ManyFormats()) {
        if (random() % 40 == 0)
            formats.push_back(Numeric(arguments));
    }
    for (int i = 0; i < 3000; ++i) {
        std::string text(random() % 12, ' ');
        for (char& c : text)
            c = alphabet[random() % alphabet.size()];
        for (const ZelFormat& format : formats) {
            // What is accepted is a number that the same format shows and reads again.
            const Read<double> read = ReadDouble(format, text);
            if (read.error == 0) {
                ASSERT_EQ(ReadDouble(format, ShowDouble(format, read.value)), read) << text;
            }
            const Read<std::int32_t> integer = ReadLong(format, text);
            if (integer.error == 0) {
                ASSERT_EQ(ReadLong(format, ShowLong(format, integer.value)), integer) << text;
            }
        }
    }
}

TEST(NullTargets, TheTextIsChecked)
{
    const ZelFormat format = LongDefault();
    EXPECT_EQ(ErrorOf("ParseLong(CString&,LONG*)", [&] { format.ParseLong("1,5", nullptr); }), 21U);
    EXPECT_EQ(ErrorOf("ParseLong(CString&,LONG*)", [&] { format.ParseLong("15", nullptr); }), 0U);
    EXPECT_EQ(ErrorOf("ParseShort(CString&,SHORT*)", [&] { format.ParseShort("99999", nullptr); }),
              8U);
    EXPECT_EQ(ErrorOf("ParseDouble(CString&,double*)", [&] { format.ParseDouble("15", nullptr); }),
              0U);
}

} // namespace
