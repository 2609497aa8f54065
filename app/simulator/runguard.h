#ifndef RUNGUARD_H
#define RUNGUARD_H

#include "simulator/runningcode.h"

#include <chrono>
#include <string>

/// As long as this lives, what ends a process without a word says one: an integer division by zero, and a
/// piece of code or an event that takes longer than it may. Each writes "NAME: at TIME: WHAT, in WHERE" to
/// standard error and ends the process with exit code 1. One at a time.
class RunGuard
{
public:
    /// What is to be done before the process ends, in a signal handler.
    using LastAct = void (*)();

    /// @param code what the device is running; it must outlive this
    /// @param name what messages begin with
    /// @param limit for one piece of code, in wall time; all that one event brings about has ten times that
    RunGuard(const RunningCode& code, std::string name, std::chrono::duration<double> limit, LastAct lastAct);
    RunGuard(const RunGuard&) = delete;
    RunGuard& operator=(const RunGuard&) = delete;
    ~RunGuard();
};

#endif
