/// Arithmetic on random numbers, to the last digit and in the number of places, against the model.

#include "operands.h"

#include <cstdint>
#include <sstream>
#include <string>

namespace {

using namespace zeltest;

/// Gives up an operation after that many differences.
constexpr int kMaxDifferences = 10;

/// Compares results with the model's until there are too many differences.
class Agreement {
public:
    template <typename Operation, typename Describe>
    void Check(const model::Result& expected, Operation&& operation, Describe&& describe)
    {
        const Outcome outcome = expected.Show();
        const Outcome got = OutcomeOf(std::forward<Operation>(operation));
        if (got == outcome)
            return;
        ++m_differences;
        ADD_FAILURE() << describe() << "\n  expected: " << outcome << "\n  got:      " << got;
    }

    bool GoesOn() const { return m_differences < kMaxDifferences; }

private:
    CountedHandlers m_handlers;
    int m_differences = 0;
};

template <typename T>
std::string Show(const T& value)
{
    std::ostringstream os;
    os << value;
    return os.str();
}

using EngineOperation = RWDecimal96 (*)(const RWDecimal96&, const RWDecimal96&);
using ModelOperation = model::Result (*)(const Decimal&, const Decimal&);

void CheckBinary(std::uint64_t seed, const std::string& name, EngineOperation engine,
                 ModelOperation rule)
{
    Operands operands(seed);
    Agreement agreement;
    for (std::size_t i = 0; i < CaseCount() && agreement.GoesOn(); ++i) {
        const Operands::Pair pair = operands.DrawPair();
        const RawDecimal left(pair.a);
        const RawDecimal right(pair.b);
        agreement.Check(
            rule(pair.a, pair.b), [&] { return engine(left, right); },
            [&] { return Show(pair.a) + ' ' + name + ' ' + Show(pair.b); });
    }
}

} // namespace

TEST(RandomArithmetic, Sums)
{
    CheckBinary(1, "+", operator+, model::Add);
}

TEST(RandomArithmetic, Differences)
{
    CheckBinary(2, "-", operator-, model::Subtract);
}

TEST(RandomArithmetic, Products)
{
    CheckBinary(3, "*", operator*, model::Multiply);
}

TEST(RandomArithmetic, Quotients)
{
    CheckBinary(4, "/", operator/, model::Divide);
}

TEST(RandomArithmetic, Remainders)
{
    CheckBinary(5, "%", operator%, model::Remainder);
}

TEST(RandomArithmetic, Powers)
{
    Operands operands(6);
    Agreement agreement;
    for (std::size_t i = 0; i < CaseCount() && agreement.GoesOn(); ++i) {
        const Decimal base = operands.DrawOne();
        const auto exponent =
            static_cast<int>(operands.DrawInt(0, 9) == 0 ? operands.DrawInt(INT32_MIN, INT32_MAX)
                                                         : operands.DrawInt(-12, 30));
        const RawDecimal engineBase(base);
        agreement.Check(
            model::Power(base, exponent), [&] { return pow(engineBase, exponent); },
            [&] { return Show(base) + " to the power of " + std::to_string(exponent); });
    }
}

TEST(RandomArithmetic, AbsoluteValues)
{
    Operands operands(7);
    Agreement agreement;
    for (std::size_t i = 0; i < CaseCount() && agreement.GoesOn(); ++i) {
        const Decimal number = operands.DrawOne();
        const RawDecimal engineNumber(number);
        agreement.Check(
            model::Abs(number), [&] { return abs(engineNumber); },
            [&] { return "abs of " + Show(number); });
    }
}

TEST(RandomArithmetic, Rounding)
{
    Operands operands(8);
    Agreement agreement;
    for (std::size_t i = 0; i < CaseCount() && agreement.GoesOn(); ++i) {
        const Decimal number = operands.DrawOne();
        const auto places = static_cast<int>(operands.DrawInt(-28, 36));
        const RawDecimal engineNumber(number);
        for (const Rounding method : kMethods) {
            agreement.Check(
                model::Round(number, places, method),
                [&] { return round(engineNumber, places, EngineMethod(method)); },
                [&] {
                    return Show(number) + " rounded to " + std::to_string(places) +
                           " places, method " + std::to_string(EngineMethod(method));
                });
        }
    }
}

TEST(RandomArithmetic, Comparisons)
{
    Operands operands(9);
    for (std::size_t i = 0; i < CaseCount() && !HasFailure(); ++i) {
        const auto [a, b] = operands.DrawPair();
        const int order = model::Compare(a, b);
        const RawDecimal left(a);
        const RawDecimal right(b);
        SCOPED_TRACE(Show(a) + " and " + Show(b));
        ExpectOrder(left, right, order);
    }
}
