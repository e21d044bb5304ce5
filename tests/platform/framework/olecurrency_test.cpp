// COleCurrency.

#include "platform/framework/fwolecur.h"

#include "tests/platform/framework/framework_testing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr LONGLONG kMax = std::numeric_limits<LONGLONG>::max();
constexpr LONGLONG kMin = std::numeric_limits<LONGLONG>::min();

COleCurrency Count(LONGLONG count)
{
    CURRENCY cy;
    cy.int64 = count;
    return COleCurrency(cy);
}

COleCurrency WithStatus(COleCurrency::CurrencyStatus status)
{
    COleCurrency currency = Count(5);
    currency.SetStatus(status);
    return currency;
}

void ExpectValid(const COleCurrency& currency, LONGLONG count)
{
    EXPECT_EQ(currency.GetStatus(), COleCurrency::valid);
    EXPECT_EQ(currency.m_cur.int64, count);
}

void ExpectInvalid(const COleCurrency& currency)
{
    EXPECT_EQ(currency.GetStatus(), COleCurrency::invalid);
    EXPECT_EQ(currency.m_cur.int64, 0);
}

TEST(CurrencyState, DefaultIsAValidZero)
{
    ExpectValid(COleCurrency(), 0);
    EXPECT_EQ(COleCurrency::valid, 0);
    EXPECT_EQ(COleCurrency::invalid, 1);
    EXPECT_EQ(COleCurrency::null, 2);
}

TEST(CurrencyState, StatusLeavesTheAmount)
{
    for (const auto status : {COleCurrency::invalid, COleCurrency::null, COleCurrency::valid}) {
        const COleCurrency currency = WithStatus(status);
        EXPECT_EQ(currency.GetStatus(), status);
        EXPECT_EQ(currency.m_cur.int64, 5);
        EXPECT_EQ(static_cast<CURRENCY>(currency).int64, 5);
    }
}

TEST(CurrencyState, AssignmentMakesItValid)
{
    CURRENCY cy;
    cy.int64 = -7;
    COleCurrency currency = WithStatus(COleCurrency::null);
    currency = cy;
    ExpectValid(currency, -7);
    currency.SetStatus(COleCurrency::invalid);
    currency.SetCurrency(1, 2);
    ExpectValid(currency, 10002);
}

struct UnitsRow {
    long units;
    long fraction;
    LONGLONG count;
};

TEST(SetCurrency, AddsUnitsAndFractionOfAnySign)
{
    const UnitsRow rows[] = {
        {0, 0, 0},
        {12, 5000, 125000},
        {-12, -5000, -125000},
        {-1, 5000, -5000},
        {1, -5000, 5000},
        {0, -1, -1},
        {1, 123456, 133456},
        {2147483647, 2147483647, 21476983953647},
        {-2147483647 - 1, -2147483647 - 1, -21476983963648},
    };
    for (const UnitsRow& row : rows) {
        SCOPED_TRACE(row.count);
        ExpectValid(COleCurrency(row.units, row.fraction), row.count);
        COleCurrency currency = WithStatus(COleCurrency::null);
        currency.SetCurrency(row.units, row.fraction);
        ExpectValid(currency, row.count);
    }
}

// Units beyond the range of a currency exist only where `long` is wider than 32 bits.
TEST(SetCurrency, LeavesTheRangeAsInvalid)
{
    if constexpr (sizeof(long) == 8) {
        const auto units = static_cast<long>(922337203685477);
        ExpectValid(COleCurrency(units, 5807), kMax);
        ExpectInvalid(COleCurrency(units, 5808));
        ExpectValid(COleCurrency(-units, -5808), kMin);
        ExpectInvalid(COleCurrency(-units, -5809));
        // The units alone are too many; the fraction brings them back.
        ExpectValid(COleCurrency(units + 1, -4193), kMax);
        ExpectInvalid(COleCurrency(std::numeric_limits<long>::max(), 0));
        ExpectInvalid(
            COleCurrency(std::numeric_limits<long>::min(), std::numeric_limits<long>::min()));
    } else {
        // The largest units and fractions still fit.
        ExpectValid(COleCurrency(std::numeric_limits<long>::max(), 0), 21474836470000);
    }
}

