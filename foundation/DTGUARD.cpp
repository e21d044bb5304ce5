#include "foundation/DTGUARD.h"

#include "foundation/DTEXCEP.h"

#include <new>

namespace zeldt {

namespace {

/// What `make` makes; null if there is no memory for it.
template <typename Make>
ZelDtExcep* MadeOrNull(const Make& make)
{
    try {
        return make();
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

constexpr unsigned long kNoExtra = 0;
constexpr int kFoundHere = 1;
constexpr int kReplacesAnother = 0;
constexpr int kCauseAttached = 1;

} // namespace

[[gnu::noinline]] void Raise(const Operation& operation, ErrorNo number)
{
    throw MadeOrNull([&] {
        return new ZelDtExcep(operation.module, operation.className, operation.signature,
                              static_cast<unsigned long>(number), kNoExtra, kFoundHere);
    });
}

[[gnu::noinline]] void RaiseFollowUp(const Operation& operation)
{
    constexpr auto number = static_cast<unsigned long>(ErrorNo::FollowUp);
    const auto withoutCause = [&] {
        return new ZelDtExcep(operation.module, operation.className, operation.signature, number,
                              kNoExtra, kReplacesAnother);
    };
    try {
        throw;
    } catch (CException* cause) {
        ZelDtExcep* const error = MadeOrNull([&] {
            return new ZelDtExcep(cause, kCauseAttached, operation.module, operation.className,
                                  operation.signature, number, kNoExtra, kReplacesAnother);
        });
        if (error == nullptr && cause != nullptr)
            cause->Delete();
        throw error;
    } catch (ZelEhBasis* replaced) {
        ZelDtExcep* const error = MadeOrNull(withoutCause);
        if (error != nullptr)
            error->TakeOver(replaced);
        else
            delete replaced;
        throw error;
    } catch (...) {
        throw MadeOrNull(withoutCause);
    }
}

} // namespace zeldt
