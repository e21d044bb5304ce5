#include "numeric/DTLONG.h"

#include "foundation/DTCHECK.h"
#include "foundation/DTFORMAT.h"
#include "numeric/IMP/DTINTOPE.h"
#include "numeric/IMP/DTLONGI.h"
#include "text/DTSTRING.h"

IMPLEMENT_SERIAL(ZelDtLong, ZelDtBasis, 1)

namespace {

using zeldt::ErrorNo;
using zeldt::Guarded;
using zeldt::Operation;
using zeldt::Raise;

using Operators = zeldt::IntegerOperators<zeldt::LongRules>;

constexpr Operation Op(const char* signature)
{
    return {"DTLONG", "ZelDtLong", signature};
}

constexpr Operation kFromMode = Op("ZelDtLong(ZelDtWorkingMode)");
constexpr Operation kFromInt = Op("ZelDtLong(INT)");
constexpr Operation kFromLong = Op("ZelDtLong(LONG)");
constexpr Operation kFromText = Op("ZelDtLong(LPCTSTR)");
constexpr Operation kFromString = Op("ZelDtLong(ZelDtString&)");
constexpr Operation kCopy = Op("ZelDtLong(ZelDtLong&");
constexpr Operation kAssignLong = Op("operator=(LONG)");
constexpr Operation kAssign = Op("Assign(ZelDtBasis&)");
constexpr Operation kNewObject = Op("NewObject()");
constexpr Operation kGetValue = Op("GetValue()");
constexpr Operation kConvToSQL = Op("ConvToSQL()");
constexpr Operation kSetFromSQL = Op("SetFromSQL(LONG)");
constexpr Operation kConvToOFL = Op("ConvToOFL(ZelFormat*)");
constexpr Operation kSetFromOFL = Op("SetFromOFL(LPCTSTR,ZelFormat*)");
constexpr Operation kConvToExtern = Op("ConvToExtern(BOOL&,USHORT&)");
constexpr Operation kSetFromExtern = Op("SetFromExtern(ZelDtString*,BOOL,USHORT)");
constexpr Operation kSetFromRecordSet = Op("SetFromRecordSet(CRecordset&,LONG&)");
constexpr Operation kConvToRecordSet = Op("ConvToRecordSet(CRecordset&,LONG&)");
constexpr Operation kSerialize = Op("Serialize(CArchive&)");

constexpr unsigned short kExternVersion = 100;

const ZelFormat& DefaultFormat()
{
    static const ZelFormat format(11, 0, ZelFormat::ZelFoDezimalOhne, ZelFormat::ZelFoTausenderOhne,
                                  ZelFormat::ZelFoVorzeichenVorne, ZelFormat::ZelFoNurMinus, 0, '0',
                                  0, '0');
    return format;
}

/// Builds the default format while the library is being loaded.
[[maybe_unused]] const ZelFormat& defaultFormatAtLoad = DefaultFormat();

/// The number of a text that must not be null.
std::int32_t NumberOf(const char* text)
{
    if (text == nullptr)
        Raise(zeldt::LongRules::kFromText, ErrorNo::InitialValue);
    return Operators::FromText(text);
}

std::int32_t NumberOf(const ZelDtString& text)
{
    const char* const first = text;
    return Operators::FromText({first, static_cast<std::size_t>(text.GetLength())});
}

/// A number for a 32-bit value, or error 8 under the name of the operation.
std::int32_t Checked(const Operation& operation, long number)
{
    return zeldt::NumberOrRaise(operation, zeldt::Narrowed<std::int32_t>(number));
}

} // namespace

// Construction

ZelDtLong::ZelDtLong(ZelDtWorkingMode mode)
    : ZelDtBasis(0, mode), m_pImp(Guarded(kFromMode, [] { return new ZelDtLong_Imp(0); }))
{}

ZelDtLong::ZelDtLong(int number)
    : ZelDtBasis(1, ZelDtWmDefault),
      m_pImp(Guarded(kFromInt, [=] { return new ZelDtLong_Imp(number); }))
{}

ZelDtLong::ZelDtLong(long number)
    : ZelDtBasis(1, ZelDtWmDefault),
      m_pImp(Guarded(kFromLong, [=] { return new ZelDtLong_Imp(Operators::FromWide(number)); }))
{}

ZelDtLong::ZelDtLong(const char* text)
    : ZelDtBasis(1, ZelDtWmDefault),
      m_pImp(Guarded(kFromText, [=] { return new ZelDtLong_Imp(NumberOf(text)); }))
{}

ZelDtLong::ZelDtLong(const ZelDtString& source)
    : ZelDtBasis(source), m_pImp(Guarded(kFromString, [&] {
          return new ZelDtLong_Imp(source.IsDefined() ? NumberOf(source) : 0);
      }))
{}

