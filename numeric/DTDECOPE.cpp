#include "numeric/DTDECIMA.h"

#include "numeric/IMP/DTDECRUL.h"

namespace {

using namespace zeldt::decimal;

using zeldt::Guarded;
using zeldt::Operation;

using Access = zeldt::DecimalAccess;

constexpr Operation Op(const char* signature)
{
    return {"DTDECOPE", "ZelDtDecimal", signature};
}

constexpr Operation kPlus = Op("operator+(ZelDtDecimal&)");
constexpr Operation kPlusInt = Op("operator+(INT)");
constexpr Operation kPlusLong = Op("operator+(LONG)");
constexpr Operation kPlusDouble = Op("operator+(double)");
constexpr Operation kIntPlus = Op("operator+(INT,ZelDtDecimal&)");
constexpr Operation kLongPlus = Op("operator+(LONG,ZelDtDecimal&)");
constexpr Operation kDoublePlus = Op("operator+(double,ZelDtDecimal&)");
constexpr Operation kMinus = Op("operator-(ZelDtDecimal)");
constexpr Operation kMinusInt = Op("operator-(INT)");
constexpr Operation kMinusLong = Op("operator-(LONG)");
constexpr Operation kMinusDouble = Op("operator-(double)");
constexpr Operation kIntMinus = Op("operator-(INT,ZelDtDecimal&)");
constexpr Operation kLongMinus = Op("operator-(LONG,ZelDtDecimal&)");
constexpr Operation kDoubleMinus = Op("operator-(double,ZelDtDecimal&)");
constexpr Operation kTimes = Op("operator*(ZelDtDecimal&)");
constexpr Operation kTimesInt = Op("operator*(INT)");
constexpr Operation kTimesLong = Op("operator*(LONG)");
constexpr Operation kTimesDouble = Op("operator*(double)");
constexpr Operation kIntTimes = Op("operator*(INT,ZelDtDecimal&)");
constexpr Operation kLongTimes = Op("operator*(LONG,ZelDtDecimal&)");
constexpr Operation kDoubleTimes = Op("operator*(double,ZelDtDecimal&)");
constexpr Operation kDivided = Op("operator/(ZelDtDecimal&)");
constexpr Operation kDividedInt = Op("operator/(INT)");
constexpr Operation kDividedLong = Op("operator/(LONG)");
constexpr Operation kDividedDouble = Op("operator/(double)");
constexpr Operation kIntDivided = Op("operator/(INT,ZelDtDecimal&)");
constexpr Operation kLongDivided = Op("operator/(LONG,ZelDtDecimal&)");
constexpr Operation kDoubleDivided = Op("operator/(double,ZelDtDecimal&)");
constexpr Operation kRemainder = Op("operator%(ZelDtDecimal&)");
constexpr Operation kRemainderInt = Op("operator%(INT)");
constexpr Operation kRemainderLong = Op("operator%(LONG)");
constexpr Operation kRemainderDouble = Op("operator%(double)");
constexpr Operation kIntRemainder = Op("operator%(INT,ZelDtDecimal&)");
constexpr Operation kLongRemainder = Op("operator%(LONG,ZelDtDecimal&)");
constexpr Operation kDoubleRemainder = Op("operator%(double,ZelDtDecimal&)");

constexpr Operation kAdd = Op("operator+=(ZelDtDecimal&)");
constexpr Operation kAddInt = Op("operator+=(INT)");
constexpr Operation kAddLong = Op("operator+=(LONG)");
constexpr Operation kAddDouble = Op("operator+=(double)");
constexpr Operation kSubtract = Op("operator-=(ZelDtDecimal&)");
constexpr Operation kSubtractInt = Op("operator-=(INT)");
constexpr Operation kSubtractLong = Op("operator-=(LONG)");
constexpr Operation kSubtractDouble = Op("operator-=(double)");
constexpr Operation kIncrement = Op("operator++()");
constexpr Operation kIncrementPostfix = Op("operator++(int)");
constexpr Operation kDecrement = Op("operator--()");
constexpr Operation kDecrementPostfix = Op("operator--(int)");

constexpr Operation kLess = Op("operator<(ZelDtDecimal&)");
constexpr Operation kLessInt = Op("operator<(INT)");
constexpr Operation kLessLong = Op("operator<(LONG)");
constexpr Operation kLessDouble = Op("operator<(double)");
constexpr Operation kGreater = Op("operator>(ZelDtDecimal&)");
constexpr Operation kGreaterInt = Op("operator>(INT)");
constexpr Operation kGreaterLong = Op("operator>(LONG)");
constexpr Operation kGreaterDouble = Op("operator>(double)");
constexpr Operation kLessOrEqual = Op("operator<=(ZelDtDecimal&)");
constexpr Operation kLessOrEqualInt = Op("operator<=(INT)");
constexpr Operation kLessOrEqualLong = Op("operator<=(LONG)");
constexpr Operation kLessOrEqualDouble = Op("operator<=(double)");
constexpr Operation kGreaterOrEqual = Op("operator>=(ZelDtDecimal&)");
constexpr Operation kGreaterOrEqualInt = Op("operator>=(INT)");
constexpr Operation kGreaterOrEqualLong = Op("operator>=(LONG)");
constexpr Operation kGreaterOrEqualDouble = Op("operator>=(double)");
constexpr Operation kEqual = Op("operator==(ZelDtDecimal&)");
constexpr Operation kEqualInt = Op("operator==(INT)");
constexpr Operation kEqualLong = Op("operator==(LONG)");
constexpr Operation kEqualDouble = Op("operator==(double)");
constexpr Operation kUnequal = Op("operator!=(ZelDtDecimal&)");
constexpr Operation kUnequalInt = Op("operator!=(INT)");
constexpr Operation kUnequalLong = Op("operator!=(LONG)");
constexpr Operation kUnequalDouble = Op("operator!=(double)");

constexpr Operation kAssign = Op("operator=(ZelDtDecimal&)");
constexpr Operation kAssignInt = Op("operator=(INT)");
constexpr Operation kAssignLong = Op("operator=(LONG)");
constexpr Operation kAssignDouble = Op("operator=(double)");
constexpr Operation kAssignCurrency = Op("operator=(const COleCurrency&)");
constexpr Operation kToDouble = Op("operatordouble()");
constexpr Operation kToCurrency = Op("operatorCOleCurrency()");

} // namespace

