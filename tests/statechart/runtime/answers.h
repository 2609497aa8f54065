#ifndef ANSWERS_H
#define ANSWERS_H

#include <cstdint>
#include <random>
#include <stdexcept>

/// A question of a chart has no answer; what an action raises is much the same.
class NoAnswer : public std::runtime_error
{
public:
    NoAnswer() : std::runtime_error("no answer") {}
};

/// What a chart is told of pins and times. Two charts that ask the same questions in the same order get the
/// same answers; one question in many has none.
class Answers
{
public:
    explicit Answers(std::uint64_t seed) : m_random(seed) {}

    bool isHigh() { return next() % 8 < 5; }
    double time() { return static_cast<double>(next() % 100); }

private:
    std::uint64_t next()
    {
        const std::uint64_t answer = m_random() >> 8;
        if (answer % 199 == 0)
            throw NoAnswer();
        return answer / 199;
    }

    std::mt19937_64 m_random;
};

#endif
