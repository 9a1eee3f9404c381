#pragma once

#include <string>

#include "apps/paperway/command_help.h"

namespace paperway::command {

/// The script that completes command lines in a shell: "bash", "zsh" or "fish". Empty for another.
std::string completionScript(const std::string& shell, const CommandHelp& program);

}  // namespace paperway::command
