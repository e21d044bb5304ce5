#include "foundation/DTGUARD.h"

#include "foundation/DTEXCEP.h"

#include <new>

namespace zeldt {

namespace {

/// Makes the error and hands it to `prepare` before it is thrown. An error that cannot be made
/// leaves as a null pointer.
template <typename Make>
[[noreturn]] void Throw(const Make& make)
{
    ZelDtExcep* error = nullptr;
    try {
        error = make();
    } catch (const std::bad_alloc&) {
        error = nullptr;
    }
    throw error;
}

constexpr unsigned long kNoExtra = 0;
constexpr int kFoundHere = 1;
constexpr int kReplacesAnother = 0;
constexpr int kCauseAttached = 1;

} // namespace

void Raise(const Operation& operation, ErrorNo number)
{
    Throw([&] {
        return new ZelDtExcep(operation.module, operation.className, operation.signature,
                              static_cast<unsigned long>(number), kNoExtra, kFoundHere);
    });
}

void RaiseFollowUp(const Operation& operation)
{
    constexpr auto number = static_cast<unsigned long>(ErrorNo::FollowUp);
    try {
        throw;
    } catch (CException* cause) {
        Throw([&] {
            return new ZelDtExcep(cause, kCauseAttached, operation.module, operation.className,
                                  operation.signature, number, kNoExtra, kReplacesAnother);
        });
    } catch (ZelEhBasis* replaced) {
        Throw([&] {
            auto* error = new ZelDtExcep(operation.module, operation.className, operation.signature,
                                         number, kNoExtra, kReplacesAnother);
            if (error != nullptr)
                error->TakeOver(replaced);
            return error;
        });
    } catch (...) {
        Throw([&] {
            return new ZelDtExcep(operation.module, operation.className, operation.signature,
                                  number, kNoExtra, kReplacesAnother);
        });
    }
}

} // namespace zeldt
