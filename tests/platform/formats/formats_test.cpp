// What all kinds of formats share: which types they serve, unknown settings, the errors.

#include "tests/platform/formats/formats_testing.h"

#include <functional>
#include <type_traits>
#include <vector>

namespace {

using namespace formats_testing;

ZelFormat TimeFormat()
{
    return ZelFormat(ZelFormat::ZelFoZeitMinuten, ZelFormat::ZelFoZeitMitTrenner,
                     ZelFormat::ZelFoVorzeichenVorne, ZelFormat::ZelFoNurMinus, 0, 0, ' ');
}

ZelFormat DateFormat()
{
    return ZelFormat(ZelFormat::ZelFoDatum, ZelFormat::ZelFoDatumPunkt,
                     ZelFormat::ZelFoJahrVierstellig, ZelFormat::ZelFoMonatZahl, 1, '0');
}

ZelFormat TextFormat()
{
    return ZelFormat(0, ZelFormat::kulZelFoValidAll, ZelFormat::ZelFoAuffuellenOhne, ' ');
}

/// Types of values, as bits.
enum Served : unsigned { Times = 1, Dates = 2, Numbers = 4, Texts = 8, Booleans = 16 };

struct Operation {
    Served type;
    const char* signature;
    std::function<void(const ZelFormat&)> run; ///< with a value or text that is fine in itself
};

std::vector<Operation> AllOperations()
{
    static std::tm moment = [] {
        std::tm value{};
        value.tm_mday = 1;
        return value;
    }();
    constexpr auto scope = ZelFormat::ZelFoDatumMitZeit;
    using F = const ZelFormat&;
    return {
        {Times, "FormatTime(LONG,FormatZeitArt,CString&)",
         [](F f) {
             CString t;
             f.FormatTime(1200, ZelFormat::ZelFoZeitMinuten, t);
         }},
        {Dates, "FormatDateTime(struct tm&,FormatDatumUmfang,CString&)",
         [](F f) {
             CString t;
             f.FormatDateTime(moment, scope, t);
         }},
        {Numbers, "FormatDouble(double,CString&)",
         [](F f) {
             CString t;
             f.FormatDouble(1, t);
         }},
        {Texts, "FormatChar(CHAR,CString&)",
         [](F f) {
             CString t;
             f.FormatChar('1', t);
         }},
        {Booleans, "FormatBool(BOOL,CString&)",
         [](F f) {
             CString t;
             f.FormatBool(1, t);
         }},
        {Texts, "FormatString(CString&,FormatTextArt,CString&)",
         [](F f) {
             CString t;
             f.FormatString("1", ZelFormat::ZelFoReinerText, t);
         }},
        {Numbers, "FormatString(CString&,FormatTextArt,CString&)",
         [](F f) {
             CString t;
             f.FormatString("1", ZelFormat::ZelFoZahlText, t);
         }},
        {Numbers, "FormatLong(LONG,CString&)",
         [](F f) {
             CString t;
             f.FormatLong(1, t);
         }},
        {Numbers, "FormatShort(SHORT,CString&)",
         [](F f) {
             CString t;
             f.FormatShort(1, t);
         }},
        {Times, "ParseTime(CString&,LONG*,FormatZeitArt*)",
         [](F f) { f.ParseTime("1:00", nullptr, nullptr); }},
        {Dates, "ParseDateTime(CString&,FormatDatumUmfang,struct tm*)",
         [](F f) { f.ParseDateTime("1.1.2000", scope, nullptr); }},
        {Numbers, "ParseDouble(CString&,double*)", [](F f) { f.ParseDouble("1", nullptr); }},
        {Texts, "ParseChar(CString&,CHAR*)", [](F f) { f.ParseChar("1", nullptr); }},
        {Booleans, "ParseBool(CString&,BOOL*)", [](F f) { f.ParseBool("1", nullptr); }},
        {Texts, "ParseString(CString&,FormatTextArt,CString*)",
         [](F f) { f.ParseString("1", ZelFormat::ZelFoReinerText, nullptr); }},
        {Numbers, "ParseString(CString&,FormatTextArt,CString*)",
         [](F f) { f.ParseString("1", ZelFormat::ZelFoZahlText, nullptr); }},
        {Numbers, "ParseLong(CString&,LONG*)", [](F f) { f.ParseLong("1", nullptr); }},
        {Numbers, "ParseShort(CString&,SHORT*)", [](F f) { f.ParseShort("1", nullptr); }},
    };
}

TEST(Kinds, ServeTheirTypesOnly)
{
    const std::pair<ZelFormat, unsigned> kinds[] = {
        {LongDefault(), Numbers},
        {TimeFormat(), Times},
        {DateFormat(), Dates},
        {TextFormat(), Texts},
        {Standard(), Times | Dates | Numbers | Texts | Booleans},
        {Technical(), Times | Dates | Numbers | Texts | Booleans}};
    for (const auto& [format, served] : kinds) {
        for (const Operation& operation : AllOperations()) {
            SCOPED_TRACE(operation.signature);
            const unsigned long error =
                ErrorOf(operation.signature, [&, &f = format] { operation.run(f); });
            EXPECT_EQ(error, (served & operation.type) != 0 ? 0U : 20U);
        }
    }
}

/// A date format by its numbers.
ZelFormat DateOf(int kind, int separator, int year, int month, char fill = '0')
{
    return ZelFormat(static_cast<ZelFormat::FormatDatumArt>(kind),
                     static_cast<ZelFormat::FormatDatumTrenner>(separator),
                     static_cast<ZelFormat::FormatDatumJahr>(year),
                     static_cast<ZelFormat::FormatDatumMonat>(month), 1, fill);
}

ZelFormat TimeOf(int kind, int shape, int sign, int whichSign, unsigned long places = 0,
                 char fill = '0')
{
    return ZelFormat(static_cast<ZelFormat::FormatZeitArt>(kind),
                     static_cast<ZelFormat::FormatZeitDarstellung>(shape),
                     static_cast<ZelFormat::FormatVorzeichen>(sign),
                     static_cast<ZelFormat::FormatVorzeichenWelches>(whichSign), places, 1, fill);
}

ZelFormat TextOf(unsigned long most, unsigned long mask, int fill, char fillChar = ' ')
{
    return ZelFormat(most, mask, static_cast<ZelFormat::FormatAuffuellen>(fill), fillChar);
}

TEST(UnknownSettings, FailAtTheFirstUse)
{
    const ZelFormat formats[] = {
        Numeric({.decimalSeparator = 2}),
        Numeric({.decimalSeparator = 4}),
        Numeric({.decimalSeparator = -1}),
        Numeric({.groupSeparator = 5}),
        Numeric({.sign = 3}),
        Numeric({.whichSign = 2}),
        Numeric({.places = 1025}),
        Numeric({.decimals = 1025}),
        Numeric({.decimals = 0xFFFFFFFE}),
        Numeric({.decimalSeparator = 0, .groupSeparator = 2}),
        Numeric({.decimalSeparator = 1, .groupSeparator = 1}),
        Numeric({.fillLeft = 1, .leftChar = '7'}),
        Numeric({.fillLeft = 1, .leftChar = '-'}),
        Numeric({.fillLeft = 1, .leftChar = '\0'}),
        Numeric({.decimals = 2, .fillRight = 1, .rightChar = '+'}),
        Numeric({.decimals = 2, .decimalSeparator = 3, .fillRight = 1, .rightChar = '#'}),
        TimeOf(4, 0, 1, 0),
        TimeOf(0, 2, 1, 0),
        TimeOf(0, 0, 3, 0),
        TimeOf(0, 0, 1, 2),
        TimeOf(0, 0, 1, 0, 1025),
        TimeOf(0, 0, 1, 0, 4, '3'),
        DateOf(5, 0, 0, 0),
        DateOf(0, 4, 0, 0),
        DateOf(0, 0, 2, 0),
        DateOf(0, 0, 0, 3),
        DateOf(0, 0, 0, 0, '5'),
        TextOf(0, 32, 0),
        TextOf(0, 0xFFFFFFFE, 0),
        TextOf(0, 1, 3),
        TextOf(0x80000000UL, 1, 0),
        TextOf(5, 31, 1, '\0'),
        TextOf(5, 31, 2, '\0'),
        ZelFormat(static_cast<ZelFormat::FormatModus>(2)),
        ZelFormat(static_cast<ZelFormat::FormatModus>(-1))};
    int index = 0;
    for (const ZelFormat& format : formats) {
        SCOPED_TRACE(index++);
        for (const Operation& operation : AllOperations())
            EXPECT_EQ(ErrorOf(operation.signature, [&] { operation.run(format); }), 20U);
    }
}

TEST(UnknownSettings, FillCharactersMatterOnlyWhenOn)
{
    EXPECT_EQ(ShowLong(Numeric({.leftChar = '7', .rightChar = '-'}), 5), "5");
}

TEST(Errors, NumbersHaveTheirTexts)
{
    const std::pair<unsigned long, const char*> rows[] = {
        {8, "Wert au\337erhalb des Wertebereichs"},
        {11, "Der Eingabetext ist zu lang"},
        {20, "Format nicht zugelassen"},
        {21, "Format nicht eingehalten"},
        {1, ""}};
    for (const auto& [number, text] : rows) {
        ZelEhBasis* const error = new ZelFormatExcep("MODULE", "Class", "Operation()", number);
        EXPECT_EQ(error->GetErrorNo(), number);
        EXPECT_STREQ(error->GetErrorText(), text);
        EXPECT_STREQ(error->GetSourceModule(), "MODULE");
        EXPECT_STREQ(error->GetClassText(), "Class");
        EXPECT_STREQ(error->GetSignature(), "Operation()");
        EXPECT_TRUE(error->IsKindOf(RUNTIME_CLASS(ZelFormatExcep)));
        EXPECT_TRUE(error->IsKindOf(RUNTIME_CLASS(ZelEhBasis)));
        delete error;
    }
}

TEST(Errors, ReachACatchOfTheErrorLibrary)
{
    const std::size_t before = ZelEhCountLiveErrors();
    try {
        std::int32_t value = 0;
        LongDefault().ParseLong("1,5", &value);
        FAIL() << "the text must be refused";
    } catch (CException*) {
        FAIL() << "not an exception of the framework";
    } catch (ZelEhBasis* error) {
        EXPECT_EQ(ZelEhCountLiveErrors(), before + 1);
        EXPECT_STREQ(error->GetErrorText(), "Format nicht eingehalten");
        delete error;
    }
    EXPECT_EQ(ZelEhCountLiveErrors(), before);
}

TEST(Interface, CopiesAndDerivedFormats)
{
    static_assert(std::has_virtual_destructor_v<ZelFormat>);
    static_assert(ZelFormat::kulZelFoValidAll == 0xFFFFFFFFUL);

    class Loud : public ZelFormat {
    public:
        using ZelFormat::ZelFormat;
        void FormatLong(std::int32_t value, CString& text) const override
        {
            ZelFormat::FormatLong(value, text);
            text += "!";
        }
    };
    const Loud loud(ZelFormat::ZelFoStandard);
    EXPECT_EQ(ShowLong(loud, 5), "5!");
    const ZelFormat copy = loud;
    EXPECT_EQ(ShowLong(copy, 5), "5");
}

} // namespace
