#include "benchclient.h"

#include <QJsonDocument>
#include <benchmark/benchmark.h>

// A question and its answer, when the server takes no time of its own.

using namespace Halvorin::LSP;

namespace {

/// A list of completions as a server gives it for a module.
std::string completions()
{
    std::string list = R"({"isIncomplete":false,"items":[)";
    for (int number = 0; number < 60; ++number) {
        list += number == 0 ? "" : ",";
        list += R"({"label":"name)" + std::to_string(number) +
                R"(","kind":3,"sortText":"09.9999.name","data":{"uri":"file:///a.py","position":1}})";
    }
    return list + "]}";
}

/// Answers every request with the completions.
void answer(FrameSocket& socket)
{
    const std::string result = completions();
    for (std::string_view body = socket.read(); !body.empty(); body = socket.read())
        socket.write(frameOf(R"({"jsonrpc":"2.0","id":)" + std::to_string(idOf(body)) +
                             ",\"result\":" + result + "}"));
}

LSPCompletionParams place()
{
    return LSPCompletionParams(LSPTextDocumentIdentifier(QUrl(QStringLiteral("file:///a.py"))),
                               LSPPosition(3, 7));
}

void completeWithClient(benchmark::State& state)
{
    const BenchClient client(answer);
    for (auto _ : state) {
        LSPCompletionMonitor* const monitor = client->completion(place());
        runUntil([monitor] { return monitor->response().has_value(); });
        benchmark::DoNotOptimize(monitor->result());
        delete monitor;
    }
}
BENCHMARK(completeWithClient)->Name("completion round trip/halvorin")->UseRealTime();

void completeBare(benchmark::State& state, bool parses)
{
    BareClient client(answer);
    const LSPRequestMessage request(7, QStringLiteral("textDocument/completion"), place());
    const std::string frame =
        frameOf(QJsonDocument(request.toJson()).toJson(QJsonDocument::Compact).toStdString());
    for (auto _ : state) {
        client->write(frame);
        const std::string_view body = client->read();
        if (parses)
            benchmark::DoNotOptimize(
                QJsonDocument::fromJson(QByteArray::fromRawData(body.data(), static_cast<int>(body.size()))));
    }
}
BENCHMARK_CAPTURE(completeBare, bare, false)->Name("completion round trip/socket")->UseRealTime();
BENCHMARK_CAPTURE(completeBare, parsed, true)->Name("completion round trip/socket and parser")->UseRealTime();

} // namespace
