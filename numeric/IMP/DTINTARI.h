#ifndef ZELDT_NUMERIC_IMP_DTINTARI_H
#define ZELDT_NUMERIC_IMP_DTINTARI_H

/// Integer arithmetic and conversions that tell when a number does not fit. No texts of errors, no
/// exceptions. Private to the library.

#include "platform/runtime/int32text.h"

#include <cstdint>
#include <limits>
#include <string_view>
#include <type_traits>

namespace zeldt {

enum class IntStatus {
    Ok,
    OutOfRange,     ///< the result does not fit the number type
    DivisionByZero, ///< the divisor is 0
    UnreadText,     ///< something behind the number was not read
};

template <typename Number>
struct IntResult {
    Number value; ///< 0 unless the status is Ok
    IntStatus status;
};

/// The number if it fits.
template <typename Number>
constexpr IntResult<Number> Narrowed(std::int64_t wide)
{
    if (wide < std::numeric_limits<Number>::min() || wide > std::numeric_limits<Number>::max())
        return {0, IntStatus::OutOfRange};
    return {static_cast<Number>(wide), IntStatus::Ok};
}

enum class Arithmetic { Add, Subtract, Multiply, Divide };

/// The exact result of the operation, quotients truncated toward zero. The operands may be of wider
/// types than the number; only the result has to fit.
template <Arithmetic kind, typename Number, typename Left, typename Right>
constexpr IntResult<Number> Computed(Left a, Right b)
{
    Number result = 0;
    bool exceeds = false;
    if constexpr (kind == Arithmetic::Add) {
        exceeds = __builtin_add_overflow(a, b, &result);
    } else if constexpr (kind == Arithmetic::Subtract) {
        exceeds = __builtin_sub_overflow(a, b, &result);
    } else if constexpr (kind == Arithmetic::Multiply) {
        exceeds = __builtin_mul_overflow(a, b, &result);
    } else {
        if (b == 0)
            return {0, IntStatus::DivisionByZero};
        // The one quotient that the operands' own type might not hold.
        using Wide = std::common_type_t<Left, Right, Number>;
        if (a == std::numeric_limits<Wide>::min() && b == -1)
            return {0, IntStatus::OutOfRange};
        return Narrowed<Number>(Wide{a} / Wide{b});
    }
    if (exceeds)
        return {0, IntStatus::OutOfRange};
    return {result, IntStatus::Ok};
}

/// The number truncated toward zero; it must lie between the limits before that. NaN does not.
template <typename Number>
constexpr IntResult<Number> Truncated(double number)
{
    constexpr double low = std::numeric_limits<Number>::min();
    constexpr double high = std::numeric_limits<Number>::max();
    if (!(number >= low && number <= high))
        return {0, IntStatus::OutOfRange};
    return {static_cast<Number>(number), IntStatus::Ok};
}

/// Reads a number from a text. With a comma, else a point in it, only the first `cut` bytes count
/// and whatever follows the digits is passed over; otherwise everything has to be read. Without
/// digits the number is 0.
template <typename Number>
IntResult<Number> ReadNumber(std::string_view text, std::size_t cut)
{
    const bool hasSeparator = text.find_first_of(",.") != std::string_view::npos;
    if (hasSeparator)
        text = text.substr(0, cut);
    const char* const last = text.data() + text.size();
    const zelrt::Int32Text read = zelrt::ParseInt32(text.data(), last);
    if (!read.inRange)
        return {0, IntStatus::OutOfRange};
    const IntResult<Number> result = Narrowed<Number>(read.value);
    if (result.status == IntStatus::Ok && !hasSeparator && read.end != last)
        return {0, IntStatus::UnreadText};
    return result;
}

} // namespace zeldt

#endif
