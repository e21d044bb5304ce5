// Record sets without a database: marks and exchange of the fields alone.

#include "tests/platform/framework/recordset_testing.h"

#include <limits>

namespace {

TEST(FieldNullMarks, AreKeptPerField)
{
    CItems items;
    const auto addresses = items.Addresses();
    for (const void* marked : addresses) {
        items.SetFieldNull(marked);
        for (const void* field : addresses)
            EXPECT_EQ(items.IsFieldNull(field), field == marked ? TRUE : FALSE);
        EXPECT_TRUE(items.IsFieldNull(nullptr));
        items.SetFieldNull(marked, FALSE);
        EXPECT_FALSE(items.IsFieldNull(marked));
        EXPECT_FALSE(items.IsFieldNull(nullptr));
    }
}

TEST(FieldNullMarks, LeaveTheMembersAlone)
{
    CItems items;
    items.SetFieldNull(nullptr);
    EXPECT_EQ(items.m_id, 1);
    EXPECT_EQ(items.m_name, "abc");
    EXPECT_EQ(items.m_balance, 2.5);
    EXPECT_EQ(items.m_made.m_dt, 36526.5);
    EXPECT_EQ(items.m_made.GetStatus(), COleDateTime::valid);
    EXPECT_EQ(items.m_changed.fraction, 7U);
}

TEST(FieldNullMarks, NullPointerMeansAllColumns)
{
    CItems items;
    items.SetFieldNull(nullptr);
    for (const void* field : items.Addresses())
        EXPECT_TRUE(items.IsFieldNull(field));
    items.SetFieldNull(nullptr, FALSE);
    for (const void* field : items.Addresses())
        EXPECT_FALSE(items.IsFieldNull(field));
}

TEST(FieldMarks, RejectAddressesThatAreNoColumns)
{
    CItems items;
    const long elsewhere = 0;
    for (const void* address :
         {static_cast<const void*>(&elsewhere), static_cast<const void*>(&items.m_least),
          static_cast<const void*>(&items.m_nFields)}) {
        EXPECT_EQ(ErrorOf([&] { items.IsFieldNull(address); }), ZELFW_SQL_ERROR_NO_SUCH_FIELD);
        EXPECT_EQ(ErrorOf([&] { items.SetFieldNull(address); }), ZELFW_SQL_ERROR_NO_SUCH_FIELD);
        EXPECT_EQ(ErrorOf([&] { items.IsFieldDirty(address); }), ZELFW_SQL_ERROR_NO_SUCH_FIELD);
        EXPECT_EQ(ErrorOf([&] { items.SetFieldDirty(address); }), ZELFW_SQL_ERROR_NO_SUCH_FIELD);
        EXPECT_EQ(ErrorOf([&] { items.IsFieldNullable(address); }), ZELFW_SQL_ERROR_NO_SUCH_FIELD);
    }
    EXPECT_FALSE(items.IsFieldNull(nullptr));
    EXPECT_FALSE(items.IsFieldDirty(nullptr));
}

TEST(FieldMarks, EveryFieldIsNullableWithoutADatabase)
{
    CItems items;
    EXPECT_TRUE(items.IsFieldNullable(&items.m_id));
    EXPECT_TRUE(items.IsFieldNullable(nullptr));
}

TEST(FieldMarks, NeedTheDeclaredNumberOfFields)
{
    CItems fields;
    fields.m_nFields = 8;
    EXPECT_EQ(ErrorOf([&] { fields.IsFieldNull(nullptr); }), AFX_SQL_ERROR_FIELD_SCHEMA_MISMATCH);
    CItems parameters;
    parameters.m_nParams = 2;
    EXPECT_EQ(ErrorOf([&] { parameters.AddNew(); }), AFX_SQL_ERROR_FIELD_SCHEMA_MISMATCH);
}

class CUntyped : public CRecordset {
public:
    void DoFieldExchange(CFieldExchange* pFX) override { RFX_Int(pFX, "A", m_a); }
    int m_a = 0;
};

TEST(FieldMarks, NeedAFieldType)
{
    CUntyped untyped;
    EXPECT_EQ(ErrorOf([&] { untyped.SetFieldNull(&untyped.m_a); }), AFX_SQL_ERROR_ILLEGAL_MODE);
}

TEST(FieldMarks, ARecordSetWithoutFieldsHasNone)
{
    CRecordset nothing;
    EXPECT_FALSE(nothing.IsFieldNull(nullptr));
    EXPECT_EQ(ErrorOf([&] { nothing.IsFieldNull(&nothing); }), ZELFW_SQL_ERROR_NO_SUCH_FIELD);
}

TEST(TextBuffer, HasRoomForTheFieldAndStays)
{
    CItems items;
    items.SetFieldNull(&items.m_name, FALSE);
    EXPECT_EQ(items.m_name, "abc");
    EXPECT_GE(items.m_name.GetAllocLength(), 6);
    const char* buffer = items.m_name;
    items.AddNew();
    EXPECT_EQ(items.m_name, "");
    std::memcpy(items.m_name.GetBuffer(5), "vwxyz", 6);
    items.m_name.ReleaseBuffer();
    items.CancelUpdate();
    EXPECT_EQ(items.m_name, "abc");
    EXPECT_EQ(static_cast<const char*>(items.m_name), buffer);
}

class CText : public CRecordset {
public:
    explicit CText(int maxLength) : m_maxLength(maxLength) {}
    void DoFieldExchange(CFieldExchange* pFX) override
    {
        pFX->SetFieldType(CFieldExchange::outputColumn);
        RFX_Text(pFX, "T", m_text, m_maxLength);
    }
    CString m_text;
    int m_maxLength;
};

TEST(TextBuffer, NeedsASensibleLength)
{
    for (const int length :
         {0, -1, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        CText text(length);
        EXPECT_EQ(ErrorOf([&] { text.AddNew(); }), AFX_SQL_ERROR_FIELD_SCHEMA_MISMATCH);
    }
    CText shortest(1);
    EXPECT_EQ(ErrorOf([&] { shortest.AddNew(); }), 0);
}

TEST(AddNewFields, AreEmptyAndNullUntilCancelled)
{
    CItems items;
    items.SetFieldNull(&items.m_age);
    items.AddNew();
    for (const void* field : items.Addresses()) {
        EXPECT_TRUE(items.IsFieldNull(field));
        EXPECT_FALSE(items.IsFieldDirty(field));
    }
    EXPECT_EQ(items.m_id, 0);
    EXPECT_EQ(items.m_name, "");
    EXPECT_EQ(items.m_active, FALSE);
    EXPECT_EQ(items.m_balance, 0);
    EXPECT_EQ(items.m_rate, 0);
    EXPECT_EQ(items.m_level, 0);
    EXPECT_EQ(items.m_made.GetStatus(), COleDateTime::null);
    EXPECT_TRUE(items.m_changed == TIMESTAMP_STRUCT{});

    items.m_id = 77;
    items.m_name = "a much longer text";
    // A second beginning gives the first one up.
    items.AddNew();
    items.CancelUpdate();
    EXPECT_EQ(items.m_id, 1);
    EXPECT_EQ(items.m_name, "abc");
    EXPECT_EQ(items.m_rate, 0.5F);
    EXPECT_EQ(items.m_level, 3);
    EXPECT_EQ(items.m_made.m_dt, 36526.5);
    EXPECT_EQ(items.m_made.GetStatus(), COleDateTime::valid);
    EXPECT_TRUE((items.m_changed == TIMESTAMP_STRUCT{2001, 2, 3, 4, 5, 6, 7}));
    EXPECT_TRUE(items.IsFieldNull(&items.m_age));
    EXPECT_FALSE(items.IsFieldNull(&items.m_id));
}

TEST(DirtyMarks, OfANewRecordFollowWhatItWasGiven)
{
    CItems items;
    items.AddNew();
    items.m_id = 5;
    EXPECT_TRUE(items.IsFieldDirty(&items.m_id));
    // The value alone cannot tell that 0 was meant.
    items.m_age = 0;
    EXPECT_FALSE(items.IsFieldDirty(&items.m_age));
    items.SetFieldNull(&items.m_age, FALSE);
    EXPECT_TRUE(items.IsFieldDirty(&items.m_age));
    items.SetFieldNull(&items.m_name, TRUE);
    EXPECT_TRUE(items.IsFieldDirty(&items.m_name));
    EXPECT_FALSE(items.IsFieldDirty(&items.m_balance));
    EXPECT_TRUE(items.IsFieldDirty(nullptr));
    items.AddNew();
    EXPECT_FALSE(items.IsFieldDirty(nullptr));
}

TEST(DirtyMarks, OfAFieldThatStaysNullAreNotSet)
{
    CItems items;
    items.SetFieldNull(&items.m_age);
    items.Edit();
    items.m_age = 5;
    EXPECT_TRUE(items.IsFieldDirty(&items.m_age));
    items.SetFieldNull(&items.m_age);
    EXPECT_FALSE(items.IsFieldDirty(&items.m_age));
}

TEST(DirtyMarks, OfAChangedRecordFollowValueAndNullMark)
{
    CItems items;
    EXPECT_FALSE(items.IsFieldDirty(nullptr));
    items.Edit();
    EXPECT_FALSE(items.IsFieldDirty(nullptr));
    items.m_name = "abd";
    EXPECT_TRUE(items.IsFieldDirty(&items.m_name));
    items.m_name = "abc";
    EXPECT_FALSE(items.IsFieldDirty(&items.m_name));
    items.SetFieldNull(&items.m_age);
    EXPECT_TRUE(items.IsFieldDirty(&items.m_age));
    items.SetFieldNull(&items.m_age, FALSE);
    EXPECT_FALSE(items.IsFieldDirty(&items.m_age));
    items.m_changed.fraction = 8;
    EXPECT_TRUE(items.IsFieldDirty(&items.m_changed));
    items.m_made.SetStatus(COleDateTime::null);
    EXPECT_TRUE(items.IsFieldDirty(&items.m_made));
    items.m_balance = std::numeric_limits<double>::quiet_NaN();
    EXPECT_TRUE(items.IsFieldDirty(&items.m_balance));
    items.Edit();
    EXPECT_FALSE(items.IsFieldDirty(nullptr));
    EXPECT_EQ(items.m_balance, 2.5);
}

TEST(DirtyMarks, SetByHandComeBeforeTheComparison)
{
    CItems items;
    items.Edit();
    items.SetFieldDirty(&items.m_id);
    items.m_age = 99;
    items.SetFieldDirty(&items.m_age, FALSE);
    EXPECT_TRUE(items.IsFieldDirty(&items.m_id));
    EXPECT_FALSE(items.IsFieldDirty(&items.m_age));
    items.SetFieldDirty(nullptr);
    for (const void* field : items.Addresses())
        EXPECT_TRUE(items.IsFieldDirty(field));
    items.CancelUpdate();
    EXPECT_FALSE(items.IsFieldDirty(nullptr));
}

TEST(WithoutDatabase, CallsThatNeedOneSaySo)
{
    CItems items;
    items.Edit();
    items.m_id = 5;
    const std::function<void()> calls[] = {
        [&] { items.Open(); },      [&] { items.Requery(); },
        [&] { items.Update(); },    [&] { items.Delete(); },
        [&] { items.MoveFirst(); }, [&] { items.MoveLast(); },
        [&] { items.MoveNext(); },  [&] { items.MovePrev(); },
        [&] { items.Move(3); },     [&] { items.SetAbsolutePosition(1); },
        [&] { items.CanAppend(); }, [&] { items.CanUpdate(); },
        [&] { items.CanScroll(); }, [&] { items.CanRestart(); },
    };
    for (const auto& call : calls) {
        items.Edit();
        EXPECT_EQ(ErrorOf(call), ZELFW_SQL_ERROR_NO_DATABASE);
    }
    EXPECT_EQ(ErrorOf([&] { items.Open(); }), ZELFW_SQL_ERROR_NO_DATABASE);
    // Nothing of a change that was begun is lost by that.
    items.m_age = 99;
    items.Edit();
    EXPECT_EQ(items.m_age, 2);
    EXPECT_FALSE(items.IsOpen());
    EXPECT_TRUE(items.IsBOF());
    EXPECT_TRUE(items.IsEOF());
    EXPECT_EQ(items.GetRecordCount(), 0);
    items.Close();
    EXPECT_EQ(ErrorOf([&] { items.Update(); }), AFX_SQL_ERROR_ILLEGAL_MODE);
}

TEST(DatabaseException, CarriesCauseAndTexts)
{
    try {
        AfxThrowDBException(-1, "no such table", "State:S0002,Native:208,Origin:x");
    } catch (CException* exception) {
        auto* error = DYNAMIC_DOWNCAST(CDBException, exception);
        ASSERT_NE(error, nullptr);
        EXPECT_EQ(error->m_nRetCode, -1);
        EXPECT_EQ(error->m_strError, "no such table");
        EXPECT_EQ(error->m_strStateNativeOrigin, "State:S0002,Native:208,Origin:x");
        char text[8];
        EXPECT_TRUE(error->GetErrorMessage(text, sizeof text));
        EXPECT_STREQ(text, "no such");
        error->Delete();
    }
}

} // namespace
