/// Construction, state, reading, comparison and assignment of ZelDtBool.

#include "tests/text/character_testing.h"

#include "numeric/DTLONG.h"
#include "platform/formats/ZelFormat.h"

#include <climits>
#include <memory>
#include <type_traits>

namespace {

using namespace zeltest;

const std::vector<int> kSomeNumbers = {0, 1, 2, 5, -1, 0x12345678, INT_MAX, INT_MIN};

/// What a text that is no boolean is told.
const Error kTextError{5, "IMP/DTBOOLI", "ZelDtBool_Imp", "ZelDtBool_Imp(BOOL)"};

/// A word in every mixture of upper and lower case.
std::vector<std::string> InEveryCase(const std::string& lower)
{
    std::vector<std::string> words;
    for (unsigned int mixture = 0; mixture < 1U << lower.size(); ++mixture) {
        std::string word = lower;
        for (std::size_t i = 0; i < word.size(); ++i)
            if ((mixture >> i & 1U) != 0)
                word[i] = static_cast<char>(word[i] - 'a' + 'A');
        words.push_back(word);
    }
    return words;
}

struct Spelling {
    std::string text;
    int number;
};

std::vector<Spelling> AcceptedTexts()
{
    std::vector<Spelling> spellings = {{"1", 1}, {"0", 0}};
    for (const std::string& word : InEveryCase("ja"))
        spellings.push_back({word, 1});
    for (const std::string& word : InEveryCase("nein"))
        spellings.push_back({word, 0});
    return spellings;
}

const char* const kRejectedTexts[] = {
    "",       " ",       "true",  "false", "TRUE",  "yes",   "no",     "J",    "j",    "N",
    "Ja ",    " Ja",     "Ja\t",  "Ja\n",  "Nein ", " Nein", "Nein\n", "Jaa",  "Nei",  "Neinn",
    "J a",    "J\xE4",   "J\xC4", "\xC4",  "2",     "-1",    "+1",     "10",   "01",   "00",
    " 1",     "1 ",      " 0",    "0 ",    "1.0",   "\"1\"", "\"Ja\"", "NULL", "JaJa", "Janein",
    "Ja\xA0", "Ne\xEFn", "5",     "O",     "l",     "\x01",  "0x1",    "WAHR",
};

TEST(Representation, IsTwoPointersBesideTheVirtualTable)
{
    EXPECT_EQ(sizeof(ZelDtBool), 3 * sizeof(void*));
    EXPECT_TRUE((std::is_base_of_v<ZelDtBasis, ZelDtBool>));
}

TEST(RuntimeClass, CreatesByName)
{
    const CRuntimeClass* record = RUNTIME_CLASS(ZelDtBool);
    EXPECT_STREQ(record->m_lpszClassName, "ZelDtBool");
    EXPECT_EQ(record->m_nObjectSize, static_cast<int>(sizeof(ZelDtBool)));
    EXPECT_EQ(record->m_wSchema, 1U);
    EXPECT_EQ(record->m_pfnGetBaseClass(), RUNTIME_CLASS(ZelDtBasis));
    EXPECT_EQ(CRuntimeClass::FromName("ZelDtBool"), record);
    for (const ZelDtWorkingMode mode : kRealModes) {
        const DefaultMode guard(mode);
        const std::unique_ptr<CObject> object(CRuntimeClass::CreateObject("ZelDtBool"));
        ASSERT_NE(object, nullptr);
        EXPECT_EQ(object->GetRuntimeClass(), record);
        EXPECT_TRUE(object->IsSerializable());
        EXPECT_EQ(Look(static_cast<const ZelDtBool&>(*object)), (Truth{NewUndefined(mode), 0}));
    }
}

TEST(TypeCode, IsSeven)
{
    const ZelDtBool value(TRUE);
    const ZelDtBasis& basis = value;
    EXPECT_EQ(basis.GetDtTyp(), ZelDtTypBool);
    EXPECT_EQ(static_cast<int>(basis.GetDtTyp()), 7);
    EXPECT_EQ(basis.ReservedQuery(), 0);
}

TEST(Construction, FromAModeHoldsNothing)
{
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const ZelDtWorkingMode mode : kRealModes) {
            const ZelDtBool value(mode);
            EXPECT_EQ(Look(value), (Truth{NewUndefined(mode), 0}));
            EXPECT_EQ(value.GetFormat(), nullptr);
        }
        EXPECT_EQ(Look(ZelDtBool(ZelDtWmDefault)), (Truth{NewUndefined(standard), 0}));
        EXPECT_EQ(Look(ZelDtBool()), (Truth{NewUndefined(standard), 0}));
    }
}

