#include "printing/paper_picture.h"

#include <algorithm>
#include <cmath>

#include "printing/page_fit.h"

namespace paperway {
namespace {

constexpr double kStrips = 1;  // inches of the width

struct Left {};

/// Sizes in inches come back from 1/100 millimetres.
double rounded(double inches) {
  return std::round(inches * 1000) / 1000;
}

}  // namespace

PaperShape fanfold(double width, double height) {
  const double printable = width - kStrips >= kWideRoom ? kWideRoom : kNarrowRoom;
  return {rounded(width), rounded(height), std::min(printable, width - kStrips)};
}

PaperShape paperShape(const std::optional<PageSettings>& settings, double height) {
  constexpr std::int16_t kWideFanfold = 39;
  constexpr std::int16_t kFanfolds[] = {kWideFanfold, 40, 41};
  const PaperShape usual;
  if (height <= 0) height = usual.height;
  if (!settings) return fanfold(usual.width, height);
  const PaperRoom sheet = sheetRoom({1, settings->PaperSize});
  for (const std::int16_t number : kFanfolds) {
    if (settings->PaperSize != number) continue;
    // The narrow ones are told without their strips.
    return fanfold(number == kWideFanfold ? sheet.width : sheet.width + kStrips, sheet.height);
  }
  const bool isWide = rawRoom(settings, 0).width > kNarrowRoom;
  return fanfold(isWide ? sheetRoom({1, kWideFanfold}).width : usual.width, height);
}

std::optional<PaperFindings> layOutPaper(const PaperJob& job, const SheetSink& sink) {
  PaperSheets sheets(job.shape, [&](Sheet sheet) {
    if (!sink(std::move(sheet))) throw Left();
  });
  PaperReader reader(sheets, job.printer);
  try {
    const std::uint64_t plain = writePrintStream(
        job.text, job.stream, [&](std::string_view piece) { reader.block(piece); });
    reader.end();
    PaperFindings findings = sheets.end();
    findings.plain = plain;
    findings.codeTable = job.stream.codeTable;
    return findings;
  } catch (const Left&) {
    return {};
  }
}

}  // namespace paperway
