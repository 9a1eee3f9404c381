#pragma once

#include <filesystem>
#include <string>
#include <system_error>

namespace paperway {

/// Raises the AutomationError that says "Cannot VERB "PATH": REASON.".
[[noreturn]] void raiseFileError(const char* verb, const std::filesystem::path& path,
                                 std::error_code error, const std::string& source);

/// The number of the AutomationError that stands for the reason.
long errorNumber(std::error_code error);

/// Does a step of a Storage; a failure becomes the AutomationError that names the file.
template <typename Step>
decltype(auto) withFileError(const char* verb, const std::filesystem::path& path,
                             const std::string& source, const Step& step) {
  try {
    return step();
  } catch (const std::system_error& error) {
    raiseFileError(verb, path, error.code(), source);
  }
}

}  // namespace paperway
