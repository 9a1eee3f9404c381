#include "printed/page_table.h"

#include <algorithm>
#include <string>

#include "paperway/automation_error.h"

namespace paperway {

PageTable::PageTable(std::shared_ptr<const SharedText> report)
    : report_(std::move(report)),
      count_(pageCount(static_cast<std::int64_t>(report_->formFeeds().total()))) {}

/// Offset of the form feed that ends a page; the text's end when it has none.
std::size_t PageTable::endOf(std::int64_t index) const {
  return report_->formFeeds().position(report_->view(), static_cast<std::uint64_t>(index));
}

TextSlice PageTable::element(std::int64_t index) const {
  if (report_ == nullptr || index < 0 || index > count_) {
    throw AutomationError(AutomationError::kSubscript, "PageText",
                          "There is no page " + std::to_string(index + 1) + " in the report.");
  }
  const std::size_t end = endOf(index);
  const std::size_t begin = index == 0 ? 0 : endOf(index - 1) + 1;
  return {report_, std::min(begin, end), end};
}

TextSlice PageTable::shown(std::int64_t first, std::int64_t last) const {
  TextSlice pages = element(first);
  pages.end = element(last).end + 1;
  return pages;
}

}  // namespace paperway
