#ifndef STACKITEM_H
#define STACKITEM_H

#include "grammar/continuation.h"
#include "grammar/grammarline.h"

#include <QStringList>
#include <memory>
#include <variant>

namespace Halvorin::TextMate {

/// An item finished on this line, at this position.
struct Completed
{
    int end = 0;
};

/// An item is still open at the end of the line.
struct Continued
{
    int length = 0; ///< of the line
    std::shared_ptr<const AbstractContinuationProcessorStackItem> continuation;
};

using ProcessResult = std::variant<Completed, Continued>;

/// One rule in progress in a line. Positions count UTF-16 units of the line.
class AbstractTokenStackItem : public std::enable_shared_from_this<AbstractTokenStackItem>
{
public:
    virtual ~AbstractTokenStackItem() = default;
    AbstractTokenStackItem(const AbstractTokenStackItem&) = delete;
    AbstractTokenStackItem& operator=(const AbstractTokenStackItem&) = delete;

    /// Where the item's match begins, and where processing has reached.
    int start() const { return m_start; }
    int end() const { return m_end; }
    int length() const { return m_end - m_start; }
    /// What \G refers to: where the match that opened the item ended.
    int anchor() const { return m_anchor; }

protected:
    AbstractTokenStackItem(int start, int end) : m_start(start), m_end(end), m_anchor(end) {}

    void setEnd(int end) { m_end = end; }

private:
    int m_start;
    int m_end;
    int m_anchor;
};

/// An item that gives tokens, with the scopes that they have.
class AbstractGrammarProcessorStackItem : public AbstractTokenStackItem
{
public:
    virtual ProcessResult process(GrammarLine& line) = 0;

    /// What goes on with this item, and with all around it, on the next line.
    virtual std::shared_ptr<const AbstractContinuationProcessorStackItem> makeContinuation() const = 0;

    const QStringList& scopes() const { return m_scopes; }
    /// How many items there are around this one.
    int depth() const { return m_depth; }

protected:
    AbstractGrammarProcessorStackItem(int start, int end, const QStringList& scopes,
                                      const std::shared_ptr<AbstractGrammarProcessorStackItem>& parent)
        : AbstractTokenStackItem(start, end), m_scopes(scopes), m_depth(parent ? parent->depth() + 1 : 0),
          m_parent(parent)
    {}
    /// One that goes on from an earlier line: its continuation knows what is around it.
    AbstractGrammarProcessorStackItem(int start, int end, const QStringList& scopes, int depth)
        : AbstractTokenStackItem(start, end), m_scopes(scopes), m_depth(depth)
    {}

    /// Raises std::bad_weak_ptr when the item around is gone, which is a fault of the program.
    std::shared_ptr<AbstractGrammarProcessorStackItem> parent() const
    {
        return std::shared_ptr<AbstractGrammarProcessorStackItem>(m_parent);
    }

private:
    QStringList m_scopes;
    int m_depth;
    std::weak_ptr<AbstractGrammarProcessorStackItem> m_parent;
};

} // namespace Halvorin::TextMate

#endif
