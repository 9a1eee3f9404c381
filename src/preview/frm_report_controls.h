#pragma once

#include "controls/boxes.h"
#include "controls/buttons.h"
#include "controls/containers.h"
#include "controls/form.h"
#include "controls/rich_text.h"
#include "controls/sp_lebal.h"

namespace paperway {

/// The controls of the report window: what they are at design, and where they stand, in twips.
class FrmReportControls : public Form {
 protected:
  FrmReportControls();

  /// Puts them where they belong in a window of this size on that screen.
  void arrange(const ScreenSize& screen);

  static constexpr int kOffTheWindow = 20000;

 private:
  void describe();
  void nameForReaders();  // of the screen, what has no caption
  void placeTopRow();
  void placeBottomRow();
  void placeSettingPanel();
  void placePrintPanel();

 public:
  // Page view and working copies.
  RichTextBox Rt1{*this, "Rt1"};
  RichTextBox RT3{*this, "RT3"};
  RichTextBox RTBox{*this, "RTBox"};

  // The row above the page.
  Label Label7{*this, "Label7", "Search String"};
  TextBox Text4{*this, "Text4"};
  CheckBox Check1{*this, "Check1", "Vsual"};
  JeweledButton Command2{*this, "Command2", "Zoom"};
  Label lb1{*this, "lb1", " Pre-View "};
  JeweledButton CmdExelExp{*this, "CmdExelExp", "Exel Export"};
  Label Label4{*this, "Label4", "Setting"};
  Label Label8{*this, "Label8", "Window"};
  Label LbPageNo{*this, "LbPageNo", ""};

  // The row below it.
  Frame Frame8{*this, "Frame8"};
  JeweledButton CmdFst{*this, "CmdFst", "&First", &Frame8};
  JeweledButton CmdBck{*this, "CmdBck", "&Back", &Frame8};
  Label LBPage{*this, "LBPage", "", &Frame8};
  JeweledButton CmdNxt{*this, "CmdNxt", "&Next", &Frame8};
  JeweledButton CmdLast{*this, "CmdLast", "&Last", &Frame8};
  SpLebal SpLebal3{*this, "SpLebal3", &Frame8};
  TextBox Text2{*this, "Text2", "", &Frame8};
  JeweledButton CmdImport{*this, "CmdImport", "Import", &Frame8};
  JeweledButton JeweledButton1{*this, "JeweledButton1", "Export", &Frame8};
  PictureBox Image1{*this, "Image1", PictureBox::Picture::calculator, &Frame8};
  CheckBox Check3{*this, "Check3", "Cont.. ", &Frame8};
  CheckBox Check2{*this, "Check2", "Edit", &Frame8};
  JeweledButton CmdPrint{*this, "CmdPrint", "&Print", &Frame8};
  JeweledButton JeExit{*this, "JeExit", "E&xit", &Frame8};

  // Setting panel.
  Frame Frame6{*this, "Frame6", "Color Setting"};
  ControlArray<Label> Lb{*this,
                         "Lb",
                         {"Dubble", "Bold", "Normal", "Condence", "Report Backcolor",
                          "Search String", "HighLight Text"},
                         &Frame6};
  ControlArray<TextBox> TXt{*this, "TXt", {"", "", "", "", "", "", ""}, &Frame6};
  CheckBox ChSearch{*this, "ChSearch", "Bold", &Frame6};
  CheckBox ChHighlighte{*this, "ChHighlighte", "Bold", &Frame6};
  CheckBox Chtear{*this, "Chtear", "Tear", &Frame6};
  Label Label11{*this, "Label11", "Line          In           Out", &Frame6};
  ComboBox Comtear{*this, "Comtear", {}, &Frame6};
  ComboBox ComtearOut{*this, "ComtearOut", {}, &Frame6};
  Label Label6{*this, "Label6", "Paper Height :", &Frame6};
  ComboBox Combo1{*this, "Combo1", {"3", "4", "6", "8", "10", "12"}, &Frame6};
  CheckBox Check5{*this, "Check5", "Visible Local Dos Print", &Frame6};
  CheckBox ChL{*this, "ChL", "-1  Line", &Frame6};
  JeweledButton Command3{*this, "Command3", "X", &Frame6};

