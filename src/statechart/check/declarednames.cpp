#include "statechart/check/declaredname.h"
#include "statechart/deviceparameters.h"

#include <string>

namespace {

using Kind = NameKind;
using Role = NameRole;

Kind kindOf(std::string_view section, const JsonObject* definition)
{
    if (section == "parameters")
        return Kind::parameter;
    if (section == "variables")
        return Kind::variable;
    const JsonValue* const type = definition != nullptr ? definition->find("type") : nullptr;
    const bool isInput = section == "inputs";
    if (type != nullptr && type->equals("pin"))
        return isInput ? Kind::inputPin : Kind::outputPin;
    if (type != nullptr && type->equals("bus"))
        return isInput ? Kind::inputBus : Kind::outputBus;
    return Kind::unknown;
}

/// Whether things of a kind can have a type: another word is the compiler's to tell of.
bool canBeOf(Kind kind, DataType type)
{
    switch (type) {
    case DataType::integer64:
    case DataType::unsigned64:
        return true;
    case DataType::real:
        return kind == Kind::parameter || kind == Kind::variable;
    case DataType::integer:
    case DataType::string:
    case DataType::boolean:
        return kind == Kind::variable;
    default:
        return false;
    }
}

DeclaredName declaredName(const JsonMember& member, std::string_view section)
{
    const JsonObject* const definition = member.value.isObject() ? &member.value.asObject() : nullptr;
    DeclaredName name{.kind = kindOf(section, definition),
                      .identifier = member.key,
                      .path = {std::string(section), member.key},
                      .type = {},
                      .width = {}};
    name.isBroken = definition == nullptr || name.kind == Kind::unknown;
    if (name.isBroken || name.kind == Kind::inputPin || name.kind == Kind::outputPin)
        return name;
    const bool isBus = isInput(name.kind) || isOutput(name.kind);
    const JsonValue* const type = definition->find(isBus ? "dataType" : "type");
    if (type != nullptr && type->isString())
        name.type = typeFromName(type->asString());
    if (name.type && !canBeOf(name.kind, *name.type))
        name.type.reset();
    const JsonValue* const width = definition->find("width");
    if (isBus && width != nullptr && width->isInt() && width->asInt() > 0)
        name.width = width->asInt();
    return name;
}

/// Which of two declarations a use means is not known.
void makeBroken(DeclaredName& name)
{
    name.kind = Kind::unknown;
    name.type.reset();
    name.width.reset();
    name.isBroken = true;
}

} // namespace

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
    const auto [delay, isAdded] = m_parameters.names.emplace(m_outputDelay.identifier, &m_outputDelay);
    delay->second->isUsed = true; // by every output that is driven without a delay of its own
}

void DeclaredNames::addSection(const JsonObject& definition, std::string_view section, Namespace& names)
{
    const JsonValue* const members = definition.find(section);
    const bool isMissing = members == nullptr && section == "outputs"; // the others may be
    if (isMissing || (members != nullptr && !members->isObject()))
        names.isComplete = false;
    if (members == nullptr || !members->isObject())
        return;
    for (const JsonMember& member : members->asObject()) {
        m_names.push_back(declaredName(member, section));
        const auto [name, isAdded] = names.names.emplace(member.key, &m_names.back());
        if (!isAdded) {
            makeBroken(*name->second);
            makeBroken(m_names.back());
        }
    }
}

const DeclaredNames::Namespace& DeclaredNames::namespaceOf(NameRole role) const
{
    if (isTerminal(role))
        return m_terminals;
    return role == Role::variable ? m_variables : m_parameters;
}

bool DeclaredNames::isComplete(NameRole role) const
{
    return namespaceOf(role).isComplete;
}

DeclaredName* DeclaredNames::find(std::string_view identifier, NameRole role)
{
    const Namespace& space = namespaceOf(role);
    const auto name = space.names.find(identifier);
    return name == space.names.end() ? nullptr : name->second;
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
    for (const Namespace* space : {&m_terminals, &m_parameters, &m_variables}) {
        const auto name = space->names.find(identifier);
        if (name != space->names.end())
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
