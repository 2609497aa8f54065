#include "statechart/json/jsonkeytree.h"

#include <algorithm>
#include <bit>

namespace {

/// The byte of a key, and apart from every byte what stands behind its end.
std::uint32_t symbolAt(std::string_view key, std::size_t place)
{
    return place < key.size() ? 0x100u | static_cast<std::uint8_t>(key[place]) : 0u;
}

} // namespace

std::uint32_t JsonKeyTree::candidateFor(std::string_view key) const
{
    if (empty())
        return none;
    std::uint32_t at = m_root;
    while ((at & leaf) == 0) {
        const Node& node = m_nodes[at];
        at = node.children[(symbolAt(key, node.place) & node.bit) != 0];
    }
    return at & ~leaf;
}

void JsonKeyTree::insert(std::string_view key, std::uint32_t number, std::uint32_t candidate,
                         std::string_view candidateKey)
{
    if (candidate == none) {
        m_root = number | leaf;
        return;
    }
    const auto place = static_cast<std::size_t>(std::ranges::mismatch(key, candidateKey).in1 - key.begin());
    const std::uint32_t symbol = symbolAt(key, place);
    const std::uint32_t bit = std::bit_floor(symbol ^ symbolAt(candidateKey, place));

    // The nodes stand in the order of their bits, the higher ones of a byte first.
    std::uint32_t above = none;
    std::uint32_t at = m_root;
    std::size_t side = 0;
    while ((at & leaf) == 0) {
        const Node& node = m_nodes[at];
        if (node.place > place || (node.place == place && node.bit < bit))
            break;
        above = at;
        side = (symbolAt(key, node.place) & node.bit) != 0;
        at = node.children[side];
    }
    const auto added = static_cast<std::uint32_t>(m_nodes.size());
    Node node{static_cast<std::uint32_t>(place), bit, {at, at}};
    node.children[(symbol & bit) != 0] = number | leaf;
    m_nodes.push_back(node);
    (above == none ? m_root : m_nodes[above].children[side]) = added;
}
