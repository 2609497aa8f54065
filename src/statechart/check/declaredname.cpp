#include "statechart/check/declaredname.h"

#include "statechart/deviceparameters.h"

#include <algorithm>
#include <string>

namespace {

using Kind = NameKind;
using Role = NameRole;

Kind kindOf(std::string_view section, const JsonObject& definition)
{
    if (section == "parameters")
        return Kind::parameter;
    if (section == "variables")
        return Kind::variable;
    const JsonValue* const type = definition.find("type");
    const bool isInput = section == "inputs";
    if (type != nullptr && type->equals("pin"))
        return isInput ? Kind::inputPin : Kind::outputPin;
    if (type != nullptr && type->equals("bus"))
        return isInput ? Kind::inputBus : Kind::outputBus;
    return Kind::unknown;
}

DeclaredName declaredName(const JsonMember& member, std::string_view section)
{
    const JsonObject& definition = member.value.asObject();
    DeclaredName name{.kind = kindOf(section, definition),
                      .identifier = member.key,
                      .path = {std::string(section), member.key},
                      .type = {},
                      .width = {}};
    const bool isTerminalSection = section == "inputs" || section == "outputs";
    const JsonValue* const type = definition.find(isTerminalSection ? "dataType" : "type");
    if (type != nullptr && type->isString())
        name.type = typeFromName(type->asString());
    const JsonValue* const width = definition.find("width");
    if (width != nullptr && width->isInt() && name.kind != Kind::inputPin && name.kind != Kind::outputPin)
        name.width = width->asInt();
    return name;
}

} // namespace

bool fits(NameKind kind, NameRole role)
{
    switch (role) {
    case Role::pin:
        return kind == Kind::inputPin || kind == Kind::outputPin || kind == Kind::unknown;
    case Role::eventPin:
        return kind == Kind::inputPin || kind == Kind::unknown;
    case Role::drivenPin:
        return kind == Kind::outputPin || kind == Kind::unknown;
    case Role::bus:
        return kind == Kind::inputBus || kind == Kind::outputBus || kind == Kind::unknown;
    case Role::drivenBus:
        return kind == Kind::outputBus || kind == Kind::unknown;
    case Role::variable:
        return kind == Kind::variable;
    case Role::parameter:
        break;
    }
    return kind == Kind::parameter;
}

std::string_view describe(NameKind kind)
{
    switch (kind) {
    case Kind::inputPin:
        return "an input pin";
    case Kind::inputBus:
        return "an input bus";
    case Kind::outputPin:
        return "an output pin";
    case Kind::outputBus:
        return "an output bus";
    case Kind::parameter:
        return "a parameter";
    case Kind::variable:
        return "a variable";
    case Kind::unknown:
        break;
    }
    return "unknown";
}

std::string_view describeSection(NameKind kind)
{
    return kind == Kind::parameter ? "parameter" : "variable";
}

DeclaredNames::DeclaredNames(const JsonObject& definition)
{
    addSection(definition, "inputs", m_terminals);
    addSection(definition, "outputs", m_terminals);
    addSection(definition, "parameters", m_parameters);
    addSection(definition, "variables", m_variables);
    m_outputDelay = {.kind = Kind::parameter,
                     .identifier = outputDelayParameter,
                     .path = {},
                     .type = DataType::real,
                     .width = {}};
    const auto [delay, isAdded] = m_parameters.emplace(m_outputDelay.identifier, &m_outputDelay);
    delay->second->isUsed = true; // by every output that is driven without a delay of its own
}

void DeclaredNames::addSection(const JsonObject& definition, std::string_view section, Namespace& names)
{
    const JsonValue* const members = definition.find(section);
    if (members == nullptr || !members->isObject())
        return;
    for (const JsonMember& member : members->asObject()) {
        if (!member.value.isObject())
            continue;
        m_names.push_back(declaredName(member, section));
        names.emplace(member.key, &m_names.back());
    }
}

DeclaredNames::Namespace& DeclaredNames::namespaceOf(NameRole role)
{
    if (isTerminal(role))
        return m_terminals;
    return role == Role::variable ? m_variables : m_parameters;
}

DeclaredName* DeclaredNames::find(std::string_view identifier, NameRole role)
{
    const Namespace& names = namespaceOf(role);
    const auto name = names.find(identifier);
    return name == names.end() ? nullptr : name->second;
}

void DeclaredNames::useAny(NameRole role)
{
    for (DeclaredName& name : m_names) {
        if (!fits(name.kind, role))
            continue;
        name.isUsed = true;
        name.isDriven = name.isDriven || drives(role);
    }
}

void DeclaredNames::useEverywhere(std::string_view identifier)
{
    for (const Namespace* names : {&m_terminals, &m_parameters, &m_variables}) {
        const auto name = names->find(identifier);
        if (name != names->end())
            name->second->isUsed = name->second->isDriven = true;
    }
}

void DeclaredNames::useAll()
{
    for (DeclaredName& name : m_names)
        name.isUsed = name.isDriven = true;
}

std::vector<std::string_view> DeclaredNames::fitting(NameRole role) const
{
    std::vector<std::string_view> identifiers;
    for (const DeclaredName& name : m_names) {
        if (fits(name.kind, role))
            identifiers.push_back(name.identifier);
    }
    return identifiers;
}
