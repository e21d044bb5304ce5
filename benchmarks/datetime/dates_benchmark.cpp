/// Dates: to text and back, calendar arithmetic, comparison, sorting.
///
/// chrono, hinnant: year, month and day of <chrono> and of Howard Hinnant's date library, in line
/// and without any object around them. tm: the C library's record.

#include "benchmarks/contest.h"
#include "benchmarks/inputs.h"
#include "benchmarks/jobs.h"
#include "datetime/DTDATZP.h"
#include "datetime/DTTIME.h"
#include "datetime/IMP/DTDATIMI.h"
#include "datetime/IMP/DTDATTXT.h"
#include "text/DTSTRING.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>

#ifdef ZELBENCH_HAVE_FMT
#include <fmt/chrono.h>
#include <fmt/format.h>
#endif
#ifdef ZELBENCH_HAVE_HINNANT
#include <date/date.h>
#include <sstream>
#endif

namespace zelbench {

namespace {

struct Day {
    int year;
    unsigned month;
    unsigned day;
};

/// Days from 1900 to 2099, all equally often.
std::vector<Day> Days(std::size_t count, unsigned seed)
{
    using namespace std::chrono;
    constexpr sys_days first = year{1900} / January / 1;
    constexpr sys_days end = year{2100} / January / 1;
    Random random(seed);
    std::vector<Day> days;
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t offset = Below(random, static_cast<std::size_t>((end - first).count()));
        const year_month_day date{first + std::chrono::days{static_cast<int>(offset)}};
        days.push_back({static_cast<int>(date.year()), static_cast<unsigned>(date.month()),
                        static_cast<unsigned>(date.day())});
    }
    return days;
}

std::vector<int> Counts(std::size_t count, std::size_t limit, unsigned seed)
{
    Random random(seed);
    std::vector<int> counts;
    for (std::size_t i = 0; i < count; ++i)
        counts.push_back(static_cast<int>(Below(random, limit)));
    return counts;
}

constexpr int Packed(int year, int month, int day)
{
    return (year * 100 + month) * 100 + day;
}

/// The library's date.
struct Ours {
    using Value = ZelDtDateZp;

    static Value Make(const Day& day)
    {
        return {static_cast<short>(day.day), static_cast<short>(day.month),
                static_cast<short>(day.year)};
    }
    static int Number(const Value& value)
    {
        const std::tm fields = value;
        return Packed(fields.tm_year + 1900, fields.tm_mon + 1, fields.tm_mday);
    }
    static void AddDays(Value& value, int count) { value.AddDay365(count); }
    static void AddMonths(Value& value, int count) { value.AddMonth(count); }
    static int HoursBetween(const Value& left, const Value& right)
    {
        return static_cast<int>((left - right).GetHour());
    }
};

/// A calendar whose types are those of <chrono>; Hinnant's library has the same ones.
template <typename YearMonthDay, typename SysDays, typename DaySpan, typename Months, typename Last>
struct Civil {
    using Value = YearMonthDay;

    static Value Make(const Day& day)
    {
        return Value{typename Last::Year{day.year}, typename Last::Month{day.month},
                     typename Last::Day{day.day}};
    }
    static int Number(const Value& value)
    {
        return Packed(static_cast<int>(value.year()),
                      static_cast<int>(static_cast<unsigned>(value.month())),
                      static_cast<int>(static_cast<unsigned>(value.day())));
    }
    static void AddDays(Value& value, int count) { value = SysDays{value} + DaySpan{count}; }
    static void AddMonths(Value& value, int count)
    {
        value += Months{count};
        if (!value.ok())
            value = typename Last::YearMonthDayLast{value.year(),
                                                    typename Last::MonthLast{value.month()}};
    }
    static int HoursBetween(const Value& left, const Value& right)
    {
        return static_cast<int>((SysDays{left} - SysDays{right}).count()) * 24;
    }
};

struct ChronoTypes {
    using Year = std::chrono::year;
    using Month = std::chrono::month;
    using Day = std::chrono::day;
    using MonthLast = std::chrono::month_day_last;
    using YearMonthDayLast = std::chrono::year_month_day_last;
};
using Chrono = Civil<std::chrono::year_month_day, std::chrono::sys_days, std::chrono::days,
                     std::chrono::months, ChronoTypes>;

#ifdef ZELBENCH_HAVE_HINNANT
struct HinnantTypes {
    using Year = date::year;
    using Month = date::month;
    using Day = date::day;
    using MonthLast = date::month_day_last;
    using YearMonthDayLast = date::year_month_day_last;
};
using Hinnant = Civil<date::year_month_day, date::sys_days, date::days, date::months, HinnantTypes>;
#endif

template <typename Calendar>
std::vector<typename Calendar::Value> MakeValues(const std::vector<Day>& days)
{
    std::vector<typename Calendar::Value> values;
    values.reserve(days.size());
    for (const Day& day : days)
        values.push_back(Calendar::Make(day));
    return values;
}

template <typename Left, typename Right>
struct Pair {
    Left left;
    Right right;
};

template <typename Left, typename Right>
Operands<Pair<Left, Right>> MakePairs(const std::vector<Left>& left,
                                      const std::vector<Right>& right)
{
    std::vector<Pair<Left, Right>> pairs;
    for (std::size_t i = 0; i < left.size(); ++i)
        pairs.push_back({left[i], right[i]});
    return Share(std::move(pairs));
}

/// The arithmetic works on a value that is there and takes over the operand first.
struct ArithmeticJobs {
    Job addDays{"date/add-days"};
    Job addManyDays{"date/add-30000-days"};
    Job addMonths{"date/add-months"};
    Job difference{"date/difference"};
    Job compare{"date/compare"};

