#ifndef GRAMMARRULE_H
#define GRAMMARRULE_H

#include "grammar/grammarexpression.h"

#include <QString>
#include <map>
#include <optional>
#include <vector>

namespace Halvorin::TextMate {

/// What a grammar says of one captured group.
struct GrammarCapture
{
    QString name; ///< a scope; empty where the grammar gives none
};

/// By the number of the group.
using GrammarCaptures = std::map<int, GrammarCapture>;

/// A rule of a grammar as it stands in the file. Whether a key is there matters.
struct GrammarRule
{
    std::optional<QString> name;
    std::optional<GrammarExpression> match;
    std::optional<GrammarExpression> begin;
    std::optional<EndGrammarExpression> end;
    std::optional<QString> contentName;
    GrammarCaptures captures;
    GrammarCaptures beginCaptures;
    GrammarCaptures endCaptures;
    std::optional<QString> include;
    std::optional<std::vector<GrammarRule>> patterns;
};

} // namespace Halvorin::TextMate

#endif
