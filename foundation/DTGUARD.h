#ifndef ZELDT_FOUNDATION_DTGUARD_H
#define ZELDT_FOUNDATION_DTGUARD_H

/// How every failure leaves the library: the one place that throws and the one that catches.
///
/// An operation that finds an error itself calls Raise: the error keeps its number. An operation
/// that calls what may fail runs it in Guarded: whatever comes out leaves as error 1 under the
/// operation's own name, and what it replaces stays readable behind it. So a check whose number
/// is to reach the caller stands before the guarded body.

#include "foundation/DTERRTAB.h"

#include <utility>

namespace zeldt {

/// An operation as errors name it. Constants of this kind stand in one table for each class.
struct Operation {
    const char* module;
    const char* className;
    const char* signature;
};

/// Throws a ZelDtExcep* that says: `operation` found the error `number` itself.
[[noreturn]] void Raise(const Operation& operation, ErrorNo number);

/// To be called while an exception is being handled. Throws a ZelDtExcep* with error 1 under the
/// name of `operation`. A framework exception becomes its cause, another error of the error family
/// its predecessor.
[[noreturn]] void RaiseFollowUp(const Operation& operation);

/// Runs `body` and returns what it returns; what it throws leaves as RaiseFollowUp says.
template <typename Body>
decltype(auto) Guarded(const Operation& operation, Body&& body)
{
    try {
        return std::forward<Body>(body)();
    } catch (...) {
        RaiseFollowUp(operation);
    }
}

} // namespace zeldt

#endif
