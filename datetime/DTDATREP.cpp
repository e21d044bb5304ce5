#include "datetime/DTDATIME.h"

#include "datetime/IMP/DTDATIMI.h"
#include "datetime/IMP/DTDATSQL.h"
#include "datetime/IMP/DTDATTXT.h"
#include "foundation/DTCHECK.h"
#include "foundation/DTFORMAT.h"
#include "platform/formats/usualtexts.h"
#include "platform/runtime/digits.h"
#include "text/IMP/DTVIEW.h"

#include <optional>

namespace {

using zeldt::DateTimeFields;
using zeldt::ErrorNo;
using zeldt::ExternKind;
using zeldt::Guarded;
using zeldt::Operation;
using zeldt::Raise;

using Access = ZelDtDateTimeAccess;

/// The representations report under the same module as the other functions.
constexpr Operation Op(const char* signature)
{
    return {"DTDATIMF", "ZelDtDateTime", signature};
}

constexpr Operation kConvToSQL = Op("ConvToSQL(SQL_Language)");
constexpr Operation kSetFromSQL = Op("SetFromSQL(LPCTSTR)");
constexpr Operation kMakeFormatString = Op("MakeFormatString(USHORT)");
constexpr Operation kConvToOFL = Op("ConvToOFL(ZelFormat*)");
constexpr Operation kSetFromOFL = Op("SetFromOFL(LPCTSTR,ZelFormat*)");
constexpr Operation kConvToExtern = Op("ConvToExtern(BOOL&,USHORT&)");
constexpr Operation kSetFromExtern = Op("SetFromExtern(ZelDtString*,BOOL,USHORT)");
constexpr Operation kSetFromRecordSet = Op("SetFromRecordSet(CRecordset&,TIMESTAMP_STRUCT&)");
constexpr Operation kConvToRecordSet = Op("ConvToRecordSet(CRecordset&,TIMESTAMP_STRUCT&)");
constexpr Operation kSerialize = Op("Serialize(CArchive&)");

constexpr unsigned short kExternVersion = 100;

const ZelFormat& DefaultFormat()
{
    static const ZelFormat format(ZelFormat::ZelFoStandard);
    return format;
}

/// Builds the default format while the library is being loaded.
[[maybe_unused]] const ZelFormat& defaultFormatAtLoad = DefaultFormat();

/// What a format shows of a value; a date has no time of day.
ZelFormat::FormatDatumUmfang ScopeOf(const ZelDtDateTime& value)
{
    return value.GetDtTyp() == ZelDtTypDateZp ? ZelFormat::ZelFoNurDatum
                                              : ZelFormat::ZelFoDatumMitZeit;
}

/// Reads a moment that has its usual shape and that the calendar has. The fields are new ones.
bool ReadUsual(const ZelFormat& format, std::string_view text, ZelFormat::FormatDatumUmfang scope,
               DateTimeFields& fields)
{
    const auto read = scope == ZelFormat::ZelFoNurDatum ? zelformat::DateScope::DateOnly
                                                        : zelformat::DateScope::DateTime;
    zelrt::DateNumbers date;
    zelformat::TimeOfDay time{};
    if (!zelformat::ReadUsualMoment(format, text, read, date, time) ||
        !zeldt::HasDay(date.month - 1, date.year, date.day) || time.hour > 23 || time.minute > 59)
        return false;
    fields.minute = time.minute;
    fields.hour = time.hour;
    fields.day = date.day;
    fields.month = date.month - 1;
    fields.year = date.year - zeldt::kBaseYear;
    return true;
}

// What a database server writes: "Jan 15 2000 12:30AM"

constexpr std::size_t kServerTextLength = 19;

/// The number that fills a part of the text, blanks in front.
int ServerNumber(std::string_view text, std::size_t position, std::size_t length)
{
    std::string_view part = text.substr(position, length);
    while (part.starts_with(' '))
        part.remove_prefix(1);
    int number = 0;
    for (const char c : part) {
        if (!zelrt::IsDigit(c))
            Raise(kSetFromSQL, ErrorNo::InitialValue);
        number = number * 10 + (c - '0');
    }
    if (part.empty())
        Raise(kSetFromSQL, ErrorNo::InitialValue);
    return number;
}

/// The month of an English or German abbreviation; January for any other text.
int ServerMonth(std::string_view name)
{
    struct Abbreviation {
        std::string_view name;
        int month;
    };
    static constexpr Abbreviation abbreviations[] = {
        {"Dec", 12}, {"Dez", 12}, {"Nov", 11}, {"Oct", 10},   {"Okt", 10},
        {"Sep", 9},  {"Aug", 8},  {"Jul", 7},  {"Jun", 6},    {"May", 5},
        {"Mai", 5},  {"Apr", 4},  {"Mar", 3},  {"M\xE4r", 3}, {"Feb", 2},
    };
    for (const Abbreviation& abbreviation : abbreviations) {
        if (abbreviation.name == name)
            return abbreviation.month;
    }
    return 1;
}

/// The hour of the day for one of a half day of 12 hours.
int HourOfDay(int hour, bool afternoon)
{
    if (hour == 12)
        return afternoon ? 12 : 0;
    return afternoon ? hour + 12 : hour;
}

void SetFromServerText(ZelDtDateTime_Imp& imp, std::string_view text)
{
    if (text.size() < kServerTextLength)
        Raise(kSetFromSQL, ErrorNo::InitialValue);
    imp.SetYear(ServerNumber(text, 7, 4));
    imp.SetMonth(ServerMonth(text.substr(0, 3)));
    imp.SetDay365(ServerNumber(text, 4, 2));
    imp.SetHour(HourOfDay(ServerNumber(text, 12, 2), text.substr(17, 2) == "PM"));
    imp.SetMin(ServerNumber(text, 15, 2));
}

// External text

ExternKind KindOf(const ZelDtDateTime_Imp& imp)
{
    if (imp.IsTimeOnly())
        return ExternKind::TimeOnly;
    const DateTimeFields& fields = imp.fields;
    const bool midnight = fields.hour == 0 && fields.minute == 0 && fields.second == 0;
    return midnight ? ExternKind::DateOnly : ExternKind::DateAndTime;
}

/// The layout that the first letter names.
std::optional<ExternKind> KindOf(std::string_view text)
{
    for (const ExternKind kind :
         {ExternKind::TimeOnly, ExternKind::DateOnly, ExternKind::DateAndTime}) {
        if (text.starts_with(static_cast<char>(kind)))
            return kind;
    }
    return std::nullopt;
}

void SetFromExternText(ZelDtDateTime_Imp& imp, std::string_view text, ExternKind kind)
{
    const zeldt::ExternNumbers numbers = zeldt::ReadExternText(text.substr(1), kind);
    if (kind == ExternKind::TimeOnly) {
        // A time without date has none that the setters know.
        imp.fields.year = 0;
        imp.fields.month = -1;
        imp.fields.day = 0;
    } else {
        imp.SetYear(numbers.year);
        imp.SetMonth(numbers.month);
        imp.SetDay365(numbers.day);
    }
    imp.SetHour(numbers.hour);
    imp.SetMin(numbers.minute);
    imp.SetSecond(numbers.second);
}

/// A field of a time stamp that holds the number, else error 8.
template <typename Field>
void SetStampField(Field& field, std::int64_t number)
{
    field = zeldt::Narrowed<Field>(kConvToRecordSet, number);
}

/// The end of a text, where NUL is put; error 8 when there is none, because a field has no room.
char* Ended(const Operation& operation, char* end)
{
    if (end == nullptr)
        Raise(operation, ErrorNo::OutOfRange);
    *end = '\0';
    return end;
}

} // namespace