TEST(Construction, FromNumbersKeepsThemAsTheyAre)
{
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const int number : kSomeNumbers)
            EXPECT_EQ(Look(ZelDtBool(number)), (Truth{NewDefined(), number}));
        EXPECT_EQ(Look(ZelDtBool(0)), (Truth{NewDefined(), 0})) << "no null text";
        EXPECT_EQ(Look(ZelDtBool(TRUE)), (Truth{NewDefined(), 1}));
        EXPECT_EQ(Look(ZelDtBool(FALSE)), (Truth{NewDefined(), 0}));
        EXPECT_EQ(Look(ZelDtBool(true)), (Truth{NewDefined(), 1}));
        EXPECT_EQ(Look(ZelDtBool(false)), (Truth{NewDefined(), 0}));
    }
}

TEST(Construction, FromTextsIsDefinedInTheDefaultMode)
{
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const Spelling& spelling : AcceptedTexts())
            EXPECT_EQ(Look(ZelDtBool(spelling.text.c_str())),
                      (Truth{NewDefined(), spelling.number}))
                << spelling.text;
    }
}

TEST(Construction, RejectsOtherTexts)
{
    for (const char* text : kRejectedTexts) {
        EXPECT_TRUE(FailsWith([&] { const ZelDtBool value(text); }, kTextError)) << Escaped(text);
        const ZelDtString string(text);
        EXPECT_TRUE(FailsWith([&] { const ZelDtBool value(string); }, kTextError)) << Escaped(text);
    }
}

TEST(Construction, RejectsTheNullText)
{
    const char* none = nullptr;
    EXPECT_TRUE(FailsWith([&] { const ZelDtBool value(none); }, 5, kBoolOrigin));
}

TEST(Construction, FromStringsCopiesTheState)
{
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const State& state : AllStates()) {
            for (const Spelling& spelling : AcceptedTexts()) {
                ZelDtString source;
                BringString(source, state.defined ? spelling.text : "", state);
                const ZelDtBool value(source);
                EXPECT_EQ(Look(value), (Truth{state, state.defined ? spelling.number : 0}))
                    << spelling.text;
            }
        }
    }
}

TEST(Construction, FromAnUndefinedStringReadsNoText)
{
    for (const ZelDtWorkingMode mode : {ZelDtWmMissing, ZelDtWmNull}) {
        for (const char* leftover : {"Ja", "1", "neither"}) {
            const StringPtr source = Make({mode, leftover});
            Undefine(*source);
            ASSERT_STREQ(*source, leftover);
            EXPECT_EQ(Look(ZelDtBool(*source)), (Truth{{mode, 0, 0}, 0}));
        }
    }
}

TEST(Construction, FromAnEmptyAlwaysDefinedStringIsRejected)
{
    const ZelDtString empty(ZelDtWmAlwaysDefined);
    EXPECT_TRUE(FailsWith([&] { const ZelDtBool value(empty); }, kTextError));
}

TEST(Construction, CopiesStateAndNumberDefinedOrNot)
{
    const ZelFormat format(ZelFormat::ZelFoStandard);
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const Truth& truth : Truths(kSomeNumbers)) {
            Given<ZelDtBool> source(truth);
            source.it.SetFormat(&format);
            const ZelDtBool copy(source.it);
            EXPECT_EQ(Look(copy), truth);
            EXPECT_EQ(copy.GetFormat(), nullptr);

            const std::unique_ptr<ZelDtBasis> fresh(source.it.NewObject());
            ASSERT_EQ(fresh->GetRuntimeClass(), RUNTIME_CLASS(ZelDtBool));
            EXPECT_EQ(Look(static_cast<const ZelDtBool&>(*fresh)), truth);
            EXPECT_EQ(fresh->GetFormat(), nullptr);

            EXPECT_EQ(Look(source.it), truth);
            EXPECT_EQ(source.it.GetFormat(), &format);
        }
    }
}

