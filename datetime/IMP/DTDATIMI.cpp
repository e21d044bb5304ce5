#include "datetime/IMP/DTDATIMI.h"

#include "datetime/IMP/DTCLOCKI.h"
#include "datetime/IMP/DTDATTXT.h"
#include "platform/runtime/digits.h"
#include "platform/runtime/localtime.h"

namespace {

using zeldt::ErrorNo;
using zeldt::Guarded;
using zeldt::Operation;
using zeldt::Raise;
using zelrt::IsDigit;

constexpr Operation Op(const char* signature)
{
    return zeldt::InsideDateTime(signature);
}

constexpr Operation kFromRecord = Op("ZelDtDateTime_Imp(struct tm*)");
constexpr Operation kFromMoment = Op("ZelDtDateTime_Imp(time_t) ");
constexpr Operation kFromSixShorts = Op("ZelDtDateTime_Imp(SHORT,SHORT,SHORT,SHORT,SHORT,SHORT)");
constexpr Operation kFromTwoShorts = Op("ZelDtDateTime_Imp(SHORT,SHORT)");
constexpr Operation kFromText = Op("ZelDtDateTime_Imp(LPCTSTR,FormOfDateTimeString)");
constexpr Operation kSetYear = Op("SetYear(SHORT)");
constexpr Operation kSetMonth = Op("SetMonth(SHORT)");
constexpr Operation kSetDay365 = Op("SetDay365(SHORT)");
constexpr Operation kSetHour = Op("SetHour(SHORT) ");
constexpr Operation kSetMin = Op("SetMin(SHORT)");
constexpr Operation kSetSecond = Op("SetSecond(SHORT)");
constexpr Operation kSetSysDateTime = Op("SetSysDateTime()");
constexpr Operation kSetDate = Op("SetDate(LPCTSTR)");
constexpr Operation kSetTime = Op("SetTime(LPCTSTR)");
constexpr Operation kSetDateTime = Op("SetDateTime(LPCTSTR)");
constexpr Operation kAddDay365 = Op("AddDay365(SHORT)");
constexpr Operation kSubDay365 = Op("SubDay365(SHORT)");

constexpr int kFirstYear = 1753;
constexpr int kLastShortYear = 99; ///< years up to here have two digits

std::string_view RequiredText(const Operation& operation, const char* text)
{
    if (text == nullptr)
        Raise(operation, ErrorNo::InitialValue);
    return text;
}

void RequireLayout(const Operation& operation, bool kept)
{
    if (!kept)
        Raise(operation, ErrorNo::InitialValue);
}

std::tm LocalFields(const Operation& operation, std::time_t moment)
{
    std::tm record{};
    if (!zelrt::LocalTime(moment, record))
        Raise(operation, ErrorNo::InitialValue);
    return record;
}

/// All fields of a valid framework date in one go.
SYSTEMTIME SystemTimeOf(const COleDateTime& source)
{
    SYSTEMTIME moment{};
    source.GetAsSystemTime(moment);
    return moment;
}

/// The number of the century that the clock stands in: 19 for 1900 to 1999.
std::int64_t CurrentCentury(const Operation& operation)
{
    constexpr std::int64_t day = 86400;
    // Far enough for every clock that is right, near enough for the numbers below.
    constexpr std::int64_t limit = 1'000'000'000'000'000;
    const std::time_t now = zeldt::Now();
    if (now > -limit && now < limit) {
        // No place on earth is a day away from universal time.
        const std::int64_t today =
            zeldt::DayNumber({1970, 0, 1}) + zeldt::FloorDivide(std::int64_t{now}, day);
        const std::int64_t earliest = zeldt::YearOfDay(today - 1) / 100;
        if (earliest == zeldt::YearOfDay(today + 1) / 100)
            return earliest;
    }
    return (std::int64_t{LocalFields(operation, now).tm_year} + zeldt::kBaseYear) / 100;
}

constexpr int DigitOf(char c)
{
    return c - '0';
}

constexpr bool IsSeparator(char c)
{
    return c == '.' || c == '/';
}

/// Whether the setters, one after the other, would come to these very numbers.
constexpr bool IsInRange(const zelrt::DateNumbers& date)
{
    return date.year >= kFirstYear && zeldt::HasDay(date.month - 1, date.year, date.day);
}

/// Where the day ends and where the month does.
struct DateSeparators {
    std::size_t first;
    std::size_t second;
};

/// Points separate; a slash does where there is no point, the first one of the whole text each
/// time.
DateSeparators FindSeparators(std::string_view text)
{
    constexpr std::size_t none = std::string_view::npos;
    std::size_t slash = none;
    const auto find = [&](std::size_t from) {
        const std::size_t point = text.find('.', from);
        if (point == none && slash == none)
            slash = text.find('/');
        return point != none ? point : slash;
    };
    const std::size_t first = find(0);
    RequireLayout(kSetDate, first <= 2);
    const std::size_t second = find(first + 1);
    RequireLayout(kSetDate, second != none && second <= first + 3);
    return {first, second};
}

/// The year at the front of what stands behind the second separator: as many characters as count.
std::string_view YearPart(std::string_view rest)
{
    if (rest.size() < 5)
        return rest;
    const std::size_t blank = rest.find(' ');
    RequireLayout(kSetDate, blank != std::string_view::npos);
    return rest.substr(0, blank < 3 ? 2 : 4);
}

int TwoDigits(std::string_view part)
{
    RequireLayout(kSetDate, part.size() >= 2 && IsDigit(part[0]) && IsDigit(part[1]));
    return DigitOf(part[0]) * 10 + DigitOf(part[1]);
}

/// A number of one or two digits that begins `part`; a separator in second place ends it.
int DayOrMonth(std::string_view part)
{
    RequireLayout(kSetDate, !part.empty() && IsDigit(part[0]));
    if (part.size() == 1 || IsSeparator(part[1]))
        return DigitOf(part[0]);
    return TwoDigits(part);
}

} // namespace

