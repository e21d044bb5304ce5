/// Conversions of random numbers against the model: whole numbers, texts, doubles.

#include "operands.h"

#include <bit>
#include <cmath>
#include <iomanip>
#include <sstream>
#include <string>
#include <vector>

namespace {

using namespace zeltest;

/// Any double of all that there are, or one with few digits.
double DrawDouble(Operands& operands)
{
    switch (operands.DrawInt(0, 5)) {
    case 0:
        return std::bit_cast<double>(operands.DrawBits());
    case 1: // around the limits of a result
        return std::ldexp(static_cast<double>(operands.DrawInt(1LL << 52, 1LL << 53)),
                          static_cast<int>(operands.DrawInt(-150, 42)));
    case 2: // money
        return static_cast<double>(operands.DrawInt(-100'000'000, 100'000'000)) / 100;
    case 3: // whole
        return static_cast<double>(operands.DrawInt(INT64_MIN / 2, INT64_MAX / 2));
    case 4: // a power of two, where the distances to the neighbours differ
        return std::ldexp(1.0, static_cast<int>(operands.DrawInt(-100, 95)));
    default: // what a decimal number reads as
        return model::ToDouble(operands.DrawOne());
    }
}

std::string Exactly(double number)
{
    std::ostringstream os;
    os << std::setprecision(17) << number;
    return os.str();
}

/// A text as people and programs write numbers, or nearly so.
std::string DrawText(Operands& operands)
{
    std::string text = operands.DrawOne().Text();
    const auto position = [&](std::size_t slack) {
        return static_cast<std::size_t>(
            operands.DrawInt(0, static_cast<std::int64_t>(text.size() + slack) - 1));
    };
    switch (operands.DrawInt(0, 9)) {
    case 0:
        return text[0] == '-' ? text : '+' + text;
    case 1: // without the zero before the point
        return text.starts_with("0.") ? text.substr(1) : text;
    case 2:
        return text.find('.') == std::string::npos ? text + '.' : text + '0';
    case 3: // with leading zeros
        return text[0] == '-' ? "-000" + text.substr(1) : "0000" + text;
    case 4: { // something put in
        static const std::string kCharacters = ".-+ ,eE0x\t/:";
        const auto which = operands.DrawInt(0, static_cast<std::int64_t>(kCharacters.size()) - 1);
        return text.insert(position(1), 1, kCharacters[static_cast<std::size_t>(which)]);
    }
    case 5: // cut off
        return text.substr(0, position(1));
    default:
        return text;
    }
}

} // namespace

TEST(RandomConversions, WholeNumbers)
{
    Operands operands(11);
    for (std::size_t i = 0; i < CaseCount() && !HasFailure(); ++i) {
        const Decimal number = operands.DrawOne();
        const RawDecimal engineNumber(number);
        for (const Rounding method : kMethods)
            EXPECT_EQ(toInt(engineNumber, EngineMethod(method)), model::ToInt(number, method))
                << number << ", method " << EngineMethod(method);
    }
}

TEST(RandomConversions, Printing)
{
    Operands operands(12);
    for (std::size_t i = 0; i < CaseCount() && !HasFailure(); ++i) {
        const Decimal number = operands.DrawOne();
        const RawDecimal engineNumber(number);
        const std::string expected = number.Text();
        EXPECT_EQ(TextOf(engineNumber), expected) << number;

        std::string buffer(expected.size() + 2, '#');
        EXPECT_EQ(engineNumber.print(buffer.data(), expected.size() + 1), expected.size())
            << number;
        EXPECT_EQ(buffer, expected + '\0' + '#') << number;
    }
}

TEST(RandomConversions, Parsing)
{
    Operands operands(13);
    const CountedHandlers handlers;
    for (std::size_t i = 0; i < CaseCount() && !HasFailure(); ++i) {
        const std::string text = DrawText(operands);
        EXPECT_EQ(OutcomeOf([&] { return RWDecimal96(text.c_str()); }), model::Parse(text).Show())
            << '"' << text << '"';
    }
}

