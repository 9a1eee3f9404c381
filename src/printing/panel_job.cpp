#include "printing/panel_job.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <memory>
#include <vector>

#include "paperway/automation_error.h"
#include "paperway/platform/file_system.h"
#include "paperway/platform/folders.h"
#include "paperway/platform/message_boxes.h"
#include "paperway/platform/windows.h"
#include "printing/frm_paper.h"
#include "printing/local_dos.h"
#include "printing/printer_letters.h"
#include "session/run_state.h"
#include "util/numbers.h"
#include "util/path_text.h"

namespace paperway {
namespace {

/// A number that the user typed, or what of it the job can hold.
template <typename Number>
Number numberIn(const std::string& text) {
  using Limits = std::numeric_limits<Number>;
  return static_cast<Number>(
      std::clamp<std::int64_t>(wholeNumber(leadingNumber(text)), Limits::min(), Limits::max()));
}

TextSlice wholeText(std::string bytes) {
  const std::size_t size = bytes.size();
  return {SharedText::of(std::move(bytes)), 0, size};
}

/// CmdOk.Tag says that pages are being drawn.
class Drawing {
 public:
  explicit Drawing(FrmReport& form) : form_(form) { form_.CmdOk.Tag = "1"; }
  ~Drawing() { form_.CmdOk.Tag = "0"; }
  Drawing(const Drawing&) = delete;
  Drawing& operator=(const Drawing&) = delete;

 private:
  FrmReport& form_;
};

}  // namespace

DrawnReport drawnByPanel(const FrmReport& form, const PageRange& pages) {
  return {form.document(), pages, form.pageLook(), numberIn<std::int64_t>(form.Text3.Text)};
}

std::int16_t paperHeightOf(const FrmReport& form) {
  return numberIn<std::int16_t>(form.ComPaperHeight.Text);
}

bool PanelJob::isConfirmed() {
  return platform_.messageBox.show(
             "Are You Sure You Want To Print & Printer is Ready and Online ...", "Printing.... ",
             MessageBoxes::Buttons::yesNo) == MessageBoxes::Answer::yes;
}

/// A job holds the window up: the panel goes first, and comes back when there was no job.
void PanelJob::withPanelAway(const std::function<void()>& job) {
  form_.Frame1.Visible = false;
  platform_.windows.repaint();
  try {
    job();
  } catch (...) {
    form_.Frame1.Visible = true;
    throw;
  }
}

void PanelJob::printRaw() {
  if (!isConfirmed()) return;
  withPanelAway([this] {
    saveChosenPages();
    PrintReport();
  });
}

void PanelJob::saveChosenPages() {
  if (form_.Op[1].Value) form_.PrintPartFile = keepPart("Currnt.prn", form_.Rt1);
  if (!form_.Op[2].Value) return;
  form_.collectPages(form_.chosenPages());
  form_.PrintPartFile = keepPart("RANGE.prn", form_.RT3);
  form_.RT3.Text = "";
}

std::filesystem::path PanelJob::keepPart(const char* name, const RichTextBox& box) {
  const std::filesystem::path path = platform_.folders.program() / name;
  box.SaveFile(platform_.storage, path, RichTextBox::rtfText);
  return pathOf(platform_.files.GetFile(textOf(path)).ShortPath);
}

PrintFileArguments PanelJob::rawArguments() const {
  const bool tears = form_.Chtear.Value != 0;
  const auto lines = [&](const ComboBox& box) {
    return tears ? numberIn<std::uint8_t>(box.Text) : std::uint8_t{0};
  };
  return {.fileName = form_.PrintPartFile.empty() ? form_.ReportPath : form_.PrintPartFile,
          .printerName = form_.CboPrinters.Text,
          .paperHeight = paperHeightOf(form_),
          .draft = form_.ChDraft.Value == 1,
          .cond = static_cast<std::uint8_t>(form_.Ch17.Value),
          .semiCond = static_cast<std::uint8_t>(form_.Ch12.Value),
          .copies = numberIn<std::uint8_t>(form_.Text3.Text),
          .tear = static_cast<std::uint8_t>(form_.Chtear.Value),
          .linesIn = lines(form_.Comtear),
          .linesOut = lines(form_.ComtearOut),
          .sources = {form_.ReportPath}};
}

void PanelJob::PrintReport() {
  if (form_.OptDosLocal.Value) {
    printLocalDos(form_.ReportPath, platform_);
    return;
  }
  PrintFileArguments arguments = rawArguments();
  try {
    PrintFile(arguments, platform_, *form_.run);
  } catch (const AutomationError& error) {
    showPrintFailure(platform_.messageBox, error);
  }
}

/// Of the chosen pages, as they are now: the window may turn to others.
TextSource PanelJob::rawText() const {
  if (form_.Op[0].Value) {
    return [&storage = platform_.storage, path = form_.ReportPath](const ByteSink& sink) {
      InputFile(storage, path, "PaperPicture").read(sink);
    };
  }
  const PageRange pages = form_.chosenPages();
  TextSlice chosen = wholeText(form_.Op[1].Value ? form_.Rt1.Text.get() : "");
  if (form_.Op[2].Value && !pages.empty()) chosen = form_.PageText.shown(pages.first, pages.last);
  return [chosen](const ByteSink& sink) { sink(chosen.view()); };
}

PaperJob PanelJob::paperJob() const {
  PrintFileArguments arguments = rawArguments();
  takeKeptSettings(arguments, platform_, form_.run->ModGuidComp);
  return {.text = rawText(),
          .stream = streamSettings(arguments),
          .printer = {.codeTable = firstCodeTable(arguments.codeTable)},
          .shape = paperShape(platform_.printers.settings(arguments.printerName),
                              arguments.paperHeight & 0xFF)};
}  // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks): the function moves into the job

void PanelJob::showPaper() {
  const std::filesystem::path& report = form_.ReportPath;
  const auto paper = std::make_shared<FrmPaper>(platform_, documentNameOf(report), paperJob(),
                                                std::vector{report});
  paper->load();
  platform_.windows.show(paper);
}

void PanelJob::printDrawn() {
  if (!isConfirmed()) return;
  const Drawing drawing(form_);
  chooseCurrentPrinter();
  try {
    withPanelAway([this] { draw(); });
  } catch (const AutomationError& error) {
    showPrintFailure(platform_.messageBox, error);
  }
}

void PanelJob::chooseCurrentPrinter() {
  for (const PrinterInfo& printer : platform_.printers.list()) {
    if (printer.DeviceName != form_.CboPrinters.Text) continue;
    platform_.printers.setCurrent(printer.DeviceName);
    return;
  }
}

void PanelJob::draw() {
  const PageRange pages = form_.exportedPages();
  requirePages(pages);
  const std::string printer = platform_.printers.current();
  StyledDocument document{.name = documentNameOf(form_.ReportPath), .printer = printer};
  document.settings = platform_.printers.settings(printer).value_or(PageSettings{});
  form_.collectPages(pages);
  form_.RT3.Visible = false;
  drawnByPanel(form_, pages).draw(document, platform_.printDevice);
}

void PanelJob::requirePages(const PageRange& pages) const {
  if (pages.first >= 0 && !pages.empty() && pages.last < form_.PageCount()) return;
  throw AutomationError(AutomationError::kInvalidCall, "PrintExport",
                        "The pages \"" + form_.Tst.Text.get() + "\" to \"" + form_.Tend.Text.get() +
                            "\" cannot be drawn: the report has the pages 1 to " +
                            std::to_string(form_.PageCount()) + ".");
}

}  // namespace paperway
