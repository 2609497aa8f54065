#ifndef CONTINUATION_H
#define CONTINUATION_H

#include <QStringList>
#include <memory>
#include <optional>
#include <variant>

namespace Halvorin::TextMate {

struct GrammarRule;
struct ResolvedRule;
class GrammarLine;
struct Completed;
struct Continued;

/// What is open at the end of a line: the innermost item, and through parent() all around it. It holds no
/// text of the line but that of groups of "begin", where "end" speaks of groups. It does not change, and
/// lines share it while nothing opens or closes.
class AbstractContinuationProcessorStackItem
    : public std::enable_shared_from_this<AbstractContinuationProcessorStackItem>
{
public:
    virtual ~AbstractContinuationProcessorStackItem() = default;
    AbstractContinuationProcessorStackItem(const AbstractContinuationProcessorStackItem&) = delete;
    AbstractContinuationProcessorStackItem& operator=(const AbstractContinuationProcessorStackItem&) = delete;

    /// Goes on where the item stopped. `previousEnd` is where the item inside it finished on this line; the
    /// innermost item has none and starts at 0.
    virtual std::variant<Completed, Continued> continueProcessing(std::optional<int> previousEnd,
                                                                  GrammarLine& line) const = 0;

    /// Null for the root.
    const std::shared_ptr<const AbstractContinuationProcessorStackItem>& parent() const { return m_parent; }
    const QStringList& scopes() const { return m_scopes; }
    /// How many items there are around the item.
    int depth() const { return m_depth; }

protected:
    AbstractContinuationProcessorStackItem(
        const QStringList& scopes, int depth,
        std::shared_ptr<const AbstractContinuationProcessorStackItem> parent)
        : m_scopes(scopes), m_depth(depth), m_parent(std::move(parent))
    {}

    virtual bool isLike(const AbstractContinuationProcessorStackItem& other) const = 0;

private:
    friend bool sameState(const AbstractContinuationProcessorStackItem*,
                          const AbstractContinuationProcessorStackItem*);

    QStringList m_scopes;
    int m_depth;
    std::shared_ptr<const AbstractContinuationProcessorStackItem> m_parent;
};

/// Whether two lines that start with these continuations, and have the same text, have the same tokens. Null
/// stands for a line with which nothing is open.
bool sameState(const AbstractContinuationProcessorStackItem* first,
               const AbstractContinuationProcessorStackItem* second);

} // namespace Halvorin::TextMate

#endif