// Arithmetic

ZelDtDecimal ZelDtDecimal::operator+(const ZelDtDecimal& right) const
{
    return Binary<Sum>(kPlus, *this, right);
}

ZelDtDecimal ZelDtDecimal::operator+(int right) const
{
    return WithRightNumber<Sum>(kPlusInt, *this, right);
}

ZelDtDecimal operator+(int left, const ZelDtDecimal& right)
{
    return WithLeftNumber<Sum>(kIntPlus, left, right);
}

ZelDtDecimal ZelDtDecimal::operator+(long right) const
{
    return WithRightNumber<Sum>(kPlusLong, *this, right);
}

ZelDtDecimal operator+(long left, const ZelDtDecimal& right)
{
    return WithLeftNumber<Sum>(kLongPlus, left, right);
}

ZelDtDecimal ZelDtDecimal::operator+(double right) const
{
    return WithRightNumber<Sum>(kPlusDouble, *this, right);
}

ZelDtDecimal operator+(double left, const ZelDtDecimal& right)
{
    return WithLeftNumber<Sum>(kDoublePlus, left, right);
}

ZelDtDecimal ZelDtDecimal::operator-(const ZelDtDecimal& right) const
{
    return Binary<Difference>(kMinus, *this, right);
}

ZelDtDecimal ZelDtDecimal::operator-(int right) const
{
    return WithRightNumber<Difference>(kMinusInt, *this, right);
}

ZelDtDecimal operator-(int left, const ZelDtDecimal& right)
{
    return WithLeftNumber<Difference>(kIntMinus, left, right);
}

ZelDtDecimal ZelDtDecimal::operator-(long right) const
{
    return WithRightNumber<Difference>(kMinusLong, *this, right);
}

ZelDtDecimal operator-(long left, const ZelDtDecimal& right)
{
    return WithLeftNumber<Difference>(kLongMinus, left, right);
}

ZelDtDecimal ZelDtDecimal::operator-(double right) const
{
    return WithRightNumber<Difference>(kMinusDouble, *this, right);
}

ZelDtDecimal operator-(double left, const ZelDtDecimal& right)
{
    return WithLeftNumber<Difference>(kDoubleMinus, left, right);
}

ZelDtDecimal ZelDtDecimal::operator*(const ZelDtDecimal& right) const
{
    return Binary<Product>(kTimes, *this, right);
}

ZelDtDecimal ZelDtDecimal::operator*(int right) const
{
    return WithRightNumber<Product>(kTimesInt, *this, right);
}

ZelDtDecimal operator*(int left, const ZelDtDecimal& right)
{
    return WithLeftNumber<Product>(kIntTimes, left, right);
}

ZelDtDecimal ZelDtDecimal::operator*(long right) const
{
    return WithRightNumber<Product>(kTimesLong, *this, right);
}

ZelDtDecimal operator*(long left, const ZelDtDecimal& right)
{
    return WithLeftNumber<Product>(kLongTimes, left, right);
}

