#include "tools/zelconv/charset.h"
#include "tools/zelconv/plainname.h"
#include "tools/zelconv/writer.h"

#include <algorithm>

namespace zelconv {

namespace {

/// A name as SQL writes it. Texts stand in double quotes, so names cannot; those that are not
/// plain stand in square brackets.
std::string Identifier(std::string_view name)
{
    const bool unusable = name.empty() || std::any_of(name.begin(), name.end(), [](char character) {
                              return static_cast<unsigned char>(character) < ' ' ||
                                     character == '[' || character == ']';
                          });
    if (unusable)
        throw Failure("'" + Utf8FromAnsi(name) + "' cannot stand in SQL as a name");
    return IsPlainName(name) ? std::string(name) : "[" + std::string(name) + "]";
}

/// Points separate the owner or the schema from the table.
std::string TableName(std::string_view utf8)
{
    std::string name;
    if (ToAnsi(Charset::Utf8, utf8, name).status != CharsetResult::Status::Ok)
        throw Failure("--table: a character that code page 1252 lacks");
    std::string sql;
    std::string_view rest = name;
    for (;;) {
        const std::size_t point = rest.find('.');
        sql += Identifier(rest.substr(0, point));
        if (point == std::string_view::npos)
            return sql;
        sql += '.';
        rest.remove_prefix(point + 1);
    }
}

class SqlWriter final : public Writer {
public:
    SqlWriter(const Columns& columns, const Options& options)
        : m_columns(columns), m_charset(options.outputCharset)
    {
        std::string statement = "INSERT INTO " + TableName(options.table) + " (";
        for (std::size_t i = 0; i < columns.size(); ++i)
            statement += (i == 0 ? "" : ", ") + Identifier(columns[i].name);
        statement += ") VALUES (";
        if (FromAnsi(m_charset, statement, m_beginning).status != CharsetResult::Status::Ok)
            throw Failure("a name has a character that the charset of the output lacks");
    }

    void Begin(Output&) override {}
    void Encode(const Row& row, std::string& record) override;

private:
    void EncodeFrom(std::string& record, std::size_t begin, int column);

    const Columns& m_columns;
    Charset m_charset;
    std::string m_beginning; ///< of every statement, up to the values
    std::string m_text;      ///< of a value
};

void SqlWriter::Encode(const Row& row, std::string& record)
{
    record = m_beginning;
    for (int column = 0; column < row.GetCount(); ++column) {
        if (column != 0)
            record += ", ";
        const ColumnType& type = *m_columns[static_cast<std::size_t>(column)].type;
        if (!row[column].IsDefined()) {
            record += "NULL";
            continue;
        }
        const std::size_t begin = record.size();
        const bool readsBack =
            ForColumn(column, [&] { return type.appendSql(row[column], record); });
        const std::string_view text = std::string_view(record).substr(begin);
        if (!readsBack)
            RequireReadsBack(type, row[column], TextForm::Sql, text, column);
        if (type.isText && !IsPlain(text))
            EncodeFrom(record, begin, column);
    }
    record += ");\n";
}

/// Brings the end of the record, a value in code page 1252, into the charset of the output.
void SqlWriter::EncodeFrom(std::string& record, std::size_t begin, int column)
{
    m_text.assign(record, begin);
    record.resize(begin);
    if (m_text.find('\0') != std::string::npos)
        throw MakeFault(RowError::NulByte, column);
    EncodeCell(m_charset, m_text, column, record);
}

} // namespace

std::unique_ptr<Writer> NewSqlWriter(const Columns& columns, const Options& options)
{
    return std::make_unique<SqlWriter>(columns, options);
}

} // namespace zelconv
