#include "source.h"

#include <filesystem>
#include <stdexcept>
#include <system_error>
#include <vector>

namespace rechnungslauf {

namespace {

namespace fs = std::filesystem;

/// Where drivers lie: Debian has a folder for each kind of machine.
std::vector<fs::path> DriverFolders()
{
    std::vector<fs::path> folders;
    for (const char* const library : {"/usr/lib", "/usr/lib64", "/usr/local/lib"}) {
        folders.insert(folders.end(), {library, fs::path(library) / "odbc"});
        std::error_code error;
        for (const fs::directory_entry& entry : fs::directory_iterator(library, error))
            folders.push_back(entry.path() / "odbc");
    }
    return folders;
}

std::string SqliteDriver()
{
    for (const fs::path& folder : DriverFolders()) {
        const fs::path driver = folder / "libsqlite3odbc.so";
        std::error_code error;
        if (fs::exists(driver, error))
            return driver.generic_string();
    }
    return "SQLite3 ODBC Driver"; // by the name that it is registered with
}

} // namespace

std::string ConnectString(const Options& options)
{
    if (!options.dsn.empty())
        return options.dsn;
    if (options.database.find(';') != std::string::npos)
        throw std::runtime_error(options.database + ": ein Strichpunkt ist hier nicht möglich");
    return "Driver=" + (options.driver.empty() ? SqliteDriver() : options.driver) +
           ";Database=" + options.database;
}

} // namespace rechnungslauf
