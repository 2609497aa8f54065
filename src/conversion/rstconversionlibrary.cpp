#include "conversion/rstconversionlibrary.h"

#include "conversion/core/regexconversionrule.h"
#include "conversion/paragraphtags.h"
#include "conversion/scanners/expressions.h"
#include "unicode/wholecharacters.h"

#include <optional>

namespace Halvorin::Text {

namespace {

QString wrapped(const char* before, const QStringRef& text, const char* behind)
{
    return QLatin1String(before) + text + QLatin1String(behind);
}

QString link(const QStringRef& address, const QStringRef& text)
{
    return QLatin1String("<a href=\"") + address + QLatin1String("\">") + text + QLatin1String("</a>");
}

} // namespace

RSTConversionLibrary::RSTConversionLibrary()
{
    initBodyElementRules();
    initInlineRules();
}

QString RSTConversionLibrary::convertToHTML(const QString& source) const
{
    return convertBlocks(wholeCharacters(source), 0);
}

QString RSTConversionLibrary::removeSurroundingParagraphTags(QString&& text) const
{
    return withoutSurroundingParagraphTags(std::move(text));
}

void RSTConversionLibrary::initBodyElementRules()
{
    using namespace Expressions;
    const auto add = [this](RuleExpression expression, auto convert) {
        addBlockRule(makeRule(std::move(expression), [convert](ConversionMatch& match) -> QString {
            return convert(capturesOf(match));
        }));
    };
    const auto heading = [this](const Captures& captures) {
        return convertHeading(captures.group(1), captures.group(0));
    };

    add(blankLine(), [](const Captures&) { return QString(); });
    add(gridTable(), [this](const Captures& captures) { return convertGridTable(captures); });
    add(simpleTable(), [this](const Captures& captures) { return convertSimpleTable(captures); });
    add(overlinedHeading(), heading);
    add(underlinedHeading(), heading);
    add(directive(), [this](const Captures& captures) { return convertDirectives(captures); });
    add(bulletList(), [this](const Captures& captures) { return convertBulletList(captures); });
    for (const Marker& marker : enumeratedMarkers) {
        add(enumeratedList(marker), [this, marker](const Captures& captures) {
            const auto style = marker.form;
            const QStringRef xrows = captures.group(0);
            const QStringRef arows = captures.group(1);
            switch (marker.kind) {
            case EnumeratedKind::numeric:
                return convertEnumeratedListNumeric(xrows, arows, style);
            case EnumeratedKind::romanNumeral:
                return convertEnumeratedListRomanNumeral(xrows, arows, style, marker.isUpperCase);
            case EnumeratedKind::alphabetic:
                break;
            }
            return convertEnumeratedListAlphabetic(xrows, arows, style, marker.isUpperCase);
        });
    }
    add(definitionList(), [this](const Captures& captures) { return convertDefinitionList(captures); });
    add(literalBlock(), [this](const Captures& captures) { return convertLiteralBlock(captures); });
    add(doctest(), [](const Captures& captures) {
        return wrapped("<div class=\"rstDoctest\"><pre>", captures.group(0), "</pre></div>");
    });

    const auto toParagraph = [this,
                              literal = PositionedExpression(paragraphLiteral())](ConversionMatch& match) {
        const Captures& captures = capturesOf(match);
        if (captures.group(0).endsWith(QLatin1String("::"))) { // what follows may be a literal block
            std::optional<SourceText> own;
            if (captures.text() == nullptr)
                own.emplace(match.source().mid(match.start()));
            SourceText& text = own ? *own : *captures.text();
            Hit hit;
            if (literal.matchHere(text, hit))
                return std::pair(convertLiteralBlock(Captures(text.rest(), hit)),
                                 static_cast<std::size_t>(hit.whole.length()));
        }
        return std::pair(QLatin1String("<p>") + convertInline(captures.whole(), 0) + QLatin1String("</p>"),
                         static_cast<std::size_t>(captures.hit().whole.length()));
    };
    addBlockRule(makeUpdaterRule(paragraph(), toParagraph));
}

void RSTConversionLibrary::initInlineRules()
{
    using namespace Expressions;
    const auto add = [this](RuleExpression expression, auto convert) {
        addInlineRule(makeRule(std::move(expression), [convert](ConversionMatch& match) -> QString {
            return convert(capturesOf(match));
        }));
    };
    add(emphasis(), [](const Captures& captures) {
        const QStringRef type = captures.group(0);
        const QStringRef content = captures.group(1);
        if (type.at(0) == QLatin1Char('*'))
            return type.size() == 2 ? wrapped("<b>", content, "</b>") : wrapped("<i>", content, "</i>");
        return type.size() == 2 ? wrapped("<span class=\"rstCode\">", content, "</span>")
                                : wrapped("<span class=\"rstInterpreted\">", content, "</span>");
    });
    add(escape(), [](const Captures& captures) { return captures.group(0).toString(); });
    add(linkWithText(), [](const Captures& captures) { return link(captures.group(1), captures.group(0)); });
    add(bareLink(), [](const Captures& captures) { return link(captures.whole(), captures.whole()); });
    add(crossReference(), [](const Captures&) { return QStringLiteral(" "); });
}

QString RSTConversionLibrary::convertHeading(const QStringRef& title, const QStringRef& type) const
{
    const int level = QStringLiteral("#*=-^\"").indexOf(type.at(0)) + 1;
    if (level == 0)
        return title.toString();
    return QStringLiteral("<h%1>").arg(level) + title + QStringLiteral("</h%1>").arg(level);
}

QString RSTConversionLibrary::convertLiteralBlock(const Captures& block) const
{
    const int indent = block.group(0).size();
    const QStringRef pretext = block.group(1);
    QString result;
    if (!pretext.isEmpty()) {
        result += QLatin1String("<p>") + convertInline(pretext, 0);
        if (!pretext.endsWith(QLatin1Char(' ')))
            result += QLatin1Char(':');
        result += QLatin1String("</p>");
    }
    result += QLatin1String("<pre class=\"rstLiteralBlock\">");
    const QStringRef rows = block.group(2);
    for (int start = 0; start <= rows.size();) {
        const int found = rows.indexOf(QLatin1Char('\n'), start);
        const int end = found < 0 ? rows.size() : found;
        result += rows.mid(start, end - start).mid(indent);
        result += QLatin1Char('\n');
        start = end + 1;
    }
    result.chop(1);
    return result += QLatin1String("</pre>");
}

QString RSTConversionLibrary::convertDirectives(const Captures& directive) const
{
    QString content = removeSurroundingParagraphTags(convertBlocks(directive.group(2), 0));
    if (directive.group(0) != QLatin1String("versionchanged"))
        return content;
    return QLatin1String("<div class=\"directive\"><div class=\"title\">Changed in version ") +
           directive.group(1).trimmed() + QLatin1String(": </div><div class=\"content\">") + content +
           QLatin1String("</div></div>");
}

} // namespace Halvorin::Text
