#include "textreport/layout.h"

#include <gtest/gtest.h>

#include "support/error_of.h"
#include "support/table.h"

namespace paperway {
namespace {

TEST(Layout, CellsHaveTheirExactWidth) {
  using Row = std::tuple<const char*, std::int16_t, const char*, const char*>;
  const auto cases =
      table(Row{"  ab  ", 4, "ab  ", "  ab"}, Row{"", 4, "    ", "    "},
            Row{"anything", 0, "", ""}, Row{"12345", 3, "123", "345"},
            Row{"exact", 5, "exact", "exact"}, Row{"\tab", 4, "\tab ", " \tab"},
            Row{"a b", 2, "a ", " b"}, Row{"naïve€", 4, "naïv", "ïve€"}, Row{"é", 3, "é  ", "  é"});
  for (const auto& [text, width, left, right] : cases) {
    EXPECT_EQ(TxtL(text, width), left) << text << " to " << width;
    EXPECT_EQ(TxtR(text, width), right) << text << " to " << width;
  }
}

TEST(Layout, CenteringRoundsHalfABlankToTheEvenNumber) {
  using Row = std::tuple<const char*, std::uint8_t, const char*>;
  const auto cases = table(Row{"four", 9, "  four"}, Row{"four", 11, "    four"},
                           Row{" four ", 4, "four"}, Row{"four", 5, "four"},
                           Row{"four", 6, " four"}, Row{"", 4, "  "}, Row{"café", 7, "  café"});
  for (const auto& [text, maxlen, expected] : cases)
    EXPECT_EQ(StrCenter(text, maxlen), expected) << +maxlen;
}

TEST(Layout, PrintLineStartsTheSecondTextAtItsPlace) {
  EXPECT_EQ(Print_line(6, " ab", "cd "), " ab   cd ");
  EXPECT_EQ(Print_line(2, "ab", "cd"), "abcd");
  EXPECT_EQ(Print_line(3, "é", "x"), "é  x");
}

TEST(Layout, ArgumentsOutsideTheirLimitsAreNamed) {
  EXPECT_NE(errorOf([] { TxtL("a", -1); }).find("sp1"), std::string::npos);
  EXPECT_NE(errorOf([] { TxtR("a", -1); }).find("sp1"), std::string::npos);
  EXPECT_NE(errorOf([] { StrCenter("long", 3); }).find("strTxt"), std::string::npos);
  EXPECT_NE(errorOf([] { Print_line(1, "ab", "c"); }).find("Start_pos"), std::string::npos);
}

}  // namespace
}  // namespace paperway
