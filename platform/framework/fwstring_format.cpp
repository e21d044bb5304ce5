// Formatting of CString. Written by hand because the C library's own depends on the locale.

#include "platform/framework/fwexcept.h"
#include "platform/framework/fwstring.h"
#include "platform/framework/fwtext.h"

#include <algorithm>
#include <charconv>
#include <climits>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>

namespace {

/// Width of an integer argument.
enum class Length { Char, Short, Int, Long, LongLong, MaxInt, Size, Difference };

/// One conversion: what stands between the percent sign and its letter.
struct Conversion {
    bool left = false;        ///< -
    bool sign = false;        ///< +
    bool blank = false;       ///< blank in place of a plus sign
    bool alternative = false; ///< #
    bool zeros = false;       ///< 0
    int width = 0;
    std::optional<int> precision;
    Length length = Length::Int;
};

/// The arguments of a call; lets functions take one after the other.
class Arguments {
public:
    explicit Arguments(va_list list) { va_copy(m_list, list); }
    ~Arguments() { va_end(m_list); }
    Arguments(const Arguments&) = delete;
    Arguments& operator=(const Arguments&) = delete;

    int Int() { return va_arg(m_list, int); }
    double Double() { return va_arg(m_list, double); }
    const void* Pointer() { return va_arg(m_list, const void*); }

    std::int64_t Signed(Length length)
    {
        // Some of these types are the same on one target and not on the other.
        // NOLINTBEGIN(bugprone-branch-clone)
        switch (length) {
        case Length::Char:
            return static_cast<signed char>(Int());
        case Length::Short:
            return static_cast<short>(Int());
        case Length::Long:
            return va_arg(m_list, long);
        case Length::LongLong:
            return va_arg(m_list, long long);
        case Length::MaxInt:
            return va_arg(m_list, std::intmax_t);
        case Length::Size:
        case Length::Difference:
            return va_arg(m_list, std::ptrdiff_t);
        case Length::Int:
            break;
        }
        // NOLINTEND(bugprone-branch-clone)
        return Int();
    }

    std::uint64_t Unsigned(Length length)
    {
        switch (length) {
        case Length::Char:
            return static_cast<unsigned char>(Int());
        case Length::Short:
            return static_cast<unsigned short>(Int());
        case Length::Int:
            return va_arg(m_list, unsigned);
        case Length::Long:
            return va_arg(m_list, unsigned long);
        default:
            return static_cast<std::uint64_t>(Signed(length));
        }
    }

private:
    va_list m_list;
};

/// Reads a format and appends what it makes.
class Formatter {
public:
    Formatter(CString& out, std::string_view format, va_list arguments)
        : m_out(out), m_rest(format), m_arguments(arguments)
    {}

    void Run()
    {
        while (!m_rest.empty()) {
            const std::size_t plain = std::min(m_rest.find('%'), m_rest.size());
            Append(m_rest.substr(0, plain));
            m_rest.remove_prefix(plain);
            if (!m_rest.empty()) {
                m_rest.remove_prefix(1);
                Convert(ReadConversion());
            }
        }
    }

private:
    bool Accept(std::string_view text)
    {
        const bool found = m_rest.starts_with(text);
        if (found)
            m_rest.remove_prefix(text.size());
        return found;
    }

    void ReadFlags(Conversion& conversion)
    {
        for (;;) {
            if (Accept("-"))
                conversion.left = true;
            else if (Accept("+"))
                conversion.sign = true;
            else if (Accept(" "))
                conversion.blank = true;
            else if (Accept("#"))
                conversion.alternative = true;
            else if (Accept("0"))
                conversion.zeros = true;
            else
                return;
        }
    }

    /// Digits, or an asterisk for an argument.
    int ReadNumber()
    {
        if (Accept("*"))
            return m_arguments.Int();
        int number = 0;
        const char* const end = m_rest.data() + m_rest.size();
        const auto [stop, error] = std::from_chars(m_rest.data(), end, number);
        if (error == std::errc::result_out_of_range)
            AfxThrowInvalidArgException();
        m_rest.remove_prefix(static_cast<std::size_t>(stop - m_rest.data()));
        return number;
    }

