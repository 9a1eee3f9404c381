#include "fuzz/fuzz.h"
#include "printed/report_extent.h"
#include "printing/print_stream.h"

using namespace paperway;

/// A report, and before the first line feed how long its blocks are.
std::vector<std::string> fuzz::seeds() {
  return {"\3\n\022\033W \033M\r\n\016\033E\033GBig\024\033F\033H\r\n\f\017cond\022\r\n\f\r\n",
          "1\n\033C\0\014x\ty\r\nover\rprint\f\f",
          "\n\xC3\xA9\x81\n\033!\x25\033@",
          "\x7F\nno end"};
}

namespace {

template <class Taker>
void inBlocks(std::string_view text, std::size_t size, Taker& taker) {
  for (; !text.empty(); text.remove_prefix(std::min(size, text.size()))) {
    taker.block(text.substr(0, size));
  }
}

std::string linesOf(std::string_view text, std::size_t block) {
  std::string sent;
  PrinterLines lines([&](std::string_view piece) { sent += piece; });
  inBlocks(text, block, lines);
  lines.end();
  return sent;
}

ReportExtent extentOf(std::string_view text, std::size_t block) {
  ExtentScan scan({});
  inBlocks(text, block, scan);
  return scan.end();
}

}  // namespace

void fuzz::check(std::string_view text) {
  const std::string_view head = fuzz::takeUntil(text, '\n');
  const std::size_t block = head.empty() ? 1 : static_cast<unsigned char>(head[0]) + std::size_t{1};
  const std::string sent = linesOf(text, text.size() + 1);
  fuzz::require(linesOf(text, block) == sent, "blocks make no difference to what is sent");
  const bool hasFormFeed = text.find('\f') != std::string_view::npos;
  fuzz::require(hasFormFeed || linesOf(sent, block) == sent, "complete lines go as they are");
  const ReportExtent one = extentOf(text, text.size() + 1);
  const ReportExtent other = extentOf(text, block);
  fuzz::require(one.width == other.width && one.lines == other.lines &&
                    one.foreign == other.foreign && one.widestPage == other.widestPage &&
                    one.longestPage == other.longestPage && one.foreignPage == other.foreignPage,
                "blocks make no difference to what is measured");
}
