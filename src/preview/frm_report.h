#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "controls/common_dialog.h"
#include "paperway/platform.h"
#include "paperway/run_context.h"
#include "preview/color_panel.h"
#include "preview/frm_report_controls.h"
#include "preview/report_document.h"
#include "preview/report_search.h"
#include "printed/page_ranges.h"
#include "session/settings_store.h"
#include "util/control_strings.h"

namespace paperway {

/// The window in which a report file is read page by page. Its arguments are those of its run
/// context at the moment of load(), which raises an AutomationError when the report cannot be read.
///
/// What other parts of the system do on it is bound from outside before load(): the hooks of the
/// controls of Frame1 and of the tear and mode settings in Frame6, of CmdPrint, JeweledButton1,
/// CmdExelExp, Label8 and Label10, and the steps below. What is not bound is not offered.
class FrmReport : public FrmReportControls {
 public:
  FrmReport(const Platform& platform, RunContext context);

  const RunContext run;

  /// Steps of the load that belong to the print panel, each run where its name stands in the load.
  struct PrintSteps {
    std::function<void()> readTearSettings;
    std::function<void()> readPrintMode;
    std::function<void()> FillPrinterList;
    /// Draws the chosen pages on the printer, as often as Text3 says.
    std::function<void()> drawPages;
  };
  PrintSteps printSteps;
  /// The report as a page of HTML: in the file of CommonDialog1, and in another with page breaks,
  /// after which a `NoMessage` of 1 shows no message.
  std::function<void()> expHTml;
  std::function<void(const std::filesystem::path& HtmlFile, std::uint8_t NoMessage)> expHTml_1;
  /// Ends what a bound part has under way; false when that is nothing.
  std::function<bool()> giveUp;
  /// Keeps the bound parts alive as long as the form.
  std::vector<std::shared_ptr<void>> parts;

  std::filesystem::path ReportPath;
  PageTable PageText;
  std::int64_t PageCount() const { return PageText.PageCount(); }
  std::int64_t CurrentPage = 0;
  bool ZoomOn = false;
  std::filesystem::path PrintPartFile;  // empty means the whole report
  std::vector<std::int16_t> ColumnMarks;
  std::uint8_t ColumnMarkCount = 0;
  DOSEFONTcHR dosFont;
  CommonDialog CommonDialog1;

  void Form_Load() override;
  /// The load steps again, with another report; one that cannot be read leaves the one on show.
  void open(const std::filesystem::path& path);
  void Form_Activate() override;
  void Form_Resize() override { Form_Activate(); }
  void Form_Unload() override;
  void Form_MouseMove(const MouseEvent& event) override;
  void Form_KeyDown(int& keyCode, int shift) override;

  // Pages and styles.
  void showPage();
  void ReportSetting(RichTextBox& Richtex, std::string_view Search, std::string_view Search1,
                     std::string_view seting);
  void ApplyPageStyles();
  /// Draws the chosen pages when CmdOk.Tag is "1", else leaves them styled in RT3.
  void PrintExport();
  void styleExportCopy();
  /// The pages that Op, Tst and Tend say, whether the report has them or not.
  PageRange chosenPages() const;
  /// The same for PrintExport, which tells a range in 16 bits: an AutomationError beyond them.
  PageRange exportedPages() const;
  /// These pages, each followed by a form feed, as the text of RT3.
  void collectPages(const PageRange& pages);

  /// The report on show, and how its pages look; what is edited in Rt1 is not in it.
  ReportDocument document() const { return ReportDocument(PageText); }
  PageLook pageLook() const;

  // Moves and search.
  void CmdFst_Click();
  void CmdBck_Click();
  void CmdNxt_Click();
  void CmdLast_Click();
  void Text2_KeyPress(int& key);
  void Text2_LostFocus();
  void Text4_KeyPress(int& key);
  void Text4_KeyDown(int& keyCode);

  // Tools.
  void Check2_Click();
  void Check2_MouseDown(const MouseEvent& event);
  void Check3_Click();
  void Command2_Click();
  void CmdImport_Click();
  void Rt1_MouseDown(const MouseEvent& event);
  void Rt1_Click();
  void Rt1_KeyDown(int& keyCode, int shift);
  void Rt1_KeyUp();
  void cccc_Click();
  void pppp_Click();
  void ht_Click();
  void showSettings();
  void TXt_DblClick(int index) { colors_.choose(index); }
  void ChHighlighte_Click();
  void Image1_Click();
  void Image1_MouseMove();
  void JeExit_Click();

  // The caret's place in the caption.
  void Timer1_Timer();
  void ShowCaretStatus();
  /// Shows the marks that are taken, on every page; none when none are being taken.
  void showMarks();

  ReportViewSettings settings() const;

 private:
  void loadSteps();
  void applySwitches();
  void loadReport();
  void tellPageCount();
  void showPageNumber();
  bool shortcut(int keyCode, int shift);
  void escape();
  void turnPage(bool forward);
  void zoom(bool in);
  bool goesToReportEnd(int keyCode, int shift);
  void turnTo(std::int64_t page);
  void bindMoves();
  void bindTools();
  void goToPage();

  Platform platform_;
  ColorPanel colors_;
  ReportSearch search_;
  bool showsWholeReport_ = false;  // in Rt1; a page move ends it, whatever Check3 says
};

}  // namespace paperway
