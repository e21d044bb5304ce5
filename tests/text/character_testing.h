#ifndef ZELDT_TESTS_TEXT_CHARACTER_TESTING_H
#define ZELDT_TESTS_TEXT_CHARACTER_TESTING_H

/// Booleans and characters in every state, for the tests of ZelDtBool and ZelDtChar: all that can
/// be seen of one as a comparable thing, the rules that their operations share, and their archive
/// forms.
///
///     for (const Truth& truth : Truths({0, 5})) {
///         Given<ZelDtBool> given(truth);
///         given.it.Clear();
///         EXPECT_EQ(Look(given.it), Cleared(truth));
///     }

#include "tests/numeric/number_testing.h"
#include "tests/text/string_testing.h"
#include "text/DTBOOL.h"
#include "text/DTCHAR.h"

#include <ostream>
#include <string>
#include <vector>

namespace zeltest {

/// All that can be seen of a value that holds one plain thing.
template <typename Plain>
struct Held {
    State state;
    Plain value = Plain();

    friend bool operator==(const Held&, const Held&) = default;
    friend std::ostream& operator<<(std::ostream& os, const Held& h)
    {
        return os << static_cast<int>(h.value) << " (" << h.state << ')';
    }
};

using Truth = Held<int>;
using Letter = Held<char>;

inline Truth Look(const ZelDtBool& value)
{
    return {StateOf(value), static_cast<int>(value)};
}

inline Letter Look(const ZelDtChar& value)
{
    return {StateOf(value), static_cast<char>(value)};
}

/// A 32-bit number in little-endian order.
inline Bytes Word32(unsigned int number)
{
    Bytes bytes;
    for (int i = 0; i < 4; ++i)
        bytes.data.push_back(static_cast<char>((number >> (8 * i)) & 0xFFU));
    return bytes;
}

/// The archive forms: the defined word, then the number as a word or the byte.
inline Bytes ArchiveForm(int defined, int number)
{
    return Word32(static_cast<unsigned int>(defined)) + Word32(static_cast<unsigned int>(number));
}

inline Bytes ArchiveForm(int defined, char character)
{
    return Word32(static_cast<unsigned int>(defined)) + Bytes(std::string(1, character));
}

/// Brings `target` to exactly what `held` says.
template <typename Value, typename Plain>
void Bring(Value& target, const Held<Plain>& held)
{
    BringByArchive(target, ArchiveForm(held.state.defined, held.value), held.state);
    ASSERT_EQ(Look(target), held);
}

/// Brings a string to this text and state; an undefined one has no text.
inline void BringString(ZelDtString& target, const std::string& text, const State& state)
{
    const Bytes length{static_cast<int>(text.size())};
    BringByArchive(target, Word32(static_cast<unsigned int>(state.defined)) + length + Bytes(text),
                   state);
    ASSERT_EQ(BytesOf(target), text);
}

/// Every state with every one of the things.
template <typename Plain>
std::vector<Held<Plain>> InAllStates(const std::vector<Plain>& values)
{
    std::vector<Held<Plain>> all;
    for (const State& state : AllStates())
        for (const Plain value : values)
            all.push_back({state, value});
    return all;
}

inline std::vector<Truth> Truths(const std::vector<int>& numbers)
{
    return InAllStates(numbers);
}

inline std::vector<Letter> Letters(const std::vector<char>& characters)
{
    return InAllStates(characters);
}

inline std::vector<char> AllCharacters()
{
    std::vector<char> all;
    for (int code = 0; code < 256; ++code)
        all.push_back(static_cast<char>(code));
    return all;
}

// The rules that several operations share

/// What is stored becomes `value`; a change marks the value modified.
template <typename Plain>
void Store(Held<Plain>& held, Plain value)
{
    if (held.value != value) {
        held.value = value;
        held.state.modified = 1;
    }
}

/// `held` after it took over a plain thing.
template <typename Plain>
Held<Plain> Taken(Held<Plain> held, Plain value)
{
    Store(held, value);
    SetDefined(held.state, 1);
    return held;
}

/// `held` after Clear.
template <typename Plain>
Held<Plain> Cleared(Held<Plain> held)
{
    Store(held, Plain());
    SetUndefined(held.state);
    return held;
}

/// `to` after a value of its class was assigned to it.
template <typename Plain>
Held<Plain> AssignedValue(Held<Plain> to, const Held<Plain>& from)
{
    Store(to, from.value);
    if (to.state.mode != ZelDtWmAlwaysDefined)
        SetDefined(to.state, from.state.defined);
    return to;
}

/// `before` after its archive form was replaced by {defined, value}.
template <typename Plain>
Held<Plain> LoadedOver(Held<Plain> before, int defined, Plain value)
{
    SetDefined(before.state, defined);
    Store(before, value);
    return before;
}

// Errors

/// Where the errors of a class come from.
struct Origin {
    const char* module;
    const char* classText;
};

inline constexpr Origin kBoolOrigin = {"DTBOOL", "ZelDtBool"};
inline constexpr Origin kCharOrigin = {"DTCHAR", "ZelDtChar"};

/// Whether an error is the expected one; its signature text is the library's own choice, but must
/// not be empty.
inline ::testing::AssertionResult Matches(const Caught& caught, unsigned long number,
                                          const Origin& origin)
{
    if (caught.disturbance.empty() && caught.error.signature.empty())
        return ::testing::AssertionFailure() << "the error has no signature text";
    return Matches(caught, Error{number, origin.module, origin.classText, caught.error.signature});
}

template <typename Action>
::testing::AssertionResult FailsWith(Action&& action, unsigned long number, const Origin& origin)
{
    return Matches(Catch(std::forward<Action>(action)), number, origin);
}

/// Error 1 whose first error has the number `first` and comes from the class `classText`.
template <typename Action>
::testing::AssertionResult FailsBehind(Action&& action, const Origin& origin, unsigned long first,
                                       const std::string& classText)
{
    const Caught caught = Catch(std::forward<Action>(action));
    ::testing::AssertionResult result = Matches(caught, 1, origin);
    if (result && (caught.first.number != first || caught.first.classText != classText))
        return ::testing::AssertionFailure() << "expected error " << first << " of " << classText
                                             << " as first cause, got " << caught.first;
    return result;
}

/// Error 1 that a framework exception of the class `causeClass` led to.
template <typename Action>
::testing::AssertionResult FailsBehind(Action&& action, const Origin& origin,
                                       const std::string& causeClass)
{
    const Caught caught = Catch(std::forward<Action>(action));
    ::testing::AssertionResult result = Matches(caught, 1, origin);
    if (result && caught.causeClass != causeClass)
        return ::testing::AssertionFailure()
               << "expected a cause of class " << causeClass << ", got "
               << (caught.causeClass.empty() ? "none" : caught.causeClass);
    return result;
}

} // namespace zeltest

#endif
