#include "session/settings_store.h"

#include <iterator>

#include "paperway/automation_error.h"
#include "paperway/platform/folders.h"
#include "paperway/value.h"
#include "platform/change_file.h"
#include "platform/file_error.h"
#include "platform/input_file.h"
#include "util/code_page.h"
#include "util/ini_text.h"
#include "util/numbers.h"
#include "util/path_text.h"
#include "util/text.h"

namespace paperway {
namespace {

constexpr std::size_t kLongestFile = 32766;
constexpr char kReportView[] = "ReportView";
constexpr char kReader[] = "ReadIniValue";
constexpr char kWriter[] = "WriteIniValue";

struct KeyRow {
  const char* name;  // as it is written; read in any case
  const char* fallback;
};

// In the order of ReportViewKey.
constexpr KeyRow kKeys[] = {
    {"BBold", "8388608"},
    {"Bold", "128"},
    {"Cond", "8388736"},
    {"RepotBackColor", "16777215"},
    {"SearchString", "33023"},
    {"Highlight", "255"},
    {"chSearch", "1"},
    {"ChHighlighte", "0"},
    {"chl", "0"},
    {"PrnDefult", "D"},
    {"Localdos", "F"},
    {"Ttt", "0"},
};
static_assert(std::size(kKeys) == static_cast<std::size_t>(ReportViewKey::Ttt) + 1);

const KeyRow& rowOf(ReportViewKey key) {
  return kKeys[static_cast<std::size_t>(key)];
}

/// The first character of `text` that a settings file cannot hold; empty when it can hold all.
std::string_view foreignCharacter(std::string_view text) {
  for (std::size_t offset = 0; offset < text.size();) {
    const std::size_t start = offset;
    const char32_t character = nextCharacter(text, offset);
    if (character == '\r' || character == '\n' || !CodePage::windows1252().has(character)) {
      return text.substr(start, offset - start);
    }
  }
  return {};
}

std::string encoded(std::string_view text, const char* argument) {
  const std::string_view foreign = foreignCharacter(text);
  if (foreign.empty()) return CodePage::windows1252().encode(text);
  const bool isLineEnd = foreign == "\r" || foreign == "\n";
  throw AutomationError(AutomationError::kInvalidCall, kWriter,
                        std::string(argument) + " holds " +
                            (isLineEnd ? "a line end" : "\"" + std::string(foreign) + "\"") +
                            ", which a settings file cannot hold.");
}

void makeSureOfWritableFile(Storage& storage, const std::filesystem::path& path,
                            const char* source) {
  makeSureOfFile(storage, path, source);
  withFileError("create", path, source, [&] { storage.makeWritable(path); });
}

std::string readSettings(Storage& storage, const std::filesystem::path& path) {
  makeSureOfWritableFile(storage, path, kReader);
  return readFile(storage, path, kReader);
}

std::string settingIn(std::string_view file, std::string_view KEY, std::string_view Variable,
                      std::string_view DefultVal) {
  if (!foreignCharacter(KEY).empty() || !foreignCharacter(Variable).empty()) {
    return std::string(DefultVal);
  }
  const CodePage& page = CodePage::windows1252();
  const auto value = findSetting(file, page.encode(KEY), page.encode(Variable));
  return value ? page.decode(*value) : std::string(DefultVal);
}

std::string twoDigits(std::string_view text) {
  const std::string padded = "00" + std::string(text);
  return std::string(rightCharacters(padded, 2));
}

}  // namespace

std::string ReadIniValue(Storage& storage, const std::filesystem::path& INIpath,
                         std::string_view KEY, std::string_view Variable,
                         std::string_view DefultVal) {
  return settingIn(readSettings(storage, INIpath), KEY, Variable, DefultVal);
}

void WriteIniValue(Storage& storage, const std::filesystem::path& INIpath, std::string_view PutKey,
                   std::string_view PutVariable, std::string_view PutValue) {
  const std::string section = encoded(PutKey, "PutKey");
  const std::string key = encoded(PutVariable, "PutVariable");
  const std::string value = encoded(PutValue, "PutValue");
  makeSureOfWritableFile(storage, INIpath, kWriter);
  changeFile(storage, INIpath, kWriter, FileAccess::usual, [&](const std::string& file) {
    std::string changed = withSetting(file, section, key, value);
    if (changed.size() <= kLongestFile) return changed;
    throw AutomationError(AutomationError::kOverflow, kWriter,
                          "\"" + textOf(INIpath) + "\" would have " +
                              std::to_string(changed.size()) + " characters; 32766 are the most.");
  });
}

std::filesystem::path settingsPath(Folders& folders, const std::string& ModGuidComp) {
  if (ModGuidComp.find_first_of(std::string_view("/\\\0", 3)) != ModGuidComp.npos) {
    throw AutomationError(AutomationError::kInvalidCall, "Guid_comp1",
                          "\"" + ModGuidComp + "\" cannot be part of a file name.");
  }
  return folders.work() / pathOf(ModGuidComp + ".ini");
}

TearLines TearLines::fromText(std::string_view text) {
  const std::string in = std::string(text) + "00";
  const std::string out = "00" + std::string(text);
  return {static_cast<int>(leadingNumber(leftCharacters(in, 2))),
          static_cast<int>(leadingNumber(rightCharacters(out, 2)))};
}

std::string TearLines::toText(std::string_view in, std::string_view out) {
  return twoDigits(in) + twoDigits(out);
}

ReportViewSettings ReportViewSettings::snapshot() const {
  ReportViewSettings read = *this;
  read.file_ = readSettings(storage_, path_);
  return read;
}

std::string ReportViewSettings::text(ReportViewKey key) const {
  const KeyRow& row = rowOf(key);
  if (file_) return settingIn(*file_, kReportView, row.name, row.fallback);
  return ReadIniValue(storage_, path_, kReportView, row.name, row.fallback);
}

void ReportViewSettings::setText(ReportViewKey key, std::string_view text) const {
  WriteIniValue(storage_, path_, kReportView, rowOf(key).name, text);
}

std::uint32_t ReportViewSettings::color(ReportViewKey key) const {
  const auto stored = parseNumber(text(key));
  const bool isColor = stored && *stored >= 0 && *stored <= 0xFFFFFF;
  return static_cast<std::uint32_t>(isColor ? *stored : leadingNumber(rowOf(key).fallback));
}

void ReportViewSettings::setColor(ReportViewKey key, std::uint32_t color) const {
  setText(key, std::to_string(color));
}

bool ReportViewSettings::flag(ReportViewKey key) const {
  const std::string stored = text(key);
  return (stored == "0" || stored == "1" ? stored : rowOf(key).fallback) == "1";
}

void ReportViewSettings::setFlag(ReportViewKey key, bool flag) const {
  setText(key, flag ? "1" : "0");
}

}  // namespace paperway
