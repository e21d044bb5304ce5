#ifndef ZELDT_TESTS_PLATFORM_RECORDSETS_RECORDSETS_TESTING_H
#define ZELDT_TESTS_PLATFORM_RECORDSETS_RECORDSETS_TESTING_H

/// Tables and record sets for the tests of databases.

#include "tests/support/database_testing.h"

#include <chrono>
#include <string>

namespace zeltest {

inline std::string Str(const CString& text)
{
    return std::string(static_cast<LPCTSTR>(text), static_cast<std::size_t>(text.GetLength()));
}

inline CString Cs(const std::string& text)
{
    return CString(text.data(), static_cast<int>(text.size()));
}

inline TIMESTAMP_STRUCT Stamp(int year, int month, int day, int hour = 0, int minute = 0,
                              int second = 0, unsigned fraction = 0)
{
    TIMESTAMP_STRUCT t{};
    t.year = static_cast<SHORT>(year);
    t.month = static_cast<USHORT>(month);
    t.day = static_cast<USHORT>(day);
    t.hour = static_cast<USHORT>(hour);
    t.minute = static_cast<USHORT>(minute);
    t.second = static_cast<USHORT>(second);
    t.fraction = fraction;
    return t;
}

inline bool IsSameStamp(const TIMESTAMP_STRUCT& a, const TIMESTAMP_STRUCT& b)
{
    return a.year == b.year && a.month == b.month && a.day == b.day && a.hour == b.hour &&
           a.minute == b.minute && a.second == b.second && a.fraction == b.fraction;
}

/// How long an action takes; what it throws is lost.
template <typename Action>
double Seconds(Action&& action)
{
    const auto begin = std::chrono::steady_clock::now();
    CatchDb(std::forward<Action>(action));
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

/// Number and name, and a parameter when `m_hasParameter` says so.
class CNames : public CRecordset {
public:
    explicit CNames(CDatabase* database, const char* table = "NAMES")
        : CRecordset(database), m_table(table)
    {
        m_strSort = "ID";
    }

    void DoFieldExchange(CFieldExchange* pFX) override
    {
        pFX->SetFieldType(CFieldExchange::outputColumn);
        RFX_Long(pFX, "ID", m_id);
        RFX_Text(pFX, "NAME", m_name, 40);
        if (m_hasParameter) {
            pFX->SetFieldType(CFieldExchange::param);
            RFX_Long(pFX, "LEAST", m_least);
        }
    }

    CString GetDefaultSQL() override { return m_table; }

    /// The current record as one text.
    std::string Record()
    {
        return std::to_string(m_id) + " " + (IsFieldNull(&m_name) ? kNull : Str(m_name));
    }

    /// The records from the current one to the end.
    std::vector<std::string> Rest()
    {
        std::vector<std::string> records;
        for (; !IsEOF(); MoveNext())
            records.push_back(Record());
        return records;
    }

    long m_id = 0;
    CString m_name;
    bool m_hasParameter = false;
    long m_least = 0;

private:
    CString m_table;
};

/// A database with the table NAMES.
class NamesTest : public DatabaseTest {
protected:
    void SetUp() override
    {
        DatabaseTest::SetUp();
        MakeTable("NAMES", "ID INTEGER NOT NULL PRIMARY KEY, NAME VARCHAR(40)");
    }

    /// Records 1 to `count` with the names n1, n2...
    void Fill(int count)
    {
        m_database.BeginTrans();
        for (int i = 1; i <= count; ++i) {
            const std::string number = std::to_string(i);
            Execute("INSERT INTO NAMES VALUES (" + number + ",'n" + number + "')");
        }
        m_database.CommitTrans();
    }

    /// What others see of the table: "1 n1".
    static std::vector<std::string> Stored()
    {
        OtherConnection other;
        std::vector<std::string> records;
        for (const Row& row : other.Query("SELECT ID, NAME FROM NAMES ORDER BY ID"))
            records.push_back(row[0] + " " + row[1]);
        return records;
    }
};

using Records = std::vector<std::string>;

inline void ExchangeOne(CFieldExchange* pFX, CString& value, int maxLength)
{
    RFX_Text(pFX, "V", value, maxLength);
}
inline void ExchangeOne(CFieldExchange* pFX, int& value, int)
{
    RFX_Int(pFX, "V", value);
}
inline void ExchangeOne(CFieldExchange* pFX, long& value, int)
{
    RFX_Long(pFX, "V", value);
}
inline void ExchangeOne(CFieldExchange* pFX, BYTE& value, int)
{
    RFX_Byte(pFX, "V", value);
}
inline void ExchangeOne(CFieldExchange* pFX, float& value, int)
{
    RFX_Single(pFX, "V", value);
}
inline void ExchangeOne(CFieldExchange* pFX, double& value, int)
{
    RFX_Double(pFX, "V", value);
}
inline void ExchangeOne(CFieldExchange* pFX, COleDateTime& value, int)
{
    RFX_Date(pFX, "V", value);
}
inline void ExchangeOne(CFieldExchange* pFX, TIMESTAMP_STRUCT& value, int)
{
    RFX_Date(pFX, "V", value);
}

/// A truth value, which is an int to the compiler.
struct Truth {
    BOOL value = FALSE;
};
inline void ExchangeOne(CFieldExchange* pFX, Truth& value, int)
{
    RFX_Bool(pFX, "V", value.value);
}

inline const void* AddressOf(const Truth& truth)
{
    return &truth.value;
}
template <typename T>
const void* AddressOf(const T& value)
{
    return &value;
}

/// A number and one value of any type, from the table VALS; with `m_parameter` as parameter.
template <typename T>
class COne : public CRecordset {
public:
    explicit COne(CDatabase* database, int maxLength = 255)
        : CRecordset(database), m_maxLength(maxLength)
    {
        m_strSort = "ID";
    }

    void DoFieldExchange(CFieldExchange* pFX) override
    {
        pFX->SetFieldType(CFieldExchange::outputColumn);
        RFX_Long(pFX, "ID", m_id);
        ExchangeOne(pFX, m_value, m_maxLength);
        if (m_hasParameter) {
            pFX->SetFieldType(CFieldExchange::param);
            ExchangeOne(pFX, m_parameter, m_maxLength);
        }
    }

    CString GetDefaultSQL() override { return "VALS"; }

    bool IsNull() { return IsFieldNull(AddressOf(m_value)) != FALSE; }
    void SetNull() { SetFieldNull(AddressOf(m_value)); }

    /// Adds a record; a null pointer stands for null.
    void Add(long id, const T* value)
    {
        AddNew();
        m_id = id;
        if (value == nullptr) {
            SetNull();
        } else {
            m_value = *value;
            SetFieldNull(AddressOf(m_value), FALSE);
        }
        Update();
    }

    long m_id = 0;
    T m_value{};
    bool m_hasParameter = false;
    T m_parameter{};

private:
    int m_maxLength;
};

/// A database in which tests make the table VALS.
class ValuesTest : public DatabaseTest {
protected:
    void MakeValues(const std::string& type)
    {
        MakeTable("VALS", "ID INTEGER NOT NULL PRIMARY KEY, V " + type);
    }
};

} // namespace zeltest

#endif
