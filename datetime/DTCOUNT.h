#ifndef ZELDT_DATETIME_DTCOUNT_H
#define ZELDT_DATETIME_DTCOUNT_H

/// Tells plain numbers apart that a field or a count of a date or time can take from those that it
/// would cut.

#include <type_traits>

class ZelDtDecimal;
class ZelDtDouble;

namespace zeldt {

/// Whether a number may have a fraction.
template <typename Number>
using HasFraction =
    std::disjunction<std::is_floating_point<Number>, std::is_same<Number, ZelDtDouble>,
                     std::is_same<Number, ZelDtDecimal>>;

/// Whether a whole number may be one that a long of 32 bits cuts.
template <typename Number>
using ExceedsLong =
    std::bool_constant<std::is_integral<Number>::value && !std::is_same<Number, long>::value &&
                       (sizeof(Number) > 4 ||
                        (sizeof(Number) == 4 && std::is_unsigned<Number>::value))>;

/// Exists for plain numbers of types short and int.
template <typename... Numbers>
using IfShortsOrInts =
    std::enable_if_t<std::conjunction<std::disjunction<std::is_same<Numbers, short>,
                                                       std::is_same<Numbers, int>>...>::value,
                     int>;

/// Exists for numbers if one of them may have a fraction.
template <typename... Numbers>
using IfFractions = std::enable_if_t<std::disjunction<HasFraction<Numbers>...>::value>;

/// Exists for numbers if a long may cut one of them.
template <typename... Numbers>
using IfNoLongs =
    std::enable_if_t<std::disjunction<HasFraction<Numbers>..., ExceedsLong<Numbers>...>::value>;

} // namespace zeldt

#endif
