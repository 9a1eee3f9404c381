#pragma once

#include <filesystem>

namespace paperway::command {

/// A module of the program, "paperway-NAME.so": where programs install theirs, or beside the
/// program. Empty when there is none.
std::filesystem::path moduleFile(const char* name);

/// What it exports under a symbol. A std::runtime_error when it cannot be loaded. It stays loaded.
void* moduleSymbol(const std::filesystem::path& module, const char* symbol);

}  // namespace paperway::command
