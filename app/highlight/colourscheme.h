#ifndef COLOURSCHEME_H
#define COLOURSCHEME_H

#include <QHash>
#include <QString>
#include <QStringList>
#include <span>
#include <string>
#include <string_view>

/// How text of a scope looks. The colour is a number of the 256 that terminals have. Those from 16 on look
/// the same everywhere, while the first 16 follow the terminal's theme, and some of them are hard to read on
/// one background or another. All that stand in the table have a contrast of at least 4:1 to black and
/// of 4.5:1 to white.
struct ColourRule
{
    std::string_view scope;
    int colour = plain;
    bool bold = false;

    static constexpr int plain = -1; ///< as text of no rule, whatever is around it
};

/// The table. To change a colour, change its row, and that in docs/reference/highlight.md.
std::span<const ColourRule> colourRules();

/// A colour of the table in hexadecimal: "005fff".
std::string hexadecimalColour(int colour);

/// Finds the rule for the scopes of a token.
class ColourScheme
{
public:
    /// Of the innermost scope that has a rule at all, the rule of the longest prefix ("a.b" is a prefix of
    /// "a.b.c", not of "a.bc"). Null when none has one, or when the rule says that the text is plain.
    const ColourRule* rule(const QStringList& scopes);

private:
    const ColourRule* ruleOfScope(const QString& scope);

    QHash<QString, const ColourRule*> m_found; ///< a grammar has a few hundred scopes
};

#endif
