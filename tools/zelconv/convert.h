#ifndef ZELDT_TOOLS_ZELCONV_CONVERT_H
#define ZELDT_TOOLS_ZELCONV_CONVERT_H

#include "tools/zelconv/options.h"

namespace zelconv {

/// How a conversion ended; the exit statuses of the program.
enum class Outcome : int { AllRows = 0, SomeRejected = 1, Unusable = 2 };

/// Converts the input into the output. Whatever is thrown, the output and the rejects file are
/// then as they were before.
Outcome Convert(const Options& options);

} // namespace zelconv

#endif
