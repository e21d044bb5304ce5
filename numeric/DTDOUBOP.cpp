#include "foundation/DTCHECK.h"
#include "numeric/DTDOUBLE.h"
#include "numeric/IMP/DTDOUBLI.h"
#include "numeric/IMP/DTINTARI.h"

namespace {

using zeldt::Arithmetic;
using zeldt::Guarded;
using zeldt::Operation;

using Access = ZelDtDoubleAccess;

constexpr Operation Op(const char* signature)
{
    return {"DTDOUBLE", "ZelDtDouble", signature};
}

constexpr Operation kPlus = Op("operator+(ZelDtDouble&)");
constexpr Operation kPlusDouble = Op("operator+(const double&)");
constexpr Operation kPlusInt = Op("operator+(INT)");
constexpr Operation kPlusLong = Op("operator+(LONG)");
constexpr Operation kMinus = Op("operator-(ZelDtDouble&)");
constexpr Operation kMinusDouble = Op("operator-(const double&)");
constexpr Operation kMinusInt = Op("operator-(INT)");
constexpr Operation kMinusLong = Op("operator-(LONG)");
constexpr Operation kTimes = Op("operator*(ZelDtDouble&)");
constexpr Operation kTimesDouble = Op("operator*(const double&)");
constexpr Operation kTimesInt = Op("operator*(INT)");
constexpr Operation kTimesLong = Op("operator*(LONG)");
constexpr Operation kDivided = Op("operator/(ZelDtDouble&)");
constexpr Operation kDividedDouble = Op("operator/(const double&)");
constexpr Operation kDividedInt = Op("operator/(INT)");
constexpr Operation kDividedLong = Op("operator/(LONG)");

constexpr Operation kDoublePlus = Op("operator+(double,ZelDtDouble&)");
constexpr Operation kIntPlus = Op("operator+(INT,ZelDtDouble&)");
constexpr Operation kLongPlus = Op("operator+(LONG,ZelDtDouble&)");
constexpr Operation kDoubleMinus = Op("operator-(double,ZelDtDouble&)");
constexpr Operation kIntMinus = Op("operator-(INT,ZelDtDouble&)");
constexpr Operation kLongMinus = Op("operator-(LONG,ZelDtDouble&)");
constexpr Operation kDoubleTimes = Op("operator*(double,ZelDtDouble&)");
constexpr Operation kIntTimes = Op("operator*(INT,ZelDtDouble&)");
constexpr Operation kLongTimes = Op("operator*(LONG,ZelDtDouble&)");
constexpr Operation kDoubleDivided = Op("operator/(double,ZelDtDouble&)");
constexpr Operation kIntDivided = Op("operator/(INT,ZelDtDouble&)");
constexpr Operation kLongDivided = Op("operator/(LONG,ZelDtDouble&)");

constexpr Operation kAdd = Op("operator+=(ZelDtDouble&)");
constexpr Operation kAddDouble = Op("operator+=(const double&)");
constexpr Operation kAddInt = Op("operator+=(INT)");
constexpr Operation kAddLong = Op("operator+=(LONG)");
constexpr Operation kSubtract = Op("operator-=(ZelDtDouble&)");
constexpr Operation kSubtractDouble = Op("operator-=(const double&)");
constexpr Operation kSubtractInt = Op("operator-=(INT)");
constexpr Operation kSubtractLong = Op("operator-=(LONG)");
constexpr Operation kIncrement = Op("operator++()");
constexpr Operation kIncrementPostfix = Op("operator++(INT)");
constexpr Operation kDecrement = Op("operator--()");
constexpr Operation kDecrementPostfix = Op("operator--(INT)");

constexpr Operation kLess = Op("operator<(ZelDtDouble&)");
constexpr Operation kLessDouble = Op("operator<(const double&)");
constexpr Operation kLessInt = Op("operator<(INT)");
constexpr Operation kLessLong = Op("operator<(LONG)");
constexpr Operation kGreater = Op("operator>(ZelDtDouble&)");
constexpr Operation kGreaterDouble = Op("operator>(const double&)");
constexpr Operation kGreaterInt = Op("operator>(INT)");
constexpr Operation kGreaterLong = Op("operator>(LONG)");
constexpr Operation kLessOrEqual = Op("operator<=(ZelDtDouble&)");
constexpr Operation kLessOrEqualDouble = Op("operator<=(const double&)");
constexpr Operation kLessOrEqualInt = Op("operator<=(INT)");
constexpr Operation kLessOrEqualLong = Op("operator<=(LONG)");
constexpr Operation kGreaterOrEqual = Op("operator>=(ZelDtDouble&)");
constexpr Operation kGreaterOrEqualDouble = Op("operator>=(const double&)");
constexpr Operation kGreaterOrEqualInt = Op("operator>=(INT)");
constexpr Operation kGreaterOrEqualLong = Op("operator>=(LONG)");
constexpr Operation kEqual = Op("operator==(ZelDtDouble&)");
constexpr Operation kEqualDouble = Op("operator==(const double&)");
constexpr Operation kEqualInt = Op("operator==(INT)");
constexpr Operation kEqualLong = Op("operator==(LONG)");
constexpr Operation kUnequal = Op("operator!=(ZelDtDouble&)");
constexpr Operation kUnequalDouble = Op("operator!=(const double&)");
constexpr Operation kUnequalInt = Op("operator!=(INT)");
constexpr Operation kUnequalLong = Op("operator!=(LONG)");

enum class Comparison { Less, Greater, LessOrEqual, GreaterOrEqual, Equal, Unequal };

template <Arithmetic kind>
constexpr bool isProductOrQuotient = kind == Arithmetic::Multiply || kind == Arithmetic::Divide;

/// The nearest double: on some targets a long has more digits than that.
double ToDouble(long number)
{
    return static_cast<double>(number);
}

/// A divisor that is 0 or NaN: error 12.
template <Arithmetic kind>
double Compute(const Operation& operation, double a, double b)
{
    if constexpr (kind == Arithmetic::Add) {
        return a + b;
    } else if constexpr (kind == Arithmetic::Subtract) {
        return a - b;
    } else if constexpr (kind == Arithmetic::Multiply) {
        return a * b;
    } else {
        if (!(b < 0.0 || b > 0.0))
            Raise(operation, zeldt::ErrorNo::DivisionByZero);
        return a / b;
    }
}

// Binary operators

template <Arithmetic kind>
ZelDtDouble Binary(const Operation& operation, const ZelDtDouble& a, const ZelDtDouble& b)
{
    return Guarded(operation, [&]() -> ZelDtDouble {
        if (!Access::CheckDefined(a, b))
            return ZelDtDouble(ZelDtWmDefault);
        if (kind == Arithmetic::Multiply && a.IsNull())
            return b;
        if (isProductOrQuotient<kind> && b.IsNull())
            return a;
        return ZelDtDouble(Compute<kind>(operation, Access::Of(a), Access::Of(b)));
    });
}

template <Arithmetic kind>
ZelDtDouble WithRightNumber(const Operation& operation, const ZelDtDouble& a, double b)
{
    return Guarded(operation, [&]() -> ZelDtDouble {
        if (a.IsMissing())
            return ZelDtDouble(ZelDtWmDefault);
        return ZelDtDouble(Compute<kind>(operation, Access::Of(a), b));
    });
}

template <Arithmetic kind>
ZelDtDouble WithLeftNumber(const Operation& operation, double a, const ZelDtDouble& b)
{
    return Guarded(operation, [&]() -> ZelDtDouble {
        if (b.IsMissing())
            return b;
        if (isProductOrQuotient<kind> && b.IsNull())
            return ZelDtDouble(a);
        return ZelDtDouble(Compute<kind>(operation, a, Access::Of(b)));
    });
}

// Compound assignment

/// Makes `a` defined, then adds or subtracts; only a number other than 0 marks it modified.
template <Arithmetic kind>
void Accumulate(const Operation& operation, ZelDtDouble& a, double b)
{
    Access::SetDefined(a);
    Access::Of(a) = Compute<kind>(operation, Access::Of(a), b);
    if (b != 0.0)
        a.SetModified(1);
}

template <Arithmetic kind>
ZelDtDouble& Combine(const Operation& operation, ZelDtDouble& a, const ZelDtDouble& b)
{
    Guarded(operation, [&] {
        if (Access::CheckDefined(a, b))
            Accumulate<kind>(operation, a, Access::Of(b));
        else
            a.Clear();
    });
    return a;
}

template <Arithmetic kind>
ZelDtDouble& CombineNumber(const Operation& operation, ZelDtDouble& a, double b)
{
    Guarded(operation, [&] {
        if (!a.IsMissing())
            Accumulate<kind>(operation, a, b);
    });
    return a;
}

// Comparison

/// NaN is neither smaller nor greater than any number, so it counts as equal to all.
template <Comparison kind>
int Compare(double a, double b)
{
    if constexpr (kind == Comparison::Less)
        return a < b;
    else if constexpr (kind == Comparison::Greater)
        return a > b;
    else if constexpr (kind == Comparison::LessOrEqual)
        return a <= b;
    else if constexpr (kind == Comparison::GreaterOrEqual)
        return a >= b;
    else if constexpr (kind == Comparison::Equal)
        return !(a < b || a > b);
    else
        return a < b || a > b;
}

template <Comparison kind>
int CompareValues(const Operation& operation, const ZelDtDouble& a, const ZelDtDouble& b)
{
    zeldt::RequireReadable(operation, a, b);
    return Compare<kind>(Access::Of(a), Access::Of(b));
}

template <Comparison kind>
int CompareNumber(const Operation& operation, const ZelDtDouble& a, double b)
{
    zeldt::RequireReadable(operation, a);
    return Compare<kind>(Access::Of(a), b);
}

} // namespace

