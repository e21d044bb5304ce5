#include "fenster.h"

#include <cstdio>
#include <stdexcept>

namespace auftraege {

const Styles kStyles = {0, 0, 0, 0, 0};

void Show(OrderMask&)
{
    throw std::runtime_error("zu sehen ist die Maske nur unter Windows; ohne Fenster: --tippe");
}

void Run(const OrderMask&) {}

bool Rename(const std::string& from, const std::string& to)
{
    return std::rename(from.c_str(), to.c_str()) == 0;
}

} // namespace auftraege
