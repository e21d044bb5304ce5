#include "tests/support/big_natural.h"

#include <algorithm>
#include <cassert>

namespace zeltest {

namespace {

constexpr std::size_t kGroupDigits = 9;

} // namespace

BigNatural::BigNatural(std::uint64_t number)
{
    for (; number != 0; number /= kBase)
        m_groups.push_back(static_cast<std::uint32_t>(number % kBase));
}

BigNatural BigNatural::FromDigits(std::string_view digits)
{
    BigNatural result;
    for (std::size_t end = digits.size(); end > 0;) {
        const std::size_t begin = end > kGroupDigits ? end - kGroupDigits : 0;
        std::uint32_t group = 0;
        for (const char c : digits.substr(begin, end - begin))
            group = group * 10 + static_cast<std::uint32_t>(c - '0');
        result.m_groups.push_back(group);
        end = begin;
    }
    result.Trim();
    return result;
}

BigNatural BigNatural::PowerOfTen(std::size_t exponent)
{
    BigNatural result;
    result.m_groups.assign(exponent / kGroupDigits, 0);
    std::uint32_t first = 1;
    for (std::size_t i = 0; i < exponent % kGroupDigits; ++i)
        first *= 10;
    result.m_groups.push_back(first);
    return result;
}

BigNatural BigNatural::PowerOfTwo(std::size_t exponent)
{
    constexpr std::size_t kStep = 63;
    BigNatural result = 1;
    for (; exponent >= kStep; exponent -= kStep)
        result = result * BigNatural(std::uint64_t{1} << kStep);
    return result * BigNatural(std::uint64_t{1} << exponent);
}

void BigNatural::Trim()
{
    while (!m_groups.empty() && m_groups.back() == 0)
        m_groups.pop_back();
}

std::size_t BigNatural::Digits() const
{
    if (IsZero())
        return 0;
    std::size_t digits = (m_groups.size() - 1) * kGroupDigits;
    for (std::uint32_t first = m_groups.back(); first != 0; first /= 10)
        ++digits;
    return digits;
}

std::size_t BigNatural::TrailingZeros() const
{
    std::size_t zeros = 0;
    for (std::uint32_t group : m_groups) {
        if (group != 0) {
            for (; group % 10 == 0; group /= 10)
                ++zeros;
            break;
        }
        zeros += kGroupDigits;
    }
    return zeros;
}

std::string BigNatural::Text() const
{
    if (IsZero())
        return "0";
    std::string text = std::to_string(m_groups.back());
    for (std::size_t i = m_groups.size() - 1; i-- > 0;) {
        const std::string group = std::to_string(m_groups[i]);
        text.append(kGroupDigits - group.size(), '0').append(group);
    }
    return text;
}

std::uint64_t BigNatural::Low64() const
{
    std::uint64_t result = 0;
    for (std::size_t i = m_groups.size(); i-- > 0;)
        result = result * kBase + m_groups[i];
    return result;
}

std::strong_ordering operator<=>(const BigNatural& a, const BigNatural& b)
{
    if (a.m_groups.size() != b.m_groups.size())
        return a.m_groups.size() <=> b.m_groups.size();
    return std::lexicographical_compare_three_way(a.m_groups.rbegin(), a.m_groups.rend(),
                                                  b.m_groups.rbegin(), b.m_groups.rend());
}

BigNatural operator+(const BigNatural& a, const BigNatural& b)
{
    BigNatural result;
    std::uint32_t carry = 0;
    for (std::size_t i = 0; i < std::max(a.m_groups.size(), b.m_groups.size()) || carry != 0; ++i) {
        std::uint32_t group = carry;
        group += i < a.m_groups.size() ? a.m_groups[i] : 0;
        group += i < b.m_groups.size() ? b.m_groups[i] : 0;
        result.m_groups.push_back(group % BigNatural::kBase);
        carry = group / BigNatural::kBase;
    }
    return result;
}

BigNatural operator-(const BigNatural& a, const BigNatural& b)
{
    assert(a >= b);
    BigNatural result = a;
    result.TakeOff(b, 1);
    return result;
}

BigNatural operator*(const BigNatural& a, const BigNatural& b)
{
    BigNatural result;
    result.m_groups.assign(a.m_groups.size() + b.m_groups.size(), 0);
    for (std::size_t i = 0; i < a.m_groups.size(); ++i) {
        std::uint64_t carry = 0;
        for (std::size_t j = 0; j < b.m_groups.size() || carry != 0; ++j) {
            carry += result.m_groups[i + j];
            if (j < b.m_groups.size())
                carry += std::uint64_t{a.m_groups[i]} * b.m_groups[j];
            result.m_groups[i + j] = static_cast<std::uint32_t>(carry % BigNatural::kBase);
            carry /= BigNatural::kBase;
        }
    }
    result.Trim();
    return result;
}

BigNatural operator/(const BigNatural& a, const BigNatural& b)
{
    return BigNatural::Divide(a, b).quotient;
}

BigNatural operator%(const BigNatural& a, const BigNatural& b)
{
    return BigNatural::Divide(a, b).rest;
}

/// About the number divided by the base to the power `from`.
double BigNatural::Leading(std::size_t from) const
{
    double result = 0;
    for (std::size_t i = m_groups.size(); i-- > from;)
        result = result * kBase + m_groups[i];
    return result;
}

/// As `* this < b`, without the detour through an ordering: division asks it for every group.
bool BigNatural::IsBelow(const BigNatural& b) const
{
    return m_groups.size() != b.m_groups.size() ? m_groups.size() < b.m_groups.size() : *this < b;
}

void BigNatural::PushGroup(std::uint32_t group)
{
    if (group != 0 || !IsZero())
        m_groups.insert(m_groups.begin(), group);
}

/// Subtracts `times` times b, which must not be more than the number.
void BigNatural::TakeOff(const BigNatural& b, std::uint64_t times)
{
    std::uint64_t carry = 0;
    for (std::size_t i = 0; i < b.m_groups.size() || carry != 0; ++i) {
        if (i < b.m_groups.size())
            carry += b.m_groups[i] * times;
        const auto group = static_cast<std::uint32_t>(carry % kBase);
        carry /= kBase;
        if (m_groups[i] < group) {
            m_groups[i] += kBase;
            ++carry;
        }
        m_groups[i] -= group;
    }
    Trim();
}

/// Subtracts b as often as it goes, which must be less than the base; returns how often.
std::uint32_t BigNatural::TakeOffAll(const BigNatural& b)
{
    if (IsBelow(b))
        return 0;
    // Estimates from the leading groups that are never too large and soon large enough.
    const std::size_t from = b.m_groups.size() > 3 ? b.m_groups.size() - 3 : 0;
    const double divisor = b.Leading(from) + (from == 0 ? 0 : 1);
    std::uint32_t times = 0;
    while (!IsBelow(b)) {
        const double estimate = Leading(from) / divisor * (1 - 1e-14);
        const auto step = std::max(static_cast<std::uint32_t>(estimate), std::uint32_t{1});
        TakeOff(b, step);
        times += step;
    }
    return times;
}

BigNatural::Division BigNatural::Divide(const BigNatural& a, const BigNatural& b)
{
    assert(!b.IsZero());
    Division result;
    result.quotient.m_groups.assign(a.m_groups.size(), 0);
    for (std::size_t i = a.m_groups.size(); i-- > 0;) {
        result.rest.PushGroup(a.m_groups[i]);
        result.quotient.m_groups[i] = result.rest.TakeOffAll(b);
    }
    result.quotient.Trim();
    return result;
}

} // namespace zeltest
