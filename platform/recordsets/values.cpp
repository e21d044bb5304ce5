// Values on their way between a source and a field.

#include "platform/recordsets/values.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>

namespace zelrs {

namespace {

template <class T>
T FromBytes(std::string_view bytes)
{
    T value{};
    std::memcpy(&value, bytes.data(), sizeof value);
    return value;
}

template <class T>
std::string ToBytes(const T& value)
{
    std::string bytes(sizeof value, '\0');
    std::memcpy(bytes.data(), &value, sizeof value);
    return bytes;
}

/// Reads the whole text as a number.
template <class T>
bool ReadNumber(std::string_view text, T& number)
{
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && rest == end;
}

/// A real number without fraction that an integer holds exactly.
bool ReadInteger(double real, LONGLONG& integer)
{
    constexpr double kExact = 9007199254740992; // 2^53
    if (!(std::fabs(real) <= kExact) || std::floor(real) != real)
        return false;
    integer = static_cast<LONGLONG>(real);
    return true;
}

/// An integer, or a decimal number without fraction.
bool ReadInteger(std::string_view text, LONGLONG& integer)
{
    if (ReadNumber(text, integer))
        return true;
    const std::size_t point = text.find('.');
    if (point != std::string_view::npos &&
        text.find_first_not_of('0', point + 1) == std::string_view::npos)
        return ReadNumber(text.substr(0, point), integer);
    double real = 0;
    return ReadNumber(text, real) && ReadInteger(real, integer);
}

bool IsLeapYear(int year)
{
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

int DaysOf(int year, unsigned month)
{
    constexpr std::array<int, 12> days = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month == 2 && IsLeapYear(year) ? 29 : days[month - 1];
}

/// Takes a number of exactly so many digits off the text.
template <class T>
bool TakeDigits(std::string_view& text, std::size_t digits, T& number)
{
    if (text.size() < digits)
        return false;
    unsigned value = 0;
    for (std::size_t i = 0; i < digits; ++i) {
        const unsigned digit = static_cast<unsigned char>(text[i]) - unsigned{'0'};
        if (digit > 9)
            return false;
        value = value * 10 + digit;
    }
    number = static_cast<T>(value);
    text.remove_prefix(digits);
    return true;
}

bool TakeOne(std::string_view& text, char character)
{
    if (text.empty() || text[0] != character)
        return false;
    text.remove_prefix(1);
    return true;
}

/// Up to nine digits behind the point; further ones must be zeros.
bool TakeFraction(std::string_view& text, TIMESTAMP_STRUCT& moment)
{
    constexpr std::size_t kDigits = 9;
    std::string digits(text.substr(0, text.find_first_not_of("0123456789")));
    text.remove_prefix(digits.size());
    if (digits.empty() || digits.find_first_not_of('0', kDigits) != std::string::npos)
        return false;
    digits.resize(kDigits, '0');
    return ReadNumber(std::string_view(digits), moment.fraction);
}

bool TakeTimeOfDay(std::string_view& text, TIMESTAMP_STRUCT& moment)
{
    if (!TakeDigits(text, 2, moment.hour) || !TakeOne(text, ':') ||
        !TakeDigits(text, 2, moment.minute))
        return false;
    if (TakeOne(text, ':') && !TakeDigits(text, 2, moment.second))
        return false;
    return !TakeOne(text, '.') || TakeFraction(text, moment);
}

/// YYYY-MM-DD, and behind a blank or T hh:mm, hh:mm:ss or hh:mm:ss.fffffffff.
bool ReadMoment(std::string_view text, TIMESTAMP_STRUCT& moment)
{
    if (!TakeDigits(text, 4, moment.year) || !TakeOne(text, '-') ||
        !TakeDigits(text, 2, moment.month) || !TakeOne(text, '-') ||
        !TakeDigits(text, 2, moment.day))
        return false;
    if ((TakeOne(text, ' ') || TakeOne(text, 'T')) && !TakeTimeOfDay(text, moment))
        return false;
    return text.empty();
}

bool DecodeInteger(std::string_view bytes, Wire wire, LONGLONG& integer)
{
    switch (wire) {
    case Wire::Text:
        return ReadInteger(bytes, integer);
    case Wire::Double:
        return ReadInteger(FromBytes<double>(bytes), integer);
    default:
        integer = FromBytes<LONGLONG>(bytes);
        return true;
    }
}

bool DecodeReal(std::string_view bytes, Wire wire, double& real)
{
    switch (wire) {
    case Wire::Text:
        return ReadNumber(bytes, real);
    case Wire::Double:
        real = FromBytes<double>(bytes);
        return true;
    default:
        real = static_cast<double>(FromBytes<LONGLONG>(bytes));
        return true;
    }
}

bool DecodeMoment(std::string_view bytes, Wire wire, TIMESTAMP_STRUCT& moment)
{
    if (wire == Wire::Moment)
        moment = FromBytes<TIMESTAMP_STRUCT>(bytes);
    else if (!ReadMoment(bytes, moment))
        return false;
    return IsMoment(moment);
}

/// The shortest text that reads back as the same number.
std::string RealText(double real)
{
    std::array<char, 40> text{};
    const auto result = std::to_chars(text.data(), text.data() + text.size(), real);
    return {text.data(), result.ptr};
}

bool DecodeText(std::string_view bytes, Wire wire, Charset charset, CString& text)
{
    if (wire != Wire::Double)
        return Decode(bytes, charset, text);
    text = RealText(FromBytes<double>(bytes)).c_str();
    return true;
}

bool DecodePresent(std::string_view bytes, Wire wire, Charset charset, CFieldValue& value)
{
    switch (value.kind) {
    case CFieldKind::Text:
        return DecodeText(bytes, wire, charset, value.text);
    case CFieldKind::Integer:
    case CFieldKind::Byte:
    case CFieldKind::Bool:
        return DecodeInteger(bytes, wire, value.integer);
    case CFieldKind::Single:
    case CFieldKind::Double:
        return DecodeReal(bytes, wire, value.real);
    case CFieldKind::Time:
        break;
    }
    return DecodeMoment(bytes, wire, value.time);
}

std::string EncodeText(const CFieldValue& value, Charset charset, bool isDate)
{
    switch (value.kind) {
    case CFieldKind::Text:
        return Encode({value.text.GetString(), static_cast<std::size_t>(value.text.GetLength())},
                      charset);
    case CFieldKind::Integer:
    case CFieldKind::Byte:
    case CFieldKind::Bool:
        return std::to_string(value.integer);
    case CFieldKind::Single:
    case CFieldKind::Double:
        return RealText(value.real);
    case CFieldKind::Time:
        break;
    }
    return MomentText(value.time, isDate);
}

bool IsMidnight(const TIMESTAMP_STRUCT& moment)
{
    return moment.hour == 0 && moment.minute == 0 && moment.second == 0 && moment.fraction == 0;
}

/// Whether a decimal number has nothing but zeros behind so many places.
bool HasPlaces(std::string_view number, std::size_t places)
{
    const std::size_t point = number.find('.');
    if (point == std::string_view::npos || number.size() <= point + 1 + places)
        return true;
    return number.find_first_not_of("0 ", point + 1 + places) == std::string_view::npos;
}

/// Whether the fraction of a second takes no more digits.
bool HasDigits(const TIMESTAMP_STRUCT& moment, int digits)
{
    unsigned unit = 1000000000;
    for (int i = 0; i < digits && unit > 1; ++i)
        unit /= 10;
    return moment.fraction % unit == 0;
}

} // namespace

bool IsKeptWhole(const CFieldValue& value, const ResultColumn& column)
{
    if (value.isNull)
        return true;
    const bool isExact = column.type == ColumnType::Decimal || column.type == ColumnType::Integer;
    if (value.kind == CFieldKind::Text && isExact)
        return HasPlaces({value.text.GetString(), static_cast<std::size_t>(value.text.GetLength())},
                         static_cast<std::size_t>(column.digits));
    if (value.kind == CFieldKind::Time && column.type == ColumnType::Date)
        return IsMidnight(value.time);
    if (value.kind == CFieldKind::Time && column.type == ColumnType::Moment)
        return HasDigits(value.time, column.digits);
    return true;
}

void DecodeValue(const RawValue& raw, Wire wire, Charset charset, const CString& name,
                 CFieldValue& value)
{
    value.isNull = raw.state == RawValue::State::Null;
    if (value.isNull)
        return;
    if (raw.state == RawValue::State::TooLong || !DecodePresent(raw.bytes, wire, charset, value))
        ThrowTruncated(name);
}

std::string EncodeValue(const CFieldValue& value, Wire wire, Charset charset, bool isDate)
{
    switch (wire) {
    case Wire::BigInt:
        return ToBytes(value.integer);
    case Wire::Double:
        return ToBytes(value.kind == CFieldKind::Double || value.kind == CFieldKind::Single
                           ? value.real
                           : static_cast<double>(value.integer));
    case Wire::Moment:
        return ToBytes(value.time);
    case Wire::Text:
        break;
    }
    return EncodeText(value, charset, isDate);
}

std::string MomentText(const TIMESTAMP_STRUCT& moment, bool isDate)
{
    std::array<char, 64> text{};
    const auto room = text.size();
    int length = std::snprintf(text.data(), room, "%04d-%02u-%02u", int{moment.year},
                               unsigned{moment.month}, unsigned{moment.day});
    if (!isDate || !IsMidnight(moment))
        length += std::snprintf(text.data() + length, room - static_cast<std::size_t>(length),
                                " %02u:%02u:%02u", unsigned{moment.hour}, unsigned{moment.minute},
                                unsigned{moment.second});
    if (moment.fraction != 0)
        std::snprintf(text.data() + length, room - static_cast<std::size_t>(length), ".%09u",
                      static_cast<unsigned>(moment.fraction));
    return text.data();
}

bool IsMoment(const TIMESTAMP_STRUCT& moment)
{
    constexpr unsigned kBillion = 1000000000;
    return moment.year >= 1 && moment.year <= 9999 && moment.month >= 1 && moment.month <= 12 &&
           moment.day >= 1 && moment.day <= DaysOf(moment.year, moment.month) && moment.hour < 24 &&
           moment.minute < 60 && moment.second < 60 && moment.fraction < kBillion;
}

void ThrowTruncated(const CString& name)
{
    AfxThrowDBException(AFX_SQL_ERROR_DATA_TRUNCATED,
                        "A value does not fit its field. (" + name + ")");
}

} // namespace zelrs
