#include "HalvCore/filepath.h"
#include "HalvCore/wholefile.h"
#include "exitcode.h"
#include "findingtext.h"
#include "sariflog.h"
#include "spool.h"
#include "standardstreams.h"
#include "statechart/check/definitioncheck.h"
#include "statechart/outofmemory.h"
#include "statechart/package/definitionsizelimit.h"
#include "subcommands.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>

using Halvorin::System::FilePath;

namespace {

enum class Format
{
    text,
    json,
    sarif,
};

struct Arguments
{
    std::vector<std::string> definitions;
    std::vector<std::string> disabled;
    std::vector<std::string> errors;
    bool asJson = false;
    bool asSarif = false;

    Format format() const
    {
        if (asSarif)
            return Format::sarif;
        return asJson ? Format::json : Format::text;
    }
};

/// @throws UsageError for what is no kind of warning.
FindingKind warningOf(const std::string& name)
{
    const std::optional<FindingKind> kind = findingKindOf(name);
    if (!kind)
        throw UsageError("no such kind of finding: " + name + " (see halvorin check --help)");
    if (infoOf(*kind).severity == FindingSeverity::error)
        throw UsageError("not a kind of warning: " + name);
    return *kind;
}

FindingRules rulesOf(const Arguments& arguments)
{
    FindingRules rules;
    for (const std::string& name : arguments.disabled)
        rules.disable(warningOf(name));
    for (const std::string& name : arguments.errors)
        rules.makeError(warningOf(name));
    return rules;
}

/// Checks definitions one by one and shows what there is to say; a SARIF log as a whole at the end.
class Checker
{
public:
    Checker(Format format, const FindingRules& rules) : m_format(format), m_rules(rules) {}

    /// Whether the definition has no errors.
    bool check(const std::string& argument)
    {
        const InputPath input(argument, definitionSizeLimit);
        const FilePath path(input.path());
        const auto text = Halvorin::System::readWholeFile(path.toStdPath(), definitionSizeLimit).value();
        const std::vector<Finding> findings = checkDefinition(text.toStdStringView(), m_rules);
        for (const Finding& finding : findings)
            show(input.shownName(), finding);
        return std::ranges::none_of(
            findings, [](const Finding& finding) { return finding.severity == FindingSeverity::error; });
    }

    /// Tells that a definition could not be read.
    void fail(const std::string& error)
    {
        StandardStreams::reportError(error);
        m_log.addFailure(error);
    }

    void finish() const
    {
        if (m_format == Format::sarif)
            StandardStreams::print(m_log.text());
    }

private:
    void show(const std::string& file, const Finding& finding)
    {
        switch (m_format) {
        case Format::text:
            StandardStreams::print(findingAsText(file, finding));
            break;
        case Format::json:
            StandardStreams::print(findingAsJson(file, finding));
            break;
        case Format::sarif:
            m_log.add(file, finding);
            break;
        }
    }

    Format m_format;
    FindingRules m_rules;
    SarifLog m_log;
};

/// Every definition is checked, whatever the others are like.
int checkAll(const Arguments& arguments)
{
    if (std::ranges::count(arguments.definitions, std::string("-")) > 1)
        throw UsageError("standard input can be checked only once");
    Checker checker(arguments.format(), rulesOf(arguments));
    int exitCode = exitDone;
    for (const std::string& definition : arguments.definitions) {
        try {
            if (!checker.check(definition))
                exitCode = exitInputHasErrors;
        } catch (const std::exception& error) {
            checker.fail(failureText(error));
            exitCode = exitInputHasErrors;
        }
    }
    checker.finish();
    return exitCode;
}

std::string helpOnKinds()
{
    std::string help = "A finding reads \"FILE:LINE:COLUMN: error: TEXT at PATH\", with the line and a caret "
                       "below it.\nLines and columns count from 1, columns in bytes. Warnings alone are no "
                       "failure.\n\nKinds of warnings, for --disable and --error:\n";
    for (const FindingKindInfo& info : findingKinds()) {
        if (info.severity != FindingSeverity::warning)
            continue;
        std::string line = "  " + std::string(info.name);
        line.resize(std::max<std::size_t>(line.size() + 1, 24), ' ');
        help += line.append(info.summary) + "\n";
    }
    return help;
}

} // namespace

void addCheckCommand(CLI::App& application, Action& action)
{
    CLI::App* command =
        application.add_subcommand("check", "Compile device definitions in memory and print what is wrong");
    const auto arguments = std::make_shared<Arguments>();
    command->add_option("DEFINITION", arguments->definitions, "The definitions, - for standard input")
        ->required();
    CLI::Option* const json = command->add_flag("--json", arguments->asJson, "Print one JSON object a line");
    command->add_flag("--sarif", arguments->asSarif, "Print one SARIF 2.1.0 log of all definitions")
        ->excludes(json);
    command->add_option("--disable", arguments->disabled, "Do not report this kind of warning")
        ->type_name("NAME")
        ->allow_extra_args(false);
    command->add_option("--error", arguments->errors, "Take this kind of warning for an error")
        ->type_name("NAME")
        ->allow_extra_args(false);
    command->footer(helpOnKinds());
    command->callback([arguments, &action] { action = [arguments] { return checkAll(*arguments); }; });
}
