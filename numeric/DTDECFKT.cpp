#include "numeric/DTDECIMA.h"

#include "foundation/DTCHECK.h"
#include "foundation/DTFORMAT.h"
#include "numeric/IMP/DTDECEXT.h"
#include "numeric/IMP/DTDECIMI.h"
#include "numeric/IMP/DTDECSQL.h"
#include "platform/formats/usualtexts.h"
#include "platform/runtime/int32text.h"
#include "text/IMP/DTARCTXT.h"
#include "text/IMP/DTVIEW.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <typeinfo>

namespace {

using zeldt::ErrorNo;
using zeldt::Guarded;
using zeldt::Operation;
using zeldt::Raise;
using zeldt::ViewOf;

using Access = zeldt::DecimalAccess;

constexpr Operation Op(const char* signature)
{
    return {"DTDECFKT", "ZelDtDecimal", signature};
}

constexpr Operation kAssign = Op("Assign(ZelDtBasis&)");
constexpr Operation kNewObject = Op("ZelDtBasis * ZelDtDecimal :: NewObject ( VOID ) const");
constexpr Operation kClear = Op("Clear()");
constexpr Operation kGetValue = Op("GetValue()");
constexpr Operation kGetPrecision = Op("GetPrecision()");
constexpr Operation kDecimalToAscii = Op("DecimalToAscii(LPCTSTR)");
constexpr Operation kRound = Op("Round(SHORT,Rundungsart)");
constexpr Operation kTruncate = Op("Truncate(USHORT)");
constexpr Operation kConvToSQL = Op("ConvToSQL()");
constexpr Operation kSetFromSQL = Op("SetFromSQL(LPCTSTR)");
constexpr Operation kConvToOFL = Op("ConvToOFL(ZelFormat *)");
constexpr Operation kSetFromOFL = Op("SetFromOFL(LPCTSTR,ZelFormat*)");
constexpr Operation kSetFromBTR = Op("SetFromBTR(DEC&,BOOL)");
constexpr Operation kConvToBTR = Op("ConvToBTR(BOOL&)");
constexpr Operation kConvToExtern = Op("ConvToExtern(BOOL&,USHORT&)");
constexpr Operation kSetFromExtern = Op("SetFromExtern(ZelDtString*,BOOL,USHORT)");
constexpr Operation kSetFromRecordSet = Op("SetFromRecordSet(CRecordset&,const CString&");
constexpr Operation kConvToRecordSet = Op("ConvToRecordSet(CRecordset&,CString&)");
constexpr Operation kSerialize = Op("Serialize(CArchive&)");

constexpr unsigned short kExternVersion = 100;

/// Longest external text.
constexpr std::size_t kMostExternBytes = 48;

/// Longest text that a caller's buffer of 33 bytes takes.
constexpr std::size_t kMostAsciiBytes = 32;

const RWDecimal96Init decimalLibrary;

/// The steps of RundungFuenfer.
const RWDecimal96 tenth = RWDecimal96::from(0.1);
const RWDecimal96 twentieth = RWDecimal96::from(0.05);

/// Passes the number to the format as a text: plain digits and as many decimals as it has.
void Show(const RWDecimal96& number, const ZelFormat& format, CString& shown)
{
    char text[RWDecimal96::kTextRoom];
    static_assert(sizeof text <= zeldt::TextArgument::kRoom);
    const std::size_t length = number.print(text, sizeof text);
    if (length < sizeof text)
        format.FormatString(zeldt::TextArgument(text, length), ZelFormat::ZelFoZahlText, shown);
    else // only archives bring such a number
        format.FormatString(toString(number).data(), ZelFormat::ZelFoZahlText, shown);
}

/// The digits are at most those of 63 bits, and so few places are always possible.
RWDecimal96 NumberOf(const zelformat::PlainNumber& plain)
{
    const auto digits = static_cast<std::int64_t>(plain.digits);
    return RWDecimal96Access::MakeShort(plain.negative ? -digits : digits,
                                        static_cast<std::int32_t>(plain.decimals));
}

const ZelFormat& DefaultFormat()
{
    static const ZelFormat format(ZelFormat::ZelFoStandard);
    return format;
}

/// Builds the default format while the library is being loaded.
[[maybe_unused]] const ZelFormat& defaultFormatAtLoad = DefaultFormat();

// Rounding

RWDecimalBase::RoundingMethod MethodFor(ZelDtDecimal::Rundungsart kind, bool positive)
{
    switch (kind) {
    case ZelDtDecimal::RundungAufwaerts:
        return positive ? RWDecimalBase::RoundAwayFromZero : RWDecimalBase::RoundTowardZero;
    case ZelDtDecimal::RundungAbwaerts:
        return positive ? RWDecimalBase::RoundTowardZero : RWDecimalBase::RoundAwayFromZero;
    case ZelDtDecimal::RundungWegVonNull:
        return RWDecimalBase::RoundAwayFromZero;
    case ZelDtDecimal::RundungZuNull:
        return RWDecimalBase::RoundTowardZero;
    default:
        return RWDecimalBase::RoundNearest;
    }
}

/// A multiple of 0.05 at or near the number: it loses what exceeds a multiple of 0.1, and a further
/// 0.1 if a negative rest remains; of what is missing then, 0.05 comes back if it is more than
/// that.
RWDecimal96 RoundedToFives(const RWDecimal96& number)
{
    RWDecimal96 rounded = number - number % tenth;
    if (rounded < RWDecimal96(0))
        rounded = rounded - tenth;
    const RWDecimal96 missing = number - rounded;
    if (missing > twentieth)
        rounded = rounded + twentieth;
    else if (missing < RWDecimal96(0) - twentieth)
        rounded = rounded - twentieth;
    return rounded;
}

// External text

/// The external text of a number: one digit in front of the point, and an exponent of at least
/// three digits. Too long for one: error 4 under the name of the conversion.
class ExternDecimal {
public:
    explicit ExternDecimal(const ZelDtDecimal_Imp& number)
    {
        if (number.IsZero()) {
            Append("0E+000");
            return;
        }
        const zeldt::DecimalText plain(number);
        std::string_view digits = plain.View();
        if (digits.front() == '-') {
            Append("-");
            digits.remove_prefix(1);
        }
        AppendScientific(digits);
    }

