// The rows that are read and written.

#include "benchmarks/platform/recordsets/contenders.h"

#include <array>
#include <cstdio>

namespace zelbench {

namespace {

std::uint64_t Scattered(int number)
{
    std::uint64_t bits = static_cast<std::uint64_t>(number) * 0x9E3779B97F4A7C15ULL;
    bits ^= bits >> 29U;
    return bits * 0xBF58476D1CE4E5B9ULL >> 8U;
}

} // namespace

PlainRow MakeRow(int number)
{
    static constexpr std::array kNames = {"Dübel",         "Gießkanne",   "Bügelsäge",
                                          "Klappstuhl",    "Maßband 5 m", "Türgriff, verzinkt",
                                          "Lampe \"Süd\"", "Kanne d'eau"};
    const std::uint64_t dice = Scattered(number);
    PlainRow row;
    row.number = number;
    row.quantity = static_cast<int>(dice % 30000);
    std::array<char, 32> price{};
    std::snprintf(price.data(), price.size(), "%u.%02u", static_cast<unsigned>(dice % 99991),
                  static_cast<unsigned>(dice % 97));
    row.price = price.data();
    row.hasWeight = number % 10 != 0;
    row.weight = row.hasWeight ? static_cast<double>(dice % 1000003) / 1000 : 0;
    row.name = std::string(kNames[dice % kNames.size()]) + " " + std::to_string(dice % 100000);
    row.grade = static_cast<char>('A' + dice % 26);
    row.year = 1990 + static_cast<int>(dice % 40);
    row.month = 1 + static_cast<int>(dice % 12);
    row.day = 1 + static_cast<int>(dice % 28);
    row.hour = static_cast<int>(dice % 24);
    row.minute = static_cast<int>(dice % 60);
    row.second = static_cast<int>(dice % 59);
    row.isExpress = dice % 3 == 0;
    return row;
}

void Fingerprint::Add(const PlainRow& row)
{
    std::array<char, 400> text{};
    std::snprintf(text.data(), text.size(), "%d|%d|%s|%d %.17g|%s|%c|%d-%d-%d %d:%d:%d|%d\n",
                  row.number, row.quantity, row.price.c_str(), row.hasWeight ? 1 : 0, row.weight,
                  row.name.c_str(), row.grade, row.year, row.month, row.day, row.hour, row.minute,
                  row.second, row.isExpress ? 1 : 0);
    for (const char* byte = text.data(); *byte != '\0'; ++byte)
        m_sum = (m_sum ^ static_cast<unsigned char>(*byte)) * 1099511628211ULL;
}

bool IsSqlite(const std::string& connect)
{
    return connect.find("sqlite") != std::string::npos;
}

} // namespace zelbench
