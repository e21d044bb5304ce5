/// How booleans are shown and what people may type for them.

#include "tests/display/texts_testing.h"

#include <climits>
#include <random>
#include <string>
#include <vector>

namespace {

using namespace zeltest;

const ZelFormat kStandard(ZelFormat::ZelFoStandard);
const ZelFormat kTechnical(ZelFormat::ZelFoTechnisch);

/// `before` after a word for yes: a number that is one already stays.
Truth SaidYes(const Truth& before)
{
    return Taken(before, before.value != 0 ? before.value : 1);
}

const std::vector<int> kNumbers = {0, 1, 2, -5, INT_MAX, INT_MIN};

TEST(BooleansShown, ByTheModes)
{
    for (const Truth& truth : Truths(kNumbers)) {
        const Given<ZelDtBool> given(truth);
        const bool defined = truth.state.defined != 0;
        const bool yes = truth.value != 0;
        const std::string word = !defined ? "" : yes ? "Ja" : "Nein";
        EXPECT_EQ(Shown(given.it), word) << truth;
        EXPECT_EQ(Shown(given.it, &kStandard), word) << truth;
        EXPECT_EQ(Shown(given.it, &kTechnical), !defined ? "" : yes ? "1" : "0") << truth;
        EXPECT_EQ(Look(given.it), truth);
    }
}

TEST(BooleansShown, NotByFormatsOfAnotherKind)
{
    const Truth truth = Defined(2);
    for (const ZelFormat& format :
         {NumberFormat(), TimeFormat(), DateFormat(), TextFormat(), UnknownFormat()}) {
        Given<ZelDtBool> given(truth);
        EXPECT_TRUE(
            FailsByFormat([&] { given.it.ConvToOFL(&format); }, ShowBoolError(), 20, "FormatBool"));
        EXPECT_TRUE(FailsByFormat([&] { given.it.SetFromOFL("Nein", &format); }, ReadBoolError(),
                                  20, "ParseBool"));
        given.it.SetFormat(&format);
        EXPECT_TRUE(
            FailsByFormat([&] { given.it.ConvToOFL(nullptr); }, ShowBoolError(), 20, "FormatBool"));
        EXPECT_TRUE(FailsByFormat([&] { given.it.SetFromOFL("Nein", nullptr); }, ReadBoolError(),
                                  20, "ParseBool"));
        EXPECT_EQ(Look(given.it), truth);
    }
}

TEST(BooleansShown, NotByUnknownModes)
{
    for (const int mode : {-1, 2, 3, 256, INT_MAX, INT_MIN}) {
        const ZelFormat format(static_cast<ZelFormat::FormatModus>(mode));
        const ZelDtBool value(TRUE);
        EXPECT_TRUE(
            FailsByFormat([&] { value.ConvToOFL(&format); }, ShowBoolError(), 20, "FormatBool"))
            << mode;
    }
}

TEST(BooleansShown, AsNothingWithoutAskingAFormatWhenUndefined)
{
    const ZelFormat unknown = UnknownFormat();
    const ZelFormat dates = DateFormat();
    for (const Truth& truth : Truths(kNumbers)) {
        if (truth.state.defined)
            continue;
        Given<ZelDtBool> given(truth);
        for (const ZelFormat* own : {static_cast<const ZelFormat*>(nullptr), &unknown}) {
            given.it.SetFormat(own);
            EXPECT_EQ(Shown(given.it, nullptr), "");
            EXPECT_EQ(Shown(given.it, &unknown), "");
            EXPECT_EQ(Shown(given.it, &dates), "");
        }
        EXPECT_EQ(Look(given.it), truth);
    }
}

TEST(BooleansShown, ByThePassedFormatThenTheOwnThenTheDefault)
{
    const ZelFormat unknown = UnknownFormat();
    Given<ZelDtBool> given(Defined(2));
    EXPECT_EQ(Shown(given.it, nullptr), "Ja");
    EXPECT_EQ(Shown(given.it, &kTechnical), "1");
    given.it.SetFormat(&kTechnical);
    EXPECT_EQ(Shown(given.it, nullptr), "1");
    EXPECT_EQ(Shown(given.it, &kStandard), "Ja");
    given.it.SetFormat(&unknown);
    EXPECT_EQ(Shown(given.it, &kStandard), "Ja");
    given.it.SetFromOFL("Nein", &kStandard);
    EXPECT_EQ(Look(given.it).value, 0);
    given.it.SetFormat(nullptr);
    given.it.SetFromOFL("Ja", nullptr);
    EXPECT_EQ(Look(given.it).value, 1);
}

TEST(BooleansRead, AsYesAndNoInAnyCase)
{
    const std::string blanks(1000, ' ');
    for (const ZelFormat* format :
         {static_cast<const ZelFormat*>(nullptr), &kStandard, &kTechnical}) {
        for (const Truth& truth : Truths(kNumbers)) {
            for (const char* yes : {"Ja", "JA", "ja", "jA", "J", "j", "1"}) {
                for (const std::string& text :
                     {std::string(yes), " " + std::string(yes), "\t " + std::string(yes) + " \t",
                      blanks + yes + blanks}) {
                    Given<ZelDtBool> given(truth);
                    given.it.SetFromOFL(text.c_str(), format);
                    ASSERT_EQ(Look(given.it), SaidYes(truth)) << truth << " reads '" << yes << "'";
                }
            }
            for (const char* no : {"Nein", "NEIN", "nein", "nEiN", "NEin", "N", "n", "0"}) {
                for (const std::string& text :
                     {std::string(no), std::string(no) + " ", " \t" + std::string(no) + "\t ",
                      blanks + no + blanks}) {
                    Given<ZelDtBool> given(truth);
                    given.it.SetFromOFL(text.c_str(), format);
                    ASSERT_EQ(Look(given.it), Taken(truth, 0)) << truth << " reads '" << no << "'";
                }
            }
        }
    }
}

TEST(BooleansRead, AsNothingElse)
{
    const std::string rows[] = {" ",
                                "\t",
                                "  \t ",
                                "x",
                                "Jaa",
                                "Je",
                                "a",
                                "Nei",
                                "Neinn",
                                "Ne",
                                "ein",
                                "2",
                                "-1",
                                "+1",
                                "01",
                                "10",
                                "00",
                                "11",
                                "1 1",
                                "J a",
                                "Ja Ja",
                                "Ja,",
                                "Ja.",
                                "1,0",
                                "1.0",
                                "0.0",
                                "yes",
                                "no",
                                "true",
                                "false",
                                "on",
                                "off",
                                "wahr",
                                "J\xE4",
                                "J\xC4",
                                "\xCA",
                                "Ja\xA0",
                                "\xA0Ja",
                                "Ja\n",
                                "\vJa",
                                "\r1",
                                "\xB9",
                                "\xFF",
                                "\x80",
                                "J\x01",
                                "'Ja'",
                                "\"1\"",
                                "Ja/Nein",
                                "NULL",
                                "undefined",
                                std::string(100000, 'J'),
                                std::string(100000, '1'),
                                std::string(100000, ' ')};
    for (const std::string& text : rows) {
        for (const ZelFormat* format :
             {static_cast<const ZelFormat*>(nullptr), &kStandard, &kTechnical}) {
            for (const Truth& truth : Truths({0, 1, 2})) {
                Given<ZelDtBool> given(truth);
                ASSERT_TRUE(FailsByFormat([&] { given.it.SetFromOFL(text.c_str(), format); },
                                          ReadBoolError(), 21, "ParseBool"))
                    << Escaped(text.substr(0, 60));
                ASSERT_EQ(Look(given.it), truth);
            }
        }
    }
}

TEST(BooleansRead, FromOneByteOfSix)
{
    for (int code = 1; code < 256; ++code) {
        const char text[] = {static_cast<char>(code), '\0'};
        const Truth before = Defined(2);
        Given<ZelDtBool> given(before);
        if (std::string("JjNn10").find(text[0]) == std::string::npos) {
            EXPECT_TRUE(FailsByFormat([&] { given.it.SetFromOFL(text, nullptr); }, ReadBoolError(),
                                      21, "ParseBool"))
                << code;
            EXPECT_EQ(Look(given.it), before);
        } else {
            given.it.SetFromOFL(text, nullptr);
            EXPECT_EQ(given.it.GetValue() != 0,
                      std::string("Jj1").find(text[0]) != std::string::npos);
        }
    }
}

TEST(BooleansRead, FromNothingAreUndefined)
{
    const ZelFormat unknown = UnknownFormat();
    const ZelFormat dates = DateFormat();
    for (const Truth& truth : Truths({0, 1, 2, -5})) {
        for (const char* nothing : {static_cast<const char*>(nullptr), ""}) {
            for (const ZelFormat* format :
                 {static_cast<const ZelFormat*>(nullptr), &unknown, &dates}) {
                Given<ZelDtBool> given(truth);
                given.it.SetFormat(&unknown);
                given.it.SetFromOFL(nothing, format);
                EXPECT_EQ(Look(given.it), Cleared(truth));
            }
        }
    }
}

TEST(BooleansRead, BackFromWhatIsShown)
{
    std::mt19937_64 random(7);
    const std::vector<State> states = AllStates();
    for (int i = 0; i < 10000; ++i) {
        const auto number = [&random] {
            return static_cast<int>(static_cast<std::uint32_t>(random())) >> random() % 32;
        };
        const ZelFormat& format = random() % 2 == 0 ? kStandard : kTechnical;
        const int shown = number();
        const std::string text = Shown(Given<ZelDtBool>(Defined(shown)).it, &format);
        const Truth before{states[random() % states.size()], number()};
        Given<ZelDtBool> target(before);
        target.it.SetFromOFL(text.c_str(), &format);
        ASSERT_EQ(Look(target.it), shown != 0 ? SaidYes(before) : Taken(before, 0)) << text;
    }
}

TEST(BooleansRead, SurviveGarbage)
{
    std::mt19937_64 random(8);
    static const std::string kBytes = "JjAaNnEeIi10 \t\xC4\xFFx";
    const std::vector<Truth> befores = Truths({0, 2});
    int taken = 0;
    for (int i = 0; i < 20000; ++i) {
        std::string text;
        for (std::size_t count = 1 + random() % 5; count-- > 0;)
            text += random() % 16 == 0 ? static_cast<char>(1 + random() % 255)
                                       : kBytes[random() % kBytes.size()];
        const Truth& before = befores[random() % befores.size()];
        Given<ZelDtBool> given(before);
        const Caught caught = Catch([&] { given.it.SetFromOFL(text.c_str(), nullptr); });
        if (caught.disturbance != "nothing") {
            ASSERT_TRUE(Matches(caught, ReadBoolError())) << Escaped(text);
            ASSERT_EQ(caught.first.number, 21u) << Escaped(text);
            ASSERT_EQ(Look(given.it), before) << Escaped(text);
            continue;
        }
        ++taken;
        const Truth after = Look(given.it);
        ASSERT_TRUE(after == SaidYes(before) || after == Taken(before, 0)) << Escaped(text);
    }
    EXPECT_GT(taken, 500);
}

} // namespace
