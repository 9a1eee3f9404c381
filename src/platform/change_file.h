#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "paperway/platform/storage.h"

namespace paperway {

/// Reads a small file, asks `change` for what it is to hold from now on, and replaces it in one
/// step. Programs that change the same file at once wait for one another, so that none loses what
/// another has kept; a file that does not come free within half a minute is an error. A file that
/// is missing counts as empty. When `change` raises, or gives the same bytes, nothing is touched.
/// Failures are AutomationErrors that name the file and the reason.
void changeFile(Storage& storage, const std::filesystem::path& path, const std::string& source,
                FileAccess access,
                const std::function<std::string(const std::string& bytes)>& change);

/// An empty file where there is none; what is there stays as it is.
void makeSureOfFile(Storage& storage, const std::filesystem::path& path, const std::string& source);

}  // namespace paperway