/// Every number of digits with every number of places, printed and read again: in the text's own
/// memory, without its zero before the point, and with a sign.
TEST(RandomConversions, TextsOfEveryShape)
{
    Operands operands(18);
    const CountedHandlers handlers;
    const auto expectRead = [](const std::string& text) {
        const std::vector<char> bytes(text.begin(), text.end());
        EXPECT_EQ(OutcomeOf([&] { return RWDecimal96(bytes.data(), bytes.size()); }),
                  model::Parse(text).Show())
            << '"' << text << '"';
    };
    const int repetitions = RunsLong() ? 400 : 40;
    for (std::size_t digits = 1; digits <= 28; ++digits) {
        for (std::int64_t places = 0; places <= 36; ++places) {
            for (int i = 0; i < repetitions && !HasFailure(); ++i) {
                std::string mantissa;
                for (std::size_t at = 0; at < digits; ++at)
                    mantissa.push_back(static_cast<char>('0' + operands.DrawInt(0, 9)));
                const BigNatural magnitude = BigNatural::FromDigits(mantissa);
                const bool isNegative = operands.DrawInt(0, 1) == 1 && !magnitude.IsZero();
                const Decimal number = {isNegative, magnitude, places};
                const std::string text = number.Text();
                EXPECT_EQ(TextOf(RawDecimal(number)), text);
                expectRead(text);
                expectRead(isNegative ? "-0" + text.substr(1) : '+' + text);
                if (text.starts_with("0."))
                    expectRead(text.substr(1));
            }
        }
    }
}

TEST(RandomConversions, ToDouble)
{
    Operands operands(14);
    for (std::size_t i = 0; i < CaseCount() && !HasFailure(); ++i) {
        const Decimal number = operands.DrawOne();
        const double expected = model::ToDouble(number);
        EXPECT_EQ(toDouble(RawDecimal(number)), static_cast<long double>(expected)) << number;
    }
}

/// Numbers in the middle between two doubles, and next to it.
TEST(RandomConversions, TiesToDouble)
{
    Operands operands(15);
    for (std::size_t i = 0; i < CaseCount() && !HasFailure(); ++i) {
        const auto odd =
            static_cast<std::uint64_t>(operands.DrawInt(1LL << 53, (1LL << 54) - 1)) | 1;
        // Halves are decimal numbers: odd / 2^n = odd * 5^n / 10^n.
        const std::int64_t halvings = operands.DrawInt(0, 16);
        BigNatural mantissa = odd;
        for (std::int64_t n = 0; n < halvings; ++n)
            mantissa = mantissa * 5;
        if (halvings == 0)
            mantissa = mantissa *
                       BigNatural::PowerOfTwo(static_cast<std::size_t>(operands.DrawInt(0, 38)));
        const auto offset = operands.DrawInt(-1, 1);
        mantissa = offset < 0 ? mantissa - 1 : mantissa + static_cast<std::uint64_t>(offset);
        const Decimal number = {operands.DrawInt(0, 1) == 1, mantissa, halvings};
        EXPECT_EQ(toDouble(RawDecimal(number)), static_cast<long double>(model::ToDouble(number)))
            << number;
    }
}

TEST(RandomConversions, FromDouble)
{
    Operands operands(16);
    const CountedHandlers handlers;
    for (std::size_t i = 0; i < CaseCount() && !HasFailure(); ++i) {
        const double number = DrawDouble(operands);
        EXPECT_EQ(OutcomeOf([&] { return RWDecimal96::from(number); }),
                  model::FromDouble(number).Show())
            << Exactly(number);
    }
}

/// A double of at most 15 digits that needs no rounding comes back.
TEST(RandomConversions, DoublesComeBack)
{
    Operands operands(17);
    for (std::size_t i = 0; i < CaseCount() && !HasFailure(); ++i) {
        const double number =
            std::ldexp(static_cast<double>(operands.DrawInt(-(1LL << 53), 1LL << 53)),
                       static_cast<int>(operands.DrawInt(-20, 20)));
        EXPECT_EQ(toDouble(RWDecimal96::from(number)), static_cast<long double>(number))
            << Exactly(number);
    }
}
