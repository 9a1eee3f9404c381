#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "paperway/export.h"

namespace paperway {

// A sheet of continuous paper as it comes out of a dot-matrix printer. Places are inches from its
// upper left corner, colors blue × 65536 + green × 256 + red.

/// Characters of one look. A usual one is 1/6 inch high, whatever its width.
struct SheetText {
  std::string text;  // UTF-8
  double left = 0;
  double top = 0;
  double cpi = 10;    // characters to the inch
  double height = 1;  // of a usual character
  std::uint32_t color = 0;
  bool bold = false;
  bool italic = false;
  bool underline = false;

  bool operator==(const SheetText&) const = default;
};

/// Dots, column by column from the left, each from its top.
struct SheetImage {
  double left = 0;
  double top = 0;
  double columnsPerInch = 60;
  double rowsPerInch = 72;
  std::size_t rows = 8;
  std::uint32_t color = 0;
  std::vector<bool> dots{};
};

struct Sheet {
  std::int64_t number = 1;
  double width = 9.5;  // with the strips of half an inch that have the holes
  double height = 11;
  double printableLeft = 0.75;
  double printableRight = 8.75;
  std::vector<SheetText> texts{};
  std::vector<SheetImage> images{};
  std::vector<double> cuts{};   // tops of lines that go on beyond the printable edge
  std::optional<double> end{};  // where the head stands when the job is done
};

/// A file of pictures of sheets.
struct SheetDocument {
  enum class Format { pdf, png };  // a PNG has the sheets below one another

  std::string name;  // UTF-8
  std::filesystem::path file;
  Format format = Format::pdf;
  std::vector<std::filesystem::path> sources{};  // what `file` must not replace
};

/// One that dies before end() has returned leaves an earlier file as it was. Failures are
/// AutomationErrors that name the file.
class PAPERWAY_API SheetJob {
 public:
  virtual ~SheetJob() = default;

  /// All of one size.
  virtual void sheet(const Sheet& sheet) = 0;
  virtual void end() = 0;
};

}  // namespace paperway
