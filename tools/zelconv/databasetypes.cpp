#include "tools/zelconv/databasetypes.h"
#include "tools/zelconv/decimaltext.h"
#include "tools/zelconv/textview.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <limits>

namespace zelconv {

namespace {

constexpr unsigned Bit(Content content)
{
    return 1U << static_cast<unsigned>(content);
}

constexpr unsigned kWhole = Bit(Content::Whole) | Bit(Content::Decimal) | Bit(Content::Anything);
constexpr unsigned kText = Bit(Content::Text) | Bit(Content::FixedText) | Bit(Content::Anything);

Finding Unless(bool good, RowError error)
{
    return good ? Finding() : Finding(error);
}

template <typename Member>
std::unique_ptr<Field> NewField(std::size_t mostCharacters)
{
    return std::make_unique<Member>(static_cast<int>(mostCharacters));
}

// Numbers

/// A member of plain type with the function that exchanges it.
template <typename Value, typename Member, void (*Rfx)(CFieldExchange*, LPCTSTR, Member&)>
class PlainField final : public Field {
public:
    explicit PlainField(int) {}
    void Exchange(CFieldExchange* pass, const char* name) override { Rfx(pass, name, m_member); }
    Finding Load(CRecordset& record, ZelDtBasis& value) const override
    {
        static_cast<Value&>(value).SetFromRecordSet(record, m_member);
        return {};
    }

private:
    Member m_member{};
};

/// The class takes the low 16 bits without a look at the others.
class ShortField final : public Field {
public:
    explicit ShortField(int) {}
    void Exchange(CFieldExchange* pass, const char* name) override
    {
        RFX_Int(pass, name, m_member);
    }
    Finding Load(CRecordset& record, ZelDtBasis& value) const override
    {
        using Range = std::numeric_limits<short>;
        if (m_member < Range::min() || m_member > Range::max())
            return RowError::FromDatabase;
        static_cast<ZelDtShort&>(value).SetFromRecordSet(record, m_member);
        return {};
    }

private:
    int m_member = 0;
};

std::int64_t NumberOf(const ZelDtLong& value)
{
    return static_cast<long>(value);
}

std::int64_t NumberOf(const ZelDtShort& value)
{
    return static_cast<short>(value);
}

/// The class gives its count in this way only.
std::int64_t NumberOf(const ZelDtTime& value)
{
    const ZelDtString sql = value.ConvToSQL();
    const std::string_view text = ViewOf(sql);
    std::int64_t number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

template <typename Value>
Finding AppendNumber(const ZelDtBasis& value, const TableColumn&, const RowSink& sink,
                     std::string& row)
{
    sink.AddWhole(NumberOf(static_cast<const Value&>(value)), row);
    return {};
}

/// From archives there may be other numbers than 0 and 1.
Finding AppendBool(const ZelDtBasis& value, const TableColumn&, const RowSink& sink,
                   std::string& row)
{
    const int number = static_cast<int>(static_cast<const ZelDtBool&>(value));
    sink.AddWhole(number, row);
    return Unless(number == 0 || number == 1, RowError::Changed);
}

// Decimals

class DecimalField final : public Field {
public:
    explicit DecimalField(int) {}
    void Exchange(CFieldExchange* pass, const char* name) override
    {
        RFX_Text(pass, name, m_member, kMostBytes, kDecimal);
    }
    Finding Load(CRecordset& record, ZelDtBasis& value) const override
    {
        auto& number = static_cast<ZelDtDecimal&>(value);
        number.SetFromRecordSet(record, m_member);
        if (!number.IsDefined())
            return {};
        // The class passes over what is no number, and rounds what it has no room for.
        if (!IsDecimalText(ViewOf(m_member)))
            return RowError::FromDatabase;
        const ZelDtString read = number.ConvToSQL();
        return Unless(IsSameDecimal(ViewOf(read), ViewOf(m_member)), RowError::TooManyDigits);
    }

private:
    static constexpr int kMostBytes = 80; ///< no database has longer ones
    static constexpr int kDecimal = 3;    ///< SQL_DECIMAL

    CString m_member;
};

/// As a text, because SQLite takes a number with a point for a double.
Finding AppendDecimal(const ZelDtBasis& value, const TableColumn& place, const RowSink& sink,
                      std::string& row)
{
    constexpr std::size_t kDigitsOfDouble = 15;
    const ZelDtString number = static_cast<const ZelDtDecimal&>(value).ConvToSQL();
    const std::string_view text = ViewOf(number);
    sink.AddText(text, row);
    if (place.content == Content::Decimal) {
        const DecimalShape shape = ShapeOf(text);
        return Unless(shape.whole <= place.length - place.places && shape.places <= place.places,
                      RowError::IntoDatabase);
    }
    if (place.content == Content::Floating)
        return Unless(ShapeOf(text).significant <= kDigitsOfDouble, RowError::IntoDatabase);
    return Unless(place.length == 0 || text.size() <= place.length, RowError::IntoDatabase);
}

/// A column with a fixed number of decimals would give them to every value.
std::string DeclareDecimal(const Column& column, Dialect dialect)
{
    if (dialect == Dialect::Sqlite)
        return "TEXT";
    if (column.parameter == ColumnType::kNoParameter)
        return "VARCHAR(40)";
    return "DECIMAL(28," + std::to_string(column.parameter) + ")";
}

// Doubles

/// NaN and infinities come from archives only.
Finding AppendDouble(const ZelDtBasis& value, const TableColumn&, const RowSink& sink,
                     std::string& row)
{
    const auto number = static_cast<double>(static_cast<const ZelDtDouble&>(value));
    if (!std::isfinite(number))
        return RowError::Changed;
    sink.AddDouble(number, row);
    return {};
}

// Texts

class TextField final : public Field {
public:
    explicit TextField(int mostCharacters) : m_mostCharacters(mostCharacters) {}
    void Exchange(CFieldExchange* pass, const char* name) override
    {
        RFX_Text(pass, name, m_member, m_mostCharacters);
    }
    Finding Load(CRecordset& record, ZelDtBasis& value) const override
    {
        static_cast<ZelDtString&>(value).SetFromRecordSet(record, m_member);
        return {};
    }

private:
    CString m_member;
    int m_mostCharacters;
};

class CharField final : public Field {
public:
    explicit CharField(int) {}
    void Exchange(CFieldExchange* pass, const char* name) override
    {
        RFX_Text(pass, name, m_member);
    }
    Finding Load(CRecordset& record, ZelDtBasis& value) const override
    {
        static_cast<ZelDtChar&>(value).SetFromRecordSet(record, m_member);
        return Unless(!value.IsDefined() || m_member.GetLength() == 1, RowError::FromDatabase);
    }

private:
    CString m_member;
};

template <typename Value>
Finding AppendText(const ZelDtBasis& value, const TableColumn& place, const RowSink& sink,
                   std::string& row)
{
    const ZelDtString plain(static_cast<const Value&>(value));
    const std::string_view text = ViewOf(plain);
    if (text.find('\0') != std::string_view::npos ||
        (text.empty() && value.GetDtTyp() == ZelDtTypChar))
        return RowError::NulByte;
    sink.AddText(text, row);
    if (place.content == Content::FixedText && text.ends_with(' '))
        return RowError::IntoDatabase;
    return Unless(place.length == 0 || text.size() <= place.length, RowError::IntoDatabase);
}

// Dates

constexpr int kBaseYear = 1900;
constexpr int kFirstYear = 1753;
constexpr int kLastYear = 9999;

bool IsDate(int year, int month, int day)
{
    using std::chrono::year_month_day;
    return year >= kFirstYear && year <= kLastYear && month > 0 && day > 0 &&
           year_month_day(std::chrono::year(year), std::chrono::month(static_cast<unsigned>(month)),
                          std::chrono::day(static_cast<unsigned>(day)))
               .ok();
}

bool IsTimeOfDay(int hour, int minute, int second)
{
    return hour >= 0 && hour < 24 && minute >= 0 && minute < 60 && second >= 0 && second < 60;
}

/// The class takes what is in no calendar, and drops fractions of a second.
class MomentField final : public Field {
public:
    explicit MomentField(int) {}
    void Exchange(CFieldExchange* pass, const char* name) override
    {
        RFX_Date(pass, name, m_member);
    }
    Finding Load(CRecordset& record, ZelDtBasis& value) const override
    {
        static_cast<ZelDtDateTime&>(value).SetFromRecordSet(record, m_member);
        return Unless(!value.IsDefined() ||
                          (IsDate(m_member.year, m_member.month, m_member.day) &&
                           IsTimeOfDay(m_member.hour, m_member.minute, m_member.second) &&
                           m_member.fraction == 0),
                      RowError::FromDatabase);
    }

private:
    TIMESTAMP_STRUCT m_member{};
};

/// Appends a number with two digits behind `before`.
void AppendTwoDigits(int number, char before, std::string& text)
{
    text += before;
    text += static_cast<char>('0' + number / 10);
    text += static_cast<char>('0' + number % 10);
}

/// YYYY-MM-DD with the time of day behind it, if wanted.
template <bool HasTime>
Finding AppendMoment(const ZelDtBasis& value, const TableColumn&, const RowSink& sink,
                     std::string& row)
{
    const std::tm fields = static_cast<const ZelDtDateTime&>(value).GetValue();
    const int year = fields.tm_year + kBaseYear;
    if (!IsDate(year, fields.tm_mon + 1, fields.tm_mday) ||
        !IsTimeOfDay(fields.tm_hour, fields.tm_min, fields.tm_sec))
        return RowError::Changed;
    std::string text = std::to_string(year);
    AppendTwoDigits(fields.tm_mon + 1, '-', text);
    AppendTwoDigits(fields.tm_mday, '-', text);
    if (HasTime) {
        AppendTwoDigits(fields.tm_hour, ' ', text);
        AppendTwoDigits(fields.tm_min, ':', text);
        AppendTwoDigits(fields.tm_sec, ':', text);
    }
    sink.AddText(text, row);
    return {};
}

/// Types that every database calls the same.
template <const char* Name>
std::string Declare(const Column&, Dialect)
{
    return Name;
}

constexpr char kInteger[] = "INTEGER";
constexpr char kSmallInt[] = "SMALLINT";
constexpr char kDouble[] = "DOUBLE";
constexpr char kOneCharacter[] = "VARCHAR(1)";
constexpr char kDate[] = "DATE";
constexpr char kDateTime[] = "DATETIME";

std::string DeclareText(const Column&, Dialect dialect)
{
    return dialect == Dialect::MariaDb ? "LONGTEXT" : "TEXT";
}

constexpr unsigned kDecimalContents = Bit(Content::Decimal) | kText;
constexpr unsigned kDoubleContents = Bit(Content::Floating) | Bit(Content::Anything);
constexpr unsigned kMomentContents = Bit(Content::Moment) | Bit(Content::Anything);
constexpr unsigned kDateContents = Bit(Content::Date) | kMomentContents;

constexpr std::array<DatabaseType, 10> kTypes = {{
    {"long", kWhole, kWhole, &NewField<PlainField<ZelDtLong, long, &RFX_Long>>, &Declare<kInteger>,
     &AppendNumber<ZelDtLong>},
    {"short", kWhole, kWhole, &NewField<ShortField>, &Declare<kSmallInt>,
     &AppendNumber<ZelDtShort>},
    {"decimal", kDecimalContents, kDecimalContents | Bit(Content::Floating),
     &NewField<DecimalField>, &DeclareDecimal, &AppendDecimal},
    {"double", kDoubleContents, kDoubleContents,
     &NewField<PlainField<ZelDtDouble, double, &RFX_Double>>, &Declare<kDouble>, &AppendDouble},
    {"bool", kWhole, kWhole, &NewField<PlainField<ZelDtBool, BOOL, &RFX_Bool>>, &Declare<kSmallInt>,
     &AppendBool},
    {"char", kText, kText, &NewField<CharField>, &Declare<kOneCharacter>, &AppendText<ZelDtChar>},
    {"string", kText, kText, &NewField<TextField>, &DeclareText, &AppendText<ZelDtString>},
    {"datetime", kMomentContents, kMomentContents, &NewField<MomentField>, &Declare<kDateTime>,
     &AppendMoment<true>},
    {"date", kDateContents, kDateContents, &NewField<MomentField>, &Declare<kDate>,
     &AppendMoment<false>},
    {"time", kWhole, kWhole, &NewField<PlainField<ZelDtTime, long, &RFX_Long>>, &Declare<kInteger>,
     &AppendNumber<ZelDtTime>},
}};

} // namespace

bool DatabaseType::Fits(Content content, Dialect dialect) const
{
    return ((dialect == Dialect::Sqlite ? sqliteContents : contents) & Bit(content)) != 0;
}

const DatabaseType& DatabaseTypeOf(const ColumnType& type)
{
    for (const DatabaseType& row : kTypes) {
        if (std::string_view(row.name) == type.name)
            return row;
    }
    throw Failure("columns of the type '" + std::string(type.name) + "' are in no database");
}

} // namespace zelconv
