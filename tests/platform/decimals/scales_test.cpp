/// Numbers with every 16-bit count of places, as foreign records bring them, and with any at all:
/// every operation ends with the model's number or with an overflow, and soon.

#include "operands.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <ostream>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

using namespace zeltest;

constexpr std::int32_t kLeastScale = -32768;
constexpr std::int32_t kLargestScale = 32767;

/// Beyond that many places, before or behind the point, numbers act alike: they are too large for
/// every result, or smaller than all last places.
constexpr std::int32_t kFar = 400;

std::int32_t Near(std::int32_t scale)
{
    return std::clamp(scale, -kFar, kFar);
}

const Decimal& Ordinary()
{
    static const Decimal kNumber = {true, 1234567, 2};
    return kNumber;
}

const RWDecimal96& EngineOrdinary()
{
    static const RWDecimal96 kNumber("-12345.67");
    return kNumber;
}

/// The limits of what a record holds: 64 bits and a sign.
std::vector<Decimal> Magnitudes()
{
    const BigNatural two32 = BigNatural::PowerOfTwo(32);
    const BigNatural two63 = BigNatural::PowerOfTwo(63);
    const BigNatural two64 = BigNatural::PowerOfTwo(64);
    return {{false, 0, 0},         {false, 1, 0},       {true, 1, 0},      {false, two32 - 1, 0},
            {true, two32 - 1, 0},  {true, two32, 0},    {false, two63, 0}, {true, two63, 0},
            {false, two64 - 1, 0}, {true, two64 - 1, 0}};
}

struct Operation {
    const char* name;
    RWDecimal96 (*engine)(const RWDecimal96& x);
    model::Result (*rule)(const Decimal& x);
};

template <int places, Rounding method>
constexpr Operation kRound = {
    "round(x, ...)", [](const RWDecimal96& x) { return round(x, places, EngineMethod(method)); },
    [](const Decimal& x) { return model::Round(x, places, method); }};

constexpr Operation kOperations[] = {
    {"x + n", [](const RWDecimal96& x) { return x + EngineOrdinary(); },
     [](const Decimal& x) { return model::Add(x, Ordinary()); }},
    {"n + x", [](const RWDecimal96& x) { return EngineOrdinary() + x; },
     [](const Decimal& x) { return model::Add(Ordinary(), x); }},
    {"x - n", [](const RWDecimal96& x) { return x - EngineOrdinary(); },
     [](const Decimal& x) { return model::Subtract(x, Ordinary()); }},
    {"n - x", [](const RWDecimal96& x) { return EngineOrdinary() - x; },
     [](const Decimal& x) { return model::Subtract(Ordinary(), x); }},
    {"x * n", [](const RWDecimal96& x) { return x * EngineOrdinary(); },
     [](const Decimal& x) { return model::Multiply(x, Ordinary()); }},
    {"x / n", [](const RWDecimal96& x) { return x / EngineOrdinary(); },
     [](const Decimal& x) { return model::Divide(x, Ordinary()); }},
    {"n / x", [](const RWDecimal96& x) { return EngineOrdinary() / x; },
     [](const Decimal& x) { return model::Divide(Ordinary(), x); }},
    {"n % x", [](const RWDecimal96& x) { return EngineOrdinary() % x; },
     [](const Decimal& x) { return model::Remainder(Ordinary(), x); }},
    {"x + x", [](const RWDecimal96& x) { return x + x; },
     [](const Decimal& x) { return model::Add(x, x); }},
    {"x - x", [](const RWDecimal96& x) { return x - x; },
     [](const Decimal& x) { return model::Subtract(x, x); }},
    {"x * x", [](const RWDecimal96& x) { return x * x; },
     [](const Decimal& x) { return model::Multiply(x, x); }},
    {"x / x", [](const RWDecimal96& x) { return x / x; },
     [](const Decimal& x) { return model::Divide(x, x); }},
    {"x % x", [](const RWDecimal96& x) { return x % x; },
     [](const Decimal& x) { return model::Remainder(x, x); }},
    {"pow(x, 3)", [](const RWDecimal96& x) { return pow(x, 3); },
     [](const Decimal& x) { return model::Power(x, 3); }},
    {"pow(x, -2)", [](const RWDecimal96& x) { return pow(x, -2); },
     [](const Decimal& x) { return model::Power(x, -2); }},
};

/// What far scales matter for: the remainder of a number however large, and what may leave a number
/// as it is.
constexpr Operation kOperationsOnScales[] = {
    {"x % n", [](const RWDecimal96& x) { return x % EngineOrdinary(); },
     [](const Decimal& x) { return model::Remainder(x, Ordinary()); }},
    {"abs(x)", [](const RWDecimal96& x) { return abs(x); },
     [](const Decimal& x) { return model::Abs(x); }},
    kRound<-5, Rounding::Nearest>,
    kRound<-5, Rounding::AwayFromZero>,
    kRound<-5, Rounding::TowardZero>,
    kRound<0, Rounding::Nearest>,
    kRound<0, Rounding::AwayFromZero>,
    kRound<4, Rounding::TowardZero>,
    kRound<27, Rounding::Nearest>,
};

