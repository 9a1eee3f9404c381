#include "backends/desktop/system/work_file.h"

#include <cerrno>
#include <fcntl.h>
#include <random>
#include <system_error>
#include <unistd.h>

#include "paperway/storage.h"
#include "platform/file_error.h"

namespace paperway::desktop {
namespace {

namespace fs = std::filesystem;

constexpr char kPrefix[] = "work-";

/// The open folder, which nobody else has locked; nothing when somebody has, or it is gone.
std::unique_ptr<DescriptorFile> lockedFolder(const fs::path& path) {
  auto folder = DescriptorFile::open(path, O_RDONLY | O_DIRECTORY | O_NOFOLLOW);
  const bool isFree = folder->lock(std::chrono::milliseconds(0));
  return isFree && folder->isAt(path) ? std::move(folder) : nullptr;
}

/// What cannot be removed, or not even looked at, is left to the next.
void removeAbandoned(const fs::path& parent) {
  try {
    for (const fs::path& name : Storage().names(parent)) {
      if (!name.native().starts_with(kPrefix)) continue;
      if (const auto abandoned = lockedFolder(parent / name)) fs::remove_all(parent / name);
    }
  } catch (const std::system_error&) {
  }
}

}  // namespace

WorkFile::WorkFile(paperway::Folders& folders, const std::string& name) {
  const fs::path parent = folders.temporary();
  removeAbandoned(parent);
  constexpr int kTries = 10;
  for (int i = 0; i < kTries && inUse_ == nullptr; ++i) makeFolder(parent, name);
  if (inUse_ == nullptr) {
    raiseFileError("make a folder in", parent,
                   std::make_error_code(std::errc::device_or_resource_busy), "Folders");
  }
}

/// Another process may take it for an abandoned one until it is locked.
void WorkFile::makeFolder(const fs::path& parent, const std::string& name) {
  std::random_device random;
  folder_ = parent / (kPrefix + std::to_string(random()));
  path_ = folder_ / name;
  if (mkdir(folder_.c_str(), S_IRWXU) != 0) {
    if (errno == EEXIST) return;
    raiseFileError("make the folder", folder_, {errno, std::generic_category()}, "Folders");
  }
  try {
    inUse_ = lockedFolder(folder_);
  } catch (const std::system_error& error) {
    rmdir(folder_.c_str());
    if (error.code() == std::errc::no_such_file_or_directory) return;
    raiseFileError("lock the folder", folder_, error.code(), "Folders");
  } catch (...) {
    rmdir(folder_.c_str());
    throw;
  }
}

/// Needs no memory, the lack of which may have ended the work.
WorkFile::~WorkFile() {
  unlink(path_.c_str());
  rmdir(folder_.c_str());
}

}  // namespace paperway::desktop
