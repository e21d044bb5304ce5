#include "formats_rules.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <initializer_list>
#include <string>
#include <string_view>

// A display format made of any bytes, unknown settings included, and a value of each class: shown,
// read from any text, and exchanged with a control of a dialog. What cannot be shown or read ends
// with an error that formats have and changes nothing; what is shown keeps to its places and is
// read back.

namespace {

/// Not inlined, so that a stack trace tells which condition it was.
[[gnu::noinline]] void Require(bool condition)
{
    if (!condition)
        std::abort();
}

/// Hands the bytes out piece by piece; zeros behind the end.
class Input {
public:
    Input(const std::uint8_t* data, std::size_t size)
        : m_rest(reinterpret_cast<const char*>(data), size)
    {}

    /// Any bit pattern.
    template <typename Number>
    Number Take()
    {
        Number number{};
        const std::size_t size = std::min(sizeof number, m_rest.size());
        std::memcpy(&number, m_rest.data(), size);
        m_rest.remove_prefix(size);
        return number;
    }

    std::uint8_t Byte() { return Take<std::uint8_t>(); }
    std::string Rest() const { return std::string(m_rest); }

private:
    std::string_view m_rest;
};

// Formats

/// One of the first `known` numbers mostly, else any number.
template <typename Enumeration>
Enumeration Setting(Input& in, int known)
{
    const std::uint8_t byte = in.Byte();
    return static_cast<Enumeration>(byte < 0xFC ? byte % known : in.Take<std::int32_t>());
}

unsigned long Count(Input& in)
{
    const std::uint8_t byte = in.Byte();
    if (byte < 0xE0)
        return byte % 45;
    return byte < 0xFC ? 1000UL + byte : in.Take<std::uint32_t>();
}

ZelFormat MakeNumberFormat(Input& in, Settings& settings)
{
    settings.places = Count(in);
    settings.decimals = in.Byte() % 2 != 0 ? Count(in) : ZelFormat::kulZelFoAlleDezimalen;
    const auto point = Setting<ZelFormat::FormatDezimalTrenner>(in, 4);
    const auto group = Setting<ZelFormat::FormatTausenderTrenner>(in, 5);
    const auto sign = Setting<ZelFormat::FormatVorzeichen>(in, 3);
    const auto which = Setting<ZelFormat::FormatVorzeichenWelches>(in, 2);
    const int fillLeft = in.Byte() % 2;
    const char left = in.Take<char>();
    const int fillRight = in.Byte() % 2;
    settings.filled = fillLeft != 0;
    settings.fillsDecimals = fillRight != 0;
    return {settings.places, settings.decimals, point, group,     sign,
            which,           fillLeft,          left,  fillRight, in.Take<char>()};
}

ZelFormat MakeTimeFormat(Input& in, Settings& settings)
{
    const auto kind = Setting<ZelFormat::FormatZeitArt>(in, 4);
    const auto shape = Setting<ZelFormat::FormatZeitDarstellung>(in, 2);
    const auto sign = Setting<ZelFormat::FormatVorzeichen>(in, 3);
    const auto which = Setting<ZelFormat::FormatVorzeichenWelches>(in, 2);
    settings.timeKind = kind;
    settings.places = Count(in);
    const int fill = in.Byte() % 2;
    return {kind, shape, sign, which, settings.places, fill, in.Take<char>()};
}

ZelFormat MakeDateFormat(Input& in, Settings& settings)
{
    const auto kind = Setting<ZelFormat::FormatDatumArt>(in, 5);
    const auto separator = Setting<ZelFormat::FormatDatumTrenner>(in, 4);
    const auto year = Setting<ZelFormat::FormatDatumJahr>(in, 2);
    const auto month = Setting<ZelFormat::FormatDatumMonat>(in, 3);
    settings.dateKind = kind;
    settings.twoDigitYear = year == ZelFormat::ZelFoJahrZweistellig;
    const int twoDigits = in.Byte() % 2;
    return {kind, separator, year, month, twoDigits, in.Take<char>()};
}

ZelFormat MakeTextFormat(Input& in, Settings& settings)
{
    const auto mask = in.Byte() % 2 != 0 ? ZelFormat::kulZelFoValidAll : in.Byte();
    settings.side = Setting<ZelFormat::FormatAuffuellen>(in, 3);
    settings.filled = settings.side != ZelFormat::ZelFoAuffuellenOhne;
    settings.places = Count(in);
    // A filled text takes as much memory as its format asks for.
    if (settings.filled)
        settings.places = std::min(settings.places, 5000UL);
    settings.fill = in.Take<char>();
    return {settings.places, mask, settings.side, settings.fill};
}

ZelFormat MakeFormat(Input& in, Settings& settings)
{
    settings.kind = static_cast<Kind>(in.Byte() % 5);
    switch (settings.kind) {
    case Kind::Number:
        return MakeNumberFormat(in, settings);
    case Kind::Time:
        return MakeTimeFormat(in, settings);
    case Kind::Date:
        return MakeDateFormat(in, settings);
    case Kind::Text:
        return MakeTextFormat(in, settings);
    default:
        return ZelFormat(Setting<ZelFormat::FormatModus>(in, 2));
    }
}

// Errors

bool IsOneOf(unsigned long number, std::initializer_list<unsigned long> numbers)
{
    return std::find(numbers.begin(), numbers.end(), number) != numbers.end();
}

constexpr std::initializer_list<unsigned long> kFormatErrors = {8, 11, 20, 21};

/// The number of the error that an operation of a format ends with; 0 when it succeeds.
template <typename Action>
unsigned long FormatFailure(const Action& action)
{
    try {
        action();
    } catch (ZelFormatExcep* e) {
        const unsigned long number = e->GetErrorNo();
        delete e;
        Require(IsOneOf(number, kFormatErrors));
        return number;
    }
    return 0;
}

/// The number of the first error when an operation of a value fails, 0 when it succeeds. Besides
/// those of formats there are a decimal beyond its digits and a year before 1753.
template <typename Action>
unsigned long Failure(const Action& action)
{
    try {
        action();
    } catch (ZelDtExcep* e) {
        const ZelEhBasis& first = e->GetFirstCause();
        const bool ofFormat = dynamic_cast<const ZelFormatExcep*>(&first) != nullptr;
        const unsigned long number = first.GetErrorNo();
        const bool wrapped = e->GetErrorNo() == 1 && &first != e;
        delete e;
        Require(wrapped);
        Require(ofFormat ? IsOneOf(number, kFormatErrors) : IsOneOf(number, {4, 8, 24, 27}));
        return number;
    }
    return 0;
}

// Values

/// The content of a value as bytes.
template <typename Value>
std::string ContentOf(Value value)
{
    CMemFile file;
    CArchive ar(&file, CArchive::store);
    value.Serialize(ar);
    ar.Close();
    std::string content(static_cast<std::size_t>(file.GetLength()), '\0');
    file.SeekToBegin();
    file.Read(content.data(), static_cast<UINT>(content.size()));
    return content;
}

/// Numbers from records may be too long for archives.
std::string ContentOf(const ZelDtDecimal& value)
{
    const double number = value;
    std::string content(sizeof number, '\0');
    std::memcpy(content.data(), &number, sizeof number);
    return value.IsDefined() ? content + std::to_string(value.GetPrecision()) : content;
}

/// Archives leave the mode out.
std::string ContentOf(const ZelDtTime& value)
{
    return ContentOf<ZelDtTime>(value) + std::to_string(value.GetMode());
}

/// All that can be seen of a value without a format.
template <typename Value>
std::string StateOf(const Value& value)
{
    return ContentOf(value) + static_cast<char>(value.IsDefined()) +
           static_cast<char>(value.IsModified()) + static_cast<char>(value.GetWorkingMode());
}

// Showing and reading

/// Times count the digits of their hours only; there are two more behind these.
void CheckHourPlaces(const CString& shown, const Settings& settings)
{
    const std::string_view text(shown, static_cast<std::size_t>(shown.GetLength()));
    const auto digits = static_cast<unsigned long>(
        std::count_if(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; }));
    Require(digits <= settings.places + 2);
}

