#include "highlight/colouredruns.h"
#include "highlight/tokenwriter.h"
#include "highlight/visibletext.h"

#include <algorithm>

namespace {

std::string escaped(const QString& text)
{
    return text.toHtmlEscaped().toStdString();
}

/// A class of the style sheet: "entity-name" for "entity.name".
std::string className(const ColourRule& rule)
{
    std::string name(rule.scope);
    std::ranges::replace(name, '.', '-');
    return name;
}

std::string styleSheet()
{
    std::string text = "body { background: #ffffff; color: #000000; }\n"
                       "pre { font-family: monospace; tab-size: 8; }\n";
    for (const ColourRule& rule : colourRules()) {
        if (rule.colour != ColourRule::plain)
            text += "." + className(rule) + " { color: #" + hexadecimalColour(rule.colour) +
                    (rule.bold ? "; font-weight: bold" : "") + "; }\n";
    }
    return text;
}

class HtmlWriter : public TokenWriter
{
public:
    using TokenWriter::TokenWriter;

    void start(const QString& title) override
    {
        put("<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"utf-8\">\n<title>" +
            escaped(withoutControls(title, QChar::ReplacementCharacter)) + "</title>\n<style>\n" +
            styleSheet() + "</style>\n</head>\n<body>\n<pre>\n"); // readers drop a new line behind <pre>
    }

    void line(const QString& text, const std::vector<Halvorin::TextMate::Token>& tokens) override
    {
        const QString shown = withoutControls(text, QChar::ReplacementCharacter);
        for (const ColouredRun& run : colouredRuns(tokens, shown.size(), m_scheme)) {
            const std::string piece = escaped(shown.mid(run.start, run.end - run.start));
            put(run.rule != nullptr ? "<span class=\"" + className(*run.rule) + "\">" + piece + "</span>"
                                    : piece);
        }
        put("\n");
    }

    void end() override { put("</pre>\n</body>\n</html>\n"); }

private:
    ColourScheme m_scheme;
};

} // namespace

std::unique_ptr<TokenWriter> makeHtmlWriter(TextSink sink)
{
    return std::make_unique<HtmlWriter>(std::move(sink));
}
