#ifndef HALVCORE_OBJECT_H
#define HALVCORE_OBJECT_H

#include "HalvCore/halvcoreexport.h"
#include "HalvCore/uniquepointer.h"

namespace Halvorin::System {

/// Base of the data of an Object: a class that is an Object keeps all its fields in a class derived from
/// this one.
class HALVCORE_EXPORT ObjectData
{
public:
    ObjectData() = default;
    virtual ~ObjectData();

    ObjectData& operator=(const ObjectData&) = delete;

protected:
    ObjectData(const ObjectData&) = default;
};

/// Base of every exported value class: it owns one ObjectData, moves it and destroys it. A moved-from
/// object has none and may only be assigned to or destroyed.
///
///     class Example : public Object
///     {
///     public:
///         Example() : Object(std::make_unique<ExampleData>()) {}
///         const String& name() const { return _data().name; }
///     private:
///         const ExampleData& _data() const { return static_cast<const ExampleData&>(Object::_data()); }
///     };
class HALVCORE_EXPORT Object
{
public:
    Object(Object&&) noexcept;
    Object& operator=(Object&&) noexcept;
    virtual ~Object();

protected:
    explicit Object(UniquePointer<ObjectData> data);

    ObjectData& _data() { return *m_data; }
    const ObjectData& _data() const { return *m_data; }

private:
    UniquePointer<ObjectData> m_data;
};

} // namespace Halvorin::System

#endif