    const char* Text() const { return m_text; }
    int Length() const { return static_cast<int>(m_length); }

private:
    void AppendScientific(std::string_view plain)
    {
        const std::size_t point = std::min(plain.find('.'), plain.size());
        const std::size_t first = plain.find_first_not_of("0.");
        const std::string_view rest = plain.substr(first + 1);
        Append(plain.substr(first, 1));
        Append(".");
        if (first < point) {
            Append(rest.substr(0, point - first - 1));
            Append(rest.substr(std::min(point - first, rest.size())));
            AppendExponent("E+", point - first - 1);
        } else {
            Append(rest);
            AppendExponent("E-", first - point);
        }
    }

    void AppendExponent(std::string_view mark, std::size_t exponent)
    {
        Append(mark);
        const std::string digits = std::to_string(exponent);
        Append(std::string_view("00").substr(std::min<std::size_t>(digits.size() - 1, 2)));
        Append(digits);
    }

    void Append(std::string_view part)
    {
        if (part.size() > kMostExternBytes - m_length)
            Raise(kConvToExtern, ErrorNo::BufferTooSmall);
        part.copy(m_text + m_length, part.size());
        m_length += part.size();
        m_text[m_length] = '\0';
    }

    char m_text[kMostExternBytes + 1];
    std::size_t m_length = 0;
};

/// The exponent behind the 'E' of an external text: one character that is a minus or counts as a
/// plus, then a number, 0 without digits. Limited to what makes any number too long.
int ExponentOf(std::string_view text)
{
    constexpr std::int32_t limit = 100;
    if (text.empty())
        return 0;
    const std::int32_t read = zelrt::ParseInt32(text.data() + 1, text.data() + text.size()).value;
    const int exponent = std::clamp(read, -limit, limit);
    return text.front() == '-' ? -exponent : exponent;
}

/// The digits of a mantissa without its point.
std::string DigitsOf(std::string_view mantissa)
{
    std::string digits(mantissa);
    const std::size_t point = digits.find('.');
    if (point != digits.npos)
        digits.erase(point, 1);
    if (digits.empty() || digits.find_first_not_of("0123456789") != digits.npos)
        Raise(kSetFromExtern, ErrorNo::FormatNotAllowed);
    return digits;
}

/// The plain text of the number in an external text of any shape. Its digits count as if the point
/// stood behind the first one.
std::string PlainFromScientific(std::string_view text)
{
    if (text.size() > kMostExternBytes)
        Raise(kSetFromExtern, ErrorNo::InputTooLong);
    const std::size_t signs = !text.empty() && text.front() == '-' ? 1 : 0;
    const std::size_t mark = text.find('E');
    if (mark == text.npos)
        Raise(kSetFromExtern, ErrorNo::FormatNotKept);
    std::string digits = DigitsOf(text.substr(signs, mark - signs));
    const int exponent = ExponentOf(text.substr(mark + 1));
    if (exponent < 0) {
        digits.insert(0, "0." + std::string(static_cast<std::size_t>(-exponent - 1), '0'));
    } else {
        const std::size_t whole = static_cast<std::size_t>(exponent) + 1;
        if (digits.size() > whole)
            digits.insert(whole, 1, '.');
        else
            digits.append(whole - digits.size(), '0');
    }
    return std::string(text.substr(0, signs)) + digits;
}

RWDecimal96 ReadExtern(std::string_view text)
{
    ZelDtDecimal_Imp::InstallHandlers();
    RWDecimal96 number;
    if (zeldt::ReadUsualExtern(text, number))
        return number;
    return ZelDtDecimal_Imp(std::string_view(PlainFromScientific(text)));
}

} // namespace

