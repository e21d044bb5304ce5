#include "platform/formats/datetext.h"

#include "platform/formats/numberscan.h"
#include "platform/formats/usualtexts.h"
#include "platform/runtime/ansi.h"
#include "platform/runtime/digits.h"
#include "platform/runtime/localtime.h"

#include <algorithm>
#include <chrono>

namespace zelformat {

namespace {

constexpr std::string_view kMonthNames[12] = {"Januar",    "Februar", "M\xE4rz",  "April",
                                              "Mai",       "Juni",    "Juli",     "August",
                                              "September", "Oktober", "November", "Dezember"};

constexpr std::size_t kShortNameLength = 3;
constexpr int kTmBaseYear = 1900;
constexpr std::ptrdiff_t kMostYearDigits = 5;

bool HasDate(DateParts parts)
{
    return parts != DateParts::Minutes;
}

bool ReadsTime(DateParts parts)
{
    return parts != DateParts::Date;
}

bool ShowsTime(DateParts parts)
{
    return ReadsTime(parts) && parts != DateParts::DateTypedTime;
}

/// Whether seconds may stand in the time of these parts.
bool TakesSeconds(DateParts parts)
{
    return ReadsTime(parts) && parts != DateParts::DateMinutes && parts != DateParts::Minutes;
}

bool IsMidnight(const std::tm& value)
{
    return value.tm_hour == 0 && value.tm_min == 0 && value.tm_sec == 0;
}

bool IsDateOfCalendar(long long year, int month, int day)
{
    // Beyond these limits the calendar types would cut the numbers.
    if (year < 0 || year > kLatestYear || month < 1 || month > 12 || day < 1 || day > 31)
        return false;
    return std::chrono::year_month_day(std::chrono::year(static_cast<int>(year)),
                                       std::chrono::month(static_cast<unsigned>(month)),
                                       std::chrono::day(static_cast<unsigned>(day)))
        .ok();
}

bool IsTimeOfDay(int hour, int minute, int second)
{
    const auto below = [](int value, int limit) { return value >= 0 && value < limit; };
    return below(hour, 24) && below(minute, 60) && below(second, 60);
}

long long YearOf(const std::tm& value)
{
    return static_cast<long long>(value.tm_year) + kTmBaseYear;
}

/// No shown date with its time is longer.
constexpr std::size_t kDateRoom = 32;

/// `number` is below 100.
char* PutFilled(int number, Fill fill, char* out)
{
    if (number >= 10 || (fill.on && fill.with == '0'))
        return zelrt::WriteTwoDigits(static_cast<unsigned>(number), out);
    if (fill.on)
        *out++ = fill.with;
    *out++ = static_cast<char>('0' + number);
    return out;
}

char* PutTwoDigits(int number, char* out)
{
    return zelrt::WriteTwoDigits(static_cast<unsigned>(number), out);
}

char* PutYear(int year, bool twoDigits, char* out)
{
    if (twoDigits)
        return PutTwoDigits(year % 100, out);
    if (year > 9999)
        return zelrt::WriteDigits(static_cast<std::uint32_t>(year), out);
    return PutTwoDigits(year % 100, PutTwoDigits(year / 100, out));
}

char* PutDate(const std::tm& value, const DateRules& rules, char* out)
{
    const Fill fill = rules.separator == '\0' ? Fill{true, '0'} : rules.twoDigits;
    const auto putSeparator = [&out, &rules] {
        if (rules.separator != '\0')
            *out++ = rules.separator;
    };

    out = PutFilled(value.tm_mday, fill, out);
    putSeparator();
    if (rules.month == MonthStyle::Number) {
        out = PutFilled(value.tm_mon + 1, fill, out);
    } else {
        const std::string_view name = kMonthNames[value.tm_mon];
        out = Put(rules.month == MonthStyle::ShortName ? name.substr(0, kShortNameLength) : name,
                  out);
    }
    putSeparator();
    return PutYear(static_cast<int>(YearOf(value)), rules.twoDigitYear, out);
}

char* PutTime(const std::tm& value, const DateRules& rules, char* out)
{
    out = PutFilled(value.tm_hour, rules.twoDigits, out);
    *out++ = ':';
    out = PutTwoDigits(value.tm_min, out);
    const bool always = rules.parts == DateParts::DateSeconds;
    if (always || (TakesSeconds(rules.parts) && value.tm_sec != 0)) {
        *out++ = ':';
        out = PutTwoDigits(value.tm_sec, out);
    }
    return out;
}

/// 2000 from 2000 to 2099, by the local calendar.
int CenturyNow()
{
    using namespace std::chrono;
    const sys_days today = floor<days>(system_clock::now());
    const auto centuryOf = [](int year) { return year / 100 * 100; };
    const auto centuryOn = [&](sys_days day) {
        return centuryOf(static_cast<int>(year_month_day(day).year()));
    };
    // No place on earth is a day away from universal time.
    const int century = centuryOn(today - days(1));
    std::tm local{};
    if (century == centuryOn(today + days(1)) || !zelrt::LocalTime(std::time(nullptr), local))
        return century;
    return centuryOf(local.tm_year + kTmBaseYear);
}

/// Reads a text piece by piece from the front.
class DateReader {
public:
    DateReader(std::string_view text, const DateRules& rules)
        : m_at(text.data()), m_end(m_at + text.size()), m_rules(rules)
    {}

