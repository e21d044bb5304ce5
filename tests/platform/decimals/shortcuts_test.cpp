/// The quick ways against the model, at the limits where they begin and end: mantissas of 64 bits,
/// sums of 128, quotients in chunks and at once, texts read and printed in words.

#include "operands.h"

#include "tests/support/module_loader.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <memory>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace zeltest;

using EngineOperation = RWDecimal96 (*)(const RWDecimal96&, const RWDecimal96&);
using ModelOperation = model::Result (*)(const Decimal&, const Decimal&);

constexpr std::pair<EngineOperation, ModelOperation> kOperations[] = {
    {[](const RWDecimal96& a, const RWDecimal96& b) { return a + b; }, model::Add},
    {[](const RWDecimal96& a, const RWDecimal96& b) { return a - b; }, model::Subtract},
    {[](const RWDecimal96& a, const RWDecimal96& b) { return a * b; }, model::Multiply},
    {[](const RWDecimal96& a, const RWDecimal96& b) { return a / b; }, model::Divide},
};

std::string Show(const Decimal& a, const Decimal& b)
{
    std::ostringstream os;
    os << a << " and " << b;
    return os.str();
}

void CheckAll(const Decimal& a, const Decimal& b)
{
    const CountedHandlers handlers;
    const RawDecimal left(a);
    const RawDecimal right(b);
    SCOPED_TRACE(Show(a, b));
    for (const auto& operation : kOperations)
        EXPECT_EQ(OutcomeOf([&] { return operation.first(left, right); }),
                  operation.second(a, b).Show());
    ExpectOrder(left, right, model::Compare(a, b));
}

/// Both sides of every limit: of words, of digits, of what has room in sums.
std::vector<BigNatural> LimitMantissas()
{
    std::vector<BigNatural> mantissas = {0, 1, 9};
    for (const std::size_t bits : {31U, 32U, 62U, 63U, 64U, 67U, 94U, 95U}) {
        const BigNatural power = BigNatural::PowerOfTwo(bits);
        mantissas.push_back(power - 1);
        if (bits < 95)
            mantissas.insert(mantissas.end(), {power, power + 1});
    }
    for (const std::size_t zeros : {9U, 18U, 19U, 27U, 28U}) {
        const BigNatural power = BigNatural::PowerOfTen(zeros);
        mantissas.insert(mantissas.end(), {power - 1, power});
    }
    return mantissas;
}

TEST(DecimalShortcuts, ComputeAtTheLimitsOfMantissas)
{
    constexpr std::int64_t kPlaces[][2] = {{0, 0},  {2, 2},  {0, 10},  {9, 0},   {0, 18},  {18, 0},
                                           {0, 19}, {27, 0}, {13, 14}, {14, 14}, {27, 27}, {-1, 3}};
    const std::vector<BigNatural> mantissas = LimitMantissas();
    for (const BigNatural& a : mantissas) {
        for (const BigNatural& b : mantissas) {
            for (const auto& places : kPlaces) {
                CheckAll({false, a, places[0]}, {false, b, places[1]});
                CheckAll({!a.IsZero(), a, places[0]}, {false, b, places[1]});
                if (HasFailure())
                    return;
            }
        }
    }
}

