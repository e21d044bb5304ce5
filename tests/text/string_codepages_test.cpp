/// Strings converted in place between the ANSI and the OEM code pages.

#include "tests/support/oem_tables.h"
#include "tests/text/string_testing.h"

using namespace zeltest;

namespace {

const char* const kSignature = "ConvertCodePage(ZelDtCodepageWandlung)";

struct Direction {
    ZelDtCodepageWandlung direction;
    const UpperHalf& table;
};

const Direction kDirections[] = {
    {ZelDtCpAnsiToOem850, kAnsiToOem850},  {ZelDtCpAnsiToOem437, kAnsiToOem437},
    {ZelDtCpOem850ToAnsi, kOem850ToAnsi},  {ZelDtCpOem437ToAnsi, kOem437ToAnsi},
    {ZelDtCpAnsiToOem, AnsiToSystemOem()}, {ZelDtCpOemToAnsi, SystemOemToAnsi()},
};

} // namespace

TEST(ConvertCodePage, EveryByteInEachDirection)
{
    for (const Direction& row : kDirections) {
        SCOPED_TRACE(row.direction);
        for (const ZelDtWorkingMode mode : {ZelDtWmMissing, ZelDtWmNull, ZelDtWmAlwaysDefined}) {
            for (const int modifiedBefore : {0, 1}) {
                const StringPtr s = Make(AllBytes());
                s->SetWorkingMode(mode);
                s->SetModified(modifiedBefore);
                s->ConvertCodePage(row.direction);
                EXPECT_EQ(ContentOf(*s), (Content{Converted(AllBytes(), row.table), 1, 1}));
                EXPECT_EQ(s->GetWorkingMode(), mode);
            }
        }
    }
}

TEST(ConvertCodePage, OfTextsThatStayMarksNothing)
{
    for (const Direction& row : kDirections) {
        SCOPED_TRACE(row.direction);
        for (const char* const text : {"", "ASCII only", "~\x7F\x01"}) {
            for (const int modifiedBefore : {0, 1}) {
                ZelDtString s(text);
                s.SetModified(modifiedBefore);
                s.ConvertCodePage(row.direction);
                EXPECT_EQ(ContentOf(s), (Content{text, 1, modifiedBefore}));
            }
        }
    }
}

TEST(ConvertCodePage, GoesOnBehindNulBytes)
{
    for (const Direction& row : kDirections) {
        const std::string text = Raw("\xE4\0\xE4\0\0\x84");
        const StringPtr s = Make(text);
        s->ConvertCodePage(row.direction);
        EXPECT_EQ(ContentOf(*s), (Content{Converted(text, row.table), 1, 1})) << row.direction;
    }
}

TEST(ConvertCodePage, RefusesUnknownDirections)
{
    // The enumeration has three bits, so 6 and 7 are values that it can have.
    for (const int unknown : {6, 7}) {
        for (const char* const text : {"", "plain", "\xE4"}) {
            ZelDtString s(text);
            EXPECT_TRUE(
                FailsWith([&] { s.ConvertCodePage(static_cast<ZelDtCodepageWandlung>(unknown)); },
                          FunctionError(19, kSignature)));
            EXPECT_EQ(ContentOf(s), (Content{text, 1, 0}));
        }
    }
}

TEST(ConvertCodePage, LeavesAnUndefinedValueAlone)
{
    for (const ZelDtWorkingMode mode : {ZelDtWmMissing, ZelDtWmNull}) {
        for (const int direction : {0, 1, 2, 3, 4, 5, 6}) {
            const StringPtr s = Make({mode, "\xE4"});
            Undefine(*s);
            s->ConvertCodePage(static_cast<ZelDtCodepageWandlung>(direction));
            EXPECT_EQ(ContentOf(*s), (Content{"\xE4", 0, 0}));
        }
    }
}
