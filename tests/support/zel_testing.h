#ifndef ZELDT_TESTS_SUPPORT_ZEL_TESTING_H
#define ZELDT_TESTS_SUPPORT_ZEL_TESTING_H

/// What the tests of the value classes share: errors checked in full, the state of a value as one
/// comparable thing, the process-wide default mode set for a while, archives as byte strings.
///
///     EXPECT_TRUE(FailsWith([&] { value.GetValue(); },
///                           Error{2, "DTLONG", "ZelDtLong", "GetValue()"}));
///     EXPECT_EQ(StateOf(value), (State{ZelDtWmNull, 0, 1}));
///     const DefaultMode guard(ZelDtWmNull);
///     EXPECT_EQ(Stored([&](CArchive& ar) { value.Serialize(ar); }), Bytes({1, 0, 0, 0}));

#include "foundation/DTBASIS.h"
#include "foundation/DTEXCEP.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <initializer_list>
#include <optional>
#include <ostream>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace zeltest {

/// The message of every error number, in Latin-1.
inline constexpr std::array<const char*, 32> kErrorTexts = {
    "Sonstiger Fehler",
    "Default-Catch / Folgefehler",
    "Undefinierter Wert",
    "Ung\xFCltiger Stringindex",
    "Puffer zu klein",
    "Ung\xFCltiger Initialwert",
    "Ung\xFCltige Initiall\xE4nge",
    "Alloc-L\xE4nge zu kurz",
    "Wert au\xDF"
    "erhalb des Wertebereichs",
    "Falscher Typ zugeordnet",
    "Basistypen unterschiedlich",
    "Der Eingabetext ist zu lang",
    "Division durch 0",
    "Inkonsistente Definiertheit",
    "Falsche Versionsnummer",
    "Fehler beim Zur\xFC"
    "cksetzen",
    "Ung\xFCltige NK-Stellenanzahl",
    "Ung\xFCltiger Zeitmodus",
    "Ung\xFCltige Externe Darstellung",
    "Codepagewandlung nicht m\xF6glich",
    "Format nicht zugelassen",
    "Format nicht eingehalten",
    "Folgefehler aufgrund einer MFC-Exception",
    "Wandlung in Wide-Charakter-Format nicht m\xF6glich",
    "Fehler bei Berechung mit Dezimalwerten",
    "Tagesangabe ist ung\xFCltig oder nicht zur Monatsangabe passend",
    "Monatsangabe ist ung\xFCltig, d.h. <1 oder > 12",
    "Jahresangabe ist ung\xFCltig, Jahreszahl < 1753",
    "Stundenangabe ist ung\xFCltig, d.h. <0 oder > 23",
    "Minutenangabe ist ung\xFCltig, d.h. < 0 oder > 59",
    "Sekundenangabe ist ung\xFCltig, d.h. <0 oder > 59",
    "Unbekannte Option",
};

/// Where an error comes from and which it is.
struct Error {
    unsigned long number = 0;
    std::string module;
    std::string classText;
    std::string signature;

    friend bool operator==(const Error&, const Error&) = default;
    friend std::ostream& operator<<(std::ostream& os, const Error& e)
    {
        return os << "error " << e.number << " of " << e.module << ", " << e.classText << ", \""
                  << e.signature << '"';
    }
};

inline Error ErrorOf(const ZelEhBasis& e)
{
    return {e.GetErrorNo(), e.GetSourceModule(), e.GetClassText(), e.GetSignature()};
}

/// What an action threw, read before it was deleted.
struct Caught {
    Error error;
    std::string text;       ///< the message
    Error first;            ///< the error that nothing led to; the error itself if it replaced none
    std::size_t depth = 0;  ///< number of errors that were replaced on the way
    std::string causeClass; ///< class of the framework exception of the first error, or empty
    unsigned long value1 = 0;
    unsigned long value2 = 0;
    unsigned long extra = 0;
    int flag = 0;
    int causeFlag = 0;
    bool hasCause = false;   ///< a framework exception is attached to the error itself
    std::size_t leaked = 0;  ///< errors that were still alive after the thrown one was deleted
    std::string disturbance; ///< what was thrown instead of an error of the library, or "nothing"
};

