#include "printing/paper_sheets.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "printing/printer_letters.h"
#include "util/code_page.h"

namespace paperway {
namespace {

constexpr double kRounding = 1e-6;       // inches
constexpr double kInkHeight = 0.13;      // of a usual character, from its top
constexpr std::int64_t kSheetsBack = 2;  // that paper may be fed back
constexpr std::uint32_t kInks[] = {0x000000, 0x8000C0, 0xB0A000, 0x900060,
                                   0x00B0D0, 0x2020C8, 0x309020};

std::string inches(double length) {
  char text[32];
  std::snprintf(text, sizeof text, "%.3g", length);
  return std::string(text) + (std::string_view(text) == "1" ? " inch" : " inches");
}

std::string counted(std::int64_t count, const std::string& one, const std::string& more) {
  return std::to_string(count) + " " + (count == 1 ? one : more);
}

std::string firstOn(std::int64_t sheet) {
  return ", the first on sheet " + std::to_string(sheet);
}

std::string lettersOf(const PaperText& text, std::string_view bytes) {
  const CodePage* page = CodePage::byNumber(text.codeTable);
  return (page == nullptr ? CodePage::windows1252() : *page).decode(bytes);
}

bool isBlank(std::string_view bytes) {
  return bytes.find_first_not_of(' ') == std::string_view::npos;
}

}  // namespace

std::vector<std::string> PaperFindings::told() const {
  std::vector<std::string> told;
  const double drift = pageLength - height;
  if (sheets > 1 && std::abs(drift) > kRounding) {
    told.push_back("Pages of " + inches(pageLength) + " on sheets of " + inches(height) +
                   ": each begins " + inches(std::abs(drift)) + (drift > 0 ? " lower" : " higher") +
                   " than the one before.");
  }
  if (plain > 0) told.push_back(plainLetters(plain, codeTable));
  if (cutLines > 0) {
    told.push_back(counted(cutLines, "line is", "lines are") + " cut at the right edge" +
                   firstOn(firstCutSheet) + ".");
  }
  if (torn > 0) {
    told.push_back(counted(torn, "line stands", "lines stand") + " across a perforation" +
                   firstOn(firstTornSheet) + ".");
  }
  if (lost > 0) {
    told.push_back(counted(lost, "text stands", "texts stand") +
                   " on paper that cannot be fed back so far.");
  }
  if (std::abs(drift) <= kRounding && std::abs(nextJob) > kRounding) {
    told.push_back("The next job begins " + inches(std::abs(nextJob)) +
                   (nextJob > 0 ? " lower" : " higher") + " on its sheet.");
  }
  for (const auto& [code, where] : unknown) {
    told.push_back("The code " + code + " is not followed: " +
                   counted(where.times, "time", "times") + firstOn(where.firstSheet) + ".");
  }
  return told;
}

std::string PaperFindings::line() const {
  std::string line;
  for (const std::string& sentence : told()) line += (line.empty() ? "" : " ") + sentence;
  return line;
}

std::int64_t PaperSheets::indexAt(double down) const {
  return static_cast<std::int64_t>(std::floor(down / shape_.height + kRounding));
}

Sheet PaperSheets::blank(std::int64_t index) const {
  const double left = (shape_.width - shape_.printable) / 2;
  return {.number = index + 1,
          .width = shape_.width,
          .height = shape_.height,
          .printableLeft = left,
          .printableRight = left + shape_.printable};
}

Sheet* PaperSheets::sheetAt(std::int64_t index) {
  index = std::max<std::int64_t>(index, 0);
  if (index < firstOpen_) return nullptr;
  while (firstOpen_ + static_cast<std::int64_t>(open_.size()) <= index) {
    open_.push_back(blank(firstOpen_ + static_cast<std::int64_t>(open_.size())));
  }
  return &open_[static_cast<std::size_t>(index - firstOpen_)];
}

void PaperSheets::giveUpTo(std::int64_t index) {
  for (; firstOpen_ < index; ++firstOpen_) {
    if (open_.empty()) {
      take_(blank(firstOpen_));
    } else {
      take_(std::move(open_.front()));
      open_.pop_front();
    }
  }
}

void PaperSheets::feed(const PaperFeed& feed) {
  at_ = feed.inches();
  findings_.pageLength = static_cast<double>(feed.pageLength()) / PaperFeed::kInch;
  if (begun_) {
    giveUpTo(indexAt(downFrom(at_)) - kSheetsBack);
  } else {
    origin_ = std::min(origin_, at_);
  }
}

void PaperSheets::text(const PaperText& text) {
  if (isBlank(text.bytes) && !text.style.underline) return;
  begun_ = true;
  const double down = downFrom(text.top);
  const double room = (shape_.printable - text.left) * text.cpi + kRounding;
  const auto fits = static_cast<std::size_t>(std::max(0.0, room));
  if (fits < text.bytes.size() && !isBlank(text.bytes.substr(fits))) cut(down);
  const std::string_view seen = text.bytes.substr(0, std::min(fits, text.bytes.size()));
  if (seen.empty()) return;
  put({.text = lettersOf(text, seen),
       .left = (shape_.width - shape_.printable) / 2 + text.left,
       .cpi = text.cpi,
       .height = text.height,
       .color = kInks[text.color],
       .bold = text.style.bold || text.style.doubleStrike,
       .italic = text.style.italic,
       .underline = text.style.underline},
      down);
}

/// What stands across a perforation is on both sheets.
void PaperSheets::put(SheetText text, double down) {
  const std::int64_t first = std::max<std::int64_t>(indexAt(down), 0);
  const std::int64_t last = std::max(first, indexAt(down + kInkHeight * text.height));
  if (last > first && down != lastTorn_) {
    lastTorn_ = down;
    if (findings_.torn++ == 0) findings_.firstTornSheet = first + 1;
  }
  for (std::int64_t index = first; index <= last; ++index) {
    Sheet* const sheet = sheetAt(index);
    if (sheet == nullptr) {
      ++findings_.lost;
      continue;
    }
    text.top = down - static_cast<double>(index) * shape_.height;
    sheet->texts.push_back(text);
  }
}

void PaperSheets::cut(double down) {
  if (down == lastCut_) return;
  lastCut_ = down;
  const std::int64_t index = std::max<std::int64_t>(indexAt(down), 0);
  if (findings_.cutLines++ == 0) findings_.firstCutSheet = index + 1;
  if (Sheet* const sheet = sheetAt(index)) {
    sheet->cuts.push_back(down - static_cast<double>(index) * shape_.height);
  }
}

void PaperSheets::image(const PaperImage& image) {
  begun_ = true;
  const double down = downFrom(image.top);
  SheetImage dots{.left = (shape_.width - shape_.printable) / 2 + image.left,
                  .columnsPerInch = image.image.columnsPerInch,
                  .rowsPerInch = image.image.rowsPerInch,
                  .rows = image.image.rows(),
                  .color = kInks[image.color]};
  const double room = (shape_.printable - image.left) * dots.columnsPerInch + kRounding;
  const auto fits = static_cast<std::size_t>(std::max(0.0, room));
  if (fits < image.image.count()) cut(down);
  const std::size_t columns = std::min(fits, image.image.count());
  dots.dots.reserve(columns * dots.rows);
  for (std::size_t column = 0; column < columns; ++column) {
    for (std::size_t row = 0; row < dots.rows; ++row) {
      dots.dots.push_back(image.image.hasDot(column, row));
    }
  }
  const std::int64_t first = std::max<std::int64_t>(indexAt(down), 0);
  const std::int64_t last = indexAt(down + image.image.height() - kRounding);
  for (std::int64_t index = first; index <= std::max(first, last); ++index) {
    dots.top = down - static_cast<double>(index) * shape_.height;
    if (Sheet* const sheet = sheetAt(index)) sheet->images.push_back(dots);
  }
}

void PaperSheets::unknown(const std::string& code, double top) {
  PaperFindings::Unknown& unknown = findings_.unknown[code];
  if (unknown.times++ == 0) unknown.firstSheet = indexAt(downFrom(top)) + 1;
}

PaperFindings PaperSheets::end() {
  const double down = downFrom(at_);
  const std::int64_t index = std::max<std::int64_t>(indexAt(down), 0);
  const double into = down - static_cast<double>(index) * shape_.height;
  // A job that ends at a perforation takes no part of the next sheet.
  const bool isMarked = firstOpen_ + static_cast<std::int64_t>(open_.size()) > index;
  const bool isDone = into < kRounding && index > 0 && !isMarked;
  if (Sheet* const last = sheetAt(isDone ? index - 1 : index)) {
    last->end = isDone ? shape_.height : into;
  }
  giveUpTo(firstOpen_ + static_cast<std::int64_t>(open_.size()));
  findings_.sheets = firstOpen_;
  const double begun = downFrom(0);
  findings_.nextJob =
      into - (begun - std::floor(begun / shape_.height + kRounding) * shape_.height);
  findings_.height = shape_.height;
  return findings_;
}

}  // namespace paperway
