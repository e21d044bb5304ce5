#include "platform/framework/fwmodule.h"

#include "platform/runtime/lock.h"
#include "platform/runtime/system.h"

#include <cstring>
#include <mutex>
#include <new>
#include <vector>

/// The classes that look-up finds: those of the general list and those of each library chained.
///
/// A record stands in one list at most. Whatever list that is, the registration object that lies
/// in the same library takes it off at the latest when the library is unloaded, so no list can
/// hold a record that is gone. The lists need no construction and nothing here is ever destroyed,
/// so that they serve the static objects of every library, whatever the order.
struct CClassList {
    static constinit CRuntimeClass* classes;
    static constinit CDynLinkLibrary* libraries;
    static constinit zelrt::Lock lock;

    static bool Contains(const CRuntimeClass* list, const CRuntimeClass* record) noexcept
    {
        while (list != nullptr && list != record)
            list = list->m_pNextClass;
        return list != nullptr;
    }

    static void Push(CRuntimeClass*& list, CRuntimeClass* record) noexcept
    {
        record->m_pNextClass = list;
        list = record;
    }

    /// Whether the record was in the list.
    static bool Remove(CRuntimeClass*& list, CRuntimeClass* record) noexcept
    {
        CRuntimeClass** link = &list;
        while (*link != nullptr && *link != record)
            link = &(*link)->m_pNextClass;
        if (*link == nullptr)
            return false;
        *link = record->m_pNextClass;
        record->m_pNextClass = nullptr;
        return true;
    }

    static CRuntimeClass* Find(CRuntimeClass* list, LPCSTR name) noexcept
    {
        while (list != nullptr && std::strcmp(list->m_lpszClassName, name) != 0)
            list = list->m_pNextClass;
        return list;
    }

    static bool IsKnown(const CRuntimeClass* record) noexcept
    {
        if (Contains(classes, record))
            return true;
        const CDynLinkLibrary* library = libraries;
        while (library != nullptr && !Contains(library->m_classes, record))
            library = library->m_next;
        return library != nullptr;
    }

    static void RemoveEverywhere(CRuntimeClass* record) noexcept
    {
        if (Remove(classes, record))
            return;
        CDynLinkLibrary* library = libraries;
        while (library != nullptr && !Remove(library->m_classes, record))
            library = library->m_next;
    }

    static CRuntimeClass* FindEverywhere(LPCSTR name) noexcept
    {
        CRuntimeClass* found = Find(classes, name);
        for (CDynLinkLibrary* library = libraries; library != nullptr && found == nullptr;
             library = library->m_next)
            found = Find(library->m_classes, name);
        return found;
    }

    static void Chain(CDynLinkLibrary* library, AFX_EXTENSION_MODULE& module) noexcept
    {
        const std::lock_guard guard(lock);
        library->m_classes = module.pFirstSharedClass;
        module.pFirstSharedClass = nullptr;
        library->m_next = libraries;
        libraries = library;
    }

    static void Unchain(CDynLinkLibrary* library) noexcept
    {
        const std::lock_guard guard(lock);
        CDynLinkLibrary** link = &libraries;
        while (*link != nullptr && *link != library)
            link = &(*link)->m_next;
        if (*link != nullptr)
            *link = library->m_next;
    }

    /// Takes one library of the module (of any when `all`) off the list and gives its classes
    /// back to the module if they are the module's. Null when there is none left.
    static CDynLinkLibrary* TakeLibrary(AFX_EXTENSION_MODULE& module, bool all) noexcept
    {
        const std::lock_guard guard(lock);
        CDynLinkLibrary** link = &libraries;
        while (*link != nullptr && !all && (*link)->m_module != &module)
            link = &(*link)->m_next;
        CDynLinkLibrary* library = *link;
        if (library == nullptr)
            return nullptr;
        *link = library->m_next;
        while (library->m_module == &module && library->m_classes != nullptr) {
            CRuntimeClass* record = library->m_classes;
            library->m_classes = record->m_pNextClass;
            Push(module.pFirstSharedClass, record);
        }
        return library;
    }

    static std::vector<CRuntimeClass*> GeneralList()
    {
        const std::lock_guard guard(lock);
        std::vector<CRuntimeClass*> records;
        for (CRuntimeClass* record = classes; record != nullptr; record = record->m_pNextClass)
            records.push_back(record);
        return records;
    }
};

constinit CRuntimeClass* CClassList::classes = nullptr;
constinit CDynLinkLibrary* CClassList::libraries = nullptr;
constinit zelrt::Lock CClassList::lock;

namespace {

/// The file of the module that an address belongs to.
struct ModuleName {
    explicit ModuleName(const void* address) noexcept
    {
        zelrt::ModuleFileName(address, text, sizeof text);
    }

    bool operator==(const ModuleName& other) const noexcept
    {
        return text[0] != '\0' && std::strcmp(text, other.text) == 0;
    }

    char text[zelrt::kMaxModuleFileName];
};

} // namespace

CRuntimeClass* CRuntimeClass::FromName(LPCSTR className)
{
    if (className == nullptr)
        return nullptr;
    const std::lock_guard guard(CClassList::lock);
    return CClassList::FindEverywhere(className);
}

CClassRegistration::CClassRegistration(CRuntimeClass* runtimeClass) noexcept : m_class(runtimeClass)
{
    const std::lock_guard guard(CClassList::lock);
    if (!CClassList::IsKnown(m_class))
        CClassList::Push(CClassList::classes, m_class);
}

CClassRegistration::~CClassRegistration()
{
    const std::lock_guard guard(CClassList::lock);
    CClassList::RemoveEverywhere(m_class);
}

BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& module, HINSTANCE instance)
{
    if (module.bInitialized)
        return TRUE;

    // The system is asked for names without holding the lock: it has a lock of its own, which a
    // library being loaded or unloaded on another thread holds while it waits for this one.
    std::vector<CRuntimeClass*> records;
    try {
        const ModuleName own(&module);
        for (CRuntimeClass* record : CClassList::GeneralList()) {
            if (ModuleName(record) == own)
                records.push_back(record);
        }
    } catch (const std::bad_alloc&) {
        return FALSE;
    }

    const std::lock_guard guard(CClassList::lock);
    for (CRuntimeClass* record : records) {
        if (CClassList::Remove(CClassList::classes, record))
            CClassList::Push(module.pFirstSharedClass, record);
    }
    module.hModule = instance;
    module.hResource = instance;
    module.bInitialized = TRUE;
    return TRUE;
}

void AfxTermExtensionModule(AFX_EXTENSION_MODULE& module, BOOL all)
{
    while (CDynLinkLibrary* library = CClassList::TakeLibrary(module, all != FALSE))
        delete library;
    module.bInitialized = FALSE;
}

IMPLEMENT_DYNAMIC(CDynLinkLibrary, CObject)

CDynLinkLibrary::CDynLinkLibrary(AFX_EXTENSION_MODULE& module)
    : m_hModule(module.hModule), m_hResource(module.hResource), m_module(&module)
{
    CClassList::Chain(this, module);
}

CDynLinkLibrary::~CDynLinkLibrary()
{
    CClassList::Unchain(this);
}
