#include "backends/desktop/system/system_names.h"

#include <pwd.h>
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

}  // namespace paperway::desktop
