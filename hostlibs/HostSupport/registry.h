#ifndef HOSTSUPPORT_REGISTRY_H
#define HOSTSUPPORT_REGISTRY_H

#include "HostSupport/hostsupportexport.h"
#include "HostSupport/scriptcall.h"
#include "HostSupport/ystring.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

/// Default values of the arguments of a script function, as the host holds them.
struct FunctionDefaults
{
    std::array<std::uint64_t, 4> words{};
};

namespace HostSupport {

struct FunctionRegistration
{
    const char* name;
    std::vector<ScriptArgumentType> argumentTypes;
    std::vector<const char*> optionWords;
    int minimumArguments;
    int maximumArguments;
    ScriptFunctionHandler handler;
    const char* category;
    ScriptResultType resultType;
    FunctionDefaults defaults;
};

struct CommandRegistration
{
    const char* name;
    ScriptCommandHandler handler;
    unsigned flags;
    const char* category;
};

struct HookRegistration
{
    const char* event;
    HookHandler handler;
    const char* name;
};

struct OptionRegistration
{
    const char* name;
    const char* sourcePath;
    int sourceLine;
    std::string defaultText;
    unsigned flags;
    std::function<void(const std::string& text)> assignMirror;
};

struct OptionActionRegistration
{
    const char* name;
    std::function<void()> action;
};

/// Registrations of one kind, in the order in which they came. They belong to whoever registered them.
template <class Registration>
class RegistrationList
{
public:
    void add(Registration& registration) { m_registrations.push_back(&registration); }
    void remove(const Registration& registration) { std::erase(m_registrations, &registration); }

    /// The first one with this name, or null.
    const Registration* find(std::string_view name) const
    {
        const auto found = std::ranges::find(m_registrations, name,
                                             [](const auto* each) { return std::string_view(each->name); });
        return found != m_registrations.end() ? *found : nullptr;
    }

    const std::vector<const Registration*>& all() const { return m_registrations; }

private:
    std::vector<const Registration*> m_registrations;
};

/// All that loaded libraries have registered. It is made by the first static that registers, in whatever
/// order the libraries come. GUI thread only.
class HOSTSUPPORT_EXPORT Registry
{
public:
    static Registry& instance();

    RegistrationList<FunctionRegistration>& functions() { return m_functions; }
    RegistrationList<CommandRegistration>& commands() { return m_commands; }
    RegistrationList<HookRegistration>& hooks() { return m_hooks; }
    RegistrationList<OptionRegistration>& options() { return m_options; }
    RegistrationList<OptionActionRegistration>& optionActions() { return m_optionActions; }

    /// Gives the mirror the default; once the mirrors are live, what is stored.
    void addOption(OptionRegistration& option);

    /// From the host's start on: gives every mirror what is stored, and every later one too.
    void makeMirrorsLive();

    /// Gives the mirrors of an option its new value and runs its actions.
    void optionChanged(const std::string& name, const std::string& value);

private:
    Registry() = default;

    RegistrationList<FunctionRegistration> m_functions;
    RegistrationList<CommandRegistration> m_commands;
    RegistrationList<HookRegistration> m_hooks;
    RegistrationList<OptionRegistration> m_options;
    RegistrationList<OptionActionRegistration> m_optionActions;
    bool m_mirrorsAreLive = false;
};

} // namespace HostSupport

#endif
