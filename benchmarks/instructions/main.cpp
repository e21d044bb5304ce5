/// Does one operation a given number of times, for a count of the instructions that it takes:
///
///     zel_instructions OPERATION TIMES
///
/// Without arguments it names the operations. Everything goes through the public interface, so that
/// a program of the same operations can be made of an older state of the library.

#include "benchmarks/inputs.h"
#include "benchmarks/platform/decimals/figures.h"
#include "datetime/DTDATZP.h"
#include "numeric/DTDECIMA.h"
#include "numeric/DTLONG.h"
#include "text/DTSTRING.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace {

using zelbench::kFewOperands;

/// Keeps the compiler from leaving out what nobody looks at.
template <typename Result>
void Keep(const Result& result)
{
    __asm__ volatile("" : : "g"(&result) : "memory");
}

/// Hands the operands out one after the other, again and again, `times` in all.
template <typename Operand, typename Work>
void ForEach(std::size_t times, const std::vector<Operand>& operands, const Work& work)
{
    for (std::size_t i = 0; i < times; ++i)
        work(operands[i % kFewOperands]);
}

template <typename Value, typename Source>
std::vector<Value> ValuesOf(const std::vector<Source>& sources)
{
    std::vector<Value> values;
    values.reserve(sources.size());
    for (const Source& source : sources) {
        if constexpr (std::is_same_v<Source, std::string>)
            values.emplace_back(source.c_str());
        else
            values.emplace_back(source);
    }
    return values;
}

template <typename Value>
struct Pair {
    Value left;
    Value right;
};

template <typename Value, typename Source>
std::vector<Pair<Value>> PairsOf(const std::vector<Source>& left, const std::vector<Source>& right)
{
    const std::vector<Value> lefts = ValuesOf<Value>(left);
    const std::vector<Value> rights = ValuesOf<Value>(right);
    std::vector<Pair<Value>> pairs;
    pairs.reserve(lefts.size());
    for (std::size_t i = 0; i < lefts.size(); ++i)
        pairs.push_back({lefts[i], rights[i]});
    return pairs;
}

std::vector<std::string> Amounts(unsigned seed)
{
    return zelbench::NumberTexts(kFewOperands, zelbench::kMoney, seed);
}

/// Days from 1900 to 2099 that every month has.
std::vector<std::string> Days()
{
    zelbench::Random random(5);
    std::vector<std::string> texts;
    while (texts.size() < kFewOperands) {
        char text[16];
        std::snprintf(text, sizeof text, "%02d.%02d.%04d",
                      static_cast<int>(1 + zelbench::Below(random, 28)),
                      static_cast<int>(1 + zelbench::Below(random, 12)),
                      static_cast<int>(1900 + zelbench::Below(random, 200)));
        texts.emplace_back(text);
    }
    return texts;
}

void AddLongs(std::size_t times)
{
    ForEach(times,
            PairsOf<ZelDtLong>(zelbench::Numbers(kFewOperands, 8, 1),
                               zelbench::Numbers(kFewOperands, 8, 2)),
            [](const Pair<ZelDtLong>& pair) { Keep(pair.left + pair.right); });
}

void ShowLongs(std::size_t times)
{
    ForEach(times, ValuesOf<ZelDtLong>(zelbench::Numbers(kFewOperands, 9, 1)),
            [](const ZelDtLong& value) { Keep(value.ConvToOFL(nullptr)); });
}

void SumDecimals(std::size_t times)
{
    ZelDtDecimal sum(0);
    ForEach(times, ValuesOf<ZelDtDecimal>(Amounts(1)),
            [&](const ZelDtDecimal& amount) { sum += amount; });
    Keep(sum);
}

void ChainDecimals(std::size_t times)
{
    const ZelDtDecimal tax("1.19");
    ZelDtDecimal sum(0);
    ForEach(
        times,
        PairsOf<ZelDtDecimal>(Amounts(1), zelbench::NumberTexts(kFewOperands, zelbench::kRates, 2)),
        [&](const Pair<ZelDtDecimal>& pair) { sum += pair.left * pair.right * tax; });
    Keep(sum);
}

