#include "text/DTCHAR.h"

#include "platform/runtime/ansi.h"
#include "text/IMP/DTCHARI.h"
#include "text/IMP/DTCODEPG.h"
#include "text/IMP/DTTEXT.h"
#include "text/IMP/DTTXTSQL.h"

IMPLEMENT_SERIAL(ZelDtChar, ZelDtBasis, 1)

namespace {

using zeldt::ErrorNo;
using zeldt::Guarded;
using zeldt::Operation;

using Cell = zeldt::Cell<ZelDtChar_Imp>;
using zeldt::Raise;

using Rep = zeldt::PlainRep<zeldt::CharRules>;

constexpr Operation Op(const char* signature)
{
    return {"DTCHAR", "ZelDtChar", signature};
}

constexpr Operation kFromMode = Op("ZelDtChar(ZelDtWorkingMode)");
constexpr Operation kFromChar = Op("ZelDtChar(TCHAR)");
constexpr Operation kFromText = Op("ZelDtChar(LPCTSTR)");
constexpr Operation kFromString = Op("ZelDtChar(ZelDtString&)");
constexpr Operation kCopy = Op("ZelDtChar(ZelDtChar&)");
constexpr Operation kAssign = Op("Assign(ZelDtBasis&)");
constexpr Operation kNewObject = Op("NewObject()");
constexpr Operation kGetValue = Op("GetValue()");
constexpr Operation kConvToSQL = Op("ConvToSQL(UINT)");
constexpr Operation kSetFromSQL = Op("SetFromSQL(CHAR,UINT)");
constexpr Operation kConvToOFL = Op("ConvToOFL(ZelFormat*)");
constexpr Operation kSetFromOFL = Op("SetFromOFL(LPCTSTR,ZelFormat*)");
constexpr Operation kConvToExtern = Op("ConvToExtern(BOOL&,USHORT&)");
constexpr Operation kSetFromExtern = Op("SetFromExtern(ZelDtString*,BOOL,USHORT)");
constexpr Operation kSetFromRecordSet = Op("SetFromRecordSet(CRecordset&,CString&)");
constexpr Operation kConvToRecordSet = Op("ConvToRecordSet(CRecordset&,CString&)");
constexpr Operation kSerialize = Op("Serialize(CArchive&)");
constexpr Operation kEqual = Op("operator==(ZelDtChar&)");
constexpr Operation kUnequal = Op("operator!=(ZelDtChar&)");
constexpr Operation kEqualText = Op("operator==(LPCTSTR)");
constexpr Operation kUnequalText = Op("operator!=(LPCTSTR)");
constexpr Operation kEqualString = Op("operator==(ZelDtString&)");
constexpr Operation kUnequalString = Op("operator!=(ZelDtString&)");

/// Builds the default format while the library is being loaded.
[[maybe_unused]] const ZelFormat& defaultFormatAtLoad = zeldt::CharRules::DefaultFormat();

/// The first byte of a text that is terminated; NUL of an empty one.
char FirstOf(const char* text)
{
    return *text;
}

char Mapped(const zelrt::ByteMap& map, char character)
{
    return static_cast<char>(map[static_cast<unsigned char>(character)]);
}

int EqualTexts(const Operation& operation, const ZelDtChar& left, const ZelDtString& right)
{
    zeldt::RequireReadable(operation, left, right);
    return Guarded(operation, [&] { return ZelDtString(left) == right; });
}

} // namespace

// Construction

ZelDtChar::ZelDtChar(ZelDtWorkingMode mode)
    : ZelDtBasis(Cell(0, mode)),
      m_pImp(Guarded(kFromMode, [this] { return new (*this) ZelDtChar_Imp('\0'); }))
{}

ZelDtChar::ZelDtChar(char character)
    : ZelDtBasis(Cell(1, ZelDtWmDefault)),
      m_pImp(Guarded(kFromChar, [=, this] { return new (*this) ZelDtChar_Imp(character); }))
{}

ZelDtChar::ZelDtChar(const char* text) : ZelDtBasis(Cell(1, ZelDtWmDefault)), m_pImp(nullptr)
{
    if (text == nullptr)
        Raise(kFromText, ErrorNo::InitialValue);
    m_pImp = Guarded(kFromText, [=, this] { return new (*this) ZelDtChar_Imp(FirstOf(text)); });
}

ZelDtChar::ZelDtChar(const ZelDtString& source)
    : ZelDtBasis(Cell(source)), m_pImp(Guarded(kFromString, [&] {
          return new (*this) ZelDtChar_Imp(source.IsDefined() ? FirstOf(source) : '\0');
      }))
{}

