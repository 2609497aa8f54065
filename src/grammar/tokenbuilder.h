#ifndef TOKENBUILDER_H
#define TOKENBUILDER_H

#include "grammar/token.h"

#include <vector>

namespace Halvorin::TextMate {

/// Collects the tokens of a line. Inner rules add theirs first, and outer ones fill what is left.
class TokenBuilder
{
public:
    explicit TokenBuilder(int lineLength);

    /// A token, whether or not another one covers its place.
    void addToken(int start, int length, const QStringList& scopes);

    /// A token for each stretch of the range that no token covers yet.
    void fillToken(int start, int length, const QStringList& scopes);

    /// All tokens by their start; those of one start in the order in which they were added.
    std::vector<Token> take();

private:
    int nextFree(int position);
    void cover(int start, int end);

    std::vector<Token> m_tokens;
    // The next position that no token covers, for each that one does; itself otherwise. Chains are shortened
    // as they are walked, so that filling costs what it fills.
    std::vector<int> m_free;
};

} // namespace Halvorin::TextMate

#endif
