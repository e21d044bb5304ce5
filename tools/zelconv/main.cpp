/// zelconv: converts typed rows between the representations of the value classes.

#include "tools/zelconv/convert.h"
#include "tools/zelconv/fault.h"
#include "tools/zelconv/options.h"
#include "tools/zelconv/output.h"

#include <exception>
#include <fcntl.h>
#include <iostream>
#include <string>
#include <unistd.h>

namespace {

using zelconv::Outcome;

/// A file opened later must not take the place of a standard stream that is closed.
void OccupyStandardStreams()
{
    for (int descriptor = STDIN_FILENO; descriptor <= STDERR_FILENO; ++descriptor) {
        if (::fcntl(descriptor, F_GETFD) == -1 && ::open("/dev/null", O_RDONLY) < 0)
            return;
    }
}

/// The whole program; throws nothing but what memory that is exhausted gives.
Outcome Run(int argc, char** argv, std::string& problem)
{
    try {
        const auto options = zelconv::ParseOptions(argc, argv);
        return options ? zelconv::Convert(*options) : Outcome::AllRows;
    } catch (const std::bad_alloc&) {
        problem = "memory is exhausted";
    } catch (const std::exception& error) {
        problem = error.what();
    } catch (CException* error) {
        problem = zelconv::TakeMessage(error);
    } catch (ZelDtExcep* error) {
        const zelconv::RowFault fault = zelconv::TakeFault(error, zelconv::RowFault::kWholeRow);
        problem = "error " + std::to_string(fault.error.number) + ", first cause " +
                  std::to_string(fault.firstCause.number);
    }
    return Outcome::Unusable;
}

} // namespace

int main(int argc, char** argv)
{
    OccupyStandardStreams();
    zelconv::HandleSignals();
    std::string problem;
    Outcome outcome = Outcome::Unusable;
    try {
        outcome = Run(argc, argv, problem);
    } catch (const std::bad_alloc&) {
        problem = "memory is exhausted";
    }
    if (outcome == Outcome::Unusable)
        std::cerr << "zelconv: " << problem << '\n';
    return static_cast<int>(outcome);
}
