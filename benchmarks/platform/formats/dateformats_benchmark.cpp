/// Dates, times of day and durations as people see and type them, by German conventions.
///
/// strftime, strptime, fmt-chrono: the C library's record, as the library's format has it.
/// snprintf, fmt, sscanf: its numbers one by one. from_chars: these too, and the marks between them
/// by hand. icu: a formatter for a pattern, made once, on milliseconds since 1970 in UTC.

#include "benchmarks/inputs.h"
#include "benchmarks/platform/formats/showing.h"
#include "datetime/DTDATZP.h"
#include "datetime/DTTIME.h"

#include <charconv>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>

#ifdef ZELBENCH_HAVE_FMT
#include <fmt/chrono.h>
#include <fmt/format.h>
#endif
#ifdef ZELBENCH_HAVE_ICU
#include <unicode/udat.h>
#endif

namespace zelbench {

namespace {

constexpr int kBaseYear = 1900;
constexpr int kMinutesPerDay = 24 * 60;

struct Moment {
    int year;
    int month;
    int day;
    int minutes; ///< since midnight
};

/// From 1900 to 2099, all days and minutes equally often.
std::vector<Moment> Moments(std::size_t count, bool timeOfDay, unsigned seed)
{
    using namespace std::chrono;
    constexpr sys_days first = year{1900} / January / 1;
    constexpr sys_days end = year{2100} / January / 1;
    Random random(seed);
    std::vector<Moment> moments;
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t offset = Below(random, static_cast<std::size_t>((end - first).count()));
        const year_month_day date{first + days{static_cast<int>(offset)}};
        moments.push_back({static_cast<int>(date.year()),
                           static_cast<int>(static_cast<unsigned>(date.month())),
                           static_cast<int>(static_cast<unsigned>(date.day())),
                           timeOfDay ? static_cast<int>(Below(random, kMinutesPerDay)) : 0});
    }
    return moments;
}

std::vector<int> Minutes(std::size_t count, unsigned seed)
{
    Random random(seed);
    std::vector<int> minutes;
    while (minutes.size() < count)
        minutes.push_back(static_cast<int>(Below(random, kMinutesPerDay)));
    return minutes;
}

std::tm RecordOf(const Moment& moment)
{
    std::tm record{};
    record.tm_year = moment.year - kBaseYear;
    record.tm_mon = moment.month - 1;
    record.tm_mday = moment.day;
    record.tm_hour = moment.minutes / 60;
    record.tm_min = moment.minutes % 60;
    record.tm_isdst = -1;
    return record;
}

/// The fields as decimal digits: 200003051407. Both ways of asking give the same.
constexpr std::int64_t Packed(int year, int month, int day, int hour, int minute)
{
    return (((std::int64_t{year} * 100 + month) * 100 + day) * 100 + hour) * 100 + minute;
}

std::int64_t Packed(const std::tm& record)
{
    return Packed(record.tm_year + kBaseYear, record.tm_mon + 1, record.tm_mday, record.tm_hour,
                  record.tm_min);
}

template <typename Item, typename Convert>
auto Converted(const std::vector<Item>& items, Convert convert)
{
    std::vector<decltype(convert(items.front()))> converted;
    for (const Item& item : items)
        converted.push_back(convert(item));
    return converted;
}

/// Reads numbers and the marks between them; another text ends the program.
class Scanner {
public:
    explicit Scanner(const std::string& text) : m_at(text.data()), m_end(m_at + text.size()) {}

    int Number()
    {
        int number = 0;
        const std::from_chars_result read = std::from_chars(m_at, m_end, number);
        if (read.ec != std::errc())
            std::abort();
        m_at = read.ptr;
        return number;
    }

    int NumberBehind(char mark)
    {
        if (m_at == m_end || *m_at != mark)
            std::abort();
        ++m_at;
        return Number();
    }

private:
    const char* m_at;
    const char* m_end;
};

#ifdef ZELBENCH_HAVE_ICU
constexpr double kMillisecondsPerMinute = 60'000;

double IcuMomentOf(const Moment& moment)
{
    using namespace std::chrono;
    const sys_days day = year{moment.year} / moment.month / moment.day;
    const std::int64_t days = day.time_since_epoch().count();
    return static_cast<double>(days * kMinutesPerDay + moment.minutes) * kMillisecondsPerMinute;
}

/// Milliseconds as a result, compared by the fields of the moment.
struct IcuMoment {
    double milliseconds;

