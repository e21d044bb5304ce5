// What a source says about a table.

#include "platform/recordsets/columns.h"

#include "platform/recordsets/querytext.h"
#include "platform/recordsets/sqltext.h"

#include <algorithm>

namespace zelrs {

namespace {

/// "SCHEMA"."NAME" without its quotes; the first part may be missing.
struct TableName {
    CString schema;
    CString name;
};

TableName SplitName(const CString& name)
{
    const std::string_view text(name.GetString(), static_cast<std::size_t>(name.GetLength()));
    TableName result;
    SqlScanner scanner(text);
    for (SqlToken token = scanner.NextMeaningful(); token.part != SqlPart::End;
         token = scanner.NextMeaningful()) {
        if (token.text == ".")
            result.schema = result.name;
        else
            result.name = WithoutQuotes(token.text).c_str();
    }
    return result;
}

bool Contains(const CString& text, const char* part)
{
    return text.Find(part) >= 0;
}

/// SQLite's own rules, from the first that matches, and dates, which it keeps as texts.
ColumnType DeclaredType(CString declaration)
{
    declaration.MakeUpper();
    if (declaration.IsEmpty())
        return ColumnType::Undeclared;
    if (Contains(declaration, "INT") || Contains(declaration, "BOOL") ||
        declaration.Left(3) == "BIT")
        return ColumnType::Integer;
    if (Contains(declaration, "CHAR") || Contains(declaration, "CLOB") ||
        Contains(declaration, "TEXT"))
        return ColumnType::Character;
    if (Contains(declaration, "BLOB") || Contains(declaration, "BINARY"))
        return ColumnType::Binary;
    if (Contains(declaration, "REAL") || Contains(declaration, "FLOA") ||
        Contains(declaration, "DOUB"))
        return ColumnType::Real;
    if (declaration == "DATE")
        return ColumnType::Date;
    if (Contains(declaration, "DATE") || Contains(declaration, "TIMESTAMP"))
        return ColumnType::Moment;
    return declaration.Left(4) == "TIME" ? ColumnType::TimeOfDay : ColumnType::Decimal;
}

/// Where SQLite describes the table: the functions take a schema too, the list of tables has one
/// for each.
struct SqliteSource {
    CString info;
    CString list;
};

SqliteSource SqliteSourceOf(const TableName& name)
{
    if (name.schema.IsEmpty())
        return {"pragma_table_info(" + Literal(name.name) + ")",
                "(SELECT type,name,sql FROM sqlite_master UNION ALL SELECT type,name,sql FROM "
                "sqlite_temp_master)"};
    return {"pragma_table_info(" + Literal(name.name) + "," + Literal(name.schema) + ")",
            "\"" + name.schema + "\".sqlite_master"};
}

/// Whether its records have a number beside their key: views have none, and some tables.
bool HasRecordNumbers(Connection& connection, const TableName& name, const CString& list)
{
    Statement statement(connection);
    statement.ExecuteDirect("SELECT 1 FROM " + list +
                            " WHERE type='table' AND name=" + Literal(name.name) +
                            " COLLATE NOCASE AND sql NOT LIKE '%WITHOUT%ROWID%'");
    return statement.Fetch();
}

/// Whether the text of a value finds the value again.
bool IsExact(ColumnType type)
{
    return type == ColumnType::Integer || type == ColumnType::Character ||
           type == ColumnType::Date || type == ColumnType::Moment;
}

Table LookUpSqlite(Connection& connection, const TableName& name)
{
    const SqliteSource source = SqliteSourceOf(name);
    Table table;
    bool isExact = true;
    Statement statement(connection);
    statement.ExecuteDirect("SELECT name,type,\"notnull\",pk FROM " + source.info +
                            " ORDER BY pk,cid");
    while (statement.Fetch()) {
        TableColumn column;
        column.name = statement.Text(1);
        column.type = DeclaredType(statement.Text(2));
        const bool isKey = statement.Text(4) != "0";
        column.isNullable = statement.Text(3) == "0" && !isKey;
        if (isKey)
            table.keys.push_back(QuotedName(connection, column.name));
        isExact = isExact && (!isKey || IsExact(column.type));
        table.columns.push_back(column);
    }
    if (isExact && !table.keys.empty())
        return table;
    table.keys.clear();
    if (HasRecordNumbers(connection, name, source.list))
        table.keys.emplace_back("rowid");
    return table;
}

SQLCHAR* OptionalText(const std::string& text)
{
    return text.empty() ? nullptr : OdbcText(text);
}

std::vector<CString> ReadKeys(const Statement& list, SQLUSMALLINT nameColumn)
{
    std::vector<CString> keys;
    while (list.Check(SQLFetch(list.Get())) != SQL_NO_DATA)
        keys.push_back(QuotedName(list.Owner(), list.Text(nameColumn)));
    return keys;
}

/// The primary key, else the columns that a unique index without nulls is about.
Table LookUpByCatalog(Connection& connection, const TableName& name)
{
    constexpr SQLUSMALLINT kPrimaryKeyName = 4;
    constexpr SQLUSMALLINT kSpecialColumnName = 2;
    const std::string schema(name.schema.GetString());
    const std::string text(name.name.GetString());

    Table table;
    Statement primary(connection);
    if (SQL_SUCCEEDED(SQLPrimaryKeys(primary.Get(), nullptr, 0, OptionalText(schema), SQL_NTS,
                                     OdbcText(text), SQL_NTS)))
        table.keys = ReadKeys(primary, kPrimaryKeyName);
    if (!table.keys.empty())
        return table;
    Statement special(connection);
    if (SQL_SUCCEEDED(SQLSpecialColumns(special.Get(), SQL_BEST_ROWID, nullptr, 0,
                                        OptionalText(schema), SQL_NTS, OdbcText(text), SQL_NTS,
                                        SQL_SCOPE_SESSION, SQL_NO_NULLS)))
        table.keys = ReadKeys(special, kSpecialColumnName);
    return table;
}

/// An index from the answer to SHOW KEYS.
struct Index {
    CString name;
    std::vector<CString> columns;
    bool isKey = true; ///< unique and without nulls
};

/// The driver finds no keys of tables whose names are not ASCII.
Table LookUpMySql(Connection& connection, const CString& name)
{
    constexpr SQLUSMALLINT kNonUnique = 2;
    constexpr SQLUSMALLINT kIndexName = 3;
    constexpr SQLUSMALLINT kColumnName = 5;
    constexpr SQLUSMALLINT kNullable = 10;
    std::vector<Index> indexes;
    Statement statement(connection);
    // What is no table has no keys.
    if (!statement.TryExecuteDirect("SHOW KEYS FROM " + name))
        return Table();
    while (statement.Fetch()) {
        const CString indexName = statement.Text(kIndexName);
        if (indexes.empty() || indexes.back().name != indexName)
            indexes.push_back({indexName, {}, true});
        Index& index = indexes.back();
        index.columns.push_back(QuotedName(connection, statement.Text(kColumnName)));
        if (statement.Text(kNonUnique) != "0" || statement.Text(kNullable) == "YES")
            index.isKey = false;
    }
    // The primary key comes first.
    const auto key = std::find_if(indexes.begin(), indexes.end(),
                                  [](const Index& index) { return index.isKey; });
    Table table;
    if (key != indexes.end())
        table.keys = key->columns;
    return table;
}

} // namespace

CString QuotedName(const Connection& connection, const CString& name)
{
    const CString quote = connection.IdentifierQuote();
    if (quote.IsEmpty() || quote == " ")
        return name;
    CString doubled = name;
    doubled.Replace(quote, quote + quote);
    return quote + doubled + quote;
}

Table LookUpTable(Connection& connection, const CString& name)
{
    switch (connection.Kind()) {
    case SourceKind::Sqlite:
        return LookUpSqlite(connection, SplitName(name));
    case SourceKind::MySql:
        return LookUpMySql(connection, name);
    case SourceKind::Other:
        break;
    }
    return LookUpByCatalog(connection, SplitName(name));
}

} // namespace zelrs
