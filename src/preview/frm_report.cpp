#include "preview/frm_report.h"

#include <algorithm>

#include "paperway/platform/shell.h"
#include "paperway/platform/windows.h"
#include "session/run_state.h"

namespace paperway {
namespace {

constexpr int kDefaultPageLength = 6;  // inches
constexpr int kSettingPanelTop = 1500;
constexpr std::int64_t kGoToFromPages = 6;

/// Colour boxes that are kept between runs; 2 is not.
constexpr std::pair<int, ReportViewKey> kStoredColors[] = {
    {0, ReportViewKey::BBold},        {1, ReportViewKey::Bold},
    {3, ReportViewKey::Cond},         {4, ReportViewKey::RepotBackColor},
    {5, ReportViewKey::SearchString}, {6, ReportViewKey::Highlight},
};

}  // namespace

FrmReport::FrmReport(const Platform& platform, RunContext context)
    : Form("FrmReport"),
      run(std::move(context)),
      platform_(platform),
      CommonDialog1(platform.dialogs) {
  Caption = " Report View";
  nameControls();
  arrange();
  bindMoves();
  bindTools();
}

ReportViewSettings FrmReport::settings() const {
  return ReportViewSettings(platform_.storage, settingsPath(platform_.folders, run->ModGuidComp));
}

void FrmReport::Form_Load() {
  const bool windowWasOpen = run->ModWindowOpen;
  try {
    loadSteps();
  } catch (...) {
    run->ModWindowOpen = windowWasOpen;  // no window opens
    throw;
  }
}

void FrmReport::loadSteps() {
  RunState& state = *run;
  const auto take = [](const std::function<void()>& step) {
    if (step) step();
  };
  state.ModWindowOpen = true;
  if (state.ModPagelenth == 0) state.ModPagelenth = kDefaultPageLength;
  ComPaperHeight.Text = std::to_string(state.ModPagelenth);
  Ch17.Value = state.ModCc17 != 0 ? 1 : 0;
  Ch12.Value = state.ModCc12 != 0 ? 1 : 0;
  dosFont = DOSEFONTcHR();
  applySwitches();
  take(printSteps.readTearSettings);
  ColumnMarks.assign(11, 0);
  ColumnMarkCount = 0;
  readColors();
  take(printSteps.readPrintMode);
  for (const int index : {0, 1, 3}) Lb[index].ForeColor = TXt[index].BackColor;
  Rt1.BackColor = TXt[4].BackColor;
  take(printSteps.FillPrinterList);
  loadReport();
  showPageNumber();
  ApplyPageStyles();
  for (JeweledButton* button : {&CmdBck, &CmdNxt, &CmdLast, &CmdFst}) button->Enabled = true;
  SpLebal3.Visible = Text2.Visible = PageCount() >= kGoToFromPages;
}

void FrmReport::applySwitches() {
  const RunState& state = *run;
  CmdPrint.Visible = true;
  if (state.ModRCont == 0) Check3.Visible = false;
  if (state.ModREdit == 0) Check2.Visible = false;
  if (state.ModRSearch == 0) Text4.Visible = Label7.Visible = false;
  if (state.ModRImport == 0) CmdImport.Visible = false;
  if (state.ModRExport == 0 || !JeweledButton1.onClick) JeweledButton1.Visible = false;
  Frame6.Top = state.ModRColor != 0 ? kSettingPanelTop : kOffTheWindow;
  Label4.Visible = state.ModRColor != 0;
  if (state.ModRPrint == 0) CmdPrint.Visible = Label8.Visible = false;
  if (!Label8.onClick) Label8.Visible = false;
  if (!Label10.onClick) Label10.Visible = false;
}

void FrmReport::readColors() {
  const ReportViewSettings stored = settings();
  for (const auto& [index, key] : kStoredColors) TXt[index].BackColor = stored.color(key);
  // Their handlers would write what has just been read.
  ChSearch.Value.setQuietly(stored.flag(ReportViewKey::chSearch) ? 1 : 0);
  ChL.Value.setQuietly(stored.flag(ReportViewKey::chl) ? 1 : 0);
  ChHighlighte.Value.setQuietly(stored.flag(ReportViewKey::ChHighlighte) ? 1 : 0);
}

/// A report that cannot be read leaves the one on show as it is.
void FrmReport::loadReport() {
  Rt1.LoadFile(platform_.storage, run->ModPath1);
  ReportPath = run->ModPath1;
  PageText = PageTable(Rt1.loaded());
  CurrentPage = 0;
  showPage();
  tellPageCount();
}

/// The print panel reads the number back.
void FrmReport::tellPageCount() {
  Tend.ToolTipText = "  " + std::to_string(PageCount()) + "  : Maximum ";
}

void FrmReport::tintLabels() {
  for (const int index : {0, 1, 2, 3, 6}) Lb[index].ForeColor = TXt[index].BackColor;
}

void FrmReport::Form_Activate() {
  tellPageCount();
  Op[0].Value = true;
  arrange();
  if (Rt1.Tag != "a") CmdFst_Click();
  Rt1.Tag = "a";
}

void FrmReport::Form_Unload() {
  run->ModWindowOpen = false;
}

void FrmReport::TXt_DblClick(int index) {
  CommonDialog1.Color = TXt[index].BackColor;
  CommonDialog1.ShowColor();
  TXt[index].BackColor = CommonDialog1.Color;
  tintLabels();
  const ReportViewSettings stored = settings();
  using Key = ReportViewKey;
  const auto keep = [&](Key key, int box) { stored.setColor(key, TXt[box].BackColor); };
  keep(Key::BBold, 0);
  keep(Key::Bold, 1);
  keep(Key::Cond, 3);
  keep(Key::RepotBackColor, 4);
  keep(Key::SearchString, 5);
  stored.setFlag(Key::chSearch, ChSearch.Value != 0);
  keep(Key::Highlight, 6);
}

void FrmReport::ChHighlighte_Click() {
  settings().setFlag(ReportViewKey::ChHighlighte, ChHighlighte.Value != 0);
}

}  // namespace paperway
