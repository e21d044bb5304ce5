/// Construction, state, reading, case, comparison and assignment of ZelDtChar.

#include "tests/text/character_testing.h"

#include "numeric/DTLONG.h"
#include "platform/formats/ZelFormat.h"

#include <array>
#include <memory>
#include <type_traits>

namespace {

using namespace zeltest;

const std::vector<char> kSomeCharacters = {'\0',   'x',    'X',    ' ',   '"',
                                           '\x7F', '\x80', '\xE4', '\xFF'};

TEST(Representation, IsTwoPointersBesideTheVirtualTable)
{
    EXPECT_EQ(sizeof(ZelDtChar), 3 * sizeof(void*));
    EXPECT_TRUE((std::is_base_of_v<ZelDtBasis, ZelDtChar>));
}

TEST(RuntimeClass, CreatesByName)
{
    const CRuntimeClass* record = RUNTIME_CLASS(ZelDtChar);
    EXPECT_STREQ(record->m_lpszClassName, "ZelDtChar");
    EXPECT_EQ(record->m_nObjectSize, static_cast<int>(sizeof(ZelDtChar)));
    EXPECT_EQ(record->m_wSchema, 1U);
    EXPECT_EQ(record->m_pfnGetBaseClass(), RUNTIME_CLASS(ZelDtBasis));
    EXPECT_EQ(CRuntimeClass::FromName("ZelDtChar"), record);
    for (const ZelDtWorkingMode mode : kRealModes) {
        const DefaultMode guard(mode);
        const std::unique_ptr<CObject> object(CRuntimeClass::CreateObject("ZelDtChar"));
        ASSERT_NE(object, nullptr);
        EXPECT_EQ(object->GetRuntimeClass(), record);
        EXPECT_TRUE(object->IsSerializable());
        EXPECT_EQ(Look(static_cast<const ZelDtChar&>(*object)), (Letter{NewUndefined(mode), '\0'}));
    }
}

TEST(TypeCode, IsOne)
{
    const ZelDtChar value('x');
    const ZelDtBasis& basis = value;
    EXPECT_EQ(basis.GetDtTyp(), ZelDtTypChar);
    EXPECT_EQ(static_cast<int>(basis.GetDtTyp()), 1);
    EXPECT_EQ(basis.ReservedQuery(), 0);
}

TEST(Construction, FromAModeHoldsNothing)
{
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const ZelDtWorkingMode mode : kRealModes) {
            const ZelDtChar value(mode);
            EXPECT_EQ(Look(value), (Letter{NewUndefined(mode), '\0'}));
            EXPECT_EQ(value.GetFormat(), nullptr);
        }
        EXPECT_EQ(Look(ZelDtChar(ZelDtWmDefault)), (Letter{NewUndefined(standard), '\0'}));
        EXPECT_EQ(Look(ZelDtChar()), (Letter{NewUndefined(standard), '\0'}));
    }
}

TEST(Construction, FromEveryCharacterIsDefinedInTheDefaultMode)
{
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const char character : AllCharacters())
            EXPECT_EQ(Look(ZelDtChar(character)), (Letter{NewDefined(), character}));
    }
}

TEST(Construction, FromTextsTakesTheFirstByte)
{
    const struct {
        const char* text;
        char character;
    } rows[] = {{"abc", 'a'},         {"a", 'a'},       {"", '\0'},
                {" a", ' '},          {"\"x\"", '"'},   {"NULL", 'N'},
                {"\xE4\xF6", '\xE4'}, {"\xFF", '\xFF'}, {"\x80", '\x80'}};
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const auto& row : rows)
            EXPECT_EQ(Look(ZelDtChar(row.text)), (Letter{NewDefined(), row.character})) << row.text;
    }
}

TEST(Construction, RejectsTheNullText)
{
    const char* none = nullptr;
    EXPECT_TRUE(FailsWith([&] { const ZelDtChar value(none); }, 5, kCharOrigin));
}

TEST(Construction, FromStringsCopiesTheState)
{
    const struct {
        std::string text;
        char character;
    } rows[] = {{"abc", 'a'}, {"a", 'a'}, {"", '\0'}, {"\xFFz", '\xFF'}, {Raw("\0b"), '\0'}};
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const State& state : AllStates()) {
            for (const auto& row : rows) {
                ZelDtString source;
                BringString(source, state.defined ? row.text : "", state);
                const ZelDtChar value(source);
                EXPECT_EQ(Look(value), (Letter{state, state.defined ? row.character : '\0'}))
                    << Escaped(row.text);
            }
        }
    }
}

