#ifndef LSPRECORD_H
#define LSPRECORD_H

#include "languageclient/records/jsonconversion.h"
#include "languageclient/records/lspabstractjsonobject.h"

#include <array>
#include <cstddef>

/// What a record is made of. A record is one declaration, which is its table of keys:
///
///     class LSPTextEdit : public LSPRecord<>
///     {
///         LSP_RECORD(LSPTextEdit,
///             LSP_REQUIRED(LSPRange, range, setRange),
///             LSP_REQUIRED(QString, newText, setNewText));
///     };
///
/// This gives it a default constructor, one from a JSON object, one that takes the required keys in this
/// order, the getters and setters, missingParameters(), and keys(), its table. A getter is called as its key
/// is.
///
///     LSP_REQUIRED    the getter gives the value; the zero value where the JSON is of another type
///     LSP_OPTIONAL    the getter gives a std::optional, empty where the key is absent or of another type
///     ..._CHECKED     the same, and the nested records are asked for their required keys too
///     LSP_INHERITED   a required key of a base: a parameter of the constructor, and no more
///
/// Types are those that jsonconversion.h knows; one with a comma in it needs a name. A std::vector's getter
/// gives a std::optional in both kinds. A record with bases derives from LSPRecord<Base...>.
namespace Halvorin::LSP {

/// The bases of a record; all share one virtual frame.
template <class... Bases>
class LSPRecord : public Bases...
{
public:
    QStringList missingParameters() const override
    {
        QStringList missing;
        ((missing << Bases::missingParameters()), ...);
        return missing;
    }

protected:
    LSPRecord() = default;
    explicit LSPRecord(const QJsonObject& object) : LSPAbstractJsonObject(object), Bases(object)... {}

    static constexpr std::size_t requiredKeys = (Bases::requiredKeys + ... + 0);
};

/// The base of a record that has no other.
template <>
class LSPRecord<> : public virtual LSPAbstractJsonObject
{
protected:
    LSPRecord() = default;
    explicit LSPRecord(const QJsonObject& object) : LSPAbstractJsonObject(object) {}

    static constexpr std::size_t requiredKeys = 0;
};

} // namespace Halvorin::LSP

#define LSP_REQUIRED(type, getter, setter) (REQUIRED, nullptr, type, getter, setter)
#define LSP_REQUIRED_CHECKED(type, getter, setter)                                                           \
    (REQUIRED, LSPNestedCheck<type>::missing, type, getter, setter)
#define LSP_OPTIONAL(type, getter, setter) (OPTIONAL, nullptr, type, getter, setter)
#define LSP_OPTIONAL_CHECKED(type, getter, setter)                                                           \
    (OPTIONAL, LSPNestedCheck<type>::missing, type, getter, setter)
#define LSP_INHERITED(type, getter, setter) (INHERITED, nullptr, type, getter, setter)

#define LSP_RECORD(name, ...)                                                                                \
public:                                                                                                      \
    name() = default;                                                                                        \
    LSP_DETAIL_CONSTRUCTOR(name,                                                                             \
                           (LSP_DETAIL_FOR_EACH(LSP_DETAIL_ASSIGNMENT, __VA_ARGS__)),                        \
                           LSP_DETAIL_DROP_FIRST(~LSP_DETAIL_FOR_EACH(LSP_DETAIL_PARAMETER, __VA_ARGS__)))   \
    static_assert(LSPRecord::requiredKeys == 0 LSP_DETAIL_FOR_EACH(LSP_DETAIL_INHERITED_COUNT, __VA_ARGS__), \
                  "a row LSP_INHERITED for each required key of the bases");                                 \
    LSP_RECORD_WITH_OWN_CONSTRUCTORS(name, __VA_ARGS__)

/// For a record whose other constructors are written by hand.
#define LSP_RECORD_WITH_OWN_CONSTRUCTORS(name, ...)                                                          \
public:                                                                                                      \
    explicit name(const QJsonObject& object) : LSPAbstractJsonObject(object), LSPRecord(object) {}           \
    LSP_DETAIL_FOR_EACH(LSP_DETAIL_ACCESSORS, __VA_ARGS__)                                                   \
    static std::span<const LSPKey> keys()                                                                    \
    {                                                                                                        \
        static constexpr std::array<LSPKey, 0 LSP_DETAIL_FOR_EACH(LSP_DETAIL_KEY_COUNT, __VA_ARGS__)> table{ \
            LSP_DETAIL_FOR_EACH(LSP_DETAIL_KEY, __VA_ARGS__)};                                               \
        return table;                                                                                        \
    }                                                                                                        \
    QStringList missingParameters() const override                                                           \
    {                                                                                                        \
        QStringList missing = LSPRecord::missingParameters();                                                \
        LSPAbstractJsonObject::require(keys(), missing);                                                     \
        return missing;                                                                                      \
    }                                                                                                        \
    static constexpr std::size_t requiredKeys =                                                              \
        LSPRecord::requiredKeys LSP_DETAIL_FOR_EACH(LSP_DETAIL_REQUIRED_COUNT, __VA_ARGS__)

// What becomes of a row. Each row is a list in parentheses that starts with its kind.

#define LSP_DETAIL_ACCESSORS(kind, check, type, getter, setter)                                              \
    LSP_DETAIL_ACCESSORS_##kind(type, getter, setter)
#define LSP_DETAIL_ACCESSORS_REQUIRED(type, getter, setter)                                                  \
    LSPRequired<type>::Type getter() const                                                                   \
    {                                                                                                        \
        return LSPRequired<type>::read(LSPAbstractJsonObject::value(LSP_DETAIL_NAME(getter)));               \
    }                                                                                                        \
    LSP_DETAIL_SETTER(type, getter, setter)
