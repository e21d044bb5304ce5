/// Strings made from other value classes: each takes over mode and flags of its source, and its
/// text when it is defined.

#include "tests/text/character_testing.h"

#include "platform/formats/ZelFormat.h"

#include <string>

namespace {

using namespace zeltest;

/// What a defined source gives.
struct Made {
    std::string text;
    int alloc = 0;
};

/// Checks the string made from `source`, which gives `made` when it is defined and else nothing.
template <typename Value>
void ExpectString(Value& source, const State& state, const Made& made)
{
    const ZelFormat format(ZelFormat::ZelFoStandard);
    source.SetFormat(&format);
    const ZelDtString string(source);
    EXPECT_EQ(StateOf(string), state);
    EXPECT_EQ(BytesOf(string), state.defined ? made.text : "") << state;
    EXPECT_EQ(string.GetAllocLength(), state.defined ? made.alloc : 0) << state;
    EXPECT_EQ(string.GetFormat(), nullptr);
    EXPECT_EQ(StateOf(source), state);
    source.SetFormat(nullptr);
}

// Booleans

TEST(FromBool, IsJaOrNein)
{
    const struct {
        int number;
        Made made;
    } rows[] = {{0, {"Nein", 4}}, {1, {"Ja", 2}}, {2, {"Ja", 2}}, {5, {"Ja", 2}}, {-1, {"Ja", 2}}};
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const State& state : AllStates()) {
            for (const auto& row : rows) {
                Given<ZelDtBool> given(Truth{state, row.number});
                ExpectString(given.it, state, row.made);
                EXPECT_EQ(static_cast<int>(given.it), row.number);
            }
        }
    }
}

TEST(FromBool, OfANewValue)
{
    const ZelDtString no(ZelDtBool(FALSE));
    EXPECT_EQ(ContentOf(no), (Content{"Nein", 1, 0}));
    const ZelDtString missing{ZelDtBool(ZelDtWmMissing)};
    EXPECT_TRUE(missing.IsMissing());
    EXPECT_EQ(BytesOf(missing), "");
    const ZelDtString null{ZelDtBool(ZelDtWmNull)};
    EXPECT_TRUE(null.IsNull());
    EXPECT_EQ(BytesOf(null), "");
    const ZelDtString always{ZelDtBool(ZelDtWmAlwaysDefined)};
    EXPECT_EQ(ContentOf(always), (Content{"Nein", 1, 0}));
}

TEST(FromBool, IsReadBackByTheBool)
{
    for (const Truth& truth : Truths({0, 1, 5})) {
        const Given<ZelDtBool> given(truth);
        const ZelDtBool back{ZelDtString(given.it)};
        EXPECT_EQ(Look(back), (Truth{truth.state, truth.state.defined && truth.value ? 1 : 0}));
    }
}

// Characters

TEST(FromChar, IsTheOneCharacter)
{
    for (const Letter& letter : Letters(AllCharacters())) {
        Given<ZelDtChar> given(letter);
        const std::string text = letter.value == '\0' ? "" : std::string(1, letter.value);
        ExpectString(given.it, letter.state, {text, 1});
        EXPECT_EQ(static_cast<char>(given.it), letter.value);
    }
}

TEST(FromChar, OfANewValue)
{
    const ZelDtString x{ZelDtChar('x')};
    EXPECT_EQ(ContentOf(x), (Content{"x", 1, 0}));
    const ZelDtString missing{ZelDtChar(ZelDtWmMissing)};
    EXPECT_TRUE(missing.IsMissing());
    EXPECT_EQ(BytesOf(missing), "");
    const ZelDtString null{ZelDtChar(ZelDtWmNull)};
    EXPECT_TRUE(null.IsNull());
    EXPECT_EQ(BytesOf(null), "");
    const ZelDtString always{ZelDtChar(ZelDtWmAlwaysDefined)};
    EXPECT_EQ(ContentOf(always), (Content{"", 1, 0}));
    EXPECT_EQ(always.GetAllocLength(), 1);
}

TEST(FromChar, IsReadBackByTheChar)
{
    for (const Letter& letter : Letters(AllCharacters())) {
        const Given<ZelDtChar> given(letter);
        const ZelDtChar back{ZelDtString(given.it)};
        EXPECT_EQ(Look(back), (Letter{letter.state, letter.state.defined ? letter.value : '\0'}));
    }
}

} // namespace
