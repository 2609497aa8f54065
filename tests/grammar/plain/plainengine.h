#ifndef PLAINENGINE_H
#define PLAINENGINE_H

#include "grammar/grammar.h"
#include "grammar/token.h"

#include <QRegularExpressionMatch>
#include <memory>
#include <optional>
#include <set>
#include <stdexcept>

/// Raised for a line that would take too many steps.
struct TooManySteps : std::runtime_error
{
    TooManySteps() : std::runtime_error("too many steps") {}
};

/// The rules of tokenising once more, in the plainest form: every expression is searched for anew with Qt at
/// every step, nothing is remembered, shared or sorted once. What the engine must give, too.
class PlainEngine
{
public:
    /// A rule with "begin" that is open, and what is around it. The root, when a match of nothing has stopped
    /// the line, has no rule.
    struct Open
    {
        const Halvorin::TextMate::GrammarRule* rule = nullptr;
        QRegularExpressionMatch begin;
        QStringList scopes;
        std::shared_ptr<const Open> around;
        int depth = 0;
    };

    explicit PlainEngine(const Halvorin::TextMate::Grammar& grammar) : m_grammar(grammar) {}

    /// Tokenises a line from what was open behind the one before, and says what is open behind it.
    std::shared_ptr<const Open> tokenise(const QString& line, const std::shared_ptr<const Open>& open);
    const std::vector<Halvorin::TextMate::Token>& tokens() const { return m_tokens; }

private:
    struct Hit
    {
        const Halvorin::TextMate::GrammarRule* rule;
        QRegularExpressionMatch match;

        int start() const { return match.capturedStart(0); }
    };

    /// Where an item finished, or what is open.
    struct Result
    {
        int end = 0;
        std::shared_ptr<const Open> open;
    };

    bool match(const Halvorin::TextMate::AbstractGrammarExpression& expression, const QString& pattern,
               int position, int anchor, QRegularExpressionMatch& found);
    bool matchEnd(const Open& item, int position, int anchor, QRegularExpressionMatch& found);
    std::optional<Hit> matchRule(const Halvorin::TextMate::GrammarRule& rule, int position, int anchor);
    std::optional<Hit> bestMatch(const std::vector<Halvorin::TextMate::GrammarRule>& rules, int position,
                                 int anchor);
    template <class Try>
    std::optional<Hit> include(const void* what, Try tryIt);

    Result runItem(const Hit& hit, const QStringList& scopes, const std::shared_ptr<const Open>& around);
    Result runBeginEnd(const std::shared_ptr<const Open>& item, int start, int anchor);
    Result runContent(const std::shared_ptr<const Open>& item, int anchor);
    Result runRoot(int position);

    void fill(int start, int length, const QStringList& scopes);
    void capture(const QRegularExpressionMatch& match, const Halvorin::TextMate::GrammarCaptures& captures,
                 const QStringList& scopes);
    void sort();

    const Halvorin::TextMate::Grammar& m_grammar;
    QString m_line;
    std::vector<Halvorin::TextMate::Token> m_tokens;
    std::set<const void*> m_included;
    int m_steps = 0;
};

#endif
