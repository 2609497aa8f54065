#include "commandwords.h"

#include <CLI/CLI.hpp>
#include <algorithm>

namespace {

using Word = std::vector<std::string>::iterator;

constexpr auto endOfOptions = "--";

bool isOption(const std::string& word)
{
    return word.size() > 1 && word.front() == '-' && word != endOfOptions;
}

bool isSubcommand(const CLI::App& application, const std::string& word)
{
    return !application
                .get_subcommands([&word](const CLI::App* command) { return command->get_name() == word; })
                .empty();
}

/// The first word behind options and their values.
Word behindOptions(const CLI::App& application, Word word, Word end)
{
    while (word != end && isOption(*word)) {
        const CLI::Option* option = application.get_option_no_throw(*word);
        const bool valueFollows = option && option->get_items_expected_max() > 0;
        ++word;
        if (valueFollows && word != end)
            ++word;
    }
    return word;
}

} // namespace

CommandWords splitCommandWords(const CLI::App& application, std::vector<std::string> words)
{
    CommandWords split;
    const Word end = words.end();
    const Word command = behindOptions(application, words.begin(), end);
    if (command != end && !isSubcommand(application, *command)) {
        split.notASubcommand = *command;
    } else if (command != end && *command == "call") {
        Word name = behindOptions(application, command + 1, end);
        if (name != end && *name != endOfOptions)
            name = words.insert(name, endOfOptions); // the name may read like a subcommand
        const auto places = std::min<std::ptrdiff_t>(2, words.end() - name);
        const Word firstArgument = name + places;
        split.callArguments.assign(firstArgument, words.end());
        words.erase(firstArgument, words.end());
    }
    split.parsed = std::move(words);
    return split;
}
