#include "numeric/DTSHORT.h"

#include "numeric/IMP/DTINTOPE.h"
#include "numeric/IMP/DTSHORTI.h"

namespace {

using zeldt::Arithmetic;
using zeldt::Operation;

using Operators = zeldt::IntegerOperators<zeldt::ShortRules>;

constexpr Operation Op(const char* signature)
{
    return {"DTSHORT", "ZelDtShort", signature};
}

constexpr Operation kPlus = Op("operator+(ZelDtShort&)");
constexpr Operation kMinus = Op("operator-(ZelDtShort&)");
constexpr Operation kTimes = Op("operator*(ZelDtShort&)");
constexpr Operation kDivided = Op("operator/(ZelDtShort&)");
constexpr Operation kPlusInt = Op("operator+(INT)");
constexpr Operation kPlusLong = Op("operator+(LONG)");
constexpr Operation kMinusInt = Op("operator-(INT)");
constexpr Operation kMinusLong = Op("operator-(LONG)");
constexpr Operation kTimesInt = Op("operator*(INT)");
constexpr Operation kTimesLong = Op("operator*(LONG)");
constexpr Operation kDividedInt = Op("operator/(INT)");
constexpr Operation kDividedLong = Op("operator/(LONG)");
constexpr Operation kIntPlus = Op("operator+(INT,ZelDtShort&)");
constexpr Operation kLongPlus = Op("operator+(LONG,ZelDtShort&)");
constexpr Operation kIntMinus = Op("operator-(INT,ZelDtShort&)");
constexpr Operation kLongMinus = Op("operator-(LONG,ZelDtShort&)");
constexpr Operation kIntTimes = Op("operator*(INT,ZelDtShort&)");
constexpr Operation kLongTimes = Op("operator*(LONG,ZelDtShort&)");
constexpr Operation kIntDivided = Op("operator/(INT,ZelDtShort&)");
constexpr Operation kLongDivided = Op("operator/(LONG,ZelDtShort&)");

constexpr Operation kAdd = Op("operator+=(ZelDtShort&)");
constexpr Operation kAddInt = Op("operator+=(INT)");
constexpr Operation kAddLong = Op("operator+=(LONG)");
constexpr Operation kSubtract = Op("operator-=(ZelDtShort&)");
constexpr Operation kSubtractInt = Op("operator-=(INT)");
constexpr Operation kSubtractLong = Op("operator-=(LONG)");
constexpr Operation kIncrement = Op("operator++()");
constexpr Operation kIncrementPostfix = Op("operator++(INT)");
constexpr Operation kDecrement = Op("operator--()");
constexpr Operation kDecrementPostfix = Op("operator--(INT)");

constexpr Operation kLess = Op("operator<(ZelDtShort&)");
constexpr Operation kLessInt = Op("operator<(INT)");
constexpr Operation kLessLong = Op("operator<(LONG)");
constexpr Operation kGreater = Op("operator>(ZelDtShort&)");
constexpr Operation kGreaterInt = Op("operator>(INT)");
constexpr Operation kGreaterLong = Op("operator>(LONG)");
constexpr Operation kLessOrEqual = Op("operator<=(ZelDtShort&)");
constexpr Operation kLessOrEqualInt = Op("operator<=(INT)");
constexpr Operation kLessOrEqualLong = Op("operator<=(LONG)");
constexpr Operation kGreaterOrEqual = Op("operator>=(ZelDtShort&)");
constexpr Operation kGreaterOrEqualInt = Op("operator>=(INT)");
constexpr Operation kGreaterOrEqualLong = Op("operator>=(LONG)");
constexpr Operation kEqual = Op("operator==(ZelDtShort&)");
constexpr Operation kEqualInt = Op("operator==(INT)");
constexpr Operation kEqualLong = Op("operator==(LONG)");
constexpr Operation kUnequal = Op("operator!=(ZelDtShort&)");
constexpr Operation kUnequalInt = Op("operator!=(INT)");
constexpr Operation kUnequalLong = Op("operator!=(LONG)");

} // namespace