// Arithmetic

ZelDtDouble ZelDtDouble::operator+(const ZelDtDouble& right) const
{
    return Binary<Arithmetic::Add>(kPlus, *this, right);
}

ZelDtDouble ZelDtDouble::operator+(const double& right) const
{
    return WithRightNumber<Arithmetic::Add>(kPlusDouble, *this, right);
}

ZelDtDouble ZelDtDouble::operator+(int right) const
{
    return WithRightNumber<Arithmetic::Add>(kPlusInt, *this, right);
}

ZelDtDouble ZelDtDouble::operator+(long right) const
{
    return WithRightNumber<Arithmetic::Add>(kPlusLong, *this, ToDouble(right));
}

ZelDtDouble operator+(double left, const ZelDtDouble& right)
{
    return WithLeftNumber<Arithmetic::Add>(kDoublePlus, left, right);
}

ZelDtDouble operator+(int left, const ZelDtDouble& right)
{
    return WithLeftNumber<Arithmetic::Add>(kIntPlus, left, right);
}

ZelDtDouble operator+(long left, const ZelDtDouble& right)
{
    return WithLeftNumber<Arithmetic::Add>(kLongPlus, ToDouble(left), right);
}

ZelDtDouble ZelDtDouble::operator-(const ZelDtDouble& right) const
{
    return Binary<Arithmetic::Subtract>(kMinus, *this, right);
}

