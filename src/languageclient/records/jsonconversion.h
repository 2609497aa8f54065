#ifndef LSPJSONCONVERSION_H
#define LSPJSONCONVERSION_H

#include "languageclient/records/enumerations.h"
#include "languageclient/records/lspabstractjsonobject.h"

#include <QJsonArray>
#include <QUrl>
#include <concepts>
#include <cstddef>
#include <limits>
#include <optional>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

/// Between the values of records and JSON. LSPJson<T>::read gives nothing when the value is not of the JSON
/// type that T stands for, and never throws.
namespace Halvorin::LSP {

template <class T>
struct LSPJson;

template <>
struct LSPJson<bool>
{
    static std::optional<bool> read(const QJsonValue& value)
    {
        return value.isBool() ? std::optional(value.toBool()) : std::nullopt;
    }
    static QJsonValue write(bool value) { return value; }
};

/// A number that is no whole one in range reads as 0.
template <>
struct LSPJson<int>
{
    static std::optional<int> read(const QJsonValue& value)
    {
        return value.isDouble() ? std::optional(value.toInt()) : std::nullopt;
    }
    static QJsonValue write(int value) { return value; }
};

/// A number that is no whole one in range reads as 0.
template <>
struct LSPJson<unsigned>
{
    static std::optional<unsigned> read(const QJsonValue& value)
    {
        if (!value.isDouble())
            return {};
        const double number = value.toDouble();
        if (!(number >= 0 && number <= std::numeric_limits<unsigned>::max()))
            return 0u;
        const auto whole = static_cast<unsigned>(number);
        return whole == number ? whole : 0u;
    }
    static QJsonValue write(unsigned value) { return static_cast<double>(value); }
};

template <>
struct LSPJson<QString>
{
    static std::optional<QString> read(const QJsonValue& value)
    {
        return value.isString() ? std::optional(value.toString()) : std::nullopt;
    }
    static QJsonValue write(const QString& value) { return value; }
};

template <>
struct LSPJson<QUrl>
{
    static std::optional<QUrl> read(const QJsonValue& value)
    {
        return value.isString() ? std::optional(QUrl(value.toString())) : std::nullopt;
    }
    static QJsonValue write(const QUrl& value) { return value.toString(QUrl::FullyEncoded); }
};

/// JSON null.
template <>
struct LSPJson<std::nullptr_t>
{
    static std::optional<std::nullptr_t> read(const QJsonValue& value)
    {
        return value.isNull() ? std::optional(nullptr) : std::nullopt;
    }
    static QJsonValue write(std::nullptr_t) { return QJsonValue::Null; }
};

/// Any JSON value, kept unread.
template <>
struct LSPJson<QJsonValue>
{
    static std::optional<QJsonValue> read(const QJsonValue& value) { return value; }
    static QJsonValue write(const QJsonValue& value) { return value; }
};

template <>
struct LSPJson<QJsonObject>
{
    static std::optional<QJsonObject> read(const QJsonValue& value)
    {
        return value.isObject() ? std::optional(value.toObject()) : std::nullopt;
    }
    static QJsonValue write(const QJsonObject& value) { return value; }
};

template <>
struct LSPJson<QJsonArray>
{
    static std::optional<QJsonArray> read(const QJsonValue& value)
    {
        return value.isArray() ? std::optional(value.toArray()) : std::nullopt;
    }
    static QJsonValue write(const QJsonArray& value) { return value; }
};

/// An enumeration that stands as a text.
template <class T>
requires std::is_enum_v<T>
struct LSPJson<T>
{
    static std::optional<T> read(const QJsonValue& value)
    {
        return value.isString() ? enumerationOf<T>(value.toString()) : std::nullopt;
    }
    static QJsonValue write(T value) { return textOf(value); }
};

/// A record, whether or not it has its required keys.
template <std::derived_from<LSPAbstractJsonObject> T>
struct LSPJson<T>
{
    static std::optional<T> read(const QJsonValue& value)
    {
        return value.isObject() ? std::optional(T(value.toObject())) : std::nullopt;
    }
    static QJsonValue write(const T& value) { return value.toJson(); }
};

/// An array; one element of another type, and there is none.
template <class T>
struct LSPJson<std::vector<T>>
{
    static std::optional<std::vector<T>> read(const QJsonValue& value)
    {
        if (!value.isArray())
            return {};
        const QJsonArray array = value.toArray();
        std::vector<T> result;
        result.reserve(static_cast<std::size_t>(array.size()));
        for (const QJsonValue& element : array) {
            const std::optional<T> read = LSPJson<T>::read(element);
            if (!read)
                return {};
            result.push_back(*read);
        }
        return result;
    }
    static QJsonValue write(const std::vector<T>& value)
    {
        QJsonArray array;
        for (const T& element : value)
            array.append(LSPJson<T>::write(element));
        return array;
    }
};

/// An array of exactly two.
template <class First, class Second>
struct LSPJson<std::pair<First, Second>>
{
    static std::optional<std::pair<First, Second>> read(const QJsonValue& value)
    {
        const QJsonArray array = value.toArray();
        if (array.size() != 2)
            return {};
        const auto first = LSPJson<First>::read(array[0]);
        const auto second = LSPJson<Second>::read(array[1]);
        if (!first || !second)
            return {};
        return std::pair(*first, *second);
    }
    static QJsonValue write(const std::pair<First, Second>& value)
    {
        return QJsonArray{LSPJson<First>::write(value.first), LSPJson<Second>::write(value.second)};
    }
};

/// The first alternative of the value's JSON type. Between records, the first that has its required keys goes
/// before one that lacks some.
template <class... Alternatives>
struct LSPJson<std::variant<Alternatives...>>
{
    using Variant = std::variant<Alternatives...>;

