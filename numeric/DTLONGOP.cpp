#include "numeric/DTLONG.h"

#include "numeric/IMP/DTINTOPE.h"
#include "numeric/IMP/DTLONGI.h"

namespace {

using zeldt::Arithmetic;
using zeldt::Operation;

using Operators = zeldt::IntegerOperators<zeldt::LongRules>;

constexpr Operation Op(const char* signature)
{
    return {"DTLONG", "ZelDtLong", signature};
}

constexpr Operation kPlus = Op("operator+(ZelDtLong&)");
constexpr Operation kMinus = Op("operator-(ZelDtLong&)");
constexpr Operation kTimes = Op("operator*(ZelDtLong&)");
constexpr Operation kDivided = Op("operator/(ZelDtLong&)");
constexpr Operation kPlusInt = Op("operator+(INT)");
constexpr Operation kPlusLong = Op("operator+(LONG)");
constexpr Operation kMinusInt = Op("operator-(INT)");
constexpr Operation kMinusLong = Op("operator-(LONG)");
constexpr Operation kTimesInt = Op("operator*(INT)");
constexpr Operation kTimesLong = Op("operator*(LONG)");
constexpr Operation kDividedInt = Op("operator/(INT)");
constexpr Operation kDividedLong = Op("operator/(LONG)");
constexpr Operation kIntPlus = Op("operator+(INT,ZelDtLong&)");
constexpr Operation kLongPlus = Op("operator+(LONG,ZelDtLong&)");
constexpr Operation kIntMinus = Op("operator-(INT,ZelDtLong&)");
constexpr Operation kLongMinus = Op("operator-(LONG,ZelDtLong&)");
constexpr Operation kIntTimes = Op("operator*(INT,ZelDtLong&)");
constexpr Operation kLongTimes = Op("operator*(LONG,ZelDtLong&)");
constexpr Operation kIntDivided = Op("operator/(INT,ZelDtLong&)");
constexpr Operation kLongDivided = Op("operator/(LONG,ZelDtLong&)");

constexpr Operation kAdd = Op("operator+=(ZelDtLong&)");
constexpr Operation kAddInt = Op("operator+=(INT)");
constexpr Operation kAddLong = Op("operator+=(LONG)");
constexpr Operation kSubtract = Op("operator-=(ZelDtLong&)");
constexpr Operation kSubtractInt = Op("operator-=(INT)");
constexpr Operation kSubtractLong = Op("operator-=(LONG)");
constexpr Operation kIncrement = Op("operator++()");
constexpr Operation kIncrementPostfix = Op("operator++(INT)");
constexpr Operation kDecrement = Op("operator--()");
constexpr Operation kDecrementPostfix = Op("operator--(INT)");

constexpr Operation kLess = Op("operator<(ZelDtLong&)");
constexpr Operation kLessInt = Op("operator<(INT)");
constexpr Operation kLessLong = Op("operator<(LONG)");
constexpr Operation kGreater = Op("operator>(ZelDtLong&)");
constexpr Operation kGreaterInt = Op("operator>(INT)");
constexpr Operation kGreaterLong = Op("operator>(LONG)");
constexpr Operation kLessOrEqual = Op("operator<=(ZelDtLong&)");
constexpr Operation kLessOrEqualInt = Op("operator<=(INT)");
constexpr Operation kLessOrEqualLong = Op("operator<=(LONG)");
constexpr Operation kGreaterOrEqual = Op("operator>=(ZelDtLong&)");
constexpr Operation kGreaterOrEqualInt = Op("operator>=(INT)");
constexpr Operation kGreaterOrEqualLong = Op("operator>=(LONG)");
constexpr Operation kEqual = Op("operator==(ZelDtLong&)");
constexpr Operation kEqualInt = Op("operator==(INT)");
constexpr Operation kEqualLong = Op("operator==(LONG)");
constexpr Operation kUnequal = Op("operator!=(ZelDtLong&)");
constexpr Operation kUnequalInt = Op("operator!=(INT)");
constexpr Operation kUnequalLong = Op("operator!=(LONG)");

} // namespace

