#ifndef ZELDT_PLATFORM_DECIMALS_RWDECIMAL96_H
#define ZELDT_PLATFORM_DECIMALS_RWDECIMAL96_H

#include "RWCString.h"
#include "export.h"

#include <cstddef>
#include <cstdint>
#include <exception>

class RWDecimalPortable;

/// What a decimal number is to its library.
class RWDecimalBase {
public:
    enum State : std::int32_t {
        NormalState = 0, ///< a number
        NullState = 1,   ///< no number yet
    };

    enum RoundingMethod : int {
        RoundNearest = 0,      ///< to the nearest, ties away from zero
        RoundAwayFromZero = 1, ///< away from zero
        RoundTowardZero = 2,   ///< toward zero
    };
};

/// A whole number of 96 bits in two's complement, most significant word first.
struct int96 {
    std::int32_t high;
    std::uint32_t middle;
    std::uint32_t low;
};

/// The result of an operation does not exist or has more than 28 digits before its point.
class ZELRW_API RWDecimal96OverflowErr : public std::exception {
public:
    /// `why` is a text of the library's own.
    explicit RWDecimal96OverflowErr(const char* why) noexcept : m_why(why) {}
    ~RWDecimal96OverflowErr() override;
    const char* what() const noexcept override;

private:
    const char* m_why;
};

/// The result of an operation had to be rounded.
class ZELRW_API RWDecimal96InexactErr : public std::exception {
public:
    /// `why` is a text of the library's own.
    explicit RWDecimal96InexactErr(const char* why) noexcept : m_why(why) {}
    ~RWDecimal96InexactErr() override;
    const char* what() const noexcept override;

private:
    const char* m_why;
};

/// Called before an overflow is thrown. Usually throws an exception of its own; when it returns,
/// the library throws the error by value.
using RWDecimal96OverflowHandler = void (*)(RWDecimal96OverflowErr& error);

/// Called when a result had to be rounded. When it returns, the rounded result stands.
using RWDecimal96InexactHandler = void (*)(RWDecimal96InexactErr& error);

/// A decimal number: a 96-bit whole number and a count of decimal places.
///
/// value = mantissa / 10^places. Results of arithmetic, and numbers made from a double, have at
/// most 28 digits and 0 to 27 places; numbers read from a text at most 28 digits and, when they are
/// positive, up to 36 places. A mantissa and places that come in as they are (the constructor for
/// derived classes) may be anything; arithmetic on them ends with a number within these limits or
/// with an overflow. Only abs, and round when it has no place to drop, leave such numbers as they
/// are.
///
/// A result that needs more digits or places is rounded once, to the nearest, ties away from zero,
/// places first, and the inexact handler is called. What has more than 28 digits before the point,
/// and every division by zero, is an overflow: the overflow handler is called, then
/// RWDecimal96OverflowErr is thrown.
///
/// A null number (the default) makes every result null. In comparisons it is unequal to
/// everything, neither smaller nor greater.
///
/// The handlers are settings of the process; numbers themselves are plain values.
///
///     RWDecimal96 price("19.99");
///     RWDecimal96 total = round(price * RWDecimal96(3) / RWDecimal96("1.19"), 2,
///                               RWDecimalBase::RoundNearest);      // 50.39
class ZELRW_API RWDecimal96 : public RWDecimalBase {
public:
    /// Null.
    RWDecimal96() : m_state(NullState), m_mantissa{0, 0, 0}, m_exponent(0) {}
    /// The number, without places.
    RWDecimal96(int number) // NOLINT(google-explicit-constructor)
        : m_state(NormalState), m_mantissa{number < 0 ? -1 : 0, number < 0 ? ~0U : 0U,
                                           static_cast<std::uint32_t>(number)},
          m_exponent(0)
    {}
    /// From an optional sign, digits and an optional point among or around them; the places are
    /// those written, trailing zeros included. Any other text, and null, gives a null number.
    explicit RWDecimal96(const char* text);
    /// The same from `length` bytes.
    RWDecimal96(const char* text, std::size_t length);

    /// The shortest number that reads back as the same double; below 10^-27 it is 0. A number of
    /// more than 28 digits before the point, NaN and the infinities are overflows.
    static RWDecimal96 from(double number);

    /// Sets the handler for the whole process and returns the one before; null: none.
    static RWDecimal96OverflowHandler setOverflowHandler(RWDecimal96OverflowHandler handler);
    static RWDecimal96InexactHandler setInexactHandler(RWDecimal96InexactHandler handler);

