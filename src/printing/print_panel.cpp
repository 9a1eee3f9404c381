#include "printing/print_panel.h"

#include <algorithm>

#include "paperway/platform/message_boxes.h"
#include "printing/printer_letters.h"
#include "session/run_state.h"
#include "util/numbers.h"
#include "util/utilities.h"
#include "util/value_text.h"

namespace paperway {
namespace {

constexpr int kCopiesTop = 100;  // copies are this less the scroll bar's value
constexpr int kMostCopies = 255;
constexpr Color kEnabledBox = 16777215;
constexpr Color kDisabledBox = 14139134;
constexpr int kIgnoredKey = 1;
constexpr int kLastCode = 255;

constexpr const char* kAsItIs = "As it is";  // the text goes to the printer

void filterDigits(int& key) {
  key = key > kLastCode ? kIgnoredKey : OnlyNum(static_cast<std::int16_t>(key));
}

std::string plainNumber(double number) {
  std::string text = numberText(number);
  return text.starts_with(' ') ? text.substr(1) : text;
}

void inform(const Platform& platform, const std::string& text) {
  platform.messageBox.show(text, "Information Window", MessageBoxes::Buttons::ok,
                           MessageBoxes::Icon::information);
}

}  // namespace

void PrintPanel::bind(FrmReport& form, const Platform& platform) {
  const auto panel = std::make_shared<PrintPanel>(form, platform);
  form.parts.push_back(panel);
  form.CmdOk.Tag = "0";
  panel->bindLook();
  panel->bindSettings();
}

void PrintPanel::bindLook() {
  form_.printSteps.FillPrinterList = [this] { FillPrinterList(); };
  form_.CmdPrint.onClick = [this] { CmdPrint_Click(); };
  form_.printSteps.drawPages = [this] { job_.draw(); };
  form_.CmdOk.onClick = [this] { CmdOk_Click(); };
  form_.CmdPaper.onClick = [this] { CmdPaper_Click(); };
  form_.CmdCancel.onClick = [this] { CmdCancel_Click(); };
  for (OptionButton& option : form_.Op) option.onClick = [this] { Op_Click(); };
  form_.Ch10.onClick = [this] { Ch10_Click(); };
  form_.Ch12.onClick = [this] { Ch12_Click(); };
  form_.Ch17.onClick = [this] { Ch17_Click(); };
  form_.ChDraft.onClick = [this] { ChDraft_Click(); };
  form_.VScroll1.onChange = [this] { VScroll1_Change(); };
  form_.Text3.onKeyPress = form_.Tend.onKeyPress = [](int& key) { filterDigits(key); };
  form_.Tst.onKeyPress = [this](int& key) { Tst_KeyPress(key); };
  form_.Tend.onValidate = [this](bool& cancel) {
    Tend_Validate();
    cancel = form_.Tend.Tag == "0";
  };
  form_.Tst.onChange = form_.Tend.onChange = [this] { showFit(); };
  form_.Text3.onChange = [this] { Text3_Change(); };
  form_.CboPrinters.onChange = form_.CboPrinters.onClick = [this] {
    showLetters();
    showFit();
  };
  form_.CboLetters.AddItem(kAsItIs);
  for (const int table : kPrinterCodePages) form_.CboLetters.AddItem(std::to_string(table));
  form_.CboLetters.AddItem("1252");
  form_.CboLetters.onClick = form_.CboLetters.onChange = [this] { CboLetters_Click(); };
  form_.ComPaperHeight.onChange = form_.ComPaperHeight.onClick = [this] { showFit(); };
}

void PrintPanel::bindSettings() {
  form_.printSteps.readTearSettings = [this] { readTearSettings(); };
  form_.printSteps.readPrintMode = [this] { readPrintMode(); };
  for (OptionButton* mode : {&form_.OptCharMode, &form_.OptDosLocal, &form_.OptWinMode}) {
    mode->onClick = [this] { Mode_Click(); };
  }
  for (ComboBox* lines : {&form_.Comtear, &form_.ComtearOut}) {
    lines->onChange = lines->onClick = [this] { Comtear_Change(); };
  }
  form_.Check5.onClick = [this] { Check5_Click(); };
  form_.ChL.onClick = [this] { ChL_Click(); };
}

void PrintPanel::keep(ReportViewKey key, const std::string& text) const {
  const ReportViewSettings settings = form_.settings();
  if (settings.text(key) != text) settings.setText(key, text);
}

void PrintPanel::readTearSettings() {
  form_.Comtear.Tag = form_.settings().text(ReportViewKey::Ttt);
  const TearLines lines = TearLines::fromText(form_.Comtear.Tag);
  form_.Comtear.Text = std::to_string(lines.in);
  form_.ComtearOut.Text = std::to_string(lines.out);
  form_.Comtear.Tag = ".";  // from now on a change is the user's
  if (lines.in + lines.out > 0) form_.Chtear.Value = 1;
}

void PrintPanel::readPrintMode() {
  const ReportViewSettings settings = form_.settings().snapshot();
  std::string mode = settings.text(ReportViewKey::PrnDefult);
  const std::string localDos = settings.text(ReportViewKey::Localdos);
  if (mode == "L" && localDos == "F") mode = "D";
  form_.OptDosLocal.Visible = localDos != "F";
  if (localDos == "T") form_.Check5.Value = 1;
  if (mode == "D") form_.OptCharMode.Value = true;
  if (mode == "W") form_.OptWinMode.Value = true;
  if (mode == "L") form_.OptDosLocal.Value = true;
}

void PrintPanel::FillPrinterList() {
  for (const PrinterInfo& printer : platform_.printers.list()) {
    form_.CboPrinters.AddItem(printer.DeviceName);
  }
  showDefaultPrinter();
}

void PrintPanel::showDefaultPrinter() {
  if (form_.CboPrinters.ListCount() == 0) return;
  const std::string current = platform_.printers.current();
  std::string& name = form_.run->ModPrinterName;
  if (name.empty()) name = current;
  form_.CboPrinters.Text = name;
  form_.LaDefult.Caption = "Defult Printer :" + current;
}

/// Printers may have been installed while the window stood open.
void PrintPanel::addNewPrinters() {
  ComboBox& box = form_.CboPrinters;
  const bool wasEmpty = box.ListCount() == 0;
  for (const PrinterInfo& printer : platform_.printers.list()) {
    const std::vector<std::string>& known = box.List();
    const bool isNew = std::find(known.begin(), known.end(), printer.DeviceName) == known.end();
    if (isNew) box.AddItem(printer.DeviceName);
  }
  if (wasEmpty) showDefaultPrinter();
}

void PrintPanel::CmdPrint_Click() {
  form_.Frame1.Visible = true;
  addNewPrinters();
  settingsOf_.reset();
  showLetters();
  showFit();
  ComboBox& printers = form_.CboPrinters;
  if (printers.ListCount() == 0) {
    inform(platform_, "No Printers Installed to do the Print job");
  } else if (printers.List(printers.ListIndex).empty()) {
    inform(platform_, "Select any of the Printer from  Printers Collection");
    printers.SetFocus();
  }
}

void PrintPanel::CmdCancel_Click() {
  form_.Frame1.Visible = false;
}

void PrintPanel::Mode_Click() {
  const std::pair<OptionButton*, const char*> modes[] = {
      {&form_.OptCharMode, "D"}, {&form_.OptWinMode, "W"}, {&form_.OptDosLocal, "L"}};
  for (const auto& [option, name] : modes) option->Font.Bold = option->Value;
  form_.FrmWin.Enabled = form_.OptWinMode.Value;
  form_.CmdPaper.Enabled = form_.LbLetters.Enabled = form_.CboLetters.Enabled =
      form_.OptCharMode.Value;
  for (const auto& [option, name] : modes) {
    if (option->Value) keep(ReportViewKey::PrnDefult, name);
  }
  showFit();
}

void PrintPanel::Op_Click() {
  for (OptionButton& option : form_.Op) option.Font.Bold = option.Value;
  for (TextBox* box : {&form_.Tst, &form_.Tend}) {
    box->Enabled = form_.Op[2].Value;
    box->BackColor = box->Enabled ? kEnabledBox : kDisabledBox;
  }
  showFit();
}

void PrintPanel::Ch10_Click() {
  form_.Ch10.Font.Bold = true;
  form_.Ch12.Font.Bold = form_.Ch17.Font.Bold = false;
  form_.Ch12.Value = 0;
  form_.Ch17.Value = 0;
  showFit();
}

void PrintPanel::Ch12_Click() {
  form_.Ch12.Font.Bold = true;
  form_.Ch10.Font.Bold = false;
  form_.Ch10.Value = 0;
  showFit();
}

void PrintPanel::Ch17_Click() {
  form_.Ch17.Font.Bold = true;
  form_.Ch10.Font.Bold = false;
  form_.Ch10.Value = 0;
  showFit();
}

void PrintPanel::ChDraft_Click() {
  form_.ChDraft.Font.Bold = form_.ChDraft.Value != 0;
}

void PrintPanel::VScroll1_Change() {
  form_.Text3.Text = std::to_string(kCopiesTop - form_.VScroll1.Value);
}

/// The job knows no greater number.
void PrintPanel::Text3_Change() {
  copiesCut_ = leadingNumber(form_.Text3.Text.get()) > kMostCopies;
  if (copiesCut_) {
    form_.Text3.Text = std::to_string(kMostCopies);  // which is a change too
    copiesCut_ = true;
  }
  showFit();
}

void PrintPanel::Tst_KeyPress(int& key) const {
  const bool isFirstPoint = key == '.' && form_.Tst.Text->find('.') == std::string::npos;
  if (!isFirstPoint) filterDigits(key);
}

void PrintPanel::Tend_Validate() {
  TextBox& first = form_.Tst;
  TextBox& last = form_.Tend;
  const double pages = leadingNumber(last.ToolTipText);
  if (leadingNumber(last.Text.get()) <= leadingNumber(first.Text.get())) last.Text = first.Text;
  if (leadingNumber(last.Text.get()) > pages) last.Text = plainNumber(pages);
  if (leadingNumber(first.Text.get()) == 0) first.Text = "1";
  const bool isUsable = leadingNumber(last.Text.get()) != 0;
  last.Tag = isUsable ? "1" : "0";
  if (!isUsable) {
    platform_.messageBox.show("plese Check Velue...");
    last.SetFocus();
  }
  showFit();
}

/// A range is put right first; false when it cannot be.
bool PrintPanel::hasPages() {
  if (!form_.Op[2].Value) return true;
  Tend_Validate();
  return form_.Tend.Tag != "0";
}

void PrintPanel::CmdOk_Click() {
  if (form_.OptWinMode.Value) return job_.printDrawn();
  form_.PrintPartFile.clear();
  if (hasPages()) job_.printRaw();
}

void PrintPanel::CmdPaper_Click() {
  if (hasPages()) job_.showPaper();
}

void PrintPanel::Comtear_Change() {
  if (form_.Comtear.Tag != ".") return;
  keep(ReportViewKey::Ttt,
       TearLines::toText(form_.Comtear.Text.get(), form_.ComtearOut.Text.get()));
}

void PrintPanel::Check5_Click() {
  const bool isOffered = form_.Check5.Value != 0;
  form_.OptDosLocal.Visible = isOffered;
  keep(ReportViewKey::Localdos, isOffered ? "T" : "F");
}

void PrintPanel::ChL_Click() {
  keep(ReportViewKey::chl, std::to_string(form_.ChL.Value));
}

/// Asked of the print service once for each printer that is chosen: it may be slow.
const std::optional<PageSettings>& PrintPanel::settings() {
  const std::string printer = form_.CboPrinters.Text;
  if (settingsOf_ == printer) return settings_;
  settingsOf_ = printer;
  const std::vector<std::string>& known = form_.CboPrinters.List();
  const bool isKnown = std::find(known.begin(), known.end(), printer) != known.end();
  settings_ = isKnown ? platform_.printers.settings(printer) : std::nullopt;
  return settings_;
}

void PrintPanel::showFit() {
  if (!form_.Frame1.Visible) return;
  form_.LbFit.Caption = fitText();
  form_.LbFit.ToolTipText = form_.LbFit.Caption;
}

std::string PrintPanel::fitText() {
  if (copiesCut_) return "A job takes " + std::to_string(kMostCopies) + " copies at most.";
  const PageRange pages = form_.chosenPages();
  if (pages.empty()) return "No page of the report is chosen.";
  const bool drawn = form_.OptWinMode.Value;
  const ReportExtent extent = drawn ? drawnByPanel(form_, pages).extent() : rawExtent(pages);
  const std::string fit = fitLine(fitWarnings(extent, room()));
  const std::string plain = form_.OptCharMode.Value ? plainText(pages) : "";
  return fit + (fit.empty() || plain.empty() ? "" : ". ") + plain;
}

PageRanges PrintPanel::knownPages(const PageRange& pages) const {
  return PageRanges(pages).within(form_.PageCount());
}

/// The current page is printed as it is on show, with edits.
void PrintPanel::eachRawBlock(const PageRange& pages,
                              const std::function<void(std::string_view)>& take) const {
  if (!form_.Op[1].Value) {
    const PageRanges known = knownPages(pages);
    for (const PageRange& range : known.ranges()) {
      take(form_.PageText.shown(range.first, range.last).view().substr(0, kMeasuredBytes));
    }
    return;
  }
  const TextBuffer& shown = form_.Rt1.buffer();
  for (std::size_t at = 0; at < std::min(shown.size(), kMeasuredBytes);) {
    const std::string_view piece = shown.pieceAt(at).substr(0, kMeasuredBytes);
    take(piece);
    at += piece.size();
  }
}

ReportExtent PrintPanel::rawExtent(const PageRange& pages) const {
  const PrinterPitch pitch(form_.Ch12.Value == 1, form_.Ch17.Value == 1);
  ExtentScan scan(pitch, Pen::Widths::printed, knownPages(pages));
  eachRawBlock(pages, [&](std::string_view piece) { scan.block(piece); });
  return scan.end();
}

std::string PrintPanel::plainText(const PageRange& pages) const {
  const int table = keptCodeTable(platform_.userStore, form_.CboPrinters.Text);
  if (table == 0) return "";
  PrinterLetters letters(table, [](std::string_view) {});
  eachRawBlock(pages, [&](std::string_view piece) { letters.block(piece); });
  return plainLetters(letters.plain(), table);
}

/// The box says what is kept of the printer.
void PrintPanel::showLetters() {
  if (!form_.Frame1.Visible) return;
  const int table = keptCodeTable(platform_.userStore, form_.CboPrinters.Text);
  form_.CboLetters.Text = table == 0 ? kAsItIs : std::to_string(table);
}

void PrintPanel::CboLetters_Click() {
  if (form_.CboPrinters.Text.get().empty()) return;
  const int table = static_cast<int>(leadingNumber(form_.CboLetters.Text.get()));
  if (CodePage::byNumber(table) == nullptr && form_.CboLetters.Text.get() != kAsItIs) return;
  if (keptCodeTable(platform_.userStore, form_.CboPrinters.Text) == table) return;
  keepCodeTable(platform_.userStore, form_.CboPrinters.Text, table);
  showFit();
}

PaperRoom PrintPanel::room() {
  if (form_.OptWinMode.Value) return sheetRoom(settings().value_or(PageSettings{}));
  return rawRoom(settings(), paperHeightOf(form_));
}

}  // namespace paperway
