#ifndef JSONKEYTREE_H
#define JSONKEYTREE_H

#include "halvwidgetsexport.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

/// Finds keys without a hash, for the object whose keys were made to meet in one bucket. Each node tells two
/// sets of keys apart by the first bit in which any of them differ, so that a look-up passes at most as many
/// nodes as the key has bits, whatever the other keys are. Keys are numbered; who asks knows the keys.
///
///     JsonKeyTree tree;
///     tree.insert("a", 0, JsonKeyTree::none, {});
///     const std::uint32_t candidate = tree.candidateFor("b");   // 0, the only key that could be "b"
///     tree.insert("b", 1, candidate, "a");
class HALVWIDGETS_EXPORT JsonKeyTree
{
public:
    static constexpr std::uint32_t none = 0xffffffff;

    bool empty() const { return m_root == none; }

    /// The number of the one key that may be this one, or none.
    std::uint32_t candidateFor(std::string_view key) const;

    /// Adds a key. There is a candidate for it, which is another key, unless the tree is empty.
    void insert(std::string_view key, std::uint32_t number, std::uint32_t candidate,
                std::string_view candidateKey);

private:
    struct Node
    {
        std::uint32_t place;       // of a byte in the keys
        std::uint32_t bit;         // of symbolAt() there
        std::uint32_t children[2]; // a node, or the number of a key with `leaf` set
    };

    static constexpr std::uint32_t leaf = 0x80000000;

    std::vector<Node> m_nodes;
    std::uint32_t m_root = none;
};

#endif
