#include "platform/file_error.h"

#include <cerrno>

#include "paperway/automation_error.h"
#include "util/path_text.h"

namespace paperway {

long errorNumber(std::error_code error) {
  using enum std::errc;
  const auto isOneOf = [error](auto... reasons) { return ((error == reasons) || ...); };
#ifdef EDQUOT
  if (error == std::error_code(EDQUOT, std::generic_category())) return AutomationError::kDiskFull;
#endif
  if (isOneOf(no_space_on_device, file_too_large)) return AutomationError::kDiskFull;
  if (error == not_enough_memory) return AutomationError::kOutOfMemory;
  if (isOneOf(no_such_file_or_directory, not_a_directory)) return AutomationError::kPathNotFound;
  if (isOneOf(permission_denied, operation_not_permitted, read_only_file_system)) {
    return AutomationError::kPermissionDenied;
  }
  return AutomationError::kDeviceIo;
}

void raiseFileError(const char* verb, const std::filesystem::path& path, std::error_code error,
                    const std::string& source) {
  throw AutomationError(
      errorNumber(error), source,
      std::string("Cannot ") + verb + " \"" + textOf(path) + "\": " + error.message() + ".");
}

}  // namespace paperway
