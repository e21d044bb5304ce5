// Columns of every type in fields of every kind: what is written is what is stored and read again.

#include "tests/platform/recordsets/recordsets_testing.h"

#include <bit>
#include <cfloat>
#include <climits>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>

using namespace zeltest;

namespace {

constexpr RETCODE kTruncated = AFX_SQL_ERROR_DATA_TRUNCATED;
constexpr RETCODE kMismatch = AFX_SQL_ERROR_FIELD_SCHEMA_MISMATCH;

bool IsSame(const TIMESTAMP_STRUCT& a, const TIMESTAMP_STRUCT& b)
{
    return IsSameStamp(a, b);
}
bool IsSame(const COleDateTime& a, const COleDateTime& b)
{
    return a.m_status == b.m_status && a.m_dt == b.m_dt;
}
bool IsSame(const Truth& a, const Truth& b)
{
    return a.value == b.value;
}
template <typename T>
bool IsSame(const T& a, const T& b)
{
    return a == b;
}

class Columns : public ValuesTest {
protected:
    /// Writes the values and null through a record set, and reads them with another.
    template <typename T>
    void ExpectKept(const std::string& type, const std::vector<T>& values)
    {
        SCOPED_TRACE(type);
        MakeValues(type);
        COne<T> writer(&m_database);
        writer.Open();
        m_database.BeginTrans();
        long id = 0;
        for (const T& value : values)
            writer.Add(++id, &value);
        writer.Add(++id, nullptr);
        m_database.CommitTrans();
        writer.Close();

        const UINT kTypes[] = {CRecordset::forwardOnly, CRecordset::snapshot, CRecordset::dynaset};
        for (const UINT openType : kTypes) {
            COne<T> reader(&m_database);
            reader.Open(openType);
            for (std::size_t i = 0; i < values.size(); ++i) {
                ASSERT_FALSE(reader.IsEOF());
                EXPECT_EQ(reader.m_id, static_cast<long>(i) + 1);
                EXPECT_FALSE(reader.IsNull()) << "value " << i;
                EXPECT_TRUE(IsSame(reader.m_value, values[i])) << "value " << i;
                reader.MoveNext();
            }
            ASSERT_FALSE(reader.IsEOF());
            EXPECT_TRUE(reader.IsNull());
            reader.MoveNext();
            EXPECT_TRUE(reader.IsEOF());
        }
    }

    /// Lets the database itself store a value and reads it.
    template <typename T>
    void Read(const std::string& type, const std::string& literal, COne<T>& reader)
    {
        MakeValues(type);
        Execute("INSERT INTO VALS VALUES (1," + literal + ")");
        reader.Open();
    }

    template <typename T>
    void ExpectRead(const std::string& type, const std::string& literal, const T& expected)
    {
        SCOPED_TRACE(type + " " + literal);
        COne<T> reader(&m_database);
        Read(type, literal, reader);
        EXPECT_FALSE(reader.IsNull());
        EXPECT_TRUE(IsSame(reader.m_value, expected));
    }

    template <typename T>
    void ExpectRefused(const std::string& type, const std::string& literal, RETCODE code)
    {
        SCOPED_TRACE(type + " " + literal);
        COne<T> reader(&m_database);
        EXPECT_TRUE(FailsInDatabase([&] { Read(type, literal, reader); }, code));
        EXPECT_FALSE(reader.IsOpen());
    }

    /// What a record set cannot keep it refuses; what it does not refuse it keeps.
    template <typename T>
    void ExpectKeptOrRefused(const std::string& type, const T& value)
    {
        SCOPED_TRACE(type);
        MakeValues(type);
        COne<T> writer(&m_database);
        writer.Open();
        const CaughtDb caught = CatchDb([&] { writer.Add(1, &value); });
        if (caught.isDb())
            return;
        COne<T> reader(&m_database);
        reader.Open();
        EXPECT_TRUE(IsSame(reader.m_value, value));
    }
};

template <typename T>
T RandomReal(std::mt19937_64& random)
{
    using Bits = std::conditional_t<sizeof(T) == 4, std::uint32_t, std::uint64_t>;
    for (;;) {
        const T value = std::bit_cast<T>(static_cast<Bits>(random()));
        if (std::isnormal(value))
            return value;
    }
}

} // namespace

