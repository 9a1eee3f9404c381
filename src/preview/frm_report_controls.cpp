#include "preview/frm_report_controls.h"

#include <algorithm>

#include "paperway/platform/windows.h"

namespace paperway {
namespace {

constexpr int kDefaultWidth = 15000;
constexpr int kDefaultHeight = 10500;
constexpr int kPageTop = 500;
constexpr int kRowTop = 60;  // of the row above the page
constexpr int kRowHeight = 380;
constexpr int kButtonTop = 150;  // in the row below it
constexpr int kButtonHeight = 420;
constexpr int kBoxHeight = 330;
constexpr int kLabelHeight = 300;

/// A frame that the user does not see as one.
void groupOnly(Frame& frame) {
  frame.Border = false;
}

void panel(Frame& frame) {
  frame.Panel = true;
  frame.Visible = false;
}

}  // namespace

FrmReportControls::FrmReportControls() : Form("FrmReport") {
  Caption = " Report View";
  describe();
  nameForReaders();
  placeSettingPanel();
  placePrintPanel();
}

void FrmReportControls::describe() {
  Width = kDefaultWidth;
  Height = kDefaultHeight;
  MinWidth = 14400;
  MinHeight = 7200;

  Rt1.Locked = true;
  Rt1.RightMargin = RT3.RightMargin = RTBox.RightMargin = 100000;
  Rt1.ForeColor = RT3.ForeColor = RTBox.ForeColor = 0;
  RT3.Visible = RTBox.Visible = false;
  Check1.Value.setQuietly(1);
  SpLebal3.Caption = "GOTO";
  SpLebal3.View3D = 2;
  CmdExelExp.Visible = false;
  CmdPaper.ToolTipText = "Show the paper as it will come out of the printer";
  CmdPrint.ToolTipText = "Open Print Dilog Box";
  Image1.ToolTipText = "Calculator";
  lb1.TextAlignment = LBPage.TextAlignment = Alignment::center;
  LbPageNo.TextAlignment = Alignment::right;

  for (int index = TXt.LBound(); index <= TXt.UBound(); ++index) {
    TXt[index].Locked = true;
    TXt[index].AccessibleName = Lb[index].Caption + " color";
  }
  TXt[2].BackColor = 0;
  ChSearch.Value.setQuietly(1);
  ChSearch.AccessibleName = "Search String Bold";
  ChHighlighte.AccessibleName = "HighLight Text Bold";
  for (int lines = 0; lines <= 25; ++lines) {
    if (lines <= 17) Comtear.AddItem(std::to_string(lines));
    ComtearOut.AddItem(std::to_string(lines));
  }
  CmdOk.Default = true;
  ChDraft.Value.setQuietly(1);
  ChDraft.Font.Bold = true;
  VScroll1.Min = 1;
  VScroll1.Max = 100;
  VScroll1.Value.setQuietly(99);

  for (Frame* frame : {&Frame8, &FrmMode}) groupOnly(*frame);
  for (Frame* frame : {&Frame6, &Frame1}) panel(*frame);
}

void FrmReportControls::nameForReaders() {
  Rt1.AccessibleName = "Report";
  Text2.AccessibleName = "Go to page";
  Text4.AccessibleName = "Search String";
  CboPrinters.AccessibleName = "Printer";
  Tst.AccessibleName = "First page";
  Tend.AccessibleName = "Last page";
  Text3.AccessibleName = VScroll1.AccessibleName = "No of Copies";
  ComPaperHeight.AccessibleName = Combo1.AccessibleName = "Paper Height";
  CboLetters.AccessibleName = "Letters of the printer";
  CboLetters.ToolTipText = "Code table of the printer's letters";
  Comtear.AccessibleName = "Lines in";
  ComtearOut.AccessibleName = "Lines out";
  Command3.AccessibleName = "Close";
}

void FrmReportControls::arrange(const ScreenSize& screen) {
  place(Rt1, 15, kPageTop, Width - 100, Height - 1250);
  placeTopRow();
  placeBottomRow();
  if (Frame6.Top >= kOffTheWindow) Frame6.Top = std::max(kOffTheWindow, Height);
  // The middle of the screen is that of the window when it fills the screen, and may lie outside of
  // a smaller one.
  centreOnScreen(Frame1, {std::min(screen.Width, Width), std::min(screen.Height, Height)});
  Frame1.Left = std::clamp(Frame1.Left, 0, std::max(0, Width - Frame1.Width));
  Frame1.Top = std::clamp(Frame1.Top, 0, std::max(0, Height - Frame1.Height));
}

void FrmReportControls::placeTopRow() {
  place(Label7, 120, kRowTop, 1350, kRowHeight);
  place(Text4, 1500, kRowTop, 2400, kRowHeight);
  place(Check1, 4080, kRowTop, 1000, kRowHeight);
  place(Command2, 5200, kRowTop, 1200, kRowHeight);
  place(lb1, 0, kRowTop, 1400, kRowHeight);
  lb1.Left = (Width - lb1.Width) / 2;
  place(LbPageNo, 0, kRowTop, 2000, kRowHeight);
  LbPageNo.Left = Width - LbPageNo.Width - 200;
  place(Label8, LbPageNo.Left - 900, kRowTop, 800, kRowHeight);
  place(Label4, Label8.Left - 900, kRowTop, 800, kRowHeight);
  place(CmdExelExp, Label4.Left - 2000, kRowTop, 1900, kRowHeight);
}

void FrmReportControls::placeBottomRow() {
  place(Frame8, 30, Rt1.Height + 500, Width - 60, 720);
  place(CmdFst, 90, kButtonTop, 950, kButtonHeight);
  place(CmdBck, 1100, kButtonTop, 950, kButtonHeight);
  place(LBPage, 2110, kButtonTop, 750, kButtonHeight);
  place(CmdNxt, 2920, kButtonTop, 950, kButtonHeight);
  place(CmdLast, 3930, kButtonTop, 950, kButtonHeight);
  place(SpLebal3, 5080, kButtonTop, 850, kButtonHeight);
  place(Text2, 5960, kButtonTop, 900, kButtonHeight);
  place(CmdImport, 7060, kButtonTop, 1100, kButtonHeight);
  place(JeweledButton1, 8220, kButtonTop, 1100, kButtonHeight);

  place(JeExit, 0, kButtonTop, 1200, kButtonHeight);
  JeExit.Left = Width - JeExit.Width - 200;
  place(CmdPrint, 0, kButtonTop, 1200, kButtonHeight);
  CmdPrint.Left = Width - JeExit.Width - CmdPrint.Width - 260;
  place(Check3, 0, 60, 1100, kLabelHeight);
  Check3.Left = Width - CmdPrint.Width - JeExit.Width - 260 - Check3.Width - 300;
  place(Check2, Check3.Left, 370, 1100, kLabelHeight);
  place(Image1, Check3.Left - 400, 180, 360, 360);
  Image1.Tag = "0";
}

void FrmReportControls::placeSettingPanel() {
  constexpr int kPitch = 420;  // from row to row
  constexpr int kLeft = 240;
  place(Frame6, 240, 1500, 4500, 5700);
  place(Command3, Frame6.Width - 560, 120, 380, kBoxHeight);
  int top = 570;
  for (int index = Lb.LBound(); index <= Lb.UBound(); ++index, top += kPitch) {
    place(Lb[index], kLeft, top, 1800, kBoxHeight);
    place(TXt[index], 2100, top, 900, kBoxHeight);
  }
  place(ChSearch, 3150, TXt[5].Top, 1000, kBoxHeight);
  place(ChHighlighte, 3150, TXt[6].Top, 1000, kBoxHeight);

  top += 150;
  place(Label11, 720, top, 2600, kLabelHeight);
  top += kLabelHeight;
  place(Chtear, kLeft, top, 1000, kBoxHeight);
  place(Comtear, 1350, top, 1000, kBoxHeight);
  place(ComtearOut, 2500, top, 1000, kBoxHeight);
  top += kPitch + 100;
  place(Label6, kLeft, top, 1500, kBoxHeight);
  place(Combo1, 1800, top, 1000, kBoxHeight);
  top += kPitch;
  place(Check5, kLeft, top, 3600, kBoxHeight);
  top += kPitch;
  place(ChL, kLeft, top, 2000, kBoxHeight);
}

void FrmReportControls::placePrintPanel() {
  constexpr int kLeft = 240;
  constexpr int kMiddle = 4440;
  place(Frame1, 0, 0, 8640, 6110);

  place(Frame2, kLeft, 570, 8160, 1150);
  place(Label1, 180, 345, 1500, kBoxHeight);
  place(CboPrinters, 1740, 345, 6240, kBoxHeight);
  place(LaDefult, 1740, 750, 6240, kLabelHeight);

  place(Label2, kLeft, 1830, 1500, kLabelHeight);
  place(FrmMode, kLeft, 2130, 3960, 360);
  place(OptCharMode, 60, 0, 900, 360);
  place(OptDosLocal, 1000, 0, 1450, 360);
  place(OptWinMode, 2500, 0, 1400, 360);
  int top = 2580;
  for (CheckBox* box : {&ChDraft, &Ch10, &Ch12, &Ch17, &Check4}) {
    place(*box, kLeft + 60, top, 3600, kBoxHeight);
    top += 350;
  }
  place(FrmWin, kLeft, 4410, 3960, 520);
  place(OpPL[0], 120, 95, 1600, kBoxHeight);
  place(OpPL[1], 1900, 95, 1800, kBoxHeight);

  place(FrmPages, kMiddle, 1830, 3960, 1450);
  top = 180;
  for (OptionButton& option : Op) {
    place(option, 120, top, 1800, kBoxHeight);
    top += 400;
  }
  place(Tst, 1980, 970, 780, kBoxHeight);
  place(Label9, 2790, 970, 300, kBoxHeight);
  Label9.TextAlignment = Alignment::center;
  place(Tend, 3120, 970, 720, kBoxHeight);

  place(Label3, kMiddle + 120, 3450, 1600, kBoxHeight);
  place(Text3, 6240, 3450, 840, kBoxHeight);
  place(VScroll1, 7080, 3450, 270, kBoxHeight);
  place(Label5, kMiddle + 120, 3930, 1600, kBoxHeight);
  place(ComPaperHeight, 6240, 3930, 1110, kBoxHeight);

  place(LbLetters, kMiddle + 120, 4410, 1600, kBoxHeight);
  place(CboLetters, 6240, 4410, 1110, kBoxHeight);

  place(LbFit, kLeft, 4980, 8160, 520);
  place(CmdPaper, kLeft, 5520, 1320, kButtonHeight);
  place(Label10, kMiddle + 120, 5520, 900, kButtonHeight);
  place(CmdOk, 5640, 5520, 1320, kButtonHeight);
  place(CmdCancel, 7080, 5520, 1320, kButtonHeight);
}

}  // namespace paperway
