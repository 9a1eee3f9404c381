#include "util/ini_text.h"

#include <algorithm>
#include <array>

#include "util/code_page.h"
#include "util/text.h"

namespace paperway {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

std::array<char, 256> lowerCaseCodes() {
  const CodePage& page = CodePage::windows1252();
  std::array<char, 256> lower{};
  for (std::size_t code = 0; code < lower.size(); ++code) {
    const char byte = static_cast<char>(code);
    const char32_t character = lowerCase(page.decode(byte));
    lower[code] = page.has(character) ? page.encode(character) : byte;
  }
  return lower;
}

std::string lowered(std::string_view bytes) {
  static const std::array<char, 256> kLower = lowerCaseCodes();
  std::string out(bytes);
  for (char& c : out) c = kLower[static_cast<unsigned char>(c)];
  return out;
}

/// Takes the first line off the text. A line ends at CR LF or at a lone CR.
std::string_view takeLine(std::string_view& text) {
  const std::size_t end = std::min(text.find('\r'), text.size());
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(end);
  text.remove_prefix(text.starts_with(kLineEnd) ? kLineEnd.size() : text.empty() ? 0 : 1);
  return line;
}

/// Bytes to be replaced: the setting's line, or none where it is to be put in.
struct Place {
  std::size_t start;
  std::size_t end;
  bool isNew;
};

/// Where the setting belongs; nothing when its section is missing. `text` starts with a line end,
/// so that each line follows one.
std::optional<Place> findPlace(std::string_view text, std::string_view section,
                               std::string_view key) {
  const std::string lower = lowered(text);
  const std::string head = "\r\n[" + lowered(section) + "]\r";
  const std::size_t found = lower.find(head);
  if (found == lower.npos) return std::nullopt;
  const std::size_t behindHead = found + head.size();
  const std::size_t nextSection = std::min(lower.find('[', behindHead), lower.size());
  const std::size_t line = lower.find("\n" + lowered(key) + "=", found);
  if (line < nextSection) {
    return Place{line + 1, std::min(lower.find('\r', line), lower.size()), false};
  }
  const std::size_t below = behindHead + (lower.compare(behindHead, 1, "\n") == 0 ? 1 : 0);
  return Place{below, below, true};
}

std::string withSingleBlankLines(std::string_view text) {
  std::string out;
  int lineEnds = 0;
  while (!text.empty()) {
    const bool isLineEnd = text.starts_with(kLineEnd);
    const std::string_view piece = text.substr(0, isLineEnd ? kLineEnd.size() : 1);
    lineEnds = isLineEnd ? lineEnds + 1 : 0;
    if (lineEnds <= 2) out += piece;
    text.remove_prefix(piece.size());
  }
  return out;
}

std::string_view withoutControlsAtEnds(std::string_view text) {
  const auto isControl = [](char c) { return static_cast<unsigned char>(c) <= 13; };
  while (!text.empty() && isControl(text.back())) text.remove_suffix(1);
  while (!text.empty() && isControl(text.front())) text.remove_prefix(1);
  return text;
}

}  // namespace

std::optional<std::string> findSetting(std::string_view file, std::string_view section,
                                       std::string_view key) {
  const std::string wantedSection = "[" + lowered(section) + "]";
  const std::string wantedKey = lowered(key) + "=";
  bool inSection = false;
  while (!file.empty()) {
    const std::string_view line = takeLine(file);
    const std::string lower = lowered(line);
    if (lower.find('[') != lower.npos) {
      inSection = lower == wantedSection;
    } else if (inSection && lower.starts_with(wantedKey)) {
      return std::string(line.substr(wantedKey.size()));
    }
  }
  return std::nullopt;
}

std::string withSetting(std::string_view file, std::string_view section, std::string_view key,
                        std::string_view value) {
  std::string text = std::string(kLineEnd).append(file);
  std::string setting = std::string(key).append("=").append(value);
  if (const auto place = findPlace(text, section, key)) {
    if (place->isNew) setting += kLineEnd;
    text.replace(place->start, place->end - place->start, setting);
  } else {
    text.append("\r\n\r\n[").append(section).append("]\r\n").append(setting);
  }
  return std::string(withoutControlsAtEnds(withSingleBlankLines(text))).append(kLineEnd);
}

}  // namespace paperway