ZelDtDecimal ZelDtDecimal::operator*(double right) const
{
    return WithRightNumber<Product>(kTimesDouble, *this, right);
}

ZelDtDecimal operator*(double left, const ZelDtDecimal& right)
{
    return WithLeftNumber<Product>(kDoubleTimes, left, right);
}

ZelDtDecimal ZelDtDecimal::operator/(const ZelDtDecimal& right) const
{
    return Binary<Quotient>(kDivided, *this, right);
}

ZelDtDecimal ZelDtDecimal::operator/(int right) const
{
    return WithRightNumber<Quotient>(kDividedInt, *this, right);
}

ZelDtDecimal operator/(int left, const ZelDtDecimal& right)
{
    return WithLeftNumber<Quotient>(kIntDivided, left, right);
}

ZelDtDecimal ZelDtDecimal::operator/(long right) const
{
    return WithRightNumber<Quotient>(kDividedLong, *this, right);
}

ZelDtDecimal operator/(long left, const ZelDtDecimal& right)
{
    return WithLeftNumber<Quotient>(kLongDivided, left, right);
}

ZelDtDecimal ZelDtDecimal::operator/(double right) const
{
    return WithRightNumber<Quotient>(kDividedDouble, *this, right);
}

ZelDtDecimal operator/(double left, const ZelDtDecimal& right)
{
    return WithLeftNumber<Quotient>(kDoubleDivided, left, right);
}

ZelDtDecimal ZelDtDecimal::operator%(const ZelDtDecimal& right) const
{
    return Binary<Remainder>(kRemainder, *this, right);
}

ZelDtDecimal ZelDtDecimal::operator%(int right) const
{
    return WithRightNumber<Remainder>(kRemainderInt, *this, right);
}

ZelDtDecimal operator%(int left, const ZelDtDecimal& right)
{
    return WithLeftNumber<Remainder>(kIntRemainder, left, right);
}

ZelDtDecimal ZelDtDecimal::operator%(long right) const
{
    return WithRightNumber<Remainder>(kRemainderLong, *this, right);
}

ZelDtDecimal operator%(long left, const ZelDtDecimal& right)
{
    return WithLeftNumber<Remainder>(kLongRemainder, left, right);
}

ZelDtDecimal ZelDtDecimal::operator%(double right) const
{
    return WithRightNumber<Remainder>(kRemainderDouble, *this, right);
}

ZelDtDecimal operator%(double left, const ZelDtDecimal& right)
{
    return WithLeftNumber<Remainder>(kDoubleRemainder, left, right);
}

// Compound assignment

ZelDtDecimal& ZelDtDecimal::operator+=(const ZelDtDecimal& right)
{
    return Accumulate<Sum>(kAdd, *this, right);
}

ZelDtDecimal& ZelDtDecimal::operator+=(int right)
{
    return AccumulateNumber<Sum>(kAddInt, *this, right);
}

ZelDtDecimal& ZelDtDecimal::operator+=(long right)
{
    return AccumulateNumber<Sum>(kAddLong, *this, right);
}

ZelDtDecimal& ZelDtDecimal::operator+=(double right)
{
    return AccumulateNumber<Sum>(kAddDouble, *this, right);
}

ZelDtDecimal& ZelDtDecimal::operator-=(const ZelDtDecimal& right)
{
    return Accumulate<Difference>(kSubtract, *this, right);
}

ZelDtDecimal& ZelDtDecimal::operator-=(int right)
{
    return AccumulateNumber<Difference>(kSubtractInt, *this, right);
}

ZelDtDecimal& ZelDtDecimal::operator-=(long right)
{
    return AccumulateNumber<Difference>(kSubtractLong, *this, right);
}

ZelDtDecimal& ZelDtDecimal::operator-=(double right)
{
    return AccumulateNumber<Difference>(kSubtractDouble, *this, right);
}

void ZelDtDecimal::operator++()
{
    AccumulateNumber<Sum>(kIncrement, *this, 1);
}

void ZelDtDecimal::operator++(int)
{
    AccumulateNumber<Sum>(kIncrementPostfix, *this, 1);
}

void ZelDtDecimal::operator--()
{
    AccumulateNumber<Difference>(kDecrement, *this, 1);
}

void ZelDtDecimal::operator--(int)
{
    AccumulateNumber<Difference>(kDecrementPostfix, *this, 1);
}

// Comparison

int ZelDtDecimal::operator<(const ZelDtDecimal& right) const
{
    return Compare<Less>(kLess, *this, right);
}

int ZelDtDecimal::operator<(int right) const
{
    return CompareNumber<Less>(kLessInt, *this, right);
}

int ZelDtDecimal::operator<(long right) const
{
    return CompareNumber<Less>(kLessLong, *this, right);
}