// Arithmetic

ZelDtLong ZelDtLong::operator+(const ZelDtLong& right) const
{
    return Operators::Binary<Arithmetic::Add>(kPlus, *this, right);
}

ZelDtLong ZelDtLong::operator+(int right) const
{
    return Operators::WithRightNumber<Arithmetic::Add>(kPlusInt, *this, right);
}

ZelDtLong operator+(int left, const ZelDtLong& right)
{
    return Operators::WithLeftNumber<Arithmetic::Add>(kIntPlus, left, right);
}

ZelDtLong ZelDtLong::operator+(long right) const
{
    return Operators::WithRightNumber<Arithmetic::Add>(kPlusLong, *this, right);
}

ZelDtLong operator+(long left, const ZelDtLong& right)
{
    return Operators::WithLeftNumber<Arithmetic::Add>(kLongPlus, left, right);
}

ZelDtLong ZelDtLong::operator-(const ZelDtLong& right) const
{
    return Operators::Binary<Arithmetic::Subtract>(kMinus, *this, right);
}

ZelDtLong ZelDtLong::operator-(int right) const
{
    return Operators::WithRightNumber<Arithmetic::Subtract>(kMinusInt, *this, right);
}

ZelDtLong operator-(int left, const ZelDtLong& right)
{
    return Operators::WithLeftNumber<Arithmetic::Subtract>(kIntMinus, left, right);
}

ZelDtLong ZelDtLong::operator-(long right) const
{
    return Operators::WithRightNumber<Arithmetic::Subtract>(kMinusLong, *this, right);
}

ZelDtLong operator-(long left, const ZelDtLong& right)
{
    return Operators::WithLeftNumber<Arithmetic::Subtract>(kLongMinus, left, right);
}

ZelDtLong ZelDtLong::operator*(const ZelDtLong& right) const
{
    return Operators::Binary<Arithmetic::Multiply>(kTimes, *this, right);
}

ZelDtLong ZelDtLong::operator*(int right) const
{
    return Operators::WithRightNumber<Arithmetic::Multiply>(kTimesInt, *this, right);
}

ZelDtLong operator*(int left, const ZelDtLong& right)
{
    return Operators::WithLeftNumber<Arithmetic::Multiply>(kIntTimes, left, right);
}

ZelDtLong ZelDtLong::operator*(long right) const
{
    return Operators::WithRightNumber<Arithmetic::Multiply>(kTimesLong, *this, right);
}

ZelDtLong operator*(long left, const ZelDtLong& right)
{
    return Operators::WithLeftNumber<Arithmetic::Multiply>(kLongTimes, left, right);
}

ZelDtLong ZelDtLong::operator/(const ZelDtLong& right) const
{
    return Operators::Binary<Arithmetic::Divide>(kDivided, *this, right);
}

ZelDtLong ZelDtLong::operator/(int right) const
{
    return Operators::WithRightNumber<Arithmetic::Divide>(kDividedInt, *this, right);
}

ZelDtLong operator/(int left, const ZelDtLong& right)
{
    return Operators::WithLeftNumber<Arithmetic::Divide>(kIntDivided, left, right);
}

ZelDtLong ZelDtLong::operator/(long right) const
{
    return Operators::WithRightNumber<Arithmetic::Divide>(kDividedLong, *this, right);
}

ZelDtLong operator/(long left, const ZelDtLong& right)
{
    return Operators::WithLeftNumber<Arithmetic::Divide>(kLongDivided, left, right);
}

// Compound assignment

ZelDtLong& ZelDtLong::operator+=(const ZelDtLong& right)
{
    Operators::AddTo(kAdd, *this, right);
    return *this;
}

