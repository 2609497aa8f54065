#include "statechart/json/jsonvalue.h"

#include <algorithm>
#include <utility>

namespace {

// As long as there are no more members, they do without buckets.
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

JsonObject::JsonObject(std::initializer_list<JsonMember> members)
{
    reserve(members.size());
    for (const JsonMember& member : members)
        insert(member.key, member.value);
}

JsonObject::JsonObject(const JsonObject& other)
    : m_members(other.m_members), m_index(other.m_index ? std::make_unique<Index>(*other.m_index) : nullptr)
{}

void JsonObject::reserve(std::size_t count)
{
    m_members.reserve(count);
    if (count <= std::max(bucketCount(), initialBuckets))
        return;
    std::size_t buckets = std::max(bucketCount(), initialBuckets);
    while (buckets < count)
        buckets *= 2;
    rehash(buckets);
}

const JsonValue* JsonObject::find(std::string_view key) const
{
    const std::uint32_t index = indexOf(key, hashFor(key));
    return index == none ? nullptr : &m_members[index].value;
}

JsonValue* JsonObject::find(std::string_view key)
{
    return const_cast<JsonValue*>(std::as_const(*this).find(key));
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
    const std::uint64_t hash = hashFor(key);
    if (indexOf(key, hash) != none)
        return false;
    append({std::move(key), std::move(value)}, hash);
    return true;
}

void JsonObject::insertAll(JsonMember* first, JsonMember* last)
{
    reserve(size() + static_cast<std::size_t>(last - first));
    for (; first != last; ++first) {
        const std::uint64_t hash = hashFor(first->key);
        if (indexOf(first->key, hash) == none)
            append(std::move(*first), hash);
    }
}

JsonValue& JsonObject::set(std::string key, JsonValue value)
{
    const std::uint64_t hash = hashFor(key);
    const std::uint32_t index = indexOf(key, hash);
    if (index == none)
        return append({std::move(key), std::move(value)}, hash);
    m_members[index].value = std::move(value);
    return m_members[index].value;
}

/// 0 while there are no buckets, which nobody asks for it then.
std::uint64_t JsonObject::hashFor(std::string_view key) const
{
    return !m_index ? 0 : hashOf(key);
}

std::uint32_t JsonObject::indexOf(std::string_view key, std::uint64_t hash) const
{
    if (!m_index) {
        for (std::uint32_t index = 0; index < m_members.size(); ++index) {
            if (m_members[index].key == key)
                return index;
        }
        return none;
    }
    std::uint32_t index = (*m_index)[bucketOf(hash, bucketCount())];
    while (index != none && m_members[index].key != key)
        index = (*m_index)[bucketCount() + index];
    return index;
}

JsonValue& JsonObject::append(JsonMember&& member, std::uint64_t hash)
{
    const auto index = static_cast<std::uint32_t>(m_members.size());
    m_members.push_back(std::move(member));
    const std::size_t room = std::max(bucketCount(), initialBuckets);
    if (m_members.size() > room)
        rehash(room * 2);
    else if (m_index)
        chain(index, hash);
    return m_members.back().value;
}

void JsonObject::chain(std::uint32_t index, std::uint64_t hash)
{
    std::uint32_t& bucket = (*m_index)[bucketOf(hash, bucketCount())];
    (*m_index)[bucketCount() + index] = bucket;
    bucket = index;
}

void JsonObject::rehash(std::size_t buckets)
{
    m_index = std::make_unique<Index>(buckets * 2, none);
    for (std::uint32_t index = 0; index < m_members.size(); ++index)
        chain(index, hashOf(m_members[index].key));
}
