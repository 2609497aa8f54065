#include "statechart/json/jsonvalue.h"

#include <algorithm>
#include <new>
#include <utility>

namespace {

/// Its conversion fails, which leaves a variant without an alternative. (Of a string or a vector, variants
/// take care to keep what they had.)
struct Failing
{
    operator JsonObject() const { throw 0; }
};

} // namespace

bool operator==(const JsonNumber& left, const JsonNumber& right)
{
    if (left.m_kind != right.m_kind)
        return false;
    return left.m_kind == JsonNumber::Kind::real ? left.m_real == right.m_real
                                                 : left.m_integer == right.m_integer;
}

JsonValue::JsonValue() : m_content(JsonNull()) {}
JsonValue::JsonValue(JsonNull) : JsonValue() {}
JsonValue::JsonValue(bool value) : m_content(value) {}
JsonValue::JsonValue(std::int32_t value) : m_content(JsonNumber(value)) {}
JsonValue::JsonValue(double value) : m_content(JsonNumber(value)) {}
JsonValue::JsonValue(JsonNumber value) : m_content(value) {}
JsonValue::JsonValue(const char* value) : m_content(std::string(value)) {}
JsonValue::JsonValue(std::string_view value) : m_content(std::string(value)) {}
JsonValue::JsonValue(std::string value) : m_content(std::move(value)) {}
JsonValue::JsonValue(JsonArray value) : m_content(std::move(value)) {}
JsonValue::JsonValue(JsonObject value) : m_content(std::move(value)) {}

JsonValue::JsonValue(const JsonValue& other) : m_content(JsonNull())
{
    if (other.hasNestedValues())
        copyTree(other);
    else
        m_content = other.m_content;
}

JsonValue& JsonValue::operator=(const JsonValue& other)
{
    return *this = JsonValue(other);
}

JsonValue& JsonValue::operator=(JsonValue&& other) noexcept
{
    if (!isArray() && !isObject()) {
        m_content = std::move(other.m_content);
        return *this;
    }
    // `other` may stand inside of what is destroyed here.
    Content taken(std::move(other.m_content));
    m_content = std::move(taken);
    return *this;
}

void JsonValue::dropNestedValues() noexcept
{
    if (!hasNestedValues())
        return;
    try {
        // One value after the other, so that depth takes no stack.
        std::vector<JsonValue> values;
        moveNestedValuesTo(values);
        while (!values.empty()) {
            JsonValue value(std::move(values.back()));
            values.pop_back();
            value.moveNestedValuesTo(values);
        }
    } catch (const std::bad_alloc&) {
        // Then the members destroy each other.
    }
}

JsonValue JsonValue::withoutType()
{
    JsonValue value;
    try {
        value.m_content.emplace<JsonObject>(Failing());
    } catch (int) {
    }
    return value;
}

bool JsonValue::isInt() const
{
    const JsonNumber* const number = std::get_if<JsonNumber>(&m_content);
    return number != nullptr && number->kind() == JsonNumber::Kind::integer;
}

bool JsonValue::isDouble() const
{
    const JsonNumber* const number = std::get_if<JsonNumber>(&m_content);
    return number != nullptr && number->kind() == JsonNumber::Kind::real;
}

template <class T, JsonTypeException::Code code>
const T& JsonValue::as() const
{
    const T* const content = std::get_if<T>(&m_content);
    if (content == nullptr)
        throw JsonTypeException(code);
    return *content;
}

const std::string& JsonValue::asString() const
{
    return as<std::string>();
}

const JsonObject& JsonValue::asObject() const
{
    return as<JsonObject>();
}

JsonObject& JsonValue::asObject()
{
    return const_cast<JsonObject&>(std::as_const(*this).asObject());
}

const JsonArray& JsonValue::asArray() const
{
    return as<JsonArray>();
}

JsonArray& JsonValue::asArray()
{
    return const_cast<JsonArray&>(std::as_const(*this).asArray());
}