ZelDtLong& ZelDtLong::operator+=(int right)
{
    Operators::AccumulateNumber<Arithmetic::Add>(kAddInt, *this, right);
    return *this;
}

ZelDtLong& ZelDtLong::operator+=(long right)
{
    Operators::AccumulateNumber<Arithmetic::Add>(kAddLong, *this, right);
    return *this;
}

ZelDtLong& ZelDtLong::operator-=(const ZelDtLong& right)
{
    Operators::SubtractFrom(kSubtract, *this, right);
    return *this;
}

ZelDtLong& ZelDtLong::operator-=(int right)
{
    Operators::AccumulateNumber<Arithmetic::Subtract>(kSubtractInt, *this, right);
    return *this;
}

ZelDtLong& ZelDtLong::operator-=(long right)
{
    Operators::AccumulateNumber<Arithmetic::Subtract>(kSubtractLong, *this, right);
    return *this;
}

void ZelDtLong::operator++()
{
    Operators::Step<Arithmetic::Add>(kIncrement, *this);
}

void ZelDtLong::operator++(int)
{
    Operators::Step<Arithmetic::Add>(kIncrementPostfix, *this);
}

void ZelDtLong::operator--()
{
    Operators::Step<Arithmetic::Subtract>(kDecrement, *this);
}

void ZelDtLong::operator--(int)
{
    Operators::Step<Arithmetic::Subtract>(kDecrementPostfix, *this);
}

// Comparison

int ZelDtLong::operator<(const ZelDtLong& right) const
{
    return Operators::Compare(kLess, *this, right) < 0;
}

int ZelDtLong::operator<(int right) const
{
    return Operators::CompareNumber(kLessInt, *this, right) < 0;
}

int ZelDtLong::operator<(long right) const
{
    return Operators::CompareNumber(kLessLong, *this, right) < 0;
}

int ZelDtLong::operator>(const ZelDtLong& right) const
{
    return Operators::Compare(kGreater, *this, right) > 0;
}

int ZelDtLong::operator>(int right) const
{
    return Operators::CompareNumber(kGreaterInt, *this, right) > 0;
}

int ZelDtLong::operator>(long right) const
{
    return Operators::CompareNumber(kGreaterLong, *this, right) > 0;
}

int ZelDtLong::operator<=(const ZelDtLong& right) const
{
    return Operators::Compare(kLessOrEqual, *this, right) <= 0;
}

int ZelDtLong::operator<=(int right) const
{
    return Operators::CompareNumber(kLessOrEqualInt, *this, right) <= 0;
}

int ZelDtLong::operator<=(long right) const
{
    return Operators::CompareNumber(kLessOrEqualLong, *this, right) <= 0;
}

int ZelDtLong::operator>=(const ZelDtLong& right) const
{
    return Operators::Compare(kGreaterOrEqual, *this, right) >= 0;
}

int ZelDtLong::operator>=(int right) const
{
    return Operators::CompareNumber(kGreaterOrEqualInt, *this, right) >= 0;
}

int ZelDtLong::operator>=(long right) const
{
    return Operators::CompareNumber(kGreaterOrEqualLong, *this, right) >= 0;
}

int ZelDtLong::operator==(const ZelDtLong& right) const
{
    return Operators::Compare(kEqual, *this, right) == 0;
}

int ZelDtLong::operator==(int right) const
{
    return Operators::CompareNumber(kEqualInt, *this, right) == 0;
}

int ZelDtLong::operator==(long right) const
{
    return Operators::CompareNumber(kEqualLong, *this, right) == 0;
}

int ZelDtLong::operator!=(const ZelDtLong& right) const
{
    return Operators::Compare(kUnequal, *this, right) != 0;
}

int ZelDtLong::operator!=(int right) const
{
    return Operators::CompareNumber(kUnequalInt, *this, right) != 0;
}

int ZelDtLong::operator!=(long right) const
{
    return Operators::CompareNumber(kUnequalLong, *this, right) != 0;
}
