#ifndef TOKENWRITER_H
#define TOKENWRITER_H

#include "grammar/token.h"

#include <QString>
#include <functional>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

/// Takes text piece by piece.
using TextSink = std::function<void(std::string_view)>;

/// Words the tokens of a text, line by line. Nothing is kept: even of a line, each piece goes out at once.
class TokenWriter
{
public:
    explicit TokenWriter(TextSink sink) : m_sink(std::move(sink)) {}
    virtual ~TokenWriter() = default;
    TokenWriter(const TokenWriter&) = delete;
    TokenWriter& operator=(const TokenWriter&) = delete;

    /// What stands before the lines of a text called `title`.
    virtual void start(const QString& title);
    /// A line, given without its end, and the tokens that it and its end have.
    virtual void line(const QString& text, const std::vector<Halvorin::TextMate::Token>& tokens) = 0;
    /// What stands behind the lines.
    virtual void end();

protected:
    void put(std::string_view text) const { m_sink(text); }

private:
    TextSink m_sink;
};

/// Colours for a terminal.
std::unique_ptr<TokenWriter> makeAnsiWriter(TextSink sink);
/// A document of its own, for a browser.
std::unique_ptr<TokenWriter> makeHtmlWriter(TextSink sink);
/// The tokens as they are: an array of objects a line.
std::unique_ptr<TokenWriter> makeJsonWriter(TextSink sink);

struct TokenForm
{
    std::string_view name;
    std::unique_ptr<TokenWriter> (*makeWriter)(TextSink sink);
};

/// All forms, the usual one first.
std::span<const TokenForm> tokenForms();

#endif
