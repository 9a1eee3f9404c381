#pragma once

#include <string>

#include "paperway/export.h"

namespace paperway {

/// Names by which the machine and its user are known, in UTF-8; empty when the system gives none.
class PAPERWAY_API SystemNames {
 public:
  virtual ~SystemNames() = default;

  virtual std::string computerName() = 0;
  virtual std::string userName() = 0;
};

}  // namespace paperway
