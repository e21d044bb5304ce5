// Rows through the calls of ODBC, from and to buffers.

#include <sql.h>
#include <sqlext.h>

#include "benchmarks/platform/recordsets/contenders.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace zelbench {

namespace {

SQLCHAR* TextOf(const std::string& text)
{
    return const_cast<SQLCHAR*>(reinterpret_cast<const SQLCHAR*>(text.c_str()));
}

/// A connection with one statement; failures end the program.
class Session {
public:
    explicit Session(const std::string& connect)
    {
        SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &m_environment);
        SQLSetEnvAttr(m_environment, SQL_ATTR_ODBC_VERSION,
                      reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
        SQLAllocHandle(SQL_HANDLE_DBC, m_environment, &m_connection);
        Check(SQLDriverConnect(m_connection, nullptr, TextOf(connect), SQL_NTS, nullptr, 0, nullptr,
                               SQL_DRIVER_NOPROMPT),
              SQL_HANDLE_DBC, m_connection);
        SQLAllocHandle(SQL_HANDLE_STMT, m_connection, &m_statement);
    }
    ~Session()
    {
        SQLFreeHandle(SQL_HANDLE_STMT, m_statement);
        SQLDisconnect(m_connection);
        SQLFreeHandle(SQL_HANDLE_DBC, m_connection);
        SQLFreeHandle(SQL_HANDLE_ENV, m_environment);
    }
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    SQLHSTMT Statement() const { return m_statement; }
    SQLHDBC Connection() const { return m_connection; }
    SQLRETURN Check(SQLRETURN code) const { return Check(code, SQL_HANDLE_STMT, m_statement); }

private:
    static SQLRETURN Check(SQLRETURN code, SQLSMALLINT type, SQLHANDLE handle)
    {
        if (SQL_SUCCEEDED(code) || code == SQL_NO_DATA)
            return code;
        std::array<SQLCHAR, 6> state{};
        std::array<SQLCHAR, 512> text{};
        SQLINTEGER native = 0;
        SQLSMALLINT length = 0;
        SQLGetDiagRec(type, handle, 1, state.data(), &native, text.data(), 512, &length);
        std::fprintf(stderr, "bare ODBC: %s\n", reinterpret_cast<const char*>(text.data()));
        std::exit(1);
    }

