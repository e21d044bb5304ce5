/// What numbers look like: every setting of the numeric formats and both modes, for each class.

#include "tests/display/numbers_testing.h"

#include <cstddef>
#include <string>
#include <vector>

namespace {

using namespace numbers_testing;

/// A number, shown by a format; an error is "<20>".
struct Row {
    Shape shape;
    const char* number;
    const char* text;
};

/// Every class that holds the number must show it so.
void ExpectShown(const std::vector<Row>& rows)
{
    for (const Row& row : rows) {
        const ZelFormat format = Make(row.shape);
        const int count = WithEveryHolder(row.number, [&](const auto& value) {
            EXPECT_EQ(Shown(value, &format), row.text) << row.shape;
        });
        EXPECT_GT(count, 0) << row.number;
    }
}

// Separators

TEST(ShownSeparators, OfDecimals)
{
    ExpectShown({
        {{.decimals = 2, .decimalSeparator = 0}, "1234567.891", "1234567,89"},
        {{.decimals = 2, .decimalSeparator = 1}, "1234567.891", "1234567.89"},
        {{.decimals = 2, .decimalSeparator = 3}, "1234567.891", "123456789"},
        {{.decimals = 2, .decimalSeparator = 0}, "-1", "-1,00"},
        {{.decimals = 2, .decimalSeparator = 1}, "-1", "-1.00"},
        {{.decimals = 2, .decimalSeparator = 3}, "-1", "-100"},
        {{.decimals = 2, .decimalSeparator = 0}, "0", "0,00"},
        {{.decimals = 2, .decimalSeparator = 3}, "0", "000"},
        {{.decimals = 2, .decimalSeparator = 3}, "0.05", "005"},
        {{.decimals = 2, .decimalSeparator = 3}, "-0.5", "-050"},
        // Without decimals there is nothing to separate.
        {{.decimals = 0, .decimalSeparator = 0}, "-12", "-12"},
        {{.decimals = 0, .decimalSeparator = 1}, "-12", "-12"},
        {{.decimals = 0, .decimalSeparator = 3}, "-12", "-12"},
        {{.decimals = kAll, .decimalSeparator = 0}, "-12", "-12"},
        {{.decimals = kAll, .decimalSeparator = 1}, "-12", "-12"},
        {{.decimals = kAll, .decimalSeparator = 3}, "-12", "-12"},
        // Nobody could tell how many there are.
        {{.decimals = kAll, .decimalSeparator = 3}, "1.5", "<20>"},
        {{.decimals = kAll, .decimalSeparator = 3}, "1.50", "<20>"},
        {{.decimals = kAll, .decimalSeparator = 3}, "0.00", "<20>"},
    });
}

TEST(ShownSeparators, OfGroups)
{
    ExpectShown({
        {{.decimals = 2, .groupSeparator = 0}, "1234567.891", "1234567,89"},
        {{.decimals = 2, .groupSeparator = 1}, "1234567.891", "1.234.567,89"},
        {{.decimals = 2, .groupSeparator = 3}, "1234567.891", "1 234 567,89"},
        {{.decimals = 2, .groupSeparator = 4}, "1234567.891", "1'234'567,89"},
        {{.decimals = 2, .decimalSeparator = 1, .groupSeparator = 0}, "1234567.891", "1234567.89"},
        {{.decimals = 2, .decimalSeparator = 1, .groupSeparator = 2},
         "1234567.891",
         "1,234,567.89"},
        {{.decimals = 2, .decimalSeparator = 1, .groupSeparator = 3},
         "1234567.891",
         "1 234 567.89"},
        {{.decimals = 2, .decimalSeparator = 1, .groupSeparator = 4},
         "1234567.891",
         "1'234'567.89"},
        {{.decimals = 2, .decimalSeparator = 3, .groupSeparator = 1}, "1234567.891", "1.234.56789"},
        {{.decimals = 2, .decimalSeparator = 3, .groupSeparator = 2}, "1234567.891", "1,234,56789"},
        {{.decimals = 2, .decimalSeparator = 3, .groupSeparator = 3}, "1234567.891", "1 234 56789"},
        {{.decimals = 2, .decimalSeparator = 3, .groupSeparator = 4}, "1234567.891", "1'234'56789"},
        {{.decimals = kAll, .groupSeparator = 1}, "1234.56789", "1.234,56789"},
        {{.groupSeparator = 1}, "-32768", "-32.768"},
        {{.groupSeparator = 1}, "-2147483648", "-2.147.483.648"},
        {{.groupSeparator = 3}, "2147483647", "2 147 483 647"},
        {{.groupSeparator = 4, .sign = 2}, "-2147483648", "2'147'483'648-"},
    });
}

TEST(ShownSeparators, StandAfterEveryThirdDigitFromTheRight)
{
    const Shape points{.groupSeparator = 1};
    const Shape money{.decimals = 2, .groupSeparator = 1};
    ExpectShown({
        {points, "1", "1"},
        {points, "12", "12"},
        {points, "123", "123"},
        {points, "1234", "1.234"},
        {points, "12345", "12.345"},
        {points, "-123456", "-123.456"},
        {points, "1234567", "1.234.567"},
        {points, "-12345678", "-12.345.678"},
        {points, "123456789", "123.456.789"},
        {points, "1234567890", "1.234.567.890"},
        {points, "12345678901", "12.345.678.901"},
        {points, "9999999999999999999999999999", "9.999.999.999.999.999.999.999.999.999"},
        {money, "-999", "-999,00"},
        {money, "999.99", "999,99"},
        {money, "999.995", "1.000,00"},
        {money, "-999999.995", "-1.000.000,00"},
        {money, "1000", "1.000,00"},
    });
}

TEST(ShownSeparators, ThatAreTheSameOrUnknownAreNotAllowed)
{
    const std::vector<Shape> shapes = {
        {.decimalSeparator = 0, .groupSeparator = 2},
        {.decimalSeparator = 1, .groupSeparator = 1},
        {.decimalSeparator = 2},
        {.decimalSeparator = 4},
        {.decimalSeparator = -1},
        {.groupSeparator = 5},
        {.groupSeparator = -1},
        {.sign = 3},
        {.sign = -1},
        {.whichSign = 2},
        {.whichSign = -1},
        {.places = 1025},
        {.places = 0xFFFFFFFF},
        {.decimals = 1025},
        {.decimals = 0xFFFFFFFE},
    };
    for (const Shape& shape : shapes)
        ExpectShown({{shape, "0", "<20>"}, {shape, "-12", "<20>"}, {shape, "1.5", "<20>"}});
    for (const int mode : {-1, 2, 3}) {
        const ZelFormat format = MakeMode(mode);
        EXPECT_EQ(WithEveryHolder(
                      "5", [&](const auto& value) { EXPECT_EQ(Shown(value, &format), "<20>"); }),
                  4);
    }
}

// Signs

TEST(ShownSigns, StandWhereTheFormatPutsThem)
{
    ExpectShown({
        {{.sign = 0, .whichSign = 0}, "5", "5"},
        {{.sign = 0, .whichSign = 0}, "0", "0"},
        {{.sign = 0, .whichSign = 0}, "-5", "<20>"},
        {{.sign = 0, .whichSign = 1}, "5", "5"},
        {{.sign = 0, .whichSign = 1}, "0", "0"},
        {{.sign = 0, .whichSign = 1}, "-5", "<20>"},
        {{.sign = 1, .whichSign = 0}, "5", "5"},
        {{.sign = 1, .whichSign = 0}, "0", "0"},
        {{.sign = 1, .whichSign = 0}, "-5", "-5"},
        {{.sign = 1, .whichSign = 1}, "5", "+5"},
        {{.sign = 1, .whichSign = 1}, "0", "0"},
        {{.sign = 1, .whichSign = 1}, "-5", "-5"},
        {{.sign = 2, .whichSign = 0}, "5", "5"},
        {{.sign = 2, .whichSign = 0}, "0", "0"},
        {{.sign = 2, .whichSign = 0}, "-5", "5-"},
        {{.sign = 2, .whichSign = 1}, "5", "5+"},
        {{.sign = 2, .whichSign = 1}, "0", "0"},
        {{.sign = 2, .whichSign = 1}, "-5", "5-"},
    });
}

TEST(ShownSigns, OfFractions)
{
    const Shape behind{.decimals = 2, .groupSeparator = 1, .sign = 2, .whichSign = 1};
    const Shape front{.decimals = 2, .groupSeparator = 1, .sign = 1, .whichSign = 1};
    ExpectShown({
        {behind, "-1234567.891", "1.234.567,89-"},
        {behind, "1234567.891", "1.234.567,89+"},
        {front, "-1234567.891", "-1.234.567,89"},
        {front, "1234567.891", "+1.234.567,89"},
        // What is rounded to zero is a zero.
        {front, "0.004", "0,00"},
        {front, "-0.004", "0,00"},
        {behind, "-0.004", "0,00"},
        {front, "0.005", "+0,01"},
        {front, "-0.005", "-0,01"},
        {behind, "-0.005", "0,01-"},
    });
}

TEST(ShownSigns, AreNotThereForNegativeZero)
{
    for (const Shape& shape :
         std::vector<Shape>{{.sign = 1}, {.sign = 2}, {.sign = 1, .whichSign = 1}, {.sign = 0}}) {
        const ZelFormat format = Make(shape);
        EXPECT_EQ(Shown(ZelDtDouble(-0.0), &format), "0") << shape;
    }
}

// Places

TEST(ShownPlaces, HoldTheWholeTextOrItIsRefused)
{
    ExpectShown({
        {{.places = 0}, "-2147483648", "-2147483648"},
        {{.places = 11}, "-2147483648", "-2147483648"},
        {{.places = 10}, "-2147483648", "<20>"},
        {{.places = 10}, "2147483647", "2147483647"},
        {{.places = 9}, "2147483647", "<20>"},
        {{.places = 6}, "-32768", "-32768"},
        {{.places = 5}, "-32768", "<20>"},
        {{.places = 5}, "32767", "32767"},
        {{.places = 4}, "32767", "<20>"},
        {{.places = 1}, "0", "0"},
        {{.places = 1}, "9", "9"},
        {{.places = 1}, "-9", "<20>"},
        {{.places = 2}, "-9", "-9"},
        {{.places = 2, .sign = 2}, "-9", "9-"},
        {{.places = 1, .sign = 2}, "-9", "<20>"},
        {{.places = 1, .whichSign = 1}, "9", "<20>"},
        {{.places = 2, .whichSign = 1}, "9", "+9"},
        {{.places = 1, .whichSign = 1}, "0", "0"},
        {{.places = 1, .sign = 0, .whichSign = 1}, "9", "9"},
        // Groups and decimals count too.
        {{.places = 6, .groupSeparator = 1}, "12345", "12.345"},
        {{.places = 5, .groupSeparator = 1}, "12345", "<20>"},
        {{.places = 8, .decimals = 2}, "12345", "12345,00"},
        {{.places = 7, .decimals = 2}, "12345", "<20>"},
        {{.places = 7, .decimals = 2, .decimalSeparator = 3}, "12345", "1234500"},
        {{.places = 6, .decimals = 2, .decimalSeparator = 3}, "12345", "<20>"},
        {{.places = 12, .decimals = 2, .groupSeparator = 1}, "1234567.891", "1.234.567,89"},
        {{.places = 11, .decimals = 2, .groupSeparator = 1}, "1234567.891", "<20>"},
        {{.places = 13, .decimals = 2, .groupSeparator = 1}, "-1234567.891", "-1.234.567,89"},
        {{.places = 12, .decimals = 2, .groupSeparator = 1}, "-1234567.891", "<20>"},
        {{.places = 11, .decimals = kAll}, "1234567.891", "1234567,891"},
        {{.places = 10, .decimals = kAll}, "1234567.891", "<20>"},
        // So does what rounding adds.
        {{.places = 4, .decimals = 2}, "9.994", "9,99"},
        {{.places = 4, .decimals = 2}, "9.995", "<20>"},
        {{.places = 5, .decimals = 2}, "9.995", "10,00"},
        // A sign that rounding takes away does not.
        {{.places = 4, .decimals = 2}, "-0.004", "0,00"},
        {{.places = 4, .decimals = 2}, "-0.005", "<20>"},
        {{.places = 1024}, "-5", "-5"},
    });
}

// Decimals

TEST(ShownDecimals, AreAsManyAsTheFormatSays)
{
    ExpectShown({
        {{.decimals = 0}, "1234567.891", "1234568"},
        {{.decimals = 1}, "1234567.891", "1234567,9"},
        {{.decimals = 2}, "1234567.891", "1234567,89"},
        {{.decimals = 3}, "1234567.891", "1234567,891"},
        {{.decimals = 5}, "1234567.891", "1234567,89100"},
        {{.decimals = kAll}, "1234567.891", "1234567,891"},
        {{.decimals = 0}, "-1", "-1"},
        {{.decimals = 5}, "-1", "-1,00000"},
        {{.decimals = kAll}, "-1", "-1"},
        {{.decimals = 0}, "0", "0"},
        {{.decimals = 5}, "0", "0,00000"},
        {{.decimals = kAll}, "0", "0"},
        // Written ones count for decimals.
        {{.decimals = kAll}, "1.50", "1,50"},
        {{.decimals = kAll}, "0.00", "0,00"},
        {{.decimals = 1}, "1.50", "1,5"},
        {{.decimals = 3}, "1.50", "1,500"},
    });
    std::string many = "1,";
    many.append(1024, '0');
    ExpectShown({{{.decimals = 1024}, "1", many.c_str()}});
}

TEST(ShownDecimals, AreRoundedHalfAwayFromZero)
{
    ExpectShown({
        {{.decimals = 0}, "0.5", "1"},
        {{.decimals = 0}, "-0.5", "-1"},
        {{.decimals = 0}, "1.5", "2"},
        {{.decimals = 0}, "-1.5", "-2"},
        {{.decimals = 0}, "2.5", "3"},
        {{.decimals = 0}, "-2.5", "-3"},
        {{.decimals = 0}, "0.49", "0"},
        {{.decimals = 0}, "0.4999999999999999", "0"},
        {{.decimals = 0}, "-0.49", "0"},
        {{.decimals = 2}, "2.675", "2,68"},
        {{.decimals = 2}, "-2.675", "-2,68"},
        {{.decimals = 2}, "1.005", "1,01"},
        {{.decimals = 2}, "-1.005", "-1,01"},
        {{.decimals = 2}, "0.285", "0,29"},
        {{.decimals = 2}, "-0.005", "-0,01"},
        {{.decimals = 2}, "0.005", "0,01"},
        {{.decimals = 2}, "0.0049", "0,00"},
        {{.decimals = 2}, "0.994999", "0,99"},
        {{.decimals = 2}, "0.995", "1,00"},
        {{.decimals = 2}, "99.995", "100,00"},
        {{.decimals = 1}, "0.05", "0,1"},
        {{.decimals = 1}, "0.049", "0,0"},
        {{.decimals = 1}, "1.45", "1,5"},
        {{.decimals = 1}, "1.449", "1,4"},
        {{.decimals = 3}, "1.0005", "1,001"},
        {{.decimals = 3}, "8.3455", "8,346"},
        {{.decimals = 0}, "999999.5", "1000000"},
        {{.decimals = 0, .groupSeparator = 1}, "-999999.5", "-1.000.000"},
    });
}

// Fill

TEST(ShownFill, OnTheLeftReachesTheFullPlaces)
{
    const auto with = [](unsigned long places, char fill, int sign = 1, int whichSign = 0) {
        return Shape{.places = places,
                     .groupSeparator = 1,
                     .sign = sign,
                     .whichSign = whichSign,
                     .fillLeft = 1,
                     .leftChar = fill};
    };
    ExpectShown({
        {with(8, '0'), "12", "00000012"},
        {with(8, ' '), "12", "      12"},
        {with(8, '*'), "12", "******12"},
        // Zeros come behind a sign, anything else in front of it.
        {with(8, '0'), "-12", "-0000012"},
        {with(8, ' '), "-12", "     -12"},
        {with(8, '*'), "-12", "*****-12"},
        {with(8, '0', 1, 1), "12", "+0000012"},
        {with(8, ' ', 1, 1), "12", "     +12"},
        {with(8, '*', 1, 1), "12", "*****+12"},
        {with(8, '0', 2), "-12", "0000012-"},
        {with(8, ' ', 2), "-12", "     12-"},
        {with(8, '*', 2), "-12", "*****12-"},
        {with(8, '0', 2, 1), "12", "0000012+"},
        {with(8, '*', 2, 1), "12", "*****12+"},
        {with(8, '0', 2), "12", "00000012"},
        {with(8, '0', 0), "12", "00000012"},
        {with(8, ' ', 0), "12", "      12"},
        {with(8, '0'), "0", "00000000"},
        {with(8, ' '), "0", "       0"},
        {with(8, '*', 1, 1), "0", "*******0"},
        // Nothing is left to fill, too little place, no places at all.
        {with(2, '*'), "12", "12"},
        {with(3, '*'), "-12", "-12"},
        {with(2, '*'), "-12", "<20>"},
        {with(0, '*'), "-12", "-12"},
        {with(0, '0'), "12", "12"},
        // Groups are those of the number.
        {with(8, '0'), "12345", "0012.345"},
        {with(8, ' '), "12345", "  12.345"},
        {with(8, '*'), "-12345", "*-12.345"},
        {with(8, '0'), "-1234", "-001.234"},
    });
    ExpectShown({
        {{.places = 9, .decimals = 2, .fillLeft = -1, .leftChar = '0'}, "-1.5", "-00001,50"},
        {{.places = 9, .decimals = 2, .fillLeft = 7, .leftChar = '*'}, "-1.5", "****-1,50"},
        {{.places = 9, .decimals = 2, .fillLeft = 1, .leftChar = ' '}, "-1.5", "    -1,50"},
        {{.places = 9, .decimals = 2, .fillLeft = 0, .leftChar = '*'}, "-1.5", "-1,50"},
        {{.places = 9, .decimals = 2, .decimalSeparator = 3, .fillLeft = 1}, "-1.5", "-00000150"},
        {{.places = 1024, .fillLeft = 1}, "5", (std::string(1023, '0') + "5").c_str()},
    });
}

TEST(ShownFill, OnTheRightStandsForMissingDecimals)
{
    const auto with = [](unsigned long decimals, char fill, int sign = 1) {
        return Shape{.decimals = decimals, .sign = sign, .fillRight = 1, .rightChar = fill};
    };
    ExpectShown({
        {with(3, '0'), "-1.5", "-1,500"},
        {with(3, ' '), "-1.5", "-1,5  "},
        {with(3, '*'), "-1.5", "-1,5**"},
        {with(3, '0', 2), "-1.5", "1,500-"},
        {with(3, ' ', 2), "-1.5", "1,5  -"},
        {with(3, '*', 2), "-1.5", "1,5**-"},
        {with(2, '0'), "5", "5,00"},
        {with(2, ' '), "5", "5,  "},
        {with(2, '*'), "5", "5,**"},
        {with(2, '*'), "0", "0,**"},
        {with(2, '*', 2), "-5", "5,**-"},
        // The number has them, also when they were rounded to zero.
        {with(2, '*'), "1.25", "1,25"},
        {with(2, '*'), "1.999", "2,00"},
        {with(2, '*'), "1.004", "1,00"},
        {with(2, '*'), "1.50", "1,50"},
        {with(3, '*'), "1.50", "1,50*"},
        {with(3, '*'), "0.00", "0,00*"},
        {with(0, '*'), "5", "5"},
        {with(0, '*'), "1.5", "2"},
        {with(kAll, '*'), "5", "5"},
        {with(kAll, '*'), "1.5", "1,5"},
    });
    ExpectShown({
        {{.decimals = 2, .fillRight = -1, .rightChar = '*'}, "5", "5,**"},
        {{.decimals = 2, .fillRight = 0, .rightChar = '*'}, "5", "5,00"},
        {{.decimals = 2, .decimalSeparator = 3, .fillRight = 1, .rightChar = '0'}, "5", "500"},
        // Both sides; the right side counts for the places.
        {{.places = 8,
          .decimals = 2,
          .fillLeft = 1,
          .leftChar = '*',
          .fillRight = 1,
          .rightChar = '*'},
         "-5",
         "***-5,**"},
        {{.places = 4, .decimals = 2, .fillRight = 1, .rightChar = ' '}, "-5", "<20>"},
    });
}

TEST(ShownFill, ByCharactersThatAreNoFillIsNotAllowed)
{
    for (const char fill : {'1', '2', '9', '+', '-', '\0'}) {
        ExpectShown({
            {{.places = 8, .fillLeft = 1, .leftChar = fill}, "5", "<20>"},
            {{.decimals = 2, .fillRight = 1, .rightChar = fill}, "5", "<20>"},
            {{.places = 8, .fillLeft = 0, .leftChar = fill}, "5", "5"},
            {{.decimals = 2, .fillRight = 0, .rightChar = fill}, "5", "5,00"},
        });
    }
    for (const char fill : {' ', '*', 'x', '\xA0'})
        ExpectShown({{{.decimals = 2, .decimalSeparator = 3, .fillRight = 1, .rightChar = fill},
                      "5",
                      "<20>"}});
}

// Modes

TEST(ShownByModes, IsWhatTheClassSays)
{
    const struct {
        const char* number;
        const char* standard;
        const char* technical;
    } rows[] = {
        {"0", "0", "0"},
        {"-1", "-1", "-1"},
        {"-32768", "-32768", "-32768"},
        {"32767", "32767", "32767"},
        {"-2147483648", "-2147483648", "-2147483648"},
        {"2147483647", "2147483647", "2147483647"},
        {"1234567.891", "1234567,891", "1234567.891"},
        {"-0.005", "-0,005", "-0.005"},
        {"1.50", "1,50", "1.50"},
        {"0.00", "0,00", "0.00"},
        {"0.1", "0,1", "0.1"},
        {"999999999999999", "999999999999999", "999999999999999"},
        {"0.00001", "0,00001", "0.00001"},
    };
    for (const auto& row : rows) {
        const ZelFormat standard = MakeMode(kStandard);
        const ZelFormat technical = MakeMode(kTechnical);
        const int count = WithEveryHolder(row.number, [&](const auto& value) {
            EXPECT_EQ(Shown(value, &standard), row.standard);
            EXPECT_EQ(Shown(value, &technical), row.technical);
        });
        EXPECT_GT(count, 0) << row.number;
    }
}

TEST(ShownByModes, OfDoublesHasAnExponentWhereItIsShorter)
{
    const struct {
        double number;
        const char* standard;
        const char* technical;
    } rows[] = {
        {1e14, "100000000000000", "100000000000000"},
        {999999999999999.9, "999999999999999,9", "999999999999999.9"},
        {1e15, "1E+15", "1E+15"},
        {-1e15, "-1E+15", "-1E+15"},
        {1.5e15, "1,5E+15", "1.5E+15"},
        {1234567890123456.0, "1,234567890123456E+15", "1.234567890123456E+15"},
        {1e16, "1E+16", "1E+16"},
        {1e-5, "0,00001", "0.00001"},
        {1.25e-5, "0,0000125", "0.0000125"},
        {9.9e-6, "9,9E-06", "9.9E-06"},
        {-1e-6, "-1E-06", "-1E-06"},
        {1e99, "1E+99", "1E+99"},
        {1e100, "1E+100", "1E+100"},
        {-1.25e-100, "-1,25E-100", "-1.25E-100"},
        {1e308, "1E+308", "1E+308"},
        {1.7976931348623157e308, "1,7976931348623157E+308", "1.7976931348623157E+308"},
        {2.2250738585072014e-308, "2,2250738585072014E-308", "2.2250738585072014E-308"},
        {5e-324, "5E-324", "5E-324"},
        {0.1 + 0.2, "0,30000000000000004", "0.30000000000000004"},
        {1.0 / 3, "0,3333333333333333", "0.3333333333333333"},
        {9007199254740993.0, "9,007199254740992E+15", "9.007199254740992E+15"},
        {5.684341886080802e-14, "5,684341886080802E-14", "5.684341886080802E-14"},
    };
    const ZelFormat standard = MakeMode(kStandard);
    const ZelFormat technical = MakeMode(kTechnical);
    for (const auto& row : rows) {
        EXPECT_EQ(Shown(ZelDtDouble(row.number), &standard), row.standard);
        EXPECT_EQ(Shown(ZelDtDouble(row.number), nullptr), row.standard);
        EXPECT_EQ(Shown(ZelDtDouble(row.number), &technical), row.technical);
    }
}

// What only one class has

TEST(ShownDoubles, BeyondEveryPlaceAreWrittenOutByNumericFormats)
{
    const std::string zeros(308, '0');
    const std::string tiny(323, '0');
    const auto show = [](double number, const Shape& shape) {
        const ZelFormat format = Make(shape);
        return Shown(ZelDtDouble(number), &format);
    };
    EXPECT_EQ(show(1e15, {.decimals = 0}), "1000000000000000");
    EXPECT_EQ(show(1e15, {.decimals = 2, .groupSeparator = 1}), "1.000.000.000.000.000,00");
    EXPECT_EQ(show(1e-5, {.decimals = kAll}), "0,00001");
    EXPECT_EQ(show(1e-5, {.decimals = 2}), "0,00");
    EXPECT_EQ(show(1e-5, {.decimals = 5}), "0,00001");
    EXPECT_EQ(show(1e-5, {.decimals = 4}), "0,0000");
    EXPECT_EQ(show(5e-5, {.decimals = 4}), "0,0001");
    EXPECT_EQ(show(1e308, {.decimals = 0}), "1" + zeros);
    EXPECT_EQ(show(-1e308, {.decimals = 2}), "-1" + zeros + ",00");
    EXPECT_EQ(show(1e308, {.places = 309}), "1" + zeros);
    EXPECT_EQ(show(1e308, {.places = 308}), "<20>");
    EXPECT_EQ(show(5e-324, {.decimals = kAll}), "0," + tiny + "5");
    EXPECT_EQ(show(5e-324, {.decimals = 323}), "0," + tiny.substr(1) + "1");
    EXPECT_EQ(show(4e-323, {.decimals = 322}), "0," + tiny.substr(1));
    EXPECT_EQ(show(-5e-323, {.decimals = 322}), "-0," + tiny.substr(2) + "1");
    EXPECT_EQ(show(5e-324, {.decimals = 2}), "0,00");
    EXPECT_EQ(show(2.5e-308, {.decimals = kAll}), "0," + tiny.substr(0, 307) + "25");
}

TEST(ShownDoubles, ThatAreNoNumbersAreRefused)
{
    const ZelFormat money = Make({.decimals = 2});
    const ZelFormat all = Make({.decimals = kAll});
    const ZelFormat standard = MakeMode(kStandard);
    const ZelFormat technical = MakeMode(kTechnical);
    using Limits = std::numeric_limits<double>;
    for (const double number :
         {Limits::quiet_NaN(), -Limits::quiet_NaN(), Limits::infinity(), -Limits::infinity()}) {
        const ZelDtDouble value(number);
        for (const ZelFormat* format :
             {&money, &all, &standard, &technical, static_cast<const ZelFormat*>(nullptr)}) {
            const Caught caught = Catch([&] { value.ConvToOFL(format); });
            EXPECT_TRUE(Matches(caught, ShowError<ZelDtDouble>(),
                                FormatError(8, Facts<ZelDtDouble>::kFormatShow)));
        }
    }
}

TEST(ShownDecimals, KeepAllTheirDigits)
{
    ExpectShown({
        {{.decimals = kAll}, "1.234567890123456789012345678", "1,234567890123456789012345678"},
        {{.decimals = 27}, "1.234567890123456789012345678", "1,234567890123456789012345678"},
        {{.decimals = 26}, "1.234567890123456789012345675", "1,23456789012345678901234568"},
        {{.decimals = 26}, "1.234567890123456789012345674", "1,23456789012345678901234567"},
        {{.decimals = kAll}, "-0.000000000000000000000000001", "-0,000000000000000000000000001"},
        {{.decimals = 26}, "-0.000000000000000000000000001", "0,00000000000000000000000000"},
        {{.decimals = 28, .fillRight = 1, .rightChar = '*'},
         "-0.000000000000000000000000001",
         "-0,000000000000000000000000001*"},
        {{.decimals = 2, .groupSeparator = 3, .sign = 2},
         "-9999999999999999999999999999",
         "9 999 999 999 999 999 999 999 999 999,00-"},
        {{.decimals = 0}, "999999999999999999999999999.5", "1000000000000000000000000000"},
        {{.decimals = 0}, "-12345678901234567890123456.49", "-12345678901234567890123456"},
    });
}

// All settings together

TEST(ShownByEverySetting, IsAsOnPaper)
{
    const std::vector<std::string> numbers = {"0",     "-7",     "12345", "-1234567.891",
                                              "2.675", "-0.005", "1.50"};
    // Without places there is nothing to fill on the left.
    const auto lefts = [](unsigned long places) {
        return places == 0 ? std::string("\0*", 2)
                           : std::string("\0"
                                         "0 *",
                                         4);
    };
    std::size_t shown = 0;
    const auto check = [&](const Shape& shape) {
        const ZelFormat format = Make(shape);
        for (const std::string& number : numbers)
            WithEveryHolder(number, [&](const auto& value) {
                ++shown;
                EXPECT_EQ(Shown(value, &format), ShownOnPaper(shape, FromPlain(number))) << shape;
            });
        return !::testing::Test::HasFailure();
    };
    for (const int decimalSeparator : {0, 1, 3})
        for (const int groupSeparator : {0, 1, 2, 3, 4})
            for (const int sign : {0, 1, 2})
                for (const int whichSign : {0, 1})
                    for (const unsigned long decimals : {0UL, 2UL, 5UL, kAll})
                        for (const unsigned long places : {0UL, 12UL})
                            for (const char left : lefts(places))
                                for (const char right : {'\0', '0', ' ', '*'})
                                    ASSERT_TRUE(check({places, decimals, decimalSeparator,
                                                       groupSeparator, sign, whichSign, left != 0,
                                                       left, right != 0, right}));
    EXPECT_GT(shown, 100000u);
}

} // namespace
