/// Decimals in the text fields of record sets.

#include "tests/numeric/decimal_testing.h"

#include <algorithm>
#include <iterator>
#include <string>

namespace {

using namespace zeltest;

/// A record with two numbers as texts, which have room as bound fields do; its marks work without
/// a database.
class Records : public CRecordset {
public:
    Records()
    {
        m_nFields = 2;
        first.Preallocate(60);
        second.Preallocate(60);
    }
    void DoFieldExchange(CFieldExchange* pFX) override
    {
        pFX->SetFieldType(CFieldExchange::outputColumn);
        RFX_Text(pFX, "FIRST", first, 50);
        RFX_Text(pFX, "SECOND", second, 50);
    }

    CString first;
    CString second;
};

const Error kFromRecordSet = MemberError(1, "SetFromRecordSet(CRecordset&,const CString&");
const Error kToRecordSet = MemberError(1, "ConvToRecordSet(CRecordset&,CString&)");

TEST(RecordSet, FieldsThatAreNullClear)
{
    for (const Number& number : Numbers({"0", "0.00", "2.50"})) {
        for (const char* text : {"5", "garbage", ""}) {
            Records records;
            records.first = text;
            records.SetFieldNull(&records.first, TRUE);
            GivenDecimal given(number);
            given.it.SetFromRecordSet(records, records.first);
            EXPECT_EQ(Look(given.it), Cleared(number));
            EXPECT_STREQ(records.first.GetString(), text);
        }
    }
}

TEST(RecordSet, FieldsAreTakenOverUnlessTheNumberIsTheSame)
{
    const struct {
        const char* text;
        const char* number;
    } rows[] = {{"0", "0"},
                {"5.0", "5.0"},
                {"-2.500", "-2.500"},
                {"+7.10", "7.10"},
                {".5", "0.5"},
                {"12.", "12"},
                {"1234567890.123456789", "1234567890.123456789"},
                {kTiny, kTiny},
                {"-9999999999999999999999999999", kSmallest},
                {"9999999999999999999999999999", kLargest}};
    for (const Number& number : Numbers({"0.00", "5", "-2.5"})) {
        for (const auto& row : rows) {
            Records records;
            records.first = row.text;
            records.SetFieldNull(nullptr, TRUE);
            records.SetFieldNull(&records.first, FALSE);
            GivenDecimal given(number);
            given.it.SetFromRecordSet(records, records.first);
            EXPECT_EQ(Look(given.it), Assigned(number, row.number))
                << number << " reads " << row.text;
            EXPECT_STREQ(records.first.GetString(), row.text);
            EXPECT_FALSE(records.IsFieldNull(&records.first));
        }
    }
}

TEST(RecordSet, FieldsCountUpTo38BytesBehindTheirSign)
{
    const std::string zeros = "0." + std::string(35, '0');
    const Number rows[] = {Replaced(Defined("99"), zeros + "7"),
                           Replaced(Defined("99"), zeros + "7"),
                           // a negative number has no more than 27 places
                           Replaced(Defined("99"), "0." + std::string(27, '0'))};
    const char* const signs[] = {"", "+", "-"};
    for (std::size_t i = 0; i < std::size(signs); ++i) {
        Records records;
        records.first = (signs[i] + zeros + "79").c_str();
        records.SetFieldNull(&records.first, FALSE);
        ZelDtDecimal value(99);
        value.SetFromRecordSet(records, records.first);
        EXPECT_EQ(Look(value), rows[i]) << signs[i];
    }
}

TEST(RecordSet, FieldsWithoutDigitsAreZero)
{
    Records records;
    records.SetFieldNull(&records.first, FALSE);
    ZelDtDecimal value("2.50");
    const Caught caught = Catch([&] { value.SetFromRecordSet(records, records.first); });
    EXPECT_EQ(caught.disturbance, "nothing") << caught.error;
    EXPECT_EQ(Look(value), (Number{{ZelDtWmMissing, 1, 1}, "0"}));
}

TEST(RecordSet, FieldsOfTooManyDigitsChangeNothing)
{
    for (const Number& number : Unmodified({"2.50"})) {
        Records records;
        records.first = "10000000000000000000000000000";
        records.SetFieldNull(&records.first, FALSE);
        GivenDecimal given(number);
        EXPECT_TRUE(FailsWith([&] { given.it.SetFromRecordSet(records, records.first); },
                              kFromRecordSet, OverflowError()));
        EXPECT_EQ(Look(given.it), number);
    }
}

TEST(RecordSet, ReceivesDefinedNumbersWithADecimal)
{
    const struct {
        const char* number;
        const char* text;
    } rows[] = {{"0", "0.00"},    {"0.0000", "0.00"},
                {"5", "5.0"},     {"-100", "-100.0"},
                {"1.50", "1.50"}, {"-0.05", "-0.05"},
                {kTiny, kTiny},   {kLargest, "9999999999999999999999999999.0"}};
    for (const State& state : AllStates()) {
        if (!state.defined)
            continue;
        for (const auto& row : rows) {
            for (const BOOL null : {FALSE, TRUE}) {
                Records records;
                records.first = "old";
                records.second = "other";
                records.SetFieldNull(nullptr, null);
                const GivenDecimal given(Number{state, row.number});
                given.it.ConvToRecordSet(records, records.first);
                EXPECT_STREQ(records.first.GetString(), row.text);
                EXPECT_FALSE(records.IsFieldNull(&records.first));
                EXPECT_STREQ(records.second.GetString(), "other");
                EXPECT_EQ(records.IsFieldNull(&records.second), null);
                EXPECT_EQ(Look(given.it), (Number{state, row.number}));
            }
        }
    }
}

TEST(RecordSet, IsMarkedNullForUndefinedValuesAndKeepsTheField)
{
    for (const Number& number : Numbers({"0", "2.50"})) {
        if (number.state.defined)
            continue;
        for (const BOOL null : {FALSE, TRUE}) {
            Records records;
            records.second = "other";
            records.SetFieldNull(nullptr, null);
            const GivenDecimal given(number);
            given.it.ConvToRecordSet(records, records.second);
            EXPECT_STREQ(records.second.GetString(), "other");
            EXPECT_TRUE(records.IsFieldNull(&records.second));
            EXPECT_EQ(records.IsFieldNull(&records.first), null);
            EXPECT_EQ(Look(given.it), number);
        }
    }
}

TEST(RecordSet, KeepsTheBufferOfTheField)
{
    Records records;
    const char* buffer = records.first.GetString();
    ZelDtDecimal("1.50").ConvToRecordSet(records, records.first);
    EXPECT_EQ(records.first.GetString(), buffer);
    EXPECT_STREQ(buffer, "1.50");
}

/// A record with one field whose own buffer has room for so many bytes.
class NarrowRecords : public CRecordset {
public:
    explicit NarrowRecords(int room) : m_room(room)
    {
        m_nFields = 1;
        field.Preallocate(room);
        field = "ol";
    }
    void DoFieldExchange(CFieldExchange* pFX) override
    {
        pFX->SetFieldType(CFieldExchange::outputColumn);
        RFX_Text(pFX, "FIELD", field, m_room - 1);
    }

