#include "datetime/DTTIME.h"

#include "datetime/IMP/DTDATSQL.h"
#include "datetime/IMP/DTTIMI.h"
#include "numeric/DTLONG.h"
#include "numeric/IMP/DTINTREP.h"
#include "text/IMP/DTTEXT.h"

#include <cstring>

IMPLEMENT_SERIAL(ZelDtTime, ZelDtBasis, 1)

namespace {

using zeldt::Arithmetic;
using zeldt::Computed;
using zeldt::ErrorNo;
using zeldt::Guarded;
using zeldt::Narrowed;
using zeldt::NumberOrRaise;
using zeldt::Operation;

using Cell = zeldt::Cell<ZelDtTime_Imp>;
using zeldt::Raise;
using zeldt::RequireReadable;

using Rep = ZelDtTimeAccess;
using TimeMode = ZelDtTime::TimeMode;

constexpr Operation Op(const char* signature)
{
    return {"DTTIME", "ZelDtTime", signature};
}

constexpr Operation kFromMode = Op("ZelDtTime(ZelDtWorkingMode)");
constexpr Operation kFromText = Op("ZelDtTime(LPCTSTR,TimeMode)");
constexpr Operation kFromLongs = Op("ZelDtTime(LONG,LONG,TimeMode)");
constexpr Operation kFromLongValues = Op("ZelDtTime(ZelDtLong&,ZelDtLong&,TimeMode)");
constexpr Operation kFromString = Op("ZelDtTime(ZelDtString&,TimeMode)");
constexpr Operation kCopy = Op("ZelDtTime(ZelDtTime&)");
constexpr Operation kAssign = Op("Assign(ZelDtBasis&)");
constexpr Operation kNewObject = Op("NewObject()");
constexpr Operation kReset = Op("Reset(TimeMode)");
constexpr Operation kSetMode = Op("SetMode(TimeMode)");
constexpr Operation kGetValue = Op("GetValue(LPTSTR,INT)");
constexpr Operation kGetHour = Op("GetHour()");
constexpr Operation kGetMin = Op("GetMin(TimeMode)");
constexpr Operation kGetTime = Op("GetTime(TimeMode)");
constexpr Operation kSetValue = Op("SetValue(LPCTSTR,TimeMode)");
constexpr Operation kSetMin = Op("SetMin(LONG,TimeMode)");
constexpr Operation kSetTime = Op("SetTime(LONG,TimeMode)");
constexpr Operation kAddHour = Op("AddHour(LONG)");
constexpr Operation kSubHour = Op("SubHour(LONG)");
constexpr Operation kAddMin = Op("AddMin(LONG,TimeMode)");
constexpr Operation kSubMin = Op("SubMin(LONG,TimeMode)");
constexpr Operation kRound = Op("Round(RoundMode)");
constexpr Operation kConvToSQL = Op("ConvToSQL()");
constexpr Operation kSetFromSQL = Op("SetFromSQL(LONG)");
constexpr Operation kConvToOFL = Op("ConvToOFL(ZelFormat*)");
constexpr Operation kSetFromOFL = Op("SetFromOFL(LPCTSTR,ZelFormat*)");
constexpr Operation kConvToExtern = Op("ConvToExtern(BOOL&,USHORT&)");
constexpr Operation kSetFromExtern = Op("SetFromExtern(ZelDtString*,BOOL,USHORT)");
constexpr Operation kSetFromRecordSet = Op("SetFromRecordSet(CRecordset&,LONG&)");
constexpr Operation kConvToRecordSet = Op("ConvToRecordSet(CRecordset&,LONG&)");
constexpr Operation kSerialize = Op("Serialize(CArchive&)");
constexpr Operation kPlus = Op("operator+(ZelDtTime&)");
constexpr Operation kMinus = Op("operator-(ZelDtTime&)");
constexpr Operation kAdd = Op("operator+=(ZelDtTime&)");
constexpr Operation kSubtract = Op("operator-=(ZelDtTime&)");
constexpr Operation kLess = Op("operator<(ZelDtTime&)");
constexpr Operation kGreater = Op("operator>(ZelDtTime&)");
constexpr Operation kLessOrEqual = Op("operator<=(ZelDtTime&)");
constexpr Operation kGreaterOrEqual = Op("operator>=(ZelDtTime&)");
constexpr Operation kEqual = Op("operator==(ZelDtTime&)");
constexpr Operation kUnequal = Op("operator!=(ZelDtTime&)");

/// Builds the default format while the library is being loaded.
[[maybe_unused]] const ZelFormat& defaultFormatAtLoad = zeldt::TimeRules::DefaultFormat();

// Checked arguments

TimeMode Known(const Operation& operation, TimeMode mode)
{
    if (mode < ZelDtTime::Hundertstel || mode > ZelDtTime::Eigener)
        Raise(operation, ErrorNo::TimeMode);
    return mode;
}

ZelDtTime_Imp FromText(const Operation& operation, const char* text, TimeMode mode)
{
    Known(operation, mode);
    return ZelDtTime_Imp(zeldt::RequiredView(operation, text), mode);
}

ZelDtTime_Imp FromNumbers(const ZelDtLong& hours, const ZelDtLong& fraction, TimeMode mode)
{
    Known(kFromLongValues, mode);
    const auto read = [](const ZelDtLong& number) {
        return Guarded(kFromLongValues, [&] { return number.GetValue(); });
    };
    return ZelDtTime_Imp(read(hours), read(fraction), mode);
}

ZelDtTime_Imp FromString(const ZelDtString& source, TimeMode mode)
{
    Known(kFromString, mode);
    return source.IsDefined() ? ZelDtTime_Imp(zeldt::ViewOf(source), mode)
                              : ZelDtTime_Imp(0, 0, mode);
}

std::int32_t StepOf(ZelDtTime::RoundMode mode)
{
    switch (mode) {
    case ZelDtTime::RundenViertelstunde:
        return ZelDtTime_Imp::kUnitsPerHour / 4;
    case ZelDtTime::RundenHalbeStunde:
        return ZelDtTime_Imp::kUnitsPerHour / 2;
    case ZelDtTime::RundenStunde:
        return ZelDtTime_Imp::kUnitsPerHour;
    }
    Raise(kRound, ErrorNo::UnknownOption);
}

// Storing

/// Takes over amount and mode, a changed amount marking the value modified; defined afterwards.
void Store(ZelDtTime& time, const ZelDtTime_Imp& content)
{
    Rep::Store(time, content.value);
    Rep::Content(time).mode = content.mode;
}

// Arithmetic

/// The sum or difference, if it fits.
template <Arithmetic kind>
std::int32_t Sum(const Operation& operation, std::int32_t a, std::int64_t b)
{
    return NumberOrRaise(operation, Computed<kind, std::int32_t>(a, b));
}

/// `count` steps of the mode later or earlier.
template <Arithmetic kind>
void Shift(const Operation& operation, ZelDtTime& time, long count, TimeMode mode)
{
    Known(operation, mode);
    RequireReadable(operation, time);
    Guarded(operation, [&] {
        const ZelDtTime_Imp& content = Rep::Content(time);
        const std::int32_t unit = ZelDtTime_Imp::UnitsPerStep(content.ModeOr(mode));
        const std::int64_t shift =
            NumberOrRaise(operation, Computed<Arithmetic::Multiply, std::int64_t>(count, unit));
        Rep::Store(time, Sum<kind>(operation, content.value, shift));
    });
}

template <Arithmetic kind>
ZelDtTime Binary(const Operation& operation, const ZelDtTime& a, const ZelDtTime& b)
{
    return Guarded(operation, [&] {
        if (!Rep::CheckDefined(a, b))
            return ZelDtTime(ZelDtWmDefault);
        ZelDtTime result(0L, 0L, a.IsDefined() ? a.GetMode() : b.GetMode());
        Rep::Of(result) = Sum<kind>(operation, Rep::Of(a), Rep::Of(b));
        return result;
    });
}

/// An undefined result marks the value modified only if it was defined before.
template <Arithmetic kind>
ZelDtTime& Combine(const Operation& operation, ZelDtTime& a, const ZelDtTime& b)
{
    Guarded(operation, [&] {
        const int defined = Rep::CheckDefined(a, b);
        if (defined)
            Rep::Change(a, Sum<kind>(operation, Rep::Of(a), Rep::Of(b)));
        else
            Rep::Of(a) = 0;
        Rep::SetDefined(a, defined);
    });
    return a;
}

/// Negative, 0 or positive.
int Compare(const Operation& operation, const ZelDtTime& a, const ZelDtTime& b)
{
    RequireReadable(operation, a, b);
    const std::int32_t left = Rep::Of(a);
    const std::int32_t right = Rep::Of(b);
    return (left > right) - (left < right);
}

} // namespace

