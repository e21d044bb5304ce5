/// Rows with a value of each class, random ones: what is read is what was written.

#include "tests/recordsets/value_table.h"

#include <array>
#include <cstdint>
#include <random>
#include <tuple>
#include <utility>

namespace {

using namespace zeltest;

using Random = std::mt19937_64;

int Pick(Random& random, int from, int to)
{
    return from + static_cast<int>(random() % static_cast<unsigned>(to - from + 1));
}

std::string RandomText(Random& random, int longest)
{
    std::string text;
    for (int length = Pick(random, 0, longest); length > 0; --length) {
        char c = '\x81';
        while (IsLeftOut(c))
            c = static_cast<char>(Pick(random, 1, 255));
        text.push_back(c);
    }
    return text;
}

/// The text of a random value, as ColumnOf takes it.
template <typename Value>
std::string RandomValue(Random& random);

template <>
std::string RandomValue<ZelDtLong>(Random& random)
{
    return std::to_string(static_cast<std::int32_t>(random() >> Pick(random, 0, 31)));
}

template <>
std::string RandomValue<ZelDtShort>(Random& random)
{
    return std::to_string(static_cast<std::int16_t>(random() >> Pick(random, 0, 15)));
}

template <>
std::string RandomValue<ZelDtDouble>(Random& random)
{
    return ShowDouble(RandomDouble(random));
}

template <>
std::string RandomValue<ZelDtDecimal>(Random& random)
{
    const int digits = Pick(random, 1, 28);
    std::string number;
    for (int i = 0; i < digits; ++i)
        number.push_back(static_cast<char>('0' + Pick(random, i == 0 ? 1 : 0, 9)));
    const int places = Pick(random, 0, digits);
    if (places > 0 && places < 28)
        number.insert(number.size() - static_cast<std::size_t>(places), ".");
    if (number.front() == '.')
        number.insert(0, "0");
    number = WithoutLastZeros(number);
    return Pick(random, 0, 1) == 0 ? number : "-" + number;
}

template <>
std::string RandomValue<ZelDtBool>(Random& random)
{
    return std::to_string(Pick(random, 0, 1));
}

template <>
std::string RandomValue<ZelDtString>(Random& random)
{
    return RandomText(random, ColumnOf<ZelDtString>::kLength);
}

template <>
std::string RandomValue<ZelDtChar>(Random& random)
{
    return RandomText(random, 1);
}

template <>
std::string RandomValue<ZelDtDateTime>(Random& random)
{
    Stamp stamp;
    stamp.year = Pick(random, 1753, 9999);
    stamp.month = Pick(random, 1, 12);
    stamp.day = Pick(random, 1, 28);
    stamp.hour = Pick(random, 0, 23);
    stamp.minute = Pick(random, 0, 59);
    stamp.second = Pick(random, 0, 59);
    return stamp.Text();
}

template <>
std::string RandomValue<ZelDtDateZp>(Random& random)
{
    return RandomValue<ZelDtDateTime>(random).substr(0, 10) + " 00:00:00";
}

template <>
std::string RandomValue<ZelDtTime>(Random& random)
{
    return RandomValue<ZelDtLong>(random);
}

// Rows with a column for each class

template <template <typename...> class Result, template <typename> class Of>
using ForEachClass =
    Result<Of<ZelDtLong>, Of<ZelDtShort>, Of<ZelDtDouble>, Of<ZelDtDecimal>, Of<ZelDtBool>,
           Of<ZelDtString>, Of<ZelDtChar>, Of<ZelDtDateTime>, Of<ZelDtDateZp>, Of<ZelDtTime>>;

template <typename Value>
using FieldOf = typename ColumnOf<Value>::Field;
template <typename Value>
using Itself = Value;

using Values = ForEachClass<std::tuple, Itself>;
using Fields = ForEachClass<std::tuple, FieldOf>;
constexpr std::size_t kClasses = std::tuple_size_v<Values>;

constexpr std::array<const char*, kClasses> kNames = {
    "LANG", "KURZ", "GLEIT", "DEZIMAL", "WAHR", "INHALT", "ZEICHEN", "ZEITPUNKT", "TAG", "DAUER"};

template <std::size_t I>
using ClassAt = std::tuple_element_t<I, Values>;

/// Runs `body` with each class's place, as std::integral_constant.
template <typename Body>
void ForEachPlace(Body&& body)
{
    [&]<std::size_t... I>(std::index_sequence<I...>)
    {
        (body(std::integral_constant<std::size_t, I>()), ...);
    }
    (std::make_index_sequence<kClasses>());
}

/// The texts of a row's values, none for NULL.
using Texts = std::array<std::optional<std::string>, kClasses>;

class AllColumns : public NumberedSet {
public:
    explicit AllColumns(CDatabase& database) : NumberedSet(database, kClasses) {}
    void DoFieldExchange(CFieldExchange* pFX) override
    {
        NumberedSet::DoFieldExchange(pFX);
        ForEachPlace(
            [&](auto i) { ColumnOf<ClassAt<i>>::Exchange(pFX, kNames[i], std::get<i>(m_fields)); });
    }

