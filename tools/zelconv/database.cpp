#include <platform/recordsets/odbc.h>

#include "tools/zelconv/charset.h"
#include "tools/zelconv/database.h"
#include "tools/zelconv/sqliterows.h"
#include "tools/zelconv/textview.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <optional>

namespace zelconv {

namespace {

char Upper(char character)
{
    return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A')
                                                : character;
}

bool IsSameName(std::string_view a, std::string_view b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char left, char right) { return Upper(left) == Upper(right); });
}

/// How SQLite is reached when only its file is named: by the name under which its driver is
/// registered.
std::string ConnectString(const std::string& connect, Database::Access access)
{
    if (connect.find('=') != std::string::npos)
        return connect;
    if (connect.find_first_of(";{}") != std::string::npos)
        throw Failure("odbc:" + connect + ": such a file name needs a connection string");
    if (access != Database::Access::Create && !std::filesystem::exists(connect))
        throw Failure("odbc:" + connect + ": there is no such file");
    return "Driver=SQLite3;Database=" + connect;
}

/// What stands for the connection in messages: connection strings hold passwords.
std::string PlaceOf(const std::string& connect)
{
    return connect.find('=') == std::string::npos ? "odbc:" + connect : std::string("odbc");
}

// Columns

/// SQLite's own rules, from the first that matches. Dates are texts there.
Content ContentOfDeclaration(std::string typeName)
{
    struct Rule {
        std::string_view part;
        Content content;
    };
    constexpr std::array<Rule, 15> kRules = {{
        {"INT", Content::Whole},
        {"BOOL", Content::Whole},
        {"CHAR", Content::Text},
        {"CLOB", Content::Text},
        {"TEXT", Content::Text},
        {"BLOB", Content::Other},
        {"BINARY", Content::Other},
        {"REAL", Content::Floating},
        {"FLOA", Content::Floating},
        {"DOUB", Content::Floating},
        {"DATETIME", Content::Moment},
        {"TIMESTAMP", Content::Moment},
        {"DATE", Content::Date},
        {"TIME", Content::Other},
        {"", Content::Floating},
    }};
    std::transform(typeName.begin(), typeName.end(), typeName.begin(), &Upper);
    if (typeName.empty())
        return Content::Anything;
    return std::find_if(
               kRules.begin(), kRules.end(),
               [&](const Rule& rule) { return typeName.find(rule.part) != std::string::npos; })
        ->content;
}

Content ContentOf(SQLSMALLINT type)
{
    switch (type) {
    case SQL_BIT:
    case SQL_TINYINT:
    case SQL_SMALLINT:
    case SQL_INTEGER:
    case SQL_BIGINT:
        return Content::Whole;
    case SQL_DECIMAL:
    case SQL_NUMERIC:
        return Content::Decimal;
    case SQL_FLOAT:
    case SQL_DOUBLE:
        return Content::Floating;
    case SQL_REAL:
        return Content::Single;
    case SQL_CHAR:
    case SQL_WCHAR:
        return Content::FixedText;
    case SQL_VARCHAR:
    case SQL_LONGVARCHAR:
    case SQL_WVARCHAR:
    case SQL_WLONGVARCHAR:
        return Content::Text;
    case SQL_TYPE_DATE:
        return Content::Date;
    case SQL_TYPE_TIMESTAMP:
        return Content::Moment;
    default:
        return Content::Other;
    }
}

/// A statement that asks for the columns of tables.
class Catalog {
public:
    Catalog(HDBC connection, Dialect dialect) : m_dialect(dialect)
    {
        Check(SQLAllocHandle(SQL_HANDLE_STMT, connection, &m_statement), SQL_HANDLE_DBC,
              connection);
    }
    ~Catalog() { SQLFreeHandle(SQL_HANDLE_STMT, m_statement); }
    Catalog(const Catalog&) = delete;
    Catalog& operator=(const Catalog&) = delete;

    void AskFor(const TableName& table);
    std::optional<TableColumn> Next(const std::string& table);

private:
    static void Check(SQLRETURN code, SQLSMALLINT type, SQLHANDLE handle);
    std::string Sent(const std::string& ansi) const;
    std::string Text(SQLUSMALLINT column);
    std::size_t Number(SQLUSMALLINT column);

    Dialect m_dialect;
    SQLHSTMT m_statement = nullptr;
};

void Catalog::Check(SQLRETURN code, SQLSMALLINT type, SQLHANDLE handle)
{
    if (SQL_SUCCEEDED(code) || code == SQL_NO_DATA)
        return;
    std::array<SQLCHAR, SQL_SQLSTATE_SIZE + 1> state{};
    std::array<SQLCHAR, 512> text{};
    SQLINTEGER native = 0;
    SQLSMALLINT length = 0;
    SQLGetDiagRec(type, handle, 1, state.data(), &native, text.data(),
                  static_cast<SQLSMALLINT>(text.size()), &length);
    throw Failure("odbc: " + std::string(reinterpret_cast<const char*>(text.data())));
}

std::string Catalog::Sent(const std::string& ansi) const
{
    return m_dialect == Dialect::Sqlite ? Utf8FromAnsi(ansi) : ansi;
}

/// MariaDB calls a catalog what the standard calls a schema; SQLite's driver looks everywhere.
void Catalog::AskFor(const TableName& table)
{
    const std::string schema = Sent(table.Schema());
    const std::string name = Sent(table.Name());
    SQLCHAR* const qualifier = schema.empty() ? nullptr : zelrs::OdbcText(schema);
    SQLCHAR* const inCatalog = m_dialect == Dialect::MariaDb ? qualifier : nullptr;
    SQLCHAR* const inSchema = m_dialect == Dialect::Other ? qualifier : nullptr;
    Check(SQLColumns(m_statement, inCatalog, SQL_NTS, inSchema, SQL_NTS, zelrs::OdbcText(name),
                     SQL_NTS, nullptr, 0),
          SQL_HANDLE_STMT, m_statement);
}

