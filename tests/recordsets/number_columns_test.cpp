/// Numbers, booleans and spans at the limits of their columns.

#include "tests/recordsets/value_table.h"

#include <climits>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>

namespace {

using namespace zeltest;

// Long

class LongColumns : public ValueTable<ZelDtLong> {};

TEST_F(LongColumns, TheDatabaseHoldsTheNumber)
{
    MakeValueTable();
    long id = 0;
    for (const std::string& text : Column::Samples()) {
        WriteRow(++id, Column::Make(text));
        EXPECT_EQ(CountWhere("WERT = " + text), 1) << text;
    }
}

TEST_F(LongColumns, NumbersBeyond32BitsAreRefused)
{
    MakeValueTable("BIGINT");
    for (const char* text : {"2147483648", "-2147483649", "4294967296", "4294967301",
                             "9223372036854775807", "-9223372036854775808"}) {
        SCOPED_TRACE(text);
        Execute("DELETE FROM WERTE");
        Execute(std::string("INSERT INTO WERTE (ID, WERT) VALUES (1, ") + text + ")");
        Set set(m_database);
        EXPECT_TRUE(FailsInDatabase([&] { set.Open(); }, AFX_SQL_ERROR_DATA_TRUNCATED));
        EXPECT_FALSE(set.IsOpen());
    }
    Execute("DELETE FROM WERTE");
    Execute("INSERT INTO WERTE (ID, WERT) VALUES (1, 2147483647)");
    Execute("INSERT INTO WERTE (ID, WERT) VALUES (2, -2147483648)");
    EXPECT_EQ(ReadRows(), ValueRows({{1, "2147483647"}, {2, "-2147483648"}}));
}

TEST_F(LongColumns, NumbersBeyondTheColumnAreRefused)
{
    MakeValueTable(IsMariaDb() ? "SMALLINT" : "SMALLINT CHECK (WERT BETWEEN -32768 AND 32767)");
    Set set(m_database);
    set.Open();
    AddRow(set, 1, ZelDtLong(32767));
    AddRow(set, 2, ZelDtLong(-32768));
    for (const long number : {32768L, -32769L, 2147483647L, 65536L}) {
        set.BeginRow(3);
        ZelDtLong(number).ConvToRecordSet(set, set.m_value);
        EXPECT_TRUE(FailsInDriver([&] { set.Update(); })) << number;
        set.CancelUpdate();
        set.Requery();
        set.Edit();
        ZelDtLong(number).ConvToRecordSet(set, set.m_value);
        EXPECT_TRUE(FailsInDriver([&] { set.Update(); })) << number;
        set.CancelUpdate();
    }
    EXPECT_EQ(ReadRows(), ValueRows({{1, "32767"}, {2, "-32768"}}));
}

TEST_F(LongColumns, OnlyAnotherNumberMarksModified)
{
    MakeValueTable();
    WriteRow(1, ZelDtLong(5));
    EXPECT_EQ(ReadRow(1, {{ZelDtWmMissing, 1, 0}, "5"}), (Seen{{ZelDtWmMissing, 1, 0}, "5"}));
    EXPECT_EQ(ReadRow(1, {{ZelDtWmMissing, 1, 1}, "5"}), (Seen{{ZelDtWmMissing, 1, 1}, "5"}));
    EXPECT_EQ(ReadRow(1, {{ZelDtWmMissing, 1, 0}, "6"}), (Seen{{ZelDtWmMissing, 1, 1}, "5"}));
}

// Short

class ShortColumns : public ValueTable<ZelDtShort> {};

TEST_F(ShortColumns, TheDatabaseHoldsTheNumber)
{
    MakeValueTable();
    long id = 0;
    for (const std::string& text : Column::Samples()) {
        WriteRow(++id, Column::Make(text));
        EXPECT_EQ(CountWhere("WERT = " + text), 1) << text;
    }
}

TEST_F(ShortColumns, TheLowSixteenBitsOfLargerNumbersAreRead)
{
    const struct {
        const char* column;
        const char* value;
    } rows[] = {
        {"32767", "32767"},   {"32768", "-32768"},  {"65535", "-1"},     {"65536", "0"},
        {"65537", "1"},       {"-32768", "-32768"}, {"-32769", "32767"}, {"-65537", "-1"},
        {"2147483647", "-1"}, {"-2147483648", "0"},
    };
    MakeValueTable("INTEGER");
    long id = 0;
    const Seen before{{ZelDtWmMissing, 1, 0}, "1"};
    for (const auto& row : rows) {
        Execute("INSERT INTO WERTE (ID, WERT) VALUES (" + std::to_string(++id) + ", " + row.column +
                ")");
        EXPECT_EQ(ReadRow(id, before), AfterText(before, row.value)) << row.column;
    }
}

TEST_F(ShortColumns, TheMemberKeepsTheWholeNumberUntilItIsWritten)
{
    MakeValueTable("INTEGER");
    Execute("INSERT INTO WERTE (ID, WERT) VALUES (1, 65537)");
    Set set(m_database);
    set.Open();
    ZelDtShort value;
    value.SetFromRecordSet(set, set.m_value);
    EXPECT_EQ(set.m_value, 65537);
    set.Edit();
    value.ConvToRecordSet(set, set.m_value);
    EXPECT_EQ(set.m_value, 1);
    EXPECT_TRUE(set.Update());
    EXPECT_EQ(CountWhere("WERT = 1"), 1);
}

// Double

class DoubleColumns : public ValueTable<ZelDtDouble> {};

TEST_F(DoubleColumns, EveryBitOfRandomNumbersComesBack)
{
    MakeValueTable();
    std::mt19937_64 random(20261122);
    std::vector<double> numbers;
    {
        Set set(m_database);
        set.Open();
        for (int i = 0; i < 400; ++i) {
            // Half of them of any size, half as amounts are.
            numbers.push_back(i % 2 == 0 ? RandomDouble(random)
                                         : std::ldexp(static_cast<double>(random() >> 11), -40));
            AddRow(set, i, ZelDtDouble(numbers.back()));
        }
    }
    Set set(m_database);
    std::size_t i = 0;
    for (set.Open(); !set.IsEOF(); set.MoveNext(), ++i) {
        ASSERT_LT(i, numbers.size());
        ZelDtDouble value(ZelDtWmNull);
        value.SetFromRecordSet(set, set.m_value);
        const double back = value.GetValue();
        EXPECT_EQ(std::memcmp(&back, &numbers[i], sizeof back), 0)
            << ShowDouble(numbers[i]) << " came back as " << ShowDouble(back);
    }
    EXPECT_EQ(i, numbers.size());
}

TEST_F(DoubleColumns, NeighboursStayDifferent)
{
    MakeValueTable();
    long id = 0;
    for (const double number : {0.1, 1.0, 1e15, 1e-300, 123456.789, 1e22}) {
        const double above = std::nextafter(number, 1e308);
        WriteRow(++id, ZelDtDouble(number));
        WriteRow(++id, ZelDtDouble(above));
        EXPECT_EQ(ReadRow(id - 1).text, ShowDouble(number));
        EXPECT_EQ(ReadRow(id).text, ShowDouble(above));
        EXPECT_EQ(ReadRow(id, {{ZelDtWmMissing, 1, 0}, ShowDouble(number)}),
                  (Seen{{ZelDtWmMissing, 1, 1}, ShowDouble(above)}));
    }
}

TEST_F(DoubleColumns, WhatIsNoNumberIsRefusedOrComesBack)
{
    // Neither NULL nor another number may stand for it.
    MakeValueTable();
    const double infinity = std::numeric_limits<double>::infinity();
    long count = 0;
    for (const double number : {infinity, -infinity, std::nan("")}) {
        Set set(m_database);
        set.Open();
        set.BeginRow(count + 1);
        ZelDtDouble(number).ConvToRecordSet(set, set.m_value);
        bool isWritten = false;
        try {
            isWritten = set.Update();
        } catch (CDBException* e) {
            e->Delete();
        }
        set.Close();
        count += isWritten ? 1 : 0;
        ASSERT_EQ(CountRows(), count) << number;
        if (isWritten) {
            EXPECT_EQ(ReadRow(count).text, ShowDouble(number));
        }
    }
}

TEST_F(DoubleColumns, WholeNumbersOfTheDatabaseAreRead)
{
    MakeValueTable();
    Execute("INSERT INTO WERTE (ID, WERT) VALUES (1, 5)");
    Execute("INSERT INTO WERTE (ID, WERT) VALUES (2, -9007199254740991)");
    Execute("INSERT INTO WERTE (ID, WERT) VALUES (3, 1e300)");
    EXPECT_EQ(ReadRows(), ValueRows({{1, "5"}, {2, "-9007199254740991"}, {3, "1e+300"}}));
}

// Bool

class BoolColumns : public ValueTable<ZelDtBool> {};

TEST_F(BoolColumns, WhatIsNotNoIsWrittenAsYes)
{
    MakeValueTable();
    long id = 0;
    for (const int number : {0, 1, 2, 5, -1, INT_MAX, INT_MIN}) {
        WriteRow(++id, ZelDtBool(number));
        EXPECT_EQ(ReadRow(id), AfterText({{ZelDtWmMissing, 0, 0}, "0"}, number ? "1" : "0"))
            << number;
    }
    EXPECT_EQ(CountWhere("WERT = 0"), 1);
    EXPECT_EQ(CountWhere("WERT = 1"), 6);
}

/// Booleans in members for whole numbers.
class NumberedBools : public NumberedSet {
public:
    explicit NumberedBools(CDatabase& database) : NumberedSet(database) {}
    void DoFieldExchange(CFieldExchange* pFX) override
    {
        NumberedSet::DoFieldExchange(pFX);
        RFX_Int(pFX, "WERT", m_value);
    }

