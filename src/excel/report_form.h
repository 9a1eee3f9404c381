#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace paperway {

/// How the pages of a text report are built, and how its rows are told from other lines.
struct ReportForm {
  enum class Head {
    none,        // no heading line; a page may begin with the same lines as the one before
    underlined,  // the heading stands above the first rule
    framed,      // the heading stands between two rules
  };

  Head head = Head::none;
  std::size_t headLines = 0;               // of the first page
  std::vector<std::string> repeated;       // without a heading: what each page begins with
  std::optional<std::size_t> rowLength{};  // of every row; none: rows are of any length
  bool byTextRpt = false;                  // written by Text_Rpt, whose rules are known
  bool allRows = false;                    // no line is a group's header
};

/// The form of the report that begins with these bytes. A last line without an end is not looked
/// at.
ReportForm formOfReport(std::string_view beginning);

}  // namespace paperway