/// What an operation gave, in the words of the number.
struct Words {
    Outcome::Kind kind = Outcome::Number;
    int96 mantissa = {0, 0, 0};
    std::int32_t places = 0;
    bool rounded = false;

    friend bool operator==(const Words& a, const Words& b)
    {
        return a.kind == b.kind && a.mantissa.high == b.mantissa.high &&
               a.mantissa.middle == b.mantissa.middle && a.mantissa.low == b.mantissa.low &&
               a.places == b.places && a.rounded == b.rounded;
    }
    friend std::ostream& operator<<(std::ostream& os, const Words& words)
    {
        if (words.kind != Outcome::Number)
            return os << Outcome{words.kind, "", false};
        return os << ModelOf(RawDecimal(words.mantissa, words.places))
                  << (words.rounded ? " (rounded)" : "");
    }
};

Words WordsOf(const model::Result& result)
{
    if (result.kind != Outcome::Number)
        return {result.kind, {0, 0, 0}, 0, false};
    const RawDecimal number(result.number);
    return {Outcome::Number, number.Mantissa(), number.Places(), result.rounded};
}

template <typename Action>
Words Try(Action&& action)
{
    CountedHandlers::Reset();
    try {
        const RawDecimal result(std::forward<Action>(action)());
        const auto kind = result.isNull() ? Outcome::Null : Outcome::Number;
        return {kind, result.Mantissa(), result.Places(), CountedHandlers::Inexacts() != 0};
    } catch (const RWDecimal96OverflowErr&) {
        return {Outcome::Overflow, {0, 0, 0}, 0, false};
    }
}

Words Try(const Operation& operation, const RWDecimal96& x)
{
    return Try([&] { return operation.engine(x); });
}

/// Calls `check` with numbers of all magnitudes and scales, for the model and for the engine; in
/// short runs every far scale meets some of the magnitudes.
template <typename Check>
void ForEachNumber(Check&& check)
{
    const std::size_t step = RunsLong() ? 1 : 4;
    std::size_t turn = 0;
    std::vector<Decimal> numbers = Magnitudes();
    for (Decimal& number : numbers) {
        const int96 mantissa = RawDecimal(number).Mantissa();
        for (std::int32_t scale = kLeastScale; scale <= kLargestScale; ++scale) {
            if (scale % 16 == 0 && ::testing::Test::HasFailure())
                return;
            if (++turn % step != 0 && std::abs(scale) > kFar)
                continue;
            number.places = scale;
            check(number, RawDecimal(mantissa, scale));
        }
        ++turn;
    }
}

/// What a rule says about numbers, worked out once for all far scales.
template <typename Rule>
class FarRule {
public:
    explicit FarRule(Rule rule) : m_rule(std::move(rule)), m_value(m_rule(m_number)) {}

    const auto& operator()(const Decimal& number)
    {
        const std::int32_t places = Near(static_cast<std::int32_t>(number.places));
        if (places != m_number.places || number.negative != m_number.negative ||
            number.mantissa != m_number.mantissa) {
            m_number = {number.negative, number.mantissa, places};
            m_value = m_rule(m_number);
        }
        return m_value;
    }

private:
    Rule m_rule;
    Decimal m_number;
    std::invoke_result_t<Rule, const Decimal&> m_value;
};

template <typename Rule>
void CheckOperation(const Operation& operation, Rule rule)
{
    const CountedHandlers handlers;
    ForEachNumber([&](const Decimal& number, const RawDecimal& x) {
        EXPECT_EQ(Try(operation, x), rule(number)) << operation.name << " for x = " << number;
    });
}

/// The length of the text without the text.
std::size_t LengthOf(const Decimal& number)
{
    const auto digits = static_cast<std::int64_t>(number.mantissa.Digits());
    const std::int64_t whole =
        number.mantissa.IsZero() ? 1 : std::max<std::int64_t>(digits - number.places, 1);
    const std::int64_t fraction = number.places > 0 ? 1 + number.places : 0;
    return static_cast<std::size_t>((number.negative ? 1 : 0) + whole + fraction);
}

struct PairOperation {
    const char* name;
    RWDecimal96 (*engine)(const RWDecimal96&, const RWDecimal96&);
    model::Result (*rule)(const Decimal&, const Decimal&);
};

constexpr PairOperation kPairOperations[] = {{"+", operator+, model::Add},
                                             {"-", operator-, model::Subtract},
                                             {"*", operator*, model::Multiply},
                                             {"/", operator/, model::Divide},
                                             {"%", operator%, model::Remainder}};

void CheckPair(const Decimal& a, const Decimal& b)
{
    const RawDecimal x(a);
    const RawDecimal y(b);
    for (const PairOperation& operation : kPairOperations)
        EXPECT_EQ(Try([&] { return operation.engine(x, y); }), WordsOf(operation.rule(a, b)))
            << a << ' ' << operation.name << ' ' << b;
    const int order = model::Compare(a, b);
    EXPECT_EQ(x == y, order == 0 ? 1 : 0) << a << " and " << b;
    EXPECT_EQ(x < y, order < 0 ? 1 : 0) << a << " and " << b;
    EXPECT_EQ(x > y, order > 0 ? 1 : 0) << a << " and " << b;
}

} // namespace

