#include "numeric/DTLONG.h"

#include "numeric/DTSHORT.h"
#include "numeric/IMP/DTINTREP.h"
#include "numeric/IMP/DTLONGI.h"
#include "numeric/IMP/DTNUMSQL.h"

IMPLEMENT_SERIAL(ZelDtLong, ZelDtBasis, 1)

namespace {

using zeldt::Guarded;
using zeldt::Operation;

using Cell = zeldt::Cell<ZelDtLong_Imp>;

using Rep = zeldt::IntegerRep<zeldt::LongRules>;

constexpr Operation Op(const char* signature)
{
    return {"DTLONG", "ZelDtLong", signature};
}

constexpr Operation kFromMode = Op("ZelDtLong(ZelDtWorkingMode)");
constexpr Operation kFromInt = Op("ZelDtLong(INT)");
constexpr Operation kFromLong = Op("ZelDtLong(LONG)");
constexpr Operation kFromText = Op("ZelDtLong(LPCTSTR)");
constexpr Operation kFromString = Op("ZelDtLong(ZelDtString&)");
constexpr Operation kFromShort = Op("ZelDtLong(ZelDtShort&)");
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

/// Builds the default format while the library is being loaded.
[[maybe_unused]] const ZelFormat& defaultFormatAtLoad = zeldt::LongRules::DefaultFormat();

} // namespace

// Construction

ZelDtLong::ZelDtLong(ZelDtWorkingMode mode)
    : ZelDtBasis(Cell(0, mode)),
      m_pImp(Guarded(kFromMode, [this] { return new (*this) ZelDtLong_Imp(0); }))
{}

ZelDtLong::ZelDtLong(int number)
    : ZelDtBasis(Cell(1, ZelDtWmDefault)),
      m_pImp(Guarded(kFromInt, [=, this] { return new (*this) ZelDtLong_Imp(number); }))
{}

ZelDtLong::ZelDtLong(long number)
    : ZelDtBasis(Cell(1, ZelDtWmDefault)), m_pImp(Guarded(kFromLong, [=, this] {
          return new (*this) ZelDtLong_Imp(Rep::FromWide(number));
      }))
{}

ZelDtLong::ZelDtLong(const char* text)
    : ZelDtBasis(Cell(1, ZelDtWmDefault)),
      m_pImp(
          Guarded(kFromText, [=, this] { return new (*this) ZelDtLong_Imp(Rep::FromText(text)); }))
{}

ZelDtLong::ZelDtLong(const ZelDtString& source)
    : ZelDtBasis(Cell(source)), m_pImp(Guarded(kFromString, [&] {
          return new (*this) ZelDtLong_Imp(source.IsDefined() ? Rep::FromText(source) : 0);
      }))
{}

ZelDtLong::ZelDtLong(const ZelDtShort& source)
    : ZelDtBasis(Cell(source)), m_pImp(Guarded(kFromShort, [&] {
          return new (*this) ZelDtLong_Imp(source.IsDefined() ? static_cast<short>(source) : 0);
      }))
{}

ZelDtLong::ZelDtLong(const ZelDtLong& source)
    : ZelDtBasis(Cell(source)),
      m_pImp(Guarded(kCopy, [&] { return new (*this) ZelDtLong_Imp(Rep::Copied(source)); }))
{}

ZelDtLong::~ZelDtLong()
{
    delete m_pImp;
}

// Assignment

ZelDtLong& ZelDtLong::operator=(const ZelDtLong& source)
{
    if (this != &source)
        Rep::Copy(*this, source);
    return *this;
}

ZelDtLong& ZelDtLong::operator=(int number)
{
    Rep::Store(*this, number);
    return *this;
}

ZelDtLong& ZelDtLong::operator=(long number)
{
    Rep::Store(*this, Rep::Checked(kAssignLong, number));
    return *this;
}

void ZelDtLong::Assign(const ZelDtBasis& source)
{
    Rep::Assign(kAssign, *this, source);
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
    Rep::Clear(*this);
}

// Reading

long ZelDtLong::GetValue() const
{
    return Rep::Readable(kGetValue, *this);
}

ZelDtLong::operator long() const
{
    return m_pImp->value;
}

// SQL

ZelDtString ZelDtLong::ConvToSQL() const
{
    return Rep::ToSQL(kConvToSQL, *this);
}

void ZelDtLong::SetFromSQL(long number)
{
    Rep::Store(*this, Rep::Checked(kSetFromSQL, number));
}

// Display

CString ZelDtLong::ConvToOFL(const ZelFormat* format) const
{
    return Rep::ToOFL(kConvToOFL, *this, format);
}

void ZelDtLong::SetFromOFL(const char* text, const ZelFormat* format)
{
    Rep::SetFromOFL(kSetFromOFL, *this, text, format);
}

// External text

ZelDtString ZelDtLong::ConvToExtern(int& defined, unsigned short& version) const
{
    return Rep::ToExtern(kConvToExtern, *this, m_pImp->value, defined, version);
}

void ZelDtLong::SetFromExtern(const ZelDtString* text, int defined, unsigned short version)
{
    Rep::SetFromExtern(kSetFromExtern, *this, text, defined, version);
}

// Record set and archive

void ZelDtLong::SetFromRecordSet(CRecordset& rs, const long& field)
{
    Rep::SetFromRecordSet(kSetFromRecordSet, *this, rs, field);
}

void ZelDtLong::ConvToRecordSet(CRecordset& rs, long& field) const
{
    Rep::ToRecordSet(kConvToRecordSet, *this, rs, field);
}

void ZelDtLong::Serialize(CArchive& ar)
{
    Rep::Serialize(kSerialize, *this, ar);
}