TEST_F(Columns, KeepIntegers)
{
    const std::vector<int> kInts = {0, 1, -1, 42, INT_MAX, INT_MAX - 1, INT_MIN, INT_MIN + 1};
    ExpectKept<int>("INTEGER", kInts);
    ExpectKept<int>("BIGINT", kInts);
    ExpectKept<long>("INTEGER", {0, 1, -1, 42, INT_MAX, -INT_MAX, INT_MIN});
    ExpectKept<int>("SMALLINT", {0, 32767, -32768});
    ExpectKept<BYTE>("SMALLINT", {0, 1, 127, 128, 254, 255});
    ExpectKept<BYTE>(ByDatabase("TINYINT", "TINYINT UNSIGNED"), {0, 1, 127, 128, 254, 255});
}

TEST_F(Columns, KeepTruth)
{
    for (const char* type : {"BOOLEAN", "INTEGER", "SMALLINT"})
        ExpectKept<Truth>(type, {{FALSE}, {TRUE}});
    if (!IsSqlite())
        ExpectKept<Truth>("BIT(1)", {{FALSE}, {TRUE}});
    // True is one in the database, whatever it was in the program.
    MakeValues("INTEGER");
    COne<Truth> writer(&m_database);
    writer.Open();
    const Truth true7{7};
    writer.Add(1, &true7);
    EXPECT_EQ(OtherConnection().QueryOne("SELECT V FROM VALS"), "1");
}

TEST_F(Columns, RefuseIntegersBeyondTheField)
{
    for (const char* big : {"2147483648", "-2147483649", "4294967296", "4294967297",
                            "9223372036854775807", "-9223372036854775808"}) {
        ExpectRefused<int>("BIGINT", big, kTruncated);
        ExpectRefused<long>("BIGINT", big, kTruncated);
        ExpectRefused<BYTE>("BIGINT", big, kTruncated);
        ExpectRefused<Truth>("BIGINT", big, kTruncated);
    }
    if (!IsSqlite()) {
        ExpectRefused<int>("INTEGER UNSIGNED", "4294967295", kTruncated);
        ExpectRefused<int>("BIGINT UNSIGNED", "18446744073709551615", kTruncated);
        ExpectRefused<BYTE>("BIGINT UNSIGNED", "18446744073709551615", kTruncated);
        ExpectRead<int>("BIGINT UNSIGNED", "2147483647", 2147483647);
    }
    for (const char* noByte : {"256", "-1", "257", "2147483647"})
        ExpectRefused<BYTE>("INTEGER", noByte, kTruncated);
    for (const char* noTruth : {"2", "-1", "256"})
        ExpectRefused<Truth>("INTEGER", noTruth, kTruncated);
}

TEST_F(Columns, NeverCutFractions)
{
    const auto expectRefused = [&](const std::string& type) {
        COne<int> reader(&m_database);
        const CaughtDb caught = CatchDb([&] { Read(type, "1.5", reader); });
        EXPECT_TRUE(caught.isDb()) << type << ": " << caught;
        EXPECT_TRUE(caught.code == kTruncated || caught.code == kMismatch) << caught;
    };
    expectRefused("DOUBLE");
    expectRefused("DECIMAL(10,2)");
}

TEST_F(Columns, KeepDoublesToTheLastBit)
{
    ExpectKept<double>("DOUBLE", {0.0,
                                  1.0,
                                  -1.0,
                                  0.1,
                                  -0.1,
                                  1.0 / 3,
                                  2.0 / 3,
                                  1e15,
                                  1e16,
                                  1e17,
                                  9007199254740991.0,
                                  9007199254740992.0,
                                  9007199254740994.0,
                                  123456789.123456789,
                                  1e22,
                                  1e23,
                                  1e-7,
                                  5e-5,
                                  DBL_MAX,
                                  -DBL_MAX,
                                  DBL_MIN,
                                  DBL_EPSILON,
                                  1 + DBL_EPSILON,
                                  0.30000000000000004});
    std::mt19937_64 random(20261);
    std::vector<double> values;
    for (int i = 0; i < 1000; ++i)
        values.push_back(RandomReal<double>(random));
    ExpectKept<double>("DOUBLE", values);
}

