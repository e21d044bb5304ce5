#include "numeric/DTDECIMA.h"

#include "foundation/DTGUARD.h"
#include "numeric/DTDOUBLE.h"
#include "numeric/DTLONG.h"
#include "numeric/DTSHORT.h"
#include "numeric/IMP/DTDECIMI.h"
#include "text/IMP/DTVIEW.h"

IMPLEMENT_SERIAL(ZelDtDecimal, ZelDtBasis, 1)

namespace {

using zeldt::Guarded;
using zeldt::Operation;

constexpr Operation Op(const char* signature)
{
    return {"DTDECIMA", "ZelDtDecimal", signature};
}

constexpr Operation kFromMode = Op("ZelDtDecimal :: ZelDtDecimal( VOID )");
constexpr Operation kFromInt = Op("ZelDtDecimal :: ZelDtDecimal( INT iInit )");
constexpr Operation kFromLong = Op("ZelDtDecimal :: ZelDtDecimal( LONG lInit )");
constexpr Operation kFromDouble = Op("ZelDtDecimal :: ZelDtDecimal( double dValue )");
constexpr Operation kFromText = Op("ZelDtDecimal :: ZelDtDecimal( LPCTSTR const pszString )");
constexpr Operation kFromCurrency = Op("ZelDtDecimal(const COleCurrency&)");
constexpr Operation kFromZelLong =
    Op("ZelDtDecimal   ::  ZelDtDecimal ( const ZelDtLong & krInit)");
constexpr Operation kFromZelShort =
    Op("ZelDtDecimal  ::  ZelDtDecimal ( const ZelDtShort & krInit)");
constexpr Operation kFromZelDouble =
    Op("ZelDtDecimal  ::  ZelDtDecimal ( const ZelDtDouble & krInit)");
constexpr Operation kFromZelString =
    Op("ZelDtDecimal  ::  ZelDtDecimal ( const ZelDtString & krStrInit)");
constexpr Operation kCopy = Op("ZelDtDecimal(ZelDtDecimal&)");

/// A new implementation object holding `number`, which may be anything that one is made from.
template <typename Number>
ZelDtDecimal_Imp* Made(const Operation& operation, const Number& number)
{
    return Guarded(operation, [&] { return new ZelDtDecimal_Imp(number); });
}

/// A new implementation object with the number of another value; 0 if that is undefined. `Number`
/// is what the value gives it as.
template <typename Number, typename Source>
ZelDtDecimal_Imp* MadeFrom(const Operation& operation, const Source& source)
{
    if (!source.IsDefined())
        return Made(operation, 0);
    return Made(operation, static_cast<Number>(source));
}

} // namespace

ZelDtDecimal::ZelDtDecimal(ZelDtWorkingMode mode) : ZelDtBasis(0, mode), m_pImp(Made(kFromMode, 0))
{}

ZelDtDecimal::ZelDtDecimal(int number)
    : ZelDtBasis(1, ZelDtWmDefault), m_pImp(Made(kFromInt, number))
{}

ZelDtDecimal::ZelDtDecimal(long number)
    : ZelDtBasis(1, ZelDtWmDefault), m_pImp(Made(kFromLong, number))
{}

ZelDtDecimal::ZelDtDecimal(double number)
    : ZelDtBasis(1, ZelDtWmDefault), m_pImp(Made(kFromDouble, number))
{}

ZelDtDecimal::ZelDtDecimal(const char* text)
    : ZelDtBasis(1, ZelDtWmDefault), m_pImp(Made(kFromText, text))
{}

ZelDtDecimal::ZelDtDecimal(const COleCurrency& amount)
    : ZelDtBasis(0, ZelDtWmDefault),
      m_pImp(amount.GetStatus() == COleCurrency::valid ? Made(kFromCurrency, amount)
                                                       : Made(kFromCurrency, 0))
{
    if (amount.GetStatus() == COleCurrency::valid)
        SetDefined(1);
}

ZelDtDecimal::ZelDtDecimal(const ZelDtLong& source)
    : ZelDtBasis(source), m_pImp(MadeFrom<long>(kFromZelLong, source))
{}

ZelDtDecimal::ZelDtDecimal(const ZelDtShort& source)
    : ZelDtBasis(source), m_pImp(MadeFrom<short>(kFromZelShort, source))
{}

ZelDtDecimal::ZelDtDecimal(const ZelDtDouble& source)
    : ZelDtBasis(source), m_pImp(MadeFrom<double>(kFromZelDouble, source))
{}

ZelDtDecimal::ZelDtDecimal(const ZelDtString& source)
    : ZelDtBasis(source), m_pImp(source.IsDefined() ? Made(kFromZelString, zeldt::ViewOf(source))
                                                    : Made(kFromZelString, 0))
{}

ZelDtDecimal::ZelDtDecimal(const ZelDtDecimal& source)
    : ZelDtBasis(source), m_pImp(Made(kCopy, *source.m_pImp))
{}

ZelDtDecimal::ZelDtDecimal(const RWDecimal96& number)
    : ZelDtBasis(0, ZelDtWmDefault), m_pImp(new ZelDtDecimal_Imp(number))
{
    SetDefined(1);
}

ZelDtDecimal::~ZelDtDecimal()
{
    delete m_pImp;
    m_pImp = nullptr;
}