    Length ReadLength()
    {
        struct Modifier {
            std::string_view text;
            Length length;
        };
        constexpr Modifier modifiers[] = {
            {"hh", Length::Char},      {"h", Length::Short},      {"ll", Length::LongLong},
            {"l", Length::Long},       {"j", Length::MaxInt},     {"z", Length::Size},
            {"t", Length::Difference}, {"I64", Length::LongLong}, {"I32", Length::Int}};
        for (const Modifier& modifier : modifiers) {
            if (Accept(modifier.text))
                return modifier.length;
        }
        return Length::Int;
    }

    Conversion ReadConversion()
    {
        Conversion conversion;
        ReadFlags(conversion);
        conversion.width = ReadNumber();
        if (conversion.width == INT_MIN)
            AfxThrowInvalidArgException();
        if (conversion.width < 0) {
            conversion.left = true;
            conversion.width = -conversion.width;
        }
        if (Accept(".")) {
            const int precision = ReadNumber();
            if (precision >= 0)
                conversion.precision = precision;
        }
        conversion.length = ReadLength();
        return conversion;
    }

    void Convert(const Conversion& conversion)
    {
        if (m_rest.empty())
            AfxThrowInvalidArgException();
        const char letter = m_rest.front();
        m_rest.remove_prefix(1);
        switch (letter) {
        case '%':
            return Append("%");
        case 'c':
            return AppendCharacter(conversion);
        case 's':
            return AppendText(conversion);
        case 'd':
        case 'i':
            return AppendSigned(conversion);
        case 'u':
        case 'o':
        case 'x':
        case 'X':
            return AppendUnsigned(conversion, letter);
        case 'p':
            return AppendPointer(conversion);
        case 'e':
        case 'E':
        case 'f':
        case 'F':
        case 'g':
        case 'G':
            return AppendDouble(conversion, letter);
        default:
            AfxThrowInvalidArgException();
        }
    }

    void Append(std::string_view text)
    {
        m_out.Append(text.data(), zelfw::CheckedLength(text.size()));
    }

    void AppendRepeated(char character, std::int64_t count)
    {
        if (count > 0)
            m_out.Append(CString(character, static_cast<int>(count)));
    }

    /// Prefix and digits, padded to the width; zeros stand between the two, blanks outside.
    void AppendPadded(const Conversion& conversion, std::string_view prefix,
                      std::string_view digits, std::int64_t leadingZeros, bool zeroFill)
    {
        const auto used = static_cast<std::int64_t>(prefix.size() + digits.size()) + leadingZeros;
        const std::int64_t fill = std::max<std::int64_t>(conversion.width - used, 0);
        const bool zeros = zeroFill && !conversion.left;
        if (!conversion.left && !zeros)
            AppendRepeated(' ', fill);
        Append(prefix);
        AppendRepeated('0', leadingZeros + (zeros ? fill : 0));
        Append(digits);
        if (conversion.left)
            AppendRepeated(' ', fill);
    }

    void AppendCharacter(const Conversion& conversion)
    {
        const char character = static_cast<char>(m_arguments.Int());
        AppendPadded(conversion, {}, {&character, 1}, 0, false);
    }

    void AppendText(const Conversion& conversion)
    {
        if (conversion.length != Length::Int)
            AfxThrowInvalidArgException();
        const char* text = static_cast<const char*>(m_arguments.Pointer());
        if (text == nullptr)
            text = "(null)";
        std::size_t length = 0;
        const auto limit =
            conversion.precision ? static_cast<std::size_t>(*conversion.precision) : SIZE_MAX;
        while (length < limit && text[length] != '\0')
            ++length;
        AppendPadded(conversion, {}, {text, length}, 0, false);
    }

    static std::string_view SignOf(const Conversion& conversion, bool negative)
    {
        if (negative)
            return "-";
        if (conversion.sign)
            return "+";
        return conversion.blank ? " " : "";
    }