void WriteDecimals(std::size_t times)
{
    ForEach(times, ValuesOf<ZelDtDecimal>(Amounts(1)),
            [](const ZelDtDecimal& amount) { Keep(ZelDtString(amount)); });
}

void ReadDecimals(std::size_t times)
{
    ForEach(times, Amounts(1), [](const std::string& text) { Keep(ZelDtDecimal(text.c_str())); });
}

void WriteDates(std::size_t times)
{
    ForEach(times, ValuesOf<ZelDtDateZp>(Days()),
            [](const ZelDtDateZp& date) { Keep(ZelDtString(date)); });
}

void ReadDates(std::size_t times)
{
    ForEach(times, Days(), [](const std::string& text) { Keep(ZelDtDateZp(text.c_str())); });
}

/// A text grows by as many names as there are operands, then begins anew.
void AppendStrings(std::size_t times)
{
    ZelDtString text("");
    std::size_t appended = 0;
    ForEach(times, ValuesOf<ZelDtString>(zelbench::Names(kFewOperands, 3)),
            [&](const ZelDtString& name) {
                if (appended++ % kFewOperands == 0)
                    text = "";
                text += name;
            });
    Keep(text);
}

void CompareStrings(std::size_t times)
{
    ForEach(
        times,
        PairsOf<ZelDtString>(zelbench::Names(kFewOperands, 3), zelbench::Names(kFewOperands, 4)),
        [](const Pair<ZelDtString>& pair) { Keep(pair.left < pair.right); });
}

void QuoteStrings(std::size_t times)
{
    ForEach(times, ValuesOf<ZelDtString>(zelbench::Names(kFewOperands, 3)),
            [](const ZelDtString& name) { Keep(name.ConvToSQL()); });
}

/// So many objects, made and read one after the other.
void ReadObjects(std::size_t times)
{
    constexpr std::size_t kBytesPerObject = 8;
    std::vector<BYTE> bytes(kFewOperands * kBytesPerObject);
    {
        CMemFile file(bytes.data(), static_cast<UINT>(bytes.size()));
        CArchive ar(&file, CArchive::store);
        for (const std::int32_t number : zelbench::Numbers(kFewOperands, 9, 1))
            ZelDtLong(number).Serialize(ar);
        ar.Close();
    }
    for (std::size_t read = 0; read < times; read += kFewOperands) {
        CMemFile file(bytes.data(), static_cast<UINT>(bytes.size()));
        CArchive ar(&file, CArchive::load);
        for (std::size_t i = 0; i < kFewOperands; ++i) {
            ZelDtLong value;
            value.Serialize(ar);
            Keep(value);
        }
    }
}

struct Operation {
    const char* name;
    void (*run)(std::size_t times);
};

const Operation kOperations[] = {
    {"long-add", AddLongs},
    {"long-to-display", ShowLongs},
    {"decimal-sum", SumDecimals},
    {"decimal-chain", ChainDecimals},
    {"decimal-to-text", WriteDecimals},
    {"text-to-decimal", ReadDecimals},
    {"date-to-text", WriteDates},
    {"text-to-date", ReadDates},
    {"string-append", AppendStrings},
    {"string-compare", CompareStrings},
    {"string-to-sql", QuoteStrings},
    {"archive-read-object", ReadObjects},
};

int Usage()
{
    std::fputs("zel_instructions OPERATION TIMES (a multiple of 1024)\n", stderr);
    return EXIT_FAILURE;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc == 1) {
        for (const Operation& operation : kOperations)
            std::puts(operation.name);
        return EXIT_SUCCESS;
    }
    if (argc != 3)
        return Usage();
    const std::size_t times = std::strtoul(argv[2], nullptr, 10);
    if (times == 0 || times % kFewOperands != 0)
        return Usage();
    for (const Operation& operation : kOperations) {
        if (std::strcmp(operation.name, argv[1]) == 0) {
            operation.run(times);
            return EXIT_SUCCESS;
        }
    }
    return Usage();
}
