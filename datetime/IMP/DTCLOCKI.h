#ifndef ZELDT_DATETIME_IMP_DTCLOCKI_H
#define ZELDT_DATETIME_IMP_DTCLOCKI_H

/// The clock that the library reads. Private to the library.

#include <ctime>

namespace zeldt {

/// The present moment by the clock in force. Throws what that clock throws.
std::time_t Now();

} // namespace zeldt

#endif
