#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "paperway/export.h"
#include "paperway/platform/printers.h"
#include "paperway/platform/sheet.h"

namespace paperway {

/// Characters of one look. Nothing in them moves the pen: no control characters.
struct PrintedText {
  std::string text;         // UTF-8
  double left = 0;          // inches from the beginning of the line
  double cpi = 10;          // characters to the inch
  std::uint32_t color = 0;  // blue × 65536 + green × 256 + red
  bool bold = false;
  bool underline = false;

  bool operator==(const PrintedText&) const = default;
};

/// Lines stand six to the inch.
using PrintedLine = std::vector<PrintedText>;
using PrintedPage = std::vector<PrintedLine>;

struct StyledDocument {
  std::string name;                              // UTF-8
  std::string printer{};                         // DeviceName; not used when `file` is set
  std::filesystem::path file{};                  // a PDF file to write instead
  std::vector<std::filesystem::path> sources{};  // what is printed, which `file` must not replace
  PageSettings settings{};
  double width = 0;   // inches that the widest line takes
  double height = 0;  // inches that the longest page takes
};

/// A document being drawn. One that dies before end() has returned is cancelled.
class PAPERWAY_API StyledJob {
 public:
  virtual ~StyledJob() = default;

  /// Draws a page on a sheet of its own, at its true size; what lies beyond the paper is cut off.
  virtual void page(const PrintedPage& lines) = 0;
  /// Hands the document over. Failures are SpoolErrors, or AutomationErrors that name the file.
  virtual void end() = 0;
};

/// Draws styled text on paper, and pictures of paper.
class PAPERWAY_API PrintDevice {
 public:
  virtual ~PrintDevice() = default;

  /// A SpoolError with the reason when the printer cannot take drawn pages.
  virtual std::unique_ptr<StyledJob> start(const StyledDocument& document) = 0;

  virtual std::unique_ptr<SheetJob> startSheets(const SheetDocument& document) = 0;
};

}  // namespace paperway
