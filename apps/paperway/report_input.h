#pragma once

#include <optional>
#include <string>

#include "backends/desktop/system/work_file.h"

namespace paperway::command {

/// The report that a command reads: the file of that name, or for "-" standard input, which is read
/// to its end into a work file that goes with the object.
class ReportInput {
 public:
  ReportInput(const std::string& name, Folders& folders);

  const std::string& path() const { return path_; }
  /// The user's own file, which nothing made of the report may replace.
  const std::string& source() const { return source_; }

 private:
  std::string path_;
  std::string source_;
  std::optional<desktop::WorkFile> copy_;
};

}  // namespace paperway::command
