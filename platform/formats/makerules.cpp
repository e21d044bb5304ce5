// The constructors of ZelFormat: from what callers give to rules that are known to be valid.

#include "platform/formats/ZelFormat.h"

#include <algorithm>
#include <initializer_list>

namespace {

using namespace zelformat;

constexpr unsigned long kMostPlaces = 1024;
constexpr unsigned long kMostTextBytes = 0x7FFFFFFF;
constexpr std::uint32_t kEveryByteClass = 1 | 2 | 4 | 8 | 16;

/// One known value of an argument and what it stands for.
template <class Argument, class Meaning>
struct Choice {
    Argument argument;
    Meaning meaning;
};

/// Looks `argument` up among the known values; false when it is none of them.
template <class Argument, class Meaning>
bool Choose(Argument argument, std::initializer_list<Choice<Argument, Meaning>> choices,
            Meaning& meaning)
{
    const auto found = std::find_if(choices.begin(), choices.end(),
                                    [argument](const auto& c) { return c.argument == argument; });
    if (found == choices.end())
        return false;
    meaning = found->meaning;
    return true;
}

bool ChooseSign(ZelFormat::FormatVorzeichen place, ZelFormat::FormatVorzeichenWelches which,
                SignRules& sign)
{
    return Choose(place,
                  {{ZelFormat::ZelFoVorzeichenOhne, SignPlace::None},
                   {ZelFormat::ZelFoVorzeichenVorne, SignPlace::Front},
                   {ZelFormat::ZelFoVorzeichenHinten, SignPlace::Behind}},
                  sign.place) &&
           Choose(which, {{ZelFormat::ZelFoNurMinus, false}, {ZelFormat::ZelFoPlusUndMinus, true}},
                  sign.plus);
}

/// A fill character must not be taken for a part of the number.
bool IsValidFill(Fill fill)
{
    const bool misleading = fill.with == '\0' || fill.with == '-' || fill.with == '+' ||
                            (fill.with >= '1' && fill.with <= '9');
    return !fill.on || !misleading;
}

/// The group separator that is read where none is shown.
char ReadGroup(char shown, char decimalPoint)
{
    if (shown != '\0')
        return shown;
    return decimalPoint != '.' ? '.' : '\0';
}

Rules MakeNumberRules(unsigned long places, unsigned long decimals,
                      ZelFormat::FormatDezimalTrenner decimalSeparator,
                      ZelFormat::FormatTausenderTrenner groupSeparator,
                      ZelFormat::FormatVorzeichen sign,
                      ZelFormat::FormatVorzeichenWelches whichSign, Fill left, Fill right)
{
    NumberRules rules{};
    const bool known = Choose(decimalSeparator,
                              {{ZelFormat::ZelFoDezimalKomma, ','},
                               {ZelFormat::ZelFoDezimalPunkt, '.'},
                               {ZelFormat::ZelFoDezimalOhne, '\0'}},
                              rules.decimalPoint) &&
                       Choose(groupSeparator,
                              {{ZelFormat::ZelFoTausenderOhne, '\0'},
                               {ZelFormat::ZelFoTausenderPunkt, '.'},
                               {ZelFormat::ZelFoTausenderKomma, ','},
                               {ZelFormat::ZelFoTausenderLeer, ' '},
                               {ZelFormat::ZelFoTausenderApostroph, '\''}},
                              rules.group) &&
                       ChooseSign(sign, whichSign, rules.sign) && places <= kMostPlaces &&
                       (decimals <= kMostPlaces || decimals == NumberRules::kAllDecimals);
    const bool ambiguous = rules.group != '\0' && rules.group == rules.decimalPoint;
    const bool lostFill = right.on && right.with != '0' && rules.decimalPoint == '\0';
    if (!known || ambiguous || lostFill || !IsValidFill(left) || !IsValidFill(right))
        return {};
    rules.places = static_cast<std::uint32_t>(places);
    rules.decimals = static_cast<std::uint32_t>(decimals);
    rules.readGroup = ReadGroup(rules.group, rules.decimalPoint);
    rules.left = left;
    rules.right = right;
    const bool noDecimals = decimals == 0 || decimals == NumberRules::kAllDecimals;
    rules.plain = noDecimals && rules.group == '\0' && !left.on && !rules.sign.plus &&
                  rules.sign.place == SignPlace::Front;
    return rules;
}

Rules MakeTimeRules(ZelFormat::FormatZeitArt kind, ZelFormat::FormatZeitDarstellung shape,
                    ZelFormat::FormatVorzeichen sign, ZelFormat::FormatVorzeichenWelches whichSign,
                    unsigned long hourPlaces, Fill fill)
{
    TimeRules rules{};
    const bool known =
        Choose(kind,
               {{ZelFormat::ZelFoZeitHundertstel, TimeMode::Hundredths},
                {ZelFormat::ZelFoZeitMinuten, TimeMode::Minutes},
                {ZelFormat::ZelFoZeitStunden, TimeMode::Hours},
                {ZelFormat::ZelFoZeitEigene, TimeMode::Own}},
               rules.mode) &&
        Choose(shape,
               {{ZelFormat::ZelFoZeitMitTrenner, true}, {ZelFormat::ZelFoZeitOhneTrenner, false}},
               rules.separated) &&
        ChooseSign(sign, whichSign, rules.sign) && hourPlaces <= kMostPlaces;
    if (!known || !IsValidFill(fill))
        return {};
    rules.hundredthsPoint = ',';
    rules.mostHourDigits = static_cast<std::uint32_t>(hourPlaces);
    rules.hourWidth = fill.on ? rules.mostHourDigits : 0;
    rules.fill = fill.with;
    return rules;
}

Rules MakeDateRules(ZelFormat::FormatDatumArt kind, ZelFormat::FormatDatumTrenner separator,
                    ZelFormat::FormatDatumJahr year, ZelFormat::FormatDatumMonat month,
                    Fill twoDigits)
{
    DateRules rules{};
    const bool known =
        Choose(kind,
               {{ZelFormat::ZelFoDatum, DateParts::Date},
                {ZelFormat::ZelFoDatumMinuten, DateParts::DateMinutes},
                {ZelFormat::ZelFoDatumSekunden, DateParts::DateSeconds},
                {ZelFormat::ZelFoDatumZeitWennVorhanden, DateParts::DateTimeIfAny},
                {ZelFormat::ZelFoUhrzeit, DateParts::Minutes}},
               rules.parts) &&
        Choose(separator,
               {{ZelFormat::ZelFoDatumPunkt, '.'},
                {ZelFormat::ZelFoDatumSchraegstrich, '/'},
                {ZelFormat::ZelFoDatumStrich, '-'},
                {ZelFormat::ZelFoDatumOhne, '\0'}},
               rules.separator) &&
        Choose(year,
               {{ZelFormat::ZelFoJahrVierstellig, false}, {ZelFormat::ZelFoJahrZweistellig, true}},
               rules.twoDigitYear) &&
        Choose(month,
               {{ZelFormat::ZelFoMonatZahl, MonthStyle::Number},
                {ZelFormat::ZelFoMonatKurz, MonthStyle::ShortName},
                {ZelFormat::ZelFoMonatLang, MonthStyle::FullName}},
               rules.month);
    if (!known || !IsValidFill(twoDigits))
        return {};
    rules.twoDigits = twoDigits;
    return rules;
}

Rules MakeTextRules(unsigned long most, unsigned long mask, ZelFormat::FormatAuffuellen fill,
                    char fillChar)
{
    TextRules rules{};
    const bool known = Choose(fill,
                              {{ZelFormat::ZelFoAuffuellenOhne, FillSide::None},
                               {ZelFormat::ZelFoAuffuellenLinks, FillSide::Left},
                               {ZelFormat::ZelFoAuffuellenRechts, FillSide::Right}},
                              rules.side);
    const bool validMask = mask == ZelFormat::kulZelFoValidAll || mask <= kEveryByteClass;
    // A NUL byte would end the shown text for whoever reads it as a plain one.
    const bool validFill = rules.side == FillSide::None || fillChar != '\0';
    if (!known || !validMask || !validFill || most > kMostTextBytes)
        return {};
    rules.most = static_cast<std::uint32_t>(most);
    rules.mask = static_cast<std::uint32_t>(mask);
    rules.fill = fillChar;
    return rules;
}

Rules MakeModeRules(ZelFormat::FormatModus mode)
{
    ModeRules rules{};
    const bool known =
        Choose(mode, {{ZelFormat::ZelFoTechnisch, true}, {ZelFormat::ZelFoStandard, false}},
               rules.technical);
    return known ? Rules(rules) : Rules();
}

} // namespace

