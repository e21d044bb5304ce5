// OLE automation for systems that do not have it.

#include "platform/framework/fwcalend.h"
#include "platform/framework/fwoleauto.h"

#include <cmath>

namespace {

constexpr double kCurrencyScale = 10000.0;

} // namespace

HRESULT VarR8FromCy(CY cyIn, double* pdblOut)
{
    *pdblOut = static_cast<double>(cyIn.int64) / kCurrencyScale;
    return S_OK;
}

HRESULT VarCyFromR8(double dblIn, CY* pcyOut)
{
    // 10000 is 625 * 16: the product of a 53-bit number with it fits the 64 bits of the wide type,
    // so that the one rounding below sees the exact value.
    const long double scaled = static_cast<long double>(dblIn) * 10000.0L;
    constexpr long double kLimit = 9223372036854775808.0L;
    const long double count = std::nearbyint(scaled);
    if (!(count >= -kLimit && count < kLimit))
        return DISP_E_OVERFLOW;
    pcyOut->int64 = static_cast<LONGLONG>(count);
    return S_OK;
}

HRESULT VarR8FromDate(DATE dateIn, double* pdblOut)
{
    *pdblOut = dateIn;
    return S_OK;
}

HRESULT VarCyFromDate(DATE dateIn, CY* pcyOut)
{
    return VarCyFromR8(dateIn, pcyOut);
}

INT VariantTimeToSystemTime(double vtime, SYSTEMTIME* lpSystemTime)
{
    const auto moment = zelfw::SplitSerial(vtime);
    if (!moment)
        return FALSE;
    *lpSystemTime = zelfw::SystemTimeFromMoment(*moment);
    return TRUE;
}

INT SystemTimeToVariantTime(SYSTEMTIME* lpSystemTime, double* pvtime)
{
    const zelfw::CalendarFields fields{lpSystemTime->wYear,   lpSystemTime->wMonth,
                                       lpSystemTime->wDay,    lpSystemTime->wHour,
                                       lpSystemTime->wMinute, lpSystemTime->wSecond};
    if (!zelfw::IsYearMonth(fields.year, fields.month) || fields.day > 31 ||
        !zelfw::IsTimeOfDay(fields.hour, fields.minute, fields.second))
        return FALSE;
    // Day 0 of the first January is the only one that leaves the range.
    const double serial = zelfw::SerialFromFields(fields);
    if (!zelfw::SplitSerial(serial))
        return FALSE;
    *pvtime = serial;
    return TRUE;
}