  // Print panel. Modes and pages stand in frames of their own, being groups of options.
  Frame Frame1{*this, "Frame1", "Print"};
  Frame Frame2{*this, "Frame2", " Printer", &Frame1};
  Label Label1{*this, "Label1", "Select &Printer", &Frame2};
  ComboBox CboPrinters{*this, "CboPrinters", {}, &Frame2};
  Label LaDefult{*this, "LaDefult", "Defult Printer :  ", &Frame2};
  Label Label2{*this, "Label2", " Mode", &Frame1};
  Frame FrmMode{*this, "FrmMode", "", &Frame1};
  OptionButton OptCharMode{*this, "OptCharMode", "Dos", &FrmMode};
  OptionButton OptDosLocal{*this, "OptDosLocal", "Local Dos", &FrmMode};
  OptionButton OptWinMode{*this, "OptWinMode", "Windows", &FrmMode};
  CheckBox ChDraft{*this, "ChDraft", "Draft", &Frame1};
  CheckBox Ch10{*this, "Ch10", "10 Cpi", &Frame1};
  CheckBox Ch12{*this, "Ch12", "Semi Cond. ( 12 Cpi )", &Frame1};
  CheckBox Ch17{*this, "Ch17", "Cond.  ( 17 Cpi )", &Frame1};
  CheckBox Check4{*this, "Check4", "Advance Cond. ( 20 Cpi )", &Frame1};
  Frame FrmWin{*this, "FrmWin", "", &Frame1};
  ControlArray<OptionButton> OpPL{*this, "OpPL", {"Portrait", "Landscape"}, &FrmWin};
  Frame FrmPages{*this, "FrmPages", "", &Frame1};
  ControlArray<OptionButton> Op{
      *this, "Op", {"All Pages", "Current Page", "Page Range"}, &FrmPages};
  TextBox Tst{*this, "Tst", "", &FrmPages};
  Label Label9{*this, "Label9", "To", &FrmPages};
  TextBox Tend{*this, "Tend", "", &FrmPages};
  Label Label3{*this, "Label3", "No of Copies :", &Frame1};
  TextBox Text3{*this, "Text3", "1", &Frame1};
  ScrollBar VScroll1{*this, "VScroll1", &Frame1};
  Label Label5{*this, "Label5", "Paper Height :", &Frame1};
  ComboBox ComPaperHeight{*this, "ComPaperHeight", {"3", "4", "6", "8", "10", "12"}, &Frame1};
  JeweledButton CmdPaper{*this, "CmdPaper", "Paper", &Frame1};
  Label LbLetters{*this, "LbLetters", "Letters :", &Frame1};  // the printer's code table
  ComboBox CboLetters{*this, "CboLetters", {}, &Frame1};
  Label LbFit{*this, "LbFit", "", &Frame1};  // what will not fit on the paper
  JeweledButton CmdOk{*this, "CmdOk", "&Print", &Frame1};
  JeweledButton CmdCancel{*this, "CmdCancel", " C&lose", &Frame1};
  Label Label10{*this, "Label10", "Window", &Frame1};

  // Not on show.
  Timer Timer1{*this, "Timer1", 300};
  Menu AQ{*this, "AQ"};
  MenuItem cccc{AQ, "cccc", "Copy"};
  MenuItem pppp{AQ, "pppp", "Paste"};
  MenuItem g2{AQ, "g2", "-"};
  MenuItem ht{AQ, "ht", "Highlight Text"};
  MenuItem FindColumns{AQ, "FindColumns", "Find Columns"};  // during a pick of columns
};

}  // namespace paperway
