#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "paperway/export.h"
#include "paperway/recordset.h"

namespace paperway {

/// How far a report is.
struct ReportProgress {
  std::int64_t rows = 0;   // done
  std::int64_t pages = 0;  // ended
  /// Rows with control characters (below 32, 127) in what was written of them, which a printer may
  /// obey, and the first of them, from 1 on.
  std::int64_t controlRows = 0;
  std::int64_t firstControlRow = 0;
};

/// Told every few hundred rows, and once more before the report is put in place. What it throws
/// ends the report, which then leaves nothing behind, and reaches who asked for it.
using ReportProgressCallback = std::function<void(const ReportProgress&)>;

/// The arguments of Class1's larger members: the published names in the published order, for
/// designated initialisers. What a member gives back is written into them. Texts are UTF-8,
/// the paths of files too.

struct TextRptArguments {
  Recordset& Rs;               // rewound first, left at its end
  std::string TextFileName{};  // replaced when the report is complete
  std::string Tital1{};        // big bold; each title is left out when empty
  std::string Tital2{};
  std::string Tital3{};
  std::string Tital4{};
  std::string Tital5{};          // at the left of the page-number line
  std::uint8_t MPLine = 0;       // lines of a page
  std::int32_t Srno = 0;         // first serial number, 0 for none; the next free one comes back
  std::uint8_t C_80_96_136 = 0;  // pitch: 80, 96, 136 columns; any other: no pitch control
  std::uint8_t Preview1 = 0;     // above 0: the finished report opens in the preview
  ReportProgressCallback onProgress{};
};

/// The seven switches show (not 0) or hide a feature of the window.
struct PAPERWAY_API PreviewReportArguments {
  std::string Path1{};  // report file
  std::uint8_t RCont = 0;
  std::uint8_t REdit = 0;
  std::uint8_t RSearch = 0;
  std::uint8_t RImport = 0;
  std::uint8_t RExport = 0;
  std::uint8_t RColor = 0;
  std::uint8_t RPrint = 0;
  std::uint8_t DirectPrint = 0;  // 1: print at once, no window
  std::uint8_t cc17 = 0;         // 1: condensed
  std::uint8_t cc12 = 0;         // 1: 12 characters per inch
  std::uint8_t Tear = 0;         // 1: feed the stored tear lines; comes back as 1 or 0

  /// Every feature of the window is on.
  static PreviewReportArguments withEverything(std::string path);
};

struct PreviewReportWindowsArguments {
  std::string Path1{};      // HTML file
  std::string PL1{};        // "L": the report is for landscape paper
  std::uint8_t RPrint = 1;  // 0: look only
};

}  // namespace paperway