// Assignment

void ZelDtDecimal::Assign(const ZelDtBasis& source)
{
    if (!source.IsKindOf(RUNTIME_CLASS(ZelDtDecimal)))
        Raise(kAssign, ErrorNo::DifferentTypes);
    Guarded(kAssign, [&] { *this = static_cast<const ZelDtDecimal&>(source); });
}

ZelDtBasis* ZelDtDecimal::NewObject() const
{
    return Guarded(kNewObject, [&] { return new ZelDtDecimal(*this); });
}

// State

ZelDtTyps ZelDtDecimal::GetDtTyp() const
{
    return ZelDtTypDecimal;
}

void ZelDtDecimal::Clear()
{
    Guarded(kClear, [&] {
        if (!m_pImp->IsZero())
            SetModified(1);
        *m_pImp = RWDecimal96(0);
        ZelDtBasis::Clear();
    });
}

// Reading

double ZelDtDecimal::GetValue() const
{
    zeldt::RequireReadable(kGetValue, *this);
    return Guarded(kGetValue, [&] { return static_cast<double>(toDouble(*m_pImp)); });
}

int ZelDtDecimal::GetPrecision() const
{
    zeldt::RequireReadable(kGetPrecision, *this);
    return m_pImp->Places();
}

BOOL ZelDtDecimal::IsDecimal0() const
{
    return m_pImp->IsZero();
}

std::string_view zeldt::DecimalAccess::PlainText(const DecimalText& text, std::size_t most)
{
    const std::string_view plain = text.Shortened();
    if (plain.size() > most)
        Raise(kDecimalToAscii, ErrorNo::BufferTooSmall);
    return plain;
}

const char* ZelDtDecimal::DecimalToAscii(char* buffer) const
{
    return Guarded(kDecimalToAscii, [&] {
        if (buffer == nullptr)
            Raise(kDecimalToAscii, ErrorNo::InitialValue);
        const zeldt::DecimalText text(*m_pImp);
        const std::string_view plain = Access::PlainText(text, kMostAsciiBytes);
        buffer[plain.copy(buffer, plain.size())] = '\0';
        return static_cast<const char*>(buffer);
    });
}

