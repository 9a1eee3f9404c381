#include "backends/data/workbook/xml_text.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace paperway::workbook {
namespace {

/// Whether a byte may have to be written as something else.
constexpr std::array<bool, 256> kSpecial = [] {
  std::array<bool, 256> special{};
  for (std::size_t c = 0; c < ' '; ++c) special[c] = c != '\t' && c != '\n';
  for (const unsigned char c : {'&', '<', '>', '"', '_'}) special[c] = true;
  special[0xEF] = true;  // begins U+FFFE and U+FFFF, which XML cannot carry
  return special;
}();

bool isHex(char c) {
  return std::isxdigit(static_cast<unsigned char>(c)) != 0;
}

/// "_x0041_" reads as "A".
bool readsAsEscape(std::string_view text) {
  return text.size() >= 7 && (text[1] == 'x' || text[1] == 'X') && text[6] == '_' &&
         std::all_of(text.begin() + 2, text.begin() + 6, isHex);
}

void appendEscape(std::string& out, unsigned code) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  out += "_x";
  for (int shift = 12; shift >= 0; shift -= 4) out += kDigits[code >> shift & 0xF];
  out += '_';
}

/// Appends what stands for the beginning of `text`; the bytes of it that are done.
std::size_t appendSpecial(std::string& out, std::string_view text) {
  const char c = text.front();
  switch (c) {
    case '&':
      out += "&amp;";
      return 1;
    case '<':
      out += "&lt;";
      return 1;
    case '>':
      out += "&gt;";
      return 1;
    case '"':
      out += "&quot;";
      return 1;
    case '_':
      if (readsAsEscape(text)) {
        appendEscape(out, '_');
      } else {
        out += c;
      }
      return 1;
    case '\r':
      if (!text.starts_with("\r\n")) out += '\n';
      return 1;
    case '\xEF':
      if (text.starts_with("\xEF\xBF\xBE") || text.starts_with("\xEF\xBF\xBF")) {
        appendEscape(out, 0xFFC0U | static_cast<unsigned char>(text[2]));
        return 3;
      }
      out += c;
      return 1;
    default:
      appendEscape(out, static_cast<unsigned char>(c));
      return 1;
  }
}

}  // namespace

void appendXmlText(std::string& out, std::string_view text) {
  const char* at = text.data();
  const char* const end = at + text.size();
  while (at < end) {
    const char* const special =
        std::find_if(at, end, [](char c) { return kSpecial[static_cast<unsigned char>(c)]; });
    out.append(at, special);
    at = special;
    if (at < end) at += appendSpecial(out, {at, static_cast<std::size_t>(end - at)});
  }
}

bool needsSpacePreserved(std::string_view text) {
  const auto isSpace = [](char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; };
  return !text.empty() && (isSpace(text.front()) || isSpace(text.back()));
}

}  // namespace paperway::workbook
