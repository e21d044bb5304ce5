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
        std::string beginning = "INSERT INTO " + TableName(options.table) + " (";
        for (std::size_t i = 0; i < columns.size(); ++i)
            beginning += (i == 0 ? "" : ", ") + Identifier(columns[i].name);
        beginning += ") VALUES (";
        if (FromAnsi(m_charset, beginning, m_statement).status != CharsetResult::Status::Ok)
            throw Failure("a name has a character that the charset of the output lacks");
        m_beginning = m_statement.size();
    }

    void Begin(Output&) override {}
    void Encode(const Row& row, std::string& record) override;

private:
    static constexpr std::string_view kSeparator = ", ";
    static constexpr std::string_view kRowEnd = ");\n";

    /// Room behind what is written, and for what follows a value.
    char* RoomFor(std::size_t size)
    {
        const std::size_t wanted = m_end + size + kRowEnd.size();
        if (m_statement.size() < wanted)
            m_statement.resize(2 * wanted);
        return m_statement.data() + m_end;
    }

    void AppendValue(const ZelDtBasis& value, int column);
    std::size_t WriteValue(const ColumnType& type, const ZelDtBasis& value, int column);
    void AppendEncoded(std::string_view text, int column);

    const Columns& m_columns;
    Charset m_charset;
    std::string m_statement; ///< the beginning of all, then what is written of the present one
    std::size_t m_beginning;
    std::size_t m_end = 0;
    std::string m_encoded; ///< a value
};

void SqlWriter::Encode(const Row& row, std::string& record)
{
    m_end = m_beginning;
    for (int column = 0; column < row.GetCount(); ++column) {
        AppendValue(row[column], column);
        kSeparator.copy(m_statement.data() + m_end, kSeparator.size());
        m_end += kSeparator.size();
    }
    m_end -= kSeparator.size();
    kRowEnd.copy(m_statement.data() + m_end, kRowEnd.size());
    record.assign(m_statement, 0, m_end + kRowEnd.size());
}

void SqlWriter::AppendValue(const ZelDtBasis& value, int column)
{
    const ColumnType& type = *m_columns[static_cast<std::size_t>(column)].type;
    const std::size_t length = WriteValue(type, value, column);
    const std::string_view text(m_statement.data() + m_end, length);
    if (type.readsBack != nullptr)
        RequireReadsBack(type, value, TextForm::Sql, text, column);
    if (type.isText && !IsPlain(text))
        AppendEncoded(text, column);
    else
        m_end += length;
}

/// Writes the value, in code page 1252, behind what counts as written; returns its length.
std::size_t SqlWriter::WriteValue(const ColumnType& type, const ZelDtBasis& value, int column)
{
    return ForColumn(column, [&] {
        constexpr std::size_t usual = ColumnType::kSqlRoom;
        const std::size_t length = type.writeSql(value, RoomFor(usual), usual);
        if (length < usual)
            return length;
        return type.writeSql(value, RoomFor(length + 1), length + 1);
    });
}

/// Appends a value in code page 1252, which may lie at the end, in the charset of the output.
void SqlWriter::AppendEncoded(std::string_view text, int column)
{
    if (text.find('\0') != std::string_view::npos)
        throw MakeFault(RowError::NulByte, column);
    m_encoded.clear();
    EncodeCell(m_charset, text, column, m_encoded);
    m_encoded.copy(RoomFor(m_encoded.size()), m_encoded.size());
    m_end += m_encoded.size();
}

} // namespace

std::unique_ptr<Writer> NewSqlWriter(const Columns& columns, const Options& options)
{
    return std::make_unique<SqlWriter>(columns, options);
}

} // namespace zelconv
