#include "grammar/tokenbuilder.h"

#include <algorithm>
#include <numeric>

namespace Halvorin::TextMate {

TokenBuilder::TokenBuilder(int lineLength) : m_free(static_cast<std::size_t>(lineLength) + 1)
{
    std::iota(m_free.begin(), m_free.end(), 0);
}

void TokenBuilder::addToken(int start, int length, const QStringList& scopes)
{
    m_tokens.push_back({start, length, scopes});
    cover(start, start + length);
}

void TokenBuilder::fillToken(int start, int length, const QStringList& scopes)
{
    const int end = start + length;
    for (int from = nextFree(start); from < end; from = nextFree(from)) {
        int to = from + 1;
        while (to < end && m_free[static_cast<std::size_t>(to)] == to)
            ++to;
        addToken(from, to - from, scopes);
    }
}

std::vector<Token> TokenBuilder::take()
{
    std::stable_sort(m_tokens.begin(), m_tokens.end(),
                     [](const Token& first, const Token& second) { return first.start < second.start; });
    return std::move(m_tokens);
}

int TokenBuilder::nextFree(int position)
{
    auto at = static_cast<std::size_t>(position);
    while (m_free[at] != static_cast<int>(at)) {
        m_free[at] = m_free[static_cast<std::size_t>(m_free[at])];
        at = static_cast<std::size_t>(m_free[at]);
    }
    return static_cast<int>(at);
}

void TokenBuilder::cover(int start, int end)
{
    for (int position = nextFree(start); position < end; position = nextFree(position))
        m_free[static_cast<std::size_t>(position)] = std::max(end, position + 1);
}

} // namespace Halvorin::TextMate
