#ifndef JSONVALUE_H
#define JSONVALUE_H

#include "halvwidgetsexport.h"
#include "statechart/json/jsonexceptions.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

class JsonValue;
struct JsonMember;

using JsonNull = std::monostate;
using JsonArray = std::vector<JsonValue>;

/// A number that remembers its kind: an integer of 32 bits, or a double.
class JsonNumber
{
public:
    enum class Kind : std::uint8_t
    {
        integer = 0,
        real = 1,
    };

    constexpr explicit JsonNumber(std::int32_t value) : m_integer(value), m_kind(Kind::integer) {}
    constexpr explicit JsonNumber(double value) : m_real(value), m_kind(Kind::real) {}

    /// A number of a kind that need not be one of the two; it is of use only to show what the writer
    /// says of it.
    static constexpr JsonNumber ofKind(Kind kind)
    {
        JsonNumber number(0);
        number.m_kind = kind;
        return number;
    }

    constexpr Kind kind() const { return m_kind; }
    constexpr std::int32_t integer() const { return m_integer; }
    constexpr double real() const { return m_real; }

    friend bool operator==(const JsonNumber& left, const JsonNumber& right);

private:
    union
    {
        std::int32_t m_integer;
        double m_real;
    };
    Kind m_kind;
};

/// Members by key: a hash map (64-bit FNV-1a, load factor 1.0, 8 buckets at first) whose own sequence is
/// the order of insertion, so that a document that was read and written differs only where it changed. As
/// long as the first 8 buckets would do, there are none: so few keys are compared sooner than hashed. An
/// empty one holds no memory.
class HALVWIDGETS_EXPORT JsonObject
{
public:
    using const_iterator = std::vector<JsonMember>::const_iterator;

    inline JsonObject() noexcept;
    JsonObject(std::initializer_list<JsonMember> members);
    JsonObject(const JsonObject& other);
    inline JsonObject(JsonObject&& other) noexcept;
    inline JsonObject& operator=(const JsonObject& other);
    inline JsonObject& operator=(JsonObject&& other) noexcept;
    inline ~JsonObject();

    std::size_t size() const;
    bool empty() const;
    void reserve(std::size_t count);

    const_iterator begin() const;
    const_iterator end() const;

    bool contains(std::string_view key) const { return find(key) != nullptr; }

    /// The value under a key, or null.
    const JsonValue* find(std::string_view key) const;
    JsonValue* find(std::string_view key);

    /// The value under a key. @throws JsonTypeException "invalid key".
    const JsonValue& at(std::string_view key) const;

    /// Adds a member unless the key is there already; tells whether it did.
    bool insert(std::string key, JsonValue value);

    /// Adds members in turn, each unless its key is there already, and takes their keys and values.
    void insertAll(JsonMember* first, JsonMember* last);

    /// Adds a member, or gives the one with this key another value, in its old place.
    JsonValue& set(std::string key, JsonValue value);

    /// Equal members under equal keys, in whatever sequence.
    friend bool operator==(const JsonObject& left, const JsonObject& right);

private:
    friend class JsonValue;

    static constexpr std::uint32_t none = 0xffffffff;

    std::uint64_t hashFor(std::string_view key) const;
    std::uint32_t indexOf(std::string_view key, std::uint64_t hash) const;
    JsonValue& append(JsonMember&& member, std::uint64_t hash);
    void chain(std::uint32_t index, std::uint64_t hash);
    void rehash(std::size_t buckets);
    std::size_t bucketCount() const { return m_index ? m_index->size() / 2 : 0; }

    std::vector<JsonMember> m_members;

    // For each bucket the first member of its chain, or none; and behind them, for each member, the next one
    // of its chain, or none. There is a place for as many members as there are buckets.
    using Index = std::vector<std::uint32_t>;

    std::unique_ptr<Index> m_index; // null as long as the members would fit into the first buckets
};

/// A JSON value of the state chart engine. Integers have 32 bits, a number keeps its kind, text is bytes
/// (UTF-8 by convention). The readers and the writer stand in jsonreader.h and jsonwriter.h. Copying,
/// comparing and destroying take no stack for depth. A value takes 40 bytes, and short text no more than
/// that. A value that was moved from is null.
///
///     JsonValue value(JsonObject{{"a", 1}});
///     value.member("a").asInt();   // 1
///     value.member("b");           // raises JsonTypeException, "invalid key"
class HALVWIDGETS_EXPORT JsonValue
{
public:
    /// The order is the alphabetical one of the kinds, and what type() reports.
    enum class Type : std::uint32_t
    {
        array = 0,
        boolean = 1,
        null = 2,
        number = 3,
        object = 4,
        string = 5,
    };

    JsonValue() noexcept : m_boolean(false) {}
    JsonValue(JsonNull) noexcept : JsonValue() {}
    JsonValue(bool value) noexcept : m_boolean(value), m_type(Type::boolean) {}
    JsonValue(std::int32_t value) noexcept : JsonValue(JsonNumber(value)) {}
    JsonValue(double value) noexcept : JsonValue(JsonNumber(value)) {}
    JsonValue(JsonNumber value) noexcept : m_number(value), m_type(Type::number) {}
    JsonValue(const char* value) : JsonValue(std::string_view(value)) {}
    JsonValue(std::string_view value) : m_string(value), m_type(Type::string) {}
    JsonValue(std::string value) noexcept : m_string(std::move(value)), m_type(Type::string) {}
    inline JsonValue(JsonArray value) noexcept;
    inline JsonValue(JsonObject value) noexcept;
    JsonValue(const JsonValue& other) : JsonValue() { copyTree(other); }
    inline JsonValue(JsonValue&& other) noexcept;
    JsonValue& operator=(const JsonValue& other) { return *this = JsonValue(other); }
    inline JsonValue& operator=(JsonValue&& other) noexcept;
    inline ~JsonValue();

