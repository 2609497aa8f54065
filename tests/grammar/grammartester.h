#ifndef GRAMMARTESTER_H
#define GRAMMARTESTER_H

#include "grammar/grammar.h"
#include "grammar/grammarprocessor.h"
#include "grammar/jsongrammarreader.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <gtest/gtest.h>
#include <string>
#include <vector>

/// A grammar from the inside of a JSON object, for instance R"("patterns": [...])". Its scope is "root".
inline std::shared_ptr<const Halvorin::TextMate::Grammar> grammarOf(const std::string& members)
{
    QJsonParseError error;
    const auto document = QJsonDocument::fromJson(
        QByteArray::fromStdString(R"({"scopeName": "root", )" + members + "}"), &error);
    EXPECT_EQ(error.error, QJsonParseError::NoError) << members;
    return std::make_shared<const Halvorin::TextMate::Grammar>(
        Halvorin::TextMate::readJsonGrammar(document.object()));
}

/// A token as "start+length scope scope".
inline std::string tokenText(const Halvorin::TextMate::Token& token)
{
    return std::to_string(token.start) + "+" + std::to_string(token.length) + " " +
           token.scopes.join(QLatin1Char(' ')).toStdString();
}

using Texts = std::vector<std::string>;

/// Tokenises lines one after the other; each gives its tokens.
class Tokeniser
{
public:
    explicit Tokeniser(const std::string& members) : m_processor(grammarOf(members)) {}

    Texts operator()(const char* line)
    {
        Halvorin::TextMate::TokenList list = m_processor.tokenise(QString::fromUtf8(line), m_continuation);
        m_continuation = list.takeContinuation();
        Texts texts;
        for (const Halvorin::TextMate::Token& token : list.tokens())
            texts.push_back(tokenText(token));
        return texts;
    }

    bool isOpen() const { return m_continuation != nullptr; }
    const Halvorin::TextMate::Continuation& continuation() const { return m_continuation; }

private:
    Halvorin::TextMate::GrammarProcessor m_processor;
    Halvorin::TextMate::Continuation m_continuation;
};

#endif
