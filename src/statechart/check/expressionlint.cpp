#include "actionlanguage/analysis/constantfolding.h"
#include "actionlanguage/tokens/tokeniser.h"
#include "statechart/check/lints.h"
#include "statechart/text/engineeringnumber.h"
#include "statechart/text/format.h"

#include <algorithm>
#include <array>

namespace {

using Kind = SourceNodeKind;

bool isInteger(DataType type)
{
    return type == DataType::integer || type == DataType::integer64 || type == DataType::unsigned64;
}

/// The condition of a statement that has one.
const SourceNode* conditionOf(const SourceNode& node)
{
    switch (node.kind) {
    case Kind::ifStatement:
    case Kind::whileStatement:
        return &node.children.front();
    case Kind::doStatement:
        return &node.children.back();
    case Kind::forStatement: {
        const JsonValue* const form = node.form->asObject().find("cond");
        const auto condition =
            std::ranges::find_if(node.children, [&](const SourceNode& child) { return child.form == form; });
        return condition == node.children.end() ? nullptr : &*condition;
    }
    default:
        return nullptr;
    }
}

/// The divisor of an integer division, also of one that assigns.
const SourceNode* divisorOf(const SourceNode& node)
{
    static constexpr std::array<std::string_view, 4> divisions{"/", "%", "/=", "%="};
    if (node.kind != Kind::binary && node.kind != Kind::assignment)
        return nullptr;
    const SourceNode& divisor = node.children.back();
    const bool isDivision = std::ranges::find(divisions, node.text) != divisions.end();
    return isDivision && isInteger(node.type) && isInteger(divisor.type) ? &divisor : nullptr;
}

bool isNumber(std::string_view text)
{
    try {
        parseEngineeringNumber(text);
        return true;
    } catch (const std::runtime_error&) {
        return false;
    }
}

class ExpressionLint
{
public:
    ExpressionLint(const CheckedText& checked, const ConstantFolding& folding, FindingReport& report)
        : m_checked(checked), m_folding(folding), m_zeros(folding.zeroVariablesOf(checked.tree)),
          m_report(report)
    {}

    void lint()
    {
        if (m_checked.use == CheckedText::Use::condition)
            lintCondition(m_checked.tree);
        visitSourceTree(m_checked.tree, [&](const SourceNode& node) {
            if (const SourceNode* const condition = conditionOf(node))
                lintCondition(*condition);
            if (const SourceNode* const divisor = divisorOf(node))
                lintDivisor(node, *divisor);
            if (node.kind == Kind::call && node.text == "etod")
                lintNumber(node.children.front());
        });
        lintExponents();
    }

private:
    void lintCondition(const SourceNode& condition)
    {
        if (const std::optional<bool> truth = m_folding.truthOf(condition)) {
            add(FindingKind::constantCondition,
                *truth ? "this condition is always true" : "this condition is always false",
                condition.extent);
        }
    }

    void lintDivisor(const SourceNode& division, const SourceNode& divisor)
    {
        if (m_folding.isAlwaysZero(divisor, m_zeros)) {
            add(FindingKind::divisionByZero, formatText("'{}': the divisor is always zero", division.text),
                divisor.extent);
        }
    }

    void lintNumber(const SourceNode& argument)
    {
        if (argument.kind != Kind::literal || isNumber(argument.text))
            return;
        add(FindingKind::invalidNumber,
            formatText("'{}': invalid format for number conversion", argument.text), argument.token);
    }

    /// "1e-9" is the double "1e", a minus and the int 9.
    void lintExponents()
    {
        std::vector<Diagnostic> findings;
        const std::vector<Token> tokens = tokenise(m_checked.text->source, findings);
        for (std::size_t i = 0; i + 2 < tokens.size(); ++i) {
            const bool hasNoDigits = tokens[i].is(LiteralKind::real) &&
                                     (tokens[i].text().ends_with('e') || tokens[i].text().ends_with('E'));
            const bool isSigned =
                tokens[i + 1].is(PunctuatorId::minus) || tokens[i + 1].is(PunctuatorId::plus);
            const SourceSpan whole = joined(tokens[i].span(), tokens[i + 2].span());
            const bool isOneWord = whole.length == tokens[i].text().size() + 1 + tokens[i + 2].text().size();
            if (!hasNoDigits || !isSigned || !isOneWord || !tokens[i + 2].is(LiteralKind::integer))
                continue;
            add(FindingKind::splitExponent,
                formatText("'{}' is read as '{} {} {}': an exponent has no sign",
                           blamedText(m_checked.text->source, whole), tokens[i].text(), tokens[i + 1].text(),
                           tokens[i + 2].text()),
                whole);
        }
    }

    void add(FindingKind kind, std::string text, const SourceSpan& span)
    {
        m_report.addInText({kind, std::move(text)}, *m_checked.text, span);
    }

    const CheckedText& m_checked;
    const ConstantFolding& m_folding;
    VariableIds m_zeros;
    FindingReport& m_report;
};

} // namespace

void lintExpressions(const CheckedDefinition& checked, FindingReport& report)
{
    for (const CheckedText& text : checked.texts)
        ExpressionLint(text, checked.folding, report).lint();
}
