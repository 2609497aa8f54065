#include "statechart/check/findingreport.h"

#include "statechart/definitionpath.h"

#include <algorithm>
#include <utility>

namespace {

// Far above what anybody reads. Names of any length stand in texts and paths, of each finding again.
constexpr std::size_t longestShown = 2000;

bool isInsideCharacter(const std::string& text, std::size_t place)
{
    return (static_cast<unsigned char>(text[place]) & 0xc0) == 0x80;
}

/// The start and the end of a text that is too long.
std::string shown(std::string text)
{
    if (text.size() <= longestShown)
        return text;
    std::size_t head = longestShown / 2;
    std::size_t tail = text.size() - longestShown / 2;
    for (int bytes = 0; bytes < 3 && isInsideCharacter(text, head); ++bytes)
        --head;
    for (int bytes = 0; bytes < 3 && isInsideCharacter(text, tail); ++bytes)
        ++tail;
    return text.substr(0, head) + "…" + text.substr(tail);
}

} // namespace

void FindingReport::addAtKey(const Words& words, const JsonPath& path)
{
    const JsonLocation location = locator().locate(path);
    add(words, path, location.key.value_or(location.value));
}

void FindingReport::addInText(const Words& words, const ActionText& text,
                              const std::optional<SourceSpan>& span)
{
    const JsonStringOffsets& offsets = offsetsIn(text);
    const auto offsetOf = [&](std::uint64_t position) {
        const std::uint64_t own = position > text.wrapped ? position - text.wrapped : 0;
        return offsets.offsetOf(std::min<std::size_t>(own, text.length));
    };
    const SourceSpan blamed = span.value_or(SourceSpan{text.wrapped, text.length});
    const std::size_t start = offsetOf(blamed.position);
    const std::size_t end = blamed.position == positionUnknown ? start : offsetOf(blamed.end());
    add(words, text.place.path(), {start, end - start});
}

std::vector<Finding> FindingReport::take()
{
    std::stable_sort(m_findings.begin(), m_findings.end(),
                     [](const Finding& left, const Finding& right) { return left.offset < right.offset; });
    return std::exchange(m_findings, {});
}

void FindingReport::add(const Words& words, const JsonPath& path, const JsonRange& range)
{
    if (!m_rules.isEnabled(words.kind))
        return;
    const LineMap::Place place = m_lines.placeOf(range.offset);
    m_findings.push_back({.kind = words.kind,
                          .severity = m_rules.severityOf(words.kind),
                          .code = words.code,
                          .text = shown(words.text),
                          .path = shown(definitionPathText(path)),
                          .line = place.line,
                          .column = place.column,
                          .offset = range.offset,
                          .length = range.length,
                          .sourceLine = m_lines.line(place.line)});
}

JsonLocator& FindingReport::locator()
{
    if (!m_locator)
        m_locator.emplace(m_definition);
    return *m_locator;
}

const JsonStringOffsets& FindingReport::offsetsIn(const ActionText& text)
{
    if (m_offsetsText != &text) {
        m_offsets.emplace(m_definition, locator().locate(text.place.path()).value);
        m_offsetsText = &text;
    }
    return *m_offsets;
}

JsonRange FindingReport::rangeOf(const JsonPath& path)
{
    const JsonLocation location = locator().locate(path);
    const char first = location.value.length > 0 ? m_definition[location.value.offset] : '\0';
    const bool isSimple = first != '{' && first != '[';
    if (location.matched == path.size() && isSimple)
        return location.value;
    return location.key.value_or(
        JsonRange{location.value.offset, std::min<std::size_t>(location.value.length, 1)});
}
