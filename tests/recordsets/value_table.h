#ifndef ZELDT_TESTS_RECORDSETS_VALUE_TABLE_H
#define ZELDT_TESTS_RECORDSETS_VALUE_TABLE_H

/// A table with numbered values of one class, and what the tests do with it.
///
///     class Longs : public ValueTable<ZelDtLong> {};
///
///     MakeValueTable();
///     WriteRow(1, ZelDtLong(5));
///     EXPECT_EQ(ReadRows(), ValueRows({{1, "5"}}));
///     EXPECT_EQ(CountWhere("WERT = 5"), 1);

#include "platform/recordsets/literals.h"
#include "tests/recordsets/value_columns.h"

#include <optional>

namespace zeltest {

/// What HEX() shows of a text: the bytes of code page 1252 in MariaDB, UTF-8 in SQLite.
inline std::string HexInDatabase(const std::string& text)
{
    // Units of the bytes 0x80 to 0x9F; the five that code page 1252 leaves out stand for
    // themselves.
    static constexpr unsigned kUnits[32] = {
        0x20AC, 0x81,   0x201A, 0x192,  0x201E, 0x2026, 0x2020, 0x2021, 0x2C6,  0x2030, 0x160,
        0x2039, 0x152,  0x8D,   0x17D,  0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
        0x2013, 0x2014, 0x2DC,  0x2122, 0x161,  0x203A, 0x153,  0x9D,   0x17E,  0x178};
    std::string hex;
    const auto append = [&hex](unsigned value) {
        char two[3];
        std::snprintf(two, sizeof two, "%02X", value);
        hex += two;
    };
    for (const char c : text) {
        const unsigned code = static_cast<unsigned char>(c);
        const unsigned unit = code >= 0x80 && code < 0xA0 ? kUnits[code - 0x80] : code;
        if (IsMariaDb() || unit < 0x80) {
            append(code);
        } else if (unit < 0x800) {
            append(0xC0 | unit >> 6);
            append(0x80 | (unit & 0x3F));
        } else {
            append(0xE0 | unit >> 12);
            append(0x80 | (unit >> 6 & 0x3F));
            append(0x80 | (unit & 0x3F));
        }
    }
    return hex;
}

/// The five bytes that code page 1252 leaves out, which a database may keep as it likes.
inline bool IsLeftOut(char c)
{
    return std::string("\x81\x8D\x8F\x90\x9D").find(c) != std::string::npos;
}

/// What a row holds: its number and the text of its value, none for NULL.
struct ValueRow {
    long id = 0;
    std::optional<std::string> text;

    friend bool operator==(const ValueRow&, const ValueRow&) = default;
    friend std::ostream& operator<<(std::ostream& os, const ValueRow& row)
    {
        return os << row.id << ": " << (row.text ? ::testing::PrintToString(*row.text) : "NULL");
    }
};

using ValueRows = std::vector<ValueRow>;

/// The rows of WERTE by number; a derived class adds its columns.
class NumberedSet : public CRecordset {
public:
    explicit NumberedSet(CDatabase& database, UINT columns = 1) : CRecordset(&database)
    {
        m_nFields = 1 + columns;
        m_strSort = "ID";
    }
    CString GetDefaultSQL() override { return "WERTE"; }
    void DoFieldExchange(CFieldExchange* pFX) override
    {
        pFX->SetFieldType(CFieldExchange::outputColumn);
        RFX_Long(pFX, "ID", m_id);
    }

    void BeginRow(long id)
    {
        AddNew();
        m_id = id;
        // Of 0 the record set would not know that it is meant.
        SetFieldNull(&m_id, FALSE);
    }

    long m_id = 0;
};

/// The value in a member as ColumnOf says.
template <typename Value>
class ValueSet : public NumberedSet {
public:
    explicit ValueSet(CDatabase& database) : NumberedSet(database) {}
    void DoFieldExchange(CFieldExchange* pFX) override
    {
        NumberedSet::DoFieldExchange(pFX);
        ColumnOf<Value>::Exchange(pFX, "WERT", m_value);
    }

    /// What the current row holds, read from the members.
    ValueRow Current()
    {
        if (IsFieldNull(&m_value))
            return {m_id, std::nullopt};
        return {m_id, ColumnOf<Value>::ShowField(m_value)};
    }

