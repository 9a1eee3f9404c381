#include "printing/page_range.h"

#include <gtest/gtest.h>

#include "support/test_folder.h"
#include "util/output_file.h"

namespace paperway {
namespace {

TEST(PageRange, HoldsThePagesWithTheirFormFeeds) {
  TestFolder folder;
  const std::filesystem::path report = folder.path / "report";
  const std::filesystem::path part = folder.path / "part";
  const std::string big(700'000, 'x');
  const struct {
    std::string text;
    std::int64_t first, last;
    std::int64_t pages;
    std::string part;  // "-": none
  } cases[] = {
      {"a\fb\fc\f\r\n", 1, 1, 3, "a\f"},
      {"a\fb\fc\f\r\n", 2, 3, 3, "b\fc\f"},
      {"a\fb\fc\f\r\n", 2, INT64_MAX, 3, "b\fc\f"},
      {"a\fb\fc\f\r\n", 4, 4, 3, "-"},
      {"no form feed", 1, 5, 1, "no form feed\f"},
      {"", 1, 1, 1, "\f"},
      {"a\fbehind", 2, 2, 1, "-"},
      {big + "\f" + big + "2\f", 2, 2, 2, big + "2\f"},
  };
  for (const auto& row : cases) {
    std::filesystem::remove(part);
    replaceFile(report, row.text, "test");
    EXPECT_EQ(writePages(report, row.first, row.last, part), row.pages);
    EXPECT_TRUE((std::filesystem::exists(part) ? readFile(part, "test") : "-") == row.part)
        << row.text.substr(0, 20);
  }
}

}  // namespace
}  // namespace paperway
