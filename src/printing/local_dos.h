#pragma once

#include <filesystem>
#include <string>

#include "paperway/platform.h"

namespace paperway {

/// The "Local Dos" road to the printer: copies the whole report to "localdos.prn" in the work
/// folder and starts the script "Dosprn.sh" beside it, which sends the copy to the printer, without
/// waiting for it. The script is made when it is missing, for `device` where that exists and for
/// the current printer otherwise; after that it is the user's to change. An AutomationError when
/// there is neither, or when a file cannot be written.
void printLocalDos(const std::string& reportPath, const Platform& platform,
                   const std::filesystem::path& device = "/dev/usb/lp0");

}  // namespace paperway
