/// SQL, external and record set forms of the integer classes.

#include "tests/numeric/integer_testing.h"

#include "text/DTSTRING.h"

#include <string>
#include <vector>

namespace {

using namespace zeltest;

template <typename V>
std::vector<int> Samples()
{
    return {0, 7, -12, kMax<V>, kMin<V>};
}

std::string TextOf(const ZelDtString& text)
{
    return static_cast<const char*>(text);
}

// SQL

ZEL_INTEGER_SUITE(Sql);

TYPED_TEST(Sql, IsTheDigitsOrNull)
{
    using V = TypeParam;
    for (const Number& number : Numbers(Samples<V>())) {
        const Given<V> given(number);
        const ZelDtString sql = given.it.ConvToSQL();
        EXPECT_EQ(TextOf(sql), number.state.defined ? std::to_string(number.value) : "NULL")
            << number;
        EXPECT_EQ(sql.IsDefined(), 1) << number;
        EXPECT_EQ(Look(given.it), number);
    }
}

TEST(SqlOfLongs, OfKnownNumbers)
{
    EXPECT_EQ(TextOf(ZelDtLong(0).ConvToSQL()), "0");
    EXPECT_EQ(TextOf(ZelDtLong(-5).ConvToSQL()), "-5");
    EXPECT_EQ(TextOf(ZelDtLong(1234567).ConvToSQL()), "1234567");
    EXPECT_EQ(TextOf(ZelDtLong(2147483647).ConvToSQL()), "2147483647");
    EXPECT_EQ(TextOf(ZelDtLong(kMin<ZelDtLong>).ConvToSQL()), "-2147483648");
    EXPECT_EQ(TextOf(ZelDtLong(ZelDtWmMissing).ConvToSQL()), "NULL");
    EXPECT_EQ(TextOf(ZelDtLong(ZelDtWmNull).ConvToSQL()), "NULL");
    EXPECT_EQ(TextOf(ZelDtLong(ZelDtWmAlwaysDefined).ConvToSQL()), "0");
}

TEST(SqlOfShorts, OfKnownNumbers)
{
    EXPECT_EQ(TextOf(ZelDtShort(0).ConvToSQL()), "0");
    EXPECT_EQ(TextOf(ZelDtShort(-5).ConvToSQL()), "-5");
    EXPECT_EQ(TextOf(ZelDtShort(12345).ConvToSQL()), "12345");
    EXPECT_EQ(TextOf(ZelDtShort(32767).ConvToSQL()), "32767");
    EXPECT_EQ(TextOf(ZelDtShort(-32768).ConvToSQL()), "-32768");
    EXPECT_EQ(TextOf(ZelDtShort(ZelDtWmMissing).ConvToSQL()), "NULL");
    EXPECT_EQ(TextOf(ZelDtShort(ZelDtWmNull).ConvToSQL()), "NULL");
    EXPECT_EQ(TextOf(ZelDtShort(ZelDtWmAlwaysDefined).ConvToSQL()), "0");
}

// External text

template <typename V>
Error FromExternError(unsigned long number)
{
    return ClassError<V>(number, "SetFromExtern(ZelDtString*,BOOL,USHORT)");
}

ZEL_INTEGER_SUITE(ExternalText);

TYPED_TEST(ExternalText, IsTheStoredNumberWithFlagAndVersion)
{
    using V = TypeParam;
    for (const Number& number : Numbers(Samples<V>())) {
        const Given<V> given(number);
        const bool hasText = number.state.defined || !Facts<V>::kUndefinedHasNoExternalText;
        for (const int before : {-1, 0, 1}) {
            int defined = before;
            unsigned short version = 4711;
            const ZelDtString text = given.it.ConvToExtern(defined, version);
            EXPECT_EQ(TextOf(text), hasText ? std::to_string(number.value) : "") << number;
            EXPECT_EQ(text.IsDefined(), hasText ? 1 : 0) << number;
            EXPECT_EQ(defined, number.state.defined) << number;
            EXPECT_EQ(version, 100) << number;
        }
        EXPECT_EQ(Look(given.it), number);
    }
}

TEST(ExternalTextOfUndefinedValues, DiffersInTheText)
{
    int defined = 1;
    unsigned short version = 0;
    EXPECT_EQ(TextOf(ZelDtLong(ZelDtWmNull).ConvToExtern(defined, version)), "0");
    EXPECT_EQ(defined, 0);
    EXPECT_EQ(version, 100);
    // A short's text is the string made of the value, mode included.
    for (const Number& number : Numbers({0, 7})) {
        const Given<ZelDtShort> given(number);
        const ZelDtString text = given.it.ConvToExtern(defined, version);
        EXPECT_EQ(StateOf(text), number.state);
    }
}

TYPED_TEST(ExternalText, OfAnotherVersionIsAnErrorThatChangesNothing)
{
    using V = TypeParam;
    const ZelDtString text("5");
    const ZelDtString undefined(ZelDtWmMissing);
    for (const Number& number : Numbers({7})) {
        for (const unsigned short version : {0, 1, 99, 101, 200, 65535}) {
            for (const int defined : {0, 1}) {
                for (const ZelDtString* p :
                     {&text, &undefined, static_cast<const ZelDtString*>(nullptr)}) {
                    Given<V> given(number);
                    EXPECT_TRUE(FailsWith([&] { given.it.SetFromExtern(p, defined, version); },
                                          FromExternError<V>(14)))
                        << version;
                    EXPECT_EQ(Look(given.it), number);
                }
            }
        }
    }
}

TYPED_TEST(ExternalText, IsReadWhenDefined)
{
    using V = TypeParam;
    for (const Number& number : Numbers({0, 7})) {
        for (const int value : {0, 7, kMin<V>, kMax<V>}) {
            const ZelDtString text(std::to_string(value).c_str());
            Given<V> given(number);
            given.it.SetFromExtern(&text, 1, 100);
            EXPECT_EQ(Look(given.it), Assigned(number, value)) << number << " reads " << value;
        }
    }
}

TYPED_TEST(ExternalText, ClearsWhenUndefinedOrAbsent)
{
    using V = TypeParam;
    const ZelDtString text("5");
    const ZelDtString garbage("garbage");
    const ZelDtString undefined(ZelDtWmMissing);
    const struct {
        const ZelDtString* text;
        int defined;
    } rows[] = {{&text, 0}, {&garbage, 0}, {&undefined, 0}, {nullptr, 0}, {nullptr, 1},
                {&text, 2}, {&text, -1},   {&garbage, 256}, {nullptr, -1}};
    for (const Number& number : Numbers({0, 7})) {
        for (const auto& row : rows) {
            Number expected = number;
            if (Facts<V>::kTakesOverTheFlag) {
                // Any number but 0 and 1 differs from the flag that stands, and is not defined.
                if (row.defined != number.state.defined)
                    expected.state = {number.state.mode, row.defined == 1 ? 1 : 0, 1};
            }
            expected = Cleared(expected);
            Given<V> given(number);
            given.it.SetFromExtern(row.text, row.defined, 100);
            EXPECT_EQ(Look(given.it), expected) << number << ", defined " << row.defined;
        }
    }
}

TYPED_TEST(ExternalText, ThatClearsLeavesTheFlag0)
{
    const ZelDtString text("5");
    for (const int defined : {0, 2, -1, 256}) {
        TypeParam value(7);
        value.SetFromExtern(&text, defined, 100);
        EXPECT_EQ(Stored([&](CArchive& ar) { value.Serialize(ar); }), ArchiveForm<TypeParam>(0, 0))
            << defined;
    }
}

TYPED_TEST(ExternalText, ThatIsUndefinedThoughDefinedIsInconsistent)
{
    using V = TypeParam;
    for (const ZelDtWorkingMode mode : {ZelDtWmMissing, ZelDtWmNull}) {
        const ZelDtString undefined(mode);
        for (const Number& number : Numbers({0, 7})) {
            Given<V> given(number);
            EXPECT_TRUE(FailsWith([&] { given.it.SetFromExtern(&undefined, 1, 100); },
                                  FromExternError<V>(13)));
            // The value became defined before the text was looked at.
            Number expected = number;
            SetDefined(expected.state, 1);
            EXPECT_EQ(Look(given.it), expected);
        }
    }
}

TYPED_TEST(ExternalText, ThatCannotBeReadLeavesTheNumber)
{
    using V = TypeParam;
    const ZelDtString text("12x");
    for (const Number& number : Numbers({0, 7})) {
        Given<V> given(number);
        EXPECT_TRUE(FailsWith([&] { given.it.SetFromExtern(&text, 1, 100); }, FromExternError<V>(1),
                              ImpError<V>(5, "FromString(LPCTSTR)")));
        Number expected = number;
        SetDefined(expected.state, 1);
        EXPECT_EQ(Look(given.it), expected);
    }
}

TYPED_TEST(ExternalText, RoundTripsEveryState)
{
    using V = TypeParam;
    for (const Number& number : Numbers(Samples<V>())) {
        const Given<V> given(number);
        int defined = -1;
        unsigned short version = 0;
        const ZelDtString text = given.it.ConvToExtern(defined, version);
        V back(ZelDtWmNull);
        back.SetFromExtern(&text, defined, version);
        EXPECT_EQ(back.IsDefined(), number.state.defined);
        EXPECT_EQ(StoredNumber(back), number.state.defined ? number.value : 0);
    }
}

// Record set

/// A record with two numbers and a text; its marks work without a database.
template <typename V>
class Records : public CRecordset {
public:
    Records() { m_nFields = 3; }
    void DoFieldExchange(CFieldExchange* pFX) override
    {
        pFX->SetFieldType(CFieldExchange::outputColumn);
        Exchange(pFX, "FIRST", first);
        Exchange(pFX, "SECOND", second);
        RFX_Text(pFX, "NAME", name, 20);
    }

