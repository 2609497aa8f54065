#ifndef HOSTSUPPORT_SCRIPTHOST_H
#define HOSTSUPPORT_SCRIPTHOST_H

#include "HostSupport/hostsupportexport.h"

#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

/// The host's side of scripts: it calls what libraries registered.
namespace HostSupport {

/// A call that a script may not make, or one whose handler broke its contract. Errors in what a function
/// is asked to do are not among these: they stand in its result.
class HOSTSUPPORT_EXPORT ScriptCallException : public std::runtime_error
{
public:
    enum class Reason
    {
        unknownName,
        argumentCount,
        handlerFailed,
    };

    ScriptCallException(Reason reason, const std::string& text) : std::runtime_error(text), m_reason(reason)
    {}

    Reason reason() const { return m_reason; }

private:
    Reason m_reason;
};

/// Nothing, a boolean, or an array of strings.
using ScriptValue = std::variant<std::monostate, bool, std::vector<std::string>>;

/// Calls the script function or command with this name. The number of arguments is held against the
/// registered bounds before the handler is reached.
/// @throws ScriptCallException
HOSTSUPPORT_EXPORT ScriptValue call(const std::string& name, std::vector<std::string> arguments);

/// Runs the hooks of an event. One that raises an exception is logged as an error, the others still run.
HOSTSUPPORT_EXPORT void runHooks(std::string_view event);

/// What the host does between loading libraries and its first call: the mirrors of options get what is
/// stored, then the hooks of "PostPluginLoad" and "PreExec" run.
HOSTSUPPORT_EXPORT void start();

} // namespace HostSupport

#endif
