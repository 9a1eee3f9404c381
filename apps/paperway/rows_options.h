#pragma once

#include <CLI/CLI.hpp>
#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "apps/paperway/source.h"

namespace paperway::command {

inline constexpr std::size_t kTitles = 5;

/// The options of the commands that write rows under a column table.
struct RowsOptions {
  Source source;
  std::string data;
  std::string columns;
  std::string out;
  std::vector<std::string> titles;
  std::int32_t serial = 0;
  bool preview = false;
  CLI::Option* serialOption = nullptr;  // looked up by name, it would end a program without memory

  /// `kind` is what they write ("Report file"), `titlesAre` what each title is for.
  void add(CLI::App& command, const std::string& kind, const std::string& titlesAre);
  CLI::Option* addTexts(CLI::App& command, const char* name, std::vector<std::string>& texts,
                        const std::string& description) const;

  /// After the parse: what one option alone cannot tell.
  void check() const;

  /// Standard output by its name.
  std::string target() const { return out == "-" ? "/dev/stdout" : out; }
  /// Up to five texts; the missing ones are empty.
  static std::array<std::string, kTitles> fiveOf(const std::vector<std::string>& texts);
};

}  // namespace paperway::command