    int m_value = 0;
};

TEST_F(BoolColumns, EveryNumberIsKeptInAColumnForNumbers)
{
    MakeValueTable("INTEGER");
    const std::vector<int> numbers = {0, 1, 2, 5, -1, 255, 256, 65536, INT_MAX, INT_MIN};
    NumberedBools set(m_database);
    set.Open();
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        set.BeginRow(static_cast<long>(i));
        ZelDtBool(numbers[i]).ConvToRecordSet(set, set.m_value);
        EXPECT_TRUE(set.Update());
    }
    set.Requery();
    for (const int number : numbers) {
        ASSERT_FALSE(set.IsEOF());
        ZelDtBool value(ZelDtWmNull);
        value.SetFromRecordSet(set, set.m_value);
        EXPECT_EQ(Look(value), (Seen{{ZelDtWmNull, 1, 1}, std::to_string(number)}));
        EXPECT_TRUE(value == ZelDtBool(number));
        set.MoveNext();
    }
    EXPECT_TRUE(set.IsEOF());
}

// Time

class TimeColumns : public ValueTable<ZelDtTime> {};

TEST_F(TimeColumns, TheColumnHoldsUnitsOfThreeSeconds)
{
    const struct {
        const char* text;
        const char* units;
    } rows[] = {
        {"1:30", "1800"},  {"0,01", "12"},     {"-0:30", "-600"}, {"0:01", "20"},
        {"8", "9600"},     {"-1:15", "-1500"}, {"0:00", "0"},     {"1789568:00", "2147481600"},
        {"-7,75", "-9300"}};
    MakeValueTable();
    long id = 0;
    for (const auto& row : rows) {
        WriteRow(++id, ZelDtTime(row.text));
        EXPECT_EQ(CountWhere("ID = " + std::to_string(id) + " AND WERT = " + row.units), 1)
            << row.text;
    }
}

