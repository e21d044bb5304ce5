#include "platform/framework/fwobject.h"

#include "platform/framework/fwarchive.h"
#include "platform/framework/fwdump.h"
#include "platform/framework/fwexcept.h"

#include <new>

CObject* CRuntimeClass::CreateObject()
{
    if (m_pfnCreateObject == nullptr)
        return nullptr;
    try {
        return m_pfnCreateObject();
    } catch (const std::bad_alloc&) {
        return nullptr;
    } catch (CMemoryException* e) {
        e->Delete();
        return nullptr;
    }
}

CObject* CRuntimeClass::CreateObject(LPCSTR className)
{
    CRuntimeClass* runtimeClass = FromName(className);
    return runtimeClass == nullptr ? nullptr : runtimeClass->CreateObject();
}

BOOL CRuntimeClass::IsDerivedFrom(const CRuntimeClass* base) const
{
    const CRuntimeClass* runtimeClass = this;
    while (runtimeClass != base && runtimeClass->m_pfnGetBaseClass != nullptr)
        runtimeClass = runtimeClass->m_pfnGetBaseClass();
    return runtimeClass == base;
}

CRuntimeClass* CObject::GetThisClass()
{
    static CRuntimeClass record = {
        "CObject", static_cast<int>(sizeof(CObject)), 0xFFFFU, nullptr, nullptr, nullptr};
    return &record;
}

static const CClassRegistration classRegistrationCObject(CObject::GetThisClass());

CRuntimeClass* CObject::GetRuntimeClass() const
{
    return CObject::GetThisClass();
}

void CObject::Serialize(CArchive&) {}

void CObject::AssertValid() const {}

void CObject::Dump(CDumpContext& dc) const
{
    dc << "a " << GetRuntimeClass()->m_lpszClassName << " at " << static_cast<const void*>(this)
       << "\n";
}

BOOL CObject::IsKindOf(const CRuntimeClass* runtimeClass) const
{
    return GetRuntimeClass()->IsDerivedFrom(runtimeClass);
}

BOOL CObject::IsSerializable() const
{
    return GetRuntimeClass()->m_wSchema != 0xFFFFU;
}

CObject* AfxReadObject(CArchive& ar, const CRuntimeClass* runtimeClass)
{
    return ar.ReadObject(runtimeClass);
}

CObject* AfxDynamicDownCast(const CRuntimeClass* runtimeClass, CObject* object)
{
    return object != nullptr && object->IsKindOf(runtimeClass) ? object : nullptr;
}

const CObject* AfxDynamicDownCast(const CRuntimeClass* runtimeClass, const CObject* object)
{
    return object != nullptr && object->IsKindOf(runtimeClass) ? object : nullptr;
}