TEST_F(Columns, KeepSinglesToTheLastBit)
{
    ExpectKept<float>("FLOAT", {0.0F, 1.0F, -1.0F, 0.1F, 1.0F / 3, 16777215.0F, 16777216.0F,
                                FLT_MAX, -FLT_MAX, FLT_MIN, 1 + FLT_EPSILON, 1234567.9F});
    ExpectKept<float>("DOUBLE", {0.1F, FLT_MAX, FLT_MIN, 16777215.0F});
    std::mt19937_64 random(20262);
    std::vector<float> values;
    for (int i = 0; i < 1000; ++i)
        values.push_back(RandomReal<float>(random));
    ExpectKept<float>("FLOAT", values);
}

TEST_F(Columns, BringNumbersToRealFields)
{
    ExpectRead<double>("INTEGER", "2147483647", 2147483647.0);
    ExpectRead<double>("BIGINT", "-4294967297", -4294967297.0);
    ExpectRead<double>("DECIMAL(10,2)", "12345678.25", 12345678.25);
    ExpectRead<float>("INTEGER", "16777215", 16777215.0F);
    ExpectRead<float>("DOUBLE", "0.1", 0.1F);
}

TEST_F(Columns, RefuseNumbersBeyondSingles)
{
    for (const char* big : {"1e39", "-1e39", "1e308"})
        ExpectRefused<float>("DOUBLE", big, kTruncated);
}

TEST_F(Columns, DoNotTurnInfinityIntoSomethingElse)
{
    const double kInfinity = std::numeric_limits<double>::infinity();
    ExpectKeptOrRefused<double>("DOUBLE", kInfinity);
    ExpectKeptOrRefused<double>("DOUBLE", -kInfinity);

    MakeValues("DOUBLE");
    COne<double> writer(&m_database);
    writer.Open();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    if (!CatchDb([&] { writer.Add(1, &nan); }).isDb()) {
        COne<double> reader(&m_database);
        reader.Open();
        EXPECT_FALSE(reader.IsNull());
        EXPECT_TRUE(std::isnan(reader.m_value));
    }
}

TEST_F(Columns, KeepDates)
{
    ExpectKept<TIMESTAMP_STRUCT>(
        "DATETIME", {Stamp(1753, 1, 1), Stamp(1899, 12, 30), Stamp(2000, 2, 29, 12, 30, 15),
                     Stamp(1999, 12, 31, 23, 59, 59), Stamp(9999, 12, 31, 23, 59, 59)});
    ExpectKept<COleDateTime>(
        "DATETIME", {COleDateTime(1753, 1, 1, 0, 0, 0), COleDateTime(2000, 2, 29, 12, 30, 15),
                     COleDateTime(1899, 12, 30, 0, 0, 0), COleDateTime(9999, 12, 31, 23, 59, 59)});
    ExpectKept<TIMESTAMP_STRUCT>("DATE",
                                 {Stamp(1753, 1, 1), Stamp(2000, 2, 29), Stamp(9999, 12, 31)});
    ExpectKept<TIMESTAMP_STRUCT>("DATETIME(6)", {Stamp(2001, 2, 3, 4, 5, 6, 123000000),
                                                 Stamp(2001, 2, 3, 4, 5, 6, 1000000),
                                                 Stamp(2001, 2, 3, 4, 5, 6, 999000000)});
}

TEST_F(Columns, NeverCutSeconds)
{
    ExpectKeptOrRefused("DATETIME(6)", Stamp(2001, 2, 3, 4, 5, 6, 123456000));
    // MariaDB itself rounds what a column of six digits cannot hold.
    if (IsSqlite())
        ExpectKeptOrRefused("DATETIME(6)", Stamp(2001, 2, 3, 4, 5, 6, 123456789));
}

