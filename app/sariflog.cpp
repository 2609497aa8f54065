#include "sariflog.h"

#include "jsonline.h"
#include "statechart/check/finding.h"

#include <QByteArray>
#include <QJsonObject>
#include <algorithm>

namespace {

QString string(std::string_view words)
{
    return QString::fromUtf8(words.data(), static_cast<int>(words.size()));
}

QJsonObject message(std::string_view words)
{
    return {{QStringLiteral("text"), string(words)}};
}

QString level(FindingSeverity severity)
{
    return severity == FindingSeverity::error ? QStringLiteral("error") : QStringLiteral("warning");
}

/// As a reference that is resolved against the folder of the reader; an absolute path as a URL. The name of a
/// file is bytes, which need not be UTF-8.
QString uriOf(const std::string& file)
{
    const QString path = QString::fromLatin1(QByteArray::fromStdString(file).toPercentEncoding("/"));
    return file.starts_with('/') ? QStringLiteral("file://") + path : path;
}

/// From 1, in characters, of a column from 1 in bytes.
qint64 characterColumn(std::string_view line, std::size_t column)
{
    const auto before = line.substr(0, std::min(column - 1, line.size()));
    return 1 + std::ranges::count_if(
                   before, [](char byte) { return (static_cast<unsigned char>(byte) & 0xc0) != 0x80; });
}

QJsonObject regionOf(const Finding& finding)
{
    const std::size_t end = std::min(finding.column + finding.length, finding.sourceLine.size() + 1);
    return {{QStringLiteral("startLine"), static_cast<qint64>(finding.line)},
            {QStringLiteral("startColumn"), characterColumn(finding.sourceLine, finding.column)},
            {QStringLiteral("endColumn"), characterColumn(finding.sourceLine, std::max(finding.column, end))},
            {QStringLiteral("byteOffset"), static_cast<qint64>(finding.offset)},
            {QStringLiteral("byteLength"), static_cast<qint64>(finding.length)}};
}

QJsonArray rules()
{
    QJsonArray array;
    for (const FindingKindInfo& info : findingKinds()) {
        const QJsonObject configuration{{QStringLiteral("level"), level(info.severity)}};
        array.append(QJsonObject{{QStringLiteral("id"), string(info.name)},
                                 {QStringLiteral("shortDescription"), message(info.summary)},
                                 {QStringLiteral("defaultConfiguration"), configuration}});
    }
    return array;
}

} // namespace

void SarifLog::add(const std::string& file, const Finding& finding)
{
    const QJsonObject physical{
        {QStringLiteral("artifactLocation"), QJsonObject{{QStringLiteral("uri"), uriOf(file)}}},
        {QStringLiteral("region"), regionOf(finding)}};
    QJsonObject location{{QStringLiteral("physicalLocation"), physical}};
    if (!finding.path.empty()) {
        location.insert(
            QStringLiteral("logicalLocations"),
            QJsonArray{QJsonObject{{QStringLiteral("fullyQualifiedName"), string(finding.path)}}});
    }
    m_results.append(QJsonObject{{QStringLiteral("ruleId"), string(infoOf(finding.kind).name)},
                                 {QStringLiteral("ruleIndex"), static_cast<int>(finding.kind)},
                                 {QStringLiteral("level"), level(finding.severity)},
                                 {QStringLiteral("message"), message(finding.text)},
                                 {QStringLiteral("locations"), QJsonArray{location}}});
}

void SarifLog::addFailure(const std::string& error)
{
    m_failures.append(QJsonObject{{QStringLiteral("level"), level(FindingSeverity::error)},
                                  {QStringLiteral("message"), message(error)}});
}

std::string SarifLog::text() const
{
    QJsonObject invocation{{QStringLiteral("executionSuccessful"), m_failures.isEmpty()}};
    if (!m_failures.isEmpty())
        invocation.insert(QStringLiteral("toolExecutionNotifications"), m_failures);
    const QJsonObject driver{{QStringLiteral("name"), QStringLiteral("halvorin")},
                             {QStringLiteral("version"), QStringLiteral(HALVORIN_VERSION)},
                             {QStringLiteral("rules"), rules()}};
    const QJsonObject run{{QStringLiteral("tool"), QJsonObject{{QStringLiteral("driver"), driver}}},
                          {QStringLiteral("invocations"), QJsonArray{invocation}},
                          {QStringLiteral("columnKind"), QStringLiteral("unicodeCodePoints")},
                          {QStringLiteral("results"), m_results}};
    const QJsonObject log{{QStringLiteral("version"), QStringLiteral("2.1.0")},
                          {QStringLiteral("runs"), QJsonArray{run}}};
    return jsonLine(log) + "\n";
}
