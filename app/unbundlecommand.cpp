#include "HalvCore/wholefile.h"
#include "exitcode.h"
#include "spool.h"
#include "standardstreams.h"
#include "statechart/outofmemory.h"
#include "statechart/package/bundlefile.h"
#include "subcommands.h"

#include <CLI/CLI.hpp>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <system_error>
#include <vector>

namespace {

struct Arguments
{
    std::string bundle;
    std::string folder;
};

void makeFolder(const std::filesystem::path& folder)
{
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (!error && !std::filesystem::is_directory(folder, error) && !error)
        error = std::make_error_code(std::errc::not_a_directory);
    if (error)
        throw std::runtime_error("cannot make the folder '" + folder.native() + "': " + error.message());
}

int unbundle(const Arguments& arguments)
{
    try {
        const InputPath input(arguments.bundle, bundleSizeLimit);
        const DeviceBundleContent content = unbundleDevice(input.path());
        if (!content.definition && !content.compiled)
            throw std::runtime_error("'" + arguments.bundle +
                                     "' holds neither a definition nor a compiled device");
        const std::filesystem::path folder(arguments.folder);
        makeFolder(folder);
        std::vector<Halvorin::System::WholeFile> files;
        if (content.definition)
            files.push_back({folder / "deviceDefinition.json", *content.definition});
        if (content.compiled)
            files.push_back({folder / "compiledDevice.json", *content.compiled});
        for (const Halvorin::System::WholeFile& file : files) {
            std::error_code ignored;
            if (std::filesystem::equivalent(input.path(), file.path, ignored))
                throw std::runtime_error("'" + arguments.bundle + "' would be replaced by what it holds");
        }
        Halvorin::System::writeWholeFiles(files).value();
    } catch (const std::exception& error) {
        StandardStreams::printErrorLine(failureText(error));
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
        "has them;\nneither is replaced before both can be.");
    command->callback([arguments, &action] { action = [arguments] { return unbundle(*arguments); }; });
}
