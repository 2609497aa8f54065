#include "statechart/json/jsonlocator.h"

#include "statechart/json/jsonescape.h"

#include <algorithm>
#include <utility>

namespace {

// Going over an array or object never takes more steps than that, or it is one of the long ones, over which
// there is but one step. So there is at most one of them to so many bytes of text.
constexpr std::size_t longContainer = 256;

constexpr std::size_t elementsPerPlace = 16;

bool opens(char byte)
{
    return byte == '[' || byte == '{';
}

bool closes(char byte)
{
    return byte == ']' || byte == '}';
}

std::size_t behindBlanks(std::string_view text, std::size_t position)
{
    return std::min(text.find_first_not_of(" \t\r\n", position), text.size());
}

/// From an opening quote. Looks for quotes alone, which is quick, since keys may be long and asked for often.
std::size_t behindString(std::string_view text, std::size_t position)
{
    std::size_t quote = position;
    std::size_t escapes = 0;
    do {
        quote = text.find('"', quote + 1);
        if (quote == std::string_view::npos)
            return text.size();
        for (escapes = 0; quote - escapes > position + 1 && text[quote - escapes - 1] == '\\';)
            ++escapes;
    } while (escapes % 2 != 0);
    return quote + 1;
}

/// From a quote, bracket or brace on, or the end.
std::size_t nextMark(std::string_view text, std::size_t position)
{
    while (position < text.size() && text[position] != '"' && !opens(text[position]) &&
           !closes(text[position]))
        ++position;
    return position;
}

/// The string that starts at a place, as it is meant. `decoded` holds it where that is not how it stands.
std::string_view stringAt(std::string_view text, std::size_t position, std::string& decoded)
{
    const std::size_t end = behindString(text, position);
    const std::size_t length = end - position;
    const std::string_view raw = text.substr(position + 1, length >= 2 ? length - 2 : 0);
    if (raw.find('\\') == std::string_view::npos)
        return raw;
    decoded.clear();
    for (std::size_t index = 0; index < raw.size(); ++index) {
        const char* const meant =
            raw[index] == '\\' && index + 1 < raw.size() ? unescaped(raw[++index]) : nullptr;
        decoded += meant != nullptr ? *meant : raw[index];
    }
    return decoded;
}

} // namespace

JsonLocator::JsonLocator(std::string_view document) : m_text(document)
{
    findLongContainers();
}

JsonLocation JsonLocator::locate(const JsonPath& path)
{
    JsonLocation location;
    std::size_t value = behindBlanks(m_text, 0);
    for (const JsonPathSegment& segment : path) {
        std::optional<JsonRange> key;
        if (const auto* const name = std::get_if<std::string>(&segment)) {
            const std::optional<Member> member = memberOf(value, *name);
            if (!member)
                break;
            key = JsonRange{member->key, behindString(m_text, member->key) - member->key};
            value = member->value;
        } else {
            const std::optional<std::size_t> element = elementOf(value, std::get<std::size_t>(segment));
            if (!element)
                break;
            value = *element;
        }
        location.key = key;
        ++location.matched;
    }
    location.value = {value, behindValue(value) - value};
    return location;
}

void JsonLocator::findLongContainers()
{
    struct Open
    {
        std::size_t position;
        std::size_t steps; // up to it
    };
    std::vector<Open> open;
    std::size_t steps = 0;
    const auto close = [&](std::size_t end) {
        if (steps - open.back().steps >= longContainer) {
            m_longContainers.push_back({open.back().position, end - open.back().position});
            steps = open.back().steps;
        }
        open.pop_back();
    };
    std::size_t position = 0;
    while (position < m_text.size()) {
        const std::size_t mark = nextMark(m_text, position);
        const char byte = mark < m_text.size() ? m_text[mark] : '\0';
        const std::size_t behind =
            byte == '"' ? behindString(m_text, mark) : std::min(mark + 1, m_text.size());
        if (opens(byte))
            open.push_back({mark, steps + mark - position});
        steps += behind - position;
        if (closes(byte) && !open.empty())
            close(behind);
        position = behind;
    }
    while (!open.empty())
        close(m_text.size());
    std::ranges::sort(m_longContainers, {}, &JsonRange::offset);
}