// Construction

ZelDtTime::ZelDtTime(ZelDtWorkingMode mode)
    : ZelDtBasis(Cell(0, mode)),
      m_pImp(Guarded(kFromMode, [this] { return new (*this) ZelDtTime_Imp(0, 0, Minuten); }))
{}

ZelDtTime::ZelDtTime(const char* text, TimeMode mode)
    : ZelDtBasis(Cell(1, ZelDtWmDefault)),
      m_pImp(Guarded(kFromText, [this, content = FromText(kFromText, text, mode)] {
          return new (*this) ZelDtTime_Imp(content);
      }))
{}

ZelDtTime::ZelDtTime(long hours, long fraction, TimeMode mode)
    : ZelDtBasis(Cell(1, ZelDtWmDefault)),
      m_pImp(Guarded(kFromLongs,
                     [this, content = ZelDtTime_Imp(hours, fraction, Known(kFromLongs, mode))] {
                         return new (*this) ZelDtTime_Imp(content);
                     }))
{}

ZelDtTime::ZelDtTime(const ZelDtLong& hours, const ZelDtLong& fraction, TimeMode mode)
    : ZelDtBasis(Cell(1, ZelDtWmDefault)),
      m_pImp(Guarded(kFromLongValues, [this, content = FromNumbers(hours, fraction, mode)] {
          return new (*this) ZelDtTime_Imp(content);
      }))
{}