TEST(Construction, OfACopyIsIndependent)
{
    ZelDtBool a(5);
    ZelDtBool b(a);
    b = 6;
    EXPECT_EQ(a.GetValue(), 5);
    a = 7;
    EXPECT_EQ(b.GetValue(), 6);
}

TEST(Construction, OfArraysWorksAcrossTheLibrary)
{
    auto* values = new ZelDtBool[3];
    values[0] = TRUE;
    EXPECT_EQ(values[0].IsTrue(), 1);
    EXPECT_TRUE(values[1].IsMissing());
    EXPECT_TRUE(values[2].IsMissing());
    delete[] values;
}

TEST(Reading, GivesTheStoredNumberUnlessMissing)
{
    for (const Truth& truth : Truths(kSomeNumbers)) {
        const Given<ZelDtBool> given(truth);
        const ZelDtBool& value = given.it;
        EXPECT_EQ(static_cast<int>(value), truth.value);
        if (IsMissing(truth.state)) {
            EXPECT_TRUE(FailsWith(
                [&] { value.IsTrue(); },
                Error{2, "DTBOOL", "ZelDtBool", "BOOL  ZelDtBool :: IsTrue ( VOID ) const"}));
            EXPECT_TRUE(FailsWith(
                [&] { value.IsFalse(); },
                Error{2, "DTBOOL", "ZelDtBool", "BOOL  ZelDtBool :: IsFalse ( VOID ) const"}));
            EXPECT_TRUE(FailsWith(
                [&] { value.GetValue(); },
                Error{2, "DTBOOL", "ZelDtBool", "BOOL  ZelDtBool :: GetValue ( VOID ) const"}));
        } else {
            EXPECT_EQ(value.IsTrue(), truth.value) << truth;
            EXPECT_EQ(value.GetValue(), truth.value) << truth;
            EXPECT_EQ(value.IsFalse(), !IsNull(truth.state) && truth.value == 0 ? 1 : 0) << truth;
        }
        EXPECT_EQ(Look(value), truth);
    }
}

TEST(Reading, OfANullValueIsNeitherTrueNorFalse)
{
    const ZelDtBool null(ZelDtWmNull);
    EXPECT_EQ(null.IsTrue(), 0);
    EXPECT_EQ(null.IsFalse(), 0);
    EXPECT_EQ(null.GetValue(), 0);
}

TEST(Comparison, IsThatOfTheStoredNumbersUnlessOneIsMissing)
{
    const std::vector<Truth> truths = Truths({0, 1, 2});
    for (const Truth& l : truths) {
        for (const Truth& r : truths) {
            const Given<ZelDtBool> left(l);
            const Given<ZelDtBool> right(r);
            if (IsMissing(l.state) || IsMissing(r.state)) {
                EXPECT_TRUE(FailsWith([&] { (void)(left.it == right.it); }, 2, kBoolOrigin));
                EXPECT_TRUE(FailsWith([&] { (void)(left.it != right.it); }, 2, kBoolOrigin));
            } else {
                EXPECT_EQ(left.it == right.it, l.value == r.value ? 1 : 0) << l << " and " << r;
                EXPECT_EQ(left.it != right.it, l.value != r.value ? 1 : 0) << l << " and " << r;
            }
            EXPECT_EQ(Look(left.it), l);
            EXPECT_EQ(Look(right.it), r);
        }
    }
}

TEST(Comparison, TellsTrueNumbersApart)
{
    const ZelDtBool two(2);
    const ZelDtBool one(TRUE);
    EXPECT_EQ(two == one, FALSE);
    EXPECT_EQ(two != one, TRUE);
    EXPECT_EQ(two.IsTrue(), 2);
    EXPECT_EQ(one.IsTrue(), 1);
}

