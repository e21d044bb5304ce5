/// Errors: what a guard costs while nothing is thrown, and what an error costs.

#include "benchmarks/contest.h"
#include "benchmarks/inputs.h"
#include "benchmarks/jobs.h"
#include "benchmarks/peers/calls.h"
#include "foundation/DTEXCEP.h"
#include "foundation/DTGUARD.h"
#include "numeric/DTLONG.h"

#include <exception>
#include <memory>
#include <string>

namespace zelbench {

namespace {

constexpr zeldt::Operation kOperation = {"MODULE", "Class", "Function()"};

[[gnu::noinline]] int CallGuarded(int number)
{
    return zeldt::Guarded(kOperation, [=] { return peers::Work(number) + 1; });
}

[[gnu::noinline]] int CallUnguarded(int number)
{
    return peers::Work(number) + 1;
}

void AddGuard()
{
    const auto numbers = Share(Numbers(kFewOperands, 9, 41));
    Job("error/guard")
        .Add("ours", numbers, [](std::int32_t number) { return CallGuarded(number); })
        .Add("unguarded", numbers, [](std::int32_t number) { return CallUnguarded(number); });
}

/// What somebody reads who catches an error, before it is deleted.
template <typename Body>
std::string TextOfError(const Body& body)
{
    try {
        body();
    } catch (ZelDtExcep* caught) {
        const std::unique_ptr<ZelDtExcep> error(caught);
        return error->GetErrorText();
    }
    return {};
}

template <typename Body>
std::string TextOfPointer(const Body& body)
{
    try {
        body();
    } catch (std::exception* caught) {
        const std::unique_ptr<std::exception> error(caught);
        return error->what();
    }
    return {};
}

template <typename Body>
std::string TextOfValue(const Body& body)
{
    try {
        body();
    } catch (const std::exception& error) {
        return error.what();
    }
    return {};
}

constexpr std::size_t kErrors = 64;

/// One error that an operation finds itself.
void AddRaised()
{
    const auto values = Share(std::vector<ZelDtLong>(kErrors, ZelDtLong(ZelDtWmMissing)));
    const auto texts = Share(std::vector<std::string>(kErrors, "Undefinierter Wert"));
    Job("error/raise")
        .Add("ours", values,
             [](const ZelDtLong& value) { return TextOfError([&] { value.GetValue(); }); })
        .Add("pointer", texts,
             [](const std::string& text) {
                 return TextOfPointer([&] { peers::ThrowPointer(text.c_str()); });
             })
        .Add("value", texts, [](const std::string& text) {
            return TextOfValue([&] { peers::ThrowValue(text.c_str()); });
        });
}

/// An error that replaces and keeps the one below it.
void AddFollowUp()
{
    const auto wrongNumbers = Share(std::vector<std::string>(kErrors, "12x"));
    const auto texts = Share(std::vector<std::string>(kErrors, "Default-Catch / Folgefehler"));
    Job("error/follow-up")
        .Add("ours", wrongNumbers,
             [](const std::string& number) {
                 return TextOfError([&] { ZelDtLong value(number.c_str()); });
             })
        .Add("nested", texts, [](const std::string& text) {
            return TextOfValue([&] { peers::ThrowNested(text.c_str()); });
        });
}

} // namespace

void AddErrorJobs()
{
    AddGuard();
    AddRaised();
    AddFollowUp();
}

} // namespace zelbench
