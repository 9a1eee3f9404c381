#include "backends/data/workbook/biff_records.h"

#include <algorithm>

#include "backends/data/workbook/little_endian.h"
#include "util/text.h"

namespace paperway::workbook {

namespace {

constexpr std::size_t kTextHead = 3;  // units and flag

}  // namespace

void putRecord(std::string& out, Biff id, std::string_view data) {
  put16(out, static_cast<unsigned>(id));
  put16(out, static_cast<unsigned>(data.size()));
  out += data;
}

BiffText::BiffText(std::string_view utf8) {
  std::u16string text;
  for (std::size_t i = 0; i < utf8.size();) {
    const char32_t character = nextCharacter(utf8, i);
    if (character > 0xFFFF) {
      text += static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10));
      text += static_cast<char16_t>(0xDC00 + ((character - 0x10000) & 0x3FF));
    } else {
      text += static_cast<char16_t>(character);
    }
  }
  units_ = static_cast<unsigned>(text.size());
  wide_ = std::any_of(text.begin(), text.end(), [](char16_t unit) { return unit > 0xFF; });
  for (const char16_t unit : text) {
    put8(bytes_, unit & 0xFFU);
    if (wide_) put8(bytes_, unit >> 8U);
  }
}

void BiffText::putTo(std::string& out) const {
  put8(out, flag());
  out += bytes_;
}

BiffTextsWriter::BiffTextsWriter(std::string& out, std::uint32_t total, std::uint32_t unique)
    : out_(out) {
  put32(record_, total);
  put32(record_, unique);
}

/// A text may go on in the next record, where its flag stands again; its head may not be cut.
void BiffTextsWriter::add(std::string_view utf8) {
  const BiffText text(utf8);
  if (room() < kTextHead + text.unitBytes()) next();
  put16(record_, text.units());
  put8(record_, text.flag());
  for (std::string_view rest = text.bytes(); !rest.empty();) {
    if (room() < text.unitBytes()) {
      next();
      put8(record_, text.flag());
    }
    const std::size_t count = std::min(rest.size(), room() / text.unitBytes() * text.unitBytes());
    record_ += rest.substr(0, count);
    rest.remove_prefix(count);
  }
}

void BiffTextsWriter::finish() {
  next();
}

void BiffTextsWriter::next() {
  putRecord(out_, first_ ? Biff::texts : Biff::continued, record_);
  first_ = false;
  record_.clear();
}

}  // namespace paperway::workbook
