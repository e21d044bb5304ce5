#ifndef ZELDT_TOOLS_ZELCONV_DATABASENAMES_H
#define ZELDT_TOOLS_ZELCONV_DATABASENAMES_H

/// Names of tables and columns in statements.

#include <string>
#include <string_view>

namespace zelconv {

/// A name, in code page 1252, as statements have it; Failure if it cannot stand there. `quote`
/// encloses names; where it is empty or a blank nothing does, and plain names only can be written.
std::string QuotedName(std::string_view name, std::string_view quote);

/// The name of a table from the command line. Points separate the schema.
class TableName {
public:
    /// UTF-8; Failure for a name that can stand in no statement.
    explicit TableName(const std::string& given);

    /// For messages, in UTF-8.
    const std::string& Given() const { return m_given; }
    /// For statements.
    std::string Quoted(std::string_view quote) const;
    /// The parts in code page 1252; the schema is empty where none was given.
    const std::string& Schema() const { return m_schema; }
    const std::string& Name() const { return m_name; }

private:
    std::string m_given;
    std::string m_schema;
    std::string m_name;
};

} // namespace zelconv

#endif
