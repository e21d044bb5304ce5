#ifndef ZELDT_FOUNDATION_DTNOMIX_H
#define ZELDT_FOUNDATION_DTNOMIX_H

/// Keeps values apart that the compiler would bring together in a way nobody means.
///
/// Booleans and characters convert to plain numbers without a check, so the compiler would compute
/// with a missing flag or the code of a character where another value stands beside it. Strings can
/// be made of dates and times and times of strings, so it would compare the texts on one side and
/// the amounts on the other. What is meant is to be said: `n + b.GetValue()`,
/// `s == ZelDtString(b)`, `ZelDtTime(s) < t`. Characters and strings do go together; these have
/// operators of their own.

#include "DTBASIS.h"

#include <type_traits>

class ZelDtBool;
class ZelDtChar;
class ZelDtDateTime;
class ZelDtString;
class ZelDtTime;

namespace zeldt {

/// Whether the class converts to plain numbers that are none.
template <typename Value>
using IsFlagOrChar =
    std::disjunction<std::is_same<Value, ZelDtBool>, std::is_same<Value, ZelDtChar>>;

/// `Result` where values of that class are not to be assigned.
template <typename Value, typename Result>
using IfFlagOrChar = std::enable_if_t<IsFlagOrChar<Value>::value, Result>;

/// Whether `Value` is the boolean or character and `Other` a value class of another kind.
template <typename Value, typename Other>
using IsApart =
    std::conjunction<IsFlagOrChar<Value>, std::is_base_of<ZelDtBasis, Other>,
                     std::negation<std::is_base_of<Value, Other>>,
                     std::negation<std::conjunction<std::is_same<Value, ZelDtChar>,
                                                    std::is_base_of<ZelDtString, Other>>>>;

/// Whether one is a string and the other a date or time.
template <typename Text, typename Calendar>
using IsTextAndCalendar =
    std::conjunction<std::is_base_of<ZelDtString, Text>,
                     std::disjunction<std::is_base_of<ZelDtDateTime, Calendar>,
                                      std::is_base_of<ZelDtTime, Calendar>>>;

/// The result of what must not be computed.
template <typename A, typename B>
using IfApart = std::enable_if_t<std::disjunction<IsApart<A, B>, IsApart<B, A>>::value, int>;

/// The result of what must not be compared.
template <typename A, typename B>
using IfUnlike =
    std::enable_if_t<std::disjunction<IsApart<A, B>, IsApart<B, A>, IsTextAndCalendar<A, B>,
                                      IsTextAndCalendar<B, A>>::value,
                     int>;

/// Exists for a value class of which no `Target` can be made.
template <typename Value, typename Target>
using IfNoSource = std::enable_if_t<
    std::conjunction<std::is_base_of<ZelDtBasis, Value>,
                     std::negation<std::is_convertible<const Value&, Target>>>::value>;

} // namespace zeldt

template <typename A, typename B>
zeldt::IfUnlike<A, B> operator==(const A&, const B&) = delete;
template <typename A, typename B>
zeldt::IfUnlike<A, B> operator!=(const A&, const B&) = delete;
template <typename A, typename B>
zeldt::IfUnlike<A, B> operator<(const A&, const B&) = delete;
template <typename A, typename B>
zeldt::IfUnlike<A, B> operator>(const A&, const B&) = delete;
template <typename A, typename B>
zeldt::IfUnlike<A, B> operator<=(const A&, const B&) = delete;
template <typename A, typename B>
zeldt::IfUnlike<A, B> operator>=(const A&, const B&) = delete;
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
