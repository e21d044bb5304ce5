/// Does the same work in growing sizes and prints what each takes:
///
///     zel_scaling texts|edits|archives|decimals MOST
///     zel_scaling rows COUNT FILE
///     zel_scaling run COMMAND...
///
/// The first form prints lines "series,size,seconds", from the least size in steps of ten up to
/// MOST; the seconds are those of the processor for the whole work once. The second writes rows
/// for zelconv, the third tells the time and memory of a command.

#include "benchmarks/inputs.h"
#include "benchmarks/platform/decimals/figures.h"
#include "benchmarks/scaling/measured.h"
#include "benchmarks/scaling/rows.h"
#include "numeric/DTDECIMA.h"
#include "numeric/DTLONG.h"
#include "text/DTSTRING.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <functional>

namespace {

/// The seconds of the work on `size` items, once.
using Work = std::function<double(std::size_t size)>;

/// Repetitions end after this time, preparations included, when there are three, else after the
/// longer one.
constexpr double kRepeatSeconds = 0.2;
constexpr double kMostRepeatSeconds = 1;
/// A series ends with the first size that takes so long.
constexpr double kLongestSeconds = 3;

double ProcessorSeconds()
{
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

template <typename Body>
double SecondsOf(const Body& body)
{
    const double begin = ProcessorSeconds();
    body();
    return ProcessorSeconds() - begin;
}

template <typename Result>
void Keep(const Result& result)
{
    __asm__ volatile("" : : "g"(&result) : "memory");
}

/// The median of as many repetitions as the time allows.
double Median(const Work& work, std::size_t size)
{
    std::vector<double> seconds;
    const double begin = ProcessorSeconds();
    const auto isTimeLeft = [&] {
        const double limit = seconds.size() < 3 ? kMostRepeatSeconds : kRepeatSeconds;
        return ProcessorSeconds() - begin < limit;
    };
    while (isTimeLeft())
        seconds.push_back(work(size));
    std::sort(seconds.begin(), seconds.end());
    return seconds[seconds.size() / 2];
}

void Print(const char* series, std::size_t least, std::size_t most, const Work& work)
{
    for (std::size_t size = least; size <= most; size *= 10) {
        const double seconds = Median(work, size);
        std::printf("%s,%zu,%.9g\n", series, size, seconds);
        std::fflush(stdout);
        if (seconds > kLongestSeconds)
            break;
    }
}

// Texts

/// As many of a size as are needed for a time that the clock can tell.
std::size_t CopiesOf(std::size_t size)
{
    constexpr std::size_t kBytes = 8 << 20;
    constexpr std::size_t kMost = 20000;
    return std::clamp<std::size_t>(kBytes / size, 1, kMost);
}

std::string Prose(std::size_t size)
{
    return zelbench::GermanText(size, 1);
}

/// Pairs within pairs: every removal of one joins the next.
std::string Nested(std::size_t size)
{
    return std::string(size / 2, '(') + std::string(size / 2, ')');
}

/// The prose between blanks, a fifth of the whole.
std::string Padded(std::size_t size)
{
    const std::string blanks(size / 10, ' ');
    return blanks + Prose(size - 2 * blanks.size()) + blanks;
}

/// Work on copies of one text, which are made before the clock starts.
template <typename Change>
Work OnCopies(std::string (*make)(std::size_t), const Change& change)
{
    return [make, change](std::size_t size) {
        const ZelDtString source(make(size).c_str());
        std::vector<ZelDtString> texts(CopiesOf(size), source);
        const double seconds = SecondsOf([&] {
            for (ZelDtString& text : texts)
                change(text);
        });
        Keep(texts);
        return seconds / static_cast<double>(texts.size());
    };
}

/// Equal texts are looked through to their ends.
double CompareTexts(std::size_t size)
{
    const ZelDtString left(Prose(size).c_str());
    const ZelDtString right(left);
    const std::size_t times = CopiesOf(size);
    return SecondsOf([&] {
               for (std::size_t i = 0; i < times; ++i)
                   Keep(left < right);
           }) /
           static_cast<double>(times);
}

void PrintTexts(std::size_t most)
{
    constexpr std::size_t kLeast = 10;
    const ZelDtString blank(" ");
    const ZelDtString comma(", ");
    const ZelDtString pair("()");
    // The beginning of the pattern is frequent, the whole is not there.
    const ZelDtString absent("and on delivery!");
    Print("code page", kLeast, most,
          OnCopies(Prose, [](ZelDtString& text) { text.ConvertCodePage(ZelDtCpAnsiToOem850); }));
    Print("compare", kLeast, most, CompareTexts);
    Print("upper case", kLeast, most, OnCopies(Prose, [](ZelDtString& text) { text.ToUpper(); }));
    Print("trim", kLeast, most,
          OnCopies(Padded, [](ZelDtString& text) { text.Trim(ZelDtString::kiLeftRight); }));
    Print("find", kLeast, most,
          OnCopies(Prose, [&](ZelDtString& text) { Keep(text.GetPos(absent, 0)); }));
    Print("change all", kLeast, most, OnCopies(Prose, [&](ZelDtString& text) {
              text.Change(blank, comma, ZelDtString::kiAll);
          }));
    Print("delete all", kLeast, most,
          OnCopies(Prose, [&](ZelDtString& text) { text.DeleteParts(blank, ZelDtString::kiAll); }));
    Print("delete nested", kLeast, most,
          OnCopies(Nested, [&](ZelDtString& text) { text.DeleteParts(pair, ZelDtString::kiAll); }));
}

// Editing in a loop

/// A new text made by so many edits.
template <typename Edit>
Work Edited(const Edit& edit)
{
    return [edit](std::size_t edits) {
        const std::size_t times = CopiesOf(100 * edits);
        const double seconds = SecondsOf([&] {
            for (std::size_t i = 0; i < times; ++i) {
                ZelDtString text("");
                for (std::size_t left = edits; left != 0; --left)
                    edit(text);
                Keep(text);
            }
        });
        return seconds / static_cast<double>(times);
    };
}

void PrintEdits(std::size_t most)
{
    constexpr std::size_t kLeast = 10;
    // Every insertion in front moves the text so far.
    constexpr std::size_t kMostMoved = 100000;
    const ZelDtString part("ten bytes ");
    Print("append character", kLeast, most, Edited([](ZelDtString& text) { text += 'x'; }));
    Print("append text", kLeast, most, Edited([&](ZelDtString& text) { text += part; }));
    Print("insert at the end", kLeast, most,
          Edited([&](ZelDtString& text) { text.Insert(part, text.GetLength()); }));
    Print("insert in front", kLeast, std::min(most, kMostMoved),
          Edited([&](ZelDtString& text) { text.Insert(part, 0); }));
}

// Archives

template <typename Value>
double WriteObjects(std::vector<Value>& values, CMemFile& file)
{
    return SecondsOf([&] {
        CArchive ar(&file, CArchive::store);
        for (Value& value : values)
            value.Serialize(ar);
        ar.Close();
    });
}

/// The objects are made, and dropped when all are there.
template <typename Value>
double ReadObjects(std::size_t count, CMemFile& file)
{
    file.SeekToBegin();
    return SecondsOf([&] {
        CArchive ar(&file, CArchive::load);
        std::vector<Value> values;
        values.reserve(count);
        for (std::size_t i = 0; i < count; ++i)
            values.emplace_back().Serialize(ar);
        Keep(values);
    });
}

template <typename Value, typename Make>
void PrintArchive(const std::string& name, std::size_t most, const Make& make)
{
    constexpr std::size_t kLeast = 1000;
    const auto values = [make](std::size_t count) {
        std::vector<Value> list;
        list.reserve(count);
        for (std::size_t i = 0; i < count; ++i)
            list.push_back(make(i % zelbench::kFewOperands));
        return list;
    };
    Print(("write " + name).c_str(), kLeast, most, [values](std::size_t count) {
        std::vector<Value> list = values(count);
        CMemFile file;
        return WriteObjects(list, file);
    });
    Print(("read " + name).c_str(), kLeast, most, [values](std::size_t count) {
        std::vector<Value> list = values(count);
        CMemFile file;
        WriteObjects(list, file);
        return ReadObjects<Value>(count, file);
    });
}

std::vector<std::string> Amounts(std::size_t count)
{
    return zelbench::NumberTexts(count, zelbench::kMoney, 1);
}

void PrintArchives(std::size_t most)
{
    const auto numbers = zelbench::Numbers(zelbench::kFewOperands, 9, 1);
    const auto amounts = Amounts(zelbench::kFewOperands);
    const auto names = zelbench::Names(zelbench::kFewOperands, 1);
    PrintArchive<ZelDtLong>("numbers", most, [&](std::size_t i) { return ZelDtLong(numbers[i]); });
    PrintArchive<ZelDtDecimal>("decimals", most,
                               [&](std::size_t i) { return ZelDtDecimal(amounts[i].c_str()); });
    PrintArchive<ZelDtString>("texts", most,
                              [&](std::size_t i) { return ZelDtString(names[i].c_str()); });
}

// Decimals

template <typename Add>
Work Total(const Add& add)
{
    return [add](std::size_t count) {
        const std::vector<std::string> texts = Amounts(zelbench::kFewOperands);
        std::vector<ZelDtDecimal> amounts;
        amounts.reserve(count);
        for (std::size_t i = 0; i < count; ++i)
            amounts.emplace_back(texts[i % texts.size()].c_str());
        ZelDtDecimal total(0);
        return SecondsOf([&] {
            for (const ZelDtDecimal& amount : amounts)
                add(total, amount);
            Keep(total);
        });
    };
}

void PrintDecimals(std::size_t most)
{
    constexpr std::size_t kLeast = 1000;
    const ZelDtDecimal tax("1.19");
    Print("sum += a", kLeast, most,
          Total([](ZelDtDecimal& total, const ZelDtDecimal& amount) { total += amount; }));
    Print("sum = sum + a", kLeast, most,
          Total([](ZelDtDecimal& total, const ZelDtDecimal& amount) { total = total + amount; }));
    Print("sum += a * 1.19", kLeast, most,
          Total([&](ZelDtDecimal& total, const ZelDtDecimal& amount) { total += amount * tax; }));
}

struct Topic {
    const char* name;
    void (*print)(std::size_t most);
};

const Topic kTopics[] = {
    {"texts", PrintTexts},
    {"edits", PrintEdits},
    {"archives", PrintArchives},
    {"decimals", PrintDecimals},
};

int Usage()
{
    std::fputs("zel_scaling texts|edits|archives|decimals MOST\n"
               "zel_scaling rows COUNT FILE\n"
               "zel_scaling run COMMAND...\n",
               stderr);
    return EXIT_FAILURE;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 3)
        return Usage();
    if (std::strcmp(argv[1], "run") == 0)
        return zelbench::RunMeasured(argv + 2);
    const std::size_t most = std::strtoul(argv[2], nullptr, 10);
    if (argc == 4 && std::strcmp(argv[1], "rows") == 0)
        return zelbench::WriteRows(most, argv[3]) ? EXIT_SUCCESS : EXIT_FAILURE;
    for (const Topic& topic : kTopics) {
        if (argc == 3 && std::strcmp(topic.name, argv[1]) == 0) {
            topic.print(most);
            return EXIT_SUCCESS;
        }
    }
    return Usage();
}
