#include "text/IMP/DTBOOLI.h"

#include "foundation/DT_IUTIL.h"

namespace {

constexpr zeldt::Operation kFromText = {"IMP/DTBOOLI", "ZelDtBool_Imp", "ZelDtBool_Imp(BOOL)"};

/// The case of words does not count.
constexpr std::string_view kYesWord = "Ja";
constexpr std::string_view kNoWord = "Nein";
constexpr std::string_view kYesDigit = "1";
constexpr std::string_view kNoDigit = "0";

bool IsWord(std::string_view text, std::string_view word)
{
    return text.size() == word.size() && ZelDtVglString(text.data(), word.data(), 0) != 0;
}

} // namespace

std::int32_t ZelDtBool_Imp::NumberOf(std::string_view text)
{
    if (IsWord(text, kYesWord) || text == kYesDigit)
        return 1;
    if (IsWord(text, kNoWord) || text == kNoDigit)
        return 0;
    zeldt::Raise(kFromText, zeldt::ErrorNo::InitialValue);
}
