#ifndef DECLAREDNAME_H
#define DECLAREDNAME_H

#include "actionlanguage/types/datatype.h"
#include "statechart/check/namingfunction.h"
#include "statechart/json/jsonlocator.h"
#include "statechart/json/jsonvalue.h"

#include <deque>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

enum class NameKind
{
    unknown, ///< a terminal that is neither pin nor bus: the compiler tells of it
    inputPin,
    inputBus,
    outputPin,
    outputBus,
    parameter,
    variable,
};

/// A name that a device declares, and what its actions do with it.
struct DeclaredName
{
    NameKind kind = NameKind::unknown;
    std::string_view identifier;
    JsonPath path;
    std::optional<DataType> type;      ///< of a bus, parameter or variable
    std::optional<std::int32_t> width; ///< of a bus
    bool isUsed = false;
    bool isDriven = false;
};

/// Whether a name of this kind can be used in that way. What is not known fits all.
bool fits(NameKind kind, NameRole role);

/// "an input pin"
std::string_view describe(NameKind kind);

/// "variable" or "parameter"
std::string_view describeSection(NameKind kind);

/// The names of a definition, as far as it is right: pins and buses in one namespace, parameters and
/// variables in one each. The parameter "OUTPUT_DELAY" is always there.
class DeclaredNames
{
public:
    explicit DeclaredNames(const JsonObject& definition);
    DeclaredNames(const DeclaredNames&) = delete;
    DeclaredNames& operator=(const DeclaredNames&) = delete;

    /// The name of this spelling in the namespace of a role; null when there is none.
    DeclaredName* find(std::string_view identifier, NameRole role);

    /// Marks all names that fit a role.
    void useAny(NameRole role);

    /// Marks the names of this spelling in every namespace, as used and driven.
    void useEverywhere(std::string_view identifier);

    /// Marks all.
    void useAll();

    /// The names that fit a role, in the order of the definition.
    std::vector<std::string_view> fitting(NameRole role) const;

    /// Those that stand in the definition, in its order.
    const std::deque<DeclaredName>& all() const { return m_names; }

private:
    using Namespace = std::unordered_map<std::string_view, DeclaredName*>;

    void addSection(const JsonObject& definition, std::string_view section, Namespace& names);
    Namespace& namespaceOf(NameRole role);

    std::deque<DeclaredName> m_names;
    DeclaredName m_outputDelay;
    Namespace m_terminals;
    Namespace m_parameters;
    Namespace m_variables;
};

#endif
