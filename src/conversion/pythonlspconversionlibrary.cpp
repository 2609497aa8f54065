#include "conversion/pythonlspconversionlibrary.h"

#include "conversion/core/regexconversionrule.h"
#include "conversion/scanners/expressions.h"
#include "conversion/scanners/seealsoitems.h"

#include <algorithm>
#include <array>

namespace Halvorin::Text {

PythonLSPConversionLibrary::PythonLSPConversionLibrary()
{
    initAdditionalRules();
}

QString PythonLSPConversionLibrary::convertToHTML(const QString& source) const
{
    QString html = RSTConversionLibrary::convertToHTML(source);
    const auto has = [&html](const char* tag) { return html.contains(QLatin1String(tag)); };
    if (!has("<h3>") && !has("<h4>"))
        return html;
    if (std::ranges::any_of(std::array{"<h1>", "<h2>", "<h5>", "<h6>"}, has))
        return html;
    html.replace(QLatin1String("<h3>"), QLatin1String("<h1>"));
    html.replace(QLatin1String("<h4>"), QLatin1String("<h2>"));
    html.replace(QLatin1String("</h3>"), QLatin1String("</h1>"));
    html.replace(QLatin1String("</h4>"), QLatin1String("</h2>"));
    return html;
}

void PythonLSPConversionLibrary::initAdditionalRules()
{
    using namespace Expressions;
    std::vector<ConversionRule> rules;
    const auto addCode = [&rules](RuleExpression expression, const char* htmlClass, bool isWhole) {
        rules.push_back(
            makeRule(std::move(expression), [htmlClass, isWhole](ConversionMatch& match) -> QString {
                const Captures& captures = capturesOf(match);
                return QLatin1String("<div class=\"") + QLatin1String(htmlClass) + QLatin1String("\"><pre>") +
                       (isWhole ? captures.whole() : captures.group(0)) + QLatin1String("</pre></div><hr />");
            }));
    };
    addCode(labelledFunction(), "pyLspFuncDef", false);
    addCode(function(), "pyLspFuncDef", false);
    addCode(module(), "pyLspModule", true);
    addCode(parameter(), "pyLspParameter", true);
    addCode(classLabel(), "pyLspClass", true);
    addCode(variable(), "pyLspVariable", true);
    rules.push_back(makeRule(seeAlso(), [this](ConversionMatch& match) -> QString {
        return convertSeeAlso(capturesOf(match).group(0));
    }));
    prependBlockRules(std::move(rules));
}

QString PythonLSPConversionLibrary::convertSeeAlso(const QStringRef& content) const
{
    QString result = QStringLiteral("<h4>See Also</h4><dl class=\"numpySeeAlso\">");
    for (const Hit& hit : findSeeAlsoItems(SourceText(content))) {
        const Captures item(content, hit);
        result += QLatin1String("<dt>") + convertInline(item.group(0), 0) + QLatin1String("</dt>");
        if (!item.group(1).isNull())
            result += QLatin1String("<dd>") + convertInline(item.group(1), 0) + QLatin1String("</dd>");
    }
    return result += QLatin1String("</dl>");
}

} // namespace Halvorin::Text
