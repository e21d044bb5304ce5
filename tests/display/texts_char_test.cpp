/// How characters are shown and what people may type for them.

#include "tests/display/texts_testing.h"

#include <climits>
#include <random>
#include <string>

namespace {

using namespace zeltest;

const ZelFormat kStandard(ZelFormat::ZelFoStandard);
const ZelFormat kTechnical(ZelFormat::ZelFoTechnisch);
const ZelFormat kText = TextFormat();

TEST(CharactersShown, AsTheyAre)
{
    for (const char byte : AllCharacters()) {
        const Letter letter = Defined(byte);
        const Given<ZelDtChar> given(letter);
        for (const ZelFormat* format :
             {static_cast<const ZelFormat*>(nullptr), &kStandard, &kTechnical, &kText})
            EXPECT_EQ(Shown(given.it, format), std::string(1, byte)) << letter;
        EXPECT_EQ(Look(given.it), letter);
    }
}

TEST(CharactersShown, FilledByATextFormat)
{
    const struct {
        TextOptions options;
        const char* text;
    } rows[] = {
        {{1, kLetter, 0, ' '}, "x"},    {{1, kLetter, 1, '*'}, "x"},
        {{4, kLetter, 1, '*'}, "***x"}, {{4, kLetter, 2, '*'}, "x***"},
        {{3, kLetter, 1, ' '}, "  x"},  {{4, kLetter, 0, '*'}, "x"},
    };
    for (const auto& row : rows) {
        const ZelFormat format = row.options.Format();
        EXPECT_EQ(Shown(Given<ZelDtChar>(Defined('x')).it, &format), row.text) << row.options;
        for (const Letter& letter : Letters({'\0', 'x', 'y'})) {
            Given<ZelDtChar> given(letter);
            given.it.SetFromOFL(row.text, &format);
            EXPECT_EQ(Look(given.it), Taken(letter, 'x')) << row.options;
        }
    }
}

TEST(CharactersShown, NotByFormatsOfAnotherKind)
{
    const Letter letter = Defined('x');
    for (const ZelFormat& format : {NumberFormat(), TimeFormat(), DateFormat(), UnknownFormat()}) {
        Given<ZelDtChar> given(letter);
        EXPECT_TRUE(
            FailsByFormat([&] { given.it.ConvToOFL(&format); }, ShowCharError(), 20, "FormatChar"));
        EXPECT_TRUE(FailsByFormat([&] { given.it.SetFromOFL("y", &format); }, ReadCharError(), 20,
                                  "ParseChar"));
        given.it.SetFormat(&format);
        EXPECT_TRUE(
            FailsByFormat([&] { given.it.ConvToOFL(nullptr); }, ShowCharError(), 20, "FormatChar"));
        EXPECT_TRUE(FailsByFormat([&] { given.it.SetFromOFL("y", nullptr); }, ReadCharError(), 20,
                                  "ParseChar"));
        EXPECT_EQ(Look(given.it), letter);
    }
}

TEST(CharactersShown, AsNothingWithoutAskingAFormatWhenUndefined)
{
    const ZelFormat unknown = UnknownFormat();
    for (const Letter& letter : Letters({'\0', 'x', '\xFF'})) {
        if (letter.state.defined)
            continue;
        Given<ZelDtChar> given(letter);
        for (const ZelFormat* own : {static_cast<const ZelFormat*>(nullptr), &unknown}) {
            given.it.SetFormat(own);
            EXPECT_EQ(Shown(given.it, nullptr), "");
            EXPECT_EQ(Shown(given.it, &kText), "");
            EXPECT_EQ(Shown(given.it, &unknown), "");
        }
        EXPECT_EQ(Look(given.it), letter);
    }
}

TEST(CharactersShown, ByThePassedFormatThenTheOwnThenTheDefault)
{
    const ZelFormat passed = TextOptions{3, ZelFormat::kulZelFoValidAll, 1, '*'}.Format();
    const ZelFormat own = TextOptions{2, kLetter, 2, '.'}.Format();
    Given<ZelDtChar> given(Defined('x'));
    EXPECT_EQ(Shown(given.it, nullptr), "x");
    EXPECT_EQ(Shown(given.it, &passed), "**x");
    given.it.SetFormat(&own);
    EXPECT_EQ(Shown(given.it, nullptr), "x.");
    EXPECT_EQ(Shown(given.it, &passed), "**x");
    EXPECT_TRUE(FailsByFormat([&] { given.it.SetFromOFL("7", nullptr); }, ReadCharError(), 21,
                              "ParseChar"));
    given.it.SetFromOFL("7", &passed);
    EXPECT_EQ(Look(given.it).value, '7');
    given.it.SetFormat(nullptr);
    given.it.SetFromOFL("8", nullptr);
    EXPECT_EQ(Look(given.it).value, '8');
}

TEST(CharactersRead, AreOneByteOfAnyKind)
{
    for (const char byte : AllCharacters()) {
        if (byte == '\0')
            continue;
        const char text[] = {byte, '\0'};
        for (const ZelFormat* format :
             {static_cast<const ZelFormat*>(nullptr), &kStandard, &kTechnical, &kText}) {
            for (const Letter& letter : Letters({'\0', 'x', byte})) {
                Given<ZelDtChar> given(letter);
                given.it.SetFromOFL(text, format);
                ASSERT_EQ(Look(given.it), Taken(letter, byte)) << letter;
            }
        }
    }
}

TEST(CharactersRead, OfMoreThanOneByteAreRefused)
{
    const ZelFormat one = TextOptions{1, ZelFormat::kulZelFoValidAll, 0, ' '}.Format();
    for (const std::string& text :
         {std::string("ab"), std::string("  "), std::string(" a"), std::string("a "),
          std::string("\t\t"), std::string("aa"), std::string("\xC3\xA4"), // two bytes, one letter
          std::string("abc"), std::string("Ja"), std::string(100000, 'x'),
          std::string(100000, ' ')}) {
        for (const ZelFormat* format :
             {static_cast<const ZelFormat*>(nullptr), &kStandard, &kTechnical, &kText, &one}) {
            for (const Letter& letter : Letters({'\0', 'x'})) {
                Given<ZelDtChar> given(letter);
                ASSERT_TRUE(FailsByFormat([&] { given.it.SetFromOFL(text.c_str(), format); },
                                          ReadCharError(), 11, "ParseChar"))
                    << Escaped(text.substr(0, 60));
                ASSERT_EQ(Look(given.it), letter);
            }
        }
    }
}

TEST(CharactersRead, InsideTheMaskOnly)
{
    for (unsigned long mask = 0; mask < 32; ++mask) {
        const ZelFormat format = TextOptions{1, mask, 0, ' '}.Format();
        for (const char byte : AllCharacters()) {
            if (byte == '\0')
                continue;
            const char text[] = {byte, '\0'};
            const Letter before = Defined(byte == 'x' ? 'y' : 'x');
            Given<ZelDtChar> given(before);
            const Letter after = Defined(byte);
            const Given<ZelDtChar> source(after);
            if ((mask & ClassOf(byte)) != 0) {
                given.it.SetFromOFL(text, &format);
                EXPECT_EQ(Look(given.it), Taken(before, byte)) << mask;
                EXPECT_EQ(Shown(source.it, &format), text) << mask;
            } else {
                EXPECT_TRUE(FailsByFormat([&] { given.it.SetFromOFL(text, &format); },
                                          ReadCharError(), 21, "ParseChar"))
                    << after << " with mask " << mask;
                EXPECT_EQ(Look(given.it), before);
                EXPECT_TRUE(FailsByFormat([&] { source.it.ConvToOFL(&format); }, ShowCharError(),
                                          21, "FormatChar"))
                    << after << " with mask " << mask;
            }
        }
    }
}

TEST(CharactersRead, FromNothingAreUndefined)
{
    const ZelFormat unknown = UnknownFormat();
    const ZelFormat dates = DateFormat();
    for (const Letter& letter : Letters({'\0', 'x', '\xFF'})) {
        for (const char* nothing : {static_cast<const char*>(nullptr), ""}) {
            for (const ZelFormat* format :
                 {static_cast<const ZelFormat*>(nullptr), &unknown, &dates}) {
                Given<ZelDtChar> given(letter);
                given.it.SetFormat(&unknown);
                given.it.SetFromOFL(nothing, format);
                EXPECT_EQ(Look(given.it), Cleared(letter));
            }
        }
    }
}

TEST(CharactersRead, BackFromWhatIsShown)
{
    std::mt19937_64 random(255);
    const std::vector<Letter> before = Letters({'\0', 'x', '*', '\xFF'});
    int shown = 0;
    for (int i = 0; i < 30000; ++i) {
        const auto byte = static_cast<char>(1 + random() % 255);
        TextOptions options;
        options.most = random() % 5;
        options.mask = random() % 4 == 0 ? ZelFormat::kulZelFoValidAll : random() % 32;
        options.fill = static_cast<int>(random() % 3);
        options.fillChar = static_cast<char>(1 + random() % 255);
        if (options.fillChar == byte)
            continue;
        const ZelFormat format = options.Format();
        const Given<ZelDtChar> source(Defined(byte));
        if ((options.mask & ClassOf(byte)) == 0) {
            ASSERT_TRUE(FailsByFormat([&] { source.it.ConvToOFL(&format); }, ShowCharError(), 21,
                                      "FormatChar"));
            continue;
        }
        ++shown;
        const std::string text = Shown(source.it, &format);
        const std::size_t length = options.fill == 0 || options.most == 0 ? 1 : options.most;
        ASSERT_EQ(text.size(), length) << options;
        const Letter& old = before[random() % before.size()];
        Given<ZelDtChar> target(old);
        target.it.SetFromOFL(text.c_str(), &format);
        ASSERT_EQ(Look(target.it), Taken(old, byte)) << options;
    }
    EXPECT_GT(shown, 10000);
}

} // namespace