ZelDtTime::ZelDtTime(const ZelDtString& source, TimeMode mode)
    : ZelDtBasis(Cell(source)),
      m_pImp(Guarded(kFromString, [this, content = FromString(source, mode)] {
          return new (*this) ZelDtTime_Imp(content);
      }))
{}

ZelDtTime::ZelDtTime(const ZelDtTime& source)
    : ZelDtBasis(Cell(source)),
      m_pImp(Guarded(kCopy, [&] { return new (*this) ZelDtTime_Imp(*source.m_pImp); }))
{}

ZelDtTime::~ZelDtTime()
{
    delete m_pImp;
}

// Assignment

ZelDtTime& ZelDtTime::operator=(const ZelDtTime& source)
{
    if (this != &source) {
        Rep::Copy(*this, source);
        m_pImp->mode = source.m_pImp->mode;
    }
    return *this;
}

void ZelDtTime::Assign(const ZelDtBasis& source)
{
    Rep::Assign(kAssign, *this, source);
}

ZelDtBasis* ZelDtTime::NewObject() const
{
    return Guarded(kNewObject, [&] { return new ZelDtTime(*this); });
}

// State

ZelDtTyps ZelDtTime::GetDtTyp() const
{
    return ZelDtTypTime;
}

void ZelDtTime::Clear()
{
    Rep::Clear(*this);
}

void ZelDtTime::Reset(TimeMode mode)
{
    m_pImp->mode = m_pImp->ModeOr(Known(kReset, mode));
    Rep::Store(*this, 0);
}

void ZelDtTime::SetMode(TimeMode mode)
{
    m_pImp->mode = m_pImp->ModeOr(Known(kSetMode, mode));
}

ZelDtTime::TimeMode ZelDtTime::GetMode() const
{
    return m_pImp->mode;
}

// Reading

