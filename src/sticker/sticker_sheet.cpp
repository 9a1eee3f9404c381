#include "sticker/sticker_sheet.h"

#include <algorithm>

#include "report/layout.h"
#include "util/code_page.h"
#include "util/control_strings.h"
#include "util/text.h"

namespace paperway {
namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kCondensed = "\x0F";
constexpr std::string_view kCondensedEnd = "\x12";

}  // namespace

std::int64_t StickerShape::height() const {
  const std::int64_t printed = std::max<std::int64_t>(rows, 0);
  return printed * fields + std::max<std::int64_t>(printed - 1, 0) * (blankLines + 1) + 1;
}

void StickerRow::add(std::span<const std::string> texts) {
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    std::string& line = lines_[i];
    const std::size_t at = line.size();
    line.append(static_cast<std::size_t>(shape_.length + shape_.gap), ' ');
    std::string_view bytes = texts[i];
    if (!isAscii(bytes)) {
      encoded_.clear();
      CodePage::windows1252().encode(bytes, encoded_);
      bytes = encoded_;
    }
    placeCell(line.data() + at, shape_.length, bytes, true);
  }
  ++count_;
}

bool StickerRow::holdsControls() const {
  const auto size = static_cast<std::size_t>(shape_.length + shape_.gap);
  return std::any_of(lines_.begin(), lines_.end(), [size](const std::string& line) {
    const std::string_view last = std::string_view(line).substr(line.size() - size);
    return !isPrintableAscii(last) && paperway::holdsControls(last);
  });
}

void StickerRow::take(std::string& out) {
  for (std::string& line : lines_) {
    out += line;
    out += kLineEnd;
    line.clear();
  }
  count_ = 0;
}

void StickerSheet::row(std::string_view lines) {
  if (begun_) {
    for (int line = 0; line <= shape_.blankLines; ++line) sink_(kLineEnd);
  } else if (shape_.condensed) {
    sink_(kCondensed);
  }
  begun_ = true;
  sink_(lines);
}

void StickerSheet::end() {
  if (shape_.condensed) sink_(kCondensedEnd);
  sink_({&kFormFeed, 1});
  sink_(kLineEnd);
  begun_ = false;
}

void writeStickerSheet(const StickerShape& shape, const Sticker& sticker,
                       const StickerSheet::Sink& sink) {
  StickerRow row(shape);
  for (int column = 0; column < shape.columns; ++column) row.add(sticker);
  std::string lines;
  row.take(lines);
  StickerSheet sheet(shape, sink);
  for (int i = 0; i < shape.rows; ++i) sheet.row(lines);
  sheet.end();
}

}  // namespace paperway
