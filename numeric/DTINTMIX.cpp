/// The integer classes where they meet decimals and doubles.

#include "numeric/DTDECIMA.h"
#include "numeric/DTDOUBLE.h"
#include "numeric/DTLONG.h"
#include "numeric/DTSHORT.h"
#include "numeric/IMP/DTINTREP.h"
#include "numeric/IMP/DTLONGI.h"
#include "numeric/IMP/DTSHORTI.h"

namespace {

using zeldt::Guarded;
using zeldt::Operation;

using LongRep = zeldt::IntegerRep<zeldt::LongRules>;
using ShortRep = zeldt::IntegerRep<zeldt::ShortRules>;

constexpr Operation LongOp(const char* signature)
{
    return {"DTLONG", "ZelDtLong", signature};
}

constexpr Operation ShortOp(const char* signature)
{
    return {"DTSHORT", "ZelDtShort", signature};
}

constexpr Operation kLongFromDecimal = LongOp("ZelDtLong(ZelDtDecimal&)");
constexpr Operation kLongFromDouble = LongOp("ZelDtLong(ZelDtDouble&)");
constexpr Operation kLongTimesDecimal = LongOp("operator*(ZelDtDecimal&)");
constexpr Operation kLongTimesDouble = LongOp("operator*(ZelDtDouble&)");
constexpr Operation kShortFromDecimal = ShortOp("ZelDtShort(ZelDtDecimal&)");
constexpr Operation kShortTimesDecimal = ShortOp("operator*(ZelDtDecimal&)");

/// The number of a decimal or double, 0 if it is undefined.
template <typename Rep, typename Source>
typename Rep::Number NumberOf(const Source& source)
{
    return Rep::FromDouble(source.IsDefined() ? static_cast<double>(source) : 0.0);
}

/// The product of two values, the right one of the wider class. A Null one is neutral; `alone`
/// makes the left one of the wider class where it stands alone, `product` multiplies.
template <typename Wide, typename Alone, typename Product>
Wide Multiplied(const ZelDtBasis& left, const Wide& right, int defined, Alone alone,
                Product product)
{
    if (!defined)
        return Wide(ZelDtWmDefault);
    if (left.IsNull())
        return right;
    return right.IsNull() ? alone() : product();
}

} // namespace

// Long

ZelDtLong::ZelDtLong(const ZelDtDecimal& source)
    : ZelDtBasis(zeldt::Cell<ZelDtLong_Imp>(source)), m_pImp(Guarded(kLongFromDecimal, [&] {
          return new (*this) ZelDtLong_Imp(NumberOf<LongRep>(source));
      }))
{}

ZelDtLong::ZelDtLong(const ZelDtDouble& source)
    : ZelDtBasis(zeldt::Cell<ZelDtLong_Imp>(source)), m_pImp(Guarded(kLongFromDouble, [&] {
          return new (*this) ZelDtLong_Imp(NumberOf<LongRep>(source));
      }))
{}

ZelDtDecimal ZelDtLong::operator*(const ZelDtDecimal& right) const
{
    return Guarded(kLongTimesDecimal, [&] {
        return Multiplied(
            *this, right, CheckDefinedForArithmetic(*this, right),
            [&] { return ZelDtDecimal(*this); }, [&] { return right * static_cast<long>(*this); });
    });
}

ZelDtDouble ZelDtLong::operator*(const ZelDtDouble& right) const
{
    return Guarded(kLongTimesDouble, [&] {
        return Multiplied(
            *this, right, CheckDefinedForArithmetic(*this, right),
            [&] { return ZelDtDouble(*this); },
            [&] { return ZelDtDouble(static_cast<double>(m_pImp->value) * right.GetValue()); });
    });
}

// Short

ZelDtShort::ZelDtShort(const ZelDtDecimal& source)
    : ZelDtBasis(zeldt::Cell<ZelDtShort_Imp>(source)), m_pImp(Guarded(kShortFromDecimal, [&] {
          return new (*this) ZelDtShort_Imp(NumberOf<ShortRep>(source));
      }))
{}

ZelDtDecimal ZelDtShort::operator*(const ZelDtDecimal& right) const
{
    return Guarded(kShortTimesDecimal, [&] {
        const long number = m_pImp->value;
        return Multiplied(
            *this, right, CheckDefinedForArithmetic(*this, right),
            [&] { return ZelDtDecimal(number); }, [&] { return right * number; });
    });
}
