#include "platform/errors/ZelEhLogFile.h"

#include <cstring>
#include <string>

ZelEhLogFile::ZelEhLogFile(CFile& file) : m_rFile(file) {}

ZelEhLogFile& ZelEhLogFile::operator<<(const char* text)
{
    if (text == nullptr)
        return *this;
    while (*text != '\0') {
        if (m_bLineStart)
            WriteMargin();
        const char* const newline = std::strchr(text, '\n');
        const std::size_t length =
            newline != nullptr ? static_cast<std::size_t>(newline - text) + 1 : std::strlen(text);
        m_rFile.Write(text, static_cast<UINT>(length));
        m_bLineStart = newline != nullptr;
        text += length;
    }
    return *this;
}

ZelEhLogFile& ZelEhLogFile::operator<<(unsigned long number)
{
    return *this << std::to_string(number).c_str();
}

void ZelEhLogFile::SetBlanks(unsigned short count)
{
    m_nBlanks = count;
}

void ZelEhLogFile::WriteMargin()
{
    const std::string margin(m_nBlanks, ' ');
    m_rFile.Write(margin.data(), static_cast<UINT>(margin.size()));
}
