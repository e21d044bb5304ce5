#include "tests/foundation/loading_testing.h"
#include "tests/foundation/recording_formats.h"

#include <thread>

// When the default formats are made and destroyed, and which value uses which. The program loads a
// format library that keeps a record before it loads the value library, which then uses that one.

namespace {

using namespace zeltest;

using Events = std::vector<FormatEvent>;

/// The format library, loaded for as long as the program runs.
const Events& Recorded()
{
    static const LoadedLibrary formats(RECORDING_FORMATS);
    static FormatEventsFunction* const events =
        formats.Find<FormatEventsFunction>(kFormatEventsName);
    return events();
}

/// What was recorded since the position `from`.
Events Since(std::size_t from)
{
    const Events& all = Recorded();
    return {all.begin() + static_cast<std::ptrdiff_t>(from), all.end()};
}

/// What a default format shows in place of a value: the operation that it was asked for and what
/// it was made of.
struct DefaultFormat {
    const char* className;
    const char* shown;
};

constexpr DefaultFormat kDefaultFormats[] = {
    {"ZelDtBool", "boolean of mode 1"},
    {"ZelDtChar", "character of mode 1"},
    {"ZelDtDateTime", "date-time of mode 1"},
    {"ZelDtDateZp", "date-time of mode 1"},
    {"ZelDtDecimal", "string of mode 1"},
    {"ZelDtDouble", "double of mode 1"},
    {"ZelDtLong", "long of numeric 11 0 3 0 1 0 0 0 0 0"},
    {"ZelDtShort", "short of numeric 6 0 3 0 1 0 0 0 0 0"},
    {"ZelDtString", "string of text 0 4294967295 0  "},
    {"ZelDtTime", "time of mode 1"},
};

/// One for each source module: the date shares that of the date-time.
std::vector<std::string> ExpectedArguments()
{
    std::vector<std::string> arguments(6, "mode 1");
    arguments.emplace_back("numeric 11 0 3 0 1 0 0 0 0 0");
    arguments.emplace_back("numeric 6 0 3 0 1 0 0 0 0 0");
    arguments.emplace_back("text 0 4294967295 0  ");
    std::sort(arguments.begin(), arguments.end());
    return arguments;
}

} // namespace

TEST(DefaultFormats, AreMadeAtLoadBeforeTheLibraryRegisters)
{
    for (int load = 0; load < 2; ++load) {
        const std::size_t begin = Recorded().size();
        const LoadedLibrary library;
        std::vector<std::string> arguments;
        for (const FormatEvent& event : Since(begin)) {
            EXPECT_TRUE(event.made) << event.arguments;
            EXPECT_NE(event.classes, ClassesStand::OnTheirLibrarysList) << event.arguments;
            arguments.push_back(event.arguments);
        }
        std::sort(arguments.begin(), arguments.end());
        EXPECT_EQ(arguments, ExpectedArguments());
    }
}

TEST(DefaultFormats, GoInReverseOrderAfterTheLibraryLeft)
{
    for (int load = 0; load < 2; ++load) {
        const std::size_t begin = Recorded().size();
        LoadedLibrary library;
        std::vector<const void*> expected;
        for (const FormatEvent& event : Since(begin))
            expected.push_back(event.format);
        std::reverse(expected.begin(), expected.end());
        const std::size_t loaded = Recorded().size();
        library.Unload();

        std::vector<const void*> gone;
        for (const FormatEvent& event : Since(loaded)) {
            EXPECT_FALSE(event.made) << event.arguments;
            EXPECT_EQ(event.classes, ClassesStand::Nowhere) << event.arguments;
            gone.push_back(event.format);
        }
        EXPECT_EQ(gone.size(), ExpectedArguments().size());
        EXPECT_EQ(gone, expected);
    }
}

TEST(DefaultFormats, ShowTheValuesOfTheirClasses)
{
    const LoadedLibrary library;
    // So that there is something to show.
    library.SetDefaultMode(ZelDtWmAlwaysDefined);
    const std::size_t loaded = Recorded().size();
    for (const DefaultFormat& expected : kDefaultFormats) {
        const std::unique_ptr<ZelDtBasis> value = CreateValue(expected.className);
        ASSERT_NE(value, nullptr) << expected.className;
        EXPECT_STREQ(value->ConvToOFL(nullptr), expected.shown) << expected.className;
    }
    EXPECT_EQ(Recorded().size(), loaded) << "a format made while values were used";
}

TEST(DefaultFormats, UndefinedValuesAskNone)
{
    const LoadedLibrary library;
    for (const DefaultFormat& expected : kDefaultFormats) {
        const std::unique_ptr<ZelDtBasis> value = CreateValue(expected.className);
        ASSERT_NE(value, nullptr) << expected.className;
        EXPECT_STREQ(value->ConvToOFL(nullptr), "") << expected.className;
    }
}

TEST(Threads, MayComeAndGoWithoutNotice)
{
    const LoadedLibrary library;
    const std::vector<std::string> general = GeneralList();
    const std::size_t loaded = Recorded().size();
    const CRuntimeClass* const record = CRuntimeClass::FromName("ZelDtBasis");
    for (int i = 0; i < 10; ++i) {
        std::thread([] {}).join();
        std::thread([] { EXPECT_NE(CreateValue("ZelDtLong"), nullptr); }).join();
    }
    EXPECT_EQ(Recorded().size(), loaded);
    EXPECT_EQ(CRuntimeClass::FromName("ZelDtBasis"), record);
    EXPECT_EQ(GeneralList(), general);
    EXPECT_NE(CreateValue("ZelDtLong"), nullptr);
}
