#ifndef ZELDT_FOUNDATION_DTNOMIX_H
#define ZELDT_FOUNDATION_DTNOMIX_H

/// Keeps booleans and characters apart from other values.
///
/// Both classes convert to plain numbers without a check, so the compiler would compute with a
/// missing flag or the code of a character where another value stands beside it. What is meant is
/// to be said: `n + b.GetValue()`, `s == ZelDtString(b)`. Characters and strings do go together;
/// these have operators of their own.

#include "DTBASIS.h"

#include <type_traits>

class ZelDtBool;
class ZelDtChar;

namespace zeldt {

/// Whether the class converts to plain numbers that are none.
template <typename Value>
using IsFlagOrChar =
    std::disjunction<std::is_same<Value, ZelDtBool>, std::is_same<Value, ZelDtChar>>;

/// `Result` where values of that class are not to be assigned.
template <typename Value, typename Result>
using IfFlagOrChar = std::enable_if_t<IsFlagOrChar<Value>::value, Result>;

/// Whether `Other` is a value class of another kind than the boolean or character.
template <typename Value, typename Other>
using IsApart = std::conjunction<IsFlagOrChar<Value>, std::is_base_of<ZelDtBasis, Other>,
                                 std::negation<std::is_base_of<Value, Other>>>;

/// The result of what must not be computed or compared.
template <typename A, typename B>
using IfApart = std::enable_if_t<std::disjunction<IsApart<A, B>, IsApart<B, A>>::value, int>;

/// Exists for a value class of which no `Target` can be made.
template <typename Value, typename Target>
using IfNoSource = std::enable_if_t<
    std::conjunction<std::is_base_of<ZelDtBasis, Value>,
                     std::negation<std::is_convertible<const Value&, Target>>>::value>;

} // namespace zeldt

template <typename A, typename B>
zeldt::IfApart<A, B> operator==(const A&, const B&) = delete;
template <typename A, typename B>
zeldt::IfApart<A, B> operator!=(const A&, const B&) = delete;
template <typename A, typename B>
zeldt::IfApart<A, B> operator<(const A&, const B&) = delete;
template <typename A, typename B>
zeldt::IfApart<A, B> operator>(const A&, const B&) = delete;
template <typename A, typename B>
zeldt::IfApart<A, B> operator<=(const A&, const B&) = delete;
template <typename A, typename B>
zeldt::IfApart<A, B> operator>=(const A&, const B&) = delete;
template <typename A, typename B>
zeldt::IfApart<A, B> operator+(const A&, const B&) = delete;
template <typename A, typename B>
zeldt::IfApart<A, B> operator-(const A&, const B&) = delete;
template <typename A, typename B>
zeldt::IfApart<A, B> operator*(const A&, const B&) = delete;
template <typename A, typename B>
zeldt::IfApart<A, B> operator/(const A&, const B&) = delete;
template <typename A, typename B>
zeldt::IfApart<A, B> operator%(const A&, const B&) = delete;
template <typename A, typename B>
zeldt::IfApart<A, B> operator+=(A&, const B&) = delete;
template <typename A, typename B>
zeldt::IfApart<A, B> operator-=(A&, const B&) = delete;

#endif
