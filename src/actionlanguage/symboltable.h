#ifndef SYMBOLTABLE_H
#define SYMBOLTABLE_H

#include "actionlanguage/tokens/diagnostic.h"
#include "actionlanguage/types/datatype.h"

#include <string>
#include <unordered_map>
#include <vector>

/// A declared variable.
struct VariableRecord
{
    std::string_view name;
    std::string id; ///< "v_0", "v_1", ...: one step a declaration, never used again
    DataType type = DataType::unknown;
    bool isConst = false;
    bool isInitialised = false;
    SourceSpan position;
};

/// The variables of one text, by scope. Names are views into the source.
class SymbolTable
{
public:
    void pushScope();

    /// Drops the innermost scope; what was never initialised in it goes on the unused list.
    void popScope();

    /// The record of a new variable, or null when its name is taken in the innermost scope.
    const VariableRecord* declare(std::string_view name, DataType type, bool isConst,
                                  const SourceSpan& position);

    /// The variable of a name, innermost scope first, or null.
    const VariableRecord* find(std::string_view name) const;

    void markInitialised(const std::string& id);
    void setConst(const std::string& id, bool isConst);

    /// Every variable ever declared, in order of declaration.
    const std::vector<VariableRecord>& declared() const { return m_records; }

    /// Indexes into declared() of those that left their scope without a value.
    const std::vector<std::size_t>& unused() const { return m_unused; }

private:
    struct Scope
    {
        std::vector<std::size_t> records;
        std::unordered_map<std::string_view, std::size_t> byName;
    };

    std::vector<VariableRecord> m_records;
    std::unordered_map<std::string, std::size_t> m_byId;
    std::vector<Scope> m_scopes;
    std::vector<std::size_t> m_unused;
};

#endif
