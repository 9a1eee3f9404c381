#pragma once

#include "paperway/platform/storage.h"

namespace paperway::headless {

/// Files by the standard library alone: replaced in one step, but neither synced nor locked, and
/// without the owner of what they replace. A host that keeps what it makes hands its machine a real
/// one.
class PlainStorage : public paperway::Storage {
 public:
  FileStatus status(const Path& path) override;
  bool isSame(const Path& one, const Path& other) override;
  Path behindLinks(const Path& path) override;
  std::unique_ptr<StoredFile> openToRead(const Path& path) override;
  std::unique_ptr<StoredFile> openToAppend(const Path& path) override;
  std::unique_ptr<StoredFile> openToChange(const Path& path, FileAccess access) override;
  std::unique_ptr<StoredFile> create(const Path& path, FileAccess access) override;
  void rename(const Path& from, const Path& to) override;
  void remove(const Path& path) override;
  void removeAbandoned(const Path& path) override;
  void syncFolder(const Path& folder) override;
  std::vector<Path> names(const Path& folder) override;
  void makeWritable(const Path& path) override;
};

}  // namespace paperway::headless
