// Texts on their way to a column and back: lengths, every byte, and the code page.

#include "tests/platform/recordsets/recordsets_testing.h"

#include <random>

using namespace zeltest;

namespace {

constexpr RETCODE kTruncated = AFX_SQL_ERROR_DATA_TRUNCATED;

/// What the bytes 0x80 to 0x9F are in code page 1252; the five that it leaves free stand for
/// themselves. From 0xA0 on bytes and characters have the same numbers.
constexpr unsigned kCharacters[] = {0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x8D,   0x017D, 0x8F,
                                    0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

std::string Utf8(unsigned character)
{
    std::string bytes;
    const auto add = [&](unsigned b) { bytes += static_cast<char>(static_cast<unsigned char>(b)); };
    if (character < 0x80) {
        add(character);
    } else if (character < 0x800) {
        add(0xC0 | character >> 6);
        add(0x80 | (character & 0x3F));
    } else {
        add(0xE0 | character >> 12);
        add(0x80 | (character >> 6 & 0x3F));
        add(0x80 | (character & 0x3F));
    }
    return bytes;
}

std::string Utf8(const std::string& text)
{
    std::string bytes;
    for (const char c : text) {
        const auto b = static_cast<unsigned char>(c);
        bytes += Utf8(b >= 0x80 && b < 0xA0 ? kCharacters[b - 0x80] : b);
    }
    return bytes;
}

/// All bytes but NUL.
std::string AllBytes()
{
    std::string text;
    for (int b = 1; b < 256; ++b)
        text += static_cast<char>(b);
    return text;
}

class Texts : public ValuesTest {
protected:
    using Set = COne<CString>;

    /// What others see of the texts.
    static std::vector<std::string> Stored()
    {
        OtherConnection other;
        std::vector<std::string> texts;
        for (const Row& row : other.Query("SELECT V FROM VALS ORDER BY ID"))
            texts.push_back(row[0]);
        return texts;
    }

    /// Texts through a record set, in the database in UTF-8, and through another one.
    void ExpectKept(const std::vector<std::string>& texts, int maxLength)
    {
        Set writer(&m_database, maxLength);
        writer.Open();
        m_database.BeginTrans();
        long id = 0;
        for (const std::string& text : texts) {
            const CString value = Cs(text);
            writer.Add(++id, &value);
        }
        m_database.CommitTrans();
        const std::vector<std::string> stored = Stored();
        ASSERT_EQ(stored.size(), texts.size());
        Set reader(&m_database, maxLength);
        reader.Open(CRecordset::snapshot);
        for (std::size_t i = 0; i < texts.size(); ++i) {
            EXPECT_EQ(stored[i], Utf8(texts[i])) << "text " << i;
            ASSERT_FALSE(reader.IsEOF());
            EXPECT_FALSE(reader.IsNull());
            EXPECT_EQ(Str(reader.m_value), texts[i]) << "text " << i;
            reader.MoveNext();
        }
        EXPECT_TRUE(reader.IsEOF());
    }
};

} // namespace

TEST_F(Texts, OfAnyContentAreKept)
{
    MakeValues("VARCHAR(255)");
    ExpectKept({"",
                " ",
                "a",
                " a ",
                "a ",
                "'",
                "''",
                "\"",
                "\"\"",
                "it's \"so\"",
                "\\",
                "\\'",
                "\\\\",
                "C:\\temp\\new",
                "; DROP TABLE VALS; --",
                "'); DELETE FROM VALS; --",
                "/* no comment */",
                "-- none either",
                "?",
                ":a @b $c ?1",
                "%_",
                "{fn NOW()}",
                "{d '2000-01-01'}",
                "NULL",
                "tab\tand\r\nline",
                "Gr\xFC\xDF"
                "e aus K\xF6ln: \x80 5,\x97",
                AllBytes()},
               255);
}

TEST_F(Texts, OfEveryByteAreKept)
{
    MakeValues("VARCHAR(5)");
    std::vector<std::string> texts;
    for (int b = 1; b < 256; ++b)
        texts.push_back(std::string("<") + static_cast<char>(b) + ">");
    ExpectKept(texts, 5);
}

TEST_F(Texts, ThatAreEmptyAreNotNull)
{
    MakeValues("VARCHAR(20)");
    Set writer(&m_database);
    writer.Open();
    const CString empty;
    writer.Add(1, &empty);
    writer.Add(2, nullptr);
    EXPECT_EQ(Stored(), (std::vector<std::string>{"", kNull}));
    writer.Requery();
    EXPECT_FALSE(writer.IsNull());
    EXPECT_TRUE(writer.m_value.IsEmpty());
    writer.MoveNext();
    EXPECT_TRUE(writer.IsNull());
    EXPECT_TRUE(writer.m_value.IsEmpty());
}

TEST_F(Texts, OfAnyLengthAreKept)
{
    MakeValues(ByDatabase("TEXT", "LONGTEXT"));
    std::vector<std::string> texts;
    for (const std::size_t length :
         {1,    127,   128,   254,   255,   256,   257,   511,   512,  513,
          1023, 1024,  1025,  2047,  2048,  4095,  4096,  4097,  8191, 8192,
          8193, 32767, 32768, 65534, 65535, 65536, 65537, 100000}) {
        // Each length with characters of one, two and three bytes in UTF-8, and mixed.
        texts.push_back(std::string(length, 'x'));
        texts.push_back(std::string(length, '\xE4'));
        texts.push_back(std::string(length, '\x80'));
        std::string mixed;
        for (std::size_t i = 0; i < length; ++i)
            mixed += static_cast<char>(1 + i * 7 % 255);
        texts.push_back(mixed);
    }
    Set writer(&m_database, 100000);
    writer.Open();
    m_database.BeginTrans();
    long id = 0;
    for (const std::string& text : texts) {
        const CString value = Cs(text);
        writer.Add(++id, &value);
    }
    m_database.CommitTrans();
    for (const UINT type : {CRecordset::forwardOnly, CRecordset::dynaset}) {
        Set reader(&m_database, 100000);
        reader.Open(type);
        for (const std::string& text : texts) {
            ASSERT_FALSE(reader.IsEOF());
            // Not EXPECT_EQ: nobody wants to read these texts.
            EXPECT_TRUE(Str(reader.m_value) == text)
                << "text " << reader.m_id << " of " << text.size() << " bytes";
            reader.MoveNext();
        }
    }
}

TEST_F(Texts, MayBeAsLongAsTheField)
{
    MakeValues("VARCHAR(10)");
    Set set(&m_database, 5);
    set.Open();
    const CString fits("\xE4\x80"
                       "cde");
    set.Add(1, &fits);
    const CString tooLong("abcdef");
    EXPECT_TRUE(FailsInDatabase([&] { set.Add(2, &tooLong); }, kTruncated));
    EXPECT_EQ(Stored(), std::vector<std::string>{Utf8("\xE4\x80"
                                                      "cde")});
    set.CancelUpdate();
    set.Requery();
    EXPECT_STREQ(set.m_value, fits);
}

TEST_F(Texts, LongerThanTheFieldAreRefused)
{
    MakeValues("VARCHAR(10)");
    Execute("INSERT INTO VALS VALUES (1,'abcde'),(2,'abcdef'),(3,'abc')");
    for (const UINT type : {CRecordset::forwardOnly, CRecordset::snapshot, CRecordset::dynaset}) {
        Set set(&m_database, 5);
        set.Open(type);
        EXPECT_STREQ(set.m_value, "abcde");
        EXPECT_TRUE(FailsInDatabase([&] { set.MoveNext(); }, kTruncated));
        EXPECT_STREQ(set.m_value, "abcde") << "no half of it";
    }
}

TEST_F(Texts, LongerThanTheColumnAreTheDatabasesError)
{
    MakeValues(ByDatabase("VARCHAR(5) CHECK (LENGTH(V) <= 5)", "VARCHAR(5)"));
    Set set(&m_database, 20);
    set.Open();
    const CString fits("\xE4\xF6\xFC\xDF\x80");
    set.Add(1, &fits);
    const CString tooLong("abcdef");
    EXPECT_TRUE(FailsInDriver([&] { set.Add(2, &tooLong); }, "", ByDatabase(19, 1406)));
    EXPECT_EQ(Stored(), std::vector<std::string>{Utf8("\xE4\xF6\xFC\xDF\x80")});
    set.m_value = "abcde";
    EXPECT_TRUE(set.Update()) << "the change can be corrected";
    EXPECT_EQ(Stored().size(), 2U);
}

TEST_F(Texts, WithNulBytesAreKeptOrRefused)
{
    const std::string text("a\0b", 3);
    MakeValues("VARCHAR(20)");
    Set set(&m_database);
    set.Open();
    const CString value = Cs(text);
    if (IsSqlite()) {
        EXPECT_TRUE(FailsInDatabase([&] { set.Add(1, &value); }, kTruncated));
        EXPECT_EQ(Stored(), std::vector<std::string>{});
        set.CancelUpdate();
        const CString nul = Cs(std::string(1, '\0'));
        EXPECT_TRUE(FailsInDatabase([&] { set.Add(1, &nul); }, kTruncated));
        EXPECT_EQ(Stored(), std::vector<std::string>{});
        return;
    }
    set.Add(1, &value);
    EXPECT_EQ(OtherConnection().QueryOne("SELECT HEX(V) FROM VALS"), "610062");
    set.Requery();
    EXPECT_EQ(Str(set.m_value), text);
}

TEST_F(Texts, OfOthersAreUtf8)
{
    MakeValues("VARCHAR(200)");
    OtherConnection().Execute(
        "INSERT INTO VALS VALUES (1,'\xC3\x84pfel \xE2\x82\xAC 5 \xE2\x80\x93 "
        "\xC5\xA0\xC5\xBE\xC5\xB8')");
    Set set(&m_database);
    set.Open();
    EXPECT_EQ(Str(set.m_value), "\xC4pfel \x80 5 \x96 \x8A\x9E\x9F");
}

TEST_F(Texts, OutsideTheCodePageAreRefused)
{
    struct {
        const char* what;
        const char* utf8;
    } const kCases[] = {
        {"a with macron", "\xC4\x81"},
        {"Cyrillic", "\xD0\x96"},
        {"Greek alpha, which resembles a", "\xCE\xB1"},
        {"Chinese", "\xE6\x97\xA5"},
        {"a picture", "\xF0\x9F\x99\x82"},
        {"a separate diaeresis", "a\xCC\x88"},
        {"a wide letter A", "\xEF\xBC\xA1"},
        {"a minus sign", "\xE2\x88\x92"},
        {"U+0080, whose byte is the euro", "\xC2\x80"},
        {"U+0099", "\xC2\x99"},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.what);
        MakeValues("VARCHAR(20)");
        OtherConnection().Execute("INSERT INTO VALS VALUES (1,'ok'),(2,'x" + std::string(c.utf8) +
                                  "y')");
        Set set(&m_database);
        set.Open();
        EXPECT_STREQ(set.m_value, "ok");
        EXPECT_TRUE(FailsInDatabase([&] { set.MoveNext(); }, kTruncated));
        EXPECT_STREQ(set.m_value, "ok");
    }
}