    CString field;

private:
    int m_room;
};

const struct {
    const char* number;
    const char* text;
} kFieldTexts[] = {
    {"12345.67", "12345.67"},
    {"123456", "123456.0"},
    {"-1234.56", "-1234.56"},
    {"1234567.89", "1234567.89"},
    {"0", "0.00"},
    {"0.000000", "0.00"},
    {"5", "5.0"},
    {kTiny, kTiny},
    {kSmallest, "-9999999999999999999999999999.0"},
};

TEST(RecordSet, LeavesFieldsWithTooLittleRoomAsTheyAre)
{
    // The end of the text takes one of the bytes that the buffer has room for.
    const Error tooSmall = ImpError(4, "ConvDecToCString ( CString & cStr)");
    for (const auto& row : kFieldTexts) {
        const int length = static_cast<int>(std::string(row.text).size());
        for (const int room : {length, length - 1, std::min(length, 8), 3}) {
            for (const BOOL null : {FALSE, TRUE}) {
                SCOPED_TRACE(::testing::Message() << row.number << ", room for " << room);
                NarrowRecords records(room);
                records.SetFieldNull(nullptr, null);
                const char* const buffer = records.field.GetString();
                const ZelDtDecimal value(row.number);
                EXPECT_TRUE(FailsWith([&] { value.ConvToRecordSet(records, records.field); },
                                      kToRecordSet, tooSmall));
                EXPECT_EQ(records.field.GetString(), buffer);
                EXPECT_STREQ(buffer, "ol");
                EXPECT_EQ(records.field.GetLength(), 2);
                EXPECT_EQ(records.field.GetAllocLength(), room);
                EXPECT_EQ(records.IsFieldNull(&records.field), null);
                EXPECT_EQ(Look(value), Defined(row.number));
            }
        }
    }
}

TEST(RecordSet, FillsFieldsToTheirLastByteButOne)
{
    for (const auto& row : kFieldTexts) {
        const int length = static_cast<int>(std::string(row.text).size());
        NarrowRecords records(length + 1);
        records.SetFieldNull(nullptr, TRUE);
        const char* const buffer = records.field.GetString();
        ZelDtDecimal(row.number).ConvToRecordSet(records, records.field);
        EXPECT_EQ(records.field.GetString(), buffer);
        EXPECT_STREQ(buffer, row.text);
        EXPECT_EQ(records.field.GetLength(), length);
        EXPECT_EQ(records.field.GetAllocLength(), length + 1);
        EXPECT_FALSE(records.IsFieldNull(&records.field));
    }
    NarrowRecords records(8);
    ZelDtDecimal("99999.9").ConvToRecordSet(records, records.field);
    EXPECT_STREQ(records.field.GetString(), "99999.9");
}

TEST(RecordSet, ReadsBackWhatItReceived)
{
    for (const char* text : {"0.00", "1.50", "-0.05", kTiny, "-9.999999999999999999999999999"}) {
        Records records;
        ZelDtDecimal(text).ConvToRecordSet(records, records.first);
        ZelDtDecimal back;
        back.SetFromRecordSet(records, records.first);
        EXPECT_TRUE(back == ZelDtDecimal(text)) << text;
    }
}

TEST(RecordSet, RefusesFieldsThatAreNotItsOwn)
{
    Records records;
    CString stranger("5");
    stranger.Preallocate(60);
    ZelDtDecimal value("7.5");
    const Caught read = Catch([&] { value.SetFromRecordSet(records, stranger); });
    EXPECT_TRUE(Matches(read, kFromRecordSet));
    EXPECT_EQ(read.causeClass, "CDBException");
    EXPECT_TRUE(read.hasCause);
    EXPECT_EQ(Look(value), Defined("7.5"));

    const Caught written = Catch([&] { value.ConvToRecordSet(records, stranger); });
    EXPECT_TRUE(Matches(written, kToRecordSet));
    EXPECT_EQ(written.causeClass, "CDBException");
    EXPECT_EQ(Look(value), Defined("7.5"));
}

} // namespace
