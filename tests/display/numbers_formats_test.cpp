/// Which format a number is shown and read by, what needs no format at all, and formats and texts
/// that no number can do anything with.

#include "tests/display/numbers_testing.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace {

using namespace numbers_testing;

/// Fails at its first use: no format has such a separator.
ZelFormat Unusable()
{
    return Make({.decimalSeparator = 2});
}

/// Show 5 as "5,0", "5,00" and "5,000", and read nothing with more decimals than that.
const ZelFormat kOne = Make({.decimals = 1});
const ZelFormat kTwo = Make({.decimals = 2});
const ZelFormat kThree = Make({.decimals = 3});

ZEL_NUMBER_SUITE(FormatChoice);

TYPED_TEST(FormatChoice, PassedBeforeOwnBeforeDefault)
{
    TypeParam value = Facts<TypeParam>::Of("5");
    EXPECT_EQ(Shown(value, nullptr), "5");
    EXPECT_EQ(Shown(value, &kOne), "5,0");
    value.SetFormat(&kTwo);
    EXPECT_EQ(value.GetFormat(), &kTwo);
    EXPECT_EQ(Shown(value, nullptr), "5,00");
    EXPECT_EQ(Shown(value, &kOne), "5,0");
    // The passed format is not kept.
    EXPECT_EQ(value.GetFormat(), &kTwo);
    EXPECT_EQ(Shown(value, nullptr), "5,00");
    value.SetFormat(&kThree);
    EXPECT_EQ(Shown(value, nullptr), "5,000");
    value.SetFormat(nullptr);
    EXPECT_EQ(Shown(value, nullptr), "5");
}

TYPED_TEST(FormatChoice, IsTheSameForReading)
{
    const std::string eight = Expected<TypeParam>("8");
    const auto isEight = [&](const std::string& number) {
        return AreEqual<TypeParam>(number, eight);
    };
    TypeParam value = Facts<TypeParam>::Of("5");
    EXPECT_EQ(Typed(value, "8,00", &kOne), "<21>");
    EXPECT_PRED1(isEight, Typed(value, "8,00", &kTwo));
    value.SetFormat(&kTwo);
    EXPECT_EQ(Typed(value, "8,000", nullptr), "<21>");
    EXPECT_PRED1(isEight, Typed(value, "8,000", &kThree));
    EXPECT_EQ(Typed(value, "8,00", &kOne), "<21>");
    EXPECT_PRED1(isEight, Typed(value, "8,00", nullptr));
    EXPECT_EQ(value.GetFormat(), &kTwo);
    // The default has exponents and as many decimals as there are, or none.
    value.SetFormat(nullptr);
    if constexpr (kIsWhole<TypeParam>)
        EXPECT_EQ(Typed(value, "8,00", nullptr), "<21>");
    else
        EXPECT_PRED1(isEight, Typed(value, "8,0000", nullptr));
}

TYPED_TEST(FormatChoice, AFormatThatFailsIsNotReplacedByTheNextOne)
{
    const ZelFormat unusable = Unusable();
    TypeParam value = Facts<TypeParam>::Of("5");
    value.SetFormat(&kOne);
    EXPECT_EQ(Shown(value, &unusable), "<20>");
    EXPECT_EQ(Typed(value, "8", &unusable), "<20>");
    value.SetFormat(&unusable);
    EXPECT_EQ(Shown(value, nullptr), "<20>");
    EXPECT_EQ(Typed(value, "8", nullptr), "<20>");
    EXPECT_EQ(Shown(value, &kOne), "5,0");
}

TYPED_TEST(FormatChoice, CopiesTakeNoFormat)
{
    TypeParam value = Facts<TypeParam>::Of("5");
    value.SetFormat(&kTwo);

    const TypeParam copy(value); // NOLINT(performance-unnecessary-copy-initialization)
    EXPECT_EQ(copy.GetFormat(), nullptr);
    EXPECT_EQ(Shown(copy, nullptr), "5");

    const std::unique_ptr<ZelDtBasis> made(value.NewObject());
    EXPECT_EQ(made->GetFormat(), nullptr);
    EXPECT_EQ(ToStd(made->ConvToOFL(nullptr)), "5");

    // Assignment takes none over, and takes none away.
    TypeParam plain = Facts<TypeParam>::Of("8");
    plain = value;
    EXPECT_EQ(plain.GetFormat(), nullptr);
    EXPECT_EQ(Shown(plain, nullptr), "5");
    TypeParam other = Facts<TypeParam>::Of("8");
    other.SetFormat(&kThree);
    other = value;
    EXPECT_EQ(other.GetFormat(), &kThree);
    EXPECT_EQ(Shown(other, nullptr), "5,000");
    other.Assign(value);
    EXPECT_EQ(Shown(other, nullptr), "5,000");
    EXPECT_EQ(Shown(value, nullptr), "5,00");

    // Nor do results and values of other classes.
    EXPECT_EQ((value + value).GetFormat(), nullptr);
    const ZelDtDecimal decimal(value);
    EXPECT_EQ(decimal.GetFormat(), nullptr);
    EXPECT_EQ(Shown(decimal, nullptr), "5");
}

