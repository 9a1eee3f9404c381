#include "printing/chosen_pages.h"

#include <algorithm>

#include "printing/drawn_page.h"
#include "util/value.h"

namespace paperway {
namespace {

constexpr std::size_t kMeasuredBytes = 64 << 20;

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

std::int64_t wholeNumber(const std::string& text) {
  constexpr double kFar = 1e15;
  return static_cast<std::int64_t>(std::clamp(leadingNumber(text), -kFar, kFar));
}

PageRange chosenPages(const FrmReport& form) {
  if (form.Op[2].Value) return {wholeNumber(form.Tst.Text) - 1, wholeNumber(form.Tend.Text) - 1};
  if (form.Op[1].Value) return {form.CurrentPage, form.CurrentPage};
  return {0, form.PageCount() - 1};
}

ReportExtent extentOfChosen(const FrmReport& form, PrinterPitch pitch) {
  return measure(form, chosenPages(form), pitch, false);
}

ReportExtent drawnExtentOfChosen(const FrmReport& form) {
  const PageRange pages = chosenPages(form);
  return measure(form, pages, pitchAt(form, pages.first), true);
}

void drawChosenPages(FrmReport& form, StyledDocument document, PrintDevice& device) {
  const ReportExtent extent = drawnExtentOfChosen(form);
  document.width = extent.width;
  document.height = extent.height();
  const auto job = device.start(document);
  PrinterPitch pitch = pitchAt(form, chosenPages(form).first);
  const std::int64_t copies = wholeNumber(form.Text3.Text);
  PrintedPage page;
  std::int64_t asked = 0;  // each page comes once for every copy
  const Drawing drawing(form);
  form.printSteps.printPage = [&](const std::vector<StyledLine>& lines) {
    if (asked++ % copies == 0) page = drawnPage(lines, pitch);
    job->page(page);
  };
  form.PrintExport();
  job->end();
}

}  // namespace paperway
