#pragma once

#include <span>
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

  struct Text {
    std::string key;
    std::string value;
  };
  /// In one step: all of them are saved, or none.
  virtual void saveAll(std::string_view application, std::string_view section,
                       std::span<const Text> texts) = 0;
  void save(std::string_view application, std::string_view section, std::string_view key,
            std::string_view value) {
    const Text text{std::string(key), std::string(value)};
    saveAll(application, section, {&text, 1});
  }
};

}  // namespace paperway
