/// Numbers as people see and type them, by German conventions.
///
/// snprintf, fmt, to_chars: digits by these, separators put in by a loop. fmt-locale: with the
/// separators of a std::locale. sscanf, from_chars: on a copy without groups, which nobody has
/// looked at. icu, icu-unumf: formatters of ICU for German, made once. to_chars and from_chars mark
/// what the bare digits cost.

#include "benchmarks/inputs.h"
#include "benchmarks/jobs.h"
#include "benchmarks/platform/decimals/figures.h"
#include "benchmarks/platform/formats/showing.h"
#include "numeric/DTDECIMA.h"
#include "numeric/DTDOUBLE.h"
#include "numeric/DTLONG.h"

#include <bit>
#include <charconv>
#include <cstdio>
#include <cstdlib>

#ifdef ZELBENCH_HAVE_FMT
#include <fmt/format.h>
#include <locale>
#endif
#ifdef ZELBENCH_HAVE_ICU
#include <unicode/numfmt.h>
#include <unicode/unum.h>
#include <unicode/unumberformatter.h>
#endif

namespace zelbench {

namespace {

/// Amounts of money from 1,00 on, nearly half of them with groups.
constexpr Shape kAmounts = {3, 11, 2, 2};

// What contenders have in common

ZelFormat GroupedFormat(unsigned long decimals)
{
    return {0,
            decimals,
            ZelFormat::ZelFoDezimalKomma,
            ZelFormat::ZelFoTausenderPunkt,
            ZelFormat::ZelFoVorzeichenVorne,
            ZelFormat::ZelFoNurMinus,
            0,
            ' ',
            0,
            ' '};
}

/// Writes digits with an optional sign and decimals the German way.
char* Group(const char* first, const char* last, char* out)
{
    if (*first == '-')
        *out++ = *first++;
    const char* point = first;
    while (point != last && *point != '.')
        ++point;
    for (; first != point; ++first) {
        *out++ = *first;
        if ((point - first) % 3 == 1 && point - first > 1)
            *out++ = '.';
    }
    if (point == last)
        return out;
    *out++ = ',';
    for (++point; point != last; ++point)
        *out++ = *point;
    return out;
}

char* CommaForPoint(char* first, char* last)
{
    for (; first != last; ++first) {
        if (*first == '.')
            *first = ',';
    }
    return last;
}

/// A copy of a German number as programs read it.
struct Ungrouped {
    explicit Ungrouped(const std::string& text)
    {
        for (const char c : text) {
            if (c != '.')
                *end++ = c == ',' ? '.' : c;
        }
        *end = '\0';
    }

    char digits[kShownRoom];
    char* end = digits;
};

template <typename Number>
Number FromChars(const char* first, const char* last)
{
    Number number{};
    const std::from_chars_result read = std::from_chars(first, last, number);
    if (read.ec != std::errc() || read.ptr != last)
        std::abort();
    return number;
}

template <typename Number, typename... Precision>
char* ToChars(char* out, Number number, Precision... precision)
{
    return std::to_chars(out, out + kShownRoom, number, precision...).ptr;
}

/// Puts separators into what `write` makes of a number.
template <typename Write>
auto Grouped(Write write)
{
    return [write](auto number, char* out) {
        char digits[kShownRoom];
        return Group(digits, write(number, digits), out);
    };
}

/// The doubles are compared bit by bit.
std::int64_t BitsOf(double number)
{
    return std::bit_cast<std::int64_t>(number);
}

#ifdef ZELBENCH_HAVE_FMT
/// Digits and separators by a locale.
const std::locale& GermanLocale()
{
    struct German : std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };
    static const std::locale german(std::locale::classic(), new German);
    return german;
}
#endif

#ifdef ZELBENCH_HAVE_ICU
void Require(UErrorCode status)
{
    if (U_FAILURE(status))
        Fail("icu", u_errorName(status));
}

/// What the two kinds of formatters are told.
struct IcuStyle {
    bool groups;
    int fewestDecimals;
    int mostDecimals;
    const char16_t* skeleton;
};

const IcuStyle kIcuWhole = {false, 0, 0, u"group-off"};
const IcuStyle kIcuGroups = {true, 0, 0, u"precision-integer"};
const IcuStyle kIcuMoney = {true, 2, 2, u".00"};
const IcuStyle kIcuShortest = {false, 0, 21, u"group-off .#####################"};

std::shared_ptr<icu::NumberFormat> IcuFormat(const IcuStyle& style)
{
    UErrorCode status = U_ZERO_ERROR;
    std::shared_ptr<icu::NumberFormat> format(
        icu::NumberFormat::createInstance(icu::Locale::getGermany(), status));
    Require(status);
    format->setGroupingUsed(style.groups);
    format->setMinimumFractionDigits(style.fewestDecimals);
    format->setMaximumFractionDigits(style.mostDecimals);
    return format;
}

/// A formatter of the newer kind, and the memory that it works in.
class IcuFormatter {
public:
    explicit IcuFormatter(const IcuStyle& style)
    {
        UErrorCode status = U_ZERO_ERROR;
        m_formatter = unumf_openForSkeletonAndLocale(style.skeleton, -1, "de_DE", &status);
        m_result = unumf_openResult(&status);
        Require(status);
    }
    ~IcuFormatter()
    {
        unumf_closeResult(m_result);
        unumf_close(m_formatter);
    }
    IcuFormatter(const IcuFormatter&) = delete;
    IcuFormatter& operator=(const IcuFormatter&) = delete;

