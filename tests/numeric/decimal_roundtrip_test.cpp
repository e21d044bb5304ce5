/// Whatever a ZelDtDecimal writes, it reads back: the same number with the same places.

#include "tests/numeric/decimal_testing.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace {

using namespace zeltest;

/// A generator with a fixed seed that is the same everywhere.
class Dice {
public:
    explicit Dice(std::uint64_t seed) : m_state(seed) {}

    /// 0 to `count` - 1.
    int Roll(int count)
    {
        m_state = m_state * 6364136223846793005U + 1442695040888963407U;
        return static_cast<int>((m_state >> 33) % static_cast<std::uint64_t>(count));
    }

private:
    std::uint64_t m_state;
};

/// Up to 28 digits and 27 places.
Decimal RandomNumber(Dice& dice)
{
    std::string digits;
    for (int n = dice.Roll(28); n >= 0; --n)
        digits += static_cast<char>('0' + dice.Roll(10));
    Decimal number{false, paper::Trimmed(digits), dice.Roll(28)};
    number.negative = !number.IsZero() && dice.Roll(2) == 1;
    return number;
}

/// The same, or a positive number with more places, as texts may have.
Decimal RandomReadNumber(Dice& dice)
{
    Decimal number = RandomNumber(dice);
    if (dice.Roll(3) == 0)
        number = {false, number.digits, 28 + dice.Roll(9)};
    return number;
}

std::vector<std::string> LimitTexts()
{
    std::vector<std::string> texts = {"0",      "0.0000",  "1",      "-1",      kTiny,
                                      kLargest, kSmallest, "0.1000", "-100.00", "1000000000000"};
    for (int places = 0; places <= 27; ++places) {
        for (const bool negative : {false, true}) {
            texts.push_back(ToText({negative, FromText(kLargest).digits, places}));
            texts.push_back(ToText({negative, "1" + std::string(27, '0'), places}));
            texts.push_back(ToText({negative, "1", places}));
        }
    }
    for (int places = 28; places <= 36; ++places)
        texts.push_back(ToText({false, "1", places}));
    texts.push_back("0.000000001234567890123456789012345678");
    return texts;
}

std::vector<std::string> Texts()
{
    std::vector<std::string> texts = LimitTexts();
    Dice dice(19970801);
    for (int i = 0; i < 2000; ++i)
        texts.push_back(ToText(RandomNumber(dice)));
    return texts;
}

TEST(RoundTrip, ThroughTexts)
{
    for (const std::string& text : Texts()) {
        const ZelDtDecimal value(text.c_str());
        ASSERT_EQ(Look(value), Defined(text));
        const ZelDtString sql = value.ConvToSQL();
        ASSERT_EQ(TextOf(sql), text);
        ASSERT_EQ(Look(ZelDtDecimal(sql)), Defined(text));
        ZelDtDecimal other(ZelDtWmNull);
        other.SetFromSQL(sql);
        const bool isZero = FromText(text).IsZero(); // an equal number keeps its places
        ASSERT_EQ(NumberOf(other), isZero ? "0" : text);
        char plain[64];
        if (text.size() > 32)
            continue;
        ASSERT_TRUE(ZelDtDecimal(value.DecimalToAscii(plain)) == value) << text;
    }
}

TEST(RoundTrip, ThroughExternalTexts)
{
    for (const std::string& text : Texts()) {
        const ZelDtDecimal value(text.c_str());
        int defined = 0;
        unsigned short version = 0;
        const ZelDtString external = value.ConvToExtern(defined, version);
        ZelDtDecimal other(99);
        other.SetFromExtern(&external, defined, version);
        // Zero's places are not part of its external text.
        const bool isZero = FromText(text).IsZero();
        ASSERT_EQ(Look(other), (Number{{ZelDtWmMissing, 1, 1}, isZero ? "0" : text})) << text;
    }
}

TEST(RoundTrip, ThroughArchives)
{
    for (const std::string& text : Texts()) {
        ZelDtDecimal value(text.c_str());
        ZelDtDecimal other(ZelDtWmNull);
        Loaded(Stored([&](CArchive& ar) { value.Serialize(ar); }),
               [&](CArchive& ar) { other.Serialize(ar); });
        const bool isZero = FromText(text).IsZero();
        ASSERT_EQ(Look(other), (Number{{ZelDtWmNull, 1, 1}, isZero ? "0" : text})) << text;
    }
}

TEST(RoundTrip, ThroughTheDisplay)
{
    for (const std::string& text : Texts()) {
        const ZelDtDecimal value(text.c_str());
        ZelDtDecimal other(99);
        other.SetFromOFL(value.ConvToOFL(nullptr), nullptr);
        ASSERT_EQ(NumberOf(other), text);
    }
}

TEST(RoundTrip, ThroughRecordsWhereTheNumberFits)
{
    int count = 0;
    for (const std::string& text : Texts()) {
        const Decimal number = FromText(text);
        if (paper::Compare(number.digits, "18446744073709551615") > 0)
            continue;
        const ZelDtDecimal value(text.c_str());
        BOOL defined = FALSE;
        const DEC record = value.ConvToBTR(defined);
        ZelDtDecimal other(99);
        other.SetFromBTR(record, defined);
        ASSERT_EQ(Look(other), (Number{{ZelDtWmMissing, 1, 1}, number.IsZero() ? "0" : text}));
        ++count;
    }
    EXPECT_GT(count, 1000);
}