TEST(Construction, FromAnUndefinedStringReadsNoText)
{
    for (const ZelDtWorkingMode mode : {ZelDtWmMissing, ZelDtWmNull}) {
        const StringPtr source = Make({mode, "leftover"});
        Undefine(*source);
        ASSERT_STREQ(*source, "leftover");
        EXPECT_EQ(Look(ZelDtChar(*source)), (Letter{{mode, 0, 0}, '\0'}));
    }
}

TEST(Construction, CopiesStateAndByteDefinedOrNot)
{
    const ZelFormat format(ZelFormat::ZelFoStandard);
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const Letter& letter : Letters(kSomeCharacters)) {
            Given<ZelDtChar> source(letter);
            source.it.SetFormat(&format);
            const ZelDtChar copy(source.it);
            EXPECT_EQ(Look(copy), letter);
            EXPECT_EQ(copy.GetFormat(), nullptr);

            const std::unique_ptr<ZelDtBasis> fresh(source.it.NewObject());
            ASSERT_EQ(fresh->GetRuntimeClass(), RUNTIME_CLASS(ZelDtChar));
            EXPECT_EQ(Look(static_cast<const ZelDtChar&>(*fresh)), letter);
            EXPECT_EQ(fresh->GetFormat(), nullptr);

            EXPECT_EQ(Look(source.it), letter);
            EXPECT_EQ(source.it.GetFormat(), &format);
        }
    }
}

TEST(Construction, OfACopyIsIndependent)
{
    ZelDtChar a('a');
    ZelDtChar b(a);
    b = 'b';
    EXPECT_EQ(a.GetValue(), 'a');
    a = 'c';
    EXPECT_EQ(b.GetValue(), 'b');
}

TEST(Construction, OfArraysWorksAcrossTheLibrary)
{
    auto* values = new ZelDtChar[3];
    values[0] = 'x';
    EXPECT_EQ(values[0].GetValue(), 'x');
    EXPECT_TRUE(values[1].IsMissing());
    EXPECT_TRUE(values[2].IsMissing());
    delete[] values;
}

TEST(Reading, GivesTheStoredByteUnlessMissing)
{
    for (const Letter& letter : Letters(AllCharacters())) {
        const Given<ZelDtChar> given(letter);
        EXPECT_EQ(static_cast<char>(given.it), letter.value);
        if (IsMissing(letter.state))
            EXPECT_TRUE(FailsWith([&] { given.it.GetValue(); },
                                  Error{2, "DTCHAR", "ZelDtChar", "GetValue()"}));
        else
            EXPECT_EQ(given.it.GetValue(), letter.value) << letter;
        EXPECT_EQ(Look(given.it), letter);
    }
}

// Case

char CharacterOf(int code)
{
    return static_cast<char>(code);
}

/// The pairs of lower and upper case in code page 1252. The letters without a partner there (the
/// sharp s, the micro sign, the florin sign, the ordinals) have none.
std::vector<std::pair<char, char>> CasePairs()
{
    std::vector<std::pair<char, char>> pairs = {{'\x9A', '\x8A'},  // s with caron
                                                {'\x9C', '\x8C'},  // oe
                                                {'\x9E', '\x8E'},  // z with caron
                                                {'\xFF', '\x9F'}}; // y with diaeresis
    for (int upper = 'A'; upper <= 'Z'; ++upper)
        pairs.emplace_back(CharacterOf(upper + 0x20), CharacterOf(upper));
    for (int upper = 0xC0; upper <= 0xDE; ++upper)
        if (upper != 0xD7) // the multiplication sign; below it, at 0xF7, is that of division
            pairs.emplace_back(CharacterOf(upper + 0x20), CharacterOf(upper));
    return pairs;
}

/// What every character becomes, by its code.
struct CaseTable {
    std::array<char, 256> upper;
    std::array<char, 256> lower;
};

CaseTable MakeCaseTable()
{
    CaseTable table;
    for (int code = 0; code < 256; ++code)
        table.upper[static_cast<std::size_t>(code)] = table.lower[static_cast<std::size_t>(code)] =
            CharacterOf(code);
    for (const auto& [lower, upper] : CasePairs()) {
        table.upper[static_cast<unsigned char>(lower)] = upper;
        table.lower[static_cast<unsigned char>(upper)] = lower;
    }
    return table;
}

TEST(Case, OfEveryCharacterMarksOnlyWhatChanges)
{
    const CaseTable table = MakeCaseTable();
    for (const Letter& letter : Letters(AllCharacters())) {
        const auto code = static_cast<unsigned char>(letter.value);
        Given<ZelDtChar> upper(letter);
        upper.it.ToUpper();
        Letter expected = letter;
        Store(expected, table.upper[code]);
        EXPECT_EQ(Look(upper.it), expected) << letter;

        Given<ZelDtChar> lower(letter);
        lower.it.ToLower();
        expected = letter;
        Store(expected, table.lower[code]);
        EXPECT_EQ(Look(lower.it), expected) << letter;
    }
}

