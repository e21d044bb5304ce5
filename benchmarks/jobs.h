#ifndef ZELDT_BENCHMARKS_JOBS_H
#define ZELDT_BENCHMARKS_JOBS_H

/// The jobs of each component. Calling a function registers its benchmarks.

namespace zelbench {

void AddValueJobs();
void AddSortOrderJobs();
void AddErrorJobs();
void AddLongJobs();
void AddDoubleJobs();
void AddDateJobs();
void AddDecimalJobs();
void AddDecimal96Jobs();
void AddStringJobs();
void AddQuotingJobs();
void AddCodePageJobs();
void AddFormatJobs();
void AddArchiveJobs();

} // namespace zelbench

#endif