// Arithmetic

ZelDtShort ZelDtShort::operator+(const ZelDtShort& right) const
{
    return Operators::Binary<Arithmetic::Add>(kPlus, *this, right);
}

ZelDtShort ZelDtShort::operator+(int right) const
{
    return Operators::WithRightNumber<Arithmetic::Add>(kPlusInt, *this, right);
}

ZelDtShort operator+(int left, const ZelDtShort& right)
{
    return Operators::WithLeftNumber<Arithmetic::Add>(kIntPlus, left, right);
}

ZelDtShort ZelDtShort::operator+(long right) const
{
    return Operators::WithRightNumber<Arithmetic::Add>(kPlusLong, *this, right);
}

ZelDtShort operator+(long left, const ZelDtShort& right)
{
    return Operators::WithLeftNumber<Arithmetic::Add>(kLongPlus, left, right);
}

ZelDtShort ZelDtShort::operator-(const ZelDtShort& right) const
{
    return Operators::Binary<Arithmetic::Subtract>(kMinus, *this, right);
}

ZelDtShort ZelDtShort::operator-(int right) const
{
    return Operators::WithRightNumber<Arithmetic::Subtract>(kMinusInt, *this, right);
}

ZelDtShort operator-(int left, const ZelDtShort& right)
{
    return Operators::WithLeftNumber<Arithmetic::Subtract>(kIntMinus, left, right);
}

ZelDtShort ZelDtShort::operator-(long right) const
{
    return Operators::WithRightNumber<Arithmetic::Subtract>(kMinusLong, *this, right);
}

ZelDtShort operator-(long left, const ZelDtShort& right)
{
    return Operators::WithLeftNumber<Arithmetic::Subtract>(kLongMinus, left, right);
}

ZelDtShort ZelDtShort::operator*(const ZelDtShort& right) const
{
    return Operators::Binary<Arithmetic::Multiply>(kTimes, *this, right);
}

ZelDtShort ZelDtShort::operator*(int right) const
{
    return Operators::WithRightNumber<Arithmetic::Multiply>(kTimesInt, *this, right);
}

ZelDtShort operator*(int left, const ZelDtShort& right)
{
    return Operators::WithLeftNumber<Arithmetic::Multiply>(kIntTimes, left, right);
}

ZelDtShort ZelDtShort::operator*(long right) const
{
    return Operators::WithRightNumber<Arithmetic::Multiply>(kTimesLong, *this, right);
}

ZelDtShort operator*(long left, const ZelDtShort& right)
{
    return Operators::WithLeftNumber<Arithmetic::Multiply>(kLongTimes, left, right);
}

ZelDtShort ZelDtShort::operator/(const ZelDtShort& right) const
{
    return Operators::Binary<Arithmetic::Divide>(kDivided, *this, right);
}

ZelDtShort ZelDtShort::operator/(int right) const
{
    return Operators::WithRightNumber<Arithmetic::Divide>(kDividedInt, *this, right);
}

ZelDtShort operator/(int left, const ZelDtShort& right)
{
    return Operators::WithLeftNumber<Arithmetic::Divide>(kIntDivided, left, right);
}

ZelDtShort ZelDtShort::operator/(long right) const
{
    return Operators::WithRightNumber<Arithmetic::Divide>(kDividedLong, *this, right);
}

ZelDtShort operator/(long left, const ZelDtShort& right)
{
    return Operators::WithLeftNumber<Arithmetic::Divide>(kLongDivided, left, right);
}

// Compound assignment

ZelDtShort& ZelDtShort::operator+=(const ZelDtShort& right)
{
    Operators::AddTo(kAdd, *this, right);
    return *this;
}