TEST_F(Columns, StoreDatesAsOthersWriteThem)
{
    MakeValues("DATETIME");
    COne<TIMESTAMP_STRUCT> writer(&m_database);
    writer.Open();
    const TIMESTAMP_STRUCT moment = Stamp(2000, 2, 9, 1, 2, 3);
    writer.Add(1, &moment);
    OtherConnection other;
    EXPECT_EQ(other.QueryOne("SELECT SUBSTR(CAST(V AS CHAR),1,19) FROM VALS"),
              "2000-02-09 01:02:03");
    other.Execute("UPDATE VALS SET V='1987-06-05 04:03:02'");
    writer.Requery();
    EXPECT_TRUE(IsSameStamp(writer.m_value, Stamp(1987, 6, 5, 4, 3, 2)));
}

TEST_F(Columns, GiveNullDatesTheirStatus)
{
    MakeValues("DATETIME");
    Execute("INSERT INTO VALS VALUES (1,NULL)");
    COne<COleDateTime> dates(&m_database);
    dates.Open();
    EXPECT_TRUE(dates.IsNull());
    EXPECT_EQ(dates.m_value.m_status, COleDateTime::null);

    COleDateTime none;
    none.m_status = COleDateTime::null;
    dates.Add(2, &none);
    COleDateTime invalid;
    invalid.m_status = COleDateTime::invalid;
    EXPECT_TRUE(FailsInDatabase([&] { dates.Add(3, &invalid); }, kTruncated));
    EXPECT_EQ(OtherConnection().Query("SELECT ID, V FROM VALS ORDER BY ID"),
              (Rows{{"1", kNull}, {"2", kNull}}));
}

TEST_F(Columns, TellMismatchesWhenOpening)
{
    const char* const kText = "VARCHAR(20)";
    ExpectRefused<int>(kText, "'abc'", kMismatch);
    ExpectRefused<int>(kText, "'12'", kMismatch);
    ExpectRefused<long>(kText, "'12'", kMismatch);
    ExpectRefused<BYTE>(kText, "'12'", kMismatch);
    ExpectRefused<Truth>(kText, "'1'", kMismatch);
    ExpectRefused<float>(kText, "'1.5'", kMismatch);
    ExpectRefused<double>(kText, "'1.5'", kMismatch);
    ExpectRefused<TIMESTAMP_STRUCT>("INTEGER", "20000101", kMismatch);
    ExpectRefused<COleDateTime>("DOUBLE", "36526.5", kMismatch);
    ExpectRefused<int>("DATETIME", "'2000-01-01 00:00:00'", kMismatch);
    ExpectRefused<double>("DATE", "'2000-01-01'", kMismatch);
}

TEST_F(Columns, OfTextsMayHoldDates)
{
    ExpectRead<TIMESTAMP_STRUCT>("VARCHAR(30)", "'2000-02-29'", Stamp(2000, 2, 29));
    ExpectRead<TIMESTAMP_STRUCT>("VARCHAR(30)", "'2000-02-29 01:02:03'",
                                 Stamp(2000, 2, 29, 1, 2, 3));
    for (const char* noDate : {"''", "'gestern'", "'2001-02-29'", "'29.2.2000'", "'2000-02-29x'",
                               "'2000-13-01'", "'2000-01-01 25:00:00'", "'20000101'"}) {
        COne<TIMESTAMP_STRUCT> reader(&m_database);
        const CaughtDb caught = CatchDb([&] { Read("VARCHAR(30)", noDate, reader); });
        EXPECT_TRUE(caught.isDb()) << noDate << ": " << caught;
    }
}

TEST_F(Columns, TellMismatchesOfEmptyTables)
{
    MakeValues("VARCHAR(20)");
    COne<int> numbers(&m_database);
    EXPECT_TRUE(FailsInDatabase([&] { numbers.Open(); }, kMismatch));
    EXPECT_FALSE(numbers.IsOpen());
    COne<CString> texts(&m_database);
    EXPECT_TRUE(texts.Open());
}

