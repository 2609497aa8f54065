#include "reports/lcovtracefile.h"

#include "reports/definitionlines.h"

#include <algorithm>
#include <map>

namespace {

using Lines = std::unordered_map<std::string, std::size_t>;

std::size_t lineOf(const Lines& lines, const std::string& identifier)
{
    const auto found = lines.find(identifier);
    return found == lines.end() ? 1 : found->second;
}

/// A field of a line of the file, which ends with the line.
std::string field(std::string text)
{
    std::ranges::replace_if(
        text, [](char character) { return static_cast<unsigned char>(character) < 0x20; }, '?');
    return text;
}

std::string counts(std::string_view found, std::string_view hit, Coverage::Count count)
{
    return std::string(found) + ":" + std::to_string(count.total) + "\n" + std::string(hit) + ":" +
           std::to_string(count.covered) + "\n";
}

std::string functionLines(const Coverage& coverage, const Lines& lines)
{
    std::string names;
    std::string hits;
    for (const Coverage::State& state : coverage.states) {
        const std::string name = field(state.path);
        names += "FN:" + std::to_string(lineOf(lines, state.path)) + "," + name + "\n";
        hits += "FNDA:" + std::to_string(state.entered) + "," + name + "\n";
    }
    return names + hits + counts("FNF", "FNH", coverage.stateCount());
}

/// A condition is a block of its transition's line with two branches: it held, it did not. A line may have
/// several transitions.
std::string branchLines(const Coverage& coverage, const Lines& lines)
{
    std::string result;
    std::map<std::size_t, std::size_t> blocks; // so far, by line
    for (const Coverage::Transition& transition : coverage.transitions) {
        const std::size_t line = lineOf(lines, transition.identifier);
        for (const Coverage::Condition& condition : transition.conditions) {
            const std::uint64_t held = condition.held;
            const std::uint64_t failed = condition.failed;
            const std::string start =
                "BRDA:" + std::to_string(line) + "," + std::to_string(blocks[line]++) + ",";
            // "-": the condition was never tried.
            const auto taken = [&](std::uint64_t count) {
                return held + failed == 0 ? std::string("-") : std::to_string(count);
            };
            result += start + "0," + taken(held) + "\n" + start + "1," + taken(failed) + "\n";
        }
    }
    return result + counts("BRF", "BRH", coverage.outcomeCount());
}

std::string codeLines(const Coverage& coverage, const DefinitionLines& lines)
{
    std::map<std::size_t, std::uint64_t> hits;
    for (const Coverage::State& state : coverage.states)
        hits[lineOf(lines.states, state.path)] += state.entered;
    for (const Coverage::Transition& transition : coverage.transitions)
        hits[lineOf(lines.transitions, transition.identifier)] += transition.taken;
    std::string result;
    Coverage::Count count{0, hits.size()};
    for (const auto& [line, hit] : hits) {
        result += "DA:" + std::to_string(line) + "," + std::to_string(hit) + "\n";
        count.covered += hit > 0 ? 1 : 0;
    }
    return result + counts("LF", "LH", count);
}

} // namespace

std::string lcovText(const Coverage& coverage, const std::string& path, std::string_view definition)
{
    const DefinitionLines lines(definition);
    return "TN:\nSF:" + field(path) + "\n" + functionLines(coverage, lines.states) +
           branchLines(coverage, lines.transitions) + codeLines(coverage, lines) + "end_of_record\n";
}
