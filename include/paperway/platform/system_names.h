#pragma once

#include <filesystem>
#include <string>

#include "paperway/export.h"

namespace paperway {

/// Names by which the machine, its user and its parts are known; a text is UTF-8, and empty when
/// the system gives none.
class PAPERWAY_API SystemNames {
 public:
  virtual ~SystemNames() = default;

  virtual std::string computerName() = 0;
  virtual std::string userName() = 0;
  /// The device of the machine's own printer port, whether there is one or not.
  virtual std::filesystem::path printerPort() = 0;
  /// The program's own file name without its extension, under which a user's choices are kept.
  virtual std::string programName() = 0;
};

}  // namespace paperway