const unsigned long ZelFormat::kulZelFoValidAll;
const unsigned long ZelFormat::kulZelFoAlleDezimalen;

ZelFormat::ZelFormat(unsigned long places, unsigned long decimals,
                     FormatDezimalTrenner decimalSeparator, FormatTausenderTrenner groupSeparator,
                     FormatVorzeichen sign, FormatVorzeichenWelches whichSign, int fillLeft,
                     char leftChar, int fillRight, char rightChar)
    : m_rules(MakeNumberRules(places, decimals, decimalSeparator, groupSeparator, sign, whichSign,
                              {fillLeft != 0, leftChar}, {fillRight != 0, rightChar}))
{}

ZelFormat::ZelFormat(FormatZeitArt kind, FormatZeitDarstellung shape, FormatVorzeichen sign,
                     FormatVorzeichenWelches whichSign, unsigned long hourPlaces, int fill,
                     char fillChar)
    : m_rules(MakeTimeRules(kind, shape, sign, whichSign, hourPlaces, {fill != 0, fillChar}))
{}

ZelFormat::ZelFormat(FormatDatumArt kind, FormatDatumTrenner separator, FormatDatumJahr year,
                     FormatDatumMonat month, int twoDigits, char fillChar)
    : m_rules(MakeDateRules(kind, separator, year, month, {twoDigits != 0, fillChar}))
{}

ZelFormat::ZelFormat(unsigned long most, unsigned long mask, FormatAuffuellen fill, char fillChar)
    : m_rules(MakeTextRules(most, mask, fill, fillChar))
{}

ZelFormat::ZelFormat(FormatModus mode) : m_rules(MakeModeRules(mode)) {}
