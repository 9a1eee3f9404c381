#include "backends/desktop/system/descriptor_file.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <system_error>
#include <thread>
#include <unistd.h>

namespace paperway::desktop {
namespace {

constexpr mode_t kAllAccess = S_IRWXU | S_IRWXG | S_IRWXO;
constexpr std::int64_t kNanoseconds = 1'000'000'000;

/// A failure is raised. A signal that breaks the call off is one: whoever asks a program to stop
/// does not wait for what stands at the other end of a pipe.
template <typename Call>
auto checked(const Call& call) {
  const auto result = call();
  if (result < 0) raiseSystemError();
  return result;
}

/// Some file systems know no such thing.
bool isUnsupported(int error) {
  return error == EINVAL || error == ENOTSUP || error == ENOSYS || error == EROFS;
}

/// Of a file that cannot have the group of another: what that group may do, this one may only if
/// everybody may.
mode_t withoutGroup(mode_t mode) {
  return mode & (~mode_t{S_IRWXG} | (mode & S_IRWXO) << 3);
}

}  // namespace

void raiseSystemError() {
  throw std::system_error(errno, std::generic_category());
}

std::optional<struct stat> statusAt(const std::filesystem::path& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) == 0) return status;
  if (errno != ENOENT && errno != ENOTDIR) raiseSystemError();
  return std::nullopt;
}

struct stat statusOf(int descriptor) {
  struct stat status {};
  if (fstat(descriptor, &status) != 0) raiseSystemError();
  return status;
}

bool isSameFile(const struct stat& one, const struct stat& other) {
  return one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

FileStatus fileStatus(const struct stat& status) {
  if (S_ISDIR(status.st_mode)) return {FileStatus::Kind::folder};
  if (!S_ISREG(status.st_mode)) return {FileStatus::Kind::stream};
  return {FileStatus::Kind::regular, static_cast<std::uint64_t>(status.st_size),
          status.st_mtim.tv_sec * kNanoseconds + status.st_mtim.tv_nsec};
}

int openDescriptor(const std::filesystem::path& path, int flags, mode_t mode) {
  return checked([&] { return open(path.c_str(), flags | O_CLOEXEC | O_NOCTTY, mode); });
}

std::unique_ptr<DescriptorFile> DescriptorFile::open(const std::filesystem::path& path, int flags,
                                                     mode_t mode) {
  auto file = std::make_unique<DescriptorFile>(-1);
  file->descriptor_ = openDescriptor(path, flags, mode);
  return file;
}

DescriptorFile::~DescriptorFile() {
  close(descriptor_);
}

FileStatus DescriptorFile::status() {
  return fileStatus(statusOf(descriptor_));
}

std::size_t DescriptorFile::read(char* bytes, std::size_t size) {
  return static_cast<std::size_t>(checked([&] { return ::read(descriptor_, bytes, size); }));
}

void DescriptorFile::rewind() {
  checked([&] { return lseek(descriptor_, 0, SEEK_SET); });
}

void DescriptorFile::write(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written =
        checked([&] { return ::write(descriptor_, bytes.data(), bytes.size()); });
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
}

void DescriptorFile::takeAccessOf(const std::filesystem::path& other) {
  const auto status = statusAt(other);
  if (!status) return;
  mode_t mode = status->st_mode & kAllAccess;
  const bool hasOwner = fchown(descriptor_, status->st_uid, status->st_gid) == 0;
  const bool hasGroup =
      hasOwner || fchown(descriptor_, static_cast<uid_t>(-1), status->st_gid) == 0;
  if (!hasGroup && statusOf(descriptor_).st_gid != status->st_gid) mode = withoutGroup(mode);
  if (fchmod(descriptor_, mode) != 0 && errno != EPERM && !isUnsupported(errno)) {
    raiseSystemError();
  }
}

void DescriptorFile::sync() {
  checked([&] {
    const int result = fsync(descriptor_);
    return result < 0 && isUnsupported(errno) ? 0 : result;
  });
}

/// Each close of a descriptor tells what is still to tell.
void DescriptorFile::finish() {
  const int copy = fcntl(descriptor_, F_DUPFD_CLOEXEC, 0);
  if (copy < 0 || (close(copy) != 0 && errno != EINTR)) raiseSystemError();
}

bool DescriptorFile::lock(std::chrono::milliseconds patience) {
  using namespace std::chrono_literals;
  const auto deadline = std::chrono::steady_clock::now() + patience;
  for (auto pause = 1ms; flock(descriptor_, LOCK_EX | LOCK_NB) != 0;) {
    if (errno != EWOULDBLOCK && errno != EINTR) raiseSystemError();
    if (std::chrono::steady_clock::now() >= deadline) return false;
    std::this_thread::sleep_for(pause);
    pause = std::min(2 * pause, 20ms);
  }
  return true;
}

bool DescriptorFile::isAt(const std::filesystem::path& path) {
  const auto there = statusAt(path);
  return there && isSameFile(*there, statusOf(descriptor_));
}

}  // namespace paperway::desktop
