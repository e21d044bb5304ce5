/// Dates as most are written, read from bytes alone: what is taken and what is left to the reading
/// of other layouts.

#include "datetime/IMP/DTDATTXT.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <optional>
#include <ostream>
#include <string>

namespace {

struct Read {
    int day;
    int month;
    int year;

    bool operator==(const Read&) const = default;
    friend std::ostream& operator<<(std::ostream& os, const Read& read)
    {
        return os << read.day << '.' << read.month << '.' << read.year;
    }
};

/// The text in a block of exactly its size, so that a sanitizer sees every access behind it.
std::optional<Read> ReadExactly(const std::string& text)
{
    const std::unique_ptr<char[]> exact(new char[text.size() + 1]);
    std::memcpy(exact.get(), text.c_str(), text.size() + 1);
    zelrt::DateNumbers date;
    if (!zeldt::ReadUsualDate(exact.get(), date))
        return std::nullopt;
    return Read{date.day, date.month, date.year};
}

/// The same by the plain rule.
std::optional<Read> ReadPlainly(const std::string& text)
{
    const std::string layout = "dd.dd.dddd";
    for (std::size_t i = 0; i < layout.size(); ++i) {
        const bool digit = i < text.size() && text[i] >= '0' && text[i] <= '9';
        if (layout[i] == 'd' ? !digit : i >= text.size() || text[i] != '.')
            return std::nullopt;
    }
    if (text.size() > layout.size() && text[layout.size()] != ' ')
        return std::nullopt;
    const Read read{std::stoi(text.substr(0, 2)), std::stoi(text.substr(3, 2)),
                    std::stoi(text.substr(6, 4))};
    return read.year != 0 ? std::optional(read) : std::nullopt;
}

} // namespace

TEST(UsualDates, AreRead)
{
    EXPECT_EQ(ReadExactly("05.03.2000"), (Read{5, 3, 2000}));
    EXPECT_EQ(ReadExactly("99.99.9999"), (Read{99, 99, 9999}));
    EXPECT_EQ(ReadExactly("00.00.0001"), (Read{0, 0, 1}));
    EXPECT_EQ(ReadExactly("31.12.1999 23:59"), (Read{31, 12, 1999}));
    EXPECT_EQ(ReadExactly("00.00.0000"), std::nullopt);
    EXPECT_EQ(ReadExactly(""), std::nullopt);
}

TEST(UsualDates, AreThoseOfThePlainRule)
{
    // Every code at every place, and every length.
    for (const std::string usual : {"17.06.2048", "00.90.0009", "31.12.1999 07:05"}) {
        for (std::size_t at = 0; at < usual.size() && at < 12; ++at) {
            EXPECT_EQ(ReadExactly(usual.substr(0, at)), ReadPlainly(usual.substr(0, at)));
            for (int code = 1; code < 256; ++code) {
                std::string text = usual;
                text[at] = static_cast<char>(code);
                ASSERT_EQ(ReadExactly(text), ReadPlainly(text)) << text;
            }
        }
    }
}

TEST(UsualDates, HaveAllNumbers)
{
    const auto padded = [](int number, std::size_t places) {
        const std::string digits = std::to_string(number);
        return std::string(places - digits.size(), '0') + digits;
    };
    for (int pair = 0; pair < 100; ++pair) {
        const std::string text = padded(pair, 2) + '.' + padded(99 - pair, 2) + ".2000";
        EXPECT_EQ(ReadExactly(text), (Read{pair, 99 - pair, 2000}));
    }
    for (int year = 1; year < 10000; ++year)
        ASSERT_EQ(ReadExactly("01.02." + padded(year, 4)), (Read{1, 2, year}));
}
