#include "benchmarks/zelconv/cells.h"

#include <fmt/compile.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdlib>
#include <cstring>
#include <iterator>

namespace peer {

namespace {

constexpr int kMostDigits = 28;
constexpr int kMoneyPlaces = 2;

bool IsDigit(char character)
{
    return character >= '0' && character <= '9';
}

std::string_view WithoutPlus(std::string_view text)
{
    return text.size() > 1 && text[0] == '+' && IsDigit(text[1]) ? text.substr(1) : text;
}

/// Digits as they are read: in 64 bits as long as they fit.
class Digits {
public:
    void Take(char digit)
    {
        if (m_count == kPieceDigits)
            Join();
        m_piece = m_piece * 10 + static_cast<std::uint64_t>(digit - '0');
        ++m_count;
    }

    boost::multiprecision::int128_t Value()
    {
        if (!m_joined)
            return m_piece;
        Join();
        return m_whole;
    }

private:
    static constexpr int kPieceDigits = 18;

    void Join()
    {
        for (int i = 0; i < m_count; ++i)
            m_whole *= 10;
        m_whole += m_piece;
        m_piece = 0;
        m_count = 0;
        m_joined = true;
    }

    boost::multiprecision::int128_t m_whole = 0;
    std::uint64_t m_piece = 0;
    int m_count = 0;
    bool m_joined = false;
};

void RoundToMoney(Decimal& number)
{
    boost::multiprecision::int128_t divisor = 1;
    for (; number.places > kMoneyPlaces; --number.places)
        divisor *= 10;
    const bool negative = number.digits < 0;
    number.digits = (number.digits + (negative ? -divisor : divisor) / 2) / divisor;
}

/// The number at the beginning of the text, which loses it and the separator behind it; of 1 to
/// `most` digits.
bool TakeField(std::string_view& text, std::size_t most, char separator, int& field)
{
    const auto result = std::from_chars(text.data(), text.data() + text.size(), field);
    const auto length = static_cast<std::size_t>(result.ptr - text.data());
    if (result.ec != std::errc() || length > most || !IsDigit(text[0]))
        return false;
    text.remove_prefix(length);
    if (separator == '\0')
        return true;
    if (text.empty() || text[0] != separator)
        return false;
    text.remove_prefix(1);
    return true;
}

int DaysOf(int month, int year)
{
    static constexpr std::array kDays = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    return month == 2 && leap ? 29 : kDays[static_cast<std::size_t>(month - 1)];
}

bool IsValid(const Moment& moment)
{
    return moment.year >= 1753 && moment.month >= 1 && moment.month <= 12 && moment.day >= 1 &&
           moment.day <= DaysOf(moment.month, moment.year) && moment.hour < 24 &&
           moment.minute < 60 && moment.second < 60;
}

/// The bytes of the UTF-8 character at the beginning, if code page 1252 has it; else 0.
std::size_t CharacterLength(std::string_view text)
{
    static constexpr std::array<std::uint16_t, 27> kSpecial = {
        0x0152, 0x0153, 0x0160, 0x0161, 0x0178, 0x017D, 0x017E, 0x0192, 0x02C6,
        0x02DC, 0x2013, 0x2014, 0x2018, 0x2019, 0x201A, 0x201C, 0x201D, 0x201E,
        0x2020, 0x2021, 0x2022, 0x2026, 0x2030, 0x2039, 0x203A, 0x20AC, 0x2122};
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const auto isNext = [&](std::size_t i) { return (byte(i) & 0xC0U) == 0x80; };
    if (byte(0) < 0x80)
        return byte(0) == 0 ? 0 : 1;
    if (byte(0) >= 0xC2 && byte(0) < 0xE0 && text.size() >= 2 && isNext(1)) {
        const unsigned value = (byte(0) & 0x1FU) << 6U | (byte(1) & 0x3FU);
        const bool latin = value >= 0xA0 && value < 0x100;
        return latin || std::binary_search(kSpecial.begin(), kSpecial.end(), value) ? 2 : 0;
    }
    if ((byte(0) & 0xF0U) == 0xE0 && text.size() >= 3 && isNext(1) && isNext(2)) {
        const unsigned value =
            (byte(0) & 0x0FU) << 12U | (byte(1) & 0x3FU) << 6U | (byte(2) & 0x3FU);
        return std::binary_search(kSpecial.begin(), kSpecial.end(), value) ? 3 : 0;
    }
    return 0;
}

} // namespace

template <typename Integer>
std::optional<Integer> ReadInteger(std::string_view text)
{
    text = WithoutPlus(text);
    Integer number = 0;
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    if (result.ec != std::errc() || result.ptr != end)
        return std::nullopt;
    return number;
}

template std::optional<std::int32_t> ReadInteger(std::string_view);
template std::optional<std::int16_t> ReadInteger(std::string_view);

std::optional<Decimal> ReadMoney(std::string_view text)
{
    const bool negative = !text.empty() && text[0] == '-';
    text = negative ? text.substr(1) : WithoutPlus(text);
    Digits digits;
    int count = 0;
    int places = -1;
    for (const char character : text) {
        if (character == '.' && places < 0) {
            places = 0;
            continue;
        }
        if (!IsDigit(character) || count == kMostDigits)
            return std::nullopt;
        digits.Take(character);
        ++count;
        places += places >= 0 ? 1 : 0;
    }
    if (count == 0)
        return std::nullopt;
    Decimal number{digits.Value(), std::max(places, 0)};
    if (negative)
        number.digits = -number.digits;
    if (number.places > kMoneyPlaces)
        RoundToMoney(number);
    for (; number.places < kMoneyPlaces; ++number.places) {
        if (++count > kMostDigits)
            return std::nullopt;
        number.digits *= 10;
    }
    return number;
}

std::optional<double> ReadDouble(std::string_view text)
{
    text = WithoutPlus(text);
    double number = 0;
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    const bool finite = !text.empty() && (IsDigit(text.back()) || text.back() == '.');
    if (result.ec != std::errc() || result.ptr != end || !finite)
        return std::nullopt;
    return number;
}

std::optional<std::string_view> ReadText(std::string_view text)
{
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t length = CharacterLength(text.substr(i));
        if (length == 0)
            return std::nullopt;
        i += length;
    }
    return text;
}

