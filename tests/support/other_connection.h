#ifndef ZELDT_TESTS_SUPPORT_OTHER_CONNECTION_H
#define ZELDT_TESTS_SUPPORT_OTHER_CONNECTION_H

// Nothing of the framework here: its names for the types of Windows and those of the ODBC headers
// on Linux exclude each other.

#include <memory>
#include <string>
#include <vector>

namespace zeltest {

/// What with_database.py put into the environment; std::runtime_error when it did not.
std::string FromEnvironment(const char* name);

/// Rows of texts; null values are kNull.
using Row = std::vector<std::string>;
using Rows = std::vector<Row>;
inline const std::string kNull = "<NULL>";

/// A further connection to the database of the run, or to another one, straight through ODBC: what
/// others see of the tables. Texts are UTF-8 here. Failures are thrown as std::runtime_error.
class OtherConnection {
public:
    OtherConnection();
    explicit OtherConnection(const std::string& connect);
    ~OtherConnection();
    OtherConnection(const OtherConnection&) = delete;
    OtherConnection& operator=(const OtherConnection&) = delete;

    void Execute(const std::string& sql);
    Rows Query(const std::string& sql);

    /// The only value of the only row.
    std::string QueryOne(const std::string& sql);

private:
    struct Handles;
    std::unique_ptr<Handles> m_handles;
};

} // namespace zeltest

#endif
