#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "printed/shared_text.h"

namespace paperway {

/// Pages of a report with so many form feeds: each ends at its own, and a report without any is
/// one.
constexpr std::int64_t pageCount(std::int64_t formFeeds) {
  return formFeeds > 0 ? formFeeds : 1;
}

/// A report file cut at its form feeds. Each page ends at its form feed; a file without any is one
/// page; text behind the last form feed of a file that has some is no page. Pages count from 0. The
/// table holds no text and takes no time to make, however many pages there are.
class PageTable {
 public:
  PageTable() = default;
  explicit PageTable(std::shared_ptr<const SharedText> report);

  /// Pages are 0 to PageCount - 1. The element PageCount is there too, and never shown.
  std::int64_t PageCount() const { return count_; }

  /// The text of a page without its form feed. An AutomationError for an index that is not in the
  /// table.
  std::string_view operator[](std::int64_t index) const { return element(index).view(); }
  TextSlice element(std::int64_t index) const;
  /// Pages as they are shown: each followed by its form feed.
  TextSlice shown(std::int64_t first, std::int64_t last) const;
  TextSlice shown(std::int64_t index) const { return shown(index, index); }

 private:
  std::size_t endOf(std::int64_t index) const;

  std::shared_ptr<const SharedText> report_;
  std::int64_t count_ = 0;
};

}  // namespace paperway