void CheckPlaces(const CString& shown, const Settings& settings)
{
    const auto length = static_cast<unsigned long>(shown.GetLength());
    if (settings.places == 0)
        return;
    if (settings.kind == Kind::Time)
        return CheckHourPlaces(shown, settings);
    Require(length <= settings.places);
    Require(!settings.filled || length == settings.places);
}

/// Gives the copy that reads a text another content, which must not be taken for what was read.
template <typename Value>
void Disturb(Value&)
{}

void Disturb(ZelDtLong& value)
{
    value = 4711;
}

void Disturb(ZelDtShort& value)
{
    value = 4711;
}

void Disturb(ZelDtDouble& value)
{
    value = 47.11;
}

void Disturb(ZelDtString& value)
{
    value = "something else";
}

void Disturb(ZelDtDateTime& value)
{
    value = ZelDtDateTime("17.11.1999 13:14:15", ZelDtDateTime::DateTimeString);
}

void Disturb(ZelDtDateZp& value)
{
    value = ZelDtDateZp("17.11.1999");
}

void Disturb(ZelDtTime& value)
{
    value.SetFromSQL(4711);
}

template <typename Value>
void CheckShown(const Value& value, const ZelFormat& format, const Settings& settings)
{
    CString shown("untouched");
    if (Failure([&] { shown = value.ConvToOFL(&format); }) != 0)
        return;
    if (settings.kind == Rules<Value>::kind)
        CheckPlaces(shown, settings);
    // Texts end at a NUL byte, and an empty one clears the value that reads it.
    if (std::strlen(shown) != static_cast<std::size_t>(shown.GetLength()) || shown.IsEmpty())
        return;
    Value read(value);
    Disturb(read);
    if (const unsigned long refused = Failure([&] { read.SetFromOFL(shown, &format); })) {
        Require(Rules<Value>::MayBeRefused(value, shown, refused));
        return;
    }
    Require(read.IsDefined());
    Require(Rules<Value>::IsBack(value, read, settings));
    CString again;
    Require(Failure([&] { again = read.ConvToOFL(&format); }) == 0);
    Require(again == shown || !Rules<Value>::TextIsBack(value, settings));
}

