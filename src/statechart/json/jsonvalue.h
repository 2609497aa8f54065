#ifndef JSONVALUE_H
#define JSONVALUE_H

#include "halvwidgetsexport.h"
#include "statechart/json/jsonexceptions.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
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
/// the order of insertion, so that a document that was read and written differs only where it changed. An
/// empty one holds no memory.
class HALVWIDGETS_EXPORT JsonObject
{
public:
    using const_iterator = std::vector<JsonMember>::const_iterator;

    JsonObject();
    JsonObject(std::initializer_list<JsonMember> members);

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

    /// Adds a member whose value, null at first, is to be filled in where it stands; null when the key is
    /// there already. The place holds until the next member is added.
    JsonValue* add(std::string_view key);

    /// Adds a member, or gives the one with this key another value, in its old place.
    JsonValue& set(std::string key, JsonValue value);

    /// Equal members under equal keys, in whatever sequence.
    friend bool operator==(const JsonObject& left, const JsonObject& right);

private:
    friend class JsonValue;

    static constexpr std::uint32_t none = 0xffffffff;

    std::uint32_t indexOf(std::string_view key, std::uint64_t hash) const;
    JsonValue& append(std::string key, JsonValue value, std::uint64_t hash);
    void chain(std::uint32_t index, std::uint64_t hash);
    void rehash(std::size_t buckets);
    std::size_t bucketCount() const { return m_index.size() / 2; }

    std::vector<JsonMember> m_members;

    // For each bucket the first member of its chain, or none; and behind them, for each member, the next one
    // of its chain, or none. There is a place for as many members as there are buckets.
    std::vector<std::uint32_t> m_index;
};

/// A JSON value of the state chart engine. Integers have 32 bits, a number keeps its kind, text is bytes
/// (UTF-8 by convention). The readers and the writer stand in jsonreader.h and jsonwriter.h. Copying,
/// comparing and destroying take no stack for depth.
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

    JsonValue();
    JsonValue(JsonNull);
    JsonValue(bool value);
    JsonValue(std::int32_t value);
    JsonValue(double value);
    JsonValue(JsonNumber value);
    JsonValue(const char* value);
    JsonValue(std::string_view value);
    JsonValue(std::string value);
    JsonValue(JsonArray value);
    JsonValue(JsonObject value);
    JsonValue(const JsonValue& other);
    inline JsonValue(JsonValue&& other) noexcept;
    JsonValue& operator=(const JsonValue& other);
    JsonValue& operator=(JsonValue&& other) noexcept;
    inline ~JsonValue();

    /// A value of none of the kinds; it is of use only to show what the writer says of it.
    static JsonValue withoutType();

    Type type() const { return static_cast<Type>(m_content.index()); }

    bool isArray() const { return type() == Type::array; }
    bool isBool() const { return type() == Type::boolean; }
    bool isNull() const { return type() == Type::null; }
    bool isNumber() const { return type() == Type::number; }
    bool isInt() const;
    bool isDouble() const;
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
    // The alternatives stand in the order of Type.
    using Content = std::variant<JsonArray, bool, JsonNull, JsonNumber, JsonObject, std::string>;

    template <class T, JsonTypeException::Code code = JsonTypeException::Code::invalidCast>
    const T& as() const;

    bool hasNestedValues() const;
    void dropNestedValues() noexcept;
    void moveNestedValuesTo(std::vector<JsonValue>& values);
    void copyTree(const JsonValue& other);

    Content m_content;
};

struct JsonMember
{
    std::string key;
    JsonValue value;

    friend bool operator==(const JsonMember& left, const JsonMember& right);
};

// Here, where a member is complete: values are moved and destroyed too often for a call each.
inline JsonValue::JsonValue(JsonValue&& other) noexcept = default;

inline JsonValue::~JsonValue()
{
    if (isArray() || isObject())
        dropNestedValues();
}

#endif
