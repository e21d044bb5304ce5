/// Dates and times of day in the time stamps of a table.

#include "tests/recordsets/value_table.h"

#include <random>

namespace {

using namespace zeltest;

int DaysOf(int month, int year)
{
    static constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool isLeap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    return month == 2 && isLeap ? 29 : kDays[month - 1];
}

std::string Moment(int year, int month, int day, int hour = 0, int minute = 0, int second = 0)
{
    Stamp stamp;
    stamp.year = year;
    stamp.month = month;
    stamp.day = day;
    stamp.hour = hour;
    stamp.minute = minute;
    stamp.second = second;
    return stamp.Text();
}

template <typename Value>
class Dates : public ValueTable<Value> {
protected:
    using typename ValueTable<Value>::Column;
    using typename ValueTable<Value>::Set;

    void WriteAndRead(const std::vector<std::string>& texts)
    {
        this->MakeValueTable();
        {
            Set set(this->m_database);
            set.Open();
            for (std::size_t i = 0; i < texts.size(); ++i)
                this->AddRow(set, static_cast<long>(i), Column::Make(texts[i]));
        }
        EXPECT_EQ(this->CountRows(), static_cast<long>(texts.size()));
        Set set(this->m_database);
        std::size_t i = 0;
        Value value(ZelDtWmNull);
        for (set.Open(); !set.IsEOF(); set.MoveNext(), ++i) {
            ASSERT_LT(i, texts.size());
            value.SetFromRecordSet(set, set.m_value);
            EXPECT_EQ(Column::Show(value), texts[i]);
            EXPECT_TRUE(value == Column::Make(texts[i]));
            EXPECT_EQ(set.m_value.fraction, 0U);
        }
        EXPECT_EQ(i, texts.size());
    }

