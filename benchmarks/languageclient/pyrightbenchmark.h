#ifndef PYRIGHTBENCHMARK_H
#define PYRIGHTBENCHMARK_H

/// Adds the benchmarks with the real server, when it is installed.
void addPyrightBenchmarks();

/// Ends the servers that the benchmarks started and share.
void endPyright();

#endif
