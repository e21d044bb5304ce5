#include "tools/zelconv/charset.h"
#include "tools/zelconv/externtext.h"
#include "tools/zelconv/reader.h"
#include "tools/zelconv/tablerows.h"

#include <algorithm>
#include <optional>

namespace zelconv {

namespace {

/// Longest text, as everywhere.
constexpr std::size_t kMostCharacters = LineReader::kMostBytes;

/// Reads a table in the order in which the database gives its rows.
class DatabaseReader final : public Reader {
public:
    explicit DatabaseReader(const Options& options)
        : m_table(options.fromTable), m_database(options.input, Database::Access::Read),
          m_columns(ParseColumns(options.columns, options.ModeOfEmpty())),
          m_rows(m_database.Get(), NewMembers())
    {
        OnDatabase(m_table.Given(), [&] {
            m_rows.Open(CRecordset::forwardOnly, m_database.Quoted(m_table).c_str(),
                        CRecordset::readOnly);
        });
    }

    const Columns& GetColumns() const override { return m_columns; }
    bool Next() override;
    void Fill(Row& row) override;
    std::uint64_t GetLineNumber() const override { return m_row; }
    /// A row of a table has no text of its own.
    void AppendRaw(const Row& row, std::string& out) const override;
    Charset GetRawCharset() const override { return Charset::Utf8; }

private:
    std::vector<TableRows::Member> NewMembers();
    void Load(ZelDtBasis& value, int column);

    TableName m_table;
    Database m_database;
    Columns m_columns;
    TableRows m_rows;
    std::uint64_t m_row = 0;
};

std::vector<TableRows::Member> DatabaseReader::NewMembers()
{
    const std::vector<TableColumn> found = m_database.ColumnsOf(m_table);
    std::vector<TableRows::Member> members;
    for (const Column& column : m_columns) {
        const TableColumn* const place = FindTableColumn(found, column.name);
        const bool isLimited = place != nullptr && place->length != 0;
        const std::size_t length =
            isLimited ? std::min(place->length, kMostCharacters) : kMostCharacters;
        members.push_back(
            {m_database.Quoted(column.name), DatabaseTypeOf(*column.type).newField(length)});
    }
    return members;
}

/// The record set stands on the first row when it is open. Behind the last one it is closed, so
/// that the table can be written at the end.
bool DatabaseReader::Next()
{
    return OnDatabase(m_table.Given(), [&] {
        if (m_row != 0 && !m_rows.IsEOF())
            m_rows.MoveNext();
        if (m_rows.IsEOF()) {
            m_rows.Close();
            return false;
        }
        ++m_row;
        return true;
    });
}

void DatabaseReader::Load(ZelDtBasis& value, int column)
{
    if (const std::string& problem = m_rows.GetProblem(column); !problem.empty()) {
        std::string ansi;
        ToAnsi(Charset::Utf8, problem, ansi);
        throw MakeFault(RowError::FromDatabase, column, ansi);
    }
    Refuse(ForColumn(column, [&] { return m_rows.GetField(column).Load(m_rows, value); }), column);
}

/// All columns, also behind a wrong one: none may keep what the row before had.
void DatabaseReader::Fill(Row& row)
{
    std::optional<RowFault> first;
    for (int column = 0; column < row.GetCount(); ++column) {
        try {
            Load(row[column], column);
        } catch (const RowFault& fault) {
            row[column].Clear();
            if (!first)
                first = fault;
        }
    }
    if (first)
        throw RowFault(*first);
    CompleteRow(row, m_columns);
}

void DatabaseReader::AppendRaw(const Row& row, std::string& out) const
{
    std::string line;
    AppendExternRow(row, m_columns, line);
    out += Utf8FromAnsi(line);
}

} // namespace

std::unique_ptr<Reader> NewDatabaseReader(const Options& options)
{
    return std::make_unique<DatabaseReader>(options);
}

} // namespace zelconv