    bool isNull() const { return m_state != NormalState; }

    /// Sign, digits and places, for formats.
    operator RWDecimalPortable() const; // NOLINT(google-explicit-constructor)

    /// Room that every number within the limits of arithmetic and parsing needs as a text, NUL
    /// included: "-", "0.", 36 places.
    static constexpr std::size_t kTextRoom = 40;

    /// Writes what toString gives into `buffer` with a NUL, and returns its length. The other of
    /// the `room` bytes may be overwritten too. What needs more than these is not written: the
    /// result is then the length it would have.
    std::size_t print(char* buffer, std::size_t room) const;

protected:
    RWDecimal96(int96 mantissa, std::int32_t exponent, State state)
        : m_state(state), m_mantissa(mantissa), m_exponent(exponent)
    {}

    State m_state;
    int96 m_mantissa;
    std::int32_t m_exponent; ///< decimal places

    friend struct RWDecimal96Access;
};

static_assert(sizeof(RWDecimal96) == 20, "five words, as others read them");

/// Exact at the larger number of places, then rounded if need be.
ZELRW_INLINE RWDecimal96 operator+(const RWDecimal96& a, const RWDecimal96& b);
ZELRW_INLINE RWDecimal96 operator-(const RWDecimal96& a, const RWDecimal96& b);
/// Exact, with the places of both, then rounded if need be.
ZELRW_INLINE RWDecimal96 operator*(const RWDecimal96& a, const RWDecimal96& b);
/// The exact quotient with the fewest places, but not fewer than `a` has more than `b`; where none
/// exists, as many digits as a result may have, rounded.
ZELRW_API RWDecimal96 operator/(const RWDecimal96& a, const RWDecimal96& b);
/// What is left of `a` after taking off `b` a whole number of times: exact, with the sign of `a`
/// and the larger number of places, then rounded if need be.
ZELRW_API RWDecimal96 operator%(const RWDecimal96& a, const RWDecimal96& b);

/// By value: 1.5 equals 1.50. Exact.
ZELRW_INLINE int operator==(const RWDecimal96& a, const RWDecimal96& b);
ZELRW_INLINE int operator!=(const RWDecimal96& a, const RWDecimal96& b);
ZELRW_INLINE int operator<(const RWDecimal96& a, const RWDecimal96& b);
ZELRW_INLINE int operator>(const RWDecimal96& a, const RWDecimal96& b);
ZELRW_INLINE int operator<=(const RWDecimal96& a, const RWDecimal96& b);
ZELRW_INLINE int operator>=(const RWDecimal96& a, const RWDecimal96& b);

/// `base` multiplied `exponent` times, by squaring, each product rounded as products are; a
/// negative exponent gives the reciprocal. Anything to the power of 0 is 1.
ZELRW_API RWDecimal96 pow(const RWDecimal96& base, int exponent);
/// Without the sign; the places stay. Only the lowest of all mantissas, which has no positive
/// counterpart, is rounded or an overflow.
ZELRW_API RWDecimal96 abs(const RWDecimal96& number);
/// The number with at most `places` places; a negative number of places rounds to tens, hundreds
/// and so on. Places are never added. Of more places than a text can give a number (36, or 27 for a
/// negative one) only so many are kept.
ZELRW_API RWDecimal96 round(const RWDecimal96& number, int places,
                            RWDecimalBase::RoundingMethod method);
/// The whole number; outside 32 bits the nearest limit. Null: 0.
ZELRW_API long toInt(const RWDecimal96& number, RWDecimalBase::RoundingMethod method);
/// The nearest double, ties to even. Null: NaN.
ZELRW_API long double toDouble(const RWDecimal96& number);
/// Plain digits, "0." before a pure fraction, exactly as many decimals as places; never an
/// exponent. Null: empty.
ZELRW_API RWCString toString(const RWDecimal96& number);

/// Stands in each source that has decimal numbers among its static objects, so that the library is
/// there before them. This library's own objects need no such help; callers keep to it.
class ZELRW_API RWDecimal96Init {
public:
    RWDecimal96Init();
    ~RWDecimal96Init();
    RWDecimal96Init(const RWDecimal96Init&) = delete;
    RWDecimal96Init& operator=(const RWDecimal96Init&) = delete;
};

#include "RWDecimal96Short.h"

#endif
