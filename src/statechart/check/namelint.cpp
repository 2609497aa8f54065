#include "actionlanguage/tokens/compilationexception.h"
#include "actionlanguage/tokens/tokeniser.h"
#include "statechart/check/declaredname.h"
#include "statechart/check/lints.h"
#include "statechart/check/namehints.h"
#include "statechart/check/namingfunction.h"
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
                useNamesIn(failure.text->source);
        }
        reportUnused();
    }

private:
    /// What a text that does not compile would do with a name is not known: any string may be one.
    void useNamesIn(std::string_view source)
    {
        try {
            std::vector<Diagnostic> findings;
            for (const Token& token : tokenise(source, findings)) {
                if (token.is(LiteralKind::string) && token.text().size() >= 2)
                    m_names.useEverywhere(token.text().substr(1, token.text().size() - 2));
            }
        } catch (const TokeniserAllocationFailure&) {
            m_names.useAll();
        }
    }

    void lintCall(const NamingFunction& function, const SourceNode& call)
    {
        const SourceNode& argument = call.children.front();
        if (argument.kind != SourceNodeKind::literal) {
            m_names.useAny(function.role); // a computed name may be each of them
            return;
        }
        DeclaredName* const name = m_names.find(argument.text, function.role);
        if (name == nullptr) {
            m_report.addInText(undeclared(argument.text, function.role), *m_text, argument.token);
            return;
        }
        name->isUsed = true;
        if (!fits(name->kind, function.role)) {
            const FindingReport::Words words{FindingKind::wrongKind,
                                             formatText("'{}' is {}; '{}' takes {}", name->identifier,
                                                        describe(name->kind), function.name,
                                                        describe(function.role))};
            m_report.addInText(words, *m_text, argument.token);
            return;
        }
        if (drives(function.role))
            name->isDriven = true;
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

    void lintType(const NamingFunction& function, const DeclaredName& name, const SourceNode& call)
    {
        const DataType used = function.setsVariable ? call.children.back().type : function.type;
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
        const SourceNode& index = call.children[1];
        const bool isNumber = index.kind == SourceNodeKind::literal && index.form->isInt();
        if (!isNumber || index.form->asInt() < *name.width)
            return;
        const FindingReport::Words words{FindingKind::indexOutOfRange,
                                         formatText("'{}' has no pin {}: it is {} wide", name.identifier,
                                                    index.form->asInt(), *name.width)};
        m_report.addInText(words, *m_text, index.extent);
    }

    void reportUnused()
    {
        const bool reactsToAnyInput = hasChangeThatNamesNoInput();
        for (const DeclaredName& name : m_names.all()) {
            const bool isInput = name.kind == NameKind::inputPin || name.kind == NameKind::inputBus;
            const bool isOutput = name.kind == NameKind::outputPin || name.kind == NameKind::outputBus;
            if (isOutput && !name.isDriven) {
                m_report.addAtKey({FindingKind::undrivenOutput,
                                   formatText("'{}': no action drives this output", name.identifier)},
                                  name.path);
            } else if (!isOutput && !name.isUsed && !(isInput && reactsToAnyInput)) {
                m_report.addAtKey({FindingKind::unusedDeclaration,
                                   formatText("'{}': no action uses this {}", name.identifier,
                                              isInput ? "input" : describeSection(name.kind))},
                                  name.path);
            }
        }
    }

    /// A "change" that asks for no pin or bus happens with every input: then none of them is without use.
    bool hasChangeThatNamesNoInput() const
    {
        return std::ranges::any_of(m_checked.chart.transitions(), [](const ChartTransition& transition) {
            return transition.hasEvent("change") &&
                   std::ranges::none_of(transition.conditions,
                                        [](const CheckedText* text) { return readsTerminal(text->tree); });
        });
    }

    static bool readsTerminal(const SourceNode& condition)
    {
        bool result = false;
        visitSourceTree(condition, [&](const SourceNode& node) {
            const NamingFunction* const function =
                node.kind == SourceNodeKind::call ? namingFunctionOf(node.text) : nullptr;
            result = result || (function != nullptr && isTerminal(function->role));
        });
        return result;
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
