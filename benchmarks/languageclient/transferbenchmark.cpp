#include "benchclient.h"

#include <QJsonDocument>
#include <QTcpSocket>
#include <benchmark/benchmark.h>
#include <semaphore>

// Bytes in and out: messages through the reader and the dispatcher, and a document that has changed.

using namespace Halvorin::LSP;

namespace {

std::string diagnosticsMessage(int count)
{
    std::string body = R"({"jsonrpc":"2.0","method":"textDocument/publishDiagnostics","params":)"
                       R"({"uri":"file:///home/user/project/module.py","version":1,"diagnostics":[)";
    for (int number = 0; number < count; ++number) {
        body += number == 0 ? "" : ",";
        body += R"({"range":{"start":{"line":)" + std::to_string(number) +
                R"(,"character":4},"end":{"line":)" + std::to_string(number) +
                R"(,"character":9}},"message":"\"value\" is not defined","severity":1,"source":"server"})";
    }
    return body + "]}}";
}

/// What the peer sends each time that it is asked to.
struct Load
{
    Load(int messages, int diagnostics) : count(messages)
    {
        const std::string frame = frameOf(diagnosticsMessage(diagnostics));
        for (int number = 0; number < messages; ++number)
            bytes += frame;
    }

    int count;
    std::string bytes;
};

/// Sends the load whenever it is let to.
class Sender
{
public:
    explicit Sender(const Load& load) : m_load(load) {}
    void send() { m_turn.release(); }
    void end()
    {
        m_ends = true;
        m_turn.release();
    }
    ThreadPeer::Exchange exchange()
    {
        return [this](FrameSocket& socket) {
            for (m_turn.acquire(); !m_ends; m_turn.acquire())
                socket.write(m_load.bytes);
        };
    }

private:
    const Load& m_load;
    std::binary_semaphore m_turn{0};
    std::atomic<bool> m_ends = false;
};

void report(benchmark::State& state, const Load& load)
{
    state.SetItemsProcessed(state.iterations() * load.count);
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(load.bytes.size()));
}

void receiveMessages(benchmark::State& state, int messages, int diagnostics)
{
    const Load load(messages, diagnostics);
    Sender sender(load);
    const BenchClient client(sender.exchange());
    int received = 0;
    QObject::connect(&*client, &LSPPythonClient::messageReceived, [&received] { ++received; });
    for (auto _ : state) {
        received = 0;
        sender.send();
        runUntil([&] { return received == load.count; });
    }
    report(state, load);
    sender.end();
}

/// The same, with and without making documents of the bodies.
void receiveBare(benchmark::State& state, int messages, int diagnostics, bool parses)
{
    const Load load(messages, diagnostics);
    Sender sender(load);
    BareClient client(sender.exchange());
    for (auto _ : state) {
        sender.send();
        for (int received = 0; received < load.count; ++received) {
            const std::string_view body = client->read();
            if (parses)
                benchmark::DoNotOptimize(QJsonDocument::fromJson(
                    QByteArray::fromRawData(body.data(), static_cast<int>(body.size()))));
        }
    }
    report(state, load);
    sender.end();
}

constexpr auto manySmall = 4096;
constexpr auto fewLarge = 4;
constexpr auto diagnosticsOfLarge = 15'000; // 2 MB
BENCHMARK_CAPTURE(receiveMessages, small, manySmall, 1)
    ->Name("receive small messages/halvorin")
    ->UseRealTime();
BENCHMARK_CAPTURE(receiveBare, small, manySmall, 1, false)
    ->Name("receive small messages/socket")
    ->UseRealTime();
BENCHMARK_CAPTURE(receiveBare, parsed, manySmall, 1, true)
    ->Name("receive small messages/socket and parser")
    ->UseRealTime();
BENCHMARK_CAPTURE(receiveMessages, large, fewLarge, diagnosticsOfLarge)
    ->Name("receive messages of 2 MB/halvorin")
    ->UseRealTime();
BENCHMARK_CAPTURE(receiveBare, large, fewLarge, diagnosticsOfLarge, false)
    ->Name("receive messages of 2 MB/socket")
    ->UseRealTime();
BENCHMARK_CAPTURE(receiveBare, largeParsed, fewLarge, diagnosticsOfLarge, true)
    ->Name("receive messages of 2 MB/socket and parser")
    ->UseRealTime();

/// A program of 1 MB.
QString document()
{
    const QString line = QStringLiteral("    value = compute(\"text\", 1234) + other[3]  # a comment\n");
    return line.repeated((1 << 20) / line.size());
}

LSPDidChangeTextDocumentParams changeTo(const QString& text)
{
    return LSPDidChangeTextDocumentParams(
        LSPVersionedTextDocumentIdentifier(QUrl(QStringLiteral("file:///a.py")), 2),
        std::vector{LSPTextDocumentContentChangeEvent(text)});
}

/// From the text in the editor until the last byte is with the system.
void changeDocument(benchmark::State& state)
{
    const BenchClient client(drain);
    const QString text = document();
    auto* const socket = client->findChild<QTcpSocket*>();
    for (auto _ : state) {
        client->didChange(changeTo(text));
        runUntil([socket] { return socket->bytesToWrite() == 0; });
    }
}
BENCHMARK(changeDocument)->Name("change document of 1 MB/halvorin")->UseRealTime();

void changeBare(benchmark::State& state, bool forms)
{
    BareClient client(drain);
    const QString text = document();
    const auto frame = [&text] {
        const LSPNotificationMessage message(QStringLiteral("textDocument/didChange"), changeTo(text));
        return frameOf(QJsonDocument(message.toJson()).toJson(QJsonDocument::Compact).toStdString());
    };
    const std::string formed = frame();
    for (auto _ : state)
        client->write(forms ? frame() : formed);
}
BENCHMARK_CAPTURE(changeBare, formed, false)->Name("change document of 1 MB/socket")->UseRealTime();
BENCHMARK_CAPTURE(changeBare, forms, true)->Name("change document of 1 MB/socket and writer")->UseRealTime();

} // namespace
