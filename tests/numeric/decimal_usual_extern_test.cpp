/// External texts of usual numbers go a short way, into and out of archives too. It gives what the
/// rule says, and what the long way gives.

#include "tests/numeric/decimal_testing.h"

#include "platform/runtime/digits.h"

#include <algorithm>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace zeltest;

using Random = std::mt19937;

/// Plain digits with so many decimals; none of the zeros in front is needless.
std::string PlainText(Random& random, std::size_t digits, std::size_t places, bool negative)
{
    std::string text(digits, '0');
    for (char& digit : text)
        digit = static_cast<char>('0' + random() % 10);
    if (text.front() == '0')
        text.front() = '7';
    text.insert(0, places < digits ? 0 : places + 1 - digits, '0');
    if (places != 0)
        text.insert(text.size() - places, 1, '.');
    return (negative ? "-" : "") + text;
}

/// The external text of a number that is not 0, by the rule: one digit, a point, the others, and
/// the exponent of the first with a sign and at least three digits.
std::string ExternOf(std::string plain)
{
    std::string text;
    if (plain.front() == '-') {
        text = "-";
        plain.erase(0, 1);
    }
    const auto point = static_cast<int>(std::min(plain.find('.'), plain.size()));
    const auto first = static_cast<int>(plain.find_first_not_of("0."));
    const int exponent = first < point ? point - first - 1 : point - first;
    plain.erase(std::remove(plain.begin(), plain.end(), '.'), plain.end());
    plain.erase(0, plain.find_first_not_of('0'));
    const std::string size = std::to_string(exponent < 0 ? -exponent : exponent);
    return text + plain.substr(0, 1) + "." + plain.substr(1) + (exponent < 0 ? "E-" : "E+") +
           std::string(3 - size.size(), '0') + size;
}

std::string ExternText(const ZelDtDecimal& value)
{
    int defined = 0;
    unsigned short version = 0;
    return TextOf(value.ConvToExtern(defined, version));
}

/// The defined word, the text with its length, and the version.
Bytes ArchiveForm(const std::string& text)
{
    return Bytes{1, 0, 0, 0, static_cast<int>(text.size())} + Bytes(text) + Bytes{100, 0};
}

/// What an operation left behind.
struct Outcome {
    std::string disturbance;
    Error error;
    Error first;
    Number number;

    bool operator==(const Outcome&) const = default;
    friend std::ostream& operator<<(std::ostream& os, const Outcome& outcome)
    {
        return os << outcome.disturbance << ' ' << outcome.error << ' ' << outcome.number;
    }
};

template <typename Action>
Outcome OutcomeOf(const Action& action)
{
    ZelDtDecimal value("2.50");
    const Caught caught = Catch([&] { action(value); });
    return {caught.disturbance, caught.error, caught.first, Look(value)};
}

Outcome ReadExtern(const std::string& text)
{
    return OutcomeOf([&](ZelDtDecimal& value) {
        const ZelDtString external(text.c_str());
        value.SetFromExtern(&external, 1, 100);
    });
}

Outcome ReadArchive(const std::string& text)
{
    return OutcomeOf([&](ZelDtDecimal& value) {
        Loaded(ArchiveForm(text), [&](CArchive& ar) { value.Serialize(ar); });
    });
}

/// A digit more of the exponent changes nothing but the way.
std::string LongWay(std::string text)
{
    return text.insert(text.size() - 3, 1, '0');
}

void ExpectSameOutcomes(const std::string& text)
{
    const Outcome expected = ReadExtern(LongWay(text));
    ASSERT_EQ(ReadExtern(text), expected) << text;
    ASSERT_EQ(ReadArchive(text), expected) << text;
}

/// A class of an application with external texts of its own.
class Marked : public ZelDtDecimal {
public:
    using ZelDtDecimal::ZelDtDecimal;

    ZelDtString ConvToExtern(int& defined, unsigned short& version) const override
    {
        ZelDtString text = ZelDtDecimal::ConvToExtern(defined, version);
        text += "!";
        return text;
    }

    void SetFromExtern(const ZelDtString* text, int defined, unsigned short version) override
    {
        seen = TextOf(*text);
        ZelDtDecimal::SetFromExtern(text, defined, version);
    }

    std::string seen;
};

} // namespace

TEST(UsualExternalTexts, AreMadeByTheRule)
{
    Random random(11);
    for (int i = 0; i < 20000; ++i) {
        const std::size_t digits = 1 + random() % 28;
        const std::string plain = PlainText(random, digits, random() % 28, random() % 2 != 0);
        // Zeros in front of a negative number count as digits.
        if (plain.size() > (plain.front() == '0' ? 38 : 28))
            continue;
        const ZelDtDecimal value(plain.c_str());
        const std::string text = ExternOf(plain);
        ASSERT_EQ(ExternText(value), text) << plain;
        ASSERT_EQ(Stored([&](CArchive& ar) { ZelDtDecimal(value).Serialize(ar); }),
                  ArchiveForm(text));
        ASSERT_EQ(ReadExtern(text).number, (Number{{ZelDtWmMissing, 1, 1}, plain}));
        ASSERT_EQ(ReadArchive(text).number, (Number{{ZelDtWmMissing, 1, 1}, plain}));
    }
}

