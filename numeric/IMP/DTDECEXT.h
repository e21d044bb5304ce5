#ifndef ZELDT_NUMERIC_IMP_DTDECEXT_H
#define ZELDT_NUMERIC_IMP_DTDECEXT_H

/// External texts of usual numbers, written and read where they are, without another text in
/// between. What is not usual is left to the long ways of ConvToExtern and SetFromExtern, which
/// give the same. Private to the library.

#include "platform/decimals/RWDecimal96.h"
#include "platform/runtime/digits.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace zeldt {

/// A number that has a usual external text: up to 18 digits, and places as computing gives them.
class UsualExtern {
public:
    /// Room for the text, some of which may be overwritten behind it.
    static constexpr std::size_t kRoom = RWDecimal96::kTextRoom;

    /// False if the number is not usual.
    bool Take(const RWDecimal96& number) noexcept
    {
        if (!Access::IsShort(number) || !Access::MayHave(Access::Places(number)))
            return false;
        m_mantissa = Access::LowWords(number);
        const auto bits = static_cast<std::uint64_t>(m_mantissa);
        const std::uint64_t magnitude = m_mantissa < 0 ? 0 - bits : bits;
        if (magnitude >= PowerOfTen(kMostDigits))
            return false;
        m_digits = CountDigits(magnitude);
        m_exponent = m_digits - 1 - Access::Places(number);
        return true;
    }

    /// Writes the text and returns its length.
    std::size_t Write(char* out) const
    {
        constexpr std::string_view kZero = "0E+000";
        if (m_mantissa == 0)
            return kZero.copy(out, kZero.size());
        // One digit in front of the point.
        std::size_t length = Access::MakeShort(m_mantissa, m_digits - 1).print(out, kRoom);
        if (m_digits == 1)
            out[length++] = '.';
        char* const mark = out + length;
        mark[0] = 'E';
        mark[1] = m_exponent < 0 ? '-' : '+';
        mark[2] = '0'; // no usual number has more than two digits there
        const auto size = static_cast<std::size_t>(m_exponent < 0 ? -m_exponent : m_exponent);
        zelrt::WriteTwoDigits(size, mark + 3);
        return length + 5;
    }

private:
    using Access = RWDecimal96Access;

    static constexpr int kMostDigits = 18;

    static std::uint64_t PowerOfTen(int zeros) noexcept
    {
        return static_cast<std::uint64_t>(
            RWDecimal96Long::kFactors[RWDecimal96Long::kMostZeros + zeros]);
    }

    static int CountDigits(std::uint64_t magnitude) noexcept
    {
        // 1233 / 4096 is a little more than the logarithm of 2.
        const int least = static_cast<int>(std::bit_width(magnitude)) * 1233 / 4096;
        return least + (magnitude >= PowerOfTen(least) ? 1 : 0);
    }

    std::int64_t m_mantissa = 0;
    int m_digits = 0;
    int m_exponent = 0;
};

/// Reads an external text of the shape that numbers of at most 28 digits are written in. False if
/// it has another one, or if the number is one that a plain text may not have.
inline bool ReadUsualExtern(std::string_view text, RWDecimal96& number)
{
    using Access = RWDecimal96Access;
    constexpr std::size_t kMostDigits = 28;
    constexpr std::size_t kExponent = 5; // "E+000"
    const std::size_t sign = !text.empty() && text.front() == '-' ? 1 : 0;
    if (text.size() < sign + 1 + kExponent || text.size() > sign + kMostDigits + 1 + kExponent)
        return false;
    const std::string_view mantissa = text.substr(0, text.size() - kExponent);
    const char* const mark = mantissa.data() + mantissa.size();
    const bool hasPoint = mantissa.size() != sign + 1;
    const bool isUsual = mark[0] == 'E' && (mark[1] == '-' || mark[1] == '+') && mark[2] == '0' &&
                         zelrt::IsDigit(mark[3]) && zelrt::IsDigit(mark[4]) &&
                         zelrt::IsDigit(mantissa[sign]) && (!hasPoint || mantissa[sign + 1] == '.');
    if (!isUsual)
        return false;
    const RWDecimal96 read(mantissa.data(), mantissa.size());
    const int size = 10 * (mark[3] - '0') + (mark[4] - '0');
    const int places = Access::Places(read) + (mark[1] == '-' ? size : -size);
    if (read.isNull() || !Access::MayHave(places))
        return false;
    number = Access::Make(Access::HighWord(read), Access::LowWords(read), places);
    return true;
}

} // namespace zeldt

#endif
