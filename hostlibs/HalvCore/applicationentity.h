#ifndef HALVCORE_APPLICATIONENTITY_H
#define HALVCORE_APPLICATIONENTITY_H

#include "HalvCore/object.h"
#include "HalvCore/string.h"

namespace Halvorin::System {

class HALVCORE_EXPORT ApplicationEntityData : public ObjectData
{
public:
    explicit ApplicationEntityData(String name);
    ~ApplicationEntityData() override;

    const String& name() const { return m_name; }

private:
    String m_name;
};

/// A long-lived service that the application owns: see Application::addSystemEntity().
class HALVCORE_EXPORT ApplicationEntity : public Object
{
public:
    explicit ApplicationEntity(UniquePointer<ApplicationEntityData> data);
    ~ApplicationEntity() override;

    const String& name() const;
};

} // namespace Halvorin::System

#endif
