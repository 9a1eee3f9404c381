#pragma once

#include "paperway/export.h"
#include "paperway/value.h"

namespace paperway {

class PAPERWAY_API Clock {
 public:
  virtual ~Clock() = default;

  /// Date and time of day where the user is.
  virtual Date now() = 0;
};

}  // namespace paperway
