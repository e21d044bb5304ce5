/// What all value classes share, seen through a value class that holds no value.

#include "foundation/DTBASIS.h"

#include "platform/formats/ZelFormat.h"
#include "tests/support/zel_testing.h"
#include "text/DTSTRING.h"

#include <cstdint>
#include <cstring>
#include <iterator>
#include <new>
#include <type_traits>

namespace {

using namespace zeltest;

/// The smallest value class: opens what the base keeps for its derived classes.
class Probe : public ZelDtBasis {
public:
    Probe(int defined, ZelDtWorkingMode mode) : ZelDtBasis(defined, mode) {}
    Probe(const Probe& other) : ZelDtBasis(other) {}
    Probe& operator=(const Probe& other)
    {
        ZelDtBasis::operator=(other);
        return *this;
    }

    void Assign(const ZelDtBasis& other) override { ZelDtBasis::operator=(other); }
    ZelDtBasis* NewObject() const override { return new Probe(*this); }
    CString ConvToOFL(const ZelFormat*) const override { return CString(); }
    void SetFromOFL(const char*, const ZelFormat*) override {}
    ZelDtString ConvToExtern(int&, unsigned short&) const override { return ZelDtString(""); }
    void SetFromExtern(const ZelDtString*, int, unsigned short) override {}

