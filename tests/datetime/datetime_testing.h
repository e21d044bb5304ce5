#ifndef ZELDT_TESTS_DATETIME_DATETIME_TESTING_H
#define ZELDT_TESTS_DATETIME_DATETIME_TESTING_H

/// Date-times and dates in every state, the clock set for a while, and the calendar that the
/// expectations are taken from.
///
///     const FixedClock clock({2024, 6, 15, 12, 30, 45});
///     const Given<ZelDtDateTime> given(Moment{{ZelDtWmNull, 0, 0}, {2000, 3, 5, 14, 7, 9}});
///     EXPECT_EQ(Look(given.it).fields, (Fields{2000, 3, 5, 14, 7, 9}));

#include "datetime/DTCLOCK.h"
#include "datetime/DTDATIME.h"
#include "datetime/DTDATZP.h"
#include "numeric/DTSHORT.h"
#include "tests/numeric/number_testing.h"
#include "text/DTSTRING.h"

#include <chrono>
#include <compare>
#include <cstdint>
#include <ctime>
#include <limits>
#include <ostream>
#include <random>
#include <string>
#include <vector>

namespace zeltest {

inline constexpr int kMinInt = std::numeric_limits<std::int32_t>::min();
inline constexpr int kMaxInt = std::numeric_limits<std::int32_t>::max();

/// A moment in calendar terms; wide enough for anything that the record's fields can hold. Ordered
/// as moments are.
struct Fields {
    std::int64_t year = 1900;
    std::int64_t month = 1;
    std::int64_t day = 1;
    std::int64_t hour = 0;
    std::int64_t minute = 0;
    std::int64_t second = 0;

    friend auto operator<=>(const Fields&, const Fields&) = default;
    friend std::ostream& operator<<(std::ostream& os, const Fields& f)
    {
        return os << f.year << '-' << f.month << '-' << f.day << ' ' << f.hour << ':' << f.minute
                  << ':' << f.second;
    }
};

/// The fields of a new value: 1 January 1900, 00:00:00.
inline constexpr Fields kNew;
/// 5 March 2000, 14:07:09.
inline constexpr Fields kSome{2000, 3, 5, 14, 7, 9};

inline Fields Midnight(Fields f)
{
    f.hour = f.minute = f.second = 0;
    return f;
}

inline Fields FieldsOf(const std::tm& record)
{
    return {std::int64_t{record.tm_year} + 1900,
            std::int64_t{record.tm_mon} + 1,
            record.tm_mday,
            record.tm_hour,
            record.tm_min,
            record.tm_sec};
}

/// The record of the fields; week day, day of the year and daylight flag as in a new value.
inline std::tm RecordOf(const Fields& f)
{
    std::tm record{};
    record.tm_year = static_cast<int>(f.year - 1900);
    record.tm_mon = static_cast<int>(f.month - 1);
    record.tm_mday = static_cast<int>(f.day);
    record.tm_hour = static_cast<int>(f.hour);
    record.tm_min = static_cast<int>(f.minute);
    record.tm_sec = static_cast<int>(f.second);
    record.tm_isdst = -1;
    return record;
}

/// Week day, day of the year and daylight flag of a record.
inline std::vector<int> ExtrasOf(const std::tm& record)
{
    return {record.tm_wday, record.tm_yday, record.tm_isdst};
}

/// What these are in all values that do not come from a moment of the system.
inline std::vector<int> NoExtras()
{
    return {0, 0, -1};
}

/// All nine fields that are stored, whatever the state.
inline std::tm RecordOf(const ZelDtDateTime& value)
{
    ZelDtDateTime copy(value);
    copy.SetWorkingMode(ZelDtWmAlwaysDefined);
    return copy.GetValue();
}

/// All that can be seen of a date-time or date but the three fields that are not kept up.
struct Moment {
    State state;
    Fields fields;