char* ZelDtTime::GetValue(char* buffer, int size) const
{
    RequireReadable(kGetValue, *this);
    if (buffer == nullptr)
        Raise(kGetValue, ErrorNo::InitialValue);
    const zeldt::TimeText shown(m_pImp->value, m_pImp->mode);
    const std::string_view text = shown.View();
    if (size <= static_cast<int>(text.size()))
        Raise(kGetValue, ErrorNo::BufferTooSmall);
    std::memcpy(buffer, text.data(), text.size());
    buffer[text.size()] = '\0';
    return buffer;
}

long ZelDtTime::GetHour() const
{
    return Rep::Readable(kGetHour, *this) / ZelDtTime_Imp::kUnitsPerHour;
}

long ZelDtTime::GetMin(TimeMode mode) const
{
    Known(kGetMin, mode);
    return Rep::Readable(kGetMin, *this) % ZelDtTime_Imp::kUnitsPerHour /
           ZelDtTime_Imp::UnitsPerStep(m_pImp->ModeOr(mode));
}

long ZelDtTime::GetTime(TimeMode mode) const
{
    Known(kGetTime, mode);
    return Rep::Readable(kGetTime, *this) / ZelDtTime_Imp::UnitsPerStep(m_pImp->ModeOr(mode));
}

// Changing

void ZelDtTime::SetValue(const char* text, TimeMode mode)
{
    Store(*this, FromText(kSetValue, text, mode));
}

void ZelDtTime::SetHour(long hours)
{
    ZelDtTime_Imp content = *m_pImp;
    content.SetHours(hours);
    Store(*this, content);
}

void ZelDtTime::SetMin(long fraction, TimeMode mode)
{
    Known(kSetMin, mode);
    ZelDtTime_Imp content = *m_pImp;
    content.BuildTimeValue(content.value / ZelDtTime_Imp::kUnitsPerHour, fraction,
                           content.ModeOr(mode));
    Store(*this, content);
}

void ZelDtTime::SetTime(long amount, TimeMode mode)
{
    Known(kSetTime, mode);
    ZelDtTime_Imp content = *m_pImp;
    const TimeMode used = content.ModeOr(mode);
    const bool inHours = used == Stunden;
    content.BuildTimeValue(inHours ? amount : 0, inHours ? 0 : amount, used);
    Store(*this, content);
}

// Adding

void ZelDtTime::AddHour(long hours)
{
    Shift<Arithmetic::Add>(kAddHour, *this, hours, Stunden);
}

void ZelDtTime::SubHour(long hours)
{
    Shift<Arithmetic::Subtract>(kSubHour, *this, hours, Stunden);
}

void ZelDtTime::AddMin(long fraction, TimeMode mode)
{
    Shift<Arithmetic::Add>(kAddMin, *this, fraction, mode);
}

void ZelDtTime::SubMin(long fraction, TimeMode mode)
{
    Shift<Arithmetic::Subtract>(kSubMin, *this, fraction, mode);
}

void ZelDtTime::Round(RoundMode step)
{
    const std::int32_t length = StepOf(step);
    if (!IsDefined())
        return;
    Guarded(kRound, [&] {
        const std::int32_t units = m_pImp->value;
        const std::int32_t rest = units % length;
        if (rest > 0)
            Rep::Change(*this, Sum<Arithmetic::Add>(kRound, units - rest, length));
        else if (rest < 0)
            Rep::Change(*this, Sum<Arithmetic::Subtract>(kRound, units - rest, length));
    });
}

// SQL

ZelDtString ZelDtTime::ConvToSQL() const
{
    return Guarded(kConvToSQL, [&] { return zeldt::SqlText(*this, zelrt::kMostSignedDigits32); });
}

void ZelDtTime::SetFromSQL(long units)
{
    Rep::Store(*this, Narrowed<std::int32_t>(kSetFromSQL, units));
}

// Display

