#include "backends/desktop/system/system_names.h"

#include <filesystem>
#include <pwd.h>
#include <system_error>
#include <unistd.h>

namespace paperway::desktop {

std::string SystemNames::computerName() {
  char name[256] = {};
  return gethostname(name, sizeof name - 1) == 0 ? name : "";
}

std::string SystemNames::userName() {
  const passwd* user = getpwuid(geteuid());
  return user == nullptr ? "" : user->pw_name;
}

std::string SystemNames::programName() {
  if (!program.empty()) return program;
  std::error_code unknown;
  return std::filesystem::read_symlink("/proc/self/exe", unknown).stem().string();
}

}  // namespace paperway::desktop
