#pragma once

#include <string>
#include <string_view>

#include "paperway/export.h"
#include "paperway/value.h"

namespace paperway {

/// The machine's files, as the utility functions ask about them. Paths are UTF-8, for hosts
/// see them as texts. A file that is
/// missing, or a step that fails, is an AutomationError that names the file and the reason.
class PAPERWAY_API FileSystem {
 public:
  enum class SpecialFolder { temporary = 2 };

  struct File {
    std::string ShortPath;  // the canonical path: absolute, without links
    Date DateLastModified;  // local time
  };

  virtual ~FileSystem() = default;

  /// Path of the folder, without a separator at its end.
  virtual std::string GetSpecialFolder(SpecialFolder folder) = 0;

  /// A file name, without a folder, that nothing has used yet.
  virtual std::string GetTempName() = 0;

  virtual File GetFile(const std::string& path) = 0;

  /// False for whatever is no folder; raises nothing.
  virtual bool FolderExists(const std::string& path) = 0;

  /// Makes sure of the folder, for the user alone; the folder above it exists.
  virtual void createFolder(const std::string& path) = 0;

  /// Writes the bytes behind those of a file that exists.
  virtual void append(const std::string& path, std::string_view bytes) = 0;
};

}  // namespace paperway
