#ifndef EVENTQUEUE_H
#define EVENTQUEUE_H

#include "simulator/simulationtime.h"

#include <cstddef>
#include <cstdint>
#include <vector>

/// New levels for some lines of an output.
struct OutputChange
{
    std::size_t signal; ///< index of the pin or bus
    std::uint64_t mask; ///< the lines that change
    std::uint64_t lines;
};

/// What a device has asked for and what lies in the future: changes of outputs, and wakes. Of what is due at
/// one time, changes of outputs come first, then wakes; apart from that, what was asked for first.
class EventQueue
{
public:
    void add(Ticks time, const OutputChange& change);
    void addWake(Ticks time, std::uint64_t wakeIdentifier);

    bool empty() const { return m_entries.empty(); }
    std::size_t size() const { return m_entries.size(); }
    Ticks nextTime() const { return m_entries.front().time; }
    bool nextIsWake() const { return m_entries.front().isWake; }

    OutputChange takeOutputChange();
    std::uint64_t takeWake();

private:
    struct Entry
    {
        Ticks time;
        bool isWake;
        std::uint64_t sequence;
        OutputChange change;          // unless it is a wake
        std::uint64_t wakeIdentifier; // if it is one
    };

    static bool isLater(const Entry& left, const Entry& right);
    void push(const Entry& entry);
    Entry pop();

    std::vector<Entry> m_entries; // a heap, the next one first
    std::uint64_t m_sequence = 0;
};

#endif