    std::int64_t ReadBack() const
    {
        using namespace std::chrono;
        const sys_time<minutes> moment{
            minutes{static_cast<std::int64_t>(milliseconds / kMillisecondsPerMinute)}};
        const sys_days day = floor<days>(moment);
        const year_month_day date{day};
        const int time = static_cast<int>((moment - day).count());
        return Packed(static_cast<int>(date.year()),
                      static_cast<int>(static_cast<unsigned>(date.month())),
                      static_cast<int>(static_cast<unsigned>(date.day())), time / 60, time % 60);
    }
};

void Require(UErrorCode status)
{
    if (U_FAILURE(status))
        Fail("icu", u_errorName(status));
}

/// Shows and reads by one pattern.
class IcuDates {
public:
    explicit IcuDates(const char16_t* pattern)
    {
        UErrorCode status = U_ZERO_ERROR;
        m_format.reset(
            udat_open(UDAT_PATTERN, UDAT_PATTERN, "de_DE", u"GMT", -1, pattern, -1, &status),
            udat_close);
        Require(status);
        // Two digits of a year do not occur.
        udat_setLenient(m_format.get(), false);
    }

    void Show(double milliseconds, icu::UnicodeString& text) const
    {
        constexpr std::int32_t room = kShownRoom;
        UErrorCode status = U_ZERO_ERROR;
        const std::int32_t length =
            udat_format(m_format.get(), milliseconds, text.getBuffer(room), room, nullptr, &status);
        text.releaseBuffer(length);
        Require(status);
    }

