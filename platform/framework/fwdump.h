#ifndef ZELDT_PLATFORM_FRAMEWORK_FWDUMP_H
#define ZELDT_PLATFORM_FRAMEWORK_FWDUMP_H

#include "../runtime/wintypes.h"
#include "export.h"
#include "fwfile.h"
#include "fwobject.h"
#include "fwstring.h"

/// Readable text about objects, for debugging. Numbers are decimal.
class ZELFW_API CDumpContext {
public:
    /// `file` must outlive the context; null: everything is dropped.
    explicit CDumpContext(CFile* file = nullptr);
    CDumpContext(const CDumpContext&) = delete;
    CDumpContext& operator=(const CDumpContext&) = delete;

    /// How deep CObject::Dump of derived classes goes; 0 unless set.
    int GetDepth() const noexcept { return m_depth; }
    void SetDepth(int depth) noexcept { m_depth = depth; }
    void Flush();

    CDumpContext& operator<<(LPCTSTR text);
    CDumpContext& operator<<(const CString& text);
    CDumpContext& operator<<(int number);
    CDumpContext& operator<<(unsigned int number);
    CDumpContext& operator<<(long number);
    CDumpContext& operator<<(unsigned long number);
    CDumpContext& operator<<(long long number);
    CDumpContext& operator<<(unsigned long long number);
    CDumpContext& operator<<(double number);
    /// The object's own description, "NULL" for none.
    CDumpContext& operator<<(const CObject* object);
    CDumpContext& operator<<(const CObject& object);
    /// The address in hexadecimal digits.
    CDumpContext& operator<<(const void* address);

private:
    CFile* m_file;
    int m_depth = 0;
};

#endif
