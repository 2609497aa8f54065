#include "HalvCore/jsonelement.h"

#include "HalvCore/exception.h"
#include "HalvCore/numbertext.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonValue>

namespace Halvorin::System {

struct JsonElement::Content
{
    QJsonValue value;
};

namespace {

QString qString(const String& text)
{
    return QString::fromUtf8(text.data(), static_cast<int>(text.size()));
}

} // namespace

Expected<JsonElement, ErrorCode2> JsonElement::parse(const String& text)
{
    QJsonParseError error;
    const QByteArray bytes(text.data(), static_cast<int>(text.size()));
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (error.error != QJsonParseError::NoError) {
        return ErrorCode2(SystemError::invalidText,
                          error.errorString().toStdString() + " at byte " + numberText(error.offset));
    }
    const QJsonValue value =
        document.isArray() ? QJsonValue(document.array()) : QJsonValue(document.object());
    return JsonElement(std::make_shared<const Content>(Content{value}));
}

bool JsonElement::isString() const
{
    return m_content->value.isString();
}

bool JsonElement::isObject() const
{
    return m_content->value.isObject();
}

bool JsonElement::isArray() const
{
    return m_content->value.isArray();
}

String JsonElement::getString() const
{
    if (!isString())
        throw Exception("the JSON value is not a string");
    return m_content->value.toString().toStdString();
}

JsonElement::ObjectType JsonElement::getObject() const
{
    if (!isObject())
        throw Exception("the JSON value is not an object");
    return ObjectType(m_content);
}

JsonElement::ArrayType JsonElement::getArray() const
{
    if (!isArray())
        throw Exception("the JSON value is not an array");
    ArrayType array;
    for (const QJsonValue value : m_content->value.toArray())
        array.m_elements.push_back(JsonElement(std::make_shared<const Content>(Content{value})));
    return array;
}

JsonElement JsonElement::operator[](const String& key) const
{
    return getObject()[key];
}

bool JsonElement::ObjectType::contains(const String& key) const
{
    return m_content->value.toObject().contains(qString(key));
}

JsonElement JsonElement::ObjectType::operator[](const String& key) const
{
    const QJsonValue value = m_content->value.toObject().value(qString(key));
    if (value.isUndefined())
        throw Exception("the JSON object has no member '" + key.toLegacyUtf8() + "'");
    return JsonElement(std::make_shared<const Content>(Content{value}));
}

} // namespace Halvorin::System
