/// Decimal values: what definedness, working modes and two blocks cost on top of the numbers.
///
/// engine: the bare numbers, without anything that makes a value. In the jobs with texts it reads
/// and writes plain digits, into a std::string.

#include "benchmarks/contest.h"
#include "benchmarks/inputs.h"
#include "benchmarks/jobs.h"
#include "benchmarks/platform/decimals/contenders.h"
#include "benchmarks/platform/decimals/figures.h"
#include "numeric/DTDECIMA.h"
#include "text/DTSTRING.h"

#include <string_view>

namespace zelbench {

namespace {

constexpr std::size_t kRows = 1000000;

// The values' side and the engine's, under the same names

std::string TextOf(const ZelDtDecimal& value)
{
    char buffer[kNumberRoom];
    return value.DecimalToAscii(buffer);
}

std::string TextOf(const Engine& engine)
{
    return engine.Text();
}

void Add(ZelDtDecimal& total, const ZelDtDecimal& addend)
{
    total += addend;
}

void Add(Engine& total, const Engine& addend)
{
    total = total + addend;
}

ZelDtDecimal ToHundredths(const ZelDtDecimal& value)
{
    ZelDtDecimal rounded(value);
    rounded.Round(-2, ZelDtDecimal::RundungKaufmaennisch);
    return rounded;
}

Engine ToHundredths(const Engine& engine)
{
    return engine.ToHundredths();
}

template <typename Value>
Value ValueFrom(const std::string& text)
{
    if constexpr (requires { Value::Read(text); })
        return Value::Read(text);
    else
        return Value(text.c_str());
}

/// A value as a result, compared by its digits.
template <typename Value>
struct Result {
    Value value;

    std::string ReadBack() const { return Figures(TextOf(value)); }
};

template <typename Value>
Result(Value) -> Result<Value>;

/// A text as a result, compared as the number it stands for.
template <typename Text>
struct Written {
    Text text;

    std::string ReadBack() const
    {
        if constexpr (requires { text.GetValue(); })
            return Figures(text.GetValue());
        else
            return Figures(text);
    }
};

template <typename Text>
Written(Text) -> Written<Text>;

/// A value that stays where it is, as a result.
struct Kept {
    const ZelDtDecimal* value;

    std::string ReadBack() const { return Figures(TextOf(*value)); }
};

template <typename Value>
std::vector<Value> ValuesOf(const Shape& shape, std::size_t count = kFewOperands,
                            unsigned seed = 41)
{
    std::vector<Value> values;
    values.reserve(count);
    for (const std::string& text : NumberTexts(count, shape, seed))
        values.push_back(ValueFrom<Value>(text));
    return values;
}

template <typename Value>
struct Pair {
    Value left;
    Value right;
};

template <typename Value>
std::vector<Pair<Value>> PairsOf(const Shape& left, const Shape& right)
{
    const std::vector<Value> lefts = ValuesOf<Value>(left);
    const std::vector<Value> rights = ValuesOf<Value>(right, kFewOperands, 42);
    std::vector<Pair<Value>> pairs;
    for (std::size_t i = 0; i < kFewOperands; ++i)
        pairs.push_back({lefts[i], rights[i]});
    return pairs;
}

struct ArithmeticJobs {
    Job sum{"decimal/sum", kFewOperands};
    Job sumMany{"decimal/sum-1000000", kRows};
    Job sumAdd{"decimal/sum-add", kFewOperands};
    Job chain{"decimal/chain", kFewOperands};
    Job add{"decimal/add"};
    Job multiply{"decimal/multiply"};
    Job divide{"decimal/divide"};
    Job less{"decimal/less"};
    Job equal{"decimal/equal"};
    Job round{"decimal/round"};