// Changing

ZelDtDecimal& ZelDtDecimal::Round(short position, Rundungsart kind)
{
    zeldt::Calculate(kRound, [&] {
        const int places = -position;
        if (!IsDefined() || places >= m_pImp->Places())
            return;
        const bool positive = !m_pImp->IsNegative() && !m_pImp->IsZero();
        *m_pImp = kind == RundungFuenfer ? RoundedToFives(*m_pImp)
                                         : round(*m_pImp, places, MethodFor(kind, positive));
        SetModified(1);
    });
    return *this;
}

ZelDtDecimal& ZelDtDecimal::Truncate(unsigned short places)
{
    zeldt::Calculate(kTruncate, [&] {
        if (places == m_pImp->Places())
            return;
        *m_pImp = round(*m_pImp, places, RWDecimalBase::RoundTowardZero);
        SetModified(1);
    });
    return *this;
}

// SQL

void ZelDtDecimal::SetFromSQL(const char* text)
{
    Guarded(kSetFromSQL, [&] { Access::Change(*this, ZelDtDecimal_Imp(text)); });
}

ZelDtString ZelDtDecimal::ConvToSQL() const
{
    return Guarded(kConvToSQL, [&] {
        char text[zeldt::kDecimalSqlRoom];
        const std::size_t length = zeldt::WriteSql(*this, text, sizeof text);
        if (length < sizeof text)
            return ZelDtString(text, static_cast<int>(length));
        std::string longText(length, '\0');
        zeldt::WriteSql(*this, longText.data(), length + 1);
        return ZelDtString(longText.data(), static_cast<int>(length));
    });
}

// Display

CString ZelDtDecimal::ConvToOFL(const ZelFormat* format) const
{
    return Guarded(kConvToOFL, [&] {
        CString shown;
        if (IsDefined())
            Show(*m_pImp, zeldt::ChooseFormat(format, GetFormat(), DefaultFormat()), shown);
        return shown;
    });
}

void ZelDtDecimal::SetFromOFL(const char* text, const ZelFormat* format)
{
    Guarded(kSetFromOFL, [&] {
        if (text == nullptr || *text == '\0') {
            Clear();
            return;
        }
        const ZelFormat& chosen = zeldt::ChooseFormat(format, GetFormat(), DefaultFormat());
        const std::string_view typed(text);
        zelformat::PlainNumber plain{};
        if (zelformat::ReadUsualNumber(chosen, typed, plain) && plain.digits <= INT64_MAX) {
            ZelDtDecimal_Imp::InstallHandlers();
            Access::Replace(*this, NumberOf(plain));
            return;
        }
        CString number;
        chosen.ParseString(zeldt::TextArgument(text, typed.size()), ZelFormat::ZelFoZahlText,
                           &number);
        Access::Replace(*this, ZelDtDecimal_Imp::ConvAsciiToRW96(ViewOf(number)));
    });
}

// Record-manager form

void ZelDtDecimal::SetFromBTR(const DEC& record, BOOL defined)
{
    Guarded(kSetFromBTR, [&] {
        if (!defined) {
            Clear();
            return;
        }
        ZelDtDecimal_Imp number;
        ZelDtDecimal_Imp::ConvDecimalToRW(record, number);
        Access::Replace(*this, number);
    });
}

DEC ZelDtDecimal::ConvToBTR(BOOL& defined) const
{
    return Guarded(kConvToBTR, [&] {
        DEC record;
        ZelDtDecimal_Imp::ConvRWToDecimal(record, *m_pImp);
        defined = IsDefined();
        return record;
    });
}

// External text

ZelDtString ZelDtDecimal::ConvToExtern(int& defined, unsigned short& version) const
{
    return Guarded(kConvToExtern, [&] {
        const auto made = [this] {
            zeldt::UsualExtern usual;
            if (usual.Take(*m_pImp)) {
                char text[zeldt::UsualExtern::kRoom];
                return ZelDtString(text, static_cast<int>(usual.Write(text)));
            }
            const ExternDecimal text(*m_pImp);
            return ZelDtString(text.Text(), text.Length());
        };
        ZelDtString result = IsDefined() ? made() : ZelDtString(ZelDtWmDefault);
        defined = IsDefined();
        version = kExternVersion;
        return result;
    });
}

