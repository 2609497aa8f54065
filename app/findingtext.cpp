#include "findingtext.h"

#include "HalvCore/numbertext.h"
#include "jsonline.h"
#include "statechart/check/finding.h"
#include "terminaltext.h"

#include <QJsonObject>
#include <algorithm>
#include <string_view>

using Halvorin::System::numberText;

namespace {

constexpr std::size_t longestShownLine = 120;
constexpr std::size_t shownBeforeThePlace = 60;
constexpr std::string_view cut = "...";

bool isContinuationByte(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xc0) == 0x80;
}

/// What is shown of a source line, and where in it the place is; in bytes.
struct Excerpt
{
    std::string text;
    std::size_t place;
};

Excerpt excerptOf(std::string_view line, std::size_t place)
{
    place = std::min(place, line.size());
    if (line.size() <= longestShownLine)
        return {std::string(line), place};
    std::size_t begin = place > shownBeforeThePlace ? place - shownBeforeThePlace : 0;
    std::size_t end = std::min(line.size(), begin + longestShownLine);
    while (begin > 0 && begin < line.size() && isContinuationByte(line[begin]))
        --begin;
    while (end < line.size() && isContinuationByte(line[end]))
        ++end;
    Excerpt excerpt{std::string(line.substr(begin, end - begin)), place - begin};
    if (begin > 0) {
        excerpt.text.insert(0, cut);
        excerpt.place += cut.size();
    }
    if (end < line.size())
        excerpt.text += cut;
    return excerpt;
}

/// Blanks as wide as the text in front of the place: a tab for a tab, one for each character.
std::string indentOf(const Excerpt& excerpt)
{
    std::string indent;
    for (std::size_t i = 0; i < excerpt.place; ++i) {
        if (!isContinuationByte(excerpt.text[i]))
            indent.push_back(excerpt.text[i] == '\t' ? '\t' : ' ');
    }
    return indent;
}

const char* severityName(const Finding& finding)
{
    return finding.severity == Finding::Severity::error ? "error" : "warning";
}

} // namespace

std::string findingAsText(const std::string& file, const Finding& finding)
{
    std::string text = file + ":" + numberText(finding.line) + ":" + numberText(finding.column) + ": " +
                       severityName(finding) + ": " + finding.text;
    if (!finding.path.empty())
        text += " at " + finding.path;
    const Excerpt excerpt = excerptOf(finding.sourceLine, finding.column - 1);
    return withoutControlCharacters(std::move(text)) + "\n" + withoutControlCharacters(excerpt.text) + "\n" +
           indentOf(excerpt) + "^\n";
}

std::string findingAsJson(const std::string& file, const Finding& finding)
{
    QJsonObject object;
    object.insert(QStringLiteral("file"), QString::fromStdString(file));
    object.insert(QStringLiteral("line"), static_cast<qint64>(finding.line));
    object.insert(QStringLiteral("column"), static_cast<qint64>(finding.column));
    object.insert(QStringLiteral("severity"), QString::fromUtf8(severityName(finding)));
    object.insert(QStringLiteral("code"),
                  finding.code ? QJsonValue(static_cast<qint64>(*finding.code)) : QJsonValue());
    object.insert(QStringLiteral("name"), QString::fromStdString(std::string(infoOf(finding.kind).name)));
    object.insert(QStringLiteral("text"), QString::fromStdString(finding.text));
    object.insert(QStringLiteral("path"), QString::fromStdString(finding.path));
    return jsonLine(object) + "\n";
}