std::optional<std::string_view> ReadCharacter(std::string_view text)
{
    if (CharacterLength(text) != text.size())
        return std::nullopt;
    return text;
}

std::optional<Moment> ReadMoment(std::string_view text)
{
    Moment moment{};
    if (!TakeField(text, 2, '.', moment.day) || !TakeField(text, 2, '.', moment.month) ||
        !TakeField(text, 4, '\0', moment.year))
        return std::nullopt;
    if (!text.empty()) {
        if (text[0] != ' ')
            return std::nullopt;
        text.remove_prefix(1);
        if (!TakeField(text, 2, ':', moment.hour) || !TakeField(text, 2, '\0', moment.minute))
            return std::nullopt;
        if (!text.empty() &&
            (text[0] != ':' || !TakeField(text = text.substr(1), 2, '\0', moment.second)))
            return std::nullopt;
    }
    if (!text.empty() || !IsValid(moment))
        return std::nullopt;
    return moment;
}

std::optional<bool> ReadBool(std::string_view text)
{
    std::array<char, 4> lower{};
    if (text.size() > lower.size())
        return std::nullopt;
    std::transform(text.begin(), text.end(), lower.begin(), [](char character) {
        return character >= 'A' && character <= 'Z' ? static_cast<char>(character + ('a' - 'A'))
                                                    : character;
    });
    const std::string_view word(lower.data(), text.size());
    if (word == "ja" || word == "j" || word == "1")
        return true;
    if (word == "nein" || word == "n" || word == "0")
        return false;
    return std::nullopt;
}

void Append(Buffer& out, std::string_view text)
{
    out.append(text.data(), text.data() + text.size());
}

void WriteInteger(Buffer& out, int number)
{
    fmt::format_to(std::back_inserter(out), FMT_COMPILE("{}"), number);
}

void WriteMoney(Buffer& out, const Decimal& number)
{
    const bool negative = number.digits < 0;
    const boost::multiprecision::int128_t digits = negative ? -number.digits : number.digits;
    if (negative)
        out.push_back('-');
    if (digits <= std::numeric_limits<std::int64_t>::max()) {
        const auto few = static_cast<std::uint64_t>(digits);
        fmt::format_to(std::back_inserter(out), FMT_COMPILE("{}.{:02}"), few / 100, few % 100);
        return;
    }
    const std::string text = digits.str();
    Append(out, std::string_view(text).substr(0, text.size() - kMoneyPlaces));
    out.push_back('.');
    Append(out, std::string_view(text).substr(text.size() - kMoneyPlaces));
}

bool WriteDouble(Buffer& out, double number)
{
    constexpr int kDigits = 15;
    const double size = std::abs(number);
    const bool plain = number == 0 || (size >= 0.1 && size < 1E15);
    std::array<char, 32> text{};
    const char* const end = plain ? std::to_chars(text.data(), text.data() + text.size(), number,
                                                  std::chars_format::general, kDigits)
                                        .ptr
                                  : std::to_chars(text.data(), text.data() + text.size(), number,
                                                  std::chars_format::scientific, kDigits - 1)
                                        .ptr;
    double read = 0;
    std::from_chars(text.data(), end, read);
    if (read != number)
        return false;
    const std::string_view written(text.data(), static_cast<std::size_t>(end - text.data()));
    if (plain) {
        Append(out, written);
        if (written.find('.') == written.npos)
            out.push_back('.');
        return true;
    }
    // No zeros at the end, and three digits of an exponent.
    const std::size_t mark = written.find('e');
    const std::string_view mantissa = written.substr(0, mark);
    const std::string_view exponent = written.substr(mark + 2);
    Append(out, mantissa.substr(0, mantissa.find_last_not_of('0') + 1));
    Append(out, written.substr(mark, 2));
    Append(out, std::string_view("00").substr(0, 3 - exponent.size()));
    Append(out, exponent);
    return true;
}

void WriteText(Buffer& out, std::string_view text)
{
    out.push_back('"');
    for (;;) {
        const std::size_t quote = text.find('"');
        Append(out, text.substr(0, quote));
        if (quote == text.npos)
            break;
        Append(out, "\"\"");
        text.remove_prefix(quote + 1);
    }
    out.push_back('"');
}

bool WriteMoment(Buffer& out, const Moment& moment)
{
    if (moment.second != 0)
        return false;
    fmt::format_to(std::back_inserter(out), FMT_COMPILE("\"{:02}.{:02}.{:04} {:02}:{:02}\""),
                   moment.day, moment.month, moment.year, moment.hour, moment.minute);
    return true;
}

void WriteBool(Buffer& out, bool value)
{
    Append(out, value ? "\"1\"" : "\"0\"");
}

} // namespace peer
