#include "simulator/eventqueue.h"

#include <algorithm>
#include <tuple>

bool EventQueue::isLater(const Entry& left, const Entry& right)
{
    return std::tie(left.time, left.isWake, left.sequence) >
           std::tie(right.time, right.isWake, right.sequence);
}

void EventQueue::push(const Entry& entry)
{
    m_entries.push_back(entry);
    std::push_heap(m_entries.begin(), m_entries.end(), isLater);
}

EventQueue::Entry EventQueue::pop()
{
    std::pop_heap(m_entries.begin(), m_entries.end(), isLater);
    const Entry entry = m_entries.back();
    m_entries.pop_back();
    return entry;
}

void EventQueue::add(Ticks time, const OutputChange& change)
{
    push({time, false, m_sequence++, change, 0});
}

void EventQueue::addWake(Ticks time, std::uint64_t wakeIdentifier)
{
    push({time, true, m_sequence++, {}, wakeIdentifier});
}

OutputChange EventQueue::takeOutputChange()
{
    return pop().change;
}

std::uint64_t EventQueue::takeWake()
{
    return pop().wakeIdentifier;
}
