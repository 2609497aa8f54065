#ifndef HALVCORE_APPLICATION_H
#define HALVCORE_APPLICATION_H

#include "HalvCore/applicationentity.h"
#include "HalvCore/applicationlogger.h"
#include "HalvCore/halvcoreexport.h"
#include "HalvCore/uniquepointer.h"

#include <memory>

namespace Halvorin::System {

/// What holds for the whole application.
class ApplicationSettings
{
public:
    /// Whether calls of script functions are to be logged, on the channel "script".
    bool logScriptCalls() const { return m_logScriptCalls; }
    void setLogScriptCalls(bool log) { m_logScriptCalls = log; }

private:
    bool m_logScriptCalls = false;
};

/// The application, as everything that it loads sees it. It is made by the first who asks, also while
/// statics are still being constructed.
class HALVCORE_EXPORT Application
{
public:
    static Application& instance();

    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

    ApplicationLogger& logger();
    ApplicationSettings& settings();

    /// Takes ownership until the application ends, and gives the entity back for use. Entities are
    /// destroyed in the opposite order. GUI thread only.
    ApplicationEntity& addSystemEntity(UniquePointer<ApplicationEntity> entity);

private:
    Application();
    ~Application();

    struct State;
    std::unique_ptr<State> m_state;
};

} // namespace Halvorin::System

#endif
