#include "backends/desktop/system/user_directories.h"

#include <cerrno>
#include <cstdlib>
#include <pwd.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

#include "paperway/automation_error.h"
#include "platform/file_error.h"

namespace paperway::desktop {
namespace {

std::filesystem::path homeDirectory() {
  const char* home = std::getenv("HOME");
  if (home != nullptr && home[0] == '/') return home;
  const passwd* user = getpwuid(geteuid());
  if (user != nullptr && user->pw_dir != nullptr && user->pw_dir[0] == '/') return user->pw_dir;
  throw AutomationError(AutomationError::kPathNotFound, "Folders",
                        "There is no home directory: set HOME.");
}

}  // namespace

std::filesystem::path userDirectory(const char* variable, const char* fallback) {
  const char* value = std::getenv(variable);
  if (value != nullptr && value[0] == '/') return value;
  return homeDirectory() / fallback;
}

std::filesystem::path makePrivateFolder(const std::filesystem::path& folder) {
  std::error_code ignored;
  if (std::filesystem::is_directory(folder, ignored)) return folder;
  if (folder.has_relative_path()) makePrivateFolder(folder.parent_path());
  if (mkdir(folder.c_str(), S_IRWXU) == 0) return folder;
  const int error = errno;
  if (error != EEXIST || !std::filesystem::is_directory(folder, ignored)) {
    raiseFileError("make the folder", folder, {error, std::generic_category()}, "Folders");
  }
  return folder;
}

}  // namespace paperway::desktop
