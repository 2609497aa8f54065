#include "highlight/colouredruns.h"
#include "highlight/tokenwriter.h"
#include "highlight/visibletext.h"

namespace {

constexpr auto reset = "\x1b[0m";

std::string colourSequence(const ColourRule& rule)
{
    return std::string("\x1b[") + (rule.bold ? "1;" : "") + "38;5;" + std::to_string(rule.colour) + "m";
}

/// Each run sets its colour and resets it: a line can be cut out of the text.
class AnsiWriter : public TokenWriter
{
public:
    using TokenWriter::TokenWriter;

    void line(const QString& text, const std::vector<Halvorin::TextMate::Token>& tokens) override
    {
        const QString shown = withoutControls(text, QLatin1Char('?'));
        for (const ColouredRun& run : colouredRuns(tokens, shown.size(), m_scheme)) {
            const std::string piece = shown.mid(run.start, run.end - run.start).toStdString();
            put(run.rule != nullptr ? colourSequence(*run.rule) + piece + reset : piece);
        }
        put("\n");
    }

private:
    ColourScheme m_scheme;
};

} // namespace

std::unique_ptr<TokenWriter> makeAnsiWriter(TextSink sink)
{
    return std::make_unique<AnsiWriter>(std::move(sink));
}
