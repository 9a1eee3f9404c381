#pragma once

#include <filesystem>
#include <string>
#include <utility>

#include "paperway/platform/folders.h"

namespace paperway::command {

/// The report that a command reads: the file of that name, or for "-" standard input, which is read
/// to its end into a work file that goes with the object.
class ReportInput {
 public:
  ReportInput(const std::string& name, Folders& folders);
  ~ReportInput();
  ReportInput(const ReportInput&) = delete;
  ReportInput& operator=(const ReportInput&) = delete;

  const std::string& path() const { return path_; }

 private:
  explicit ReportInput(std::string path) : path_(std::move(path)) {}

  std::string path_;
  std::filesystem::path folder_;
};

}  // namespace paperway::command