TEST(Comparison, WithPlainNumbersIsChecked)
{
    for (const Truth& truth : Truths({0, 1, 5})) {
        const Given<ZelDtBool> given(truth);
        const ZelDtBool& value = given.it;
        for (const int number : {0, 1, 5, -1}) {
            if (IsMissing(truth.state)) {
                EXPECT_TRUE(FailsWith([&] { (void)(value == number); }, 2, kBoolOrigin));
                EXPECT_TRUE(FailsWith([&] { (void)(value != number); }, 2, kBoolOrigin));
                EXPECT_TRUE(FailsWith([&] { (void)(number == value); }, 2, kBoolOrigin));
                EXPECT_TRUE(FailsWith([&] { (void)(number != value); }, 2, kBoolOrigin));
            } else {
                EXPECT_EQ(value == number, truth.value == number ? 1 : 0) << truth;
                EXPECT_EQ(value != number, truth.value != number ? 1 : 0) << truth;
                EXPECT_EQ(number == value, truth.value == number ? 1 : 0) << truth;
                EXPECT_EQ(number != value, truth.value != number ? 1 : 0) << truth;
            }
        }
        for (const bool flag : {false, true}) {
            if (IsMissing(truth.state)) {
                EXPECT_TRUE(FailsWith([&] { (void)(value == flag); }, 2, kBoolOrigin));
                EXPECT_TRUE(FailsWith([&] { (void)(flag != value); }, 2, kBoolOrigin));
            } else {
                EXPECT_EQ(value == flag, truth.value == static_cast<int>(flag) ? 1 : 0) << truth;
                EXPECT_EQ(flag != value, truth.value != static_cast<int>(flag) ? 1 : 0) << truth;
            }
        }
        EXPECT_EQ(Look(value), truth);
    }
}

TEST(Comparison, WithWordsReadsThem)
{
    for (const Truth& truth : Truths({0, 1, 5})) {
        const Given<ZelDtBool> given(truth);
        const ZelDtBool& value = given.it;
        const char* none = nullptr;
        for (const Spelling& spelling : AcceptedTexts()) {
            const char* text = spelling.text.c_str();
            const int equal = truth.value == spelling.number ? 1 : 0;
            if (IsMissing(truth.state)) {
                EXPECT_TRUE(FailsWith([&] { (void)(value == text); }, 2, kBoolOrigin));
                EXPECT_TRUE(FailsWith([&] { (void)(text != value); }, 2, kBoolOrigin));
                continue;
            }
            EXPECT_EQ(value == text, equal) << truth << " and " << text;
            EXPECT_EQ(text == value, equal) << truth << " and " << text;
            EXPECT_EQ(value != text, 1 - equal) << truth << " and " << text;
            EXPECT_EQ(text != value, 1 - equal) << truth << " and " << text;
        }
        if (!IsMissing(truth.state)) {
            EXPECT_EQ(value == none, 0) << truth;
            EXPECT_EQ(none == value, 0) << truth;
            EXPECT_EQ(value != none, 1) << truth;
            EXPECT_EQ(none != value, 1) << truth;
        }
        EXPECT_EQ(Look(value), truth);
    }
    EXPECT_TRUE(FailsWith([] { (void)(ZelDtBool(1) == "perhaps"); }, kTextError));
}

template <typename Left, typename Right>
constexpr bool kIsOrdered = requires(const Left& l, const Right& r)
{
    l < r;
}
|| requires(const Left& l, const Right& r)
{
    l > r;
}
|| requires(const Left& l, const Right& r)
{
    l <= r;
}
|| requires(const Left& l, const Right& r)
{
    l >= r;
};

TEST(Comparison, KnowsNoOrder)
{
    EXPECT_FALSE((kIsOrdered<ZelDtBool, ZelDtBool>));
    EXPECT_FALSE((kIsOrdered<ZelDtBool, int>));
    EXPECT_FALSE((kIsOrdered<int, ZelDtBool>));
}

TEST(Clearing, ResetsTheNumberAndThenTheDefinedness)
{
    for (const Truth& truth : Truths({0, 1, 5, -1})) {
        Given<ZelDtBool> given(truth);
        given.it.Clear();
        EXPECT_EQ(Look(given.it), Cleared(truth)) << truth;
        given.it.GetAndResetModified(0);
        given.it.Clear();
        EXPECT_EQ(given.it.IsModified(), 0) << truth;
    }
}

