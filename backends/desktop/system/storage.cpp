#include "paperway/storage.h"

#include <cerrno>
#include <charconv>
#include <cstdio>
#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <system_error>
#include <unistd.h>

#include "backends/desktop/system/descriptor_file.h"

namespace paperway::desktop {
namespace {

using Path = std::filesystem::path;

mode_t modeOf(FileAccess access) {
  constexpr mode_t kOwner = S_IRUSR | S_IWUSR;
  constexpr mode_t kEverybody = kOwner | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH;
  if (access == FileAccess::usual) return kEverybody;  // but for what the user's mask takes away
  return access == FileAccess::owner ? kOwner : kOwner | S_IXUSR;
}

/// The number behind one of these prefixes.
std::optional<int> numberedDescriptor(std::string_view path) {
  for (const std::string_view folder : {"/dev/fd/", "/proc/self/fd/"}) {
    if (!path.starts_with(folder)) continue;
    path.remove_prefix(folder.size());
    int number = -1;
    const auto read = std::from_chars(path.data(), path.data() + path.size(), number);
    if (read.ec != std::errc() || read.ptr != path.data() + path.size()) return std::nullopt;
    return number;
  }
  return std::nullopt;
}

/// The descriptor of the process that the path names.
std::optional<int> namedDescriptor(const Path& path) {
  if (path == "/dev/stdin") return STDIN_FILENO;
  if (path == "/dev/stdout") return STDOUT_FILENO;
  if (path == "/dev/stderr") return STDERR_FILENO;
  return numberedDescriptor(path.native());
}

/// One symbolic link after another, up to what is none, or to a descriptor of the process.
Path followed(Path path) {
  constexpr int kMostLinks = 40;
  std::error_code error;
  for (int i = 0; i < kMostLinks && !namedDescriptor(path); ++i) {
    const Path next = std::filesystem::read_symlink(path, error);
    if (error) break;  // no link
    path = path.parent_path() / next;
  }
  return path;
}

std::optional<struct stat> statusBehind(const Path& path) {
  const auto descriptor = namedDescriptor(path);
  return descriptor ? statusOf(*descriptor) : statusAt(path);
}

/// Locked, so that its maker is known to be there. Another may have taken it for abandoned before.
void markInUse(DescriptorFile& file, const Path& path) {
  if (flock(file.descriptor(), LOCK_EX | LOCK_NB) != 0 && errno != EWOULDBLOCK) return;
  if (file.isAt(path)) return;
  throw std::system_error(std::make_error_code(std::errc::file_exists));
}

}  // namespace

FileStatus Storage::status(const Path& path) {
  const Path target = followed(path);
  if (namedDescriptor(target)) return {FileStatus::Kind::stream};
  const auto status = statusAt(path);
  return status ? fileStatus(*status) : FileStatus();
}

bool Storage::isSame(const Path& one, const Path& other) {
  const auto first = statusBehind(one);
  const auto second = first ? statusBehind(other) : std::nullopt;
  return second && isSameFile(*first, *second);
}

Path Storage::behindLinks(const Path& path) {
  return followed(path);
}

std::unique_ptr<StoredFile> Storage::openToRead(const Path& path) {
  auto file = DescriptorFile::open(path, O_RDONLY);
  if (file->status().kind == FileStatus::Kind::folder) {
    throw std::system_error(std::make_error_code(std::errc::is_a_directory));
  }
  return file;
}

std::unique_ptr<StoredFile> Storage::openToAppend(const Path& path) {
  const auto descriptor = namedDescriptor(followed(path));
  if (!descriptor) return DescriptorFile::open(path, O_WRONLY | O_APPEND);
  const int copy = fcntl(*descriptor, F_DUPFD_CLOEXEC, 0);
  if (copy < 0) raiseSystemError();
  return std::make_unique<DescriptorFile>(copy);
}

std::unique_ptr<StoredFile> Storage::openToChange(const Path& path, FileAccess access) {
  return DescriptorFile::open(path, O_RDWR | O_CREAT, modeOf(access));
}

std::unique_ptr<StoredFile> Storage::create(const Path& path, FileAccess access) {
  auto file = DescriptorFile::open(path, O_WRONLY | O_CREAT | O_EXCL, modeOf(access));
  try {
    markInUse(*file, path);
  } catch (const std::system_error& error) {
    if (error.code() != std::errc::file_exists) unlink(path.c_str());
    throw;
  }
  return file;
}

void Storage::rename(const Path& from, const Path& to) {
  if (std::rename(from.c_str(), to.c_str()) != 0) raiseSystemError();
}

void Storage::remove(const Path& path) {
  if (unlink(path.c_str()) != 0) raiseSystemError();
}

void Storage::removeAbandoned(const Path& path) {
  DescriptorFile file(openDescriptor(path, O_RDONLY | O_NOFOLLOW | O_NONBLOCK));
  if (flock(file.descriptor(), LOCK_EX | LOCK_NB) == 0 && file.isAt(path)) remove(path);
}

/// A folder that may be written to but not read cannot be synced by its user.
void Storage::syncFolder(const Path& folder) {
  const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0 && errno == EACCES) return;
  if (descriptor < 0) raiseSystemError();
  DescriptorFile(descriptor).sync();
}

/// The iterator of the standard library ends the process when it lacks memory.
std::vector<Path> Storage::names(const Path& folder) {
  const std::unique_ptr<DIR, int (*)(DIR*)> open(opendir(folder.c_str()), closedir);
  if (!open) raiseSystemError();
  std::vector<Path> names;
  errno = 0;
  while (const dirent* entry = readdir(open.get())) {
    const std::string_view name = entry->d_name;
    if (name != "." && name != "..") names.emplace_back(name);
    errno = 0;
  }
  if (errno != 0) raiseSystemError();
  return names;
}

void Storage::makeWritable(const Path& path) {
  const auto status = statusAt(path);
  if (!status || (status->st_mode & S_IWUSR) != 0) return;
  if (chmod(path.c_str(), (status->st_mode & ~S_IFMT) | S_IWUSR) != 0 && errno != EPERM) {
    raiseSystemError();
  }
}

}  // namespace paperway::desktop
