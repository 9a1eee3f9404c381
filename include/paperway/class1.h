#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "paperway/arguments.h"
#include "paperway/automation_error.h"
#include "paperway/export.h"
#include "paperway/platform.h"
#include "paperway/recordset.h"
#include "paperway/run_context.h"
#include "paperway/value.h"

namespace paperway {

class FileSystem;
struct Geometry;

/// Published for hosts; no member takes it.
enum class CaseTyp { Tital = 0, Uper = 1, Lover = 2 };

/// The library's one public face. A host makes it, hands it recordsets and file names, and calls
/// its members in the order Guid_comp1, Pagelenth and PrinterName, Set_Repot_Format, Text_Rpt,
/// PreviewReport.
///
/// Texts are UTF-8, the paths of files too. Failures are AutomationErrors, unless a member
/// says that it shows a message. One thread uses an object. Objects of a thread share their run
/// state, with one another and with their windows, unless they are given contexts of their own.
class PAPERWAY_API Class1 {
 public:
  /// Makes sure that the work folder exists. The platform outlives the object and its windows.
  explicit Class1(const Platform& platform, RunContext context = RunContext::ofThread());
  ~Class1();
  Class1(const Class1&) = delete;
  Class1& operator=(const Class1&) = delete;

  FileSystem* scr1 = nullptr;    // of the utility members; the platform's unless the host sets it
  std::uint8_t Pagelenth = 0;    // page length in inches, for PreviewReport
  std::string PrinterName;       // empty: the default printer
  std::uint8_t opendReport = 0;  // the host's own
  std::int16_t Verson;           // revision of the library

  // Text report

  /// Reads the columns of a report. A failure is shown as a message; the call then returns with the
  /// table as far as it was filled. A host that does not want a report of half its columns asks
  /// formatIsWhole().
  void Set_Repot_Format(Recordset& Rst);

  /// Whether the last Set_Repot_Format read the whole table; false before the first.
  bool formatIsWhole() const;

  /// What the last Set_Repot_Format, Text_Rpt, PreviewReport or Set_Orientation showed in a message
  /// instead of raising it; null when it showed none.
  const AutomationError* lastFailure() const;

  /// Writes a paged report file of the rows, under the table that Set_Repot_Format read. Call that
  /// before every report: running totals stay in the table. A group field that the rows lack is
  /// shown as a message, and the call returns with nothing written; after any other failure, an
  /// AutomationError, an earlier report of that name stands as it was. A preview that was asked for
  /// fails as PreviewReport does, with the report written.
  void Text_Rpt(TextRptArguments& arguments);
  void Text_Rpt(TextRptArguments&& arguments) { Text_Rpt(arguments); }

  // Layout primitives: texts in fixed positions, counted in characters

  /// The text without blanks at its ends, padded or cut to a width at its right (TxtL) or its left
  /// (TxtR). A width below 0 raises an AutomationError.
  std::string TxtL(std::string_view DispField, std::int16_t sp1);
  std::string TxtR(std::string_view DispField, std::int16_t sp1);
  /// The text behind half of the blanks that it leaves free; no blanks follow. One longer than
  /// `maxlen` raises an AutomationError.
  std::string StrCenter(std::string_view strTxt, std::uint8_t maxlen);
  /// `Data_str` at column `Start_pos` (from 0) of the line that `Print_str` begins. A position
  /// within `Print_str` raises an AutomationError.
  std::string Print_line(std::int16_t Start_pos, std::string_view Print_str,
                         std::string_view Data_str);

  // Preview and print

  /// Opens a report file in a window of its own and returns while it stays open, or prints it. No
  /// window opens when the report or the settings file cannot be read: an AutomationError says so.
  /// A print that fails is told in a message.
  void PreviewReport(PreviewReportArguments& arguments);
  void PreviewReport(PreviewReportArguments&& arguments) { PreviewReport(arguments); }