template <typename Value>
void CheckReading(const Value& before, const std::string& text, const ZelFormat& format,
                  const Settings& settings)
{
    Value value(before);
    if (Failure([&] { value.SetFromOFL(text.c_str(), &format); }) != 0) {
        Require(StateOf(value) == StateOf(before));
        return;
    }
    const bool cleared = text.c_str()[0] == '\0';
    Require(value.IsDefined() != (cleared && before.GetWorkingMode() != ZelDtWmAlwaysDefined));
    if (cleared)
        return;
    CString shown;
    Require(Failure([&] { shown = value.ConvToOFL(&format); }) == 0);
    CheckShown(value, format, settings);
}

// Dialogs

/// A window with one edit control that takes texts of any length.
class Dialog : public CWnd {
public:
    static constexpr int kControl = 100;

    Dialog()
    {
        Attach(CreateWindowExA(0, "#32770", "", 0, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr));
        m_hControl =
            CreateWindowExA(0, "EDIT", "", WS_CHILD, 0, 0, 0, 0, m_hWnd,
                            reinterpret_cast<HMENU>(std::intptr_t{kControl}), nullptr, nullptr);
        Require(m_hControl != nullptr);
    }

    void SetText(const char* text) const { Require(SetWindowTextA(m_hControl, text)); }

    CString Text() const
    {
        CString text;
        const int size = GetWindowTextLengthA(m_hControl) + 1;
        GetWindowTextA(m_hControl, text.GetBuffer(size), size);
        text.ReleaseBuffer();
        return text;
    }

    template <typename Value>
    void Exchange(Value& value, BOOL save)
    {
        CDataExchange exchange(this, save);
        DDX_ZelDtTyp(&exchange, kControl, value);
    }

private:
    HWND m_hControl;
};

