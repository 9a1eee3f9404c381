#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "paperway/platform/printers.h"
#include "printed/report_extent.h"

namespace paperway {

/// Inches of paper that can be printed on.
struct PaperRoom {
  double width = 0;
  double height = 0;
};

/// Inches in a line of dot-matrix printers.
inline constexpr double kNarrowRoom = 8;
inline constexpr double kWideRoom = 13.6;

/// Of a dot-matrix printer: 8 inches, or 13.6 on wide paper; the page is as long as it is told.
PaperRoom rawRoom(const std::optional<PageSettings>& settings, std::int16_t paperHeight);
/// Of a sheet for drawn pages.
PaperRoom sheetRoom(const PageSettings& settings);

/// What will not fit, in a few words each.
std::vector<std::string> fitWarnings(const ReportExtent& report, const PaperRoom& paper);

/// "Will not fit: …" or nothing.
std::string fitLine(const std::vector<std::string>& warnings);

}  // namespace paperway
