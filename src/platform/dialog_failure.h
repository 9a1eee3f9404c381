#pragma once

#include <cstdint>

#include "paperway/automation_error.h"
#include "paperway/platform/dialogs.h"

namespace paperway {

inline constexpr std::uint32_t kFileBufferTooSmall = 12291;

/// The error for a file dialog's failure by its code; of code 0, which is a cancelled dialog.
AutomationError dialogFailure(std::uint32_t code, FileQuestion::Purpose purpose);

}  // namespace paperway
