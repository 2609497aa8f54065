#ifndef LINTCASE_H
#define LINTCASE_H

#include "statechart/check/definitioncheck.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

/// A definition with the bytes that one finding blames between « and »; without these marks it is one that
/// has no findings.
struct LintCase
{
    const char* name;
    std::string marked;
    std::string text = {};
};

inline void PrintTo(const LintCase& row, std::ostream* output)
{
    *output << row.name;
}

struct MarkedText
{
    std::string text;
    bool isMarked = false;
    std::size_t offset = 0;
    std::size_t length = 0;
};

inline MarkedText withoutMarks(const std::string& marked)
{
    const std::string open = "«";
    const std::string close = "»";
    const std::size_t start = marked.find(open);
    if (start == std::string::npos)
        return {marked};
    const std::size_t end = marked.find(close);
    const std::size_t inside = start + open.size();
    return {marked.substr(0, start) + marked.substr(inside, end - inside) + marked.substr(end + close.size()),
            true, start, end - inside};
}

inline std::string textsOf(const std::vector<Finding>& findings)
{
    std::string texts;
    for (const Finding& finding : findings)
        texts += finding.text + "\n";
    return texts;
}

/// Checks the one finding of a case, or that there is none.
inline void checkLintCase(const LintCase& row, FindingKind kind)
{
    const MarkedText definition = withoutMarks(row.marked);
    const std::vector<Finding> findings = checkDefinition(definition.text);
    if (!definition.isMarked) {
        EXPECT_EQ(textsOf(findings), "");
        return;
    }
    ASSERT_EQ(textsOf(findings), row.text + "\n");
    const Finding& finding = findings.front();
    EXPECT_EQ(infoOf(finding.kind).name, infoOf(kind).name);
    EXPECT_EQ(finding.severity, FindingSeverity::warning);
    EXPECT_EQ(finding.offset, definition.offset);
    EXPECT_EQ(finding.length, definition.length);
    const std::string_view before = std::string_view(definition.text).substr(0, definition.offset);
    const std::size_t lineStart = before.rfind('\n') + 1; // none: npos + 1 is 0
    EXPECT_EQ(finding.column, before.size() - lineStart + 1);
    EXPECT_EQ(finding.line, 1u + static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n')));
}

/// A chart of these states that begins in "a".
inline std::string chartOf(std::string_view states)
{
    return std::string("{\"states\": {\n")
        .append(states)
        .append("},\n \"start\": \"a\", \"outputs\": {}, \"outputDelay\": \"1n\"}");
}

/// A chart of a state "a" with these transitions, and one "b".
inline std::string transitionsOf(std::string_view transitions)
{
    return chartOf(std::string(R"("a": {"type": "atomic", "transitions": {)")
                       .append(transitions)
                       .append(R"(, "on": {"target": "b", "order": 99, "event": "change",
                                   "conditions": "simulationTime() > 1.0"}}}, "b": {"type": "atomic"})"));
}

/// A device with these sections, and one state that does these actions.
inline std::string deviceOf(std::string_view sections, std::string_view actions)
{
    return std::string("{\"états\": 1, ")
        .append(sections)
        .append(",\n \"states\": {\"a\": {\"type\": \"atomic\", \"onEntry\": ")
        .append(actions)
        .append("}}, \"start\": \"a\", \"outputDelay\": 1}");
}

/// A device with no more than a state that does these actions, given as a JSON string or list.
inline std::string actionsOf(std::string_view actions)
{
    return deviceOf(R"("outputs": {})", actions);
}

#endif