struct SumRow {
    LONGLONG left;
    LONGLONG right;
    LONGLONG sum;
    bool fits;
};

TEST(CurrencyArithmetic, AddsAndSubtracts)
{
    const SumRow rows[] = {
        {0, 0, 0, true},           {10000, 5, 10005, true}, {10000, -20000, -10000, true},
        {kMax - 1, 1, kMax, true}, {kMax, 1, 0, false},     {kMin + 1, -1, kMin, true},
        {kMin, -1, 0, false},      {kMax, kMin, -1, true},  {kMin, kMin, 0, false},
        {kMax, kMax, 0, false},
    };
    for (const SumRow& row : rows) {
        SCOPED_TRACE(testing::PrintToString(std::vector<LONGLONG>{row.left, row.right}));
        const COleCurrency left = Count(row.left);
        const COleCurrency right = Count(row.right);
        COleCurrency added = left;
        added += right;
        EXPECT_TRUE(added == left + right);
        EXPECT_TRUE(left + right == right + left);
        if (row.fits) {
            ExpectValid(left + right, row.sum);
            ExpectValid(Count(row.sum) - right, row.left);
            COleCurrency subtracted = Count(row.sum);
            subtracted -= left;
            ExpectValid(subtracted, row.right);
        } else {
            ExpectInvalid(left + right);
        }
    }
    ExpectInvalid(Count(0) - Count(kMin));
    ExpectInvalid(Count(-2) - Count(kMax));
    ExpectValid(Count(-1) - Count(kMax), kMin);
}

TEST(CurrencyArithmetic, Negates)
{
    ExpectValid(-Count(5), -5);
    ExpectValid(-Count(kMax), kMin + 1);
    ExpectInvalid(-Count(kMin));
}

struct ProductRow {
    LONGLONG count;
    long factor;
    LONGLONG product;
    bool fits;
};

TEST(CurrencyArithmetic, MultipliesByWholeNumbers)
{
    const ProductRow rows[] = {
        {12345, 0, 0, true},       {12345, 2, 24690, true},       {12345, -2, -24690, true},
        {kMax, 1, kMax, true},     {kMax, -1, kMin + 1, true},    {kMin, -1, 0, false},
        {kMax, 2, 0, false},       {kMax / 2, 2, kMax - 1, true}, {kMax / 2 + 1, 2, 0, false},
        {kMin / 2, 2, kMin, true}, {kMin / 2 - 1, 2, 0, false},   {kMax, 2147483647, 0, false},
    };
    for (const ProductRow& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.count));
        COleCurrency currency = Count(row.count);
        currency *= row.factor;
        EXPECT_TRUE(currency == Count(row.count) * row.factor);
        if (row.fits)
            ExpectValid(currency, row.product);
        else
            ExpectInvalid(currency);
    }
}

TEST(CurrencyArithmetic, DividesAndDropsTheRest)
{
    const ProductRow rows[] = {
        {10, 3, 3, true}, {-10, 3, -3, true},         {10, -3, -3, true},    {-10, -3, 3, true},
        {1, 2, 0, true},  {kMax, -1, kMin + 1, true}, {kMin, 1, kMin, true}, {kMin, -1, 0, false},
        {5, 0, 0, false}, {0, 0, 0, false},
    };
    for (const ProductRow& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.count));
        COleCurrency currency = Count(row.count);
        currency /= row.factor;
        EXPECT_TRUE(currency == Count(row.count) / row.factor);
        if (row.fits)
            ExpectValid(currency, row.product);
        else
            ExpectInvalid(currency);
    }
}

TEST(CurrencyArithmetic, NullComesBeforeInvalid)
{
    const auto statuses = {COleCurrency::valid, COleCurrency::invalid, COleCurrency::null};
    for (const auto left : statuses) {
        for (const auto right : statuses) {
            // The statuses are numbered in the order of their strength.
            const int expected = std::max<int>(left, right);
            EXPECT_EQ((WithStatus(left) + WithStatus(right)).m_status, expected);
            EXPECT_EQ((WithStatus(left) - WithStatus(right)).m_status, expected);
        }
        EXPECT_EQ((-WithStatus(left)).m_status, left);
        EXPECT_EQ((WithStatus(left) * 2).m_status, left);
        EXPECT_EQ((WithStatus(left) / 2).m_status, left);
    }
    EXPECT_EQ((WithStatus(COleCurrency::null) / 0).m_status, COleCurrency::null);
    EXPECT_EQ((WithStatus(COleCurrency::null) + Count(1)).m_cur.int64, 0);
}