void ZelDtDecimal::SetFromExtern(const ZelDtString* text, int defined, unsigned short version)
{
    Guarded(kSetFromExtern, [&] {
        if (version != kExternVersion)
            Raise(kSetFromExtern, ErrorNo::WrongVersion);
        SetDefined(defined);
        if (defined != 1 || text == nullptr) {
            Clear();
            return;
        }
        if (!text->IsDefined())
            Raise(kSetFromExtern, ErrorNo::InconsistentDefinedness);
        Access::Replace(*this, ReadExtern(ViewOf(*text)));
    });
}

// Record set and archive

void ZelDtDecimal::SetFromRecordSet(CRecordset& rs, const CString& field)
{
    Guarded(kSetFromRecordSet, [&] {
        if (rs.IsFieldNull(&field))
            Clear();
        else
            Access::Change(*this, ZelDtDecimal_Imp::ConvAsciiToRW96(ViewOf(field)));
    });
}

void ZelDtDecimal::ConvToRecordSet(CRecordset& rs, CString& field) const
{
    Guarded(kConvToRecordSet, [&] {
        if (IsDefined())
            m_pImp->ConvDecToCString(field);
        rs.SetFieldNull(&field, !IsDefined());
    });
}

/// Classes derived from this one may have external texts of their own.
bool Access::IsPlain(const ZelDtDecimal& value)
{
    return typeid(value) == typeid(ZelDtDecimal);
}

void Access::Store(ZelDtDecimal& value, CArchive& ar)
{
    zeldt::UsualExtern usual;
    if (!IsPlain(value) || !value.IsDefined() || !usual.Take(Number(value))) {
        StoreExtern(value, ar);
        return;
    }
    value.ZelDtBasis::Serialize(ar);
    Guarded(kSerialize, [&] {
        zeldt::WriteMadeText<zeldt::UsualExtern::kRoom>(
            ar, [&](char* out) { return usual.Write(out); });
        ar << WORD{kExternVersion};
    });
}

[[gnu::noinline]] void Access::StoreExtern(ZelDtDecimal& value, CArchive& ar)
{
    int defined = 0;
    unsigned short version = 0;
    const ZelDtString text = value.ConvToExtern(defined, version);
    value.ZelDtBasis::Serialize(ar);
    Guarded(kSerialize, [&] {
        zeldt::WriteText(ar, ViewOf(text));
        ar << WORD{version};
    });
}

void Access::Load(ZelDtDecimal& value, CArchive& ar)
{
    ZelDtDecimal::Rollback rollback(value);
    value.ZelDtBasis::Serialize(ar);
    zeldt::IncomingText text;
    WORD version = 0;
    Guarded(kSerialize, [&] {
        text.Read(ar, sizeof version);
        ar >> version;
    });
    RWDecimal96 number;
    if (IsPlain(value) && value.IsDefined() == 1 && version == kExternVersion &&
        zeldt::ReadUsualExtern(text.View(), number)) {
        ZelDtDecimal_Imp::InstallHandlers();
        Replace(value, number);
    } else {
        TakeExtern(value, text.View(), version);
    }
    rollback.Commit();
}

[[gnu::noinline]] void Access::TakeExtern(ZelDtDecimal& value, std::string_view text,
                                          unsigned short version)
{
    const ZelDtString external(CString(text.data(), static_cast<int>(text.size())));
    value.SetFromExtern(&external, value.IsDefined(), version);
}

void ZelDtDecimal::Serialize(CArchive& ar)
{
    // Only what the archive throws is reported under the name of this operation: the other errors
    // have the names of the operations that found them.
    if (ar.IsStoring())
        Access::Store(*this, ar);
    else
        Access::Load(*this, ar);
}
