#pragma once

#include <filesystem>

#include "paperway/platform.h"

namespace paperway {

/// The "Local Dos" road to the printer: copies the whole report to "localdos.prn" in the work
/// folder and starts the script "Dosprn" beside it, which sends the copy to the printer, without
/// waiting for it. The script is made when it is missing, for the machine's own port where that
/// exists and for the current printer otherwise; after that it is the user's to change. An
/// AutomationError when there is neither, or when a file cannot be written.
void printLocalDos(const std::filesystem::path& report, const Platform& platform);

}  // namespace paperway
