#include <utility>
#include <vector>

#include "fuzz/fuzz.h"
#include "html/report_html.h"
#include "paperway/automation_error.h"
#include "paperway/headless.h"
#include "support/files.h"
#include "support/test_folder.h"

using namespace paperway;

namespace {

/// The record of control strings: the published ones, or some that overlap with one another, with
/// blanks and with tags.
DOSEFONTcHR fontOf(char choice) {
  DOSEFONTcHR font;
  if (choice == 'o') font.Bon = font.BBon, font.UnLoff = "\x1B\x1B", font.Coff = "";
  if (choice == 't') font.Bon = "&", font.Boff = "b", font.Con = " ", font.C80 = "nbsp;n";
  return font;
}

std::string replaced(std::string text, const std::string& from, const std::string& to) {
  if (from.empty()) return text;
  for (std::size_t at = 0; (at = text.find(from, at)) != text.npos; at += to.size()) {
    text.replace(at, from.size(), to);
  }
  return text;
}

/// A line by the replacements one after the other, as they are told.
std::string literally(std::string line, const DOSEFONTcHR& font, bool pages) {
  const std::string color = " color:rgb( 1, 2, 3);";
  line = replaced(line, " ", "&nbsp;");
  line = replaced(line,
                  font.BBon,
                  "<H2 style = 'margin-top:0;margin bottom:0; " + color + (pages ? "'>" : "' >"));
  line = replaced(line, font.BBoff, "</H2>");
  line = replaced(line, font.Bon, (pages ? "<b style = '" : "<b  style = '") + color + "'>");
  line = replaced(line, font.Boff, "</b>");
  line = replaced(
      line,
      font.Con,
      (pages ? "<h6 style = '" : "<h6 style = 'margin-top:0;margin bottom:0 ; ") + color + "'>");
  line = replaced(line, font.Coff, "</h6>");
  line = replaced(line, font.UnLOn, "");
  line = replaced(line, font.UnLoff, "");
  if (!pages) return line;
  return replaced(replaced(line, font.C80, ""), "\f", "<p style=page-break-after:always></p>");
}

std::string linesOf(std::string_view report, const DOSEFONTcHR& font, bool pages) {
  std::string html;
  while (!report.empty()) {
    const bool whole = report.find('\n') != report.npos;
    std::string_view line = fuzz::takeUntil(report, '\n');
    if (line.ends_with('\r')) line.remove_suffix(1);
    html += literally(std::string(line), font, pages) + "<br>\r\n";
    if (!whole) break;
  }
  return html;
}

}  // namespace

std::vector<std::string> fuzz::seeds() {
  std::string codes;
  const DOSEFONTcHR font;
  for (const auto& code : {font.Bon,
                           font.Boff,
                           font.Con,
                           font.Coff,
                           font.BBon,
                           font.BBoff,
                           font.UnLOn,
                           font.UnLoff,
                           font.C96,
                           font.C80}) {
    codes += code + "a b" + font.UnLOn.substr(0, 1) + code + "-1-0PEF\r\n" + code + "\f";
  }
  const std::string nested = "\x1B\x1B-1-0 \x1B\x1B-0P \x1B\x1B-1P\x1B\x1B-1\x1B-1-0";
  return {"pp" + codes,
          "sp" + codes,
          "po" + codes,
          "pt" + codes,
          "pp" + nested,
          "st" + nested,
          "pp" + std::string(40000, ' ') + codes + std::string(40000, '\x1B') + "E\r\n",
          "pp",
          "pp\r\n \r\r\n\n"};
}

void fuzz::check(std::string_view input) {
  static const TestFolder folder;
  static headless::Storage storage;
  if (input.size() < 2) return;
  const bool pages = input[0] == 'p';
  const DOSEFONTcHR font = fontOf(input[1]);
  input.remove_prefix(2);
  const auto report = folder.path / "report.txt";
  const auto html = folder.path / "report.html";
  replaceFile(report, std::string(input), "fuzz");
  convertReport({.report = report,
                 .html = html,
                 .colors = {0x030201, 0x030201, 0x030201, 0x030201},
                 .breaksPages = pages,
                 .caller = "fuzz"},
                font,
                storage);
  const std::string bytes = readFile(html);
  const std::string lines = linesOf(input, font, pages);
  const std::string foot = "</p></font>\r\n</body>\r\n</HTML>\r\n";
  fuzz::require(bytes.starts_with("<HTML>\r\n<body  bgcolor='rgb( 1, 2, 3)';>\r\n"), "the head");
  fuzz::require(bytes.ends_with("bottom:0; '>\r\n" + lines + foot), "each line, as it is told");
}
