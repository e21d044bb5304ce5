#include "numeric/DTSHORT.h"

#include "numeric/DTLONG.h"
#include "numeric/IMP/DTINTREP.h"
#include "numeric/IMP/DTNUMSQL.h"
#include "numeric/IMP/DTSHORTI.h"

IMPLEMENT_SERIAL(ZelDtShort, ZelDtBasis, 1)

namespace {

using zeldt::Guarded;
using zeldt::Operation;

using Cell = zeldt::Cell<ZelDtShort_Imp>;

using Rep = zeldt::IntegerRep<zeldt::ShortRules>;

constexpr Operation Op(const char* signature)
{
    return {"DTSHORT", "ZelDtShort", signature};
}

constexpr Operation kFromMode = Op("ZelDtShort(ZelDtWorkingMode)");
constexpr Operation kFromShort = Op("ZelDtShort(SHORT)");
constexpr Operation kFromInt = Op("ZelDtShort(INT)");
constexpr Operation kFromLong = Op("ZelDtShort(LONG)");
constexpr Operation kFromText = Op("ZelDtShort(LPCTSTR)");
constexpr Operation kFromZelDtLong = Op("ZelDtShort(ZelDtLong&)");
constexpr Operation kFromString = Op("ZelDtShort(ZelDtString&)");
constexpr Operation kCopy = Op("ZelDtShort(ZelDtShort&)");
constexpr Operation kAssignInt = Op("operator=(INT)");
constexpr Operation kAssignLong = Op("operator=(LONG)");
constexpr Operation kAssign = Op("Assign(ZelDtBasis&)");
constexpr Operation kNewObject = Op("NewObject()");
constexpr Operation kGetValue = Op("GetValue()");
constexpr Operation kConvToSQL = Op("ConvToSQL()");
constexpr Operation kSetFromSQLInt = Op("SetFromSQL(INT)");
constexpr Operation kSetFromSQLLong = Op("SetFromSQL(LONG)");
constexpr Operation kConvToOFL = Op("ConvToOFL(ZelFormat*)");
constexpr Operation kSetFromOFL = Op("SetFromOFL(LPCTSTR,ZelFormat*)");
constexpr Operation kConvToExtern = Op("ConvToExtern(BOOL&,USHORT&)");
constexpr Operation kSetFromExtern = Op("SetFromExtern(ZelDtString*,BOOL,USHORT)");
constexpr Operation kSetFromRecordSet = Op("SetFromRecordSet(CRecordset&,INT&)");
constexpr Operation kConvToRecordSet = Op("ConvToRecordSet(CRecordset&,INT&)");
constexpr Operation kSerialize = Op("Serialize(CArchive&)");

/// Builds the default format while the library is being loaded.
[[maybe_unused]] const ZelFormat& defaultFormatAtLoad = zeldt::ShortRules::DefaultFormat();

} // namespace

// Construction

ZelDtShort::ZelDtShort(ZelDtWorkingMode mode)
    : ZelDtBasis(Cell(0, mode)),
      m_pImp(Guarded(kFromMode, [this] { return new (*this) ZelDtShort_Imp(0); }))
{}

ZelDtShort::ZelDtShort(short number)
    : ZelDtBasis(Cell(1, ZelDtWmDefault)),
      m_pImp(Guarded(kFromShort, [=, this] { return new (*this) ZelDtShort_Imp(number); }))
{}

ZelDtShort::ZelDtShort(int number)
    : ZelDtBasis(Cell(1, ZelDtWmDefault)), m_pImp(Guarded(kFromInt, [=, this] {
          return new (*this) ZelDtShort_Imp(Rep::FromWide(number));
      }))
{}

ZelDtShort::ZelDtShort(long number)
    : ZelDtBasis(Cell(1, ZelDtWmDefault)), m_pImp(Guarded(kFromLong, [=, this] {
          return new (*this) ZelDtShort_Imp(Rep::FromWide(number));
      }))
{}

