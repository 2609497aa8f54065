#ifndef PROGRAMMAKER_H
#define PROGRAMMAKER_H

#include "statechart/json/jsonvalue.h"

#include <random>
#include <string>
#include <vector>

/// A random program as a tree of source lines, so that parts of it can be left out.
struct ProgramPart
{
    std::string text;                     ///< a statement, or what stands before the braces of a block
    std::vector<ProgramPart> inside = {}; ///< the statements of the block
    bool isBlock = false;
    std::string behind = {}; ///< what stands after the closing brace
};

using Program = std::vector<ProgramPart>;

/// A program of all types and operators that ends: its loops count variables of their own, which nothing else
/// assigns. No divisor of integers is zero, nor -1. It prints on its way, and all its variables at the end,
/// unless a format text that is none ends it before. Some literals stand for negative ones.
Program makeProgram(std::mt19937& random);

/// A compiled program with negative literals where some stand for them: a compiled device may have them,
/// though no text compiles to one.
JsonValue withNegativeLiterals(const JsonValue& compiled);

std::string sourceOf(const Program& program);

/// The program with one part fewer, for each part that can be left out.
std::vector<Program> shrunk(const Program& program);

#endif