TEST(RoundTrip, ThroughCurrenciesWhereTheNumberFits)
{
    int count = 0;
    Dice dice(4711);
    for (int i = 0; i < 2000; ++i) {
        Decimal number = RandomNumber(dice);
        number.places = dice.Roll(5);
        if (paper::Compare(Extended(number, 4).digits, "9223372036854775807") > 0)
            continue;
        const ZelDtDecimal value(ToText(number).c_str());
        const COleCurrency amount = value;
        ASSERT_EQ(amount.GetStatus(), COleCurrency::valid);
        ASSERT_EQ(amount.m_cur.int64,
                  std::stoll((number.negative ? "-" : "") + Extended(number, 4).digits))
            << number;
        ASSERT_EQ(NumberOf(ZelDtDecimal(amount)), ToText(Extended(number, 4)));
        ++count;
    }
    EXPECT_GT(count, 500);
}

TEST(RoundTrip, ThroughDoublesOfUpTo15Digits)
{
    int count = 0;
    for (const std::string& text : Texts()) {
        const Decimal number = FromText(text);
        if (number.digits.size() > 15 || number.places > 27)
            continue;
        const ZelDtDecimal value(text.c_str());
        double nearest = 0.0;
        std::from_chars(text.data(), text.data() + text.size(), nearest);
        ASSERT_EQ(value.GetValue(), nearest) << text;
        ASSERT_TRUE(ZelDtDecimal(value.GetValue()) == value) << text;
        ++count;
    }
    EXPECT_GT(count, 500);
}

TEST(RoundTrip, ThroughDecimalsOfRandomDoubles)
{
    Dice dice(271828);
    for (int i = 0; i < 2000; ++i) {
        const double mantissa = dice.Roll(1 << 30) + dice.Roll(1 << 22) / 4194304.0;
        const double number =
            (dice.Roll(2) == 1 ? -mantissa : mantissa) * std::ldexp(1.0, dice.Roll(80) - 20);
        const Result expected = FromDouble(number);
        if (!expected)
            continue;
        const ZelDtDecimal value(number);
        ASSERT_EQ(NumberOf(value), ToText(*expected));
        if (expected->places == 27)
            continue; // may have lost digits
        ASSERT_EQ(value.GetValue(), number);
    }
}

TEST(RandomNumbers, ComputeAsOnPaper)
{
    Dice dice(31415926);
    int overflows = 0;
    for (int i = 0; i < 3000; ++i) {
        const Decimal a = RandomNumber(dice);
        const Decimal b = RandomNumber(dice);
        const ZelDtDecimal left(ToText(a).c_str());
        const ZelDtDecimal right(ToText(b).c_str());
        for (const char op : {'+', '-', '*', '/', '%'}) {
            const Result expected = Compute(op, a, b);
            std::string got;
            const Caught caught = Catch([&] {
                got = NumberOf(op == '+'   ? left + right
                               : op == '-' ? left - right
                               : op == '*' ? left * right
                               : op == '/' ? left / right
                                           : left % right);
            });
            if (expected) {
                ASSERT_EQ(got, ToText(*expected)) << a << ' ' << op << ' ' << b;
            } else {
                ASSERT_EQ(caught.first, OverflowError()) << a << ' ' << op << ' ' << b;
                ++overflows;
            }
        }
        ASSERT_EQ(left < right, Compare(a, b) < 0 ? 1 : 0) << a << " < " << b;
        ASSERT_EQ(left == right, Compare(a, b) == 0 ? 1 : 0) << a << " == " << b;
    }
    EXPECT_GT(overflows, 100);
}

TEST(RandomNumbers, RoundAsOnPaper)
{
    Dice dice(16180339);
    for (int i = 0; i < 5000; ++i) {
        const Decimal number = RandomReadNumber(dice);
        const int places = dice.Roll(45) - 8;
        const int kind = dice.Roll(5);
        const bool away = kind == 3 || (kind == 1 && !number.negative && !number.IsZero()) ||
                          (kind == 2 && (number.negative || number.IsZero()));
        const Method method = kind == 0 ? Method::Nearest
                              : away    ? Method::Away
                                        : Method::TowardZero;
        const Result expected = Rounded(number, places, method);
        ZelDtDecimal value(ToText(number).c_str());
        const Caught caught = Catch([&] {
            value.Round(static_cast<short>(-places), static_cast<ZelDtDecimal::Rundungsart>(kind));
        });
        if (expected)
            ASSERT_EQ(NumberOf(value), ToText(*expected))
                << number << " to " << places << " places, kind " << kind;
        else
            ASSERT_EQ(caught.first, OverflowError()) << number;

        ZelDtDecimal cut(ToText(number).c_str());
        const int kept = dice.Roll(38);
        cut.Truncate(static_cast<unsigned short>(kept));
        ASSERT_EQ(NumberOf(cut), ToText(*Rounded(number, kept, Method::TowardZero)));
    }
}

} // namespace
