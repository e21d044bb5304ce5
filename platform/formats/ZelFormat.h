#ifndef ZELDT_PLATFORM_FORMATS_ZELFORMAT_H
#define ZELDT_PLATFORM_FORMATS_ZELFORMAT_H

#include "../framework/framework.h"
#include "../runtime/wintypes.h"
#include "ZelFormatExcep.h"
#include "export.h"
#include "rules.h"

#include <cstdint>
#include <ctime>

namespace zelformat {
struct RulesAccess;
} // namespace zelformat

/// Shows values to people and reads what they type, by German business conventions.
///
/// A format is a constant description: it has no state beyond what its constructor was given, may
/// be copied, and may be used by several threads at once. It belongs to its maker; whoever keeps a
/// pointer to one does not own it. There are five kinds, one constructor each:
///
/// | kind | serves |
/// |---|---|
/// | numeric | double, long, short, numbers as texts |
/// | time | durations |
/// | date | date-times and dates |
/// | text | strings and characters |
/// | mode | every type, each in a fixed way |
///
/// The 16 operations show a value (Format...) or read one (Parse...). A number is never cut to fit,
/// and it is rounded only where the format has fewer decimals: ties away from zero, decided by the
/// decimal digits that are shown without rounding. What a format shows, it reads back, unless it
/// was told to drop something. Nothing depends on the process locale.
///
/// Blanks and tabs around a text are ignored, except for strings and characters.
///
/// Failures throw a ZelFormatExcep* (the receiver deletes it) of module "ZELFORMT" and class
/// "ZelFormat"; the target, text or value, is then unchanged:
///
/// - 8: a number beyond its type or too small for it, NaN and infinities, a date that the calendar
///   does not have, a time beyond 23:59:59, 60 minutes, more than 1789568 hours;
/// - 11: a character's text is not one byte; a string is longer than the text format allows; a
///   typed number would be shown longer than the places of the format; a number as text is longer
///   than 38 bytes without sign, needless zeros and groups;
/// - 20: the constructor was given something unknown (noticed at the first use, construction never
///   fails); the kind of the format does not serve the type; a negative number without sign place;
///   a number to be shown that needs more characters than there are places, or has decimals where
///   all are to be shown without separator;
/// - 21: anything else that a typed text does wrong; a byte outside the mask of a text format.
///
///     const ZelFormat money(0, 2, ZelFormat::ZelFoDezimalKomma, ZelFormat::ZelFoTausenderPunkt,
///                           ZelFormat::ZelFoVorzeichenVorne, ZelFormat::ZelFoNurMinus, 0, ' ', 0,
///                           ' ');
///     CString text;
///     money.FormatDouble(1234567.891, text);   // 1.234.567,89
class ZELFOMT_API ZelFormat {
public:
    enum FormatDezimalTrenner : int {
        ZelFoDezimalKomma = 0,
        ZelFoDezimalPunkt = 1,
        ZelFoDezimalOhne = 3
    };
    enum FormatTausenderTrenner : int {
        ZelFoTausenderOhne = 0,
        ZelFoTausenderPunkt = 1,
        ZelFoTausenderKomma = 2,
        ZelFoTausenderLeer = 3,
        ZelFoTausenderApostroph = 4
    };
    enum FormatVorzeichen : int {
        ZelFoVorzeichenOhne = 0,
        ZelFoVorzeichenVorne = 1,
        ZelFoVorzeichenHinten = 2
    };
    enum FormatVorzeichenWelches : int { ZelFoNurMinus = 0, ZelFoPlusUndMinus = 1 };
    /// Also the mode of a duration; there ZelFoZeitEigene means: undecided.
    enum FormatZeitArt : int {
        ZelFoZeitHundertstel = 0,
        ZelFoZeitMinuten = 1,
        ZelFoZeitStunden = 2,
        ZelFoZeitEigene = 3
    };
    enum FormatZeitDarstellung : int { ZelFoZeitMitTrenner = 0, ZelFoZeitOhneTrenner = 1 };
    enum FormatDatumArt : int {
        ZelFoDatum = 0,
        ZelFoDatumMinuten = 1,
        ZelFoDatumSekunden = 2,
        ZelFoDatumZeitWennVorhanden = 3, ///< the time only if it is not midnight
        ZelFoUhrzeit = 4                 ///< hours and minutes, no date
    };
    enum FormatDatumTrenner : int {
        ZelFoDatumPunkt = 0,
        ZelFoDatumSchraegstrich = 1,
        ZelFoDatumStrich = 2,
        ZelFoDatumOhne = 3
    };
    enum FormatDatumJahr : int { ZelFoJahrVierstellig = 0, ZelFoJahrZweistellig = 1 };
    enum FormatDatumMonat : int { ZelFoMonatZahl = 0, ZelFoMonatKurz = 1, ZelFoMonatLang = 2 };
    enum FormatAuffuellen : int {
        ZelFoAuffuellenOhne = 0,
        ZelFoAuffuellenLinks = 1,
        ZelFoAuffuellenRechts = 2
    };
    enum FormatModus : int { ZelFoTechnisch = 0, ZelFoStandard = 1 };

