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
/// Texts are UTF-8, paths native, both std::string. Failures are AutomationErrors, unless a member
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

  /// What the last Set_Repot_Format, Text_Rpt or PreviewReport showed in a message instead of
  /// raising it; null when it showed none.
  const AutomationError* lastFailure() const;

  /// Writes a paged report file of the rows, under the table that Set_Repot_Format read. Call that
  /// before every report: running totals stay in the table. A group field that the rows lack is
  /// shown as a message, and the call returns with nothing written; after any other failure, an
  /// AutomationError, an earlier report of that name stands as it was. A preview that was asked for
  /// fails as PreviewReport does, with the report written.
  void Text_Rpt(TextRptArguments& arguments);
  void Text_Rpt(TextRptArguments&& arguments) { Text_Rpt(arguments); }

  // Layout primitives: texts in fixed positions, counted in characters. See report/layout.h

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

  /// True while a report window is open.
  bool RtWindows1() const;

  // Printer set-up

  /// Makes the current printer print in landscape ("L") or portrait (anything else), on the paper
  /// of a published number, or on its own paper (0). The user's later prints go out so too.
  void Set_Orientation(std::string_view PL, std::int16_t Page_Sz);

  // Settings

  /// The value of a key in a settings file, or the default. See facade/settings_store.h.
  std::string ReadIniValue(const std::string& INIpath, std::string_view KEY,
                           std::string_view Variable, std::string_view DefultVal);
  void WriteIniValue(const std::string& INIpath, std::string_view PutKey,
                     std::string_view PutVariable, std::string_view PutValue);

  /// The host's company or installation number, which names the settings file.
  void Guid_comp1(std::string Guid_comp1);

  // Numbers and dates: see util/words.h

  std::string NumToText(double Num);
  float Desi(double Kk);
  Value round_curr(ValueView currValue);
  std::string MonName(std::uint8_t Mon);

  // Text, path, file and system: see util/text_tools.h, util/colors.h, util/extremes.h and
  // platform/system_tools.h

  std::int16_t OnlyNum(std::int16_t KEY);
  /// Moves a form, or a control, to the middle of the screen, a little above the true centre.
  void cent_scr(Geometry& pform);
  std::string ShowShortPath(ValueView filespec);
  std::string UNIQFile();
  std::string ReverseName(std::string_view str);
  std::string ParseFileName(std::string_view PstrFileIn, std::uint8_t NoExtention = 0);
  std::string EncryptText(std::string_view strText, std::string_view strPwd);
  std::string DecryptText(std::string_view strText, std::string_view strPwd);
  std::string TempFile();
  std::string TempFolder();
  std::uint8_t RgbR(std::int32_t Colr);
  std::uint8_t RgbG(std::int32_t Colr);
  std::uint8_t RgbB(std::int32_t Colr);
  double MaximumValue(std::initializer_list<ValueView> Val);
  double MaximumValue(std::span<const ValueView> Val);
  double MinimamValue(std::initializer_list<ValueView> Val);
  double MinimamValue(std::span<const ValueView> Val);
  std::string Get_CoputerName();
  std::string Get_UserName();
  bool DirExists(const std::string& OrigFile);
  void Appendtxt(const std::string& FileName, std::string_view Text);
  std::uint8_t FileCompare_DateLastModified(const std::string& f1, const std::string& f2);
  std::string UniToHex(ValueView strSource);
  std::string Allow_Only_azAZ_01(std::string_view STr1);

 private:
  void printDirectly(PreviewReportArguments& arguments);

  FileSystem& files();

  struct State;

  Platform platform_;
  RunContext run_;
  std::unique_ptr<State> state_;
};

}  // namespace paperway
