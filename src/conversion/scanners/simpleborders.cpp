#include "conversion/scanners/simpleborders.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace Halvorin::Text {

namespace {

Span runBefore(const SourceText& text, int end)
{
    int start = end;
    while (start > 0 && (text[start - 1] == u'=' || isHorizontalSpace(text[start - 1])))
        --start;
    return {start, end};
}

/// Compares from behind, no more characters than are wanted.
int compare(const SourceText& text, Span left, Span right, int most)
{
    for (int index = 1; index <= most; ++index) {
        const int leftCharacter = index > left.length() ? -1 : text[left.end - index];
        const int rightCharacter = index > right.length() ? -1 : text[right.end - index];
        if (leftCharacter != rightCharacter)
            return leftCharacter - rightCharacter;
    }
    return 0;
}

} // namespace

bool closesSimpleTable(const SourceText& text, int end)
{
    if (end == text.size())
        return true;
    const int behind = text.skip(text.behindLineEnd(end), text.size(), isHorizontalSpace);
    return behind == text.size() || text[behind] == u'\n';
}

const BorderPlaces& SimpleBorders::of(const SourceText& text, Span border)
{
    const auto [known, isNew] = m_places.try_emplace(text.ref(border).toString());
    if (isNew) {
        findRuns(text);
        find(text, border, known->second);
    }
    return known->second;
}

void SimpleBorders::findRuns(const SourceText& text)
{
    if (std::exchange(m_areRunsFound, true))
        return;
    for (int end = 1; end <= text.size(); ++end) {
        if (end < text.size() && !isLineEnd(text[end]))
            continue;
        const Span run = runBefore(text, end);
        if (text.ref(run).contains(QLatin1Char('=')))
            m_runs.push_back(run);
    }
    std::ranges::sort(m_runs, [&text](Span left, Span right) {
        return compare(text, left, right, std::max(left.length(), right.length())) < 0;
    });
}

void SimpleBorders::find(const SourceText& text, Span border, BorderPlaces& places) const
{
    const auto isBefore = [&](Span left, Span right) {
        return compare(text, left, right, border.length()) < 0;
    };
    const auto [first, last] = std::equal_range(m_runs.begin(), m_runs.end(), border, isBefore);
    std::transform(first, last, std::back_inserter(places.ends), [](Span run) { return run.end; });
    std::ranges::sort(places.ends);
    const auto closing = std::find_if(places.ends.rbegin(), places.ends.rend(),
                                      [&](int end) { return closesSimpleTable(text, end); });
    if (closing != places.ends.rend())
        places.lastClosing = *closing - border.length();
}

} // namespace Halvorin::Text
