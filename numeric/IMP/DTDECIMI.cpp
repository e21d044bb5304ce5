#include "numeric/IMP/DTDECIMI.h"

#include "foundation/DTGUARD.h"
#include "foundation/DT_IUTIL.h"
#include "platform/runtime/digits.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace {

using zeldt::ErrorNo;
using zeldt::Guarded;
using zeldt::Operation;
using zeldt::Raise;
using zelrt::IsDigit;

constexpr Operation Op(const char* signature)
{
    return {"DTDECIMI", "ZelDtDecimal_Imp", signature};
}

constexpr Operation kFromText = Op("ZelDtDecimal_Imp(LPCTSTR)");
constexpr Operation kFromDouble = Op("ZelDtDecimal_Imp(double)");
constexpr Operation kConvAscii = Op("ConvAsciiToRW96(LPCTSTR)");
constexpr Operation kToCurrency = Op("ToCurrency()");
constexpr Operation kConvDecToCString = Op("ConvDecToCString ( CString & cStr)");
constexpr Operation kConvRWToDecimal = Op("ConvRWToDecimal(DEC&,ZelDtDecimal_Imp&)");
constexpr Operation kOverflow = {"DTDECIMI", "RWDecimal",
                                 "ZelDtDecimalOverflowHandler(RWDecimal96OverflowErr&)"};

/// Longest text of a number, and the part of a text behind its sign that counts.
constexpr std::size_t kMostBytes = 38;
/// Most digits of a text that does not begin with 0.
constexpr std::size_t kMostDigits = 28;

constexpr int kCurrencyPlaces = 4;

// Handlers

void ZelDtDecimalOverflowHandler(RWDecimal96OverflowErr&)
{
    Raise(kOverflow, ErrorNo::DecimalArithmetic);
}

/// Rounded results are welcome.
void ZelDtDecimalInexactHandler(RWDecimal96InexactErr&) {}

/// Takes the handlers out of force when the library is unloaded: the decimal library may stay.
struct HandlerRemoval {
    HandlerRemoval() = default;
    HandlerRemoval(const HandlerRemoval&) = delete;
    HandlerRemoval& operator=(const HandlerRemoval&) = delete;
    ~HandlerRemoval()
    {
        const auto overflow = RWDecimal96::setOverflowHandler(nullptr);
        if (overflow != &ZelDtDecimalOverflowHandler)
            RWDecimal96::setOverflowHandler(overflow);
        const auto inexact = RWDecimal96::setInexactHandler(nullptr);
        if (inexact != &ZelDtDecimalInexactHandler)
            RWDecimal96::setInexactHandler(inexact);
    }
};

// In this order: the first one keeps the decimal library's objects alive for the others.
const RWDecimal96Init decimalLibrary;
const HandlerRemoval handlerRemoval;
const RWDecimal96 currencyMaximum("922337203685477.5807");
const RWDecimal96 currencyMinimum("-922337203685477.5808");

// Reading texts

constexpr bool IsSign(char c)
{
    return c == '-' || c == '+';
}