    bool AtEnd() const { return m_at == m_end; }

    /// One or more blanks.
    bool Blanks()
    {
        const char* const before = m_at;
        while (m_at != m_end && IsBlank(*m_at))
            ++m_at;
        return m_at != before;
    }

    bool Date(bool alsoUnseparated, zelrt::DateNumbers& date)
    {
        const bool columns = (m_rules.separator == '\0' || alsoUnseparated) && AtColumns();
        return (columns ? Columns(date) : Separated(date)) && Year(date.year);
    }

    bool Time(bool withSeconds, TimeOfDay& time)
    {
        Filler();
        if (!Number(1, time.hour) || !Take(':') || !Number(2, time.minute))
            return false;
        time.second = 0;
        return !withSeconds || !Take(':') || Number(2, time.second);
    }

private:
    /// Day and month with nothing between them and the year.
    bool Columns(zelrt::DateNumbers& date) { return Number(2, date.day) && Number(2, date.month); }

    bool Separated(zelrt::DateNumbers& date)
    {
        const bool named = m_rules.month != MonthStyle::Number;
        if (!named && m_rules.separator == '\0')
            return false;
        Filler();
        return Number(1, date.day) && Separator() && Month(named, date.month) &&
               YearSeparator(named);
    }

    /// Whether day, month and year stand there with nothing between them.
    bool AtColumns() const
    {
        const std::size_t digits = CountDigits({m_at, m_end});
        return digits == 6 || digits == 8 || digits == 9;
    }

    bool Take(char expected)
    {
        const bool there = m_at != m_end && *m_at == expected;
        if (there)
            ++m_at;
        return there;
    }

    /// What the format puts in front of a single digit.
    void Filler()
    {
        if (m_rules.twoDigits.on && m_rules.twoDigits.with != '0')
            Take(m_rules.twoDigits.with);
    }

    bool Separator() { return m_rules.separator == '\0' || Take(m_rules.separator); }

    /// Behind the name of a month a blank does as well.
    bool YearSeparator(bool named) { return Separator() || (named && Blanks()); }

    /// Two digits, or only one where that is the least.
    bool Number(int least, int& value)
    {
        if (m_at == m_end || !zelrt::IsDigit(*m_at))
            return false;
        const bool two = m_end - m_at > 1 && zelrt::IsDigit(m_at[1]);
        if (least == 2 && !two)
            return false;
        value = two ? (m_at[0] - '0') * 10 + (m_at[1] - '0') : m_at[0] - '0';
        m_at += two ? 2 : 1;
        return true;
    }

    bool Month(bool named, int& month)
    {
        if (named) {
            Blanks();
            if (MonthName(month))
                return true;
            // Without a separator fewer digits than columns would run on into the year.
            if (m_rules.separator == '\0')
                return false;
        }
        Filler();
        return Number(1, month);
    }

