#include "HalvCore/application.h"

#include <vector>

namespace Halvorin::System {

struct Application::State
{
    ApplicationLogger logger;
    ApplicationSettings settings;
    std::vector<UniquePointer<ApplicationEntity>> entities;

    ~State()
    {
        while (!entities.empty())
            entities.pop_back();
    }
};

Application::Application() : m_state(std::make_unique<State>()) {}

Application::~Application() = default;

Application& Application::instance()
{
    static Application application;
    return application;
}

ApplicationLogger& Application::logger()
{
    return m_state->logger;
}

ApplicationSettings& Application::settings()
{
    return m_state->settings;
}

ApplicationEntity& Application::addSystemEntity(UniquePointer<ApplicationEntity> entity)
{
    return *m_state->entities.emplace_back(std::move(entity));
}

} // namespace Halvorin::System