ZelDtShort& ZelDtShort::operator+=(int right)
{
    Operators::AccumulateNumber<Arithmetic::Add>(kAddInt, *this, right);
    return *this;
}

ZelDtShort& ZelDtShort::operator+=(long right)
{
    Operators::AccumulateNumber<Arithmetic::Add>(kAddLong, *this, right);
    return *this;
}

ZelDtShort& ZelDtShort::operator-=(const ZelDtShort& right)
{
    Operators::SubtractFrom(kSubtract, *this, right);
    return *this;
}

ZelDtShort& ZelDtShort::operator-=(int right)
{
    Operators::AccumulateNumber<Arithmetic::Subtract>(kSubtractInt, *this, right);
    return *this;
}

ZelDtShort& ZelDtShort::operator-=(long right)
{
    Operators::AccumulateNumber<Arithmetic::Subtract>(kSubtractLong, *this, right);
    return *this;
}

void ZelDtShort::operator++()
{
    Operators::Step<Arithmetic::Add>(kIncrement, *this);
}

void ZelDtShort::operator++(int)
{
    Operators::Step<Arithmetic::Add>(kIncrementPostfix, *this);
}

void ZelDtShort::operator--()
{
    Operators::Step<Arithmetic::Subtract>(kDecrement, *this);
}

void ZelDtShort::operator--(int)
{
    Operators::Step<Arithmetic::Subtract>(kDecrementPostfix, *this);
}

// Comparison

int ZelDtShort::operator<(const ZelDtShort& right) const
{
    return Operators::Compare(kLess, *this, right) < 0;
}

int ZelDtShort::operator<(int right) const
{
    return Operators::CompareNumber(kLessInt, *this, right) < 0;
}

int ZelDtShort::operator<(long right) const
{
    return Operators::CompareNumber(kLessLong, *this, right) < 0;
}

int ZelDtShort::operator>(const ZelDtShort& right) const
{
    return Operators::Compare(kGreater, *this, right) > 0;
}

int ZelDtShort::operator>(int right) const
{
    return Operators::CompareNumber(kGreaterInt, *this, right) > 0;
}

int ZelDtShort::operator>(long right) const
{
    return Operators::CompareNumber(kGreaterLong, *this, right) > 0;
}

int ZelDtShort::operator<=(const ZelDtShort& right) const
{
    return Operators::Compare(kLessOrEqual, *this, right) <= 0;
}

int ZelDtShort::operator<=(int right) const
{
    return Operators::CompareNumber(kLessOrEqualInt, *this, right) <= 0;
}

int ZelDtShort::operator<=(long right) const
{
    return Operators::CompareNumber(kLessOrEqualLong, *this, right) <= 0;
}

int ZelDtShort::operator>=(const ZelDtShort& right) const
{
    return Operators::Compare(kGreaterOrEqual, *this, right) >= 0;
}

int ZelDtShort::operator>=(int right) const
{
    return Operators::CompareNumber(kGreaterOrEqualInt, *this, right) >= 0;
}

int ZelDtShort::operator>=(long right) const
{
    return Operators::CompareNumber(kGreaterOrEqualLong, *this, right) >= 0;
}

int ZelDtShort::operator==(const ZelDtShort& right) const
{
    return Operators::Compare(kEqual, *this, right) == 0;
}

int ZelDtShort::operator==(int right) const
{
    return Operators::CompareNumber(kEqualInt, *this, right) == 0;
}

int ZelDtShort::operator==(long right) const
{
    return Operators::CompareNumber(kEqualLong, *this, right) == 0;
}

int ZelDtShort::operator!=(const ZelDtShort& right) const
{
    return Operators::Compare(kUnequal, *this, right) != 0;
}

int ZelDtShort::operator!=(int right) const
{
    return Operators::CompareNumber(kUnequalInt, *this, right) != 0;
}

int ZelDtShort::operator!=(long right) const
{
    return Operators::CompareNumber(kUnequalLong, *this, right) != 0;
}
