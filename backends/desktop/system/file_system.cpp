#include "backends/desktop/system/file_system.h"

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <fcntl.h>
#include <random>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

#include "backends/desktop/system/local_time.h"
#include "backends/desktop/system/user_directories.h"
#include "paperway/automation_error.h"
#include "platform/file_error.h"

namespace paperway::desktop {
namespace {

constexpr char kSource[] = "FileSystem";

[[noreturn]] void raiseUnopened(const std::string& path, int error) {
  if (error != ENOENT && error != ENOTDIR)
    raiseFileError("open", path, {error, std::generic_category()}, kSource);
  throw AutomationError(AutomationError::kFileNotFound, kSource,
                        "There is no file \"" + path + "\".");
}

int writeAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return errno;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return 0;
}

}  // namespace

std::string FileSystem::GetSpecialFolder(SpecialFolder /*folder*/) {
  return folders_.temporary().string();
}

std::string FileSystem::GetTempName() {
  std::random_device random;
  char name[32];
  std::snprintf(name, sizeof name, "pw%08x%08x.tmp", random(), random());
  return name;
}

FileSystem::File FileSystem::GetFile(const std::string& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0) raiseUnopened(path, errno);
  if (S_ISDIR(status.st_mode)) raiseUnopened(path, ENOENT);
  std::error_code error;
  const auto canonical = std::filesystem::canonical(path, error);
  if (error) raiseUnopened(path, error.value());
  return {canonical.string(), localTime(status.st_mtime)};
}

bool FileSystem::FolderExists(const std::string& path) {
  std::error_code ignored;
  return std::filesystem::is_directory(path, ignored);
}

void FileSystem::createFolder(const std::string& path) {
  makePrivateFolder(path);
}

void FileSystem::append(const std::string& path, std::string_view bytes) {
  const int descriptor = ::open(path.c_str(), O_WRONLY | O_APPEND | O_CLOEXEC);
  if (descriptor < 0) raiseUnopened(path, errno);
  int error = writeAll(descriptor, bytes);
  if (::close(descriptor) != 0 && error == 0) error = errno;
  if (error != 0) raiseFileError("write", path, {error, std::generic_category()}, kSource);
}

}  // namespace paperway::desktop
