/// SetFromSQL of every class that has it, with what columns hold.

#include "tests/recordsets/value_table.h"

#include <cstdlib>

namespace {

using namespace zeltest;

/// Texts of columns of any type.
class Texts : public ValueTable<ZelDtString> {
protected:
    void MakeTexts(const std::vector<std::string>& texts)
    {
        MakeValueTable();
        Set set(m_database);
        set.Open();
        for (std::size_t i = 0; i < texts.size(); ++i)
            AddRow(set, static_cast<long>(i), Column::Make(texts[i]));
    }

    /// Runs `body` with the text of each row, in order.
    template <typename Body>
    void ForEachText(Body&& body)
    {
        Set set(m_database);
        std::size_t count = 0;
        for (set.Open(); !set.IsEOF(); set.MoveNext(), ++count)
            body(count, set.m_value);
        EXPECT_EQ(static_cast<long>(count), CountRows());
    }
};

/// Every state with two texts, brought to `text` by `read`.
template <typename Value, typename Read>
void ExpectTaken(const std::string& text, Read&& read)
{
    for (const Seen& before : InEveryState({ColumnOf<Value>::kEmpty, text})) {
        InState<Value> value(before);
        read(value.it);
        EXPECT_EQ(Look(value.it), AfterText(before, text)) << before;
    }
}

/// Every state, unchanged by `read`, which fails with `expected`.
template <typename Value, typename Read>
void ExpectRefused(const Error& expected, unsigned long first, Read&& read)
{
    const std::string text = ColumnOf<Value>::Samples()[1];
    for (const Seen& before : InEveryState({ColumnOf<Value>::kEmpty, text})) {
        InState<Value> value(before);
        const Caught caught = Catch([&] { read(value.it); });
        EXPECT_TRUE(Matches(caught, expected));
        EXPECT_EQ(caught.first.number, first);
        EXPECT_EQ(Look(value.it), before);
    }
}

TEST_F(Texts, GiveNumbers)
{
    const std::vector<std::string> numbers = {"0", "1", "-1", "32767", "-32768"};
    MakeTexts(numbers);
    ForEachText([&](std::size_t i, const CString& text) {
        const long number = std::strtol(text, nullptr, 10);
        ExpectTaken<ZelDtLong>(numbers[i], [&](ZelDtLong& value) { value.SetFromSQL(number); });
        ExpectTaken<ZelDtTime>(numbers[i], [&](ZelDtTime& value) { value.SetFromSQL(number); });
        ExpectTaken<ZelDtShort>(
            numbers[i], [&](ZelDtShort& value) { value.SetFromSQL(static_cast<short>(number)); });
        ExpectTaken<ZelDtDouble>(
            numbers[i], [&](ZelDtDouble& value) { value.SetFromSQL(static_cast<double>(number)); });
    });
}

TEST_F(Texts, OfColumnsForNumbersGiveThem)
{
    MakeValueTable("DOUBLE");
    const std::vector<double> numbers = {0, 0.5, -0.1, 1e300, 123456789.123456789};
    ValueSet<ZelDtDouble> set(m_database);
    set.Open();
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        set.BeginRow(static_cast<long>(i));
        ZelDtDouble(numbers[i]).ConvToRecordSet(set, set.m_value);
        ASSERT_TRUE(set.Update());
    }
    set.Requery();
    for (const double number : numbers) {
        ASSERT_FALSE(set.IsEOF());
        ExpectTaken<ZelDtDouble>(ShowDouble(number),
                                 [&](ZelDtDouble& value) { value.SetFromSQL(set.m_value); });
        set.MoveNext();
    }
}

TEST_F(Texts, GiveDecimals)
{
    const std::vector<std::string> numbers = {"0",
                                              "19.99",
                                              "-0.05",
                                              "9999999999999999999999999999",
                                              "-9999999999999999999999999999",
                                              "12345678901234.56789012345678",
                                              "0.000000000000000000000000001"};
    MakeTexts(numbers);
    ForEachText([&](std::size_t i, const CString& text) {
        ExpectTaken<ZelDtDecimal>(numbers[i], [&](ZelDtDecimal& value) { value.SetFromSQL(text); });
    });
}

