#include "HalvCore/object.h"

namespace Halvorin::System {

ObjectData::~ObjectData() = default;

Object::Object(UniquePointer<ObjectData> data) : m_data(std::move(data)) {}

Object::Object(Object&&) noexcept = default;

Object& Object::operator=(Object&&) noexcept = default;

Object::~Object() = default;

} // namespace Halvorin::System
