// The small tools around the page: editing, the continuous view, zoom, import, the menu, the
// panels and the calculator.

#include <algorithm>
#include <utility>

#include "paperway/platform/clipboard.h"
#include "paperway/platform/file_system.h"
#include "paperway/platform/shell.h"
#include "preview/frm_report.h"
#include "session/run_state.h"
#include "util/revision.h"

namespace paperway {
namespace {

constexpr double kZoomedSize = 15;
constexpr double kUnzoomedSize = 12;
constexpr int kMenuRight = 50;
constexpr int kMenuDown = 525;
constexpr int kPressed = 15;  // how far the calculator gives way under the mouse

}  // namespace

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
  const std::string before =
      std::exchange(run->ModPath1, platform_.files.GetFile(CommonDialog1.FileName).ShortPath);
  try {
    loadSteps();
  } catch (...) {
    run->ModPath1 = before;  // the report on show is still the one before
    throw;
  }
}

void FrmReport::Rt1_MouseDown(const MouseEvent& event) {
  if (event.button == mbRight) {
    pppp.Visible = Check2.Value != 0;
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
}

}  // namespace paperway
