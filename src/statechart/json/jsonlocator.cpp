#include "statechart/json/jsonlocator.h"

#include "statechart/json/jsonescape.h"

#include <algorithm>
#include <functional>
#include <utility>

JsonLocator::JsonLocator(std::string_view document) : m_text(document)
{
    findAll();
}

JsonLocation JsonLocator::locate(const JsonPath& path) const
{
    JsonLocation location;
    std::size_t value = 0;
    for (const JsonPathSegment& segment : path) {
        const auto step = m_steps.find(Step{value, segment});
        if (step == m_steps.end())
            break;
        value = step->second;
        ++location.matched;
    }
    location.value = m_values[value].range;
    location.key = m_values[value].key;
    return location;
}

std::size_t JsonLocator::StepHash::operator()(const Step& step) const
{
    return std::hash<JsonPathSegment>()(step.segment) ^ (step.from * 0x9e3779b97f4a7c15u);
}

void JsonLocator::skipWhitespace()
{
    m_position = std::min(m_text.find_first_not_of(" \t\r\n", m_position), m_text.size());
}

void JsonLocator::findAll()
{
    skipWhitespace();
    add(std::nullopt, std::nullopt);
    while (!m_open.empty()) {
        const std::size_t before = m_position;
        enterNext();
        if (m_position == before) // the end, or a text that no reader takes
            break;
    }
    m_position = m_text.size();
    while (!m_open.empty())
        endContainer();
}

/// Goes on by one value or mark of the innermost open container.
void JsonLocator::enterNext()
{
    skipWhitespace();
    switch (here()) {
    case ',':
        ++m_position;
        return;
    case ']':
    case '}':
        ++m_position;
        endContainer();
        return;
    default:
        break;
    }
    if (m_position == m_text.size())
        return;
    Container& container = m_open.back();
    if (container.isObject)
        findMember();
    else
        add(Step{container.value, container.count++}, std::nullopt);
}

/// Leaves the position where it is when no member starts there.
void JsonLocator::findMember()
{
    if (here() != '"')
        return;
    const std::size_t start = m_position;
    std::string name = takeString();
    const JsonRange key{start, m_position - start};
    skipWhitespace();
    if (here() != ':') {
        m_position = start;
        return;
    }
    ++m_position;
    skipWhitespace();
    add(Step{m_open.back().value, std::move(name)}, key);
}

/// Adds the value at the position, and goes behind it, or into it when it is a container.
void JsonLocator::add(std::optional<Step> step, const std::optional<JsonRange>& key)
{
    const std::size_t index = m_values.size();
    const std::size_t start = m_position;
    if (step)
        m_steps.try_emplace(*std::move(step), index);
    if (here() == '{' || here() == '[') {
        m_open.push_back({index, here() == '{'});
        ++m_position;
    } else if (here() == '"') {
        takeString();
    } else {
        m_position = std::min(m_text.find_first_of("\"[]{},: \t\r\n", m_position), m_text.size());
    }
    m_values.push_back({{start, m_position - start}, key});
}

void JsonLocator::endContainer()
{
    JsonRange& range = m_values[m_open.back().value].range;
    range.length = m_position - range.offset;
    m_open.pop_back();
}

std::string JsonLocator::takeString()
{
    std::string decoded;
    ++m_position;
    while (m_position < m_text.size() && m_text[m_position] != '"') {
        char byte = m_text[m_position++];
        if (byte == '\\' && m_position < m_text.size()) {
            const char* const meant = unescaped(m_text[m_position++]);
            byte = meant != nullptr ? *meant : byte;
        }
        decoded += byte;
    }
    m_position = std::min(m_position + 1, m_text.size());
    return decoded;
}

JsonStringOffsets::JsonStringOffsets(std::string_view document, const JsonRange& string)
    : m_start(string.offset), m_end(string.offset)
{
    if (string.length < 2 || document[string.offset] != '"')
        return;
    m_start = string.offset + 1;
    m_end = string.end() - 1;
    std::size_t decoded = 0;
    for (std::size_t offset = m_start; offset < m_end; ++offset, ++decoded) {
        if (document[offset] == '\\') {
            m_escapes.push_back(decoded);
            ++offset;
        }
    }
}

std::size_t JsonStringOffsets::offsetOf(std::size_t decodedOffset) const
{
    if (decodedOffset >= m_end - m_start)
        return m_end;
    const auto before = std::lower_bound(m_escapes.begin(), m_escapes.end(), decodedOffset);
    return std::min(m_start + decodedOffset + static_cast<std::size_t>(before - m_escapes.begin()), m_end);
}
