// What Rt1 shows of the report, and how it is styled.

#include <cstdint>
#include <string>

#include "paperway/automation_error.h"
#include "paperway/value.h"
#include "preview/frm_report.h"
#include "preview/page_styles.h"
#include "util/numbers.h"

namespace paperway {

void FrmReport::showPage() {
  Rt1.show(PageText.shown(CurrentPage));
  showsWholeReport_ = false;
}

PageLook FrmReport::pageLook() const {
  return {.styled = Check1.Value != 0,
          .zoomed = ZoomOn,
          .wide = TXt[0].BackColor,
          .bold = TXt[1].BackColor,
          .condensed = TXt[3].BackColor};
}

void FrmReport::ReportSetting(RichTextBox& Richtex, std::string_view Search,
                              std::string_view Search1, std::string_view seting) {
  const PageLook look = pageLook();
  if (!look.styled) return;
  stylePairs(Richtex.buffer(), Search, Search1, styleOf(seting, look),
             [&](std::size_t begin, std::size_t end, const FormatChange& change) {
               Richtex.format(begin, end, change);
             });
  Richtex.SelStart = 0;
  Richtex.SelLength = 1;
}

void FrmReport::ApplyPageStyles() {
  Rt1.Visible = false;
  for (const StylePass& pass : windowPasses(dosFont)) {
    ReportSetting(Rt1, pass.start, pass.end, pass.setting);
  }
  Rt1.Visible = true;
}

PageRange FrmReport::chosenPages() const {
  if (Op[2].Value) {
    return {wholeNumber(leadingNumber(Tst.Text.get()) - 1),
            wholeNumber(leadingNumber(Tend.Text.get()) - 1)};
  }
  if (Op[1].Value) return {CurrentPage, CurrentPage};
  return {0, PageCount() - 1};
}

PageRange FrmReport::exportedPages() const {
  const PageRange pages = chosenPages();
  if (!Op[2].Value || pages.last <= INT16_MAX) return pages;
  throw AutomationError(AutomationError::kOverflow, "PrintExport",
                        "A range can reach to page " + std::to_string(INT16_MAX + 1) +
                            ", not to \"" + Tend.Text.get() + "\".");
}

void FrmReport::collectPages(const PageRange& pages) {
  if (pages.empty()) {
    RT3.Text = "";
  } else {
    RT3.show(PageText.shown(pages.first, pages.last));
  }
}

void FrmReport::styleExportCopy() {
  collectPages(exportedPages());
  RT3.Visible = false;
  for (const StylePass& pass : exportPasses(dosFont)) {
    ReportSetting(RT3, pass.start, pass.end, pass.setting);
  }
}

void FrmReport::PrintExport() {
  if (CmdOk.Tag == "1" && printSteps.drawPages) {
    printSteps.drawPages();
  } else {
    styleExportCopy();
  }
}

}  // namespace paperway
