#ifndef COMMANDWORDS_H
#define COMMANDWORDS_H

#include <string>
#include <vector>

namespace CLI {
class App;
}

/// The words of a command line, split where the parser must stop: behind the name in "call NAME ARG...", an
/// argument is an argument whatever it looks like.
struct CommandWords
{
    std::vector<std::string> parsed;        // what the parser is given
    std::vector<std::string> callArguments; // what goes to the function that is called, untouched
    std::string notASubcommand; // what stands in the place of a subcommand and is none, if anything
};

/// `application` knows its subcommands and global options already.
CommandWords splitCommandWords(const CLI::App& application, std::vector<std::string> words);

#endif
