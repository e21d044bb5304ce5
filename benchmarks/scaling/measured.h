#ifndef ZELDT_BENCHMARKS_SCALING_MEASURED_H
#define ZELDT_BENCHMARKS_SCALING_MEASURED_H

namespace zelbench {

/// Runs a command, a terminated list of words, and writes a line "seconds,megabytes" to standard
/// error: its processor time and the most memory that it had at a time. Returns its exit status.
///
/// A script cannot measure that itself: what it occupies when it starts a program counts as that
/// program's.
int RunMeasured(char** command);

} // namespace zelbench

#endif
