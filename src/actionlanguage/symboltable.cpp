#include "actionlanguage/symboltable.h"

#include "statechart/text/format.h"

void SymbolTable::pushScope()
{
    m_scopes.emplace_back();
}

void SymbolTable::popScope()
{
    for (const std::size_t index : m_scopes.back().records)
        if (!m_records[index].isInitialised)
            m_unused.push_back(index);
    m_scopes.pop_back();
}

const VariableRecord* SymbolTable::declare(std::string_view name, DataType type, bool isConst,
                                           const SourceSpan& position)
{
    const std::size_t index = m_records.size();
    Scope& scope = m_scopes.back();
    if (!scope.byName.emplace(name, index).second)
        return nullptr;
    scope.records.push_back(index);
    m_records.push_back({name, formatText("v_{}", index), type, isConst, false, position});
    m_byId.emplace(m_records.back().id, index);
    return &m_records.back();
}

const VariableRecord* SymbolTable::find(std::string_view name) const
{
    for (auto scope = m_scopes.rbegin(); scope != m_scopes.rend(); ++scope)
        if (const auto found = scope->byName.find(name); found != scope->byName.end())
            return &m_records[found->second];
    return nullptr;
}

void SymbolTable::markInitialised(const std::string& id)
{
    m_records[m_byId.at(id)].isInitialised = true;
}

void SymbolTable::setConst(const std::string& id, bool isConst)
{
    m_records[m_byId.at(id)].isConst = isConst;
}
