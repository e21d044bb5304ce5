#ifndef ZELDT_TESTS_DISPLAY_DISPLAY_TESTING_H
#define ZELDT_TESTS_DISPLAY_DISPLAY_TESTING_H

/// What the tests of showing and reading values share, whatever the class.

#include "platform/formats/ZelFormat.h"
#include "tests/support/zel_testing.h"

#include <string>
#include <utility>

namespace zeltest {

// One format of every kind, each in its simplest form

inline ZelFormat NumberFormat()
{
    return ZelFormat(11, 0, ZelFormat::ZelFoDezimalOhne, ZelFormat::ZelFoTausenderOhne,
                     ZelFormat::ZelFoVorzeichenVorne, ZelFormat::ZelFoNurMinus, 0, '0', 0, '0');
}

inline ZelFormat TimeFormat()
{
    return ZelFormat(ZelFormat::ZelFoZeitEigene, ZelFormat::ZelFoZeitMitTrenner,
                     ZelFormat::ZelFoVorzeichenVorne, ZelFormat::ZelFoNurMinus, 0, 0, '0');
}

inline ZelFormat DateFormat()
{
    return ZelFormat(ZelFormat::ZelFoDatum, ZelFormat::ZelFoDatumPunkt,
                     ZelFormat::ZelFoJahrVierstellig, ZelFormat::ZelFoMonatZahl, 1, '0');
}

inline ZelFormat TextFormat()
{
    return ZelFormat(0, ZelFormat::kulZelFoValidAll, ZelFormat::ZelFoAuffuellenOhne, ' ');
}

/// Not valid: its first use is error 20.
inline ZelFormat UnknownFormat()
{
    return ZelFormat(static_cast<ZelFormat::FormatModus>(2));
}

/// The text of a value, NUL bytes included. No format: the value's own or that of its class.
inline std::string Shown(const ZelDtBasis& value, const ZelFormat* format = nullptr)
{
    const CString text = value.ConvToOFL(format);
    return std::string(text.GetString(), static_cast<std::size_t>(text.GetLength()));
}

/// Whether the action fails with error 1 of `outer` because of error `first` of the operation
/// `operation` of the format.
template <typename Action>
::testing::AssertionResult FailsByFormat(Action&& action, const Error& outer, unsigned long first,
                                         const std::string& operation)
{
    const Caught caught = Catch(std::forward<Action>(action));
    ::testing::AssertionResult result = Matches(caught, outer);
    if (!result)
        return result;
    const Error expected{first, "ZELFORMT", "ZelFormat", caught.first.signature};
    if (caught.depth == 0 || caught.first != expected ||
        caught.first.signature.rfind(operation + "(", 0) != 0)
        return ::testing::AssertionFailure()
               << "expected error " << first << " of " << operation << " as first cause, got "
               << caught.first << " behind " << caught.depth;
    return result;
}

} // namespace zeltest

#endif
