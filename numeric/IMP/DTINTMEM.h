#ifndef ZELDT_NUMERIC_IMP_DTINTMEM_H
#define ZELDT_NUMERIC_IMP_DTINTMEM_H

/// The operators of one integer class as its members. Private to the library: one source of each
/// class includes it, once, after the class itself and these macros:
///
///     ZELDT_INTEGER         the class
///     ZELDT_INTEGER_RULES   its rules, see IntegerRep
///     ZELDT_INTEGER_MODULE  the module, as a text, that errors are reported under
///
/// Not a template and not a base: these are plain members outside of their class, so that both
/// classes export and debuggers show the names that their headers declare; and yet one text.

#if !defined(ZELDT_INTEGER) || !defined(ZELDT_INTEGER_RULES) || !defined(ZELDT_INTEGER_MODULE)
#error "The class, its rules and its module are to be named before."
#endif

#include "numeric/IMP/DTINTOPE.h"

#define ZELDT_INTEGER_TEXT_OF(name) #name
#define ZELDT_INTEGER_TEXT(name) ZELDT_INTEGER_TEXT_OF(name)
#define ZELDT_INTEGER_NAME ZELDT_INTEGER_TEXT(ZELDT_INTEGER)

namespace {

using zeldt::Arithmetic;
using zeldt::Operation;

using Operators = zeldt::IntegerOperators<ZELDT_INTEGER_RULES>;

constexpr Operation Op(const char* signature)
{
    return {ZELDT_INTEGER_MODULE, ZELDT_INTEGER_NAME, signature};
}

constexpr Operation kPlus = Op("operator+(" ZELDT_INTEGER_NAME "&)");
constexpr Operation kMinus = Op("operator-(" ZELDT_INTEGER_NAME "&)");
constexpr Operation kTimes = Op("operator*(" ZELDT_INTEGER_NAME "&)");
constexpr Operation kDivided = Op("operator/(" ZELDT_INTEGER_NAME "&)");
constexpr Operation kPlusInt = Op("operator+(INT)");
constexpr Operation kPlusLong = Op("operator+(LONG)");
constexpr Operation kMinusInt = Op("operator-(INT)");
constexpr Operation kMinusLong = Op("operator-(LONG)");
constexpr Operation kTimesInt = Op("operator*(INT)");
constexpr Operation kTimesLong = Op("operator*(LONG)");
constexpr Operation kDividedInt = Op("operator/(INT)");
constexpr Operation kDividedLong = Op("operator/(LONG)");
constexpr Operation kIntPlus = Op("operator+(INT," ZELDT_INTEGER_NAME "&)");
constexpr Operation kLongPlus = Op("operator+(LONG," ZELDT_INTEGER_NAME "&)");
constexpr Operation kIntMinus = Op("operator-(INT," ZELDT_INTEGER_NAME "&)");
constexpr Operation kLongMinus = Op("operator-(LONG," ZELDT_INTEGER_NAME "&)");
constexpr Operation kIntTimes = Op("operator*(INT," ZELDT_INTEGER_NAME "&)");
constexpr Operation kLongTimes = Op("operator*(LONG," ZELDT_INTEGER_NAME "&)");
constexpr Operation kIntDivided = Op("operator/(INT," ZELDT_INTEGER_NAME "&)");
constexpr Operation kLongDivided = Op("operator/(LONG," ZELDT_INTEGER_NAME "&)");

constexpr Operation kAdd = Op("operator+=(" ZELDT_INTEGER_NAME "&)");
constexpr Operation kAddInt = Op("operator+=(INT)");
constexpr Operation kAddLong = Op("operator+=(LONG)");
constexpr Operation kSubtract = Op("operator-=(" ZELDT_INTEGER_NAME "&)");
constexpr Operation kSubtractInt = Op("operator-=(INT)");
constexpr Operation kSubtractLong = Op("operator-=(LONG)");
constexpr Operation kIncrement = Op("operator++()");
constexpr Operation kIncrementPostfix = Op("operator++(INT)");
constexpr Operation kDecrement = Op("operator--()");
constexpr Operation kDecrementPostfix = Op("operator--(INT)");

constexpr Operation kLess = Op("operator<(" ZELDT_INTEGER_NAME "&)");
constexpr Operation kLessInt = Op("operator<(INT)");
constexpr Operation kLessLong = Op("operator<(LONG)");
constexpr Operation kGreater = Op("operator>(" ZELDT_INTEGER_NAME "&)");
constexpr Operation kGreaterInt = Op("operator>(INT)");
constexpr Operation kGreaterLong = Op("operator>(LONG)");
constexpr Operation kLessOrEqual = Op("operator<=(" ZELDT_INTEGER_NAME "&)");
constexpr Operation kLessOrEqualInt = Op("operator<=(INT)");
constexpr Operation kLessOrEqualLong = Op("operator<=(LONG)");
constexpr Operation kGreaterOrEqual = Op("operator>=(" ZELDT_INTEGER_NAME "&)");
constexpr Operation kGreaterOrEqualInt = Op("operator>=(INT)");
constexpr Operation kGreaterOrEqualLong = Op("operator>=(LONG)");
constexpr Operation kEqual = Op("operator==(" ZELDT_INTEGER_NAME "&)");
constexpr Operation kEqualInt = Op("operator==(INT)");
constexpr Operation kEqualLong = Op("operator==(LONG)");
constexpr Operation kUnequal = Op("operator!=(" ZELDT_INTEGER_NAME "&)");
constexpr Operation kUnequalInt = Op("operator!=(INT)");
constexpr Operation kUnequalLong = Op("operator!=(LONG)");

} // namespace