    /// What FormatString and ParseString are to make of a text. Strings are plain texts, which a
    /// mode leaves alone; decimals travel as numbers in texts, which are shown and read like every
    /// other number.
    enum FormatTextArt : int { ZelFoReinerText = 0, ZelFoZahlText = 1 };

    /// What a calendar value is to a mode: with a date alone the time of day is not shown.
    enum FormatDatumUmfang : int { ZelFoDatumMitZeit = 0, ZelFoNurDatum = 1 };

    /// Every class of bytes is allowed in a text. The classes are 1 letters, 2 digits, 4 the
    /// blank, 8 other printable bytes, 16 control bytes, by code page 1252.
    static const unsigned long kulZelFoValidAll = 0xFFFFFFFFUL;

    /// Decimals of a numeric format: as many as the number has.
    static const unsigned long kulZelFoAlleDezimalen = 0xFFFFFFFFUL;

    /// Numeric format, for fixed notation without exponents.
    ///
    /// `places`: most characters, sign and separators included; 0: no limit. `decimals`: always
    /// shown, at most 1024; no text with more of them is read, and those typed for a long or short
    /// must be zeros (all decimals of these are none). Without decimal separator they follow the
    /// integer part directly, also when read. Groups are accepted whether shown or not, the first
    /// one without zeros in front but fill (0.125 is no number); a format that shows none accepts
    /// points, unless the point separates its decimals. A sign is accepted in front and behind
    /// wherever there is a sign place. A zero has no sign.
    ///
    /// `fillLeft` (not 0: on) fills up to the places with `leftChar`, zeros behind the sign,
    /// anything else before it. `fillRight` (not 0: on) puts `rightChar` in place of the decimals
    /// that the number itself lacks; otherwise these are zeros. Either may be typed any number of
    /// times on its side; with right fill the decimal separator may end the number.
    ///
    /// Not valid besides unknown numbers: the same character as both separators, more than 1024
    /// places, a fill character that is a digit other than 0, a sign or NUL, a right fill
    /// character other than 0 without decimal separator.
    ZelFormat(unsigned long places, unsigned long decimals, FormatDezimalTrenner decimalSeparator,
              FormatTausenderTrenner groupSeparator, FormatVorzeichen sign,
              FormatVorzeichenWelches whichSign, int fillLeft, char leftChar, int fillRight,
              char rightChar);

    /// Time format. `hourPlaces`: most digits of the hours, at most 1024; 0: no limit. `fill` (not
    /// 0: on) fills the hours up to these places with `fillChar` (as the numeric format does).
    /// Without separator the last two digits are the fraction; nothing else tells, so the value's
    /// own mode must be given to ParseTime then.
    ZelFormat(FormatZeitArt kind, FormatZeitDarstellung shape, FormatVorzeichen sign,
              FormatVorzeichenWelches whichSign, unsigned long hourPlaces, int fill, char fillChar);

    /// Date format. `twoDigits` (not 0: on) brings day, month number and hour to two places with
    /// `fillChar`. Without separator day and month number always have two digits. Where months
    /// have names, numbers and both lengths of the names are read, in any case.
    ZelFormat(FormatDatumArt kind, FormatDatumTrenner separator, FormatDatumJahr year,
              FormatDatumMonat month, int twoDigits, char fillChar);

