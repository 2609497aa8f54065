#ifndef HALVCORE_DATETIME_H
#define HALVCORE_DATETIME_H

#include <cstdint>

namespace Halvorin::System {

/// A time stamp.
class DateTime
{
public:
    explicit DateTime(std::int64_t secondsSinceEpoch) : m_seconds(secondsSinceEpoch) {}

    /// Seconds since 1970-01-01 00:00 UTC.
    std::int64_t secondsSinceEpoch() const { return m_seconds; }

private:
    std::int64_t m_seconds;
};

} // namespace Halvorin::System

#endif
