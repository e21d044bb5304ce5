/// The house sort order: single comparisons, and sorting names.
///
/// naive: the same order by a plain loop over the table of weights. memcmp, strcoll, icu: other
/// orders, which agree with the house order on names of ASCII letters alone; only on those are
/// their results compared. strcoll uses a German locale where there is one, else that of C, and is
/// named accordingly.

#include "benchmarks/contest.h"
#include "benchmarks/inputs.h"
#include "benchmarks/jobs.h"
#include "foundation/DTSORT.h"
#include "text/DTSTRING.h"

#include <algorithm>
#include <clocale>
#include <cstring>
#include <locale.h>

#ifdef ZELBENCH_HAVE_ICU
#include <unicode/ucol.h>
#endif

namespace zelbench {

namespace {

int Sign(std::int64_t number)
{
    return (number > 0) - (number < 0);
}

/// One name as each of the contenders wants it.
struct Name {
    std::string ansi;
    std::string utf8;
    std::u16string utf16;
};

/// Above 0x9F, where the umlauts are, code page 1252 and Unicode have the same numbers.
Name MakeName(const std::string& ansi)
{
    Name name{ansi, "", u""};
    for (const char c : ansi) {
        const auto byte = static_cast<unsigned char>(c);
        name.utf16 += static_cast<char16_t>(byte);
        if (byte < 0x80) {
            name.utf8 += c;
        } else {
            name.utf8 += static_cast<char>(0xC0 | byte >> 6);
            name.utf8 += static_cast<char>(0x80 | (byte & 0x3F));
        }
    }
    return name;
}

using NameList = std::shared_ptr<const std::vector<Name>>;

NameList MakeNames(std::size_t count)
{
    std::vector<Name> names;
    for (const std::string& name : Names(count, 31))
        names.push_back(MakeName(name));
    return Share(std::move(names));
}

int CompareOurs(const Name& a, const Name& b)
{
    return zeldt::CompareInHouseOrder(a.ansi.data(), a.ansi.size(), b.ansi.data(), b.ansi.size());
}

int CompareNaive(const Name& a, const Name& b)
{
    const std::size_t common = std::min(a.ansi.size(), b.ansi.size());
    for (std::size_t i = 0; i < common; ++i) {
        if (zeldt::WeightOf(a.ansi[i]) != zeldt::WeightOf(b.ansi[i]))
            return zeldt::WeightOf(a.ansi[i]) < zeldt::WeightOf(b.ansi[i]) ? -1 : 1;
    }
    return (a.ansi.size() > b.ansi.size()) - (a.ansi.size() < b.ansi.size());
}

int CompareBytes(const Name& a, const Name& b)
{
    const int order =
        std::memcmp(a.ansi.data(), b.ansi.data(), std::min(a.ansi.size(), b.ansi.size()));
    if (order != 0)
        return Sign(order);
    return (a.ansi.size() > b.ansi.size()) - (a.ansi.size() < b.ansi.size());
}

#ifdef ZELBENCH_HAVE_POSIX
/// A locale that lives as long as the program.
struct Collation {
    const char* contender;
    locale_t locale;
};

const Collation& GetCollation()
{
    static const Collation collation = [] {
        if (const locale_t german = newlocale(LC_COLLATE_MASK, "de_DE.UTF-8", nullptr))
            return Collation{"strcoll_de", german};
        return Collation{"strcoll_C", newlocale(LC_COLLATE_MASK, "C", nullptr)};
    }();
    return collation;
}

int CompareByLocale(const Name& a, const Name& b)
{
    static const locale_t locale = GetCollation().locale;
    return Sign(strcoll_l(a.utf8.c_str(), b.utf8.c_str(), locale));
}
#endif

#ifdef ZELBENCH_HAVE_ICU
int CompareByIcu(const Name& a, const Name& b)
{
    static const UCollator* const collator = [] {
        UErrorCode status = U_ZERO_ERROR;
        const UCollator* const german = ucol_open("de", &status);
        if (U_FAILURE(status))
            Fail("icu", u_errorName(status));
        return german;
    }();
    return ucol_strcoll(collator, a.utf16.data(), static_cast<std::int32_t>(a.utf16.size()),
                        b.utf16.data(), static_cast<std::int32_t>(b.utf16.size()));
}
#endif

/// Hands each comparison to `add(contender, compare, sameOrder)`.
template <typename Add>
void ForEachOrder(Add add)
{
    add(
        "ours", [](const Name& a, const Name& b) { return CompareOurs(a, b); }, true);
    add(
        "naive", [](const Name& a, const Name& b) { return CompareNaive(a, b); }, true);
    add(
        "memcmp", [](const Name& a, const Name& b) { return CompareBytes(a, b); }, false);
#ifdef ZELBENCH_HAVE_POSIX
    add(
        GetCollation().contender,
        [](const Name& a, const Name& b) { return CompareByLocale(a, b); }, false);
#endif
#ifdef ZELBENCH_HAVE_ICU
    add(
        "icu", [](const Name& a, const Name& b) { return CompareByIcu(a, b); }, false);
#endif
}

struct NamePair {
    const Name* left;
    const Name* right;
};

/// `names` must live as long as the benchmarks.
void AddComparing(const std::string& jobName, const NameList& names, std::vector<NamePair> list)
{
    const auto pairs = Share(std::move(list));
    Job job(jobName);
    ForEachOrder([&](const std::string& contender, auto compare, bool sameOrder) {
        const auto comparable = [pairs, sameOrder](std::size_t index) {
            const NamePair& pair = (*pairs)[index];
            return sameOrder || (IsAscii(pair.left->ansi) && IsAscii(pair.right->ansi));
        };
        job.Add(
            contender, pairs,
            [compare, names](const NamePair& pair) { return compare(*pair.left, *pair.right); },
            comparable);
    });
}

std::vector<NamePair> RandomPairs(const std::vector<Name>& names, std::size_t count)
{
    Random random(32);
    std::vector<NamePair> pairs;
    while (pairs.size() < count)
        pairs.push_back({&names[Below(random, names.size())], &names[Below(random, names.size())]});
    return pairs;
}

/// Names that stand side by side in the order, most with a long common beginning.
std::vector<NamePair> Neighbours(const std::vector<Name>& names, std::size_t count)
{
    std::vector<const Name*> sorted;
    for (const Name& name : names)
        sorted.push_back(&name);
    std::sort(sorted.begin(), sorted.end(),
              [](const Name* a, const Name* b) { return CompareNaive(*a, *b) < 0; });
    Random random(33);
    std::vector<NamePair> pairs;
    while (pairs.size() < count) {
        const std::size_t first = Below(random, sorted.size() - 1);
        const std::size_t second = first + Below(random, 2);
        pairs.push_back({sorted[first + (second == first)], sorted[second]});
    }
    return pairs;
}

/// A sorted list; its text consists of the names on which all orders agree.
struct SortedNames {
    NameList names;
    std::vector<std::uint32_t> indices;

