/// Decimals in columns: every place comes back. MariaDB keeps them in DECIMAL columns, SQLite in
/// texts.

#include "tests/recordsets/value_table.h"

#include <random>

namespace {

using namespace zeltest;

const Error kFromRecordSet{1, "DTDECFKT", "ZelDtDecimal",
                           "SetFromRecordSet(CRecordset&,const CString&"};
const Error kToRecordSet{1, "DTDECFKT", "ZelDtDecimal", "ConvToRecordSet(CRecordset&,CString&)"};

/// So many random digits, the first and last of them not 0, with so many places.
std::string RandomNumber(std::mt19937_64& random, int digits, int places)
{
    std::string number;
    for (int i = 0; i < digits; ++i)
        number.push_back(static_cast<char>('1' + random() % 9));
    for (int i = 1; i + 1 < digits; ++i)
        if (random() % 8 == 0)
            number[static_cast<std::size_t>(i)] = '0';
    if (places > 0)
        number.insert(number.size() - static_cast<std::size_t>(places), ".");
    if (number.front() == '.')
        number.insert(0, "0");
    return random() % 2 == 0 ? number : "-" + number;
}

class DecimalColumns : public ValueTable<ZelDtDecimal> {
protected:
    /// The text that the database keeps.
    std::string Kept(long id)
    {
        Set set(m_database);
        set.m_strFilter.Format("ID = %ld", id);
        set.Open();
        return set.IsEOF() ? "no row" : ToText(set.m_value);
    }

