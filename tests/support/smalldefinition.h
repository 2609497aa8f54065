#ifndef SMALLDEFINITION_H
#define SMALLDEFINITION_H

/// Definitions of devices for tests that only need one that compiles, and one that does not.
inline constexpr auto smallDefinition =
    R"({"states": {"a": {"type": "atomic"}}, "start": "a", "outputs": {}, "outputDelay": "1n"})";
inline constexpr auto definitionWithoutStates = R"({"start": "a", "outputs": {}, "outputDelay": "1n"})";

#endif
