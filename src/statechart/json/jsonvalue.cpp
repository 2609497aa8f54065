#include "statechart/json/jsonvalue.h"

#include <new>
#include <utility>

bool operator==(const JsonNumber& left, const JsonNumber& right)
{
    if (left.m_kind != right.m_kind)
        return false;
    return left.m_kind == JsonNumber::Kind::real ? left.m_real == right.m_real
                                                 : left.m_integer == right.m_integer;
}

/// Takes the containers inside this one apart, one after the other, so that depth takes no stack. The last
/// comes first: memory that is given back in the reverse order of its use is soon whole again.
void JsonValue::dropContainer() noexcept
{
    try {
        std::vector<JsonValue> containers;
        moveContainersTo(containers);
        while (!containers.empty()) {
            JsonValue container(std::move(containers.back()));
            containers.pop_back();
            container.moveContainersTo(containers);
            container.endContainer();
        }
    } catch (const std::bad_alloc&) {
        // Then the containers destroy each other.
    }
    endContainer();
}

void JsonValue::endContainer() noexcept
{
    if (m_type == Type::array)
        m_array.~vector();
    else
        m_object.~JsonObject();
    m_type = Type::null;
}

void JsonValue::moveContainersTo(std::vector<JsonValue>& values)
{
    const auto take = [&](JsonValue& value) {
        if ((value.isArray() && !value.m_array.empty()) || (value.isObject() && !value.m_object.empty()))
            values.push_back(std::move(value));
    };
    if (m_type == Type::array) {
        for (JsonValue& element : m_array)
            take(element);
    } else {
        for (JsonMember& member : m_object.m_members)
            take(member.value);
    }
}

JsonValue JsonValue::withoutType()
{
    JsonValue value;
    value.m_type = static_cast<Type>(6);
    return value;
}

const std::string& JsonValue::asString() const
{
    require(Type::string);
    return m_string;
}

const JsonObject& JsonValue::asObject() const
{
    require(Type::object);
    return m_object;
}

JsonObject& JsonValue::asObject()
{
    require(Type::object);
    return m_object;
}

const JsonArray& JsonValue::asArray() const
{
    require(Type::array);
    return m_array;
}

JsonArray& JsonValue::asArray()
{
    require(Type::array);
    return m_array;
}

bool JsonValue::asBool() const
{
    require(Type::boolean);
    return m_boolean;
}

std::int32_t JsonValue::asInt() const
{
    if (!isInt())
        throw JsonTypeException(JsonTypeException::Code::invalidCast);
    return m_number.integer();
}

double JsonValue::asDouble() const
{
    if (!isDouble())
        throw JsonTypeException(JsonTypeException::Code::invalidCast);
    return m_number.real();
}

const JsonNumber& JsonValue::asNumber() const
{
    require(Type::number);
    return m_number;
}

bool JsonValue::has(std::string_view key) const
{
    return isObject() && m_object.contains(key);
}

const JsonValue& JsonValue::member(std::string_view key) const
{
    require(Type::object, JsonTypeException::Code::notAnObject);
    return m_object.at(key);
}

const JsonValue& JsonValue::element(std::size_t index) const
{
    require(Type::array, JsonTypeException::Code::notAnArray);
    if (index >= m_array.size())
        throw JsonTypeException(JsonTypeException::Code::indexOutOfBounds);
    return m_array[index];
}

bool JsonValue::equals(std::string_view text) const
{
    return isString() && m_string == text;
}

bool JsonValue::equals(std::int32_t integer) const
{
    return isInt() && m_number.integer() == integer;
}

void JsonValue::reserve(std::size_t count)
{
    if (isArray())
        m_array.reserve(count);
    else
        asObject().reserve(count);
}

/// Copies what has no elements and no members, to a null value.
void JsonValue::copyFlat(const JsonValue& other)
{
    switch (other.m_type) {
    case Type::string:
        new (&m_string) std::string(other.m_string);
        break;
    case Type::array:
        new (&m_array) JsonArray();
        break;
    case Type::object:
        new (&m_object) JsonObject();
        break;
    case Type::number:
        m_number = other.m_number;
        break;
    default:
        m_boolean = other.m_boolean;
        break;
    }
    m_type = other.m_type;
}

/// To be called on a null value.
void JsonValue::copyTree(const JsonValue& other)
{
    struct Copy
    {
        const JsonValue* from;
        JsonValue* to;
    };
    std::vector<Copy> copies; // of containers, which are filled one after the other
    const auto copy = [&](const JsonValue& from, JsonValue& to) {
        to.copyFlat(from);
        if ((from.isArray() && !from.m_array.empty()) || (from.isObject() && !from.m_object.empty()))
            copies.push_back({&from, &to});
    };
    copy(other, *this);
    while (!copies.empty()) {
        const auto [from, to] = copies.back();
        copies.pop_back();
        if (from->isArray()) {
            to->m_array.resize(from->m_array.size());
            for (std::size_t index = 0; index < from->m_array.size(); ++index)
                copy(from->m_array[index], to->m_array[index]);
        } else {
            const JsonObject& source = from->m_object;
            JsonObject& target = to->m_object;
            if (source.m_index)
                target.m_index = std::make_unique<JsonObject::Index>(*source.m_index);
            target.m_members.reserve(source.size());
            for (const JsonMember& member : source)
                copy(member.value, target.m_members.emplace_back(JsonMember{member.key, {}}).value);
        }
    }
}
