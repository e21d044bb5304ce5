#ifndef ZELDT_TESTS_PLATFORM_FRAMEWORK_RECORDSET_TESTING_H
#define ZELDT_TESTS_PLATFORM_FRAMEWORK_RECORDSET_TESTING_H

/// A record set with fields of every type, for the tests of fields and of engines.

#include "platform/framework/framework.h"

#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <vector>

/// One field of every type, and a parameter in the middle.
class CItems : public CRecordset {
public:
    CItems()
    {
        m_nFields = 9;
        m_nParams = 1;
    }

    void DoFieldExchange(CFieldExchange* pFX) override
    {
        pFX->SetFieldType(CFieldExchange::outputColumn);
        RFX_Long(pFX, "ID", m_id);
        RFX_Text(pFX, "NAME", m_name, 5);
        pFX->SetFieldType(CFieldExchange::param);
        RFX_Long(pFX, "LEAST", m_least);
        pFX->SetFieldType(CFieldExchange::outputColumn);
        RFX_Int(pFX, "AGE", m_age);
        RFX_Bool(pFX, "ACTIVE", m_active);
        RFX_Double(pFX, "BALANCE", m_balance);
        RFX_Single(pFX, "RATE", m_rate);
        RFX_Byte(pFX, "LEVEL", m_level);
        RFX_Date(pFX, "MADE", m_made);
        RFX_Date(pFX, "CHANGED", m_changed);
    }

    CString GetDefaultSQL() override { return "ITEMS"; }

    long m_id = 1;
    CString m_name = "abc";
    int m_age = 2;
    BOOL m_active = TRUE;
    double m_balance = 2.5;
    float m_rate = 0.5F;
    BYTE m_level = 3;
    COleDateTime m_made{36526.5};
    TIMESTAMP_STRUCT m_changed{2001, 2, 3, 4, 5, 6, 7};
    long m_least = 0;

    std::vector<const void*> Addresses() const
    {
        return {&m_id,   &m_name,  &m_age,  &m_active, &m_balance,
                &m_rate, &m_level, &m_made, &m_changed};
    }
};

/// The cause of the CDBException that `body` throws, 0 if none.
inline int ErrorOf(const std::function<void()>& body)
{
    try {
        body();
    } catch (CDBException* exception) {
        const int code = exception->m_nRetCode;
        EXPECT_FALSE(exception->m_strError.IsEmpty());
        exception->Delete();
        return code;
    }
    return 0;
}

inline bool operator==(const TIMESTAMP_STRUCT& left, const TIMESTAMP_STRUCT& right)
{
    return std::memcmp(&left, &right, sizeof left) == 0;
}

#endif
