/// Texts and characters in columns: every byte comes back, and what does not fit is not written.

#include "tests/recordsets/value_table.h"

#include <algorithm>
#include <cstring>
#include <random>

namespace {

using namespace zeltest;

/// Every byte but NUL.
std::string AllBytes()
{
    std::string all;
    for (int code = 1; code < 256; ++code)
        all.push_back(static_cast<char>(code));
    return all;
}

// Characters

class CharColumns : public ValueTable<ZelDtChar> {};

TEST_F(CharColumns, EachCodeComesBack)
{
    MakeValueTable();
    {
        Set set(m_database);
        set.Open();
        for (int code = 0; code < 256; ++code)
            AddRow(set, code, ZelDtChar(static_cast<char>(code)));
    }
    EXPECT_EQ(CountRows(), 256);
    EXPECT_EQ(CountWhere("WERT IS NULL"), 0);
    Set set(m_database);
    int code = 0;
    for (set.Open(); !set.IsEOF(); set.MoveNext(), ++code) {
        SCOPED_TRACE(code);
        for (const char old : {'\0', 'x'}) {
            ZelDtChar value(old);
            value.SetFromRecordSet(set, set.m_value);
            EXPECT_EQ(value.GetValue(), static_cast<char>(code));
            EXPECT_EQ(StateOf(value),
                      (State{ZelDtWmMissing, 1, old == static_cast<char>(code) ? 0 : 1}));
        }
    }
    EXPECT_EQ(code, 256);
}

TEST_F(CharColumns, TheDatabaseHoldsTheCharacter)
{
    MakeValueTable();
    for (int code = 0; code < 256; ++code) {
        const char c = static_cast<char>(code);
        WriteRow(code, ZelDtChar(c));
        if (IsLeftOut(c))
            continue;
        // NUL stands for no character.
        const std::string hex = c == '\0' ? "" : HexInDatabase(std::string(1, c));
        EXPECT_EQ(CountWhere("ID = " + std::to_string(code) + " AND HEX(WERT) = \"" + hex + '"'), 1)
            << code;
    }
}

TEST_F(CharColumns, TheFirstByteOfLongerTextsIsRead)
{
    MakeValueTable(TextType(10));
    Execute("INSERT INTO WERTE (ID, WERT) VALUES (1, \"\xFC"
            "ber\")");
    TextSet<10> set(m_database);
    set.Open();
    ZelDtChar value(ZelDtWmNull);
    value.SetFromRecordSet(set, set.m_value);
    EXPECT_EQ(Look(value), (Seen{{ZelDtWmNull, 1, 1}, "\xFC"}));
    // Written back, it is the one character.
    set.Edit();
    value.ConvToRecordSet(set, set.m_value);
    EXPECT_TRUE(set.Update());
    EXPECT_EQ(CountWhere("WERT = \"\xFC\""), 1);
}

// Strings

class StringColumns : public ValueTable<ZelDtString> {};

/// Values whose texts are compared as bytes.
void ExpectText(const ZelDtString& value, const std::string& text)
{
    EXPECT_EQ(Bytes(ToText(value)), Bytes(text));
}

TEST_F(StringColumns, EveryByteComesBackFromEveryPlace)
{
    MakeValueTable(TextType(600));
    const std::string all = AllBytes();
    std::vector<std::string> texts;
    for (std::size_t from = 0; from < all.size(); from += 100)
        texts.push_back(all.substr(from, 150));
    for (const char c : all) {
        texts.push_back(std::string(1, c) + "x");
        texts.push_back(std::string("x") + c);
        texts.push_back(std::string(3, c));
    }
    Set set(m_database);
    set.Open();
    for (std::size_t i = 0; i < texts.size(); ++i)
        AddRow(set, static_cast<long>(i), Column::Make(texts[i]));
    set.Requery();
    for (const std::string& text : texts) {
        ASSERT_FALSE(set.IsEOF());
        ZelDtString value(ZelDtWmNull);
        value.SetFromRecordSet(set, set.m_value);
        ExpectText(value, text);
        EXPECT_EQ(value.GetLength(), static_cast<int>(text.size()));
        set.MoveNext();
    }
    EXPECT_TRUE(set.IsEOF());
}

TEST_F(StringColumns, TheDatabaseHoldsTheCharactersOfTheCodePage)
{
    MakeValueTable();
    long id = 0;
    std::string text;
    for (const char c : AllBytes())
        if (!IsLeftOut(c))
            text.push_back(c);
    for (const std::string& part : {text.substr(0, 100), text.substr(100, 100), text.substr(200),
                                    std::string("Stra\xDF"
                                                "e \xE4\xF6\xFC \x80")}) {
        WriteRow(++id, Column::Make(part));
        EXPECT_EQ(CountWhere("ID = " + std::to_string(id) + " AND HEX(WERT) = \"" +
                             HexInDatabase(part) + '"'),
                  1)
            << Bytes(part);
    }
}

/// SQLite has one character set.
TEST_F(StringColumns, OtherCharacterSetsHoldThemTooOnMariaDb)
{
    MakeValueTable("VARCHAR(200) CHARACTER SET utf8mb4 COLLATE utf8mb4_nopad_bin");
    const std::string all = AllBytes();
    const ValueRows rows = {
        {1, all.substr(0, 128)}, {2, all.substr(128)}, {3, std::string(200, '\xDF')}};
    for (const ValueRow& row : rows)
        WriteRow(row.id, Column::Make(*row.text));
    EXPECT_EQ(ReadRows(), rows);
    EXPECT_EQ(CountWhere("ID = 3 AND LENGTH(WERT) = 400 AND CHAR_LENGTH(WERT) = 200"), 1);
}

/// Texts of SQLite end there.
TEST_F(StringColumns, NulBytesAreReadOnMariaDb)
{
    MakeValueTable();
    Execute("INSERT INTO WERTE (ID, WERT) VALUES (1, CONCAT('a', CHAR(0), 'b'))");
    const std::string text("a\0b", 3);
    EXPECT_EQ(ReadRow(1), AfterText({{ZelDtWmMissing, 0, 0}, ""}, text));
    EXPECT_EQ(ReadRow(1, {{ZelDtWmMissing, 1, 0}, "a"}), (Seen{{ZelDtWmMissing, 1, 1}, text}));
}

TEST_F(StringColumns, EmptyIsNotNull)
{
    MakeValueTable();
    WriteRow(1, ZelDtString(""));
    WriteRow(2, ZelDtString(ZelDtWmMissing));
    WriteRow(3, ZelDtString(ZelDtWmAlwaysDefined));
    EXPECT_EQ(CountWhere("WERT IS NULL"), 1);
    EXPECT_EQ(CountWhere("WERT = \"\""), 2);
    EXPECT_EQ(ReadRow(1, {{ZelDtWmNull, 0, 0}, ""}), (Seen{{ZelDtWmNull, 1, 1}, ""}));
    EXPECT_EQ(ReadRow(2, {{ZelDtWmNull, 1, 0}, "x"}), (Seen{{ZelDtWmNull, 0, 1}, ""}));
}

TEST_F(StringColumns, BlanksAtBothEndsStay)
{
    MakeValueTable();
    const ValueRows rows = {{1, " "}, {2, "  a"}, {3, "a  "}, {4, "   "}, {5, "\t"}, {6, "a \t"}};
    for (const ValueRow& row : rows)
        WriteRow(row.id, Column::Make(*row.text));
    EXPECT_EQ(ReadRows(), rows);
}

// Lengths

constexpr int kShort = 10;

class TextLengths : public ValueTable<ZelDtString> {
protected:
    /// A column for ten characters. SQLite counts them only where it is told to.
    void MakeShortTable()
    {
        MakeValueTable(TextType(kShort) +
                       (IsMariaDb() ? "" : " CHECK (length(WERT) <= 10 OR WERT IS NULL)"));
    }
};

TEST_F(TextLengths, AColumnIsFilledToItsLastByte)
{
    MakeShortTable();
    TextSet<kShort> set(m_database);
    set.Open();
    const std::vector<std::string> texts = {
        std::string(10, 'x'),  std::string(10, '\xFC'), std::string(10, '"'), std::string(10, '\''),
        std::string(10, '\\'), std::string(9, '\x80'),  std::string(10, ' ')};
    for (std::size_t i = 0; i < texts.size(); ++i) {
        set.BeginRow(static_cast<long>(i));
        Column::Make(texts[i]).ConvToRecordSet(set, set.m_value);
        EXPECT_EQ(ToText(set.m_value), texts[i]);
        EXPECT_TRUE(set.Update());
    }
    set.Requery();
    for (const std::string& text : texts) {
        ASSERT_FALSE(set.IsEOF());
        ZelDtString value(ZelDtWmNull);
        value.SetFromRecordSet(set, set.m_value);
        ExpectText(value, text);
        set.MoveNext();
    }
}

TEST_F(TextLengths, AMemberTakesWhatItsBufferHoldsAndNoMoreThanItsLengthIsWritten)
{
    MakeShortTable();
    for (const int length : {11, 12, 40, 1000}) {
        SCOPED_TRACE(length);
        Execute("DELETE FROM WERTE");
        TextSet<kShort> set(m_database);
        set.Open();
        set.BeginRow(1);
        const std::string text(static_cast<std::size_t>(length), '\xFC');
        const int room = set.m_value.GetAllocLength() - 1;
        ASSERT_GE(room, kShort);
        Column::Make(text).ConvToRecordSet(set, set.m_value);
        EXPECT_EQ(set.m_value.GetLength(), std::min(length, room));
        if (set.m_value.GetLength() > kShort) {
            EXPECT_TRUE(FailsInDatabase([&] { set.Update(); }, AFX_SQL_ERROR_DATA_TRUNCATED));
            EXPECT_EQ(CountRows(), 0);
        } else {
            EXPECT_TRUE(set.Update());
            EXPECT_EQ(ReadRows(), ValueRows({{1, std::string(10, '\xFC')}}));
        }
    }
}

TEST_F(TextLengths, OneByteMoreThanTheColumnHoldsIsRefused)
{
    MakeShortTable();
    TextSet<100> set(m_database);
    set.Open();
    set.BeginRow(1);
    ZelDtString("0123456789").ConvToRecordSet(set, set.m_value);
    EXPECT_TRUE(set.Update());
    for (const std::string& text :
         {std::string(11, 'x'), std::string(11, '\xFC'), std::string(99, 'x')}) {
        set.BeginRow(2);
        Column::Make(text).ConvToRecordSet(set, set.m_value);
        EXPECT_TRUE(FailsInDriver([&] { set.Update(); }));
        set.CancelUpdate();
        set.Requery();
        set.Edit();
        Column::Make(text).ConvToRecordSet(set, set.m_value);
        EXPECT_TRUE(FailsInDriver([&] { set.Update(); }));
        set.CancelUpdate();
        EXPECT_EQ(ReadRows(), ValueRows({{1, "0123456789"}}));
    }
}

TEST_F(TextLengths, TextsLongerThanTheMemberAreRefusedNotCut)
{
    MakeValueTable(TextType(100));
    Execute("INSERT INTO WERTE (ID, WERT) VALUES (1, \"0123456789\")");
    Execute("INSERT INTO WERTE (ID, WERT) VALUES (2, \"0123456789a\")");
    TextSet<kShort> set(m_database);
    set.Open();
    EXPECT_EQ(ToText(set.m_value), "0123456789");
    EXPECT_TRUE(FailsInDatabase([&] { set.MoveNext(); }, AFX_SQL_ERROR_DATA_TRUNCATED));
}

/// Texts of any length.
using LongTexts = TextSet<3000000>;

TEST_F(TextLengths, LongTextsComeBack)
{
    MakeValueTable(LongTextType());
    std::mt19937_64 random(20261125);
    LongTexts set(m_database);
    set.Open();
    std::vector<std::string> texts;
    for (const std::size_t length :
         {std::size_t{255}, std::size_t{256}, std::size_t{257}, std::size_t{4095},
          std::size_t{4096}, std::size_t{32767}, std::size_t{65535}, std::size_t{65536},
          std::size_t{100000}, std::size_t{1000000}}) {
        std::string text(length, ' ');
        for (char& c : text)
            c = static_cast<char>(1 + random() % 255);
        texts.push_back(text);
        set.BeginRow(static_cast<long>(texts.size()));
        Column::Make(text).ConvToRecordSet(set, set.m_value);
        ASSERT_TRUE(ToText(set.m_value) == text);
        EXPECT_TRUE(set.Update());
    }
    set.Requery();
    ZelDtString value(ZelDtWmNull);
    for (const std::string& text : texts) {
        ASSERT_FALSE(set.IsEOF());
        value.SetFromRecordSet(set, set.m_value);
        EXPECT_TRUE(ToText(value) == text) << text.size();
        EXPECT_EQ(CountWhere("ID = " + std::to_string(set.m_id) +
                             " AND LENGTH(WERT) = " + std::to_string(text.size())),
                  1);
        set.MoveNext();
    }
    EXPECT_TRUE(set.IsEOF());
}

// The buffer of the member

TEST_F(TextLengths, TheMemberKeepsItsBuffer)
{
    MakeShortTable();
    TextSet<kShort> set(m_database);
    set.Open();
    const char* const buffer = set.m_value.GetString();
    const int room = set.m_value.GetAllocLength();
    EXPECT_GE(room, kShort + 1);
    for (long id = 1; id <= 3; ++id) {
        set.BeginRow(id);
        EXPECT_EQ(set.m_value.GetString(), buffer);
        Column::Make(std::string(static_cast<std::size_t>(id) * 3, 'x'))
            .ConvToRecordSet(set, set.m_value);
        EXPECT_EQ(set.m_value.GetString(), buffer);
        EXPECT_TRUE(set.Update());
        EXPECT_EQ(set.m_value.GetString(), buffer);
    }
    set.Requery();
    const char* const again = set.m_value.GetString();
    for (int count = 0; !set.IsEOF(); set.MoveNext(), ++count) {
        EXPECT_EQ(set.m_value.GetString(), again);
        set.Edit();
        ZelDtString("changed").ConvToRecordSet(set, set.m_value);
        EXPECT_EQ(set.m_value.GetString(), again);
        EXPECT_TRUE(set.Update());
        EXPECT_EQ(set.m_value.GetString(), again);
        EXPECT_GE(set.m_value.GetAllocLength(), kShort + 1);
    }
    EXPECT_EQ(CountWhere("WERT = \"changed\""), 3);
}

TEST_F(TextLengths, TextIsPutIntoTheBufferOfTheMember)
{
    MakeShortTable();
    TextSet<kShort> set(m_database);
    set.Open();
    for (const char* text : {"", "a", "0123456789"}) {
        set.BeginRow(static_cast<long>(std::strlen(text)));
        const char* const buffer = set.m_value.GetString();
        AssignRecordsetMemberCString(set.m_value, text);
        EXPECT_EQ(set.m_value.GetString(), buffer);
        EXPECT_STREQ(buffer, text);
        set.SetFieldNull(&set.m_value, FALSE);
        EXPECT_TRUE(set.Update());
    }
    EXPECT_EQ(ReadRows(), ValueRows({{0, ""}, {1, "a"}, {10, "0123456789"}}));
    // Longer text is cut to what the buffer holds.
    set.BeginRow(100);
    const int room = set.m_value.GetAllocLength();
    const std::string longer(static_cast<std::size_t>(room) + 5, 'y');
    AssignRecordsetMemberCString(set.m_value, longer.c_str());
    EXPECT_EQ(ToText(set.m_value), std::string(static_cast<std::size_t>(room) - 1, 'y'));
    set.CancelUpdate();
}

} // namespace