    friend bool operator==(const Moment&, const Moment&) = default;
    friend std::ostream& operator<<(std::ostream& os, const Moment& m)
    {
        return os << m.fields << " (" << m.state << ')';
    }
};

inline Moment Look(const ZelDtDateTime& value)
{
    return {StateOf(value), FieldsOf(RecordOf(value))};
}

// Archive forms

/// Words of 32 bits, little-endian.
inline Bytes Words(const std::vector<std::int64_t>& words)
{
    Bytes bytes;
    for (const std::int64_t word : words)
        for (int i = 0; i < 4; ++i)
            bytes.data.push_back(
                static_cast<char>((static_cast<std::uint64_t>(word) >> (8 * i)) & 0xFF));
    return bytes;
}

inline Bytes DateTimeArchiveForm(int defined, const Fields& f)
{
    return Words({defined, f.second, f.minute, f.hour, f.year - 1900, f.month - 1, f.day});
}

inline Bytes DateArchiveForm(int defined, const Fields& f)
{
    return Words({defined, f.year - 1900, f.month - 1, f.day});
}

// Values in every state

/// Brings a date-time, or a date (with any time of day), to exactly what `moment` says.
inline void Bring(ZelDtDateTime& target, const Moment& moment)
{
    target.SetWorkingMode(ZelDtWmMissing);
    Loaded(DateTimeArchiveForm(moment.state.defined, moment.fields),
           [&](CArchive& ar) { target.ZelDtDateTime::Serialize(ar); });
    const DefaultMode guard(moment.state.mode);
    target.SetWorkingMode(ZelDtWmDefault);
    target.SetModified(moment.state.modified);
    ASSERT_EQ(Look(target), moment);
}

/// Every state with every one of the moments.
inline std::vector<Moment> Moments(const std::vector<Fields>& fields)
{
    std::vector<Moment> moments;
    for (const State& state : AllStates())
        for (const Fields& f : fields)
            moments.push_back({state, f});
    return moments;
}

/// A new undefined value in `mode` (a real one).
inline Moment UndefinedMoment(ZelDtWorkingMode mode)
{
    return {NewUndefined(mode), kNew};
}

/// A new defined value in the default mode.
inline Moment DefinedMoment(const Fields& fields)
{
    return {NewDefined(), fields};
}

inline short Short(std::int64_t number)
{
    return static_cast<short>(number);
}

/// The value of six numbers; those that are no moment fail.
inline ZelDtDateTime FromSixNumbers(const Fields& f)
{
    return ZelDtDateTime(Short(f.day), Short(f.month), Short(f.year), Short(f.hour),
                         Short(f.minute), Short(f.second));
}

// The rules that several operations share

/// The fields are stored; a difference marks the value modified.
inline void Store(Moment& m, const Fields& fields)
{
    if (m.fields != fields)
        m.state.modified = 1;
    m.fields = fields;
}

/// `m` after it took over the fields and became defined.
inline Moment Taken(Moment m, const Fields& fields)
{
    Store(m, fields);
    SetDefined(m.state, 1);
    return m;
}

/// `m` after it only became defined.
inline Moment OnlyDefined(Moment m)
{
    SetDefined(m.state, 1);
    return m;
}

/// What is left of `m` after Clear.
inline Moment Cleared(Moment m)
{
    Store(m, kNew);
    SetUndefined(m.state);
    return m;
}

/// A string in any state, its text kept when it is undefined.
struct Wording {
    State state;
    std::string text;
};

inline void Bring(ZelDtString& target, const Wording& wording)
{
    Bytes form = Words({wording.state.defined});
    form.data.push_back(static_cast<char>(wording.text.size()));
    BringByArchive(target, form + Bytes(wording.text), wording.state);
}

/// A short in any state, its number kept when it is undefined.
struct Count {
    State state;
    int number = 0;
};

inline void Bring(ZelDtShort& target, const Count& count)
{
    const Bytes number = Words({count.number}).Cut(2);
    BringByArchive(target, Words({count.state.defined}) + number, count.state);
}

// Errors

/// Of a constructor.
inline Error ConstructionError(const std::string& signature)
{
    return {1, "DTDATIME", "ZelDtDateTime", signature};
}

inline Error FunctionError(unsigned long number, const std::string& signature)
{
    return {number, "DTDATIMF", "ZelDtDateTime", signature};
}

inline Error OperatorError(unsigned long number, const std::string& signature)
{
    return {number, "DTDATIMO", "ZelDtDateTime", signature};
}

/// Of the date class.
inline Error DateError(unsigned long number, const std::string& signature)
{
    return {number, "DTDATZP", "ZelDtDateZp", signature};
}

/// Of the object that knows the calendar.
inline Error ImpError(unsigned long number, const std::string& signature)
{
    return {number, "IMP/DTDATIMI", "DtDateTime_Imp", signature};
}

/// Of the calendar's setters, each of which finds one number.
inline Error SetterError(unsigned long number)
{
    switch (number) {
    case 25:
        return ImpError(25, "SetDay365(SHORT)");
    case 26:
        return ImpError(26, "SetMonth(SHORT)");
    case 27:
        return ImpError(27, "SetYear(SHORT)");
    case 28:
        return ImpError(28, "SetHour(SHORT) ");
    case 29:
        return ImpError(29, "SetMin(SHORT)");
    default:
        return ImpError(30, "SetSecond(SHORT)");
    }
}

/// The errors that an action threw, each followed by the one that it replaced; none without one.
template <typename Action>
std::vector<Error> ChainOf(Action&& action)
{
    std::vector<Error> chain;
    try {
        std::forward<Action>(action)();
    } catch (ZelDtExcep* e) {
        for (const ZelEhBasis* p = e; p != nullptr; p = p->GetReplaced())
            chain.push_back(ErrorOf(*p));
        delete e;
    }
    return chain;
}

/// Whether the action fails with the error; its signature need only begin as that of `expected`
/// does (and must not be empty), for operations whose exact text is the class's own. `first` is the
/// number of the first cause, wherever that arose.
template <typename Action>
::testing::AssertionResult FailsLike(Action&& action, Error expected,
                                     std::optional<unsigned long> first = std::nullopt)
{
    const Caught caught = Catch(std::forward<Action>(action));
    if (caught.disturbance.empty() && (caught.error.signature.empty() ||
                                       caught.error.signature.rfind(expected.signature, 0) != 0))
        return ::testing::AssertionFailure()
               << "expected a signature with " << expected.signature << ", got " << caught.error;
    expected.signature = caught.error.signature;
    ::testing::AssertionResult result = Matches(caught, expected);
    if (result && first && (caught.first.number != *first || caught.depth == 0))
        return ::testing::AssertionFailure()
               << "expected error " << *first << " as first cause, got " << caught.first;
    return result;
}

// The clock

/// The moment of local fields.
inline std::time_t LocalMoment(const Fields& f)
{
    std::tm record = RecordOf(f);
    return std::mktime(&record);
}

/// Stops the clock and lets it go on at the end of the block.
class FixedClock {
public:
    explicit FixedClock(std::time_t moment) : m_momentBefore(s_moment)
    {
        s_moment = moment;
        m_before = ZelDtSetClock(&Now);
    }
    explicit FixedClock(const Fields& local) : FixedClock(LocalMoment(local)) {}
    ~FixedClock()
    {
        ZelDtSetClock(m_before);
        s_moment = m_momentBefore;
    }
    FixedClock(const FixedClock&) = delete;
    FixedClock& operator=(const FixedClock&) = delete;

private:
    static std::time_t Now() { return s_moment; }