    double Read(const std::u16string& text) const
    {
        UErrorCode status = U_ZERO_ERROR;
        std::int32_t end = 0;
        const double read = udat_parse(m_format.get(), text.data(),
                                       static_cast<std::int32_t>(text.size()), &end, &status);
        Require(status);
        return read;
    }

private:
    std::shared_ptr<void*> m_format;
};
#endif

/// What is shown of a moment.
enum class Parts { Date, DateTime };

template <Parts parts>
constexpr bool hasTime = parts == Parts::DateTime;
template <Parts parts>
constexpr const char* kindOf = hasTime<parts> ? "date-time" : "date";
template <Parts parts>
constexpr ZelFormat::FormatDatumUmfang scopeOf =
    hasTime<parts> ? ZelFormat::ZelFoDatumMitZeit : ZelFormat::ZelFoNurDatum;

const ZelFormat standard(ZelFormat::ZelFoStandard);

template <Parts parts>
char* StrFTime(const std::tm& record, char* out)
{
    return out + (hasTime<parts> ? std::strftime(out, kShownRoom, "%d.%m.%Y %H:%M", &record)
                                 : std::strftime(out, kShownRoom, "%d.%m.%Y", &record));
}

template <Parts parts>
char* SNPrintF(const std::tm& record, char* out)
{
    const int month = record.tm_mon + 1;
    const int year = record.tm_year + kBaseYear;
    if constexpr (hasTime<parts>)
        return out + std::snprintf(out, kShownRoom, "%02d.%02d.%04d %02d:%02d", record.tm_mday,
                                   month, year, record.tm_hour, record.tm_min);
    else
        return out + std::snprintf(out, kShownRoom, "%02d.%02d.%04d", record.tm_mday, month, year);
}

#ifdef ZELBENCH_HAVE_FMT
template <Parts parts>
char* FmtChrono(const std::tm& record, char* out)
{
    if constexpr (hasTime<parts>)
        return fmt::format_to(out, "{:%d.%m.%Y %H:%M}", record);
    else
        return fmt::format_to(out, "{:%d.%m.%Y}", record);
}

template <Parts parts>
char* FmtNumbers(const std::tm& record, char* out)
{
    const int month = record.tm_mon + 1;
    const int year = record.tm_year + kBaseYear;
    if constexpr (hasTime<parts>)
        return fmt::format_to(out, "{:02}.{:02}.{:04} {:02}:{:02}", record.tm_mday, month, year,
                              record.tm_hour, record.tm_min);
    else
        return fmt::format_to(out, "{:02}.{:02}.{:04}", record.tm_mday, month, year);
}
#endif

#ifdef ZELBENCH_HAVE_POSIX
template <Parts parts>
std::int64_t StrPTime(const std::string& text)
{
    std::tm record{};
    const char* const end =
        strptime(text.c_str(), hasTime<parts> ? "%d.%m.%Y %H:%M" : "%d.%m.%Y", &record);
    if (end == nullptr || *end != '\0')
        std::abort();
    return Packed(record);
}
#endif

template <Parts parts>
std::int64_t SScanF(const std::string& text)
{
    int day = 0;
    int month = 0;
    int year = 0;
    int hour = 0;
    int minute = 0;
    if constexpr (hasTime<parts>) {
        if (std::sscanf(text.c_str(), "%2d.%2d.%4d %2d:%2d", &day, &month, &year, &hour, &minute) !=
            5)
            std::abort();
    } else if (std::sscanf(text.c_str(), "%2d.%2d.%4d", &day, &month, &year) != 3) {
        std::abort();
    }
    return Packed(year, month, day, hour, minute);
}

template <Parts parts>
std::int64_t FromChars(const std::string& text)
{
    Scanner scanner(text);
    const int day = scanner.Number();
    const int month = scanner.NumberBehind('.');
    const int year = scanner.NumberBehind('.');
    const int hour = hasTime<parts> ? scanner.NumberBehind(' ') : 0;
    const int minute = hasTime<parts> ? scanner.NumberBehind(':') : 0;
    return Packed(year, month, day, hour, minute);
}

#ifdef ZELBENCH_HAVE_ICU
template <Parts parts>
IcuDates OpenIcu()
{
    return IcuDates(hasTime<parts> ? u"dd.MM.yyyy HH:mm" : u"dd.MM.yyyy");
}
#endif

/// `makeValue` makes of a moment the value object that shows these parts of it.
template <Parts parts, typename MakeValue>
void AddShown(MakeValue makeValue)
{
    const std::vector<Moment> moments = Moments(kFewOperands, hasTime<parts>, 91);
    const auto records = Share(Converted(moments, RecordOf));
    ShowJobs show(kindOf<parts>);
    show.Ours(records, [](const std::tm& record, CString& text) {
        standard.FormatDateTime(record, scopeOf<parts>, text);
    });
    show.Values(Share(Converted(moments, makeValue)), nullptr);
    show.Peer("strftime", records, StrFTime<parts>);
    show.Peer("snprintf", records, SNPrintF<parts>);
#ifdef ZELBENCH_HAVE_FMT
    show.Peer("fmt-chrono", records, FmtChrono<parts>);
    show.Peer("fmt", records, FmtNumbers<parts>);
#endif
#ifdef ZELBENCH_HAVE_ICU
    show.Icu("icu", Share(Converted(moments, IcuMomentOf)),
             [icu = OpenIcu<parts>()](double milliseconds, icu::UnicodeString& text) {
                 icu.Show(milliseconds, text);
             });
#endif
}

std::int64_t FieldsOf(const ZelDtDateZp& value)
{
    return Packed(static_cast<std::tm>(value));
}

std::int64_t FieldsOf(const ZelDtDateTime& value)
{
    return Packed(value.GetValue());
}

template <Parts parts, typename Value>
void AddRead()
{
    const std::vector<Moment> moments = Moments(kFewOperands, hasTime<parts>, 92);
    ReadJobs read(kindOf<parts>, Converted(moments, [](const Moment& moment) {
                      char text[kShownRoom];
                      return std::string(text, SNPrintF<parts>(RecordOf(moment), text));
                  }));
    read.Ours([](const CString& text) {
        std::tm record{};
        standard.ParseDateTime(text, scopeOf<parts>, &record);
        return Packed(record);
    });
    read.template Values<Value>(nullptr, [](const Value& value) { return FieldsOf(value); });
#ifdef ZELBENCH_HAVE_POSIX
    read.Peer("strptime", StrPTime<parts>);
#endif
    read.Peer("sscanf", SScanF<parts>);
    read.Peer("from_chars", FromChars<parts>);
#ifdef ZELBENCH_HAVE_ICU
    read.Icu("icu", [icu = OpenIcu<parts>()](const std::u16string& text) {
        return IcuMoment{icu.Read(text)};
    });
#endif
}

// Durations below a day, so that those can show and read them who know only times of day

constexpr int kUnitsPerMinute = 20;
constexpr ZelFormat::FormatZeitArt kMinutes = ZelFormat::ZelFoZeitMinuten;

char* SNPrintFMinutes(int minutes, char* out)
{
    return out + std::snprintf(out, kShownRoom, "%02d:%02d", minutes / 60, minutes % 60);
}

void AddTimesShown()
{
    const std::vector<int> list = Minutes(kFewOperands, 93);
    const auto minutes = Share(list);
    ShowJobs show("time");
    show.Ours(
        Share(Converted(list, [](int count) { return count * kUnitsPerMinute; })),
        [](std::int32_t units, CString& text) { standard.FormatTime(units, kMinutes, text); });
    show.Values(Share(Converted(list,
                                [](int count) {
                                    return ZelDtTime(long{count} / 60, long{count} % 60,
                                                     ZelDtTime::Minuten);
                                })),
                nullptr);
    show.Peer("snprintf", minutes, SNPrintFMinutes);
#ifdef ZELBENCH_HAVE_FMT
    show.Peer("fmt", minutes, [](int count, char* out) {
        return fmt::format_to(out, "{:02}:{:02}", count / 60, count % 60);
    });
#endif
#ifdef ZELBENCH_HAVE_ICU
    show.Icu("icu", minutes, [icu = IcuDates(u"HH:mm")](int count, icu::UnicodeString& text) {
        icu.Show(count * kMillisecondsPerMinute, text);
    });
#endif
}

void AddTimesRead()
{
    ReadJobs read("time", Converted(Minutes(kFewOperands, 94), [](int minutes) {
                      char text[kShownRoom];
                      return std::string(text, SNPrintFMinutes(minutes, text));
                  }));
    read.Ours([](const CString& text) {
        std::int32_t units = 0;
        ZelFormat::FormatZeitArt mode = kMinutes;
        standard.ParseTime(text, &units, &mode);
        return units;
    });
    read.Values<ZelDtTime>(nullptr, [](const ZelDtTime& value) {
        return (value.GetHour() * 60 + value.GetMin()) * kUnitsPerMinute;
    });
#ifdef ZELBENCH_HAVE_POSIX
    read.Peer("strptime", [](const std::string& text) {
        std::tm record{};
        const char* const end = strptime(text.c_str(), "%H:%M", &record);
        if (end == nullptr || *end != '\0')
            std::abort();
        return (record.tm_hour * 60 + record.tm_min) * kUnitsPerMinute;
    });
#endif
    read.Peer("sscanf", [](const std::string& text) {
        int hours = 0;
        int minutes = 0;
        if (std::sscanf(text.c_str(), "%d:%2d", &hours, &minutes) != 2)
            std::abort();
        return (hours * 60 + minutes) * kUnitsPerMinute;
    });
    read.Peer("from_chars", [](const std::string& text) {
        Scanner scanner(text);
        const int hours = scanner.Number();
        return (hours * 60 + scanner.NumberBehind(':')) * kUnitsPerMinute;
    });
#ifdef ZELBENCH_HAVE_ICU
    read.Icu("icu", [icu = IcuDates(u"HH:mm")](const std::u16string& text) {
        return static_cast<std::int32_t>(icu.Read(text) / kMillisecondsPerMinute) * kUnitsPerMinute;
    });
#endif
}

} // namespace

void AddDateFormats()
{
    AddShown<Parts::Date>([](const Moment& moment) {
        return ZelDtDateZp(static_cast<short>(moment.day), static_cast<short>(moment.month),
                           static_cast<short>(moment.year));
    });
    AddRead<Parts::Date, ZelDtDateZp>();
    AddShown<Parts::DateTime>([](const Moment& moment) {
        return ZelDtDateTime(static_cast<short>(moment.day), static_cast<short>(moment.month),
                             static_cast<short>(moment.year),
                             static_cast<short>(moment.minutes / 60),
                             static_cast<short>(moment.minutes % 60), short{0});
    });
    AddRead<Parts::DateTime, ZelDtDateTime>();
    AddTimesShown();
    AddTimesRead();
}

} // namespace zelbench
