#ifndef ZELDT_DATETIME_IMP_DTDATIMI_H
#define ZELDT_DATETIME_IMP_DTDATIMI_H

/// The fields of a ZelDtDateTime and the rules of setting them. Private to the library.

#include "datetime/DTDATIME.h"
#include "datetime/IMP/DTCALEND.h"
#include "foundation/DTGUARD.h"
#include "foundation/DTSTATE.h"

#include <cstddef>
#include <cstdint>
#include <ctime>
#include <string_view>

/// A date and a time of day.
///
/// A setter that rejects its number throws and leaves the fields as they are, except that a year is
/// stored before it is found to be too early. What sets several fields sets one after the other and
/// keeps those that were set before a failure.
class ZelDtDateTime_Imp final : public zeldt::PartOfCell<ZelDtDateTime_Imp> {
public:
    // Construction. All but the moment's reports what it finds as error 1 under its own name

    /// 1 January 1900, 00:00:00.
    ZelDtDateTime_Imp() = default;
    /// Each field is narrowed to 16 bits and set; the years since 1900 count as the year. Null:
    /// error 5.
    explicit ZelDtDateTime_Imp(const std::tm* record);
    /// The local calendar time, all nine fields. Error 5 when the system cannot express it.
    explicit ZelDtDateTime_Imp(std::time_t moment);
    ZelDtDateTime_Imp(int day, int month, int year, int hour, int minute, int second);
    /// The moment of a valid framework date, by the constructor above.
    explicit ZelDtDateTime_Imp(const COleDateTime& source);
    /// ksDateTimeNow as hour: now.
    ZelDtDateTime_Imp(int hour, int minute);
    ZelDtDateTime_Imp(const char* text, ZelDtDateTime::FormOfDateTimeString form);

    // Setters

    /// 99 and below: in the current century. Before 1753: error 27; beyond the field: error 8. 29
    /// February becomes 28 in a common year.
    void SetYear(std::int64_t year);
    /// 1 to 12, else error 26. The day is cut to the month's length.
    void SetMonth(std::int64_t month);
    /// The day of the month. What the month does not have: error 25.
    void SetDay365(int day);
    void SetHour(int hour);
    void SetMin(int minute);
    void SetSecond(int second);
    /// Now, by the local calendar.
    void SetSysDateTime();

    /// Sets year, month and day from "d.m.yy" to "dd.mm.yyyy". Another layout or null: error 5.
    void SetDate(const char* text);
    /// Sets hour and minute from "hh:mm", the second from "hh:mm:ss" and to 0 otherwise. Another
    /// layout or null: error 5.
    void SetTime(const char* text);
    /// Sets the date from the beginning and the time from what is behind position 10. A text
    /// shorter than 16 characters or null: error 5.
    void SetDateTime(const char* text);

    // Days and years

    /// `days` is not negative. Where the year passes the field's end, error 8 and no change; for
    /// fields whose month is none, error 26.
    void AddDays(std::int64_t days);
    /// As AddDays, by the rules of zeldt::SubtractDays. Does not check the year.
    void SubtractDays(std::int64_t days);
    /// Lowers the year; before 1753 is error 27 under the name of `operation`, and the year is
    /// lowered. `years` is not negative.
    void SubtractYears(const zeldt::Operation& operation, std::int64_t years);
    /// 28 February for 29 in a common year.
    void ClampLeapDay();

    /// Error 27 under the name of `operation` when the year is before 1753.
    void CheckYear(const zeldt::Operation& operation) const;

    /// The calendar year.
    std::int64_t Year() const { return std::int64_t{fields.year} + zeldt::kBaseYear; }
    /// From 1.
    std::int64_t Month() const { return std::int64_t{fields.month} + 1; }

    /// Date and time are those of the external text of a time without date.
    bool IsTimeOnly() const { return fields.day == 0 && fields.month == -1 && fields.year == 0; }

    zeldt::DateTimeFields fields;

private:
    explicit ZelDtDateTime_Imp(const SYSTEMTIME& moment);
    void StoreDate(const zeldt::Operation& operation, const zeldt::CalendarDate& date);
    void StoreYear(const zeldt::Operation& operation, std::int64_t yearSince1900);
    void ReadDate(const char* text);
    void ReadUnusualDate(std::string_view text);
    void ReadTime(std::string_view text);
};

namespace zeldt {

/// Operations of the public class whose errors are also found inside.
constexpr Operation InsideDateTime(const char* signature)
{
    return {"IMP/DTDATIMI", "DtDateTime_Imp", signature};
}

/// The fields as the C standard's record.
std::tm RecordOf(const DateTimeFields& fields);
/// The nine fields of the record.
DateTimeFields FieldsOf(const std::tm& record);

} // namespace zeldt

/// What the sources of the date-time classes, and those that make something of one, share.
struct ZelDtDateTimeAccess {
    static ZelDtDateTime_Imp& Of(ZelDtDateTime& value) { return *value.m_pImp; }
    static const ZelDtDateTime_Imp& Of(const ZelDtDateTime& value) { return *value.m_pImp; }

    static void SetDefined(ZelDtDateTime& value) { value.SetDefined(1); }
    static bool CheckDefined(const ZelDtDateTime& a, const ZelDtBasis& b)
    {
        return a.CheckDefinedForArithmetic(a, b) != 0;
    }

    /// Takes over all fields; different ones mark the value modified.
    static void Replace(ZelDtDateTime& value, const zeldt::DateTimeFields& fields)
    {
        if (zeldt::Differ(value.m_pImp->fields, fields))
            value.SetModified(1);
        value.m_pImp->fields = fields;
    }

    /// Takes over the moment of a valid framework date, which makes the value defined; any other
    /// clears it.
    static void Replace(ZelDtDateTime& value, const COleDateTime& source);

    /// Later by so many minutes, earlier if they are negative; defined afterwards. Whole days are
    /// not narrowed.
    static void Shift(ZelDtDateTime& value, std::int64_t minutes);

    /// Writes the stored fields in the layout of the code into `out`, which has room for
    /// zeldt::kDateTextRoom bytes, and ends them with NUL; returns the length. What the places
    /// cannot show is error 8 of MakeFormatString.
    static std::size_t WriteText(const ZelDtDateTime& value, int code, char* out);
};

#endif
