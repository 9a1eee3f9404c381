#include "printed/page_ranges.h"

#include <algorithm>
#include <charconv>
#include <string>

#include "platform/input_file.h"
#include "platform/output_file.h"
#include "printed/page_table.h"
#include "util/control_strings.h"
#include "util/text.h"

namespace paperway {
namespace {

/// A page number at the beginning of the text, which is taken off.
std::optional<std::int64_t> takeNumber(std::string_view& text) {
  std::int64_t number = 0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
  if (read.ec != std::errc() || number < 1 || number > PageRanges::kToTheEnd) return std::nullopt;
  text.remove_prefix(static_cast<std::size_t>(read.ptr - text.data()));
  return number;
}

/// "3", "3-7" or "3-".
std::optional<PageRange> readRange(std::string_view text) {
  text = trimBlanks(text);
  const auto first = takeNumber(text);
  if (!first) return std::nullopt;
  std::optional<std::int64_t> last = first;
  if (text.starts_with('-')) {
    text.remove_prefix(1);
    last = text.empty() ? PageRanges::kToTheEnd + 1 : takeNumber(text);
  }
  if (!last || *last < *first || !text.empty()) return std::nullopt;
  return PageRange{*first - 1, *last - 1};
}

}  // namespace

PageRanges::PageRanges(std::vector<PageRange> ranges) {
  std::erase_if(ranges, [](const PageRange& range) { return range.empty(); });
  std::sort(ranges.begin(), ranges.end(),
            [](const PageRange& a, const PageRange& b) { return a.first < b.first; });
  for (const PageRange& range : ranges) {
    if (ranges_.empty() || range.first > ranges_.back().last) {
      ranges_.push_back(range);
    } else {
      ranges_.back().last = std::max(ranges_.back().last, range.last);
    }
  }
}

std::optional<PageRanges> PageRanges::read(std::string_view text) {
  std::vector<PageRange> ranges;
  for (std::size_t begin = 0; begin <= text.size();) {
    const std::size_t end = std::min(text.find(',', begin), text.size());
    const auto range = readRange(text.substr(begin, end - begin));
    if (!range) return std::nullopt;
    ranges.push_back(*range);
    begin = end + 1;
  }
  return PageRanges(std::move(ranges));
}

bool PageRanges::contains(std::int64_t page) const {
  return std::any_of(ranges_.begin(), ranges_.end(), [page](const PageRange& range) {
    return page >= range.first && page <= range.last;
  });
}

std::int64_t PageRanges::at(std::int64_t place) const {
  for (const PageRange& range : ranges_) {
    if (place <= range.last - range.first) return range.first + place;
    place -= range.last - range.first + 1;
  }
  return ranges_.empty() ? 0 : ranges_.back().last;
}

PageRanges PageRanges::within(std::int64_t pageCount) const {
  std::vector<PageRange> ranges = ranges_;
  for (PageRange& range : ranges) {
    range = {std::max<std::int64_t>(range.first, 0), std::min(range.last, pageCount - 1)};
  }
  return PageRanges(std::move(ranges));
}

std::optional<std::int64_t> PageRanges::missing(std::int64_t pageCount) const {
  if (ranges_.empty() || ranges_.back().first < pageCount) return std::nullopt;
  return ranges_.back().first;
}

std::int64_t writePages(Storage& storage, const std::filesystem::path& report,
                        const PageRanges& pages, const std::filesystem::path& target) {
  OutputFile out(storage, target, "PrintFile", {.access = FileAccess::owner, .lasting = false});
  std::int64_t page = 0;
  std::string held;  // of the page, which is one only if a form feed ends it
  readBlocks(storage, report, "PrintFile", [&](std::string_view block) {
    while (!block.empty()) {
      const std::size_t end = block.find(kFormFeed);
      const bool isEnded = end != std::string_view::npos;
      const std::size_t size = isEnded ? end + 1 : block.size();
      if (pages.contains(page)) held += block.substr(0, size);
      if (isEnded) {
        out.write(held);
        held.clear();
        ++page;
      }
      block.remove_prefix(size);
    }
  });
  const std::int64_t count = pageCount(page);
  if (pages.missing(count)) return count;
  if (page == 0) out.write(held + kFormFeed);
  out.commit();
  return count;
}

}  // namespace paperway
