#ifndef RULESWEEPS_H
#define RULESWEEPS_H

#include "actionlanguage/rules/expressionitem.h"

#include <span>

// The two ways in which a rule goes over a list of items. What a rule reduces is replaced in place and the
// list is closed up behind the sweep, so that a sweep takes linear time however much it reduces. A sweep
// that ends in an exception leaves the list in no particular state: the compile is over.

/// Visits items from the first to the last.
class LeftToRightSweep
{
public:
    explicit LeftToRightSweep(ItemList& items) : m_items(items) {}

    bool atEnd() const { return m_read == m_items.size(); }

    /// The item being visited.
    ExpressionItem& item() { return m_items[m_read]; }

    /// The items behind it.
    std::size_t behindCount() const { return m_items.size() - m_read - 1; }
    std::span<ExpressionItem> behind() { return std::span(m_items).subspan(m_read + 1); }

    /// The item before it, reductions done.
    bool hasBefore() const { return m_write > 0; }
    ExpressionItem& before() { return m_items[m_write - 1]; }

    /// Leaves the visited item as it is.
    void pass() { place(std::move(m_items[m_read++])); }

    /// Replaces `count` items from the visited one on.
    void reduce(std::size_t count, ExpressionItem reduced)
    {
        m_read += count;
        place(std::move(reduced));
    }

    /// Replaces the item before, and `count` items from the visited one on.
    void reduceWithBefore(std::size_t count, ExpressionItem reduced)
    {
        m_read += count;
        before() = std::move(reduced);
    }

    /// Closes the list up.
    void finish() { m_items.erase(m_items.begin() + static_cast<std::ptrdiff_t>(m_write), m_items.end()); }

private:
    void place(ExpressionItem&& item)
    {
        if (&m_items[m_write] != &item)
            m_items[m_write] = std::move(item);
        ++m_write;
    }

    ItemList& m_items;
    std::size_t m_read = 0;  // the item being visited
    std::size_t m_write = 0; // the end of what is closed up
};

/// Visits items from the last to the first.
class RightToLeftSweep
{
public:
    explicit RightToLeftSweep(ItemList& items) : m_items(items), m_read(items.size()), m_write(items.size())
    {}

    bool atEnd() const { return m_read == 0; }

    /// The item being visited.
    ExpressionItem& item() { return m_items[m_read - 1]; }

    /// The item before it.
    bool hasBefore() const { return m_read > 1; }
    ExpressionItem& before() { return m_items[m_read - 2]; }

    /// The item behind it, reductions done.
    bool hasBehind() const { return m_write < m_items.size(); }
    ExpressionItem& behind() { return m_items[m_write]; }

    /// Leaves the visited item as it is.
    void pass()
    {
        --m_read;
        --m_write;
        if (m_read != m_write)
            m_items[m_write] = std::move(m_items[m_read]);
    }

    /// Replaces the item behind, and `count` items from the visited one backwards.
    void reduceWithBehind(std::size_t count, ExpressionItem reduced)
    {
        m_read -= count;
        behind() = std::move(reduced);
    }

    /// Closes the list up.
    void finish() { m_items.erase(m_items.begin(), m_items.begin() + static_cast<std::ptrdiff_t>(m_write)); }

private:
    ItemList& m_items;
    std::size_t m_read;  // one behind the item being visited
    std::size_t m_write; // the start of what is closed up
};

#endif
