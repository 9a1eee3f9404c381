#include "printed/report_extent.h"

#include <algorithm>
#include <utility>

#include "util/text.h"

namespace paperway {
namespace {

constexpr double kRounding = 1e-6;  // inches

/// A sum, so that a compiler can look at many bytes at a time.
bool hasHighBytes(std::string_view bytes) {
  std::uint8_t all = 0;
  for (const char byte : bytes) all |= static_cast<std::uint8_t>(byte);
  return all > 0x7F;
}

/// Codes to which windows-1252 gives no character.
bool isOpenCode(char byte) {
  switch (static_cast<unsigned char>(byte)) {
    case 0x81:
    case 0x8D:
    case 0x8F:
    case 0x90:
    case 0x9D:
      return true;
    default:
      return false;
  }
}

/// Bytes of the character of UTF-8 that begins so.
std::size_t characterLength(char first) {
  const auto code = static_cast<unsigned char>(first);
  return code < 0xC0 ? 1 : code < 0xE0 ? 2 : code < 0xF0 ? 3 : 4;
}

/// Bytes at the end of a text that are the beginning of a character.
std::size_t cutLength(std::string_view bytes) {
  for (std::size_t length = 1; length <= std::min<std::size_t>(bytes.size(), 3); ++length) {
    const char byte = bytes[bytes.size() - length];
    if (characterLength(byte) > length) return length;
    if ((static_cast<unsigned char>(byte) & 0xC0U) != 0x80U) return 0;
  }
  return 0;
}

}  // namespace

void ForeignCharacters::text(std::string_view bytes, std::int64_t page) {
  if (cut_.empty() && !hasHighBytes(bytes)) return;
  const auto open = std::count_if(bytes.begin(), bytes.end(), isOpenCode);
  if (open > 0 && openCodes_ == 0) openPage_ = page;
  openCodes_ += open;
  if (!utf8_) return;
  if (cut_.empty()) return countMultibyte(bytes, page);
  const std::string whole = std::exchange(cut_, {}) + std::string(bytes);
  countMultibyte(whole, page);
}

void ForeignCharacters::countMultibyte(std::string_view bytes, std::int64_t page) {
  const std::size_t cut = cutLength(bytes);
  cut_ = bytes.substr(bytes.size() - cut);
  bytes.remove_suffix(cut);
  utf8_ = validUtf8Length(bytes) == bytes.size();
  if (multibyte_ == 0) multibytePage_ = page;
  multibyte_ += std::count_if(bytes.begin(), bytes.end(),
                              [](char byte) { return characterLength(byte) > 1; });
}

void ForeignCharacters::endText() {
  if (cut_.empty()) return;
  cut_.clear();
  utf8_ = false;
}

void ForeignCharacters::writeTo(ReportExtent& extent) const {
  const bool isUtf8 = utf8_ && multibyte_ > 0;
  extent.foreign = isUtf8 ? multibyte_ : openCodes_;
  extent.foreignPage = isUtf8 ? multibytePage_ : openPage_;
}

void ExtentScan::text(std::string_view bytes, const Pen& pen) {
  hasText_ = true;
  const double width = pen.leftAfter(bytes.size());
  if (width > extent_.width + kRounding) {
    extent_.width = width;
    extent_.widestPage = page_;
  }
  foreign_.text(bytes, page_);
}

/// A line with a form feed has no line end on paper: what follows stands right behind it. A drawn
/// page begins with the rest of that line.
bool ExtentScan::lineEnd(const Pen&) {
  foreign_.endText();
  if (std::exchange(feedsPage_, false) && printed_) return false;
  ++lines_;
  hasText_ = false;
  return true;
}

void ExtentScan::pageEnd(const Pen&) {
  foreign_.endText();
  const std::int64_t lines = lines_ + (hasText_ ? 1 : 0);
  if (lines > extent_.lines) {
    extent_.lines = lines;
    extent_.longestPage = page_;
  }
  page_ = pages_.at(++place_) + 1;
  lines_ = 0;
  hasText_ = false;
  feedsPage_ = true;
}

ReportExtent ExtentScan::end() {
  reader_.end();
  pageEnd(reader_.pen());
  foreign_.writeTo(extent_);
  return extent_;
}

}  // namespace paperway
