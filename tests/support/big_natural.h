#ifndef ZELDT_TESTS_SUPPORT_BIG_NATURAL_H
#define ZELDT_TESTS_SUPPORT_BIG_NATURAL_H

#include <compare>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zeltest {

/// A natural number of any size, kept as groups of nine decimal digits.
class BigNatural {
public:
    BigNatural() = default;
    BigNatural(std::uint64_t number); // NOLINT(google-explicit-constructor)

    /// From decimal digits only; no digits are 0.
    static BigNatural FromDigits(std::string_view digits);
    static BigNatural PowerOfTen(std::size_t exponent);
    static BigNatural PowerOfTwo(std::size_t exponent);

    bool IsZero() const { return m_groups.empty(); }
    /// How many decimal digits it has; 0 has none.
    std::size_t Digits() const;
    /// How many zeros it ends with; 0 ends with none.
    std::size_t TrailingZeros() const;
    std::string Text() const;
    /// The remainder by 2^64.
    std::uint64_t Low64() const;

    friend bool operator==(const BigNatural&, const BigNatural&) = default;
    friend std::strong_ordering operator<=>(const BigNatural& a, const BigNatural& b);

    friend BigNatural operator+(const BigNatural& a, const BigNatural& b);
    /// Needs a >= b.
    friend BigNatural operator-(const BigNatural& a, const BigNatural& b);
    friend BigNatural operator*(const BigNatural& a, const BigNatural& b);
    friend BigNatural operator/(const BigNatural& a, const BigNatural& b);
    friend BigNatural operator%(const BigNatural& a, const BigNatural& b);

    struct Division;
    /// Needs b != 0.
    static Division Divide(const BigNatural& a, const BigNatural& b);

private:
    static constexpr std::uint32_t kBase = 1'000'000'000;

    void Trim();
    double Leading(std::size_t from) const;
    bool IsBelow(const BigNatural& b) const;
    void PushGroup(std::uint32_t group);
    void TakeOff(const BigNatural& b, std::uint64_t times);
    std::uint32_t TakeOffAll(const BigNatural& b);

    std::vector<std::uint32_t> m_groups; ///< least significant first, the last one not 0
};

struct BigNatural::Division {
    BigNatural quotient;
    BigNatural rest;
};

} // namespace zeltest

#endif
