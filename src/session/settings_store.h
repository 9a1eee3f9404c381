#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace paperway {

class Folders;
class Storage;

/// The setting in the settings file (util/ini_text.h) at `INIpath`, or `DefultVal`. Texts are
/// UTF-8. A missing file is created empty; one that cannot be created or read raises an
/// AutomationError.
std::string ReadIniValue(Storage& storage, const std::filesystem::path& INIpath,
                         std::string_view KEY, std::string_view Variable,
                         std::string_view DefultVal);

/// Replaces the file in one step, read-only or not, so that it is whole at any moment; programs
/// that write at once wait for one another, and each value is kept. Raises an AutomationError, and
/// leaves the file as it was, when a text holds a line end or a character that windows-1252 lacks,
/// and when the file would be longer than 32766 characters.
void WriteIniValue(Storage& storage, const std::filesystem::path& INIpath, std::string_view PutKey,
                   std::string_view PutVariable, std::string_view PutValue);

/// The settings file of the company or installation with that number. A number that names another
/// folder raises an AutomationError.
std::filesystem::path settingsPath(Folders& folders, const std::string& ModGuidComp);

/// Lines that the printer feeds before and after a job. Stored as four digits, "0305" for 3 and 5;
/// shorter texts are read as if zeros stood where digits are missing.
struct TearLines {
  int in = 0;
  int out = 0;

  static TearLines fromText(std::string_view text);
  /// For two texts as the user typed them; the last two characters of each count.
  static std::string toText(std::string_view in, std::string_view out);
};

/// The user's choices for report windows and prints, by their keys in section "ReportView".
enum class ReportViewKey {
  BBold,           // colour of big bold text
  Bold,            // colour of bold text
  Cond,            // colour of condensed text
  RepotBackColor,  // colour behind the report
  SearchString,    // colour of search hits
  Highlight,       // colour of highlighted text
  chSearch,        // flag: search hits are bold too
  ChHighlighte,    // flag: highlighted text is bold too
  chl,             // flag
  PrnDefult,       // print mode "D", "W" or "L"
  Localdos,        // "T" or "F": whether the print mode "Local Dos" is offered
  Ttt,             // tear lines
};

/// The typed road to those choices. Each call reads or writes the file anew; what was never stored
/// has its default. So has a colour or flag whose stored text is none.
class ReportViewSettings {
 public:
  ReportViewSettings(Storage& storage, std::filesystem::path path)
      : storage_(storage), path_(std::move(path)) {}

  /// These settings as they stand now: reads the file once, and no call of the copy reads it again.
  ReportViewSettings snapshot() const;

  std::string text(ReportViewKey key) const;
  void setText(ReportViewKey key, std::string_view text) const;

  /// blue x 65536 + green x 256 + red.
  std::uint32_t color(ReportViewKey key) const;
  void setColor(ReportViewKey key, std::uint32_t color) const;

  bool flag(ReportViewKey key) const;
  void setFlag(ReportViewKey key, bool flag) const;

  TearLines tearLines() const { return TearLines::fromText(text(ReportViewKey::Ttt)); }

 private:
  Storage& storage_;
  std::filesystem::path path_;
  std::optional<std::string> file_;
};

}  // namespace paperway
