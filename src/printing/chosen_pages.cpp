#include "printing/chosen_pages.h"

#include <algorithm>

#include "paperway/automation_error.h"
#include "paperway/value.h"
#include "printing/drawn_page.h"

namespace paperway {
namespace {

constexpr std::size_t kMeasuredBytes = 16 << 20;
constexpr std::int64_t kLastDrawn = INT16_MAX;  // index; a drawn range is told in 16 bits

/// A report says its pitch once, in its first line.
PrinterPitch pitchAt(const FrmReport& form, std::int64_t page) {
  PrinterPitch pitch;
  if (page <= 0) return pitch;
  std::string_view first = form.PageText[0];
  while (!first.empty()) first.remove_prefix(std::max<std::size_t>(pitch.command(first), 1));
  return pitch;
}

ReportExtent measure(const FrmReport& form, const PageRange& pages, PrinterPitch pitch,
                     bool drawn) {
  if (pages.first < 0 || pages.first > pages.last || pages.last >= form.PageCount()) return {};
  ExtentScan scan(pitch, drawn, pages.first + 1);
  const TextSlice text = form.PageText.shown(pages.first, pages.last);
  scan.block(text.view().substr(0, kMeasuredBytes));
  return scan.end();
}

[[noreturn]] void refuse(const std::string& reason) {
  throw AutomationError(AutomationError::kInvalidCall, "PrintExport", reason);
}

void requirePages(const FrmReport& form) {
  const PageRange pages = chosenPages(form);
  const auto [first, last] = pages;
  const bool isInside = first >= 0 && last < form.PageCount() && first <= last;
  if (isInside && (!form.Op[2].Value || last <= kLastDrawn)) return;
  refuse("The pages \"" + form.Tst.Text.get() + "\" to \"" + form.Tend.Text.get() +
         "\" cannot be drawn: the report has the pages 1 to " + std::to_string(form.PageCount()) +
         (isInside ? ", and a range can reach to " + std::to_string(kLastDrawn + 1) : "") + ".");
}

/// The form knows by CmdOk.Tag that its pages are being drawn.
class Drawing {
 public:
  explicit Drawing(FrmReport& form) : form_(form) { form_.CmdOk.Tag = "1"; }
  ~Drawing() {
    form_.CmdOk.Tag = "0";
    form_.printSteps.printPage = nullptr;
  }
  Drawing(const Drawing&) = delete;
  Drawing& operator=(const Drawing&) = delete;

 private:
  FrmReport& form_;
};

}  // namespace

PageRange chosenPages(const FrmReport& form) {
  if (form.Op[2].Value) {
    return {wholeNumber(leadingNumber(form.Tst.Text.get()) - 1),
            wholeNumber(leadingNumber(form.Tend.Text.get()) - 1)};
  }
  if (form.Op[1].Value) return {form.CurrentPage, form.CurrentPage};
  return {0, form.PageCount() - 1};
}

/// The current page is printed as it is on show, with edits.
ReportExtent extentOfChosen(const FrmReport& form, PrinterPitch pitch) {
  if (!form.Op[1].Value) return measure(form, chosenPages(form), pitch, false);
  ExtentScan scan(pitch, false, form.CurrentPage + 1);
  const TextBuffer& shown = form.Rt1.buffer();
  for (std::size_t at = 0; at < std::min(shown.size(), kMeasuredBytes);) {
    const std::string_view piece = shown.pieceAt(at).substr(0, kMeasuredBytes);
    scan.block(piece);
    at += piece.size();
  }
  return scan.end();
}

ReportExtent drawnExtentOfChosen(const FrmReport& form) {
  const PageRange pages = chosenPages(form);
  return measure(form, pages, pitchAt(form, pages.first), true);
}

void drawChosenPages(FrmReport& form, StyledDocument document, PrintDevice& device) {
  requirePages(form);
  const ReportExtent extent = drawnExtentOfChosen(form);
  document.width = extent.width;
  document.height = extent.height();
  const auto job = device.start(document);
  PrinterPitch pitch = pitchAt(form, chosenPages(form).first);
  const std::int64_t copies = wholeNumber(leadingNumber(form.Text3.Text.get()));
  PrintedPage page;
  std::int64_t asked = 0;  // each page comes once for every copy
  const Drawing drawing(form);
  form.printSteps.printPage = [&](const std::vector<StyledLine>& lines) {
    if (asked++ % copies == 0) page = drawnPage(lines, pitch);
    job->page(page);
  };
  form.PrintExport();
  if (asked == 0)
    refuse("There is nothing to print: no copy is asked for, or the pages are empty.");
  job->end();
}

}  // namespace paperway
