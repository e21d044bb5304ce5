#include "benchmarks/scaling/rows.h"

#include "benchmarks/inputs.h"

#include <cstdio>
#include <memory>

namespace zelbench {

namespace {

void WriteRow(Random& random, std::size_t number, const std::string& name, std::FILE* file)
{
    const auto below = [&random](std::size_t limit) {
        return static_cast<int>(Below(random, limit));
    };
    std::fprintf(file, "%zu;%d;%d.%02d;%d.%03d;%s;%c;%02d.%02d.%04d %02d:%02d;%s\n", number,
                 below(30000), below(100000), below(100), below(1000), below(1000), name.c_str(),
                 'A' + below(26), 1 + below(28), 1 + below(12), 1990 + below(40), below(24),
                 below(60), below(2) == 0 ? "Ja" : "Nein");
}

} // namespace

bool WriteRows(std::size_t count, const char* path)
{
    std::FILE* const file = std::fopen(path, "wb");
    if (file == nullptr)
        return false;
    // In code page 1252 only; names of ASCII letters mean the same in every encoding.
    std::vector<std::string> names;
    for (std::string& name : Names(kFewOperands, 1)) {
        if (IsAscii(name))
            names.push_back(std::move(name));
    }
    Random random(2);
    std::fputs("NUMBER;QUANTITY;PRICE;WEIGHT;NAME;GRADE;MOMENT;EXPRESS\n", file);
    for (std::size_t number = 1; number <= count; ++number)
        WriteRow(random, number, names[Below(random, names.size())], file);
    const bool isWhole = std::ferror(file) == 0;
    return std::fclose(file) == 0 && isWhole;
}

} // namespace zelbench