TEST(UsualExternalTexts, EndWhereNumbersGetLong)
{
    for (const char* plain : {"9",
                              "-9",
                              "10",
                              "99999999",
                              "100000000",
                              "9999999999999999",
                              "10000000000000000",
                              "99999999999999999",
                              "100000000000000000",
                              "999999999999999999",
                              "-999999999999999999",
                              "1000000000000000000",
                              "9223372036854775807",
                              "-9223372036854775808",
                              "9223372036854775808",
                              "-9223372036854775809",
                              "0.999999999999999999",
                              kTiny,
                              kLargest,
                              kSmallest,
                              "0.0000000000000000000000000001"}) {
        const std::string text = ExternOf(plain);
        EXPECT_EQ(ExternText(ZelDtDecimal(plain)), text);
        EXPECT_EQ(Stored([&](CArchive& ar) { ZelDtDecimal(plain).Serialize(ar); }),
                  ArchiveForm(text));
        EXPECT_EQ(ReadExtern(text).number.text, plain);
        EXPECT_EQ(ReadArchive(text).number.text, plain);
    }
}

TEST(UsualExternalTexts, AreReadAsTheLongWayReadsThem)
{
    // Digits, points, signs and ends of every kind.
    for (const char* mantissa : {"0",
                                 "0.",
                                 "0.0",
                                 "-0",
                                 "-0.00",
                                 "5",
                                 "5.",
                                 "-5",
                                 "05",
                                 "0.5",
                                 "-0.5",
                                 "12",
                                 "12.5",
                                 ".5",
                                 "5..",
                                 "5.0.0",
                                 "+5",
                                 "+5.0",
                                 "--5",
                                 "-+5.0",
                                 "-",
                                 "",
                                 ".",
                                 "-.",
                                 "5,0",
                                 " 5",
                                 "5 ",
                                 "5E",
                                 "1.234567890123456",
                                 "1.2345678901234567",
                                 "1.23456789012345678901234567",
                                 "-1.23456789012345678901234567",
                                 "1.234567890123456789012345678",
                                 "-1.234567890123456789012345678",
                                 "1.2345678901234567890123456789",
                                 "0.000000000000000000000000001",
                                 "1.000000000000000000000000000"})
        for (const char* exponent :
             {"E+000", "E-000", "E+001", "E-001", "E+009", "E-010", "E+026", "E+027",
              "E+028", "E-026", "E-027", "E-028", "E-036", "E+100", "E-100", "E+999",
              "E0000", "Ex001", "e+001", "E+0x1", "E+00x", "E+x00", "E-0-1"})
            ExpectSameOutcomes(std::string(mantissa) + exponent);
}

TEST(UsualExternalTexts, WithAnyCharactersAreReadAsTheLongWayReadsThem)
{
    static constexpr std::string_view kAlphabet = "0123456789012345678901234567890..--+E ,x";
    Random random(12);
    for (int i = 0; i < 20000; ++i) {
        std::string text = PlainText(random, 1 + random() % 28, 0, random() % 2 != 0);
        text.insert(std::min<std::size_t>(text.size(), text.front() == '-' ? 2 : 1), 1, '.');
        text += random() % 2 != 0 ? "E+0" : "E-0";
        text += std::to_string(10 + random() % 25);
        for (std::size_t changes = random() % 3; changes != 0; --changes)
            text[random() % text.size()] = kAlphabet[random() % kAlphabet.size()];
        // With other characters there a zero more would change the exponent.
        if (text[text.size() - 5] == 'E' && zelrt::IsDigit(text[text.size() - 3]))
            ExpectSameOutcomes(text);
        if (HasFatalFailure())
            return;
    }
}

TEST(ArchivedDecimals, CrossTheEndOfTheBuffer)
{
    constexpr int kBuffer = 128;
    const std::vector<std::string> numbers = {"0", "-1234.56", "9.999999999999999999999999999"};
    for (std::size_t before = 0; before <= kBuffer; ++before) {
        CMemFile file;
        CArchive out(&file, CArchive::store, kBuffer);
        const std::string filling(before, '#');
        out.Write(filling.data(), static_cast<UINT>(before));
        std::string expected = filling;
        for (const std::string& number : numbers) {
            ZelDtDecimal(number.c_str()).Serialize(out);
            expected += ArchiveForm(number == "0" ? "0E+000" : ExternOf(number)).data;
        }
        out.Close();
        ASSERT_EQ(Contents(file), Bytes(expected)) << before;

        file.SeekToBegin();
        CArchive in(&file, CArchive::load, kBuffer);
        std::string read(before, '\0');
        in.Read(read.data(), static_cast<UINT>(before));
        for (const std::string& number : numbers) {
            ZelDtDecimal value;
            value.Serialize(in);
            ASSERT_EQ(NumberOf(value), number) << before;
        }
    }
}

TEST(ArchivedDecimals, HaveTheExternalTextsOfDerivedClasses)
{
    Marked value("12.5");
    const Bytes bytes = Stored([&](CArchive& ar) { value.Serialize(ar); });
    EXPECT_EQ(bytes, ArchiveForm("1.25E+001!"));
    Marked read;
    Loaded(bytes, [&](CArchive& ar) { read.Serialize(ar); });
    EXPECT_EQ(read.seen, "1.25E+001!");
    EXPECT_EQ(NumberOf(read), "12.5");
}
