#include "report/layout.h"

#include "support/error_of.h"
#include "support/expect_each.h"

namespace paperway {
namespace {

TEST(Layout, CellsHaveTheirExactWidth) {
  const auto both = [](std::string_view text, std::int16_t width) {
    return TxtL(text, width) + "|" + TxtR(text, width);
  };
  expectEach(both,
             Row{"  ab  ", 4, "ab  |  ab"},
             Row{"", 4, "    |    "},
             Row{"anything", 0, "|"},
             Row{"12345", 3, "123|345"},
             Row{"exact", 5, "exact|exact"},
             Row{"\tab", 4, "\tab | \tab"},
             Row{"a b", 2, "a | b"},
             Row{"naïve€", 4, "naïv|ïve€"},
             Row{"é", 3, "é  |  é"});
}

TEST(Layout, CenteringRoundsHalfABlankToTheEvenNumber) {
  expectEach(StrCenter,
             Row{"four", 9, "  four"},
             Row{"four", 11, "    four"},
             Row{" four ", 4, "four"},
             Row{"four", 5, "four"},
             Row{"four", 6, " four"},
             Row{"", 4, "  "},
             Row{"café", 7, "  café"});
}

TEST(Layout, PrintLineStartsTheSecondTextAtItsPlace) {
  expectEach(Print_line,
             Row{6, " ab", "cd ", " ab   cd "},
             Row{2, "ab", "cd", "abcd"},
             Row{3, "é", "x", "é  x"});
}

TEST(Layout, ArgumentsOutsideTheirLimitsAreNamed) {
  EXPECT_NE(errorOf([] { TxtL("a", -1); }).find("sp1"), std::string::npos);
  EXPECT_NE(errorOf([] { TxtR("a", -1); }).find("sp1"), std::string::npos);
  EXPECT_NE(errorOf([] { StrCenter("long", 3); }).find("strTxt"), std::string::npos);
  EXPECT_NE(errorOf([] { Print_line(1, "ab", "c"); }).find("Start_pos"), std::string::npos);
}

}  // namespace
}  // namespace paperway