ZelDtShort::ZelDtShort(const char* text)
    : ZelDtBasis(Cell(1, ZelDtWmDefault)),
      m_pImp(
          Guarded(kFromText, [=, this] { return new (*this) ZelDtShort_Imp(Rep::FromText(text)); }))
{}

ZelDtShort::ZelDtShort(const ZelDtLong& source)
    : ZelDtBasis(Cell(source)), m_pImp(Guarded(kFromZelDtLong, [&] {
          return new (*this)
              ZelDtShort_Imp(Rep::FromWide(source.IsDefined() ? source.GetValue() : 0));
      }))
{}

ZelDtShort::ZelDtShort(const ZelDtString& source)
    : ZelDtBasis(Cell(source)), m_pImp(Guarded(kFromString, [&] {
          return new (*this) ZelDtShort_Imp(source.IsDefined() ? Rep::FromText(source) : 0);
      }))
{}

ZelDtShort::ZelDtShort(const ZelDtShort& source)
    : ZelDtBasis(Cell(source)),
      m_pImp(Guarded(kCopy, [&] { return new (*this) ZelDtShort_Imp(Rep::Copied(source)); }))
{}

ZelDtShort::~ZelDtShort()
{
    delete m_pImp;
}

// Assignment

ZelDtShort& ZelDtShort::operator=(const ZelDtShort& source)
{
    if (this != &source)
        Rep::Copy(*this, source);
    return *this;
}

ZelDtShort& ZelDtShort::operator=(int number)
{
    Rep::Store(*this, Rep::Checked(kAssignInt, number));
    return *this;
}

ZelDtShort& ZelDtShort::operator=(long number)
{
    Rep::Store(*this, Rep::Checked(kAssignLong, number));
    return *this;
}

void ZelDtShort::Assign(const ZelDtBasis& source)
{
    Rep::Assign(kAssign, *this, source);
}

ZelDtBasis* ZelDtShort::NewObject() const
{
    return Guarded(kNewObject, [&] { return new ZelDtShort(*this); });
}

// State

ZelDtTyps ZelDtShort::GetDtTyp() const
{
    return ZelDtTypShort;
}

void ZelDtShort::Clear()
{
    Rep::Clear(*this);
}

// Reading

short ZelDtShort::GetValue() const
{
    return Rep::Readable(kGetValue, *this);
}

ZelDtShort::operator short() const
{
    return m_pImp->value;
}

// SQL

ZelDtString ZelDtShort::ConvToSQL() const
{
    return Rep::ToSQL(kConvToSQL, *this);
}

void ZelDtShort::SetFromSQL(short number)
{
    Rep::Store(*this, number);
}

void ZelDtShort::SetFromSQL(int number)
{
    SetFromSQL(Rep::Checked(kSetFromSQLInt, number));
}

void ZelDtShort::SetFromSQL(long number)
{
    SetFromSQL(Rep::Checked(kSetFromSQLLong, number));
}

// Display

CString ZelDtShort::ConvToOFL(const ZelFormat* format) const
{
    return Rep::ToOFL(kConvToOFL, *this, format);
}

void ZelDtShort::SetFromOFL(const char* text, const ZelFormat* format)
{
    Rep::SetFromOFL(kSetFromOFL, *this, text, format);
}

// External text

ZelDtString ZelDtShort::ConvToExtern(int& defined, unsigned short& version) const
{
    return Rep::ToExtern(kConvToExtern, *this, *this, defined, version);
}

void ZelDtShort::SetFromExtern(const ZelDtString* text, int defined, unsigned short version)
{
    Rep::SetFromExtern(kSetFromExtern, *this, text, defined, version);
}

// Record set and archive

void ZelDtShort::SetFromRecordSet(CRecordset& rs, const int& field)
{
    Rep::SetFromRecordSet(kSetFromRecordSet, *this, rs, field);
}

void ZelDtShort::ConvToRecordSet(CRecordset& rs, int& field) const
{
    Rep::ToRecordSet(kConvToRecordSet, *this, rs, field);
}

void ZelDtShort::Serialize(CArchive& ar)
{
    Rep::Serialize(kSerialize, *this, ar);
}
