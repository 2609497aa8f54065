#ifndef HOSTSUPPORT_REGISTRATIONS_H
#define HOSTSUPPORT_REGISTRATIONS_H

#include "HostSupport/registry.h"

/// The objects with which a library tells the host what it has: statics of file scope, one a name. The
/// constructor only hands the registration over, the destructor takes it back. Names are literals.
///
///     const FuncConstruct compile("CompileDevice", {ScriptArgumentType::string}, {}, 1, 1, compileDevice,
///                                 "devices", ScriptResultType::strings, {});

/// A script function.
class HOSTSUPPORT_EXPORT FuncConstruct
{
public:
    FuncConstruct(const char* name, std::vector<ScriptArgumentType> argumentTypes,
                  std::vector<const char*> optionWords, int minimumArguments, int maximumArguments,
                  ScriptFunctionHandler handler, const char* category, ScriptResultType resultType,
                  const FunctionDefaults& defaults);
    FuncConstruct(const FuncConstruct&) = delete;
    FuncConstruct& operator=(const FuncConstruct&) = delete;
    ~FuncConstruct();

private:
    HostSupport::FunctionRegistration m_registration;
};

/// A script command: it has no arguments and no result.
class HOSTSUPPORT_EXPORT ComConstruct
{
public:
    ComConstruct(const char* name, ScriptCommandHandler handler, unsigned flags, const char* category);
    ComConstruct(const ComConstruct&) = delete;
    ComConstruct& operator=(const ComConstruct&) = delete;
    ~ComConstruct();

private:
    HostSupport::CommandRegistration m_registration;
};

/// A hook: the host runs it at the event, hooks of one event in the order of their registration.
class HOSTSUPPORT_EXPORT AutoFunc
{
public:
    AutoFunc(const char* event, HookHandler handler, const char* name);
    AutoFunc(const AutoFunc&) = delete;
    AutoFunc& operator=(const AutoFunc&) = delete;
    ~AutoFunc();

private:
    HostSupport::HookRegistration m_registration;
};

/// An option with its default, mirrored by a variable: the variable has the default at once, and what is
/// stored from the host's start on, also whenever the option is written. The variable must outlive this.
class HOSTSUPPORT_EXPORT MakeOption
{
public:
    MakeOption(const char* sourcePath, int sourceLine, bool* mirror, const char* name, bool defaultValue,
               unsigned flags);
    MakeOption(const char* sourcePath, int sourceLine, int* mirror, const char* name, int defaultValue,
               unsigned flags);
    MakeOption(const char* sourcePath, int sourceLine, double* mirror, const char* name, double defaultValue,
               unsigned flags);
    MakeOption(const char* sourcePath, int sourceLine, YString* mirror, const char* name,
               const char* defaultValue, unsigned flags);
    MakeOption(const MakeOption&) = delete;
    MakeOption& operator=(const MakeOption&) = delete;
    ~MakeOption();

private:
    HostSupport::OptionRegistration m_registration;
};

/// Something to do when an option has changed. It runs on the thread that wrote the option.
class HOSTSUPPORT_EXPORT OptionAction
{
public:
    OptionAction(const char* name, std::function<void()> action);
    OptionAction(const OptionAction&) = delete;
    OptionAction& operator=(const OptionAction&) = delete;
    ~OptionAction();

private:
    HostSupport::OptionActionRegistration m_registration;
};

#endif