std::tm zeldt::RecordOf(const DateTimeFields& fields)
{
    std::tm record{};
    record.tm_sec = fields.second;
    record.tm_min = fields.minute;
    record.tm_hour = fields.hour;
    record.tm_mday = fields.day;
    record.tm_mon = fields.month;
    record.tm_year = fields.year;
    record.tm_wday = fields.weekDay;
    record.tm_yday = fields.yearDay;
    record.tm_isdst = fields.daylight;
    return record;
}

zeldt::DateTimeFields zeldt::FieldsOf(const std::tm& record)
{
    return {record.tm_sec,  record.tm_min,  record.tm_hour, record.tm_mday, record.tm_mon,
            record.tm_year, record.tm_wday, record.tm_yday, record.tm_isdst};
}

// Construction

ZelDtDateTime_Imp::ZelDtDateTime_Imp(const std::tm* record)
{
    Guarded(kFromRecord, [&] {
        RequireLayout(kFromRecord, record != nullptr);
        const auto narrow = [](std::int64_t number) { return static_cast<std::int16_t>(number); };
        SetYear(narrow(record->tm_year));
        SetMonth(narrow(std::int64_t{record->tm_mon} + 1));
        SetDay365(narrow(record->tm_mday));
        SetHour(narrow(record->tm_hour));
        SetMin(narrow(record->tm_min));
        SetSecond(narrow(record->tm_sec));
    });
}

ZelDtDateTime_Imp::ZelDtDateTime_Imp(std::time_t moment)
    : fields(zeldt::FieldsOf(LocalFields(kFromMoment, moment)))
{
    CheckYear(kFromMoment);
}

ZelDtDateTime_Imp::ZelDtDateTime_Imp(int day, int month, int year, int hour, int minute, int second)
{
    Guarded(kFromSixShorts, [&] {
        SetYear(year);
        SetMonth(month);
        SetDay365(day);
        SetHour(hour);
        SetMin(minute);
        SetSecond(second);
    });
}