/// A control gives and takes exactly what the value shows and reads.
template <typename Value>
void CheckDialog(const Value& before, const std::string& text, const ZelFormat& format)
{
    static Dialog dialog;
    Value direct(before);
    direct.SetFormat(&format);
    Value exchanged(before);
    exchanged.SetFormat(&format);
    dialog.SetText(text.c_str());
    const unsigned long failure = Failure([&] { direct.SetFromOFL(text.c_str(), nullptr); });
    Require(Failure([&] { dialog.Exchange(exchanged, TRUE); }) == failure);
    Require(StateOf(exchanged) == StateOf(direct));

    CString shown;
    const unsigned long unshown = Failure([&] { shown = direct.ConvToOFL(nullptr); });
    Require(Failure([&] { dialog.Exchange(exchanged, FALSE); }) == unshown);
    Require(dialog.Text() == (unshown == 0 ? static_cast<const char*>(shown) : text.c_str()));
    Require(StateOf(exchanged) == StateOf(direct));
}

template <typename Value>
void Check(const Value& value, const std::string& text, const ZelFormat& format,
           const Settings& settings)
{
    if (value.IsDefined())
        CheckShown(value, format, settings);
    CheckReading(value, text, format, settings);
    CheckDialog(value, text, format);
}

// Values of any bytes

template <typename DateTime>
DateTime FromWords(std::initializer_list<std::int32_t> words)
{
    CMemFile file;
    CArchive store(&file, CArchive::store);
    store << DWORD{1};
    for (const std::int32_t word : words)
        store << word;
    store.Close();
    file.SeekToBegin();
    DateTime value;
    CArchive load(&file, CArchive::load);
    value.Serialize(load);
    return value;
}

/// A field of a date as the calendar has it, or anything.
std::int32_t Field(Input& in, bool sound, int lowest, int count)
{
    return sound ? lowest + in.Take<std::uint16_t>() % count : in.Take<std::int32_t>();
}

void CheckDates(Input& in, const ZelFormat& format, const Settings& settings, bool dateOnly)
{
    const bool sound = in.Byte() < 0xE0;
    const std::int32_t year = Field(in, sound, 1753 - 1900, 31000);
    const std::int32_t month = Field(in, sound, 0, 12);
    const std::int32_t day = Field(in, sound, 1, 28);
    if (dateOnly) {
        const auto date = FromWords<ZelDtDateZp>({year, month, day});
        Check(date, in.Rest(), format, settings);
        return;
    }
    const std::int32_t hour = Field(in, sound, 0, 24);
    const std::int32_t minute = Field(in, sound, 0, 60);
    const std::int32_t second = Field(in, sound, 0, 60);
    const auto value = FromWords<ZelDtDateTime>({second, minute, hour, year, month, day});
    Check(value, in.Rest(), format, settings);
}

void CheckDecimal(Input& in, const ZelFormat& format, const Settings& settings)
{
    DEC record{};
    const std::uint8_t choice = in.Byte();
    record.sign = choice % 2;
    record.scale =
        choice < 0xE0 ? static_cast<std::int16_t>(choice / 2 % 28) : in.Take<std::int16_t>();
    record.low = in.Take<std::uint32_t>();
    record.high = in.Take<std::uint32_t>();
    ZelDtDecimal value;
    value.SetFromBTR(record, TRUE);
    Check(value, in.Rest(), format, settings);
}

void CheckTime(Input& in, const ZelFormat& format, const Settings& settings)
{
    ZelDtTime value;
    value.SetMode(static_cast<ZelDtTime::TimeMode>(in.Byte() % 3));
    value.SetFromSQL(in.Take<std::int32_t>());
    Check(value, in.Rest(), format, settings);
}

void CheckValue(Input& in, const ZelFormat& format, const Settings& settings)
{
    const std::uint8_t choice = in.Byte();
    switch (choice % 10) {
    case 0:
        Check(ZelDtLong(in.Take<std::int32_t>()), in.Rest(), format, settings);
        break;
    case 1:
        Check(ZelDtShort(in.Take<std::int16_t>()), in.Rest(), format, settings);
        break;
    case 2:
        Check(ZelDtDouble(in.Take<double>()), in.Rest(), format, settings);
        break;
    case 3:
        CheckDecimal(in, format, settings);
        break;
    case 4:
        Check(ZelDtBool(in.Take<std::int32_t>()), in.Rest(), format, settings);
        break;
    case 5:
        Check(ZelDtChar(in.Take<char>()), in.Rest(), format, settings);
        break;
    case 6:
        Check(ZelDtString(in.Rest().c_str()), in.Rest(), format, settings);
        break;
    case 7:
        CheckDates(in, format, settings, false);
        break;
    case 8:
        CheckDates(in, format, settings, true);
        break;
    default:
        CheckTime(in, format, settings);
        break;
    }
}

