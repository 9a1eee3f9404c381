#include "fuzz/fuzz.h"
#include "paperway/automation_error.h"
#include "paperway/memory.h"
#include "sticker/sticker_sheet.h"
#include "sticker/sticker_template.h"
#include "util/text.h"

using namespace paperway;

/// A line with places for fields, a line feed, the value of the field "f".
std::vector<std::string> fuzz::seeds() {
  return {"{f}\nvalue",
          "{f:#,##0.00} {F:@@@}\n1234.5",
          "{{f}} {f:dd-mmm-yyyy}\n2026-03-05",
          "{f:\\}}{\n",
          "{g}\nno field",
          "{f:{}{f}é€😀\n\xFF"};
}

namespace {

/// The row that stands on the sheet, or nothing where the line or the value is refused.
std::string rowOf(std::string_view line, std::string_view value, const StickerShape& shape) {
  MemoryTable rows({"f"});
  rows.addRow({std::string(value)});
  std::string text;
  try {
    StickerTemplate(line, rows).append(text, rows, 1);
  } catch (const AutomationError&) {
    return "";
  }
  StickerRow row(shape);
  while (!row.isFull()) row.add(std::span(&text, 1));
  row.holdsControls();
  std::string bytes;
  row.take(bytes);
  fuzz::require(row.isEmpty(), "a row that was taken is empty");
  return bytes;
}

}  // namespace

void fuzz::check(std::string_view input) {
  StickerShape shape;
  shape.length = static_cast<std::uint8_t>(input.size() % 64);
  shape.gap = static_cast<std::int16_t>(input.size() % 5);
  shape.columns = 3;
  const std::string_view line = fuzz::takeUntil(input, '\n');
  const std::string bytes = rowOf(line, input, shape);
  if (bytes.empty()) return;
  const auto width = static_cast<std::size_t>(shape.width());
  fuzz::require(bytes.size() == width + 2, "a row is as wide as the sheet");
  const std::size_t each = width / 3;
  fuzz::require(bytes.substr(0, each) == bytes.substr(each, each), "its stickers are the same");
  if (line.find('{') == line.npos && validUtf8Length(line) == line.size()) {
    fuzz::require(rowOf(line, "", shape) == bytes, "a line without places is the same in each row");
  }
}
