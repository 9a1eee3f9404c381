#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "excel/column_map.h"
#include "excel/report_parts.h"
#include "paperway/platform/storage.h"

namespace paperway {

/// What a text report looks like to who makes a table of it.
struct FoundReport {
  ReportForm form;
  std::vector<std::string> headings;  // the heading lines of the first page; bytes
  std::size_t groups = 0;             // levels of group headers, up to two
  bool firstRowIsHeading = false;     // of a report that has no head
  ColumnMap map;
};

/// Finds the columns of a text report by its heading, its rules and the blank corridors through its
/// rows. Reads the file once, in memory that does not grow with it. `onBlock` is told now and then;
/// what it throws ends the search. An AutomationError when there are no columns.
FoundReport findColumns(Storage& storage, const std::filesystem::path& file,
                        const std::string& caller, const std::function<void()>& onBlock = {});

/// The columns drawn over the heading lines and the first row, for people to check; UTF-8.
std::string drawColumns(const FoundReport& report, const ColumnMap& map);

}  // namespace paperway