    /// Writes a value made of its text to the member at place `i`.
    template <typename Place>
    void Put(Place i, const std::optional<std::string>& text)
    {
        using Value = ClassAt<Place::value>;
        auto& field = std::get<Place::value>(m_fields);
        if (text)
            ColumnOf<Value>::Make(*text).ConvToRecordSet(*this, field);
        else
            Value(ZelDtWmNull).ConvToRecordSet(*this, field);
        static_cast<void>(i);
    }

    /// What values read from the members.
    Texts Get()
    {
        Texts texts;
        ForEachPlace([&](auto i) {
            ClassAt<i> value(ZelDtWmNull);
            value.SetFromRecordSet(*this, std::get<i>(m_fields));
            if (value.IsDefined())
                texts[i] = ColumnOf<ClassAt<i>>::Show(value);
        });
        return texts;
    }

    Fields m_fields;
};

std::optional<std::string> RandomOrNull(Random& random, std::string (*make)(Random&))
{
    if (Pick(random, 1, 6) == 1)
        return std::nullopt;
    return make(random);
}

class RandomRows : public TableTest {
protected:
    void SetUp() override
    {
        TableTest::SetUp();
        std::string columns = "ID INTEGER NOT NULL PRIMARY KEY";
        ForEachPlace([&](auto i) {
            columns += std::string(", ") + kNames[i] + ' ' + ColumnOf<ClassAt<i>>::Type();
        });
        MakeTable("WERTE", columns);
    }

    /// Adds so many rows.
    void Add(Random& random, std::size_t count)
    {
        AllColumns set(m_database);
        set.Open();
        while (count-- > 0) {
            set.BeginRow(static_cast<long>(m_rows.size()));
            m_rows.emplace_back();
            ForEachPlace([&](auto i) {
                m_rows.back()[i] = RandomOrNull(random, RandomValue<ClassAt<i>>);
                set.Put(i, m_rows.back()[i]);
            });
            ASSERT_TRUE(set.Update());
        }
    }

    /// Changes about every second row, and of those about every third value.
    void Change(Random& random)
    {
        AllColumns set(m_database);
        for (set.Open(); !set.IsEOF(); set.MoveNext()) {
            if (Pick(random, 1, 2) == 1)
                continue;
            Texts& row = m_rows[static_cast<std::size_t>(set.m_id)];
            set.Edit();
            ForEachPlace([&](auto i) {
                if (Pick(random, 1, 3) == 1) {
                    row[i] = RandomOrNull(random, RandomValue<ClassAt<i>>);
                    set.Put(i, row[i]);
                }
            });
            set.Update();
        }
    }

    /// Reads all rows with values of each class.
    void Check()
    {
        EXPECT_EQ(CountRows(), static_cast<long>(m_rows.size()));
        AllColumns set(m_database);
        std::size_t count = 0;
        for (set.Open(); !set.IsEOF(); set.MoveNext(), ++count) {
            ASSERT_LT(count, m_rows.size());
            ASSERT_EQ(set.m_id, static_cast<long>(count));
            EXPECT_EQ(set.Get(), m_rows[count]) << "row " << count;
        }
        EXPECT_EQ(count, m_rows.size());
    }

