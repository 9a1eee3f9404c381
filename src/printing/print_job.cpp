// The print panel's job: what is printed, and by which road.

#include <algorithm>

#include "paperway/automation_error.h"
#include "paperway/platform/file_system.h"
#include "paperway/platform/folders.h"
#include "paperway/platform/message_box.h"
#include "paperway/platform/print_device.h"
#include "paperway/platform/windows.h"
#include "paperway/value.h"
#include "printing/chosen_pages.h"
#include "printing/local_dos.h"
#include "printing/print_file.h"
#include "printing/print_panel.h"

namespace paperway {
namespace {

std::int64_t numberIn(const std::string& text) {
  return wholeNumber(leadingNumber(text));
}

}  // namespace

void PrintPanel::CmdOk_Click() {
  if (form_.OptWinMode.Value) {
    printStyled();
  } else {
    printRaw();
  }
}

bool PrintPanel::isConfirmed() {
  return platform_.messageBox.show(
             "Are You Sure You Want To Print & Printer is Ready and Online ...", "Printing.... ",
             MessageBox::Buttons::yesNo) == MessageBox::Answer::yes;
}

void PrintPanel::printRaw() {
  form_.PrintPartFile.clear();
  if (form_.Op[2].Value) {
    Tend_Validate();
    if (form_.Tend.Tag == "0") return;
  }
  if (!isConfirmed()) return;
  withPanelAway([this] {
    saveChosenPages();
    PrintReport();
  });
}

/// A job holds the window up: the panel goes first, and comes back when there was no job.
void PrintPanel::withPanelAway(const std::function<void()>& job) {
  form_.Frame1.Visible = false;
  platform_.windows.repaint();
  try {
    job();
  } catch (...) {
    form_.Frame1.Visible = true;
    throw;
  }
}

void PrintPanel::saveChosenPages() {
  if (form_.Op[1].Value) form_.PrintPartFile = keepPart("Currnt.prn", form_.Rt1);
  if (!form_.Op[2].Value) return;
  const PageRange pages = chosenPages(form_);
  form_.collectPages(pages.first, pages.last);
  form_.PrintPartFile = keepPart("RANGE.prn", form_.RT3);
  form_.RT3.Text = "";
}

std::string PrintPanel::keepPart(const char* name, const RichTextBox& box) {
  const std::filesystem::path path = platform_.folders.program() / name;
  box.SaveFile(path, RichTextBox::rtfText);
  return platform_.files.GetFile(path.string()).ShortPath;
}

void PrintPanel::PrintReport() {
  if (form_.OptDosLocal.Value) {
    printLocalDos(form_.ReportPath, platform_);
    return;
  }
  const bool tears = form_.Chtear.Value != 0;
  const auto lines = [&](const ComboBox& box) {
    return tears ? static_cast<std::uint8_t>(numberIn(box.Text)) : std::uint8_t{0};
  };
  PrintFileArguments arguments{
      .fileName = form_.PrintPartFile.empty() ? form_.ReportPath : form_.PrintPartFile,
      .printerName = form_.CboPrinters.Text,
      .paperHeight = static_cast<std::int16_t>(numberIn(form_.ComPaperHeight.Text)),
      .draft = form_.ChDraft.Value == 1,
      .cond = static_cast<std::uint8_t>(form_.Ch17.Value),
      .semiCond = static_cast<std::uint8_t>(form_.Ch12.Value),
      .copies = static_cast<std::uint8_t>(numberIn(form_.Text3.Text)),
      .tear = static_cast<std::uint8_t>(form_.Chtear.Value),
      .linesIn = lines(form_.Comtear),
      .linesOut = lines(form_.ComtearOut)};
  PrintFile(arguments, platform_, *form_.run);
}

void PrintPanel::printStyled() {
  if (!isConfirmed()) return;
  for (const PrinterInfo& printer : platform_.printers.list()) {
    if (printer.DeviceName != form_.CboPrinters.Text) continue;
    platform_.printers.setCurrent(printer.DeviceName);
    break;
  }
  try {
    const std::string printer = platform_.printers.current();
    StyledDocument document{.name = documentNameOf(form_.ReportPath), .printer = printer};
    document.settings = platform_.printers.settings(printer).value_or(PageSettings{});
    withPanelAway([&] { drawChosenPages(form_, document, platform_.printDevice); });
  } catch (const AutomationError& error) {
    platform_.messageBox.show(error.description(), "Printer Error Information",
                              MessageBox::Buttons::ok, MessageBox::Icon::information);
  }
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
  const PageRange pages = chosenPages(form_);
  if (pages.first > pages.last) return "No page of the report is chosen.";
  if (form_.OptWinMode.Value) {
    return fitLine(
        fitWarnings(drawnExtentOfChosen(form_), sheetRoom(settings().value_or(PageSettings{}))));
  }
  const auto height = static_cast<std::int16_t>(numberIn(form_.ComPaperHeight.Text));
  const PrinterPitch pitch(form_.Ch12.Value == 1, form_.Ch17.Value == 1);
  return fitLine(fitWarnings(extentOfChosen(form_, pitch), rawRoom(settings(), height)));
}

}  // namespace paperway
