// Record sets with an engine that keeps its records in memory.

#include "tests/platform/framework/recordset_testing.h"

#include <algorithm>
#include <memory>
#include <string>

namespace {

CFieldValue Number(CFieldKind kind, LONGLONG integer)
{
    CFieldValue value;
    value.kind = kind;
    value.isNull = false;
    value.integer = integer;
    return value;
}

CFieldValue Real(CFieldKind kind, double real)
{
    CFieldValue value = Number(kind, 0);
    value.real = real;
    return value;
}

CFieldValue Text(const char* text)
{
    CFieldValue value = Number(CFieldKind::Text, 0);
    value.text = text;
    return value;
}

CFieldValue Time(const TIMESTAMP_STRUCT& time)
{
    CFieldValue value = Number(CFieldKind::Time, 0);
    value.time = time;
    return value;
}

using Record = std::vector<CFieldValue>;

Record MakeRecord(LONGLONG id, const char* name)
{
    return {Number(CFieldKind::Integer, id), Text(name),
            Number(CFieldKind::Integer, 40), Number(CFieldKind::Bool, 1),
            Real(CFieldKind::Double, 1.25),  Real(CFieldKind::Single, 0.1F),
            Number(CFieldKind::Byte, 255),   Time({2000, 2, 29, 12, 30, 15, 0}),
            Time({1, 2, 3, 4, 5, 6, 7})};
}

/// What the engine works on, and what it was told.
struct Table {
    std::vector<Record> records;
    bool isWritable = true;
    LONGLONG rowsPerChange = 1;
    CRecordsetQuery query;
    std::string statement;
    int openEngines = 0;
};

Table* table = nullptr;

class MemoryEngine : public CRecordsetEngine {
public:
    void Open(const CRecordsetQuery& query) override
    {
        table->query = query;
        ++table->openEngines;
        m_isOpen = true;
        m_row = 0;
    }

    void Close() override
    {
        table->openEngines -= m_isOpen ? 1 : 0;
        m_isOpen = false;
    }

    CRecordPosition Move(CRecordMove move, LONGLONG rows) override
    {
        const LONGLONG count = static_cast<LONGLONG>(table->records.size());
        switch (move) {
        case CRecordMove::First:
            m_row = 0;
            break;
        case CRecordMove::Last:
            m_row = count - 1;
            break;
        case CRecordMove::Relative:
            m_row += rows;
            break;
        case CRecordMove::Absolute:
            m_row = rows < 0 ? count + rows : rows - 1;
            break;
        }
        m_row = std::max<LONGLONG>(-1, std::min(m_row, count));
        if (count == 0)
            return CRecordPosition::Empty;
        if (m_row < 0)
            return CRecordPosition::BeforeFirst;
        return m_row < count ? CRecordPosition::OnRecord : CRecordPosition::AfterLast;
    }

    void GetValue(UINT column, CFieldValue& value) override { value = Row().at(column - 1); }
    bool IsNullable(UINT column) override { return column > 1; }
    bool CanAppend() const override { return table->isWritable; }
    bool CanUpdate() const override { return table->isWritable; }
    bool CanScroll() const override { return true; }
    LONG GetRecordCount() const override { return static_cast<LONG>(table->records.size()); }

    LONGLONG Insert(const CFieldChanges& changes) override
    {
        table->statement = std::string("INSERT (") + changes.names.GetString() + ") VALUES (" +
                           changes.markers.GetString() + ")";
        table->records.emplace_back(9);
        Store(table->records.back(), changes);
        return table->rowsPerChange;
    }

    LONGLONG Update(const CFieldChanges& changes) override
    {
        table->statement = std::string("SET ") + changes.markers.GetString();
        EXPECT_EQ(changes.names, "");
        Store(Row(), changes);
        return table->rowsPerChange;
    }

    LONGLONG Delete() override
    {
        table->records.erase(table->records.begin() + m_row);
        return table->rowsPerChange;
    }

private:
    Record& Row() { return table->records.at(static_cast<std::size_t>(m_row)); }

