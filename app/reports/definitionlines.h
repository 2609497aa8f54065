#ifndef DEFINITIONLINES_H
#define DEFINITIONLINES_H

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>

/// The lines of a definition, from 1, that its states and transitions begin on: those of their keys.
struct DefinitionLines
{
    /// @throws what readDocument() raises, and JsonTypeException for what is no definition
    explicit DefinitionLines(std::string_view definition);

    std::unordered_map<std::string, std::size_t> states;      ///< by path, as Coverage has it
    std::unordered_map<std::string, std::size_t> transitions; ///< by identifier
};

#endif