    void Insert(long id, const std::string& literal)
    {
        Execute("INSERT INTO WERTE (ID, WERT) VALUES (" + std::to_string(id) + ", " + literal +
                ")");
    }
};

/// 28 digits with each number of places that a decimal has.
TEST_F(DecimalColumns, AllDigitsComeBackWithEachNumberOfPlaces)
{
    MakeValueTable();
    std::mt19937_64 random(20261123);
    ValueRows expected;
    {
        Set set(m_database);
        set.Open();
        for (int places = 0; places <= 27; ++places) {
            for (int i = 0; i < 4; ++i) {
                const long id = static_cast<long>(expected.size());
                expected.push_back({id, RandomNumber(random, 28, places)});
                AddRow(set, id, ZelDtDecimal(expected.back().text->c_str()));
            }
        }
    }
    EXPECT_EQ(CountRows(), 28 * 4);
    EXPECT_EQ(ReadRows(), expected);
    for (const ValueRow& row : expected) {
        EXPECT_EQ(ReadRow(row.id).text, *row.text);
        // The database compares numbers, or texts that stand for them, exactly.
        const std::string literal = IsMariaDb() ? *row.text : "\"" + Kept(row.id) + "\"";
        EXPECT_EQ(CountWhere("WERT = " + literal), 1) << row;
    }
}

TEST_F(DecimalColumns, FewerDigitsComeBackToo)
{
    MakeValueTable();
    std::mt19937_64 random(20261124);
    ValueRows expected;
    Set set(m_database);
    set.Open();
    for (int digits = 1; digits < 28; ++digits) {
        for (int i = 0; i < 4; ++i) {
            const int places = static_cast<int>(random() % static_cast<unsigned>(digits + 1));
            const long id = static_cast<long>(expected.size());
            expected.push_back({id, RandomNumber(random, digits, places)});
            AddRow(set, id, ZelDtDecimal(expected.back().text->c_str()));
        }
    }
    EXPECT_EQ(ReadRows(), expected);
    for (const ValueRow& row : expected)
        EXPECT_EQ(ReadRow(row.id).text, *row.text);
}

TEST_F(DecimalColumns, TextColumnsKeepThePlacesThatWereWritten)
{
    const struct {
        const char* number;
        const char* kept;
        const char* read;
    } rows[] = {{"0", "0.00", "0.00"},
                {"0.0000", "0.00", "0.00"},
                {"5", "5.0", "5.0"},
                {"-100", "-100.0", "-100.0"},
                {"1.50", "1.50", "1.50"},
                {"-0.05", "-0.05", "-0.05"},
                {"19.990", "19.990", "19.990"},
                // no more than 28 digits
                {"9999999999999999999999999999", "9999999999999999999999999999.0",
                 "9999999999999999999999999999"},
                {"0.000000000000000000000000001", "0.000000000000000000000000001",
                 "0.000000000000000000000000001"}};
    MakeValueTable("VARCHAR(58)");
    long id = 0;
    for (const auto& row : rows) {
        WriteRow(++id, ZelDtDecimal(row.number));
        EXPECT_EQ(Kept(id), row.kept);
        EXPECT_EQ(
            CountWhere(std::string("WERT = \"") + row.kept + "\" AND ID = " + std::to_string(id)),
            1);
        Set set(m_database);
        set.m_strFilter.Format("ID = %ld", id);
        set.Open();
        ZelDtDecimal value(99);
        value.SetFromRecordSet(set, set.m_value);
        EXPECT_TRUE(value == ZelDtDecimal(row.number)) << row.number;
        EXPECT_EQ(ToText(value.ConvToSQL()), row.read);
    }
}

/// Numbers below 1 may have up to 36 places, but no more than 28 digits from the first that is not
/// 0.
TEST_F(DecimalColumns, SmallNumbersKeepAllTheirPlacesInTextColumns)
{
    const struct {
        const char* text;
        const char* number;
    } rows[] = {
        {"0.1234567890123456789012345678", "0.1234567890123456789012345678"},
        {"0.12345678901234567890123456789", "0.1234567890123456789012345679"},
        {"0.12345678901234567890123456784", "0.1234567890123456789012345678"},
        {"0.0000000000000000000000000001", "0.0000000000000000000000000001"},
        {"0.000000000000000000000000000000000001", "0.000000000000000000000000000000000001"},
        {"0.000000001234567890123456789012345678", "0.000000001234567890123456789012345678"},
    };
    MakeValueTable("VARCHAR(58)");
    long id = 0;
    for (const auto& row : rows) {
        WriteRow(++id, ZelDtDecimal(row.text));
        EXPECT_EQ(Kept(id), row.number);
        EXPECT_EQ(ReadRow(id).text, row.number);
        // What others wrote with all digits.
        Insert(100 + id, std::string("\"") + row.text + '"');
        EXPECT_EQ(ReadRow(100 + id).text, row.number);
    }
}

TEST_F(DecimalColumns, TheMemberKeepsItsBuffer)
{
    MakeValueTable();
    Set set(m_database);
    set.Open();
    const char* const buffer = set.m_value.GetString();
    EXPECT_GE(set.m_value.GetAllocLength(), Column::kLength + 1);
    long id = 0;
    for (const std::string& text : Column::Samples()) {
        set.BeginRow(++id);
        Column::Make(text).ConvToRecordSet(set, set.m_value);
        EXPECT_EQ(set.m_value.GetString(), buffer);
        EXPECT_TRUE(set.Update());
    }
    EXPECT_EQ(set.m_value.GetString(), buffer);
    EXPECT_GE(set.m_value.GetAllocLength(), Column::kLength + 1);
}

/// SQLite has no such columns.
TEST_F(DecimalColumns, ColumnsOfSoManyPlacesFillThemWithZerosOnMariaDb)
{
    const struct {
        const char* number;
        const char* kept;
    } rows[] = {{"0", "0.0000000000"},
                {"5", "5.0000000000"},
                {"-0.05", "-0.0500000000"},
                {"0.0000000001", "0.0000000001"},
                {"-0.0000000001", "-0.0000000001"},
                {"123456789012345678.9012345678", "123456789012345678.9012345678"},
                {"9999999999999999999999999999", "9999999999999999999999999999.0000000000"},
                {"-9999999999999999999999999999", "-9999999999999999999999999999.0000000000"}};
    MakeValueTable("DECIMAL(38,10)");
    long id = 0;
    for (const auto& row : rows) {
        WriteRow(++id, ZelDtDecimal(row.number));
        EXPECT_EQ(Kept(id), row.kept);
        EXPECT_EQ(ReadRow(id).text, row.number);
    }
}

TEST_F(DecimalColumns, EqualNumbersKeepTheirOwnPlaces)
{
    MakeValueTable();
    Insert(1, "\"1.5000\"");
    Set set(m_database);
    set.Open();
    for (const int modified : {0, 1}) {
        ZelDtDecimal value("1.50");
        value.SetModified(modified);
        value.SetFromRecordSet(set, set.m_value);
        EXPECT_EQ(ToText(value.ConvToSQL()), "1.50");
        EXPECT_EQ(StateOf(value), (State{ZelDtWmMissing, 1, modified}));
    }
    // Undefined, but with the same number: it becomes defined.
    InState<ZelDtDecimal> value(Seen{{ZelDtWmNull, 0, 0}, "1.5"});
    value.it.SetFromRecordSet(set, set.m_value);
    EXPECT_EQ(ToText(value.it.ConvToSQL()), "1.5");
    EXPECT_EQ(StateOf(value.it), (State{ZelDtWmNull, 1, 1}));
}

TEST_F(DecimalColumns, TextsThatOthersWroteAreRead)
{
    const struct {
        const char* text;
        const char* number;
    } rows[] = {{"+7.10", "7.10"}, {".5", "0.5"},
                {"12.", "12"},     {"-2.500", "-2.500"},
                {"007", "7"},      {" 12 ", "12"},
                {"", "0"},         {"-.25", "-0.25"},
                {"0.10", "0.10"},  {"1234567890", "1234567890"}};
    MakeValueTable(TextType(Column::kLength));
    long id = 0;
    for (const auto& row : rows) {
        Insert(++id, std::string("\"") + row.text + "\"");
        Set set(m_database);
        set.m_strFilter.Format("ID = %ld", id);
        set.Open();
        ZelDtDecimal value(99);
        value.SetFromRecordSet(set, set.m_value);
        EXPECT_EQ(Look(value), (Seen{{ZelDtWmMissing, 1, 1}, WithoutLastZeros(row.number)}))
            << row.text;
    }
}

TEST_F(DecimalColumns, NumbersOfTooManyDigitsChangeNothing)
{
    MakeValueTable(TextType(Column::kLength));
    Insert(1, "\"10000000000000000000000000000\"");
    Insert(2, "\"-99999999999999999999999999999.5\"");
    const Error overflow{24, "DTDECIMI", "RWDecimal",
                         "ZelDtDecimalOverflowHandler(RWDecimal96OverflowErr&)"};
    Set set(m_database);
    long count = 0;
    for (set.Open(); !set.IsEOF(); set.MoveNext(), ++count) {
        for (const Seen& before : InEveryState({"0", "2.5"})) {
            InState<ZelDtDecimal> value(before);
            EXPECT_TRUE(FailsWith([&] { value.it.SetFromRecordSet(set, set.m_value); },
                                  kFromRecordSet, overflow));
            EXPECT_EQ(Look(value.it), before);
        }
    }
    EXPECT_EQ(count, 2);
}

TEST_F(DecimalColumns, AmountsBeyondTheColumnAreRefused)
{
    MakeValueTable(IsMariaDb() ? "DECIMAL(15,2)" : "VARCHAR(58) CHECK (CAST(WERT AS REAL) < 1e13)");
    Set set(m_database);
    set.Open();
    AddRow(set, 1, ZelDtDecimal("9999999999999.99"));
    set.BeginRow(2);
    ZelDtDecimal("10000000000000.00").ConvToRecordSet(set, set.m_value);
    EXPECT_TRUE(FailsInDriver([&] { set.Update(); }));
    set.CancelUpdate();
    set.Requery();
    set.Edit();
    ZelDtDecimal("10000000000000.00").ConvToRecordSet(set, set.m_value);
    EXPECT_TRUE(FailsInDriver([&] { set.Update(); }));
    set.Close();
    EXPECT_EQ(ReadRows(), ValueRows({{1, "9999999999999.99"}}));
}

TEST_F(DecimalColumns, ANumberThatTheMemberCannotHoldIsNotCut)
{
    MakeValueTable("VARCHAR(58)");
    TextSet<8> set(m_database);
    set.Open();
    set.BeginRow(1);
    ZelDtDecimal("12345.67").ConvToRecordSet(set, set.m_value);
    EXPECT_TRUE(set.Update());
    set.Requery();
    ASSERT_FALSE(set.IsEOF());
    set.Edit();
    const ZelDtDecimal tooLong("-1234567890123456789012345.67");
    ASSERT_LE(set.m_value.GetAllocLength(), 28);
    EXPECT_TRUE(
        FailsWith([&] { tooLong.ConvToRecordSet(set, set.m_value); }, kToRecordSet,
                  Error{4, "DTDECIMI", "ZelDtDecimal_Imp", "ConvDecToCString ( CString & cStr)"}));
    EXPECT_STREQ(set.m_value.GetString(), "12345.67");
    EXPECT_FALSE(set.Update());
    set.Close();
    EXPECT_EQ(ReadRows(), ValueRows({{1, "12345.67"}}));
}

} // namespace