    void AppendInteger(const Conversion& conversion, std::string_view prefix, std::uint64_t number,
                       int base, bool upper)
    {
        char buffer[32];
        char* end = std::to_chars(buffer, buffer + sizeof buffer, number, base).ptr;
        if (upper)
            std::transform(buffer, end, buffer,
                           [](char c) { return c >= 'a' ? static_cast<char>(c - 'a' + 'A') : c; });
        std::string_view digits(buffer, static_cast<std::size_t>(end - buffer));
        if (number == 0 && conversion.precision == 0)
            digits = {};
        std::int64_t zeros =
            conversion.precision.value_or(1) - static_cast<std::int64_t>(digits.size());
        if (base == 8 && conversion.alternative && (number != 0 || digits.empty()))
            zeros = std::max<std::int64_t>(zeros, 1);
        AppendPadded(conversion, prefix, digits, std::max<std::int64_t>(zeros, 0),
                     conversion.zeros && !conversion.precision);
    }

    void AppendSigned(const Conversion& conversion)
    {
        const std::int64_t number = m_arguments.Signed(conversion.length);
        const auto bits = static_cast<std::uint64_t>(number);
        AppendInteger(conversion, SignOf(conversion, number < 0), number < 0 ? 0 - bits : bits, 10,
                      false);
    }

    void AppendUnsigned(const Conversion& conversion, char letter)
    {
        const std::uint64_t number = m_arguments.Unsigned(conversion.length);
        const bool hexadecimal = letter == 'x' || letter == 'X';
        std::string_view prefix;
        if (hexadecimal && conversion.alternative && number != 0)
            prefix = letter == 'x' ? "0x" : "0X";
        AppendInteger(conversion, prefix, number, letter == 'u' ? 10 : (hexadecimal ? 16 : 8),
                      letter == 'X');
    }

    /// Sixteen upper-case hexadecimal digits.
    void AppendPointer(Conversion conversion)
    {
        conversion.precision = 16;
        AppendInteger(conversion, {}, reinterpret_cast<std::uintptr_t>(m_arguments.Pointer()), 16,
                      true);
    }

    void AppendDouble(const Conversion& conversion, char letter)
    {
        if (conversion.alternative)
            AfxThrowInvalidArgException();
        const double number = m_arguments.Double();
        const bool upper = letter == 'E' || letter == 'F' || letter == 'G';
        const bool negative = std::signbit(number);
        const std::string_view sign = SignOf(conversion, negative);
        if (!std::isfinite(number)) {
            const bool infinite = std::isinf(number);
            const std::string_view text =
                upper ? (infinite ? "INF" : "NAN") : (infinite ? "inf" : "nan");
            return AppendPadded(conversion, sign, text, 0, false);
        }

        std::chars_format format = std::chars_format::general;
        if (letter == 'e' || letter == 'E')
            format = std::chars_format::scientific;
        else if (letter == 'f' || letter == 'F')
            format = std::chars_format::fixed;

        // The largest double has 309 digits in front of the point; sign, point and exponent take
        // less than the rest.
        constexpr std::int64_t kRoom = 330;
        const int precision = conversion.precision.value_or(6);
        CString digits;
        const auto room = static_cast<std::uint64_t>(precision + kRoom);
        char* const buffer = digits.GetBufferSetLength(zelfw::CheckedLength(room));
        char* const end =
            std::to_chars(buffer, buffer + room, std::fabs(number), format, precision).ptr;
        digits.Truncate(static_cast<int>(end - buffer));
        if (upper)
            digits.MakeUpper();
        AppendPadded(conversion, sign, zelfw::View(digits), 0, conversion.zeros);
    }

    CString& m_out;
    std::string_view m_rest;
    Arguments m_arguments;
};

/// The arguments of a call, ended also when formatting throws.
struct VariableList {
    va_list arguments;
    ~VariableList() { va_end(arguments); }
};

} // namespace

void CString::FormatV(LPCTSTR format, va_list arguments)
{
    CString result;
    Formatter(result, zelfw::View(format), arguments).Run();
    *this = std::move(result);
}

void CString::AppendFormatV(LPCTSTR format, va_list arguments)
{
    CString appended;
    Formatter(appended, zelfw::View(format), arguments).Run();
    Append(appended);
}

void CString::Format(LPCTSTR format, ...)
{
    VariableList list;
    va_start(list.arguments, format);
    FormatV(format, list.arguments);
}

void CString::AppendFormat(LPCTSTR format, ...)
{
    VariableList list;
    va_start(list.arguments, format);
    AppendFormatV(format, list.arguments);
}
