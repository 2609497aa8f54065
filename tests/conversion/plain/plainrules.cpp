#include "plainlibrary.h"

namespace {

QString element(const QString& tag, const QString& attribute, const QString& text)
{
    return "<" + tag + " " + attribute + ">" + text + "</" + tag + ">";
}

QString whole(const QRegularExpressionMatch& match)
{
    return match.captured(0);
}

QString link(const QString& address, const QString& text)
{
    return element("a", "href=\"" + address + "\"", text);
}

QString heading(const QRegularExpressionMatch& match)
{
    const QString level =
        QString::number(QStringLiteral("#*=-^\"").indexOf(match.captured("type").at(0)) + 1);
    return "<h" + level + ">" + match.captured("title") + "</h" + level + ">";
}

} // namespace

void PlainLibrary::add(Rules& rules, const QString& pattern, bool isMultiline,
                       std::function<QString(const Match&)> convert)
{
    const auto options =
        isMultiline ? QRegularExpression::MultilineOption : QRegularExpression::NoPatternOption;
    rules.push_back({QRegularExpression(pattern, options),
                     [convert = std::move(convert)](const Match& match, const QString&, int&) {
                         return convert(match);
                     }});
}

void PlainLibrary::addDocstringRules()
{
    const auto addSymbol = [this](const char* pattern, const char* type) {
        add(m_blockRules, pattern, false, [type](const Match& match) {
            const int group = match.capturedStart(QStringLiteral("content")) >= 0 ? 1 : 0;
            return QString("<div class=\"") + type + "\"><pre>" + match.captured(group) +
                   "</pre></div><hr />";
        });
    };
    addSymbol(R"(^(?<content>\(function\)\s+(?:def\s+\w+.*\((?:.*\R)*?.*\)\h*->.*\s*)+)(?:\R\s*\R|\R$|\z))",
              "pyLspFuncDef");
    addSymbol(R"(^(?<content>(?:def\s+\w+.*\((?:.*\R)*?.*\)\h*->.*\s*)+)(?:\R\s*\R|\R$|\z))", "pyLspFuncDef");
    addSymbol(R"(^\(module\) \w\S*)", "pyLspModule");
    addSymbol(R"(^\(parameter\).*)", "pyLspParameter");
    addSymbol(R"(^\(class\).*)", "pyLspClass");
    addSymbol(R"(^\(variable\).*)", "pyLspVariable");
    // the last line may be ended by the end of the text
    add(m_blockRules, R"(See Also\h*\R\h*--------+\h*\R(?<content>(?:.*\R(?!\h*-+\h*))*(?:.+\z)?))", false,
        [this](const Match& match) { return seeAlso(match); });
}

void PlainLibrary::addBlockRules()
{
    add(m_blockRules, R"(^\h*\R)", false, [](const Match&) { return QString(); });
    add(m_blockRules,
        R"((?<indent>[^\S\r\n]*)\+-+(?:\+-+)*\+[^\S\r\n]*(?:\R.*)*?\R\k'indent'\+-+(?:\+-+)*\+[^\S\r\n]*)"
        R"((?:\R\h+$|\R$|\z))",
        true, [this](const Match& match) { return gridTable(match); });
    add(m_blockRules,
        R"(\s*\K(?<border>\=+(?:\h+\=+)+(?:\h+|))(?:\R(?<header>.*\w.*(?:\R.*?)*)\k'border')?)"
        R"((?:\R(?<content>.*\w.*(?:\R.*?)*)\k'border')(?=\R\h+$|\R$|\z))",
        true, [this](const Match& match) { return simpleTable(match); });
    add(m_blockRules, R"#((?<type>#|\*|=|-|\^|")\k'type'*[^\S\r\n]*\R(?<title>.*)\R\k'type'+$)#", true,
        heading);
    add(m_blockRules, R"#((?<title>.*\w+.*)\R(?:(?<type>#|\*|=|-|\^|")\k'type'*[^\S\r\n]*$))#", true,
        heading);
    add(m_blockRules,
        R"(^(?<initialIndent>[^\S\r\n]*)\.\. (?<name>\w+):: (?<value>.*\R)?)"
        R"((?<content>(?:^\k<initialIndent>[^\S\r\n]+.*\R?)*))",
        true, [this](const Match& match) { return directive(match); });
    add(m_blockRules,
        R"((?:\A|^[^\S\r\n]*$\R)\K(?<content>(?<type>[*+-])\h.*(?:\R(?:\k'type'\h.*|\h+$|))*))"
        R"((?=\R[^\S\r\n]*$|\z))",
        true, [this](const Match& match) { return bulletList(match); });
    addEnumeratedRules();
    add(m_blockRules,
        R"((?<indent>^(?:\h+|))\w.*(\R\k'indent'(\h+)\w.*(?:\R\k'indent'\3.*|\R\h+$|\R$)*))"
        R"((?:\R\k'indent'\w.*\g'2')*(?=\R\h+$|\R$|))",
        true, [this](const Match& match) { return definitionList(match); });
    add(m_blockRules,
        R"(^(?<indent>\h*)(?<pretext>.*)::\h*\R(?<block>(?:\R(?:\k'indent'\h+.*|\h*))+)(?:\R\h*(?:\R|$)|$))",
        false, [this](const Match& match) { return literalBlock(match); });
    // "[^\S\n]*+\S.*" ends where ".*\S.*" does, which may need exponentially many steps
    add(m_blockRules, R"((?<content>>>>.*(?:\R[^\S\n]*+\S.*)*)(?:\R\s*\R|\R$|$))", false,
        [](const Match& match) {
            return "<div class=\"rstDoctest\"><pre>" + match.captured("content") + "</pre></div>";
        });
    m_blockRules.push_back({QRegularExpression(R"(^(?<content>.*\S.*(?:\R.*\S.*)*)(?:\R\h*(?:\R|$)|$))"),
                            [this](const Match& match, const QString& rest, int& length) {
                                return paragraph(match, rest, length);
                            }});
}