/// MariaDB itself refuses to store such texts.
TEST_F(Texts, ThatAreNoUtf8AreRefusedOnSqlite)
{
    for (const char* bytes : {"E4", "C3", "C328", "E282", "FF", "80", "C080", "EDA080"}) {
        SCOPED_TRACE(bytes);
        MakeValues("VARCHAR(20)");
        OtherConnection().Execute("INSERT INTO VALS VALUES (1,CAST(X'" + std::string(bytes) +
                                  "' AS TEXT))");
        Set set(&m_database);
        EXPECT_TRUE(FailsInDatabase([&] { set.Open(); }, kTruncated));
        EXPECT_FALSE(set.IsOpen());
    }
}

TEST_F(Texts, KeepQuestionMarksThatAreTheirOwn)
{
    MakeValues("VARCHAR(20)");
    ExpectKept({"?", "??", "what?", "\xBF?"}, 20);
}

TEST_F(Texts, AtRandomAreKept)
{
    MakeValues(ByDatabase("TEXT", "LONGTEXT"));
    std::mt19937 random(20263);
    std::vector<std::string> texts;
    for (int i = 0; i < 400; ++i) {
        std::string text;
        for (unsigned length = random() % 300; length > 0; --length)
            text += static_cast<char>(1 + random() % 255);
        texts.push_back(text);
    }
    ExpectKept(texts, 300);
}