/// The quick ways look at the upper word of a result alone, which many below the greatest share.
TEST(DecimalShortcuts, ComputeJustBelowTheGreatestMantissa)
{
    const BigNatural end = BigNatural::PowerOfTen(28);
    // The lowest with that upper word: 542101086 * 2^64.
    const BigNatural edge = BigNatural::FromDigits("9999999995522011979606654976");
    std::vector<BigNatural> mantissas;
    for (const std::uint64_t distance : {1U, 2U, 3U, 1000U}) {
        mantissas.insert(mantissas.end(), {end - distance, edge - distance, edge + (distance - 1)});
    }
    // What is added is smaller than a unit, factors and divisors are near 1.
    std::vector<Decimal> others = {{false, 1000000001, 9},
                                   {false, 999999999, 9},
                                   {false, BigNatural::PowerOfTen(19) + 1, 19},
                                   {false, BigNatural::PowerOfTen(27) - 1, 27},
                                   {false, BigNatural::PowerOfTen(27) + 1, 27},
                                   {false, BigNatural::PowerOfTen(20), 20}};
    for (const std::int64_t places : {0, 5, 13}) {
        for (const std::uint64_t tail : {1U, 4U, 5U, 6U, 9U})
            others.push_back({false, tail, places + 1});
        for (const std::uint64_t tail : {49U, 50U, 51U, 99U})
            others.push_back({false, tail, places + 2});
        for (const BigNatural& mantissa : mantissas) {
            for (const Decimal& other : others) {
                CheckAll({false, mantissa, places}, other);
                CheckAll({true, mantissa, places}, other);
                CheckAll(other, {false, mantissa, places});
            }
            if (HasFailure())
                return;
        }
    }
}

/// Random mantissas with so many digits, around the lengths at which ways part.
TEST(DecimalShortcuts, ComputeWithEveryNumberOfDigits)
{
    Operands operands(41);
    const auto draw = [&operands](std::size_t digits) {
        std::string text;
        for (std::size_t i = 0; i < digits; ++i)
            text.push_back(static_cast<char>('0' + operands.DrawInt(i == 0 ? 1 : 0, 9)));
        return Decimal{operands.DrawInt(0, 1) == 1, BigNatural::FromDigits(text),
                       operands.DrawInt(0, 27)};
    };
    for (std::size_t i = 1; i <= 28; ++i) {
        for (std::size_t j = 1; j <= 28; ++j) {
            for (int k = 0; k < (RunsLong() ? 500 : 12); ++k)
                CheckAll(draw(i), draw(j));
            if (HasFailure())
                return;
        }
    }
}

/// The text lies at the very end of its memory.
Outcome Read(const std::string& text)
{
    const std::unique_ptr<char[]> bytes(new char[text.size()]);
    std::copy(text.begin(), text.end(), bytes.get());
    return OutcomeOf([&] { return RWDecimal96(bytes.get(), text.size()); });
}

std::string DigitsOfLength(std::size_t length, char first)
{
    std::string digits;
    for (std::size_t i = 0; i < length; ++i)
        digits.push_back(
            static_cast<char>('0' + (static_cast<std::size_t>(first - '0') + 7 * i) % 10));
    return digits;
}

TEST(DecimalShortcuts, ReadPointsAnywhereInTextsOfEveryLength)
{
    const CountedHandlers handlers;
    for (std::size_t length = 0; length <= 40; ++length) {
        for (const char first : {'0', '3', '9'}) {
            const std::string digits = DigitsOfLength(length, first);
            for (const char* const sign : {"", "-", "+"}) {
                EXPECT_EQ(Read(sign + digits), model::Parse(sign + digits).Show());
                for (std::size_t point = 0; point <= length; ++point) {
                    std::string text = digits;
                    text.insert(point, 1, '.');
                    EXPECT_EQ(Read(sign + text), model::Parse(sign + text).Show()) << text;
                }
            }
        }
    }
}

TEST(DecimalShortcuts, ReadNothingElseThanDigitsAndOnePoint)
{
    const CountedHandlers handlers;
    constexpr char kStrange[] = {'/',    ':',    '-',    '+',    ' ',    ',',    '\0',  'p',
                                 '\x1E', '\x10', '\x8A', '\xB0', '\xBA', '\xFA', '\xFF'};
    for (std::size_t length = 1; length <= 36; ++length) {
        for (std::size_t at = 0; at < length; ++at) {
            for (const char strange : kStrange) {
                if (at == 0 && (strange == '-' || strange == '+'))
                    continue;
                std::string text = DigitsOfLength(length, '9');
                text[at] = strange;
                EXPECT_EQ(Read(text), kNull) << text;
            }
            for (std::size_t second = 0; second < at; ++second) {
                std::string text = DigitsOfLength(length, '9');
                text[at] = text[second] = '.';
                EXPECT_EQ(Read(text), kNull) << text;
            }
        }
    }
    for (const char* const text : {"", "+", "-", ".", "-.", "+.", "--1", "-+1"})
        EXPECT_EQ(Read(text), kNull) << text;
}

