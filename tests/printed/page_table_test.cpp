#include "printed/page_table.h"

#include "paperway/automation_error.h"
#include "support/expect_each.h"

namespace paperway {
namespace {

TEST(PageTable, IsCutAtFormFeedsAlone) {
  const auto elements = [](const char* file) {
    const PageTable table(SharedText::of(file));
    const std::int64_t size = table.PageCount() + 1;
    EXPECT_THROW(table[-1], AutomationError) << file;
    EXPECT_THROW(table[size], AutomationError) << file;
    std::string all;
    for (std::int64_t i = 0; i < size; ++i) all += std::string(table[i]) + "|";
    return all;
  };
  expectEach(elements,
             Row{"", "||"},
             Row{"one", "one||"},
             Row{"one\f", "one||"},
             Row{"one\ftwo", "one|two|"},
             Row{"one\ftwo\f", "one|two||"},
             Row{"one\ftwo\f\r\n", "one|two|\r\n|"},
             Row{"\f\f", "|||"});
}

}  // namespace
}  // namespace paperway
