#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

#include "paperway/platform/storage.h"
#include "util/control_strings.h"

namespace paperway {

class ReportViewSettings;

inline constexpr std::string_view kExportComplete = " Export Complete ";  // the user is told

/// Colours of a report's page and text, blue x 65536 + green x 256 + red.
struct ReportHtmlColors {
  std::int32_t page = 0xFFFFFF;
  std::int32_t wide = 8388608;  // double-size bold
  std::int32_t bold = 128;
  std::int32_t condensed = 8388736;
};

/// White paper, and the user's choice of text colours. A choice that is no number raises an
/// AutomationError.
ReportHtmlColors storedTextColors(const ReportViewSettings& settings, const char* caller);

struct ReportHtmlArguments {
  std::filesystem::path report;
  std::filesystem::path html;
  ReportHtmlColors colors;
  bool breaksPages = false;  // a form feed becomes a page break; else it stays
  const char* caller;        // whom errors name
  /// Told with each block that is read, of the bytes so far. What it throws ends the conversion.
  std::function<void(std::int64_t bytes)> onProgress{};
};

/// Makes one page of HTML of a report file: each line is one, each blank "&nbsp;", each control
/// string a tag. All other bytes stay as they are. Memory does not grow with the file, as long as
/// no line is endless and of nothing but bytes of control strings. A failure is an AutomationError,
/// after which an earlier page stands.
void convertReport(const ReportHtmlArguments& arguments, const DOSEFONTcHR& font, Storage& storage);

}  // namespace paperway
