#include "numeric/DTDOUBLE.h"

#include "foundation/DTCHECK.h"
#include "foundation/DTFORMAT.h"
#include "numeric/DTDECIMA.h"
#include "numeric/DTLONG.h"
#include "numeric/DTSHORT.h"
#include "numeric/IMP/DTDOUBLI.h"
#include "platform/formats/usualtexts.h"
#include "platform/framework/fwoleauto.h"
#include "text/DTSTRING.h"

IMPLEMENT_SERIAL(ZelDtDouble, ZelDtBasis, 1)

namespace {

using zeldt::ErrorNo;
using zeldt::Guarded;
using zeldt::Operation;

using Cell = zeldt::Cell<ZelDtDouble_Imp>;
using zeldt::Raise;

using Access = ZelDtDoubleAccess;

constexpr Operation Op(const char* signature)
{
    return {"DTDOUBLE", "ZelDtDouble", signature};
}

constexpr Operation kFromMode = Op("ZelDtDouble(ZelDtWorkingMode)");
constexpr Operation kFromDouble = Op("ZelDtDouble(double)");
constexpr Operation kFromInt = Op("ZelDtDouble(INT)");
constexpr Operation kFromLong = Op("ZelDtDouble(LONG)");
constexpr Operation kFromText = Op("ZelDtDouble(LPCTSTR)");
constexpr Operation kFromCurrency = Op("ZelDtDouble(COleCurrency&)");
constexpr Operation kFromLongValue = Op("ZelDtDouble(ZelDtLong&)");
constexpr Operation kFromShortValue = Op("ZelDtDouble(ZelDtShort&)");
constexpr Operation kFromDecimal = Op("ZelDtDouble(ZelDtDecimal&)");
constexpr Operation kFromString = Op("ZelDtDouble(ZelDtString&)");
constexpr Operation kCopy = Op("ZelDtDouble(ZelDtDouble&)");
constexpr Operation kAssign = Op("Assign(ZelDtBasis&)");
constexpr Operation kNewObject = Op("NewObject()");
constexpr Operation kGetValue = Op("GetValue()");
constexpr Operation kConvToSQL = Op("ConvToSQL()");
constexpr Operation kConvToOFL = Op("ConvToOFL(ZelFormat*)");
constexpr Operation kSetFromOFL = Op("SetFromOFL(LPCTSTR,ZelFormat*)");
constexpr Operation kConvToExtern = Op("ConvToExtern(BOOL&,USHORT&)");
constexpr Operation kSetFromExtern = Op("SetFromExtern(ZelDtString*,BOOL,USHORT)");
constexpr Operation kSetFromRecordSet = Op("SetFromRecordSet(CRecordset&,double&)");
constexpr Operation kConvToRecordSet = Op("ConvToRecordSet(CRecordset&,double&)");
constexpr Operation kSerialize = Op("Serialize(CArchive&)");

constexpr unsigned short kExternVersion = 100;

const ZelFormat& DefaultFormat()
{
    static const ZelFormat format(ZelFormat::ZelFoStandard);
    return format;
}

/// Builds the default format while the library is being loaded.
[[maybe_unused]] const ZelFormat& defaultFormatAtLoad = DefaultFormat();

bool IsValid(const COleCurrency& amount)
{
    return amount.GetStatus() == COleCurrency::valid;
}

/// The number of a valid amount. A conversion that fails leaves as the framework's own exception,
/// unguarded.
double NumberOf(const COleCurrency& amount)
{
    double number = 0.0;
    const HRESULT result = VarR8FromCy(amount, &number);
    if (result < 0)
        AfxThrowOleException(result);
    return number;
}

/// The number of a text, read where it is defined. What is wrong with it keeps its own error.
double NumberOf(const ZelDtString& text)
{
    return text.IsDefined() ? ZelDtDouble_Imp::ConvAsciiToDouble(text) : 0.0;
}

} // namespace

// Construction

ZelDtDouble::ZelDtDouble(ZelDtWorkingMode mode)
    : ZelDtBasis(Cell(0, mode)),
      m_pImp(Guarded(kFromMode, [this] { return new (*this) ZelDtDouble_Imp(0.0); }))
{}

