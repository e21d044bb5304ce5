#ifndef ZELDT_TESTS_NUMERIC_MIXED_TESTING_H
#define ZELDT_TESTS_NUMERIC_MIXED_TESTING_H

/// Values of all number classes in every state, for tests of what happens between the classes.

#include "numeric/DTDECIMA.h"
#include "tests/numeric/double_testing.h"
#include "tests/numeric/integer_testing.h"

#include <ostream>
#include <string>

namespace zeltest {

/// All that can be seen of a decimal without looking at its places: its number is a text without
/// trailing zeros.
struct DecimalNumber {
    State state;
    std::string text;

    friend bool operator==(const DecimalNumber&, const DecimalNumber&) = default;
    friend std::ostream& operator<<(std::ostream& os, const DecimalNumber& n)
    {
        return os << n.text << " (" << n.state << ')';
    }
};

inline DecimalNumber Look(const ZelDtDecimal& value)
{
    char buffer[64];
    return {StateOf(value), value.DecimalToAscii(buffer)};
}

/// Brings `target` to what `number` says. An undefined decimal stores 0.
inline void Bring(ZelDtDecimal& target, const DecimalNumber& number)
{
    target.SetWorkingMode(ZelDtWmMissing);
    target = ZelDtDecimal(number.text.c_str());
    if (!number.state.defined)
        target.Clear();
    const DefaultMode guard(number.state.mode);
    target.SetWorkingMode(ZelDtWmDefault);
    target.SetModified(number.state.modified);
    ASSERT_EQ(Look(target),
              (DecimalNumber{number.state, number.state.defined ? number.text : "0"}));
}

} // namespace zeltest

#endif