// Arithmetic

ZELDT_INTEGER ZELDT_INTEGER::operator+(const ZELDT_INTEGER& right) const
{
    return Operators::Binary<Arithmetic::Add>(kPlus, *this, right);
}

ZELDT_INTEGER ZELDT_INTEGER::operator+(int right) const
{
    return Operators::WithRightNumber<Arithmetic::Add>(kPlusInt, *this, right);
}

ZELDT_INTEGER operator+(int left, const ZELDT_INTEGER& right)
{
    return Operators::WithLeftNumber<Arithmetic::Add>(kIntPlus, left, right);
}

ZELDT_INTEGER ZELDT_INTEGER::operator+(long right) const
{
    return Operators::WithRightNumber<Arithmetic::Add>(kPlusLong, *this, right);
}

ZELDT_INTEGER operator+(long left, const ZELDT_INTEGER& right)
{
    return Operators::WithLeftNumber<Arithmetic::Add>(kLongPlus, left, right);
}

ZELDT_INTEGER ZELDT_INTEGER::operator-(const ZELDT_INTEGER& right) const
{
    return Operators::Binary<Arithmetic::Subtract>(kMinus, *this, right);
}

ZELDT_INTEGER ZELDT_INTEGER::operator-(int right) const
{
    return Operators::WithRightNumber<Arithmetic::Subtract>(kMinusInt, *this, right);
}

ZELDT_INTEGER operator-(int left, const ZELDT_INTEGER& right)
{
    return Operators::WithLeftNumber<Arithmetic::Subtract>(kIntMinus, left, right);
}

ZELDT_INTEGER ZELDT_INTEGER::operator-(long right) const
{
    return Operators::WithRightNumber<Arithmetic::Subtract>(kMinusLong, *this, right);
}

ZELDT_INTEGER operator-(long left, const ZELDT_INTEGER& right)
{
    return Operators::WithLeftNumber<Arithmetic::Subtract>(kLongMinus, left, right);
}

ZELDT_INTEGER ZELDT_INTEGER::operator*(const ZELDT_INTEGER& right) const
{
    return Operators::Binary<Arithmetic::Multiply>(kTimes, *this, right);
}

ZELDT_INTEGER ZELDT_INTEGER::operator*(int right) const
{
    return Operators::WithRightNumber<Arithmetic::Multiply>(kTimesInt, *this, right);
}

ZELDT_INTEGER operator*(int left, const ZELDT_INTEGER& right)
{
    return Operators::WithLeftNumber<Arithmetic::Multiply>(kIntTimes, left, right);
}

ZELDT_INTEGER ZELDT_INTEGER::operator*(long right) const
{
    return Operators::WithRightNumber<Arithmetic::Multiply>(kTimesLong, *this, right);
}

ZELDT_INTEGER operator*(long left, const ZELDT_INTEGER& right)
{
    return Operators::WithLeftNumber<Arithmetic::Multiply>(kLongTimes, left, right);
}

ZELDT_INTEGER ZELDT_INTEGER::operator/(const ZELDT_INTEGER& right) const
{
    return Operators::Binary<Arithmetic::Divide>(kDivided, *this, right);
}

ZELDT_INTEGER ZELDT_INTEGER::operator/(int right) const
{
    return Operators::WithRightNumber<Arithmetic::Divide>(kDividedInt, *this, right);
}

ZELDT_INTEGER operator/(int left, const ZELDT_INTEGER& right)
{
    return Operators::WithLeftNumber<Arithmetic::Divide>(kIntDivided, left, right);
}

ZELDT_INTEGER ZELDT_INTEGER::operator/(long right) const
{
    return Operators::WithRightNumber<Arithmetic::Divide>(kDividedLong, *this, right);
}

ZELDT_INTEGER operator/(long left, const ZELDT_INTEGER& right)
{
    return Operators::WithLeftNumber<Arithmetic::Divide>(kLongDivided, left, right);
}