    static void Store(Record& record, const CFieldChanges& changes)
    {
        for (const CFieldTransfer& change : changes.fields)
            record.at(change.ordinal - 1) = change.value;
    }

    bool m_isOpen = false;
    LONGLONG m_row = 0;
};

/// Registers the engine and gives it a table of two records.
class RecordsetWithEngine : public testing::Test {
protected:
    RecordsetWithEngine()
    {
        m_table.records = {MakeRecord(7, "one"), MakeRecord(8, "two")};
        table = &m_table;
        CRecordset::SetEngineFactory([](CRecordset&) -> std::unique_ptr<CRecordsetEngine> {
            return std::make_unique<MemoryEngine>();
        });
    }

    ~RecordsetWithEngine() override
    {
        EXPECT_NE(CRecordset::SetEngineFactory(nullptr), nullptr);
        EXPECT_EQ(m_table.openEngines, 0);
        table = nullptr;
    }

    Table m_table;
};

TEST_F(RecordsetWithEngine, OpenDescribesTheQuery)
{
    CItems items;
    items.m_strFilter = "ID >= ?";
    items.m_strSort = "NAME";
    items.m_least = -5;
    EXPECT_TRUE(items.Open(CRecordset::snapshot, nullptr, CRecordset::readOnly));
    EXPECT_TRUE(items.IsOpen());
    EXPECT_EQ(items.GetSQL(), "ITEMS");
    const CRecordsetQuery& query = m_table.query;
    EXPECT_EQ(query.openType, static_cast<UINT>(CRecordset::snapshot));
    EXPECT_EQ(query.options, static_cast<DWORD>(CRecordset::readOnly));
    EXPECT_EQ(query.sql, "ITEMS");
    EXPECT_EQ(query.filter, "ID >= ?");
    EXPECT_EQ(query.sort, "NAME");
    ASSERT_EQ(query.columns.size(), 9U);
    EXPECT_EQ(query.columns[1].name, "NAME");
    EXPECT_EQ(query.columns[1].kind, CFieldKind::Text);
    EXPECT_EQ(query.columns[1].maxLength, 5);
    EXPECT_EQ(query.columns[1].columnType, 12);
    EXPECT_EQ(query.columns[8].kind, CFieldKind::Time);
    ASSERT_EQ(query.parameters.size(), 1U);
    EXPECT_EQ(query.parameters[0].field.name, "LEAST");
    EXPECT_EQ(query.parameters[0].value.integer, -5);

    items.m_least = 6;
    items.m_strSort = "";
    EXPECT_TRUE(items.Requery());
    EXPECT_EQ(m_table.query.parameters.at(0).value.integer, 6);
    EXPECT_EQ(m_table.query.sort, "");
    EXPECT_EQ(ErrorOf([&] { items.Open(); }), AFX_SQL_ERROR_ILLEGAL_MODE);
    CRecordset nothing;
    EXPECT_EQ(ErrorOf([&] { nothing.Open(); }), AFX_SQL_ERROR_EMPTY_COLUMN_LIST);
}

/// Lists as many of its columns as it is told to.
class CColumns : public CRecordset {
public:
    void DoFieldExchange(CFieldExchange* pFX) override
    {
        pFX->SetFieldType(CFieldExchange::outputColumn);
        RFX_Long(pFX, "ID", m_id);
        if (m_hasName)
            RFX_Text(pFX, "NAME", m_name, 5);
    }

