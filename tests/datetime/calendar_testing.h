#ifndef ZELDT_TESTS_DATETIME_CALENDAR_TESTING_H
#define ZELDT_TESTS_DATETIME_CALENDAR_TESTING_H

/// For the tests of what date-times do with the calendar: values in every state, chains of errors,
/// and the library beside the model.

#include "tests/datetime/calendar_model.h"
#include "tests/datetime/datetime_testing.h"

#include <cstdint>
#include <cstdlib>
#include <ostream>
#include <random>
#include <string>
#include <vector>

namespace zeltest {

/// Whether tests run for minutes instead of seconds: ZEL_LONG_TESTS=1 in the environment.
inline bool RunsLong()
{
    const char* const setting = std::getenv("ZEL_LONG_TESTS");
    return setting != nullptr && std::string(setting) == "1";
}

// Errors

/// One error of a chain with its message.
struct Link {
    Error error;
    std::string text;
    int flag = 0;

    friend bool operator==(const Link&, const Link&) = default;
    friend std::ostream& operator<<(std::ostream& os, const Link& link)
    {
        return os << '\n' << link.error << ", flag " << link.flag << ": " << link.text;
    }
};

/// The link as it must look: with the message of its number; flagged when it was found and not
/// brought about by another error.
inline Link LinkOf(const Error& error)
{
    return {error, kErrorTexts[error.number], error.number == 1 ? 0 : 1};
}

inline std::vector<Link> LinksOf(const std::vector<Error>& errors)
{
    std::vector<Link> links;
    for (const Error& error : errors)
        links.push_back(LinkOf(error));
    return links;
}

/// Every error from the thrown one to the first; empty if none of the library was thrown.
template <typename Action>
std::vector<Link> LinksThrownBy(Action&& action)
{
    std::vector<Link> links;
    try {
        action();
    } catch (ZelDtExcep* thrown) {
        for (const ZelEhBasis* e = thrown; e != nullptr; e = e->GetReplaced())
            links.push_back({ErrorOf(*e), e->GetErrorText(), e->GetFlag()});
        delete thrown;
    }
    return links;
}

// Values

/// A value in the state with the fields, whatever they are.
inline ZelDtDateTime MakeDateTime(const Fields& fields, const State& state = {ZelDtWmMissing, 1, 0})
{
    return Given<ZelDtDateTime>(Moment{state, fields}).it;
}

/// The stored fields, whatever the state.
inline Fields FieldsIn(const ZelDtDateTime& value)
{
    return FieldsOf(RecordOf(value));
}

/// The states in which a value can be read, set and computed with.
inline std::vector<State> ReadableStates()
{
    std::vector<State> states;
    for (const State& state : AllStates())
        if (!IsMissing(state))
            states.push_back(state);
    return states;
}

/// A missing value, unmodified and modified.
inline std::vector<State> MissingStates()
{
    return {{ZelDtWmMissing, 0, 0}, {ZelDtWmMissing, 0, 1}};
}

/// A moment somewhere in the year.
inline Fields SomeDayOf(std::int64_t year)
{
    return {year, 6, 15, 12, 0, 0};
}

// The library beside the model

/// An operation of the class and its model.
struct Operation {
    const char* name;
    const char* signature; ///< of its errors, or how it begins if it has no ")"
    void (*run)(ZelDtDateTime& value, std::int64_t count);
    Fault (CalendarModel::*model)(std::int64_t count);