std::string Catalog::Text(SQLUSMALLINT column)
{
    std::array<char, 512> text{};
    SQLLEN length = 0;
    Check(SQLGetData(m_statement, column, SQL_C_CHAR, text.data(), static_cast<SQLLEN>(text.size()),
                     &length),
          SQL_HANDLE_STMT, m_statement);
    if (length == SQL_NULL_DATA)
        return {};
    std::string ansi;
    // Names that code page 1252 lacks are none that could have been asked for.
    const Charset charset = m_dialect == Dialect::Other ? Charset::Ansi1252 : Charset::Utf8;
    const bool good = ToAnsi(charset, text.data(), ansi).status == CharsetResult::Status::Ok;
    return good ? ansi : std::string("?");
}

std::size_t Catalog::Number(SQLUSMALLINT column)
{
    SQLBIGINT number = 0;
    SQLLEN length = 0;
    Check(SQLGetData(m_statement, column, SQL_C_SBIGINT, &number, 0, &length), SQL_HANDLE_STMT,
          m_statement);
    return length == SQL_NULL_DATA || number < 0 ? 0 : static_cast<std::size_t>(number);
}

/// The question takes underscores for any character, so other tables answer too.
std::optional<TableColumn> Catalog::Next(const std::string& table)
{
    constexpr SQLUSMALLINT kTable = 3;
    constexpr SQLUSMALLINT kName = 4;
    constexpr SQLUSMALLINT kType = 5;
    constexpr SQLUSMALLINT kTypeName = 6;
    constexpr SQLUSMALLINT kLength = 7;
    constexpr SQLUSMALLINT kPlaces = 9;
    for (;;) {
        const SQLRETURN code = SQLFetch(m_statement);
        Check(code, SQL_HANDLE_STMT, m_statement);
        if (code == SQL_NO_DATA)
            return std::nullopt;
        if (!IsSameName(Text(kTable), table))
            continue;
        TableColumn column;
        column.name = Text(kName);
        SQLSMALLINT type = 0;
        SQLLEN length = 0;
        Check(SQLGetData(m_statement, kType, SQL_C_SSHORT, &type, 0, &length), SQL_HANDLE_STMT,
              m_statement);
        column.typeName = Text(kTypeName);
        if (m_dialect == Dialect::Sqlite) {
            // It keeps longer texts and numbers than it is told.
            column.content = ContentOfDeclaration(column.typeName);
            return column;
        }
        column.content = ContentOf(type);
        column.length = Number(kLength);
        column.places = Number(kPlaces);
        return column;
    }
}

} // namespace

const TableColumn* FindTableColumn(const std::vector<TableColumn>& columns, std::string_view name)
{
    const auto found = std::find_if(columns.begin(), columns.end(), [&](const TableColumn& column) {
        return IsSameName(column.name, name);
    });
    return found == columns.end() ? nullptr : &*found;
}

std::string InOneLine(std::string text)
{
    std::replace_if(
        text.begin(), text.end(),
        [](char character) { return static_cast<unsigned char>(character) < ' '; }, ' ');
    return text;
}

std::string TakeDriverMessage(CDBException* error)
{
    const std::string text = Utf8FromAnsi(ViewOf(error->m_strError));
    error->Delete();
    return InOneLine(text);
}

Database::Database(const std::string& connect, Access access)
{
    const std::string text = ConnectString(connect, access);
    Open(connect, text, access);
    LearnDialect();
    if (m_dialect != Dialect::Sqlite || access != Access::Read)
        return;
    // Without that its driver reads a whole table into memory.
    m_database.Close();
    Open(connect, text + ";StepAPI=1", access);
}

void Database::Open(const std::string& connect, const std::string& text, Access access)
{
    const DWORD mode = access == Access::Read ? DWORD{CDatabase::openReadOnly} : DWORD{0};
    const SqliteWatch watch;
    OnDatabase(PlaceOf(connect),
               [&] { m_database.OpenEx(text.c_str(), CDatabase::noOdbcDialog | mode); });
    m_sqlite = watch.GetLast();
}

/// SQLite would take a name in double quotes that it does not know for a text, and MariaDB does so
/// with all of them.
void Database::LearnDialect()
{
    const auto ask = [&](SQLUSMALLINT what) {
        std::array<char, 256> text{};
        SQLSMALLINT length = 0;
        SQLGetInfo(m_database.m_hdbc, what, text.data(), static_cast<SQLSMALLINT>(text.size() - 1),
                   &length);
        return std::string(text.data());
    };
    const std::string product = ask(SQL_DBMS_NAME);
    if (product.find("SQLite") != std::string::npos)
        m_dialect = Dialect::Sqlite;
    else if (product.find("MariaDB") != std::string::npos ||
             product.find("MySQL") != std::string::npos)
        m_dialect = Dialect::MariaDb;
    m_quote = m_dialect == Dialect::Other ? ask(SQL_IDENTIFIER_QUOTE_CHAR) : "`";
}

std::vector<TableColumn> Database::ColumnsOf(const TableName& table)
{
    Catalog catalog(m_database.m_hdbc, m_dialect);
    catalog.AskFor(table);
    std::vector<TableColumn> columns;
    while (std::optional<TableColumn> column = catalog.Next(table.Name()))
        columns.push_back(std::move(*column));
    return columns;
}

} // namespace zelconv