inline Caught Describe(const ZelDtExcep& e)
{
    Caught result;
    result.error = ErrorOf(e);
    result.text = e.GetErrorText();
    result.first = ErrorOf(e.GetFirstCause());
    for (const ZelEhBasis* p = e.GetReplaced(); p != nullptr; p = p->GetReplaced())
        ++result.depth;
    if (const CException* cause = e.GetFirstCause().GetCause())
        result.causeClass = cause->GetRuntimeClass()->m_lpszClassName;
    result.value1 = e.GetValue1();
    result.value2 = e.GetValue2();
    result.extra = e.GetExtra();
    result.flag = e.GetFlag();
    result.causeFlag = e.GetCauseFlag();
    result.hasCause = e.GetCause() != nullptr;
    return result;
}

/// Runs the action and reports what it threw; the error is deleted.
template <typename Action>
Caught Catch(Action&& action)
{
    const std::size_t alive = ZelEhCountLiveErrors();
    Caught result;
    result.disturbance = "nothing";
    try {
        std::forward<Action>(action)();
    } catch (ZelDtExcep* e) {
        if (e == nullptr) {
            result.disturbance = "a null pointer";
        } else {
            result = Describe(*e);
            delete e;
        }
    } catch (ZelEhBasis* e) {
        result.disturbance = "an error of another library";
        delete e;
    } catch (CException* e) {
        result.disturbance = std::string("a ") + e->GetRuntimeClass()->m_lpszClassName;
        e->Delete();
    } catch (...) {
        result.disturbance = "something foreign";
    }
    result.leaked = ZelEhCountLiveErrors() - alive;
    return result;
}

namespace detail {

inline void Compare(std::ostream& os, const char* what, const std::string& expected,
                    const std::string& got)
{
    if (expected != got)
        os << "  " << what << ": expected " << expected << ", got " << got << '\n';
}

template <typename T>
std::string Show(const T& value)
{
    std::ostringstream os;
    os << value;
    return os.str();
}

} // namespace detail

/// Whether a caught error is the expected one in every respect: origin, number, message, further
/// values, flags, and no error left alive. `first` is the error at the end of the chain.
inline ::testing::AssertionResult Matches(const Caught& caught, const Error& expected,
                                          const std::optional<Error>& first = std::nullopt)
{
    using detail::Compare;
    using detail::Show;
    if (!caught.disturbance.empty())
        return ::testing::AssertionFailure()
               << "expected " << expected << ", thrown was " << caught.disturbance;
    std::ostringstream os;
    Compare(os, "error", Show(expected), Show(caught.error));
    if (expected.number < kErrorTexts.size())
        Compare(os, "message", kErrorTexts[expected.number], caught.text);
    // Errors that the operation found are flagged, those that report another one are not.
    Compare(os, "flag", expected.number == 1 ? "0" : "1", Show(caught.flag));
    Compare(os, "cause flag", "1", Show(caught.causeFlag));
    Compare(os, "extra", "0", Show(caught.extra));
    const std::string further = caught.hasCause ? "0" : "1";
    Compare(os, "first further value", further, Show(caught.value1));
    Compare(os, "second further value", further, Show(caught.value2));
    Compare(os, "errors left alive", "0", Show(caught.leaked));
    if (first)
        Compare(os, "first cause", Show(*first), Show(caught.first));
    if (os.str().empty())
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << '\n' << os.str();
}

template <typename Action>
::testing::AssertionResult FailsWith(Action&& action, const Error& expected)
{
    return Matches(Catch(std::forward<Action>(action)), expected);
}

template <typename Action>
::testing::AssertionResult FailsWith(Action&& action, const Error& expected, const Error& first)
{
    return Matches(Catch(std::forward<Action>(action)), expected, first);
}

/// Error 1 of the expected origin whose first error has the number `first`, wherever that arose.
template <typename Action>
::testing::AssertionResult FailsBecauseOf(Action&& action, const Error& expected,
                                          unsigned long first)
{
    const Caught caught = Catch(std::forward<Action>(action));
    ::testing::AssertionResult result = Matches(caught, expected);
    if (result && (caught.first.number != first || caught.depth == 0))
        return ::testing::AssertionFailure()
               << "expected error " << first << " as first cause, got " << caught.first;
    return result;
}

/// Error 1 of the expected origin that a framework exception of the class `causeClass` led to.
template <typename Action>
::testing::AssertionResult FailsBecauseOf(Action&& action, const Error& expected,
                                          const std::string& causeClass)
{
    const Caught caught = Catch(std::forward<Action>(action));
    ::testing::AssertionResult result = Matches(caught, expected);
    if (result && caught.causeClass != causeClass)
        return ::testing::AssertionFailure()
               << "expected a cause of class " << causeClass << ", got "
               << (caught.causeClass.empty() ? "none" : caught.causeClass);
    return result;
}