    inline static std::time_t s_moment = 0;
    std::time_t m_momentBefore;
    ZelDtClock m_before = nullptr;
};

/// A moment of the century whose years 2000 to 2099 two digits mean.
inline constexpr Fields kClock{2024, 6, 15, 12, 30, 45};

// The calendar, from the standard library; years to 32767

inline bool IsLeap(std::int64_t year)
{
    return std::chrono::year(static_cast<int>(year)).is_leap();
}

inline int LengthOfMonth(std::int64_t year, std::int64_t month)
{
    const std::chrono::year_month_day_last last(
        std::chrono::year(static_cast<int>(year)),
        std::chrono::month_day_last(std::chrono::month(static_cast<unsigned>(month))));
    return static_cast<int>(static_cast<unsigned>(last.day()));
}

/// Seconds since 1 January 1970, 00:00:00 of the same calendar.
inline std::int64_t SecondsOf(const Fields& f)
{
    const std::chrono::year_month_day date(std::chrono::year(static_cast<int>(f.year)),
                                           std::chrono::month(static_cast<unsigned>(f.month)),
                                           std::chrono::day(static_cast<unsigned>(f.day)));
    EXPECT_TRUE(date.ok()) << f;
    const std::int64_t days = std::chrono::sys_days(date).time_since_epoch().count();
    return ((days * 24 + f.hour) * 60 + f.minute) * 60 + f.second;
}

inline Fields FieldsAt(std::int64_t seconds)
{
    const std::chrono::sys_seconds moment{std::chrono::seconds(seconds)};
    const auto midnight = std::chrono::floor<std::chrono::days>(moment);
    const std::chrono::year_month_day date(midnight);
    const std::int64_t rest = (moment - midnight).count();
    return {static_cast<int>(date.year()),
            static_cast<unsigned>(date.month()),
            static_cast<unsigned>(date.day()),
            rest / 3600,
            rest / 60 % 60,
            rest % 60};
}

/// The first fault that the setters find in the order year to second; 0 for none. The year is a
/// full one.
inline unsigned long FaultOf(const Fields& f)
{
    if (f.year < 1753)
        return 27;
    if (f.month < 1 || f.month > 12)
        return 26;
    if (f.day < 1 || f.day > LengthOfMonth(f.year, f.month))
        return 25;
    if (f.hour < 0 || f.hour > 23)
        return 28;
    if (f.minute < 0 || f.minute > 59)
        return 29;
    return f.second < 0 || f.second > 59 ? 30 : 0;
}

/// A moment between two years, the last one included.
inline Fields RandomFields(std::mt19937_64& random, int firstYear, int lastYear)
{
    const std::int64_t first = SecondsOf({firstYear, 1, 1, 0, 0, 0});
    const std::int64_t end = SecondsOf({lastYear, 12, 31, 23, 59, 59}) + 1;
    const auto range = static_cast<std::uint64_t>(end - first);
    return FieldsAt(first + static_cast<std::int64_t>(random() % range));
}

inline std::string TextOf(const ZelDtString& text)
{
    return std::string(static_cast<const char*>(text), static_cast<std::size_t>(text.GetLength()));
}

} // namespace zeltest

#endif
