#include "files.h"

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <system_error>

namespace rechnungslauf {

namespace {

[[noreturn]] void Fail(const std::string& name)
{
    throw std::runtime_error(name + ": kann nicht geschrieben werden");
}

bool HasContents(const std::string& name, const std::string& contents)
{
    std::ifstream file(name, std::ios::binary);
    std::ostringstream present;
    present << file.rdbuf();
    return file && present.str() == contents;
}

bool Write(const std::string& name, const std::string& contents)
{
    std::ofstream file(name, std::ios::binary | std::ios::trunc);
    file.write(contents.data(), static_cast<std::streamsize>(contents.size()));
    file.close();
    return !file.fail();
}

void Remove(const std::string& name)
{
    std::error_code error;
    std::filesystem::remove(name, error);
}

} // namespace

void MakeFolder(const std::string& folder)
{
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    const std::string trial = folder + "/probe.neu";
    const bool written = Write(trial, "");
    Remove(trial);
    if (!written)
        throw std::runtime_error(folder + ": in diesen Ordner kann nicht geschrieben werden");
}

bool BringTo(const std::string& name, const std::string& contents)
{
    if (HasContents(name, contents))
        return false;
    const std::string temporary = name + ".neu";
    if (!Write(temporary, contents)) {
        Remove(temporary);
        Fail(name);
    }
    std::error_code error;
    std::filesystem::rename(temporary, name, error);
    if (error) {
        Remove(temporary);
        Fail(name);
    }
    return true;
}

} // namespace rechnungslauf
