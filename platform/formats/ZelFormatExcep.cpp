#include "platform/formats/ZelFormatExcep.h"

IMPLEMENT_DYNAMIC(ZelFormatExcep, ZelEhBasis)

namespace {

struct ErrorRow {
    unsigned long number;
    const char* text;
};

constexpr ErrorRow kErrors[] = {
    {8, "Wert au\337erhalb des Wertebereichs"},
    {11, "Der Eingabetext ist zu lang"},
    {20, "Format nicht zugelassen"},
    {21, "Format nicht eingehalten"},
};

const char* ErrorText(unsigned long number)
{
    for (const ErrorRow& row : kErrors) {
        if (row.number == number)
            return row.text;
    }
    return "";
}

const ZelEhDeleteAtTerminate deleteAtTerminate(RUNTIME_CLASS(ZelFormatExcep));

} // namespace

ZelFormatExcep::ZelFormatExcep(const char* module, const char* className, const char* signature,
                               unsigned long errorNo)
    : ZelEhBasis(module, className, signature, ErrorText(errorNo), errorNo, 1, 1, nullptr, 1, 0, 1)
{}

ZelFormatExcep::~ZelFormatExcep()
{
    CheckBeforeDelete();
}
