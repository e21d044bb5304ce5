#include "text/DTBOOL.h"

#include "text/IMP/DTBOOLI.h"
#include "text/IMP/DTTEXT.h"
#include "text/IMP/DTTXTSQL.h"

IMPLEMENT_SERIAL(ZelDtBool, ZelDtBasis, 1)

namespace {

using zeldt::ErrorNo;
using zeldt::Guarded;
using zeldt::Operation;

using Cell = zeldt::Cell<ZelDtBool_Imp>;
using zeldt::Raise;

using Rep = zeldt::PlainRep<zeldt::BoolRules>;

constexpr Operation Op(const char* signature)
{
    return {"DTBOOL", "ZelDtBool", signature};
}

constexpr Operation kFromMode = Op("ZelDtBool :: ZelDtBool ( ZelDtWorkingMode )");
constexpr Operation kFromBool = Op("ZelDtBool :: ZelDtBool ( BOOL )");
constexpr Operation kFromText = Op("ZelDtBool :: ZelDtBool ( LPCTSTR )");
constexpr Operation kFromString = Op("ZelDtBool :: ZelDtBool ( const ZelDtString & )");
constexpr Operation kCopy = Op("ZelDtBool :: ZelDtBool ( const ZelDtBool & )");
constexpr Operation kAssign = Op("VOID  ZelDtBool :: Assign ( const ZelDtBasis & )");
constexpr Operation kNewObject = Op("ZelDtBasis *  ZelDtBool :: NewObject ( VOID ) const");
constexpr Operation kIsTrue = Op("BOOL  ZelDtBool :: IsTrue ( VOID ) const");
constexpr Operation kIsFalse = Op("BOOL  ZelDtBool :: IsFalse ( VOID ) const");
constexpr Operation kGetValue = Op("BOOL  ZelDtBool :: GetValue ( VOID ) const");
constexpr Operation kConvToSQL = Op("ZelDtString  ZelDtBool :: ConvToSQL ( VOID ) const");
constexpr Operation kSetFromSQL = Op("VOID  ZelDtBool::SetFromSQL ( TCHAR chSQL )");
constexpr Operation kConvToOFL = Op("CString  ZelDtBool :: ConvToOFL ( const ZelFormat * ) const");
constexpr Operation kSetFromOFL =
    Op("VOID  ZelDtBool :: SetFromOFL ( LPCTSTR, const ZelFormat * )");
constexpr Operation kConvToExtern =
    Op("ZelDtString  ZelDtBool :: ConvToExtern ( BOOL &, USHORT & ) const");
constexpr Operation kSetFromExtern = Op("void ZelDtBool::SetFromExtern ( const DtString * "
                                        "pExternData, BOOL fDefiniert,USHORT usVersion)");
constexpr Operation kSetFromRecordSet =
    Op("VOID  ZelDtBool :: SetFromRecordSet ( CRecordset &, const BOOL & )");
constexpr Operation kConvToRecordSet =
    Op("VOID  ZelDtBool :: ConvToRecordSet ( CRecordset &, BOOL & ) const");
constexpr Operation kSerialize = Op("VOID  ZelDtBool :: Serialize ( CArchive & )");
constexpr Operation kEqual = Op("BOOL  ZelDtBool :: operator== ( const ZelDtBool & ) const");
constexpr Operation kUnequal = Op("BOOL  ZelDtBool :: operator!= ( const ZelDtBool & ) const");
constexpr Operation kEqualText = Op("BOOL  ZelDtBool :: operator== ( LPCTSTR ) const");
constexpr Operation kUnequalText = Op("BOOL  ZelDtBool :: operator!= ( LPCTSTR ) const");

/// Builds the default format while the library is being loaded.
[[maybe_unused]] const ZelFormat& defaultFormatAtLoad = zeldt::BoolRules::DefaultFormat();

} // namespace

// Construction. What is wrong with a text keeps its own error

ZelDtBool::ZelDtBool(ZelDtWorkingMode mode)
    : ZelDtBasis(Cell(0, mode)),
      m_pImp(Guarded(kFromMode, [this] { return new (*this) ZelDtBool_Imp(0); }))
{}

ZelDtBool::ZelDtBool(BOOL value)
    : ZelDtBasis(Cell(1, ZelDtWmDefault)),
      m_pImp(Guarded(kFromBool, [=, this] { return new (*this) ZelDtBool_Imp(value); }))
{}

ZelDtBool::ZelDtBool(const char* text)
    : ZelDtBasis(Cell(1, ZelDtWmDefault)),
      m_pImp(Guarded(kFromText, [this, number = ZelDtBool_Imp::NumberOf(
                                           zeldt::RequiredView(kFromText, text))] {
          return new (*this) ZelDtBool_Imp(number);
      }))
{}

