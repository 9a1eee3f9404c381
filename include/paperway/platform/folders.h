#pragma once

#include <filesystem>

#include "paperway/export.h"

namespace paperway {

/// The folders in which the library keeps files of its own. Each call makes sure that the folder
/// exists (mode 0700 when it is made) and raises an AutomationError that names it when it cannot.
/// Paths are native and have no separator at their end.
class PAPERWAY_API Folders {
 public:
  virtual ~Folders() = default;

  /// Settings and the working files of previews and prints.
  virtual std::filesystem::path work() = 0;
  /// The program's own folder: "Currnt.prn" and "RANGE.prn".
  virtual std::filesystem::path program() = 0;
  /// Temporary files.
  virtual std::filesystem::path temporary() = 0;
};

}  // namespace paperway