TYPED_TEST(FormatChoice, AFormatServesManyValuesAndItsCopiesAreAlike)
{
    auto format = std::make_unique<ZelFormat>(kTwo);
    const ZelFormat copy(*format);
    ZelFormat assigned = MakeMode(kTechnical);
    assigned = *format;
    format.reset();
    for (const char* number : {"5", "-7", "0"}) {
        const TypeParam value = Facts<TypeParam>::Of(number);
        EXPECT_EQ(Shown(value, &copy), std::string(number) + ",00");
        EXPECT_EQ(Shown(value, &assigned), std::string(number) + ",00");
    }
}

// What needs no format

ZEL_NUMBER_SUITE(Undefined);

TYPED_TEST(Undefined, AreShownAsNothingWithoutAFormat)
{
    const ZelFormat unusable = Unusable();
    for (const State& state : AllStates())
        for (const char* number : {"0", "7"}) {
            TypeParam value = Facts<TypeParam>::Of(number);
            BringState(value, state);
            value.SetFormat(&unusable);
            const std::string expected = state.defined ? "<20>" : "";
            EXPECT_EQ(Shown(value, nullptr), expected) << state;
            EXPECT_EQ(Shown(value, &unusable), expected) << state;
            EXPECT_EQ(Shown(value, &kOne), state.defined ? number + std::string(",0") : "");
            value.SetFormat(nullptr);
            EXPECT_EQ(Shown(value, nullptr), state.defined ? number : "") << state;
        }
}

TYPED_TEST(Undefined, BecomesWhateverReadsNothing)
{
    const ZelFormat unusable = Unusable();
    for (const State& state : AllStates())
        for (const char* number : {"0", "7"})
            for (const char* nothing : {static_cast<const char*>(nullptr), ""})
                for (const ZelFormat* own : {&unusable, static_cast<const ZelFormat*>(nullptr)})
                    for (const ZelFormat* passed : {&unusable, own}) {
                        TypeParam value = Facts<TypeParam>::Of(number);
                        BringState(value, state);
                        value.SetFormat(own);
                        Seen expected{state, Expected<TypeParam>("0")};
                        if (*number != '0')
                            expected.state.modified = 1;
                        SetUndefined(expected.state);
                        value.SetFromOFL(nothing, passed);
                        EXPECT_EQ(Look(value), expected) << number << ", " << state;
                        EXPECT_EQ(value.GetFormat(), own);
                    }
}

TYPED_TEST(Undefined, IsNotWhatReadsBlanks)
{
    const ZelFormat unusable = Unusable();
    const ZelFormat blanks = Make({.places = 8,
                                   .decimals = 2,
                                   .fillLeft = 1,
                                   .leftChar = ' ',
                                   .fillRight = 1,
                                   .rightChar = ' '});
    for (const State& state : AllStates())
        for (const char* text : {" ", "\t", "        ", " \t "}) {
            TypeParam value = Facts<TypeParam>::Of("7");
            BringState(value, state);
            EXPECT_EQ(Typed(value, text, nullptr), "<21>") << state;
            EXPECT_EQ(Typed(value, text, &kTwo), "<21>") << state;
            EXPECT_EQ(Typed(value, text, &blanks), "<21>") << state;
            EXPECT_EQ(Typed(value, text, &unusable), "<20>") << state;
        }
}

TYPED_TEST(Undefined, BecomesDefinedByReading)
{
    for (const State& state : AllStates())
        for (const char* number : {"0", "7"}) {
            TypeParam value = Facts<TypeParam>::Of("7");
            BringState(value, state);
            Seen expected{state, Expected<TypeParam>(number)};
            if (*number != '7')
                expected.state.modified = 1;
            SetDefined(expected.state, 1);
            value.SetFromOFL(number, nullptr);
            EXPECT_EQ(Look(value), expected) << state;
        }
}

// Formats that do not serve numbers

