#include "util/code_page.h"

#include <algorithm>

#include "util/code_page_tables.h"
#include "util/text.h"

namespace paperway {

namespace {

constexpr char kLacking = '?';

constexpr CodePage::UpperHalf kWindows1252 = [] {
  CodePage::UpperHalf codes = {
      0x20AC, 0x81,   0x201A, 0x192,  0x201E, 0x2026, 0x2020, 0x2021,  // 80
      0x2C6,  0x2030, 0x160,  0x2039, 0x152,  0x8D,   0x17D,  0x8F,    // 88
      0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  // 90
      0x2DC,  0x2122, 0x161,  0x203A, 0x153,  0x9D,   0x17E,  0x178,   // 98
  };
  for (char16_t code = 0xA0; code <= 0xFF; ++code) codes[code - 0x80u] = code;
  return codes;
}();

}  // namespace

CodePage::CodePage(const UpperHalf& upperHalf) : upperHalf_(upperHalf) {
  for (std::size_t i = 0; i < upperHalf.size(); ++i) {
    codes_.emplace(upperHalf[i], static_cast<unsigned char>(0x80 + i));
  }
}

const CodePage& CodePage::windows1252() {
  static const CodePage page(kWindows1252);
  return page;
}

const CodePage* CodePage::byNumber(int number) {
  if (number == 1252) return &windows1252();
  const auto known = std::find(kPrinterCodePages.begin(), kPrinterCodePages.end(), number);
  if (known == kPrinterCodePages.end()) return nullptr;
  static const std::array<CodePage, kPrinterCodePages.size()> pages = {
      CodePage(kCodePage437), CodePage(kCodePage850), CodePage(kCodePage858),
      CodePage(kCodePage860), CodePage(kCodePage863), CodePage(kCodePage865)};
  return &pages[static_cast<std::size_t>(known - kPrinterCodePages.begin())];
}

void CodePage::encode(std::string_view utf8, std::string& out) const {
  while (true) {
    const std::size_t ascii = asciiLength(utf8);
    out.append(utf8.data(), ascii);
    if (ascii == utf8.size()) return;
    std::size_t offset = ascii;
    out += encode(nextCharacter(utf8, offset));
    utf8.remove_prefix(offset);
  }
}

std::string CodePage::encode(std::string_view utf8) const {
  std::string bytes;
  bytes.reserve(utf8.size());
  encode(utf8, bytes);
  return bytes;
}

std::string CodePage::decode(std::string_view bytes) const {
  std::string text;
  text.reserve(bytes.size());
  while (true) {
    const std::size_t ascii = asciiLength(bytes);
    text.append(bytes.data(), ascii);
    if (ascii == bytes.size()) return text;
    appendCharacter(text, decode(bytes[ascii]));
    bytes.remove_prefix(ascii + 1);
  }
}

char CodePage::encode(char32_t character) const {
  if (character < 0x80) return static_cast<char>(character);
  if (character < 0x100 && upperHalf_[character - 0x80] == character) {
    return static_cast<char>(character);
  }
  const auto code = codes_.find(character);
  return code == codes_.end() ? kLacking : static_cast<char>(code->second);
}

bool CodePage::has(char32_t character) const {
  return character < 0x80 || codes_.contains(character);
}

char32_t CodePage::decode(char byte) const {
  const auto code = static_cast<unsigned char>(byte);
  return code < 0x80 ? code : upperHalf_[code - 0x80u];
}

}  // namespace paperway
