#ifndef ZELDT_TESTS_FOUNDATION_RECORDING_FORMATS_H
#define ZELDT_TESTS_FOUNDATION_RECORDING_FORMATS_H

/// A format library that takes the place of the real one, under the same file name. It keeps a
/// record of every format that is made and destroyed; each format shows its own arguments in place
/// of values.

#include <string>
#include <vector>

namespace zeltest {

/// Where the value library's classes stood when a format was made or destroyed.
enum class ClassesStand { Nowhere, OnTheGeneralList, OnTheirLibrarysList };

struct FormatEvent {
    bool made; ///< or destroyed
    const void* format;
    std::string arguments; ///< "mode 1"
    ClassesStand classes;
};

/// Exported by the library under this name: the events since it was loaded.
using FormatEventsFunction = const std::vector<FormatEvent>&();
inline constexpr char kFormatEventsName[] = "FormatEvents";

} // namespace zeltest

#endif
