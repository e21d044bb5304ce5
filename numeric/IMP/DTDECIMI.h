#ifndef ZELDT_NUMERIC_IMP_DTDECIMI_H
#define ZELDT_NUMERIC_IMP_DTDECIMI_H

/// The number of a ZelDtDecimal and its conversions. Private to the library.

#include "foundation/DTGUARD.h"
#include "foundation/DTSTATE.h"
#include "numeric/DTDECIMA.h"
#include "platform/decimals/RWDecimal96.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// A number of the decimal library, with the conversions that it lacks.
///
/// Every constructor, and every conversion from a text, first puts this library's handlers in force
/// in the decimal library, where they are a setting of the process: an overflow is error 24, a
/// rounded result is silent. So no other user of that library can leave different ones behind.
///
/// What fails in a conversion is error 1 under its name, with the first cause behind it, unless it
/// says otherwise.
class ZelDtDecimal_Imp final : public RWDecimal96, public zeldt::PartOfCell<ZelDtDecimal_Imp> {
public:
    /// Null: not a number yet.
    ZelDtDecimal_Imp();
    explicit ZelDtDecimal_Imp(int number);
    explicit ZelDtDecimal_Imp(long number);
    explicit ZelDtDecimal_Imp(double number);
    /// From digits, a sign in front and a point; commas and blanks are passed over. Longer than 38
    /// bytes, or more than 28 digits without a leading 0 (what was passed over counts): 11 behind.
    /// Anything else that is no number: 20 behind. A null text: 5 behind.
    explicit ZelDtDecimal_Imp(const char* text);
    explicit ZelDtDecimal_Imp(std::string_view text);
    /// The amount, whatever its status, with 4 places.
    explicit ZelDtDecimal_Imp(const COleCurrency& amount);
    /// The result of a calculation, which has put the handlers in force (see Calculate).
    explicit ZelDtDecimal_Imp(const RWDecimal96& number) : RWDecimal96(number) {}
    ZelDtDecimal_Imp(const ZelDtDecimal_Imp& source);

    /// Puts this library's handlers in force.
    static void InstallHandlers();

    ZelDtDecimal_Imp& operator=(const ZelDtDecimal_Imp&) = default;
    using RWDecimal96::operator=;

    bool IsZero() const
    {
        return (m_mantissa.high | static_cast<std::int32_t>(m_mantissa.middle | m_mantissa.low)) ==
               0;
    }
    bool IsNegative() const { return m_mantissa.high < 0; }
    int Places() const { return m_exponent; }

    /// The number that digits with one point or none denote, a sign in front. Of the bytes behind
    /// the sign the first 38 count. Blanks around the text, as fields of fixed length have them,
    /// are passed over. Without digits it is 0. Anything else is error 20.
    static RWDecimal96 ConvAsciiToRW96(std::string_view text);

    /// Rounded to 4 places, ties away from zero; status null for a null number. Beyond the range
    /// of currencies: 8 behind.
    COleCurrency ToCurrency() const;

    /// Writes the number into the own buffer of a record set's field, "0.00" for zero and otherwise
    /// with at least one decimal. A text that does not fit is 4 behind; nothing is then written.
    void ConvDecToCString(CString& field) const;

    /// The number of a packed record, with its scale. A sign other than 0 and 1 makes -2^32 of the
    /// magnitude 0.
    static void ConvDecimalToRW(const DEC& record, ZelDtDecimal_Imp& number);
    /// The packed record of the number; zeros for 0 and null. Decimals of a positive number that
    /// exceeds 64 bits are dropped; one that then still does is 8 behind. Of a negative number the
    /// low 64 bits are taken.
    static void ConvRWToDecimal(DEC& record, const ZelDtDecimal_Imp& number);

private:
    /// The two lower words as they are.
    std::uint64_t LowWords() const
    {
        return std::uint64_t{m_mantissa.middle} << 32 | m_mantissa.low;
    }
};

static_assert(sizeof(ZelDtDecimal_Imp) == sizeof(RWDecimal96), "it adds conversions, no data");

namespace zeldt {

/// The plain digits of a number, as toString gives them; nearly always without an allocation.
class DecimalText {
public:
    explicit DecimalText(const RWDecimal96& number);
    DecimalText(const DecimalText&) = delete;
    DecimalText& operator=(const DecimalText&) = delete;

    std::string_view View() const noexcept { return m_view; }
    /// Without zeros at the end of the decimals, nor a point that would then be last.
    std::string_view Shortened() const noexcept;

private:
    char m_text[RWDecimal96::kTextRoom];
    std::string m_long; ///< for what does not fit there, as only numbers from records do not
    std::string_view m_view;
};

/// Runs a calculation with decimal numbers under the name of `operation`, with this library's
/// handlers in force.
template <typename Body>
decltype(auto) Calculate(const Operation& operation, Body&& body)
{
    return Guarded(operation, [&]() -> decltype(auto) {
        ZelDtDecimal_Imp::InstallHandlers();
        return body();
    });
}

/// What the sources of the decimal class, and those that make something of a decimal, may do with
/// it beyond its public interface.
struct DecimalAccess {
    static const ZelDtDecimal_Imp& Number(const ZelDtDecimal& value) { return *value.m_pImp; }
    static ZelDtDecimal_Imp& Number(ZelDtDecimal& value) { return *value.m_pImp; }

    static void SetDefined(ZelDtDecimal& value) { value.SetDefined(1); }
    static bool CheckDefined(const ZelDtDecimal& a, const ZelDtDecimal& b)
    {
        return a.CheckDefinedForArithmetic(a, b) != 0;
    }

    /// Stores a number, one that differs marking the value modified; defined afterwards.
    static void Replace(ZelDtDecimal& value, const RWDecimal96& number)
    {
        if (number != *value.m_pImp)
            value.SetModified(1);
        *value.m_pImp = number;
        value.SetDefined(1);
    }
    /// The same, but an equal number with other places does not replace the present one.
    static void Change(ZelDtDecimal& value, const RWDecimal96& number)
    {
        if (number != *value.m_pImp)
            Replace(value, number);
        else
            value.SetDefined(1);
    }

    /// A result: defined in the default mode.
    static ZelDtDecimal Result(const RWDecimal96& number) { return ZelDtDecimal(number); }

    /// What DecimalToAscii writes, as long as `text` lives. More than `most` characters are error 4
    /// under its name.
    static std::string_view PlainText(const DecimalText& text, std::size_t most);

    // The two ways of Serialize

    static void Store(ZelDtDecimal& value, CArchive& ar);
    static void Load(ZelDtDecimal& value, CArchive& ar);

private:
    static bool IsPlain(const ZelDtDecimal& value);

    // The same with an external text in between

    static void StoreExtern(ZelDtDecimal& value, CArchive& ar);
    static void TakeExtern(ZelDtDecimal& value, std::string_view text, unsigned short version);
};

} // namespace zeldt

#endif
