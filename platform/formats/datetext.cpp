#include "platform/formats/datetext.h"

#include "platform/formats/numbertext.h"
#include "platform/runtime/ansi.h"

#include <algorithm>
#include <chrono>

namespace zelformat {

namespace {

constexpr DateRules ModeDateRules(DateParts parts, bool fill)
{
    return {.parts = parts,
            .separator = '.',
            .twoDigitYear = false,
            .month = MonthStyle::Number,
            .twoDigits = {fill, '0'}};
}

constexpr DateRules kStandardDateTime = ModeDateRules(DateParts::DateTime, true);
constexpr DateRules kTechnicalDateTime = ModeDateRules(DateParts::DateTime, false);
constexpr DateRules kStandardDate = ModeDateRules(DateParts::DateTypedTime, true);
constexpr DateRules kTechnicalDate = ModeDateRules(DateParts::DateTypedTime, false);

constexpr std::string_view kMonthNames[12] = {"Januar",    "Februar", "M\xE4rz",  "April",
                                              "Mai",       "Juni",    "Juli",     "August",
                                              "September", "Oktober", "November", "Dezember"};

constexpr std::size_t kShortNameLength = 3;
constexpr int kTmBaseYear = 1900;

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
    if (year < 0 || year > kLatestYear || month < 1 || day < 1)
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

void AppendPadded(std::string& text, int number, std::size_t width, char fill)
{
    const std::string digits = std::to_string(number);
    text.append(width > digits.size() ? width - digits.size() : 0, fill);
    text += digits;
}

void AppendFilled(std::string& text, int number, Fill fill)
{
    AppendPadded(text, number, fill.on ? 2 : 0, fill.with);
}

void AppendDate(std::string& text, const std::tm& value, const DateRules& rules)
{
    const bool named = rules.month != MonthStyle::Number;
    const bool fixedColumns = rules.separator == '\0' && !named;
    const Fill fill = fixedColumns ? Fill{true, '0'} : rules.twoDigits;
    const auto appendSeparator = [&text, &rules] {
        if (rules.separator != '\0')
            text += rules.separator;
    };

    AppendFilled(text, value.tm_mday, fill);
    appendSeparator();
    if (named) {
        const std::string_view name = kMonthNames[value.tm_mon];
        text += rules.month == MonthStyle::ShortName ? name.substr(0, kShortNameLength) : name;
    } else {
        AppendFilled(text, value.tm_mon + 1, fill);
    }
    appendSeparator();
    const int year = static_cast<int>(YearOf(value));
    AppendPadded(text, rules.twoDigitYear ? year % 100 : year, rules.twoDigitYear ? 2 : 4, '0');
}

void AppendTime(std::string& text, const std::tm& value, const DateRules& rules)
{
    AppendFilled(text, value.tm_hour, rules.twoDigits);
    text += ':';
    AppendPadded(text, value.tm_min, 2, '0');
    const bool always = rules.parts == DateParts::DateSeconds;
    if (always || (TakesSeconds(rules.parts) && value.tm_sec != 0)) {
        text += ':';
        AppendPadded(text, value.tm_sec, 2, '0');
    }
}

struct CalendarDate {
    int day;
    int month;
    int year;
};

struct TimeOfDay {
    int hour;
    int minute;
    int second;
};

int CenturyNow()
{
    using namespace std::chrono;
    const year_month_day today(floor<days>(system_clock::now()));
    return static_cast<int>(today.year()) / 100 * 100;
}

/// Reads a text piece by piece from the front.
class DateReader {
public:
    DateReader(std::string_view text, const DateRules& rules) : m_rest(text), m_rules(rules) {}

    bool AtEnd() const { return m_rest.empty(); }

    /// One or more blanks.
    bool Blanks()
    {
        const std::size_t before = m_rest.size();
        m_rest = TrimBlanks(m_rest); // nothing stands behind: the whole text is trimmed
        return m_rest.size() < before;
    }

    bool Date(bool alsoUnseparated, CalendarDate& date)
    {
        const bool named = m_rules.month != MonthStyle::Number;
        const std::size_t run = LeadingDigits();
        const bool columns = run == 6 || run == 8 || run == 9;
        if (!named && columns && (m_rules.separator == '\0' || alsoUnseparated))
            return Number(2, 2, date.day) && Number(2, 2, date.month) && Year(date.year);
        if (!named && m_rules.separator == '\0')
            return false;
        Filler();
        return Number(1, 2, date.day) && Separator() && Month(named, date.month) &&
               YearSeparator(named) && Year(date.year);
    }