ZelDtDouble ZelDtDouble::operator-(const double& right) const
{
    return WithRightNumber<Arithmetic::Subtract>(kMinusDouble, *this, right);
}

ZelDtDouble ZelDtDouble::operator-(int right) const
{
    return WithRightNumber<Arithmetic::Subtract>(kMinusInt, *this, right);
}

ZelDtDouble ZelDtDouble::operator-(long right) const
{
    return WithRightNumber<Arithmetic::Subtract>(kMinusLong, *this, ToDouble(right));
}

ZelDtDouble operator-(double left, const ZelDtDouble& right)
{
    return WithLeftNumber<Arithmetic::Subtract>(kDoubleMinus, left, right);
}

ZelDtDouble operator-(int left, const ZelDtDouble& right)
{
    return WithLeftNumber<Arithmetic::Subtract>(kIntMinus, left, right);
}

ZelDtDouble operator-(long left, const ZelDtDouble& right)
{
    return WithLeftNumber<Arithmetic::Subtract>(kLongMinus, ToDouble(left), right);
}

ZelDtDouble ZelDtDouble::operator*(const ZelDtDouble& right) const
{
    return Binary<Arithmetic::Multiply>(kTimes, *this, right);
}

ZelDtDouble ZelDtDouble::operator*(const double& right) const
{
    return WithRightNumber<Arithmetic::Multiply>(kTimesDouble, *this, right);
}

