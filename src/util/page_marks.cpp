#include "util/page_marks.h"

#include <vector>

#include "util/format_pattern.h"

namespace paperway {
namespace {

/// Appends what a code stands for; false when it is none.
bool appendCode(std::string& text, char code, const MarkedPage& page) {
  const auto dated = [&](const char* pattern) { text += FormatPattern(pattern)(page.now); };
  switch (code) {
    case 'p':
      text += std::to_string(page.number);
      return true;
    case 'P':
      text += std::to_string(page.count);
      return true;
    case 'w':
      text += page.title;
      return true;
    case 'u':
      text += page.address;
      return true;
    case 'd':
      dated("Short Date");
      return true;
    case 'D':
      dated("dddd, d mmmm yyyy");
      return true;
    case 't':
      dated("h:nn AM/PM");
      return true;
    case 'T':
      dated("hh:nn:ss");
      return true;
    case '&':
      text += '&';
      return true;
    default:
      return false;
  }
}

}  // namespace

PageMarks pageMarks(std::string_view codes, const MarkedPage& page) {
  std::vector<std::string> parts(1);
  for (std::size_t i = 0; i < codes.size(); ++i) {
    const char code = codes[i] == '&' && i + 1 < codes.size() ? codes[i + 1] : '\0';
    if (code == 'b' && parts.size() < 3) {
      parts.emplace_back();
      ++i;
    } else if (code != '\0' && appendCode(parts.back(), code, page)) {
      ++i;
    } else {
      parts.back() += codes[i];
    }
  }
  if (parts.size() == 1) return {parts[0], "", ""};
  if (parts.size() == 2) return {parts[0], "", parts[1]};
  return {parts[0], parts[1], parts[2]};
}

}  // namespace paperway
