#include "platform/change_file.h"

#include <system_error>

#include "platform/file_error.h"
#include "platform/input_file.h"
#include "platform/output_file.h"

namespace paperway {
namespace {

constexpr std::chrono::seconds kPatience{30};

/// The file that has this name now, locked: another program may replace it between the opening and
/// the locking.
std::unique_ptr<StoredFile> lockedFile(Storage& storage, const std::filesystem::path& path,
                                       FileAccess access) {
  while (true) {
    auto file = storage.openToChange(path, access);
    if (!file->lock(kPatience)) {
      throw std::system_error(std::make_error_code(std::errc::device_or_resource_busy));
    }
    if (file->isAt(path)) return file;
  }
}

/// The empty file that a failed change has made.
void takeBack(Storage& storage, const std::filesystem::path& path, StoredFile& file) {
  try {
    if (file.isAt(path) && file.status().size == 0) storage.remove(path);
  } catch (const std::system_error&) {
    // An empty file does no harm.
  }
}

}  // namespace

void changeFile(Storage& storage, const std::filesystem::path& path, const std::string& source,
                FileAccess access,
                const std::function<std::string(const std::string& bytes)>& change) {
  bool isNew = false;
  const auto lock = withFileError("lock", path, source, [&] {
    isNew = storage.status(path).kind == FileStatus::Kind::none;
    return lockedFile(storage, path, access);
  });
  try {
    const std::string bytes = readFile(storage, path, source);
    const std::string changed = change(bytes);
    if (changed != bytes) replaceFile(storage, path, changed, source, {.access = access});
  } catch (...) {
    if (isNew) takeBack(storage, path, *lock);
    throw;
  }
}

void makeSureOfFile(Storage& storage, const std::filesystem::path& path,
                    const std::string& source) {
  withFileError("create", path, source, [&] {
    if (storage.status(path).kind != FileStatus::Kind::none) return;
    storage.openToChange(path, FileAccess::usual);
  });
}

}  // namespace paperway
