#ifndef PROGRAMMAKER_H
#define PROGRAMMAKER_H

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
/// assigns. No divisor of integers is zero, nor -1. It prints on its way, and all its variables at the end.
Program makeProgram(std::mt19937& random);

std::string sourceOf(const Program& program);

/// The program with one part fewer, for each part that can be left out.
std::vector<Program> shrunk(const Program& program);

#endif