ZelDtLong::ZelDtLong(const ZelDtLong& source)
    : ZelDtBasis(source), m_pImp(Guarded(kCopy, [&] {
          return new ZelDtLong_Imp(source.IsDefined() ? source.m_pImp->value : 0);
      }))
{}

ZelDtLong::~ZelDtLong()
{
    delete m_pImp;
    m_pImp = nullptr;
}

// Assignment

ZelDtLong& ZelDtLong::operator=(const ZelDtLong& source)
{
    if (this != &source) {
        Operators::Change(*this, source.m_pImp->value);
        ZelDtBasis::operator=(source);
    }
    return *this;
}

ZelDtLong& ZelDtLong::operator=(int number)
{
    Operators::Store(*this, number);
    return *this;
}

ZelDtLong& ZelDtLong::operator=(long number)
{
    Operators::Store(*this, Checked(kAssignLong, number));
    return *this;
}

void ZelDtLong::Assign(const ZelDtBasis& source)
{
    if (!source.IsKindOf(RUNTIME_CLASS(ZelDtLong)))
        Raise(kAssign, ErrorNo::DifferentTypes);
    *this = static_cast<const ZelDtLong&>(source);
}

ZelDtBasis* ZelDtLong::NewObject() const
{
    return Guarded(kNewObject, [&] { return new ZelDtLong(*this); });
}

// State

ZelDtTyps ZelDtLong::GetDtTyp() const
{
    return ZelDtTypLong;
}

void ZelDtLong::Clear()
{
    Operators::Change(*this, 0);
    ZelDtBasis::Clear();
}

// Reading

long ZelDtLong::GetValue() const
{
    zeldt::RequireReadable(kGetValue, *this);
    return m_pImp->value;
}

ZelDtLong::operator long() const
{
    return m_pImp->value;
}

// SQL

ZelDtString ZelDtLong::ConvToSQL() const
{
    return Guarded(kConvToSQL,
                   [&] { return IsDefined() ? ZelDtString(m_pImp->value) : ZelDtString("NULL"); });
}

void ZelDtLong::SetFromSQL(long number)
{
    Operators::Store(*this, Checked(kSetFromSQL, number));
}

// Display

CString ZelDtLong::ConvToOFL(const ZelFormat* format) const
{
    return Guarded(kConvToOFL, [&] {
        CString shown;
        if (IsDefined())
            zeldt::ChooseFormat(format, GetFormat(), DefaultFormat())
                .FormatLong(m_pImp->value, shown);
        return shown;
    });
}

void ZelDtLong::SetFromOFL(const char* text, const ZelFormat* format)
{
    Guarded(kSetFromOFL, [&] {
        if (text == nullptr || *text == '\0') {
            Clear();
            return;
        }
        std::int32_t number = m_pImp->value;
        zeldt::ChooseFormat(format, GetFormat(), DefaultFormat()).ParseLong(text, &number);
        Operators::Store(*this, number);
    });
}

// External text

ZelDtString ZelDtLong::ConvToExtern(int& defined, unsigned short& version) const
{
    return Guarded(kConvToExtern, [&] {
        ZelDtString text(m_pImp->value);
        defined = IsDefined();
        version = kExternVersion;
        return text;
    });
}

void ZelDtLong::SetFromExtern(const ZelDtString* text, int defined, unsigned short version)
{
    if (version != kExternVersion)
        Raise(kSetFromExtern, ErrorNo::WrongVersion);
    if (defined != 1 || text == nullptr) {
        Clear();
        return;
    }
    SetDefined(1);
    if (!text->IsDefined())
        Raise(kSetFromExtern, ErrorNo::InconsistentDefinedness);
    Guarded(kSetFromExtern, [&] { Operators::Change(*this, NumberOf(*text)); });
}

// Record set and archive

void ZelDtLong::SetFromRecordSet(CRecordset& rs, const long& field)
{
    if (!Guarded(kSetFromRecordSet, [&] { return rs.IsFieldNull(&field); }))
        Operators::Store(*this, Checked(kSetFromRecordSet, field));
    else
        Clear();
}

void ZelDtLong::ConvToRecordSet(CRecordset& rs, long& field) const
{
    Guarded(kConvToRecordSet, [&] {
        if (IsDefined())
            field = m_pImp->value;
        rs.SetFieldNull(&field, !IsDefined());
    });
}

void ZelDtLong::Serialize(CArchive& ar)
{
    Guarded(kSerialize, [&] {
        if (ar.IsStoring()) {
            ZelDtBasis::Serialize(ar);
            ar << m_pImp->value;
            return;
        }
        Rollback rollback(*this);
        ZelDtBasis::Serialize(ar);
        std::int32_t number = 0;
        ar >> number;
        rollback.Commit();
        Operators::Change(*this, number);
    });
}