ZelDtDateTime_Imp::ZelDtDateTime_Imp(const COleDateTime& source)
    : ZelDtDateTime_Imp(SystemTimeOf(source))
{}

ZelDtDateTime_Imp::ZelDtDateTime_Imp(const SYSTEMTIME& moment)
    : ZelDtDateTime_Imp(moment.wDay, moment.wMonth, moment.wYear, moment.wHour, moment.wMinute,
                        moment.wSecond)
{}

ZelDtDateTime_Imp::ZelDtDateTime_Imp(int hour, int minute)
{
    Guarded(kFromTwoShorts, [&] {
        if (hour == ZelDtDateTime::ksDateTimeNow) {
            SetSysDateTime();
            return;
        }
        SetHour(hour);
        SetMin(minute);
    });
}

ZelDtDateTime_Imp::ZelDtDateTime_Imp(const char* text, ZelDtDateTime::FormOfDateTimeString form)
{
    Guarded(kFromText, [&] {
        if (form == ZelDtDateTime::TimeString)
            SetTime(text);
        else if (form == ZelDtDateTime::DateString)
            SetDate(text);
        else
            SetDateTime(text);
    });
}

// Setters

void ZelDtDateTime_Imp::SetYear(std::int64_t year)
{
    const bool isShort = year <= kLastShortYear;
    StoreYear(kSetYear,
              isShort ? year + (CurrentCentury(kSetYear) - 19) * 100 : year - zeldt::kBaseYear);
    CheckYear(kSetYear);
    ClampLeapDay();
}

void ZelDtDateTime_Imp::SetMonth(std::int64_t month)
{
    if (!zeldt::IsMonth(month - 1))
        Raise(kSetMonth, ErrorNo::Month);
    fields.month = static_cast<std::int32_t>(month - 1);
    const std::int64_t length = zeldt::MonthLength(fields.month, Year());
    if (fields.day > length)
        fields.day = static_cast<std::int32_t>(length);
}

void ZelDtDateTime_Imp::SetDay365(int day)
{
    if (!zeldt::HasDay(fields.month, Year(), day))
        Raise(kSetDay365, ErrorNo::Day);
    fields.day = day;
}

void ZelDtDateTime_Imp::SetHour(int hour)
{
    if (hour < 0 || hour > 23)
        Raise(kSetHour, ErrorNo::Hour);
    fields.hour = hour;
}

void ZelDtDateTime_Imp::SetMin(int minute)
{
    if (minute < 0 || minute > 59)
        Raise(kSetMin, ErrorNo::Minute);
    fields.minute = minute;
}

void ZelDtDateTime_Imp::SetSecond(int second)
{
    if (second < 0 || second > 59)
        Raise(kSetSecond, ErrorNo::Second);
    fields.second = second;
}

void ZelDtDateTime_Imp::SetSysDateTime()
{
    fields = zeldt::FieldsOf(LocalFields(kSetSysDateTime, zeldt::Now()));
    fields.weekDay = 0;
    fields.yearDay = 0;
    fields.daylight = -1;
    CheckYear(kSetSysDateTime);
}

// Texts

void ZelDtDateTime_Imp::SetDate(const char* text)
{
    if (text == nullptr)
        Raise(kSetDate, ErrorNo::InitialValue);
    ReadDate(text);
}

void ZelDtDateTime_Imp::SetTime(const char* text)
{
    ReadTime(RequiredText(kSetTime, text));
}

void ZelDtDateTime_Imp::SetDateTime(const char* text)
{
    constexpr std::size_t shortest = 16;
    constexpr std::size_t timePosition = 11;
    const std::string_view both = RequiredText(kSetDateTime, text);
    RequireLayout(kSetDateTime, both.size() >= shortest);
    ReadDate(text);
    ReadTime(both.substr(timePosition));
}