#define LSP_DETAIL_ACCESSORS_OPTIONAL(type, getter, setter)                                                  \
    std::optional<type> getter() const                                                                       \
    {                                                                                                        \
        if (!LSPAbstractJsonObject::contains(LSP_DETAIL_NAME(getter)))                                       \
            return {};                                                                                       \
        return LSPJson<type>::read(LSPAbstractJsonObject::value(LSP_DETAIL_NAME(getter)));                   \
    }                                                                                                        \
    LSP_DETAIL_SETTER(type, getter, setter)
#define LSP_DETAIL_ACCESSORS_INHERITED(type, getter, setter)
#define LSP_DETAIL_SETTER(type, getter, setter)                                                              \
    void setter(const type& newValue)                                                                        \
    {                                                                                                        \
        LSPAbstractJsonObject::setValue(LSP_DETAIL_NAME(getter), LSPJson<type>::write(newValue));            \
    }

#define LSP_DETAIL_KEY(kind, check, type, getter, setter) LSP_DETAIL_KEY_##kind(check, getter)
#define LSP_DETAIL_KEY_REQUIRED(check, getter) LSPKey{LSP_DETAIL_NAME(getter), true, check},
#define LSP_DETAIL_KEY_OPTIONAL(check, getter) LSPKey{LSP_DETAIL_NAME(getter), false, check},
#define LSP_DETAIL_KEY_INHERITED(check, getter)

#define LSP_DETAIL_KEY_COUNT(kind, check, type, getter, setter) LSP_DETAIL_KEY_COUNT_##kind
#define LSP_DETAIL_KEY_COUNT_REQUIRED +1
#define LSP_DETAIL_KEY_COUNT_OPTIONAL +1
#define LSP_DETAIL_KEY_COUNT_INHERITED

#define LSP_DETAIL_REQUIRED_COUNT(kind, check, type, getter, setter) LSP_DETAIL_REQUIRED_COUNT_##kind
#define LSP_DETAIL_REQUIRED_COUNT_REQUIRED +1
#define LSP_DETAIL_REQUIRED_COUNT_OPTIONAL
#define LSP_DETAIL_REQUIRED_COUNT_INHERITED

#define LSP_DETAIL_INHERITED_COUNT(kind, check, type, getter, setter) LSP_DETAIL_INHERITED_COUNT_##kind
#define LSP_DETAIL_INHERITED_COUNT_REQUIRED
#define LSP_DETAIL_INHERITED_COUNT_OPTIONAL
#define LSP_DETAIL_INHERITED_COUNT_INHERITED +1

#define LSP_DETAIL_PARAMETER(kind, check, type, getter, setter) LSP_DETAIL_PARAMETER_##kind(type, getter)
#define LSP_DETAIL_PARAMETER_REQUIRED(type, getter) , const type& getter
#define LSP_DETAIL_PARAMETER_OPTIONAL(type, getter)
#define LSP_DETAIL_PARAMETER_INHERITED(type, getter) , const type& getter

#define LSP_DETAIL_ASSIGNMENT(kind, check, type, getter, setter) LSP_DETAIL_ASSIGNMENT_##kind(getter, setter)
#define LSP_DETAIL_ASSIGNMENT_REQUIRED(getter, setter) this->setter(getter);
#define LSP_DETAIL_ASSIGNMENT_OPTIONAL(getter, setter)
#define LSP_DETAIL_ASSIGNMENT_INHERITED(getter, setter) this->setter(getter);

// With its length, which not every compiler counts in a constant expression.
#define LSP_DETAIL_NAME(getter) QLatin1String(#getter, static_cast<int>(sizeof(#getter)) - 1)

// None for a record without required keys: it would be a second default constructor.
#define LSP_DETAIL_CONSTRUCTOR(name, assignments, ...)                                                       \
    __VA_OPT__(explicit name(__VA_ARGS__) : name(){LSP_DETAIL_UNWRAP assignments})
#define LSP_DETAIL_DROP_FIRST(...) LSP_DETAIL_REST(__VA_ARGS__)
#define LSP_DETAIL_REST(first, ...) __VA_ARGS__
#define LSP_DETAIL_UNWRAP(...) __VA_ARGS__

// Applies the macro to each row, for up to 28 rows: each level of expansion takes one step further.
#define LSP_DETAIL_FOR_EACH(macro, ...) __VA_OPT__(LSP_DETAIL_EXPAND(LSP_DETAIL_STEP(macro, __VA_ARGS__)))
#define LSP_DETAIL_STEP(macro, row, ...)                                                                     \
    macro row __VA_OPT__(LSP_DETAIL_NEXT LSP_DETAIL_PARENTHESES(macro, __VA_ARGS__))
#define LSP_DETAIL_NEXT() LSP_DETAIL_STEP
#define LSP_DETAIL_PARENTHESES ()
#define LSP_DETAIL_EXPAND(...) LSP_DETAIL_EXPAND_16(LSP_DETAIL_EXPAND_16(__VA_ARGS__))
#define LSP_DETAIL_EXPAND_16(...) LSP_DETAIL_EXPAND_4(LSP_DETAIL_EXPAND_4(LSP_DETAIL_EXPAND_4(__VA_ARGS__)))
#define LSP_DETAIL_EXPAND_4(...) LSP_DETAIL_EXPAND_1(LSP_DETAIL_EXPAND_1(LSP_DETAIL_EXPAND_1(__VA_ARGS__)))
#define LSP_DETAIL_EXPAND_1(...) __VA_ARGS__

#endif
