#include "benchmarks/contest.h"
#include "benchmarks/jobs.h"
#include "foundation/DTEXCEP.h"

#include <cstdlib>

namespace {

void AddAllJobs()
{
    zelbench::AddValueJobs();
    zelbench::AddLongJobs();
    zelbench::AddDoubleJobs();
    zelbench::AddDecimalJobs();
    zelbench::AddDecimal96Jobs();
    zelbench::AddDateJobs();
    zelbench::AddStringJobs();
    zelbench::AddQuotingJobs();
    zelbench::AddSortOrderJobs();
    zelbench::AddCodePageJobs();
    zelbench::AddFormatJobs();
    zelbench::AddArchiveJobs();
    zelbench::AddErrorJobs();
}

} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return EXIT_FAILURE;
    try {
        AddAllJobs();
        benchmark::RunSpecifiedBenchmarks();
    } catch (ZelEhBasis* error) {
        const std::string text = error != nullptr ? error->GetErrorText() : "out of memory";
        delete error;
        zelbench::Fail("zel_benchmarks", text);
    }
    benchmark::Shutdown();
    return EXIT_SUCCESS;
}
