#include "HalvCore/IO/OpcPackaging/opcpackage.h"
#include "HalvCore/wholefile.h"
#include "exitcode.h"
#include "spool.h"
#include "standardstreams.h"
#include "statechart/package/bundlefile.h"
#include "subcommands.h"

#include <CLI/CLI.hpp>
#include <filesystem>
#include <memory>

using Halvorin::System::IO::OpcPackaging::packageFileLimit;

namespace {

struct Arguments
{
    std::string bundle;
    std::string folder;
};

void writeDocument(const std::filesystem::path& path, const std::optional<std::string>& text)
{
    if (text)
        Halvorin::System::writeWholeFile(path, *text).value();
}

int unbundle(const Arguments& arguments)
{
    try {
        const InputPath input(arguments.bundle, packageFileLimit);
        const DeviceBundleContent content = unbundleDevice(input.path());
        if (!content.definition && !content.compiled)
            throw std::runtime_error("'" + arguments.bundle +
                                     "' holds neither a definition nor a compiled device");
        const std::filesystem::path folder(arguments.folder);
        std::filesystem::create_directories(folder);
        writeDocument(folder / "deviceDefinition.json", content.definition);
        writeDocument(folder / "compiledDevice.json", content.compiled);
    } catch (const std::exception& error) {
        StandardStreams::printErrorLine(error.what());
        return exitInputHasErrors;
    }
    return exitDone;
}

} // namespace

void addUnbundleCommand(CLI::App& application, Action& action)
{
    CLI::App* command =
        application.add_subcommand("unbundle", "Take the documents out of a bundle (*.hvdsc.zip)");
    const auto arguments = std::make_shared<Arguments>();
    command->add_option("FILE", arguments->bundle, "The bundle, - for standard input")->required();
    command->add_option("DIRECTORY", arguments->folder, "Where to put them; it is made if need be")
        ->required();
    command->footer(
        "Writes deviceDefinition.json and compiledDevice.json into DIRECTORY, as far as the bundle "
        "has them.");
    command->callback([arguments, &action] { action = [arguments] { return unbundle(*arguments); }; });
}