    std::string ReadBack() const
    {
        std::string text;
        for (const std::uint32_t index : indices) {
            const std::string& name = (*names)[index].ansi;
            if (IsAscii(name))
                text += name + ' ';
        }
        return text;
    }
};

void AddSorting(const std::string& jobName, const NameList& names)
{
    const auto unsorted = ShareOne(Shuffled(names->size(), 34));
    Job job(jobName, names->size());
    ForEachOrder([&](const std::string& contender, auto compare, bool) {
        job.Add(contender, unsorted, [compare, names](const std::vector<std::uint32_t>& indices) {
            SortedNames sorted{names, indices};
            const std::vector<Name>& list = *names;
            std::sort(
                sorted.indices.begin(), sorted.indices.end(),
                [&](std::uint32_t a, std::uint32_t b) { return compare(list[a], list[b]) < 0; });
            return sorted;
        });
    });
}

/// Whole objects compared with their operators.
template <typename Text>
void AddSortingOfObjects(Job& job, const std::string& contender, const NameList& names)
{
    std::vector<Text> texts;
    for (const Name& name : *names)
        texts.emplace_back(name.ansi.c_str());
    const auto list = Share(std::move(texts));
    job.Add(contender, ShareOne(Shuffled(names->size(), 34)),
            [list, names](const std::vector<std::uint32_t>& indices) {
                SortedNames sorted{names, indices};
                const std::vector<Text>& values = *list;
                std::sort(sorted.indices.begin(), sorted.indices.end(),
                          [&](std::uint32_t a, std::uint32_t b) { return values[a] < values[b]; });
                return sorted;
            });
}

} // namespace

void AddSortOrderJobs()
{
    constexpr std::size_t kNames = 100000;
    const NameList few = MakeNames(kFewOperands);
    const NameList many = MakeNames(kNames);

    AddComparing("sortorder/compare", few, RandomPairs(*few, 4 * kFewOperands));
    AddComparing("sortorder/compare-neighbours", few, Neighbours(*few, 4 * kFewOperands));
    AddComparing("sortorder/compare-many", many, RandomPairs(*many, kManyOperands));
    AddSorting("sortorder/sort-100000", many);

    Job objects("sortorder/sort-values-100000", kNames);
    AddSortingOfObjects<ZelDtString>(objects, "ours", many);
    AddSortingOfObjects<std::string>(objects, "std_string", many);
}

} // namespace zelbench
