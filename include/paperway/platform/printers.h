#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "paperway/export.h"

namespace paperway {

struct PrinterInfo {
  std::string DeviceName;
  std::string description;  // for people: a place, a model, an address
  bool raw = false;         // takes a printer's own language and nothing else
  bool isDefault = false;   // somebody chose it as the default one
};

/// What a printer uses for the next print of this user. Papers go by their published numbers
/// (9 is A4, 1 Letter).
struct PageSettings {
  std::int16_t Orientation = 1;  // 1 portrait, 2 landscape
  std::int16_t PaperSize = 9;

  bool operator==(const PageSettings&) const = default;
};

/// The machine's printers. A printer is known by its DeviceName (UTF-8).
class PAPERWAY_API Printers {
 public:
  virtual ~Printers() = default;

  /// All of them, each time in the same order; none when the print service is not there.
  virtual std::vector<PrinterInfo> list() = 0;

  /// The current printer of the program: the user's default one until another is assigned; empty
  /// when there is none.
  virtual std::string current() = 0;
  virtual void setCurrent(const std::string& printer) = 0;

  /// Nothing when the printer is unknown or keeps no settings.
  virtual std::optional<PageSettings> settings(const std::string& printer) = 0;

  /// Keeps settings for the user's later prints, from this program and others, one side to a sheet.
  /// A paper that the printer cannot name stays as it was. An AutomationError when they cannot be
  /// kept.
  virtual void keep(const std::string& printer, const PageSettings& settings) = 0;

  /// A line of a script (paperway/platform/shell.h) that sends the file to the printer as raw
  /// bytes; empty for an unknown printer.
  virtual std::string sendCommand(const std::string& printer,
                                  const std::filesystem::path& file) = 0;
};

}  // namespace paperway
