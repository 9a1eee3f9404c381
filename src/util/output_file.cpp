#include "util/output_file.h"

#include <cerrno>
#include <cstring>
#include <random>
#include <system_error>
#include <vector>

#include "paperway/automation_error.h"

namespace paperway {
namespace {

long errorNumber(int error) {
  switch (error) {
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return AutomationError::kDiskFull;
    case ENOENT:
    case ENOTDIR:
      return AutomationError::kPathNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
      return AutomationError::kPermissionDenied;
    default:
      return AutomationError::kDeviceIo;
  }
}

// Its name is short, so that the target's may be as long as the file system allows.
std::filesystem::path neighbour(const std::filesystem::path& target) {
  std::random_device random;
  return target.parent_path() / (".paperway-" + std::to_string(random()) + ".part");
}

[[noreturn]] void raiseNoNeighbour(const std::filesystem::path& target, int error,
                                   const std::string& source) {
  const std::string folder = target.has_parent_path() ? target.parent_path().string() : ".";
  throw AutomationError(errorNumber(error), source,
                        "Cannot write \"" + target.string() + "\": no new file can be made in \"" +
                            folder + "\": " + std::generic_category().message(error) + ".");
}

// What stands behind /dev/stdout may well be a regular file, opened by a shell that will go on
// writing to it: it must not be renamed away, nor cut off.
bool isWrittenDirectly(const std::filesystem::path& target) {
  if (target.string().starts_with("/dev/")) return true;
  std::error_code ignored;
  const auto status = std::filesystem::status(target, ignored);
  return std::filesystem::exists(status) && !std::filesystem::is_regular_file(status);
}

}  // namespace

void raiseFileError(const char* verb, const std::filesystem::path& path, int error,
                    const std::string& source) {
  throw AutomationError(errorNumber(error), source,
                        std::string("Cannot ") + verb + " \"" + path.string() +
                            "\": " + std::generic_category().message(error) + ".");
}

OutputFile::OutputFile(std::filesystem::path target, std::string source)
    : target_(std::move(target)), source_(std::move(source)) {
  if (target_.empty()) {
    throw AutomationError(AutomationError::kPathNotFound, source_,
                          "Cannot write a file without a name.");
  }
  if (isWrittenDirectly(target_)) {
    file_.reset(std::fopen(target_.c_str(), "ab"));
    if (!file_) fail(errno);
  } else {
    std::error_code error;
    if (std::filesystem::is_symlink(target_, error)) {
      const auto resolved = std::filesystem::weakly_canonical(target_, error);
      if (!error) target_ = resolved;
    }
    written_ = neighbour(target_);
    file_.reset(std::fopen(written_.c_str(), "wbx"));
    if (!file_) raiseNoNeighbour(target_, errno, source_);
  }
  std::setvbuf(file_.get(), nullptr, _IONBF, 0);
}

OutputFile::~OutputFile() {
  file_.reset();
  std::error_code ignored;
  if (!written_.empty()) std::filesystem::remove(written_, ignored);
}

void OutputFile::write(std::string_view bytes) {
  if (std::fwrite(bytes.data(), 1, bytes.size(), file_.get()) != bytes.size()) fail(errno);
}

void OutputFile::commit() {
  if (std::fclose(file_.release()) != 0) fail(errno);
  if (written_.empty()) return;
  std::error_code error;
  const auto status = std::filesystem::status(target_, error);
  if (std::filesystem::exists(status)) {
    std::filesystem::permissions(written_, status.permissions(), error);
  }
  std::filesystem::rename(written_, target_, error);
  if (error) fail(error.value());
  written_.clear();
}

void OutputFile::fail(int error) const {
  raiseFileError("write", target_, error, source_);
}

void replaceFile(const std::filesystem::path& target, std::string_view bytes,
                 const std::string& source) {
  OutputFile file(target, source);
  file.write(bytes);
  file.commit();
}

void makeSureOfFile(const std::filesystem::path& path, const std::string& source) {
  std::error_code ignored;
  if (std::filesystem::exists(path, ignored)) return;
  std::FILE* file = std::fopen(path.c_str(), "ab");
  if (file == nullptr) raiseFileError("create", path, errno, source);
  std::fclose(file);
}

}  // namespace paperway
