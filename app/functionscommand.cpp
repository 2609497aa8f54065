#include "HalvCore/numbertext.h"
#include "HostSupport/registry.h"
#include "exitcode.h"
#include "jsonline.h"
#include "standardstreams.h"
#include "subcommands.h"

#include <CLI/CLI.hpp>
#include <QJsonObject>
#include <memory>
#include <optional>
#include <vector>

using Halvorin::System::numberText;

namespace {

/// A line of the list: one thing that the library registered.
struct Row
{
    const char* kind;
    std::string name;
    std::optional<std::pair<int, int>> bounds = std::nullopt;
    std::optional<int> resultType = std::nullopt;
};

std::vector<Row> registeredRows()
{
    HostSupport::Registry& registry = HostSupport::Registry::instance();
    std::vector<Row> rows;
    for (const auto* function : registry.functions().all())
        rows.push_back({"function", function->name,
                        std::pair(function->minimumArguments, function->maximumArguments),
                        static_cast<int>(function->resultType)});
    for (const auto* command : registry.commands().all())
        rows.push_back({"command", command->name, std::pair(0, 0)});
    for (const auto* hook : registry.hooks().all())
        rows.push_back({"hook", hook->name});
    for (const auto* option : registry.options().all())
        rows.push_back({"option", option->name});
    return rows;
}

std::string textLine(const Row& row)
{
    const std::string bounds =
        row.bounds ? numberText(row.bounds->first) + ".." + numberText(row.bounds->second) : "-";
    const std::string type = row.resultType ? numberText(*row.resultType) : "-";
    return row.kind + (" " + row.name) + " " + bounds + " " + type;
}

QJsonObject jsonObject(const Row& row)
{
    QJsonObject object;
    object.insert(QStringLiteral("kind"), QString::fromUtf8(row.kind));
    object.insert(QStringLiteral("name"), QString::fromStdString(row.name));
    if (row.bounds) {
        object.insert(QStringLiteral("minimumArguments"), row.bounds->first);
        object.insert(QStringLiteral("maximumArguments"), row.bounds->second);
    }
    if (row.resultType)
        object.insert(QStringLiteral("resultType"), *row.resultType);
    return object;
}

} // namespace

void addFunctionsCommand(CLI::App& application, Action& action)
{
    CLI::App* command = application.add_subcommand(
        "functions", "List what the library registered: kind, name, argument bounds, result type code");
    const auto asJson = std::make_shared<bool>(false);
    command->add_flag("--json", *asJson, "Print one JSON object a line");
    command->footer(
        "A line reads \"function NAME MINIMUM..MAXIMUM CODE\"; \"-\" stands where a kind has no such "
        "thing.\nCodes: 1 a boolean, 12 an array of strings, 16 no result.");
    command->callback([asJson, &action] {
        action = [asJson] {
            for (const Row& row : registeredRows())
                StandardStreams::printLine(*asJson ? jsonLine(jsonObject(row)) : textLine(row));
            return exitDone;
        };
    });
}
