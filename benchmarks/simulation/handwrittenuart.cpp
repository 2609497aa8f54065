#include "handwrittenuart.h"

#include <queue>
#include <tuple>

namespace {

enum class What
{
    byteComes,
    bitEnds,
    lineChanges,
};

struct Event
{
    std::int64_t time;
    std::uint64_t sequence;
    What what;
    unsigned value;

    friend bool operator>(const Event& left, const Event& right)
    {
        return std::tie(left.time, left.sequence) > std::tie(right.time, right.sequence);
    }
};

} // namespace

std::uint64_t sendByHand(const std::vector<std::uint8_t>& bytes, std::int64_t bitTime, std::int64_t byteTime)
{
    static constexpr std::int64_t outputDelay = 1;
    std::priority_queue<Event, std::vector<Event>, std::greater<>> events;
    std::uint64_t sequence = 0;
    const auto add = [&](std::int64_t time, What what, unsigned value) {
        events.push({time, sequence++, what, value});
    };
    std::uint64_t changes = 0;
    unsigned line = 1;
    unsigned shift = 0;
    unsigned bitsLeft = 0;
    std::size_t next = 0;
    const auto sendBit = [&](std::int64_t now) {
        add(now + outputDelay, What::lineChanges, shift & 1);
        add(now + bitTime, What::bitEnds, 0);
    };

    add(0, What::byteComes, 0);
    while (!events.empty()) {
        const Event event = events.top();
        events.pop();
        switch (event.what) {
        case What::byteComes:
            shift = bytes[next++] * 2U | 0x200U; // start bit below, stop bit above
            bitsLeft = 10;
            sendBit(event.time);
            if (next < bytes.size())
                add(event.time + byteTime, What::byteComes, 0);
            break;
        case What::bitEnds:
            shift >>= 1;
            if (--bitsLeft > 0)
                sendBit(event.time);
            break;
        case What::lineChanges:
            changes += line != event.value ? 1 : 0;
            line = event.value;
            break;
        }
    }
    return changes;
}
