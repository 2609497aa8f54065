#ifndef GRAPHVIZ_H
#define GRAPHVIZ_H

#include <string>

/// A graph in Graphviz's language as a picture, laid out by its program "dot".
/// @throws std::runtime_error when that is not installed, fails, or takes longer than a minute
std::string svgOf(const std::string& dot);

#endif