    template <typename Value>
    void Add(const std::string& contender)
    {
        AddTotals<Value>(contender);
        const auto amounts = Share(PairsOf<Value>(kMoney, kMoney));
        add.Add(contender, amounts,
                [](const auto& pair) { return Result{pair.left + pair.right}; });
        multiply.Add(contender, Share(PairsOf<Value>(kMoney, kRates)),
                     [](const auto& pair) { return Result{pair.left * pair.right}; });
        divide.Add(contender, Share(PairsOf<Value>(kLargeMoney, kDivisors)),
                   [](const auto& pair) { return Result{pair.left / pair.right}; });
        less.Add(contender, amounts, [](const auto& pair) { return pair.left < pair.right; });
        equal.Add(contender, amounts, [](const auto& pair) { return pair.left == pair.right; });
        round.Add(contender, Share(ValuesOf<Value>(kToRound)),
                  [](const Value& value) { return Result{ToHundredths(value)}; });
    }

private:
    template <typename Value>
    void AddTotals(const std::string& contender)
    {
        const Value zero = ValueFrom<Value>("0");
        const Value tax = ValueFrom<Value>("1.19");
        const auto addUp = [zero](const std::vector<Value>& rows) {
            Value total = zero;
            for (const Value& row : rows)
                zelbench::Add(total, row);
            return Result{total};
        };
        const auto rows = ShareOne(ValuesOf<Value>(kMoney));
        sum.Add(contender, rows, addUp);
        sumMany.Add(contender, ShareOne(ValuesOf<Value>(kMoney, kRows)), addUp);
        sumAdd.Add(contender, rows, [zero](const std::vector<Value>& addends) {
            Value total = zero;
            for (const Value& addend : addends)
                total = total + addend;
            return Result{total};
        });
        chain.Add(contender, ShareOne(PairsOf<Value>(kMoney, kRates)),
                  [zero, tax](const std::vector<Pair<Value>>& pairs) {
                      Value total = zero;
                      for (const Pair<Value>& pair : pairs)
                          zelbench::Add(total, pair.left * pair.right * tax);
                      return Result{total};
                  });
    }
};

/// New texts.
void AddWriting()
{
    const auto values = Share(ValuesOf<ZelDtDecimal>(kMoney));
    const auto engines = Share(ValuesOf<Engine>(kMoney));
    const auto digits = [](const Engine& engine) { return Written{engine.Text()}; };
    Job("decimal-to-text")
        .Add("ours", values, [](const ZelDtDecimal& value) { return Written{ZelDtString(value)}; })
        .Add("engine", engines, digits);
    Job("decimal-to-sql")
        .Add("ours", values, [](const ZelDtDecimal& value) { return Written{value.ConvToSQL()}; })
        .Add("engine", engines, digits);
    Job("decimal-to-extern")
        .Add("ours", values,
             [](const ZelDtDecimal& value) {
                 int defined = 0;
                 unsigned short version = 0;
                 return Written{value.ConvToExtern(defined, version)};
             })
        .Add("engine", engines, digits);
}

/// A new value from a text, and an old one that takes over an SQL and an external text.
void AddReading()
{
    const auto texts = Share(NumberTexts(kFewOperands, kMoney, 43));
    std::vector<ZelDtString> externs;
    for (const std::string& text : *texts) {
        int defined = 0;
        unsigned short version = 0;
        externs.push_back(ZelDtDecimal(text.c_str()).ConvToExtern(defined, version));
    }
    const auto target = std::make_shared<ZelDtDecimal>(0);
    const auto number = [](const std::string& text) { return Result{Engine::Read(text)}; };
    Job("text-to-decimal")
        .Add("ours", texts,
             [](const std::string& text) { return Result{ZelDtDecimal(text.c_str())}; })
        .Add("engine", texts, number);
    Job("sql-to-decimal")
        .Add("ours", texts,
             [target](const std::string& text) {
                 target->SetFromSQL(text.c_str());
                 return Kept{target.get()};
             })
        .Add("engine", texts, number);
    Job("extern-to-decimal")
        .Add("ours", Share(std::move(externs)),
             [target](const ZelDtString& text) {
                 target->SetFromExtern(&text, 1, 100);
                 return Kept{target.get()};
             })
        .Add("engine", texts, number);
}

} // namespace

void AddDecimalJobs()
{
    ArithmeticJobs jobs;
    jobs.Add<ZelDtDecimal>("ours");
    jobs.Add<Engine>("engine");
    AddWriting();
    AddReading();
}

} // namespace zelbench
