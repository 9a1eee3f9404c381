#pragma once

#include <filesystem>

namespace paperway::desktop {

/// The user's base directory that the environment variable names ("XDG_DATA_HOME"); when it is
/// unset or relative, `fallback` below the home directory. Raises an AutomationError when there is
/// no home directory either.
std::filesystem::path userDirectory(const char* variable, const char* fallback);

/// Makes sure of the folder and those above it; what it makes has mode 0700. Raises an
/// AutomationError that names the folder and the reason. Gives the folder back.
std::filesystem::path makePrivateFolder(const std::filesystem::path& folder);

}  // namespace paperway::desktop