TEST(EveryScale, OfTheModelActsAlikeFarOff)
{
    for (const Decimal& magnitude : Magnitudes()) {
        for (const std::int32_t scale : {kLeastScale, -20000, -401, 401, 20000, kLargestScale}) {
            const Decimal number = {magnitude.negative, magnitude.mantissa, scale};
            const Decimal close = {magnitude.negative, magnitude.mantissa, Near(scale)};
            for (const Operation& operation : kOperations)
                EXPECT_EQ(WordsOf(operation.rule(number)), WordsOf(operation.rule(close)))
                    << operation.name << " for x = " << number;
            EXPECT_EQ(model::ToDouble(number), model::ToDouble(close));
            EXPECT_EQ(model::Compare(number, Ordinary()), model::Compare(close, Ordinary()));
        }
    }
}

TEST(EveryScale, GivesTheModelsNumber)
{
    for (const Operation& operation : kOperations) {
        const auto rule = [&](const Decimal& number) { return WordsOf(operation.rule(number)); };
        CheckOperation(operation, FarRule(rule));
    }
}

TEST(EveryScale, GivesTheModelsNumberWhereItMatters)
{
    for (const Operation& operation : kOperationsOnScales)
        CheckOperation(operation,
                       [&](const Decimal& number) { return WordsOf(operation.rule(number)); });
}

/// Of the words that nothing limits, with the largest mantissas there are.
TEST(AnyWords, GiveTheModelsNumber)
{
    constexpr std::int32_t kPlaces[] = {INT32_MIN, INT32_MIN + 1, -1'000'000'000, -40000,   -1, 0,
                                        40000,     1'000'000'000, INT32_MAX - 1,  INT32_MAX};
    const BigNatural two95 = BigNatural::PowerOfTwo(95);
    std::vector<Decimal> numbers;
    for (const std::int32_t places : kPlaces) {
        numbers.insert(numbers.end(), {{true, two95, places}, {false, two95 - 1, places}});
        for (const Decimal& magnitude : Magnitudes())
            numbers.push_back({magnitude.negative, magnitude.mantissa, places});
    }
    std::vector<Operation> operations(std::begin(kOperations), std::end(kOperations));
    operations.insert(operations.end(), std::begin(kOperationsOnScales),
                      std::end(kOperationsOnScales));
    const CountedHandlers handlers;
    for (const Decimal& a : numbers) {
        for (const Operation& operation : operations) {
            EXPECT_EQ(Try(operation, RawDecimal(a)), WordsOf(operation.rule(a)))
                << operation.name << " for x = " << a;
        }
        EXPECT_EQ(RawDecimal(a).print(nullptr, 0), LengthOf(a)) << a;
        EXPECT_EQ(toDouble(RawDecimal(a)), static_cast<long double>(model::ToDouble(a))) << a;
        for (const Decimal& b : numbers)
            CheckPair(a, b);
        if (HasFailure())
            return;
    }
}

TEST(EveryScale, IsCompared)
{
    ForEachNumber([](const Decimal& number, const RawDecimal& x) {
        const RWDecimal96& n = EngineOrdinary();
        const int order = model::Compare(number, Ordinary());
        EXPECT_EQ(x == n, order == 0 ? 1 : 0) << number;
        EXPECT_EQ(x != n, order != 0 ? 1 : 0) << number;
        EXPECT_EQ(x < n, order < 0 ? 1 : 0) << number;
        EXPECT_EQ(x > n, order > 0 ? 1 : 0) << number;
        EXPECT_EQ(n <= x, order >= 0 ? 1 : 0) << number;
        EXPECT_EQ(n >= x, order <= 0 ? 1 : 0) << number;
        EXPECT_EQ(x == x, 1) << number;
        EXPECT_EQ(x < x, 0) << number;
        EXPECT_EQ(x >= x, 1) << number;
    });
}

TEST(EveryScale, BecomesAWholeNumber)
{
    ForEachNumber([](const Decimal& number, const RawDecimal& x) {
        for (const Rounding method : kMethods)
            EXPECT_EQ(toInt(x, EngineMethod(method)), model::ToInt(number, method)) << number;
    });
}

TEST(EveryScale, BecomesADouble)
{
    FarRule rule(model::ToDouble);
    ForEachNumber([&](const Decimal& number, const RawDecimal& x) {
        EXPECT_EQ(toDouble(x), static_cast<long double>(rule(number))) << number;
    });
}

TEST(EveryScale, HasAText)
{
    ForEachNumber([](const Decimal& number, const RawDecimal& x) {
        EXPECT_EQ(x.print(nullptr, 0), LengthOf(number)) << number;
        if (number.places % 97 == 0 || std::abs(number.places) <= kFar) {
            EXPECT_EQ(TextOf(x), number.Text()) << number;
        }
    });
}