/// Prints into so much room and returns the text; what lies behind the room must stay.
std::string Printed(const RWDecimal96& number, std::size_t room)
{
    std::string buffer(room + 16, '?');
    const std::size_t length = number.print(buffer.data(), room);
    EXPECT_EQ(buffer.substr(room), std::string(16, '?'));
    if (length >= room)
        return "needs " + std::to_string(length);
    EXPECT_EQ(buffer[length], '\0');
    return buffer.substr(0, length);
}

TEST(DecimalShortcuts, PrintEveryLengthInAnyRoom)
{
    for (std::size_t length = 1; length <= 28; ++length) {
        for (const char first : {'1', '9'}) {
            const BigNatural mantissa = BigNatural::FromDigits(DigitsOfLength(length, first));
            for (std::int64_t places = -1; places <= 30; ++places) {
                for (const bool negative : {false, true}) {
                    const Decimal number = {negative, mantissa, places};
                    const std::string text = number.Text();
                    SCOPED_TRACE(text);
                    const RawDecimal engineNumber(number);
                    for (const std::size_t room :
                         {text.size() + 1, std::size_t{33}, std::size_t{34}, std::size_t{64}})
                        EXPECT_EQ(Printed(engineNumber, room),
                                  room > text.size() ? text
                                                     : "needs " + std::to_string(text.size()));
                }
            }
        }
    }
}

TEST(DecimalShortcuts, PrintZeroAndTheLowestShortMantissa)
{
    EXPECT_EQ(Printed(RawDecimal(Decimal{false, 0, 0}), 64), "0");
    EXPECT_EQ(Printed(RawDecimal(Decimal{false, 0, 15}), 64), "0.000000000000000");
    EXPECT_EQ(Printed(RawDecimal(Decimal{true, BigNatural::PowerOfTwo(63), 2}), 64),
              "-92233720368547758.08");
    EXPECT_EQ(Printed(RawDecimal(int96{0, 0, 5}, INT32_MIN + 1), 34), "needs 2147483648");
    EXPECT_EQ(Printed(RawDecimal(int96{0, 0, 5}, INT32_MAX), 34), "needs 2147483649");
}

/// Programs that were built when the operators were calls find them still.
TEST(DecimalShortcuts, StayCallsOfTheLibrary)
{
    void* const library = LoadModule(ZEL_DECIMALS_FILE);
    ASSERT_NE(library, nullptr) << LoadError();
    for (const char* const operation : {"pl", "mi", "ml", "dv", "rm"}) {
        const std::string name = std::string("_Z") + operation + "RK11RWDecimal96S1_";
        EXPECT_NE(FindInModule(library, name.c_str()), nullptr) << name;
    }
    for (const char* const comparison : {"eq", "ne", "lt", "gt", "le", "ge"}) {
        const std::string name = std::string("_Z") + comparison + "RK11RWDecimal96S1_";
        EXPECT_NE(FindInModule(library, name.c_str()), nullptr) << name;
    }
    void* const address = FindInModule(library, "_ZplRK11RWDecimal96S1_");
    ASSERT_NE(address, nullptr);
    EngineOperation plus = nullptr;
    std::memcpy(&plus, &address, sizeof plus);
    EXPECT_EQ(TextOf(plus(RWDecimal96("1.25"), RWDecimal96("-0.5"))), "0.75");
    EXPECT_TRUE(UnloadModule(library));
}

} // namespace