// Compound assignment

ZELDT_INTEGER& ZELDT_INTEGER::operator+=(const ZELDT_INTEGER& right)
{
    Operators::AddTo(kAdd, *this, right);
    return *this;
}

ZELDT_INTEGER& ZELDT_INTEGER::operator+=(int right)
{
    Operators::AccumulateNumber<Arithmetic::Add>(kAddInt, *this, right);
    return *this;
}

ZELDT_INTEGER& ZELDT_INTEGER::operator+=(long right)
{
    Operators::AccumulateNumber<Arithmetic::Add>(kAddLong, *this, right);
    return *this;
}

ZELDT_INTEGER& ZELDT_INTEGER::operator-=(const ZELDT_INTEGER& right)
{
    Operators::SubtractFrom(kSubtract, *this, right);
    return *this;
}

ZELDT_INTEGER& ZELDT_INTEGER::operator-=(int right)
{
    Operators::AccumulateNumber<Arithmetic::Subtract>(kSubtractInt, *this, right);
    return *this;
}

ZELDT_INTEGER& ZELDT_INTEGER::operator-=(long right)
{
    Operators::AccumulateNumber<Arithmetic::Subtract>(kSubtractLong, *this, right);
    return *this;
}

void ZELDT_INTEGER::operator++()
{
    Operators::Step<Arithmetic::Add>(kIncrement, *this);
}

void ZELDT_INTEGER::operator++(int)
{
    Operators::Step<Arithmetic::Add>(kIncrementPostfix, *this);
}

void ZELDT_INTEGER::operator--()
{
    Operators::Step<Arithmetic::Subtract>(kDecrement, *this);
}

void ZELDT_INTEGER::operator--(int)
{
    Operators::Step<Arithmetic::Subtract>(kDecrementPostfix, *this);
}

// Comparison

int ZELDT_INTEGER::operator<(const ZELDT_INTEGER& right) const
{
    return Operators::Compare(kLess, *this, right) < 0;
}

int ZELDT_INTEGER::operator<(int right) const
{
    return Operators::CompareNumber(kLessInt, *this, right) < 0;
}

int ZELDT_INTEGER::operator<(long right) const
{
    return Operators::CompareNumber(kLessLong, *this, right) < 0;
}

int ZELDT_INTEGER::operator>(const ZELDT_INTEGER& right) const
{
    return Operators::Compare(kGreater, *this, right) > 0;
}

int ZELDT_INTEGER::operator>(int right) const
{
    return Operators::CompareNumber(kGreaterInt, *this, right) > 0;
}

int ZELDT_INTEGER::operator>(long right) const
{
    return Operators::CompareNumber(kGreaterLong, *this, right) > 0;
}

int ZELDT_INTEGER::operator<=(const ZELDT_INTEGER& right) const
{
    return Operators::Compare(kLessOrEqual, *this, right) <= 0;
}

int ZELDT_INTEGER::operator<=(int right) const
{
    return Operators::CompareNumber(kLessOrEqualInt, *this, right) <= 0;
}

int ZELDT_INTEGER::operator<=(long right) const
{
    return Operators::CompareNumber(kLessOrEqualLong, *this, right) <= 0;
}

int ZELDT_INTEGER::operator>=(const ZELDT_INTEGER& right) const
{
    return Operators::Compare(kGreaterOrEqual, *this, right) >= 0;
}

int ZELDT_INTEGER::operator>=(int right) const
{
    return Operators::CompareNumber(kGreaterOrEqualInt, *this, right) >= 0;
}

int ZELDT_INTEGER::operator>=(long right) const
{
    return Operators::CompareNumber(kGreaterOrEqualLong, *this, right) >= 0;
}

int ZELDT_INTEGER::operator==(const ZELDT_INTEGER& right) const
{
    return Operators::Compare(kEqual, *this, right) == 0;
}

int ZELDT_INTEGER::operator==(int right) const
{
    return Operators::CompareNumber(kEqualInt, *this, right) == 0;
}

int ZELDT_INTEGER::operator==(long right) const
{
    return Operators::CompareNumber(kEqualLong, *this, right) == 0;
}

int ZELDT_INTEGER::operator!=(const ZELDT_INTEGER& right) const
{
    return Operators::Compare(kUnequal, *this, right) != 0;
}

int ZELDT_INTEGER::operator!=(int right) const
{
    return Operators::CompareNumber(kUnequalInt, *this, right) != 0;
}

int ZELDT_INTEGER::operator!=(long right) const
{
    return Operators::CompareNumber(kUnequalLong, *this, right) != 0;
}

#undef ZELDT_INTEGER_NAME
#undef ZELDT_INTEGER_TEXT
#undef ZELDT_INTEGER_TEXT_OF

#endif
