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

struct HtmlExportArguments {
  Recordset& Rs;                // read from the row in hand on, left at its end
  std::string HTML_FileName{};  // replaced when the document is complete
  std::string Tital1{};         // each title is left out when empty
  std::string Tital2{};
  std::string Tital3{};
  std::string Tital4{};
  std::string Tital5{};
  std::int32_t Srno = 0;                // number the rows from here on; 0: no numbers
  std::uint8_t Preview1 = 0;            // 1: the finished document opens in the browser window
  std::uint8_t CenterHeder1Right2 = 0;  // titles: 0 left and plain, 1 centred, any other right
  std::string TFontNM1{};               // font of each title that is not left
  std::string TFontNM2{};
  std::string TFontNM3{};
  std::string TFontNM4{};
  std::string TFontNM5{};
  float ChrWidth = 0;  // of a character of Sz, in the table's units of width; up to 0: 6
  /// "L" asks for landscape. Comes back as "L" when the pages are to be printed across an upright
  /// printer's paper, else as "P".
  std::string PortraitLansscape{};
  ReportProgressCallback onProgress{};
};

struct HtmlExportSalaryArguments {
  Recordset& Rs;                // read from the row in hand on, left at its end
  std::string HTML_FileName{};  // replaced when the document is complete; it names a .css file, too
  std::string Tital1{};         // a "<", ">" or "^" at its end puts a title left, right or centred
  std::string Tital2{};
  std::string Tital3{};
  std::string Tital4{};
  std::string Tital5{};
  std::int32_t Srno = 0;                // as above; 9: from 1, anew in each first-level group
  std::string SrNo_FontName{};          // font of the numbers
  double SrNo_FontSZ = 0;               // points
  std::uint8_t Preview1 = 0;            // 1: the finished document opens in the browser window
  std::uint8_t CenterHeder1Right2 = 0;  // titles without a mark: 0 left, 1 centred, any other right
  std::string TFontNM1{};               // font of each title
  std::string TFontNM2{};
  std::string TFontNM3{};
  std::string TFontNM4{};
  std::string TFontNM5{};
  float ChrWidth = 0;               // as above, in hundredths
  std::string PortraitLansscape{};  // as above; the printer is set to it first
  std::string Space_Numeric{};      // HTML beside numbers and captions
  std::int16_t Tital_FontSize = 0;  // points; 0: none given
  std::int16_t Row_Height = 0;      // twips that a row counts; 0: as the text size has it
  /// 1: a page for each first-level group, when Srno is 9; 2: for each second-level group.
  std::uint8_t PageBrack_When_GroupChange = 0;
  std::uint8_t Top_margin = 0;            // small blank lines at the top of each page
  std::uint8_t Left_margin = 0;           // levels of indentation
  std::int16_t Page_Size = 0;             // published number of the paper; 0: the printer's own
  std::int16_t DoubleLine_LastTotal = 0;  // not 0: the grand total takes two lines
  /// 1: titles, captions and the columns of a "unicode" font are written as character references.
  std::int16_t Unicode_RPT = 0;
  std::int16_t FixHeder_Row_Height = 0;  // above 0: height of the page head, in 1/90 inch
  std::int16_t FixRow_Height = 0;        // above 0: height of a row, in 1/90 inch
  ReportProgressCallback onProgress{};
};

struct ExcelExportArguments {
  Recordset& Rs;  // read from the row in hand on, left at its end
  /// ".xlsx" or ".xls"; replaced when the workbook is complete. When empty, a dialog asks for it
  /// behind the rows, and the chosen name comes back.
  std::string Excel_FileName{};
  std::string Tital1{};  // each title is left out when empty
  std::string Tital2{};
  std::string Tital3{};
  std::string Tital4{};
  std::string Tital5{};
  std::string PageOriantationPL{};  // "L": landscape
  std::string LeftFooter{};
  std::string RightFooter{};
  std::int16_t PageTopMargin = 0;  // points, 72 to the inch; up to 0: the workbook's own
  std::int16_t PageBottomMargin = 0;
  std::int16_t PageRightMargin = 0;
  std::int16_t PageLeftMargin = 0;
  std::int16_t PageFooterMargin = 0;
  std::int32_t Srno =
      0;  // number the rows from here on; up to 0: no numbers. The next one comes back
  std::string TFontNM1{};  // font of each title; "Arial Narrow" comes back for an empty one
  std::string TFontNM2{};
  std::string TFontNM3{};
  std::string TFontNM4{};
  std::string TFontNM5{};
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
