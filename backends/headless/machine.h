#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/clock.h"
#include "platform/file_system.h"
#include "platform/system_names.h"
#include "platform/user_store.h"
#include "util/automation_error.h"

namespace paperway::headless {

/// Shows the same moment until it is set to another.
class Clock : public paperway::Clock {
 public:
  Date now() override { return time; }

  Date time{2006, 3, 5, 14, 7, 9};
};

class SystemNames : public paperway::SystemNames {
 public:
  std::string computerName() override { return computer; }
  std::string userName() override { return user; }

  std::string computer = "HEADLESS";
  std::string user = "nobody";
};

/// Works on real files, so that what it makes can be opened; names and dates come from a script.
class FileSystem : public paperway::FileSystem {
 public:
  explicit FileSystem(std::filesystem::path temporary) : temporary_(std::move(temporary)) {}

  std::string GetSpecialFolder(SpecialFolder folder) override;
  std::string GetTempName() override;
  File GetFile(const std::string& path) override;
  bool FolderExists(const std::string& path) override;
  void createFolder(const std::string& path) override;
  void append(const std::string& path, std::string_view bytes) override;

  std::vector<std::string> calls;          // "append /folder/file"
  std::map<std::string, Date> modified;    // by path; other files were last changed in 2006
  std::optional<AutomationError> failure;  // raised by every call but FolderExists

 private:
  void note(const std::string& call);

  std::filesystem::path temporary_;
  int tempNames_ = 0;
};

/// Keeps its texts in memory.
class UserStore : public paperway::UserStore {
 public:
  std::string get(std::string_view application, std::string_view section, std::string_view key,
                  std::string_view fallback) override;
  void save(std::string_view application, std::string_view section, std::string_view key,
            std::string_view value) override;

  std::map<std::vector<std::string>, std::string> values;  // by lower-case address
  std::optional<AutomationError> failure;                  // raised by every call
};

}  // namespace paperway::headless
