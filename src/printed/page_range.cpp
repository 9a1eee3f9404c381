#include "printed/page_range.h"

#include <algorithm>

#include "util/control_strings.h"
#include "util/input_file.h"
#include "util/output_file.h"

namespace paperway {

std::int64_t writePages(const std::filesystem::path& report, std::int64_t first, std::int64_t last,
                        const std::filesystem::path& target) {
  OutputFile out(target, "PrintFile");
  std::int64_t page = 1;
  std::string held;  // of the page, which is one only if a form feed ends it
  readBlocks(report, "PrintFile", [&](std::string_view block) {
    while (!block.empty()) {
      const std::size_t end = block.find(kFormFeed);
      const bool isEnded = end != std::string_view::npos;
      const std::size_t size = isEnded ? end + 1 : block.size();
      if (page >= first && page <= last) held += block.substr(0, size);
      if (isEnded) {
        out.write(held);
        held.clear();
        ++page;
      }
      block.remove_prefix(size);
    }
  });
  const std::int64_t pages = std::max<std::int64_t>(page - 1, 1);
  if (first > pages) return pages;
  if (page == 1) out.write(held + kFormFeed);  // a report without any form feed is one page
  out.commit();
  return pages;
}

}  // namespace paperway
