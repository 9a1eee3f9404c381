#include "html/html_text.h"

#include "util/code_page.h"
#include "util/text.h"
#include "util/value_text.h"

namespace paperway {
namespace {

constexpr std::string_view kFontBegin = "<font face='";
constexpr std::string_view kFontEnd = "'>";

void removeEach(std::string& text, std::string_view part) {
  for (std::size_t at = 0; (at = text.find(part, at)) != std::string::npos;) {
    text.erase(at, part.size());
  }
}

}  // namespace

void appendHtmlBytes(std::string& out, std::string_view utf8) {
  const CodePage& page = CodePage::windows1252();
  for (std::size_t at = 0; at < utf8.size();) {
    const std::size_t ascii = asciiLength(utf8.substr(at));
    out.append(utf8.substr(at, ascii));
    at += ascii;
    if (at == utf8.size()) return;
    const char32_t character = nextCharacter(utf8, at);
    if (page.has(character)) {
      out += page.encode(character);
    } else {
      out += "&#" + std::to_string(static_cast<std::uint32_t>(character)) + ";";
    }
  }
}

std::string htmlBytes(std::string_view utf8) {
  std::string bytes;
  appendHtmlBytes(bytes, utf8);
  return bytes;
}

std::string plainNumber(double number) {
  const std::string text = numberText(number);
  return text.front() == ' ' ? text.substr(1) : text;
}

void appendEscaped(std::string& out, std::string_view text) {
  constexpr std::string_view kSigns = "<>\"";
  constexpr std::string_view kNames[] = {"&lt;", "&gt;", "&quot;"};
  while (true) {
    const std::size_t at = text.find_first_of(kSigns);
    out.append(text.substr(0, at));
    if (at == text.npos) return;
    out += kNames[kSigns.find(text[at])];
    text.remove_prefix(at + 1);
  }
}

std::string escaped(std::string_view text) {
  std::string out;
  appendEscaped(out, text);
  return out;
}

std::string fontTag(const ColumnFormat& column) {
  return std::string(kFontBegin) + column.FontNm + std::string(kFontEnd);
}

std::string fontFamily(std::string tag) {
  removeEach(tag, kFontBegin);
  removeEach(tag, kFontEnd);
  return tag;
}

}  // namespace paperway