    /// A value of none of the kinds; it is of use only to show what the writer says of it.
    static JsonValue withoutType();

    Type type() const { return m_type; }

    bool isArray() const { return type() == Type::array; }
    bool isBool() const { return type() == Type::boolean; }
    bool isNull() const { return type() == Type::null; }
    bool isNumber() const { return type() == Type::number; }
    bool isInt() const { return isNumber() && m_number.kind() == JsonNumber::Kind::integer; }
    bool isDouble() const { return isNumber() && m_number.kind() == JsonNumber::Kind::real; }
    bool isObject() const { return type() == Type::object; }
    bool isString() const { return type() == Type::string; }

    /// The content as the kind that it must have; an integer is no double and the other way round.
    /// @throws JsonTypeException "invalid cast" for another kind.
    const std::string& asString() const;
    const JsonObject& asObject() const;
    JsonObject& asObject();
    const JsonArray& asArray() const;
    JsonArray& asArray();
    bool asBool() const;
    std::int32_t asInt() const;
    double asDouble() const;
    const JsonNumber& asNumber() const;

    /// Whether this is an object with such a member.
    bool has(std::string_view key) const;

    /// A member of an object.
    /// @throws JsonTypeException "invalid key" when it is absent, "json value is not an object" when this
    /// is none.
    const JsonValue& member(std::string_view key) const;

    /// An element of an array.
    /// @throws JsonTypeException "index out of bounds", or "json value is not an array" when this is none.
    const JsonValue& element(std::size_t index) const;

    /// False when this is no string, or no integer, at all.
    bool equals(std::string_view text) const;
    bool equals(std::int32_t integer) const;

    /// Makes room for members or elements to come.
    /// @throws JsonTypeException "invalid cast" when this is neither an object nor an array.
    void reserve(std::size_t count);

    friend bool operator==(const JsonValue& left, const JsonValue& right);

private:
    void require(Type type, JsonTypeException::Code code = JsonTypeException::Code::invalidCast) const
    {
        if (m_type != type)
            throw JsonTypeException(code);
    }

    inline void moveHere(JsonValue& other) noexcept;
    inline void drop() noexcept;
    void dropContainer() noexcept;
    void endContainer() noexcept;
    void moveContainersTo(std::vector<JsonValue>& values);
    void copyFlat(const JsonValue& other);
    void copyTree(const JsonValue& other);

    // The type says which one there is; of null there is the boolean.
    union
    {
        bool m_boolean;
        JsonNumber m_number;
        std::string m_string;
        JsonArray m_array;
        JsonObject m_object;
    };
    Type m_type = Type::null;
};

struct JsonMember
{
    std::string key;
    JsonValue value;

    friend bool operator==(const JsonMember& left, const JsonMember& right);
};

// Here, where a member is complete: values are moved and destroyed too often for a call each.

inline JsonObject::JsonObject() noexcept = default;
inline JsonObject::JsonObject(JsonObject&& other) noexcept = default;
inline JsonObject& JsonObject::operator=(JsonObject&& other) noexcept = default;
inline JsonObject::~JsonObject() = default;

inline JsonObject& JsonObject::operator=(const JsonObject& other)
{
    return *this = JsonObject(other);
}

inline JsonValue::JsonValue(JsonArray value) noexcept : m_array(std::move(value)), m_type(Type::array) {}
inline JsonValue::JsonValue(JsonObject value) noexcept : m_object(std::move(value)), m_type(Type::object) {}

inline JsonValue::JsonValue(JsonValue&& other) noexcept : JsonValue()
{
    moveHere(other);
}

inline JsonValue& JsonValue::operator=(JsonValue&& other) noexcept
{
    // `other` may stand inside of what is destroyed here, or be this value itself.
    JsonValue taken(std::move(other));
    drop();
    moveHere(taken);
    return *this;
}

inline JsonValue::~JsonValue()
{
    drop();
}

/// To be called on a null value, and leaves one.
inline void JsonValue::moveHere(JsonValue& other) noexcept
{
    switch (other.m_type) {
    case Type::string:
        new (&m_string) std::string(std::move(other.m_string));
        break;
    case Type::array:
        new (&m_array) JsonArray(std::move(other.m_array));
        break;
    case Type::object:
        new (&m_object) JsonObject(std::move(other.m_object));
        break;
    case Type::number:
        m_number = other.m_number;
        break;
    default:
        m_boolean = other.m_boolean;
        break;
    }
    m_type = other.m_type;
    other.drop();
}

/// Leaves a null value.
inline void JsonValue::drop() noexcept
{
    switch (m_type) {
    case Type::string:
        m_string.~basic_string();
        break;
    case Type::array:
    case Type::object:
        dropContainer();
        break;
    default:
        break;
    }
    m_type = Type::null;
}

inline JsonObject::const_iterator JsonObject::begin() const
{
    return m_members.begin();
}

inline JsonObject::const_iterator JsonObject::end() const
{
    return m_members.end();
}

inline std::size_t JsonObject::size() const
{
    return m_members.size();
}

inline bool JsonObject::empty() const
{
    return m_members.empty();
}

#endif
