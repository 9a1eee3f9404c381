#pragma once

#include "paperway/export.h"
#include "paperway/platform/storage.h"

namespace paperway::desktop {

/// The files of the machine, by the system's own calls. Keeps nothing: each object is as good as
/// another. Files that it opens are not handed on to programs that are started.
///
/// A path that names a descriptor of the process (/dev/stdout, /dev/fd/3) is a stream, whatever is
/// behind it, and is written from where it stands: who opened it will go on writing there.
class PAPERWAY_API Storage : public paperway::Storage {
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

}  // namespace paperway::desktop
