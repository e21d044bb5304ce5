#ifndef ZELDT_TOOLS_ZELCONV_TABLEROWS_H
#define ZELDT_TOOLS_ZELCONV_TABLEROWS_H

/// The rows of a table as a record set.

#include "tools/zelconv/databasetypes.h"

#include <memory>
#include <string>
#include <vector>

namespace zelconv {

/// A record set that survives a value which its field cannot take: a text with characters that code
/// page 1252 lacks, a number beyond the field. The field is null then, and why is kept.
class TableRows final : public CRecordset {
public:
    /// The fields by name, as statements have it.
    struct Member {
        std::string name;
        std::unique_ptr<Field> field;
    };

    TableRows(CDatabase& database, std::vector<Member> members);

    void DoFieldExchange(CFieldExchange* pass) override;

    const Field& GetField(int column) const;

    /// What is wrong with the field of the present row, in UTF-8; empty if nothing is.
    const std::string& GetProblem(int column) const;

private:
    class Tolerant;
    static std::unique_ptr<CRecordsetEngine> NewEngine(CRecordset& rows);

    std::vector<Member> m_members;
    std::vector<std::string> m_problems;
};

} // namespace zelconv

#endif
