#ifndef ZELDT_TESTS_TEXT_STRING_TESTING_H
#define ZELDT_TESTS_TEXT_STRING_TESTING_H

/// What the tests of the string share: strings in a given starting state, and everything that can
/// be observed of one as a comparable thing.

#include "tests/support/zel_testing.h"
#include "text/DTSTRING.h"

#include <memory>
#include <ostream>
#include <string>

namespace zeltest {

/// Readable form of a byte string.
inline std::string Escaped(const std::string& bytes)
{
    static constexpr char kDigits[] = "0123456789ABCDEF";
    std::string result = "'";
    for (const char c : bytes) {
        const auto b = static_cast<unsigned char>(c);
        if (b >= 0x20 && b < 0x7F) {
            result += c;
        } else {
            result += "\\x";
            result += kDigits[b >> 4];
            result += kDigits[b & 15];
        }
    }
    return result + "'";
}

/// A text literal with its NUL bytes, but without the terminator.
template <std::size_t Size>
std::string Raw(const char (&literal)[Size])
{
    return std::string(literal, Size - 1);
}

/// The bytes of a string, read through its unchecked pointer and its length. Checks that the text
/// is terminated and fits its allocation.
inline std::string BytesOf(const ZelDtString& s)
{
    const char* text = s;
    EXPECT_NE(text, nullptr);
    EXPECT_GE(s.GetLength(), 0);
    EXPECT_LE(s.GetLength(), s.GetAllocLength());
    std::string bytes(text, static_cast<std::size_t>(s.GetLength()));
    EXPECT_EQ(text[s.GetLength()], '\0');
    return bytes;
}

inline CString Framework(const std::string& bytes)
{
    return CString(bytes.data(), static_cast<int>(bytes.size()));
}

inline std::string BytesOf(const CString& s)
{
    return std::string(s.GetString(), static_cast<std::size_t>(s.GetLength()));
}

/// What a string holds.
struct Content {
    std::string text;
    int defined = 0;
    int modified = 0;

    friend bool operator==(const Content&, const Content&) = default;
    friend std::ostream& operator<<(std::ostream& os, const Content& c)
    {
        return os << Escaped(c.text) << (c.defined ? " defined" : " undefined")
                  << (c.modified ? " modified" : " not modified");
    }
};

inline Content ContentOf(const ZelDtString& s)
{
    const State state = StateOf(s);
    return {BytesOf(s), state.defined, state.modified};
}

/// A state to begin a test with; never modified.
struct Start {
    ZelDtWorkingMode mode = ZelDtWmMissing;
    const char* text = nullptr; ///< null: undefined (in mode AlwaysDefined: defined and empty)
    int room = ZelDtString::kiDefaultLength;

    friend std::ostream& operator<<(std::ostream& os, const Start& s)
    {
        os << State{s.mode, s.text != nullptr || s.mode == ZelDtWmAlwaysDefined ? 1 : 0, 0};
        return s.text == nullptr ? os : os << ", " << Escaped(s.text);
    }
};

using StringPtr = std::unique_ptr<ZelDtString>;

inline StringPtr Make(const Start& start)
{
    if (start.text == nullptr)
        return std::make_unique<ZelDtString>(start.mode);
    auto s = std::make_unique<ZelDtString>(start.text, ZelDtString::kiDefaultLength, start.room);
    s->SetWorkingMode(start.mode);
    return s;
}

/// Defined, in mode Missing.
inline StringPtr Make(const std::string& bytes)
{
    auto s = std::make_unique<ZelDtString>(Framework(bytes));
    s->SetWorkingMode(ZelDtWmMissing);
    return s;
}

/// Makes a string undefined without touching its text: the base assignment alone does that.
inline void Undefine(ZelDtString& s)
{
    static_cast<ZelDtBasis&>(s) = ZelDtString(ZelDtWmNull);
    s.SetModified(0);
}

inline Error StringError(unsigned long number, const char* module, const char* signature)
{
    return {number, module, "ZelDtString", signature};
}

/// An error of an editing function or a representation.
inline Error FunctionError(unsigned long number, const char* signature)
{
    return StringError(number, "DTSTRFKT", signature);
}

/// An error of an operator.
inline Error OperatorError(unsigned long number, const char* signature)
{
    return StringError(number, "DTSTROPE", signature);
}

/// An error whose signature text is the library's own choice; it must not be empty.
template <typename Action>
::testing::AssertionResult FailsAnyhow(Action&& action, unsigned long number,
                                       const std::string& module)
{
    const Caught caught = Catch(std::forward<Action>(action));
    if (caught.disturbance.empty() && caught.error.signature.empty())
        return ::testing::AssertionFailure() << "the error has no signature text";
    return Matches(caught, Error{number, module, "ZelDtString", caught.error.signature});
}

} // namespace zeltest

#endif