// SQL

ZelDtString ZelDtDateTime::ConvToSQL(SQL_Language language) const
{
    return Guarded(kConvToSQL, [&] {
        char text[zeldt::kSqlRoom];
        const bool usual = language == SQL_Deutsch || !IsDefined();
        std::size_t length = usual ? zeldt::WriteSql(*this, text) : 0;
        if (length == 0)
            length = Access::WriteText(*this, language, text);
        return ZelDtString(text, static_cast<int>(length));
    });
}

void ZelDtDateTime::SetFromSQL(const char* text)
{
    Guarded(kSetFromSQL, [&] {
        if (text == nullptr)
            Raise(kSetFromSQL, ErrorNo::InitialValue);
        const std::string_view content(text);
        if (content == "NULL") {
            Clear();
            return;
        }
        SetDefined(1);
        ZelDtDateTime_Imp read(*m_pImp);
        SetFromServerText(read, content);
        Access::Replace(*this, read.fields);
    });
}

std::size_t ZelDtDateTimeAccess::WriteText(const ZelDtDateTime& value, int code, char* out)
{
    const char* const end =
        Ended(kMakeFormatString, zeldt::WriteSqlText(Of(value).fields, code, out));
    return static_cast<std::size_t>(end - out);
}

ZelDtString ZelDtDateTime::MakeFormatString(unsigned short code) const
{
    char text[zeldt::kDateTextRoom];
    const std::size_t length = Access::WriteText(*this, code, text);
    return Guarded(kMakeFormatString, [&] { return ZelDtString(text, static_cast<int>(length)); });
}

