#include "text/DTSTRING.h"

#include "datetime/DTDATZP.h"
#include "datetime/DTTIME.h"
#include "datetime/IMP/DTDATIMI.h"
#include "datetime/IMP/DTDATTXT.h"
#include "numeric/DTDOUBLE.h"
#include "numeric/DTLONG.h"
#include "numeric/DTSHORT.h"
#include "numeric/IMP/DTDECIMI.h"
#include "numeric/IMP/DTNUMSQL.h"
#include "text/DTBOOL.h"
#include "text/DTCHAR.h"
#include "text/IMP/DTTEXT.h"

IMPLEMENT_SERIAL(ZelDtString, ZelDtBasis, 1)

const int ZelDtString::kiSingle;
const int ZelDtString::kiAll;
const int ZelDtString::kiFirst;
const int ZelDtString::kiNext;
const int ZelDtString::kiNotFound;
const int ZelDtString::kiLeft;
const int ZelDtString::kiRight;
const int ZelDtString::kiLeftRight;
const int ZelDtString::kiDefaultLength;

namespace {

using zeldt::ErrorNo;
using zeldt::Guarded;
using zeldt::Operation;

constexpr Operation Op(const char* signature)
{
    return {"DTSTRING", "ZelDtString", signature};
}

constexpr Operation kFromMode = Op("ZelDtString(ZelDtWorkingMode)");
constexpr Operation kFromText = Op("ZelDtString(LPCTSTR,INT,INT)");
constexpr Operation kFromCString = Op("ZelDtString(CString&)");
constexpr Operation kFromWideText = Op("ZelDtString(BSTR&)");
constexpr Operation kFromChar = Op("ZelDtString(TCHAR)");
constexpr Operation kFromInt = Op("ZelDtString(INT)");
constexpr Operation kFromUInt = Op("ZelDtString(UINT)");
constexpr Operation kCopy = Op("ZelDtString(ZelDtString&)");
constexpr Operation kFromLong = Op("ZelDtString(ZelDtLong&)");
constexpr Operation kFromShort = Op("ZelDtString(ZelDtShort&)");
constexpr Operation kFromBool = Op("ZelDtString(ZelDtBool&)");
constexpr Operation kFromCharValue = Op("ZelDtString(ZelDtChar&)");
constexpr Operation kFromDouble = Op("ZelDtString(ZelDtDouble&)");
constexpr Operation kFromDecimal = Op("ZelDtString(ZelDtDecimal&)");
constexpr Operation kFromDateTime = Op("ZelDtString(ZelDtDateTime&)");
constexpr Operation kFromDateZp = Op("ZelDtString(ZelDtDateZp&)");
constexpr Operation kFromTime = Op("ZelDtString(ZelDtTime&)");
constexpr Operation kToCString = Op("operatorCString()");
constexpr Operation kToWideText = Op("operatorBSTR()");

ZelDtString_Imp* NewText(const CString& text)
{
    return new ZelDtString_Imp(zeldt::ViewOf(text), text.GetLength(), text.GetLength());
}

/// The text of an integer value; none when it is undefined.
template <typename Number, typename Integer>
ZelDtString_Imp* NewNumberText(const Integer& source)
{
    return source.IsDefined()
               ? new ZelDtString_Imp(static_cast<std::int32_t>(static_cast<Number>(source)))
               : new ZelDtString_Imp;
}

/// A word with exactly its room.
ZelDtString_Imp* NewBoolText(const ZelDtBool& source)
{
    if (!source.IsDefined())
        return new ZelDtString_Imp;
    const std::string_view word = static_cast<int>(source) != 0 ? "Ja" : "Nein";
    return new ZelDtString_Imp(word, static_cast<int>(word.size()), 0);
}

ZelDtString_Imp* NewCharText(const ZelDtChar& source)
{
    return source.IsDefined() ? new ZelDtString_Imp(static_cast<char>(source))
                              : new ZelDtString_Imp;
}

/// More than any text of a double takes; what callers find in GetAllocLength.
constexpr int kDoubleAllocLength = 316;

ZelDtString_Imp* NewDoubleText(const ZelDtDouble& source)
{
    if (!source.IsDefined())
        return new ZelDtString_Imp;
    char text[zeldt::kSqlRoom];
    const std::size_t length = zeldt::WriteSql(source, text);
    if (length == 0)
        zeldt::Raise(kFromDouble, ErrorNo::OutOfRange);
    return new ZelDtString_Imp({text, length}, static_cast<int>(length), kDoubleAllocLength);
}

/// Room for the longest decimal that computing and reading make.
constexpr int kDecimalAllocLength = 38;

ZelDtString_Imp* NewDecimalText(const ZelDtDecimal& source)
{
    if (!source.IsDefined())
        return new ZelDtString_Imp;
    const zeldt::DecimalText text(zeldt::DecimalAccess::Number(source));
    const std::string_view plain = zeldt::DecimalAccess::PlainText(text, kDecimalAllocLength);
    return new ZelDtString_Imp(plain, static_cast<int>(plain.size()), kDecimalAllocLength);
}

/// A text with exactly its room, in one of the layouts of SQL_Language.
ZelDtString_Imp* NewDateText(const ZelDtDateTime& source, SQL_Language layout)
{
    if (!source.IsDefined())
        return new ZelDtString_Imp;
    char text[zeldt::kDateTextRoom];
    const std::size_t length = ZelDtDateTimeAccess::WriteText(source, layout, text);
    return new ZelDtString_Imp({text, length}, static_cast<int>(length), 0);
}

ZelDtString_Imp* NewTimeText(const ZelDtTime& source)
{
    if (!source.IsDefined())
        return new ZelDtString_Imp;
    char text[12];
    const std::string_view view = source.GetValue(text, sizeof text);
    const auto length = static_cast<int>(view.size());
    return new ZelDtString_Imp(view, length, length);
}

} // namespace

