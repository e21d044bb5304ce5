#include "platform/formats/ZelFormat.h"

#include "platform/formats/datetext.h"
#include "platform/formats/numbertext.h"
#include "platform/formats/plaintext.h"
#include "platform/formats/timetext.h"
#include "platform/formats/usualtexts.h"

#include <limits>

using namespace zelformat;

namespace {

constexpr char kModule[] = "ZELFORMT";
constexpr char kClass[] = "ZelFormat";

constexpr char kFormatTime[] = "FormatTime(LONG,FormatZeitArt,CString&)";
constexpr char kFormatDateTime[] = "FormatDateTime(struct tm&,FormatDatumUmfang,CString&)";
constexpr char kFormatDouble[] = "FormatDouble(double,CString&)";
constexpr char kFormatChar[] = "FormatChar(CHAR,CString&)";
constexpr char kFormatBool[] = "FormatBool(BOOL,CString&)";
constexpr char kFormatString[] = "FormatString(CString&,FormatTextArt,CString&)";
constexpr char kFormatLong[] = "FormatLong(LONG,CString&)";
constexpr char kFormatShort[] = "FormatShort(SHORT,CString&)";
constexpr char kParseTime[] = "ParseTime(CString&,LONG*,FormatZeitArt*)";
constexpr char kParseDateTime[] = "ParseDateTime(CString&,FormatDatumUmfang,struct tm*)";
constexpr char kParseDouble[] = "ParseDouble(CString&,double*)";
constexpr char kParseChar[] = "ParseChar(CString&,CHAR*)";
constexpr char kParseBool[] = "ParseBool(CString&,BOOL*)";
constexpr char kParseString[] = "ParseString(CString&,FormatTextArt,CString*)";
constexpr char kParseLong[] = "ParseLong(CString&,LONG*)";
constexpr char kParseShort[] = "ParseShort(CString&,SHORT*)";

[[noreturn]] void Throw(Status status, const char* signature)
{
    throw new ZelFormatExcep(kModule, kClass, signature, static_cast<unsigned long>(status));
}

void Check(Status status, const char* signature)
{
    if (status != Status::Ok)
        Throw(status, signature);
}

std::string_view ViewOf(const CString& text)
{
    return {text.GetString(), static_cast<std::size_t>(text.GetLength())};
}

void SetText(CString& target, std::string_view text)
{
    target.SetString(text.data(), static_cast<int>(text.size()));
}

/// `show(TextBuffer&)` gives a status and, when that is Ok, the text.
template <class Show>
void Deliver(const char* signature, CString& text, Show show)
{
    TextBuffer shown;
    Check(show(shown), signature);
    SetText(text, shown.View());
}

const TimeRules* TimeRulesFor(const Rules& rules)
{
    if (const auto* mode = std::get_if<ModeRules>(&rules))
        return &TimeRulesOfMode(*mode);
    return std::get_if<TimeRules>(&rules);
}

const DateRules* DateRulesFor(const Rules& rules, DateScope scope)
{
    if (const auto* mode = std::get_if<ModeRules>(&rules))
        return &DateRulesOfMode(*mode, scope);
    return std::get_if<DateRules>(&rules);
}

/// The modes take every text as it is.
const TextRules* TextRulesFor(const Rules& rules)
{
    static constexpr TextRules kAnyText{0, ZelFormat::kulZelFoValidAll, FillSide::None, ' '};
    return std::holds_alternative<ModeRules>(rules) ? &kAnyText : std::get_if<TextRules>(&rules);
}

bool ScopeOf(ZelFormat::FormatDatumUmfang given, DateScope& scope)
{
    scope = given == ZelFormat::ZelFoNurDatum ? DateScope::DateOnly : DateScope::DateTime;
    return given == ZelFormat::ZelFoNurDatum || given == ZelFormat::ZelFoDatumMitZeit;
}

bool IsTimeMode(ZelFormat::FormatZeitArt mode)
{
    return mode >= ZelFormat::ZelFoZeitHundertstel && mode <= ZelFormat::ZelFoZeitEigene;
}

Status ShowInteger(std::int32_t value, const Rules& rules, TextBuffer& text)
{
    const NumberRules* const number = NumberRulesFor(rules);
    return number != nullptr ? ShowInteger(value, *number, text) : Status::NotAllowed;
}

/// Reads a 16- or 32-bit number.
template <class Integer>
void ReadInteger(const CString& text, const Rules& rules, const char* signature, Integer* value)
{
    constexpr IntegerRange range{std::numeric_limits<Integer>::min(),
                                 std::numeric_limits<Integer>::max()};
    const NumberRules* const number = NumberRulesFor(rules);
    std::int32_t read = 0;
    Check(number != nullptr ? ReadInteger(ViewOf(text), *number, range, read) : Status::NotAllowed,
          signature);
    if (value != nullptr)
        *value = static_cast<Integer>(read);
}

Status ShowString(std::string_view value, ZelFormat::FormatTextArt kind, const Rules& rules,
                  TextBuffer& text)
{
    if (kind == ZelFormat::ZelFoZahlText) {
        const NumberRules* const number = NumberRulesFor(rules);
        return number != nullptr ? ShowNumberText(value, *number, text) : Status::NotAllowed;
    }
    const TextRules* const plain = TextRulesFor(rules);
    const bool known = kind == ZelFormat::ZelFoReinerText && plain != nullptr;
    return known ? ShowText(value, *plain, text) : Status::NotAllowed;
}

Status ReadString(std::string_view text, ZelFormat::FormatTextArt kind, const Rules& rules,
                  TextBuffer& value)
{
    if (kind == ZelFormat::ZelFoZahlText) {
        const NumberRules* const number = NumberRulesFor(rules);
        return number != nullptr ? ReadNumberText(text, *number, value) : Status::NotAllowed;
    }
    const TextRules* const plain = TextRulesFor(rules);
    const bool known = kind == ZelFormat::ZelFoReinerText && plain != nullptr;
    return known ? ReadText(text, *plain, value) : Status::NotAllowed;
}

} // namespace

