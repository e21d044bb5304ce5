#include "foundation/DTEXCEP.h"
#include "tests/foundation/loading_testing.h"

#include <filesystem>
#include <functional>
#include <ostream>

// Values of a library that the program does not know when it starts: created by name, used through
// the virtual functions, their errors caught here.

namespace {

using namespace zeltest;

constexpr ZelDtWorkingMode kModes[] = {ZelDtWmMissing, ZelDtWmNull, ZelDtWmAlwaysDefined,
                                       ZelDtWmDefault};

/// A text that the default format of a class reads, and what it shows then.
struct Display {
    const char* className;
    ZelDtTyps type;
    const char* text;
    const char* shown;

    friend std::ostream& operator<<(std::ostream& os, const Display& d)
    {
        return os << d.className << " from " << d.text;
    }
};

constexpr Display kDisplays[] = {
    {"ZelDtBool", ZelDtTypBool, "JA", "Ja"},
    {"ZelDtChar", ZelDtTypChar, "\xFC", "\xFC"},
    {"ZelDtDateTime", ZelDtTypDateTime, "5.3.2000 14:07", "05.03.2000 14:07"},
    {"ZelDtDateZp", ZelDtTypDateZp, "5.3.2000", "05.03.2000"},
    {"ZelDtDecimal", ZelDtTypDecimal, "1.234,50", "1234,50"},
    {"ZelDtDouble", ZelDtTypDouble, "-0,25", "-0,25"},
    {"ZelDtLong", ZelDtTypLong, "2147483647", "2147483647"},
    {"ZelDtShort", ZelDtTypShort, "-32768", "-32768"},
    {"ZelDtString", ZelDtTypString, " M\xFCller ", " M\xFCller "},
    {"ZelDtTime", ZelDtTypTime, "1:30", "01:30"},
};

/// Gives the action a look at the error that it is to cause; deletes the error.
void ExpectError(const std::function<void()>& action,
                 const std::function<void(const ZelEhBasis&)>& look)
{
    const std::size_t alive = ZelEhCountLiveErrors();
    try {
        action();
        ADD_FAILURE() << "no error";
    } catch (ZelEhBasis* e) {
        look(*e);
        delete e;
    }
    EXPECT_EQ(ZelEhCountLiveErrors(), alive);
}

/// A long whose default format has been given a text with a fraction.
void ReadAFraction()
{
    CreateValue("ZelDtLong")->SetFromOFL("1,5", nullptr);
}

} // namespace

TEST(LoadedValues, ShowAndReadWithTheDefaultFormatsOfEachLoad)
{
    for (int load = 0; load < 3; ++load) {
        const LoadedLibrary library;
        for (const Display& d : kDisplays) {
            SCOPED_TRACE(d);
            const std::unique_ptr<ZelDtBasis> value = CreateValue(d.className);
            ASSERT_NE(value, nullptr);
            EXPECT_STREQ(value->ConvToOFL(nullptr), "");
            value->SetFromOFL(d.text, nullptr);
            EXPECT_STREQ(value->ConvToOFL(nullptr), d.shown);
            value->SetFromOFL("", nullptr);
            EXPECT_STREQ(value->ConvToOFL(nullptr), "");
        }
    }
}

TEST(LoadedValues, AnswerTheVirtualFunctionsOfTheBase)
{
    const LoadedLibrary library;
    for (const Display& d : kDisplays) {
        SCOPED_TRACE(d);
        const std::unique_ptr<ZelDtBasis> value = CreateValue(d.className);
        ASSERT_NE(value, nullptr);
        value->SetFromOFL(d.text, nullptr);
        EXPECT_EQ(value->GetDtTyp(), d.type);
        EXPECT_EQ(value->ReservedQuery(), 0);

        const std::unique_ptr<ZelDtBasis> copy(value->NewObject());
        ASSERT_NE(copy, nullptr);
        EXPECT_EQ(copy->GetRuntimeClass(), value->GetRuntimeClass());
        EXPECT_STREQ(copy->ConvToOFL(nullptr), d.shown);
        copy->Clear();
        EXPECT_STREQ(copy->ConvToOFL(nullptr), "");
        copy->Assign(*value);
        EXPECT_STREQ(copy->ConvToOFL(nullptr), d.shown);
    }
}