    bool Time(bool withSeconds, TimeOfDay& time)
    {
        Filler();
        if (!Number(1, 2, time.hour) || !Take(':') || !Number(2, 2, time.minute))
            return false;
        time.second = 0;
        return !withSeconds || !Take(':') || Number(2, 2, time.second);
    }

private:
    std::size_t LeadingDigits() const
    {
        const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
        return static_cast<std::size_t>(std::find_if_not(m_rest.begin(), m_rest.end(), isDigit) -
                                        m_rest.begin());
    }

    bool Take(char expected)
    {
        const bool there = !m_rest.empty() && m_rest[0] == expected;
        if (there)
            m_rest.remove_prefix(1);
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

    /// As many digits as there are, up to `most`.
    bool Number(std::size_t least, std::size_t most, int& value)
    {
        const std::size_t digits = std::min(LeadingDigits(), most);
        if (digits < least)
            return false;
        value = 0;
        for (const char digit : m_rest.substr(0, digits))
            value = value * 10 + (digit - '0');
        m_rest.remove_prefix(digits);
        return true;
    }

    bool Month(bool named, int& month)
    {
        if (named) {
            Blanks();
            if (MonthName(month))
                return true;
            // Without a separator the digits would run on into the year.
            if (m_rules.separator == '\0')
                return false;
        }
        Filler();
        return Number(1, 2, month);
    }

    bool MonthName(int& month)
    {
        for (int index = 0; index < 12; ++index) {
            const std::string_view name = kMonthNames[index];
            for (const std::size_t length : {name.size(), kShortNameLength}) {
                if (StartsWith(name.substr(0, length))) {
                    m_rest.remove_prefix(length);
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
        return m_rest.size() >= name.size() &&
               std::equal(name.begin(), name.end(), m_rest.begin(),
                          [upper](char a, char b) { return upper(a) == upper(b); });
    }

    bool Year(int& year)
    {
        const std::size_t digits = LeadingDigits();
        if (digits == 5 && m_rest[0] == '0')
            return false;
        if (digits != 2 && digits != 4 && digits != 5)
            return false;
        Number(digits, digits, year);
        if (digits == 2)
            year += CenturyNow();
        return true;
    }

    std::string_view m_rest;
    const DateRules& m_rules;
};

} // namespace

const DateRules& DateRulesOfMode(const ModeRules& mode, DateScope scope) noexcept
{
    if (scope == DateScope::DateOnly)
        return mode.technical ? kTechnicalDate : kStandardDate;
    return mode.technical ? kTechnicalDateTime : kStandardDateTime;
}

Status ShowDate(const std::tm& value, const DateRules& rules, std::string& text)
{
    const bool midnight = rules.parts == DateParts::DateTimeIfAny && IsMidnight(value);
    const bool showTime = ShowsTime(rules.parts) && !midnight;
    if (HasDate(rules.parts)) {
        const bool monthInYear = value.tm_mon >= 0 && value.tm_mon < 12;
        if (!monthInYear || !IsDateOfCalendar(YearOf(value), value.tm_mon + 1, value.tm_mday))
            return Status::OutOfRange;
    }
    if (showTime && !IsTimeOfDay(value.tm_hour, value.tm_min, value.tm_sec))
        return Status::OutOfRange;

    std::string shown;
    if (HasDate(rules.parts))
        AppendDate(shown, value, rules);
    if (HasDate(rules.parts) && showTime)
        shown += ' ';
    if (showTime)
        AppendTime(shown, value, rules);
    text = std::move(shown);
    return Status::Ok;
}

Status ReadDate(std::string_view text, const DateRules& rules, DateScope scope, std::tm& value)
{
    DateReader reader(TrimBlanks(text), rules);
    CalendarDate date{};
    TimeOfDay time{};
    if (HasDate(rules.parts) && !reader.Date(scope == DateScope::DateOnly, date))
        return Status::Mismatch;
    const bool typedTime = !HasDate(rules.parts) || (ReadsTime(rules.parts) && reader.Blanks());
    if (typedTime && !reader.Time(TakesSeconds(rules.parts), time))
        return Status::Mismatch;
    if (!reader.AtEnd())
        return Status::Mismatch;
    if (HasDate(rules.parts) && !IsDateOfCalendar(date.year, date.month, date.day))
        return Status::OutOfRange;
    if (!IsTimeOfDay(time.hour, time.minute, time.second))
        return Status::OutOfRange;

    if (HasDate(rules.parts)) {
        value.tm_mday = date.day;
        value.tm_mon = date.month - 1;
        value.tm_year = date.year - kTmBaseYear;
    }
    if (ReadsTime(rules.parts)) {
        value.tm_hour = time.hour;
        value.tm_min = time.minute;
        value.tm_sec = time.second;
    }
    value.tm_wday = 0;
    value.tm_yday = 0;
    value.tm_isdst = -1;
    return Status::Ok;
}

} // namespace zelformat
