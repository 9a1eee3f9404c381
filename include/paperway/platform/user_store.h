#pragma once

#include <string>
#include <string_view>

#include "paperway/export.h"

namespace paperway {

/// Texts that belong to a user and outlast the program, addressed by application, section and key,
/// all without regard to case. Addresses and values are UTF-8 of any content, line ends included.
/// A store that cannot be read or written raises an AutomationError that names it and the reason,
/// and stays as it was.
class PAPERWAY_API UserStore {
 public:
  virtual ~UserStore() = default;

  /// The value, or `fallback` when nothing was saved there.
  virtual std::string get(std::string_view application, std::string_view section,
                          std::string_view key, std::string_view fallback) = 0;
  virtual void save(std::string_view application, std::string_view section, std::string_view key,
                    std::string_view value) = 0;
};

}  // namespace paperway
