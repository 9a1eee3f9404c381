#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "apps/paperway/commands.h"
#include "backends/desktop/system/work_file.h"
#include "printed/page_ranges.h"
#include "printing/print_file.h"

namespace paperway::command {

struct PrintOptions {
  std::string file;
  std::string printer;
  std::string pages;
  int copies = 1;
  int pitch = 10;
  int paper = kUsualPaper;
  std::vector<int> tear{0, 0};
  bool styled = false;
  std::string pdf;
  std::string paperPicture;
  std::string fanfold;
  int pins = 9;
  PageRanges chosen = PageRange{0, PageRanges::kToTheEnd};
};

/// An error when the report has no such page.
void requirePages(const PrintOptions& options, std::int64_t count);

/// What the options say of a raw job that prints this file, made of that one.
PrintFileArguments rawArguments(const PrintOptions& options, const std::filesystem::path& file,
                                const std::string& source);

/// The report, or a work file of this job alone with the pages that were asked for.
class FileToPrint {
 public:
  FileToPrint(const PrintOptions& options, Storage& storage, Folders& folders);

  std::string path() const { return path_.string(); }

 private:
  std::filesystem::path path_;
  std::optional<desktop::WorkFile> part_;
};

}  // namespace paperway::command