ZelDtChar::ZelDtChar(const ZelDtChar& source)
    : ZelDtBasis(Cell(source)),
      m_pImp(Guarded(kCopy, [&] { return new (*this) ZelDtChar_Imp(source.m_pImp->value); }))
{}

ZelDtChar::~ZelDtChar()
{
    delete m_pImp;
}

// Assignment

ZelDtChar& ZelDtChar::operator=(const ZelDtChar& source)
{
    if (this != &source)
        Rep::Copy(*this, source);
    return *this;
}

ZelDtChar& ZelDtChar::operator=(char character)
{
    Rep::Store(*this, character);
    return *this;
}

void ZelDtChar::Assign(const ZelDtBasis& source)
{
    Rep::Assign(kAssign, *this, source);
}

ZelDtBasis* ZelDtChar::NewObject() const
{
    return Guarded(kNewObject, [&] { return new ZelDtChar(*this); });
}

// State

ZelDtTyps ZelDtChar::GetDtTyp() const
{
    return ZelDtTypChar;
}

void ZelDtChar::Clear()
{
    Rep::Clear(*this);
}

// Reading

char ZelDtChar::GetValue() const
{
    return Rep::Readable(kGetValue, *this);
}

ZelDtChar::operator char() const
{
    return m_pImp->value;
}

// Changing

void ZelDtChar::ToUpper()
{
    Rep::Change(*this, Mapped(zelrt::kAnsiUpper, m_pImp->value));
}

void ZelDtChar::ToLower()
{
    Rep::Change(*this, Mapped(zelrt::kAnsiLower, m_pImp->value));
}

// SQL

ZelDtString ZelDtChar::ConvToSQL(unsigned int codePage) const
{
    return Guarded(kConvToSQL, [&] {
        ZelDtString literal = zeldt::SqlText(*this);
        if (const auto directions = zeldt::DirectionsFor(codePage))
            literal.ConvertCodePage(directions->toOem);
        return literal;
    });
}

void ZelDtChar::SetFromSQL(char character, unsigned int codePage)
{
    char text[] = {character, '\0'};
    const auto directions = zeldt::DirectionsFor(codePage);
    if (directions && !ZelDtConvertCodePageFkt(text, directions->toAnsi))
        Raise(kSetFromSQL, ErrorNo::CodePage);
    Rep::Store(*this, FirstOf(text));
}

// Display

CString ZelDtChar::ConvToOFL(const ZelFormat* format) const
{
    return Rep::ToOFL(kConvToOFL, *this, format);
}

void ZelDtChar::SetFromOFL(const char* text, const ZelFormat* format)
{
    Rep::SetFromOFL(kSetFromOFL, *this, text, format);
}

// External text

ZelDtString ZelDtChar::ConvToExtern(int& defined, unsigned short& version) const
{
    return Rep::ToExtern(kConvToExtern, *this, *this, defined, version);
}

void ZelDtChar::SetFromExtern(const ZelDtString* text, int defined, unsigned short version)
{
    Rep::SetFromExtern(kSetFromExtern, *this, text, defined, version, &FirstOf);
}

// Record set and archive

void ZelDtChar::SetFromRecordSet(CRecordset& rs, const CString& field)
{
    Rep::SetFromRecordSet(kSetFromRecordSet, *this, rs, field, &FirstOf);
}

void ZelDtChar::ConvToRecordSet(CRecordset& rs, CString& field) const
{
    Guarded(kConvToRecordSet, [&] {
        const char text[] = {m_pImp->value, '\0'};
        // A field that a record set has bound must stay where it is; it has room.
        if (IsDefined() && field.GetAllocLength() > 1)
            AssignRecordsetMemberCString(field, text);
        else if (IsDefined())
            field = text;
        rs.SetFieldNull(&field, !IsDefined());
    });
}

void ZelDtChar::Serialize(CArchive& ar)
{
    Rep::Serialize(kSerialize, *this, ar);
}

// Comparison

int ZelDtChar::operator==(const ZelDtChar& right) const
{
    return Rep::Equal(kEqual, *this, right);
}

int ZelDtChar::operator!=(const ZelDtChar& right) const
{
    return !Rep::Equal(kUnequal, *this, right);
}

int ZelDtChar::operator==(const ZelDtString& right) const
{
    return EqualTexts(kEqualString, *this, right);
}

int ZelDtChar::operator!=(const ZelDtString& right) const
{
    return !EqualTexts(kUnequalString, *this, right);
}

int ZelDtChar::operator==(const char* right) const
{
    zeldt::RequireReadable(kEqualText, *this);
    return right != nullptr && m_pImp->value == FirstOf(right);
}

int ZelDtChar::operator!=(const char* right) const
{
    zeldt::RequireReadable(kUnequalText, *this);
    return right == nullptr || m_pImp->value != FirstOf(right);
}
