#include "util/page_marks.h"

#include "support/expect_each.h"
#include "util/html_pieces.h"

namespace paperway {
namespace {

TEST(PageMarks, AreReplacedAndSpread) {
  const auto marks = [](const char* codes) {
    const PageMarks line =
        pageMarks(codes, {3, 12, "Ledger", "/home/a/l.html", {2026, 3, 5, 14, 7, 9}});
    return line[0] + "|" + line[1] + "|" + line[2];
  };
  expectEach(marks,  //
             Row{"", "||"},
             Row{"&b Page &p of &P", "|| Page 3 of 12"},
             Row{"&w&b&D&b&d", "Ledger|Thursday, 5 March 2026|3/5/2026"},
             Row{"&u &t", "/home/a/l.html 2:07 PM||"},
             Row{"&T&b", "14:07:09||"},
             Row{"A && B &x &", "A & B &x &||"},
             Row{"1&b2&b3&b4", "1|2|3&b4"},
             Row{"&&p &&b", "&p &b||"});
}

std::vector<std::string> cut(const std::string& document, std::size_t pages) {
  const HtmlPieces pieces(document, pages);
  std::vector<std::string> all;
  for (std::size_t i = 0; i < pieces.count(); ++i) all.push_back(pieces.piece(i));
  return all;
}

TEST(HtmlPieces, AreDocumentsOfTheirOwn) {
  const std::string table =
      "<LINK href='a.css'>\r\n<STYLE>p{}</STYLE>\r\n<style>\r\n.a0 { }\r\n</style>\r\n"
      "<font face='Arial Narrow'>\r\n<blockquote>";
  const std::string report =
      "<HTML>\r\n<body bgcolor=1>\r\n<font size =3> <p style = 'margin-top:0;'>\r\n";
  const std::string end = "<p style = page-break-after:always> </p>";
  const std::string shortEnd = "<p style=page-break-after:always></p>";
  using Documents = std::vector<std::string>;
  const std::tuple<std::string, std::size_t, Documents> cases[] = {
      {"", 1, {""}},
      {table + "1" + end + "2" + end + "3", 1, {table + "1", table + "2", table + "3"}},
      {table + "1" + end + "2" + end + "3", 2, {table + "1" + end + "2", table + "3"}},
      {report + "1" + shortEnd + "<br>2" + shortEnd, 1, {report + "1", report + "<br>2"}},
      {"<p>1" + end + "\r\n", 1, {"<p>1"}},
      {end + "2", 1, {"", "2"}},
      {"<style>never closed" + end + "2", 1, {"<style>never closed", "2"}},
      {"1<p style = page-break-after:always>2", 1, {"1<p style = page-break-after:always>2"}},
      {"<P STYLE = PAGE-BREAK-AFTER:ALWAYS> </P>x", 1, {"", "x"}},
  };
  for (const auto& [document, pages, expected] : cases) {
    EXPECT_EQ(cut(document, pages), expected) << document;
  }
}

}  // namespace
}  // namespace paperway
