#ifndef ZELDT_NUMERIC_IMP_DTINTOPE_H
#define ZELDT_NUMERIC_IMP_DTINTOPE_H

/// The operators of the integer classes: one primitive for each family. Private to the library.

#include "numeric/IMP/DTINTREP.h"

namespace zeldt {

template <typename Rules>
class IntegerOperators {
    using Rep = IntegerRep<Rules>;

public:
    using Object = typename Rules::Object;
    using Number = typename Rules::Number;

    // Binary operators. A Null operand is neutral in products and as divisor; elsewhere it counts
    // as the number it stores.

    template <Arithmetic kind>
    static Object Binary(const Operation& operation, const Object& a, const Object& b)
    {
        return Guarded(operation, [&]() -> Object {
            if (AreDefined(a, b))
                return Object(Compute<kind>(Rep::Of(a), Rep::Of(b)));
            return WithUndefined<kind>(a, b);
        });
    }

    template <Arithmetic kind>
    static Object WithRightNumber(const Operation& operation, const Object& a, std::int64_t b)
    {
        return Guarded(operation, [&]() -> Object {
            if (a.IsMissing())
                return Object(ZelDtWmDefault);
            if (kind == Arithmetic::Multiply && a.IsNull())
                return Object(Rep::FromWide(b));
            return Object(Compute<kind>(Rep::Of(a), b));
        });
    }

    template <Arithmetic kind>
    static Object WithLeftNumber(const Operation& operation, std::int64_t a, const Object& b)
    {
        return Guarded(operation, [&]() -> Object {
            if (b.IsMissing())
                return Object(ZelDtWmDefault);
            if (isProductOrQuotient<kind> && b.IsNull())
                return Object(Rep::FromWide(a));
            return Object(Compute<kind>(a, Rep::Of(b)));
        });
    }

    // Compound assignment

    /// The sum's range is checked before the defined flag changes.
    static void AddTo(const Operation& operation, Object& a, const Object& b)
    {
        Guarded(operation, [&] {
            const int defined = a.CheckDefinedForArithmetic(a, b);
            if (defined)
                Accumulate<Arithmetic::Add>(a, Rep::Of(b));
            else
                Rep::Of(a) = 0;
            a.SetDefined(defined);
        });
    }

    /// The defined flag changes before the difference's range is checked.
    static void SubtractFrom(const Operation& operation, Object& a, const Object& b)
    {
        Guarded(operation, [&] {
            const int defined = a.CheckDefinedForArithmetic(a, b);
            const Number subtrahend = Rep::Of(b);
            if (!defined)
                Rep::Of(a) = 0;
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
                Rep::Of(a) = Compute<kind>(Rep::Of(a), b);
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
        return Order(Rep::Of(a), Rep::Of(b));
    }

    static int CompareNumber(const Operation& operation, const Object& a, std::int64_t b)
    {
        RequireReadable(operation, a);
        return Order(Rep::Of(a), b);
    }

private:
    template <Arithmetic kind>
    static constexpr bool isProductOrQuotient =
        kind == Arithmetic::Multiply || kind == Arithmetic::Divide;

    static int Order(std::int64_t a, std::int64_t b) { return (a > b) - (a < b); }

    /// The rarer half of Binary, out of the way of the other.
    template <Arithmetic kind>
    [[gnu::noinline]] static Object WithUndefined(const Object& a, const Object& b)
    {
        if (!a.CheckDefinedForArithmetic(a, b))
            return Object(ZelDtWmDefault);
        if (isProductOrQuotient<kind> && b.IsNull())
            return a;
        if (kind == Arithmetic::Multiply && a.IsNull())
            return b;
        return Object(Compute<kind>(Rep::Of(a), Rep::Of(b)));
    }

    template <Arithmetic kind, typename Left, typename Right>
    static Number Compute(Left a, Right b)
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
        Rep::Of(a) = Compute<kind>(Rep::Of(a), b);
    }
};

} // namespace zeldt

#endif
