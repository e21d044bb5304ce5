#ifndef ZELDT_BENCHMARKS_PLATFORM_FRAMEWORK_OBJECTS_H
#define ZELDT_BENCHMARKS_PLATFORM_FRAMEWORK_OBJECTS_H

namespace zelbench {

/// Objects of every value class in archives; registered with the other archive jobs.
void AddArchivedObjectJobs();

} // namespace zelbench

#endif
