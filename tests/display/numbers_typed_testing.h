#ifndef ZELDT_TESTS_DISPLAY_NUMBERS_TYPED_TESTING_H
#define ZELDT_TESTS_DISPLAY_NUMBERS_TYPED_TESTING_H

/// Typed texts and what the number classes make of them.

#include "tests/display/numbers_testing.h"

#include <string>
#include <vector>

namespace numbers_testing {

/// A typed text with what it is for the whole numbers and for the doubles and decimals: a plain
/// number, or the number of the first error in angle brackets.
struct Row {
    std::string text;
    std::string whole;
    std::string real;
};

/// The same number for all; decimals that only a decimal keeps are zeros.
inline Row Same(const std::string& text, const std::string& result)
{
    return {text, result.substr(0, result.find('.')), result};
}

inline Row Fraction(const std::string& text, const std::string& number)
{
    return {text, "<21>", number};
}

inline Row Wrong(const std::string& text)
{
    return Same(text, "<21>");
}

/// What a row says for the class. Whole numbers beyond its range are error 8.
template <typename Value>
std::string ResultOf(const Row& row)
{
    const std::string& result = kIsWhole<Value> ? row.whole : row.real;
    if (result.front() == '<')
        return result;
    return kIsWhole<Value> && !Holds<Value>(result) ? Refused(8) : Expected<Value>(result);
}

/// Reads the row in each of the states, once with the format passed and once with it as the own
/// one.
template <typename Value>
void ExpectTyped(const ZelFormat* format, const Row& row, const std::vector<State>& states)
{
    SCOPED_TRACE(std::string(Facts<Value>::kClass) + " reads [" + row.text.substr(0, 60) + "]");
    for (const State& state : states) {
        Value passed = Facts<Value>::Of("7");
        BringState(passed, state);
        EXPECT_EQ(Typed(passed, row.text.c_str(), format), ResultOf<Value>(row)) << state;
        Value own = Facts<Value>::Of("7");
        BringState(own, state);
        own.SetFormat(format);
        EXPECT_EQ(Typed(own, row.text.c_str(), nullptr), ResultOf<Value>(row)) << state;
    }
}

/// In one state of each mode; the class defaults are tested in all of them.
template <typename Value>
void ExpectTyped(const ZelFormat* format, const Row& row)
{
    static const std::vector<State> kStates = {
        {ZelDtWmMissing, 1, 0}, {ZelDtWmNull, 0, 0}, {ZelDtWmAlwaysDefined, 1, 1}};
    ExpectTyped<Value>(format, row, kStates);
}

inline void ExpectTyped(const ZelFormat& format, const std::vector<Row>& rows)
{
    for (const Row& row : rows) {
        ExpectTyped<ZelDtLong>(&format, row);
        ExpectTyped<ZelDtShort>(&format, row);
        ExpectTyped<ZelDtDouble>(&format, row);
        ExpectTyped<ZelDtDecimal>(&format, row);
    }
}

inline void ExpectTyped(const Shape& shape, const std::vector<Row>& rows)
{
    ::testing::Message message;
    message << shape;
    SCOPED_TRACE(message.GetString());
    ExpectTyped(Make(shape), rows);
}

/// Texts that no format takes for a number.
inline const std::vector<Row> kNoNumbers = {
    Wrong("x"),
    Wrong("5x"),
    Wrong("x5"),
    Wrong("5x5"),
    Wrong("-"),
    Wrong("+"),
    Wrong("--5"),
    Wrong("++5"),
    Wrong("+-5"),
    Wrong("-+5"),
    Wrong("-5-"),
    Wrong("+5+"),
    Wrong("-5+"),
    Wrong("+5-"),
    Wrong("5--"),
    Wrong("5+-"),
    Wrong("- 5"),
    Wrong("5 -"),
    Wrong("+\t5"),
    Wrong("5\t+"),
    Wrong("5 5"),
    Wrong("5\t5"),
    Wrong("5-5"),
    Wrong("1+1"),
    Wrong("5\n"),
    Wrong("\n5"),
    Wrong("5\r\n"),
    Wrong("\v5"),
    Wrong("5\f"),
    Wrong("\xA0"
          "5"),
    Wrong("5\xA0"),
    Wrong("0x10"),
    Wrong("nan"),
    Wrong("inf"),
    Wrong("Infinity"),
    Wrong("1_000"),
    Wrong("\xB2"),
    Wrong("\xBD"),
    Wrong("\x80"
          "5"),
    Wrong("5\x80"),
    Wrong("5%"),
    Wrong("(5)"),
    Wrong("#5"),
    Wrong("."),
    Wrong(","),
    Wrong("-."),
    Wrong("-,"),
    Wrong("..5"),
    Wrong("5.."),
    Wrong(",,5"),
    Wrong("5,,"),
    Wrong("1..2"),
    Wrong("1,,2"),
    Wrong("1..234"),
    Wrong("1.,2"),
    Wrong("1,.2"),
    Wrong(".5"),
    Wrong("5."),
    Wrong(",5"),
    Wrong("5,"),
    Wrong("-.5"),
    Wrong("-,5"),
    Wrong("5.-"),
    Wrong("5,-"),
    Wrong("-5."),
    Wrong("E5"),
    Wrong("5E"),
    Wrong("5E+"),
    Wrong("5E-"),
    Wrong("5E,5"),
    Wrong("5 E5"),
    Wrong("5E 5"),
    Wrong("5E5E5"),
    Wrong("5E5,5"),
    Wrong("5E5.5"),
    Wrong("5E+-5"),
    Wrong("5-E5"),
    Wrong("5,E5"),
    Wrong("-E5"),
    Wrong("5D5"),
    Wrong(" "),
    Wrong("\t"),
    Wrong("   "),
    Wrong(" \t \t "),
    Wrong("\xA0"),
    Wrong("\n"),
    Wrong("NULL"),
    Wrong("Ja"),
    Wrong("1;5"),
    Wrong("1:30"),
    Wrong("01.01.2000"),
};

/// Whole numbers with and without a sign, blanks around them.
inline const std::vector<Row> kPlain = {
    Same("0", "0"),          Same("7", "7"),   Same("5", "5"),         Same("12", "12"),
    Same("00012", "12"),     Same("000", "0"), Same("12345", "12345"), Same("32767", "32767"),
    Same("32768", "32768"),  Same(" 5", "5"),  Same("5 ", "5"),        Same("\t5\t", "5"),
    Same("  \t 5 \t ", "5"),
};

inline const std::vector<Row> kSigned = {
    Same("-5", "-5"),         Same("+5", "5"),          Same("5-", "-5"),
    Same("5+", "5"),          Same("-0", "0"),          Same("0-", "0"),
    Same("+0", "0"),          Same("-000", "0"),        Same(" -5 ", "-5"),
    Same("\t5-\t", "-5"),     Same("-0005", "-5"),      Same("0005-", "-5"),
    Same("-32768", "-32768"), Same("32768-", "-32768"), Same("-32769", "-32769"),
};

inline const std::vector<Row> kLimits = {
    Same("2147483647", "2147483647"),
    Same("-2147483648", "-2147483648"),
    Same("2147483648", "2147483648"),
    Same("-2147483649", "-2147483649"),
    Same("2147483648-", "-2147483648"),
    Same("4294967296", "4294967296"),
    Same("65536", "65536"),
    Same("99999999999", "99999999999"),
};

inline const std::vector<Row> kPointGroups = {
    Same("1.234", "1234"),
    Same("12.345", "12345"),
    Same("123.456", "123456"),
    Same("1.234.567", "1234567"),
    Same("12.345.678", "12345678"),
    Same("-1.234", "-1234"),
    Same("1.234-", "-1234"),
    Same("+1.234.567", "1234567"),
    Same(" 1.234 ", "1234"),
    Same("2.147.483.647", "2147483647"),
    Same("-2.147.483.648", "-2147483648"),
    Same("2.147.483.648", "2147483648"),
    Same("1.000.000.000.000", "1000000000000"),
};

inline const std::vector<Row> kNoPointGroups = {
    Wrong("1.2"),       Wrong("1.23"),       Wrong("1.2345"),   Wrong("12.34"),
    Wrong("12.34.567"), Wrong("1.23.456"),   Wrong("1.2.3"),    Wrong("1234.567"),
    Wrong("1.234567"),  Wrong("1234.56"),    Wrong("1.234.56"), Wrong("1.234.5678"),
    Wrong(".123"),      Wrong(".123.456"),   Wrong("123."),     Wrong("1.234."),
    Wrong("1.234.."),   Wrong("1..234.567"), Wrong("-.123"),    Wrong("1.-234"),
    Wrong("1. 234"),    Wrong("1 .234"),     Wrong("0.123"),    Wrong("00.123"),
    Wrong("012.345"),   Wrong("0.000"),      Wrong("000.001"),
};

inline const std::vector<Row> kCommaFractions = {
    Fraction("0,5", "0.5"),     Fraction("1,5", "1.5"),  Fraction("-1,5", "-1.5"),
    Fraction("1,5-", "-1.5"),   Fraction("+1,5", "1.5"), Fraction("1,5+", "1.5"),
    Fraction(" 1,5 ", "1.5"),   Fraction("01,5", "1.5"), Fraction("1234567,89", "1234567.89"),
    Fraction("-0,05", "-0.05"),
};

} // namespace numbers_testing

#endif