ZelFormat::~ZelFormat() = default;

ZelFormat::FormatZeitArt ZelFormat::GetZeitArt() const
{
    const auto* const time = std::get_if<TimeRules>(&m_rules);
    return time != nullptr ? static_cast<FormatZeitArt>(time->mode) : ZelFoZeitEigene;
}

void ZelFormat::FormatTime(std::int32_t units, FormatZeitArt mode, CString& text) const
{
    Deliver(kFormatTime, text, [&](TextBuffer& shown) {
        const TimeRules* const rules = TimeRulesFor(m_rules);
        if (rules == nullptr || !IsTimeMode(mode))
            return Status::NotAllowed;
        return ShowDuration({units, static_cast<TimeMode>(mode)}, *rules, shown);
    });
}

void ZelFormat::FormatDateTime(const std::tm& value, FormatDatumUmfang scope, CString& text) const
{
    Deliver(kFormatDateTime, text, [&](TextBuffer& shown) {
        DateScope dateScope{};
        const bool known = ScopeOf(scope, dateScope);
        const DateRules* const rules = DateRulesFor(m_rules, dateScope);
        return known && rules != nullptr ? ShowDate(value, *rules, shown) : Status::NotAllowed;
    });
}

void ZelFormat::FormatDouble(double value, CString& text) const
{
    Deliver(kFormatDouble, text, [&](TextBuffer& shown) {
        if (const auto* mode = std::get_if<ModeRules>(&m_rules))
            return ShowShortestDouble(value, NumberRulesOfMode(*mode).decimalPoint, shown);
        const auto* rules = std::get_if<NumberRules>(&m_rules);
        return rules != nullptr ? ShowDouble(value, *rules, shown) : Status::NotAllowed;
    });
}

void ZelFormat::FormatChar(char value, CString& text) const
{
    Deliver(kFormatChar, text, [&](TextBuffer& shown) {
        return ShowString({&value, 1}, ZelFoReinerText, m_rules, shown);
    });
}

