#ifndef DEFINITIONS_H
#define DEFINITIONS_H

#include "statechart/ddcodebuilderfactory.h"
#include "statechart/json/jsonreader.h"
#include "statechart/json/jsonwriter.h"

#include <memory>
#include <sstream>
#include <string>
#include <string_view>

inline JsonValue jsonOf(std::string_view text)
{
    std::istringstream stream{std::string(text)};
    return readDocument(stream).value();
}

inline std::shared_ptr<CodeBuilder> deviceCodeBuilder()
{
    return DDCodeBuilderFactory::createCodeBuilder();
}

/// What `compile` makes of a definition, with the definition and its outcome in the test's record, as
/// "accepted" or "refused" and `kind`. The check of the schema reads that record.
template <class Compile>
JsonValue recorded(std::string_view kind, std::string_view definition, Compile compile)
{
    const auto record = [&](const char* outcome) {
        testing::Test::RecordProperty(std::string(outcome).append(kind), std::string(definition));
    };
    try {
        JsonValue compiled = compile();
        record("accepted");
        return compiled;
    } catch (...) {
        record("refused");
        throw;
    }
}

/// A device of one state whose sections, members of the root, are given.
inline std::string deviceWith(std::string_view sections)
{
    return std::string(R"({"states": {"s": {"type": "atomic"}}, "start": "s")")
        .append(", ")
        .append(sections)
        .append("}");
}

/// A device of one state that has one transition to itself, with the members given.
inline std::string deviceWithTransition(std::string_view members)
{
    return std::string(
               R"({"states": {"s": {"type": "atomic", "transitions": {"t": {"target": "s", "order": 0, )")
        .append(members)
        .append(R"(}}}}, "start": "s", "outputs": {}, "outputDelay": "1n"})");
}

/// What `action` raises, in words; "" when it raises nothing.
template <class Action>
std::string failureOf(Action action)
{
    try {
        action();
    } catch (const std::exception& failure) {
        return failure.what();
    }
    return {};
}

#endif
