#ifndef COMPONENTS_H
#define COMPONENTS_H

#include <cstddef>
#include <vector>

/// For each node of a directed graph its targets.
using GraphEdges = std::vector<std::vector<std::size_t>>;

/// The strongly connected components of a graph that have a way round: each lists nodes that all lead to each
/// other, in ascending order. Linear, and with no stack for depth.
std::vector<std::vector<std::size_t>> componentsWithWaysRound(const GraphEdges& edges);

#endif
