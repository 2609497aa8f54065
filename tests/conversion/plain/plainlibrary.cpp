#include "plainlibrary.h"

#include <QStringList>
#include <QTextStream>
#include <limits>

namespace {

QRegularExpression compiled(const QString& pattern, bool isMultiline = false)
{
    return QRegularExpression(pattern, isMultiline ? QRegularExpression::MultilineOption
                                                   : QRegularExpression::NoPatternOption);
}

QString named(const QRegularExpressionMatch& match, const char* group)
{
    return match.captured(QLatin1String(group));
}

} // namespace

PlainLibrary::PlainLibrary(bool isPython) : m_isPython(isPython)
{
    if (isPython)
        addDocstringRules();
    addBlockRules();
    addInlineRules();
}

QString PlainLibrary::convertToHtml(const QString& source)
{
    m_isGivenUp = false;
    QString html = blocks(source);
    if (!m_isPython || (!html.contains("<h3>") && !html.contains("<h4>")))
        return html;
    for (const char* other : {"<h1>", "<h2>", "<h5>", "<h6>"})
        if (html.contains(other))
            return html;
    return html.replace("<h3>", "<h1>")
        .replace("<h4>", "<h2>")
        .replace("</h3>", "</h1>")
        .replace("</h4>", "</h2>");
}

QRegularExpressionMatch PlainLibrary::run(const QRegularExpression& expression, const QString& text,
                                          int offset)
{
    const Match match = expression.match(text, offset);
    m_isGivenUp = m_isGivenUp || (!match.isValid() && offset <= text.size());
    return match;
}

std::vector<QRegularExpressionMatch> PlainLibrary::all(const QRegularExpression& expression,
                                                       const QString& text)
{
    std::vector<Match> matches;
    for (auto found = expression.globalMatch(text); found.hasNext();)
        matches.push_back(found.next());
    // an iteration ends without a word when the expression is given up
    run(expression, text, matches.empty() ? 0 : matches.back().capturedEnd(0));
    return matches;
}

const PlainLibrary::Rule* PlainLibrary::best(const Rules& rules, const QString& text, int offset,
                                             Match& match)
{
    const Rule* best = nullptr;
    for (const Rule& rule : rules) {
        const Match found = run(rule.expression, text, offset);
        if (found.hasMatch() && (best == nullptr || found.capturedStart(0) < match.capturedStart(0))) {
            best = &rule;
            match = found;
        }
    }
    return best;
}

QString PlainLibrary::blocks(const QString& source)
{
    QString result;
    for (QString rest = source; !rest.isEmpty();) {
        Match match;
        const Rule* rule = best(m_blockRules, rest, 0, match);
        if (rule == nullptr)
            break;
        int length = match.capturedLength(0);
        result += rule->convert(match, rest, length);
        if (m_isGivenUp || match.capturedStart(0) + length == 0)
            break;
        rest = rest.mid(match.capturedStart(0) + length);
    }
    return result;
}

QString PlainLibrary::inlined(const QString& source)
{
    QString text = source;
    for (int offset = 0; offset < text.size();) {
        Match match;
        const Rule* rule = best(m_inlineRules, text, offset, match);
        if (rule == nullptr)
            break;
        int length = match.capturedLength(0);
        const QString replacement = rule->convert(match, text, length);
        text.replace(match.capturedStart(0), length, replacement);
        offset = match.capturedStart(0) + replacement.size() + 1;
        if (offset < text.size() && text.at(offset).isLowSurrogate())
            ++offset;
    }
    return text;
}

QString PlainLibrary::withoutParagraphTags(const QString& text)
{
    static const QRegularExpression tags = compiled(R"(<p\h?.*?>((?:.|\R)*)<\/p>)", true);
    const Match match = run(tags, text);
    return match.hasMatch() ? match.captured(1) : text;
}

QString PlainLibrary::literalBlock(const Match& match)
{
    const QString pretext = named(match, "pretext");
    QString result;
    if (!pretext.isEmpty())
        result = "<p>" + inlined(pretext) + (pretext.endsWith(' ') ? "" : ":") + "</p>";
    result += "<pre class=\"rstLiteralBlock\">";
    for (const QString& line : named(match, "block").split('\n'))
        result += line.mid(match.capturedLength(QStringLiteral("indent"))) + "\n";
    result.chop(1);
    return result + "</pre>";
}

QString PlainLibrary::bulletList(const Match& match)
{
    const QString type = named(match, "type");
    const QRegularExpression item("^\\" + type + "\\s?(.*)");
    const QString style = type == "+" ? "plus" : type == "-" ? "minus" : "star";
    QString result = "<ul class=\"" + style + "\">";
    QString content = named(match, "content");
    QTextStream stream(&content, QIODevice::ReadOnly);
    while (!stream.atEnd()) {
        const QString line = stream.readLine();
        if (line.isEmpty())
            continue;
        const Match found = run(item, line);
        if (found.hasMatch()) {
            result += "<li>" + blocks(found.captured(1)) + "</li>";
            continue;
        }
        const qint64 behindFirst = stream.pos();
        QStringList others(line);
        while (!stream.atEnd()) {
            const QString other = stream.readLine();
            if (run(item, other).hasMatch()) {
                stream.seek(behindFirst);
                break;
            }
            others << other;
        }
        result += blocks(others.join(" "));
    }
    return result + "</ul>";
}

