#ifndef ZELDT_NUMERIC_IMP_DTINTOPE_H
#define ZELDT_NUMERIC_IMP_DTINTOPE_H

/// The operators of the integer classes: one primitive for each family. Private to the library.
///
/// `Rules` names what differs between the classes: Object (the value class), Number (what it
/// keeps), kTextCut (bytes read in front of a separator) and the operations that conversions and
/// arithmetic report errors under.

#include "foundation/DTCHECK.h"
#include "numeric/IMP/DTINTARI.h"

namespace zeldt {

/// The number of a result, or the error that its status means.
template <typename Number>
Number NumberOrRaise(const Operation& operation, IntResult<Number> result)
{
    switch (result.status) {
    case IntStatus::Ok:
        return result.value;
    case IntStatus::OutOfRange:
        Raise(operation, ErrorNo::OutOfRange);
    case IntStatus::DivisionByZero:
        Raise(operation, ErrorNo::DivisionByZero);
    case IntStatus::UnreadText:
        break;
    }
    Raise(operation, ErrorNo::InitialValue);
}

template <typename Rules>
class IntegerOperators {
public:
    using Object = typename Rules::Object;
    using Number = typename Rules::Number;

    // Conversions

    static Number FromText(std::string_view text)
    {
        return NumberOrRaise(Rules::kFromText, ReadNumber<Number>(text, Rules::kTextCut));
    }

    static Number FromDouble(double number)
    {
        return NumberOrRaise(Rules::kFromDouble, Truncated<Number>(number));
    }

    static Number FromWide(std::int64_t number)
    {
        return NumberOrRaise(Rules::kFromDouble, Narrowed<Number>(number));
    }

    // Binary operators. A Null operand is neutral in products and as divisor; elsewhere it counts
    // as the number it stores.

    template <Arithmetic kind>
    static Object Binary(const Operation& operation, const Object& a, const Object& b)
    {
        return Guarded(operation, [&]() -> Object {
            if (!a.CheckDefinedForArithmetic(a, b))
                return Object(ZelDtWmDefault);
            if (isProductOrQuotient<kind> && b.IsNull())
                return a;
            if (kind == Arithmetic::Multiply && a.IsNull())
                return b;
            return Object(Compute<kind>(Of(a), Of(b)));
        });
    }

    template <Arithmetic kind>
    static Object WithRightNumber(const Operation& operation, const Object& a, std::int64_t b)
    {
        return Guarded(operation, [&]() -> Object {
            if (a.IsMissing())
                return Object(ZelDtWmDefault);
            if (kind == Arithmetic::Multiply && a.IsNull())
                return Object(FromWide(b));
            return Object(Compute<kind>(Of(a), b));
        });
    }

    template <Arithmetic kind>
    static Object WithLeftNumber(const Operation& operation, std::int64_t a, const Object& b)
    {
        return Guarded(operation, [&]() -> Object {
            if (b.IsMissing())
                return Object(ZelDtWmDefault);
            if (isProductOrQuotient<kind> && b.IsNull())
                return Object(FromWide(a));
            return Object(Compute<kind>(a, Of(b)));
        });
    }

    // Compound assignment

    /// The sum's range is checked before the defined flag changes.
    static void AddTo(const Operation& operation, Object& a, const Object& b)
    {
        Guarded(operation, [&] {
            const int defined = a.CheckDefinedForArithmetic(a, b);
            if (defined)
                Accumulate<Arithmetic::Add>(a, Of(b));
            else
                Of(a) = 0;
            a.SetDefined(defined);
        });
    }

    /// The defined flag changes before the difference's range is checked.
    static void SubtractFrom(const Operation& operation, Object& a, const Object& b)
    {
        Guarded(operation, [&] {
            const int defined = a.CheckDefinedForArithmetic(a, b);
            const Number subtrahend = Of(b);
            if (!defined)
                Of(a) = 0;
            a.SetDefined(defined);
            if (defined)
                Accumulate<Arithmetic::Subtract>(a, subtrahend);
        });
    }

    /// A missing value stays as it is.
    template <Arithmetic kind>
    static void AccumulateNumber(const Operation& operation, Object& a, std::int64_t b)
    {
        Guarded(operation, [&] {
            if (a.IsMissing())
                return;
            if (b != 0) {
                Of(a) = Compute<kind>(Of(a), b);
                a.SetModified(1);
            }
            a.SetDefined(1);
        });
    }

    /// One step up or down; a missing value stays as it is.
    template <Arithmetic kind>
    static void Step(const Operation& operation, Object& a)
    {
        AccumulateNumber<kind>(operation, a, 1);
    }

    // Comparison: negative, 0 or positive

    static int Compare(const Operation& operation, const Object& a, const Object& b)
    {
        RequireReadable(operation, a, b);
        return Order(Of(a), Of(b));
    }

    static int CompareNumber(const Operation& operation, const Object& a, std::int64_t b)
    {
        RequireReadable(operation, a);
        return Order(Of(a), b);
    }

    // Storing

    /// Stores the number, marking a change, and makes the value defined.
    static void Store(Object& a, Number number)
    {
        Change(a, number);
        a.SetDefined(1);
    }

    /// Stores the number, marking a change.
    static void Change(Object& a, Number number)
    {
        if (Of(a) == number)
            return;
        a.SetModified(1);
        Of(a) = number;
    }

private:
    template <Arithmetic kind>
    static constexpr bool isProductOrQuotient =
        kind == Arithmetic::Multiply || kind == Arithmetic::Divide;

    static Number& Of(Object& object) { return object.m_pImp->value; }
    static Number Of(const Object& object) { return object.m_pImp->value; }

    static int Order(std::int64_t a, std::int64_t b) { return (a > b) - (a < b); }

    template <Arithmetic kind>
    static Number Compute(std::int64_t a, std::int64_t b)
    {
        return NumberOrRaise(Rules::kArithmetic[static_cast<int>(kind)],
                             Computed<kind, Number>(a, b));
    }

    /// Marks the value modified before the range is checked; 0 changes nothing.
    template <Arithmetic kind>
    static void Accumulate(Object& a, Number b)
    {
        if (b == 0)
            return;
        a.SetModified(1);
        Of(a) = Compute<kind>(Of(a), b);
    }
};

} // namespace zeldt

#endif
