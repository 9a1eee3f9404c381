#pragma once

#include <CLI/CLI.hpp>
#include <new>
#include <stdexcept>
#include <string>
#include <system_error>

#include "platform/file_error.h"

namespace paperway::command {

constexpr char kProgram[] = "paperway";  // of both, with and without windows
constexpr int kUsualPaper = 12;          // inches of height

/// A failure that a message box has already told; the command ends with exit code 1.
struct Told : std::runtime_error {
  Told() : std::runtime_error("told") {}
};

/// The user asked to stop.
struct Interrupted : std::runtime_error {
  Interrupted() : std::runtime_error("interrupted") {}
};

/// Does the work of a command on a file; a lack of memory is told with both.
template <typename Work>
void forFile(const char* verb, const std::string& file, const Work& work) {
  try {
    work();
  } catch (const std::bad_alloc&) {
    raiseFileError(verb, file, std::make_error_code(std::errc::not_enough_memory), "paperway");
  }
}

/// Each adds one command; its work runs as the callback, which throws when it fails.
void addText(CLI::App& app);
void addHtml(CLI::App& app);
void addSheet(CLI::App& app);
void addConvert(CLI::App& app);
void addColumns(CLI::App& app);
void addWords(CLI::App& app);
void addSetting(CLI::App& app);
void addPrint(CLI::App& app);
/// The pages of a report as a PDF; "-" is standard output. May go on in the program with windows.
void printPdf(const std::string& report, const std::string& pdf);
void addPrinters(CLI::App& app);
void addPreview(CLI::App& app);
void addBrowse(CLI::App& app);
void addStickers(CLI::App& app);

/// Behind the commands: what is said of all of them, and the hidden options that write the manual
/// page (--manual) and the completions for a shell (--completion) from what --help says.
void addDocumentation(CLI::App& app);

}  // namespace paperway::command
