#ifndef SCOPELISTS_H
#define SCOPELISTS_H

#include <QStringList>
#include <unordered_map>

namespace Halvorin::TextMate {

/// Lists of scopes, each with one scope more than another list. A list is made once and shared by all tokens
/// that have it: a long line deep in many items would otherwise need a long list for each of them.
class ScopeLists
{
public:
    /// The list with a name behind it. The name stands in the grammar, and its address is what a list is
    /// known by: with one name always come the same scopes.
    const QStringList& with(const QStringList& scopes, const QString& name)
    {
        const auto [list, isNew] = m_lists.try_emplace(&name, scopes);
        if (isNew)
            list->second.append(name);
        return list->second;
    }

private:
    std::unordered_map<const QString*, QStringList> m_lists;
};

} // namespace Halvorin::TextMate

#endif