    typename ColumnOf<Value>::Field m_value{};
};

/// The value in a member for texts of at most so many bytes.
template <int Length>
class TextSet : public NumberedSet {
public:
    explicit TextSet(CDatabase& database) : NumberedSet(database) {}
    void DoFieldExchange(CFieldExchange* pFX) override
    {
        NumberedSet::DoFieldExchange(pFX);
        RFX_Text(pFX, "WERT", m_value, Length);
    }

    CString m_value;
};

/// One number of a statement.
class NumberSet : public CRecordset {
public:
    explicit NumberSet(CDatabase& database) : CRecordset(&database) { m_nFields = 1; }
    void DoFieldExchange(CFieldExchange* pFX) override
    {
        pFX->SetFieldType(CFieldExchange::outputColumn);
        RFX_Long(pFX, "ANZAHL", m_number);
    }

    long m_number = -1;
};

/// Tables and statements. What a test does after it made its tables is one transaction, which saves
/// time.
class TableTest : public DatabaseTest {
protected:
    void MakeTable(const std::string& name, const std::string& columns)
    {
        DatabaseTest::MakeTable(name, columns);
        ASSERT_TRUE(m_database.BeginTrans());
        m_isWriting = true;
    }

    /// Lets other connections see what was written.
    void Commit()
    {
        if (m_isWriting)
            m_database.CommitTrans();
        m_isWriting = false;
    }

    void TearDown() override
    {
        Commit();
        DatabaseTest::TearDown();
    }

    /// A statement with literals in double quotes; how many rows it changed.
    LONGLONG Execute(const std::string& sql) { return ZelRsExecute(m_database, ToCString(sql)); }

    long CountFrom(const std::string& source)
    {
        NumberSet set(m_database);
        const CString sql =
            ZelRsStandardLiterals(ToCString("SELECT COUNT(*) AS ANZAHL FROM " + source));
        set.Open(CRecordset::forwardOnly, sql, CRecordset::readOnly);
        return set.m_number;
    }

    /// Rows of WERTE that fulfil a condition.
    long CountWhere(const std::string& condition) { return CountFrom("WERTE WHERE " + condition); }
    long CountRows() { return CountFrom("WERTE"); }

private:
    bool m_isWriting = false;
};

/// For suites that run with every class.
using ValueClasses =
    ::testing::Types<ZelDtLong, ZelDtShort, ZelDtDouble, ZelDtDecimal, ZelDtBool, ZelDtString,
                     ZelDtChar, ZelDtDateTime, ZelDtDateZp, ZelDtTime>;

struct ValueClassNames {
    template <typename Value>
    static std::string GetName(int)
    {
        return Value::GetThisClass()->m_lpszClassName;
    }
};

/// The table WERTE with numbered values of one class.
template <typename Value>
class ValueTable : public TableTest {
protected:
    using Column = ColumnOf<Value>;
    using Set = ValueSet<Value>;

    void MakeValueTable(const std::string& type = Column::Type())
    {
        MakeTable("WERTE", "ID INTEGER NOT NULL PRIMARY KEY, WERT " + type);
    }

    /// Adds a row through a record set that is open.
    static void AddRow(Set& set, long id, const Value& value)
    {
        set.BeginRow(id);
        value.ConvToRecordSet(set, set.m_value);
        EXPECT_TRUE(set.Update());
    }

    void WriteRow(long id, const Value& value)
    {
        Set set(m_database);
        set.Open();
        AddRow(set, id, value);
    }

    /// What the members of a record set show.
    ValueRows ReadRows()
    {
        ValueRows rows;
        Set set(m_database);
        for (set.Open(); !set.IsEOF(); set.MoveNext())
            rows.push_back(set.Current());
        return rows;
    }

    /// A value that stores `text` after it read the row.
    Seen ReadRow(long id, const Seen& before = {{ZelDtWmMissing, 0, 0}, Column::kEmpty})
    {
        Set set(m_database);
        set.m_strFilter.Format("ID = %ld", id);
        set.Open();
        InState<Value> value(before);
        if (set.IsEOF())
            ADD_FAILURE() << "there is no row " << id;
        else
            value.it.SetFromRecordSet(set, set.m_value);
        return Look(value.it);
    }
};

} // namespace zeltest

#endif
