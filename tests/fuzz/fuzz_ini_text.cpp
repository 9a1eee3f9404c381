#include <algorithm>

#include "fuzz/fuzz.h"
#include "util/ini_text.h"
#include "util/text.h"

using namespace paperway;

/// Section, key, value and file with a "|" between them.
std::vector<std::string> fuzz::seeds() {
  return {"ReportView|Bold|255|[ReportView]\r\nCond=1\r\nbold=2\r\n\r\n[Other]\r\nk=v\r\n",
          "S|k|a=b|",
          "other|K||\r\n\r\n[s]\r\nk=[1]\r\n[OTHER] \r\n[Other]\r\nk",
          "\xC4|\xD6|1|[\xE4]\r\n\r\n\r\n\r\n\xF6=2\r[\xC4]\n\xF6=3"};
}

namespace {

constexpr char kSection[] = "ReportView";
constexpr char kKey[] = "Cond";

bool isPlain(char c) {
  return static_cast<unsigned char>(c) > 13;
}

bool isPlainName(std::string_view text) {
  return text.find_first_of("[=") == text.npos && std::all_of(text.begin(), text.end(), isPlain);
}

/// Whether CR LF or LF ends each line, and no other control character is in the text.
bool hasPlainLines(std::string_view text) {
  while (!text.empty()) {
    const std::string_view line = takeLine(text);
    if (!std::all_of(line.begin(), line.end(), isPlain)) return false;
  }
  return true;
}

}  // namespace

void fuzz::check(std::string_view file) {
  const std::string_view section = fuzz::takeUntil(file, '|');
  const std::string_view key = fuzz::takeUntil(file, '|');
  const std::string_view value = fuzz::takeUntil(file, '|');
  const std::string after = withSetting(file, section, key, value);
  fuzz::require(after.ends_with("\r\n") && isPlain(after.front()), "the ends are tidy");
  fuzz::require(after.find("\r\n\r\n\r\n") == after.npos, "blank lines stand alone");
  if (!isPlainName(section) || !isPlainName(key) || !isPlainName(value)) return;
  if (!hasPlainLines(file)) return;
  fuzz::require(findSetting(after, section, key) == value, "a write can be read");
  if (findSetting("[ReportView]\r\nCond=1", section, key)) return;
  fuzz::require(findSetting(after, kSection, kKey) == findSetting(file, kSection, kKey),
                "other settings stay");
}