TEST(Case, OfGermanLetters)
{
    const struct {
        char lower;
        char upper;
    } pairs[] = {{'\xE4', '\xC4'}, {'\xF6', '\xD6'}, {'\xFC', '\xDC'}};
    for (const auto& pair : pairs) {
        for (const char character : {pair.lower, pair.upper}) {
            ZelDtChar upper(character);
            upper.ToUpper();
            EXPECT_EQ(Look(upper),
                      (Letter{{ZelDtWmMissing, 1, character == pair.upper ? 0 : 1}, pair.upper}));
            ZelDtChar lower(character);
            lower.ToLower();
            EXPECT_EQ(Look(lower),
                      (Letter{{ZelDtWmMissing, 1, character == pair.lower ? 0 : 1}, pair.lower}));
        }
    }
    for (const char stays : {'\xDF', '\xB5', '\x83', '\xD7', '\xF7', '1', ' ', '\0'}) {
        ZelDtChar value(stays);
        value.ToUpper();
        value.ToLower();
        EXPECT_EQ(Look(value), (Letter{NewDefined(), stays}));
    }
}

// Comparison

TEST(Comparison, IsThatOfTheBytesUnlessOneIsMissing)
{
    const std::vector<Letter> letters = Letters({'\0', 'x', 'X', '\xFF'});
    for (const Letter& l : letters) {
        for (const Letter& r : letters) {
            const Given<ZelDtChar> left(l);
            const Given<ZelDtChar> right(r);
            if (IsMissing(l.state) || IsMissing(r.state)) {
                EXPECT_TRUE(FailsWith([&] { (void)(left.it == right.it); }, 2, kCharOrigin));
                EXPECT_TRUE(FailsWith([&] { (void)(left.it != right.it); }, 2, kCharOrigin));
            } else {
                EXPECT_EQ(left.it == right.it, l.value == r.value ? 1 : 0) << l << " and " << r;
                EXPECT_EQ(left.it != right.it, l.value != r.value ? 1 : 0) << l << " and " << r;
            }
            EXPECT_EQ(Look(left.it), l);
            EXPECT_EQ(Look(right.it), r);
        }
    }
}

TEST(Comparison, OfEveryPairOfBytes)
{
    for (const char l : AllCharacters()) {
        const ZelDtChar left(l);
        for (const char r : AllCharacters()) {
            ASSERT_EQ(left == ZelDtChar(r), l == r ? 1 : 0);
            ASSERT_EQ(left != ZelDtChar(r), l != r ? 1 : 0);
        }
    }
}

/// All four comparisons of a value with something plain.
template <typename Plain>
void ExpectComparison(const ZelDtChar& value, const State& state, const Plain& plain, bool equal)
{
    if (IsMissing(state)) {
        EXPECT_TRUE(FailsWith([&] { (void)(value == plain); }, 2, kCharOrigin)) << plain;
        EXPECT_TRUE(FailsWith([&] { (void)(value != plain); }, 2, kCharOrigin)) << plain;
        EXPECT_TRUE(FailsWith([&] { (void)(plain == value); }, 2, kCharOrigin)) << plain;
        EXPECT_TRUE(FailsWith([&] { (void)(plain != value); }, 2, kCharOrigin)) << plain;
        return;
    }
    EXPECT_EQ(value == plain, equal ? 1 : 0) << plain;
    EXPECT_EQ(value != plain, equal ? 0 : 1) << plain;
    EXPECT_EQ(plain == value, equal ? 1 : 0) << plain;
    EXPECT_EQ(plain != value, equal ? 0 : 1) << plain;
}

TEST(Comparison, WithPlainCharactersAndTextsIsChecked)
{
    for (const Letter& letter : Letters({'\0', 'x', '\xE4'})) {
        const Given<ZelDtChar> given(letter);
        for (const char character : {'\0', 'x', 'X', '\xE4'}) {
            ExpectComparison(given.it, letter.state, character, character == letter.value);
            const char text[] = {character, '\0'};
            ExpectComparison<const char*>(given.it, letter.state, text, character == letter.value);
        }
        EXPECT_EQ(Look(given.it), letter);
    }
}

TEST(Comparison, WithTheNullTextIsUnequal)
{
    const char* none = nullptr;
    for (const char character : {'\0', 'x'}) {
        for (const ZelDtChar& value : {ZelDtChar(character), ZelDtChar(ZelDtWmNull)}) {
            EXPECT_EQ(value == none, 0);
            EXPECT_EQ(none == value, 0);
            EXPECT_EQ(value != none, 1);
            EXPECT_EQ(none != value, 1);
        }
    }
}

