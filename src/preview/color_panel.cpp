#include "preview/color_panel.h"

#include <utility>

#include "controls/common_dialog.h"
#include "preview/frm_report_controls.h"

namespace paperway {
namespace {

/// Colour boxes that are kept between runs; 2 is not.
constexpr std::pair<int, ReportViewKey> kStoredColors[] = {
    {0, ReportViewKey::BBold},        {1, ReportViewKey::Bold},
    {3, ReportViewKey::Cond},         {4, ReportViewKey::RepotBackColor},
    {5, ReportViewKey::SearchString}, {6, ReportViewKey::Highlight},
};

}  // namespace

void ColorPanel::read() {
  const ReportViewSettings stored = settings_().snapshot();
  for (const auto& [index, key] : kStoredColors) window_.TXt[index].BackColor = stored.color(key);
  // Their handlers would write what has just been read.
  window_.ChSearch.Value.setQuietly(stored.flag(ReportViewKey::chSearch) ? 1 : 0);
  window_.ChL.Value.setQuietly(stored.flag(ReportViewKey::chl) ? 1 : 0);
  window_.ChHighlighte.Value.setQuietly(stored.flag(ReportViewKey::ChHighlighte) ? 1 : 0);
}

void ColorPanel::choose(int index) {
  Color& color = window_.TXt[index].BackColor;
  dialog_.Color = color;
  dialog_.ShowColor();
  color = dialog_.Color;
  for (const int tinted : {0, 1, 2, 3, 6}) {
    window_.Lb[tinted].ForeColor = window_.TXt[tinted].BackColor;
  }
  keep();
}

void ColorPanel::keep() const {
  const ReportViewSettings stored = settings_();
  for (const auto& [index, key] : kStoredColors) stored.setColor(key, window_.TXt[index].BackColor);
  stored.setFlag(ReportViewKey::chSearch, window_.ChSearch.Value != 0);
}

}  // namespace paperway
