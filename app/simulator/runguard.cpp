// POSIX signals and timers; another platform gets a file of its own with the same header.
#include "simulator/runguard.h"

#include <algorithm>
#include <cmath>
#include <csignal>
#include <sys/time.h>
#include <unistd.h>

namespace {

// The limit is looked at this many times within its own length.
constexpr int looksPerLimit = 20;
constexpr int limitsPerEvent = 10;

// What the signal handlers work with: they get no arguments of ours.
const RunningCode* watched = nullptr;
std::string watchedName;
RunGuard::LastAct lastAct = nullptr;

/// Something that is counted up as long as things go on, and how often it was seen to stand still.
struct Watch
{
    std::uint64_t count = 0;
    int looks = 0;

    /// Tells whether it has stood still for so many looks.
    bool standsStill(std::uint64_t now, int mostLooks)
    {
        looks = now == count ? looks + 1 : 0;
        count = now;
        return looks >= mostLooks;
    }
};

Watch codeWatch;
Watch eventWatch;

struct sigaction formerFault;
struct sigaction formerAlarm;

[[noreturn]] void end(std::string_view what)
{
    FixedText text;
    text << watchedName << ": ";
    watched->writeTime(text);
    text << ": " << what;
    if (watched->isKnown()) {
        text << ", ";
        watched->writePlace(text);
    }
    if (lastAct != nullptr)
        lastAct();
    std::string_view left = text.view();
    while (!left.empty()) {
        const ssize_t count = ::write(STDERR_FILENO, left.data(), left.size());
        if (count <= 0)
            break;
        left.remove_prefix(static_cast<std::size_t>(count));
    }
    [[maybe_unused]] const ssize_t ignored = ::write(STDERR_FILENO, "\n", 1);
    ::_exit(1);
}

void onFault(int)
{
    end("integer division fault");
}

void onAlarm(int)
{
    if (!watched->isRunning) {
        codeWatch = {};
        eventWatch = {};
        return;
    }
    if (codeWatch.standsStill(watched->count + watched->eventCount, looksPerLimit))
        end("the code does not end (--time-limit gives it longer)");
    if (eventWatch.standsStill(watched->eventCount, looksPerLimit * limitsPerEvent))
        end("what the event brings about does not end (--time-limit gives it longer)");
}

void setTimer(std::chrono::duration<double> interval)
{
    const double seconds = std::floor(interval.count());
    itimerval timer{};
    timer.it_interval.tv_sec = static_cast<time_t>(seconds);
    timer.it_interval.tv_usec = static_cast<suseconds_t>((interval.count() - seconds) * 1e6);
    timer.it_value = timer.it_interval;
    ::setitimer(ITIMER_REAL, &timer, nullptr);
}

void handle(int signal, void (*handler)(int), struct sigaction& former)
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    ::sigaction(signal, &action, &former);
}

} // namespace

RunGuard::RunGuard(const RunningCode& code, std::string name, std::chrono::duration<double> limit,
                   LastAct act)
{
    watched = &code;
    watchedName = std::move(name);
    lastAct = act;
    codeWatch = {};
    eventWatch = {};
    handle(SIGFPE, onFault, formerFault);
    handle(SIGALRM, onAlarm, formerAlarm);
    // A timer of length 0 would be none.
    setTimer(std::max(limit / looksPerLimit, std::chrono::duration<double>(1e-4)));
}

RunGuard::~RunGuard()
{
    setTimer(std::chrono::duration<double>(0));
    ::sigaction(SIGALRM, &formerAlarm, nullptr);
    ::sigaction(SIGFPE, &formerFault, nullptr);
    watched = nullptr;
}
