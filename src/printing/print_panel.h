#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "paperway/platform.h"
#include "paperway/platform/printers.h"
#include "preview/frm_report.h"
#include "printing/page_fit.h"
#include "printing/panel_job.h"

namespace paperway {

/// The print panel Frame1 of a report window, and the settings of Frame6 that are its own: mode,
/// printer, pages, copies, pitch, paper height and tear lines, and the job that they make.
class PrintPanel {
 public:
  /// Gives the form's controls their handlers, before it is loaded. The panel lives as long as the
  /// form.
  static void bind(FrmReport& form, const Platform& platform);

  PrintPanel(FrmReport& form, const Platform& platform) : form_(form), platform_(platform) {}

  // Steps of the form's load.
  void readTearSettings();
  void readPrintMode();
  void FillPrinterList();

  // The look of the panel.
  void CmdPrint_Click();
  void CmdCancel_Click();
  void Mode_Click();
  void Op_Click();
  void Ch10_Click();
  void Ch12_Click();
  void Ch17_Click();
  void ChDraft_Click();
  void VScroll1_Change();
  void CboLetters_Click();
  void Text3_Change();
  void Tst_KeyPress(int& key) const;
  void Tend_Validate();

  // Settings that are kept.
  void Comtear_Change();
  void Check5_Click();
  void ChL_Click();

  void CmdOk_Click();
  void CmdPaper_Click();

 private:
  void bindLook();
  void bindSettings();
  /// Writes a setting that differs from what is stored.
  void keep(ReportViewKey key, const std::string& text) const;

  bool hasPages();
  void showDefaultPrinter();
  void addNewPrinters();

  /// Says in the panel what will not fit on the paper.
  void showFit();
  std::string fitText();
  PageRanges knownPages(const PageRange& pages) const;
  ReportExtent rawExtent(const PageRange& pages) const;
  /// What of these pages is measured, as it would go to a printer.
  void eachRawBlock(const PageRange& pages,
                    const std::function<void(std::string_view)>& take) const;
  std::string plainText(const PageRange& pages) const;
  void showLetters();
  PaperRoom room();
  const std::optional<PageSettings>& settings();

  FrmReport& form_;
  Platform platform_;
  PanelJob job_{form_, platform_};
  std::optional<std::string> settingsOf_;  // the printer whose settings are known
  std::optional<PageSettings> settings_;
  bool copiesCut_ = false;  // Text3 asked for more than a job takes
};

}  // namespace paperway