/// SQLite has no such columns.
TEST_F(Texts, OfDecimalColumnsGiveDecimalsOnMariaDb)
{
    MakeValueTable("DECIMAL(15,2)");
    const std::vector<std::string> numbers = {"0.00", "19.90", "-0.05", "9999999999999.99"};
    for (std::size_t i = 0; i < numbers.size(); ++i)
        Execute("INSERT INTO WERTE (ID, WERT) VALUES (" + std::to_string(i) + ", " + numbers[i] +
                ")");
    ForEachText([&](std::size_t i, const CString& text) {
        EXPECT_STREQ(text.GetString(), numbers[i].c_str());
        ZelDtDecimal value(99);
        value.SetFromSQL(text);
        EXPECT_EQ(ToText(value.ConvToSQL()), numbers[i]);
        EXPECT_EQ(StateOf(value), (State{ZelDtWmMissing, 1, 1}));
    });
}

TEST_F(Texts, ThatAreNoDecimalsChangeNothing)
{
    const struct {
        const char* text;
        unsigned long first;
    } rows[] = {{"NULL", 20},
                {"1.2.3", 20},
                {"12a", 20},
                {"10000000000000000000000000000", 11},
                {"000000000000000000000000000000000000001", 11}};
    std::vector<std::string> texts;
    for (const auto& row : rows)
        texts.push_back(row.text);
    MakeTexts(texts);
    ForEachText([&](std::size_t i, const CString& text) {
        SCOPED_TRACE(rows[i].text);
        ExpectRefused<ZelDtDecimal>({1, "DTDECFKT", "ZelDtDecimal", "SetFromSQL(LPCTSTR)"},
                                    rows[i].first,
                                    [&](ZelDtDecimal& value) { value.SetFromSQL(text); });
    });
}

TEST_F(Texts, GiveStringsAsTheyAre)
{
    const std::vector<std::string> texts = {"a",
                                            "NULL",
                                            "\"quoted\"",
                                            "two \"\" quotes",
                                            "  blanks  ",
                                            "Stra\xDF"
                                            "e \xE4\xF6\xFC \x80",
                                            std::string(Column::kLength, '\xFF')};
    MakeTexts(texts);
    ForEachText([&](std::size_t i, const CString& text) {
        ExpectTaken<ZelDtString>(
            texts[i], [&](ZelDtString& value) { value.SetFromSQL(text, text.GetLength(), 0); });
        if (texts[i].size() > 1) {
            ExpectTaken<ZelDtString>(
                texts[i].substr(0, texts[i].size() - 1),
                [&](ZelDtString& value) { value.SetFromSQL(text, text.GetLength() - 1, 0); });
        }
        ExpectRefused<ZelDtString>(
            {6, "DTSTRFKT", "ZelDtString", "SetFromSQL(LPCTSTR,INT,UINT)"}, 6,
            [&](ZelDtString& value) { value.SetFromSQL(text, text.GetLength() + 1, 0); });
    });
}

TEST_F(Texts, ThatAreEmptyGiveNoString)
{
    MakeTexts({""});
    ForEachText([&](std::size_t, const CString& text) {
        EXPECT_EQ(text.GetLength(), 0);
        ExpectRefused<ZelDtString>(
            {6, "DTSTRFKT", "ZelDtString", "SetFromSQL(LPCTSTR,INT,UINT)"}, 6,
            [&](ZelDtString& value) { value.SetFromSQL(text, text.GetLength(), 0); });
    });
}

TEST_F(Texts, ThatWereWrittenInOtherCodePagesAreReadInThem)
{
    // Characters that both pages have, and what stands for them there.
    const std::string text = "Stra\xDF"
                             "e \xE4\xF6\xFC\xC4\xD6\xDC \xE9";
    const std::string oem = "Stra\xE1"
                            "e \x84\x94\x81\x8E\x99\x9A \x82";
    MakeValueTable();
    for (const unsigned int page : {850U, 437U}) {
        const ZelDtString value(text.c_str());
        EXPECT_EQ(Execute("INSERT INTO WERTE (ID, WERT) VALUES (" + std::to_string(page) + ", " +
                          ToText(value.ConvToSQL(page)) + ")"),
                  1);
        Set set(m_database);
        set.m_strFilter.Format("ID = %u", page);
        set.Open();
        ASSERT_FALSE(set.IsEOF());
        EXPECT_EQ(Bytes(ToText(set.m_value)), Bytes(oem));
        ExpectTaken<ZelDtString>(text, [&](ZelDtString& back) {
            back.SetFromSQL(set.m_value, set.m_value.GetLength(), page);
        });
        ExpectTaken<ZelDtChar>(
            "\xE4", [&](ZelDtChar& back) { back.SetFromSQL(set.m_value.GetAt(7), page); });
    }
}

TEST_F(Texts, GiveCharacters)
{
    const std::vector<std::string> texts = {"a", "A", "\"", "'", "\\", " ", "\xE4", "\xFF", "\x01"};
    MakeTexts(texts);
    ForEachText([&](std::size_t i, const CString& text) {
        ExpectTaken<ZelDtChar>(texts[i],
                               [&](ZelDtChar& value) { value.SetFromSQL(text.GetAt(0), 0); });
    });
}

