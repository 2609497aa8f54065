#ifndef REQUESTRESULT_H
#define REQUESTRESULT_H

#include "languageclient/records/messages.h"

#include <QJsonArray>
#include <concepts>
#include <optional>
#include <stdexcept>
#include <tuple>
#include <type_traits>
#include <variant>
#include <vector>

/// How the result of a response becomes one of the types that a request may be answered with.
namespace Halvorin::LSP {

template <class... Results>
struct RequestResultType
{
    using Type = std::variant<Results...>;
};

template <class Result>
struct RequestResultType<Result>
{
    using Type = Result;
};

/// The type itself when there is one, else a variant.
template <class... Results>
using RequestResult = typename RequestResultType<Results...>::Type;

/// An object that has the keys which the record requires.
template <std::derived_from<LSPAbstractJsonObject> Record>
bool convertResult(const QJsonValue& value, Record& record)
{
    return value.isObject() && record.fromJson(value.toObject());
}

/// An array of which every element is such an object.
template <std::derived_from<LSPAbstractJsonObject> Record>
bool convertResult(const QJsonValue& value, std::vector<Record>& records)
{
    if (!value.isArray())
        return false;
    const QJsonArray array = value.toArray();
    records.reserve(static_cast<std::size_t>(array.size()));
    for (const QJsonValue element : array) {
        if (!convertResult(element, records.emplace_back()))
            return false;
    }
    return true;
}

inline bool convertResult(const QJsonValue&, std::monostate&)
{
    return false; // nothing stands for null alone
}

/// The first of the types that takes the result of the response. Raises as LSPRequestMonitor::result() says.
template <class... Results>
RequestResult<Results...> readResult(const LSPResponseMessage& response)
{
    const QJsonObject json = response.toJson();
    if (json.contains(QLatin1String("error")))
        throw LSPRequestException(response.error().value_or(LSPResponseError()));
    const QJsonValue value = json.value(QLatin1String("result"));
    if (value.isUndefined() || value.isNull()) {
        if constexpr ((std::same_as<Results, std::monostate> || ...))
            return std::monostate{};
        else
            throw std::runtime_error("null response");
    }

    std::optional<RequestResult<Results...>> result;
    const auto take = [&]<class Result>(Result candidate) {
        if (!convertResult(value, candidate))
            return false;
        result.emplace(std::move(candidate));
        return true;
    };
    if (!(take(Results{}) || ...))
        throw std::runtime_error("invalid conversion");
    return *std::move(result);
}

} // namespace Halvorin::LSP

#endif