// Changing

TEST(Clearing, ResetsTheByteAndThenTheDefinedness)
{
    for (const Letter& letter : Letters(kSomeCharacters)) {
        Given<ZelDtChar> given(letter);
        given.it.Clear();
        EXPECT_EQ(Look(given.it), Cleared(letter)) << letter;
        given.it.GetAndResetModified(0);
        given.it.Clear();
        EXPECT_EQ(given.it.IsModified(), 0) << letter;
    }
}

TEST(Clearing, KeepsTheFormat)
{
    const ZelFormat format(ZelFormat::ZelFoStandard);
    ZelDtChar value('x');
    value.SetFormat(&format);
    value.Clear();
    EXPECT_EQ(value.GetFormat(), &format);
}

TEST(Assignment, OfCharactersStoresAndDefines)
{
    for (const Letter& letter : Letters({'\0', 'x', '\xFF'})) {
        for (const char character : AllCharacters()) {
            Given<ZelDtChar> given(letter);
            EXPECT_EQ(&(given.it = character), &given.it);
            EXPECT_EQ(Look(given.it), Taken(letter, character)) << letter;
        }
    }
}

TEST(Assignment, OfValuesTakesByteAndDefinedness)
{
    const ZelFormat mine(ZelFormat::ZelFoStandard);
    const ZelFormat other(ZelFormat::ZelFoTechnisch);
    const std::vector<Letter> letters = Letters({'\0', 'x', '\xFF'});
    for (const Letter& to : letters) {
        for (const Letter& from : letters) {
            Given<ZelDtChar> target(to);
            Given<ZelDtChar> source(from);
            target.it.SetFormat(&mine);
            source.it.SetFormat(&other);
            EXPECT_EQ(&(target.it = source.it), &target.it);
            EXPECT_EQ(Look(target.it), AssignedValue(to, from)) << to << " = " << from;
            EXPECT_EQ(target.it.GetFormat(), &mine);
            EXPECT_EQ(Look(source.it), from);

            Given<ZelDtChar> assigned(to);
            ZelDtBasis& basis = assigned.it;
            basis.Assign(source.it);
            EXPECT_EQ(Look(assigned.it), AssignedValue(to, from)) << to << " = " << from;
        }
    }
}

TEST(Assignment, OfTextsTakesTheFirstByte)
{
    ZelDtChar value(ZelDtWmNull);
    value = "xy";
    EXPECT_EQ(Look(value), (Letter{{ZelDtWmNull, 1, 1}, 'x'}));
    value = "";
    EXPECT_EQ(Look(value), (Letter{{ZelDtWmNull, 1, 1}, '\0'}));
    const char* none = nullptr;
    EXPECT_TRUE(FailsWith([&] { value = none; }, 5, kCharOrigin));
    EXPECT_EQ(Look(value), (Letter{{ZelDtWmNull, 1, 1}, '\0'}));
}

TEST(Assignment, OfNumbersIsRefused)
{
    EXPECT_FALSE((std::is_assignable_v<ZelDtChar&, int>));
    EXPECT_TRUE((std::is_assignable_v<ZelDtChar&, char>));
}

TEST(Assignment, ToItselfChangesNothing)
{
    for (const Letter& letter : Letters({'\0', 'x'})) {
        Given<ZelDtChar> given(letter);
        const ZelDtChar& same = given.it;
        given.it = same;
        EXPECT_EQ(Look(given.it), letter);
        given.it.Assign(given.it);
        EXPECT_EQ(Look(given.it), letter);
    }
}

TEST(Assignment, OfAnotherClassIsAnErrorThatChangesNothing)
{
    const ZelDtString text("x");
    const ZelDtLong number(1);
    const ZelDtBool truth(TRUE);
    const ZelDtString undefined(ZelDtWmNull);
    const ZelDtBasis* const others[] = {&text, &number, &truth, &undefined};
    for (const Letter& letter : Letters({'\0', 'x'})) {
        for (const ZelDtBasis* other : others) {
            Given<ZelDtChar> given(letter);
            ZelDtBasis& basis = given.it;
            EXPECT_TRUE(FailsWith([&] { basis.Assign(*other); }, 10, kCharOrigin));
            EXPECT_EQ(Look(given.it), letter);
        }
    }
}

TEST(Mode, IsNeverThatOfTheSource)
{
    ZelDtChar target(ZelDtWmNull);
    target = ZelDtChar(ZelDtWmMissing);
    EXPECT_TRUE(target.IsNull());
    target = ZelDtChar('x');
    EXPECT_EQ(target.GetWorkingMode(), ZelDtWmNull);
    target = 'y';
    EXPECT_EQ(target.GetWorkingMode(), ZelDtWmNull);
}

} // namespace