TEST_F(TimeColumns, ReadingKeepsTheMode)
{
    MakeValueTable();
    WriteRow(1, ZelDtTime("1:30"));
    for (const ZelDtTime::TimeMode mode :
         {ZelDtTime::Hundertstel, ZelDtTime::Minuten, ZelDtTime::Stunden}) {
        Set set(m_database);
        set.Open();
        ZelDtTime value("0", mode);
        value.SetFromRecordSet(set, set.m_value);
        EXPECT_EQ(value.GetMode(), mode);
        EXPECT_EQ(value.GetTime(ZelDtTime::Minuten), 90);
    }
}

TEST_F(TimeColumns, NumbersBeyond32BitsAreRefused)
{
    MakeValueTable("BIGINT");
    Execute("INSERT INTO WERTE (ID, WERT) VALUES (1, 2147483648)");
    Set set(m_database);
    EXPECT_TRUE(FailsInDatabase([&] { set.Open(); }, AFX_SQL_ERROR_DATA_TRUNCATED));
    Execute("UPDATE WERTE SET WERT = 2147483647");
    EXPECT_EQ(ReadRow(1).text, "2147483647");
}

// Columns of other types

template <typename Value>
class OtherColumns : public ValueTable<Value> {
protected:
    /// What a value reads from a column of the type.
    void ExpectRead(const std::string& type, const std::string& literal, const std::string& text)
    {
        this->Commit();
        this->MakeValueTable(type);
        this->Execute("INSERT INTO WERTE (ID, WERT) VALUES (1, " + literal + ")");
        EXPECT_EQ(this->ReadRow(1).text, text) << type;
    }