/// Formats of the other kinds, one for each enumerator that could tell them apart.
std::vector<ZelFormat> OtherKinds()
{
    std::vector<ZelFormat> formats;
    for (const int kind : {0, 1, 2, 3})
        for (const int shape : {0, 1})
            formats.emplace_back(static_cast<ZelFormat::FormatZeitArt>(kind),
                                 static_cast<ZelFormat::FormatZeitDarstellung>(shape),
                                 ZelFormat::ZelFoVorzeichenVorne, ZelFormat::ZelFoNurMinus, 0UL, 0,
                                 '0');
    for (const int kind : {0, 1, 2, 3, 4})
        formats.emplace_back(static_cast<ZelFormat::FormatDatumArt>(kind),
                             ZelFormat::ZelFoDatumPunkt, ZelFormat::ZelFoJahrVierstellig,
                             ZelFormat::ZelFoMonatZahl, 1, '0');
    for (const unsigned long most : {0UL, 20UL})
        for (const int fill : {0, 1, 2})
            formats.emplace_back(most, ZelFormat::kulZelFoValidAll,
                                 static_cast<ZelFormat::FormatAuffuellen>(fill), ' ');
    return formats;
}

ZEL_NUMBER_SUITE(OtherFormats);

TYPED_TEST(OtherFormats, DoNotServeNumbers)
{
    for (const ZelFormat& format : OtherKinds())
        for (const char* number : {"0", "-12"}) {
            TypeParam value = Facts<TypeParam>::Of(number);
            EXPECT_EQ(Shown(value, &format), "<20>");
            for (const char* text : {"5", "x", " ", "01.01.2000", "1:30"})
                EXPECT_EQ(Typed(value, text, &format), "<20>") << text;
            value.SetFormat(&format);
            EXPECT_EQ(Shown(value, nullptr), "<20>");
            EXPECT_EQ(Typed(value, "5", nullptr), "<20>");
            value.SetFromOFL("", &format);
            EXPECT_EQ(Shown(value, nullptr), "");
        }
}

TYPED_TEST(OtherFormats, ThatAreMadeOfUnknownSettingsFailWhateverIsRead)
{
    const std::vector<Shape> shapes = {
        {.decimalSeparator = 0, .groupSeparator = 2},
        {.decimalSeparator = 1, .groupSeparator = 1},
        {.decimalSeparator = 2},
        {.decimalSeparator = -1},
        {.groupSeparator = 5},
        {.groupSeparator = -1},
        {.sign = 3},
        {.sign = -1},
        {.whichSign = 2},
        {.whichSign = -1},
        {.places = 1025},
        {.decimals = 1025},
        {.decimals = kAll - 1},
        {.fillLeft = 1, .leftChar = '5'},
        {.fillLeft = 1, .leftChar = '-'},
        {.fillLeft = 1, .leftChar = '\0'},
        {.decimals = 2, .fillRight = 1, .rightChar = '1'},
        {.decimals = 2, .fillRight = 1, .rightChar = '+'},
        {.decimals = 2, .fillRight = 1, .rightChar = '\0'},
        {.decimals = 2, .decimalSeparator = 3, .fillRight = 1, .rightChar = ' '},
    };
    for (const Shape& shape : shapes) {
        const ZelFormat format = Make(shape);
        for (const char* text : {"0", "5", "-5", "5,5", "x", " "}) {
            TypeParam value = Facts<TypeParam>::Of("7");
            EXPECT_EQ(Typed(value, text, &format), "<20>") << shape << " reads " << text;
            EXPECT_EQ(Shown(value, &format), "<20>") << shape;
        }
    }
    for (const int mode : {-1, 2, 3}) {
        const ZelFormat format = MakeMode(mode);
        TypeParam value = Facts<TypeParam>::Of("7");
        for (const char* text : {"0", "x"})
            EXPECT_EQ(Typed(value, text, &format), "<20>") << mode;
        EXPECT_EQ(Shown(value, &format), "<20>") << mode;
    }
}

// Texts of every byte and of every length

/// Formats in which no byte but digits, signs, blanks and their own separators means anything.
std::vector<ZelFormat> ReadingFormats()
{
    return {MakeMode(kStandard), MakeMode(kTechnical), Make({.decimals = 2, .groupSeparator = 1}),
            Make({.decimals = kAll, .decimalSeparator = 1, .groupSeparator = 4}),
            Make({.decimals = 0, .decimalSeparator = 3})};
}

ZEL_NUMBER_SUITE(OddTexts);

