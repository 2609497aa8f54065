#include "actionlanguage/analysis/constantfolding.h"
#include "statechart/check/declaredname.h"
#include "statechart/check/lints.h"
#include "statechart/check/namehints.h"
#include "statechart/check/namingfunction.h"
#include "statechart/check/unreadactions.h"
#include "statechart/check/unreadnames.h"
#include "statechart/text/format.h"

#include <algorithm>

namespace {

/// Looks at every call that names something of the device.
class NameLint
{
public:
    NameLint(const CheckedDefinition& checked, FindingReport& report)
        : m_checked(checked), m_names(checked.definition), m_report(report)
    {}

    void lint()
    {
        for (const CheckedText& text : m_checked.texts) {
            m_text = text.text;
            visitSourceTree(text.tree, [&](const SourceNode& node) {
                const NamingFunction* const function =
                    node.kind == SourceNodeKind::call ? namingFunctionOf(node.text) : nullptr;
                if (function != nullptr && !node.children.empty())
                    lintCall(*function, node);
            });
        }
        for (const CompileRecord::Failure& failure : m_checked.failures) {
            if (failure.text)
                useNamesIn(failure.text->source, m_names);
        }
        useNamesInUnreadStates(m_checked.chart, m_names);
        if (hasUnreadableActions(m_checked))
            m_names.useAll();
        reportUnused();
    }

private:
    void lintCall(const NamingFunction& function, const SourceNode& call)
    {
        const SourceNode& argument = call.children.front();
        if (argument.kind != SourceNodeKind::literal) {
            m_names.useAny(function.role); // a computed name may be each of them
            return;
        }
        DeclaredName* const name = m_names.find(argument.text, function.role);
        if (name == nullptr) {
            if (m_names.isComplete(function.role))
                m_report.addInText(undeclared(argument.text, function.role), *m_text, argument.token);
            return;
        }
        name->isUsed = true;
        name->isDriven = name->isDriven || drives(function.role); // or was meant to be, the wrong way
        if (!fits(name->kind, function.role)) {
            const FindingReport::Words words{FindingKind::wrongKind,
                                             formatText("'{}' is {}; '{}' takes {}", name->identifier,
                                                        describe(name->kind), function.name,
                                                        describe(function.role))};
            m_report.addInText(words, *m_text, argument.token);
            return;
        }
        lintType(function, *name, call);
        lintIndex(function, *name, call);
    }

    FindingReport::Words undeclared(std::string_view identifier, NameRole role)
    {
        const std::vector<std::string_view> candidates = m_names.fitting(role);
        return {FindingKind::undeclaredName,
                formatText("'{}': undeclared {} name{}", identifier, sectionWord(role),
                           m_hints.hintFor(identifier, candidates))};
    }

    /// The type that a call takes the named thing to have.
    static DataType usedType(const NamingFunction& function, const SourceNode& call)
    {
        if (function.setsVariable)
            return call.children.back().type;
        if (!function.writesBus || call.children.size() < 2)
            return function.type;
        const DataType written = call.children[1].type; // an int fits every bus
        return written == DataType::integer ? DataType::unknown : written;
    }

    void lintType(const NamingFunction& function, const DeclaredName& name, const SourceNode& call)
    {
        const DataType used = usedType(function, call);
        if (used == DataType::unknown || !name.type || name.type == used)
            return;
        const FindingReport::Words words{FindingKind::wrongType,
                                         formatText("'{}' is of type '{}', not '{}'", name.identifier,
                                                    typeName(*name.type), typeName(used))};
        m_report.addInText(words, *m_text, call.children.front().token);
    }

    void lintIndex(const NamingFunction& function, const DeclaredName& name, const SourceNode& call)
    {
        if (!function.hasIndex || !name.width || call.children.size() < 2)
            return;
        const std::optional<std::int32_t> index = m_checked.folding.intOf(call.children[1]);
        if (!index || (*index >= 0 && *index < *name.width))
            return;
        const FindingReport::Words words{
            FindingKind::indexOutOfRange,
            formatText("'{}' has no pin {}: it is {} wide", name.identifier, *index, *name.width)};
        m_report.addInText(words, *m_text, call.children[1].extent);
    }

    void reportUnused()
    {
        const bool reactsToAnyInput = hasChangeOfAnyInput();
        for (const DeclaredName& name : m_names.all()) {
            if (name.isBroken)
                continue;
            if (isOutput(name.kind) && !name.isDriven) {
                m_report.addAtKey({FindingKind::undrivenOutput,
                                   formatText("'{}': no action drives this output", name.identifier)},
                                  name.path);
            } else if (!isOutput(name.kind) && !name.isUsed && !(isInput(name.kind) && reactsToAnyInput)) {
                m_report.addAtKey(
                    {FindingKind::unusedDeclaration,
                     formatText("'{}': no action uses this {}", name.identifier, describeSection(name.kind))},
                    name.path);
            }
        }
    }

    /// A "change" happens with every input. Unless its conditions ask for the edge of one, the others count,
    /// too, whatever levels they ask for.
    bool hasChangeOfAnyInput() const
    {
        return std::ranges::any_of(m_checked.chart.transitions(), [](const ChartTransition& transition) {
            return transition.hasEvent("change") &&
                   std::ranges::none_of(transition.conditions,
                                        [](const CheckedText* text) { return asksForEdge(text->tree); });
        });
    }

    /// Whether a condition can only hold at the edge of some pin.
    static bool asksForEdge(const SourceNode& condition)
    {
        if (condition.isOperator("&&"))
            return asksForEdge(condition.children.front()) || asksForEdge(condition.children.back());
        if (condition.isOperator("||"))
            return asksForEdge(condition.children.front()) && asksForEdge(condition.children.back());
        const NamingFunction* const function =
            condition.kind == SourceNodeKind::call ? namingFunctionOf(condition.text) : nullptr;
        return function != nullptr && function->role == NameRole::eventPin;
    }

    const CheckedDefinition& m_checked;
    DeclaredNames m_names;
    FindingReport& m_report;
    NameHints m_hints;
    const ActionText* m_text = nullptr;
};

} // namespace

void lintNames(const CheckedDefinition& checked, FindingReport& report)
{
    NameLint(checked, report).lint();
}
