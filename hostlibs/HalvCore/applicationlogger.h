#ifndef HALVCORE_APPLICATIONLOGGER_H
#define HALVCORE_APPLICATIONLOGGER_H

#include "HalvCore/abstractlogger.h"

#include <functional>
#include <memory>
#include <string_view>

namespace Halvorin::System {

/// The application's own logger: a line a message, "warning: python: the text", to standard error or to
/// where setOutput() says. Messages below the level are dropped. May be used from any thread.
class HALVCORE_EXPORT ApplicationLogger : public AbstractLogger
{
public:
    /// Takes one line with its line end. Lines come one at a time.
    using Output = std::function<void(std::string_view line)>;

    ApplicationLogger();
    ~ApplicationLogger() override;

    /// The least severity that is written: warning at first.
    MessageSeverity level() const;
    void setLevel(MessageSeverity level);

    /// An empty function stands for standard error.
    void setOutput(Output output);

    void log(MessageSeverity severity, const String& channel, const String& message) override;

private:
    struct State;
    std::unique_ptr<State> m_state;
};

} // namespace Halvorin::System

#endif