// Display

CString ZelDtDateTime::ConvToOFL(const ZelFormat* format) const
{
    return Guarded(kConvToOFL, [&] {
        CString shown;
        if (IsDefined())
            zeldt::ChooseFormat(format, GetFormat(), DefaultFormat())
                .FormatDateTime(zeldt::RecordOf(m_pImp->fields), ScopeOf(*this), shown);
        return shown;
    });
}

void ZelDtDateTime::SetFromOFL(const char* text, const ZelFormat* format)
{
    Guarded(kSetFromOFL, [&] {
        if (text == nullptr || *text == '\0') {
            Clear();
            return;
        }
        const ZelFormat& chosen = zeldt::ChooseFormat(format, GetFormat(), DefaultFormat());
        const std::string_view typed(text);
        const ZelFormat::FormatDatumUmfang scope = ScopeOf(*this);
        ZelDtDateTime_Imp read;
        if (!ReadUsual(chosen, typed, scope, read.fields)) {
            std::tm record = zeldt::RecordOf(m_pImp->fields);
            chosen.ParseDateTime(zeldt::TextArgument(text, typed.size()), scope, &record);
            read.fields = zeldt::FieldsOf(record);
        }
        // A year that an archive brought is not set anew.
        if (read.fields.year != m_pImp->fields.year)
            read.CheckYear(zeldt::InsideDateTime(kSetFromOFL.signature));
        Access::Replace(*this, read.fields);
        SetDefined(1);
    });
}

// External text

ZelDtString ZelDtDateTime::ConvToExtern(int& defined, unsigned short& version) const
{
    return Guarded(kConvToExtern, [&] {
        char text[zeldt::kDateTextRoom] = "";
        const char* end = text;
        if (IsDefined())
            end =
                Ended(kConvToExtern, zeldt::WriteExternText(m_pImp->fields, KindOf(*m_pImp), text));
        ZelDtString result = IsDefined() ? ZelDtString(text, static_cast<int>(end - text))
                                         : ZelDtString(ZelDtWmDefault);
        defined = IsDefined();
        version = kExternVersion;
        return result;
    });
}

void ZelDtDateTime::SetFromExtern(const ZelDtString* text, int defined, unsigned short version)
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
    const std::string_view content = zeldt::ViewOf(*text);
    const std::optional<ExternKind> kind = KindOf(content);
    if (!kind)
        Raise(kSetFromExtern, ErrorNo::ExternForm);
    Guarded(kSetFromExtern, [&] {
        ZelDtDateTime_Imp read(*m_pImp);
        SetFromExternText(read, content, *kind);
        Access::Replace(*this, read.fields);
    });
}

// Record set and archive

void ZelDtDateTime::SetFromRecordSet(CRecordset& rs, const TIMESTAMP_STRUCT& field)
{
    Guarded(kSetFromRecordSet, [&] {
        if (rs.IsFieldNull(&field)) {
            Clear();
            return;
        }
        ZelDtDateTime_Imp read(*m_pImp);
        read.SetYear(field.year);
        read.SetMonth(field.month);
        read.SetDay365(field.day);
        read.SetHour(field.hour);
        read.SetMin(field.minute);
        read.SetSecond(field.second);
        Access::Replace(*this, read.fields);
        SetDefined(1);
    });
}

void ZelDtDateTime::ConvToRecordSet(CRecordset& rs, TIMESTAMP_STRUCT& field) const
{
    Guarded(kConvToRecordSet, [&] {
        if (IsDefined()) {
            TIMESTAMP_STRUCT stamp = field;
            SetStampField(stamp.year, m_pImp->Year());
            SetStampField(stamp.month, m_pImp->Month());
            SetStampField(stamp.day, m_pImp->fields.day);
            SetStampField(stamp.hour, m_pImp->fields.hour);
            SetStampField(stamp.minute, m_pImp->fields.minute);
            SetStampField(stamp.second, m_pImp->fields.second);
            field = stamp;
        }
        rs.SetFieldNull(&field, !IsDefined());
    });
}

void ZelDtDateTime::Serialize(CArchive& ar)
{
    Guarded(kSerialize, [&] {
        const DateTimeFields& held = m_pImp->fields;
        if (ar.IsStoring()) {
            ZelDtBasis::Serialize(ar);
            ar << held.second << held.minute << held.hour << held.year << held.month << held.day;
            return;
        }
        Rollback rollback(*this);
        ZelDtBasis::Serialize(ar);
        DateTimeFields read = held;
        ar >> read.second >> read.minute >> read.hour >> read.year >> read.month >> read.day;
        rollback.Commit();
        Access::Replace(*this, read);
    });
}
