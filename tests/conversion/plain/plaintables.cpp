#include "plainlibrary.h"

#include <QStringList>
#include <algorithm>
#include <map>
#include <set>

namespace {

/// Walks borders by recursion, as far as they lead from one corner to another.
class Corners
{
public:
    struct Sides
    {
        bool isDown;
        bool isRight;
    };
    Corners(const QStringList& lines, int indent, int width)
        : m_lines(lines), m_indent(indent), m_width(width)
    {
        walk(0, 0);
    }

    /// By row, then by column.
    const std::map<std::pair<int, int>, Sides>& all() const { return m_corners; }

private:
    bool walk(int x, int y)
    {
        if (x >= m_width || y >= m_lines.size() || m_indent + x >= m_lines[y].size())
            return false;
        if (m_corners.count({y, x}) > 0)
            return true;
        switch (m_lines[y][m_indent + x].unicode()) {
        case '+': {
            const bool isDown = walk(x, y + 1);
            const bool isRight = walk(x + 1, y);
            m_corners[{y, x}] = {isDown, isRight};
            return true;
        }
        case '-':
        case '=':
            return walk(x + 1, y);
        case '|':
            return walk(x, y + 1);
        default:
            return false;
        }
    }

    const QStringList& m_lines;
    int m_indent;
    int m_width;
    std::map<std::pair<int, int>, Sides> m_corners;
};

struct GridCell
{
    int left;
    int top;
    int right;
    int bottom;
};

std::vector<GridCell> cellsOf(const Corners& corners)
{
    std::vector<GridCell> cells;
    for (const auto& [place, sides] : corners.all()) {
        if (!sides.isDown || !sides.isRight)
            continue;
        int right = -1;
        int bottom = -1;
        for (const auto& [other, otherSides] : corners.all()) {
            if (right < 0 && other.first == place.first && other.second > place.second && otherSides.isDown)
                right = other.second;
            if (bottom < 0 && other.second == place.second && other.first > place.first && otherSides.isRight)
                bottom = other.first;
        }
        if (right >= 0 && bottom >= 0)
            cells.push_back({place.second, place.first, right, bottom});
    }
    return cells;
}

QString span(const char* name, const std::set<int>& places, int from, int to)
{
    const auto distance = std::distance(places.find(from), places.find(to));
    return distance > 1 ? QString(" ") + name + "=\"" + QString::number(distance) + "\"" : QString();
}

/// With U+FFFD for halves of characters that a border leaves.
QString whole(QString cell)
{
    for (int at = 0; at < cell.size(); ++at) {
        if (qAsConst(cell).at(at).isHighSurrogate() && at + 1 < cell.size() &&
            qAsConst(cell).at(at + 1).isLowSurrogate())
            ++at;
        else if (qAsConst(cell).at(at).isSurrogate())
            cell[at] = QChar(QChar::ReplacementCharacter);
    }
    return cell;
}

using Columns = std::vector<std::pair<int, int>>; // start and length

Columns runsOf(QChar character, const QString& line)
{
    Columns runs;
    for (int at = 0; at < line.size(); ++at) {
        if (line[at] != character)
            continue;
        if (at == 0 || line[at - 1] != character)
            runs.emplace_back(at, 0);
        ++runs.back().second;
    }
    return runs;
}

} // namespace

QString PlainLibrary::gridTable(const Match& match)
{
    const int indent = match.capturedLength(QStringLiteral("indent"));
    const QStringList lines = match.captured(0).split('\n', Qt::SkipEmptyParts);
    static const QRegularExpression border(R"(\+-+(?:\+-+)*\+)");
    const std::vector<GridCell> cells =
        cellsOf(Corners(lines, indent, run(border, lines.value(0), indent).capturedLength(0)));
    std::set<int> columns;
    std::set<int> rows;
    std::set<int> tops;
    for (const GridCell& cell : cells) {
        columns.insert({cell.left, cell.right});
        rows.insert({cell.top, cell.bottom});
        tops.insert(cell.top);
    }
    QString result = "<table>";
    for (const int top : tops) {
        result += "<tr>";
        for (const GridCell& cell : cells) {
            if (cell.top != top)
                continue;
            const QString tag = lines[cell.bottom].mid(indent + cell.left + 1, 1) == "=" ? "th" : "td";
            QString content;
            for (int line = top + 1; line < cell.bottom; ++line)
                content += lines[line].mid(indent + cell.left + 1, cell.right - cell.left - 1) + "\n";
            result += "<" + tag + span("rowspan", rows, top, cell.bottom) +
                      span("colspan", columns, cell.left, cell.right) + ">" +
                      withoutParagraphTags(blocks(whole(content))) + "</" + tag + ">";
        }
        result += "</tr>";
    }
    return result + "</table>";
}

QString PlainLibrary::simpleTable(const Match& match)
{
    const auto columns = runsOf('=', match.captured("border"));
    QString result = "<table>";
    if (match.capturedStart(QStringLiteral("header")) >= 0)
        result += simpleRows(match.captured("header"), columns, "th");
    return result + simpleRows(match.captured("content"), columns, "td") + "</table>";
}

QString PlainLibrary::simpleRows(const QString& text, const Columns& columns, const QString& tag)
{
    static const QRegularExpression spanLine(R"(^[\h-]*-[\h-]*)");
    const QStringList lines = text.split('\n');
    QString result;
    for (int first = 0, next = 0; first < lines.size(); first = next) {
        Columns spans;
        int end = first + 1;
        for (; end < lines.size(); ++end) {
            next = end;
            if (run(spanLine, lines[end]).hasMatch()) {
                spans = runsOf('-', lines[end]);
                next = end + 1;
                break;
            }
            if (!lines[end].mid(columns[0].first, columns[0].second).trimmed().isEmpty())
                break;
        }
        if (end == lines.size())
            next = end;
        const Columns& layout = spans.empty() ? columns : spans;
        result += "<tr>";
        std::size_t cursor = 0;
        for (std::size_t index = 0; index < layout.size(); ++index) {
            const auto [start, length] = layout[index];
            QString cell;
            for (int line = first; line < end; ++line)
                cell += lines[line].mid(start, index + 1 == layout.size() ? -1 : length) + " ";
            result += "<" + tag;
            if (!spans.empty()) {
                std::size_t column = cursor;
                while (column < columns.size() &&
                       columns[column].first + columns[column].second != start + length)
                    ++column;
                if (column > cursor) {
                    result += " colspan=\"" + QString::number(column - cursor + 1) + "\"";
                    cursor = column + 1;
                }
            }
            result += ">" + withoutParagraphTags(blocks(whole(cell))) + "</" + tag + ">";
        }
        result += "</tr>";
    }
    return result;
}