  /// Opens an HTML file in the browser window and returns while that stays open; a window that is
  /// open already takes the file. A file to look at only has the text that takes away the context
  /// menu added to its end, each time. An AutomationError when there is no browser, with the file
  /// as it was, or when the file cannot be read or, to look only, changed.
  void PreviewReportWindows(PreviewReportWindowsArguments& arguments);
  void PreviewReportWindows(PreviewReportWindowsArguments&& arguments) {
    PreviewReportWindows(arguments);
  }

  /// True while a report window, or the browser window, is open; false when either has closed.
  bool RtWindows1() const;

  // Printer set-up

  /// Makes the current printer print in landscape ("L") or portrait (anything else), on the paper
  /// of a published number (9 is A4), or on its own paper (0). The user's later prints go out so
  /// too. A printer that keeps no settings is told in a message.
  void Set_Orientation(std::string_view PL, std::int16_t Page_Sz);

  // HTML

  /// Makes one page of HTML of a report file, in the text colours of the settings file, and says so
  /// in a message. The characters of HTML in the report pass as they are. After a failure, an
  /// AutomationError, an earlier page of that name stands.
  void expHTml(const std::string& TxtFile, const std::string& NewHtmlFile);

  /// Writes the rows, under the table that Set_Repot_Format read, as an HTML document of tables, a
  /// page each, for the user's page set-up and the printer's paper; the set-up keeps the footer
  /// that numbers the pages. Texts are windows-1252, what that lacks are character references; the
  /// characters of HTML in the data pass as they are. Call Set_Repot_Format before every export:
  /// running totals stay in the table. Without it an earlier document is removed and none is
  /// written. After a failure, an AutomationError, an earlier document stands. A preview that was
  /// asked for fails as PreviewReportWindows does, with the document written.
  void HTML_Export(HtmlExportArguments& arguments);
  void HTML_Export(HtmlExportArguments&& arguments) { HTML_Export(arguments); }

  /// HTML_Export with a style sheet, a class for each column, captions above columns, hidden
  /// columns (Sz 0), page breaks at groups and running numbers that begin anew in them. Sets the
  /// printer's orientation and paper first, as Set_Orientation does; no message is shown. The
  /// column table is changed: a second export without a new Set_Repot_Format has captions without
  /// fonts, centred.
  void HTML_Export_Salary(HtmlExportSalaryArguments& arguments);
  void HTML_Export_Salary(HtmlExportSalaryArguments&& arguments) { HTML_Export_Salary(arguments); }

  // Workbooks

  /// Writes the rows, under the table that Set_Repot_Format read, as a workbook of one sheet:
  /// titles, headings, a row for each of the data, a row of totals. The table's groups are not
  /// read, and it keeps its running totals. Without a file name a dialog asks for one when the rows
  /// are written; when it is cancelled, a message says so and there is no workbook. After a
  /// failure, an AutomationError, an earlier workbook stands.
  void Excel_Export(ExcelExportArguments& arguments);
  void Excel_Export(ExcelExportArguments&& arguments) { Excel_Export(arguments); }

  /// The letters of a sheet's column, from 1 ("A") to 260; none beyond.
  std::string GetExcelCol(std::int32_t col);

  // Stickers

  /// Shows the window in which stickers are typed, and returns while it stays open. The presets of
  /// the user cannot be read: an AutomationError, and no window.
  void StickerPrint();

  // Settings

  /// The value of a key in a settings file ("[KEY]", "Variable=value"), or the default. A missing
  /// file is created empty; one that cannot be created or read raises an AutomationError.
  std::string ReadIniValue(const std::string& INIpath, std::string_view KEY,
                           std::string_view Variable, std::string_view DefultVal);
  /// Replaces the file in one step, read-only or not; programs that write at once wait for one
  /// another. An AutomationError, with the file as it was, when a text holds a line end or a
  /// character that windows-1252 lacks, or the file would be longer than 32766 characters.
  void WriteIniValue(const std::string& INIpath, std::string_view PutKey,
                     std::string_view PutVariable, std::string_view PutValue);

  /// The host's company or installation number, which names the settings file.
  void Guid_comp1(std::string Guid_comp1);

  // Amounts

