// What Rt1 shows of the report, and how it is styled.

#include <algorithm>

#include "paperway/value.h"
#include "preview/frm_report.h"
#include "preview/page_styles.h"

namespace paperway {
namespace {

struct Pass {
  std::string_view start;
  std::string_view end;
  std::string_view setting;
};

/// The passes of a styled copy that leaves the window.
std::array<Pass, 4> exportPasses(const DOSEFONTcHR& font) {
  return {{{font.Con, font.Coff, "cond"},
           {font.UnLOn, font.UnLoff, "uline"},
           {font.BBon, font.BBoff, "bbold"},
           {font.Bon, font.Boff, "bold"}}};
}

std::int16_t pageIndex(const std::string& text) {
  return static_cast<std::int16_t>(wholeNumber(leadingNumber(text) - 1));
}

}  // namespace

void FrmReport::showPage() {
  Rt1.show(PageText.shown(CurrentPage));
  showsWholeReport_ = false;
}

void FrmReport::ReportSetting(RichTextBox& Richtex, std::string_view Search,
                              std::string_view Search1, std::string_view seting) {
  if (Check1.Value == 0) return;
  FormatChange style;
  if (seting == "bold") {
    style = {.color = TXt[1].BackColor, .bold = true};
  } else if (seting == "cond") {
    style = {.size = ZoomOn ? 9.25 : 7, .color = TXt[3].BackColor};
  } else if (seting == "uline") {
    style = {.underline = true};
  } else if (seting == "bbld") {
    style = {.size = ZoomOn ? 29 : 20, .color = TXt[0].BackColor, .bold = true};
  }
  stylePairs(Richtex, Search, Search1, style);
}

void FrmReport::ApplyPageStyles() {
  Rt1.Visible = false;
  const Pass passes[] = {
      {dosFont.Con, dosFont.Coff, "cond"}, {dosFont.UnLOn, dosFont.UnLoff, "uline"},
      {dosFont.Bon, dosFont.Boff, "bold"}, {dosFont.BBon, dosFont.BBoff, "bbld"},
      {dosFont.C96, dosFont.C80, "c96"},   {"\x1BG", "\x1BH", "HB"}};
  for (const Pass& pass : passes) ReportSetting(Rt1, pass.start, pass.end, pass.setting);
  Rt1.Visible = true;
}

void FrmReport::collectPages(std::int64_t first, std::int64_t last) {
  if (first > last) {
    RT3.Text = "";
  } else {
    RT3.show(PageText.shown(first, last));
  }
}

void FrmReport::PrintExport() {
  std::int64_t first = 0;
  std::int64_t last = 0;
  if (Op[2].Value) {
    first = pageIndex(Tst.Text);
    last = pageIndex(Tend.Text);
  } else if (Op[1].Value) {
    first = last = CurrentPage;
  } else if (Op[0].Value) {
    last = PageCount() - 1;
  }
  collectPages(first, last);
  RT3.Visible = false;
  const auto style = [this](RichTextBox& box) {
    for (const Pass& pass : exportPasses(dosFont)) {
      ReportSetting(box, pass.start, pass.end, pass.setting);
    }
  };
  if (CmdOk.Tag != "1") {
    style(RT3);
    return;
  }
  const auto copies = static_cast<std::int64_t>(leadingNumber(Text3.Text.get()));
  for (std::int64_t page = first; page <= last; ++page) {
    RTBox.show(PageText.element(page));
    style(RTBox);
    RTBox.SelStart = 0;
    RTBox.SelLength = static_cast<std::int64_t>(RTBox.buffer().size());
    if (!RTBox.buffer().empty() && printSteps.printPage) {
      const std::vector<StyledLine> lines = RTBox.SelPrint();
      for (std::int64_t copy = 0; copy < copies; ++copy) printSteps.printPage(lines);
    }
    RTBox.SelStart = 0;
    RTBox.SelLength = 1;
  }
}

}  // namespace paperway
