#include "platform/framework/fwdump.h"

#include "platform/framework/fwtext.h"

void CDumpContext::Flush()
{
    if (m_file != nullptr)
        m_file->Flush();
}

CDumpContext::CDumpContext(CFile* file) : m_file(file) {}

CDumpContext& CDumpContext::operator<<(const CString& text)
{
    if (m_file != nullptr)
        m_file->Write(text.GetString(), static_cast<UINT>(text.GetLength()));
    return *this;
}

CDumpContext& CDumpContext::operator<<(LPCTSTR text)
{
    return *this << CString(text == nullptr ? "NULL" : text);
}

CDumpContext& CDumpContext::operator<<(long long number)
{
    CString text;
    text.Format("%lld", number);
    return *this << text;
}

CDumpContext& CDumpContext::operator<<(unsigned long long number)
{
    CString text;
    text.Format("%llu", number);
    return *this << text;
}

CDumpContext& CDumpContext::operator<<(int number)
{
    return *this << static_cast<long long>(number);
}

CDumpContext& CDumpContext::operator<<(unsigned int number)
{
    return *this << static_cast<unsigned long long>(number);
}

CDumpContext& CDumpContext::operator<<(long number)
{
    return *this << static_cast<long long>(number);
}

CDumpContext& CDumpContext::operator<<(unsigned long number)
{
    return *this << static_cast<unsigned long long>(number);
}

CDumpContext& CDumpContext::operator<<(double number)
{
    CString text;
    text.Format("%.17g", number);
    return *this << text;
}

CDumpContext& CDumpContext::operator<<(const CObject* object)
{
    if (object == nullptr)
        return *this << "NULL";
    return *this << *object;
}

CDumpContext& CDumpContext::operator<<(const CObject& object)
{
    object.Dump(*this);
    return *this;
}

CDumpContext& CDumpContext::operator<<(const void* address)
{
    CString text;
    text.Format("%p", address);
    return *this << text;
}
