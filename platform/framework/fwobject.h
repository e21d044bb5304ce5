#ifndef ZELDT_PLATFORM_FRAMEWORK_FWOBJECT_H
#define ZELDT_PLATFORM_FRAMEWORK_FWOBJECT_H

/// The root of the framework's classes and the run-time class records.
///
/// A class derived from CObject becomes known by name when it states one of the DECLARE macros
/// in its definition and the IMPLEMENT macro of the same kind in one source:
///
///     class CInvoice : public CObject {
///         DECLARE_SERIAL(CInvoice)
///     public:
///         CInvoice();
///         void Serialize(CArchive& ar) override;
///     };
///
///     IMPLEMENT_SERIAL(CInvoice, CObject, 1)
///
/// Every macro does what the one before it does and more: DYNAMIC names the class and its base,
/// DYNCREATE makes objects by name (a default constructor is needed, it may be private), SERIAL
/// reads and writes objects through an archive. The macros leave the access at public.

#include "../runtime/wintypes.h"
#include "export.h"

class CArchive;
class CDumpContext;
class CObject;

/// What is known about a class at run time. One record a class, valid as long as the library
/// that contains the class is loaded; get it through RUNTIME_CLASS or CObject::GetRuntimeClass.
struct ZELFW_API CRuntimeClass {
    LPCSTR m_lpszClassName;                ///< the class name as written in the source
    int m_nObjectSize;                     ///< bytes of an object
    UINT m_wSchema;                        ///< 0xFFFF: cannot be stored; see VERSIONABLE_SCHEMA
    CObject* (*m_pfnCreateObject)();       ///< null when objects cannot be created by name
    CRuntimeClass* (*m_pfnGetBaseClass)(); ///< null for CObject
    CRuntimeClass* m_pNextClass;           ///< link of the list of known classes

    /// A new object, the caller's; null when the class cannot create objects or memory ran out.
    CObject* CreateObject();

    /// Whether the class is `base` or derives from it. A null `base` is no base.
    BOOL IsDerivedFrom(const CRuntimeClass* base) const;

    /// The record of the class of that name, null when no loaded library knows it.
    static CRuntimeClass* FromName(LPCSTR className);

    /// A new object of the class of that name, the caller's; null when there is none.
    static CObject* CreateObject(LPCSTR className);
};

/// Root of every class with a run-time record. Not copyable by itself; a derived class that
/// wants copies writes its own copy constructor and assignment.
class ZELFW_API CObject {
public:
    virtual CRuntimeClass* GetRuntimeClass() const;
    virtual ~CObject() = default;

    /// Writes the object's data to a storing archive or reads it from a loading one. A class
    /// calls its base class first. The root has no data.
    virtual void Serialize(CArchive& ar);

    /// Checks the object in debugging code.
    virtual void AssertValid() const;

    /// Describes the object in readable text.
    virtual void Dump(CDumpContext& dc) const;

    CObject(const CObject&) = delete;
    CObject& operator=(const CObject&) = delete;

    /// Whether the object's class is `runtimeClass` or derives from it.
    BOOL IsKindOf(const CRuntimeClass* runtimeClass) const;

    /// Whether objects of this class can be written to an archive.
    BOOL IsSerializable() const;

    static CRuntimeClass* GetThisClass();

protected:
    CObject() = default;
};

/// Keeps a class on the list of known classes during its own lifetime. The IMPLEMENT macros
/// define one such object a class, so that a library takes its classes along when it goes.
class ZELFW_API CClassRegistration {
public:
    explicit CClassRegistration(CRuntimeClass* runtimeClass) noexcept;
    ~CClassRegistration();
    CClassRegistration(const CClassRegistration&) = delete;
    CClassRegistration& operator=(const CClassRegistration&) = delete;

private:
    CRuntimeClass* m_class;
};

/// Reads an object of the class or one derived from it; CArchive::ReadObject for those who know
/// the archive by name only.
ZELFW_API CObject* AfxReadObject(CArchive& ar, const CRuntimeClass* runtimeClass);

/// `object` if it is of the class, otherwise null.
ZELFW_API CObject* AfxDynamicDownCast(const CRuntimeClass* runtimeClass, CObject* object);
ZELFW_API const CObject* AfxDynamicDownCast(const CRuntimeClass* runtimeClass,
                                            const CObject* object);

/// The record of a class. A function call, so that it is valid in every initialiser and across
/// library borders.
#define RUNTIME_CLASS(class_name) (class_name::GetThisClass())

/// The pointer as a pointer to the class, null when the object is not of it.
#define DYNAMIC_DOWNCAST(class_name, object)                                                       \
    (static_cast<class_name*>(AfxDynamicDownCast(RUNTIME_CLASS(class_name), object)))

/// Or-ed into the schema of IMPLEMENT_SERIAL: the class reads other versions too and asks
/// CArchive::GetObjectSchema which one it got.
#define VERSIONABLE_SCHEMA (0x80000000U)

#define DECLARE_DYNAMIC(class_name)                                                                \
public:                                                                                            \
    static CRuntimeClass* GetThisClass();                                                          \
    CRuntimeClass* GetRuntimeClass() const override;

#define DECLARE_DYNCREATE(class_name)                                                              \
    DECLARE_DYNAMIC(class_name)                                                                    \
    static CObject* CreateObject();

#define DECLARE_SERIAL(class_name)                                                                 \
    DECLARE_DYNCREATE(class_name)                                                                  \
    friend CArchive& operator>>(CArchive& ar, class_name*& object)                                 \
    {                                                                                              \
        object = static_cast<class_name*>(AfxReadObject(ar, class_name::GetThisClass()));          \
        return ar;                                                                                 \
    }

#define ZELFW_IMPLEMENT_CLASS(class_name, base_class_name, schema, create)                         \
    CRuntimeClass* class_name::GetThisClass()                                                      \
    {                                                                                              \
        static CRuntimeClass record = {                                                            \
            #class_name,                                                                           \
            static_cast<int>(sizeof(class_name)),                                                  \
            schema,                                                                                \
            create,                                                                                \
            []() -> CRuntimeClass* { return RUNTIME_CLASS(base_class_name); },                     \
            nullptr};                                                                              \
        return &record;                                                                            \
    }                                                                                              \
    CRuntimeClass* class_name::GetRuntimeClass() const                                             \
    {                                                                                              \
        return class_name::GetThisClass();                                                         \
    }                                                                                              \
    static const CClassRegistration classRegistration##class_name(class_name::GetThisClass());

#define ZELFW_IMPLEMENT_CREATION(class_name)                                                       \
    CObject* class_name::CreateObject()                                                            \
    {                                                                                              \
        return new class_name;                                                                     \
    }

#define IMPLEMENT_DYNAMIC(class_name, base_class_name)                                             \
    ZELFW_IMPLEMENT_CLASS(class_name, base_class_name, 0xFFFFU, nullptr)

#define IMPLEMENT_DYNCREATE(class_name, base_class_name)                                           \
    ZELFW_IMPLEMENT_CREATION(class_name)                                                           \
    ZELFW_IMPLEMENT_CLASS(class_name, base_class_name, 0xFFFFU, &class_name::CreateObject)

#define IMPLEMENT_SERIAL(class_name, base_class_name, schema)                                      \
    ZELFW_IMPLEMENT_CREATION(class_name)                                                           \
    ZELFW_IMPLEMENT_CLASS(class_name, base_class_name, static_cast<UINT>(schema),                  \
                          &class_name::CreateObject)

#endif