ZelDtDouble::ZelDtDouble(double number)
    : ZelDtBasis(Cell(1, ZelDtWmDefault)),
      m_pImp(Guarded(kFromDouble, [=, this] { return new (*this) ZelDtDouble_Imp(number); }))
{}

ZelDtDouble::ZelDtDouble(int number)
    : ZelDtBasis(Cell(1, ZelDtWmDefault)),
      m_pImp(Guarded(kFromInt, [=, this] { return new (*this) ZelDtDouble_Imp(number); }))
{}

ZelDtDouble::ZelDtDouble(long number)
    : ZelDtBasis(Cell(1, ZelDtWmDefault)), m_pImp(Guarded(kFromLong, [=, this] {
          return new (*this) ZelDtDouble_Imp(static_cast<double>(number));
      }))
{}

ZelDtDouble::ZelDtDouble(const char* text)
    : ZelDtBasis(Cell(1, ZelDtWmDefault)),
      m_pImp(Guarded(kFromText, [this, number = ZelDtDouble_Imp::ConvAsciiToDouble(text)] {
          return new (*this) ZelDtDouble_Imp(number);
      }))
{}

ZelDtDouble::ZelDtDouble(const COleCurrency& amount)
    : ZelDtBasis(Cell(0, ZelDtWmDefault)),
      m_pImp(Guarded(kFromCurrency, [this, number = IsValid(amount) ? NumberOf(amount) : 0.0] {
          return new (*this) ZelDtDouble_Imp(number);
      }))
{
    if (IsValid(amount))
        SetDefined(1);
}

ZelDtDouble::ZelDtDouble(const ZelDtLong& source)
    : ZelDtBasis(Cell(source)), m_pImp(Guarded(kFromLongValue, [&] {
          return new (*this) ZelDtDouble_Imp(
              static_cast<double>(source.IsDefined() ? static_cast<long>(source) : 0L));
      }))
{}

ZelDtDouble::ZelDtDouble(const ZelDtShort& source)
    : ZelDtBasis(Cell(source)), m_pImp(Guarded(kFromShortValue, [&] {
          return new (*this) ZelDtDouble_Imp(source.IsDefined() ? static_cast<short>(source) : 0);
      }))
{}

ZelDtDouble::ZelDtDouble(const ZelDtDecimal& source)
    : ZelDtBasis(Cell(source)), m_pImp(Guarded(kFromDecimal, [&] {
          return new (*this) ZelDtDouble_Imp(source.IsDefined() ? source.GetValue() : 0.0);
      }))
{}

ZelDtDouble::ZelDtDouble(const ZelDtString& source)
    : ZelDtBasis(Cell(source)), m_pImp(Guarded(kFromString, [this, number = NumberOf(source)] {
          return new (*this) ZelDtDouble_Imp(number);
      }))
{}

ZelDtDouble::ZelDtDouble(const ZelDtDouble& source)
    : ZelDtBasis(Cell(source)),
      m_pImp(Guarded(kCopy, [&] { return new (*this) ZelDtDouble_Imp(source.m_pImp->value); }))
{}

ZelDtDouble::~ZelDtDouble()
{
    delete m_pImp;
}

// Assignment

ZelDtDouble& ZelDtDouble::operator=(const ZelDtDouble& source)
{
    if (this != &source) {
        Access::Replace(*this, source.m_pImp->value);
        ZelDtBasis::operator=(source);
    }
    return *this;
}

ZelDtDouble& ZelDtDouble::operator=(const double& number)
{
    Access::Replace(*this, number);
    SetDefined(1);
    return *this;
}

ZelDtDouble& ZelDtDouble::operator=(int number)
{
    return *this = static_cast<double>(number);
}

ZelDtDouble& ZelDtDouble::operator=(long number)
{
    return *this = static_cast<double>(number);
}

ZelDtDouble& ZelDtDouble::operator=(const COleCurrency& amount)
{
    if (IsValid(amount)) {
        Access::Change(*this, NumberOf(amount));
        SetDefined(1);
    } else {
        Clear();
    }
    return *this;
}

void ZelDtDouble::Assign(const ZelDtBasis& source)
{
    if (!source.IsKindOf(RUNTIME_CLASS(ZelDtDouble)))
        Raise(kAssign, ErrorNo::DifferentTypes);
    Guarded(kAssign, [&] { *this = static_cast<const ZelDtDouble&>(source); });
}