ZelDtBool::ZelDtBool(const ZelDtString& source)
    : ZelDtBasis(Cell(source)),
      m_pImp(Guarded(kFromString,
                     [this, number = source.IsDefined()
                                         ? ZelDtBool_Imp::NumberOf(zeldt::ViewOf(source))
                                         : 0] { return new (*this) ZelDtBool_Imp(number); }))
{}

ZelDtBool::ZelDtBool(const ZelDtBool& source)
    : ZelDtBasis(Cell(source)),
      m_pImp(Guarded(kCopy, [&] { return new (*this) ZelDtBool_Imp(source.m_pImp->value); }))
{}

ZelDtBool::~ZelDtBool()
{
    delete m_pImp;
}

// Assignment

ZelDtBool& ZelDtBool::operator=(const ZelDtBool& source)
{
    if (this != &source)
        Rep::Copy(*this, source);
    return *this;
}

ZelDtBool& ZelDtBool::operator=(BOOL value)
{
    Rep::Store(*this, value);
    return *this;
}

void ZelDtBool::Assign(const ZelDtBasis& source)
{
    Rep::Assign(kAssign, *this, source);
}

ZelDtBasis* ZelDtBool::NewObject() const
{
    return Guarded(kNewObject, [&] { return new ZelDtBool(*this); });
}

// State

ZelDtTyps ZelDtBool::GetDtTyp() const
{
    return ZelDtTypBool;
}

void ZelDtBool::Clear()
{
    Rep::Clear(*this);
}

// Reading

BOOL ZelDtBool::IsTrue() const
{
    return Rep::Readable(kIsTrue, *this);
}

BOOL ZelDtBool::IsFalse() const
{
    return Rep::Readable(kIsFalse, *this) == 0 && !IsNull();
}

BOOL ZelDtBool::GetValue() const
{
    return Rep::Readable(kGetValue, *this);
}

ZelDtBool::operator int() const
{
    return m_pImp->value;
}

// SQL

ZelDtString ZelDtBool::ConvToSQL() const
{
    return Guarded(kConvToSQL, [&] { return zeldt::SqlText(*this); });
}

void ZelDtBool::SetFromSQL(char digit)
{
    if (digit != '0' && digit != '1')
        Raise(kSetFromSQL, ErrorNo::InitialValue);
    Rep::Store(*this, digit == '1');
}

// Display

CString ZelDtBool::ConvToOFL(const ZelFormat* format) const
{
    return Rep::ToOFL(kConvToOFL, *this, format);
}

void ZelDtBool::SetFromOFL(const char* text, const ZelFormat* format)
{
    Rep::SetFromOFL(kSetFromOFL, *this, text, format);
}

// External text

ZelDtString ZelDtBool::ConvToExtern(int& defined, unsigned short& version) const
{
    if (!IsDefined())
        return Rep::ToExtern(kConvToExtern, *this, ZelDtWmDefault, defined, version);
    return Rep::ToExtern(kConvToExtern, *this, m_pImp->value != 0 ? "J" : "N", defined, version);
}

void ZelDtBool::SetFromExtern(const ZelDtString* text, int defined, unsigned short version)
{
    if (!Rep::HasExtern(kSetFromExtern, *this, text, defined, version))
        return;
    Rep::RequireConsistent(kSetFromExtern, *text);
    SetDefined(1);
    Guarded(kSetFromExtern, [&] {
        // Any number but 0 is a yes already.
        if (*text == "J" && m_pImp->value == 0)
            Rep::Change(*this, 1);
        else if (*text == "N")
            Rep::Change(*this, 0);
    });
}

// Record set and archive

void ZelDtBool::SetFromRecordSet(CRecordset& rs, const int& field)
{
    Rep::SetFromRecordSet(kSetFromRecordSet, *this, rs, field, [](int number) { return number; });
}

void ZelDtBool::ConvToRecordSet(CRecordset& rs, int& field) const
{
    Rep::ToRecordSet(kConvToRecordSet, *this, rs, field);
}

void ZelDtBool::Serialize(CArchive& ar)
{
    Rep::Serialize(kSerialize, *this, ar);
}

// Comparison

int ZelDtBool::operator==(const ZelDtBool& right) const
{
    return Rep::Equal(kEqual, *this, right);
}

int ZelDtBool::operator!=(const ZelDtBool& right) const
{
    return !Rep::Equal(kUnequal, *this, right);
}

int ZelDtBool::operator==(const char* right) const
{
    zeldt::RequireReadable(kEqualText, *this);
    return right != nullptr && *this == ZelDtBool(right);
}

int ZelDtBool::operator!=(const char* right) const
{
    zeldt::RequireReadable(kUnequalText, *this);
    return right == nullptr || *this != ZelDtBool(right);
}
