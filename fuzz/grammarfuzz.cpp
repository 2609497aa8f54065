#include "HalvCore/application.h"
#include "grammar/grammar.h"
#include "grammar/grammarprocessor.h"

#include <QBuffer>
#include <cstdint>
#include <cstdlib>

using namespace Halvorin::TextMate;

namespace {

void check(bool holds)
{
    if (!holds)
        std::abort();
}

/// Tokens stand in the line, by their start, and come out the same a second time.
Continuation checkLine(GrammarProcessor& processor, const QString& line, const Continuation& continuation)
{
    TokenList tokens = processor.tokenise(line, continuation);
    int start = 0;
    for (const Token& token : tokens.tokens()) {
        check(token.start >= start && token.length >= 0 && token.start + token.length <= line.size());
        check(!token.scopes.isEmpty());
        start = token.start;
    }
    TokenList again = processor.tokenise(line, continuation);
    check(tokens.tokens() == again.tokens());
    const Continuation next = tokens.takeContinuation();
    check(sameState(next.get(), again.takeContinuation().get()));
    return next;
}

} // namespace

/// A grammar, whose form the first byte says, and a text behind a mark, which is tokenised with it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    [[maybe_unused]] static const bool quiet = [] {
        Halvorin::System::Application::instance().logger().setOutput([](std::string_view) {});
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
        return true;
    }();
    if (size == 0)
        return 0;
    const auto type = static_cast<GrammarType>(1 + data[0] % 3);
    QByteArray bytes(reinterpret_cast<const char*>(data) + 1, static_cast<int>(size) - 1);
    static const QByteArray mark = "\n%%\n";
    const int end = bytes.indexOf(mark);
    const QString text =
        end < 0 ? QStringLiteral("a (b) \"c\\n\" 1\n") : QString::fromUtf8(bytes.mid(end + mark.size()));
    if (end >= 0)
        bytes.truncate(end);
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    GrammarProcessor processor(std::make_shared<const Grammar>(buffer, type));
    Continuation continuation;
    for (const QString& line : text.split(QLatin1Char('\n')))
        continuation = checkLine(processor, line + QLatin1Char('\n'), continuation);
    return 0;
}
