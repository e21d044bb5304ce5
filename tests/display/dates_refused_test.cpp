/// What date-times and dates refuse to read, and that they stay as they are then.

#include "tests/display/dates_reading.h"

#include <string>

namespace {

using namespace zeltest;

template <typename Value>
class DatesRefused : public ::testing::Test {};

TYPED_TEST_SUITE(DatesRefused, DateClasses);

TYPED_TEST(DatesRefused, ByTheStandardMode)
{
    const struct {
        const char* text;
        unsigned long cause;
    } rows[] = {
        // What no calendar and no clock has.
        {"29.02.2001", 8},
        {"29.02.1900", 8},
        {"30.02.2000", 8},
        {"32.1.2000", 8},
        {"31.4.2000", 8},
        {"31.9.2000", 8},
        {"99.1.2000", 8},
        {"0.1.2000", 8},
        {"00.01.2000", 8},
        {"1.13.2000", 8},
        {"1.99.2000", 8},
        {"1.0.2000", 8},
        {"1.1.32768", 8},
        {"1.1.99999", 8},
        {"32.1.00", 8},
        {"29.2.01", 8},
        {"5.3.2000 24:00", 8},
        {"5.3.2000 24:00:00", 8},
        {"5.3.2000 99:00", 8},
        {"5.3.2000 12:60", 8},
        {"5.3.2000 12:99", 8},
        {"5.3.2000 12:00:60", 8},
        {"5.3.2000 23:59:99", 8},
        // Missing parts.
        {" ", 21},
        {"\t", 21},
        {" \t \t ", 21},
        {"5", 21},
        {"5.", 21},
        {"5.3", 21},
        {"5.3.", 21},
        {"5.3.2", 21},
        {"5.3.200", 21},
        {".3.2000", 21},
        {"5..2000", 21},
        {"..", 21},
        {"5.2000", 21},
        {"32.1.", 21},
        {"1.13.", 21},
        {"5.3.2000 12", 21},
        {"5.3.2000 12:", 21},
        {"5.3.2000 12:3", 21},
        {"5.3.2000 :30", 21},
        {"5.3.2000 :", 21},
        {"5.3.2000 12:30:", 21},
        {"5.3.2000 12:30:5", 21},
        {"5.3.2000 1230", 21},
        {"12:30", 21},
        {"12:60", 21},
        {"24:00", 21},
        // Parts too many.
        {"5.3.2000.", 21},
        {"5.3.2000.1", 21},
        {"5.3.2000 12:30:05:01", 21},
        {"5.3.2000 12:30:05.1", 21},
        {"5.3.2000 12:30 12:30", 21},
        {"5.3.2000 5.3.2000", 21},
        {"5.3.2000 12:30x", 21},
        {"5.3.2000 12:30 x", 21},
        {"5.3.2000 12:30 Uhr", 21},
        {"5.3.2000 12:30 PM", 21},
        {"5.3.2000x", 21},
        {"x5.3.2000", 21},
        {"So 5.3.2000", 21},
        {"'5.3.2000'", 21},
        // Too many digits.
        {"005.3.2000", 21},
        {"5.003.2000", 21},
        {"5.3.2000 012:30", 21},
        {"5.3.2000 12:030", 21},
        {"5.3.2000 12:30:005", 21},
        // Signs, blanks and other separators inside.
        {"-5.3.2000", 21},
        {"+5.3.2000", 21},
        {"5.-3.2000", 21},
        {"5.3.-2000", 21},
        {"5.3.2000 -1:30", 21},
        {"5 .3.2000", 21},
        {"5.3 .2000", 21},
        {"5.3. 2000", 21},
        {"5.3.20 00", 21},
        {"5.3.2000 12 :30", 21},
        {"5.3.2000 12: 30", 21},
        {"5 3 2000", 21},
        {"5/3/2000", 21},
        {"5-3-2000", 21},
        {"5.3/2000", 21},
        {"5,3,2000", 21},
        {"2000-03-05", 21},
        {"5.3.2000 12.30", 21},
        {"5.3.2000 12,30", 21},
        {"5.3.2000,12:30", 21},
        {"5.3.2000T12:30", 21},
        {"5.3.200012:30", 21},
        // Months have numbers there.
        {"5.M\xE4r.2000", 21},
        {"5.M\xE4rz.2000", 21},
        {"5.Mai.2000", 21},
        // Bytes that are no digits whatever the code page makes of them.
        {"5.3.2000\n", 21},
        {"\r5.3.2000", 21},
        {"5.3.2000\v", 21},
        {"5.3.2000\xA0", 21},
        {"\xA0", 21},
        {"\xB2.3.2000", 21},
        {"5.\xB3.2000", 21},
        {"5.3.200\xBC", 21},
        {"\x80\x81\xFE\xFF", 21},
        {"\xFF.3.2000", 21},
        {"5\xB7"
         "3\xB7"
         "2000",
         21},
        {"5.3.2000 12\xB7"
         "30",
         21},
        {"a.b.c", 21},
        {"Ja", 21},
        {"NULL", 21},
        {"1e3", 21},
        {"0x5.3.2000", 21},
    };
    for (const auto& row : rows)
        ExpectRefused<TypeParam>(ZelFormat(ZelFormat::ZelFoStandard), row.text, row.cause);
    for (const auto& row : rows) {
        Given<TypeParam> given(Moment{{ZelDtWmNull, 1, 0}, kSome});
        EXPECT_TRUE(FailsByFormat([&] { given.it.SetFromOFL(row.text, nullptr); },
                                  ReadDateError<TypeParam>(), row.cause, "ParseDateTime"))
            << "'" << row.text << "' by the default format";
    }
}

TYPED_TEST(DatesRefused, WithAByteInPlaceOfAnother)
{
    const std::string text = "05.03.2000 14:07:09";
    const ZelFormat format(ZelFormat::ZelFoStandard);
    for (std::size_t place = 0; place < text.size(); ++place) {
        for (int code = 1; code < 256; ++code) {
            const auto byte = static_cast<char>(code);
            // Digits and blanks may have a meaning there.
            if ((byte >= '0' && byte <= '9') || byte == ' ' || byte == '\t' || byte == text[place])
                continue;
            std::string damaged = text;
            damaged[place] = byte;
            ExpectRefused<TypeParam>(format, damaged, 21, OneMoment());
        }
    }
}

TYPED_TEST(DatesRefused, ByDateFormats)
{
    const struct {
        DateOptions options;
        const char* text;
        unsigned long cause;
    } rows[] = {
        // The format's separator and no other.
        {{0, 0, 0, 0, 1, '0'}, "5/3/2000", 21},
        {{0, 1, 0, 0, 1, '0'}, "5.3.2000", 21},
        {{0, 1, 0, 0, 1, '0'}, "5-3-2000", 21},
        {{0, 2, 0, 0, 1, '0'}, "5/3/2000", 21},
        {{0, 2, 0, 0, 1, '0'}, "5-3.2000", 21},
        {{0, 3, 0, 0, 1, '0'}, "5.3.2000", 21},
        {{0, 3, 0, 0, 1, '0'}, "05.03.2000", 21},
        {{0, 3, 0, 0, 1, '0'}, "5 3 2000", 21},
        // Digits alone: day and month of two, a year of two or four.
        {{0, 3, 0, 0, 0, '0'}, "5", 21},
        {{0, 3, 0, 0, 0, '0'}, "0503", 21},
        {{0, 3, 0, 0, 0, '0'}, "05032", 21},
        {{0, 3, 0, 0, 0, '0'}, "0503200", 21},
        {{0, 3, 0, 0, 0, '0'}, "29022001", 8},
        {{0, 3, 0, 0, 0, '0'}, "32012000", 8},
        {{0, 3, 0, 0, 0, '0'}, "00012000", 8},
        {{0, 3, 0, 0, 0, '0'}, "01132000", 8},
        {{0, 3, 0, 0, 0, '0'}, "290201", 8},
        // A time where there is none, a date where there is none.
        {{0, 0, 0, 0, 1, '0'}, "5.3.2000 14:07", 21},
        {{0, 0, 0, 0, 1, '0'}, "5.3.2000 0:00:00", 21},
        {{0, 3, 0, 0, 1, '0'}, "05032000 14:07", 21},
        {{0, 0, 0, 0, 1, '0'}, "14:07", 21},
        {{1, 0, 0, 0, 1, '0'}, "14:07", 21},
        {{4, 0, 0, 0, 1, '0'}, "5.3.2000", 21},
        {{4, 0, 0, 0, 1, '0'}, "5.3.2000 14:07", 21},
        {{4, 0, 0, 0, 1, '0'}, "05032000", 21},
        // Times that are none.
        {{4, 0, 0, 0, 1, '0'}, "24:00", 8},
        {{4, 0, 0, 0, 1, '0'}, "12:60", 8},
        {{4, 0, 0, 0, 1, '0'}, "99:99", 8},
        {{4, 0, 0, 0, 1, '0'}, "14", 21},
        {{4, 0, 0, 0, 1, '0'}, "1407", 21},
        {{4, 0, 0, 0, 1, '0'}, "14:", 21},
        {{4, 0, 0, 0, 1, '0'}, "14:7", 21},
        {{4, 0, 0, 0, 1, '0'}, ":07", 21},
        {{4, 0, 0, 0, 1, '0'}, "014:07", 21},
        {{4, 0, 0, 0, 1, '0'}, "14:007", 21},
        {{4, 0, 0, 0, 1, '0'}, "14.07", 21},
        {{4, 0, 0, 0, 1, '0'}, "14,07", 21},
        {{4, 0, 0, 0, 1, '0'}, "-1:07", 21},
        {{4, 0, 0, 0, 1, '0'}, "14:07 Uhr", 21},
        {{4, 0, 0, 0, 1, '0'}, "14 :07", 21},
        {{4, 0, 0, 0, 1, '0'}, " ", 21},
        {{2, 0, 0, 0, 1, '0'}, "5.3.2000 14:07:60", 8},
        {{2, 0, 0, 0, 1, '0'}, "5.3.2000 14:07:9", 21},
        {{1, 0, 0, 0, 1, '0'}, "29.2.2001 14:07", 8},
        // Names that are none, and names where months are numbers.
        {{0, 0, 0, 1, 1, '0'}, "5.M\xE4.2000", 21},
        {{0, 0, 0, 1, 1, '0'}, "5.Maerz.2000", 21},
        {{0, 0, 0, 2, 1, '0'}, "5.Marz.2000", 21},
        {{0, 0, 0, 2, 1, '0'}, "5.M\xE4rzz.2000", 21},
        {{0, 0, 0, 2, 1, '0'}, "5.Mrz.2000", 21},
        {{0, 0, 0, 2, 1, '0'}, "5.Janu.2000", 21},
        {{0, 0, 0, 2, 1, '0'}, "5.J.2000", 21},
        {{0, 0, 0, 2, 1, '0'}, "5.Kein.2000", 21},
        {{0, 0, 0, 2, 1, '0'}, "5.December.2000", 21},
        {{0, 0, 0, 1, 1, '0'}, "5.Mar.2000", 21},
        {{0, 0, 0, 1, 1, '0'}, "5.Sept.2000", 21},
        {{0, 0, 0, 1, 1, '0'}, "5.M\xC3\xA4r.2000", 21}, // two bytes for one letter
        {{0, 0, 0, 1, 1, '0'}, "Mai.5.2000", 21},
        {{0, 0, 0, 1, 1, '0'}, "5.Mai", 21},
        {{0, 0, 0, 1, 1, '0'}, "Mai 2000", 21},
        {{0, 0, 0, 0, 1, '0'}, "5.Mai.2000", 21},
        {{0, 3, 0, 0, 1, '0'}, "05Mai2000", 21},
        {{0, 0, 0, 1, 1, '0'}, "5Mai2000", 21},
        {{0, 0, 0, 2, 1, '0'}, "29.Februar.2001", 8},
        {{0, 0, 0, 2, 1, '0'}, "31.Apr.2000", 8},
        {{0, 0, 0, 2, 1, '0'}, "0.Mai.2000", 8},
        {{0, 0, 0, 2, 1, '0'}, "1.13.2000", 8},
        {{0, 3, 0, 1, 1, '0'}, "31Jun2000", 8},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(::testing::PrintToString(row.options));
        ExpectRefused<TypeParam>(row.options.Format(), row.text, row.cause);
    }
}

TYPED_TEST(DatesRefused, IfTooLong)
{
    const std::string many(100000, '5');
    const std::string blanks(100000, ' ');
    for (const DateOptions& options : AllDateOptions()) {
        const ZelFormat format = options.Format();
        for (const std::string& text :
             {many + ".3.2000", "5." + many + ".2000", "5.3.2000 " + many + ":00",
              "5.3.2000 12:" + many, "5.3.2000" + blanks + "x", blanks}) {
            Given<TypeParam> given(Moment{{ZelDtWmMissing, 1, 0}, kSome});
            EXPECT_TRUE(FailsByFormat([&] { given.it.SetFromOFL(text.c_str(), &format); },
                                      ReadDateError<TypeParam>(), 21, "ParseDateTime"))
                << options;
        }
    }
    // Blanks around are ignored, however many.
    ExpectRead<TypeParam>(ZelFormat(ZelFormat::ZelFoStandard), blanks + "5.3.2000 14:07" + blanks,
                          {2000, 3, 5, 14, 7, 0});
}

TYPED_TEST(DatesRefused, Before1753)
{
    const std::string signature = "SetFromOFL(LPCTSTR,ZelFormat*)";
    const struct {
        DateOptions options;
        const char* text;
    } rows[] = {{{1, 0, 0, 0, 1, '0'}, "31.12.1752 23:59"}, {{1, 0, 0, 0, 1, '0'}, "1.1.0001 0:00"},
                {{1, 0, 0, 0, 1, '0'}, "1.1.0000 0:00"},    {{0, 0, 0, 0, 1, '0'}, "29.2.1600"},
                {{0, 3, 0, 0, 1, '0'}, "01010099"},         {{2, 1, 1, 2, 1, '0'}, "1/Mai/1000"}};
    for (const auto& row : rows) {
        const ZelFormat format = row.options.Format();
        for (const Moment& moment : Moments({kNew, kSome})) {
            Given<TypeParam> given(moment);
            EXPECT_TRUE(FailsWith([&] { given.it.SetFromOFL(row.text, &format); },
                                  ReadDateError<TypeParam>(), ImpError(27, signature)))
                << row.text;
            EXPECT_EQ(Look(given.it), moment) << row.text;
        }
    }
}

/// The years of archives stay where no other year is read.
TYPED_TEST(DatesRefused, InNewYearsBefore1753Only)
{
    const ZelFormat date = DateOptions{0, 0, 0, 0, 1, '0'}.Format();
    for (const Moment& moment : Moments({{1500, 3, 5, 0, 0, 0}})) {
        Given<TypeParam> same(moment);
        const Caught caught = Catch([&] { same.it.SetFromOFL("06.03.1500", &date); });
        ASSERT_EQ(caught.disturbance, "nothing") << caught.first;
        EXPECT_EQ(Look(same.it), Taken(moment, {1500, 3, 6, 0, 0, 0}));
        Given<TypeParam> other(moment);
        EXPECT_TRUE(FailsWith([&] { other.it.SetFromOFL("05.03.1501", &date); },
                              ReadDateError<TypeParam>(),
                              ImpError(27, "SetFromOFL(LPCTSTR,ZelFormat*)")));
        EXPECT_EQ(Look(other.it), moment);
    }
    const ZelFormat format = DateOptions{4, 0, 0, 0, 1, '0'}.Format();
    for (const Moment& moment : Moments({{1752, 12, 31, 1, 2, 3}, {0, 2, 29, 0, 0, 0}})) {
        Given<TypeParam> given(moment);
        const Fields& f = moment.fields;
        const Caught caught = Catch([&] { given.it.SetFromOFL("14:07", &format); });
        ASSERT_EQ(caught.disturbance, "nothing") << caught.first;
        EXPECT_EQ(Look(given.it), Typed<TypeParam>(moment, {f.year, f.month, f.day, 14, 7, 0}));
    }
}

} // namespace
