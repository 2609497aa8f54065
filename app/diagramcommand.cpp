#include "HalvCore/wholefile.h"
#include "deviceinput.h"
#include "diagram/diagramtext.h"
#include "exitcode.h"
#include "graphviz.h"
#include "simulator/jsontext.h"
#include "standardstreams.h"
#include "subcommands.h"

#include <CLI/CLI.hpp>
#include <QString>
#include <array>
#include <memory>

namespace {

struct Language
{
    std::string_view name;
    DiagramText (*write)(const DiagramContent&);
    std::string (*finish)(const std::string&); ///< null for a text that is done
};

constexpr std::array<Language, 5> languages{{
    {"svg", dotText, svgOf},
    {"dot", dotText, nullptr},
    {"mermaid", mermaidText, nullptr},
    {"plantuml", plantUmlText, nullptr},
    {"scxml", scxmlText, nullptr},
}};

struct Arguments
{
    std::string definition;
    std::string language = "svg";
    std::string coverage;
    std::string output = "-";
};

std::vector<std::string> languageNames()
{
    std::vector<std::string> names;
    names.reserve(languages.size());
    for (const Language& language : languages)
        names.emplace_back(language.name);
    return names;
}

std::optional<ChartUsage> readUsage(const std::string& argument)
{
    if (argument.empty())
        return std::nullopt;
    try {
        return ChartUsage(readTextInput(argument));
    } catch (const std::exception& error) {
        throw std::runtime_error(shownInputName(argument) +
                                 ": not a coverage of halvorin run: " + error.what());
    }
}

/// Names and actions may have any bytes; the tools take characters.
void makeUnicode(DiagramText& diagram)
{
    QString text = QString::fromStdString(diagram.text);
    for (const char16_t noCharacter : {u'\xfffe', u'\xffff'})
        text.replace(QChar(noCharacter), QChar(QChar::ReplacementCharacter));
    const std::string unicode = text.toStdString();
    if (unicode == diagram.text)
        return;
    diagram.text = unicode;
    diagram.unsaid.emplace_back("bytes that are no characters of UTF-8");
}

int diagram(const Arguments& arguments)
{
    if (arguments.definition == "-" && arguments.coverage == "-")
        throw UsageError("standard input (-) is given more than once");
    const std::string name = shownInputName(arguments.definition);
    const DeviceTexts texts = readDeviceInput(arguments.definition);
    if (!texts.definition)
        throw std::runtime_error(name + ": a compiled device has no texts to show: give its definition");
    try {
        compiledDeviceOf({texts.definition, std::nullopt});
    } catch (const DefinitionHasErrors&) {
        reportErrors(name, *texts.definition);
        return exitInputHasErrors;
    }
    const ChartOutline chart(readJsonText(*texts.definition).asObject());
    const std::optional<ChartUsage> usage = readUsage(arguments.coverage);
    const Language& language = *std::ranges::find(languages, arguments.language, &Language::name);
    DiagramText result = language.write({chart, usage ? &*usage : nullptr});
    makeUnicode(result);
    const std::string text = language.finish != nullptr ? language.finish(result.text) : result.text;
    if (arguments.output == "-")
        StandardStreams::print(text);
    else
        Halvorin::System::writeWholeFile(arguments.output, text).value();
    const std::string start = name + ": " + arguments.language + " does not say: ";
    for (const std::string& unsaid : result.unsaid)
        StandardStreams::printErrorLine(start + unsaid);
    return exitDone;
}

} // namespace

void addDiagramCommand(CLI::App& application, Action& action)
{
    CLI::App* command =
        application.add_subcommand("diagram", "Show the chart of a device as a picture or text");
    const auto arguments = std::make_shared<Arguments>();
    command->add_option("DEFINITION", arguments->definition, "A definition, or a bundle that has one")
        ->required();
    command->add_option("--as", arguments->language, "svg, dot, mermaid, plantuml or scxml [svg]")
        ->type_name("LANGUAGE")
        ->check(CLI::IsMember(languageNames()));
    command->add_option("--coverage", arguments->coverage, "Show what a run used: the file of run --coverage")
        ->type_name("FILE");
    command->add_option("--output,-o", arguments->output, "Where to put it [standard output]")
        ->type_name("FILE");
    command->footer("A label reads \"ORDER: EVENT [CONDITIONS]\" with the actions below. svg is laid out by "
                    "Graphviz's program \"dot\".\nWhat a language cannot say is listed on standard error.");
    command->callback([arguments, &action] { action = [arguments] { return diagram(*arguments); }; });
}
