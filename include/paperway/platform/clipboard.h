#pragma once

#include <string>
#include <string_view>

#include "paperway/export.h"

namespace paperway {

/// The desktop's clipboard, as far as text goes (UTF-8).
class PAPERWAY_API Clipboard {
 public:
  virtual ~Clipboard() = default;

  /// Empty when there is no text on it.
  virtual std::string text() = 0;
  virtual void setText(std::string_view text) = 0;
};

}  // namespace paperway