    std::vector<Texts> m_rows;
};

TEST_F(RandomRows, AreReadAsTheyWereWritten)
{
    Random random(20261127);
    Add(random, 300);
    Check();
}

TEST_F(RandomRows, AreReadAsTheyWereChanged)
{
    Random random(20261128);
    Add(random, 150);
    for (int round = 0; round < 3; ++round) {
        Change(random);
        Check();
    }
}

TEST_F(RandomRows, AreReadInEveryDirection)
{
    Random random(20261205);
    Add(random, 120);
    const long last = static_cast<long>(m_rows.size()) - 1;
    for (const UINT type : {CRecordset::dynaset, CRecordset::snapshot}) {
        AllColumns set(m_database);
        set.Open(type);
        ASSERT_TRUE(set.CanScroll());
        long expected = last;
        for (set.MoveLast(); !set.IsBOF(); set.MovePrev(), --expected) {
            ASSERT_EQ(set.m_id, expected);
            EXPECT_EQ(set.Get(), m_rows[static_cast<std::size_t>(expected)]);
        }
        EXPECT_EQ(expected, -1);
        for (int i = 0; i < 200; ++i) {
            const long id = Pick(random, 0, static_cast<int>(last));
            set.SetAbsolutePosition(Pick(random, 0, 1) == 0 ? id + 1 : id - last - 1);
            ASSERT_EQ(set.m_id, id);
            EXPECT_EQ(set.Get(), m_rows[static_cast<std::size_t>(id)]);
        }
    }
    AllColumns set(m_database);
    long expected = 0;
    for (set.Open(CRecordset::forwardOnly, nullptr, CRecordset::readOnly); !set.IsEOF();
         set.MoveNext(), ++expected) {
        ASSERT_EQ(set.m_id, expected);
        EXPECT_EQ(set.Get(), m_rows[static_cast<std::size_t>(expected)]);
    }
    EXPECT_EQ(expected, last + 1);
}

TEST_F(RandomRows, ShowTheirChangesWhenTheyAreComeBackTo)
{
    Random random(20261206);
    Add(random, 60);
    AllColumns set(m_database);
    set.Open();
    for (int i = 0; i < 200; ++i) {
        const std::size_t id = static_cast<std::size_t>(Pick(random, 0, 59));
        set.SetAbsolutePosition(static_cast<long>(id) + 1);
        EXPECT_EQ(set.Get(), m_rows[id]);
        set.Edit();
        ForEachPlace([&](auto place) {
            if (Pick(random, 1, 4) == 1) {
                m_rows[id][place] = RandomOrNull(random, RandomValue<ClassAt<place>>);
                set.Put(place, m_rows[id][place]);
            }
        });
        set.Update();
        EXPECT_EQ(set.Get(), m_rows[id]);
    }
    Check();
}

TEST_F(RandomRows, AreThereForOthers)
{
    Random random(20261129);
    Add(random, 150);
    Change(random);
    Commit();
    // Texts as bytes, moments as the database writes them, doubles with all digits. (SQLite's
    // functions make something of NULL.)
    const auto unlessNull = [](const std::string& name, const std::string& shown) {
        return "CASE WHEN " + name + " IS NOT NULL THEN " + shown + " END, ";
    };
    const Rows rows = OtherConnection().Query(
        "SELECT ID, LANG, KURZ, " +
        unlessNull("GLEIT", ByDatabase("printf('%!.20g', GLEIT)", "CAST(GLEIT AS CHAR)")) +
        "DEZIMAL, WAHR, " + unlessNull("INHALT", "HEX(INHALT)") +
        unlessNull("ZEICHEN", "HEX(ZEICHEN)") +
        ByDatabase("datetime(ZEITPUNKT), date(TAG)", "CAST(ZEITPUNKT AS CHAR), CAST(TAG AS CHAR)") +
        ", DAUER FROM WERTE ORDER BY ID");
    ASSERT_EQ(rows.size(), m_rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        SCOPED_TRACE(i);
        const Texts& expected = m_rows[i];
        ASSERT_EQ(rows[i].size(), 1 + kClasses);
        EXPECT_EQ(rows[i][0], std::to_string(i));
        for (std::size_t place = 0; place < kClasses; ++place) {
            const std::string& found = rows[i][place + 1];
            std::string text = expected[place].value_or(kNull);
            if (expected[place]) {
                if (kNames[place] == std::string("INHALT") ||
                    kNames[place] == std::string("ZEICHEN"))
                    text = HexInDatabase(text);
                else if (kNames[place] == std::string("TAG"))
                    text = text.substr(0, 10);
            }
            if (expected[place] && kNames[place] == std::string("GLEIT"))
                EXPECT_EQ(ShowDouble(ReadDouble(found)), text);
            else if (expected[place] && kNames[place] == std::string("DEZIMAL"))
                EXPECT_EQ(WithoutLastZeros(found), text);
            else
                EXPECT_EQ(found, text) << kNames[place];
        }
    }
}

TEST_F(RandomRows, OfOthersAreRead)
{
    Commit();
    OtherConnection other;
    // Texts of other connections are UTF-8.
    other.Execute("INSERT INTO WERTE (ID, LANG, KURZ, GLEIT, DEZIMAL, WAHR, INHALT, ZEICHEN, "
                  "ZEITPUNKT, TAG, DAUER) VALUES (0, -2147483648, -32768, 0.1, '19.99', 1, "
                  "'Stra\xC3\x9F"
                  "e \xC3\xA4\xC3\xB6\xC3\xBC \xE2\x82\xAC \"O''Brien\"', "
                  "'\xC3\xBC', '2000-03-05 14:07:09', '9999-12-31', 1800)");
    other.Execute("INSERT INTO WERTE (ID) VALUES (1)");
    m_rows.push_back({"-2147483648", "-32768", "0.1", "19.99", "1",
                      "Stra\xDF"
                      "e \xE4\xF6\xFC \x80 \"O'Brien\"",
                      "\xFC", "2000-03-05 14:07:09", "9999-12-31 00:00:00", "1800"});
    m_rows.emplace_back();
    Check();
}

TEST_F(RandomRows, LeaveTheOthersAloneWhenTheyAreDeleted)
{
    Random random(20261130);
    Add(random, 60);
    std::vector<std::pair<long, Texts>> left;
    {
        AllColumns set(m_database);
        for (set.Open(); !set.IsEOF(); set.MoveNext()) {
            if (set.m_id % 7 == 0)
                set.Delete();
            else
                left.emplace_back(set.m_id, m_rows[static_cast<std::size_t>(set.m_id)]);
        }
    }
    EXPECT_EQ(CountRows(), 51);
    AllColumns set(m_database);
    std::size_t count = 0;
    for (set.Open(); !set.IsEOF(); set.MoveNext(), ++count) {
        ASSERT_LT(count, left.size());
        EXPECT_EQ(set.m_id, left[count].first);
        EXPECT_EQ(set.Get(), left[count].second);
    }
    EXPECT_EQ(count, 51U);
}

} // namespace
