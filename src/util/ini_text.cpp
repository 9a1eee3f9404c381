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

/// Bytes to be replaced: the setting's line, or none where it is to be put in.
struct Place {
  std::size_t start;
  std::size_t end;
  bool isNew;
};

/// The place below the line of a section; nothing where no such line is ended.
std::optional<std::size_t> belowSection(std::string_view text, std::string_view section) {
  for (std::string_view rest = text; !rest.empty();) {
    const bool isSection = takeLine(rest) == section;
    const std::size_t below = text.size() - rest.size();
    if (isSection && text[below - 1] == '\n') return below;
  }
  return std::nullopt;
}

/// Where the setting belongs; nothing when its section is missing.
std::optional<Place> findPlace(std::string_view text, std::string_view section,
                               std::string_view key) {
  const std::string lower = lowered(text);
  const auto below = belowSection(lower, "[" + lowered(section) + "]");
  if (!below) return std::nullopt;
  const std::size_t lineEnd = lower.find("\n" + lowered(key) + "=", *below - 1);
  if (lineEnd >= std::min(lower.find('[', *below), lower.size()))
    return Place{*below, *below, true};
  std::string_view rest = std::string_view(lower).substr(lineEnd + 1);
  return Place{lineEnd + 1, lineEnd + 1 + takeLine(rest).size(), false};
}

std::string withSingleBlankLines(std::string_view text) {
  std::string out;
  int lineEnds = 0;
  while (!text.empty()) {
    const bool isWide = text.starts_with(kLineEnd);
    const std::string_view piece = text.substr(0, isWide ? kLineEnd.size() : 1);
    lineEnds = isWide || piece == "\n" ? lineEnds + 1 : 0;
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
  std::string text(file);
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
