#ifndef ZELDT_NUMERIC_IMP_DTDECRUL_H
#define ZELDT_NUMERIC_IMP_DTDECRUL_H

/// The operators of the decimal class: one primitive for each family, which takes the operation
/// that errors are reported under and, as a type, what is to be computed. Private to the library.

#include "foundation/DTCHECK.h"
#include "numeric/IMP/DTDECIMI.h"

#include <functional>
#include <type_traits>

namespace zeldt::decimal {

// What the operators of a family differ in

using Sum = std::plus<RWDecimal96>;
using Difference = std::minus<RWDecimal96>;
using Product = std::multiplies<RWDecimal96>;
using Quotient = std::divides<RWDecimal96>;
using Remainder = std::modulus<RWDecimal96>;

template <typename Computing>
constexpr bool isProduct = std::is_same_v<Computing, Product>;
template <typename Computing>
constexpr bool isQuotient = std::is_same_v<Computing, Quotient>;
/// Whether a Null right side leaves the left one as it is.
template <typename Computing>
constexpr bool dropsNull = isProduct<Computing> || isQuotient<Computing>;

// Plain operands

inline RWDecimal96 NumberOf(int number)
{
    return RWDecimal96(number);
}

inline RWDecimal96 NumberOf(long number)
{
    return ZelDtDecimal_Imp(number);
}

inline RWDecimal96 NumberOf(double number)
{
    return RWDecimal96::from(number);
}

/// NaN counts as zero.
template <typename Plain>
bool IsZero(Plain number)
{
    return !(number < 0 || number > 0);
}

// Binary operators

/// The result with a right side that is not missing.
template <typename Computing>
ZelDtDecimal Combined(const RWDecimal96& a, const ZelDtDecimal& b)
{
    if (std::is_same_v<Computing, Remainder> && b.IsNull())
        return DecimalAccess::Result(Computing()(a, RWDecimal96(1)));
    return DecimalAccess::Result(Computing()(a, DecimalAccess::Number(b)));
}

template <typename Computing>
ZelDtDecimal Binary(const Operation& operation, const ZelDtDecimal& a, const ZelDtDecimal& b)
{
    return Calculate(operation, [&]() -> ZelDtDecimal {
        if (!DecimalAccess::CheckDefined(a, b))
            return ZelDtDecimal(ZelDtWmDefault);
        if (dropsNull<Computing> && b.IsNull())
            return DecimalAccess::Result(DecimalAccess::Number(a));
        if (isProduct<Computing> && a.IsNull())
            return DecimalAccess::Result(DecimalAccess::Number(b));
        return Combined<Computing>(DecimalAccess::Number(a), b);
    });
}

template <typename Computing, typename Plain>
ZelDtDecimal WithRightNumber(const Operation& operation, const ZelDtDecimal& a, Plain b)
{
    return Calculate(operation, [&]() -> ZelDtDecimal {
        if (a.IsMissing())
            return ZelDtDecimal(ZelDtWmDefault);
        return DecimalAccess::Result(Computing()(DecimalAccess::Number(a), NumberOf(b)));
    });
}

/// Zero as the left side: of a sum a copy of the right one, of a difference its opposite, of a
/// product or quotient zero itself.
template <typename Computing, typename Plain>
ZelDtDecimal WithLeftZero(Plain zero, const ZelDtDecimal& b)
{
    if constexpr (std::is_same_v<Computing, Sum>)
        return b;
    else if constexpr (std::is_same_v<Computing, Difference>)
        return DecimalAccess::Result(DecimalAccess::Number(b) * RWDecimal96(-1));
    else
        return ZelDtDecimal(zero);
}

template <typename Computing, typename Plain>
ZelDtDecimal WithLeftNumber(const Operation& operation, Plain a, const ZelDtDecimal& b)
{
    return Calculate(operation, [&]() -> ZelDtDecimal {
        if (b.IsMissing())
            return ZelDtDecimal(ZelDtWmDefault);
        if constexpr (std::is_same_v<Computing, Remainder>) {
            return Combined<Computing>(NumberOf(a), b);
        } else {
            if (isQuotient<Computing> && b.IsDefined() && DecimalAccess::Number(b).IsZero())
                Raise(operation, ErrorNo::DivisionByZero);
            if (dropsNull<Computing> && b.IsNull())
                return ZelDtDecimal(a);
            if (IsZero(a))
                return WithLeftZero<Computing>(a, b);
            return Combined<Computing>(NumberOf(a), b);
        }
    });
}

// Compound assignment: the number is computed before anything changes

template <typename Computing>
ZelDtDecimal& Accumulate(const Operation& operation, ZelDtDecimal& a, const ZelDtDecimal& b)
{
    Calculate(operation, [&] {
        if (!DecimalAccess::CheckDefined(a, b)) {
            a.Clear();
            return;
        }
        const bool changes = !DecimalAccess::Number(b).IsZero();
        DecimalAccess::Number(a) = Computing()(DecimalAccess::Number(a), DecimalAccess::Number(b));
        DecimalAccess::SetDefined(a);
        if (changes)
            a.SetModified(1);
    });
    return a;
}

template <typename Computing, typename Plain>
ZelDtDecimal& AccumulateNumber(const Operation& operation, ZelDtDecimal& a, Plain b)
{
    Calculate(operation, [&] {
        if (a.IsMissing())
            return;
        if (b != Plain()) {
            DecimalAccess::Number(a) = Computing()(DecimalAccess::Number(a), NumberOf(b));
            a.SetModified(1);
        }
        DecimalAccess::SetDefined(a);
    });
    return a;
}

// Comparison

template <typename Order>
int Compare(const Operation& operation, const ZelDtDecimal& a, const ZelDtDecimal& b)
{
    RequireReadable(operation, a, b);
    // Exact, so no handler is needed.
    return Guarded(operation, [&] {
        return Order()(DecimalAccess::Number(a), DecimalAccess::Number(b)) ? 1 : 0;
    });
}

template <typename Order, typename Plain>
int CompareNumber(const Operation& operation, const ZelDtDecimal& a, Plain b)
{
    RequireReadable(operation, a);
    return Calculate(operation,
                     [&] { return Order()(DecimalAccess::Number(a), NumberOf(b)) ? 1 : 0; });
}

using Less = std::less<RWDecimal96>;
using Greater = std::greater<RWDecimal96>;
using LessOrEqual = std::less_equal<RWDecimal96>;
using GreaterOrEqual = std::greater_equal<RWDecimal96>;
using Equal = std::equal_to<RWDecimal96>;
using Unequal = std::not_equal_to<RWDecimal96>;

// Assignment

/// Whether the number without its decimals is `whole`. A number beyond 32 bits never is.
template <typename Whole>
bool HasWholePart(const RWDecimal96& number, Whole whole)
{
    const long truncated = toInt(number, RWDecimalBase::RoundTowardZero);
    return truncated == whole &&
           round(number, 0, RWDecimalBase::RoundTowardZero) == NumberOf(truncated);
}

/// The number replaces any other, but only one that differs from the present whole units counts as
/// a change.
template <typename Whole>
ZelDtDecimal& AssignWhole(const Operation& operation, ZelDtDecimal& value, Whole number)
{
    Calculate(operation, [&] {
        if (!HasWholePart(DecimalAccess::Number(value), number))
            value.SetModified(1);
        DecimalAccess::Number(value) = NumberOf(number);
        DecimalAccess::SetDefined(value);
    });
    return value;
}

} // namespace zeldt::decimal

#endif
