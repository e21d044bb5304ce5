#include "platform/decimals/RWCString.h"

#include <algorithm>
#include <cstring>
#include <new>

RWCString::RWCString() : m_text(m_own), m_length(0)
{
    m_own[0] = '\0';
}

RWCString::RWCString(const char* text) : RWCString(text, text == nullptr ? 0 : std::strlen(text)) {}

RWCString::RWCString(const char* text, std::size_t length) : RWCString()
{
    if (length == 0)
        return;
    Reserve(length);
    std::memcpy(m_text, text, length);
}

RWCString::RWCString(std::size_t count, char character) : RWCString()
{
    Reserve(count);
    std::memset(m_text, character, count);
}

RWCString::RWCString(const RWCString& source) : RWCString(source.m_text, source.m_length) {}

RWCString& RWCString::operator=(const RWCString& source)
{
    if (this != &source)
        replace(0, m_length, source.m_text, source.m_length);
    return *this;
}

RWCString& RWCString::operator=(const char* text)
{
    return replace(0, m_length, text);
}

RWCString::~RWCString()
{
    Release();
}

RWCString& RWCString::replace(std::size_t position, std::size_t count, const char* text)
{
    return replace(position, count, text, text == nullptr ? 0 : std::strlen(text));
}

RWCString& RWCString::replace(std::size_t position, std::size_t count, const char* text,
                              std::size_t length)
{
    position = std::min(position, m_length);
    count = std::min(count, m_length - position);
    RWCString result;
    result.Reserve(m_length - count + length);
    std::memcpy(result.m_text, m_text, position);
    if (length != 0)
        std::memcpy(result.m_text + position, text, length);
    std::memcpy(result.m_text + position + length, m_text + position + count,
                m_length - count - position);
    TakeOver(result);
    return *this;
}

void RWCString::Reserve(std::size_t length)
{
    if (length >= kOwnRoom)
        m_text = static_cast<char*>(::operator new(length + 1));
    m_length = length;
    m_text[length] = '\0';
}

void RWCString::Release()
{
    if (m_text != m_own)
        ::operator delete(m_text);
}

void RWCString::TakeOver(RWCString& source)
{
    Release();
    m_length = source.m_length;
    if (source.m_text == source.m_own) {
        m_text = m_own;
        std::memcpy(m_own, source.m_own, m_length + 1);
    } else {
        m_text = source.m_text;
        source.m_text = source.m_own;
    }
}
