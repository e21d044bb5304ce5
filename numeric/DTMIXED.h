#ifndef ZELDT_NUMERIC_DTMIXED_H
#define ZELDT_NUMERIC_DTMIXED_H

/// Values of different number classes in one expression.
///
/// Each side becomes a value of the wider class, keeping mode and definedness, and that class's
/// own operator does the rest: a short with a long computes as longs, either of them with a double
/// as doubles, and any of them with a decimal as decimals. Without this the compiler would reach
/// for the unchecked conversions to plain numbers, or find the expression ambiguous.

#include "../foundation/DTNOMIX.h"

#include <type_traits>

class ZelDtDecimal;
class ZelDtDouble;
class ZelDtLong;
class ZelDtShort;

namespace zeldt {

/// The rank of a number class; 0 for every other type.
template <typename Value>
struct NumberRank : std::integral_constant<int, 0> {};
template <>
struct NumberRank<ZelDtShort> : std::integral_constant<int, 1> {};
template <>
struct NumberRank<ZelDtLong> : std::integral_constant<int, 2> {};
template <>
struct NumberRank<ZelDtDouble> : std::integral_constant<int, 3> {};
template <>
struct NumberRank<ZelDtDecimal> : std::integral_constant<int, 4> {};

/// Exists where a value of `Narrow` may be used for one of the wider class `Wide`.
template <typename Narrow, typename Wide>
using IfWidens = std::enable_if_t<(NumberRank<Narrow>::value > 0 &&
                                   NumberRank<Narrow>::value < NumberRank<Wide>::value)>;

/// The wider of two different number classes.
template <typename A, typename B>
using WiderNumber =
    std::enable_if_t<(NumberRank<A>::value > 0 && NumberRank<B>::value > 0 &&
                      NumberRank<A>::value != NumberRank<B>::value),
                     std::conditional_t<(NumberRank<A>::value > NumberRank<B>::value), A, B>>;

/// The value itself.
template <typename Wide>
const Wide& Widened(const Wide& value)
{
    return value;
}

/// The value as one of the wider class.
template <typename Wide, typename Narrow, typename = IfWidens<Narrow, Wide>>
Wide Widened(const Narrow& value)
{
    return Wide(value);
}

} // namespace zeldt

template <typename A, typename B, typename Wide = zeldt::WiderNumber<A, B>>
Wide operator+(const A& a, const B& b)
{
    return zeldt::Widened<Wide>(a) + zeldt::Widened<Wide>(b);
}

template <typename A, typename B, typename Wide = zeldt::WiderNumber<A, B>>
Wide operator-(const A& a, const B& b)
{
    return zeldt::Widened<Wide>(a) - zeldt::Widened<Wide>(b);
}

template <typename A, typename B, typename Wide = zeldt::WiderNumber<A, B>>
Wide operator*(const A& a, const B& b)
{
    return zeldt::Widened<Wide>(a) * zeldt::Widened<Wide>(b);
}

template <typename A, typename B, typename Wide = zeldt::WiderNumber<A, B>>
Wide operator/(const A& a, const B& b)
{
    return zeldt::Widened<Wide>(a) / zeldt::Widened<Wide>(b);
}

/// Only decimals have remainders.
template <typename A, typename B, typename Wide = zeldt::WiderNumber<A, B>,
          typename = std::enable_if_t<std::is_same<Wide, ZelDtDecimal>::value>>
Wide operator%(const A& a, const B& b)
{
    return zeldt::Widened<Wide>(a) % zeldt::Widened<Wide>(b);
}

template <typename Wide, typename Narrow, typename = zeldt::IfWidens<Narrow, Wide>>
Wide& operator+=(Wide& a, const Narrow& b)
{
    return a += zeldt::Widened<Wide>(b);
}

template <typename Wide, typename Narrow, typename = zeldt::IfWidens<Narrow, Wide>>
Wide& operator-=(Wide& a, const Narrow& b)
{
    return a -= zeldt::Widened<Wide>(b);
}

template <typename A, typename B, typename Wide = zeldt::WiderNumber<A, B>>
int operator<(const A& a, const B& b)
{
    return zeldt::Widened<Wide>(a) < zeldt::Widened<Wide>(b);
}

template <typename A, typename B, typename Wide = zeldt::WiderNumber<A, B>>
int operator>(const A& a, const B& b)
{
    return zeldt::Widened<Wide>(a) > zeldt::Widened<Wide>(b);
}

template <typename A, typename B, typename Wide = zeldt::WiderNumber<A, B>>
int operator<=(const A& a, const B& b)
{
    return zeldt::Widened<Wide>(a) <= zeldt::Widened<Wide>(b);
}

template <typename A, typename B, typename Wide = zeldt::WiderNumber<A, B>>
int operator>=(const A& a, const B& b)
{
    return zeldt::Widened<Wide>(a) >= zeldt::Widened<Wide>(b);
}

template <typename A, typename B, typename Wide = zeldt::WiderNumber<A, B>>
int operator==(const A& a, const B& b)
{
    return zeldt::Widened<Wide>(a) == zeldt::Widened<Wide>(b);
}

template <typename A, typename B, typename Wide = zeldt::WiderNumber<A, B>>
int operator!=(const A& a, const B& b)
{
    return zeldt::Widened<Wide>(a) != zeldt::Widened<Wide>(b);
}

#endif