/// Mode and flags of a value. Whether it is missing or null follows from mode and definedness;
/// StateOf checks that it does.
struct State {
    ZelDtWorkingMode mode = ZelDtWmMissing;
    int defined = 0;
    int modified = 0;

    friend bool operator==(const State&, const State&) = default;
    friend std::ostream& operator<<(std::ostream& os, const State& s)
    {
        static constexpr const char* kModes[] = {"Missing", "Null", "AlwaysDefined", "Default"};
        if (s.mode >= ZelDtWmMissing && s.mode <= ZelDtWmDefault)
            os << kModes[s.mode];
        else
            os << "mode " << static_cast<int>(s.mode);
        return os << (s.defined ? ", defined" : ", undefined")
                  << (s.modified ? ", modified" : ", not modified");
    }
};

inline State StateOf(const ZelDtBasis& value)
{
    const State state{value.GetWorkingMode(), value.IsDefined(), value.IsModified()};
    EXPECT_EQ(value.IsMissing(), !state.defined && state.mode == ZelDtWmMissing ? 1 : 0) << state;
    EXPECT_EQ(value.IsNull(), !state.defined && state.mode == ZelDtWmNull ? 1 : 0) << state;
    return state;
}

/// Sets the process-wide default mode and restores the one before at the end of the block.
class DefaultMode {
public:
    explicit DefaultMode(ZelDtWorkingMode mode) : m_before(ZelDtGetDefaultWorkingMode())
    {
        ZelDtSetDefaultWorkingMode(mode);
    }
    ~DefaultMode() { ZelDtSetDefaultWorkingMode(m_before); }
    DefaultMode(const DefaultMode&) = delete;
    DefaultMode& operator=(const DefaultMode&) = delete;

private:
    ZelDtWorkingMode m_before;
};

/// A byte string that prints as hexadecimal numbers.
struct Bytes {
    std::string data;

    Bytes() = default;
    explicit Bytes(std::string bytes) : data(std::move(bytes)) {}
    Bytes(std::initializer_list<int> bytes)
    {
        for (const int b : bytes)
            data.push_back(static_cast<char>(b));
    }

    std::size_t size() const { return data.size(); }
    /// The first `count` bytes.
    Bytes Cut(std::size_t count) const { return Bytes(data.substr(0, count)); }

    friend Bytes operator+(const Bytes& a, const Bytes& b) { return Bytes(a.data + b.data); }
    friend bool operator==(const Bytes&, const Bytes&) = default;
    friend std::ostream& operator<<(std::ostream& os, const Bytes& bytes)
    {
        static constexpr char kDigits[] = "0123456789ABCDEF";
        os << bytes.data.size() << " bytes:";
        for (const char c : bytes.data) {
            const auto b = static_cast<unsigned char>(c);
            os << ' ' << kDigits[b >> 4] << kDigits[b & 15];
        }
        return os;
    }
};

/// A text as bytes, without its terminator.
inline Bytes Text(const char* text)
{
    return Bytes(std::string(text));
}

/// The contents of a file in memory.
inline Bytes Contents(CMemFile& file)
{
    const auto length = static_cast<std::size_t>(file.GetLength());
    std::string bytes(length, '\0');
    file.SeekToBegin();
    if (length != 0)
        bytes.resize(file.Read(bytes.data(), static_cast<UINT>(length)));
    return Bytes(bytes);
}

/// What the action writes to an archive.
template <typename Action>
Bytes Stored(Action&& write)
{
    CMemFile file;
    CArchive ar(&file, CArchive::store);
    std::forward<Action>(write)(ar);
    ar.Close();
    return Contents(file);
}

/// Lets the action read the bytes from an archive; what it throws passes through. Returns how many
/// bytes it left unread.
template <typename Action>
std::size_t Loaded(const Bytes& bytes, Action&& read)
{
    CMemFile file;
    if (bytes.size() != 0)
        file.Write(bytes.data.data(), static_cast<UINT>(bytes.size()));
    file.SeekToBegin();
    CArchive ar(&file, CArchive::load);
    std::forward<Action>(read)(ar);
    char rest[4096];
    return ar.Read(rest, sizeof rest);
}

} // namespace zeltest

#endif
