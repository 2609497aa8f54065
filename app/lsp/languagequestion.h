#ifndef LANGUAGEQUESTION_H
#define LANGUAGEQUESTION_H

#include "lsp/textplace.h"

#include <QJsonValue>
#include <QString>
#include <QUrl>
#include <chrono>
#include <memory>

namespace Halvorin::LSP {
class LSPAbstractClient;
}

/// What is asked of a language server about a document.
struct LanguageQuestion
{
    enum class Kind
    {
        completion,
        hover,
        signature,
        diagnostics, ///< of the whole document
    };

    Kind kind = Kind::hover;
    QUrl document;
    QString text;
    ProtocolPlace place;
};

/// Starts the server's program, opens the document, asks, and gives the answer as the server's JSON: a
/// completion list or array of items, a hover, a signature help, an array of diagnostics, or null. Runs an
/// event loop meanwhile. The server has ended when this returns or throws.
/// @throws std::runtime_error when the server refuses, ends, or has not answered in time
QJsonValue askLanguageServer(std::unique_ptr<Halvorin::LSP::LSPAbstractClient> client,
                             const std::wstring& program, const LanguageQuestion& question,
                             std::chrono::milliseconds patience);

#endif