    using ZelDtBasis::CheckDefinedForArithmetic;
    using ZelDtBasis::Serialize;
    using ZelDtBasis::SetDefined;
};

constexpr ZelDtWorkingMode kRealModes[] = {ZelDtWmMissing, ZelDtWmNull, ZelDtWmAlwaysDefined};
constexpr ZelDtWorkingMode kAllModes[] = {ZelDtWmMissing, ZelDtWmNull, ZelDtWmAlwaysDefined,
                                          ZelDtWmDefault};

const Error kSerializeError{1, "DTBASIS", "ZelDtBasis", "Serialize(CArchive&)"};

/// Brings a probe to exactly this state, an undefined one in mode AlwaysDefined included.
void Bring(Probe& probe, const State& state)
{
    probe.SetWorkingMode(state.mode);
    probe.SetDefined(state.defined);
    probe.SetModified(state.modified);
    ASSERT_EQ(StateOf(probe), state);
}

/// Runs `action` on a probe in every combination of real mode, definedness and modification;
/// `action` gets the probe and the state that it is in.
template <typename Action>
void InEveryState(Action&& action)
{
    for (const ZelDtWorkingMode mode : kRealModes) {
        for (const int defined : {0, 1}) {
            for (const int modified : {0, 1}) {
                const State state{mode, defined, modified};
                SCOPED_TRACE(::testing::Message() << state);
                Probe probe(0, ZelDtWmMissing);
                Bring(probe, state);
                action(probe, state);
            }
        }
    }
}

TEST(Numbers, AreThoseThatCallersStore)
{
    EXPECT_EQ(static_cast<int>(ZelDtWmMissing), 0);
    EXPECT_EQ(static_cast<int>(ZelDtWmNull), 1);
    EXPECT_EQ(static_cast<int>(ZelDtWmAlwaysDefined), 2);
    EXPECT_EQ(static_cast<int>(ZelDtWmDefault), 3);
    EXPECT_EQ(static_cast<int>(ZelDtTypChar), 1);
    EXPECT_EQ(static_cast<int>(ZelDtTypString), 2);
    EXPECT_EQ(static_cast<int>(ZelDtTypLong), 3);
    EXPECT_EQ(static_cast<int>(ZelDtTypShort), 4);
    EXPECT_EQ(static_cast<int>(ZelDtTypDouble), 5);
    EXPECT_EQ(static_cast<int>(ZelDtTypDecimal), 6);
    EXPECT_EQ(static_cast<int>(ZelDtTypBool), 7);
    EXPECT_EQ(static_cast<int>(ZelDtTypDateTime), 8);
    EXPECT_EQ(static_cast<int>(ZelDtTypTime), 9);
    EXPECT_EQ(static_cast<int>(ZelDtTypDateZp), 12);
    EXPECT_EQ(static_cast<int>(ZelDtTypBasis), 13);
}

TEST(Representation, IsOnePointerBesideTheVirtualTable)
{
    EXPECT_EQ(sizeof(ZelDtBasis), 2 * sizeof(void*));
    EXPECT_TRUE(std::is_abstract_v<ZelDtBasis>);
    EXPECT_TRUE((std::is_base_of_v<CObject, ZelDtBasis>));
}

TEST(RuntimeClass, NamesTheClassAndCannotBeCreated)
{
    const CRuntimeClass* record = RUNTIME_CLASS(ZelDtBasis);
    EXPECT_STREQ(record->m_lpszClassName, "ZelDtBasis");
    EXPECT_EQ(record->m_nObjectSize, static_cast<int>(sizeof(ZelDtBasis)));
    EXPECT_EQ(record->m_wSchema, 0xFFFFu);
    EXPECT_EQ(record->m_pfnCreateObject, nullptr);
    EXPECT_EQ(record->m_pfnGetBaseClass(), RUNTIME_CLASS(CObject));
    EXPECT_EQ(CRuntimeClass::FromName("ZelDtBasis"), record);
    EXPECT_EQ(CRuntimeClass::CreateObject("ZelDtBasis"), nullptr);

    const Probe probe(1, ZelDtWmMissing);
    EXPECT_EQ(probe.GetRuntimeClass(), record);
    EXPECT_TRUE(probe.IsKindOf(RUNTIME_CLASS(CObject)));
    EXPECT_FALSE(probe.IsSerializable());
}

TEST(DefaultWorkingMode, IsMissingAtFirst)
{
    EXPECT_EQ(ZelDtGetDefaultWorkingMode(), ZelDtWmMissing);
}

TEST(DefaultWorkingMode, KeepsWhatWasSetAndTakesDefaultForMissing)
{
    const DefaultMode guard(ZelDtWmMissing);
    const struct {
        ZelDtWorkingMode set;
        ZelDtWorkingMode stored;
    } rows[] = {{ZelDtWmNull, ZelDtWmNull},
                {ZelDtWmAlwaysDefined, ZelDtWmAlwaysDefined},
                {ZelDtWmMissing, ZelDtWmMissing},
                {ZelDtWmNull, ZelDtWmNull},
                {ZelDtWmDefault, ZelDtWmMissing}};
    for (const auto& row : rows) {
        ZelDtSetDefaultWorkingMode(row.set);
        EXPECT_EQ(ZelDtGetDefaultWorkingMode(), row.stored);
        EXPECT_EQ(Probe(1, ZelDtWmDefault).GetWorkingMode(), row.stored);
    }
}

TEST(DefaultWorkingMode, DoesNotReachValuesThatExist)
{
    const DefaultMode guard(ZelDtWmNull);
    Probe probe(0, ZelDtWmDefault);
    ZelDtSetDefaultWorkingMode(ZelDtWmAlwaysDefined);
    EXPECT_EQ(StateOf(probe), (State{ZelDtWmNull, 0, 0}));
}

TEST(Construction, ResolvesTheDefaultModeAndDefinesWhatIsAlwaysDefined)
{
    for (const ZelDtWorkingMode standard : kRealModes) {
        const DefaultMode guard(standard);
        for (const ZelDtWorkingMode mode : kAllModes) {
            for (const int defined : {0, 1}) {
                const ZelDtWorkingMode real = mode == ZelDtWmDefault ? standard : mode;
                const Probe probe(defined, mode);
                EXPECT_EQ(StateOf(probe),
                          (State{real, real == ZelDtWmAlwaysDefined ? 1 : defined, 0}))
                    << "mode " << mode << ", default " << standard;
                EXPECT_EQ(probe.GetFormat(), nullptr);
            }
        }
    }
}

TEST(Construction, CopiesModeAndFlagsButNotTheFormat)
{
    const ZelFormat format(ZelFormat::ZelFoStandard);
    InEveryState([&](Probe& probe, const State& state) {
        probe.SetFormat(&format);
        const DefaultMode guard(ZelDtWmNull); // has no say in copies
        const Probe copy(probe);
        EXPECT_EQ(StateOf(copy), state);
        EXPECT_EQ(copy.GetFormat(), nullptr);
        EXPECT_EQ(StateOf(probe), state);
        EXPECT_EQ(probe.GetFormat(), &format);
    });
}

TEST(Construction, WorksOnTheHeap)
{
    ZelDtBasis* value = Probe(1, ZelDtWmNull).NewObject();
    EXPECT_EQ(StateOf(*value), (State{ZelDtWmNull, 1, 0}));
    delete value;
}

TEST(Definedness, TellsMissingFromNull)
{
    const struct {
        ZelDtWorkingMode mode;
        int defined, isDefined, isMissing, isNull;
    } rows[] = {
        {ZelDtWmMissing, 1, 1, 0, 0},       {ZelDtWmMissing, 0, 0, 1, 0},
        {ZelDtWmNull, 1, 1, 0, 0},          {ZelDtWmNull, 0, 0, 0, 1},
        {ZelDtWmAlwaysDefined, 1, 1, 0, 0}, {ZelDtWmAlwaysDefined, 0, 0, 0, 0},
    };
    for (const auto& row : rows) {
        Probe probe(1, row.mode);
        probe.SetDefined(row.defined);
        EXPECT_EQ(probe.IsDefined(), row.isDefined) << row.mode << ' ' << row.defined;
        EXPECT_EQ(probe.IsMissing(), row.isMissing) << row.mode << ' ' << row.defined;
        EXPECT_EQ(probe.IsNull(), row.isNull) << row.mode << ' ' << row.defined;
    }
}

TEST(Definedness, SettingItMarksModifiedOnlyWhenItDiffers)
{
    InEveryState([](Probe& probe, const State& state) {
        for (const int defined : {0, 1}) {
            Bring(probe, state);
            probe.SetDefined(defined);
            EXPECT_EQ(StateOf(probe),
                      (State{state.mode, defined, defined != state.defined ? 1 : state.modified}));
        }
    });
}

TEST(Definedness, NoOtherNumberThanOneIsDefined)
{
    Probe probe(0, ZelDtWmMissing);
    probe.SetDefined(2);
    EXPECT_EQ(probe.IsDefined(), 0);
    EXPECT_EQ(probe.IsModified(), 1);
}

TEST(Modification, IsStoredAsGiven)
{
    Probe probe(1, ZelDtWmMissing);
    EXPECT_EQ(probe.IsModified(), 0);
    for (const int flag : {1, 1, 0, 0, 7, -1, 0}) {
        probe.SetModified(flag);
        EXPECT_EQ(probe.IsModified(), flag);
        EXPECT_EQ(probe.IsDefined(), 1);
    }
}

TEST(Modification, IsReturnedAndReplaced)
{
    const struct {
        int before, newValue;
    } rows[] = {{0, 0}, {0, 1}, {1, 0}, {1, 1}};
    for (const auto& row : rows) {
        Probe probe(1, ZelDtWmNull);
        probe.SetModified(row.before);
        EXPECT_EQ(probe.GetAndResetModified(row.newValue), row.before);
        EXPECT_EQ(StateOf(probe), (State{ZelDtWmNull, 1, row.newValue}));
    }
}

TEST(SettingTheMode, StoresItAndDefinesWhatIsAlwaysDefined)
{
    InEveryState([](Probe& probe, const State& state) {
        for (const ZelDtWorkingMode standard : kRealModes) {
            const DefaultMode guard(standard);
            for (const ZelDtWorkingMode mode : kRealModes) {
                Bring(probe, state);
                probe.SetWorkingMode(mode);
                EXPECT_EQ(StateOf(probe),
                          (State{mode, mode == ZelDtWmAlwaysDefined ? 1 : state.defined,
                                 state.modified}));
            }
        }
    });
}

TEST(SettingTheMode, ToTheDefaultChangesNothingButTheMode)
{
    InEveryState([](Probe& probe, const State& state) {
        for (const ZelDtWorkingMode standard : kRealModes) {
            const DefaultMode guard(standard);
            Bring(probe, state);
            probe.SetWorkingMode(ZelDtWmDefault);
            EXPECT_EQ(StateOf(probe), (State{standard, state.defined, state.modified}));
        }
    });
}

TEST(Formats, AreKeptAsPointers)
{
    const ZelFormat first(ZelFormat::ZelFoStandard);
    const ZelFormat second(ZelFormat::ZelFoTechnisch);
    Probe probe(1, ZelDtWmMissing);
    EXPECT_EQ(probe.GetFormat(), nullptr);
    probe.SetFormat(&first);
    EXPECT_EQ(probe.GetFormat(), &first);
    probe.SetFormat(&second);
    EXPECT_EQ(probe.GetFormat(), &second);
    probe.SetFormat(nullptr);
    EXPECT_EQ(probe.GetFormat(), nullptr);
    EXPECT_EQ(StateOf(probe), (State{ZelDtWmMissing, 1, 0}));
}

TEST(Clearing, UndefinesAndMarksUnlessAlwaysDefinedOrUndefined)
{
    InEveryState([](Probe& probe, const State& state) {
        State expected = state;
        if (state.defined && state.mode != ZelDtWmAlwaysDefined)
            expected = {state.mode, 0, 1};
        probe.Clear();
        EXPECT_EQ(StateOf(probe), expected);
        probe.Clear();
        EXPECT_EQ(StateOf(probe), expected);
    });
}

TEST(Clearing, KeepsTheFormat)
{
    const ZelFormat format(ZelFormat::ZelFoStandard);
    Probe probe(1, ZelDtWmMissing);
    probe.SetFormat(&format);
    probe.Clear();
    EXPECT_EQ(probe.GetFormat(), &format);
}

TEST(Assignment, CopiesOnlyTheDefinednessAndNothingIfAlwaysDefined)
{
    InEveryState([](Probe& source, const State& from) {
        InEveryState([&](Probe& target, const State& to) {
            State expected = to;
            if (to.mode != ZelDtWmAlwaysDefined && to.defined != from.defined)
                expected = {to.mode, from.defined, 1};
            ZelDtBasis& asBasis = target;
            EXPECT_EQ(&(asBasis = source), &asBasis);
            EXPECT_EQ(StateOf(target), expected);
            EXPECT_EQ(StateOf(source), from);
        });
    });
}

TEST(Assignment, LeavesTheFormats)
{
    const ZelFormat mine(ZelFormat::ZelFoStandard);
    const ZelFormat other(ZelFormat::ZelFoTechnisch);
    Probe target(0, ZelDtWmMissing);
    Probe source(1, ZelDtWmNull);
    target.SetFormat(&mine);
    source.SetFormat(&other);
    target = source;
    EXPECT_EQ(target.GetFormat(), &mine);
    source.SetFormat(nullptr);
    target = source;
    EXPECT_EQ(target.GetFormat(), &mine);
}

TEST(Assignment, ToItselfChangesNothing)
{
    InEveryState([](Probe& probe, const State& state) {
        ZelDtBasis& value = probe;
        const ZelDtBasis& same = probe;
        EXPECT_EQ(&(value = same), &value);
        EXPECT_EQ(StateOf(probe), state);
    });
}

/// Operands in the order of the table: defined, then undefined in the three modes.
constexpr State kOperands[] = {{ZelDtWmMissing, 1, 0},
                               {ZelDtWmMissing, 0, 0},
                               {ZelDtWmNull, 0, 0},
                               {ZelDtWmAlwaysDefined, 0, 0}};
constexpr int kComputes[4][4] = {
    // right: D  M  N  A
    {1, 0, 1, 1}, // D
    {0, 0, 0, 0}, // M
    {1, 0, 0, 0}, // N
    {1, 0, 0, 0}, // A
};

TEST(CheckForArithmetic, FollowsItsTable)
{
    const Probe asked(1, ZelDtWmMissing);
    for (std::size_t i = 0; i < std::size(kOperands); ++i) {
        for (std::size_t j = 0; j < std::size(kOperands); ++j) {
            Probe a(0, ZelDtWmMissing);
            Probe b(0, ZelDtWmMissing);
            Bring(a, kOperands[i]);
            Bring(b, kOperands[j]);
            EXPECT_EQ(asked.CheckDefinedForArithmetic(a, b), kComputes[i][j])
                << kOperands[i] << " with " << kOperands[j];
            EXPECT_EQ(StateOf(a), kOperands[i]);
            EXPECT_EQ(StateOf(b), kOperands[j]);
        }
    }
}

TEST(CheckForArithmetic, DependsNeitherOnTheModeOfDefinedOperandsNorOnTheAskedObject)
{
    for (const ZelDtWorkingMode mode : kRealModes) {
        for (std::size_t j = 0; j < std::size(kOperands); ++j) {
            Probe defined(0, ZelDtWmMissing);
            Probe other(0, ZelDtWmMissing);
            Bring(defined, {mode, 1, 1});
            Bring(other, kOperands[j]);
            const Probe asked(0, mode);
            EXPECT_EQ(asked.CheckDefinedForArithmetic(defined, other), kComputes[0][j]);
            EXPECT_EQ(asked.CheckDefinedForArithmetic(other, defined), kComputes[j][0]);
        }
    }
}

TEST(CheckForArithmetic, TakesOneObjectAsBothOperands)
{
    for (std::size_t i = 0; i < std::size(kOperands); ++i) {
        Probe a(0, ZelDtWmMissing);
        Bring(a, kOperands[i]);
        EXPECT_EQ(a.CheckDefinedForArithmetic(a, a), kComputes[i][i]) << kOperands[i];
    }
}

TEST(Archive, HoldsTheDefinedFlagAsOneWord)
{
    const ZelFormat format(ZelFormat::ZelFoStandard);
    InEveryState([&](Probe& probe, const State& state) {
        probe.SetFormat(&format);
        EXPECT_EQ(Stored([&](CArchive& ar) { probe.Serialize(ar); }),
                  (Bytes{state.defined, 0, 0, 0}));
        EXPECT_EQ(StateOf(probe), state);
    });
}

TEST(Archive, LoadingMarksModifiedOnlyWhenTheFlagDiffers)
{
    const ZelFormat format(ZelFormat::ZelFoStandard);
    InEveryState([&](Probe& probe, const State& state) {
        probe.SetFormat(&format);
        for (const int flag : {0, 1}) {
            Bring(probe, state);
            const std::size_t rest = Loaded(Bytes{flag, 0, 0, 0, 0xAB, 0xCD},
                                            [&](CArchive& ar) { probe.Serialize(ar); });
            EXPECT_EQ(rest, 2u);
            EXPECT_EQ(StateOf(probe),
                      (State{state.mode, flag, flag != state.defined ? 1 : state.modified}));
            EXPECT_EQ(probe.GetFormat(), &format);
        }
    });
}

TEST(Archive, WithTooFewBytesIsAnErrorThatChangesNothing)
{
    const Bytes whole{1, 0, 0, 0};
    for (std::size_t count = 0; count < whole.size(); ++count) {
        Probe probe(0, ZelDtWmNull);
        EXPECT_TRUE(FailsBecauseOf(
            [&] { Loaded(whole.Cut(count), [&](CArchive& ar) { probe.Serialize(ar); }); },
            kSerializeError, "CArchiveException"))
            << count << " bytes";
        EXPECT_EQ(StateOf(probe), (State{ZelDtWmNull, 0, 0}));
    }
}

TEST(Archive, ThatCannotBeWrittenIsAnError)
{
    // 126 bytes leave no room for a word in the archive's smallest buffer, and the file none.
    BYTE block[16];
    CMemFile file(block, sizeof block);
    CArchive ar(&file, CArchive::store | CArchive::bNoFlushOnDelete, 128);
    const char filling[126] = {};
    ar.Write(filling, sizeof filling);
    Probe probe(1, ZelDtWmMissing);
    EXPECT_TRUE(FailsBecauseOf([&] { probe.Serialize(ar); }, kSerializeError, "CMemoryException"));
    EXPECT_EQ(StateOf(probe), (State{ZelDtWmMissing, 1, 0}));
    ar.Abort();
}

TEST(Archive, FailureCarriesTheFrameworkException)
{
    Probe probe(0, ZelDtWmMissing);
    const Caught caught =
        Catch([&] { Loaded(Bytes(), [&](CArchive& ar) { probe.Serialize(ar); }); });
    EXPECT_TRUE(Matches(caught, kSerializeError, kSerializeError));
    EXPECT_TRUE(caught.hasCause);
    EXPECT_EQ(caught.depth, 0u);
}

TEST(ReservedQuery, IsZeroInEveryState)
{
    InEveryState([](Probe& probe, const State& state) {
        const ZelDtBasis& value = probe;
        EXPECT_EQ(value.ReservedQuery(), 0);
        EXPECT_EQ(StateOf(probe), state);
    });
}

TEST(TypeCode, OfTheBaseIsItsOwn)
{
    EXPECT_EQ(Probe(1, ZelDtWmMissing).GetDtTyp(), ZelDtTypBasis);
}

TEST(Diagnostics, AreEmpty)
{
    Probe probe(1, ZelDtWmNull);
    CMemFile file;
    CDumpContext dump(&file);
    probe.Dump(dump);
    dump.Flush();
    EXPECT_EQ(Contents(file), Bytes());
    probe.AssertValid();
    EXPECT_EQ(StateOf(probe), (State{ZelDtWmNull, 1, 0}));
}

/// Number of the slot in the virtual table that a pointer to a virtual member names. On x86-64
/// both compilers store the slot's offset plus 1 in its first word.
template <typename Member>
std::size_t SlotOf(Member member)
{
    static_assert(std::is_member_function_pointer_v<Member>);
    std::uintptr_t word = 0;
    std::memcpy(&word, &member, sizeof word);
    return (word - 1) / sizeof(void*);
}

TEST(VirtualOperations, StandInTheirOrder)
{
    const std::size_t slots[] = {SlotOf(&Probe::Clear),         SlotOf(&Probe::SetModified),
                                 SlotOf(&Probe::GetDtTyp),      SlotOf(&Probe::Assign),
                                 SlotOf(&Probe::NewObject),     SlotOf(&Probe::ConvToOFL),
                                 SlotOf(&Probe::SetFromOFL),    SlotOf(&Probe::ConvToExtern),
                                 SlotOf(&Probe::SetFromExtern), SlotOf(&Probe::ReservedQuery)};
    for (std::size_t i = 1; i < std::size(slots); ++i)
        EXPECT_EQ(slots[i], slots[0] + i) << "operation " << i;

    // In front of them those of the root class.
    EXPECT_LT(SlotOf(&Probe::GetRuntimeClass), SlotOf(&Probe::Serialize));
    EXPECT_EQ(SlotOf(&Probe::AssertValid), SlotOf(&Probe::Serialize) + 1);
    EXPECT_EQ(SlotOf(&Probe::Dump), SlotOf(&Probe::Serialize) + 2);
    EXPECT_EQ(slots[0], SlotOf(&Probe::Dump) + 1);
}

} // namespace
