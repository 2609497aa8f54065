#ifndef SCOPELISTS_H
#define SCOPELISTS_H

#include <QStringList>
#include <unordered_map>

namespace Halvorin::TextMate {

/// Lists of scopes, each with one scope more than another list. A list is made once and shared by all tokens
/// that have it, on this line and on others: lines deep in many items would otherwise need a long list for
/// each token.
class ScopeLists
{
public:
    /// The list with a name of the grammar behind it. The outer one must be the grammar's own or one of
    /// these.
    const QStringList& with(const QStringList& outer, const QString& name)
    {
        const auto [entry, isNew] = m_lists.try_emplace(Key{&outer.constFirst(), &name});
        if (isNew) {
            entry->second = {outer, outer};
            entry->second.list.append(name);
        }
        return entry->second.list;
    }

    /// To call between lines: forgets all, when there are very many.
    void bound()
    {
        if (m_lists.size() > maximum)
            m_lists.clear();
    }

private:
    static constexpr std::size_t maximum = 4096;

    /// The first element's place tells one list from another, and a name stands where it stands in the
    /// grammar.
    struct Key
    {
        const QString* outer;
        const QString* name;

        bool operator==(const Key&) const = default;
    };

    struct Hash
    {
        std::size_t operator()(const Key& key) const
        {
            return std::hash<const void*>()(key.outer) * 31 + std::hash<const void*>()(key.name);
        }
    };

    struct Entry
    {
        QStringList outer; // keeps the elements where they are
        QStringList list;
    };

    std::unordered_map<Key, Entry, Hash> m_lists;
};

} // namespace Halvorin::TextMate

#endif
