/// How strings are shown and what people may type for them.

#include "tests/display/texts_testing.h"

#include <climits>
#include <random>
#include <string>
#include <vector>

namespace {

using namespace zeltest;

const ZelFormat kStandard(ZelFormat::ZelFoStandard);
const ZelFormat kTechnical(ZelFormat::ZelFoTechnisch);
const ZelFormat kText = TextFormat();

std::string EveryByte(int first)
{
    std::string bytes;
    for (int code = first; code < 256; ++code)
        bytes += static_cast<char>(code);
    return bytes;
}

/// Texts without NUL bytes, which can be typed.
const std::vector<std::string>& Texts()
{
    static const std::vector<std::string> texts = {
        "a",
        "Stra\xDF"
        "e",
        "\xC4rger \xFC"
        "ber \xD6l",
        "  leading",
        "trailing  ",
        "\ttab\t",
        " ",
        "     ",
        "line\r\nline",
        "a\"b'c",
        "05.03.2000",
        "Ja",
        "-1,50",
        "NULL",
        "\x01\x02\x1F\x7F",
        "\x80\x81\x8D\x9D\xA0\xAD\xFF",
        "\xC3\xA4",
        EveryByte(1).substr(0, 200),
        EveryByte(1).substr(55),
    };
    return texts;
}

TEST(StringsShown, Unchanged)
{
    std::vector<std::string> texts = Texts();
    texts.push_back("");
    texts.push_back(Raw("a\0b"));
    texts.push_back(Raw("\0"));
    texts.push_back(Raw("\0\0 \0"));
    for (const std::string& text : texts) {
        const Given<ZelDtString> given(Defined(text));
        for (const ZelFormat* format :
             {static_cast<const ZelFormat*>(nullptr), &kStandard, &kTechnical, &kText})
            EXPECT_EQ(Shown(given.it, format), text) << Escaped(text);
        EXPECT_EQ(Look(given.it), Defined(text));
    }
    const std::string everything = EveryByte(0);
    ZelDtString long_(Framework(everything + everything));
    EXPECT_EQ(Shown(long_), everything + everything);
}

TEST(StringsShown, ByTextFormats)
{
    const struct {
        TextOptions options;
        std::string text;
        std::string shown;
    } rows[] = {
        {{5, 31, 0, ' '}, "abc", "abc"},
        {{5, 31, 0, ' '}, "abcde", "abcde"},
        {{5, 31, 1, ' '}, "abc", "  abc"},
        {{5, 31, 2, ' '}, "abc", "abc  "},
        {{5, 31, 1, '0'}, "42", "00042"},
        {{5, 31, 2, '.'}, "42", "42..."},
        {{5, 31, 1, '*'}, "", "*****"},
        {{5, 31, 2, '*'}, "", "*****"},
        {{5, 31, 1, '*'}, "abcde", "abcde"},
        {{0, 31, 1, '*'}, "abc", "abc"},
        {{0, 31, 2, '*'}, "abc", "abc"},
        {{5, kDigit, 1, '*'}, "42", "***42"},
        {{5, 31, 1, '\xE4'},
         "abc",
         "\xE4\xE4"
         "abc"},
        {{3, 31, 0, ' '}, "", ""},
        {{1, 0, 0, ' '}, "", ""},
        {{1, kLetter, 0, ' '}, "\xFF", "\xFF"},
        {{0, kLetter | kBlank, 0, ' '}, "\xC4pfel und Birnen", "\xC4pfel und Birnen"},
    };
    for (const auto& row : rows) {
        const ZelFormat format = row.options.Format();
        const Given<ZelDtString> given(Defined(row.text));
        EXPECT_EQ(Shown(given.it, &format), row.shown) << row.options;
        EXPECT_EQ(Look(given.it), Defined(row.text));
    }
    const ZelFormat wide = TextOptions{1000, 31, 1, '-'}.Format();
    EXPECT_EQ(Shown(Given<ZelDtString>(Defined("x")).it, &wide), std::string(999, '-') + "x");
}

TEST(StringsShown, NotIfTheyCouldNotBeReadBack)
{
    const struct {
        TextOptions options;
        std::string text;
        unsigned long cause;
    } rows[] = {
        {{5, 31, 0, ' '}, "abcdef", 11},
        {{5, 31, 1, 'a'}, "abcdef", 11},
        {{1, 31, 2, ' '}, "  ", 11},
        {{5, kLetter, 0, ' '}, "ab1", 21},
        {{5, kLetter, 0, ' '}, "a b", 21},
        {{5, kLetter | kBlank | kDigit, 0, ' '}, "a-b", 21},
        {{0, kLetter | kBlank | kDigit | kPrintable, 0, ' '}, "a\tb", 21},
        {{0, kLetter | kBlank | kDigit | kPrintable, 0, ' '}, Raw("a\0b"), 21},
        {{0, kLetter | kDigit | kPrintable | kControl, 1, ' '}, "a b", 21},
        {{0, 0, 0, ' '}, "a", 21},
    };
    for (const auto& row : rows) {
        const ZelFormat format = row.options.Format();
        const Given<ZelDtString> given(Defined(row.text));
        EXPECT_TRUE(FailsByFormat([&] { given.it.ConvToOFL(&format); }, ShowStringError(),
                                  row.cause, "FormatString"))
            << Escaped(row.text) << " by " << row.options;
        EXPECT_EQ(Look(given.it), Defined(row.text));
    }
}

TEST(StringsShown, NotByFormatsOfAnotherKind)
{
    const Words words = Defined("7");
    for (const ZelFormat& format :
         {NumberFormat(), TimeFormat(), DateFormat(), UnknownFormat(),
          TextOptions{5, 31, 3, ' '}.Format(), TextOptions{5, 31, -1, ' '}.Format(),
          TextOptions{5, 31, INT_MAX, ' '}.Format()}) {
        Given<ZelDtString> given(words);
        EXPECT_TRUE(FailsByFormat([&] { given.it.ConvToOFL(&format); }, ShowStringError(), 20,
                                  "FormatString"));
        EXPECT_TRUE(FailsByFormat([&] { given.it.SetFromOFL("8", &format); }, ReadStringError(), 20,
                                  "ParseString"));
        given.it.SetFormat(&format);
        EXPECT_TRUE(FailsByFormat([&] { given.it.ConvToOFL(nullptr); }, ShowStringError(), 20,
                                  "FormatString"));
        EXPECT_TRUE(FailsByFormat([&] { given.it.SetFromOFL("8", nullptr); }, ReadStringError(), 20,
                                  "ParseString"));
        EXPECT_EQ(Look(given.it), words);
    }
}

TEST(StringsShown, AsNothingWithoutAskingAFormatWhenUndefined)
{
    const ZelFormat unknown = UnknownFormat();
    const ZelFormat filling = TextOptions{5, 31, 1, '*'}.Format();
    for (const Words& words : AllWords({})) {
        Given<ZelDtString> given(words);
        for (const ZelFormat* own : {static_cast<const ZelFormat*>(nullptr), &unknown, &filling}) {
            given.it.SetFormat(own);
            EXPECT_EQ(Shown(given.it, nullptr), "");
            EXPECT_EQ(Shown(given.it, &filling), "");
            EXPECT_EQ(Shown(given.it, &unknown), "");
        }
        EXPECT_EQ(Look(given.it), words);
    }
    // Nor are texts that a value keeps although it is undefined.
    ZelDtString kept("abc");
    Undefine(kept);
    EXPECT_EQ(Shown(kept, &unknown), "");
}

TEST(StringsShown, ByThePassedFormatThenTheOwnThenTheDefault)
{
    const ZelFormat passed = TextOptions{4, 31, 1, '*'}.Format();
    const ZelFormat own = TextOptions{3, kLetter, 2, '.'}.Format();
    Given<ZelDtString> given(Defined("ab"));
    EXPECT_EQ(Shown(given.it, nullptr), "ab");
    EXPECT_EQ(Shown(given.it, &passed), "**ab");
    given.it.SetFormat(&own);
    EXPECT_EQ(Shown(given.it, nullptr), "ab.");
    EXPECT_EQ(Shown(given.it, &passed), "**ab");
    EXPECT_TRUE(FailsByFormat([&] { given.it.SetFromOFL("12", nullptr); }, ReadStringError(), 21,
                              "ParseString"));
    given.it.SetFromOFL("12", &passed);
    EXPECT_EQ(BytesOf(given.it), "12");
    given.it.SetFormat(nullptr);
    given.it.SetFromOFL("  1234567", nullptr);
    EXPECT_EQ(BytesOf(given.it), "  1234567");
}

TEST(StringsRead, Unchanged)
{
    for (const std::string& text : Texts()) {
        for (const ZelFormat* format :
             {static_cast<const ZelFormat*>(nullptr), &kStandard, &kTechnical, &kText}) {
            for (const Words& words : AllWords({"", "abc", text})) {
                Given<ZelDtString> given(words);
                given.it.SetFromOFL(text.c_str(), format);
                ASSERT_EQ(Look(given.it), Taken(words, text)) << words;
            }
        }
    }
    const std::string million(1000000, '\xE4');
    ZelDtString value;
    value.SetFromOFL(million.c_str(), nullptr);
    EXPECT_EQ(BytesOf(value), million);
}

TEST(StringsRead, ByTextFormats)
{
    const struct {
        TextOptions options;
        std::string typed;
        std::string text;
    } rows[] = {
        {{5, 31, 0, ' '}, "abcde", "abcde"},
        {{5, 31, 0, '*'}, "*abc*", "*abc*"},
        {{5, 31, 1, '*'}, "**abc", "abc"},
        {{5, 31, 1, '*'}, "abc", "abc"},
        {{5, 31, 1, '*'}, "abc**", "abc**"},
        {{5, 31, 2, '*'}, "abc**", "abc"},
        {{5, 31, 2, '*'}, "**abc", "**abc"},
        {{5, 31, 1, '0'}, "00042", "42"},
        {{5, kLetter, 1, '*'}, "**abc", "abc"}, // fill characters need not be in the mask
        {{5, kLetter, 2, ' '}, "abc  ", "abc"},
        {{5, 31, 1, '*'}, "*****", ""},
        {{5, kLetter, 2, ' '}, "     ", ""},
        {{5, 31, 1, '*'}, "*a*b", "a*b"},
        {{0, kLetter, 0, ' '}, "\xC4\xF6\xDF", "\xC4\xF6\xDF"},
    };
    for (const auto& row : rows) {
        const ZelFormat format = row.options.Format();
        for (const Words& words : AllWords({"", "xyz", row.text})) {
            Given<ZelDtString> given(words);
            given.it.SetFromOFL(row.typed.c_str(), &format);
            ASSERT_EQ(Look(given.it), Taken(words, row.text)) << words << " by " << row.options;
        }
    }
}

TEST(StringsRead, NothingTooLongAndNothingOutsideTheMask)
{
    const struct {
        TextOptions options;
        std::string typed;
        unsigned long cause;
    } rows[] = {
        {{5, 31, 0, ' '}, "abcdef", 11},
        {{5, 31, 0, ' '}, "abc   ", 11},
        {{1, 31, 0, ' '}, "\xC3\xA4", 11},
        {{5, 31, 1, '*'}, "abcdef", 11},
        {{5, 31, 1, '*'}, "abcde*", 11},
        {{5, 31, 2, '*'}, "*abcde", 11},
        {{5, 31, 0, ' '}, std::string(1000000, 'x'), 11},
        {{5, kLetter, 0, ' '}, "ab1", 21},
        {{5, kLetter, 0, ' '}, " ab", 21},
        {{5, kLetter, 0, ' '}, "ab ", 21},
        {{5, kLetter, 0, ' '}, "a\tb", 21},
        {{5, kLetter, 1, '*'}, "ab*", 21},
        {{5, kLetter, 1, '*'}, "*a*b", 21},
        {{5, kDigit, 0, ' '}, "-1", 21},
        {{5, kDigit, 0, ' '}, "\xB2", 21},
        {{5, kBlank, 0, ' '}, "\xA0", 21},
        {{5, kBlank, 0, ' '}, "\t", 21},
        {{0, kLetter | kDigit | kBlank | kPrintable, 0, ' '}, "a\nb", 21},
        {{0, kLetter | kDigit | kBlank | kPrintable, 0, ' '}, "\x81", 21},
        {{0, 0, 0, ' '}, "a", 21},
    };
    for (const auto& row : rows) {
        const ZelFormat format = row.options.Format();
        for (const Words& words : AllWords({"", "xyz"})) {
            Given<ZelDtString> given(words);
            ASSERT_TRUE(FailsByFormat([&] { given.it.SetFromOFL(row.typed.c_str(), &format); },
                                      ReadStringError(), row.cause, "ParseString"))
                << Escaped(row.typed.substr(0, 60)) << " by " << row.options;
            ASSERT_EQ(Look(given.it), words);
        }
    }
}

TEST(StringsRead, ByEveryMask)
{
    for (unsigned long mask = 0; mask < 32; ++mask) {
        const ZelFormat format = TextOptions{3, mask, 0, ' '}.Format();
        for (const char byte : AllCharacters()) {
            if (byte == '\0')
                continue;
            const std::string text(2, byte);
            const Words before = Defined("xyz");
            Given<ZelDtString> given(before);
            const auto read = [&] { given.it.SetFromOFL(text.c_str(), &format); };
            if (Allows(mask, text)) {
                read();
                EXPECT_EQ(Look(given.it), Taken(before, text)) << mask;
            } else {
                EXPECT_TRUE(FailsByFormat(read, ReadStringError(), 21, "ParseString"))
                    << Escaped(text) << " with mask " << mask;
                EXPECT_EQ(Look(given.it), before);
            }
        }
    }
}

TEST(StringsRead, FromNothingAreUndefined)
{
    const ZelFormat unknown = UnknownFormat();
    const ZelFormat dates = DateFormat();
    for (const Words& words : AllWords({"", "abc", Raw("a\0b")})) {
        for (const char* nothing : {static_cast<const char*>(nullptr), ""}) {
            for (const ZelFormat* format :
                 {static_cast<const ZelFormat*>(nullptr), &unknown, &dates}) {
                Given<ZelDtString> given(words);
                given.it.SetFormat(&unknown);
                given.it.SetFromOFL(nothing, format);
                EXPECT_EQ(Look(given.it), Cleared(words));
            }
        }
    }
}

/// The text without the fill characters at the side where the format puts them.
std::string Unfilled(const TextOptions& o, std::string text)
{
    while (o.fill == 1 && !text.empty() && text.front() == o.fillChar)
        text.erase(0, 1);
    while (o.fill == 2 && !text.empty() && text.back() == o.fillChar)
        text.pop_back();
    return text;
}

std::string SomeText(std::mt19937_64& random, std::size_t most)
{
    static const std::string kBytes = "aZ\xE4\xDF 09*.-\t\x81\xA0";
    std::string text;
    for (std::size_t count = random() % (most + 1); count-- > 0;)
        text += random() % 8 == 0 ? static_cast<char>(1 + random() % 255)
                                  : kBytes[random() % kBytes.size()];
    return text;
}

TextOptions SomeOptions(std::mt19937_64& random)
{
    static const std::string kFills = " *0a.\xE4\t-";
    TextOptions options;
    options.most = random() % 3 == 0 ? 0 : 1 + random() % 8;
    options.mask = random() % 2 == 0 ? ZelFormat::kulZelFoValidAll : random() % 32;
    options.fill = options.most == 0 ? 0 : static_cast<int>(random() % 3);
    options.fillChar = kFills[random() % kFills.size()];
    return options;
}

TEST(StringsRoundTrip, WithRandomFormatsAndValues)
{
    std::mt19937_64 random(31);
    const std::vector<Words> targets = AllWords({"", "abc"});
    int shown = 0;
    for (int i = 0; i < 30000; ++i) {
        const TextOptions options = SomeOptions(random);
        const ZelFormat format = options.Format();
        const std::string text = SomeText(random, 10);
        const Given<ZelDtString> source(Defined(text));
        const bool fits = options.most == 0 || text.size() <= options.most;
        const bool allowed = Allows(options.mask, text);
        if (!fits || !allowed) {
            const Caught caught = Catch([&] { source.it.ConvToOFL(&format); });
            ASSERT_TRUE(Matches(caught, ShowStringError())) << Escaped(text) << " by " << options;
            const unsigned long first = caught.first.number;
            ASSERT_TRUE((first == 11 && !fits) || (first == 21 && !allowed)) << first;
            continue;
        }
        ++shown;
        const std::string visible = Shown(source.it, &format);
        const std::string fill(options.fill == 0 ? 0 : options.most - text.size(),
                               options.fillChar);
        ASSERT_EQ(visible, options.fill == 1 ? fill + text : text + fill) << options;
        const Words& before = targets[random() % targets.size()];
        Given<ZelDtString> target(before);
        target.it.SetFromOFL(visible.c_str(), &format);
        const Words after =
            visible.empty() ? Cleared(before) : Taken(before, Unfilled(options, text));
        ASSERT_EQ(Look(target.it), after) << Escaped(visible) << " by " << options;
    }
    EXPECT_GT(shown, 5000);
}

TEST(StringsRoundTrip, SurvivesGarbage)
{
    std::mt19937_64 random(32);
    const std::vector<Words> befores = AllWords({"", "abc"});
    int taken = 0;
    for (int i = 0; i < 30000; ++i) {
        const TextOptions options = SomeOptions(random);
        const ZelFormat format = options.Format();
        const std::string text = SomeText(random, 10);
        const Words& before = befores[random() % befores.size()];
        Given<ZelDtString> given(before);
        const Caught caught = Catch([&] { given.it.SetFromOFL(text.c_str(), &format); });
        if (text.empty()) {
            ASSERT_EQ(Look(given.it), Cleared(before));
            continue;
        }
        const std::string wanted = Unfilled(options, text);
        if (caught.disturbance == "nothing") {
            ++taken;
            ASSERT_EQ(Look(given.it), Taken(before, wanted)) << Escaped(text) << " by " << options;
            ASSERT_TRUE(Allows(options.mask, wanted)) << Escaped(text) << " by " << options;
            ASSERT_TRUE(options.most == 0 || wanted.size() <= options.most) << Escaped(text);
            continue;
        }
        ASSERT_TRUE(Matches(caught, ReadStringError()));
        ASSERT_EQ(Look(given.it), before);
        const bool fits = options.most == 0 || text.size() <= options.most;
        const unsigned long first = caught.first.number;
        ASSERT_TRUE((first == 11 && !fits) || (first == 21 && !Allows(options.mask, wanted)))
            << Escaped(text) << " by " << options << ": " << caught.first;
    }
    EXPECT_GT(taken, 5000);
}

} // namespace
