/// The SQL text of every class in statements: taken by the database and read back.

#include "tests/recordsets/value_table.h"

#include <climits>

namespace {

using namespace zeltest;

/// What a statement holds for a value of the class, from its SQL text.
template <typename Value>
struct Literal {
    static std::string Of(const Value& value) { return ToText(value.ConvToSQL()); }
    /// Distinct values that the literal holds in full.
    static std::vector<std::string> Samples() { return ColumnOf<Value>::Samples(); }
};

/// Fifteen digits.
template <>
struct Literal<ZelDtDouble> {
    static std::string Of(const ZelDtDouble& value) { return ToText(value.ConvToSQL()); }
    static std::vector<std::string> Samples()
    {
        return {"0",    "1",      "-1",      "0.5",  "0.1",    "-0.3", "123456789.123456",
                "1e15", "1e+100", "-1e-100", "0.05", "1e-300", "1e20", "999999999999999"};
    }
};

/// SQLite's numbers have fewer digits: there the text is quoted, for its column is one for texts.
template <>
struct Literal<ZelDtDecimal> {
    static std::string Of(const ZelDtDecimal& value)
    {
        const std::string text = ToText(value.ConvToSQL());
        return IsMariaDb() || !value.IsDefined() ? text : "'" + text + "'";
    }
    static std::vector<std::string> Samples() { return ColumnOf<ZelDtDecimal>::Samples(); }
};

/// A moment in German layout, 05.03.2000 14:07 in double quotes, turned into the database's own.
std::string MomentOf(const std::string& text, bool isDate)
{
    if (text == "NULL")
        return text;
    if (IsMariaDb())
        return "STR_TO_DATE(" + text + ", \"%d.%m.%Y %H:%i\")";
    const auto part = [&](const char* range) { return "substr(" + text + ", " + range + ")"; };
    const std::string date =
        part("7, 4") + " || '-' || " + part("4, 2") + " || '-' || " + part("1, 2");
    return isDate ? date : date + " || ' ' || " + part("12, 5") + " || ':00'";
}

/// To the minute.
template <>
struct Literal<ZelDtDateTime> {
    static std::string Of(const ZelDtDateTime& value)
    {
        return MomentOf(ToText(value.ConvToSQL()), false);
    }
    static std::vector<std::string> Samples()
    {
        return {"1900-01-01 00:00:00", "1753-01-01 00:00:00", "1999-12-31 23:59:00",
                "2000-02-29 12:30:00", "2000-03-05 14:07:00", "9999-12-31 23:59:00"};
    }
};

template <>
struct Literal<ZelDtDateZp> {
    static std::string Of(const ZelDtDateZp& value)
    {
        return MomentOf(ToText(value.ConvToSQL()), true);
    }
    static std::vector<std::string> Samples() { return ColumnOf<ZelDtDateZp>::Samples(); }
};

template <typename Value>
class Literals : public ValueTable<Value> {
protected:
    using Lit = Literal<Value>;

    static std::string LiteralOf(const std::string& text)
    {
        return Lit::Of(ColumnOf<Value>::Make(text));
    }

    static std::string Insertion(long id, const std::string& literal)
    {
        return "INSERT INTO WERTE (ID, WERT) VALUES (" + std::to_string(id) + ", " + literal + ")";
    }

    /// A row for each sample, with numbers from 1.
    ValueRows Expected() const
    {
        ValueRows rows;
        for (const std::string& text : Lit::Samples())
            rows.push_back({static_cast<long>(rows.size() + 1),
                            ColumnOf<Value>::Show(ColumnOf<Value>::Make(text))});
        return rows;
    }