TEST_F(Texts, GiveBooleans)
{
    const std::vector<std::string> digits = {"0", "1"};
    MakeTexts(digits);
    ForEachText([&](std::size_t i, const CString& text) {
        ExpectTaken<ZelDtBool>(digits[i],
                               [&](ZelDtBool& value) { value.SetFromSQL(text.GetAt(0)); });
    });
}

TEST_F(Texts, OfOtherCharactersAreNoBooleans)
{
    MakeTexts({"2", "J", "N", " ", "\xB9"});
    ForEachText([&](std::size_t, const CString& text) {
        ExpectRefused<ZelDtBool>(
            {5, "DTBOOL", "ZelDtBool", "VOID  ZelDtBool::SetFromSQL ( TCHAR chSQL )"}, 5,
            [&](ZelDtBool& value) { value.SetFromSQL(text.GetAt(0)); });
    });
}

struct ServerDate {
    const char* text;
    const char* moment;
};

constexpr ServerDate kServerDates[] = {{"Jan 15 2000 12:30AM", "2000-01-15 00:30:00"},
                                       {"Xyz 15 2000 12:30PM", "2000-01-15 12:30:00"},
                                       {"Feb 29 2000 01:05AM", "2000-02-29 01:05:00"},
                                       {"M\xE4r 05 2000 02:07PM", "2000-03-05 14:07:00"},
                                       {"Mai 31 1999 11:59PM", "1999-05-31 23:59:00"},
                                       {"Okt 01 2024 06:00AM", "2024-10-01 06:00:00"},
                                       {"Dez 31 9999 11:59PM", "9999-12-31 23:59:00"},
                                       {"Jan 01 1753 12:00AM", "1753-01-01 00:00:00"},
                                       {"Dec 24 2024 12:00PM", "2024-12-24 12:00:00"},
                                       {"Jan 01 1900 12:00AM", "1900-01-01 00:00:00"}};

TEST_F(Texts, OfADatabaseServerGiveMoments)
{
    std::vector<std::string> texts;
    for (const ServerDate& row : kServerDates)
        texts.push_back(row.text);
    MakeTexts(texts);
    ForEachText([&](std::size_t i, const CString& text) {
        ExpectTaken<ZelDtDateTime>(kServerDates[i].moment,
                                   [&](ZelDtDateTime& value) { value.SetFromSQL(text); });
        // A date keeps the time of day that comes in this way.
        ZelDtDateZp date;
        date.SetFromSQL(text);
        EXPECT_EQ(Look(date), (Seen{{ZelDtWmMissing, 1, 1}, kServerDates[i].moment}));
    });
}

TEST_F(Texts, OfNullClearMoments)
{
    MakeTexts({"NULL"});
    ForEachText([&](std::size_t, const CString& text) {
        for (const Seen& before :
             InEveryState({ColumnOf<ZelDtDateTime>::kEmpty, "2000-03-05 14:07:00"})) {
            InState<ZelDtDateTime> value(before);
            value.it.SetFromSQL(text);
            EXPECT_EQ(Look(value.it), AfterNull<ZelDtDateTime>(before)) << before;
        }
    });
}

/// SQLite has no such texts.
TEST_F(Texts, ThatTheServerMadeOfMomentsGiveThemOnMariaDb)
{
    MakeValueTable("DATETIME");
    {
        ValueSet<ZelDtDateTime> set(m_database);
        set.Open();
        long id = 0;
        for (const ServerDate& row : kServerDates) {
            set.BeginRow(id++);
            ColumnOf<ZelDtDateTime>::Make(row.moment).ConvToRecordSet(set, set.m_value);
            ASSERT_TRUE(set.Update());
        }
    }
    Set set(m_database);
    set.m_strSort = "";
    set.Open(CRecordset::forwardOnly,
             "SELECT ID, DATE_FORMAT(WERT, '%b %d %Y %h:%i%p') AS WERT FROM WERTE ORDER BY ID",
             CRecordset::readOnly);
    for (const ServerDate& row : kServerDates) {
        ASSERT_FALSE(set.IsEOF());
        ZelDtDateTime value(ZelDtWmNull);
        value.SetFromSQL(set.m_value);
        EXPECT_EQ(ColumnOf<ZelDtDateTime>::Show(value), row.moment);
        set.MoveNext();
    }
    EXPECT_TRUE(set.IsEOF());
}

} // namespace
