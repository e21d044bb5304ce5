#include <ZelDt.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <initializer_list>
#include <optional>
#include <string>

// Any bytes as the texts of times, date-times, dates, booleans and characters, in every form that
// these read. A text is rejected with an error that the form has; what is accepted comes back from
// every form that can hold it.

namespace {

void Require(bool condition)
{
    if (!condition)
        std::abort();
}

/// What `make` gives, or nothing if it ends with an error of the library that has one of the
/// numbers.
template <typename Make>
auto Accepted(std::initializer_list<unsigned long> numbers, const Make& make)
    -> std::optional<decltype(make())>
{
    try {
        return make();
    } catch (ZelEhBasis* e) {
        const bool known =
            dynamic_cast<ZelDtExcep*>(e) != nullptr &&
            std::find(numbers.begin(), numbers.end(), e->GetErrorNo()) != numbers.end();
        delete e;
        Require(known);
    }
    return {};
}

// Ways out and in again

template <typename Value>
Value FromExtern(const ZelDtString& text)
{
    Value value;
    value.SetFromExtern(&text, 1, 100);
    return value;
}

template <typename Value>
Value ThroughExtern(const Value& value)
{
    int defined = 0;
    unsigned short version = 0;
    const ZelDtString text = value.ConvToExtern(defined, version);
    Require(defined == 1 && version == 100);
    return FromExtern<Value>(text);
}

template <typename Value>
Value FromDisplay(const char* text)
{
    Value value;
    value.SetFromOFL(text, nullptr);
    return value;
}

template <typename Value>
Value ThroughDisplay(const Value& value)
{
    return FromDisplay<Value>(value.ConvToOFL(nullptr));
}

template <typename Value>
Value ThroughArchive(Value value)
{
    CMemFile file;
    {
        CArchive ar(&file, CArchive::store);
        value.Serialize(ar);
    }
    file.SeekToBegin();
    Value again;
    CArchive ar(&file, CArchive::load);
    again.Serialize(ar);
    Require(again.IsDefined() == value.IsDefined());
    return again;
}

// Times

constexpr ZelDtTime::TimeMode kTimeModes[] = {ZelDtTime::Hundertstel, ZelDtTime::Minuten,
                                              ZelDtTime::Stunden, ZelDtTime::Eigener};

long UnitsOf(const ZelDtTime& time)
{
    return std::strtol(time.ConvToSQL(), nullptr, 10);
}

ZelDtTime FromUnits(long units)
{
    ZelDtTime time;
    time.SetFromSQL(units);
    return time;
}

/// Times of more hours than texts may name are shown all the same.
bool FitsTexts(const ZelDtTime& time)
{
    return std::labs(time.GetHour()) <= 1789568;
}

void CheckTimeTexts(const ZelDtTime& time)
{
    const ZelDtTime::TimeMode mode = time.GetMode();
    const ZelDtTime read(ZelDtString(time), mode);
    Require(read.GetMode() == mode && read.GetTime() == time.GetTime());

    const ZelDtTime shown = ThroughDisplay(time);
    Require(shown.GetTime() == time.GetTime(shown.GetMode()));
}

/// Whole minutes only, with the sign of the whole hours.
void CheckTimeExtern(const ZelDtTime& time)
{
    const long minutes = time.GetTime(ZelDtTime::Minuten);
    const ZelDtTime again = ThroughExtern(time);
    Require(UnitsOf(again) == 20 * (time.GetHour() < 0 ? minutes : std::labs(minutes)));
}

void CheckRounding(const ZelDtTime& time)
{
    const struct {
        ZelDtTime::RoundMode mode;
        long step;
    } rows[] = {{ZelDtTime::RundenViertelstunde, 300},
                {ZelDtTime::RundenHalbeStunde, 600},
                {ZelDtTime::RundenStunde, 1200}};
    for (const auto& row : rows) {
        const auto rounded = Accepted({1}, [&] {
            ZelDtTime copy(time);
            copy.Round(row.mode);
            return copy;
        });
        if (!rounded)
            continue;
        const long away = std::labs(UnitsOf(*rounded)) - std::labs(UnitsOf(time));
        Require(UnitsOf(*rounded) % row.step == 0 && away >= 0 && away < row.step);
    }
}

void CheckTime(const ZelDtTime& time)
{
    if (!time.IsDefined())
        return;
    Require(FromUnits(UnitsOf(time)) == time);
    Require(ThroughArchive(time) == time);
    Require(time.GetHour() * 60 + time.GetMin(ZelDtTime::Minuten) ==
            time.GetTime(ZelDtTime::Minuten));
    if (FitsTexts(time))
        CheckTimeTexts(time);
    CheckTimeExtern(time);
    CheckRounding(time);
}

/// A result is exact, or an error because it does not fit.
template <typename Make>
void CheckSum(std::int64_t expected, const Make& make)
{
    const auto result = Accepted({1}, make);
    const bool fits = expected >= INT32_MIN && expected <= INT32_MAX;
    Require(result.has_value() == fits);
    Require(!fits || UnitsOf(*result) == expected);
}

void CheckTimes(const ZelDtTime& a, const ZelDtTime& b)
{
    const std::int64_t left = UnitsOf(a);
    const std::int64_t right = UnitsOf(b);
    CheckSum(left + right, [&] { return a + b; });
    CheckSum(left - right, [&] { return a - b; });
    CheckSum(left + 1200 * right, [&] {
        ZelDtTime sum(a);
        sum.AddHour(static_cast<long>(right));
        return sum;
    });
    CheckSum(left - 12 * right, [&] {
        ZelDtTime difference(a);
        difference.SubMin(static_cast<long>(right), ZelDtTime::Hundertstel);
        return difference;
    });
    Require((a < b) == (left < right) && (a == b) == (left == right));
}

void ReadTimes(const std::string& text, const ZelDtString& counted, std::uint8_t choice)
{
    const ZelDtTime::TimeMode mode = kTimeModes[choice % 4];
    if (const auto time = Accepted({8, 21}, [&] { return ZelDtTime(text.c_str(), mode); }))
        CheckTime(*time);
    if (const auto time = Accepted({8, 21}, [&] { return ZelDtTime(counted, mode); }))
        CheckTime(*time);
    if (const auto time = Accepted({8, 18}, [&] { return FromExtern<ZelDtTime>(counted); }))
        CheckTime(*time);
    if (const auto time = Accepted({1}, [&] { return FromDisplay<ZelDtTime>(text.c_str()); }))
        CheckTime(*time);
}

// Date-times and dates

constexpr int kLastYearOfTexts = 9999;

bool IsMidnight(const ZelDtDateTime& value)
{
    return value.GetHour() == 0 && value.GetMin() == 0 && value.GetSecond() == 0;
}

void CheckFields(const ZelDtDateTime& value)
{
    Require(value.GetDay365() >= 1 && value.GetDay365() <= 31);
    Require(value.GetMonth() >= 1 && value.GetMonth() <= 12);
    Require(value.GetYear() >= 1753);
    Require(value.GetHour() >= 0 && value.GetHour() <= 23);
    Require(value.GetMin() >= 0 && value.GetMin() <= 59);
    Require(value.GetSecond() >= 0 && value.GetSecond() <= 59);
}

std::string Digits(int number, std::size_t count)
{
    const std::string digits = std::to_string(number);
    return std::string(count - digits.size(), '0') + digits;
}

/// As database servers write it, to the minute.
std::string ServerText(const ZelDtDateTime& value)
{
    static const char* const months[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                         "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    const int hour = value.GetHour();
    return std::string(months[value.GetMonth() - 1]) + " " + Digits(value.GetDay365(), 2) + " " +
           Digits(value.GetYear(), 4) + " " + Digits((hour + 11) % 12 + 1, 2) + ":" +
           Digits(value.GetMin(), 2) + (hour < 12 ? "AM" : "PM");
}

void CheckDatabaseTexts(const ZelDtDateTime& value)
{
    for (const SQL_Language language :
         {SQL_Deutsch, SQL_Englisch, SQL_Ziffern, SQL_DatumUhrzeit, SQL_Datum})
        Require(!value.ConvToSQL(language).IsEmpty());
    ZelDtDateTime read;
    read.SetFromSQL(ServerText(value).c_str());
    ZelDtDateTime toTheMinute(value);
    toTheMinute.SetSecond(0);
    Require(read == toTheMinute);
}

/// Texts of fixed width have four places for the year.
void CheckFixedTexts(const ZelDtDateTime& value)
{
    if (value.GetYear() > kLastYearOfTexts) {
        Require(!Accepted({1}, [&] { return ThroughExtern(value); }));
        Require(!Accepted({8}, [&] { return value.MakeFormatString(SQL_Datum); }));
        return;
    }
    CheckDatabaseTexts(value);
    Require(ThroughExtern(value) == value);
    Require(ZelDtDateTime(static_cast<COleDateTime>(value)) == value);
    const ZelDtDateTime read(ZelDtString(value), ZelDtDateTime::DateTimeString);
    Require(read == value);
}

/// A value that the calendar has.
void CheckDateTime(const ZelDtDateTime& value)
{
    if (!value.IsDefined())
        return;
    CheckFields(value);
    CheckFixedTexts(value);
    Require(ThroughArchive(value) == value);
    Require(ThroughDisplay(value) == value);
}

/// A time of day alone has no date to be shown.
void CheckFromExtern(const ZelDtDateTime& value)
{
    if (value.GetDay365() != 0) {
        CheckDateTime(value);
        return;
    }
    Require(ThroughExtern(value) == value);
    Require(ThroughArchive(value) == value);
}

void CheckDate(const ZelDtDateZp& date)
{
    if (!date.IsDefined())
        return;
    Require(IsMidnight(date));
    CheckDateTime(date);
    Require(ThroughArchive(date) == date);
    Require(ThroughDisplay(date) == date);
    if (date.GetYear() > kLastYearOfTexts)
        return;
    Require(ThroughExtern(date) == date);
    Require(ZelDtDateZp(ZelDtString(date)) == date);
}

/// Later by a time is apart by that time, which takes the year up by at most 205.
void CheckSpan(const ZelDtDateTime& value, const ZelDtTime& span)
{
    const long minutes = span.GetTime(ZelDtTime::Minuten);
    if (minutes < 0 || value.GetYear() > kLastYearOfTexts - 205)
        return;
    const ZelDtDateTime later = value + span;
    CheckFields(later);
    Require((later - value).GetTime(ZelDtTime::Minuten) == minutes);
    const ZelDtDateZp day(value);
    Require(day + span == ZelDtDateZp(ZelDtDateTime(day) + span));
}

void ReadDateTimes(const std::string& text, const ZelDtString& counted, const ZelDtTime& span)
{
    for (const auto form :
         {ZelDtDateTime::DateTimeString, ZelDtDateTime::DateString, ZelDtDateTime::TimeString}) {
        if (const auto value = Accepted({1}, [&] { return ZelDtDateTime(text.c_str(), form); })) {
            CheckDateTime(*value);
            CheckSpan(*value, span);
        }
    }
    const auto fromSQL = [&] {
        ZelDtDateTime value;
        value.SetFromSQL(text.c_str());
        return value;
    };
    if (const auto value = Accepted({1}, fromSQL))
        CheckDateTime(*value);
    if (const auto value = Accepted({1}, [&] { return FromDisplay<ZelDtDateTime>(text.c_str()); }))
        CheckDateTime(*value);
    if (const auto value = Accepted({1, 18}, [&] { return FromExtern<ZelDtDateTime>(counted); }))
        CheckFromExtern(*value);
    if (const auto date = Accepted({1}, [&] { return ZelDtDateZp(text.c_str()); }))
        CheckDate(*date);
    if (const auto date = Accepted({1}, [&] { return FromDisplay<ZelDtDateZp>(text.c_str()); }))
        CheckDate(*date);
}

// Booleans and characters

void CheckBool(const ZelDtBool& value)
{
    if (!value.IsDefined())
        return;
    const auto isSame = [&](const ZelDtBool& other) {
        return (other.IsTrue() != 0) == (value.IsTrue() != 0);
    };
    ZelDtBool fromSQL;
    fromSQL.SetFromSQL(value.ConvToSQL()[1]);
    Require(isSame(fromSQL));
    Require(isSame(ThroughExtern(value)));
    Require(isSame(ThroughDisplay(value)));
    Require(isSame(ZelDtBool(ZelDtString(value))));
    Require(ThroughArchive(value) == value);
}

void CheckChar(const ZelDtChar& value)
{
    if (!value.IsDefined())
        return;
    Require(ThroughExtern(value) == value);
    Require(ThroughArchive(value) == value);
    ZelDtChar upper(value);
    upper.ToUpper();
    ZelDtChar again(upper);
    again.ToUpper();
    Require(again == upper);
    if (value.GetValue() == '\0')
        return;
    Require(ThroughDisplay(value) == value);
    ZelDtChar fromSQL;
    fromSQL.SetFromSQL(value.ConvToSQL(0)[1], 0);
    Require(fromSQL == value);
}

void ReadFlags(const std::string& text, const ZelDtString& counted, std::int32_t number)
{
    CheckBool(ZelDtBool(number));
    if (const auto value = Accepted({5}, [&] { return ZelDtBool(text.c_str()); }))
        CheckBool(*value);
    if (const auto value = Accepted({1}, [&] { return FromDisplay<ZelDtBool>(text.c_str()); }))
        CheckBool(*value);
    CheckBool(FromExtern<ZelDtBool>(counted));
    CheckChar(ZelDtChar(text.c_str()));
    CheckChar(FromExtern<ZelDtChar>(counted));
    if (const auto value = Accepted({1}, [&] { return FromDisplay<ZelDtChar>(text.c_str()); }))
        CheckChar(*value);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    // A choice, two numbers, and the text.
    std::int32_t numbers[2];
    if (size < 1 + sizeof numbers)
        return 0;
    std::memcpy(numbers, data + 1, sizeof numbers);
    const std::string text(data + 1 + sizeof numbers, data + size);
    const ZelDtString counted(CString(text.data(), static_cast<int>(text.size())));
    ZelDtTime first = FromUnits(numbers[0]);
    first.SetMode(kTimeModes[data[0] % 4]);
    const ZelDtTime second = FromUnits(numbers[1]);

    CheckTime(first);
    CheckTimes(first, second);
    ReadTimes(text, counted, data[0]);
    ReadDateTimes(text, counted, second);
    ReadFlags(text, counted, numbers[0]);
    return 0;
}
