#ifndef ZELDT_PLATFORM_RECORDSETS_CONNECTTEXT_H
#define ZELDT_PLATFORM_RECORDSETS_CONNECTTEXT_H

/// Connection strings: "NAME=value;NAME={value};...".

#include "platform/runtime/wintypes.h"

#include <string>
#include <string_view>

namespace zelrs {

/// Without the "ODBC;" that some callers write in front.
std::string WithoutPrefix(std::string_view connect);

/// Whether the driver that the string names is one whose name contains this, whatever the case.
bool NamesDriver(std::string_view connect, std::string_view name);

struct TimeLimits {
    DWORD login = 0; ///< seconds, 0 for none
    DWORD query = 0;
};

/// The same connection with what MariaDB and MySQL need to speak code page 1252, to count the
/// records that an update finds rather than those it changes, and to give a silent server up: in
/// time while connecting, later after twice the time that a statement may take.
std::string ForMySql(std::string_view connect, const TimeLimits& limits);

/// The same connection with a driver that leaves waiting for locks to SQLite itself, where the time
/// can be changed while connected.
std::string ForSqlite(std::string_view connect);

/// The connection string for a named data source with further attributes.
std::string ForDataSource(std::string_view name, std::string_view attributes);

} // namespace zelrs

#endif
