#include "fuzz/fuzz.h"
#include "printing/paper_sheets.h"
#include "printing/printer_letters.h"

using namespace paperway;

/// What a printer gets, and before the first line feed how long its blocks are.
std::vector<std::string> fuzz::seeds() {
  using std::string_literals::operator""s;
  return {"\3\n\033P\033C\0\014\033jH\033C\0\014Cr\350me\r\n\f"s,
          "1\n\033D\5\12\0a\tb\033l\5\033$\74\0c\033\\\xF0\xFF"
          "d\033 \2e"s,
          "\n\033K\2\0\377\1\033*\47\1\0abc\033^\1\1\0\377\1"s,
          "\7\n\033B\5\12\0\v\v\0333\110\n\033N\3\033A\6\033J\22\033w1x\033S1y\033T"s,
          "\2\n\033(t\3\0\1\3\0\033t1\350\033t0\350\033r2z\033(V\2\0ab"s};
}

namespace {

/// All that is told of the sheets.
std::string paperOf(std::string_view text, std::size_t block) {
  std::string told;
  std::int64_t last = 0;
  PaperSheets sheets({}, [&](const Sheet& sheet) {
    fuzz::require(sheet.number == ++last, "sheets come in their order");
    // A piece of text ends where a block does, and one of blanks is none.
    for (const SheetText& piece : sheet.texts) told += piece.text;
    std::erase(told, ' ');
    for (const SheetImage& image : sheet.images) told += std::to_string(image.dots.size()) + "#";
  });
  PaperReader reader(sheets, {});
  for (; !text.empty(); text.remove_prefix(std::min(block, text.size()))) {
    reader.block(text.substr(0, block));
  }
  reader.end();
  const PaperFindings findings = sheets.end();
  fuzz::require(findings.sheets == last, "all sheets were given");
  return told;
}

std::string lettersOf(std::string_view text, std::size_t block) {
  std::string sent;
  PrinterLetters letters(850, [&](std::string_view piece) { sent += piece; });
  for (; !text.empty(); text.remove_prefix(std::min(block, text.size()))) {
    letters.block(text.substr(0, block));
  }
  letters.end();
  return sent;
}

}  // namespace

void fuzz::check(std::string_view text) {
  const std::string_view head = fuzz::takeUntil(text, '\n');
  const std::size_t block = head.empty() ? 1 : static_cast<unsigned char>(head[0]) + std::size_t{1};
  fuzz::require(paperOf(text, block) == paperOf(text, text.size() + 1),
                "blocks make no difference to the paper");
  const std::string sent = lettersOf(text, text.size() + 1);
  fuzz::require(lettersOf(text, block) == sent, "blocks make no difference to letters");
  fuzz::require(sent.size() == text.size(), "each letter is one byte");
}
