#include "printing/paper_sheets.h"

#include <cmath>

#include "support/expect_each.h"

namespace paperway {
namespace {

using std::string_literals::operator""s;

struct Laid {
  std::string sheets;
  PaperFindings findings;
};

/// Each sheet as its number, its texts "left,top text" in 1/100 inch, "|top" for a cut line, and
/// where the job ends.
Laid laid(const std::string& stream, double height) {
  Laid laid;
  PaperSheets sheets({.width = 4, .height = height, .printable = 3}, [&](const Sheet& sheet) {
    const auto hundredths = [](double inches) { return std::to_string(std::lround(inches * 100)); };
    laid.sheets += "[" + std::to_string(sheet.number);
    for (const SheetText& text : sheet.texts) {
      laid.sheets += " " + hundredths(text.left) + "," + hundredths(text.top) + " " + text.text;
    }
    for (const SheetImage& image : sheet.images) {
      laid.sheets += " #" + hundredths(image.top) + "x" + std::to_string(image.dots.size());
    }
    for (const double top : sheet.cuts) laid.sheets += " |" + hundredths(top);
    if (sheet.end) laid.sheets += " end " + hundredths(*sheet.end);
    laid.sheets += "]";
  });
  PaperReader reader(sheets, {});
  reader.block(stream);
  reader.end();
  laid.findings = sheets.end();
  return laid;
}

const std::string kThreeInches = "\033C\000\003"s;

TEST(PaperSheets, LieOneBehindTheOther) {
  const auto sheets = [](const std::string& stream, double height) {
    return laid(kThreeInches + stream, height).sheets;
  };
  expectEach(sheets,
             Row{"a\r\nb\f"s, 3.0, "[1 50,0 a 50,17 b end 300]"},
             Row{"a\fb\fc\f"s, 3.0, "[1 50,0 a][2 50,0 b][3 50,0 c end 300]"},
             Row{"a\fb\fc\f"s, 4.0, "[1 50,0 a 50,300 b][2 50,200 c][3 end 100]"},
             Row{"a\fb\fc\f"s, 2.5, "[1 50,0 a][2 50,50 b][3 50,100 c][4 end 150]"},
             Row{"a\f\r\n\r\n"s, 3.0, "[1 50,0 a][2 end 33]"},
             Row{"\033j\110\033j\110"s + kThreeInches + "a\f\n\n", 3.0, "[1 50,0 a][2 end 33]"},
             Row{"\f\fa"s, 3.0, "[1][2][3 50,0 a end 0]"},
             Row{""s, 3.0, "[1 end 0]"},
             // Across a perforation, cut at the edge, and letters of the printer's table.
             Row{"\033J\377\033J\377\033J\164a"s, 3.0, "[1 50,290 a end 290][2 50,-10 a]"},
             Row{"\033J\377\033J\377\033J\213a"s, 3.0, "[1][2 50,0 a end 0]"},
             Row{std::string(31, 'x') + "\r\n" + std::string(40, ' '),
                 3.0,
                 "[1 50,0 " + std::string(30, 'x') + " |0 end 17]"},
             Row{"\202\033K\002\000\377\001"s, 3.0, "[1 50,0 é #0x16 end 0]"});
}

TEST(PaperSheets, SayWhatOneShouldKnowBefore) {
  const auto told = [](const std::string& stream, double height) {
    std::string all;
    for (const std::string& finding : laid(kThreeInches + stream, height).findings.told()) {
      all += finding + "\n";
    }
    return all;
  };
  expectEach(told,
             Row{"a\fb\f"s, 3.0, ""},
             Row{"a\fb\f"s,
                 4.0,
                 "Pages of 3 inches on sheets of 4 inches: each begins 1 inch higher than "
                 "the one before.\n"},
             Row{"a\fb\f"s,
                 2.5,
                 "Pages of 3 inches on sheets of 2.5 inches: each begins 0.5 inches lower "
                 "than the one before.\n"},
             Row{std::string(31, 'x') + "\f" + std::string(32, 'x') + "\f",
                 3.0,
                 "2 lines are cut at the right edge, the first on sheet 1.\n"},
             Row{"\033j\110"s + kThreeInches + "a\f\n",
                 3.0,
                 "The next job begins 0.167 inches higher on its sheet.\n"},
             Row{"a\f\n"s, 3.0, "The next job begins 0.167 inches lower on its sheet.\n"},
             Row{"a\f\033(V\002\000ab\033(V\002\000ab"s,
                 3.0,
                 "The code ESC ( V is not followed: 2 times, the first on sheet 2.\n"},
             Row{"a\f\f\f\f\f"s + std::string(40, '\0') +
                     "\033j\377\033j\377\033j\377\033j\377\033j\377"
                     "\033j\377\033j\377\033j\377b\f\f\f"s,
                 3.0,
                 "1 text stands on paper that cannot be fed back so far.\n"});
}

}  // namespace
}  // namespace paperway