    bool MonthName(int& month)
    {
        for (int index = 0; index < 12; ++index) {
            const std::string_view name = kMonthNames[index];
            for (const std::size_t length : {name.size(), kShortNameLength}) {
                if (StartsWith(name.substr(0, length))) {
                    m_at += length;
                    month = index + 1;
                    return true;
                }
            }
        }
        return false;
    }

    bool StartsWith(std::string_view name) const
    {
        const auto upper = [](char c) { return zelrt::AnsiToUpper(static_cast<unsigned char>(c)); };
        return static_cast<std::size_t>(m_end - m_at) >= name.size() &&
               std::equal(name.begin(), name.end(), m_at,
                          [upper](char a, char b) { return upper(a) == upper(b); });
    }

    bool Year(int& year)
    {
        const char* const first = m_at;
        const char* const last =
            first + std::min<std::ptrdiff_t>(kMostYearDigits + 1, m_end - first);
        for (year = 0; m_at != last && zelrt::IsDigit(*m_at); ++m_at)
            year = year * 10 + (*m_at - '0');
        const auto digits = m_at - first;
        const bool five = digits == kMostYearDigits && *first != '0';
        if (digits != 2 && digits != 4 && !five)
            return false;
        if (digits == 2)
            year += CenturyNow();
        return true;
    }

    const char* m_at;
    const char* m_end;
    const DateRules& m_rules;
};

/// Whether the text has the right shape. Whether the calendar has what it says is not looked at.
bool ReadFields(std::string_view text, const DateRules& rules, DateScope scope,
                zelrt::DateNumbers& date, TimeOfDay& time)
{
    DateReader reader(TrimBlanks(text), rules);
    if (HasDate(rules.parts) && !reader.Date(scope == DateScope::DateOnly, date))
        return false;
    const bool typedTime = !HasDate(rules.parts) || (ReadsTime(rules.parts) && reader.Blanks());
    if (typedTime && !reader.Time(TakesSeconds(rules.parts), time))
        return false;
    return reader.AtEnd();
}

} // namespace

Status ShowDate(const std::tm& value, const DateRules& rules, TextBuffer& text)
{
    const bool midnight = rules.parts == DateParts::DateTimeIfAny && IsMidnight(value);
    const bool showTime = ShowsTime(rules.parts) && !midnight;
    if (HasDate(rules.parts)) {
        const bool monthInYear = value.tm_mon >= 0 && value.tm_mon < 12;
        if (!monthInYear || !IsDateOfCalendar(YearOf(value), value.tm_mon + 1, value.tm_mday))
            return Status::OutOfRange;
    }
    const int second = TakesSeconds(rules.parts) ? value.tm_sec : 0;
    if (showTime && !IsTimeOfDay(value.tm_hour, value.tm_min, second))
        return Status::OutOfRange;

    char* out = text.Make(kDateRoom);
    if (HasDate(rules.parts))
        out = PutDate(value, rules, out);
    if (HasDate(rules.parts) && showTime)
        *out++ = ' ';
    if (showTime)
        out = PutTime(value, rules, out);
    text.EndAt(out);
    return Status::Ok;
}

Status ReadDate(std::string_view text, const DateRules& rules, DateScope scope, std::tm* value)
{
    zelrt::DateNumbers date{};
    TimeOfDay time{};
    if (!ReadPlainMoment(text, rules, date, time) && !ReadFields(text, rules, scope, date, time))
        return Status::Mismatch;
    if (HasDate(rules.parts) && !IsDateOfCalendar(date.year, date.month, date.day))
        return Status::OutOfRange;
    if (!IsTimeOfDay(time.hour, time.minute, time.second))
        return Status::OutOfRange;

    if (value == nullptr)
        return Status::Ok;
    if (HasDate(rules.parts)) {
        value->tm_mday = date.day;
        value->tm_mon = date.month - 1;
        value->tm_year = date.year - kTmBaseYear;
    }
    if (ReadsTime(rules.parts)) {
        value->tm_hour = time.hour;
        value->tm_min = time.minute;
        value->tm_sec = time.second;
    }
    value->tm_wday = 0;
    value->tm_yday = 0;
    value->tm_isdst = -1;
    return Status::Ok;
}

} // namespace zelformat