    template <typename Calendar>
    void Add(const std::string& contender)
    {
        using Value = typename Calendar::Value;
        using Counted = Pair<Value, int>;
        const std::vector<Value> values = MakeValues<Calendar>(Days(kFewOperands, 61));
        const std::vector<Value> others = MakeValues<Calendar>(Days(kFewOperands, 62));
        const auto scratch = std::make_shared<Value>(values.front());
        const auto changed = [scratch](auto change) {
            return [scratch, change](const Counted& operand) {
                *scratch = operand.left;
                change(*scratch, operand.right);
                return Calendar::Number(*scratch);
            };
        };
        addDays.Add(contender, MakePairs(values, Counts(kFewOperands, 400, 63)),
                    changed(Calendar::AddDays));
        addManyDays.Add(contender, MakePairs(values, Counts(kFewOperands, 30000, 64)),
                        changed(Calendar::AddDays));
        // Up to 11: from 12 on the library's own rule differs from the calendar's.
        addMonths.Add(contender, MakePairs(values, Counts(kFewOperands, 12, 65)),
                      changed(Calendar::AddMonths));
        const auto pairs = MakePairs(values, others);
        difference.Add(contender, pairs, [](const Pair<Value, Value>& pair) {
            return Calendar::HoursBetween(pair.left, pair.right);
        });
        compare.Add(contender, pairs, [](const Pair<Value, Value>& pair) {
            return static_cast<int>(pair.left < pair.right);
        });
    }
};

/// A copy of the list is made and sorted.
struct SortJob {
    static constexpr std::size_t kCount = 1'000'000;
    Job sort{"date/sort-1000000", kCount};