    bool m_hasName = true;
    long m_id = 0;
    CString m_name;
};

TEST_F(RecordsetWithEngine, OpenListsTheFieldsAnew)
{
    CColumns columns;
    columns.Open(AFX_DB_USE_DEFAULT_TYPE, "A");
    EXPECT_EQ(m_table.query.columns.size(), 2U);
    EXPECT_EQ(m_table.query.sql, "A");
    columns.Close();
    EXPECT_FALSE(columns.IsOpen());
    columns.m_hasName = false;
    columns.Open();
    EXPECT_EQ(m_table.query.columns.size(), 1U);
    EXPECT_EQ(m_table.query.sql, "");
    EXPECT_EQ(columns.m_name, "one");
}

TEST_F(RecordsetWithEngine, ReadsRecordsIntoTheMembers)
{
    m_table.records[1][1] = CFieldValue();
    m_table.records[1][7] = CFieldValue();
    CItems items;
    items.Open();
    EXPECT_EQ(items.GetRecordCount(), 2);
    EXPECT_EQ(items.m_id, 7);
    EXPECT_EQ(items.m_name, "one");
    EXPECT_EQ(items.m_age, 40);
    EXPECT_EQ(items.m_active, TRUE);
    EXPECT_EQ(items.m_balance, 1.25);
    EXPECT_EQ(items.m_rate, 0.1F);
    EXPECT_EQ(items.m_level, 255);
    EXPECT_TRUE(items.m_made == COleDateTime(2000, 2, 29, 12, 30, 15));
    EXPECT_TRUE((items.m_changed == TIMESTAMP_STRUCT{1, 2, 3, 4, 5, 6, 7}));
    EXPECT_FALSE(items.IsFieldNull(nullptr));
    EXPECT_FALSE(items.IsFieldNullable(&items.m_id));
    EXPECT_TRUE(items.IsFieldNullable(&items.m_name));

    items.MoveNext();
    EXPECT_EQ(items.m_id, 8);
    EXPECT_EQ(items.m_name, "");
    EXPECT_TRUE(items.IsFieldNull(&items.m_name));
    EXPECT_EQ(items.m_made.GetStatus(), COleDateTime::null);
    EXPECT_TRUE(items.IsFieldNull(&items.m_made));
    EXPECT_FALSE(items.IsFieldNull(&items.m_id));

    items.MoveNext();
    EXPECT_TRUE(items.IsEOF());
    EXPECT_FALSE(items.IsBOF());
    EXPECT_EQ(ErrorOf([&] { items.MoveNext(); }), AFX_SQL_ERROR_NO_CURRENT_RECORD);
    EXPECT_EQ(ErrorOf([&] { items.Edit(); }), AFX_SQL_ERROR_NO_CURRENT_RECORD);
    items.SetAbsolutePosition(-2);
    EXPECT_EQ(items.m_name, "one");
    items.MoveLast();
    EXPECT_EQ(items.m_id, 8);
    items.Move(-2);
    EXPECT_TRUE(items.IsBOF());
    EXPECT_EQ(ErrorOf([&] { items.MovePrev(); }), AFX_SQL_ERROR_NO_CURRENT_RECORD);
}

TEST_F(RecordsetWithEngine, NoRecordsMeansBothEnds)
{
    m_table.records.clear();
    CItems items;
    items.Open();
    EXPECT_TRUE(items.IsBOF());
    EXPECT_TRUE(items.IsEOF());
    EXPECT_EQ(ErrorOf([&] { items.MoveFirst(); }), AFX_SQL_ERROR_NO_CURRENT_RECORD);
    EXPECT_EQ(ErrorOf([&] { items.Delete(); }), AFX_SQL_ERROR_NO_CURRENT_RECORD);
}

struct BadValueRow {
    std::size_t column;
    CFieldValue value;
    int error;
};

TEST_F(RecordsetWithEngine, RefusesValuesThatDoNotFit)
{
    constexpr auto kTruncated = AFX_SQL_ERROR_DATA_TRUNCATED;
    constexpr auto kMismatch = AFX_SQL_ERROR_FIELD_SCHEMA_MISMATCH;
    const BadValueRow rows[] = {
        {0, Number(CFieldKind::Integer, 2147483647), 0},
        {0, Number(CFieldKind::Integer, 2147483648), kTruncated},
        {0, Number(CFieldKind::Integer, -2147483648LL), 0},
        {0, Number(CFieldKind::Integer, -2147483649LL), kTruncated},
        {0, Text("1"), kMismatch},
        {1, Text("12345"), 0},
        {1, Text("123456"), kTruncated},
        {1, Number(CFieldKind::Integer, 1), kMismatch},
        {3, Number(CFieldKind::Bool, 2), kTruncated},
        {5, Real(CFieldKind::Single, 1e39), kTruncated},
        {6, Number(CFieldKind::Byte, 256), kTruncated},
        {6, Number(CFieldKind::Byte, -1), kTruncated},
        {7, Real(CFieldKind::Double, 36526), kMismatch},
    };
    for (const BadValueRow& row : rows) {
        SCOPED_TRACE(testing::Message() << "column " << row.column << ' ' << row.value.integer);
        m_table.records[1] = MakeRecord(8, "two");
        m_table.records[1][row.column] = row.value;
        CItems items;
        items.Open();
        EXPECT_EQ(ErrorOf([&] { items.MoveNext(); }), row.error);
        if (row.error != 0) {
            // Nothing of the record was taken over, and nothing can be written to it.
            EXPECT_EQ(items.m_id, 7);
            EXPECT_EQ(items.m_name, "one");
            EXPECT_EQ(ErrorOf([&] { items.Edit(); }), AFX_SQL_ERROR_NO_CURRENT_RECORD);
        }
    }
    m_table.records[0][1] = Text("123456");
    CItems items;
    EXPECT_EQ(ErrorOf([&] { items.Open(); }), kTruncated);
    EXPECT_FALSE(items.IsOpen());
}

TEST_F(RecordsetWithEngine, UpdateWritesWhatChanged)
{
    CItems items;
    items.Open();
    EXPECT_EQ(ErrorOf([&] { items.Update(); }), AFX_SQL_ERROR_ILLEGAL_MODE);
    items.Edit();
    EXPECT_FALSE(items.Update());
    EXPECT_EQ(m_table.statement, "");

    items.Edit();
    items.m_name = "12345";
    items.SetFieldNull(&items.m_age);
    items.m_active = 5;
    items.m_made = COleDateTime(1999, 12, 31, 23, 59, 58);
    EXPECT_TRUE(items.Update());
    EXPECT_EQ(m_table.statement, "SET NAME=?,AGE=?,ACTIVE=?,MADE=?");
    const Record& record = m_table.records[0];
    EXPECT_EQ(record[1].text, "12345");
    EXPECT_TRUE(record[2].isNull);
    EXPECT_EQ(record[3].integer, 1);
    EXPECT_TRUE((record[7].time == TIMESTAMP_STRUCT{1999, 12, 31, 23, 59, 58, 0}));
    EXPECT_FALSE(items.IsFieldDirty(nullptr));
    EXPECT_EQ(items.m_name, "12345");

    // A date with the status null is written as null; a member that is given a value while it is
    // marked null no longer is.
    items.Edit();
    items.m_made.SetStatus(COleDateTime::null);
    items.m_age = 41;
    EXPECT_TRUE(items.Update());
    EXPECT_EQ(m_table.statement, "SET AGE=?,MADE=?");
    EXPECT_TRUE(record[7].isNull);
    EXPECT_FALSE(record[2].isNull);
    EXPECT_EQ(record[2].integer, 41);
    EXPECT_FALSE(items.IsFieldNull(&items.m_age));
}

TEST_F(RecordsetWithEngine, MovingGivesAChangeUp)
{
    CItems items;
    items.Open();
    items.Edit();
    items.m_name = "x";
    items.MoveNext();
    EXPECT_EQ(ErrorOf([&] { items.Update(); }), AFX_SQL_ERROR_ILLEGAL_MODE);
    items.MoveFirst();
    EXPECT_EQ(items.m_name, "one");
}

TEST_F(RecordsetWithEngine, AddNewWritesWhatWasGiven)
{
    CItems items;
    items.Open();
    items.AddNew();
    EXPECT_FALSE(items.Update());
    items.AddNew();
    items.m_id = 9;
    items.m_name = "new";
    items.SetFieldNull(&items.m_age, FALSE);
    items.SetFieldNull(&items.m_balance, TRUE);
    EXPECT_TRUE(items.Update());
    EXPECT_EQ(m_table.statement, "INSERT (ID,NAME,AGE,BALANCE) VALUES (?,?,?,?)");
    ASSERT_EQ(m_table.records.size(), 3U);
    const Record& record = m_table.records[2];
    EXPECT_EQ(record[0].integer, 9);
    EXPECT_EQ(record[1].text, "new");
    EXPECT_FALSE(record[2].isNull);
    EXPECT_TRUE(record[3].isNull);
    EXPECT_TRUE(record[4].isNull);
    // The record that was current is so again.
    EXPECT_EQ(items.m_id, 7);
    EXPECT_EQ(items.m_name, "one");
    EXPECT_FALSE(items.IsFieldNull(nullptr));
}

TEST_F(RecordsetWithEngine, RefusesToWriteValuesThatDoNotFit)
{
    CItems items;
    items.Open();
    items.Edit();
    items.m_name = "123456";
    EXPECT_EQ(ErrorOf([&] { items.Update(); }), AFX_SQL_ERROR_DATA_TRUNCATED);
    // The change is still begun and can be corrected.
    items.m_name = "12345";
    items.m_made.SetStatus(COleDateTime::invalid);
    EXPECT_EQ(ErrorOf([&] { items.Update(); }), AFX_SQL_ERROR_DATA_TRUNCATED);
    items.m_made = COleDateTime(36526.0);
    if constexpr (sizeof(long) == 8) {
        items.m_id = static_cast<long>(2147483648LL);
        EXPECT_EQ(ErrorOf([&] { items.Update(); }), AFX_SQL_ERROR_DATA_TRUNCATED);
    }
    items.m_id = 2147483647;
    EXPECT_EQ(m_table.statement, "");
    EXPECT_TRUE(items.Update());
    EXPECT_EQ(m_table.records[0][0].integer, 2147483647);
}

TEST_F(RecordsetWithEngine, ExpectsOneChangedRecord)
{
    CItems items;
    items.Open();
    items.Edit();
    items.m_age = 1;
    m_table.rowsPerChange = 0;
    EXPECT_EQ(ErrorOf([&] { items.Update(); }), AFX_SQL_ERROR_NO_ROWS_AFFECTED);
    m_table.rowsPerChange = 2;
    EXPECT_EQ(ErrorOf([&] { items.Update(); }), AFX_SQL_ERROR_MULTIPLE_ROWS_AFFECTED);
    items.CancelUpdate();
    EXPECT_EQ(items.m_age, 40);
}

TEST_F(RecordsetWithEngine, DeleteLeavesNullFields)
{
    CItems items;
    items.Open();
    items.Edit();
    EXPECT_EQ(ErrorOf([&] { items.Delete(); }), AFX_SQL_ERROR_ILLEGAL_MODE);
    items.CancelUpdate();
    items.Delete();
    EXPECT_TRUE(items.IsDeleted());
    EXPECT_TRUE(items.IsFieldNull(&items.m_id));
    EXPECT_EQ(m_table.records.size(), 1U);
    EXPECT_EQ(ErrorOf([&] { items.Delete(); }), AFX_SQL_ERROR_NO_CURRENT_RECORD);
    items.MoveFirst();
    EXPECT_FALSE(items.IsDeleted());
    EXPECT_EQ(items.m_id, 8);
}

TEST_F(RecordsetWithEngine, ReadOnlyRefusesChanges)
{
    m_table.isWritable = false;
    CItems items;
    items.Open();
    EXPECT_FALSE(items.CanUpdate());
    EXPECT_EQ(ErrorOf([&] { items.Edit(); }), AFX_SQL_ERROR_RECORDSET_READONLY);
    EXPECT_EQ(ErrorOf([&] { items.AddNew(); }), AFX_SQL_ERROR_RECORDSET_READONLY);
    EXPECT_EQ(ErrorOf([&] { items.Delete(); }), AFX_SQL_ERROR_RECORDSET_READONLY);
    EXPECT_EQ(items.m_id, 7);
}

} // namespace
