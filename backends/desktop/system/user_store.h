#pragma once

#include "paperway/platform/user_store.h"

namespace paperway::desktop {

/// One text file, $XDG_CONFIG_HOME/paperway/store.txt (~/.config/paperway/store.txt): a heading,
/// then a line for each text with application, section, key and value, divided by tabs. "\t",
/// "\n", "\r" and "\\" stand for what would break a line. Programs that save at the same time
/// wait for one another.
class UserStore : public paperway::UserStore {
 public:
  std::string get(std::string_view application, std::string_view section, std::string_view key,
                  std::string_view fallback) override;
  void saveAll(std::string_view application, std::string_view section,
               std::span<const Text> texts) override;
};

}  // namespace paperway::desktop