bool JsonValue::asBool() const
{
    return as<bool>();
}

std::int32_t JsonValue::asInt() const
{
    if (!isInt())
        throw JsonTypeException(JsonTypeException::Code::invalidCast);
    return asNumber().integer();
}

double JsonValue::asDouble() const
{
    if (!isDouble())
        throw JsonTypeException(JsonTypeException::Code::invalidCast);
    return asNumber().real();
}

const JsonNumber& JsonValue::asNumber() const
{
    return as<JsonNumber>();
}

bool JsonValue::has(std::string_view key) const
{
    const JsonObject* const object = std::get_if<JsonObject>(&m_content);
    return object != nullptr && object->contains(key);
}

const JsonValue& JsonValue::member(std::string_view key) const
{
    return as<JsonObject, JsonTypeException::Code::notAnObject>().at(key);
}

const JsonValue& JsonValue::element(std::size_t index) const
{
    const JsonArray& array = as<JsonArray, JsonTypeException::Code::notAnArray>();
    if (index >= array.size())
        throw JsonTypeException(JsonTypeException::Code::indexOutOfBounds);
    return array[index];
}

bool JsonValue::equals(std::string_view text) const
{
    const std::string* const content = std::get_if<std::string>(&m_content);
    return content != nullptr && *content == text;
}

bool JsonValue::equals(std::int32_t integer) const
{
    return isInt() && asNumber().integer() == integer;
}

void JsonValue::reserve(std::size_t count)
{
    if (isArray())
        asArray().reserve(count);
    else
        asObject().reserve(count);
}

bool JsonValue::hasNestedValues() const
{
    const auto nests = [](const JsonValue& value) {
        if (const auto* array = std::get_if<JsonArray>(&value.m_content))
            return !array->empty();
        const auto* object = std::get_if<JsonObject>(&value.m_content);
        return object != nullptr && !object->empty();
    };
    if (const auto* array = std::get_if<JsonArray>(&m_content))
        return std::any_of(array->begin(), array->end(), nests);
    if (const auto* object = std::get_if<JsonObject>(&m_content)) {
        return std::any_of(object->begin(), object->end(),
                           [&](const JsonMember& member) { return nests(member.value); });
    }
    return false;
}

void JsonValue::moveNestedValuesTo(std::vector<JsonValue>& values)
{
    const auto take = [&](JsonValue& value) {
        if (value.isArray() || value.isObject())
            values.push_back(std::move(value));
    };
    if (auto* array = std::get_if<JsonArray>(&m_content)) {
        std::for_each(array->begin(), array->end(), take);
    } else if (auto* object = std::get_if<JsonObject>(&m_content)) {
        for (JsonMember& member : object->m_members)
            take(member.value);
    }
}

void JsonValue::copyTree(const JsonValue& other)
{
    struct Copy
    {
        const JsonValue* from;
        JsonValue* to;
    };
    std::vector<Copy> copies{{&other, this}};
    while (!copies.empty()) {
        const auto [from, to] = copies.back();
        copies.pop_back();
        if (!from->hasNestedValues()) {
            to->m_content = from->m_content;
        } else if (from->isArray()) {
            const JsonArray& source = from->asArray();
            JsonArray& target = to->m_content.emplace<JsonArray>(source.size());
            for (std::size_t index = 0; index < source.size(); ++index)
                copies.push_back({&source[index], &target[index]});
        } else {
            const JsonObject& source = from->asObject();
            JsonObject& target = to->m_content.emplace<JsonObject>();
            target.m_index = source.m_index;
            target.m_members.reserve(source.size());
            for (const JsonMember& member : source)
                target.m_members.push_back({member.key, JsonValue()});
            for (std::size_t index = 0; index < source.size(); ++index)
                copies.push_back({&source.m_members[index].value, &target.m_members[index].value});
        }
    }
}