CString ZelDtTime::ConvToOFL(const ZelFormat* format) const
{
    return Guarded(kConvToOFL, [&] {
        CString shown;
        if (IsDefined())
            zeldt::ChooseFormat(format, GetFormat(), zeldt::TimeRules::DefaultFormat())
                .FormatTime(m_pImp->value, static_cast<ZelFormat::FormatZeitArt>(m_pImp->mode),
                            shown);
        return shown;
    });
}

void ZelDtTime::SetFromOFL(const char* text, const ZelFormat* format)
{
    Guarded(kSetFromOFL, [&] {
        if (text == nullptr || *text == '\0') {
            Clear();
            return;
        }
        ZelDtTime_Imp content = *m_pImp;
        auto mode = static_cast<ZelFormat::FormatZeitArt>(content.mode);
        zeldt::ChooseFormat(format, GetFormat(), zeldt::TimeRules::DefaultFormat())
            .ParseTime(zeldt::TextArgument(text), &content.value, &mode);
        content.mode = content.ModeOr(static_cast<TimeMode>(mode));
        Store(*this, content);
    });
}

// External text

ZelDtString ZelDtTime::ConvToExtern(int& defined, unsigned short& version) const
{
    if (!IsDefined())
        return Rep::ToExtern(kConvToExtern, *this, ZelDtWmDefault, defined, version);
    return Rep::ToExtern(kConvToExtern, *this, zeldt::ExternTime(m_pImp->value).Text(), defined,
                         version);
}

void ZelDtTime::SetFromExtern(const ZelDtString* text, int defined, unsigned short version)
{
    if (!Rep::HasExtern(kSetFromExtern, *this, text, defined, version))
        return;
    SetDefined(1);
    Rep::RequireConsistent(kSetFromExtern, *text);
    const std::optional<std::int64_t> units = zeldt::ReadExternTime(zeldt::ViewOf(*text));
    if (!units)
        Raise(kSetFromExtern, ErrorNo::ExternForm);
    Rep::Change(*this, Narrowed<std::int32_t>(kSetFromExtern, *units));
}

// Record set and archive

void ZelDtTime::SetFromRecordSet(CRecordset& rs, const long& field)
{
    Guarded(kSetFromRecordSet, [&] {
        if (rs.IsFieldNull(&field))
            Clear();
        else
            Rep::Store(*this, Narrowed<std::int32_t>(kSetFromRecordSet, field));
    });
}

void ZelDtTime::ConvToRecordSet(CRecordset& rs, long& field) const
{
    Rep::ToRecordSet(kConvToRecordSet, *this, rs, field);
}

void ZelDtTime::Serialize(CArchive& ar)
{
    Rep::Serialize(kSerialize, *this, ar);
}

// Arithmetic

ZelDtTime ZelDtTime::operator+(const ZelDtTime& right) const
{
    return Binary<Arithmetic::Add>(kPlus, *this, right);
}

ZelDtTime ZelDtTime::operator-(const ZelDtTime& right) const
{
    return Binary<Arithmetic::Subtract>(kMinus, *this, right);
}

ZelDtTime& ZelDtTime::operator+=(const ZelDtTime& right)
{
    return Combine<Arithmetic::Add>(kAdd, *this, right);
}

ZelDtTime& ZelDtTime::operator-=(const ZelDtTime& right)
{
    return Combine<Arithmetic::Subtract>(kSubtract, *this, right);
}

// Comparison

int ZelDtTime::operator<(const ZelDtTime& right) const
{
    return Compare(kLess, *this, right) < 0;
}

int ZelDtTime::operator>(const ZelDtTime& right) const
{
    return Compare(kGreater, *this, right) > 0;
}

int ZelDtTime::operator<=(const ZelDtTime& right) const
{
    return Compare(kLessOrEqual, *this, right) <= 0;
}

int ZelDtTime::operator>=(const ZelDtTime& right) const
{
    return Compare(kGreaterOrEqual, *this, right) >= 0;
}

int ZelDtTime::operator==(const ZelDtTime& right) const
{
    return Compare(kEqual, *this, right) == 0;
}

int ZelDtTime::operator!=(const ZelDtTime& right) const
{
    return Compare(kUnequal, *this, right) != 0;
}
