#include "HostSupport/registrations.h"

#include "HostSupport/optiontext.h"

using HostSupport::OptionRegistration;
using HostSupport::Registry;

namespace {

/// Writes what a text says into the mirror, or leaves it alone where the text says nothing of that type.
template <class T>
std::function<void(const std::string&)> assignmentTo(T* mirror)
{
    return [mirror](const std::string& text) {
        if (const auto value = HostSupport::optionFromText<T>(text); value && mirror)
            *mirror = *value;
    };
}

template <class T>
OptionRegistration optionRegistration(const char* sourcePath, int sourceLine, T* mirror, const char* name,
                                      std::string defaultText, unsigned flags)
{
    return {name, sourcePath, sourceLine, std::move(defaultText), flags, assignmentTo(mirror)};
}

} // namespace

FuncConstruct::FuncConstruct(const char* name, std::vector<ScriptArgumentType> argumentTypes,
                             std::vector<const char*> optionWords, int minimumArguments, int maximumArguments,
                             ScriptFunctionHandler handler, const char* category, ScriptResultType resultType,
                             const FunctionDefaults& defaults)
    : m_registration{name,
                     std::move(argumentTypes),
                     std::move(optionWords),
                     minimumArguments,
                     maximumArguments,
                     handler,
                     category,
                     resultType,
                     defaults}
{
    Registry::instance().functions().add(m_registration);
}

FuncConstruct::~FuncConstruct()
{
    Registry::instance().functions().remove(m_registration);
}

ComConstruct::ComConstruct(const char* name, ScriptCommandHandler handler, unsigned flags,
                           const char* category)
    : m_registration{name, handler, flags, category}
{
    Registry::instance().commands().add(m_registration);
}

ComConstruct::~ComConstruct()
{
    Registry::instance().commands().remove(m_registration);
}

AutoFunc::AutoFunc(const char* event, HookHandler handler, const char* name)
    : m_registration{event, handler, name}
{
    Registry::instance().hooks().add(m_registration);
}

AutoFunc::~AutoFunc()
{
    Registry::instance().hooks().remove(m_registration);
}

MakeOption::MakeOption(const char* sourcePath, int sourceLine, bool* mirror, const char* name,
                       bool defaultValue, unsigned flags)
    : m_registration(optionRegistration(sourcePath, sourceLine, mirror, name,
                                        HostSupport::optionText(defaultValue), flags))
{
    Registry::instance().addOption(m_registration);
}

MakeOption::MakeOption(const char* sourcePath, int sourceLine, int* mirror, const char* name,
                       int defaultValue, unsigned flags)
    : m_registration(optionRegistration(sourcePath, sourceLine, mirror, name,
                                        HostSupport::optionText(defaultValue), flags))
{
    Registry::instance().addOption(m_registration);
}

MakeOption::MakeOption(const char* sourcePath, int sourceLine, double* mirror, const char* name,
                       double defaultValue, unsigned flags)
    : m_registration(optionRegistration(sourcePath, sourceLine, mirror, name,
                                        HostSupport::optionText(defaultValue), flags))
{
    Registry::instance().addOption(m_registration);
}

MakeOption::MakeOption(const char* sourcePath, int sourceLine, YString* mirror, const char* name,
                       const char* defaultValue, unsigned flags)
    : m_registration(optionRegistration(sourcePath, sourceLine, mirror, name, defaultValue, flags))
{
    Registry::instance().addOption(m_registration);
}

MakeOption::~MakeOption()
{
    Registry::instance().options().remove(m_registration);
}

OptionAction::OptionAction(const char* name, std::function<void()> action)
    : m_registration{name, std::move(action)}
{
    Registry::instance().optionActions().add(m_registration);
}

OptionAction::~OptionAction()
{
    Registry::instance().optionActions().remove(m_registration);
}
