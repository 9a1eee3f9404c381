#pragma once

#include <cstdint>
#include <string>

#include "facade/recordset.h"
#include "platform/message_box.h"
#include "report/report_format.h"
#include "util/control_strings.h"

namespace paperway {

/// The arguments of Text_Rpt. Texts are UTF-8.
struct TextRptArguments {
  Recordset& Rs;               // rewound first, left at its end
  std::string TextFileName{};  // native path; replaced when the report is complete
  std::string Tital1{};        // big bold; each title is left out when empty
  std::string Tital2{};
  std::string Tital3{};
  std::string Tital4{};
  std::string Tital5{};          // at the left of the page-number line
  std::uint8_t MPLine = 0;       // lines of a page
  std::int32_t Srno = 0;         // first serial number, 0 for none; the next free one comes back
  std::uint8_t C_80_96_136 = 0;  // pitch: 80, 96, 136 columns; any other: no pitch control
  std::uint8_t Preview1 = 0;     // above 0: the finished report opens in the preview
};

/// Writes the report of the rows under the table, whose totals it feeds. False when a group field
/// is missing from the rows: a message has said so, and nothing was touched. Every other failure is
/// an AutomationError, after which an earlier report of that name stands as it was.
bool writeTextReport(TextRptArguments& arguments, ReportFormatTable& table, const DOSEFONTcHR& font,
                     MessageBox& messageBox);

}  // namespace paperway
