#ifndef BLOCKTEXT_H
#define BLOCKTEXT_H

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <memory>
#include <string_view>
#include <vector>

/// A text that grows by blocks: what stands in it never moves.
class BlockText
{
public:
    static constexpr std::size_t blockSize = 32768;

    /// Where up to so many bytes can be put next, at most a block of them.
    char* room(std::size_t size)
    {
        if (static_cast<std::size_t>(m_end - m_next) < size)
            startBlock();
        return m_next;
    }

    /// Says up to where the room was filled.
    void filledTo(char* end) { m_next = end; }

    void add(char byte)
    {
        *room(1) = byte;
        ++m_next;
    }

    void add(std::string_view text)
    {
        while (!text.empty()) {
            const std::string_view piece = text.substr(0, blockSize);
            std::memcpy(room(piece.size()), piece.data(), piece.size());
            m_next += piece.size();
            text.remove_prefix(piece.size());
        }
    }

    /// Calls `take` with each piece of the text, in turn.
    template <class Take>
    void forEachPiece(Take take) const
    {
        for (const Block& block : m_blocks) {
            const bool isLast = &block == &m_blocks.back();
            take(std::string_view(block.bytes.get(), isLast ? lastSize() : block.size));
        }
    }

    std::size_t size() const
    {
        std::size_t size = 0;
        forEachPiece([&](std::string_view piece) { size += piece.size(); });
        return size;
    }

private:
    struct Block
    {
        std::unique_ptr<char[]> bytes;
        std::size_t size; // once another block follows
    };

    std::size_t lastSize() const { return static_cast<std::size_t>(m_next - m_blocks.back().bytes.get()); }

    void startBlock()
    {
        if (!m_blocks.empty())
            m_blocks.back().size = lastSize();
        m_blocks.push_back({std::unique_ptr<char[]>(new char[blockSize]), 0});
        m_next = m_blocks.back().bytes.get();
        m_end = m_next + blockSize;
    }

    std::vector<Block> m_blocks;
    char* m_next = nullptr;
    char* m_end = nullptr;
};

#endif
