// Amounts of money.

#include "platform/framework/fwolecur.h"

#include "platform/framework/fwarchive.h"
#include "platform/framework/fwexcept.h"

#include <limits>

namespace {

/// Wide enough for the product of two 64-bit numbers.
__extension__ typedef __int128 Wide;

constexpr Wide kUnit = 10000;

constexpr CURRENCY MakeCurrency(LONGLONG count)
{
    CURRENCY currency{};
    currency.int64 = count;
    return currency;
}

COleCurrency WithStatus(COleCurrency::CurrencyStatus status)
{
    COleCurrency result;
    result.m_status = status;
    return result;
}

/// A count as a currency; invalid when it leaves the range.
COleCurrency FromCount(Wide count)
{
    if (count < std::numeric_limits<LONGLONG>::min() ||
        count > std::numeric_limits<LONGLONG>::max())
        return WithStatus(COleCurrency::invalid);
    return COleCurrency(MakeCurrency(static_cast<LONGLONG>(count)));
}

/// The result of a computation with one operand, given what it would be if that is valid.
COleCurrency Result(const COleCurrency& operand, Wide count)
{
    return operand.m_status == COleCurrency::valid ? FromCount(count)
                                                   : WithStatus(operand.m_status);
}

COleCurrency Result(const COleCurrency& left, const COleCurrency& right, Wide count)
{
    return Result(
        left.m_status == COleCurrency::null || right.m_status == COleCurrency::valid ? left : right,
        count);
}

Wide CountOf(const COleCurrency& currency)
{
    return currency.m_cur.int64;
}

} // namespace

COleCurrency::COleCurrency() : m_cur(MakeCurrency(0)), m_status(valid) {}

COleCurrency::COleCurrency(CURRENCY cySrc) : m_cur(cySrc), m_status(valid) {}

COleCurrency::COleCurrency(long nUnits, long nFractionalUnits) : COleCurrency()
{
    SetCurrency(nUnits, nFractionalUnits);
}

COleCurrency::CurrencyStatus COleCurrency::GetStatus() const
{
    return m_status;
}

void COleCurrency::SetStatus(CurrencyStatus status)
{
    m_status = status;
}

void COleCurrency::SetCurrency(long nUnits, long nFractionalUnits)
{
    *this = FromCount(nUnits * kUnit + nFractionalUnits);
}

COleCurrency& COleCurrency::operator=(CURRENCY cySrc)
{
    return *this = COleCurrency(cySrc);
}

bool COleCurrency::operator==(const COleCurrency& cur) const
{
    return m_status == cur.m_status && (m_status != valid || m_cur.int64 == cur.m_cur.int64);
}

bool COleCurrency::operator!=(const COleCurrency& cur) const
{
    return !(*this == cur);
}

bool COleCurrency::operator<(const COleCurrency& cur) const
{
    return m_cur.int64 < cur.m_cur.int64;
}

bool COleCurrency::operator>(const COleCurrency& cur) const
{
    return cur < *this;
}

bool COleCurrency::operator<=(const COleCurrency& cur) const
{
    return !(cur < *this);
}

bool COleCurrency::operator>=(const COleCurrency& cur) const
{
    return !(*this < cur);
}

COleCurrency COleCurrency::operator+(const COleCurrency& cur) const
{
    return Result(*this, cur, CountOf(*this) + CountOf(cur));
}

COleCurrency COleCurrency::operator-(const COleCurrency& cur) const
{
    return Result(*this, cur, CountOf(*this) - CountOf(cur));
}

COleCurrency& COleCurrency::operator+=(const COleCurrency& cur)
{
    return *this = *this + cur;
}

COleCurrency& COleCurrency::operator-=(const COleCurrency& cur)
{
    return *this = *this - cur;
}

COleCurrency COleCurrency::operator-() const
{
    return Result(*this, -CountOf(*this));
}

COleCurrency COleCurrency::operator*(long nOperand) const
{
    return Result(*this, CountOf(*this) * nOperand);
}

COleCurrency COleCurrency::operator/(long nOperand) const
{
    if (nOperand == 0)
        return WithStatus(m_status == valid ? invalid : m_status);
    return Result(*this, CountOf(*this) / nOperand);
}

COleCurrency& COleCurrency::operator*=(long nOperand)
{
    return *this = *this * nOperand;
}

COleCurrency& COleCurrency::operator/=(long nOperand)
{
    return *this = *this / nOperand;
}

COleCurrency::operator CURRENCY() const
{
    return m_cur;
}

CArchive& operator<<(CArchive& ar, const COleCurrency& curSrc)
{
    const auto count = static_cast<ULONGLONG>(curSrc.m_cur.int64);
    return ar << LONG{curSrc.m_status} << static_cast<LONG>(static_cast<DWORD>(count >> 32))
              << static_cast<DWORD>(count);
}

CArchive& operator>>(CArchive& ar, COleCurrency& curSrc)
{
    LONG status = 0;
    LONG high = 0;
    DWORD low = 0;
    ar >> status >> high >> low;
    if (status < COleCurrency::valid || status > COleCurrency::null)
        AfxThrowArchiveException(CArchiveException::genericException);
    const ULONGLONG count = static_cast<ULONGLONG>(static_cast<DWORD>(high)) << 32 | low;
    curSrc = MakeCurrency(static_cast<LONGLONG>(count));
    curSrc.m_status = static_cast<COleCurrency::CurrencyStatus>(status);
    return ar;
}
