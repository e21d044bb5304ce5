/// What the number classes read from typed texts, and what they refuse, by every setting of the
/// numeric formats.

#include "tests/display/numbers_typed_testing.h"

#include <string>
#include <vector>

namespace {

using namespace numbers_testing;

TEST(TypedSeparators, CommaForDecimals)
{
    for (const int groups : {0, 1}) {
        const Shape shape{.decimals = 2, .groupSeparator = groups};
        for (const auto* rows : {&kPlain, &kSigned, &kLimits, &kPointGroups, &kNoPointGroups,
                                 &kCommaFractions, &kNoNumbers})
            ExpectTyped(shape, *rows);
        ExpectTyped(shape, {
                               Fraction("1.234.567,89", "1234567.89"),
                               Fraction("1.234.567,89-", "-1234567.89"),
                               Fraction("1.234.567,8", "1234567.8"),
                               Fraction("1234567,89", "1234567.89"),
                               Same("5,00", "5.00"),
                               Same("-5,0", "-5.0"),
                               Same("1.234,00", "1234.00"),
                               Fraction("5,50", "5.50"),
                               // More decimals than the format has.
                               Wrong("5,500"),
                               Wrong("5,000"),
                               Wrong("0,005"),
                               Wrong("1,234,567.89"),
                               Wrong("1 234,5"),
                               Wrong("1'234,5"),
                           });
    }
}

TEST(TypedSeparators, AreNoneInWholeNumbersWithAllDecimals)
{
    ExpectTyped({.decimals = kAll}, {Same("5", "5"), Same("1.234", "1234"), Fraction("5,0", "5.0"),
                                     Fraction("-1.234,50", "-1234.50"), Wrong("5,")});
}

TEST(TypedSeparators, PointForDecimals)
{
    for (const int groups : {0, 2}) {
        const Shape shape{.decimals = 3, .decimalSeparator = 1, .groupSeparator = groups};
        for (const auto* rows : {&kPlain, &kSigned, &kLimits})
            ExpectTyped(shape, *rows);
        ExpectTyped(shape, {
                               Fraction("1.5", "1.5"),
                               Fraction("1.234", "1.234"),
                               Fraction("-1.234", "-1.234"),
                               Fraction("0.005-", "-0.005"),
                               Same("5.000", "5.000"),
                               Wrong("1.2345"),
                               Wrong("1.234.567"),
                               Wrong("1.5.5"),
                               Wrong(".5"),
                               Wrong("5."),
                               Wrong("1,5"),
                               Wrong("1.234,5"),
                               Wrong("1,23"),
                               Wrong("12,34,567"),
                               Wrong(",123"),
                           });
    }
    // Without groups a point that separates decimals leaves nothing that could separate groups.
    ExpectTyped({.decimals = 3, .decimalSeparator = 1},
                {Wrong("1,234"), Wrong("1,234.5"), Wrong("1,234,567")});
    ExpectTyped({.decimals = 3, .decimalSeparator = 1, .groupSeparator = 2},
                {Same("1,234", "1234"), Fraction("1,234.5", "1234.5"),
                 Fraction("-1,234,567.891", "-1234567.891"), Wrong("1,2345.5"), Wrong("0,123")});
}

TEST(TypedSeparators, NoneForDecimals)
{
    for (const int groups : {0, 1})
        ExpectTyped({.decimals = 2, .decimalSeparator = 3, .groupSeparator = groups},
                    {
                        Fraction("123456", "1234.56"),
                        Fraction("-123456", "-1234.56"),
                        Fraction("123456-", "-1234.56"),
                        Fraction("005", "0.05"),
                        Fraction("050", "0.50"),
                        Fraction("-005", "-0.05"),
                        Same("000", "0.00"),
                        Same("500", "5.00"),
                        Same("-00500", "-5.00"),
                        Fraction("1.23456", "1234.56"),
                        Same("1.23400", "1234.00"),
                        Same("1.234.56700", "1234567.00"),
                        // Decimals alone are no number.
                        Wrong("5"),
                        Wrong("05"),
                        Wrong("-05"),
                        Wrong("5,00"),
                        Wrong("5.00"),
                        Wrong("1.234"),
                        Wrong("1.23"),
                        Wrong("1.2345"),
                        Wrong("1.234.567"),
                    });
    for (const unsigned long decimals : {0UL, kAll})
        ExpectTyped({.decimals = decimals, .decimalSeparator = 3},
                    {Same("5", "5"), Same("500", "500"), Same("1.234", "1234"), Wrong("5,0"),
                     Wrong("1,5"), Wrong("1.5")});
}

TEST(TypedSeparators, OfGroupsAreThoseOfTheFormat)
{
    const auto shape = [](int groups, int decimalSeparator = 0) {
        return Shape{.decimals = 2, .decimalSeparator = decimalSeparator, .groupSeparator = groups};
    };
    ExpectTyped(shape(3), {Same("1 234", "1234"), Fraction("-1 234 567,89", "-1234567.89"),
                           Same("1234", "1234"), Same(" 1 234 ", "1234"), Wrong("1  234"),
                           Wrong("1 23"), Wrong("1 2345"), Wrong("1234 567"), Wrong("1\t234"),
                           Wrong("1.234"), Wrong("1'234"), Wrong("1 234 ,5"), Wrong("1 234.567"),
                           Wrong("1\xA0"
                                 "234"),
                           Wrong("- 1 234"), Wrong("1 234 -")});
    ExpectTyped(shape(4), {Same("1'234", "1234"), Fraction("-1'234'567,89", "-1234567.89"),
                           Same("1234", "1234"), Wrong("'123"), Wrong("123'"), Wrong("1''234"),
                           Wrong("12'34"), Wrong("1.234"), Wrong("1 234"), Wrong("1'234.567"),
                           Wrong("1\x92"
                                 "234"),
                           Wrong("1\xB4"
                                 "234"),
                           Wrong("1`234")});
    ExpectTyped(shape(2, 3), {Fraction("1,23456", "1234.56"), Same("123400", "1234.00"),
                              Wrong("1.23456"), Wrong("1,234"), Wrong("1,2345")});
    ExpectTyped(shape(3, 1), {Same("1 234", "1234"), Fraction("1 234.5", "1234.5"), Wrong("1.234"),
                              Wrong("1,234")});
    ExpectTyped(shape(4, 3), {Fraction("1'23456", "1234.56"), Wrong("1'2345")});
}

TEST(TypedSigns, AreTakenInFrontAndBehindWhereThereIsASignPlace)
{
    for (const int sign : {1, 2})
        for (const int which : {0, 1}) {
            const Shape shape{.decimals = 2, .sign = sign, .whichSign = which};
            ExpectTyped(shape, kSigned);
            ExpectTyped(shape, kNoNumbers);
        }
}

TEST(TypedSigns, AreRefusedWhereThereIsNone)
{
    for (const int which : {0, 1}) {
        const Shape shape{.decimals = 2, .sign = 0, .whichSign = which};
        ExpectTyped(shape, kPlain);
        ExpectTyped(shape, {Same("-5", "<20>"), Same("5-", "<20>"), Same("-5,00", "<20>"),
                            Same(" -5 ", "<20>"), Same("-1.234", "<20>"), Wrong("+5"), Wrong("5+"),
                            Wrong("--5"), Wrong("-5-"), Wrong("-x"), Wrong("-")});
    }
}

TEST(TypedPlaces, MustHoldTheNumberAsTheFormatShowsIt)
{
    ExpectTyped({.places = 4},
                {Same("1234", "1234"), Same("-123", "-123"), Same("123-", "-123"),
                 Same("+1234", "1234"), Same("00001234", "1234"), Same("1.234", "1234"),
                 Same("   1234   ", "1234"), Same("12345", "<11>"), Same("-1234", "<11>"),
                 Same("1234-", "<11>"), Same("12.345", "<11>"), Same("9999", "9999"),
                 Wrong("12345x"), Wrong("1..234.567")});
    ExpectTyped({.places = 5, .groupSeparator = 1},
                {Same("1234", "1234"), Same("1.234", "1234"), Same("-999", "-999"),
                 Same("-1234", "<11>"), Same("12345", "<11>"), Same("12.345", "<11>")});
    ExpectTyped({.places = 5, .decimals = 2}, {Same("12", "12"),
                                               Fraction("12,5", "12.5"),
                                               Fraction("-1,5", "-1.5"),
                                               Same("123", "<11>"),
                                               Same("-12", "<11>"),
                                               {"123,5", "<21>", "<11>"}});
    ExpectTyped({.places = 5, .decimals = 2, .decimalSeparator = 3},
                {Fraction("12345", "123.45"), Same("00012300", "123.00"), Same("123400", "<11>"),
                 Same("-12300", "<11>")});
    ExpectTyped({.places = 3, .whichSign = 1},
                {Same("12", "12"), Same("+12", "12"), Same("-12", "-12"), Same("123", "<11>"),
                 Same("0000", "0")});
    ExpectTyped({.places = 1, .decimals = 2}, {Same("0", "<11>"), Same("5", "<11>")});
    // The written decimals of a decimal stay; a double has its fewest digits.
    const ZelFormat narrow = Make({.places = 5, .decimals = kAll});
    ExpectTyped<ZelDtDecimal>(&narrow, {"1,250", "", "1.250"});
    ExpectTyped<ZelDtDecimal>(&narrow, {"1,2500", "", "<11>"});
    ExpectTyped<ZelDtDouble>(&narrow, {"1,2500", "", "1.25"});
    ExpectTyped<ZelDtDouble>(&narrow, {"1,2525", "", "<11>"});
}

TEST(TypedFill, IsPassedOverWhereTheFormatPutsIt)
{
    const auto left = [](char fill, int sign = 1) {
        return Shape{.places = 8, .sign = sign, .fillLeft = 1, .leftChar = fill};
    };
    for (const int sign : {1, 2})
        ExpectTyped(left('*', sign),
                    {Same("******12", "12"), Same("*****-12", "-12"), Same("*****12-", "-12"),
                     Same("*12", "12"), Same("12", "12"), Same("-12", "-12"), Same(" *12 ", "12"),
                     Same("********0", "0"), Wrong("*"), Wrong("********"), Wrong("-*****12"),
                     Wrong("12*"), Wrong("*-*12"), Wrong("* 12"), Wrong("1*2"), Wrong("*-"),
                     Wrong("x12")});
    ExpectTyped(left(' '), {Same("      12", "12"), Same("     -12", "-12"), Same("12", "12"),
                            Same("12      ", "12"), Wrong("-     12"), Wrong("        ")});
    ExpectTyped(left('0'), {Same("00000012", "12"), Same("-0000012", "-12"), Same("00000000", "0"),
                            Same("12", "12"), Wrong("0000-012")});
    ExpectTyped({.places = 8, .groupSeparator = 1, .fillLeft = 1, .leftChar = '0'},
                {Same("0001.234", "1234"), Same("0012.345", "12345"), Same("-001.234", "-1234"),
                 Same("1.234", "1234"), Same("00001234", "1234"), Wrong("0001.23"),
                 Wrong("00001.2345")});
    ExpectTyped({.places = 8, .fillLeft = 0, .leftChar = '*'}, {Wrong("*12"), Same("12", "12")});

    const auto right = [](char fill, int sign = 1) {
        return Shape{.decimals = 3, .sign = sign, .fillRight = 1, .rightChar = fill};
    };
    for (const int sign : {1, 2})
        ExpectTyped(right('*', sign),
                    {Same("5,***", "5"), Fraction("5,5**", "5.5"), Fraction("5,25*", "5.25"),
                     Fraction("5,125", "5.125"), Fraction("-5,5**", "-5.5"),
                     Fraction("5,5**-", "-5.5"), Same("5,***-", "-5"), Same("5", "5"),
                     Fraction("5,5", "5.5"), Wrong("5,*5*"), Wrong("***"), Wrong(",***"),
                     Wrong("5,5,"), Wrong("5,5,**"), Wrong("5,,**"), Wrong("*5"), Wrong("5,1255*"),
                     Wrong("5,5-**"), Wrong("-5,***-")});
    ExpectTyped(right(' ', 2), {Same("5,   ", "5"), Fraction("5,5  ", "5.5"),
                                Fraction("5,5  -", "-5.5"), Same("5,   -", "-5"), Same("5,", "5"),
                                Fraction("5,125-", "-5.125"), Wrong("5, 5"), Wrong(",   ")});
    ExpectTyped(right('0'),
                {Same("5,000", "5.000"), Fraction("5,500", "5.500"), Wrong("5,"), Wrong("5,0000")});
    ExpectTyped({.decimals = 3, .fillRight = 0, .rightChar = '*'}, {Wrong("5,***"), Wrong("5*")});
}

} // namespace
