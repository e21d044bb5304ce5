#ifndef ZELDT_BENCHMARKS_PLATFORM_DECIMALS_CONTENDERS_H
#define ZELDT_BENCHMARKS_PLATFORM_DECIMALS_CONTENDERS_H

/// The library's decimal numbers and those of other libraries, all with the same operations. Read
/// and Text serve operands and checks; where Write exists, both are also timed.

#include "platform/decimals/RWDecimal96.h"

#include <cstddef>
#include <string>

#ifdef ZELBENCH_HAVE_DECNUMBER
#define DECNUMDIGITS 28
#include <decNumber.h>
#endif
#ifdef ZELBENCH_HAVE_RUST_DECIMAL
#include "benchmarks/peers/rust/decimals.h"
#endif

namespace zelbench {

/// Room for every text that Write makes.
inline constexpr std::size_t kNumberRoom = 64;

struct Engine {
    RWDecimal96 number;

    static Engine Read(const std::string& text)
    {
        return Engine{RWDecimal96(text.data(), text.size())};
    }
    std::size_t Write(char* buffer) const { return number.print(buffer, kNumberRoom); }
    std::string Text() const
    {
        char buffer[kNumberRoom];
        return std::string(buffer, Write(buffer));
    }

    static Engine From(double source) { return Engine{RWDecimal96::from(source)}; }
    double ToDouble() const { return static_cast<double>(toDouble(number)); }

    Engine operator+(const Engine& b) const { return Engine{number + b.number}; }
    Engine operator*(const Engine& b) const { return Engine{number * b.number}; }
    Engine operator/(const Engine& b) const { return Engine{number / b.number}; }
    Engine operator%(const Engine& b) const { return Engine{number % b.number}; }
    int operator<(const Engine& b) const { return number < b.number; }
    int operator==(const Engine& b) const { return number == b.number; }
    Engine ToHundredths() const { return Engine{round(number, 2, RWDecimalBase::RoundNearest)}; }
};

#ifdef ZELBENCH_HAVE_DECNUMBER
/// decNumber made to compute with 28 digits and to round ties away from zero.
class DecNumber {
public:
    static DecNumber Read(const std::string& text)
    {
        DecNumber number;
        decNumberFromString(&number.m_number, text.c_str(), Context());
        return number;
    }
    std::size_t Write(char* buffer) const
    {
        decNumberToString(&m_number, buffer);
        return std::char_traits<char>::length(buffer);
    }
    std::string Text() const
    {
        char buffer[kNumberRoom];
        return std::string(buffer, Write(buffer));
    }

    DecNumber operator+(const DecNumber& b) const { return Computed(decNumberAdd, b); }
    DecNumber operator*(const DecNumber& b) const { return Computed(decNumberMultiply, b); }
    DecNumber operator/(const DecNumber& b) const { return Computed(decNumberDivide, b); }
    DecNumber operator%(const DecNumber& b) const { return Computed(decNumberRemainder, b); }
    int operator<(const DecNumber& b) const
    {
        const DecNumber order = Computed(decNumberCompare, b);
        return decNumberIsNegative(&order.m_number) ? 1 : 0;
    }
    DecNumber ToHundredths() const
    {
        static const DecNumber hundredth = Read("0.01");
        return Computed(decNumberQuantize, hundredth);
    }

private:
    using Operation = decNumber* (*)(decNumber*, const decNumber*, const decNumber*, decContext*);

    DecNumber() {} // m_number is set by what makes it

    static decContext* Context()
    {
        static decContext context = [] {
            decContext made;
            decContextDefault(&made, DEC_INIT_BASE);
            made.digits = DECNUMDIGITS;
            made.round = DEC_ROUND_HALF_UP;
            made.traps = 0;
            return made;
        }();
        return &context;
    }

    [[gnu::always_inline]] DecNumber Computed(Operation operation, const DecNumber& b) const
    {
        DecNumber result;
        operation(&result.m_number, &m_number, &b.m_number, Context());
        return result;
    }

    decNumber m_number;
};
#endif

#ifdef ZELBENCH_HAVE_RUST_DECIMAL
/// The same 96 bits and up to 28 places; where they fit the bits it carries 29 digits.
class RustDecimal {
public:
    static RustDecimal Read(const std::string& text)
    {
        RustDecimal number;
        zelbench_rust_parse(text.data(), text.size(), &number.m_number);
        return number;
    }
    std::size_t Write(char* buffer) const
    {
        return zelbench_rust_print(&m_number, buffer, kNumberRoom);
    }
    std::string Text() const
    {
        char buffer[kNumberRoom];
        return std::string(buffer, Write(buffer));
    }

    static RustDecimal From(double number)
    {
        RustDecimal result;
        zelbench_rust_from_double(number, &result.m_number);
        return result;
    }
    double ToDouble() const { return zelbench_rust_to_double(&m_number); }

    RustDecimal operator+(const RustDecimal& b) const { return Computed(zelbench_rust_add, b); }
    RustDecimal operator*(const RustDecimal& b) const
    {
        return Computed(zelbench_rust_multiply, b);
    }
    RustDecimal operator/(const RustDecimal& b) const { return Computed(zelbench_rust_divide, b); }
    RustDecimal operator%(const RustDecimal& b) const
    {
        return Computed(zelbench_rust_remainder, b);
    }
    int operator<(const RustDecimal& b) const { return zelbench_rust_less(&m_number, &b.m_number); }
    RustDecimal ToHundredths() const
    {
        RustDecimal result;
        zelbench_rust_round(&m_number, 2, &result.m_number);
        return result;
    }

private:
    using Number = zelbench_rust_decimal;
    using Operation = void (*)(const Number*, const Number*, Number*);

    RustDecimal() {} // m_number is set by what makes it

    [[gnu::always_inline]] RustDecimal Computed(Operation operation, const RustDecimal& b) const
    {
        RustDecimal result;
        operation(&m_number, &b.m_number, &result.m_number);
        return result;
    }

    Number m_number;
};
#endif

} // namespace zelbench

#endif