    void Insert(long id, const std::string& literal)
    {
        this->Execute("INSERT INTO WERTE (ID, WERT) VALUES (" + std::to_string(id) + ", " +
                      literal + ")");
    }
};

class DateTimeColumns : public Dates<ZelDtDateTime> {};
class DateColumns : public Dates<ZelDtDateZp> {};

TEST_F(DateTimeColumns, TheFirstAndLastMomentOfYearsComeBack)
{
    std::vector<std::string> texts;
    for (int year = 1753; year <= 9999; year += year < 2100 ? 3 : 39) {
        texts.push_back(Moment(year, 1, 1));
        texts.push_back(Moment(year, 2, DaysOf(2, year), 12, 30, 1));
        texts.push_back(Moment(year, 12, 31, 23, 59, 59));
    }
    texts.push_back(Moment(9999, 12, 31, 23, 59, 59));
    WriteAndRead(texts);
}

TEST_F(DateTimeColumns, RandomMomentsComeBack)
{
    std::mt19937_64 random(20261126);
    std::vector<std::string> texts;
    for (int i = 0; i < 400; ++i) {
        const auto pick = [&random](int from, int to) {
            return from + static_cast<int>(random() % static_cast<unsigned>(to - from + 1));
        };
        const int year = pick(1753, 9999);
        const int month = pick(1, 12);
        texts.push_back(Moment(year, month, pick(1, DaysOf(month, year)), pick(0, 23), pick(0, 59),
                               pick(0, 59)));
    }
    WriteAndRead(texts);
}

TEST_F(DateColumns, TheFirstAndLastDayOfMonthsComeBack)
{
    std::vector<std::string> texts;
    for (int year = 1753; year <= 9999; year += year < 2100 ? 19 : 199) {
        for (int month = 1; month <= 12; ++month) {
            texts.push_back(Moment(year, month, 1));
            texts.push_back(Moment(year, month, DaysOf(month, year)));
        }
    }
    texts.push_back(Moment(9999, 12, 31));
    WriteAndRead(texts);
}

TEST_F(DateTimeColumns, TheDatabaseHoldsTheMoment)
{
    MakeValueTable();
    long id = 0;
    for (const std::string& text : Column::Samples()) {
        WriteRow(++id, Column::Make(text));
        // As SQLite's own functions and MariaDB's take it.
        EXPECT_EQ(CountWhere((IsMariaDb() ? "WERT" : "datetime(WERT)") + (" = '" + text + "'")), 1)
            << text;
    }
}

TEST_F(DateColumns, TheDatabaseHoldsTheDate)
{
    MakeValueTable();
    long id = 0;
    for (const std::string& text : Column::Samples()) {
        WriteRow(++id, Column::Make(text));
        EXPECT_EQ(
            CountWhere((IsMariaDb() ? "WERT" : "date(WERT)") + (" = '" + text.substr(0, 10) + "'")),
            1)
            << text;
    }
}

TEST_F(DateTimeColumns, WhatTheDatabaseWroteIsRead)
{
    MakeValueTable();
    Insert(1, "'2000-03-05 14:07:09'");
    Insert(2, "'2000-02-29 00:00:00'");
    Insert(3, "'9999-12-31 23:59:59'");
    Insert(4, "NULL");
    EXPECT_EQ(ReadRows(), ValueRows({{1, "2000-03-05 14:07:09"},
                                     {2, "2000-02-29 00:00:00"},
                                     {3, "9999-12-31 23:59:59"},
                                     {4, std::nullopt}}));
}

TEST_F(DateTimeColumns, YearsBefore1753ChangeNothing)
{
    MakeValueTable();
    Insert(1, "'1752-12-31 23:59:59'");
    Insert(2, "'1001-01-01 00:00:00'");
    Set set(m_database);
    int count = 0;
    for (set.Open(); !set.IsEOF(); set.MoveNext(), ++count) {
        for (const Seen& before : InEveryState({Column::kEmpty, "2000-03-05 14:07:09"})) {
            InState<ZelDtDateTime> value(before);
            const Caught caught = Catch([&] { value.it.SetFromRecordSet(set, set.m_value); });
            EXPECT_EQ(caught.disturbance, "");
            EXPECT_EQ(caught.error.number, 1U);
            EXPECT_EQ(caught.error.module, "DTDATIMF");
            EXPECT_EQ(caught.error.classText, "ZelDtDateTime");
            EXPECT_EQ(caught.error.signature.rfind("SetFromRecordSet(", 0), 0U);
            EXPECT_EQ(caught.first.number, 27U);
            EXPECT_EQ(Look(value.it), before);
        }
    }
    EXPECT_EQ(count, 2);
}

TEST_F(DateTimeColumns, AYearOfFiveDigitsIsRefusedOrComesBack)
{
    MakeValueTable();
    Set set(m_database);
    set.Open();
    set.BeginRow(1);
    const std::string text = Moment(10000, 1, 1);
    Column::Make(text).ConvToRecordSet(set, set.m_value);
    bool isWritten = false;
    try {
        isWritten = set.Update();
    } catch (CDBException* e) {
        e->Delete();
    }
    set.Close();
    ASSERT_EQ(CountRows(), isWritten ? 1 : 0);
    if (isWritten) {
        EXPECT_EQ(ReadRow(1).text, text);
    }
}

TEST_F(DateTimeColumns, FractionsOfASecondAreNotReadAndNotWrittenOver)
{
    MakeValueTable(IsMariaDb() ? "DATETIME(3)" : "DATETIME");
    Insert(1, "'2000-03-05 14:07:09.250'");
    Set set(m_database);
    set.Open();
    EXPECT_EQ(set.m_value.fraction, 250000000U);
    ZelDtDateTime value;
    value.SetFromRecordSet(set, set.m_value);
    EXPECT_EQ(Column::Show(value), "2000-03-05 14:07:09");
    value.AddHour(1);
    set.Edit();
    value.ConvToRecordSet(set, set.m_value);
    EXPECT_TRUE(set.Update());
    set.Requery();
    EXPECT_EQ(Column::ShowField(set.m_value), "2000-03-05 15:07:09");
    EXPECT_EQ(set.m_value.fraction, 250000000U);
}

TEST_F(DateTimeColumns, AMemberThatIsTheSameIsNoChange)
{
    MakeValueTable();
    WriteRow(1, Column::Make("2000-03-05 14:07:09"));
    Set set(m_database);
    set.Open();
    ZelDtDateTime value;
    value.SetFromRecordSet(set, set.m_value);
    set.Edit();
    value.ConvToRecordSet(set, set.m_value);
    EXPECT_FALSE(set.Update());
    value.SetSecond(10);
    set.Edit();
    value.ConvToRecordSet(set, set.m_value);
    EXPECT_TRUE(set.Update());
    EXPECT_EQ(ReadRows(), ValueRows({{1, "2000-03-05 14:07:10"}}));
}

TEST_F(DateColumns, ATimeOfDayInTheColumnIsReadAndStays)
{
    MakeValueTable("DATETIME");
    Insert(1, "'2000-03-05 14:07:09'");
    Set set(m_database);
    set.Open();
    ZelDtDateZp value;
    value.SetFromRecordSet(set, set.m_value);
    EXPECT_EQ(Column::Show(value), "2000-03-05 14:07:09");
    EXPECT_EQ(value.GetHour(), 14);
    set.Edit();
    value.ConvToRecordSet(set, set.m_value);
    EXPECT_FALSE(set.Update());
    value.WipeTime();
    set.Edit();
    value.ConvToRecordSet(set, set.m_value);
    EXPECT_TRUE(set.Update());
    EXPECT_EQ(ReadRows(), ValueRows({{1, "2000-03-05 00:00:00"}}));
}

TEST_F(DateTimeColumns, DatesAreReadAsMidnight)
{
    MakeValueTable("DATE");
    Insert(1, "'2000-03-05'");
    EXPECT_EQ(ReadRow(1, {{ZelDtWmMissing, 1, 0}, "2000-03-05 14:07:09"}),
              (Seen{{ZelDtWmMissing, 1, 1}, "2000-03-05 00:00:00"}));
    EXPECT_EQ(ReadRow(1, {{ZelDtWmMissing, 1, 0}, "2000-03-05 00:00:00"}),
              (Seen{{ZelDtWmMissing, 1, 0}, "2000-03-05 00:00:00"}));
}

} // namespace