TEST(LoadedValues, AreCreatedUndefinedInTheDefaultMode)
{
    const LoadedLibrary library;
    for (const ZelDtWorkingMode mode : kModes) {
        SCOPED_TRACE(mode);
        library.SetDefaultMode(mode);
        const ZelDtWorkingMode expected = mode == ZelDtWmDefault ? ZelDtWmMissing : mode;
        for (const Display& d : kDisplays) {
            SCOPED_TRACE(d);
            const std::unique_ptr<ZelDtBasis> value = CreateValue(d.className);
            ASSERT_NE(value, nullptr);
            EXPECT_EQ(library.ModeOf(*value), expected);
            EXPECT_EQ(library.IsDefined(*value), mode == ZelDtWmAlwaysDefined ? 1 : 0);
        }
    }
}

TEST(LoadedValues, BeginInModeMissingWithEachLoad)
{
    for (int load = 0; load < 2; ++load) {
        const LoadedLibrary library;
        EXPECT_EQ(library.ModeOf(*CreateValue("ZelDtLong")), ZelDtWmMissing);
        library.SetDefaultMode(ZelDtWmNull);
        EXPECT_EQ(library.ModeOf(*CreateValue("ZelDtLong")), ZelDtWmNull);
    }
}

TEST(LoadedErrors, ReachTheProgram)
{
    for (int load = 0; load < 3; ++load) {
        const LoadedLibrary library;
        ExpectError(ReadAFraction, [](const ZelEhBasis& e) {
            EXPECT_STREQ(e.GetRuntimeClass()->m_lpszClassName, "ZelDtExcep");
            EXPECT_EQ(e.GetErrorNo(), 1U);
            EXPECT_STREQ(e.GetErrorText(), "Default-Catch / Folgefehler");
            EXPECT_STREQ(e.GetSourceModule(), "DTLONG");
            EXPECT_STREQ(e.GetClassText(), "ZelDtLong");
            EXPECT_STREQ(e.GetSignature(), "SetFromOFL(LPCTSTR,ZelFormat*)");
            EXPECT_EQ(e.GetFirstCause().GetErrorNo(), 21U);
        });
        ExpectError([] { CreateValue("ZelDtTime")->Assign(*CreateValue("ZelDtLong")); },
                    [](const ZelEhBasis& e) {
                        EXPECT_EQ(e.GetErrorNo(), 10U);
                        EXPECT_STREQ(e.GetErrorText(), "Basistypen unterschiedlich");
                        EXPECT_EQ(e.GetReplaced(), nullptr);
                    });
    }
}

TEST(LoadedErrors, NameTheFileThatTheLibraryWasLoadedFrom)
{
    namespace fs = std::filesystem;
    const fs::path original = VALUE_LIBRARY;
    const fs::path folder = fs::path(SCRATCH_FOLDER) / "error";
    fs::create_directories(folder);
    const fs::path copy = folder / original.filename();
    fs::copy_file(original, copy, fs::copy_options::overwrite_existing);
    for (const fs::path& file : {original, original, copy, original}) {
        const LoadedLibrary library(file.string());
        ExpectError(ReadAFraction, [&](const ZelEhBasis& e) {
            EXPECT_EQ(e.GetResourceModulname(), library.FileName());
            EXPECT_TRUE(fs::equivalent(e.GetResourceModulname(), file));
        });
    }
    fs::remove_all(folder);
}

TEST(LoadedErrors, ThatNobodyDeletedGoWithTheLibrary)
{
    const std::size_t alive = ZelEhCountLiveErrors();
    LoadedLibrary library;
    for (int i = 0; i < 3; ++i) {
        try {
            ReadAFraction();
            ADD_FAILURE() << "no error";
        } catch (ZelEhBasis*) {
        }
    }
    // Each replaced the one of the format.
    EXPECT_EQ(ZelEhCountLiveErrors(), alive + 6);
    library.Unload();
    EXPECT_EQ(ZelEhCountLiveErrors(), alive);
}
