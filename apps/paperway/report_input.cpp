#include "apps/paperway/report_input.h"

#include <array>
#include <fcntl.h>
#include <unistd.h>

#include "paperway/storage.h"
#include "platform/file_error.h"
#include "platform/output_file.h"

namespace paperway::command {
namespace {

void copyStandardInput(const std::filesystem::path& target) {
  desktop::Storage storage;
  OutputFile copy(storage, target, "paperway", {.access = FileAccess::owner, .lasting = false});
  std::array<char, 1 << 16> block;
  const auto read = [&block] {
    return withFileError("read", "standard input", "paperway", [&block] {
      const ssize_t size = ::read(STDIN_FILENO, block.data(), block.size());
      if (size < 0) desktop::raiseSystemError();
      return static_cast<std::size_t>(size);
    });
  };
  while (const std::size_t size = read()) copy.write({block.data(), size});
  copy.commit();
}

}  // namespace

ReportInput::ReportInput(const std::string& name, Folders& folders) : path_(name), source_(name) {
  if (name != "-") return;
  copy_.emplace(folders, "standard input");
  path_ = copy_->path().string();
  copyStandardInput(copy_->path());
  constexpr const char* kInput = "/dev/stdin";
  // A terminal or a socket may well be both ends.
  source_ = std::filesystem::is_regular_file(kInput) ? kInput : path_;
}

}  // namespace paperway::command
