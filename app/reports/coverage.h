#ifndef COVERAGE_H
#define COVERAGE_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// How often the parts of a chart were used in one run or several.
struct Coverage
{
    struct State
    {
        std::string path; ///< the identifiers of the states around it and its own, with slashes between
        std::uint64_t entered = 0;
    };

    /// The outcomes of one condition.
    struct Condition
    {
        std::uint64_t held = 0;
        std::uint64_t failed = 0;
    };

    struct Transition
    {
        std::string identifier;
        std::string source;
        std::string target;
        std::uint64_t taken = 0;
        std::vector<Condition> conditions;
    };

    std::vector<State> states;           ///< a state stands before those inside it
    std::vector<Transition> transitions; ///< by source, in the order in which they are tried

    struct Count
    {
        std::size_t covered = 0;
        std::size_t total = 0;

        /// True when there is nothing to cover.
        bool isFull() const { return covered == total; }
        double percent() const { return total == 0 ? 100.0 : 100.0 * double(covered) / double(total); }
    };

    Count stateCount() const;
    Count transitionCount() const;
    Count outcomeCount() const; ///< two for each condition: that it held, that it did not

    /// All three together.
    Count count() const;
};

/// "states 5/6 (83.3 %), transitions 7/8 (87.5 %), outcomes 10/12 (83.3 %), all 22/26 (84.6 %)". Percents
/// are rounded down, so that 100 means everything.
std::string coverageSummary(const Coverage& coverage);

/// One JSON object: "states", "transitions" and the "summary".
std::string coverageJson(const Coverage& coverage, const std::string& device);

#endif