    static std::optional<Variant> read(const QJsonValue& value)
    {
        std::optional<Variant> result;
        (readAs<Alternatives>(value, true, result) || ...) ||
            (readAs<Alternatives>(value, false, result) || ...);
        return result;
    }
    static QJsonValue write(const Variant& value)
    {
        return std::visit([]<class T>(const T& alternative) { return LSPJson<T>::write(alternative); },
                          value);
    }

private:
    template <class T>
    static bool readAs(const QJsonValue& value, [[maybe_unused]] bool whole, std::optional<Variant>& result)
    {
        const std::optional<T> read = LSPJson<T>::read(value);
        if (!read)
            return false;
        if constexpr (std::derived_from<T, LSPAbstractJsonObject>) {
            if (whole && !read->missingParameters().isEmpty())
                return false;
        }
        result = *read;
        return true;
    }
};

/// What the getter of a required key gives: the value, or the zero value where the JSON type is another one.
template <class T>
struct LSPRequired
{
    using Type = T;
    static Type read(const QJsonValue& value) { return LSPJson<T>::read(value).value_or(T()); }
};

/// The getter of an array gives nothing instead.
template <class T>
struct LSPRequired<std::vector<T>>
{
    using Type = std::optional<std::vector<T>>;
    static Type read(const QJsonValue& value) { return LSPJson<std::vector<T>>::read(value); }
};

/// What the nested records of a value lack. Values of other types lack nothing.
template <class T>
struct LSPNestedCheck
{
    static QStringList missing(const QJsonValue& value)
    {
        if constexpr (std::derived_from<T, LSPAbstractJsonObject>)
            return value.isObject() ? T(value.toObject()).missingParameters() : QStringList();
        else
            return {};
    }
};

template <class T>
struct LSPNestedCheck<std::vector<T>>
{
    static QStringList missing(const QJsonValue& value)
    {
        QStringList result;
        for (const QJsonValue& element : value.toArray())
            result << LSPNestedCheck<T>::missing(element);
        result.removeDuplicates();
        return result;
    }
};

template <class... Alternatives>
struct LSPNestedCheck<std::variant<Alternatives...>>
{
    static QStringList missing(const QJsonValue& value)
    {
        const auto read = LSPJson<std::variant<Alternatives...>>::read(value);
        if (!read)
            return {};
        return std::visit([&]<class T>(const T&) { return LSPNestedCheck<T>::missing(value); }, *read);
    }
};

} // namespace Halvorin::LSP

#endif
