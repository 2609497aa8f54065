// What a language server sends: the first byte says in what pieces the rest arrives. Every document that
// comes out is read as each result that it could be, and each part of it that the client looks at.

#include "HalvCore/application.h"
#include "languageclient/lspworkspacesettings.h"
#include "languageclient/records/typedmessages.h"
#include "languageclient/requestmonitors.h"
#include "languageclient/transport/framereader.h"
#include "languageclient/triggerkeys.h"
#include "support/qtcore/chunkeddevice.h"

#include <QDateTime>
#include <QJsonDocument>
#include <algorithm>
#include <cstdint>

using namespace Halvorin::LSP;

namespace {

template <class... Results>
void read(const LSPResponseMessage& response)
{
    try {
        readResult<Results...>(response);
    } catch (const std::runtime_error&) {
    }
}

void readEverything(const QJsonObject& message)
{
    const LSPResponseMessage response(message);
    read<LSPInitializeResult>(response);
    read<Nothing>(response);
    read<Nothing, LSPCompletionList, std::vector<LSPCompletionItem>>(response);
    read<LSPCompletionItem>(response);
    read<Nothing, std::vector<LSPSymbolInformation>, std::vector<LSPDocumentSymbol>>(response);
    read<Nothing, LSPHover>(response);
    read<Nothing, LSPSemanticTokens>(response);
    read<Nothing, LSPSignatureHelp>(response);

    const LSPServerCapabilities capabilities(message);
    for (const auto capability : LSPServerCapabilities::allCapabilities())
        capabilities.supports(capability);
    if (const auto completion = capabilities.completionProvider())
        triggerKeys(completion->triggerCharacters().value_or(std::vector<QString>()));

    for (const LSPDiagnostic& diagnostic :
         LSPPublishDiagnosticsNotification(message).diagnosticsParams().diagnostics().value_or(
             std::vector<LSPDiagnostic>()))
        diagnostic.range().start().line();
    LSPWorkspaceSettings settings;
    for (const LSPConfigurationItem& item :
         LSPConfigurationRequest(message).configurationParams().items().value_or(
             std::vector<LSPConfigurationItem>()))
        settings.value(item.section().value_or(QString()));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    [[maybe_unused]] static const bool quiet = [] {
        Halvorin::System::Application::instance().logger().setOutput([](std::string_view) {});
        return true;
    }();
    if (size == 0)
        return 0;
    const int piece = data[0] + 1;
    const QByteArray bytes(reinterpret_cast<const char*>(data) + 1, static_cast<int>(size) - 1);
    ChunkedDevice device;
    new FrameReader(
        device, [](const QJsonDocument& document, const QDateTime&) { readEverything(document.object()); });
    for (int position = 0; position < bytes.size(); position += piece)
        device.feed(bytes.mid(position, piece));
    return 0;
}
