#include "tools/zelconv/usualtexts.h"

#include "platform/runtime/exactpowers.h"
#include "text/IMP/DTQUOTE.h"
#include "tools/zelconv/textview.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <optional>

namespace zelconv {

namespace {

/// Every number of so many digits is a double.
constexpr int kMostDigits = 15;

/// Most decimals of a number that is written.
constexpr int kMostUsualPlaces = 3;

constexpr bool IsDigit(char character)
{
    return character >= '0' && character <= '9';
}

/// A number as it is written: digits * 10^-places.
struct UsualNumber {
    std::int64_t digits;
    int places;

    /// 10^places; at most kMostDigits.
    static double PowerOf(int places)
    {
        return zelrt::kExactPowersOfTen[static_cast<std::size_t>(places)];
    }

    /// The nearest double, because both parts are exact ones.
    double Value() const { return static_cast<double>(digits) / PowerOf(places); }
};

/// Nothing for texts that are not usual: without a digit in front of the separator, with a needless
/// zero, with more digits than kMostDigits, "-0" and its like.
std::optional<UsualNumber> ReadUsualNumber(std::string_view text, char separator)
{
    const char* next = text.data();
    const char* const end = next + text.size();
    const bool negative = next != end && *next == '-';
    next += negative ? 1 : 0;
    const char* const first = next;
    const char* point = end;
    std::int64_t digits = 0;
    if (end - first > kMostDigits + 1)
        return std::nullopt;
    for (; next != end; ++next) {
        if (IsDigit(*next))
            digits = digits * 10 + (*next - '0');
        else if (*next == separator && point == end)
            point = next;
        else
            return std::nullopt;
    }
    const std::ptrdiff_t places = point == end ? 0 : end - point - 1;
    const std::ptrdiff_t whole = point - first;
    const bool zeroInFront = whole > 1 && *first == '0';
    const bool usual = whole > 0 && !zeroInFront && whole + places <= kMostDigits &&
                       (point == end || places > 0) && !(negative && digits == 0);
    if (!usual)
        return std::nullopt;
    return UsualNumber{negative ? -digits : digits, static_cast<int>(places)};
}

char SeparatorOf(TextForm form)
{
    return form == TextForm::Plain ? '.' : ',';
}

template <typename Value, typename Number>
bool ReadUsualInteger(ZelDtBasis& value, std::string_view text)
{
    // Digits only: no text has a NUL byte.
    const std::optional<UsualNumber> number = ReadUsualNumber(text, '\0');
    if (!number || number->digits < std::numeric_limits<Number>::min() ||
        number->digits > std::numeric_limits<Number>::max())
        return false;
    static_cast<Value&>(value) = static_cast<int>(number->digits);
    return true;
}

template <typename Value>
bool AppendSqlInteger(const ZelDtBasis& value, std::string& sql)
{
    std::array<char, 12> text{};
    const auto number = static_cast<int>(static_cast<const Value&>(value));
    const char* const end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
    sql.append(text.data(), static_cast<std::size_t>(end - text.data()));
    return true;
}

/// The number is not between -1 and 1: there are digits in front of the point.
void AppendUsualNumber(const UsualNumber& number, std::string& sql)
{
    std::array<char, kMostDigits + 3> text{};
    char* end = std::to_chars(text.data(), text.data() + text.size() - 1, number.digits).ptr;
    if (number.places != 0) {
        char* const point = end - number.places;
        std::memmove(point + 1, point, static_cast<std::size_t>(number.places));
        *point = '.';
        ++end;
    }
    sql.append(text.data(), static_cast<std::size_t>(end - text.data()));
}

/// Two digits of a text as a number, -1 if they are none.
int TwoDigits(const char* text)
{
    return IsDigit(text[0]) && IsDigit(text[1]) ? 10 * (text[0] - '0') + (text[1] - '0') : -1;
}

void WriteTwoDigits(char* text, int number)
{
    text[0] = static_cast<char>('0' + number / 10);
    text[1] = static_cast<char>('0' + number % 10);
}

/// Every month has so many.
constexpr int kDaysOfEveryMonth = 28;

constexpr int kBaseYear = 1900;

/// Whether every calendar has the moment and every text tells it, to the minute.
bool IsUsual(const std::tm& fields)
{
    const auto isWithin = [](int field, int least, int most) {
        return field >= least && field <= most;
    };
    return isWithin(fields.tm_mday, 1, kDaysOfEveryMonth) && isWithin(fields.tm_mon, 0, 11) &&
           isWithin(fields.tm_year, 0, 1000) && isWithin(fields.tm_hour, 0, 23) &&
           isWithin(fields.tm_min, 0, 59) && fields.tm_sec == 0;
}

/// The nearest whole number; `number` is far from the limits.
std::int64_t Rounded(double number)
{
    return static_cast<std::int64_t>(number + (number < 0 ? -0.5 : 0.5));
}

/// The number with few decimals that is this double, if there is one of at most kMostDigits digits;
/// no other one of so many digits is. Not between -1 and 1.
std::optional<UsualNumber> UsualNumberOf(double number)
{
    constexpr double kLimit = 1E12;
    const double size = std::abs(number);
    if (!(size >= 1 && size < kLimit))
        return std::nullopt;
    UsualNumber usual{Rounded(number * UsualNumber::PowerOf(kMostUsualPlaces)), kMostUsualPlaces};
    if (usual.Value() != number)
        return std::nullopt;
    for (; usual.places != 0 && usual.digits % 10 == 0; --usual.places)
        usual.digits /= 10;
    return usual;
}

} // namespace

bool ReadUsualLong(ZelDtBasis& value, std::string_view text, TextForm)
{
    return ReadUsualInteger<ZelDtLong, std::int32_t>(value, text);
}

bool ReadUsualShort(ZelDtBasis& value, std::string_view text, TextForm)
{
    return ReadUsualInteger<ZelDtShort, std::int16_t>(value, text);
}

bool ReadUsualDecimal(ZelDtBasis& value, std::string_view text, TextForm form)
{
    const std::optional<UsualNumber> number = ReadUsualNumber(text, SeparatorOf(form));
    if (!number || number->digits == 0)
        return false;
    std::array<char, kMostDigits + 3> plain{};
    std::memcpy(plain.data(), text.data(), text.size());
    if (number->places != 0)
        plain[text.size() - static_cast<std::size_t>(number->places) - 1] = '.';
    auto& decimal = static_cast<ZelDtDecimal&>(value);
    // Of equal numbers a decimal would keep its own places.
    decimal.Clear();
    decimal.SetFromSQL(plain.data());
    return true;
}

bool ReadUsualDouble(ZelDtBasis& value, std::string_view text, TextForm form)
{
    const std::optional<UsualNumber> number = ReadUsualNumber(text, SeparatorOf(form));
    if (number)
        static_cast<ZelDtDouble&>(value) = number->Value();
    return number.has_value();
}

bool ReadUsualBool(ZelDtBasis& value, std::string_view text, TextForm)
{
    const bool yes = text == "Ja";
    if (yes || text == "Nein")
        static_cast<ZelDtBool&>(value) = yes ? TRUE : FALSE;
    return yes || text == "Nein";
}

bool ReadUsualChar(ZelDtBasis& value, std::string_view text, TextForm)
{
    if (text.size() != 1)
        return false;
    static_cast<ZelDtChar&>(value) = text[0];
    return true;
}

bool ReadUsualString(ZelDtBasis& value, std::string_view text, TextForm)
{
    if (text.empty())
        return false;
    constexpr unsigned int kUnconverted = 0;
    static_cast<ZelDtString&>(value).SetFromSQL(text.data(), static_cast<int>(text.size()),
                                                kUnconverted);
    return true;
}

bool ReadUsualDateTime(ZelDtBasis& value, std::string_view text, TextForm)
{
    constexpr std::string_view kShape = "dd.mm.yyyy hh:mm";
    if (text.size() != kShape.size() || text[2] != '.' || text[5] != '.' || text[10] != ' ' ||
        text[13] != ':')
        return false;
    const int day = TwoDigits(&text[0]);
    const int month = TwoDigits(&text[3]);
    const int century = TwoDigits(&text[6]);
    const int year = TwoDigits(&text[8]);
    const int hour = TwoDigits(&text[11]);
    const int minute = TwoDigits(&text[14]);
    const bool usual = day >= 1 && day <= kDaysOfEveryMonth && month >= 1 && month <= 12 &&
                       century >= 18 && year >= 0 && hour >= 0 && hour < 24 && minute >= 0 &&
                       minute < 60;
    if (usual)
        static_cast<ZelDtDateTime&>(value) =
            ZelDtDateTime(day, month, 100 * century + year, hour, minute, 0);
    return usual;
}

bool AppendSqlLong(const ZelDtBasis& value, std::string& sql)
{
    return AppendSqlInteger<ZelDtLong>(value, sql);
}

bool AppendSqlShort(const ZelDtBasis& value, std::string& sql)
{
    return AppendSqlInteger<ZelDtShort>(value, sql);
}

bool AppendSqlDecimal(const ZelDtBasis& value, std::string& sql)
{
    const auto& decimal = static_cast<const ZelDtDecimal&>(value);
    const int places = decimal.GetPrecision();
    if (places <= kMostUsualPlaces) {
        // Below this the errors of the double and of the product are far below a half.
        constexpr double kLimit = 1E14;
        const double number = decimal.GetValue();
        const double digits = number * UsualNumber::PowerOf(places);
        if (std::abs(number) >= 1 && std::abs(digits) < kLimit) {
            AppendUsualNumber({Rounded(digits), places}, sql);
            return true;
        }
    }
    sql += ViewOf(decimal.ConvToSQL());
    return true;
}

bool AppendSqlDouble(const ZelDtBasis& value, std::string& sql)
{
    const auto& number = static_cast<const ZelDtDouble&>(value);
    const std::optional<UsualNumber> usual = UsualNumberOf(number);
    if (!usual) {
        sql += ViewOf(number.ConvToSQL());
        return false;
    }
    AppendUsualNumber(*usual, sql);
    // The point stands where no decimals follow, too.
    if (usual->places == 0)
        sql += '.';
    return true;
}

bool AppendSqlBool(const ZelDtBasis& value, std::string& sql)
{
    const int number = static_cast<const ZelDtBool&>(value);
    sql += number != 0 ? "\"1\"" : "\"0\"";
    return number == 0 || number == 1;
}

bool AppendSqlChar(const ZelDtBasis& value, std::string& sql)
{
    const char character = static_cast<const ZelDtChar&>(value);
    if (character == '\0' || character == zeldt::kQuote)
        sql += ViewOf(static_cast<const ZelDtChar&>(value).ConvToSQL());
    else
        sql.append({zeldt::kQuote, character, zeldt::kQuote});
    return true;
}

bool AppendSqlString(const ZelDtBasis& value, std::string& sql)
{
    const std::string_view text = ViewOf(static_cast<const ZelDtString&>(value));
    const std::size_t begin = sql.size();
    sql.resize(begin + zeldt::QuotedLength(text));
    zeldt::WriteQuoted(text, sql.data() + begin);
    return true;
}

bool AppendSqlDateTime(const ZelDtBasis& value, std::string& sql)
{
    const auto& moment = static_cast<const ZelDtDateTime&>(value);
    const std::tm fields = moment.GetValue();
    if (!IsUsual(fields)) {
        sql += ViewOf(moment.ConvToSQL());
        return false;
    }
    std::array text = std::to_array("\"dd.mm.yyyy hh:mm\"");
    const int year = fields.tm_year + kBaseYear;
    WriteTwoDigits(&text[1], fields.tm_mday);
    WriteTwoDigits(&text[4], fields.tm_mon + 1);
    WriteTwoDigits(&text[7], year / 100);
    WriteTwoDigits(&text[9], year % 100);
    WriteTwoDigits(&text[12], fields.tm_hour);
    WriteTwoDigits(&text[15], fields.tm_min);
    sql.append(text.data(), text.size() - 1);
    return true;
}

} // namespace zelconv