    /// A column of the type is none for the member.
    void ExpectMismatch(const std::string& type, const std::string& literal)
    {
        this->Commit();
        this->MakeValueTable(type);
        this->Execute("INSERT INTO WERTE (ID, WERT) VALUES (1, " + literal + ")");
        ValueSet<Value> set(this->m_database);
        EXPECT_TRUE(
            FailsInDatabase([&] { set.Open(); }, AFX_SQL_ERROR_FIELD_SCHEMA_MISMATCH, "WERT"))
            << type;
        EXPECT_FALSE(set.IsOpen());
    }
};

class LongFromOtherColumns : public OtherColumns<ZelDtLong> {};
class ShortFromOtherColumns : public OtherColumns<ZelDtShort> {};
class DoubleFromOtherColumns : public OtherColumns<ZelDtDouble> {};
class DecimalFromOtherColumns : public OtherColumns<ZelDtDecimal> {};
class BoolFromOtherColumns : public OtherColumns<ZelDtBool> {};
class StringFromOtherColumns : public OtherColumns<ZelDtString> {};

TEST_F(LongFromOtherColumns, WholeNumbersAreReadAndTextsAreNot)
{
    for (const char* type : {"TINYINT", "SMALLINT", "BIGINT", "DECIMAL(15,0)", "DOUBLE"})
        ExpectRead(type, "-5", "-5");
    ExpectRead("BIGINT", "-2147483648", "-2147483648");
    ExpectMismatch("VARCHAR(10)", "'5'");
    ExpectMismatch("VARCHAR(10)", "'abc'");
}

TEST_F(LongFromOtherColumns, DecimalsAreNotCut)
{
    MakeValueTable("DOUBLE");
    Execute("INSERT INTO WERTE (ID, WERT) VALUES (1, 19.5)");
    Set set(m_database);
    EXPECT_TRUE(FailsInDatabase([&] { set.Open(); }, AFX_SQL_ERROR_DATA_TRUNCATED));
}

TEST_F(ShortFromOtherColumns, WholeNumbersAreReadAndTextsAreNot)
{
    for (const char* type : {"TINYINT", "INTEGER", "BIGINT", "DECIMAL(15,0)", "DOUBLE"})
        ExpectRead(type, "-5", "-5");
    ExpectMismatch("VARCHAR(10)", "'5'");
}

TEST_F(DoubleFromOtherColumns, NumbersAreReadAndTextsAreNot)
{
    for (const char* type : {"DECIMAL(15,2)", "REAL", "NUMERIC(15,2)"})
        ExpectRead(type, "19.99", "19.99");
    for (const char* type : {"TINYINT", "INTEGER", "BIGINT"})
        ExpectRead(type, "-5", "-5");
    ExpectMismatch("VARCHAR(10)", "'19.99'");
}

TEST_F(DecimalFromOtherColumns, NumbersAndTextsAreRead)
{
    for (const char* type : {"DECIMAL(15,2)", "DOUBLE", "NUMERIC(15,2)", "VARCHAR(30)"})
        ExpectRead(type, "19.99", "19.99");
    for (const char* type : {"TINYINT", "INTEGER", "BIGINT"})
        ExpectRead(type, "-5", "-5");
    ExpectRead("BIGINT", "-9223372036854775807", "-9223372036854775807");
}

TEST_F(BoolFromOtherColumns, NumbersAreReadAndTextsAreNot)
{
    for (const char* type : {"TINYINT", "SMALLINT", "INTEGER", "BIGINT", "BIT"}) {
        ExpectRead(type, "1", "1");
        ExpectRead(type, "0", "0");
    }
    ExpectMismatch("VARCHAR(10)", "'1'");
}

TEST_F(StringFromOtherColumns, NumbersAndMomentsAreReadAsTexts)
{
    for (const char* type : {"TINYINT", "INTEGER", "BIGINT", "DECIMAL(15,0)"})
        ExpectRead(type, "-5", "-5");
    ExpectRead("DATETIME", "'2000-03-05 14:07:09'", "2000-03-05 14:07:09");
    ExpectRead("DATE", "'2000-03-05'", "2000-03-05");
}

} // namespace