int PlainLibrary::romanValue(const QString& index)
{
    static const QRegularExpression numeral("^(?<xxxx>M{1,3})?(?<xxx>C{1,3}|CD|DC{0,3}|CM)?(?<xx>X{1,3}|XL|"
                                            "LX{0,3}|XC)?(?<x>I{1,3}|IV|VI{0,3}|IX)?$",
                                            QRegularExpression::CaseInsensitiveOption);
    const Match match = run(numeral, index);
    const auto digit = [](const QString& letters, const char* symbols) { // one, five, ten
        const QChar one = QLatin1Char(symbols[0]);
        const QString upper = letters.toUpper();
        if (upper == QString(one) + QLatin1Char(symbols[1]))
            return 4;
        if (upper == QString(one) + QLatin1Char(symbols[2]))
            return 9;
        return static_cast<int>(upper.count(one) + 5 * upper.count(QLatin1Char(symbols[1])));
    };
    return 1000 * named(match, "xxxx").size() + 100 * digit(named(match, "xxx"), "CDM") +
           10 * digit(named(match, "xx"), "XLC") + digit(named(match, "x"), "IVX");
}

QString PlainLibrary::enumeratedList(const Match& match, char kind, int style, bool isUpper)
{
    const QString inside = kind == 'N'   ? "\\d+"
                           : kind == 'R' ? (isUpper ? "[IVXLCDM]+" : "[ivxlcdm]+")
                                         : (isUpper ? "[A-Z]" : "[a-z]");
    const auto item = [style](const QString& index) {
        const QString marker = (style == 1 ? "\\(" : "") + index + (style == 0 ? "\\." : "\\)");
        return compiled("(?<indent>[^\\S\\r\\n]*)" + marker + R"(\h(?<content>.*(?:\R\k'indent'\h+.*)*))");
    };
    struct Group
    {
        qlonglong start;
        QStringList items;
    };
    std::vector<Group> groups;
    qlonglong previous = 0;
    for (const Match& row : all(item("(?<idx>" + inside + ")"), named(match, "xrows"))) {
        const QString index = named(row, "idx");
        const qlonglong value = kind == 'N'   ? index.toLongLong()
                                : kind == 'R' ? romanValue(index)
                                              : index.at(0).unicode();
        const bool isLast = kind == 'A' ? previous == 'Z' || previous == 'z'
                                        : kind == 'N' && previous == std::numeric_limits<qlonglong>::max();
        if (groups.empty() || isLast || value != previous + 1)
            groups.push_back({value, {}});
        groups.back().items << blocks(named(row, "content"));
        previous = value;
    }
    for (const Match& row : all(item("\\#"), named(match, "arows")))
        groups.back().items << blocks(named(row, "content"));

    const QString type = kind == 'N' ? "1" : kind == 'R' ? (isUpper ? "I" : "i") : (isUpper ? "A" : "a");
    QString result;
    for (const Group& group : groups) {
        result += "<ol type=\"" + type + "\"";
        if (group.start != (kind == 'A' ? type.at(0).unicode() : 1))
            result += " start=\"" +
                      (kind == 'A' ? QString(QChar(static_cast<ushort>(group.start)))
                                   : QString::number(group.start)) +
                      "\"";
        result += "><li>" + group.items.join("</li><li>") + "</li></ol>";
    }
    return result;
}

QString PlainLibrary::definitionList(const Match& match)
{
    static const QRegularExpression item =
        compiled(R"((?<def>.*\w.*)\R(?<content>(?<indent>\h+)\w.*(?:\R\k'indent'.*|\R\h+|\R|)*))");
    QString result = "<dl class=\"deflist\">";
    for (const Match& found : all(item, match.captured(0))) {
        const QString term = inlined(named(found, "def"));
        const int colon = term.indexOf(" : ");
        result += "<dt>" + (colon < 0 ? term
                                      : term.left(colon) + " : <span class=\"classifier\">" +
                                            term.mid(colon + 3) + "</span>");
        result += "</dt><dd>" + blocks(named(found, "content")) + "</dd>";
    }
    return result + "</dl>";
}

QString PlainLibrary::seeAlso(const Match& match)
{
    static const QRegularExpression item = compiled(
        R"(^(?<indent>\h*)(?<name>\w+[^\r\n:]*?)\h*:\h*(?<description>.*(?:\R\k'indent'\h+[^\r\n:]*)?))"
        R"(|(?<nameOnly>[^\r\n:]*|.*\:ref\:.*))",
        true);
    QString result = "<h4>See Also</h4><dl class=\"numpySeeAlso\">";
    for (const Match& found : all(item, named(match, "content"))) {
        const QString name = named(found, "name");
        const QString nameOnly = named(found, "nameOnly");
        if (!nameOnly.isEmpty())
            result += "<dt>" + inlined(nameOnly) + "</dt>";
        else if (!name.isEmpty())
            result += "<dt>" + inlined(name) + "</dt><dd>" + inlined(named(found, "description")) + "</dd>";
    }
    return result + "</dl>";
}

QString PlainLibrary::directive(const Match& match)
{
    const QString content = withoutParagraphTags(blocks(named(match, "content")));
    if (named(match, "name") != "versionchanged")
        return content;
    return "<div class=\"directive\"><div class=\"title\">Changed in version " +
           named(match, "value").trimmed() + ": </div><div class=\"content\">" + content + "</div></div>";
}