void ZelFormat::FormatBool(BOOL value, CString& text) const
{
    const auto* const mode = std::get_if<ModeRules>(&m_rules);
    Check(mode != nullptr ? Status::Ok : Status::NotAllowed, kFormatBool);
    SetText(text, BoolText(value != 0, *mode));
}

void ZelFormat::FormatString(const CString& value, FormatTextArt kind, CString& text) const
{
    Deliver(kFormatString, text,
            [&](TextBuffer& shown) { return ShowString(ViewOf(value), kind, m_rules, shown); });
}

void ZelFormat::FormatLong(std::int32_t value, CString& text) const
{
    Deliver(kFormatLong, text,
            [&](TextBuffer& shown) { return ShowInteger(value, m_rules, shown); });
}

void ZelFormat::FormatShort(std::int16_t value, CString& text) const
{
    Deliver(kFormatShort, text,
            [&](TextBuffer& shown) { return ShowInteger(value, m_rules, shown); });
}

void ZelFormat::ParseTime(const CString& text, std::int32_t* units, FormatZeitArt* mode) const
{
    const TimeRules* const rules = TimeRulesFor(m_rules);
    const bool known = rules != nullptr && (mode == nullptr || IsTimeMode(*mode));
    Duration read{0, known && mode != nullptr ? static_cast<TimeMode>(*mode) : TimeMode::Own};
    Check(known ? ReadDuration(ViewOf(text), *rules, read) : Status::NotAllowed, kParseTime);
    if (units != nullptr)
        *units = read.units;
    if (mode != nullptr)
        *mode = static_cast<FormatZeitArt>(read.mode);
}

void ZelFormat::ParseDateTime(const CString& text, FormatDatumUmfang scope, std::tm* value) const
{
    DateScope dateScope{};
    const bool known = ScopeOf(scope, dateScope);
    const DateRules* const rules = DateRulesFor(m_rules, dateScope);
    Check(known && rules != nullptr ? ReadDate(ViewOf(text), *rules, dateScope, value)
                                    : Status::NotAllowed,
          kParseDateTime);
}

void ZelFormat::ParseDouble(const CString& text, double* value) const
{
    const NumberRules* const rules = NumberRulesFor(m_rules);
    const Exponent exponent =
        std::holds_alternative<ModeRules>(m_rules) ? Exponent::Accepted : Exponent::Refused;
    double read = 0;
    Check(rules != nullptr ? ReadDouble(ViewOf(text), *rules, exponent, read) : Status::NotAllowed,
          kParseDouble);
    if (value != nullptr)
        *value = read;
}

void ZelFormat::ParseChar(const CString& text, char* value) const
{
    TextBuffer read;
    Check(ReadString(ViewOf(text), ZelFoReinerText, m_rules, read), kParseChar);
    Check(read.View().size() == 1 ? Status::Ok : Status::TooLong, kParseChar);
    if (value != nullptr)
        *value = read.View()[0];
}

void ZelFormat::ParseBool(const CString& text, BOOL* value) const
{
    bool read = false;
    const bool served = std::holds_alternative<ModeRules>(m_rules);
    Check(served ? ReadBool(ViewOf(text), read) : Status::NotAllowed, kParseBool);
    if (value != nullptr && (*value != 0) != read)
        *value = read ? 1 : 0;
}

void ZelFormat::ParseString(const CString& text, FormatTextArt kind, CString* value) const
{
    TextBuffer read;
    Check(ReadString(ViewOf(text), kind, m_rules, read), kParseString);
    if (value != nullptr)
        SetText(*value, read.View());
}

void ZelFormat::ParseLong(const CString& text, std::int32_t* value) const
{
    ReadInteger(text, m_rules, kParseLong, value);
}

void ZelFormat::ParseShort(const CString& text, std::int16_t* value) const
{
    ReadInteger(text, m_rules, kParseShort, value);
}