TEST(Clearing, KeepsTheFormat)
{
    const ZelFormat format(ZelFormat::ZelFoStandard);
    ZelDtBool value(TRUE);
    value.SetFormat(&format);
    value.Clear();
    EXPECT_EQ(value.GetFormat(), &format);
}

TEST(Assignment, OfNumbersStoresAndDefines)
{
    for (const Truth& truth : Truths({0, 1, 5})) {
        for (const int number : kSomeNumbers) {
            Given<ZelDtBool> given(truth);
            EXPECT_EQ(&(given.it = number), &given.it);
            EXPECT_EQ(Look(given.it), Taken(truth, number)) << truth << " = " << number;
        }
    }
}

TEST(Assignment, OfValuesTakesNumberAndDefinedness)
{
    const ZelFormat mine(ZelFormat::ZelFoStandard);
    const ZelFormat other(ZelFormat::ZelFoTechnisch);
    const std::vector<Truth> truths = Truths({0, 1, 5});
    for (const Truth& to : truths) {
        for (const Truth& from : truths) {
            Given<ZelDtBool> target(to);
            Given<ZelDtBool> source(from);
            target.it.SetFormat(&mine);
            source.it.SetFormat(&other);
            EXPECT_EQ(&(target.it = source.it), &target.it);
            EXPECT_EQ(Look(target.it), AssignedValue(to, from)) << to << " = " << from;
            EXPECT_EQ(target.it.GetFormat(), &mine);
            EXPECT_EQ(Look(source.it), from);

            Given<ZelDtBool> assigned(to);
            ZelDtBasis& basis = assigned.it;
            basis.Assign(source.it);
            EXPECT_EQ(Look(assigned.it), AssignedValue(to, from)) << to << " = " << from;
        }
    }
}

TEST(Assignment, OfTextsReadsThem)
{
    ZelDtBool value(ZelDtWmNull);
    value = "Ja";
    EXPECT_EQ(Look(value), (Truth{{ZelDtWmNull, 1, 1}, 1}));
    value = "nein";
    EXPECT_EQ(Look(value), (Truth{{ZelDtWmNull, 1, 1}, 0}));
    value.SetModified(0);
    EXPECT_TRUE(FailsWith([&] { value = "perhaps"; }, kTextError));
    EXPECT_EQ(Look(value), (Truth{{ZelDtWmNull, 1, 0}, 0}));
}

TEST(Assignment, ToItselfChangesNothing)
{
    for (const Truth& truth : Truths({0, 1, 5})) {
        Given<ZelDtBool> given(truth);
        const ZelDtBool& same = given.it;
        given.it = same;
        EXPECT_EQ(Look(given.it), truth);
        given.it.Assign(given.it);
        EXPECT_EQ(Look(given.it), truth);
    }
}

TEST(Assignment, OfAnotherClassIsAnErrorThatChangesNothing)
{
    const ZelDtString text("Ja");
    const ZelDtLong number(1);
    const ZelDtChar character('1');
    const ZelDtLong undefined(ZelDtWmNull);
    const ZelDtBasis* const others[] = {&text, &number, &character, &undefined};
    for (const Truth& truth : Truths({0, 5})) {
        for (const ZelDtBasis* other : others) {
            Given<ZelDtBool> given(truth);
            ZelDtBasis& basis = given.it;
            EXPECT_TRUE(FailsWith([&] { basis.Assign(*other); }, 10, kBoolOrigin));
            EXPECT_EQ(Look(given.it), truth);
        }
    }
}

TEST(Mode, IsNeverThatOfTheSource)
{
    ZelDtBool target(ZelDtWmNull);
    target = ZelDtBool(ZelDtWmMissing);
    EXPECT_TRUE(target.IsNull());
    target = ZelDtBool(TRUE);
    EXPECT_EQ(target.GetWorkingMode(), ZelDtWmNull);
    target = FALSE;
    EXPECT_EQ(target.GetWorkingMode(), ZelDtWmNull);
}

} // namespace
