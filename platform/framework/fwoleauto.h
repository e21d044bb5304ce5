#ifndef ZELDT_PLATFORM_FRAMEWORK_FWOLEAUTO_H
#define ZELDT_PLATFORM_FRAMEWORK_FWOLEAUTO_H

#include "../runtime/oleauto.h"

/// OLE automation conversions between currency, floating numbers, dates and calendar fields.
///
/// Windows brings them; on Linux the framework library exports functions of the same names and
/// the same meaning. None of them throws, and none touches its result when it fails on Linux
/// (on Windows the result is then unspecified).
///
/// | function                  | result                                                        |
/// |---------------------------|---------------------------------------------------------------|
/// | `VarR8FromCy`             | the 64-bit count as a double, divided by 10000                |
/// | `VarCyFromR8`             | the nearest count of 1/10000; exact ties go to the even count |
/// | `VarCyFromDate`           | the same, of the date's serial number                         |
/// | `VarR8FromDate`           | the serial number                                             |
/// | `VariantTimeToSystemTime` | calendar fields, rounded to the nearest second                |
/// | `SystemTimeToVariantTime` | the serial number of calendar fields                          |
///
/// `VarCyFromR8` and `VarCyFromDate` return DISP_E_OVERFLOW for a NaN, an infinity and an amount
/// outside -922337203685477.5808 to 922337203685477.5807, the others S_OK.
///
/// A date counts days from 30 December 1899, 00:00; its fraction is the time of day and counts
/// forward in negative dates too: -1.25 is 29 December 1899, 06:00. Years 100 to 9999. The two
/// calendar functions return TRUE on success and FALSE outside that range.
/// `SystemTimeToVariantTime` accepts days 0 to 31 in every month: what a month does not have is
/// counted on from its beginning, so 0 March is the last of February and 31 April is 1 May. It
/// rejects other days, months outside 1 to 12 and impossible times; it ignores milliseconds and
/// the day of the week.

#endif
