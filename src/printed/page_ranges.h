#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string_view>
#include <vector>

#include "paperway/platform/storage.h"

namespace paperway {

/// Pages of a report by index from 0, both included; none when the last is before the first.
struct PageRange {
  std::int64_t first = 0;
  std::int64_t last = -1;

  bool empty() const { return last < first; }
  bool operator==(const PageRange&) const = default;
};

/// Pages in the order of the report, each once, however they were named.
class PageRanges {
 public:
  static constexpr std::int64_t kToTheEnd = INT64_MAX - 1;  // as the last page of a range

  PageRanges() = default;
  PageRanges(PageRange range) : PageRanges(std::vector{range}) {}
  explicit PageRanges(std::vector<PageRange> ranges);

  /// As people write them, "1,3,7-9,12-", pages counting from 1. Nothing when it is no such text.
  static std::optional<PageRanges> read(std::string_view text);

  bool empty() const { return ranges_.empty(); }
  bool contains(std::int64_t page) const;
  const std::vector<PageRange>& ranges() const { return ranges_; }
  /// The page at this place among them, counting from 0; the last one for a place beyond them.
  std::int64_t at(std::int64_t place) const;

  /// The same without what a report of so many pages lacks.
  PageRanges within(std::int64_t pageCount) const;
  /// The first page of a range of which a report of so many pages has none.
  std::optional<std::int64_t> missing(std::int64_t pageCount) const;

 private:
  std::vector<PageRange> ranges_;  // in order, apart
};

/// Writes these pages of a report, each with its form feed, to a file that takes its place when it
/// is complete. Gives the number of pages that the report has; when a range begins beyond it,
/// nothing is written. An AutomationError when a file fails.
std::int64_t writePages(Storage& storage, const std::filesystem::path& report,
                        const PageRanges& pages, const std::filesystem::path& target);

}  // namespace paperway
