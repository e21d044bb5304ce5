#include "platform/formats/plaintext.h"

#include "platform/formats/numbertext.h"
#include "platform/runtime/ansi.h"

#include <algorithm>
#include <array>

namespace zelformat {

namespace {

enum ByteClass : std::uint8_t { Letter = 1, Digit = 2, Blank = 4, Printable = 8, Control = 16 };

constexpr std::uint32_t kAllClasses = Letter | Digit | Blank | Printable | Control;

constexpr ByteClass ClassOf(unsigned char byte)
{
    if (byte >= '0' && byte <= '9')
        return Digit;
    if (byte == ' ')
        return Blank;
    if (zelrt::AnsiIsUpper(byte) || zelrt::AnsiIsLower(byte))
        return Letter;
    // The bytes that the code page leaves open stand for control characters.
    const char16_t codePoint = zelrt::AnsiToUnicode(byte);
    return codePoint < 0x20 || (codePoint >= 0x7F && codePoint < 0xA0) ? Control : Printable;
}

constexpr std::array<ByteClass, 256> MakeByteClasses()
{
    std::array<ByteClass, 256> classes{};
    for (unsigned byte = 0; byte < 256; ++byte)
        classes[byte] = ClassOf(static_cast<unsigned char>(byte));
    return classes;
}

constexpr std::array<ByteClass, 256> kByteClasses = MakeByteClasses();

static_assert(kByteClasses[0xDF] == Letter && kByteClasses[0xD7] == Printable);
static_assert(kByteClasses[0x80] == Printable && kByteClasses[0x81] == Control);
static_assert(kByteClasses[0xA0] == Printable && kByteClasses[0x7F] == Control);

Status Check(std::string_view value, const TextRules& rules)
{
    if (rules.most != 0 && value.size() > rules.most)
        return Status::TooLong;
    if ((rules.mask & kAllClasses) == kAllClasses)
        return Status::Ok;
    const bool allowed = std::all_of(value.begin(), value.end(), [&rules](char c) {
        return (kByteClasses[static_cast<unsigned char>(c)] & rules.mask) != 0;
    });
    return allowed ? Status::Ok : Status::Mismatch;
}

struct BoolWord {
    std::string_view word; ///< upper case
    bool value;
};

constexpr BoolWord kBoolWords[] = {{"JA", true},    {"J", true},  {"1", true},
                                   {"NEIN", false}, {"N", false}, {"0", false}};

bool EqualUpper(std::string_view text, std::string_view upper)
{
    return std::equal(text.begin(), text.end(), upper.begin(), upper.end(), [](char c, char u) {
        return zelrt::AnsiToUpper(static_cast<unsigned char>(c)) == static_cast<unsigned char>(u);
    });
}

} // namespace

Status ShowText(std::string_view value, const TextRules& rules, TextBuffer& text)
{
    const Status status = Check(value, rules);
    if (status != Status::Ok)
        return status;
    if (rules.side == FillSide::None || rules.most <= value.size()) {
        text.Refer(value);
        return Status::Ok;
    }
    const std::size_t missing = rules.most - value.size();
    char* out = text.Make(rules.most);
    if (rules.side == FillSide::Left)
        out = std::fill_n(out, missing, rules.fill);
    out = Put(value, out);
    if (rules.side == FillSide::Right)
        std::fill_n(out, missing, rules.fill);
    return Status::Ok;
}

Status ReadText(std::string_view text, const TextRules& rules, TextBuffer& value)
{
    if (rules.side == FillSide::Left)
        text.remove_prefix(std::min(text.find_first_not_of(rules.fill), text.size()));
    if (rules.side == FillSide::Right)
        text = text.substr(0, text.find_last_not_of(rules.fill) + 1);
    const Status status = Check(text, rules);
    if (status == Status::Ok)
        value.Refer(text);
    return status;
}

std::string_view BoolText(bool value, const ModeRules& mode) noexcept
{
    if (mode.technical)
        return value ? "1" : "0";
    return value ? "Ja" : "Nein";
}

Status ReadBool(std::string_view text, bool& value) noexcept
{
    text = TrimBlanks(text);
    for (const BoolWord& row : kBoolWords) {
        if (EqualUpper(text, row.word)) {
            value = row.value;
            return Status::Ok;
        }
    }
    return Status::Mismatch;
}

} // namespace zelformat