ZelDtDouble ZelDtDouble::operator*(int right) const
{
    return WithRightNumber<Arithmetic::Multiply>(kTimesInt, *this, right);
}

ZelDtDouble ZelDtDouble::operator*(long right) const
{
    return WithRightNumber<Arithmetic::Multiply>(kTimesLong, *this, ToDouble(right));
}

ZelDtDouble operator*(double left, const ZelDtDouble& right)
{
    return WithLeftNumber<Arithmetic::Multiply>(kDoubleTimes, left, right);
}

ZelDtDouble operator*(int left, const ZelDtDouble& right)
{
    return WithLeftNumber<Arithmetic::Multiply>(kIntTimes, left, right);
}

ZelDtDouble operator*(long left, const ZelDtDouble& right)
{
    return WithLeftNumber<Arithmetic::Multiply>(kLongTimes, ToDouble(left), right);
}

ZelDtDouble ZelDtDouble::operator/(const ZelDtDouble& right) const
{
    return Binary<Arithmetic::Divide>(kDivided, *this, right);
}

ZelDtDouble ZelDtDouble::operator/(const double& right) const
{
    return WithRightNumber<Arithmetic::Divide>(kDividedDouble, *this, right);
}

ZelDtDouble ZelDtDouble::operator/(int right) const
{
    return WithRightNumber<Arithmetic::Divide>(kDividedInt, *this, right);
}

ZelDtDouble ZelDtDouble::operator/(long right) const
{
    return WithRightNumber<Arithmetic::Divide>(kDividedLong, *this, ToDouble(right));
}

ZelDtDouble operator/(double left, const ZelDtDouble& right)
{
    return WithLeftNumber<Arithmetic::Divide>(kDoubleDivided, left, right);
}

ZelDtDouble operator/(int left, const ZelDtDouble& right)
{
    return WithLeftNumber<Arithmetic::Divide>(kIntDivided, left, right);
}

ZelDtDouble operator/(long left, const ZelDtDouble& right)
{
    return WithLeftNumber<Arithmetic::Divide>(kLongDivided, ToDouble(left), right);
}

// Compound assignment

ZelDtDouble& ZelDtDouble::operator+=(const ZelDtDouble& right)
{
    return Combine<Arithmetic::Add>(kAdd, *this, right);
}

ZelDtDouble& ZelDtDouble::operator+=(const double& right)
{
    return CombineNumber<Arithmetic::Add>(kAddDouble, *this, right);
}

ZelDtDouble& ZelDtDouble::operator+=(int right)
{
    return CombineNumber<Arithmetic::Add>(kAddInt, *this, right);
}

ZelDtDouble& ZelDtDouble::operator+=(long right)
{
    return CombineNumber<Arithmetic::Add>(kAddLong, *this, ToDouble(right));
}

ZelDtDouble& ZelDtDouble::operator-=(const ZelDtDouble& right)
{
    return Combine<Arithmetic::Subtract>(kSubtract, *this, right);
}

ZelDtDouble& ZelDtDouble::operator-=(const double& right)
{
    return CombineNumber<Arithmetic::Subtract>(kSubtractDouble, *this, right);
}

ZelDtDouble& ZelDtDouble::operator-=(int right)
{
    return CombineNumber<Arithmetic::Subtract>(kSubtractInt, *this, right);
}

ZelDtDouble& ZelDtDouble::operator-=(long right)
{
    return CombineNumber<Arithmetic::Subtract>(kSubtractLong, *this, ToDouble(right));
}

void ZelDtDouble::operator++()
{
    CombineNumber<Arithmetic::Add>(kIncrement, *this, 1.0);
}

void ZelDtDouble::operator++(int)
{
    CombineNumber<Arithmetic::Add>(kIncrementPostfix, *this, 1.0);
}

