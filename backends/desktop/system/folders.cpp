#include "backends/desktop/system/folders.h"

#include <cerrno>
#include <cstdlib>
#include <string>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

#include "backends/desktop/system/user_directories.h"
#include "paperway/automation_error.h"
#include "platform/file_error.h"

namespace paperway::desktop {
namespace {

std::filesystem::path dataFolder(const char* name) {
  return makePrivateFolder(userDirectory("XDG_DATA_HOME", ".local/share") / "paperway" / name);
}

// Anyone may make a folder of any name in a shared directory before its user does.
void requireOwnFolder(const std::filesystem::path& folder) {
  struct stat status {};
  if (lstat(folder.c_str(), &status) != 0) {
    raiseFileError("look at the folder", folder, {errno, std::generic_category()}, "Folders");
  }
  if (S_ISDIR(status.st_mode) && status.st_uid == geteuid()) return;
  throw AutomationError(AutomationError::kPermissionDenied, "Folders",
                        "The temporary folder \"" + folder.string() + "\" is not the user's own.");
}

}  // namespace

std::filesystem::path Folders::work() {
  return dataFolder("work");
}
std::filesystem::path Folders::program() {
  return dataFolder("program");
}

std::filesystem::path Folders::temporary() {
  const char* directory = std::getenv("TMPDIR");
  const bool usable = directory != nullptr && directory[0] == '/';
  const std::filesystem::path folder =
      makePrivateFolder(std::filesystem::path(usable ? directory : "/tmp") /
                        ("paperway-" + std::to_string(geteuid())));
  requireOwnFolder(folder);
  return folder;
}

}  // namespace paperway::desktop