    void InsertSamples()
    {
        long id = 0;
        for (const std::string& text : Lit::Samples())
            EXPECT_EQ(this->Execute(Insertion(++id, LiteralOf(text))), 1) << text;
    }
};

TYPED_TEST_SUITE(Literals, ValueClasses, ValueClassNames);

TYPED_TEST(Literals, AreInserted)
{
    this->MakeValueTable();
    this->InsertSamples();
    EXPECT_EQ(this->ReadRows(), this->Expected());
    for (const ValueRow& row : this->Expected())
        EXPECT_EQ(this->ReadRow(row.id).text, *row.text);
}

TYPED_TEST(Literals, AreInsertedByTheStatementAsItIs)
{
    this->MakeValueTable();
    long id = 0;
    for (const std::string& text : Literal<TypeParam>::Samples())
        this->m_database.ExecuteSQL(this->Insertion(++id, this->LiteralOf(text)).c_str());
    EXPECT_EQ(this->ReadRows(), this->Expected());
}

TYPED_TEST(Literals, ChangeRows)
{
    this->MakeValueTable();
    this->Execute(this->Insertion(1, "NULL"));
    this->Execute(this->Insertion(2, "NULL"));
    for (const ValueRow& row : this->Expected()) {
        EXPECT_EQ(this->Execute("UPDATE WERTE SET WERT = " + this->LiteralOf(*row.text) +
                                " WHERE ID = 2"),
                  1);
        EXPECT_EQ(this->ReadRows(), ValueRows({{1, std::nullopt}, {2, row.text}}));
    }
}

TYPED_TEST(Literals, FindTheirRow)
{
    this->MakeValueTable();
    this->InsertSamples();
    this->Execute(this->Insertion(1000, "NULL"));
    for (const ValueRow& row : this->Expected()) {
        const std::string condition = "WERT = " + this->LiteralOf(*row.text);
        EXPECT_EQ(this->CountWhere(condition), 1) << row;
        ValueSet<TypeParam> set(this->m_database);
        set.m_strFilter = ZelRsStandardLiterals(ToCString(condition));
        set.Open();
        ASSERT_FALSE(set.IsEOF()) << row;
        EXPECT_EQ(set.Current(), row);
        set.MoveNext();
        EXPECT_TRUE(set.IsEOF());
    }
}

TYPED_TEST(Literals, DeleteTheirRow)
{
    this->MakeValueTable();
    this->InsertSamples();
    this->Execute(this->Insertion(1000, "NULL"));
    ValueRows left = this->Expected();
    left.push_back({1000, std::nullopt});
    while (left.size() > 1) {
        EXPECT_EQ(
            this->Execute("DELETE FROM WERTE WHERE WERT = " + this->LiteralOf(*left.front().text)),
            1)
            << left.front();
        left.erase(left.begin());
        EXPECT_EQ(this->ReadRows(), left);
    }
}

TYPED_TEST(Literals, OfUndefinedValuesAreNull)
{
    this->MakeValueTable();
    const std::string text = ColumnOf<TypeParam>::Samples()[1];
    long id = 0;
    for (const Seen& seen : InEveryState({ColumnOf<TypeParam>::kEmpty, text})) {
        if (seen.state.defined)
            continue;
        const InState<TypeParam> value(seen);
        EXPECT_EQ(ToText(value.it.ConvToSQL()), "NULL") << seen;
        EXPECT_EQ(this->Execute(this->Insertion(++id, Literal<TypeParam>::Of(value.it))), 1);
        this->m_database.ExecuteSQL(
            this->Insertion(1000 + id, Literal<TypeParam>::Of(value.it)).c_str());
        EXPECT_EQ(Look(value.it), seen);
    }
    EXPECT_EQ(this->CountRows(), 24);
    EXPECT_EQ(this->CountWhere("WERT IS NULL"), 24);
    // A new value that is always defined is none.
    this->Execute(this->Insertion(999, Literal<TypeParam>::Of(TypeParam(ZelDtWmAlwaysDefined))));
    EXPECT_EQ(this->CountWhere("WERT IS NOT NULL"), 1);
    EXPECT_EQ(this->ReadRow(999).text, ColumnOf<TypeParam>::kEmpty);
    EXPECT_EQ(this->Execute("UPDATE WERTE SET WERT = " +
                            Literal<TypeParam>::Of(TypeParam(ZelDtWmMissing)) + " WHERE ID = 999"),
              1);
    EXPECT_EQ(this->CountWhere("WERT IS NULL"), 25);
}

// What single classes write

class DoubleLiterals : public ValueTable<ZelDtDouble> {};

TEST_F(DoubleLiterals, HoldFifteenDigits)
{
    const struct {
        double number;
        const char* literal;
        double back;
    } rows[] = {{1, "1.", 1},
                {0.5, "0.5", 0.5},
                {100, "100.", 100},
                {1e20, "1.e+020", 1e20},
                {-1e20, "-1.e+020", -1e20},
                {0.1 + 0.2, "0.3", 0.3},
                {1.0 / 3, "0.333333333333333", 0.333333333333333},
                {123456789.123456789, "123456789.123457", 123456789.123457},
                {5e-324, "4.94065645841247e-324", 5e-324},
                {1e-10, "1.e-010", 1e-10},
                {0.0, "0.", 0.0}};
    MakeValueTable();
    long id = 0;
    for (const auto& row : rows) {
        const std::string literal = ToText(ZelDtDouble(row.number).ConvToSQL());
        EXPECT_EQ(literal, row.literal);
        EXPECT_EQ(Execute("INSERT INTO WERTE (ID, WERT) VALUES (" + std::to_string(++id) + ", " +
                          literal + ")"),
                  1);
        EXPECT_EQ(ReadRow(id).text, ShowDouble(row.back));
    }
}

class DecimalLiterals : public ValueTable<ZelDtDecimal> {};

TEST_F(DecimalLiterals, OfFifteenDigitsNeedNoQuotesInSqliteEither)
{
    MakeValueTable();
    long id = 0;
    for (const char* text : {"0.5", "19.99", "-0.05", "1234567890.12345", "999999999999999",
                             "100.5", "-123.456", "0.001"}) {
        const std::string literal = ToText(ZelDtDecimal(text).ConvToSQL());
        EXPECT_EQ(literal, text);
        EXPECT_EQ(Execute("INSERT INTO WERTE (ID, WERT) VALUES (" + std::to_string(++id) + ", " +
                          literal + ")"),
                  1);
        EXPECT_EQ(ReadRow(id).text, text);
        EXPECT_EQ(CountWhere("WERT = " + literal), 1);
    }
}

TEST_F(DecimalLiterals, OfAnyLengthKeepEveryDigitWithoutQuotes)
{
    MakeValueTable();
    std::vector<std::string> samples = ColumnOf<ZelDtDecimal>::Samples();
    samples.insert(samples.end(), {"1234567890123456", "-1234567890123456", "0.1234567890123456",
                                   "-0.1234567890123456", "12345678901234567890",
                                   "32766999999999672.33", "-32766999999999672.33"});
    long id = 0;
    for (const std::string& text : samples) {
        const std::string literal = ToText(ZelDtDecimal(text.c_str()).ConvToSQL());
        ++id;
        EXPECT_EQ(Execute("INSERT INTO WERTE (ID, WERT) VALUES (" + std::to_string(id) + ", 0)"),
                  1);
        EXPECT_EQ(Execute("UPDATE WERTE SET WERT=" + literal + " WHERE ID = " + std::to_string(id)),
                  1)
            << text;
        EXPECT_EQ(ReadRow(id).text, text);
    }
}

TEST_F(DecimalLiterals, OfManyDigitsStayNumbersWhereTheyAreComputedWith)
{
    MakeValueTable();
    EXPECT_EQ(Execute("INSERT INTO WERTE (ID, WERT) VALUES (12345678901234567 - "
                      "12345678901234566, 2-1)"),
              1);
    EXPECT_EQ(ReadRow(1).text, "1");
}

class DateLiterals : public ValueTable<ZelDtString> {};

TEST_F(DateLiterals, OfEachLanguageAreTakenByColumnsForTexts)
{
    const ZelDtDateTime moment(5, 3, 2000, 14, 7, 9);
    const struct {
        SQL_Language language;
        std::string literal;
        std::string text;
    } rows[] = {{SQL_Deutsch, "\"05.03.2000 14:07\"", "05.03.2000 14:07"},
                {SQL_Englisch, "\"03.05.2000 14:07\"", "03.05.2000 14:07"}};
    MakeValueTable();
    long id = 0;
    for (const auto& row : rows) {
        const std::string literal = ToText(moment.ConvToSQL(row.language));
        EXPECT_EQ(literal, row.literal);
        EXPECT_EQ(Execute("INSERT INTO WERTE (ID, WERT) VALUES (" + std::to_string(++id) + ", " +
                          literal + ")"),
                  1);
        EXPECT_EQ(ReadRow(id).text, row.text);
        EXPECT_EQ(CountWhere("WERT = " + literal), 1);
    }
    // The others have no quotes of their own: the text of a value has.
    for (const SQL_Language language : {SQL_Ziffern, SQL_DatumUhrzeit, SQL_Datum}) {
        const ZelDtString text = moment.ConvToSQL(language);
        EXPECT_EQ(Execute("INSERT INTO WERTE (ID, WERT) VALUES (" + std::to_string(++id) + ", " +
                          ToText(text.ConvToSQL()) + ")"),
                  1);
        EXPECT_EQ(ReadRow(id).text, ToText(text));
    }
    EXPECT_EQ(ReadRow(3).text, "05032000");
    EXPECT_EQ(ReadRow(4).text, "05.03.2000 14:07:09");
    EXPECT_EQ(ReadRow(5).text, "05.03.2000");
}

class BoolLiterals : public ValueTable<ZelDtBool> {};

TEST_F(BoolLiterals, OfEveryNumberButZeroAreYes)
{
    MakeValueTable();
    long id = 0;
    for (const int number : {0, 1, 2, 5, -1, INT_MAX, INT_MIN}) {
        const std::string literal = ToText(ZelDtBool(number).ConvToSQL());
        EXPECT_EQ(literal, number == 0 ? "\"0\"" : "\"1\"");
        EXPECT_EQ(Execute("INSERT INTO WERTE (ID, WERT) VALUES (" + std::to_string(++id) + ", " +
                          literal + ")"),
                  1);
        EXPECT_EQ(ReadRow(id).text, number == 0 ? "0" : "1");
    }
    EXPECT_EQ(CountWhere("WERT = \"1\""), 6);
}

} // namespace
