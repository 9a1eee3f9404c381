// The print panel's job: what is printed, and by which road.

#include <algorithm>

#include "platform/file_system.h"
#include "platform/folders.h"
#include "platform/message_box.h"
#include "platform/print_device.h"
#include "printing/drawn_page.h"
#include "printing/local_dos.h"
#include "printing/print_file.h"
#include "printing/print_panel.h"
#include "util/automation_error.h"
#include "util/text_tools.h"
#include "util/value.h"

namespace paperway {
namespace {

/// Pages of a report are much alike: the first of them tell what will not fit.
constexpr std::size_t kMeasuredBytes = 64 << 20;

std::int64_t wholeNumber(const std::string& text) {
  constexpr double kFar = 1e15;
  return static_cast<std::int64_t>(std::clamp(leadingNumber(text), -kFar, kFar));
}

std::int64_t pageIndex(const std::string& text) {
  return wholeNumber(text) - 1;
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
  saveChosenPages();
  form_.Frame1.Visible = false;
  PrintReport();
}

void PrintPanel::saveChosenPages() {
  if (form_.Op[1].Value) form_.PrintPartFile = keepPart("Currnt.prn", form_.Rt1);
  if (!form_.Op[2].Value) return;
  form_.collectPages(pageIndex(form_.Tst.Text), pageIndex(form_.Tend.Text));
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
    return tears ? static_cast<std::uint8_t>(wholeNumber(box.Text)) : std::uint8_t{0};
  };
  PrintFileArguments arguments{
      .fileName = form_.PrintPartFile.empty() ? form_.ReportPath : form_.PrintPartFile,
      .printerName = form_.CboPrinters.Text,
      .paperHeight = static_cast<std::int16_t>(wholeNumber(form_.ComPaperHeight.Text)),
      .draft = form_.ChDraft.Value == 1,
      .cond = static_cast<std::uint8_t>(form_.Ch17.Value),
      .semiCond = static_cast<std::uint8_t>(form_.Ch12.Value),
      .copies = static_cast<std::uint8_t>(wholeNumber(form_.Text3.Text)),
      .tear = static_cast<std::uint8_t>(form_.Chtear.Value),
      .linesIn = lines(form_.Comtear),
      .linesOut = lines(form_.ComtearOut)};
  PrintFile(arguments, platform_);
}

void PrintPanel::printStyled() {
  if (!isConfirmed()) return;
  form_.CmdOk.Tag = "1";
  for (const PrinterInfo& printer : platform_.printers.list()) {
    if (printer.DeviceName != form_.CboPrinters.Text) continue;
    platform_.printers.setCurrent(printer.DeviceName);
    break;
  }
  try {
    drawPages();
    form_.Frame1.Visible = false;
  } catch (const AutomationError& error) {
    platform_.messageBox.show(error.description(), "Printer Error Information",
                              MessageBox::Buttons::ok, MessageBox::Icon::information);
  }
  form_.printSteps.printPage = nullptr;
  form_.CmdOk.Tag = "0";
}

void PrintPanel::drawPages() {
  const std::string printer = platform_.printers.current();
  const ReportExtent extent = extentOfChosen(true);
  const auto job =
      platform_.printDevice.start({.name = documentNameOf(form_.ReportPath),
                                   .printer = printer,
                                   .file = {},
                                   .settings = settingsOf(printer).value_or(PageSettings{}),
                                   .width = extent.width,
                                   .height = extent.height()});
  PrinterPitch pitch = startOf(chosenPages().first);
  const std::int64_t copies = wholeNumber(form_.Text3.Text);
  PrintedPage page;
  std::int64_t asked = 0;  // each page comes once for every copy
  form_.printSteps.printPage = [&](const std::vector<StyledLine>& lines) {
    if (asked++ % copies == 0) page = drawnPage(lines, pitch);
    job->page(page);
  };
  form_.PrintExport();
  job->end();
}

std::pair<std::int64_t, std::int64_t> PrintPanel::chosenPages() const {
  if (form_.Op[2].Value) return {pageIndex(form_.Tst.Text), pageIndex(form_.Tend.Text)};
  if (form_.Op[1].Value) return {form_.CurrentPage, form_.CurrentPage};
  return {0, form_.PageCount() - 1};
}

std::optional<PageSettings> PrintPanel::settingsOf(const std::string& printer) {
  return printer.empty() ? std::nullopt : platform_.printers.settings(printer);
}

/// A report says its pitch once, in its first line.
PrinterPitch PrintPanel::startOf(std::int64_t page) const {
  PrinterPitch pitch;
  if (page <= 0) return pitch;
  std::string_view first = form_.PageText[0];
  while (!first.empty()) first.remove_prefix(std::max<std::size_t>(pitch.command(first), 1));
  return pitch;
}

ReportExtent PrintPanel::extentOfChosen(bool drawn) const {
  const auto [first, last] = chosenPages();
  if (first < 0 || first > last || last >= form_.PageCount()) return {};
  const PrinterPitch pitch =
      drawn ? startOf(first) : PrinterPitch(form_.Ch12.Value == 1, form_.Ch17.Value == 1);
  ExtentScan scan(pitch, drawn, first + 1);
  const TextSlice pages = form_.PageText.shown(first, last);
  scan.block(pages.view().substr(0, kMeasuredBytes));
  return scan.end();
}

void PrintPanel::showFit() {
  if (!form_.Frame1.Visible) return;
  const bool drawn = form_.OptWinMode.Value;
  const auto settings = settingsOf(form_.CboPrinters.Text);
  const PaperRoom room =
      drawn ? sheetRoom(settings.value_or(PageSettings{}))
            : rawRoom(settings, static_cast<std::int16_t>(wholeNumber(form_.ComPaperHeight.Text)));
  form_.LbFit.Caption = fitLine(fitWarnings(extentOfChosen(drawn), room));
  form_.LbFit.ToolTipText = form_.LbFit.Caption;
}

}  // namespace paperway
