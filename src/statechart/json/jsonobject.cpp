#include "statechart/json/jsonvalue.h"

#include <algorithm>
#include <utility>

namespace {

constexpr std::size_t initialBuckets = 8;

std::uint64_t hashOf(std::string_view key)
{
    std::uint64_t hash = 0xcbf29ce484222325u;
    for (const char byte : key)
        hash = (hash ^ static_cast<std::uint8_t>(byte)) * 0x100000001b3u;
    return hash;
}

/// The number of buckets is a power of two.
std::size_t bucketOf(std::uint64_t hash, std::size_t buckets)
{
    return static_cast<std::size_t>(hash) & (buckets - 1);
}

} // namespace

JsonObject::JsonObject() = default;

JsonObject::JsonObject(std::initializer_list<JsonMember> members)
{
    reserve(members.size());
    for (const JsonMember& member : members)
        insert(member.key, member.value);
}

std::size_t JsonObject::size() const
{
    return m_members.size();
}

bool JsonObject::empty() const
{
    return m_members.empty();
}

void JsonObject::reserve(std::size_t count)
{
    m_members.reserve(count);
    if (count <= bucketCount())
        return;
    std::size_t buckets = std::max(bucketCount(), initialBuckets);
    while (buckets < count)
        buckets *= 2;
    rehash(buckets);
}

JsonObject::const_iterator JsonObject::begin() const
{
    return m_members.begin();
}

JsonObject::const_iterator JsonObject::end() const
{
    return m_members.end();
}

const JsonValue* JsonObject::find(std::string_view key) const
{
    const std::uint32_t index = indexOf(key, hashOf(key));
    return index == none ? nullptr : &m_members[index].value;
}

JsonValue* JsonObject::find(std::string_view key)
{
    const std::uint32_t index = indexOf(key, hashOf(key));
    return index == none ? nullptr : &m_members[index].value;
}

const JsonValue& JsonObject::at(std::string_view key) const
{
    const JsonValue* const value = find(key);
    if (value == nullptr)
        throw JsonTypeException(JsonTypeException::Code::invalidKey);
    return *value;
}

bool JsonObject::insert(std::string key, JsonValue value)
{
    const std::uint64_t hash = hashOf(key);
    if (indexOf(key, hash) != none)
        return false;
    append(std::move(key), std::move(value), hash);
    return true;
}

JsonValue* JsonObject::add(std::string_view key)
{
    const std::uint64_t hash = hashOf(key);
    return indexOf(key, hash) == none ? &append(std::string(key), JsonValue(), hash) : nullptr;
}

JsonValue& JsonObject::set(std::string key, JsonValue value)
{
    const std::uint64_t hash = hashOf(key);
    const std::uint32_t index = indexOf(key, hash);
    if (index == none)
        return append(std::move(key), std::move(value), hash);
    m_members[index].value = std::move(value);
    return m_members[index].value;
}

std::uint32_t JsonObject::indexOf(std::string_view key, std::uint64_t hash) const
{
    if (m_index.empty())
        return none;
    std::uint32_t index = m_index[bucketOf(hash, bucketCount())];
    while (index != none && m_members[index].key != key)
        index = m_index[bucketCount() + index];
    return index;
}

JsonValue& JsonObject::append(std::string key, JsonValue value, std::uint64_t hash)
{
    if (m_members.size() == bucketCount())
        rehash(std::max(bucketCount() * 2, initialBuckets));
    const auto index = static_cast<std::uint32_t>(m_members.size());
    m_members.push_back({std::move(key), std::move(value)});
    chain(index, hash);
    return m_members.back().value;
}

void JsonObject::chain(std::uint32_t index, std::uint64_t hash)
{
    std::uint32_t& bucket = m_index[bucketOf(hash, bucketCount())];
    m_index[bucketCount() + index] = bucket;
    bucket = index;
}

void JsonObject::rehash(std::size_t buckets)
{
    m_index.assign(buckets * 2, none);
    for (std::uint32_t index = 0; index < m_members.size(); ++index)
        chain(index, hashOf(m_members[index].key));
}
