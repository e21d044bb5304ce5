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

using Cell = zeldt::Cell<ZelDtDecimal_Imp>;

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

/// The implementation object of `owner` holding `number`, which may be anything that one is made
/// from.
template <typename Number>
ZelDtDecimal_Imp* Made(const Operation& operation, const ZelDtBasis& owner, const Number& number)
{
    return Guarded(operation, [&] { return new (owner) ZelDtDecimal_Imp(number); });
}

/// The same with the number of another value; 0 if that is undefined. `Number` is what the value
/// gives it as.
template <typename Number, typename Source>
ZelDtDecimal_Imp* MadeFrom(const Operation& operation, const ZelDtBasis& owner,
                           const Source& source)
{
    if (!source.IsDefined())
        return Made(operation, owner, 0);
    return Made(operation, owner, static_cast<Number>(source));
}

} // namespace

ZelDtDecimal::ZelDtDecimal(ZelDtWorkingMode mode)
    : ZelDtBasis(Cell(0, mode)), m_pImp(Made(kFromMode, *this, 0))
{}

ZelDtDecimal::ZelDtDecimal(int number)
    : ZelDtBasis(Cell(1, ZelDtWmDefault)), m_pImp(Made(kFromInt, *this, number))
{}

ZelDtDecimal::ZelDtDecimal(long number)
    : ZelDtBasis(Cell(1, ZelDtWmDefault)), m_pImp(Made(kFromLong, *this, number))
{}

ZelDtDecimal::ZelDtDecimal(double number)
    : ZelDtBasis(Cell(1, ZelDtWmDefault)), m_pImp(Made(kFromDouble, *this, number))
{}

ZelDtDecimal::ZelDtDecimal(const char* text)
    : ZelDtBasis(Cell(1, ZelDtWmDefault)), m_pImp(Made(kFromText, *this, text))
{}

ZelDtDecimal::ZelDtDecimal(const COleCurrency& amount)
    : ZelDtBasis(Cell(0, ZelDtWmDefault)),
      m_pImp(amount.GetStatus() == COleCurrency::valid ? Made(kFromCurrency, *this, amount)
                                                       : Made(kFromCurrency, *this, 0))
{
    if (amount.GetStatus() == COleCurrency::valid)
        SetDefined(1);
}

ZelDtDecimal::ZelDtDecimal(const ZelDtLong& source)
    : ZelDtBasis(Cell(source)), m_pImp(MadeFrom<long>(kFromZelLong, *this, source))
{}

ZelDtDecimal::ZelDtDecimal(const ZelDtShort& source)
    : ZelDtBasis(Cell(source)), m_pImp(MadeFrom<short>(kFromZelShort, *this, source))
{}

ZelDtDecimal::ZelDtDecimal(const ZelDtDouble& source)
    : ZelDtBasis(Cell(source)), m_pImp(MadeFrom<double>(kFromZelDouble, *this, source))
{}

ZelDtDecimal::ZelDtDecimal(const ZelDtString& source)
    : ZelDtBasis(Cell(source)),
      m_pImp(source.IsDefined() ? Made(kFromZelString, *this, zeldt::ViewOf(source))
                                : Made(kFromZelString, *this, 0))
{}

ZelDtDecimal::ZelDtDecimal(const ZelDtDecimal& source)
    : ZelDtBasis(Cell(source)), m_pImp(Made(kCopy, *this, *source.m_pImp))
{}

ZelDtDecimal::ZelDtDecimal(const RWDecimal96& number)
    : ZelDtBasis(Cell(0, ZelDtWmDefault)), m_pImp(new (*this) ZelDtDecimal_Imp(number))
{
    SetDefined(1);
}

ZelDtDecimal::~ZelDtDecimal()
{
    delete m_pImp;
}
