#ifndef ZELDT_TESTS_PLATFORM_FORMATS_TESTING_H
#define ZELDT_TESTS_PLATFORM_FORMATS_TESTING_H

/// What the tests of the display formats share.

#include "platform/formats/ZelFormat.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>

namespace formats_testing {

inline CString ToCString(std::string_view text)
{
    return CString(text.data(), static_cast<int>(text.size()));
}

inline std::string ToStd(const CString& text)
{
    return std::string(text.GetString(), static_cast<std::size_t>(text.GetLength()));
}

/// Runs `action` and gives the number of the error that it throws, 0 without one. The error must
/// come from the format operation with this signature.
template <class Action>
unsigned long ErrorOf(const char* signature, Action action)
{
    try {
        action();
    } catch (ZelFormatExcep* error) {
        const unsigned long number = error->GetErrorNo();
        EXPECT_STREQ(error->GetSignature(), signature);
        EXPECT_STREQ(error->GetClassText(), "ZelFormat");
        EXPECT_STREQ(error->GetSourceModule(), "ZELFORMT");
        EXPECT_EQ(error->GetValue1(), 1U);
        EXPECT_EQ(error->GetValue2(), 1U);
        EXPECT_EQ(error->GetExtra(), 0U);
        EXPECT_EQ(error->GetFlag(), 1);
        EXPECT_EQ(error->GetCause(), nullptr);
        delete error;
        return number;
    }
    return 0;
}

/// The shown text, or the number of the error in angle brackets, so that one table holds both.
/// A failing operation must leave its target alone.
template <class Action>
std::string Shown(const char* signature, Action action)
{
    CString text("before");
    const unsigned long number = ErrorOf(signature, [&] { action(text); });
    if (number == 0)
        return ToStd(text);
    EXPECT_EQ(ToStd(text), "before");
    return "<" + std::to_string(number) + ">";
}

inline std::string ShowLong(const ZelFormat& format, std::int32_t value)
{
    return Shown("FormatLong(LONG,CString&)",
                 [&](CString& text) { format.FormatLong(value, text); });
}

inline std::string ShowShort(const ZelFormat& format, std::int16_t value)
{
    return Shown("FormatShort(SHORT,CString&)",
                 [&](CString& text) { format.FormatShort(value, text); });
}

inline std::string ShowDouble(const ZelFormat& format, double value)
{
    return Shown("FormatDouble(double,CString&)",
                 [&](CString& text) { format.FormatDouble(value, text); });
}

inline std::string ShowText(const ZelFormat& format, std::string_view value,
                            ZelFormat::FormatTextArt kind = ZelFormat::ZelFoReinerText)
{
    return Shown("FormatString(CString&,FormatTextArt,CString&)",
                 [&](CString& text) { format.FormatString(ToCString(value), kind, text); });
}

inline std::string ShowNumber(const ZelFormat& format, std::string_view number)
{
    return ShowText(format, number, ZelFormat::ZelFoZahlText);
}

inline std::string ShowTime(const ZelFormat& format, std::int32_t units,
                            ZelFormat::FormatZeitArt mode)
{
    return Shown("FormatTime(LONG,FormatZeitArt,CString&)",
                 [&](CString& text) { format.FormatTime(units, mode, text); });
}

inline std::string ShowDate(const ZelFormat& format, const std::tm& value,
                            ZelFormat::FormatDatumUmfang scope = ZelFormat::ZelFoDatumMitZeit)
{
    return Shown("FormatDateTime(struct tm&,FormatDatumUmfang,CString&)",
                 [&](CString& text) { format.FormatDateTime(value, scope, text); });
}

/// What reading gave: an error number (0: none) and the value, which a failure leaves alone.
template <class Value>
struct Read {
    unsigned long error;
    Value value;

    bool operator==(const Read&) const = default;
};

template <class Value>
void PrintTo(const Read<Value>& read, std::ostream* out)
{
    *out << "error " << read.error << ", value " << testing::PrintToString(read.value);
}

inline Read<std::int32_t> ReadLong(const ZelFormat& format, std::string_view text)
{
    Read<std::int32_t> read{0, -77};
    read.error = ErrorOf("ParseLong(CString&,LONG*)",
                         [&] { format.ParseLong(ToCString(text), &read.value); });
    return read;
}

inline Read<std::int16_t> ReadShort(const ZelFormat& format, std::string_view text)
{
    Read<std::int16_t> read{0, -77};
    read.error = ErrorOf("ParseShort(CString&,SHORT*)",
                         [&] { format.ParseShort(ToCString(text), &read.value); });
    return read;
}

inline Read<double> ReadDouble(const ZelFormat& format, std::string_view text)
{
    Read<double> read{0, -77.25};
    read.error = ErrorOf("ParseDouble(CString&,double*)",
                         [&] { format.ParseDouble(ToCString(text), &read.value); });
    return read;
}

inline Read<std::string> ReadText(const ZelFormat& format, std::string_view text,
                                  ZelFormat::FormatTextArt kind = ZelFormat::ZelFoReinerText)
{
    CString value("before");
    const unsigned long error = ErrorOf("ParseString(CString&,FormatTextArt,CString*)",
                                        [&] { format.ParseString(ToCString(text), kind, &value); });
    return {error, ToStd(value)};
}

inline Read<std::string> ReadNumber(const ZelFormat& format, std::string_view text)
{
    return ReadText(format, text, ZelFormat::ZelFoZahlText);
}

/// A numeric format by its numbers.
struct NumericArguments {
    unsigned long places = 0;
    unsigned long decimals = 0;
    int decimalSeparator = ZelFormat::ZelFoDezimalKomma;
    int groupSeparator = ZelFormat::ZelFoTausenderOhne;
    int sign = ZelFormat::ZelFoVorzeichenVorne;
    int whichSign = ZelFormat::ZelFoNurMinus;
    int fillLeft = 0;
    char leftChar = '0';
    int fillRight = 0;
    char rightChar = '0';
};

inline ZelFormat Numeric(const NumericArguments& a)
{
    return ZelFormat(a.places, a.decimals,
                     static_cast<ZelFormat::FormatDezimalTrenner>(a.decimalSeparator),
                     static_cast<ZelFormat::FormatTausenderTrenner>(a.groupSeparator),
                     static_cast<ZelFormat::FormatVorzeichen>(a.sign),
                     static_cast<ZelFormat::FormatVorzeichenWelches>(a.whichSign), a.fillLeft,
                     a.leftChar, a.fillRight, a.rightChar);
}

/// The formats that the long and the short use by default.
inline ZelFormat LongDefault()
{
    return Numeric({.places = 11, .decimalSeparator = 3});
}

inline ZelFormat ShortDefault()
{
    return Numeric({.places = 6, .decimalSeparator = 3});
}

inline ZelFormat Standard()
{
    return ZelFormat(ZelFormat::ZelFoStandard);
}

inline ZelFormat Technical()
{
    return ZelFormat(ZelFormat::ZelFoTechnisch);
}

inline constexpr unsigned long kAll = 0xFFFFFFFFUL;

} // namespace formats_testing

#endif
