#ifndef ZELDT_NUMERIC_IMP_DTDOUBLI_H
#define ZELDT_NUMERIC_IMP_DTDOUBLI_H

/// What a ZelDtDouble keeps, and how its number is read from and written as text. Private to the
/// library.

#include "foundation/DTSTATE.h"
#include "numeric/DTDOUBLE.h"
#include "platform/runtime/digits.h"
#include "platform/runtime/exactpowers.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

class ZelDtDouble_Imp final : public zeldt::PartOfCell<ZelDtDouble_Imp> {
public:
    explicit ZelDtDouble_Imp(double number) : value(number) {}

    /// The number at the front of a text. A number that is too large, or that is too small and has
    /// something behind it, is error 8; a null text error 5.
    static double ConvAsciiToDouble(const char* text);

    double value;
};

namespace zeldt {

enum class DoubleStatus {
    Ok,       ///< also without a number
    TooLarge, ///< the number rounds to no finite one
    TooSmall, ///< the number is not 0 and rounds to 0
};

struct DoubleText {
    double value;    ///< the nearest number; 0 without a number; infinite when too large
    const char* end; ///< first byte that was not read; the text's begin without a number
    DoubleStatus status;
};

/// Reads a number of few digits, with or without a point, that is the quotient of a whole number
/// and a power of ten that a double holds both: dividing rounds once, so that it gives the nearest
/// double. False for any other text.
inline bool ReadShort(std::string_view number, double& magnitude, const char*& end) noexcept
{
    constexpr std::uint64_t exactLimit = std::uint64_t{1} << 53;
    constexpr std::ptrdiff_t mostDigits = 19; // which 64 bits hold
    const char* p = number.data();
    const char* const last = p + number.size();
    std::uint64_t whole = 0;
    const auto readDigits = [&p, &whole, last] {
        const char* const first = p;
        for (; p != last && zelrt::IsDigit(*p); ++p)
            whole = whole * 10 + static_cast<unsigned>(*p - '0');
        return p - first;
    };
    const std::ptrdiff_t integers = readDigits();
    std::ptrdiff_t decimals = 0;
    if (p != last && *p == '.') {
        ++p;
        decimals = readDigits();
    }
    const std::ptrdiff_t digits = integers + decimals;
    const bool hasExponent = p != last && (*p == 'e' || *p == 'E');
    if (digits == 0 || digits > mostDigits || whole > exactLimit || hasExponent)
        return false;
    magnitude =
        static_cast<double>(whole) / zelrt::kExactPowersOfTen[static_cast<std::size_t>(decimals)];
    end = p;
    return true;
}

/// Reads white space, one optional sign, decimal digits with or without a point, and an exponent
/// if it is complete. Knows no hexadecimal numbers and no words.
DoubleText ReadDouble(std::string_view text) noexcept;

/// Reads as ReadDouble, what is too small as 0. What is too large is error 8, unless it is a number
/// that the largest double's external text stands for.
double ReadExternDouble(const char* text);

/// The external text of a number: 16 significant digits in the shortest of the fixed and the
/// scientific form. Error 8 for NaN and infinities.
class ExternDouble {
public:
    explicit ExternDouble(double number);
    const char* Text() const noexcept { return m_text; }

private:
    char m_text[32];
};

} // namespace zeldt

/// What the sources of the class share.
struct ZelDtDoubleAccess {
    static double& Of(ZelDtDouble& object) { return object.m_pImp->value; }
    static double Of(const ZelDtDouble& object) { return object.m_pImp->value; }

    /// Stores a number that differs, marking the change. NaN differs from everything.
    static void Change(ZelDtDouble& object, double number)
    {
        if (Of(object) != number)
            Replace(object, number);
    }

    /// Stores the number in any case, a negative zero for a positive one too.
    static void Replace(ZelDtDouble& object, double number)
    {
        if (Of(object) != number)
            object.SetModified(1);
        Of(object) = number;
    }

    static void SetDefined(ZelDtDouble& object) { object.SetDefined(1); }

    static int CheckDefined(const ZelDtDouble& a, const ZelDtDouble& b)
    {
        return a.CheckDefinedForArithmetic(a, b);
    }
};

#endif
