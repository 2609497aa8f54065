#include "HalvCore/applicationentity.h"

namespace Halvorin::System {

ApplicationEntityData::ApplicationEntityData(String name) : m_name(std::move(name)) {}

ApplicationEntityData::~ApplicationEntityData() = default;

ApplicationEntity::ApplicationEntity(UniquePointer<ApplicationEntityData> data) : Object(std::move(data)) {}

ApplicationEntity::~ApplicationEntity() = default;

const String& ApplicationEntity::name() const
{
    return static_cast<const ApplicationEntityData&>(_data()).name();
}

} // namespace Halvorin::System