// The format alone, with arguments that no value class has

template <typename Show>
void CheckShow(const Show& show)
{
    CString text("untouched");
    if (FormatFailure([&] { show(text); }) != 0)
        Require(text == "untouched");
}

/// Digits, an optional minus in front, an optional point between digits.
void CheckNumberText(const CString& number)
{
    const std::string_view text(number, static_cast<std::size_t>(number.GetLength()));
    const std::string_view magnitude = text.substr(text.substr(0, 1) == "-" ? 1 : 0);
    const std::size_t point = std::min(magnitude.find('.'), magnitude.size());
    const auto isNumber = [](std::string_view digits) {
        return !digits.empty() && digits.find_first_not_of("0123456789") == digits.npos;
    };
    Require(magnitude.size() <= 38 && isNumber(magnitude.substr(0, point)));
    Require(point == magnitude.size() || isNumber(magnitude.substr(point + 1)));
}

void CheckReads(const ZelFormat& format, const CString& text, int hostile)
{
    const auto mode = static_cast<ZelFormat::FormatZeitArt>(hostile);
    std::int32_t units = hostile;
    ZelFormat::FormatZeitArt readMode = mode;
    if (FormatFailure([&] { format.ParseTime(text, &units, &readMode); }) != 0)
        Require(units == hostile && readMode == mode);
    FormatFailure([&] { format.ParseTime(text, nullptr, nullptr); });

    CString number("untouched");
    if (FormatFailure([&] { format.ParseString(text, ZelFormat::ZelFoZahlText, &number); }) != 0)
        Require(number == "untouched");
    else
        CheckNumberText(number);
    FormatFailure(
        [&] { format.ParseString(text, static_cast<ZelFormat::FormatTextArt>(hostile), nullptr); });
    FormatFailure([&] { format.ParseLong(text, nullptr); });
    FormatFailure([&] { format.ParseDouble(text, nullptr); });
    FormatFailure([&] { format.ParseBool(text, nullptr); });
    FormatFailure([&] { format.ParseChar(text, nullptr); });
}

void CheckRecord(const ZelFormat& format, const CString& text, std::tm record, int hostile)
{
    const auto scope = static_cast<ZelFormat::FormatDatumUmfang>(hostile % 3);
    CheckShow([&](CString& shown) { format.FormatDateTime(record, scope, shown); });
    const std::tm before = record;
    if (FormatFailure([&] { format.ParseDateTime(text, scope, &record); }) != 0)
        Require(std::memcmp(&record, &before, sizeof record) == 0);
    FormatFailure([&] { format.ParseDateTime(text, scope, nullptr); });
}

void CheckFormat(Input in, const ZelFormat& format)
{
    std::tm record{};
    for (int* field : {&record.tm_sec, &record.tm_min, &record.tm_hour, &record.tm_mday,
                       &record.tm_mon, &record.tm_year})
        *field = in.Take<std::int32_t>();
    const int hostile = in.Take<std::int32_t>();
    const std::string rest = in.Rest();
    const CString text(rest.data(), static_cast<int>(rest.size()));
    CheckRecord(format, text, record, hostile);
    CheckReads(format, text, hostile);
    const auto mode = static_cast<ZelFormat::FormatZeitArt>(hostile % 5);
    CheckShow([&](CString& shown) { format.FormatTime(hostile, mode, shown); });
    const auto kind = static_cast<ZelFormat::FormatTextArt>(hostile % 3);
    CheckShow([&](CString& shown) { format.FormatString(text, kind, shown); });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    // The format, then a value and the text.
    Input in(data, size);
    Settings settings;
    const ZelFormat format = MakeFormat(in, settings);
    CheckFormat(in, format);
    CheckValue(in, format, settings);
    return 0;
}
