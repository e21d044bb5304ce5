#include "benchmarks/inputs.h"

#include <algorithm>
#include <numeric>
#include <set>

namespace zelbench {

namespace {

const char* const kSyllables[] = {
    "ber", "hof",  "mann", "stein", "bach", "schm", "wald", "ler", "ner",  "ing",  "hardt", "sch",
    "kel", "rich", "ter",  "burg",  "lin",  "dorf", "kamp", "ger", "acht", "witz", "olt",   "en",
};

const char* const kGermanSyllables[] = {
    "m\374l", "k\366n", "b\344r", "gro\337", "kr\374g", "sch\344f", "h\366r", "wei\337",
};

const char* const kWords[] = {
    "the",   "order",    "of", "invoice", "and",       "customer", "price",
    "a",     "delivery", "on", "account", "to",        "payment",  "in",
    "stock", "number",   "is", "due",     "warehouse", "with",
};

const char* const kGermanWords[] = {
    "f\374r",  "Auftr\344ge", "\374ber",     "gr\366\337te", "St\374ck", "Geb\374hr",
    "Ma\337e", "K\344ufer",   "\304nderung", "\334bersicht", "Erl\366s", "Pr\374fung",
};

template <std::size_t Count>
const char* Any(Random& random, const char* const (&texts)[Count])
{
    return texts[Below(random, Count)];
}

/// Words up to the length; `germanOf8` of 8 have an umlaut or sharp s.
std::string Text(std::size_t length, std::size_t germanOf8, unsigned seed)
{
    Random random(seed);
    std::string text;
    while (text.size() < length) {
        text += Below(random, 8) < germanOf8 ? Any(random, kGermanWords) : Any(random, kWords);
        text += ' ';
    }
    text.resize(length);
    return text;
}

std::string Name(Random& random)
{
    std::string name = Any(random, kSyllables);
    const std::size_t more = 1 + Below(random, 3);
    for (std::size_t i = 0; i < more; ++i)
        name += Below(random, 8) == 0 ? Any(random, kGermanSyllables) : Any(random, kSyllables);
    name[0] = static_cast<char>(name[0] - 'a' + 'A');
    return name;
}

} // namespace

std::size_t Below(Random& random, std::size_t limit)
{
    return random() % limit;
}

std::vector<std::int32_t> Numbers(std::size_t count, int digits, unsigned seed)
{
    Random random(seed);
    std::vector<std::int32_t> numbers;
    while (numbers.size() < count) {
        std::size_t limit = 10;
        for (std::size_t more = Below(random, static_cast<std::size_t>(digits)); more != 0; --more)
            limit *= 10;
        const std::size_t greatest = std::min<std::size_t>(limit - 1, INT32_MAX);
        const auto magnitude =
            static_cast<std::int32_t>(limit / 10 + Below(random, greatest - limit / 10 + 1));
        numbers.push_back(Below(random, 2) == 0 ? magnitude : -magnitude);
    }
    return numbers;
}

std::vector<std::string> Names(std::size_t count, unsigned seed)
{
    Random random(seed);
    std::set<std::string> taken;
    std::vector<std::string> names;
    while (names.size() < count) {
        std::string name = Name(random);
        if (taken.insert(name).second)
            names.push_back(std::move(name));
    }
    return names;
}

std::string PlainText(std::size_t length, unsigned seed)
{
    return Text(length, 0, seed);
}

std::string GermanText(std::size_t length, unsigned seed)
{
    return Text(length, 1, seed);
}

bool IsAscii(const std::string& text)
{
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

std::vector<std::uint32_t> Shuffled(std::size_t count, unsigned seed)
{
    Random random(seed);
    std::vector<std::uint32_t> indices(count);
    std::iota(indices.begin(), indices.end(), 0U);
    for (std::size_t i = count; i > 1; --i)
        std::swap(indices[i - 1], indices[Below(random, i)]);
    return indices;
}

} // namespace zelbench