  /// An amount in words, grouped in hundreds, thousands, lakhs and crores: "One Crore Twelve
  /// Thousand Three Hundred Forty-Five and Fifty- Paisa Only". Below 1 it is "zero ", above
  /// 999999999 the words are "# Error #". Paise are rounded to the nearest, ties to even; 100 of
  /// them carry into the whole. A number that is not finite raises an AutomationError.
  std::string NumToText(double Num);
  /// The part behind the point, counted up from the next lower whole number: 0.75 for -2.25.
  float Desi(double Kk);
  /// A number at 15 significant digits, or the number that any other value's text begins with
  /// (which reads no exponent), rounded to two decimals, halves towards plus infinity. Zero gives
  /// the empty value; null raises an AutomationError.
  Value round_curr(ValueView currValue);

  // Texts, numbers and colours

  /// Name of the month, 1 to 12; any other number raises an AutomationError.
  std::string MonName(std::uint8_t Mon);
  /// A key filter: digits, backspace (8) and return (13) pass, every other key becomes 1.
  std::int16_t OnlyNum(std::int16_t KEY);
  /// The characters in reverse order.
  std::string ReverseName(std::string_view str);
  /// Blanks, digits, "|" and the letters A to Z and a to z alone, in their order.
  std::string Allow_Only_azAZ_01(std::string_view STr1);
  /// Each UTF-16 unit of the value's text as "&#", a signed 16-bit decimal number, ";": units from
  /// 32768 up come out negative.
  std::string UniToHex(ValueView strSource);
  /// What stands behind the last backslash; with `NoExtention` = 1 only up to its first ".". A
  /// native path needs its separators turned into backslashes first.
  std::string ParseFileName(std::string_view PstrFileIn, std::uint8_t NoExtention = 0);
  /// Shifts each character's code by that of a password character, modulo 256, and back. Codes are
  /// those of windows-1252, which all round-trip; a character that it lacks counts as "?". An empty
  /// password leaves the text as it is. A text or password above 32767 characters raises an
  /// AutomationError.
  std::string EncryptText(std::string_view strText, std::string_view strPwd);
  std::string DecryptText(std::string_view strText, std::string_view strPwd);
  /// The greatest, or least, of the values, which are numbers or texts that say a number. No value,
  /// or one that is no number, raises an AutomationError that names its place, counted from 1.
  double MaximumValue(std::initializer_list<ValueView> Val);
  double MaximumValue(std::span<const ValueView> Val);
  double MinimamValue(std::initializer_list<ValueView> Val);
  double MinimamValue(std::span<const ValueView> Val);
  /// The bytes of a colour, blue x 65536 + green x 256 + red. The highest byte of the 32 counts for
  /// nothing, so that every number is a colour.
  std::uint8_t RgbR(std::int32_t Colr);
  std::uint8_t RgbG(std::int32_t Colr);
  std::uint8_t RgbB(std::int32_t Colr);

  // The machine. A missing file raises an AutomationError that names it

  /// Moves a form, or a control, to the middle of the screen, a little above the true centre.
  void cent_scr(Geometry& pform);
  /// The canonical path of an existing file.
  std::string ShowShortPath(ValueView filespec);
  bool DirExists(const std::string& OrigFile);
  std::string TempFolder();
  /// A new name in the folder "TempDir" below the temporary folder. Makes sure of that folder; does
  /// not create the file.
  std::string TempFile();
  /// Day, month, year, hour, minute and second as plain numbers in a row, then ".zip".
  std::string UNIQFile();
  /// Adds the text, in windows-1252 and with no line end, to a file that exists.
  void Appendtxt(const std::string& FileName, std::string_view Text);
  /// 255 when both files exist.
  std::uint8_t FileCompare_DateLastModified(const std::string& f1, const std::string& f2);
  /// Empty when the system gives no name.
  std::string Get_CoputerName();
  std::string Get_UserName();

 private:
  void printDirectly(PreviewReportArguments& arguments);
  template <class Arguments>
  void previewExport(const Arguments& arguments);

  FileSystem& files();

  struct State;

  Platform platform_;
  RunContext run_;
  std::unique_ptr<State> state_;
};

}  // namespace paperway