TEST(CurrencyOrder, ComparesTheAmounts)
{
    const LONGLONG rows[] = {kMin, -10000, -1, 0, 1, 4294967296, kMax};
    for (const LONGLONG left : rows) {
        for (const LONGLONG right : rows) {
            SCOPED_TRACE(testing::PrintToString(std::vector<LONGLONG>{left, right}));
            EXPECT_EQ(Count(left) < Count(right), left < right);
            EXPECT_EQ(Count(left) > Count(right), left > right);
            EXPECT_EQ(Count(left) <= Count(right), left <= right);
            EXPECT_EQ(Count(left) >= Count(right), left >= right);
            EXPECT_EQ(Count(left) == Count(right), left == right);
            EXPECT_EQ(Count(left) != Count(right), left != right);
        }
    }
}

TEST(CurrencyOrder, EqualityConsidersTheStatus)
{
    COleCurrency otherNull = Count(9);
    otherNull.SetStatus(COleCurrency::null);
    EXPECT_TRUE(otherNull == WithStatus(COleCurrency::null));
    EXPECT_TRUE(otherNull != WithStatus(COleCurrency::invalid));
    EXPECT_TRUE(Count(5) != WithStatus(COleCurrency::invalid));
}

std::string Stored(const COleCurrency& currency)
{
    return Archived([&](CArchive& ar) { ar << currency; });
}

/// Reads a currency; the cause of the archive exception, if any.
int Load(std::string_view bytes, COleCurrency& currency)
{
    return ArchiveCause([&] { ReadArchive(bytes, [&](CArchive& ar) { ar >> currency; }); });
}

struct ArchiveRow {
    LONGLONG count;
    COleCurrency::CurrencyStatus status;
    const char* bytes;
};

// Status, high half, low half; each word with its lowest byte first.
const ArchiveRow kArchives[] = {
    {0, COleCurrency::valid, "00 00 00 00 00 00 00 00 00 00 00 00"},
    {0x0102030405060708, COleCurrency::valid, "00 00 00 00 04 03 02 01 08 07 06 05"},
    {-2, COleCurrency::null, "02 00 00 00 FF FF FF FF FE FF FF FF"},
    {kMin, COleCurrency::invalid, "01 00 00 00 00 00 00 80 00 00 00 00"},
    {kMax, COleCurrency::valid, "00 00 00 00 FF FF FF 7F FF FF FF FF"},
};

TEST(CurrencyArchive, HoldsStatusHighAndLow)
{
    for (const ArchiveRow& row : kArchives) {
        SCOPED_TRACE(row.count);
        COleCurrency currency = Count(row.count);
        currency.SetStatus(row.status);
        const std::string bytes = Stored(currency);
        EXPECT_EQ(Hex(bytes), row.bytes);
        COleCurrency loaded = Count(77);
        EXPECT_EQ(Load(bytes, loaded), kNoException);
        EXPECT_EQ(loaded.m_cur.int64, row.count);
        EXPECT_EQ(loaded.m_status, row.status);
    }
}

TEST(CurrencyArchive, CutOffBytesLeaveTheAmountAlone)
{
    const std::string whole = Stored(Count(0x0102030405060708));
    for (std::size_t length = 0; length < whole.size(); ++length) {
        COleCurrency currency = Count(77);
        EXPECT_EQ(Load(std::string_view(whole).substr(0, length), currency),
                  CArchiveException::endOfFile);
        ExpectValid(currency, 77);
    }
}

TEST(CurrencyArchive, RejectsOtherStatuses)
{
    for (const LONG status : {3, -1, 0x01000000}) {
        const std::string bytes =
            Archived([&](CArchive& ar) { ar << status << LONG{0} << DWORD{1}; });
        COleCurrency currency = Count(77);
        EXPECT_EQ(Load(bytes, currency), CArchiveException::genericException);
        ExpectValid(currency, 77);
    }
}

} // namespace