    typename Facts<V>::Field first = 0;
    typename Facts<V>::Field second = 0;
    CString name;

private:
    static void Exchange(CFieldExchange* pFX, const char* column, long& field)
    {
        RFX_Long(pFX, column, field);
    }
    static void Exchange(CFieldExchange* pFX, const char* column, int& field)
    {
        RFX_Int(pFX, column, field);
    }
};

ZEL_INTEGER_SUITE(RecordSet);

TYPED_TEST(RecordSet, FieldsThatAreNullClear)
{
    for (const Number& number : Numbers({0, 7})) {
        Records<TypeParam> records;
        records.first = 5;
        records.SetFieldNull(&records.first, TRUE);
        Given<TypeParam> given(number);
        given.it.SetFromRecordSet(records, records.first);
        EXPECT_EQ(Look(given.it), Cleared(number));
    }
}

TYPED_TEST(RecordSet, FieldsAreTakenOver)
{
    using V = TypeParam;
    for (const Number& number : Numbers({0, 7})) {
        for (const int value : {0, 7, kMin<V>, kMax<V>}) {
            Records<V> records;
            records.first = value;
            records.SetFieldNull(nullptr, TRUE);
            records.SetFieldNull(&records.first, FALSE);
            Given<V> given(number);
            given.it.SetFromRecordSet(records, records.first);
            EXPECT_EQ(Look(given.it), Assigned(number, value)) << number << " reads " << value;
            EXPECT_EQ(records.first, value);
            EXPECT_FALSE(records.IsFieldNull(&records.first));
        }
    }
}

TEST(RecordSetOfLongs, FieldsOutside32BitsAreAnErrorThatChangesNothing)
{
    for (const Number& number : Numbers({7})) {
        for (const long field : OutsideLongs<ZelDtLong>()) {
            Records<ZelDtLong> records;
            records.first = field;
            records.SetFieldNull(&records.first, FALSE);
            Given<ZelDtLong> given(number);
            const Caught caught = Catch([&] { given.it.SetFromRecordSet(records, records.first); });
            EXPECT_TRUE(Matches(caught, ClassError<ZelDtLong>(8, caught.error.signature)));
            EXPECT_EQ(Look(given.it), number);
        }
    }
}

TEST(RecordSetOfShorts, OnlyTheLow16BitsOfFieldsCount)
{
    const struct {
        int field;
        int value;
    } rows[] = {{65537, 1},       {65536, 0},           {65543, 7},   {32768, -32768},
                {-32769, 32767},  {65535, -1},          {-65536, 0},  {-65529, 7},
                {2147483647, -1}, {-2147483647 - 1, 0}, {131071, -1}, {0x12345, 0x2345}};
    for (const auto& row : rows) {
        for (const Number& number : Numbers({0, 7})) {
            Records<ZelDtShort> records;
            records.first = row.field;
            records.SetFieldNull(&records.first, FALSE);
            Given<ZelDtShort> given(number);
            given.it.SetFromRecordSet(records, records.first);
            EXPECT_EQ(Look(given.it), Assigned(number, row.value)) << number << ": " << row.field;
            EXPECT_EQ(records.first, row.field);
        }
    }
}

TYPED_TEST(RecordSet, ReceivesDefinedNumbers)
{
    using V = TypeParam;
    for (const Number& number : Numbers(Samples<V>())) {
        if (!number.state.defined)
            continue;
        for (const BOOL null : {FALSE, TRUE}) {
            Records<V> records;
            records.first = 99;
            records.second = 98;
            records.SetFieldNull(nullptr, null);
            const Given<V> given(number);
            given.it.ConvToRecordSet(records, records.first);
            EXPECT_EQ(records.first, number.value);
            EXPECT_FALSE(records.IsFieldNull(&records.first));
            EXPECT_EQ(records.second, 98);
            EXPECT_EQ(records.IsFieldNull(&records.second), null);
            EXPECT_EQ(Look(given.it), number);
        }
    }
}

TYPED_TEST(RecordSet, IsMarkedNullForUndefinedValuesAndKeepsTheField)
{
    for (const Number& number : Numbers({0, 7})) {
        if (number.state.defined)
            continue;
        for (const BOOL null : {FALSE, TRUE}) {
            Records<TypeParam> records;
            records.second = 99;
            records.SetFieldNull(nullptr, null);
            const Given<TypeParam> given(number);
            given.it.ConvToRecordSet(records, records.second);
            EXPECT_EQ(records.second, 99);
            EXPECT_TRUE(records.IsFieldNull(&records.second));
            EXPECT_EQ(records.IsFieldNull(&records.first), null);
            EXPECT_EQ(Look(given.it), number);
        }
    }
}

TYPED_TEST(RecordSet, RefusesFieldsThatAreNotItsOwn)
{
    using V = TypeParam;
    Records<V> records;
    typename Facts<V>::Field stranger = 5;
    V value(7);
    const Caught read = Catch([&] { value.SetFromRecordSet(records, stranger); });
    EXPECT_TRUE(Matches(read, ClassError<V>(1, read.error.signature)));
    EXPECT_EQ(read.error.signature.rfind("SetFromRecordSet(", 0), 0u) << read.error;
    EXPECT_EQ(read.causeClass, "CDBException");
    EXPECT_TRUE(read.hasCause);
    EXPECT_EQ(Look(value), Defined(7));

    const Caught written = Catch([&] { value.ConvToRecordSet(records, stranger); });
    EXPECT_TRUE(Matches(written, ClassError<V>(1, written.error.signature)));
    EXPECT_EQ(written.error.signature.rfind("ConvToRecordSet(", 0), 0u) << written.error;
    EXPECT_EQ(written.causeClass, "CDBException");
    EXPECT_EQ(Look(value), Defined(7));
}

} // namespace
