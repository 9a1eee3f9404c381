#pragma once

#include <filesystem>
#include <string>

#include "paperway/platform/storage.h"

namespace paperway {

/// The bytes of one file as another. Copying a file onto itself is refused; every failure is an
/// AutomationError, after which an earlier file stands.
void copyFile(Storage& storage, const std::filesystem::path& from, const std::filesystem::path& to,
              const std::string& source);

}  // namespace paperway