/// Only SQLite stores texts in columns of numbers.
TEST_F(Columns, RefuseWhatOnlyPretendsToBeOfTheTypeOnSqlite)
{
    const auto expectRefused = [&](const CaughtDb& caught) {
        EXPECT_TRUE(caught.isDb()) << caught;
        EXPECT_TRUE(caught.code == kMismatch || caught.code == kTruncated) << caught;
    };
    COne<int> numbers(&m_database);
    expectRefused(CatchDb([&] { Read("INTEGER", "'abc'", numbers); }));
    COne<double> reals(&m_database);
    expectRefused(CatchDb([&] { Read("DOUBLE", "'1.5x'", reals); }));
    COne<TIMESTAMP_STRUCT> stamps(&m_database);
    expectRefused(CatchDb([&] { Read("DATETIME", "'gestern'", stamps); }));
    COne<COleDateTime> dates(&m_database);
    expectRefused(CatchDb([&] { Read("DATETIME", "'2001-02-30 00:00:00'", dates); }));
}

TEST_F(Columns, ShowNumbersAsTexts)
{
    ExpectRead<CString>("INTEGER", "-42", "-42");
    ExpectRead<CString>("BIGINT", "9223372036854775807", "9223372036854775807");
    // SQLite has no exact numbers; texts keep them there.
    ExpectRead<CString>(
        ByDatabase("TEXT", "DECIMAL(28,10)"),
        ByDatabase("'123456789012345678.0123456789'", "123456789012345678.0123456789"),
        "123456789012345678.0123456789");
}

TEST_F(Columns, KeepExactNumbersAsTexts)
{
    ExpectKept<CString>(ByDatabase("TEXT", "DECIMAL(28,4)"),
                        {"123456789012345678901234.5678", "-123456789012345678901234.5678",
                         "0.0001", "-0.0001", "1.0000", "999999999999999999999999.9999"});
}

TEST_F(Columns, OfATableMayBeMoreThanFields)
{
    MakeTable("VALS", "EXTRA VARCHAR(5) DEFAULT 'x', V INTEGER, "
                      "ID INTEGER NOT NULL PRIMARY KEY, MORE DATETIME");
    COne<int> set(&m_database);
    set.Open();
    const int value = 5;
    set.Add(1, &value);
    set.Requery();
    EXPECT_EQ(set.m_id, 1);
    EXPECT_EQ(set.m_value, 5);
    EXPECT_EQ(OtherConnection().Query("SELECT * FROM VALS"), (Rows{{"x", "5", "1", kNull}}));
}

TEST_F(Columns, OfAQueryMustNotBeFewerThanFields)
{
    MakeValues("INTEGER");
    COne<int> set(&m_database);
    set.m_strSort = "";
    EXPECT_TRUE(FailsInDatabase([&] { set.Open(AFX_DB_USE_DEFAULT_TYPE, "SELECT ID FROM VALS"); },
                                kMismatch));
    EXPECT_FALSE(set.IsOpen());
    EXPECT_TRUE(set.Open());
}

TEST_F(Columns, SayWhetherTheyCanBeNull)
{
    MakeTable("NAMES", "ID INTEGER NOT NULL PRIMARY KEY, NAME VARCHAR(40) NOT NULL");
    CNames names(&m_database);
    names.Open();
    EXPECT_FALSE(names.IsFieldNullable(&names.m_name));
    names.Close();
    MakeTable("NAMES", "ID INTEGER NOT NULL PRIMARY KEY, NAME VARCHAR(40)");
    names.Open();
    EXPECT_TRUE(names.IsFieldNullable(&names.m_name));
}

TEST_F(Columns, ThatAreMissingAreTheDatabasesError)
{
    MakeTable("VALS", "ID INTEGER NOT NULL PRIMARY KEY, W INTEGER");
    COne<int> set(&m_database);
    EXPECT_TRUE(FailsInDriver([&] { set.Open(); }, "V", ByDatabase(1, 1054)));
    EXPECT_FALSE(set.IsOpen());
}
