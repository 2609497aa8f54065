#ifndef HALVCORE_JSONELEMENT_H
#define HALVCORE_JSONELEMENT_H

#include "HalvCore/errorcode2.h"
#include "HalvCore/expected.h"
#include "HalvCore/halvcoreexport.h"
#include "HalvCore/string.h"

#include <memory>
#include <vector>

namespace Halvorin::System {

/// A value of a JSON document of the host, read only. Copies share the document. A value that is not what
/// is asked of it, and a member that is not there, raise an Exception that says so.
///
///     const JsonElement document = JsonElement::parse(text).value();
///     for (const JsonElement& category : document["categories"].getArray())
///         add(category["name"].getString());
class HALVCORE_EXPORT JsonElement
{
public:
    class ObjectType;
    class ArrayType;

    /// One document with an object or an array at its top. The error is SystemError::invalidText, with the
    /// reason and the byte where it was found.
    static Expected<JsonElement, ErrorCode2> parse(const String& text);

    bool isString() const;
    bool isObject() const;
    bool isArray() const;

    String getString() const;
    ObjectType getObject() const;
    ArrayType getArray() const;

    /// The member of an object.
    JsonElement operator[](const String& key) const;

private:
    struct Content;
    explicit JsonElement(std::shared_ptr<const Content> content) : m_content(std::move(content)) {}

    std::shared_ptr<const Content> m_content;
};

class HALVCORE_EXPORT JsonElement::ObjectType
{
public:
    bool contains(const String& key) const;
    JsonElement operator[](const String& key) const;

private:
    friend class JsonElement;
    explicit ObjectType(std::shared_ptr<const Content> content) : m_content(std::move(content)) {}

    std::shared_ptr<const Content> m_content;
};

class HALVCORE_EXPORT JsonElement::ArrayType
{
public:
    using const_iterator = std::vector<JsonElement>::const_iterator;

    const_iterator begin() const { return m_elements.begin(); }
    const_iterator end() const { return m_elements.end(); }

private:
    friend class JsonElement;
    std::vector<JsonElement> m_elements;
};

} // namespace Halvorin::System

#endif