    void Write(std::int32_t number, icu::UnicodeString& text) const
    {
        UErrorCode status = U_ZERO_ERROR;
        unumf_formatInt(m_formatter, number, m_result, &status);
        Take(text, status);
    }
    void Write(double number, icu::UnicodeString& text) const
    {
        UErrorCode status = U_ZERO_ERROR;
        unumf_formatDouble(m_formatter, number, m_result, &status);
        Take(text, status);
    }
    void Write(const std::string& number, icu::UnicodeString& text) const
    {
        UErrorCode status = U_ZERO_ERROR;
        unumf_formatDecimal(m_formatter, number.data(), static_cast<std::int32_t>(number.size()),
                            m_result, &status);
        Take(text, status);
    }

private:
    void Take(icu::UnicodeString& text, UErrorCode status) const
    {
        constexpr std::int32_t room = kShownRoom;
        const std::int32_t length =
            unumf_resultToString(m_result, text.getBuffer(room), room, &status);
        text.releaseBuffer(length);
        Require(status);
    }

    UNumberFormatter* m_formatter;
    UFormattedNumber* m_result;
};

/// Both kinds of formatters show numbers of type Number.
template <typename Number>
void AddIcu(ShowJobs& jobs, const Operands<Number>& numbers, const IcuStyle& style)
{
    const auto format = IcuFormat(style);
    jobs.Icu("icu", numbers, [format](const Number& number, icu::UnicodeString& text) {
        if constexpr (std::is_same_v<Number, std::string>) {
            UErrorCode status = U_ZERO_ERROR;
            format->format(icu::StringPiece(number), text, nullptr, status);
            Require(status);
        } else {
            format->format(number, text);
        }
    });
    const auto formatter = std::make_shared<IcuFormatter>(style);
    jobs.Icu("icu-unumf", numbers, [formatter](const Number& number, icu::UnicodeString& text) {
        formatter->Write(number, text);
    });
}

using IcuReader = std::shared_ptr<UNumberFormat>;

/// For numbers with groups or without.
IcuReader OpenIcuReader()
{
    UErrorCode status = U_ZERO_ERROR;
    IcuReader reader(unum_open(UNUM_DECIMAL, nullptr, 0, "de_DE", nullptr, &status), unum_close);
    Require(status);
    return reader;
}

/// `parse(reader, text, length, end, status)` reads a number as unum_parse does.
template <typename Parse>
auto ReadByIcu(const Parse& parse)
{
    return [parse, reader = OpenIcuReader()](const std::u16string& text) {
        UErrorCode status = U_ZERO_ERROR;
        std::int32_t end = 0;
        const auto length = static_cast<std::int32_t>(text.size());
        auto result = parse(reader.get(), text.data(), length, &end, &status);
        Require(status);
        return result;
    };
}
#endif

// Whole numbers

std::vector<ZelDtLong> LongValues(const std::vector<std::int32_t>& numbers)
{
    return {numbers.begin(), numbers.end()};
}

#ifdef ZELBENCH_HAVE_FMT
char* FmtWhole(std::int32_t number, char* out)
{
    return fmt::format_to(out, "{}", number);
}
#endif

/// `format` is that of the values; null is their default, which `plain` stands for.
void AddWholeNumbers(const std::string& kind, bool groups)
{
    static const ZelFormat plain(11, 0, ZelFormat::ZelFoDezimalOhne, ZelFormat::ZelFoTausenderOhne,
                                 ZelFormat::ZelFoVorzeichenVorne, ZelFormat::ZelFoNurMinus, 0, '0',
                                 0, '0');
    static const ZelFormat grouped = GroupedFormat(0);
    const ZelFormat& format = groups ? grouped : plain;
    const ZelFormat* const given = groups ? &grouped : nullptr;
    const auto separated = [groups](auto write) {
        return [groups, write, grouping = Grouped(write)](std::int32_t number, char* out) {
            return groups ? grouping(number, out) : write(number, out);
        };
    };

    const std::vector<std::int32_t> list = Numbers(kFewOperands, 9, 81);
    const auto numbers = Share(list);
    ShowJobs show(kind);
    show.Ours(numbers,
              [&format](std::int32_t number, CString& text) { format.FormatLong(number, text); });
    show.Values(Share(LongValues(list)), given);
    show.Peer("snprintf", numbers, separated([](std::int32_t number, char* out) {
                  return out + std::snprintf(out, kShownRoom, "%d", number);
              }));
    show.Peer("to_chars", numbers,
              separated([](std::int32_t number, char* out) { return ToChars(out, number); }));
#ifdef ZELBENCH_HAVE_FMT
    show.Peer("fmt", numbers, separated(FmtWhole));
    if (groups) {
        show.Peer("fmt-locale", numbers, [](std::int32_t number, char* out) {
            return fmt::format_to(out, GermanLocale(), "{:L}", number);
        });
    }
#endif
#ifdef ZELBENCH_HAVE_ICU
    AddIcu(show, numbers, groups ? kIcuGroups : kIcuWhole);
#endif

    std::vector<std::string> texts;
    for (const std::int32_t number : list) {
        char text[kShownRoom];
        texts.emplace_back(text, separated([](std::int32_t n, char* out) {
                               return ToChars(out, n);
                           })(number, text));
    }
    ReadJobs read(kind, texts);
    read.Ours([&format](const CString& text) {
        std::int32_t number = 0;
        format.ParseLong(text, &number);
        return number;
    });
    read.Values<ZelDtLong>(given, [](const ZelDtLong& value) { return value.GetValue(); });
    read.Peer("from_chars", [groups](const std::string& text) {
        if (!groups)
            return FromChars<std::int32_t>(text.data(), text.data() + text.size());
        const Ungrouped plainText(text);
        return FromChars<std::int32_t>(plainText.digits, plainText.end);
    });
    read.Peer("sscanf", [groups](const std::string& text) {
        int number = 0;
        if (std::sscanf(groups ? Ungrouped(text).digits : text.c_str(), "%d", &number) != 1)
            std::abort();
        return number;
    });
#ifdef ZELBENCH_HAVE_ICU
    read.Icu("icu", ReadByIcu([](auto... arguments) { return unum_parse(arguments...); }));
#endif
}

// Doubles

std::vector<double> ToDoubles(const std::vector<std::string>& texts)
{
    std::vector<double> doubles;
    for (const std::string& text : texts)
        doubles.push_back(std::strtod(text.c_str(), nullptr));
    return doubles;
}

std::vector<ZelDtDouble> DoubleValues(const std::vector<double>& numbers)
{
    return {numbers.begin(), numbers.end()};
}

/// What the German texts of doubles are read by.
void AddDoublesRead(ReadJobs& read, const ZelFormat& format, const ZelFormat* given)
{
    read.Ours([&format](const CString& text) {
        double number = 0;
        format.ParseDouble(text, &number);
        return BitsOf(number);
    });
    read.Values<ZelDtDouble>(given, [](const ZelDtDouble& value) { return BitsOf(value); });
    read.Peer("from_chars", [](const std::string& text) {
        const Ungrouped plain(text);
        return BitsOf(FromChars<double>(plain.digits, plain.end));
    });
    read.Peer("sscanf", [](const std::string& text) {
        double number = 0;
        if (std::sscanf(Ungrouped(text).digits, "%lf", &number) != 1)
            std::abort();
        return BitsOf(number);
    });
#ifdef ZELBENCH_HAVE_ICU
    read.Icu("icu",
             ReadByIcu([](auto... arguments) { return BitsOf(unum_parseDouble(arguments...)); }));
#endif
}

std::vector<std::string> GermanTexts(const std::vector<std::string>& numbers)
{
    std::vector<std::string> texts;
    for (const std::string& number : numbers) {
        char text[kShownRoom];
        texts.emplace_back(text, Group(number.data(), number.data() + number.size(), text));
    }
    return texts;
}

/// Numbers with two decimals, or rounded to two.
void AddMoney(const std::string& kind, const std::vector<std::string>& list)
{
    static const ZelFormat format = GroupedFormat(2);
    const std::vector<double> doubles = ToDoubles(list);
    const auto numbers = Share(doubles);
    ShowJobs show(kind);
    show.Ours(numbers, [](double number, CString& text) { format.FormatDouble(number, text); });
    show.Values(Share(DoubleValues(doubles)), &format);
    show.Peer("snprintf", numbers, Grouped([](double number, char* out) {
                  return out + std::snprintf(out, kShownRoom, "%.2f", number);
              }));
    show.Peer("to_chars", numbers, Grouped([](double number, char* out) {
                  return ToChars(out, number, std::chars_format::fixed, 2);
              }));
#ifdef ZELBENCH_HAVE_FMT
    show.Peer("fmt", numbers, Grouped([](double number, char* out) {
                  return fmt::format_to(out, "{:.2f}", number);
              }));
    show.Peer("fmt-locale", numbers, [](double number, char* out) {
        return fmt::format_to(out, GermanLocale(), "{:.2Lf}", number);
    });
#endif
#ifdef ZELBENCH_HAVE_ICU
    AddIcu(show, numbers, kIcuMoney);
#endif
}

/// Results of a calculation. The library rounds what a double shows, its peers what it holds: none
/// lies halfway between two hundredths.
std::vector<std::string> UnroundedAmounts(std::size_t count, unsigned seed)
{
    std::vector<std::string> texts = NumberTexts(count, {8, 14, 4, 6}, seed);
    for (std::string& text : texts) {
        if (text.find_first_not_of('0', text.find('.') + 4) == text.npos)
            text += '1';
    }
    return texts;
}

void AddMoneyRead()
{
    static const ZelFormat format = GroupedFormat(2);
    ReadJobs read("double-money", GermanTexts(NumberTexts(kFewOperands, kAmounts, 83)));
    AddDoublesRead(read, format, &format);
}

/// Numbers of all digits that a double has, from 0,0001 to below 1E+15: no contender needs an
/// exponent for them.
std::vector<double> AnyDoubles(std::size_t count, unsigned seed)
{
    Random random(seed);
    std::vector<double> doubles;
    while (doubles.size() < count) {
        const std::size_t digits = 1 + Below(random, 17);
        const int exponent = static_cast<int>(Below(random, 18)) - 3 - static_cast<int>(digits);
        const std::string text = NumberText(random, digits, 0) + "e" + std::to_string(exponent);
        doubles.push_back(std::strtod(text.c_str(), nullptr));
    }
    return doubles;
}

/// The C library has no shortest text: more digits are tried until they suffice.
char* SNPrintFShortest(double number, char* out)
{
    for (int digits = 15;; ++digits) {
        char* const end = out + std::snprintf(out, kShownRoom, "%.*g", digits, number);
        if (digits == 17 || std::strtod(out, nullptr) == number)
            return CommaForPoint(out, end);
    }
}

void AddShortest()
{
    static const ZelFormat standard(ZelFormat::ZelFoStandard);
    const std::vector<double> doubles = AnyDoubles(kFewOperands, 84);
    const auto numbers = Share(doubles);
    ShowJobs show("double");
    show.Ours(numbers, [](double number, CString& text) { standard.FormatDouble(number, text); });
    show.Values(Share(DoubleValues(doubles)), nullptr);
    show.Peer("snprintf", numbers, SNPrintFShortest);
    const auto toChars = [](double number, char* out) {
        return CommaForPoint(out, ToChars(out, number, std::chars_format::fixed));
    };
    show.Peer("to_chars", numbers, toChars);
#ifdef ZELBENCH_HAVE_FMT
    show.Peer("fmt", numbers, [](double number, char* out) {
        return CommaForPoint(out, fmt::format_to(out, "{}", number));
    });
#endif
#ifdef ZELBENCH_HAVE_ICU
    AddIcu(show, numbers, kIcuShortest);
#endif

    std::vector<std::string> texts;
    for (const double number : doubles) {
        char text[kShownRoom];
        texts.emplace_back(text, toChars(number, text));
    }
    ReadJobs read("double", texts);
    AddDoublesRead(read, standard, nullptr);
}

// Decimals: the format has them as texts, the peers that have none as hundredths

std::int64_t HundredthsOf(std::string_view number)
{
    const bool negative = number.front() == '-';
    std::int64_t hundredths = 0;
    for (const char c : number.substr(negative ? 1 : 0)) {
        if (c != '.')
            hundredths = hundredths * 10 + (c - '0');
    }
    return negative ? -hundredths : hundredths;
}

std::int64_t Magnitude(std::int64_t hundredths)
{
    return hundredths < 0 ? -hundredths : hundredths;
}

void AddDecimalsShown()
{
    static const ZelFormat format = GroupedFormat(2);
    const std::vector<std::string> list = NumberTexts(kFewOperands, kAmounts, 85);
    std::vector<CString> texts;
    std::vector<ZelDtDecimal> values;
    std::vector<std::int64_t> hundredths;
    for (const std::string& number : list) {
        texts.push_back(ToCString(number));
        values.emplace_back(number.c_str());
        hundredths.push_back(HundredthsOf(number));
    }
    const auto numbers = Share(hundredths);
    ShowJobs show("decimal-money");
    show.Ours(Share(texts), [](const CString& number, CString& text) {
        format.FormatString(number, ZelFormat::ZelFoZahlText, text);
    });
    show.Values(Share(values), &format);
    show.Peer("snprintf", numbers, Grouped([](std::int64_t number, char* out) {
                  const long long magnitude = Magnitude(number);
                  return out + std::snprintf(out, kShownRoom, "%s%lld.%02lld",
                                             number < 0 ? "-" : "", magnitude / 100,
                                             magnitude % 100);
              }));
#ifdef ZELBENCH_HAVE_FMT
    show.Peer("fmt", numbers, Grouped([](std::int64_t number, char* out) {
                  const std::int64_t magnitude = Magnitude(number);
                  return fmt::format_to(out, "{}{}.{:02}", number < 0 ? "-" : "", magnitude / 100,
                                        magnitude % 100);
              }));
#endif
#ifdef ZELBENCH_HAVE_ICU
    AddIcu(show, Share(list), kIcuMoney);
#endif
}

/// The text of a number, compared by its figures.
template <typename Text>
struct DecimalText {
    Text text;

