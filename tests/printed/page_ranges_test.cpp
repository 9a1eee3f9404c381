#include "printed/page_ranges.h"

#include "paperway/headless.h"
#include "support/expect_each.h"
#include "support/files.h"
#include "support/test_folder.h"

namespace paperway {
namespace {

TEST(PageRanges, AreReadAsPeopleWriteThem) {
  const auto pages = [](const char* text) {
    const auto ranges = PageRanges::read(text);
    if (!ranges) return std::string("none");
    std::string chosen;
    for (int page = 0; page < 15; ++page) {
      if (ranges->contains(page)) chosen += std::to_string(page + 1) + " ";
    }
    return chosen;
  };
  expectEach(pages,
             Row{"1,3,7-9,12-", "1 3 7 8 9 12 13 14 15 "},
             Row{"9, 2-3 ,3", "2 3 9 "},
             Row{"2-5,4-8,6", "2 3 4 5 6 7 8 "},
             Row{"14-99999999999999999", "14 15 "},
             Row{"", "none"},
             Row{"0", "none"},
             Row{"3-2", "none"},
             Row{"1,,2", "none"},
             Row{"1,", "none"},
             Row{"-3", "none"},
             Row{"a", "none"},
             Row{"1-2-3", "none"},
             Row{"9223372036854775807", "none"},
             Row{"99999999999999999999", "none"});
}

TEST(PageRanges, KnowWhatAReportLacks) {
  const auto missing = [](const char* text) {
    return PageRanges::read(text)->missing(5).value_or(-1) + 1;
  };
  expectEach(missing, Row{"1,5", 0}, Row{"3-9", 0}, Row{"1,6", 6}, Row{"4,5,6", 6}, Row{"7-", 7});
}

TEST(PageRanges, AreWrittenToAFile) {
  const TestFolder folder;
  headless::Storage storage;
  const auto written = [&](const char* report, const char* pages) {
    replaceFile(folder.path / "report", report, "test");
    std::filesystem::remove(folder.path / "part");
    const std::int64_t count =
        writePages(storage, folder.path / "report", *PageRanges::read(pages), folder.path / "part");
    const bool isWritten = std::filesystem::exists(folder.path / "part");
    return std::to_string(count) + ": " + (isWritten ? readFile(folder.path / "part", "test") : "");
  };
  expectEach(written,
             Row{"a\fb\fc\f\r\n", "1,3", "3: a\fc\f"},
             Row{"a\fb", "1-", "1: a\f"},
             Row{"a", "1", "1: a\f"},
             Row{"a\fb\f", "2,9", "2: "});
}

}  // namespace
}  // namespace paperway
