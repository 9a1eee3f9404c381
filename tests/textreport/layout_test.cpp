#include "textreport/layout.h"

#include <gtest/gtest.h>

#include "support/error_of.h"

namespace paperway {
namespace {

TEST(Layout, CellsHaveTheirExactWidth) {
  const struct {
    const char* text;
    std::int16_t width;
    const char* left;
    const char* right;
  } cases[] = {
      {"  ab  ", 4, "ab  ", "  ab"}, {"", 4, "    ", "    "},        {"anything", 0, "", ""},
      {"12345", 3, "123", "345"},    {"exact", 5, "exact", "exact"}, {"\tab", 4, "\tab ", " \tab"},
      {"a b", 2, "a ", " b"},        {"naïve€", 4, "naïv", "ïve€"},  {"é", 3, "é  ", "  é"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(TxtL(c.text, c.width), c.left) << c.text << " to " << c.width;
    EXPECT_EQ(TxtR(c.text, c.width), c.right) << c.text << " to " << c.width;
  }
}

TEST(Layout, CenteringRoundsHalfABlankToTheEvenNumber) {
  const struct {
    const char* text;
    std::uint8_t maxlen;
    const char* expected;
  } cases[] = {{"four", 9, "  four"}, {"four", 11, "    four"}, {" four ", 4, "four"},
               {"four", 5, "four"},   {"four", 6, " four"},     {"", 4, "  "},
               {"café", 7, "  café"}};
  for (const auto& c : cases) EXPECT_EQ(StrCenter(c.text, c.maxlen), c.expected) << +c.maxlen;
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
