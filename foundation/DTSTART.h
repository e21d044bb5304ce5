#ifndef ZELDT_FOUNDATION_DTSTART_H
#define ZELDT_FOUNDATION_DTSTART_H

/// What the library knows of itself since it was loaded. Private to the library.

namespace zeldt {

/// Full file name of the library, at most 259 bytes; empty before it was attached.
const char* LibraryFileName() noexcept;

} // namespace zeldt

#endif
