#include "highlight/tokenwriter.h"

#include <array>

void TokenWriter::start(const QString& /*title*/) {}

void TokenWriter::end() {}

std::span<const TokenForm> tokenForms()
{
    static constexpr std::array<TokenForm, 3> forms{{
        {"ansi", makeAnsiWriter},
        {"html", makeHtmlWriter},
        {"json", makeJsonWriter},
    }};
    return forms;
}
