#include "HostSupport/registry.h"

#include "HostSupport/optionstore.h"

namespace HostSupport {

namespace {

void assignStored(const OptionRegistration& option)
{
    if (const auto stored = OptionStore::instance().stored(option.name))
        option.assignMirror(*stored);
}

} // namespace

Registry& Registry::instance()
{
    static Registry registry;
    return registry;
}

void Registry::addOption(OptionRegistration& option)
{
    m_options.add(option);
    option.assignMirror(option.defaultText);
    if (m_mirrorsAreLive)
        assignStored(option);
}

void Registry::makeMirrorsLive()
{
    m_mirrorsAreLive = true;
    for (const OptionRegistration* option : m_options.all())
        assignStored(*option);
}

void Registry::optionChanged(const std::string& name, const std::string& value)
{
    for (const OptionRegistration* option : m_options.all()) {
        if (name == option->name)
            option->assignMirror(value);
    }
    // An action may register or take back actions: go through a copy.
    const auto actions = m_optionActions.all();
    for (const OptionActionRegistration* action : actions) {
        const auto& current = m_optionActions.all();
        if (std::ranges::find(current, action) != current.end() && name == action->name)
            action->action();
    }
}

} // namespace HostSupport