ZelDtBasis* ZelDtDouble::NewObject() const
{
    return Guarded(kNewObject, [&] { return new ZelDtDouble(*this); });
}

// State

ZelDtTyps ZelDtDouble::GetDtTyp() const
{
    return ZelDtTypDouble;
}

void ZelDtDouble::Clear()
{
    Access::Replace(*this, 0.0);
    ZelDtBasis::Clear();
}

// Reading

double ZelDtDouble::GetValue() const
{
    zeldt::RequireReadable(kGetValue, *this);
    return m_pImp->value;
}

ZelDtDouble::operator double() const
{
    return m_pImp->value;
}

ZelDtDouble::operator COleCurrency() const
{
    COleCurrency amount;
    CURRENCY converted;
    if (!IsDefined())
        amount.SetStatus(COleCurrency::null);
    else if (VarCyFromR8(m_pImp->value, &converted) >= 0)
        amount = converted;
    else
        amount.SetStatus(COleCurrency::invalid);
    return amount;
}

// SQL

void ZelDtDouble::SetFromSQL(double number)
{
    Access::Change(*this, number);
    SetDefined(1);
}

ZelDtString ZelDtDouble::ConvToSQL() const
{
    return Guarded(kConvToSQL, [&] { return IsDefined() ? ZelDtString(*this) : "NULL"; });
}

// Display

CString ZelDtDouble::ConvToOFL(const ZelFormat* format) const
{
    return Guarded(kConvToOFL, [&] {
        CString shown;
        if (IsDefined())
            zeldt::ChooseFormat(format, GetFormat(), DefaultFormat())
                .FormatDouble(m_pImp->value, shown);
        return shown;
    });
}

void ZelDtDouble::SetFromOFL(const char* text, const ZelFormat* format)
{
    Guarded(kSetFromOFL, [&] {
        if (text == nullptr || *text == '\0') {
            Clear();
            return;
        }
        const ZelFormat& chosen = zeldt::ChooseFormat(format, GetFormat(), DefaultFormat());
        const std::string_view typed(text);
        double number = m_pImp->value;
        if (!zelformat::ReadUsualDouble(chosen, typed, number))
            chosen.ParseDouble(zeldt::TextArgument(text, typed.size()), &number);
        *this = number;
    });
}

// External text

ZelDtString ZelDtDouble::ConvToExtern(int& defined, unsigned short& version) const
{
    return Guarded(kConvToExtern, [&] {
        ZelDtString text = IsDefined() ? ZelDtString(zeldt::ExternDouble(m_pImp->value).Text())
                                       : ZelDtString(ZelDtWmDefault);
        defined = IsDefined();
        version = kExternVersion;
        return text;
    });
}

void ZelDtDouble::SetFromExtern(const ZelDtString* text, int defined, unsigned short version)
{
    Guarded(kSetFromExtern, [&] {
        if (version != kExternVersion)
            Raise(kSetFromExtern, ErrorNo::WrongVersion);
        if (defined != 1 || text == nullptr) {
            Clear();
            return;
        }
        SetDefined(1);
        if (!text->IsDefined())
            Raise(kSetFromExtern, ErrorNo::InconsistentDefinedness);
        Access::Change(*this, zeldt::ReadExternDouble(*text));
    });
}

// Record set and archive

void ZelDtDouble::SetFromRecordSet(CRecordset& rs, const double& field)
{
    Guarded(kSetFromRecordSet, [&] {
        if (rs.IsFieldNull(&field)) {
            Clear();
            return;
        }
        Access::Change(*this, field);
        SetDefined(1);
    });
}

void ZelDtDouble::ConvToRecordSet(CRecordset& rs, double& field) const
{
    Guarded(kConvToRecordSet, [&] {
        if (IsDefined())
            field = m_pImp->value;
        rs.SetFieldNull(&field, !IsDefined());
    });
}

void ZelDtDouble::Serialize(CArchive& ar)
{
    Guarded(kSerialize, [&] {
        if (ar.IsStoring()) {
            ZelDtBasis::Serialize(ar);
            ar << m_pImp->value;
            return;
        }
        Rollback rollback(*this);
        ZelDtBasis::Serialize(ar);
        double number = 0.0;
        ar >> number;
        rollback.Commit();
        Access::Replace(*this, number);
    });
}
