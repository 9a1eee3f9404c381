#pragma once

#include <string>

#include "apps/paperway/command_help.h"

namespace paperway::command {

/// The manual page (section 1, roff with the macros of man).
std::string manualPage(const CommandHelp& program, const std::string& version);

}  // namespace paperway::command
