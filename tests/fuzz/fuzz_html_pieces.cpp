#include "fuzz/fuzz.h"
#include "util/html_pieces.h"

using namespace paperway;

namespace {

constexpr std::string_view kBreak = "<p style=page-break-after:always></p>";

}  // namespace

std::vector<std::string> fuzz::seeds() {
  const std::string head =
      "<!DOCTYPE html><head><style>p{}</style></head><BODY><font face='a'>\r\n";
  std::string pages;
  for (const char* page : {"one", "two", "three", ""}) pages.append(page).append(kBreak);
  return {"1" + head + pages,
          "2" + pages,
          "1<title>a</b>" + pages,
          "3",
          "2<p STYLE = page-break",
          "1<style><p style=page-break-after:always></p></style>" + pages + "<"};
}

void fuzz::check(std::string_view input) {
  if (input.empty()) return;
  const std::string_view document = input.substr(1);
  const HtmlPieces pieces(document, 1 + static_cast<unsigned char>(input[0]) % 3);
  const std::string first = pieces.piece(0);
  require(document.starts_with(first), "the first piece begins the document");
  for (std::size_t i = 1; i < pieces.count(); ++i) {
    const std::string piece = pieces.piece(i);
    std::size_t pages = 0;  // where they begin in the piece
    while (document.find(piece.substr(pages), first.size()) == document.npos) ++pages;
    require(document.starts_with(piece.substr(0, pages)), "a piece is the head, and pages");
  }
}
