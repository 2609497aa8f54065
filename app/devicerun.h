#ifndef DEVICERUN_H
#define DEVICERUN_H

#include "reports/recording.h"
#include "simulator/simulationtime.h"

#include <optional>
#include <string>

/// What to make of a run, beside what the device prints.
struct RunReports
{
    bool trace = false;
    std::optional<std::string> dump; ///< path of a value change dump
    bool viewerFile = false;         ///< the save file of a waveform viewer beside it
    std::optional<std::string> coverage;
    std::optional<std::string> lcov;
    std::optional<double> leastCoverage; ///< in percent
    std::optional<std::string> recording;

    bool wantsCoverage() const { return coverage || lcov || leastCoverage; }
};

/// The end that the inputs give to a run beside the stimulus. @throws std::runtime_error for a time or a
/// resolution that is none
std::optional<Ticks> untilOf(const RunInputs& inputs);

/// The path of the viewer's save file that goes with a dump.
std::string viewerFileOf(const std::string& dump);

/// Runs a device once for every stimulus, or once without, and writes the reports.
/// @param timeLimit for one piece of the device's code, in seconds of wall time
/// @returns the exit code. @throws an exception for what keeps a run from starting, or a report from being
/// written
int runDevice(const RunInputs& inputs, const RunReports& reports, double timeLimit);

#endif
