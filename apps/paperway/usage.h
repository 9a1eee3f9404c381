#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace paperway::command {

/// The words of a command line behind the program's name as the parser takes them, the last one
/// first. An empty value ("--title=") stands as a word of its own, which the parser would otherwise
/// replace by the next word.
std::vector<std::string> wordsFor(const CLI::App& app, int argc, const char* const* argv);

/// What is wrong with a command line. A command or option that does not exist is named before
/// anything that is missing, with the one that was probably meant.
std::string usageMessage(const CLI::App* app, const CLI::Error& error);

}  // namespace paperway::command
