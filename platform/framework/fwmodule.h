#ifndef ZELDT_PLATFORM_FRAMEWORK_FWMODULE_H
#define ZELDT_PLATFORM_FRAMEWORK_FWMODULE_H

/// Extension modules: libraries that bring run-time classes along.
///
/// A library keeps one AFX_EXTENSION_MODULE. When it is attached, it calls
/// AfxInitExtensionModule and chains its classes with `new CDynLinkLibrary(module)`; when it is
/// detached, it calls AfxTermExtensionModule, which disposes of that object. Classes of programs
/// and of libraries that do none of this are known from their static construction to their
/// static destruction. The list of classes may be used from several threads.

#include "../runtime/wintypes.h"
#include "export.h"
#include "fwobject.h"

class COleObjectFactory;

/// State of one extension module. Must lie in the module's own static storage: where it lies
/// tells which classes are the module's.
struct AFX_EXTENSION_MODULE {
    BOOL bInitialized = FALSE;
    HMODULE hModule = nullptr;
    HMODULE hResource = nullptr;
    /// The module's classes while they are not chained: between AfxInitExtensionModule and the
    /// construction of the CDynLinkLibrary, and again after AfxTermExtensionModule.
    CRuntimeClass* pFirstSharedClass = nullptr;
    COleObjectFactory* pFirstSharedFactory = nullptr;
};

/// Takes the module's classes off the general list. TRUE also when it was done before; FALSE
/// when memory ran out, nothing having changed then.
ZELFW_API BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& module, HINSTANCE instance);

/// Disposes of the module's CDynLinkLibrary objects and so takes its classes off the list; with
/// `all`, of those of every module.
ZELFW_API void AfxTermExtensionModule(AFX_EXTENSION_MODULE& module, BOOL all = FALSE);

/// Puts the classes of an extension module on the application's list. Made with `new` and left
/// to AfxTermExtensionModule.
class ZELFW_API CDynLinkLibrary : public CObject {
    DECLARE_DYNAMIC(CDynLinkLibrary)

public:
    explicit CDynLinkLibrary(AFX_EXTENSION_MODULE& module);
    ~CDynLinkLibrary() override;

    HMODULE m_hModule;
    HMODULE m_hResource;

private:
    friend struct CClassList;

    AFX_EXTENSION_MODULE* m_module; ///< compared, never followed
    CRuntimeClass* m_classes = nullptr;
    CDynLinkLibrary* m_next = nullptr;
};

#endif