    friend std::ostream& operator<<(std::ostream& os, const Operation& op) { return os << op.name; }
};

namespace operations {

inline short ToShort(std::int64_t count)
{
    return static_cast<short>(count);
}

inline long ToLong(std::int64_t count)
{
    return static_cast<long>(count);
}

inline const Operation kAddDay365 = {
    "AddDay365", "AddDay365(SHORT)",
    [](ZelDtDateTime& v, std::int64_t n) { v.AddDay365(ToShort(n)); }, &CalendarModel::AddDay365};
inline const Operation kSubDay365 = {
    "SubDay365", "SubDay365(SHORT)",
    [](ZelDtDateTime& v, std::int64_t n) { v.SubDay365(ToShort(n)); }, &CalendarModel::SubDay365};
inline const Operation kAddMonth = {
    "AddMonth", "AddMonth(SHORT)", [](ZelDtDateTime& v, std::int64_t n) { v.AddMonth(ToShort(n)); },
    &CalendarModel::AddMonth};
inline const Operation kSubMonth = {
    "SubMonth", "SubMonth(SHORT)", [](ZelDtDateTime& v, std::int64_t n) { v.SubMonth(ToShort(n)); },
    &CalendarModel::SubMonth};
inline const Operation kAddYear = {"AddYear", "AddYear",
                                   [](ZelDtDateTime& v, std::int64_t n) { v.AddYear(ToShort(n)); },
                                   &CalendarModel::AddYear};
inline const Operation kSubYear = {"SubYear", "SubYear",
                                   [](ZelDtDateTime& v, std::int64_t n) { v.SubYear(ToShort(n)); },
                                   &CalendarModel::SubYear};
inline const Operation kAddHour = {"AddHour", "AddHour(LONG)",
                                   [](ZelDtDateTime& v, std::int64_t n) { v.AddHour(ToLong(n)); },
                                   &CalendarModel::AddHour};
inline const Operation kSubHour = {"SubHour", "SubHour",
                                   [](ZelDtDateTime& v, std::int64_t n) { v.SubHour(ToLong(n)); },
                                   &CalendarModel::SubHour};
inline const Operation kAddMin = {"AddMin", "AddMin(LONG)",
                                  [](ZelDtDateTime& v, std::int64_t n) { v.AddMin(ToLong(n)); },
                                  &CalendarModel::AddMin};
inline const Operation kSubMin = {"SubMin", "SubMin",
                                  [](ZelDtDateTime& v, std::int64_t n) { v.SubMin(ToLong(n)); },
                                  &CalendarModel::SubMin};

} // namespace operations

/// Whether the action fails as the operation must when the fault stops it.
template <typename Action>
::testing::AssertionResult FailsWithFault(Action&& action, const Operation& op, const Fault& fault)
{
    const Caught caught = Catch(std::forward<Action>(action));
    if (!caught.disturbance.empty())
        return ::testing::AssertionFailure()
               << "expected error " << fault.number << ", thrown was " << caught.disturbance;
    const std::string given = op.signature;
    const std::string signature =
        caught.error.signature.rfind(given + '(', 0) == 0 ? caught.error.signature : given;
    const std::string first = *fault.signature != 0 ? fault.signature : caught.first.signature;
    return Matches(caught, FunctionError(1, signature), ImpError(fault.number, first));
}

/// Runs the operation on a copy of `start`, which is not missing, and on the model, and compares
/// everything: fields, flags, errors.
inline ::testing::AssertionResult Agrees(const Operation& op, const ZelDtDateTime& start,
                                         std::int64_t count)
{
    const Moment before = Look(start);
    CalendarModel model(before);
    const Fault fault = (model.*op.model)(count);
    ZelDtDateTime value(start);
    if (fault) {
        const auto result = FailsWithFault([&] { op.run(value, count); }, op, fault);
        if (!result)
            return ::testing::AssertionFailure()
                   << before << ' ' << op << ' ' << count << ": " << result.message();
    } else {
        try {
            op.run(value, count);
        } catch (ZelDtExcep* e) {
            const Error first = ErrorOf(e->GetFirstCause());
            delete e;
            return ::testing::AssertionFailure()
                   << before << ' ' << op << ' ' << count << ": expected " << model.Result()
                   << ", thrown was " << first;
        }
    }
    const Moment after = Look(value);
    if (after == model.Result())
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << before << ' ' << op << ' ' << count << ": expected "
                                         << model.Result() << ", got " << after;
}

/// Counts, the same ones for the same seed on every system.
class Counts {
public:
    explicit Counts(std::uint32_t seed) : m_random(seed) {}

    std::int64_t Draw(std::int64_t least, std::int64_t most)
    {
        const auto span = static_cast<std::uint64_t>(most - least) + 1;
        const std::uint64_t bits = (std::uint64_t{m_random()} << 32) | m_random();
        return least + static_cast<std::int64_t>(bits % span);
    }

private:
    std::mt19937 m_random;
};

} // namespace zeltest

#endif