void ZelDtDateTime_Imp::ReadDate(const char* text)
{
    zelrt::DateNumbers date;
    if (!zeldt::ReadUsualDate(text, date)) {
        ReadUnusualDate(text);
    } else if (IsInRange(date)) {
        fields.year = date.year - zeldt::kBaseYear;
        fields.month = date.month - 1;
        fields.day = date.day;
    } else {
        SetYear(date.year);
        SetMonth(date.month);
        SetDay365(date.day);
    }
}

void ZelDtDateTime_Imp::ReadUnusualDate(std::string_view text)
{
    RequireLayout(kSetDate, text.size() >= 6);
    const DateSeparators separators = FindSeparators(text);

    const std::string_view year = YearPart(text.substr(separators.second + 1));
    const int century = TwoDigits(year);
    if (year.size() == 2) {
        SetYear(century);
    } else {
        const int number = century * 100 + TwoDigits(year.substr(2));
        if (number == 0) {
            // All zeros are the year 0, not one of two digits; that is too early.
            StoreYear(kSetDate, -zeldt::kBaseYear);
            CheckYear(kSetDate);
        } else {
            SetYear(number);
        }
    }
    SetMonth(DayOrMonth(text.substr(separators.first + 1)));
    SetDay365(DayOrMonth(text));
}

void ZelDtDateTime_Imp::ReadTime(std::string_view text)
{
    const auto require = [](bool kept) { RequireLayout(kSetTime, kept); };
    const auto number = [text](std::size_t at) {
        return DigitOf(text[at]) * 10 + DigitOf(text[at + 1]);
    };
    const auto areDigits = [text](std::size_t at) {
        return IsDigit(text[at]) && IsDigit(text[at + 1]);
    };

    require(text.size() >= 5 && text[2] == ':');
    require((text[0] == ' ' || IsDigit(text[0])) && IsDigit(text[1]));
    SetHour(text[0] == ' ' ? DigitOf(text[1]) : number(0));
    require(areDigits(3));
    SetMin(number(3));
    if (text.size() != 8) {
        fields.second = 0;
        return;
    }
    require(text[5] == ':' && areDigits(6));
    SetSecond(number(6));
}

// Days and years

void ZelDtDateTime_Imp::AddDays(std::int64_t days)
{
    if (!zeldt::IsMonth(fields.month))
        Raise(kAddDay365, ErrorNo::Month);
    StoreDate(kAddDay365, zeldt::AddDays(zeldt::DateOf(fields), days));
}

void ZelDtDateTime_Imp::SubtractDays(std::int64_t days)
{
    if (!zeldt::IsMonth(fields.month))
        Raise(kSubDay365, ErrorNo::Month);
    StoreDate(kSubDay365, zeldt::SubtractDays(zeldt::DateOf(fields), days));
}

void ZelDtDateTime_Imp::SubtractYears(const Operation& operation, std::int64_t years)
{
    StoreYear(operation, fields.year - years);
    CheckYear(operation);
}

void ZelDtDateTime_Imp::ClampLeapDay()
{
    if (fields.month == zeldt::kFebruary && fields.day > 28 && !zeldt::IsLeapYear(Year()))
        fields.day = 28;
}

void ZelDtDateTime_Imp::CheckYear(const Operation& operation) const
{
    if (Year() < kFirstYear)
        Raise(operation, ErrorNo::Year);
}

void ZelDtDateTime_Imp::StoreDate(const Operation& operation, const zeldt::CalendarDate& date)
{
    StoreYear(operation, date.year - zeldt::kBaseYear);
    fields.month = static_cast<std::int32_t>(date.month);
    fields.day = static_cast<std::int32_t>(date.day);
}

void ZelDtDateTime_Imp::StoreYear(const Operation& operation, std::int64_t yearSince1900)
{
    const auto stored = static_cast<std::int32_t>(yearSince1900);
    if (stored != yearSince1900)
        Raise(operation, ErrorNo::OutOfRange);
    fields.year = stored;
}