std::string_view WithoutBlanksAround(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(' ');
    if (first == text.npos)
        return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

/// Digits with one point or none.
bool IsPlainNumber(std::string_view text)
{
    const auto points = std::count(text.begin(), text.end(), '.');
    const auto digits = std::count_if(text.begin(), text.end(), IsDigit);
    return digits > 0 && points <= 1 && static_cast<std::size_t>(points + digits) == text.size();
}

/// Reads what the decimal library reads, which nearly all texts are; null for any other text. What
/// has so few bytes is not too long, whatever its digits.
RWDecimal96 ReadPlain(std::string_view text)
{
    if (text.size() > kMostDigits)
        return {};
    return RWDecimal96(text.data(), text.size());
}

/// The number of a text that may have commas and blanks anywhere; see the constructor.
RWDecimal96 ReadText(std::string_view text)
{
    const RWDecimal96 plain = ReadPlain(text);
    if (!plain.isNull())
        return plain;
    if (text.size() > kMostBytes)
        Raise(kFromText, ErrorNo::InputTooLong);
    const std::size_t point = text.find('.');
    if (point != text.rfind('.'))
        Raise(kFromText, ErrorNo::FormatNotAllowed);

    std::array<char, kMostBytes> kept;
    std::size_t count = 0;
    for (const char c : text) {
        if (c == ',' || c == ' ')
            continue;
        if (!IsDigit(c) && c != '.' && !IsSign(c))
            Raise(kFromText, ErrorNo::FormatNotAllowed);
        kept[count++] = c;
    }
    const std::string_view number(kept.data(), count);
    const bool hasSign = !number.empty() && IsSign(number.front());
    const std::size_t digits = text.size() - (point != text.npos ? 1 : 0) - (hasSign ? 1 : 0);
    if (digits > kMostDigits && (number.empty() || number.front() != '0'))
        Raise(kFromText, ErrorNo::InputTooLong);
    return ZelDtDecimal_Imp::ConvAsciiToRW96(number);
}

// Words

constexpr int96 SignExtended(std::int64_t number)
{
    const auto bits = static_cast<std::uint64_t>(number);
    return {number < 0 ? -1 : 0, static_cast<std::uint32_t>(bits >> 32),
            static_cast<std::uint32_t>(bits)};
}

} // namespace

void ZelDtDecimal_Imp::InstallHandlers()
{
    setOverflowHandler(&ZelDtDecimalOverflowHandler);
    setInexactHandler(&ZelDtDecimalInexactHandler);
}

// Construction

ZelDtDecimal_Imp::ZelDtDecimal_Imp()
{
    InstallHandlers();
}

ZelDtDecimal_Imp::ZelDtDecimal_Imp(int number) : RWDecimal96(number)
{
    InstallHandlers();
}

ZelDtDecimal_Imp::ZelDtDecimal_Imp(long number) : RWDecimal96(SignExtended(number), 0, NormalState)
{
    InstallHandlers();
}

ZelDtDecimal_Imp::ZelDtDecimal_Imp(double number)
    : RWDecimal96(zeldt::Calculate(kFromDouble, [=] { return RWDecimal96::from(number); }))
{}

ZelDtDecimal_Imp::ZelDtDecimal_Imp(const char* text)
    : RWDecimal96(zeldt::Calculate(kFromText, [=] {
          if (text == nullptr)
              Raise(kFromText, ErrorNo::InitialValue);
          return ReadText(text);
      }))
{}

ZelDtDecimal_Imp::ZelDtDecimal_Imp(std::string_view text)
    : RWDecimal96(zeldt::Calculate(kFromText, [=] { return ReadText(text); }))
{}

ZelDtDecimal_Imp::ZelDtDecimal_Imp(const COleCurrency& amount)
    : RWDecimal96(SignExtended(amount.m_cur.int64), kCurrencyPlaces, NormalState)
{
    InstallHandlers();
}

ZelDtDecimal_Imp::ZelDtDecimal_Imp(const ZelDtDecimal_Imp& source)
    : RWDecimal96(source), zeldt::PartOfCell<ZelDtDecimal_Imp>()
{
    InstallHandlers();
}

// Texts

RWDecimal96 ZelDtDecimal_Imp::ConvAsciiToRW96(std::string_view text)
{
    InstallHandlers();
    const RWDecimal96 plain = ReadPlain(text);
    if (!plain.isNull())
        return plain;
    const std::string_view number = WithoutBlanksAround(text);
    const std::size_t signs = !number.empty() && IsSign(number.front()) ? 1 : 0;
    const std::string_view unsignedNumber = number.substr(signs);
    if (unsignedNumber.empty() || unsignedNumber == ".")
        return RWDecimal96(0);
    const std::size_t taken = std::min(number.size(), signs + kMostBytes);
    // The decimal library sees only what is taken.
    if (taken != number.size() && !IsPlainNumber(unsignedNumber))
        Raise(kConvAscii, ErrorNo::FormatNotAllowed);
    const RWDecimal96 read(number.data(), taken);
    if (read.isNull())
        Raise(kConvAscii, ErrorNo::FormatNotAllowed);
    return read;
}