std::size_t JsonLocator::behindValue(std::size_t position) const
{
    const char first = position < m_text.size() ? m_text[position] : '\0';
    if (opens(first))
        return behindContainer(position);
    if (first == '"')
        return behindString(m_text, position);
    return std::min(m_text.find_first_of("\"[]{},: \t\r\n", position), m_text.size());
}

std::size_t JsonLocator::behindContainer(std::size_t position) const
{
    std::size_t depth = 0;
    do {
        position = nextMark(m_text, position);
        if (position == m_text.size())
            break;
        const char byte = m_text[position];
        const JsonRange* const whole = opens(byte) ? longContainerAt(position) : nullptr;
        if (whole != nullptr) {
            position = whole->end();
        } else if (byte == '"') {
            position = behindString(m_text, position);
        } else {
            depth = opens(byte) ? depth + 1 : depth - 1;
            ++position;
        }
    } while (depth > 0);
    return position;
}

const JsonRange* JsonLocator::longContainerAt(std::size_t position) const
{
    const auto found = std::ranges::lower_bound(m_longContainers, position, {}, &JsonRange::offset);
    return found != m_longContainers.end() && found->offset == position ? &*found : nullptr;
}

/// The next member or element, or the end of the array or object.
std::size_t JsonLocator::itemFrom(std::size_t position) const
{
    return std::min(m_text.find_first_not_of(", \t\r\n", position), m_text.size());
}

const JsonLocator::Container& JsonLocator::container(std::size_t position)
{
    const auto [entry, isNew] = m_containers.try_emplace(position);
    if (isNew)
        entry->second = readContainer(position);
    return entry->second;
}

/// Ends at what stands in no array or object that a reader takes.
JsonLocator::Container JsonLocator::readContainer(std::size_t position) const
{
    Container container;
    const bool isObject = m_text[position] == '{';
    std::size_t count = 0;
    for (position = itemFrom(position + 1); position < m_text.size() && !closes(m_text[position]);
         position = itemFrom(position)) {
        std::size_t value = position;
        if (isObject) {
            const std::optional<Member> member = readMember(position);
            if (!member)
                break;
            container.members.push_back(*member);
            value = member->value;
        } else if (count++ % elementsPerPlace == 0) {
            container.elements.push_back(value);
        }
        const std::size_t behind = behindValue(value);
        if (behind == position)
            break;
        position = behind;
    }
    std::ranges::stable_sort(container.members, [this](const Member& left, const Member& right) {
        std::string decodedLeft;
        std::string decodedRight;
        return stringAt(m_text, left.key, decodedLeft) < stringAt(m_text, right.key, decodedRight);
    });
    return container;
}

std::optional<JsonLocator::Member> JsonLocator::readMember(std::size_t position) const
{
    if (m_text[position] != '"')
        return std::nullopt;
    const std::size_t colon = behindBlanks(m_text, behindString(m_text, position));
    if (colon == m_text.size() || m_text[colon] != ':')
        return std::nullopt;
    return Member{position, behindBlanks(m_text, colon + 1)};
}

std::optional<JsonLocator::Member> JsonLocator::memberOf(std::size_t object, std::string_view key)
{
    if (object >= m_text.size() || m_text[object] != '{')
        return std::nullopt;
    const std::vector<Member>& members = container(object).members;
    std::string decoded;
    const auto found = std::ranges::lower_bound(
        members, key, {}, [&](const Member& member) { return stringAt(m_text, member.key, decoded); });
    if (found == members.end() || stringAt(m_text, found->key, decoded) != key)
        return std::nullopt;
    return *found;
}

std::optional<std::size_t> JsonLocator::elementOf(std::size_t array, std::size_t index)
{
    if (array >= m_text.size() || m_text[array] != '[')
        return std::nullopt;
    const std::vector<std::size_t>& elements = container(array).elements;
    if (index / elementsPerPlace >= elements.size())
        return std::nullopt;
    std::size_t position = elements[index / elementsPerPlace];
    for (std::size_t left = index % elementsPerPlace; left > 0; --left) {
        position = itemFrom(behindValue(position));
        if (position == m_text.size() || closes(m_text[position]))
            return std::nullopt;
    }
    return position;
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