    template <typename Calendar>
    void Add(const std::string& contender)
    {
        using Value = typename Calendar::Value;
        sort.Add(contender, ShareOne(MakeValues<Calendar>(Days(kCount, 66))),
                 [](const std::vector<Value>& values) {
                     std::vector<Value> sorted(values);
                     std::sort(sorted.begin(), sorted.end(),
                               [](const Value& l, const Value& r) { return bool(l < r); });
                     std::int64_t mixed = 0;
                     for (const Value& value : sorted)
                         mixed = (mixed * 31 + Calendar::Number(value)) % 1'000'000'007;
                     return mixed;
                 });
    }
};

std::tm Record(const Day& day)
{
    std::tm record{};
    record.tm_year = day.year - 1900;
    record.tm_mon = static_cast<int>(day.month) - 1;
    record.tm_mday = static_cast<int>(day.day);
    record.tm_isdst = -1;
    return record;
}

std::vector<std::tm> Records(const std::vector<Day>& days)
{
    std::vector<std::tm> records;
    for (const Day& day : days)
        records.push_back(Record(day));
    return records;
}

using Buffer = char[16];

std::string_view StrFTime(const std::tm& record, Buffer& buffer)
{
    return {buffer, std::strftime(buffer, sizeof buffer, "%d.%m.%Y", &record)};
}

std::string_view Snprintf(const std::tm& record, Buffer& buffer)
{
    const int length = std::snprintf(buffer, sizeof buffer, "%02d.%02d.%04d", record.tm_mday,
                                     record.tm_mon + 1, record.tm_year + 1900);
    return {buffer, static_cast<std::size_t>(length)};
}

#ifdef ZELBENCH_HAVE_FMT
std::string_view FmtChrono(const std::tm& record, Buffer& buffer)
{
    const char* const end = fmt::format_to(buffer, "{:%d.%m.%Y}", record);
    return {buffer, static_cast<std::size_t>(end - buffer)};
}

std::string_view FmtNumbers(const std::tm& record, Buffer& buffer)
{
    const char* const end = fmt::format_to(buffer, "{:02}.{:02}.{:04}", record.tm_mday,
                                           record.tm_mon + 1, record.tm_year + 1900);
    return {buffer, static_cast<std::size_t>(end - buffer)};
}
#endif

/// Into memory that is there, and as a new text.
void AddToText()
{
    struct Memory {
        Buffer buffer;
    };
    const std::vector<Day> days = Days(kFewOperands, 67);
    const auto records = Share(Records(days));
    const auto memory = std::make_shared<Memory>();
    const auto into = [memory](auto write) {
        return [memory, write](const std::tm& record) { return write(record, memory->buffer); };
    };
    const auto made = [](auto write) {
        return [write](const std::tm& record) {
            Buffer buffer;
            return std::string(write(record, buffer));
        };
    };
    Job digits("date-digits");
    digits
        .Add("ours", records, into([](const std::tm& record, Buffer& buffer) {
                 const char* const end =
                     zeldt::WriteSqlText(zeldt::FieldsOf(record), SQL_Datum, buffer);
                 return std::string_view(buffer, static_cast<std::size_t>(end - buffer));
             }))
        .Add("strftime", records, into(StrFTime))
        .Add("snprintf", records, into(Snprintf));
    Job text("date-to-text");
    text.Add("ours", Share(MakeValues<Ours>(days)),
             [](const ZelDtDateZp& value) { return ZelDtString(value); })
        .Add("strftime", records, made(StrFTime))
        .Add("snprintf", records, made(Snprintf));
#ifdef ZELBENCH_HAVE_FMT
    digits.Add("fmt-chrono", records, into(FmtChrono)).Add("fmt", records, into(FmtNumbers));
    text.Add("fmt-chrono", records, made(FmtChrono)).Add("fmt", records, made(FmtNumbers));
#endif
#ifdef ZELBENCH_HAVE_HINNANT
    text.Add("hinnant", Share(MakeValues<Hinnant>(days)), [](const Hinnant::Value& value) {
        return date::format("%d.%m.%Y", date::sys_days{value});
    });
#endif
}

std::vector<std::string> Texts(const std::vector<Day>& days)
{
    std::vector<std::string> texts;
    for (const Day& day : days) {
        Buffer buffer;
        texts.emplace_back(Snprintf(Record(day), buffer));
    }
    return texts;
}

/// The fields alone, and a new object.
void AddFromText()
{
    struct Object {
        ZelDtDateZp value;

        int ReadBack() const { return Ours::Number(value); }
    };
    const auto texts = Share(Texts(Days(kFewOperands, 68)));
#ifdef ZELBENCH_HAVE_POSIX
    const auto strPTime = [](const std::string& text) {
        std::tm record{};
        if (const char* end = strptime(text.c_str(), "%d.%m.%Y", &record);
            end == nullptr || *end != '\0')
            std::abort();
        return Packed(record.tm_year + 1900, record.tm_mon + 1, record.tm_mday);
    };
#endif
    const auto sscanf = [](const std::string& text) {
        int day = 0;
        int month = 0;
        int year = 0;
        if (std::sscanf(text.c_str(), "%2d.%2d.%4d", &day, &month, &year) != 3)
            std::abort();
        return Packed(year, month, day);
    };
    Job fields("text-to-date-fields");
    fields
        .Add("ours", texts,
             [](const std::string& text) {
                 ZelDtDateTime_Imp read;
                 read.SetDate(text.c_str());
                 return Packed(static_cast<int>(read.Year()), static_cast<int>(read.Month()),
                               read.fields.day);
             })
        .Add("sscanf", texts, sscanf);
    Job object("text-to-date");
    object
        .Add("ours", texts,
             [](const std::string& text) { return Object{ZelDtDateZp(text.c_str())}; })
        .Add("sscanf", texts, sscanf);
#ifdef ZELBENCH_HAVE_POSIX
    fields.Add("strptime", texts, strPTime);
    object.Add("strptime", texts, strPTime);
#endif
#ifdef ZELBENCH_HAVE_HINNANT
    object.Add("hinnant", texts, [](const std::string& text) {
        std::istringstream stream(text);
        date::sys_days day;
        if (!(stream >> date::parse("%d.%m.%Y", day)))
            std::abort();
        return Hinnant::Number(Hinnant::Value{day});
    });
#endif
}

} // namespace

void AddDateJobs()
{
    AddToText();
    AddFromText();
    ArithmeticJobs arithmetic;
    arithmetic.Add<Ours>("ours");
    arithmetic.Add<Chrono>("chrono");
    SortJob sort;
    sort.Add<Ours>("ours");
    sort.Add<Chrono>("chrono");
#ifdef ZELBENCH_HAVE_HINNANT
    arithmetic.Add<Hinnant>("hinnant");
    sort.Add<Hinnant>("hinnant");
#endif
}

} // namespace zelbench
