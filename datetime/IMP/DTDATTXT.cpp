#include "datetime/IMP/DTDATTXT.h"

#include "datetime/DTDATIME.h"
#include "platform/runtime/digits.h"

namespace {

using zeldt::CanShowMinutes;
using zeldt::DateTimeFields;
using zeldt::ExternNumbers;
using zeldt::HasTwoDigits;
using zeldt::MonthOf;
using zeldt::YearOf;

using Writer = zeldt::DateWriter;

bool CanShowTime(const DateTimeFields& fields)
{
    return CanShowMinutes(fields) && HasTwoDigits(fields.second);
}

char* WriteDate(const DateTimeFields& fields, char* out)
{
    return Writer(out)
        .Two(fields.day)
        .Character('.')
        .Two(MonthOf(fields))
        .Character('.')
        .Four(YearOf(fields))
        .End();
}

char* WriteDateAndTime(const DateTimeFields& fields, char* out)
{
    return Writer(WriteDate(fields, out))
        .Character(' ')
        .Two(fields.hour)
        .Character(':')
        .Two(fields.minute)
        .Character(':')
        .Two(fields.second)
        .End();
}

/// Reads numbers as sscanf does, one behind the other.
class Scanner {
public:
    explicit Scanner(std::string_view text) : m_rest(text) {}

    /// A number of at most `width` characters with its sign; 0 when there is none, and for all that
    /// follow.
    int Number(std::size_t width)
    {
        if (m_stopped)
            return 0;
        while (!m_rest.empty() && zelrt::IsSpace(m_rest.front()))
            m_rest.remove_prefix(1);
        const std::string_view field = m_rest.substr(0, width);
        const bool negative = field.starts_with('-');
        const std::size_t first = negative || field.starts_with('+') ? 1 : 0;
        std::size_t end = first;
        int number = 0;
        for (; end < field.size() && zelrt::IsDigit(field[end]); ++end)
            number = number * 10 + (field[end] - '0');
        m_stopped = end == first;
        m_rest.remove_prefix(end);
        return negative ? -number : number;
    }

private:
    std::string_view m_rest;
    bool m_stopped = false;
};

} // namespace

char* zeldt::WriteSqlText(const DateTimeFields& fields, int code, char* out) noexcept
{
    if (!CanShowDayAndMonth(fields))
        return nullptr;
    const std::int64_t year = YearOf(fields);
    switch (code) {
    case SQL_Deutsch:
    case SQL_Englisch: {
        const bool dayFirst = code == SQL_Deutsch;
        return WriteQuotedMoment(fields, dayFirst ? fields.day : MonthOf(fields),
                                 dayFirst ? MonthOf(fields) : fields.day, out);
    }
    case SQL_Ziffern:
        if (year < 0)
            return nullptr;
        return Writer(out).Two(fields.day).Two(MonthOf(fields)).Plain(year).End();
    case SQL_Datum:
        return HasFourDigits(year) ? WriteDate(fields, out) : nullptr;
    default:
        return HasFourDigits(year) && CanShowTime(fields) ? WriteDateAndTime(fields, out) : nullptr;
    }
}

char* zeldt::WriteExternText(const DateTimeFields& fields, ExternKind kind, char* out) noexcept
{
    Writer writer(out);
    writer.Character(static_cast<char>(kind));
    if (kind != ExternKind::TimeOnly) {
        if (!CanShowDayAndMonth(fields) || !HasFourDigits(YearOf(fields)))
            return nullptr;
        writer.Two(fields.day).Two(MonthOf(fields)).Plain(YearOf(fields), 4);
    }
    if (kind != ExternKind::DateOnly) {
        if (!CanShowTime(fields))
            return nullptr;
        writer.Two(fields.hour).Two(fields.minute).Two(fields.second);
    }
    return writer.End();
}

ExternNumbers zeldt::ReadExternText(std::string_view text, ExternKind kind) noexcept
{
    constexpr std::size_t two = 2;
    constexpr std::size_t four = 4;
    Scanner scanner(text);
    ExternNumbers numbers;
    if (kind != ExternKind::TimeOnly) {
        numbers.day = scanner.Number(two);
        numbers.month = scanner.Number(two);
        numbers.year = scanner.Number(four);
    }
    if (kind != ExternKind::DateOnly) {
        numbers.hour = scanner.Number(two);
        numbers.minute = scanner.Number(two);
        numbers.second = scanner.Number(two);
    }
    return numbers;
}