zeldt::DecimalText::DecimalText(const RWDecimal96& number)
{
    const std::size_t length = number.print(m_text, sizeof m_text);
    m_view = {m_text, length};
    if (length < sizeof m_text)
        return;
    m_long.resize(length);
    number.print(m_long.data(), length + 1);
    m_view = m_long;
}

std::string_view zeldt::DecimalText::Shortened() const noexcept
{
    if (m_view.find('.') == m_view.npos)
        return m_view;
    const std::size_t last = m_view.find_last_not_of('0');
    return m_view.substr(0, m_view[last] == '.' ? last : last + 1);
}

void ZelDtDecimal_Imp::ConvDecToCString(CString& field) const
{
    Guarded(kConvDecToCString, [&] {
        RWCString text = IsZero() ? RWCString("0.00") : toString(*this);
        if (std::strchr(text.data(), '.') == nullptr)
            text.replace(text.length(), 0, ".0");
        if (text.length() >= static_cast<std::size_t>(field.GetAllocLength()))
            Raise(kConvDecToCString, ErrorNo::BufferTooSmall);
        AssignRecordsetMemberCString(field, text.data());
    });
}

// Currency

COleCurrency ZelDtDecimal_Imp::ToCurrency() const
{
    COleCurrency amount;
    if (isNull()) {
        amount.SetStatus(COleCurrency::null);
        return amount;
    }
    return zeldt::Calculate(kToCurrency, [&] {
        const ZelDtDecimal_Imp rounded(round(*this, kCurrencyPlaces, RoundNearest));
        if (rounded > currencyMaximum || rounded < currencyMinimum)
            Raise(kToCurrency, ErrorNo::OutOfRange);
        // The result fits, so arithmetic modulo 2^64 gives it, whatever the sign.
        std::uint64_t count = rounded.LowWords();
        if (count != 0) {
            for (int places = rounded.Places(); places < kCurrencyPlaces; ++places)
                count *= 10;
        }
        amount.m_cur.int64 = static_cast<std::int64_t>(count);
        return amount;
    });
}

// Packed record

void ZelDtDecimal_Imp::ConvDecimalToRW(const DEC& record, ZelDtDecimal_Imp& number)
{
    const bool isZero = record.low == 0 && record.high == 0;
    int96 words = {0, record.high, record.low};
    if (record.sign != 0 && !(record.sign == 1 && isZero)) {
        // The middle word of a magnitude 0 lacks the carry; such records mean -2^32.
        const std::uint32_t carry = record.low == 0 && record.high != 0 ? 1 : 0;
        words = {-1, ~record.high + carry, 0U - record.low};
    }
    number.m_mantissa = words;
    number.m_exponent = record.scale;
    number.m_state = NormalState;
}

void ZelDtDecimal_Imp::ConvRWToDecimal(DEC& record, const ZelDtDecimal_Imp& number)
{
    zeldt::Calculate(kConvRWToDecimal, [&] {
        record = DEC();
        if (number.isNull())
            return;
        ZelDtDecimal_Imp kept(number);
        while (kept.m_mantissa.high >= 1) {
            if (kept.m_exponent < 1)
                Raise(kConvRWToDecimal, ErrorNo::OutOfRange);
            kept = round(kept, kept.m_exponent - 1, RoundTowardZero);
        }
        const std::uint64_t words = kept.LowWords();
        if (words == 0)
            return;
        const std::uint64_t magnitude = kept.IsNegative() ? 0 - words : words;
        record.sign = kept.IsNegative() ? 1 : 0;
        record.scale = static_cast<std::int16_t>(kept.m_exponent);
        record.low = static_cast<std::uint32_t>(magnitude);
        record.high = static_cast<std::uint32_t>(magnitude >> 32);
    });
}