QString PlainLibrary::paragraph(const Match& match, const QString& rest, int& length)
{
    static const QRegularExpression withLiteral(
        R"(^(?<indent>\h*)(?<pretext>\S[\S\s]*)::\h*\R(\h*\R)+(?<block>\k'indent'\h.*)"
        R"((?:\R(?:\k'indent'\h.*|\h*))*)(?:\R\h*(?:\R|$)|$))");
    if (match.captured("content").endsWith("::")) {
        const Match literal = run(withLiteral, rest.mid(match.capturedStart(0)));
        if (literal.hasMatch()) {
            length = literal.capturedEnd(0);
            return literalBlock(literal);
        }
    }
    return "<p>" + inlined(match.captured(0)) + "</p>";
}

void PlainLibrary::addEnumeratedRules()
{
    struct Row
    {
        char kind; // N(umeric), R(oman), A(lphabetic)
        int style; // 0 "1.", 1 "(1)", 2 "1)"
        bool isUpper;
        const char* item;
        const char* automatic;
        const char* one;
    };
    static constexpr Row rows[] = {
        {'N', 0, false, R"(\d+\.)", R"(\#\.)", nullptr},
        {'N', 2, false, R"(\d+\))", R"(\#\))", nullptr},
        {'N', 1, false, R"(\(\d+\))", R"(\(\#\))", nullptr},
        {'R', 0, true, R"([IVXLCDM]+\.)", R"(\#\.)", R"(I\.)"},
        {'R', 0, false, R"([ivxlcdm]+\.)", R"(\#\.)", R"(i\.)"},
        {'R', 2, true, R"([IVXLCDM]+\))", R"(\#\))", R"(I\))"},
        {'R', 2, false, R"([ivxlcdm]+\))", R"(\#\))", R"(i\))"},
        {'R', 1, true, R"(\([IVXLCDM]+\))", R"(\(\#\))", R"(\(I\))"},
        {'R', 1, false, R"(\([ivxlcdm]+\))", R"(\(\#\))", R"(\(i\))"},
        {'A', 0, true, R"([A-Z]\.)", R"(\#\.)", nullptr},
        {'A', 0, false, R"([a-z]\.)", R"(\#\.)", nullptr},
        {'A', 2, true, R"([A-Z]\))", R"(\#\))", nullptr},
        {'A', 2, false, R"([a-z]\))", R"(\#\))", nullptr},
        {'A', 1, true, R"(\([A-Z]\))", R"(\(\#\))", nullptr},
        {'A', 1, false, R"(\([a-z]\))", R"(\(\#\))", nullptr},
    };
    for (const Row& row : rows) {
        const QString behind = R"((?=(?:\R(?:\k'indent'(?:\g'xrow'|\g'arow'|\h.*)|\h+$|$))|\z))";
        const QString first = row.one == nullptr ? R"(\g'xrow')" : row.one + QString(R"(\h.*)") + behind;
        const QString pattern = QString(R"(^(?<xrows>(?<indent>[^\S\r\n]*)(?(DEFINE)(?'arow')") +
                                row.automatic + R"(\h.*))(?(DEFINE)(?'xrow')" + row.item + R"(\h.*)" +
                                behind + "))" + first +
                                R"((?:\R\k'indent'(?:\g'xrow'|\h+.*|$))*))"
                                R"((?<arows>(?:\R\k'indent'(?:\g'arow'|\h+.*|$))*))";
        add(m_blockRules, pattern, true, [this, row](const Match& match) {
            return enumeratedList(match, row.kind, row.style, row.isUpper);
        });
    }
}

void PlainLibrary::addInlineRules()
{
    add(m_inlineRules,
        R"rx((?<=^|[-:\/'"<([{\s])(?<type>\*\*|\*|\`\`|\`)(?<content>[^\s\\]|\S.*?[^\s\\])\k'type')rx"
        R"rx((?=$|[-.,:;!?\\\/'")\]}>\s]))rx",
        false, [](const Match& match) {
            const QString type = match.captured("type");
            const QString content = match.captured("content");
            if (type.startsWith('*'))
                return type == "**" ? "<b>" + content + "</b>" : "<i>" + content + "</i>";
            return element("span", type == "``" ? "class=\"rstCode\"" : "class=\"rstInterpreted\"", content);
        });
    add(m_inlineRules, R"(\\(.))", false, [](const Match& match) { return match.captured(1); });
    add(m_inlineRules, R"(\`(?<text>.*?)\h?\<(?<url>https:\/\/\S+)\>\`_)", false,
        [](const Match& match) { return link(match.captured("url"), match.captured("text")); });
    add(m_inlineRules, R"(https:\/\/\S+)", false,
        [](const Match& match) { return link(whole(match), whole(match)); });
    add(m_inlineRules, R"(:ref:`.*?`)", false, [](const Match&) { return QString(" "); });
}
