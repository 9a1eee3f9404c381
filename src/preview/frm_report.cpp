#include "preview/frm_report.h"

#include <algorithm>
#include <utility>

#include "paperway/automation_error.h"
#include "paperway/platform/clipboard.h"
#include "paperway/platform/file_system.h"
#include "paperway/platform/message_boxes.h"
#include "paperway/platform/shell.h"
#include "paperway/platform/windows.h"
#include "paperway/value.h"
#include "preview/page_styles.h"
#include "session/run_state.h"
#include "util/numbers.h"
#include "util/path_text.h"
#include "util/revision.h"
#include "util/utilities.h"

namespace paperway {
namespace {

constexpr int kDefaultPageLength = 6;  // inches
constexpr int kSettingPanelTop = 1500;
constexpr std::int64_t kGoToFromPages = 6;
constexpr double kZoomedSize = 15;
constexpr double kUnzoomedSize = 12;
constexpr int kMenuRight = 50;
constexpr int kMenuDown = 525;
constexpr int kPressed = 15;  // how far the calculator gives way under the mouse

/// What stood there before gives way to what is typed.
bool typeInto(TextBox& box) {
  if (!box.SetFocus()) return false;
  box.selectAll();
  return true;
}

}  // namespace

FrmReport::FrmReport(const Platform& platform, RunContext context)
    : run(std::move(context)),
      CommonDialog1(platform.dialogs),
      platform_(platform),
      colors_(*this, CommonDialog1, [this] { return settings(); }),
      search_(*this, platform_.windows) {
  arrange(platform_.windows.screen());
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

void FrmReport::open(const std::filesystem::path& path) {
  const std::filesystem::path before = std::exchange(run->ModPath1, path);
  try {
    loadSteps();
  } catch (...) {
    run->ModPath1 = before;
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
  colors_.read();
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

void FrmReport::Form_Activate() {
  tellPageCount();
  Op[0].Value = true;
  arrange(platform_.windows.screen());
  if (Rt1.Tag != "a") CmdFst_Click();
  Rt1.Tag = "a";
}

void FrmReport::Form_Unload() {
  run->ModWindowOpen = false;
}

void FrmReport::ChHighlighte_Click() {
  settings().setFlag(ReportViewKey::ChHighlighte, ChHighlighte.Value != 0);
}

// What Rt1 shows of the report, and how it is styled.

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

// The buttons and boxes that change the page on show.

void FrmReport::bindMoves() {
  CmdFst.onClick = [this] { CmdFst_Click(); };
  CmdBck.onClick = [this] { CmdBck_Click(); };
  CmdNxt.onClick = [this] { CmdNxt_Click(); };
  CmdLast.onClick = [this] { CmdLast_Click(); };
  Text2.onKeyPress = [this](int& key) { Text2_KeyPress(key); };
  Text2.onLostFocus = [this] { Text2_LostFocus(); };
  Text4.onKeyPress = [this](int& key) { Text4_KeyPress(key); };
  Text4.onKeyDown = [this](int& keyCode, int) { Text4_KeyDown(keyCode); };
}

void FrmReport::showPageNumber() {
  LbPageNo.Caption = "Page " + std::to_string(CurrentPage + 1) + "/" + std::to_string(PageCount());
  LBPage.Caption = std::to_string(CurrentPage + 1);
}

void FrmReport::turnTo(std::int64_t page) {
  CurrentPage = page;
  showPage();
  ApplyPageStyles();
}

void FrmReport::CmdFst_Click() {
  turnTo(0);
  showPageNumber();
  CmdBck.Enabled = false;
  CmdNxt.Enabled = true;
}

void FrmReport::CmdBck_Click() {
  if (CurrentPage == 0) CmdBck.Enabled = false;
  turnTo(std::max<std::int64_t>(CurrentPage - 1, 0));
  showPageNumber();
  CmdNxt.Enabled = true;
}

void FrmReport::CmdNxt_Click() {
  const std::int64_t last = PageCount() - 1;
  if (CurrentPage == last) CmdNxt.Enabled = false;
  turnTo(std::min(CurrentPage + 1, last));
  showPageNumber();
  CmdBck.Enabled = true;
}

void FrmReport::CmdLast_Click() {
  turnTo(PageCount() - 1);
  showPageNumber();
  CmdNxt.Enabled = false;
  CmdBck.Enabled = true;
}

void FrmReport::Text2_KeyPress(int& key) {
  key = OnlyNum(static_cast<std::int16_t>(std::clamp(key, 0, 32767)));
  if (key == keyReturn) goToPage();
}

void FrmReport::Text2_LostFocus() {
  Text2.Text = "";
}

void FrmReport::goToPage() {
  const double page = leadingNumber(Text2.Text.get()) - 1;
  if (!(page >= 0 && page <= static_cast<double>(PageCount() - 1))) {
    platform_.messageBox.show(" Select Valid PageNo...!", "", MessageBoxes::Buttons::ok,
                              MessageBoxes::Icon::critical);
    return;
  }
  turnTo(wholeNumber(page));
  LbPageNo.Caption = "Page " + std::to_string(CurrentPage + 1) + "/" + std::to_string(PageCount());
}

void FrmReport::Text4_KeyPress(int& key) {
  if (key == keyReturn) search_.run();
}

void FrmReport::Text4_KeyDown(int& keyCode) {
  if (keyCode == keyEscape) Text4.Tag = "1";
}

// Keys that do what people expect of them beside the buttons.

/// Esc closes the panel in front, or leaves a box for the page. It goes on to the box, whose search
/// it stops.
void FrmReport::escape() {
  if (giveUp && !Enabled) {
    giveUp();
  } else if (Frame1.Visible) {
    if (CmdCancel.onClick) CmdCancel.click();
  } else if (Frame6.Visible && Label4.Visible) {
    Command3.click();
  } else if (giveUp && giveUp()) {
    Rt1.SetFocus();
  } else if (activeControl() != &Rt1) {
    Rt1.SetFocus();
  }
}

void FrmReport::turnPage(bool forward) {
  if (showsWholeReport_) return;
  if (forward && CurrentPage < PageCount() - 1) {
    CmdNxt_Click();
  } else if (!forward && CurrentPage > 0) {
    CmdBck_Click();
    Rt1.moveCaret(Rt1.buffer().size());
  }
}

void FrmReport::zoom(bool in) {
  if (in != ZoomOn) Command2_Click();
}

/// True when the key is used up.
bool FrmReport::shortcut(int keyCode, int shift) {
  if (keyCode == keyEscape && shift == 0) escape();
  if (keyCode == keyAdd && shift == (smCtrl | smShift)) shift = smCtrl;  // where it needs both
  if (shift != smCtrl) return false;
  switch (keyCode) {
    case 'F':
      return typeInto(Text4);
    case 'G':
      return typeInto(Text2);
    case 'P':
      return CmdPrint.Visible && CmdPrint.onClick && CmdPrint.click();
    case keyAdd:
    case keySubtract:
      zoom(keyCode == keyAdd);
      return true;
    case keyPageDown:
    case keyPageUp:
      turnPage(keyCode == keyPageDown);
      return true;
    default:
      return false;
  }
}

void FrmReport::Form_KeyDown(int& keyCode, int shift) {
  if (!Enabled && keyCode != keyEscape) return;
  if (shortcut(keyCode, shift)) keyCode = 0;
}

/// For a reader the ends of the text are those of the report.
bool FrmReport::goesToReportEnd(int keyCode, int shift) {
  if (!Rt1.Locked || showsWholeReport_ || shift != smCtrl) return false;
  if (keyCode == keyHome) {
    CmdFst_Click();
    Rt1.moveCaret(0);
  } else if (keyCode == keyEnd) {
    CmdLast_Click();
    Rt1.moveCaret(Rt1.buffer().size());
  } else {
    return false;
  }
  return true;
}

// The small tools around the page: editing, the continuous view, zoom, import, the menu, the panels
// and the calculator.

void FrmReport::bindTools() {
  Check2.onClick = [this] { Check2_Click(); };
  Check2.onMouseDown = [this](const MouseEvent& event) { Check2_MouseDown(event); };
  Check3.onClick = [this] { Check3_Click(); };
  Command2.onClick = [this] { Command2_Click(); };
  CmdImport.onClick = [this] { CmdImport_Click(); };
  Rt1.onMouseDown = [this](const MouseEvent& event) { Rt1_MouseDown(event); };
  Rt1.onClick = [this] { Rt1_Click(); };
  Rt1.onMouseUp = [this](const MouseEvent&) { Rt1_Click(); };  // also where a drag ends outside
  Rt1.onKeyDown = [this](int& keyCode, int shift) { Rt1_KeyDown(keyCode, shift); };
  Rt1.onKeyUp = [this](int&, int) { Rt1_KeyUp(); };
  Rt1.onLostFocus = [this] { Rt1_KeyUp(); };  // a key may come up elsewhere
  Rt1.onTurnPage = [this](bool forward) { turnPage(forward); };
  cccc.onClick = [this] { cccc_Click(); };
  pppp.onClick = [this] { pppp_Click(); };
  ht.onClick = [this] { ht_Click(); };
  Label4.onClick = lb1.onClick = [this] { showSettings(); };
  Command3.onClick = [this] { Frame6.Visible = false; };
  for (int index = TXt.LBound(); index <= TXt.UBound(); ++index) {
    TXt[index].onDblClick = [this, index] { TXt_DblClick(index); };
  }
  ChHighlighte.onClick = [this] { ChHighlighte_Click(); };
  Image1.onClick = [this] { Image1_Click(); };
  Image1.onMouseMove = [this](const MouseEvent&) { Image1_MouseMove(); };
  JeExit.onClick = [this] { JeExit_Click(); };
  Timer1.onTimer = [this] { Timer1_Timer(); };
  Image1.Visible = platform_.shell.calculator().has_value();
}

void FrmReport::Check2_Click() {
  Rt1.Locked = Check2.Value == 0;
  if (!Rt1.Locked) Op[1].Value = true;
}

/// A plain press shows the control characters of the pages to come.
void FrmReport::Check2_MouseDown(const MouseEvent& event) {
  Check1.Value = event.button == mbRight && (event.shift & smShift) != 0 ? 1 : 0;
}

void FrmReport::Check3_Click() {
  const bool whole = Check3.Value != 0;
  try {
    if (whole) {
      Rt1.LoadFile(platform_.storage, ReportPath);
      showsWholeReport_ = true;
    } else {
      loadSteps();
    }
  } catch (...) {
    Check3.Value.setQuietly(whole ? 0 : 1);  // what is on show has not changed
    throw;
  }
}

void FrmReport::Command2_Click() {
  ZoomOn = Command2.Caption == "Zoom";
  Rt1.Font.Size = ZoomOn ? kZoomedSize : kUnzoomedSize;
  showPage();
  ApplyPageStyles();
  Command2.Caption = ZoomOn ? "Zoom Out" : "Zoom";
}

void FrmReport::CmdImport_Click() {
  CommonDialog1.Filter = " Txt File(*.txt)|*.txt";
  CommonDialog1.DialogTitle = "[ TXT File Only ]Select A File From Which To Retrive Data";
  CommonDialog1.ShowOpen();
  if (CommonDialog1.FileName.empty()) return;
  open(pathOf(platform_.files.GetFile(textOf(CommonDialog1.FileName)).ShortPath));
}

void FrmReport::Rt1_MouseDown(const MouseEvent& event) {
  if (event.button == mbRight) {
    pppp.Visible = Check2.Value != 0;
    FindColumns.Visible = FindColumns.onClick && CmdExelExp.Tag == "1";
    PopupMenu(AQ, event.x + kMenuRight, event.y + kMenuDown);
  } else if (event.button == mbLeft && event.shift == smCtrl) {
    Command2_Click();
  }
}

void FrmReport::Rt1_Click() {
  Timer1.Tag = "0";
}

void FrmReport::Rt1_KeyDown(int& keyCode, int shift) {
  if (keyCode == keyControl) Rt1.MousePointer = mpCustom;
  Timer1.Tag = "0";
  if (goesToReportEnd(keyCode, shift)) keyCode = 0;
}

void FrmReport::Rt1_KeyUp() {
  Rt1.MousePointer = mpDefault;
}

void FrmReport::cccc_Click() {
  if (const std::string text = Rt1.copyText(); !text.empty()) platform_.clipboard.setText(text);
}

void FrmReport::pppp_Click() {
  Rt1.paste(platform_.clipboard.text());
  Timer1.Tag = "0";
}

void FrmReport::ht_Click() {
  if (!Rt1.hasSelection()) return;
  Rt1.rememberFormats();
  if (ChHighlighte.Value != 0) Rt1.SelBold = true;
  Rt1.SelColor = TXt[6].BackColor;
}

void FrmReport::showSettings() {
  Frame6.Visible = true;
}

void FrmReport::Image1_Click() {
  if (const auto command = platform_.shell.calculator()) platform_.shell.start(*command);
}

void FrmReport::Image1_MouseMove() {
  if (Image1.Tag == "1") return;
  Image1.Top += kPressed;
  Image1.Left += kPressed;
  Image1.Tag = "1";
}

void FrmReport::Form_MouseMove(const MouseEvent&) {
  if (Image1.Tag != "1") return;
  Image1.Top -= kPressed;
  Image1.Left -= kPressed;
  Image1.Tag = "0";
}

void FrmReport::JeExit_Click() {
  unload();
  run->ModWindowOpen = false;
}

void FrmReport::Timer1_Timer() {
  if (Timer1.Tag != "1") ShowCaretStatus();
}

void FrmReport::ShowCaretStatus() {
  Timer1.Tag = "1";
  const auto start = static_cast<std::size_t>(Rt1.SelStart.get());
  const std::uint64_t line = Rt1.lineFromChar(start);
  const std::size_t column = start - Rt1.lineIndex(line);
  Caption = " Report View   [ Col : " + std::to_string(column) +
            " Line : " + std::to_string(line + 1) + " ]   " + std::to_string(Rt1.SelLength.get()) +
            "   Veldran Computer  [V." + std::to_string(kRevision) + "]";
  if (CmdExelExp.Tag != "1" || ColumnMarkCount == 0) return;
  ColumnMarks.resize(std::max(ColumnMarks.size(), ColumnMarkCount + std::size_t{1}));
  ColumnMarks[ColumnMarkCount] = static_cast<std::int16_t>(column);
  ++ColumnMarkCount;
  ColumnMarks.resize(ColumnMarkCount + std::size_t{1});
  showMarks();
}

void FrmReport::showMarks() {
  Rt1.Guides.clear();
  if (CmdExelExp.Tag != "1" || ColumnMarkCount < 2) return;
  Rt1.Guides.assign(ColumnMarks.begin() + 1, ColumnMarks.begin() + ColumnMarkCount);
}

}  // namespace paperway