void ZelDtDouble::operator--()
{
    CombineNumber<Arithmetic::Subtract>(kDecrement, *this, 1.0);
}

void ZelDtDouble::operator--(int)
{
    CombineNumber<Arithmetic::Subtract>(kDecrementPostfix, *this, 1.0);
}

// Comparison

int ZelDtDouble::operator<(const ZelDtDouble& right) const
{
    return CompareValues<Comparison::Less>(kLess, *this, right);
}

int ZelDtDouble::operator<(const double& right) const
{
    return CompareNumber<Comparison::Less>(kLessDouble, *this, right);
}

int ZelDtDouble::operator<(int right) const
{
    return CompareNumber<Comparison::Less>(kLessInt, *this, right);
}

int ZelDtDouble::operator<(long right) const
{
    return CompareNumber<Comparison::Less>(kLessLong, *this, ToDouble(right));
}

int ZelDtDouble::operator>(const ZelDtDouble& right) const
{
    return CompareValues<Comparison::Greater>(kGreater, *this, right);
}

int ZelDtDouble::operator>(const double& right) const
{
    return CompareNumber<Comparison::Greater>(kGreaterDouble, *this, right);
}

int ZelDtDouble::operator>(int right) const
{
    return CompareNumber<Comparison::Greater>(kGreaterInt, *this, right);
}

int ZelDtDouble::operator>(long right) const
{
    return CompareNumber<Comparison::Greater>(kGreaterLong, *this, ToDouble(right));
}

int ZelDtDouble::operator<=(const ZelDtDouble& right) const
{
    return CompareValues<Comparison::LessOrEqual>(kLessOrEqual, *this, right);
}

int ZelDtDouble::operator<=(const double& right) const
{
    return CompareNumber<Comparison::LessOrEqual>(kLessOrEqualDouble, *this, right);
}

int ZelDtDouble::operator<=(int right) const
{
    return CompareNumber<Comparison::LessOrEqual>(kLessOrEqualInt, *this, right);
}

int ZelDtDouble::operator<=(long right) const
{
    return CompareNumber<Comparison::LessOrEqual>(kLessOrEqualLong, *this, ToDouble(right));
}

int ZelDtDouble::operator>=(const ZelDtDouble& right) const
{
    return CompareValues<Comparison::GreaterOrEqual>(kGreaterOrEqual, *this, right);
}

int ZelDtDouble::operator>=(const double& right) const
{
    return CompareNumber<Comparison::GreaterOrEqual>(kGreaterOrEqualDouble, *this, right);
}

int ZelDtDouble::operator>=(int right) const
{
    return CompareNumber<Comparison::GreaterOrEqual>(kGreaterOrEqualInt, *this, right);
}

int ZelDtDouble::operator>=(long right) const
{
    return CompareNumber<Comparison::GreaterOrEqual>(kGreaterOrEqualLong, *this, ToDouble(right));
}

int ZelDtDouble::operator==(const ZelDtDouble& right) const
{
    return CompareValues<Comparison::Equal>(kEqual, *this, right);
}

int ZelDtDouble::operator==(const double& right) const
{
    return CompareNumber<Comparison::Equal>(kEqualDouble, *this, right);
}

int ZelDtDouble::operator==(int right) const
{
    return CompareNumber<Comparison::Equal>(kEqualInt, *this, right);
}

int ZelDtDouble::operator==(long right) const
{
    return CompareNumber<Comparison::Equal>(kEqualLong, *this, ToDouble(right));
}

int ZelDtDouble::operator!=(const ZelDtDouble& right) const
{
    return CompareValues<Comparison::Unequal>(kUnequal, *this, right);
}

int ZelDtDouble::operator!=(const double& right) const
{
    return CompareNumber<Comparison::Unequal>(kUnequalDouble, *this, right);
}

int ZelDtDouble::operator!=(int right) const
{
    return CompareNumber<Comparison::Unequal>(kUnequalInt, *this, right);
}

int ZelDtDouble::operator!=(long right) const
{
    return CompareNumber<Comparison::Unequal>(kUnequalLong, *this, ToDouble(right));
}
