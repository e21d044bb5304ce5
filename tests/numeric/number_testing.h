#ifndef ZELDT_TESTS_NUMERIC_NUMBER_TESTING_H
#define ZELDT_TESTS_NUMERIC_NUMBER_TESTING_H

/// What the tests of the number classes share: the states a value can be in, how it counts in
/// arithmetic in each of them, and values brought into them.

#include "tests/support/zel_testing.h"

#include <array>
#include <vector>

namespace zeltest {

inline constexpr std::array<ZelDtWorkingMode, 3> kRealModes = {ZelDtWmMissing, ZelDtWmNull,
                                                               ZelDtWmAlwaysDefined};

/// Defined and undefined in the three modes, unmodified and modified.
inline std::vector<State> AllStates()
{
    std::vector<State> states;
    for (const ZelDtWorkingMode mode : kRealModes)
        for (const int defined : {0, 1})
            for (const int modified : {0, 1})
                states.push_back({mode, defined, modified});
    return states;
}

/// A new undefined value in `mode` (a real one).
inline State NewUndefined(ZelDtWorkingMode mode)
{
    return {mode, mode == ZelDtWmAlwaysDefined ? 1 : 0, 0};
}

/// A new defined value in the default mode.
inline State NewDefined()
{
    return {ZelDtGetDefaultWorkingMode(), 1, 0};
}

/// The defined flag becomes `defined`; a change marks the value modified.
inline void SetDefined(State& state, int defined)
{
    if (state.defined != defined)
        state = {state.mode, defined, 1};
}

/// What Clear leaves of the flags of a value whose number was 0.
inline void SetUndefined(State& state)
{
    if (state.mode != ZelDtWmAlwaysDefined)
        SetDefined(state, 0);
}

/// The four ways in which an operand counts: defined, missing, Null, and undefined although its
/// mode is AlwaysDefined.
enum class Kind { D, M, N, A };

inline Kind KindOf(const State& state)
{
    if (state.defined)
        return Kind::D;
    return state.mode == ZelDtWmMissing ? Kind::M : state.mode == ZelDtWmNull ? Kind::N : Kind::A;
}

inline bool IsMissing(const State& state)
{
    return KindOf(state) == Kind::M;
}

inline bool IsNull(const State& state)
{
    return KindOf(state) == Kind::N;
}

/// Whether an operation on two values computes.
inline bool Computes(const State& left, const State& right)
{
    static constexpr bool kComputes[4][4] = {
        // D     M      N      A
        {true, false, true, true},    // D
        {false, false, false, false}, // M
        {true, false, false, false},  // N
        {true, false, false, false},  // A
    };
    return kComputes[static_cast<int>(KindOf(left))][static_cast<int>(KindOf(right))];
}

/// Gives `target` the number of its archive form `bytes`, which no check keeps from an undefined
/// value, and then mode and modified flag. A value can be undefined in mode AlwaysDefined: when it
/// took over that mode as the default.
template <typename Value>
void BringByArchive(Value& target, const Bytes& bytes, const State& state)
{
    target.SetWorkingMode(ZelDtWmMissing);
    Loaded(bytes, [&](CArchive& ar) { target.Serialize(ar); });
    const DefaultMode guard(state.mode);
    target.SetWorkingMode(ZelDtWmDefault);
    target.SetModified(state.modified);
    ASSERT_EQ(StateOf(target), state);
}

/// Cause of the archive exception that reading the bytes as an object gives; -1 without one.
template <typename V>
int ArchiveCause(const Bytes& bytes)
{
    V* value = nullptr;
    int cause = -1;
    try {
        Loaded(bytes, [&](CArchive& ar) { ar >> value; });
        delete value;
        value = nullptr;
    } catch (CArchiveException* e) {
        cause = e->m_cause;
        e->Delete();
    }
    EXPECT_EQ(value, nullptr);
    return cause;
}

/// A value in any state; the test of the class says in a function Bring how that is reached.
/// (Returning the value itself would go through its copy constructor.)
template <typename Value>
struct Given {
    Value it;

    template <typename Seen>
    explicit Given(const Seen& wanted)
    {
        Bring(it, wanted);
    }
};

} // namespace zeltest

#endif