    std::string ReadBack() const { return Figures(text); }
};

struct Hundredths {
    std::int64_t number;

    std::string ReadBack() const { return Figures(std::to_string(number) + "e-2"); }
};

#ifdef ZELBENCH_HAVE_ICU
struct IcuDigits {
    char bytes[kShownRoom];
    std::int32_t length;

    std::string ReadBack() const { return Figures({bytes, static_cast<std::size_t>(length)}); }
};
#endif

void AddDecimalsRead()
{
    static const ZelFormat format = GroupedFormat(2);
    ReadJobs read("decimal-money", GermanTexts(NumberTexts(kFewOperands, kAmounts, 86)));
    const auto number = std::make_shared<CString>();
    read.Ours([number](const CString& text) {
        format.ParseString(text, ZelFormat::ZelFoZahlText, number.get());
        return DecimalText<std::string_view>{ViewOf(*number)};
    });
    read.Values<ZelDtDecimal>(&format, [](const ZelDtDecimal& value) {
        char buffer[kShownRoom];
        return Figures(value.DecimalToAscii(buffer));
    });
    read.Peer("from_chars", [](const std::string& text) {
        // Both separators go.
        char digits[kShownRoom];
        char* end = digits;
        for (const char c : text) {
            if (c != '.' && c != ',')
                *end++ = c;
        }
        return Hundredths{FromChars<std::int64_t>(digits, end)};
    });
    read.Peer("sscanf", [](const std::string& text) {
        const Ungrouped plain(text);
        long long whole = 0;
        int decimals = 0;
        if (std::sscanf(plain.digits, "%lld.%2d", &whole, &decimals) != 2)
            std::abort();
        const bool negative = plain.digits[0] == '-';
        return Hundredths{whole * 100 + (negative ? -decimals : decimals)};
    });
#ifdef ZELBENCH_HAVE_ICU
    read.Icu("icu", ReadByIcu([](UNumberFormat* reader, const char16_t* text, std::int32_t length,
                                 std::int32_t* end, UErrorCode* status) {
                 IcuDigits digits;
                 digits.length =
                     unum_parseDecimal(reader, text, length, end, digits.bytes, kShownRoom, status);
                 return digits;
             }));
#endif
}

} // namespace

void AddFormatJobs()
{
    AddWholeNumbers("long", false);
    AddWholeNumbers("long-groups", true);
    AddMoney("double-money", NumberTexts(kFewOperands, kAmounts, 82));
    AddMoney("double-rounded", UnroundedAmounts(kFewOperands, 87));
    AddMoneyRead();
    AddShortest();
    AddDecimalsShown();
    AddDecimalsRead();
    AddDateFormats();
}

} // namespace zelbench