int ZelDtDecimal::operator<(double right) const
{
    return CompareNumber<Less>(kLessDouble, *this, right);
}

int ZelDtDecimal::operator>(const ZelDtDecimal& right) const
{
    return Compare<Greater>(kGreater, *this, right);
}

int ZelDtDecimal::operator>(int right) const
{
    return CompareNumber<Greater>(kGreaterInt, *this, right);
}

int ZelDtDecimal::operator>(long right) const
{
    return CompareNumber<Greater>(kGreaterLong, *this, right);
}

int ZelDtDecimal::operator>(double right) const
{
    return CompareNumber<Greater>(kGreaterDouble, *this, right);
}

int ZelDtDecimal::operator<=(const ZelDtDecimal& right) const
{
    return Compare<LessOrEqual>(kLessOrEqual, *this, right);
}

int ZelDtDecimal::operator<=(int right) const
{
    return CompareNumber<LessOrEqual>(kLessOrEqualInt, *this, right);
}

int ZelDtDecimal::operator<=(long right) const
{
    return CompareNumber<LessOrEqual>(kLessOrEqualLong, *this, right);
}

int ZelDtDecimal::operator<=(double right) const
{
    return CompareNumber<LessOrEqual>(kLessOrEqualDouble, *this, right);
}

int ZelDtDecimal::operator>=(const ZelDtDecimal& right) const
{
    return Compare<GreaterOrEqual>(kGreaterOrEqual, *this, right);
}

int ZelDtDecimal::operator>=(int right) const
{
    return CompareNumber<GreaterOrEqual>(kGreaterOrEqualInt, *this, right);
}

int ZelDtDecimal::operator>=(long right) const
{
    return CompareNumber<GreaterOrEqual>(kGreaterOrEqualLong, *this, right);
}

int ZelDtDecimal::operator>=(double right) const
{
    return CompareNumber<GreaterOrEqual>(kGreaterOrEqualDouble, *this, right);
}

int ZelDtDecimal::operator==(const ZelDtDecimal& right) const
{
    return Compare<Equal>(kEqual, *this, right);
}

int ZelDtDecimal::operator==(int right) const
{
    return CompareNumber<Equal>(kEqualInt, *this, right);
}

int ZelDtDecimal::operator==(long right) const
{
    return CompareNumber<Equal>(kEqualLong, *this, right);
}

int ZelDtDecimal::operator==(double right) const
{
    return CompareNumber<Equal>(kEqualDouble, *this, right);
}

int ZelDtDecimal::operator!=(const ZelDtDecimal& right) const
{
    return Compare<Unequal>(kUnequal, *this, right);
}

int ZelDtDecimal::operator!=(int right) const
{
    return CompareNumber<Unequal>(kUnequalInt, *this, right);
}

int ZelDtDecimal::operator!=(long right) const
{
    return CompareNumber<Unequal>(kUnequalLong, *this, right);
}

int ZelDtDecimal::operator!=(double right) const
{
    return CompareNumber<Unequal>(kUnequalDouble, *this, right);
}

// Assignment

ZelDtDecimal& ZelDtDecimal::operator=(const ZelDtDecimal& source)
{
    if (this == &source)
        return *this;
    Guarded(kAssign, [&] {
        ZelDtBasis::operator=(source);
        if (*m_pImp != *source.m_pImp) {
            *m_pImp = *source.m_pImp;
            SetModified(1);
        }
    });
    return *this;
}

ZelDtDecimal& ZelDtDecimal::operator=(int number)
{
    return AssignWhole(kAssignInt, *this, number);
}

ZelDtDecimal& ZelDtDecimal::operator=(long number)
{
    return AssignWhole(kAssignLong, *this, number);
}

ZelDtDecimal& ZelDtDecimal::operator=(double number)
{
    zeldt::Calculate(kAssignDouble, [&] { Access::Replace(*this, NumberOf(number)); });
    return *this;
}

ZelDtDecimal& ZelDtDecimal::operator=(const COleCurrency& amount)
{
    Guarded(kAssignCurrency, [&] {
        if (amount.GetStatus() != COleCurrency::valid) {
            Clear();
            return;
        }
        SetDefined(1);
        const ZelDtDecimal_Imp number(amount);
        if (IsModified())
            Access::Replace(*this, number);
        else
            Access::Change(*this, number);
    });
    return *this;
}

// Conversions

ZelDtDecimal::operator double() const
{
    return Guarded(kToDouble, [&] { return static_cast<double>(toDouble(*m_pImp)); });
}

ZelDtDecimal::operator COleCurrency() const
{
    return Guarded(kToCurrency,
                   [&] { return (IsDefined() ? *m_pImp : ZelDtDecimal_Imp()).ToCurrency(); });
}
