#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "paperway/platform.h"
#include "printing/print_stream.h"

namespace paperway {

class AutomationError;
struct RunState;

struct PrintFileArguments {
  std::filesystem::path fileName{};
  std::string printerName{};  // DeviceName; empty: the current printer
  std::int16_t paperHeight = 0;
  bool draft = true;
  std::uint8_t cond = 0;      // 1: condensed
  std::uint8_t semiCond = 0;  // 1: 12 characters to the inch
  std::uint8_t copies = 1;
  std::uint8_t tear = 0;      // 1: the stored tear lines take the place of the two below
  std::uint8_t linesIn = 0;   // written back
  std::uint8_t linesOut = 0;  // written back
  int codeTable = 0;          // written back: what the user says of the printer
  std::uint64_t plain = 0;    // written back: letters that the printer lacks
  std::vector<std::filesystem::path> sources{};  // what the file was made of, if not by hand
};

/// Fills in what is kept for the user: the current printer, its code table, the tear lines.
void takeKeptSettings(PrintFileArguments& arguments, const Platform& platform,
                      const std::string& company);

/// The stream of such a job.
PrintStreamSettings streamSettings(const PrintFileArguments& arguments);

/// Sends a report file to a printer as one raw document. An AutomationError says what stopped it.
void PrintFile(PrintFileArguments& arguments, const Platform& platform, RunState& run);

/// The message in which a user learns of a print that failed.
void showPrintFailure(MessageBoxes& messageBox, const AutomationError& error);

/// Of the job that prints this file: the name behind the last separator.
std::string documentNameOf(const std::filesystem::path& file);

}  // namespace paperway