    /// Text format. `most`: most bytes; 0: any number. `mask`: allowed classes of bytes. `fill`
    /// fills a shown text up to `most` on that side and drops the fill characters there from a
    /// typed one; they need not be in the mask, but not be NUL.
    ZelFormat(unsigned long most, unsigned long mask, FormatAuffuellen fill, char fillChar);

    /// Every type in a fixed way.
    ///
    /// | type | standard | technical |
    /// |---|---|---|
    /// | long, short | -12 | -12 |
    /// | double | 1,5 | 1.5 |
    /// | number as text | 1,50 | 1.50 |
    /// | boolean | Ja, Nein | 1, 0 |
    /// | character, string | unchanged | unchanged |
    /// | date-time | 05.03.2000 14:07, seconds when not 0 | 5.3.2000 14:07 |
    /// | date | 05.03.2000 | 5.3.2000 |
    /// | duration | 01:30 or 01,50 or 01 by its mode | 1:30 or 1.50 or 1 |
    ///
    /// A double has the fewest digits that read back the same; from 1E+15 on and below 1E-05 it
    /// has an exponent (1,5E+15). Any double may be typed with one. The standard mode reads
    /// numbers with groups (1.234) too; the technical mode does not.
    explicit ZelFormat(FormatModus mode);

    ZelFormat(const ZelFormat&) = default;
    ZelFormat& operator=(const ZelFormat&) = default;
    virtual ~ZelFormat();

    // Showing: `text` receives the shown text.

    /// `units` of 1/1200 hour. Fractions below the last place shown are dropped. A value in whole
    /// hours with a fraction left over shows minutes unless the format has a kind of its own.
    virtual void FormatTime(std::int32_t units, FormatZeitArt mode, CString& text) const;
    /// Fields as in the C standard (years since 1900, months from 0); calendar years 0 to 32767.
    /// Fields that are not shown may hold anything.
    virtual void FormatDateTime(const std::tm& value, FormatDatumUmfang scope, CString& text) const;
    virtual void FormatDouble(double value, CString& text) const;
    virtual void FormatChar(char value, CString& text) const;
    virtual void FormatBool(BOOL value, CString& text) const;
    /// A number as text has digits, an optional sign in front and an optional point.
    virtual void FormatString(const CString& value, FormatTextArt kind, CString& text) const;
    virtual void FormatLong(std::int32_t value, CString& text) const;
    virtual void FormatShort(std::int16_t value, CString& text) const;

    // Reading: the value pointed to is changed on success only. With a null pointer the text is
    // checked and nothing else happens.

    /// Both targets receive something or none does; either may be null. `*mode` receives the mode
    /// of the text: the format's kind, else what the text shows (whole hours without separator).
    /// It is looked at only where a format without separator leaves the mode to the value.
    virtual void ParseTime(const CString& text, std::int32_t* units, FormatZeitArt* mode) const;
    /// The target must hold a value: what the format does not show stays (the time of day with a
    /// format for dates, the date with one for times of day). Week day and day of the year become
    /// 0, the daylight flag -1. Two digits of a year are those of the current century.
    /// A missing time is midnight, missing seconds are 0. A date alone may be typed without
    /// separators (DDMMYYYY, DDMMYY), and in the modes with a time of day.
    virtual void ParseDateTime(const CString& text, FormatDatumUmfang scope, std::tm* value) const;
    virtual void ParseDouble(const CString& text, double* value) const;
    virtual void ParseChar(const CString& text, char* value) const;
    /// Ja, J, 1, Nein, N, 0 in any case. A value that is true already stays as it is on "Ja".
    virtual void ParseBool(const CString& text, BOOL* value) const;
    /// A number as text is given with '-' in front when negative, '.' before its decimals, these
    /// as they were written; without exponent.
    virtual void ParseString(const CString& text, FormatTextArt kind, CString* value) const;
    virtual void ParseLong(const CString& text, std::int32_t* value) const;
    virtual void ParseShort(const CString& text, std::int16_t* value) const;

    /// The kind of a time format; ZelFoZeitEigene for every other format.
    FormatZeitArt GetZeitArt() const;

private:
    friend struct zelformat::RulesAccess;

    zelformat::Rules m_rules;
};

#endif
