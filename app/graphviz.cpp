#include "graphviz.h"

#include <QProcess>
#include <stdexcept>

std::string svgOf(const std::string& dot)
{
    static constexpr int longest = 60'000; // in milliseconds
    QProcess process;
    process.start(QStringLiteral("dot"), {QStringLiteral("-Tsvg")});
    if (!process.waitForStarted(longest))
        throw std::runtime_error("cannot run Graphviz's program \"dot\", which lays out the picture: " +
                                 process.errorString().toStdString());
    process.write(dot.data(), static_cast<qint64>(dot.size()));
    process.closeWriteChannel();
    if (!process.waitForFinished(longest)) {
        process.kill();
        process.waitForFinished();
        throw std::runtime_error("Graphviz takes too long to lay out the picture");
    }
    if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        throw std::runtime_error("Graphviz cannot lay out the picture: " +
                                 process.readAllStandardError().trimmed().toStdString());
    return process.readAllStandardOutput().toStdString();
}