    SQLHENV m_environment = nullptr;
    SQLHDBC m_connection = nullptr;
    SQLHSTMT m_statement = nullptr;
};

constexpr std::size_t kRows = 500;

/// Room for the values of a column in a block of rows.
template <typename Value>
struct Column {
    std::array<Value, kRows> values{};
    std::array<SQLLEN, kRows> lengths{};
};

template <std::size_t Size>
using TextColumn = Column<std::array<char, Size>>;

struct Block {
    Column<SQLINTEGER> number;
    Column<SQLINTEGER> quantity;
    TextColumn<41> price;
    Column<double> weight;
    TextColumn<121> name;
    TextColumn<5> grade;
    Column<SQL_TIMESTAMP_STRUCT> moment;
    Column<SQLINTEGER> isExpress;
};

template <typename Value>
void Bind(const Session& session, SQLUSMALLINT ordinal, SQLSMALLINT type, Column<Value>& column)
{
    session.Check(SQLBindCol(session.Statement(), ordinal, type, column.values.data(),
                             sizeof(Value), column.lengths.data()));
}

PlainRow PlainOf(const Block& block, std::size_t index)
{
    PlainRow row;
    row.number = block.number.values[index];
    row.quantity = block.quantity.values[index];
    row.price = block.price.values[index].data();
    row.hasWeight = block.weight.lengths[index] != SQL_NULL_DATA;
    row.weight = row.hasWeight ? block.weight.values[index] : 0;
    row.name = block.name.values[index].data();
    row.grade = block.grade.values[index][0];
    const SQL_TIMESTAMP_STRUCT& moment = block.moment.values[index];
    row.year = moment.year;
    row.month = moment.month;
    row.day = moment.day;
    row.hour = moment.hour;
    row.minute = moment.minute;
    row.second = static_cast<int>(moment.second);
    row.isExpress = block.isExpress.values[index] != 0;
    return row;
}

int Read(const std::string& connect, Fingerprint* fingerprint)
{
    const Session session(connect);
    const auto block = std::make_unique<Block>();
    SQLULEN fetched = 0;
    SQLSetStmtAttr(session.Statement(), SQL_ATTR_ROW_ARRAY_SIZE,
                   reinterpret_cast<SQLPOINTER>(kRows), 0);
    SQLSetStmtAttr(session.Statement(), SQL_ATTR_ROWS_FETCHED_PTR, &fetched, 0);
    const std::string sql =
        "SELECT NUMBER,QUANTITY,PRICE,WEIGHT,NAME,GRADE,MOMENT,EXPRESS FROM READING";
    session.Check(SQLExecDirect(session.Statement(), TextOf(sql), SQL_NTS));
    Bind(session, 1, SQL_C_SLONG, block->number);
    Bind(session, 2, SQL_C_SLONG, block->quantity);
    Bind(session, 3, SQL_C_CHAR, block->price);
    Bind(session, 4, SQL_C_DOUBLE, block->weight);
    Bind(session, 5, SQL_C_CHAR, block->name);
    Bind(session, 6, SQL_C_CHAR, block->grade);
    Bind(session, 7, SQL_C_TYPE_TIMESTAMP, block->moment);
    Bind(session, 8, SQL_C_SLONG, block->isExpress);
    int rows = 0;
    while (session.Check(SQLFetch(session.Statement())) != SQL_NO_DATA) {
        rows += static_cast<int>(fetched);
        for (std::size_t i = 0; fingerprint != nullptr && i < fetched; ++i)
            fingerprint->Add(PlainOf(*block, i));
    }
    return rows;
}

/// The parameters of an insertion.
struct Parameters {
    SQLINTEGER number = 0;
    SQLINTEGER quantity = 0;
    std::array<char, 41> price{};
    SQLLEN priceLength = SQL_NTS;
    double weight = 0;
    SQLLEN weightLength = 0;
    std::array<char, 121> name{};
    SQLLEN nameLength = SQL_NTS;
    std::array<char, 2> grade{};
    SQLLEN gradeLength = SQL_NTS;
    SQL_TIMESTAMP_STRUCT moment{};
    SQLINTEGER isExpress = 0;
};

void BindParameters(const Session& session, Parameters& row)
{
    const auto bind = [&](SQLUSMALLINT ordinal, SQLSMALLINT type, SQLSMALLINT columnType,
                          SQLULEN size, void* value, std::size_t room, SQLLEN* length) {
        session.Check(SQLBindParameter(session.Statement(), ordinal, SQL_PARAM_INPUT, type,
                                       columnType, size, 0, value, static_cast<SQLLEN>(room),
                                       length));
    };
    bind(1, SQL_C_SLONG, SQL_INTEGER, 0, &row.number, 0, nullptr);
    bind(2, SQL_C_SLONG, SQL_INTEGER, 0, &row.quantity, 0, nullptr);
    bind(3, SQL_C_CHAR, SQL_VARCHAR, 40, row.price.data(), row.price.size(), &row.priceLength);
    bind(4, SQL_C_DOUBLE, SQL_DOUBLE, 0, &row.weight, 0, &row.weightLength);
    bind(5, SQL_C_CHAR, SQL_VARCHAR, 60, row.name.data(), row.name.size(), &row.nameLength);
    bind(6, SQL_C_CHAR, SQL_VARCHAR, 1, row.grade.data(), row.grade.size(), &row.gradeLength);
    bind(7, SQL_C_TYPE_TIMESTAMP, SQL_TYPE_TIMESTAMP, 19, &row.moment, 0, nullptr);
    bind(8, SQL_C_SLONG, SQL_INTEGER, 0, &row.isExpress, 0, nullptr);
}

void SetParameters(Parameters& parameters, const PlainRow& row)
{
    parameters.number = row.number;
    parameters.quantity = row.quantity;
    std::memcpy(parameters.price.data(), row.price.c_str(), row.price.size() + 1);
    parameters.weight = row.weight;
    parameters.weightLength = row.hasWeight ? 0 : SQL_NULL_DATA;
    std::memcpy(parameters.name.data(), row.name.c_str(), row.name.size() + 1);
    parameters.grade[0] = row.grade;
    parameters.moment.year = static_cast<SQLSMALLINT>(row.year);
    parameters.moment.month = static_cast<SQLUSMALLINT>(row.month);
    parameters.moment.day = static_cast<SQLUSMALLINT>(row.day);
    parameters.moment.hour = static_cast<SQLUSMALLINT>(row.hour);
    parameters.moment.minute = static_cast<SQLUSMALLINT>(row.minute);
    parameters.moment.second = static_cast<SQLUSMALLINT>(row.second);
    parameters.isExpress = row.isExpress ? 1 : 0;
}

void Write(const std::string& connect, int rows)
{
    const Session session(connect);
    SQLSetConnectAttr(session.Connection(), SQL_ATTR_AUTOCOMMIT,
                      reinterpret_cast<SQLPOINTER>(SQL_AUTOCOMMIT_OFF), 0);
    const std::string sql = "INSERT INTO WRITING (NUMBER,QUANTITY,PRICE,WEIGHT,NAME,GRADE,MOMENT,"
                            "EXPRESS) VALUES (?,?,?,?,?,?,?,?)";
    session.Check(SQLPrepare(session.Statement(), TextOf(sql), SQL_NTS));
    Parameters parameters;
    BindParameters(session, parameters);
    for (int number = 1; number <= rows; ++number) {
        SetParameters(parameters, MakeRow(number));
        session.Check(SQLExecute(session.Statement()));
    }
    SQLEndTran(SQL_HANDLE_DBC, session.Connection(), SQL_COMMIT);
}

} // namespace

const Contender kBareOdbc = {"bare", &Read, &Write};

void Execute(const std::string& connect, const std::string& sql)
{
    const Session session(connect);
    session.Check(SQLExecDirect(session.Statement(), TextOf(sql), SQL_NTS));
}

} // namespace zelbench
