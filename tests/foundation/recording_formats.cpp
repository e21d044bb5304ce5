#include "tests/foundation/recording_formats.h"

#include "platform/formats/ZelFormat.h"

#include <map>
#include <sstream>

namespace {

using namespace zeltest;

struct Record {
    std::vector<FormatEvent> events;
    std::map<const void*, std::string> living; ///< arguments of the formats that are there
};

Record& TheRecord()
{
    static Record record;
    return record;
}

ClassesStand WhereClassesStand()
{
    const CRuntimeClass* const basis = CRuntimeClass::FromName("ZelDtBasis");
    if (basis == nullptr)
        return ClassesStand::Nowhere;
    // What is registered last stands in front of the rest of the general list.
    CRuntimeClass probe = {"probe", 0, 0xFFFFU, nullptr, nullptr, nullptr};
    const CClassRegistration registration(&probe);
    for (const CRuntimeClass* r = probe.m_pNextClass; r != nullptr; r = r->m_pNextClass) {
        if (r == basis)
            return ClassesStand::OnTheGeneralList;
    }
    return ClassesStand::OnTheirLibrarysList;
}

template <typename... Arguments>
void Made(const ZelFormat* format, const char* kind, const Arguments&... arguments)
{
    std::ostringstream text;
    text << kind;
    ((text << ' ' << arguments), ...);
    TheRecord().living[format] = text.str();
    TheRecord().events.push_back({true, format, text.str(), WhereClassesStand()});
}

void Show(const ZelFormat* format, const char* operation, CString& text)
{
    text = (operation + (" of " + TheRecord().living.at(format))).c_str();
}

} // namespace

extern "C" ZELRT_EXPORT const std::vector<FormatEvent>& FormatEvents()
{
    return TheRecord().events;
}

ZelFormat::ZelFormat(unsigned long places, unsigned long decimals,
                     FormatDezimalTrenner decimalSeparator, FormatTausenderTrenner groupSeparator,
                     FormatVorzeichen sign, FormatVorzeichenWelches whichSign, int fillLeft,
                     char leftChar, int fillRight, char rightChar)
{
    Made(this, "numeric", places, decimals, decimalSeparator, groupSeparator, sign, whichSign,
         fillLeft, leftChar, fillRight, rightChar);
}

ZelFormat::ZelFormat(FormatZeitArt kind, FormatZeitDarstellung shape, FormatVorzeichen sign,
                     FormatVorzeichenWelches whichSign, unsigned long hourPlaces, int fill,
                     char fillChar)
{
    Made(this, "time", kind, shape, sign, whichSign, hourPlaces, fill, fillChar);
}

ZelFormat::ZelFormat(FormatDatumArt kind, FormatDatumTrenner separator, FormatDatumJahr year,
                     FormatDatumMonat month, int twoDigits, char fillChar)
{
    Made(this, "date", kind, separator, year, month, twoDigits, fillChar);
}

ZelFormat::ZelFormat(unsigned long most, unsigned long mask, FormatAuffuellen fill, char fillChar)
{
    Made(this, "text", most, mask, fill, fillChar);
}

ZelFormat::ZelFormat(FormatModus mode)
{
    Made(this, "mode", mode);
}

ZelFormat::~ZelFormat()
{
    TheRecord().events.push_back({false, this, TheRecord().living.at(this), WhereClassesStand()});
    TheRecord().living.erase(this);
}

void ZelFormat::FormatTime(std::int32_t, FormatZeitArt, CString& text) const
{
    Show(this, "time", text);
}

void ZelFormat::FormatDateTime(const std::tm&, FormatDatumUmfang, CString& text) const
{
    Show(this, "date-time", text);
}

void ZelFormat::FormatDouble(double, CString& text) const
{
    Show(this, "double", text);
}

void ZelFormat::FormatChar(char, CString& text) const
{
    Show(this, "character", text);
}

void ZelFormat::FormatBool(BOOL, CString& text) const
{
    Show(this, "boolean", text);
}

void ZelFormat::FormatString(const CString&, FormatTextArt, CString& text) const
{
    Show(this, "string", text);
}

void ZelFormat::FormatLong(std::int32_t, CString& text) const
{
    Show(this, "long", text);
}

void ZelFormat::FormatShort(std::int16_t, CString& text) const
{
    Show(this, "short", text);
}

// Nothing is read here.

void ZelFormat::ParseTime(const CString&, std::int32_t*, FormatZeitArt*) const {}
void ZelFormat::ParseDateTime(const CString&, FormatDatumUmfang, std::tm*) const {}
void ZelFormat::ParseDouble(const CString&, double*) const {}
void ZelFormat::ParseChar(const CString&, char*) const {}
void ZelFormat::ParseBool(const CString&, BOOL*) const {}
void ZelFormat::ParseString(const CString&, FormatTextArt, CString*) const {}
void ZelFormat::ParseLong(const CString&, std::int32_t*) const {}
void ZelFormat::ParseShort(const CString&, std::int16_t*) const {}
