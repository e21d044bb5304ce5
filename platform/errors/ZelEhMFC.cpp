#include "platform/errors/ZelEhMFC.h"

#include <string>

IMPLEMENT_DYNAMIC(ZelEhMFC, ZelEhBasis)

namespace {

std::string MessageText(CException* cause)
{
    char buffer[512];
    if (cause == nullptr || !cause->GetErrorMessage(buffer, sizeof buffer))
        return {};
    return buffer;
}

} // namespace

ZelEhMFC::ZelEhMFC(CException* cause, const char* module, const char* className,
                   const char* signature)
    : ZelEhBasis(module, className, signature, MessageText(cause).c_str(), 0, 0, 0, cause, 1, 0, 1)
{}

ZelEhMFC::~ZelEhMFC()
{
    CheckBeforeDelete();
}
