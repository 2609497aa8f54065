#include "languageclient/records/lspabstractjsonobject.h"

#include <utility>

namespace Halvorin::LSP {

LSPAbstractJsonObject::~LSPAbstractJsonObject() = default;

bool LSPAbstractJsonObject::fromJson(const QJsonObject& object)
{
    QJsonObject other = object;
    m_object.swap(other);
    if (missingParameters().isEmpty())
        return true;
    m_object.swap(other);
    return false;
}

QStringList LSPAbstractJsonObject::missingParameters() const
{
    return {};
}

QJsonValue LSPAbstractJsonObject::value(QLatin1String key, const QJsonValue& defaultValue) const
{
    const auto found = m_object.constFind(key);
    return found == m_object.constEnd() ? defaultValue : found.value();
}

void LSPAbstractJsonObject::require(QLatin1String key, QStringList& missing) const
{
    if (!contains(key))
        missing << QLatin1String("Missing parameter: ") + key;
}

void LSPAbstractJsonObject::require(std::span<const LSPKey> keys, QStringList& missing) const
{
    for (const LSPKey& key : keys) {
        if (key.required)
            require(key.name, missing);
        if (!key.nestedCheck)
            continue;
        for (const QString& text : key.nestedCheck(value(key.name))) {
            if (!missing.contains(text))
                missing << text;
        }
    }
}

} // namespace Halvorin::LSP
