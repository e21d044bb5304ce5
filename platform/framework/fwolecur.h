#ifndef ZELDT_PLATFORM_FRAMEWORK_FWOLECUR_H
#define ZELDT_PLATFORM_FRAMEWORK_FWOLECUR_H

#include "../runtime/wintypes.h"
#include "export.h"

class CArchive;

/// An amount of money: a 64-bit count of 1/10000 units with a status.
///
/// `m_cur` holds the count (-922337203685477.5808 to 922337203685477.5807 units), `m_status` is
/// `valid`, `invalid` (a computation left the range) or `null` (no amount).
///
/// Nothing here throws except the archive operators. The result of a computation is null when an
/// operand is null, else invalid when an operand is invalid, when the result leaves the range and
/// for a division by zero; in all these cases its amount is 0.
///
///     COleCurrency price(12, 5000);          // 12.5000
///     COleCurrency total = price * 3;        // 37.5000
///     CURRENCY cy = total;                   // int64 == 375000
class ZELFW_API COleCurrency {
public:
    enum CurrencyStatus {
        valid = 0,
        invalid = 1,
        null = 2,
    };

    /// 0; valid.
    COleCurrency();

    /// That amount; valid.
    COleCurrency(CURRENCY cySrc); // NOLINT(google-explicit-constructor)

    /// As SetCurrency().
    COleCurrency(long nUnits, long nFractionalUnits);

    CurrencyStatus GetStatus() const;

    /// Sets the status and leaves the amount as it is.
    void SetStatus(CurrencyStatus status);

    /// Sets the amount to the sum of whole units and 1/10000 units, each of any size and sign:
    /// (-1, 5000) is -0.5. Status valid; invalid, with amount 0, when the sum leaves the range.
    void SetCurrency(long nUnits, long nFractionalUnits);

    /// That amount; valid.
    COleCurrency& operator=(CURRENCY cySrc);

    /// Equal: the same status and, when that is valid, the same amount.
    bool operator==(const COleCurrency& cur) const;
    bool operator!=(const COleCurrency& cur) const;

    /// Order of the amounts; meaningful when both are valid.
    bool operator<(const COleCurrency& cur) const;
    bool operator>(const COleCurrency& cur) const;
    bool operator<=(const COleCurrency& cur) const;
    bool operator>=(const COleCurrency& cur) const;

    COleCurrency operator+(const COleCurrency& cur) const;
    COleCurrency operator-(const COleCurrency& cur) const;
    COleCurrency& operator+=(const COleCurrency& cur);
    COleCurrency& operator-=(const COleCurrency& cur);
    COleCurrency operator-() const;

    /// A division drops what is left below 1/10000.
    COleCurrency operator*(long nOperand) const;
    COleCurrency operator/(long nOperand) const;
    COleCurrency& operator*=(long nOperand);
    COleCurrency& operator/=(long nOperand);

    /// The amount, whatever the status.
    operator CURRENCY() const; // NOLINT(google-explicit-constructor)

    CURRENCY m_cur;
    CurrencyStatus m_status;
};

/// Writes status (LONG) and the count's high (LONG) and low (DWORD) half, whatever the status.
ZELFW_API CArchive& operator<<(CArchive& ar, const COleCurrency& curSrc);

/// Reads what `<<` wrote. A status that does not exist throws CArchiveException
/// (genericException); then, and when the archive ends too soon, `curSrc` stays unchanged.
ZELFW_API CArchive& operator>>(CArchive& ar, COleCurrency& curSrc);

#endif
