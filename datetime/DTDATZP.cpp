#include "datetime/DTDATZP.h"

#include "datetime/DTTIME.h"
#include "datetime/IMP/DTDATIMI.h"
#include "numeric/DTSHORT.h"
#include "text/DTSTRING.h"

IMPLEMENT_SERIAL(ZelDtDateZp, ZelDtDateTime, 1)

namespace {

using zeldt::DateTimeFields;
using zeldt::ErrorNo;
using zeldt::Guarded;
using zeldt::Operation;

using Access = ZelDtDateTimeAccess;

constexpr Operation Op(const char* signature)
{
    return {"DTDATZP", "ZelDtDateZp", signature};
}

constexpr Operation kAssign = Op("Assign(ZelDtBasis&)");
constexpr Operation kNewObject = Op("NewObject()");
constexpr Operation kSetFromOFL = Op("SetFromOFL(LPCTSTR,ZelFormat*)");
constexpr Operation kSerialize = Op("Serialize(CArchive&)");
constexpr Operation kPlusTime = Op("operator+(ZelDtTime&)");
constexpr Operation kMinusTime = Op("operator-(ZelDtTime&)");

/// Moves by a time; `direction` is 1 or -1.
ZelDtDateZp Moved(const Operation& operation, const ZelDtDateZp& start, const ZelDtTime& span,
                  int direction)
{
    return Guarded(operation, [&] {
        if (!Access::CheckDefined(start, span))
            return ZelDtDateZp(ZelDtWmDefault);
        ZelDtDateTime moved(start);
        Access::Shift(moved, std::int64_t{span.GetTime(ZelDtTime::Minuten)} * direction);
        return ZelDtDateZp(moved);
    });
}

} // namespace

// Construction

ZelDtDateZp::ZelDtDateZp(ZelDtWorkingMode mode) : ZelDtDateTime(mode) {}

ZelDtDateZp::ZelDtDateZp(const std::tm* record) : ZelDtDateTime(record)
{
    WipeTime();
}

ZelDtDateZp::ZelDtDateZp(const ZelDtDateTime& source) : ZelDtDateTime(source)
{
    WipeTime();
}

ZelDtDateZp::ZelDtDateZp(const ZelDtDateZp& source) : ZelDtDateTime(source)
{
    WipeTime();
}

ZelDtDateZp::ZelDtDateZp(std::time_t moment) : ZelDtDateTime(moment)
{
    WipeTime();
}

ZelDtDateZp::ZelDtDateZp(const ZelDtShort& day, const ZelDtShort& month, const ZelDtShort& year)
    : ZelDtDateTime(day, month, year)
{
    WipeTime();
}

ZelDtDateZp::ZelDtDateZp(short day, short month, short year)
    : ZelDtDateZp(int{day}, int{month}, int{year})
{}

ZelDtDateZp::ZelDtDateZp(int day, int month, int year) : ZelDtDateTime(day, month, year, 0, 0, 0)
{
    WipeTime();
}

ZelDtDateZp::ZelDtDateZp(const char* text) : ZelDtDateTime(text, DateString)
{
    WipeTime();
}

ZelDtDateZp::ZelDtDateZp(const ZelDtString& source) : ZelDtDateTime(source, DateString)
{
    WipeTime();
}

ZelDtDateZp::~ZelDtDateZp() = default;

// Assignment

ZelDtDateZp& ZelDtDateZp::operator=(const ZelDtDateZp& source)
{
    if (this != &source) {
        ZelDtDateTime::operator=(source);
        WipeTime();
    }
    return *this;
}

void ZelDtDateZp::Assign(const ZelDtBasis& source)
{
    if (!source.IsKindOf(RUNTIME_CLASS(ZelDtDateZp)))
        zeldt::Raise(kAssign, ErrorNo::DifferentTypes);
    Guarded(kAssign, [&] { *this = static_cast<const ZelDtDateZp&>(source); });
}

ZelDtBasis* ZelDtDateZp::NewObject() const
{
    return Guarded(kNewObject, [&] { return new ZelDtDateZp(*this); });
}

// State and reading

ZelDtTyps ZelDtDateZp::GetDtTyp() const
{
    return ZelDtTypDateZp;
}

ZelDtDateZp::operator std::tm() const
{
    return zeldt::RecordOf(Access::Of(*this).fields);
}

// Display

void ZelDtDateZp::SetFromOFL(const char* text, const ZelFormat* format)
{
    Guarded(kSetFromOFL, [&] {
        ZelDtDateTime::SetFromOFL(text, format);
        WipeTime();
    });
}

// Archive

void ZelDtDateZp::Serialize(CArchive& ar)
{
    Guarded(kSerialize, [&] {
        const DateTimeFields& held = Access::Of(*this).fields;
        // Of the base classes only the first one's part: the date-time would add its own fields.
        if (ar.IsStoring()) {
            ZelDtBasis::Serialize(ar); // NOLINT(bugprone-parent-virtual-call)
            ar << held.year << held.month << held.day;
            return;
        }
        Rollback rollback(*this);
        ZelDtBasis::Serialize(ar); // NOLINT(bugprone-parent-virtual-call)
        DateTimeFields read = held;
        ar >> read.year >> read.month >> read.day;
        rollback.Commit();
        Access::Replace(*this, read);
        WipeTime();
    });
}

// Spans

ZelDtDateZp ZelDtDateZp::operator+(const ZelDtTime& span) const
{
    return Moved(kPlusTime, *this, span, 1);
}

ZelDtDateZp ZelDtDateZp::operator-(const ZelDtTime& span) const
{
    return Moved(kMinusTime, *this, span, -1);
}
