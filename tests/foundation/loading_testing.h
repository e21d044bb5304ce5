#ifndef ZELDT_TESTS_FOUNDATION_LOADING_TESTING_H
#define ZELDT_TESTS_FOUNDATION_LOADING_TESTING_H

/// What programs need that are not linked with the value library: they load and unload it while
/// they run, know its classes by name and use the objects through virtual functions alone.

#include "foundation/DTBASIS.h"
#include "platform/errors/errors.h"
#include "tests/support/module_loader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace zeltest {

/// A class of the library. Bases go from the nearest to the root; sizes count the virtual table,
/// the pointer of the base and the pointer of the class.
struct LibraryClass {
    const char* name;
    UINT schema;
    std::vector<std::string> bases;
    std::size_t size;

    bool IsSerialisable() const { return schema != 0xFFFF; }
};

inline std::vector<LibraryClass> LibraryClasses()
{
    constexpr std::size_t kBasis = 2 * sizeof(void*);
    constexpr std::size_t kValue = 3 * sizeof(void*);
    const std::vector<std::string> value = {"ZelDtBasis", "CObject"};
    return {
        {"ZelDtBasis", 0xFFFF, {"CObject"}, kBasis},
        {"ZelDtExcep", 0xFFFF, {"ZelEhBasis", "CObject"}, sizeof(ZelEhBasis)},
        {"ZelDtBool", 1, value, kValue},
        {"ZelDtChar", 1, value, kValue},
        {"ZelDtDateTime", 1, value, kValue},
        {"ZelDtDecimal", 1, value, kValue},
        {"ZelDtDouble", 1, value, kValue},
        {"ZelDtLong", 1, value, kValue},
        {"ZelDtShort", 1, value, kValue},
        {"ZelDtString", 1, value, kValue},
        {"ZelDtTime", 1, value, kValue},
        {"ZelDtDateZp", 1, {"ZelDtDateTime", "ZelDtBasis", "CObject"}, kValue},
    };
}

/// The library while it is loaded.
class LoadedLibrary {
public:
    explicit LoadedLibrary(const std::string& fileName = VALUE_LIBRARY)
        : m_handle(LoadModule(fileName.c_str()))
    {
        EXPECT_NE(m_handle, nullptr) << LoadError();
    }
    ~LoadedLibrary() { Unload(); }
    LoadedLibrary(const LoadedLibrary&) = delete;
    LoadedLibrary& operator=(const LoadedLibrary&) = delete;

    void Unload()
    {
        if (m_handle != nullptr) {
            EXPECT_TRUE(UnloadModule(m_handle));
        }
        m_handle = nullptr;
    }

    std::string FileName() const { return FileOfModule(m_handle); }

    /// A function that the library exports, by the name that it has there; a member function as one
    /// that takes the object first.
    template <typename Function>
    Function* Find(const char* name) const
    {
        void* const address = FindInModule(m_handle, name);
        EXPECT_NE(address, nullptr) << name;
        return reinterpret_cast<Function*>(address);
    }

    void SetDefaultMode(ZelDtWorkingMode mode) const
    {
        Find<void(ZelDtWorkingMode)>("_Z26ZelDtSetDefaultWorkingMode16ZelDtWorkingMode")(mode);
    }
    ZelDtWorkingMode ModeOf(const ZelDtBasis& value) const
    {
        return Find<ZelDtWorkingMode(const void*)>("_ZNK10ZelDtBasis14GetWorkingModeEv")(&value);
    }
    int IsDefined(const ZelDtBasis& value) const
    {
        return Find<int(const void*)>("_ZNK10ZelDtBasis9IsDefinedEv")(&value);
    }

private:
    void* m_handle;
};

/// A new value of the class of that name; null when it is not known or no value class.
inline std::unique_ptr<ZelDtBasis> CreateValue(const char* className)
{
    std::unique_ptr<CObject> object(CRuntimeClass::CreateObject(className));
    const CRuntimeClass* const basis = CRuntimeClass::FromName("ZelDtBasis");
    if (object == nullptr || basis == nullptr || !object->IsKindOf(basis))
        return nullptr;
    return std::unique_ptr<ZelDtBasis>(static_cast<ZelDtBasis*>(object.release()));
}

/// The names of a list of class records from `first` to its end, sorted.
inline std::vector<std::string> NamesFrom(const CRuntimeClass* first)
{
    std::vector<std::string> names;
    for (; first != nullptr; first = first->m_pNextClass)
        names.emplace_back(first->m_lpszClassName);
    std::sort(names.begin(), names.end());
    return names;
}

/// The names of the classes on the general list, where the classes of programs and of libraries
/// that are no extension modules stand.
inline std::vector<std::string> GeneralList()
{
    // What is registered last stands in front of all others.
    CRuntimeClass probe = {"probe", 0, 0xFFFFU, nullptr, nullptr, nullptr};
    const CClassRegistration registration(&probe);
    return NamesFrom(probe.m_pNextClass);
}

inline void ExpectNoLibraryClass()
{
    for (const LibraryClass& expected : LibraryClasses())
        EXPECT_EQ(CRuntimeClass::FromName(expected.name), nullptr) << expected.name;
}

} // namespace zeltest

#endif
