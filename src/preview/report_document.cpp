#include "preview/report_document.h"

#include <algorithm>

namespace paperway {

ReportDocument ReportDocument::read(Storage& storage, const std::filesystem::path& path) {
  return ReportDocument(PageTable(SharedText::load(storage, path, "LoadFile")));
}

ReportExtent ReportDocument::extent(const PageRanges& pages, PrinterPitch pitch,
                                    Pen::Widths widths) const {
  const PageRanges known = pages.within(pages_.PageCount());
  ExtentScan scan(pitch, widths, known);
  std::size_t left = kMeasuredBytes;
  for (const PageRange& range : known.ranges()) {
    const TextSlice text = pages_.shown(range.first, range.last);
    scan.block(text.view().substr(0, left));
    left -= std::min(left, text.size());
  }
  return scan.end();
}

PrinterPitch ReportDocument::pitchOf(std::int64_t index) const {
  NoEvents sink;
  PrintedReader reader(sink);
  if (index > 0) reader.block(pages_.shown(0).view());
  return reader.pen().pitch();
}

std::vector<StyledRun> ReportDocument::styledPage(std::int64_t index, const PageLook& look) const {
  TextBuffer text;
  text.assign(pages_.element(index));
  FormatRuns formats;
  formats.reset(text.size());
  const auto format = [&formats](std::size_t begin, std::size_t end, const FormatChange& change) {
    formats.change(begin, end, change);
  };
  if (look.styled) {
    const DOSEFONTcHR font;
    for (const StylePass& pass : exportPasses(font)) {
      stylePairs(text, pass.start, pass.end, styleOf(pass.setting, look), format);
    }
  }
  return styledRuns(text, formats, 0, text.size());
}

}  // namespace paperway