ZelDtString::ZelDtString(ZelDtWorkingMode mode)
    : ZelDtBasis(0, mode), m_pImp(Guarded(kFromMode, [] { return new ZelDtString_Imp; }))
{}

ZelDtString::ZelDtString(const char* text, int length, int allocLength)
    : ZelDtBasis(1, ZelDtWmDefault), m_pImp(nullptr)
{
    if (text == nullptr)
        zeldt::Raise(kFromText, ErrorNo::InitialValue);
    const int checked = ZelDtString_Imp::CheckedLength(text, length, kiDefaultLength);
    m_pImp = Guarded(kFromText, [=] {
        const std::size_t available = *text != '\0' ? static_cast<std::size_t>(checked) : 0;
        return new ZelDtString_Imp({text, available}, checked, allocLength);
    });
}

ZelDtString::ZelDtString(const CString& text)
    : ZelDtBasis(1, ZelDtWmDefault), m_pImp(Guarded(kFromCString, [&] { return NewText(text); }))
{}

ZelDtString::ZelDtString(unsigned short* const& text)
    : ZelDtBasis(1, ZelDtWmDefault), m_pImp(Guarded(kFromWideText, [&] {
          return NewText(CString(reinterpret_cast<LPCOLESTR>(text)));
      }))
{}

ZelDtString::ZelDtString(char character)
    : ZelDtBasis(1, ZelDtWmDefault),
      m_pImp(Guarded(kFromChar, [=] { return new ZelDtString_Imp(character); }))
{}

ZelDtString::ZelDtString(int number)
    : ZelDtBasis(1, ZelDtWmDefault),
      m_pImp(Guarded(kFromInt, [=] { return new ZelDtString_Imp(std::int32_t{number}); }))
{}

ZelDtString::ZelDtString(unsigned int number)
    : ZelDtBasis(1, ZelDtWmDefault),
      m_pImp(Guarded(kFromUInt, [=] { return new ZelDtString_Imp(std::uint32_t{number}); }))
{}

ZelDtString::ZelDtString(const ZelDtString& source)
    : ZelDtBasis(source),
      m_pImp(Guarded(kCopy, [&] { return new ZelDtString_Imp(*source.m_pImp); }))
{}

ZelDtString::ZelDtString(const ZelDtLong& source)
    : ZelDtBasis(source), m_pImp(Guarded(kFromLong, [&] { return NewNumberText<long>(source); }))
{}

ZelDtString::ZelDtString(const ZelDtShort& source)
    : ZelDtBasis(source), m_pImp(Guarded(kFromShort, [&] { return NewNumberText<short>(source); }))
{}

ZelDtString::ZelDtString(const ZelDtBool& source)
    : ZelDtBasis(source), m_pImp(Guarded(kFromBool, [&] { return NewBoolText(source); }))
{}

ZelDtString::ZelDtString(const ZelDtChar& source)
    : ZelDtBasis(source), m_pImp(Guarded(kFromCharValue, [&] { return NewCharText(source); }))
{}

ZelDtString::ZelDtString(const ZelDtDouble& source)
    : ZelDtBasis(source), m_pImp(Guarded(kFromDouble, [&] { return NewDoubleText(source); }))
{}

ZelDtString::ZelDtString(const ZelDtDecimal& source)
    : ZelDtBasis(source), m_pImp(Guarded(kFromDecimal, [&] { return NewDecimalText(source); }))
{}

ZelDtString::ZelDtString(const ZelDtDateTime& source)
    : ZelDtBasis(source),
      m_pImp(Guarded(kFromDateTime, [&] { return NewDateText(source, SQL_DatumUhrzeit); }))
{}

ZelDtString::ZelDtString(const ZelDtDateZp& source)
    : ZelDtBasis(source),
      m_pImp(Guarded(kFromDateZp, [&] { return NewDateText(source, SQL_Datum); }))
{}

ZelDtString::ZelDtString(const ZelDtTime& source)
    : ZelDtBasis(source), m_pImp(Guarded(kFromTime, [&] { return NewTimeText(source); }))
{}

ZelDtString::ZelDtString(std::unique_ptr<ZelDtString_Imp> imp)
    : ZelDtBasis(1, ZelDtWmDefault), m_pImp(imp.release())
{}

ZelDtString::~ZelDtString()
{
    delete m_pImp;
    m_pImp = nullptr;
}

ZelDtTyps ZelDtString::GetDtTyp() const
{
    return ZelDtTypString;
}

ZelDtString::operator const char*() const
{
    return m_pImp->Text();
}

ZelDtString::operator CString() const
{
    return Guarded(kToCString, [&] { return CString(m_pImp->Text(), m_pImp->Length()); });
}

ZelDtString::operator unsigned short*() const
{
    return Guarded(kToWideText, [&] {
        const CString text(m_pImp->Text(), m_pImp->Length());
        return reinterpret_cast<unsigned short*>(text.AllocSysString());
    });
}