TYPED_TEST(OddTexts, OfEveryByteAreRefusedUnlessTheByteMeansSomething)
{
    for (const ZelFormat& format : ReadingFormats())
        for (int byte = 1; byte < 256; ++byte) {
            const char c = static_cast<char>(byte);
            const bool isDigit = c >= '0' && c <= '9';
            const bool isBlank = c == ' ' || c == '\t';
            const auto read = [&](const std::string& text) {
                TypeParam value = Facts<TypeParam>::Of("7");
                return Typed(value, text.c_str(), &format);
            };
            const auto number = [](const std::string& text) { return Expected<TypeParam>(text); };
            const std::string alone = read(std::string(1, c));
            const std::string front = read(c + std::string("5"));
            const std::string behind = read(std::string("5") + c);
            const std::string inside = read(std::string("1") + c + "2");
            EXPECT_EQ(alone, isDigit ? number(std::string(1, c)) : "<21>") << byte;
            if (isDigit) {
                EXPECT_EQ(front, number(c + std::string("5"))) << byte;
                EXPECT_EQ(behind, number(std::string("5") + c)) << byte;
            } else if (isBlank || c == '+' || c == '-') {
                EXPECT_EQ(front, number(c == '-' ? "-5" : "5")) << byte;
                EXPECT_EQ(behind, number(c == '-' ? "-5" : "5")) << byte;
            } else {
                EXPECT_EQ(front, "<21>") << byte;
                EXPECT_EQ(behind, "<21>") << byte;
            }
            if (isDigit) {
                EXPECT_EQ(inside, number(std::string("1") + c + "2")) << byte;
            } else if (c != '.' && c != ',' && c != 'E' && c != 'e') {
                EXPECT_EQ(inside, "<21>") << byte;
            }
        }
}

TYPED_TEST(OddTexts, OfGreatLengthAreReadOrRefusedInTime)
{
    const std::size_t million = 1000000;
    const auto many = [](const char* text, std::size_t count) {
        std::string all;
        for (std::size_t i = 0; i < count; ++i)
            all += text;
        return all;
    };
    struct Row {
        std::string text;
        std::string result;
    };
    const bool isDecimal = std::is_same_v<TypeParam, ZelDtDecimal>;
    const std::string tooLarge = isDecimal ? "<11>" : "<8>";
    const std::vector<Row> rows = {
        {std::string(million, ' ') + "5" + std::string(million, '\t'), "5"},
        {std::string(million, '0') + "5", "5"},
        {"-" + std::string(million, '0') + "5", "-5"},
        {std::string(million, '9'), tooLarge},
        {"1" + std::string(million, '0'), tooLarge},
        {"1" + many(".000", million / 4), tooLarge},
        {std::string(million, ' '), "<21>"},
        {std::string(million, 'x'), "<21>"},
        {std::string(million, '\xFF'), "<21>"},
        {std::string(million, '-'), "<21>"},
        {std::string(million, '.'), "<21>"},
        {std::string(million, ','), "<21>"},
        {std::string(million, '5') + "x", "<21>"},
        {many("1,", million / 2), "<21>"},
        {many("1.", million / 2), "<21>"},
        {"5" + std::string(million, '-'), "<21>"},
        {"5" + std::string(million, ' ') + "5", "<21>"},
    };
    for (const Row& row : rows) {
        TypeParam value = Facts<TypeParam>::Of("7");
        EXPECT_EQ(Typed(value, row.text.c_str(), nullptr),
                  row.result.front() == '<' ? row.result : Expected<TypeParam>(row.result))
            << row.text.substr(0, 10);
    }
}

TEST(OddTextsOfFractions, AreReadToTheLastDigit)
{
    const std::size_t million = 1000000;
    const auto read = [](const std::string& text) {
        ZelDtDouble value(7.0);
        const std::string number = Typed(value, text.c_str(), nullptr);
        ZelDtDecimal decimal(7);
        const std::string digits = Typed(decimal, text.c_str(), nullptr);
        return number + " " + digits;
    };
    const auto number = [](const char* text) { return Expected<ZelDtDouble>(text) + " "; };
    EXPECT_EQ(read("0,5" + std::string(million, '1')), number("0.5111111111111111111111") + "<11>");
    EXPECT_EQ(read("0," + std::string(million, '0') + "1"), "<8> <11>");
    // Half way between 1 and the next double; a last digit far behind decides.
    const std::string half = "1,00000000000000011102230246251565404236316680908203125";
    EXPECT_EQ(read(half), number("1") + "<11>");
    EXPECT_EQ(read(half + std::string(million, '0')), number("1") + "<11>");
    EXPECT_EQ(read(half + std::string(million, '0') + "1"),
              number("1.0000000000000002220446049250313") + "<11>");
    EXPECT_EQ(read("1" + std::string(million, '0') + ",5E-1000000"), number("1") + "<21>");
}

} // namespace
